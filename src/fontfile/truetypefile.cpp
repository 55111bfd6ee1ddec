// Table parsers for the four tables the reader needs, each reading like its layout.
#include "fontfile/truetypefile.h"

#include "components/ansi.h"
#include "fontfile/bytereader.h"

#include <algorithm>

namespace TrueType {

namespace {

constexpr std::int64_t offsetTableSize = 12;
constexpr std::int64_t directoryEntrySize = 16;
constexpr std::size_t headSize = 54;
constexpr std::int64_t headMagicOffset = 12;
constexpr std::size_t os2BytesThroughFsSelection = 64;
constexpr std::int64_t fsSelectionOffset = 62;
constexpr std::uint64_t nameRecordSize = 12;

struct DirectoryEntry {
    std::uint32_t tag = 0;
    std::int32_t offset = 0; // signed, as the file's 32-bit words are read
};

constexpr std::uint32_t tagOf(const char (&text)[5])
{
    return (std::uint32_t(std::uint8_t(text[0])) << 24) | (std::uint32_t(std::uint8_t(text[1])) << 16)
           | (std::uint32_t(std::uint8_t(text[2])) << 8) | std::uint32_t(std::uint8_t(text[3]));
}

constexpr std::uint32_t headTag = tagOf("head");
constexpr std::uint32_t nameTag = tagOf("name");
constexpr std::uint32_t os2Tag = tagOf("OS/2");

// The directory is a view into the file, checked once as a whole; entries are read
// on access, so numTables never becomes an allocation.
class Directory {
public:
    Directory(std::span<const std::uint8_t> file, int count) : m_file(file), m_count(count) {}
    int count() const { return m_count; }
    DirectoryEntry entry(int index) const
    {
        ByteReader reader(m_file);
        reader.seek(offsetTableSize + index * directoryEntrySize);
        DirectoryEntry entry;
        entry.tag = reader.u32().value_or(0);
        reader.skip(4); // checkSum, never verified
        entry.offset = reader.i32().value_or(0);
        return entry;
    }

private:
    std::span<const std::uint8_t> m_file;
    int m_count;
};

std::optional<Directory> readDirectory(std::span<const std::uint8_t> file, ReadEnd& end)
{
    ByteReader reader(file);
    const bool version = reader.skip(4); // sfnt version, not checked
    const auto numTables = reader.i16();
    if (!version || !numTables || !reader.skip(6)) { // searchRange, entrySelector, rangeShift
        end = ReadEnd::NoOffsetTable;
        return std::nullopt;
    }
    if (*numTables <= 0) {
        end = ReadEnd::BadTableCount;
        return std::nullopt;
    }
    if (!reader.skip(std::size_t(*numTables) * directoryEntrySize)) {
        end = ReadEnd::DirectoryOutside;
        return std::nullopt;
    }
    return Directory(file, *numTables);
}

// The valid flag from the first head entry; unchanged when there is none.
ReadEnd readHead(std::span<const std::uint8_t> file, const Directory& directory, FontTables& tables)
{
    for (int i = 0; i < directory.count(); ++i) {
        const DirectoryEntry entry = directory.entry(i);
        if (entry.tag != headTag)
            continue;
        ByteReader reader(file);
        if (!reader.seek(entry.offset))
            return ReadEnd::HeadOutside;
        const auto head = reader.bytes(headSize);
        if (!head)
            return ReadEnd::HeadOutside;
        ByteReader fields(*head);
        fields.seek(headMagicOffset);
        tables.valid = fields.u32() == headMagic;
        return ReadEnd::Complete;
    }
    return ReadEnd::Complete;
}

std::optional<NameRecord> readNameRecord(ByteReader& reader)
{
    NameRecord r;
    for (std::int16_t* field : {&r.platformID, &r.encodingID, &r.languageID, &r.nameID, &r.length, &r.offset}) {
        const auto value = reader.i16();
        if (!value)
            return std::nullopt;
        *field = *value;
    }
    return r;
}

// Where each string lies, in record order, up to the first one that cannot be read;
// the strings from there on stay empty. The covered bytes are copied once.
ReadEnd readNameStrings(std::span<const std::uint8_t> file, std::int64_t storageStart, NameTable& table)
{
    ReadEnd end = ReadEnd::Complete;
    std::int64_t first = -1;
    std::int64_t last = -1;
    qsizetype readable = 0;
    for (; readable < table.records.size(); ++readable) {
        const NameRecord& record = table.records[readable];
        if (record.length == 0)
            continue;
        if (record.length < 0) {
            end = ReadEnd::BadStringLength;
            break;
        }
        const std::int64_t start = storageStart + record.offset;
        if (start < 0 || start > std::int64_t(file.size()) || record.length > std::int64_t(file.size()) - start) {
            end = ReadEnd::StringOutside;
            break;
        }
        first = first < 0 ? start : std::min(first, start);
        last = std::max(last, start + record.length);
    }
    if (first < 0)
        return end;
    // Offsets are signed 16-bit words around the table's own offset, so this copy is
    // at most about 160 KB whatever the counts say.
    table.store = QByteArray(reinterpret_cast<const char*>(file.data() + first), qsizetype(last - first));
    for (qsizetype i = 0; i < readable; ++i) {
        const NameRecord& record = table.records[i];
        if (record.length > 0)
            table.strings[i] = {qsizetype(storageStart + record.offset - first), record.length};
    }
    return end;
}

ReadEnd readNameTable(std::span<const std::uint8_t> file, std::int32_t tableOffset, FontTables& tables)
{
    ByteReader reader(file);
    if (!reader.seek(tableOffset))
        return ReadEnd::NameHeaderOutside;
    const auto format = reader.u16(); // not checked
    const auto count = reader.i16();
    const auto stringOffset = reader.i16();
    if (!format || !count || !stringOffset)
        return ReadEnd::NameHeaderOutside;
    if (*count <= 0)
        return ReadEnd::BadNameCount;
    if (std::uint64_t(*count) * nameRecordSize > reader.remaining())
        return ReadEnd::NameRecordsOutside;

    NameTable table;
    table.records.reserve(*count); // bounded by the bytes just checked
    for (int i = 0; i < *count; ++i)
        table.records.append(*readNameRecord(reader));
    table.strings.resize(*count);
    tables.names = std::move(table);
    return readNameStrings(file, std::int64_t(tableOffset) + *stringOffset, *tables.names);
}

ReadEnd readStyleWord(std::span<const std::uint8_t> file, std::int32_t tableOffset, FontTables& tables)
{
    ByteReader reader(file);
    if (!reader.seek(tableOffset) || reader.remaining() < os2BytesThroughFsSelection)
        return ReadEnd::OS2Outside;
    reader.skip(fsSelectionOffset);
    tables.styleWord = *reader.i16();
    return ReadEnd::Complete;
}

} // namespace

ReadEnd readFontFile(std::span<const std::uint8_t> file, FontTables& tables)
{
    ReadEnd end = ReadEnd::Complete;
    const auto directory = readDirectory(file, end);
    if (!directory)
        return end;
    end = readHead(file, *directory, tables);
    if (end != ReadEnd::Complete || !tables.valid)
        return end;
    // Every name and OS/2 entry is read in directory order: the last one wins.
    for (int i = 0; i < directory->count(); ++i) {
        const DirectoryEntry entry = directory->entry(i);
        if (entry.tag == nameTag)
            end = readNameTable(file, entry.offset, tables);
        else if (entry.tag == os2Tag)
            end = readStyleWord(file, entry.offset, tables);
        if (end != ReadEnd::Complete)
            return end;
    }
    return ReadEnd::Complete;
}

qsizetype decodedLength(std::span<const std::uint8_t> bytes)
{
    if (bytes.empty())
        return 0;
    return bytes[0] == 0 ? qsizetype(bytes.size() / 2) : qsizetype(bytes.size());
}

QString decodeNameString(std::span<const std::uint8_t> bytes)
{
    if (bytes.empty())
        return QString();
    if (bytes[0] != 0)
        return Ansi::decode(reinterpret_cast<const char*>(bytes.data()), qsizetype(bytes.size()));
    // Drop the first byte, append a zero byte, read little-endian 16-bit units; an
    // odd trailing byte makes no character.
    const qsizetype count = decodedLength(bytes);
    QString text(count, Qt::Uninitialized);
    for (qsizetype i = 0; i < count; ++i) {
        const std::size_t low = std::size_t(2 * i + 1);
        const std::uint8_t high = low + 1 < bytes.size() ? bytes[low + 1] : 0;
        text[i] = QChar(char16_t(bytes[low] | (high << 8)));
    }
    return text;
}

QString NameTable::string(qsizetype index) const
{
    const Bytes where = strings.value(index);
    if (where.length <= 0)
        return QString();
    const auto* data = reinterpret_cast<const std::uint8_t*>(store.constData());
    return decodeNameString(std::span(data + where.start, std::size_t(where.length)));
}

bool NameTable::stringIsEmpty(qsizetype index) const
{
    const Bytes where = strings.value(index);
    if (where.length <= 0)
        return true;
    const auto* data = reinterpret_cast<const std::uint8_t*>(store.constData());
    return decodedLength(std::span(data + where.start, std::size_t(where.length))) == 0;
}

std::optional<QString> nameString(const FontTables& tables, int nameID, std::int32_t systemLanguage)
{
    if (!tables.names)
        return std::nullopt;
    const NameTable& names = *tables.names;
    // Choose the record first and decode only the winner.
    qsizetype chosen = -1;
    bool chosenEmpty = true;
    for (qsizetype i = 0; i < names.records.size(); ++i) {
        const NameRecord& record = names.records[i];
        if (record.nameID != nameID)
            continue;
        if (record.platformID == 3) {
            chosen = i;
            chosenEmpty = names.stringIsEmpty(i);
            if (std::int32_t(record.languageID) == systemLanguage)
                break;
        } else if (chosenEmpty) {
            chosen = i;
            chosenEmpty = names.stringIsEmpty(i);
        }
    }
    return chosen < 0 ? QString() : names.string(chosen);
}

bool isBitSet(std::int16_t value, int bit)
{
    if (bit < 0 || bit > 15)
        return false;
    return (std::int32_t(value) & (std::int32_t(1) << bit)) > 0;
}

} // namespace TrueType
