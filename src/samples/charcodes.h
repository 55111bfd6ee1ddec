// The character table's arithmetic: which code a cell or list entry stands for, and the
// decimal, hexadecimal, octal and binary texts shown for a code.
#pragma once

#include <QString>

namespace CharCodes {

// Cell i shows the character of code i + FirstCellCode; the list runs from FirstListCode
// to LastListCode (252, short of the cells' 255 on purpose).
inline constexpr int CellCount = 224;
inline constexpr int FirstCellCode = 32;
inline constexpr int FirstListCode = 33;
inline constexpr int LastListCode = 252;
// The cells are laid out in rows of this many.
inline constexpr int CellsPerRow = 16;

struct GridPlace {
    int row = 0;
    int column = 0;
};
GridPlace CellPlace(int index);

QString DecimalText(int code);
// Upper-case digits, no prefix, no leading zeros.
QString HexText(int code);
// No leading zeros.
QString OctalText(int code);
// Eight digits for 0..255, found by halving a divisor of 256 eight times; a remainder of
// exactly 1 after the eight steps adds one more "1" (only values from 256 up get there).
QString BinaryText(int code);

// Three blanks and the Windows-1252 character of the code.
QString ListEntry(int code);
// The entry's fourth character (the one after the three blanks), or "" when it is shorter.
QString EntryCharacter(const QString& entry);
// The text without its leading and trailing blanks (U+0020 only: a no-break space stays).
QString TrimBlanks(const QString& text);
// The Windows-1252 code of the first character of the text; -1 when the text is empty
// or the character has no code there.
int CodeOfText(const QString& text);

} // namespace CharCodes
