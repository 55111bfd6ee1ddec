// What the Unicode character table shows and copies for one code point: the
// character, its U+ code, HTML entities, UTF-8 and UTF-16 forms, its name, script and
// general category.
#pragma once

#include <QString>

namespace UnicodeFormats {

// The character as text (a surrogate pair for the supplementary planes).
QString characterText(char32_t code);
// "U+20AC": upper-case hexadecimal, at least four digits.
QString uPlusCode(char32_t code);
// "8364".
QString decimalText(char32_t code);
// "&#8364;".
QString numericEntity(char32_t code);
// HTML's name for the character ("euro"), or empty when HTML has none.
QString entityName(char32_t code);
// "&euro;" where HTML names the character, else the numeric entity.
QString htmlEntity(char32_t code);
// The code point HTML names so ("euro" gives U+20AC); -1 for an unknown name.
int codeOfEntityName(const QString& name);
// "\xE2\x82\xAC": the UTF-8 bytes as C escapes.
QString utf8Escapes(char32_t code);
// "E2 82 AC".
QString utf8Bytes(char32_t code);
// "20AC", or "D835 DC00" for a surrogate pair.
QString utf16Units(char32_t code);

// The Unicode name ("EURO SIGN"); a character without one gets ICU's extended label,
// as "<control-000A>".
QString characterName(char32_t code);
// The script in French where we have its French name, else ICU's English one.
QString scriptName(char32_t code);
// The general category in French with its code: "Lettre minuscule (Ll)".
QString categoryLabel(char32_t code);

} // namespace UnicodeFormats
