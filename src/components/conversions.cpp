// Conversions between text and numbers, kept in one place so every reader of a
// setting, an input box or a combo entry behaves the same.
#include "components/conversions.h"

#include "components/runtimeerror.h"

#include <QLocale>
#include <cfenv>
#include <cmath>
#include <limits>

namespace Conversions {

double roundHalfEven(double value)
{
    const int previous = std::fegetround();
    std::fesetround(FE_TONEAREST);
    const double rounded = std::nearbyint(value);
    std::fesetround(previous);
    return rounded;
}

static bool isBlank(QChar c)
{
    return c == u' ' || c == u'\t' || c == u'\r' || c == u'\n' || c == QChar(0xA0);
}

std::optional<double> parseNumber(const QString& text)
{
    const QChar localeDecimal = QLocale::system().decimalPoint().front();
    int i = 0;
    const int n = static_cast<int>(text.size());
    while (i < n && isBlank(text[i]))
        ++i;
    int end = n;
    while (end > i && isBlank(text[end - 1]))
        --end;
    if (i == end)
        return std::nullopt;

    QString normalized;
    if (text[i] == u'+' || text[i] == u'-') {
        normalized += text[i];
        ++i;
        while (i < end && isBlank(text[i]))
            ++i;
    }
    bool digits = false, point = false, exponent = false;
    for (; i < end; ++i) {
        const QChar c = text[i];
        if (c.isDigit() && c.unicode() < 128) {
            normalized += c;
            digits = true;
        } else if ((c == u'.' || c == localeDecimal) && !point && !exponent) {
            normalized += u'.';
            point = true;
        } else if ((c == u'e' || c == u'E') && digits && !exponent) {
            normalized += u'e';
            exponent = true;
            if (i + 1 < end && (text[i + 1] == u'+' || text[i + 1] == u'-'))
                normalized += text[++i];
            digits = false;
        } else {
            return std::nullopt;
        }
    }
    if (!digits)
        return std::nullopt;
    bool ok = false;
    const double value = normalized.toDouble(&ok);
    if (!ok || !std::isfinite(value))
        return std::nullopt;
    return value;
}

template <typename Int>
static Int toInteger(double value)
{
    const double rounded = roundHalfEven(value);
    if (!(rounded >= static_cast<double>(std::numeric_limits<Int>::min())
          && rounded <= static_cast<double>(std::numeric_limits<Int>::max())))
        throw RuntimeError::overflow();
    return static_cast<Int>(rounded);
}

int16_t toInt16(double value) { return toInteger<int16_t>(value); }
int32_t toInt32(double value) { return toInteger<int32_t>(value); }

int16_t toInt16(const QString& text)
{
    const auto value = parseNumber(text);
    if (!value)
        throw RuntimeError::typeMismatch();
    return toInt16(*value);
}

int32_t toInt32(const QString& text)
{
    const auto value = parseNumber(text);
    if (!value)
        throw RuntimeError::typeMismatch();
    return toInt32(*value);
}

bool toBool(const QString& text)
{
    const QString word = text.trimmed();
    if (word.compare(QLatin1String("True"), Qt::CaseInsensitive) == 0
        || word.compare(QLatin1String("Vrai"), Qt::CaseInsensitive) == 0)
        return true;
    if (word.compare(QLatin1String("False"), Qt::CaseInsensitive) == 0
        || word.compare(QLatin1String("Faux"), Qt::CaseInsensitive) == 0)
        return false;
    const auto value = parseNumber(text);
    if (!value)
        throw RuntimeError::typeMismatch();
    return *value != 0.0;
}

QString boolText(bool value)
{
    return value ? QStringLiteral("True") : QStringLiteral("False");
}

double leadingNumber(const QString& text)
{
    // Blanks anywhere are skipped, as the environment's Val does ("1 2" is 12).
    QString number;
    bool digits = false, point = false;
    int i = 0;
    const int n = static_cast<int>(text.size());
    auto skipBlanks = [&] {
        while (i < n && isBlank(text[i]))
            ++i;
    };
    skipBlanks();
    if (i < n && (text[i] == u'+' || text[i] == u'-'))
        number += text[i++];
    for (; i < n; ++i) {
        const QChar c = text[i];
        if (isBlank(c))
            continue;
        if (c.isDigit() && c.unicode() < 128) {
            number += c;
            digits = true;
        } else if (c == u'.' && !point) {
            number += c;
            point = true;
        } else {
            break;
        }
    }
    if (!digits)
        return 0.0;
    // An exponent directly after the mantissa belongs to the number ("1e3" is 1000).
    if (i < n && (text[i] == u'e' || text[i] == u'E' || text[i] == u'd' || text[i] == u'D')) {
        int j = i + 1;
        QString exponent = QStringLiteral("e");
        if (j < n && (text[j] == u'+' || text[j] == u'-'))
            exponent += text[j++];
        bool expDigits = false;
        while (j < n && text[j].isDigit() && text[j].unicode() < 128) {
            exponent += text[j++];
            expDigits = true;
        }
        if (expDigits)
            number += exponent;
    }
    bool ok = false;
    const double value = number.toDouble(&ok);
    return ok && std::isfinite(value) ? value : 0.0;
}

QString signedText(long long value)
{
    return value < 0 ? QString::number(value) : QStringLiteral(" ") + QString::number(value);
}

} // namespace Conversions
