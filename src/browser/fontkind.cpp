// Classification of a family from its OS/2 table, and the reading of that table from a
// TrueType/OpenType file or collection (untrusted bytes: every read is checked).
#include "browser/fontkind.h"

#include "fontfile/bytereader.h"

#include <QFile>

namespace FontKind {

namespace {

constexpr std::uint32_t tagOS2 = 0x4F532F32; // 'OS/2'
constexpr std::uint32_t tagTtcf = 0x74746366; // 'ttcf'
constexpr int os2ClassOffset = 30;           // sFamilyClass, then the 10 PANOSE bytes
constexpr int os2ClassBytes = 12;

Kind fromFamilyClass(std::int16_t familyClass)
{
    switch ((familyClass >> 8) & 0xFF) {
    case 1: case 2: case 3: case 4: case 5: case 7:
        return Kind::Serif;
    case 8:
        return Kind::SansSerif;
    case 9:
        return Kind::Decorative;
    case 10:
        return Kind::Script;
    case 12:
        return Kind::Symbol;
    default:
        return Kind::None;
    }
}

Kind fromPanose(const std::array<std::uint8_t, 10>& panose)
{
    switch (panose[0]) {
    case 2:
        if (panose[1] >= 2 && panose[1] <= 10)
            return Kind::Serif;
        if (panose[1] >= 11 && panose[1] <= 15)
            return Kind::SansSerif;
        return Kind::None;
    case 3:
        return Kind::Script;
    case 4:
        return Kind::Decorative;
    case 5:
        return Kind::Symbol;
    default:
        return Kind::None;
    }
}

// Where the offset table of face `faceIndex` starts: 0 for a single font, the
// collection's entry otherwise.
std::optional<std::uint32_t> faceOffset(ByteReader& reader, int faceIndex)
{
    const auto tag = reader.u32();
    if (!tag)
        return std::nullopt;
    if (*tag != tagTtcf)
        return faceIndex == 0 ? std::optional<std::uint32_t>(0) : std::nullopt;
    const auto version = reader.u32();
    const auto count = reader.u32();
    if (!version || !count || faceIndex < 0 || std::uint32_t(faceIndex) >= *count)
        return std::nullopt;
    if (!reader.skip(4 * std::size_t(faceIndex)))
        return std::nullopt;
    return reader.u32();
}

// Offset and length of the OS/2 table in the directory at `start`.
std::optional<std::pair<std::uint32_t, std::uint32_t>> findOs2(ByteReader& reader, std::uint32_t start)
{
    if (!reader.seek(start) || !reader.skip(4))
        return std::nullopt;
    const auto numTables = reader.u16();
    if (!numTables || !reader.skip(6))
        return std::nullopt;
    for (int i = 0; i < *numTables; ++i) {
        const auto tag = reader.u32();
        const auto checksum = reader.u32();
        const auto offset = reader.u32();
        const auto length = reader.u32();
        if (!tag || !checksum || !offset || !length)
            return std::nullopt;
        if (*tag == tagOS2)
            return std::make_pair(*offset, *length);
    }
    return std::nullopt;
}

std::optional<Os2Class> parseClass(ByteReader& reader)
{
    Os2Class result;
    const auto familyClass = reader.i16();
    if (!familyClass)
        return std::nullopt;
    result.familyClass = *familyClass;
    for (auto& byte : result.panose) {
        const auto value = reader.u8();
        if (!value)
            return std::nullopt;
        byte = *value;
    }
    return result;
}

} // namespace

Kind classify(const std::optional<Os2Class>& os2, bool symbolCmap)
{
    if (symbolCmap)
        return Kind::Symbol;
    if (!os2)
        return Kind::None;
    const Kind byClass = fromFamilyClass(os2->familyClass);
    return byClass != Kind::None ? byClass : fromPanose(os2->panose);
}

std::optional<Os2Class> readOs2(std::span<const std::uint8_t> file, int faceIndex)
{
    ByteReader reader(file);
    const auto start = faceOffset(reader, faceIndex);
    if (!start)
        return std::nullopt;
    const auto table = findOs2(reader, *start);
    if (!table || table->second < os2ClassOffset + os2ClassBytes || !reader.seek(table->first)
        || !reader.skip(os2ClassOffset))
        return std::nullopt;
    return parseClass(reader);
}

std::optional<Os2Class> readOs2File(const QString& path, int faceIndex)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    // The headers first (a collection's list of faces, a face's directory), then the
    // table's first bytes: a font file is never read whole.
    auto readAt = [&file](qint64 offset, qint64 length) {
        return file.seek(offset) ? file.read(length) : QByteArray();
    };
    auto span = [](const QByteArray& bytes) {
        return std::span<const std::uint8_t>(reinterpret_cast<const std::uint8_t*>(bytes.constData()),
                                             std::size_t(bytes.size()));
    };
    const QByteArray header = readAt(0, 12 + 4 * qint64(std::max(faceIndex, 0) + 1));
    ByteReader headerReader(span(header));
    const auto start = faceOffset(headerReader, faceIndex);
    if (!start)
        return std::nullopt;
    const QByteArray counts = readAt(*start, 12);
    if (counts.size() < 12)
        return std::nullopt;
    const int numTables = (quint8(counts[4]) << 8) | quint8(counts[5]);
    QByteArray directory = counts + readAt(qint64(*start) + 12, 16 * qint64(numTables));
    ByteReader directoryReader(span(directory));
    const auto table = findOs2(directoryReader, 0);
    if (!table || table->second < os2ClassOffset + os2ClassBytes)
        return std::nullopt;
    const QByteArray fields = readAt(qint64(table->first) + os2ClassOffset, os2ClassBytes);
    ByteReader fieldReader(span(fields));
    return parseClass(fieldReader);
}

QStringList genreCaptions()
{
    return {QStringLiteral("Toutes"), QStringLiteral("Avec empattements"), QStringLiteral("Sans empattements"),
            QStringLiteral("Chasse fixe"), QStringLiteral("Manuscrites"), QStringLiteral("Décoratives"),
            QStringLiteral("Symboles")};
}

bool matches(Genre genre, Kind kind, bool monospace)
{
    switch (genre) {
    case Genre::All: return true;
    case Genre::Serif: return kind == Kind::Serif;
    case Genre::SansSerif: return kind == Kind::SansSerif;
    case Genre::Monospace: return monospace;
    case Genre::Script: return kind == Kind::Script;
    case Genre::Decorative: return kind == Kind::Decorative;
    case Genre::Symbol: return kind == Kind::Symbol;
    }
    return false;
}

} // namespace FontKind
