// Text-to-number conversions with the rules of the program's original environment:
// numeric text converts with halves rounding to even, text that is not a number is a
// type mismatch (error 13), a value out of range an overflow (error 6).
#pragma once

#include <QString>
#include <cstdint>
#include <optional>

namespace Conversions {

// Rounds to the nearest whole number, halves to even (2.5 -> 2, 3.5 -> 4).
double roundHalfEven(double value);

// Parses numeric text: surrounding blanks, an optional sign, digits with an optional
// decimal part ("." or the user's decimal separator) and exponent. nullopt if not a number.
std::optional<double> parseNumber(const QString& text);

// Read as a 16-bit integer / 32-bit integer / boolean; throw RuntimeError 13 or 6.
int16_t toInt16(const QString& text);
int32_t toInt32(const QString& text);
int16_t toInt16(double value);
int32_t toInt32(double value);
bool toBool(const QString& text);

// The text that stands for true and false when a boolean is written.
QString boolText(bool value);

// The leading number of a text, "." as decimal point whatever the locale; blanks are
// skipped; 0 when the text does not start with a number ("2abc" is 2, "" is 0).
double leadingNumber(const QString& text);

// A number written with a sign position: one leading blank when not negative (" 4", "-4").
QString signedText(long long value);

} // namespace Conversions
