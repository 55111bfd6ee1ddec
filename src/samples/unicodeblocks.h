// The Unicode blocks as ICU knows them: their ranges, English and French names, how
// many characters each has assigned, and how many of them a font maps.
#pragma once

#include <QString>
#include <vector>

namespace UnicodeBlocks {

struct Block {
    int code = 0;          // ICU's UBlockCode
    char32_t first = 0;
    char32_t last = 0;
    int assigned = 0;      // code points of the block that are not unassigned
    QString englishName;   // "Greek and Coptic"
    QString frenchName;    // "Grec et copte", or empty when we have none
    // The French name where there is one, else the English one.
    QString name() const { return frenchName.isEmpty() ? englishName : frenchName; }
};

// Every block, in code point order (built once, on first use, from ICU).
const std::vector<Block>& all();
// The block holding the code point, or nullptr outside every block.
const Block* blockOf(char32_t code);
// Whether ICU gives the code point a general category other than unassigned.
bool isAssigned(char32_t code);
// The block's assigned code points, in order.
std::vector<char32_t> assignedIn(const Block& block);

struct Coverage {
    const Block* block = nullptr;
    int mapped = 0; // code points of the block the font maps
};
// The blocks where a sorted list of code points has at least one, with their counts,
// in code point order. Code points outside every block are not counted.
std::vector<Coverage> coverage(const std::vector<char32_t>& sortedCodes);
// The list entry of a block: "U+0370 Grec et copte 117/135".
QString entryText(const Coverage& coverage);

} // namespace UnicodeBlocks
