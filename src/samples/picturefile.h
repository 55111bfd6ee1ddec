// PictureFile: reading the background picture of the rotated sample from a file, in any
// format Qt's image readers know (GIF, JPEG, BMP, ICO, PNG, ...) or as a Windows metafile.
// Pictures come from anywhere: only regular files are read, and every size is bounded.
#pragma once

#include <QImage>
#include <QString>

namespace PictureFile {

// A larger file is refused before it is decoded.
inline constexpr qint64 MaximumFileSize = 64LL * 1024 * 1024;
// A picture whose declared size is larger than this is refused before any pixel is
// decoded; Qt's own allocation limit is set to the same 40 megapixels at 4 bytes each.
inline constexpr qint64 MaximumPixels = 40'000'000;
inline constexpr int AllocationLimitMB = int(MaximumPixels * 4 / (1024 * 1024)) + 1;

// The picture in the file, or a null image when the file cannot be read or decoded or
// is not a regular file (folder, named pipe, device) or passes one of the limits.
// The format is told by the content, so a misnamed file still loads.
QImage Load(const QString& path);
// The same from bytes already read; `suffix` names the format of files that carry no
// signature (such as TGA).
QImage Decode(const QByteArray& bytes, const QByteArray& suffix = QByteArray());
// The message shown when a file gives no picture.
QString ErrorText(const QString& path);

} // namespace PictureFile
