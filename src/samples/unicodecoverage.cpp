// Coverage of a face and the cell lists built from it.
#include "samples/unicodecoverage.h"

#include "samples/unicodeblocks.h"

#include <algorithm>

UnicodeCoverage UnicodeCoverage::ofFamily(const QString& family, bool bold, bool italic)
{
    const auto face = FontSystem::familyFace(family, bold, italic);
    return face ? ofFace(*face) : UnicodeCoverage();
}

UnicodeCoverage UnicodeCoverage::ofFace(const FontSystem::FaceFile& face)
{
    UnicodeCoverage coverage;
    coverage.m_face = face;
    coverage.m_hasFace = true;
    coverage.m_codes = FontSystem::mappedCodePoints(face);
    return coverage;
}

bool UnicodeCoverage::contains(char32_t code) const
{
    return std::binary_search(m_codes.begin(), m_codes.end(), code);
}

std::vector<CharacterCell> UnicodeCoverage::cells(bool withAbsent) const
{
    std::vector<CharacterCell> cells;
    if (!withAbsent) {
        cells.reserve(m_codes.size());
        for (const char32_t code : m_codes)
            cells.push_back({code, true});
        return cells;
    }
    // Walk the font's codes and the covered blocks together, both in order.
    auto code = m_codes.begin();
    for (const UnicodeBlocks::Coverage& covered : UnicodeBlocks::coverage(m_codes)) {
        const UnicodeBlocks::Block& block = *covered.block;
        for (; code != m_codes.end() && *code < block.first; ++code)
            cells.push_back({*code, true});
        for (char32_t c = block.first; c <= block.last; ++c) {
            const bool present = code != m_codes.end() && *code == c;
            if (present)
                ++code;
            if (present || UnicodeBlocks::isAssigned(c))
                cells.push_back({c, present});
        }
    }
    for (; code != m_codes.end(); ++code)
        cells.push_back({*code, true});
    return cells;
}

std::vector<CharacterCell> UnicodeCoverage::cellsOf(const std::vector<char32_t>& matches, bool outsideFont) const
{
    std::vector<CharacterCell> cells;
    cells.reserve(matches.size());
    for (const char32_t code : matches) {
        const bool present = contains(code);
        if (present || outsideFont)
            cells.push_back({code, present});
    }
    return cells;
}
