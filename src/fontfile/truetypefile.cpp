// Table parsers for the four tables the reader needs, each reading like its layout,
// over a source that hands out byte ranges only when they lie wholly inside the file.
#include "fontfile/truetypefile.h"

#include "components/ansi.h"
#include "fontfile/bytereader.h"

#include <QFile>
#include <QHash>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

#include <algorithm>
#include <limits>

namespace TrueType {

namespace {

constexpr std::int64_t offsetTableSize = 12;
constexpr std::int64_t directoryEntrySize = 16;
constexpr std::size_t headSize = 54;
constexpr std::int64_t headMagicOffset = 12;
constexpr std::size_t os2BytesThroughFsSelection = 64;
constexpr std::int64_t fsSelectionOffset = 62;
constexpr std::int64_t nameHeaderSize = 6;
constexpr std::int64_t nameRecordSize = 12;

// Where the bytes come from. A range is only copied out after it has been checked
// against the size, so a count or offset from the file never sizes an allocation
// beyond the file itself.
class Source {
public:
    virtual ~Source() = default;
    virtual std::int64_t size() const = 0;
    bool inside(std::int64_t offset, std::int64_t length) const
    {
        return offset >= 0 && length >= 0 && offset <= size() && length <= size() - offset;
    }
    // Exactly `length` bytes at `offset`, or false when they are not all in the file.
    bool read(std::int64_t offset, std::int64_t length, QByteArray& into)
    {
        if (!inside(offset, length))
            return false;
        into.resize(qsizetype(length));
        return length == 0 || copy(offset, into.data(), length);
    }

private:
    virtual bool copy(std::int64_t offset, char* into, std::int64_t length) = 0;
};

class MemorySource final : public Source {
public:
    explicit MemorySource(std::span<const std::uint8_t> bytes) : m_bytes(bytes) {}
    std::int64_t size() const override { return std::int64_t(m_bytes.size()); }

private:
    bool copy(std::int64_t offset, char* into, std::int64_t length) override
    {
        std::copy_n(m_bytes.data() + offset, length, into);
        return true;
    }
    std::span<const std::uint8_t> m_bytes;
};

// A file on disk, read range by range: only the directory and the four tables. Reads
// go through one window of the file, so that the directory, head and OS/2 tables
// (which usually lie near the start) cost a single system call between them.
class FileSource final : public Source {
public:
    static constexpr std::int64_t windowSize = 4 * 1024;

#ifdef Q_OS_UNIX
    FileSource(int fd, std::int64_t size) : m_fd(fd), m_size(size) {}
#else
    FileSource(QFile& file, std::int64_t size) : m_file(file), m_size(size) {}
#endif
    std::int64_t size() const override { return m_size; }

private:
    bool copy(std::int64_t offset, char* into, std::int64_t length) override
    {
        if (length > windowSize)
            return readAt(offset, into, length);
        const std::int64_t windowEnd = m_windowStart + std::int64_t(m_window.size());
        if (offset < m_windowStart || offset + length > windowEnd) {
            // A new window from the 4 KB boundary below the range, cut at the file's end.
            std::int64_t start = offset & ~std::int64_t(4095);
            if (offset + length - start > windowSize)
                start = offset;
            const std::int64_t span = std::min(windowSize, m_size - start);
            m_window.resize(qsizetype(span));
            if (!readAt(start, m_window.data(), span)) {
                m_window.clear();
                return false;
            }
            m_windowStart = start;
        }
        std::copy_n(m_window.constData() + (offset - m_windowStart), length, into);
        return true;
    }

    bool readAt(std::int64_t offset, char* into, std::int64_t length)
    {
#ifdef Q_OS_UNIX
        while (length > 0) {
            const ssize_t got = ::pread(m_fd, into, size_t(length), off_t(offset));
            if (got <= 0)
                return false;
            into += got;
            offset += got;
            length -= got;
        }
        return true;
#else
        return m_file.seek(offset) && m_file.read(into, length) == length;
#endif
    }

#ifdef Q_OS_UNIX
    int m_fd;
#else
    QFile& m_file;
#endif
    std::int64_t m_size;
    QByteArray m_window;
    std::int64_t m_windowStart = 0;
};

std::span<const std::uint8_t> bytesOf(const QByteArray& data)
{
    return {reinterpret_cast<const std::uint8_t*>(data.constData()), std::size_t(data.size())};
}

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

// What this read has cost so far against readLimits, and the tables it already read
// at each offset: a file may point many entries at one table, which is read once.
struct Work {
    int tables = 0;
    int nameRecords = 0;
    std::int64_t stringBytes = 0;
    QHash<std::int32_t, NameTable> names;
    QHash<std::int32_t, std::int16_t> styleWords;

    bool takeTable() { return ++tables <= readLimits.tables; }
};

// The directory's bytes, read once as a whole; entries are decoded on access.
class Directory {
public:
    explicit Directory(QByteArray bytes) : m_bytes(std::move(bytes)) {}
    int count() const { return int(m_bytes.size() / directoryEntrySize); }
    DirectoryEntry entry(int index) const
    {
        ByteReader reader(bytesOf(m_bytes));
        reader.seek(index * directoryEntrySize);
        DirectoryEntry entry;
        entry.tag = reader.u32().value_or(0);
        reader.skip(4); // checkSum, never verified
        entry.offset = reader.i32().value_or(0);
        return entry;
    }

private:
    QByteArray m_bytes;
};

std::optional<Directory> readDirectory(Source& file, std::int64_t start, ReadEnd& end)
{
    QByteArray offsetTable;
    if (!file.read(start, offsetTableSize, offsetTable)) {
        end = ReadEnd::NoOffsetTable;
        return std::nullopt;
    }
    ByteReader reader(bytesOf(offsetTable));
    reader.skip(4); // sfnt version, not checked (TrueType, 'OTTO' or 'true'); searchRange and the rest are not used
    const std::int16_t numTables = *reader.i16();
    if (numTables <= 0) {
        end = ReadEnd::BadTableCount;
        return std::nullopt;
    }
    QByteArray entries;
    if (!file.read(start + offsetTableSize, numTables * directoryEntrySize, entries)) {
        end = ReadEnd::DirectoryOutside;
        return std::nullopt;
    }
    return Directory(std::move(entries));
}

constexpr std::uint32_t collectionTag = tagOf("ttcf");
constexpr std::int64_t collectionHeaderSize = 12; // tag, version, numFonts

// The number of fonts a collection declares, or nullopt for a file that is no collection.
std::optional<std::uint32_t> collectionCount(Source& file)
{
    QByteArray header;
    if (!file.read(0, collectionHeaderSize, header))
        return std::nullopt;
    ByteReader reader(bytesOf(header));
    if (reader.u32() != collectionTag)
        return std::nullopt;
    reader.skip(4); // version 1 or 2; the digital signature fields of version 2 are not used
    return reader.u32();
}

// Where a face's offset table starts: 0 in a plain font file, the face's entry in a
// collection's offset list otherwise.
ReadEnd faceStart(Source& file, int faceIndex, std::int64_t& start)
{
    const auto count = collectionCount(file);
    if (!count) {
        start = 0;
        return faceIndex == 0 ? ReadEnd::Complete : ReadEnd::BadFaceIndex;
    }
    if (faceIndex < 0 || std::uint32_t(faceIndex) >= *count)
        return ReadEnd::BadFaceIndex;
    QByteArray offset;
    if (!file.read(collectionHeaderSize + 4 * std::int64_t(faceIndex), 4, offset))
        return ReadEnd::CollectionOutside;
    start = *ByteReader(bytesOf(offset)).u32();
    return ReadEnd::Complete;
}

int countFaces(Source& file)
{
    if (file.size() < 4)
        return 0;
    const auto count = collectionCount(file);
    if (!count)
        return 1;
    // Only the faces whose offsets lie in the file are counted.
    const std::int64_t present = (file.size() - collectionHeaderSize) / 4;
    return int(std::min<std::int64_t>({std::int64_t(*count), present, std::numeric_limits<int>::max()}));
}

// The valid flag from the first head entry; unchanged when there is none.
ReadEnd readHead(Source& file, const Directory& directory, FontTables& tables)
{
    for (int i = 0; i < directory.count(); ++i) {
        const DirectoryEntry entry = directory.entry(i);
        if (entry.tag != headTag)
            continue;
        QByteArray head;
        if (!file.read(entry.offset, headSize, head))
            return ReadEnd::HeadOutside;
        ByteReader fields(bytesOf(head));
        fields.seek(headMagicOffset);
        tables.valid = fields.u32() == headMagic;
        return ReadEnd::Complete;
    }
    return ReadEnd::Complete;
}

NameRecord readNameRecord(ByteReader& reader)
{
    NameRecord r;
    for (std::int16_t* field : {&r.platformID, &r.encodingID, &r.languageID, &r.nameID, &r.length, &r.offset})
        *field = reader.i16().value_or(0);
    return r;
}

// Where each string lies, in record order, up to the first one that cannot be read;
// the strings from there on stay empty. The bytes they cover are read once.
ReadEnd readNameStrings(Source& file, std::int64_t storageStart, NameTable& table, Work& work)
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
        if (!file.inside(start, record.length)) {
            end = ReadEnd::StringOutside;
            break;
        }
        first = first < 0 ? start : std::min(first, start);
        last = std::max(last, start + record.length);
    }
    // Offsets are signed 16-bit words around the table's own offset, so this read is
    // at most about 160 KB whatever the counts say.
    if (first < 0)
        return end;
    work.stringBytes += last - first;
    if (work.stringBytes > readLimits.stringBytes)
        return ReadEnd::WorkCapReached;
    if (!file.read(first, last - first, table.store))
        return end;
    for (qsizetype i = 0; i < readable; ++i) {
        const NameRecord& record = table.records[i];
        if (record.length > 0)
            table.strings[i] = {qsizetype(storageStart + record.offset - first), record.length};
    }
    return end;
}

ReadEnd readNameTable(Source& file, std::int32_t tableOffset, FontTables& tables, Work& work)
{
    if (const auto known = work.names.constFind(tableOffset); known != work.names.cend()) {
        tables.names = *known;
        return ReadEnd::Complete;
    }
    if (!work.takeTable())
        return ReadEnd::WorkCapReached;
    QByteArray header;
    if (!file.read(tableOffset, nameHeaderSize, header))
        return ReadEnd::NameHeaderOutside;
    ByteReader fields(bytesOf(header));
    fields.skip(2); // format, not checked
    const std::int16_t count = *fields.i16();
    const std::int16_t stringOffset = *fields.i16();
    if (count <= 0)
        return ReadEnd::BadNameCount;
    work.nameRecords += count;
    if (work.nameRecords > readLimits.nameRecords)
        return ReadEnd::WorkCapReached;
    QByteArray recordBytes;
    if (!file.read(std::int64_t(tableOffset) + nameHeaderSize, count * nameRecordSize, recordBytes))
        return ReadEnd::NameRecordsOutside;

    NameTable table;
    ByteReader records(bytesOf(recordBytes));
    table.records.reserve(count);
    for (int i = 0; i < count; ++i)
        table.records.append(readNameRecord(records));
    table.strings.resize(count);
    const ReadEnd end = readNameStrings(file, std::int64_t(tableOffset) + stringOffset, table, work);
    if (end == ReadEnd::WorkCapReached)
        return end; // the table read before stays whole
    if (end == ReadEnd::Complete)
        work.names.insert(tableOffset, table);
    tables.names = std::move(table);
    return end;
}

ReadEnd readStyleWord(Source& file, std::int32_t tableOffset, FontTables& tables, Work& work)
{
    if (const auto known = work.styleWords.constFind(tableOffset); known != work.styleWords.cend()) {
        tables.styleWord = *known;
        return ReadEnd::Complete;
    }
    if (!work.takeTable())
        return ReadEnd::WorkCapReached;
    QByteArray os2;
    if (!file.read(tableOffset, os2BytesThroughFsSelection, os2))
        return ReadEnd::OS2Outside;
    ByteReader fields(bytesOf(os2));
    fields.seek(fsSelectionOffset);
    tables.styleWord = *fields.i16();
    work.styleWords.insert(tableOffset, tables.styleWord);
    return ReadEnd::Complete;
}

ReadEnd readTables(Source& file, int faceIndex, FontTables& tables)
{
    if (file.size() > readLimits.fileBytes)
        return ReadEnd::CannotOpen;
    if (file.size() < offsetTableSize)
        return ReadEnd::NoOffsetTable;
    std::int64_t start = 0;
    ReadEnd end = faceStart(file, faceIndex, start);
    if (end != ReadEnd::Complete)
        return end;
    const auto directory = readDirectory(file, start, end);
    if (!directory)
        return end;
    end = readHead(file, *directory, tables);
    if (end != ReadEnd::Complete || !tables.valid)
        return end;
    // Every name and OS/2 entry is read in directory order: the last one wins.
    Work work;
    for (int i = 0; i < directory->count(); ++i) {
        const DirectoryEntry entry = directory->entry(i);
        if (entry.tag == nameTag)
            end = readNameTable(file, entry.offset, tables, work);
        else if (entry.tag == os2Tag)
            end = readStyleWord(file, entry.offset, tables, work);
        if (end != ReadEnd::Complete)
            return end;
    }
    return ReadEnd::Complete;
}

// Runs `read` on a file on disk, or gives `failed` when it cannot be opened.
template <typename Result, typename Read>
Result onFile(const QString& path, Result failed, Read read)
{
#ifdef Q_OS_UNIX
    // Straight to the system: thousands of files are read in a row.
    // Non-blocking, so that a named pipe cannot hold the reader; only regular files are read.
    const int fd = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (fd < 0)
        return failed;
    struct stat info;
    if (::fstat(fd, &info) != 0 || !S_ISREG(info.st_mode)) {
        ::close(fd);
        return failed;
    }
    FileSource source(fd, std::int64_t(info.st_size));
    const Result result = read(source);
    ::close(fd);
    return result;
#else
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return failed;
    FileSource source(file, file.size());
    return read(source);
#endif
}

} // namespace

ReadEnd readFontFile(std::span<const std::uint8_t> file, FontTables& tables)
{
    return readFontFace(file, 0, tables);
}

ReadEnd readFontFile(const QString& path, FontTables& tables)
{
    return readFontFace(path, 0, tables);
}

ReadEnd readFontFace(std::span<const std::uint8_t> file, int faceIndex, FontTables& tables)
{
    MemorySource source(file);
    return readTables(source, faceIndex, tables);
}

ReadEnd readFontFace(const QString& path, int faceIndex, FontTables& tables)
{
    return onFile(path, ReadEnd::CannotOpen, [&](Source& source) { return readTables(source, faceIndex, tables); });
}

int faceCount(std::span<const std::uint8_t> file)
{
    MemorySource source(file);
    return countFaces(source);
}

int faceCount(const QString& path)
{
    return onFile(path, 0, [](Source& source) { return countFaces(source); });
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
    QChar* out = text.data();
    for (qsizetype i = 0; i < count; ++i) {
        const std::size_t low = std::size_t(2 * i + 1);
        const std::uint8_t high = low + 1 < bytes.size() ? bytes[low + 1] : 0;
        out[i] = QChar(char16_t(bytes[low] | (high << 8)));
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
