// WmfDecoder: Windows metafiles (placeable or not) played into a picture through libwmf.
// The one place in the program that talks to libwmf.
#pragma once

#include <QByteArray>
#include <QImage>

namespace WmfDecoder {

// Screen resolution the metafile's logical size is turned into pixels with.
inline constexpr double PixelsPerInch = 96.0;
// Pictures larger than this (either side, or in all) are refused rather than allocated.
inline constexpr unsigned MaximumSide = 8192;
inline constexpr qint64 MaximumPixels = 40'000'000;
// Metafiles of more records than this are refused before they are played.
inline constexpr qint64 MaximumRecords = 100'000;

// True when the bytes start like a metafile: the placeable key, or a standard header
// (type 1 or 2, header size 9 words, a known version).
bool LooksLikeMetafile(const QByteArray& bytes);
// The records before the end record (or the end of the bytes), counting stops past
// MaximumRecords; -1 when the header or a record's size is broken (a record under 3
// words, or a largest record the file cannot hold). Such files are refused.
qint64 RecordCount(const QByteArray& bytes);
// The metafile drawn on a white picture of its own size; a null image when it cannot be
// read or played.
QImage Decode(const QByteArray& bytes);

} // namespace WmfDecoder
