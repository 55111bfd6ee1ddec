// Which characters a font has: the code points of the face fontconfig picks for a
// family and style, read from its character maps, and the cells the Unicode table
// shows for them (with the holes of their blocks, or for a search).
#pragma once

#include "fontfile/fontsystem.h"

#include <QString>
#include <vector>

struct CharacterCell {
    char32_t code = 0;
    bool present = false; // the face has a glyph for it
};

class UnicodeCoverage {
public:
    UnicodeCoverage() = default;
    // The face fontconfig matches for the family with the style; empty when the family
    // is not installed (no substitute is read in its place).
    static UnicodeCoverage ofFamily(const QString& family, bool bold, bool italic);
    static UnicodeCoverage ofFace(const FontSystem::FaceFile& face);

    bool hasFace() const { return m_hasFace; }
    const FontSystem::FaceFile& face() const { return m_face; }
    // Sorted, each once.
    const std::vector<char32_t>& codes() const { return m_codes; }
    bool contains(char32_t code) const;

    // The font's characters in code point order; with withAbsent, also every assigned
    // character the font lacks in the blocks it covers, as absent cells.
    std::vector<CharacterCell> cells(bool withAbsent) const;
    // The matches of a search (sorted): those the font has, or all of them with
    // outsideFont, the others as absent cells.
    std::vector<CharacterCell> cellsOf(const std::vector<char32_t>& matches, bool outsideFont) const;

private:
    FontSystem::FaceFile m_face;
    std::vector<char32_t> m_codes;
    bool m_hasFace = false;
};
