// Fuzz target for the web font unpacker: each input is unpacked within a small limit,
// and what comes out is read face by face by the TrueType reader. Checked: nothing
// larger than the limit is ever returned, and a result always has the status it claims.
#include "fontfile/truetypefile.h"
#include "fontfile/webfont.h"

#include <cstddef>
#include <cstdint>
#include <algorithm>
#include <cstdlib>

namespace {

// Small, so that the fuzzer meets the limit often and stays quick.
constexpr std::int64_t limit = 4 * 1024 * 1024;

void check(bool promise)
{
    if (!promise)
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::span<const std::uint8_t> input(data, size);
    const WebFont::Format format = WebFont::detect(input);
    const WebFont::Decoded result = WebFont::decode(input, limit);
    check(result.format == format);
    check(result.sfnt.size() <= limit);
    check((result.status == WebFont::Status::Decoded) == !result.sfnt.isEmpty());
    check(WebFont::isWebFont(format) || result.status == WebFont::Status::NotWebFont);
    check(WebFont::refusal(result, QStringLiteral("f")).isEmpty()
          == (result.status == WebFont::Status::Decoded || result.status == WebFont::Status::NotWebFont));
    if (result.status != WebFont::Status::Decoded)
        return 0;
    const auto sfnt = std::span(reinterpret_cast<const std::uint8_t*>(result.sfnt.constData()), std::size_t(result.sfnt.size()));
    const int faces = TrueType::faceCount(sfnt);
    for (int face = 0; face < std::min(faces, 4); ++face) {
        TrueType::FontTables tables;
        TrueType::readFontFace(sfnt, face, tables);
        for (int id = 0; id <= 7; ++id)
            (void)TrueType::nameString(tables, id, 0x0409);
    }
    (void)WebFont::sfntSuffix(result.sfnt);
    return 0;
}
