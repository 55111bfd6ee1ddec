// The user's font files through fontconfig's FreeType scanner.
#include "output/userfonts.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QSet>
#include <QStandardPaths>
#include <algorithm>
#include <fontconfig/fontconfig.h>

namespace UserFonts {

namespace {

void appendOnce(QStringList& values, FcPattern* pattern, const char* object)
{
    FcChar8* value = nullptr;
    if (FcPatternGetString(pattern, object, 0, &value) == FcResultMatch && value) {
        const QString text = QString::fromUtf8(reinterpret_cast<const char*>(value));
        if (!values.contains(text))
            values.append(text);
    }
}

} // namespace

QString Folder()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + QStringLiteral("/fonts");
}

QStringList Folders()
{
    QStringList folders;
    for (const QString& folder : {Folder(), QDir::homePath() + QStringLiteral("/.fonts")})
        if (QFileInfo(folder).isDir())
            folders.append(QDir(folder).absolutePath());
    return folders;
}

FontFile Describe(const QString& path)
{
    FontFile file{path, QString(), QString()};
    FcFontSet* set = FcFontSetCreate();
    if (!set)
        return file;
    const QByteArray name = QFile::encodeName(path);
    // -1: every face of a collection and every named instance of a variable font.
    FcFreeTypeQueryAll(reinterpret_cast<const FcChar8*>(name.constData()), static_cast<unsigned>(-1), nullptr, nullptr, set);
    QStringList families, styles;
    for (int i = 0; i < set->nfont; ++i) {
        appendOnce(families, set->fonts[i], FC_FAMILY);
        appendOnce(styles, set->fonts[i], FC_STYLE);
    }
    FcFontSetDestroy(set);
    file.family = families.join(QStringLiteral("; "));
    file.style = styles.join(QStringLiteral("; "));
    return file;
}

QList<FontFile> List()
{
    QList<FontFile> files;
    QSet<QString> seen; // ~/.fonts may lead to the same files
    for (const QString& folder : Folders()) {
        QDirIterator it(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
        while (it.hasNext()) {
            const QFileInfo info(it.next());
            const QString path = info.absoluteFilePath();
            const QString canonical = info.canonicalFilePath();
            if (seen.contains(canonical))
                continue;
            seen.insert(canonical);
            FontFile file = Describe(path);
            if (!file.family.isEmpty())
                files.append(file);
        }
    }
    std::sort(files.begin(), files.end(), [](const FontFile& a, const FontFile& b) {
        if (const int c = QString::localeAwareCompare(a.family, b.family))
            return c < 0;
        if (const int c = QString::localeAwareCompare(a.style, b.style))
            return c < 0;
        return a.path < b.path;
    });
    return files;
}

bool MoveToTrash(const QString& path, QString* where)
{
    QString inTrash;
    const bool moved = QFile::moveToTrash(path, &inTrash);
    if (moved && where)
        *where = inTrash;
    return moved;
}

void Refresh()
{
    // Drops the current configuration and its cached font sets and builds them again
    // from the folders as they are now.
    FcInitReinitialize();
}

} // namespace UserFonts
