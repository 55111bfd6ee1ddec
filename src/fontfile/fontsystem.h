// The one place where the font-file windows ask fontconfig and FreeType: the family a
// file would be listed under, the file a family and style resolve to, and what a
// face's OS/2 table and character maps say.
#pragma once

#include <QString>
#include <QStringList>
#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

namespace FontSystem {

// fontconfig's first family name for the file (relative paths are taken from the
// current folder). Nothing is registered; empty for anything that is not a font.
QString familyOfFile(const QString& path);

struct FaceFile {
    QString path;
    int index = 0;
};
// The face fontconfig matches for a family, weight and slant.
std::optional<FaceFile> matchedFace(const QString& family, bool bold, bool italic);

struct CharacterInfo {
    bool symbolCmap = false;        // a Microsoft symbol character map (3, 0)
    std::uint32_t codePageRange1 = 0; // OS/2 ulCodePageRange1; 0 when absent
    int defaultChar = 0;            // OS/2 usDefaultChar (version 2 on), else 0
    int firstChar = 0;              // OS/2 usFirstCharIndex, else the first mapped code
    int lastChar = 0;               // OS/2 usLastCharIndex, else the last mapped code
};
// Read through FreeType; nullopt when the face cannot be opened.
std::optional<CharacterInfo> characterInfo(const FaceFile& face);

// What a family's regular face holds, as fontconfig knows it: the characters it maps
// and the languages it covers.
struct Coverage {
    std::vector<std::pair<char32_t, char32_t>> ranges; // sorted, inclusive
    QStringList languages;                             // fontconfig's, as "lo", "zh-cn"
    bool contains(char32_t code) const;
    // The first `count` characters that are drawn (no controls, no blanks).
    QString firstCharacters(int count) const;
};
// nullopt when no installed or registered face has exactly that family name.
std::optional<Coverage> coverage(const QString& family);

} // namespace FontSystem
