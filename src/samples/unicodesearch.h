// What a search text asks the Unicode character table for: code points written as
// codes ("U+20AC", "20ac", "0x20AC", "&#8364;", "&#x20AC;", "&euro;", "\u20AC",
// "\xE2\x82\xAC") or pasted as characters, and words to find in character names.
#pragma once

#include <QStringList>
#include <vector>

class NameIndex;

namespace UnicodeSearch {

struct Query {
    std::vector<char32_t> codes; // code points the text gives directly, in its order
    QStringList words;           // name words; all of them must match one name
};

// Reads the text token by token (blanks between tokens). A text of one character is
// that character. A token in a code form gives its code; a bare hexadecimal token
// ("20ac", also a possible word) gives its code and stays a word; a token of letters
// and digits is a word; any other token gives its characters.
Query parse(const QString& text);

// The code points the query finds, sorted, each once: its codes and, when it has
// words and an index is given, the names that match them all.
std::vector<char32_t> matches(const Query& query, const NameIndex* index);

} // namespace UnicodeSearch
