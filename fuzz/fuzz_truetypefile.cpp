// Fuzz target for the TrueType reader through its real file path: each input is written
// to a file and read back as the program reads fonts, into a fresh state and into a
// state left by a well-formed font; the same bytes read from memory must give the same
// result; every name is asked for, the first faces of a collection are read, the
// reader's promises about what it stores are checked, and an input that takes more
// than 100 ms is a finding.
#include "fontfile/truetypefile.h"
#include "fuzzsupport.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace {

// A small well-formed font: head, then one name record "Ab" (16-bit text).
const std::uint8_t wellFormed[] = {
    0x00, 0x01, 0x00, 0x00, 0x00, 0x02, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, // offset table
    'h', 'e', 'a', 'd', 0, 0, 0, 0, 0, 0, 0, 44, 0, 0, 0, 54,               // directory
    'n', 'a', 'm', 'e', 0, 0, 0, 0, 0, 0, 0, 98, 0, 0, 0, 22,
    0x00, 0x01, 0x00, 0x00, 0x00, 0x01, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, // head at 44
    0x5F, 0x0F, 0x3C, 0xF5, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,
    0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,
    0, 0, 0, 1, 0, 18,                                                       // name at 98
    0, 3, 0, 1, 0x04, 0x09, 0, 1, 0, 4, 0, 0,
    0, 'A', 0, 'b'};

void check(bool promise)
{
    FuzzSupport::check(promise, "the reader's stored state");
}

// Two reads of the same bytes (file and memory) leave the same state.
bool same(const TrueType::FontTables& a, const TrueType::FontTables& b)
{
    if (a.valid != b.valid || a.styleWord != b.styleWord || bool(a.names) != bool(b.names))
        return false;
    if (!a.names)
        return true;
    if (a.names->records.size() != b.names->records.size())
        return false;
    for (qsizetype i = 0; i < a.names->records.size(); ++i)
        if (a.names->string(i) != b.names->string(i))
            return false;
    return true;
}

void checkStored(const TrueType::FontTables& tables)
{
    if (!tables.names)
        return;
    const TrueType::NameTable& names = *tables.names;
    check(names.records.size() == names.strings.size());
    check(!names.records.isEmpty());
    for (qsizetype i = 0; i < names.strings.size(); ++i) {
        const auto& where = names.strings[i];
        check(where.length >= 0 && where.start >= 0);
        check(where.length <= names.store.size() - where.start);
        check(where.length == 0 || where.length == names.records[i].length);
        check(names.string(i).isEmpty() == names.stringIsEmpty(i));
    }
    // Offsets are 16-bit words around the table: the copy stays small whatever the counts.
    check(names.store.size() <= 3 * 65536);
}

void askEverything(const TrueType::FontTables& tables)
{
    for (int id = -1; id <= 8; ++id)
        for (std::int32_t language : {0x0409, 0x040C, 0})
            (void)TrueType::nameString(tables, id, language);
    for (int bit = -1; bit <= 16; ++bit)
        (void)TrueType::isBitSet(tables.styleWord, bit);
}

void readBothWays(std::span<const std::uint8_t> input, const QString& path)
{
    TrueType::FontTables fresh;
    const TrueType::ReadEnd fromFile = TrueType::readFontFile(path, fresh);
    checkStored(fresh);
    askEverything(fresh);
    TrueType::FontTables inMemory;
    FuzzSupport::check(TrueType::readFontFile(input, inMemory) == fromFile, "file and memory reads end alike");
    FuzzSupport::check(same(fresh, inMemory), "file and memory reads store the same");

    // The same bytes read after a good font: what the input lacks stays from before.
    TrueType::FontTables previous;
    check(TrueType::readFontFile(wellFormed, previous) == TrueType::ReadEnd::Complete);
    check(TrueType::nameString(previous, 1, 0x0409) == QStringLiteral("Ab"));
    TrueType::readFontFile(path, previous);
    checkStored(previous);
    askEverything(previous);

    // Each face of a collection (a few of them), read alone.
    const int faces = TrueType::faceCount(input);
    check(faces >= 0 && std::size_t(faces) <= input.size() / 4 + 1);
    for (int face = 0; face < std::min(faces, 4); ++face) {
        TrueType::FontTables one;
        TrueType::readFontFace(input, face, one);
        checkStored(one);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::span<const std::uint8_t> input(data, size);
    const QString path = FuzzSupport::writeInput(QStringLiteral("input.ttf"), reinterpret_cast<const char*>(data),
                                                 qsizetype(size));
    FuzzSupport::runTimed(FuzzSupport::inputLimitMs(100), [&] { readBothWays(input, path); });
    (void)TrueType::decodeNameString(input.first(std::min<std::size_t>(size, 4096)));
    return 0;
}

