// Filling the logical-font record.
#include "samples/logfontrecord.h"

#include "components/ansi.h"
#include "components/conversions.h"
#include "components/stdfont.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace LogFontRecord {

namespace {

// numerator / denominator (denominator > 0) rounded to the nearest, halves to even,
// in whole numbers so that no binary fraction creeps in.
long long divideHalfEven(long long numerator, long long denominator)
{
    const bool negative = numerator < 0;
    const long long magnitude = negative ? -numerator : numerator;
    long long quotient = magnitude / denominator;
    const long long twiceRemainder = 2 * (magnitude % denominator);
    if (twiceRemainder > denominator || (twiceRemainder == denominator && quotient % 2 != 0))
        ++quotient;
    return negative ? -quotient : quotient;
}

} // namespace

int32_t HeightForPoints(double points, int pixelsPerInch)
{
    // The size is fixed point with four decimals: work in ten-thousandths of a point.
    const long long size = std::llround(points * 10000.0);
    const long long product = size * pixelsPerInch;
    return static_cast<int32_t>(-divideHalfEven(product, 72LL * 10000));
}

int32_t EscapementFor(float rotation)
{
    // Single-precision arithmetic, as the angle is kept; out of range is an overflow.
    const float tenths = rotation * 10.0f;
    return Conversions::toInt32(static_cast<double>(tenths));
}

bool IsRotated(float rotation)
{
    return Conversions::toInt32(static_cast<double>(rotation)) % 360 != 0;
}

void FillFaceName(LOGFONT& record, const QString& faceName)
{
    QByteArray bytes = Ansi::encode(faceName);
    bytes.append('\0');
    std::memset(record.lfFaceName, ' ', sizeof record.lfFaceName);
    std::memcpy(record.lfFaceName, bytes.constData(),
                std::min<size_t>(static_cast<size_t>(bytes.size()), sizeof record.lfFaceName));
}

QString FaceName(const LOGFONT& record)
{
    const void* nul = std::memchr(record.lfFaceName, '\0', sizeof record.lfFaceName);
    const auto length = nul ? static_cast<const char*>(nul) - record.lfFaceName
                            : static_cast<qsizetype>(sizeof record.lfFaceName);
    return Ansi::decode(record.lfFaceName, length);
}

LOGFONT Make(const StdFont& font, float rotation, int pixelsPerInch)
{
    const bool rotated = IsRotated(rotation);
    LOGFONT record;
    record.lfHeight = HeightForPoints(font.Size(), pixelsPerInch);
    record.lfWidth = 0;
    record.lfEscapement = EscapementFor(rotation);
    record.lfOrientation = record.lfEscapement;
    record.lfWeight = font.Weight();
    record.lfItalic = font.Italic() ? 255 : 0;
    record.lfUnderline = font.Underline() ? 255 : 0;
    record.lfStrikeOut = font.Strikethrough() ? 255 : 0;
    // The OEM set does not rotate: a rotated font falls back to the ANSI set.
    record.lfCharSet = (font.Charset() > 254 && rotated) ? AnsiCharset : static_cast<uint8_t>(font.Charset());
    // Only outline fonts rotate.
    record.lfOutPrecision = rotated ? OutTtOnlyPrecis : OutDefaultPrecis;
    record.lfClipPrecision = 0;
    record.lfQuality = ProofQuality;
    record.lfPitchAndFamily = 0;
    FillFaceName(record, font.Name());
    return record;
}

} // namespace LogFontRecord
