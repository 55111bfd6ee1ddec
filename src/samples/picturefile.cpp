// Picture files: Qt's image readers first by content, metafiles through WmfDecoder.
#include "samples/picturefile.h"

#include "samples/wmfdecoder.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QImageReader>

namespace PictureFile {

namespace {

// Larger files are no pictures anyone tiles behind a sample; refuse them before reading.
constexpr qint64 MaximumFileSize = 256LL * 1024 * 1024;

} // namespace

QImage Load(const QString& path)
{
    if (path.isEmpty())
        return {};
    QFile file(path);
    if (file.size() > MaximumFileSize || !file.open(QIODevice::ReadOnly))
        return {};
    const QByteArray bytes = file.readAll();
    if (WmfDecoder::LooksLikeMetafile(bytes))
        return WmfDecoder::Decode(bytes);

    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer);
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true);
    QImage picture = reader.read();
    if (picture.isNull()) {
        // Formats without a signature (such as TGA) are known only by the file's suffix.
        QImageReader byName(path);
        picture = byName.read();
    }
    return picture;
}

QString ErrorText(const QString& path)
{
    return QStringLiteral("Erreur, impossible de lire l'image \"%1\". Le fichier est peut-être endommagé ou d'un format inconnu.")
        .arg(QDir::toNativeSeparators(path));
}

} // namespace PictureFile
