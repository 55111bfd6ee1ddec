// PictureFile: reading the background picture of the rotated sample from a file, in any
// format Qt's image readers know (GIF, JPEG, BMP, ICO, PNG, ...) or as a Windows metafile.
#pragma once

#include <QImage>
#include <QString>

namespace PictureFile {

// The picture in the file, or a null image when the file cannot be read or decoded.
// The format is told by the content, so a misnamed file still loads.
QImage Load(const QString& path);
// The message shown when a file gives no picture.
QString ErrorText(const QString& path);

} // namespace PictureFile
