// Installing font files: the check, the name in the folder, the copy through a save
// file (never a half-written font), and telling fontconfig and Qt.
#include "output/fontinstall.h"

#include "fontfile/fontsystem.h"
#include "fontfile/webfont.h"
#include "output/userfonts.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QFontDatabase>
#include <QSaveFile>

namespace FontInstall {

namespace {

QString quoted(const QString& name)
{
    return QStringLiteral("« ") + name + QStringLiteral(" »");
}

QString notAFont(const QString& name)
{
    return QStringLiteral("Le fichier %1 n'est pas une police lisible : il n'a pas été installé.").arg(quoted(name));
}

// A plain font file copied in 1 MB pieces; false when anything could not be read or written.
bool copyInto(QSaveFile& target, const QString& source)
{
    QFile in(source);
    if (!in.open(QIODevice::ReadOnly))
        return false;
    QByteArray piece;
    while (!in.atEnd()) {
        piece = in.read(1024 * 1024);
        if (piece.isEmpty() || target.write(piece) != piece.size())
            return false;
    }
    return true;
}

bool writeFont(const QString& targetPath, const QString& source, const QByteArray& unpacked)
{
    QSaveFile target(targetPath);
    if (!target.open(QIODevice::WriteOnly))
        return false;
    const bool written = unpacked.isEmpty() ? copyInto(target, source) : target.write(unpacked) == unpacked.size();
    if (!written) {
        target.cancelWriting();
        return false;
    }
    return target.commit();
}

Result installOne(const QString& source, const ReplaceQuestion& replace, const QDir& folder)
{
    Result result;
    result.source = source;
    const QFileInfo info(source);
    const WebFont::Decoded web = WebFont::decodeFile(source);
    if (web.status != WebFont::Status::Decoded && web.status != WebFont::Status::NotWebFont) {
        result.message = WebFont::refusal(web, info.fileName()) + QStringLiteral(" Il n'a pas été installé.");
        return result;
    }
    // A font is what its first bytes say, and what FreeType can open.
    const bool readable = web.status == WebFont::Status::Decoded
                              ? !FontSystem::familiesOfData(web.sfnt, 1).value(0).isEmpty()
                              : WebFont::isFont(web.format) && !FontSystem::familiesOfFile(source, 1).value(0).isEmpty();
    if (!readable) {
        result.message = notAFont(info.fileName());
        return result;
    }
    const QString name = web.sfnt.isEmpty() ? info.fileName() : info.completeBaseName() + WebFont::sfntSuffix(web.sfnt);
    result.target = folder.filePath(name);
    const QFileInfo existing(result.target);
    bool replacing = false;
    if (existing.exists()) {
        if (existing.canonicalFilePath() == info.canonicalFilePath()) {
            result.outcome = Outcome::AlreadyThere;
            return result;
        }
        if (!replace(name)) {
            result.outcome = Outcome::Kept;
            return result;
        }
        replacing = true;
    }
    if (!writeFont(result.target, source, web.sfnt)) {
        result.outcome = Outcome::Failed;
        result.message = QStringLiteral("Impossible d'écrire %1 dans le dossier des polices %2.")
                             .arg(quoted(name), QDir::toNativeSeparators(folder.absolutePath()));
        return result;
    }
    result.outcome = replacing ? Outcome::Replaced : Outcome::Installed;
    return result;
}

} // namespace

QList<Result> install(const QStringList& files, const ReplaceQuestion& replace, const QString& folder)
{
    QList<Result> results;
    const bool ready = QDir().mkpath(folder);
    for (const QString& file : files) {
        if (!ready) {
            Result failed{file, QString(), Outcome::Failed,
                          QStringLiteral("Impossible de créer le dossier des polices %1.").arg(QDir::toNativeSeparators(folder))};
            results.append(failed);
            continue;
        }
        results.append(installOne(file, replace, QDir(folder)));
    }
    return results;
}

QList<Result> install(const QStringList& files, const ReplaceQuestion& replace)
{
    return install(files, replace, UserFonts::Folder());
}

bool changedFolder(const Result& result)
{
    return result.outcome == Outcome::Installed || result.outcome == Outcome::Replaced;
}

void publish(const QString& installedFont)
{
    // fontconfig reads its folders again (and writes the folder's cache, so that other
    // programs need not scan it).
    UserFonts::Refresh();
    // Qt 6.4 has no public way to read the system's fonts again. Removing an application
    // font makes it rebuild its whole database from fontconfig's current configuration,
    // so one of the new fonts is registered and removed at once: what stays is the
    // system's fonts as they are now, new families included.
    const int id = QFontDatabase::addApplicationFont(installedFont);
    if (id >= 0)
        QFontDatabase::removeApplicationFont(id);
}

} // namespace FontInstall
