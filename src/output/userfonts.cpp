// The user's font files through fontconfig's FreeType scanner.
#include "output/userfonts.h"

#include "components/boundedfile.h"
#include "fontfile/fontsystem.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QSet>
#include <QStandardPaths>
#include <algorithm>
#include <fontconfig/fontconfig.h>

namespace UserFonts {

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
    // Read once, bounded and only from a regular file: a pipe or a device in the font
    // folder cannot hold the list.
    const BoundedFile::Result bytes = BoundedFile::read(path, BoundedFile::FontLimit);
    if (!bytes.ok())
        return file;
    QStringList families, styles;
    for (const FontSystem::FaceNames& face : FontSystem::facesOfData(bytes.bytes)) {
        if (!families.contains(face.family))
            families.append(face.family);
        if (!face.style.isEmpty() && !styles.contains(face.style))
            styles.append(face.style);
    }
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
