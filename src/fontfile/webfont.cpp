// Format signatures, WOFF unpacking with zlib, WOFF2 unpacking with libwoff, and the
// size limit that keeps a small hostile file from claiming gigabytes.
#include "fontfile/webfont.h"

#include "fontfile/bytereader.h"

#include <QFile>
#include <QFileInfo>
#include <algorithm>
#include <numeric>
#include <vector>
#include <woff2/decode.h>
#include <woff2/output.h>
#include <zlib.h>

namespace WebFont {

namespace {

constexpr std::uint32_t tag(const char (&text)[5])
{
    return (std::uint32_t(std::uint8_t(text[0])) << 24) | (std::uint32_t(std::uint8_t(text[1])) << 16)
           | (std::uint32_t(std::uint8_t(text[2])) << 8) | std::uint32_t(std::uint8_t(text[3]));
}

std::span<const std::uint8_t> bytesOf(const QByteArray& data)
{
    return {reinterpret_cast<const std::uint8_t*>(data.constData()), std::size_t(data.size())};
}

constexpr std::int64_t woffHeaderSize = 44;
constexpr std::int64_t woffEntrySize = 20;

struct WoffTable {
    std::uint32_t tag = 0;
    std::uint32_t offset = 0;
    std::uint32_t compLength = 0;
    std::uint32_t origLength = 0;
    std::uint32_t checksum = 0;
};

std::int64_t padded(std::int64_t length)
{
    return (length + 3) & ~std::int64_t(3);
}

void put16(char* at, std::uint32_t value)
{
    at[0] = char(value >> 8);
    at[1] = char(value);
}

void put32(char* at, std::uint32_t value)
{
    put16(at, value >> 16);
    put16(at + 2, value & 0xFFFF);
}

// The sfnt offset table: version, table count and the binary-search fields.
void writeOffsetTable(char* at, std::uint32_t flavor, int numTables)
{
    int power = 1, log2 = 0;
    while (power * 2 <= numTables) {
        power *= 2;
        ++log2;
    }
    put32(at, flavor);
    put16(at + 4, std::uint32_t(numTables));
    put16(at + 6, std::uint32_t(power * 16));
    put16(at + 8, std::uint32_t(log2));
    put16(at + 10, std::uint32_t(numTables * 16 - power * 16));
}

// The directory, every entry checked against the file and the limit before anything
// is allocated.
Status readWoffDirectory(ByteReader& reader, int numTables, std::int64_t fileSize, std::int64_t limit,
                         std::vector<WoffTable>& tables, std::int64_t& sfntSize)
{
    sfntSize = 12 + 16 * std::int64_t(numTables);
    tables.resize(std::size_t(numTables));
    for (WoffTable& table : tables) {
        const auto t = reader.u32(), offset = reader.u32(), comp = reader.u32(), orig = reader.u32(), sum = reader.u32();
        if (!sum)
            return Status::Malformed;
        table = {*t, *offset, *comp, *orig, *sum};
        if (table.compLength > table.origLength || table.offset > fileSize || table.compLength > fileSize - table.offset)
            return Status::Malformed;
        sfntSize += padded(table.origLength);
        if (sfntSize > limit)
            return Status::TooLarge;
    }
    return Status::Decoded;
}

// One table's bytes into place: stored as they are when not smaller compressed.
bool unpackTable(std::span<const std::uint8_t> data, const WoffTable& table, char* into)
{
    const std::uint8_t* source = data.data() + table.offset;
    if (table.compLength == table.origLength) {
        std::copy_n(source, table.origLength, into);
        return true;
    }
    uLongf length = table.origLength;
    return uncompress(reinterpret_cast<Bytef*>(into), &length, source, table.compLength) == Z_OK
           && length == table.origLength;
}

Decoded decodeWoff(std::span<const std::uint8_t> data, std::int64_t limit)
{
    Decoded result;
    result.format = Format::Woff;
    ByteReader reader(data);
    if (data.size() < std::size_t(woffHeaderSize)) {
        result.status = Status::Malformed;
        return result;
    }
    reader.skip(4);
    const std::uint32_t flavor = *reader.u32();
    reader.skip(4); // length
    const int numTables = *reader.u16();
    reader.skip(2); // reserved
    result.declaredSize = *reader.u32();
    if (std::int64_t(result.declaredSize) > limit) {
        result.status = Status::TooLarge;
        return result;
    }
    reader.seek(woffHeaderSize);
    std::vector<WoffTable> tables;
    std::int64_t sfntSize = 0;
    result.status = numTables == 0 ? Status::Malformed
                                   : readWoffDirectory(reader, numTables, std::int64_t(data.size()), limit, tables, sfntSize);
    if (result.status != Status::Decoded)
        return result;

    // Directory entries keep the WOFF order (by tag); the tables' bytes keep the order
    // they had in the original file, which WOFF keeps in its data.
    QByteArray sfnt(qsizetype(sfntSize), '\0');
    writeOffsetTable(sfnt.data(), flavor, numTables);
    std::vector<std::size_t> byPlace(tables.size());
    std::iota(byPlace.begin(), byPlace.end(), std::size_t(0));
    std::stable_sort(byPlace.begin(), byPlace.end(), [&](std::size_t a, std::size_t b) { return tables[a].offset < tables[b].offset; });
    std::int64_t place = 12 + 16 * std::int64_t(numTables);
    for (const std::size_t i : byPlace) {
        const WoffTable& table = tables[i];
        char* entry = sfnt.data() + 12 + 16 * i;
        put32(entry, table.tag);
        put32(entry + 4, table.checksum);
        put32(entry + 8, std::uint32_t(place));
        put32(entry + 12, table.origLength);
        if (!unpackTable(data, table, sfnt.data() + place)) {
            result.status = Status::Malformed;
            return result;
        }
        place += padded(table.origLength);
    }
    result.sfnt = std::move(sfnt);
    return result;
}

// libwoff's output, growing a QByteArray up to the limit and telling when it got there.
class LimitedOut final : public woff2::WOFF2Out {
public:
    explicit LimitedOut(std::int64_t limit) : m_limit(std::size_t(limit)) {}
    bool Write(const void* buf, size_t n) override { return Write(buf, m_size, n); }
    bool Write(const void* buf, size_t offset, size_t n) override
    {
        if (offset > m_limit || n > m_limit - offset) {
            m_overflow = true;
            return false;
        }
        if (offset + n > std::size_t(m_bytes.size()))
            m_bytes.resize(qsizetype(offset + n), '\0');
        std::copy_n(static_cast<const char*>(buf), n, m_bytes.data() + offset);
        m_size = std::max(m_size, offset + n);
        return true;
    }
    size_t Size() override { return m_size; }
    bool overflowed() const { return m_overflow; }
    QByteArray take() { return std::move(m_bytes); }

private:
    QByteArray m_bytes;
    std::size_t m_limit;
    std::size_t m_size = 0;
    bool m_overflow = false;
};

Decoded decodeWoff2(std::span<const std::uint8_t> data, std::int64_t limit)
{
    Decoded result;
    result.format = Format::Woff2;
    result.declaredSize = woff2::ComputeWOFF2FinalSize(data.data(), data.size());
    if (result.declaredSize == 0) {
        result.status = Status::Malformed;
        return result;
    }
    if (std::int64_t(result.declaredSize) > limit) {
        result.status = Status::TooLarge;
        return result;
    }
    LimitedOut out(limit);
    if (!woff2::ConvertWOFF2ToTTF(data.data(), data.size(), &out)) {
        result.status = out.overflowed() ? Status::TooLarge : Status::Malformed;
        return result;
    }
    result.sfnt = out.take();
    result.status = Status::Decoded;
    return result;
}

QString megabytes(std::uint64_t bytes)
{
    return QString::number(double(bytes) / (1024.0 * 1024.0), 'f', 1).replace(QLatin1Char('.'), QLatin1Char(','));
}

} // namespace

Format detect(std::span<const std::uint8_t> head)
{
    if (head.size() < 4)
        return Format::Unknown;
    switch (*ByteReader(head).u32()) {
    case 0x00010000:
    case tag("true"):
        return Format::TrueType;
    case tag("OTTO"):
        return Format::OpenType;
    case tag("ttcf"):
        return Format::Collection;
    case tag("wOFF"):
        return Format::Woff;
    case tag("wOF2"):
        return Format::Woff2;
    default:
        return Format::Unknown;
    }
}

Format detectFile(const QString& path)
{
    if (!QFileInfo(path).isFile())
        return Format::Unknown;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return Format::Unknown;
    return detect(bytesOf(file.read(4)));
}

bool isWebFont(Format format)
{
    return format == Format::Woff || format == Format::Woff2;
}

bool isFont(Format format)
{
    return format != Format::Unknown;
}

Decoded decode(std::span<const std::uint8_t> data, std::int64_t limit)
{
    const Format format = detect(data);
    if (format == Format::Woff)
        return decodeWoff(data, limit);
    if (format == Format::Woff2)
        return decodeWoff2(data, limit);
    Decoded result;
    result.format = format;
    return result;
}

Decoded decode(const QByteArray& data, std::int64_t limit)
{
    return decode(bytesOf(data), limit);
}

Decoded decodeFile(const QString& path, std::int64_t limit)
{
    Decoded result;
    result.format = detectFile(path);
    if (!isWebFont(result.format))
        return result;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        result.status = Status::Unreadable;
        return result;
    }
    if (file.size() > limit) {
        result.declaredSize = quint64(file.size());
        result.status = Status::TooLarge;
        return result;
    }
    const QByteArray data = file.read(limit);
    return decode(data, limit);
}

QString refusal(const Decoded& result, const QString& fileName)
{
    const QString name = QStringLiteral("« ") + fileName + QStringLiteral(" »");
    const QString limitText = QString::number(maxSfntSize / (1024 * 1024));
    const QString kind = result.format == Format::Woff2 ? QStringLiteral("WOFF2") : QStringLiteral("WOFF");
    switch (result.status) {
    case Status::TooLarge:
        if (result.declaredSize > std::uint64_t(maxSfntSize))
            return QStringLiteral("La police web %1 est refusée : décompressée, elle ferait %2 Mo, au-delà de la "
                                  "limite de %3 Mo.")
                .arg(name, megabytes(result.declaredSize), limitText);
        return QStringLiteral("La police web %1 est refusée : décompressée, elle dépasserait la limite de %2 Mo.")
            .arg(name, limitText);
    case Status::Malformed:
        return QStringLiteral("La police web %1 est illisible : le fichier %2 est tronqué ou abîmé.").arg(name, kind);
    case Status::Unreadable:
        return QStringLiteral("Impossible de lire le fichier %1.").arg(name);
    case Status::Decoded:
    case Status::NotWebFont:
        break;
    }
    return QString();
}

QString sfntSuffix(const QByteArray& sfnt)
{
    return detect(bytesOf(sfnt)) == Format::OpenType ? QStringLiteral(".otf") : QStringLiteral(".ttf");
}

} // namespace WebFont
