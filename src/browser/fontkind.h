// FontKind: the kind of a font family (serif, sans serif, script, decorative, symbol)
// read from its own OS/2 table, and the kinds the font list's filter offers.
//
// The rule, applied to the family's regular face:
//  0. A face with a symbol character map (fontconfig's "symbol") is a symbol font.
//  1. OS/2 sFamilyClass, class (high byte): 1-5 and 7 serif, 8 sans serif, 9 decorative
//     (ornamentals), 10 script, 12 symbol.
//  2. Otherwise PANOSE bFamilyType: 3 script (hand written), 4 decorative, 5 symbol;
//     2 (Latin text) by bSerifStyle: 2-10 serif, 11-15 sans serif (normal, obtuse,
//     perpendicular, flared, rounded).
//  3. A font with no OS/2 table, or whose class and PANOSE say neither (0 "no
//     classification", reserved classes, "any" or "no fit"), is of no kind: it is
//     listed under "Toutes" only.
// Fixed pitch is not a kind: it comes from fontconfig's spacing, so a fixed-pitch serif
// face is under both "Avec empattements" and "Chasse fixe".
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <array>
#include <cstdint>
#include <optional>
#include <span>

namespace FontKind {

enum class Kind { None, Serif, SansSerif, Script, Decorative, Symbol };

// The classification fields of an OS/2 table.
struct Os2Class {
    std::int16_t familyClass = 0;          // sFamilyClass: class in the high byte
    std::array<std::uint8_t, 10> panose{}; // bFamilyType, bSerifStyle, ...
};

Kind classify(const std::optional<Os2Class>& os2, bool symbolCmap = false);

// sFamilyClass and PANOSE of face `faceIndex` of a TrueType/OpenType file or collection
// held in memory; nothing when the bytes hold no such table (or not enough of one).
std::optional<Os2Class> readOs2(std::span<const std::uint8_t> file, int faceIndex = 0);
// The same from a file on disk; only the headers and the OS/2 table are read.
std::optional<Os2Class> readOs2File(const QString& path, int faceIndex = 0);

// The choices of the kind filter, in the order of its combo box.
enum class Genre { All, Serif, SansSerif, Monospace, Script, Decorative, Symbol };
// Their French captions, same order.
QStringList genreCaptions();
bool matches(Genre genre, Kind kind, bool monospace);

} // namespace FontKind
