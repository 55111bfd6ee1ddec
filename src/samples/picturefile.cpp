// Picture files: read through BoundedFile, then Qt's image readers by content with
// the pixel and allocation limits, or metafiles through WmfDecoder.
#include "samples/picturefile.h"

#include "components/boundedfile.h"
#include "samples/wmfdecoder.h"

#include <QBuffer>
#include <QDir>
#include <QFileInfo>
#include <QImageReader>

namespace PictureFile {

namespace {

bool tooManyPixels(const QSize& size)
{
    return size.isValid() && qint64(size.width()) * qint64(size.height()) > MaximumPixels;
}

QImage readWith(QBuffer& buffer, const QByteArray& format)
{
    buffer.seek(0);
    QImageReader reader(&buffer, format);
    reader.setDecideFormatFromContent(format.isEmpty());
    reader.setAutoTransform(true);
    // The size a reader announces is checked before anything is allocated for it;
    // formats that announce none meet Qt's allocation limit instead.
    if (tooManyPixels(reader.size()))
        return {};
    QImage picture = reader.read();
    return tooManyPixels(picture.size()) ? QImage() : picture;
}

} // namespace

QImage Decode(const QByteArray& bytes, const QByteArray& suffix)
{
    if (WmfDecoder::LooksLikeMetafile(bytes))
        return WmfDecoder::Decode(bytes);
    QImageReader::setAllocationLimit(AllocationLimitMB);
    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    QImage picture = readWith(buffer, QByteArray());
    // Formats without a signature (such as TGA) are known only by the file's suffix.
    if (picture.isNull() && !suffix.isEmpty())
        picture = readWith(buffer, suffix);
    return picture;
}

QImage Load(const QString& path)
{
    const BoundedFile::Result file = BoundedFile::read(path, MaximumFileSize);
    if (!file.ok())
        return {};
    return Decode(file.bytes, QFileInfo(path).suffix().toLower().toLatin1());
}

QString ErrorText(const QString& path)
{
    return QStringLiteral("Erreur, impossible de lire l'image \"%1\". Le fichier est peut-être endommagé ou d'un format inconnu.")
        .arg(QDir::toNativeSeparators(path));
}

} // namespace PictureFile
