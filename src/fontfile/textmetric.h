// The text metrics the font information window shows, as the classic 8-bit metric
// record holds them, and the lines it writes from them.
#pragma once

#include <QString>
#include <QStringList>
#include <cstdint>

struct TextMetric {
    int tmHeight = 0;
    int tmAscent = 0;
    int tmDescent = 0;
    int tmAveCharWidth = 0;
    int tmMaxCharWidth = 0;
    int tmCharSet = 0;
    int tmDefaultChar = 0; // character codes, 0 .. 255
    int tmFirstChar = 0;
    int tmLastChar = 0;
};

namespace TextMetrics {

// The character set a font reports: 2 (symbol) for a symbol character map, else the
// set of the lowest code-page bit of OS/2 ulCodePageRange1 that has one, else 1
// (default).
int charSetOf(bool symbolCmap, std::uint32_t codePageRange1);
// A 16-bit character code as an 8-bit record field holds it.
int clampToByte(int code);

// The 20-entry character-set table, position 0 empty. It is indexed by position, not
// by the system's codes: tmCharSet picks position tmCharSet + 1.
QStringList charsetTable();
// "Ascendant : " and the rest, each line ending in CR LF; the character-set line only
// when tmCharSet + 1 is at most 19.
QStringList informationLines(const TextMetric& metric, const QStringList& charsets);

} // namespace TextMetrics
