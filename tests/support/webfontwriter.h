// Test files in the other font formats, made from sfnt bytes in the test itself: WOFF
// with zlib, WOFF2 with libwoff's encoder, and collections of several fonts.
#pragma once

#include <QByteArray>
#include <QList>
#include <optional>

namespace WebFontWriter {

struct WoffOptions {
    std::optional<quint32> totalSfntSize; // stored instead of the real size
    std::optional<quint32> origLength;    // stored as every table's origLength
    bool compress = true;                 // zlib where it makes a table smaller
};
// A WOFF 1.0 file holding the font; tables in tag order, data in the font's order.
QByteArray woff(const QByteArray& sfnt, const WoffOptions& options = {});
// A WOFF2 file made by libwoff's encoder; empty when it refuses the font.
QByteArray woff2(const QByteArray& sfnt);
// A WOFF2 file whose header declares another total size.
QByteArray withWoff2TotalSize(QByteArray woff2, quint32 totalSfntSize);
// A TrueType collection ("ttcf" version 1) of the fonts, tables not shared.
QByteArray collection(const QList<QByteArray>& fonts);

} // namespace WebFontWriter
