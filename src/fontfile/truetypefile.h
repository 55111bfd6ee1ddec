// TrueType file reading without any windowing: the table directory, the head magic,
// the name records and strings, and the OS/2 style word, read into state that
// persists from one file to the next. Every font file is untrusted input.
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <cstdint>
#include <optional>
#include <span>

namespace TrueType {

constexpr std::uint32_t headMagic = 0x5F0F3CF5;

// One name record; every field is a signed 16-bit word, as stored after swapping.
struct NameRecord {
    std::int16_t platformID = 0;
    std::int16_t encodingID = 0;
    std::int16_t languageID = 0;
    std::int16_t nameID = 0;
    std::int16_t length = 0;
    std::int16_t offset = 0;
};

// The records of the last name table read, and where each string's bytes lie in
// `store` (a copy of the part of the file the strings came from). A string of
// length 0, or one that could not be read, is empty. Strings are decoded on demand.
struct NameTable {
    struct Bytes {
        qsizetype start = 0;
        qsizetype length = 0;
    };
    QList<NameRecord> records;
    QList<Bytes> strings; // one per record, same index
    QByteArray store;

    QString string(qsizetype index) const;
    bool stringIsEmpty(qsizetype index) const;
};

// What reading leaves behind. A read replaces only what it finds: the name table
// when a name table is read, the style word when an OS/2 table is read, the valid
// flag when a head table is found.
struct FontTables {
    bool valid = false;
    std::optional<NameTable> names; // empty until a name table has been read
    std::int16_t styleWord = 0;     // fsSelection of the last OS/2 table read
};

// How a read ended. Anything but Complete stopped at the first failing read; what
// was stored up to that point stays.
enum class ReadEnd {
    Complete,
    CannotOpen,         // not a regular file, too large, or unreadable (nothing was read)
    NoOffsetTable,      // fewer than 12 bytes
    BadTableCount,      // numTables of 0 or less
    DirectoryOutside,   // the directory runs past the end
    HeadOutside,        // the 54 bytes of head do not fit
    NameHeaderOutside,  // the name table's 6-byte header does not fit
    BadNameCount,       // a name count of 0 or less
    NameRecordsOutside, // the records run past the end
    BadStringLength,    // a negative string length
    StringOutside,      // a string lies outside the file
    OS2Outside,         // the OS/2 table does not reach fsSelection
    BadFaceIndex,       // no such face: past a collection's count, or not 0 in a plain font
    CollectionOutside,  // a collection's header or face offset does not fit
    WorkCapReached,     // the file asked for more work than readLimits allows
};

// What reading one file may cost, whatever its counts and offsets say. A directory
// entry pointing at a table already read at the same offset costs nothing: the table
// is not read again (the result would be the same). A table that would go past one of
// these limits ends the read with WorkCapReached, like any other failing read. A
// well-formed font has one table of each kind and stays far below them.
struct ReadLimits {
    int tables = 1024;             // name and OS/2 tables read at distinct offsets
    int nameRecords = 65536;       // name records parsed (two full tables of 32,767)
    qint64 stringBytes = 1 << 20;  // bytes copied for name strings
    qint64 fileBytes = 256LL << 20; // files larger than this are not read at all
};
inline constexpr ReadLimits readLimits{};

// Reads one file's tables into `tables`.
ReadEnd readFontFile(std::span<const std::uint8_t> file, FontTables& tables);
// The same from a file on disk, of which only the directory and the four tables are read.
ReadEnd readFontFile(const QString& path, FontTables& tables);

// A collection ("ttcf") holds several fonts that share tables; each face has its own
// offset table and directory, whose table offsets count from the start of the file.
// A plain TrueType or OpenType (CFF, "OTTO") file is one face.
//
// The number of faces: 1 for a plain font file, a collection's count as far as its
// face offsets lie in the file, 0 when not even a tag can be read.
int faceCount(std::span<const std::uint8_t> file);
int faceCount(const QString& path);
// Reads one face's tables; face 0 is what readFontFile reads.
ReadEnd readFontFace(std::span<const std::uint8_t> file, int faceIndex, FontTables& tables);
ReadEnd readFontFace(const QString& path, int faceIndex, FontTables& tables);

// A name string's bytes as text: 8-bit text in the ANSI code page, unless the first
// byte is 0; then the bytes are shifted down by one and read as little-endian UTF-16
// (exact only below U+0100), a shortcut that is kept on purpose.
QString decodeNameString(std::span<const std::uint8_t> bytes);
// The number of characters decodeNameString gives, without decoding.
qsizetype decodedLength(std::span<const std::uint8_t> bytes);

// The string for a name ID: the first Microsoft record in the system language, else
// the last Microsoft record, else the first non-empty string of another platform.
// nullopt when no name table was ever read.
std::optional<QString> nameString(const FontTables& tables, int nameID, std::int32_t systemLanguage);

// True when 0 <= bit <= 15 and that bit of the sign-extended 16-bit value is set.
bool isBitSet(std::int16_t value, int bit);

} // namespace TrueType
