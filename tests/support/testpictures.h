// Small pictures written by hand for the picture tests: a GIF encoder (Qt reads GIF but
// cannot write it) and Windows metafiles built record by record.
#pragma once

#include <QByteArray>
#include <QImage>
#include <QString>

namespace TestPictures {

// The image as a GIF file (at most 256 colours), uncompressed LZW: every code is a
// literal and a clear code comes before the code width would grow.
QByteArray gif(const QImage& image);

// A placeable metafile of width x height pixels (96 units per inch) filled with one colour.
QByteArray wmfFilled(int width, int height, QRgb fill);
// The same drawing without the placeable header (a standard metafile header only).
QByteArray wmfStandard(int width, int height, QRgb fill);
// A placeable metafile whose frame declares the given size in units at 96 per inch.
QByteArray wmfWithFrame(int width, int height);

// Writes bytes to dir/name and returns the path.
QString write(const QString& dir, const QString& name, const QByteArray& bytes);

} // namespace TestPictures
