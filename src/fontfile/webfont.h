// Font file formats told apart by their first bytes, and web fonts (WOFF, WOFF2) turned
// back into the sfnt bytes of the font they wrap, in memory, within a size limit.
// Every file is untrusted: a broken one gives a status, never a crash or a huge buffer.
#pragma once

#include <QByteArray>
#include <QString>
#include <cstdint>
#include <span>

namespace WebFont {

enum class Format {
    Unknown,    // none of the signatures below
    TrueType,   // sfnt version 0x00010000 or 'true'
    OpenType,   // sfnt version 'OTTO': CFF outlines
    Collection, // 'ttcf'
    Woff,       // 'wOFF'
    Woff2,      // 'wOF2'
};

// The format a file's first four bytes announce; the file's name plays no part.
Format detect(std::span<const std::uint8_t> head);
// The same for a file on disk (regular files only); Unknown when it cannot be read.
Format detectFile(const QString& path);
bool isWebFont(Format format);
bool isFont(Format format);

// The largest font a web font may unpack to. Anything declaring more is refused
// before a byte is unpacked; anything unpacking to more is stopped there.
constexpr std::int64_t maxSfntSize = 64 * 1024 * 1024;

enum class Status {
    Decoded,    // `sfnt` holds the font
    NotWebFont, // neither WOFF nor WOFF2: nothing to unpack
    Malformed,  // truncated, inconsistent or undecodable
    TooLarge,   // the unpacked font would pass the limit
    Unreadable, // the file could not be opened or read
};

struct Decoded {
    Status status = Status::NotWebFont;
    Format format = Format::Unknown;
    QByteArray sfnt;
    std::uint64_t declaredSize = 0; // totalSfntSize from the header, when it was read
};

// Unpacks a WOFF (tables inflated with zlib) or WOFF2 (libwoff) file held in memory.
Decoded decode(std::span<const std::uint8_t> data, std::int64_t limit = maxSfntSize);
Decoded decode(const QByteArray& data, std::int64_t limit = maxSfntSize);
// Reads and unpacks a file on disk. A file that is no web font gives NotWebFont with its
// format and no bytes; a web font file larger than the limit is not even read.
Decoded decodeFile(const QString& path, std::int64_t limit = maxSfntSize);

// The French sentence telling why a web font was refused, naming the file; empty for
// Decoded and NotWebFont.
QString refusal(const Decoded& result, const QString& fileName);

// The extension the unpacked font takes: ".otf" for CFF outlines, ".ttf" otherwise.
QString sfntSuffix(const QByteArray& sfnt);

} // namespace WebFont
