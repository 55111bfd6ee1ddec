// Test fonts built byte by byte: an offset table, a directory, head, name and OS/2
// from a few lines of C++, broken on purpose where a test needs it, and drawable
// fonts made from an installed TrueType file with its names replaced.
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <array>
#include <optional>

namespace Sfnt {

constexpr quint32 headMagic = 0x5F0F3CF5;

// One name record and its string bytes. `length` and `offset` override what is
// stored in the record (by default the bytes' size and the next free place).
struct Name {
    int platform = 3;
    int encoding = 1;
    int language = 0x0409;
    int nameId = 1;
    QByteArray bytes;
    std::optional<int> length;
    std::optional<int> offset;
};

// A Microsoft record: UTF-16 big-endian text.
Name microsoft(int nameId, const QString& text, int language = 0x0409);
// A Macintosh record (platform 1, Roman, English): the bytes as given.
Name macintosh(int nameId, const QByteArray& bytes);

// head: 54 bytes with the given magic number at offset 12.
QByteArray head(quint32 magic = headMagic);
// OS/2 version 1 (86 bytes): fsSelection at 62, ulCodePageRange1 at 78.
QByteArray os2(quint16 fsSelection, quint32 codePageRange1 = 1);

struct NameOptions {
    std::optional<qint16> count;        // stored count instead of the number of records
    std::optional<qint16> stringOffset; // stored stringOffset instead of 6 + 12 * count
};
QByteArray name(const QList<Name>& names, const NameOptions& options = {});

struct Table {
    QByteArray tag;
    QByteArray data;
    std::optional<qint64> offset; // directory offset instead of the table's real place
};
// Offset table, directory, then the tables in the given order, 4-byte aligned.
QByteArray font(const QList<Table>& tables, std::optional<quint16> numTables = {});
// head, name and OS/2.
QByteArray simpleFont(const QList<Name>& names, quint16 fsSelection = 0, quint32 magic = headMagic);

// Reading back a font made here or installed: a table's bytes, or empty.
QByteArray tableOf(const QByteArray& font, const QByteArray& tag);
// The offsets where each table starts and ends, sorted, for truncation tests.
QList<qint64> tableBoundaries(const QByteArray& font);
// The same font with one table replaced (or added).
QByteArray withTable(const QByteArray& font, const QByteArray& tag, const QByteArray& data);
// A copy of `font` whose name table holds `names`.
QByteArray renamed(const QByteArray& font, const QList<Name>& names);
// The usual names of a drawable test family: 1 family, 2 subfamily, 4 full name, 6
// PostScript name, plus copyright, unique id, version and trademark.
QList<Name> familyNames(const QString& family, const QString& subfamily = QStringLiteral("Regular"));
// A cmap table mapping exactly the given code points to the given glyphs: a BMP map
// (3, 1, format 4) and a full one (3, 10, format 12). Codes must be ascending.
QByteArray cmap(const QList<QPair<char32_t, quint16>>& mapping);
// Changes the first Microsoft Unicode character map (3, 1) into a symbol one (3, 0).
QByteArray withSymbolCmap(const QByteArray& font);
// Patches OS/2 ulCodePageRange1 and, when given, the first, last and default characters
// (the table becomes version 2 to hold a default character).
QByteArray withCodePages(const QByteArray& font, quint32 codePageRange1, std::optional<quint16> first = {},
                         std::optional<quint16> last = {}, std::optional<quint16> defaultChar = {});

// A hand-made TrueType font with real outlines for exactly the given characters (Basic
// Multilingual Plane): each is a filled box, a wide one for even codes and a narrow
// one for odd codes; glyph 0, drawn for any other character, is a hollow frame.
QByteArray boxFont(const QString& family, const QList<char32_t>& characters);
// The characters first..last.
QList<char32_t> characterRange(char32_t first, char32_t last);
// A small drawable TrueType font made here: the printable ASCII characters each have
// a glyph of their own (a box whose size depends on the character), the space none.
QByteArray outlineFont(const QList<Name>& names);

// Every OS/2 field the details window shows, for a table of any version: version 0
// stops after usWinDescent (78 bytes), 1 after the code pages (86), 2 to 4 after
// usMaxContext (96), 5 after the optical sizes (100).
struct Os2Fields {
    quint16 version = 4;
    quint16 weightClass = 400;
    quint16 widthClass = 5;
    quint16 fsType = 0;
    qint16 strikeoutSize = 100;
    qint16 strikeoutPosition = 500;
    std::array<quint8, 10> panose{};
    std::array<quint32, 4> unicodeRanges{};
    QByteArray vendor = "GLYP";
    quint16 fsSelection = 0x0040;
    qint16 typoAscender = 1600;
    qint16 typoDescender = -400;
    qint16 typoLineGap = 200;
    quint16 winAscent = 1900;
    quint16 winDescent = 500;
    std::array<quint32, 2> codePages{1, 0};
    qint16 xHeight = 1100;
    qint16 capHeight = 1500;
};
QByteArray os2(const Os2Fields& fields);
// The same font without a table.
QByteArray withoutTable(const QByteArray& font, const QByteArray& tag);
// A copy of a table with a 16-bit field replaced.
QByteArray with16(QByteArray table, qsizetype at, quint16 value);
// A GSUB table that offers features without lookups: each feature listed for the default
// script, and a stylistic set's name ID in its parameters when `nameId` is given.
struct GsubFeature {
    QByteArray tag;
    std::optional<quint16> nameId;
};
QByteArray gsub(const QList<GsubFeature>& features);

// An installed TrueType file with real outlines (DejaVu Sans), found through fontconfig.
QString installedTrueTypeFile();
// A drawable font: the installed file's outlines under the given names.
QByteArray drawable(const QList<Name>& names);
QByteArray readFile(const QString& path);
bool writeFile(const QString& path, const QByteArray& bytes);

} // namespace Sfnt
