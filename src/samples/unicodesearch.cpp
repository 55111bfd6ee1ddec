// Parsing the search text of the Unicode character table, and merging what it finds.
#include "samples/unicodesearch.h"

#include "samples/unicodeformats.h"
#include "samples/unicodenames.h"

#include <QRegularExpression>
#include <QStringDecoder>
#include <algorithm>
#include <optional>

namespace UnicodeSearch {

namespace {

bool isScalarValue(qulonglong code)
{
    return code <= 0x10FFFF && (code < 0xD800 || code > 0xDFFF);
}

std::optional<char32_t> numberIn(const QString& digits, int base)
{
    bool ok = false;
    const qulonglong value = digits.toULongLong(&ok, base);
    if (!ok || !isScalarValue(value))
        return std::nullopt;
    return char32_t(value);
}

bool isUtf8Escapes(const QString& token)
{
    static const QRegularExpression form(QStringLiteral("^(?:\\\\x[0-9A-Fa-f]{2})+$"));
    return form.match(token).hasMatch();
}

// "\xE2\x82\xAC": the characters of the bytes, nothing unless they are valid UTF-8.
std::vector<char32_t> utf8Characters(const QString& token)
{
    QByteArray bytes;
    for (qsizetype i = 0; i < token.size(); i += 4)
        bytes.append(char(token.mid(i + 2, 2).toUInt(nullptr, 16)));
    QStringDecoder decoder(QStringDecoder::Utf8, QStringConverter::Flag::Stateless);
    const QString text = decoder(bytes);
    std::vector<char32_t> codes;
    if (decoder.hasError())
        return codes;
    for (const char32_t code : text.toUcs4())
        codes.push_back(code);
    return codes;
}

// A token written as a code in one of the explicit forms: true when it is one, with
// the code put in `code` when it names a Unicode scalar value.
bool explicitCode(const QString& token, std::optional<char32_t>& code)
{
    static const QRegularExpression hexForms(QStringLiteral(
        "^(?:[Uu]\\+|0[xX]|\\\\u|\\\\U|&#[xX])([0-9A-Fa-f]{1,8});?$|^\\\\x\\{([0-9A-Fa-f]{1,8})\\}$"));
    static const QRegularExpression decimal(QStringLiteral("^&#([0-9]{1,8});?$"));
    static const QRegularExpression named(QStringLiteral("^&([A-Za-z][A-Za-z0-9]{1,31});$"));
    if (const auto m = hexForms.match(token); m.hasMatch()) {
        code = numberIn(m.captured(1).isEmpty() ? m.captured(2) : m.captured(1), 16);
        return true;
    }
    if (const auto m = decimal.match(token); m.hasMatch()) {
        code = numberIn(m.captured(1), 10);
        return true;
    }
    if (const auto m = named.match(token); m.hasMatch()) {
        const int value = UnicodeFormats::codeOfEntityName(m.captured(1));
        if (value >= 0)
            code = char32_t(value);
        return true;
    }
    return false;
}

// Letters and digits, maybe joined by hyphens as in "per-mille".
bool isAsciiWord(const QString& token)
{
    static const QRegularExpression word(QStringLiteral("^[A-Za-z0-9]+(?:-[A-Za-z0-9]+)*$"));
    return word.match(token).hasMatch();
}

bool isBareHex(const QString& token)
{
    static const QRegularExpression hex(QStringLiteral("^[0-9A-Fa-f]{2,6}$"));
    return hex.match(token).hasMatch();
}

void readToken(const QString& token, Query& query)
{
    std::optional<char32_t> code;
    if (explicitCode(token, code)) {
        if (code)
            query.codes.push_back(*code);
    } else if (isUtf8Escapes(token)) {
        const std::vector<char32_t> codes = utf8Characters(token);
        query.codes.insert(query.codes.end(), codes.begin(), codes.end());
    } else if (isAsciiWord(token)) {
        if (isBareHex(token))
            if (const auto code = numberIn(token, 16))
                query.codes.push_back(*code);
        query.words << token.split(QLatin1Char('-'));
    } else {
        for (const char32_t code : token.toUcs4())
            if (isScalarValue(code))
                query.codes.push_back(code);
    }
}

} // namespace

Query parse(const QString& text)
{
    Query query;
    const QString trimmed = text.trimmed();
    const QList<uint> characters = trimmed.toUcs4();
    if (characters.size() == 1) {
        if (isScalarValue(characters.first()))
            query.codes.push_back(char32_t(characters.first()));
        return query;
    }
    static const QRegularExpression blanks(QStringLiteral("\\s+"));
    for (const QString& token : trimmed.split(blanks, Qt::SkipEmptyParts))
        readToken(token, query);
    return query;
}

std::vector<char32_t> matches(const Query& query, const NameIndex* index)
{
    std::vector<char32_t> found = query.codes;
    if (!query.words.isEmpty() && index) {
        const std::vector<char32_t> named = index->find(query.words);
        found.insert(found.end(), named.begin(), named.end());
    }
    std::sort(found.begin(), found.end());
    found.erase(std::unique(found.begin(), found.end()), found.end());
    return found;
}

} // namespace UnicodeSearch
