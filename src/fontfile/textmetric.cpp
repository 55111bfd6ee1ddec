// Character sets by code-page bit, and the information lines.
#include "fontfile/textmetric.h"

#include <algorithm>

namespace TextMetrics {

namespace {

struct CodePage {
    int bit;
    int charSet;
};

// ulCodePageRange1 bits and the character sets Windows reports for them.
const CodePage codePages[] = {
    {0, 0},    // ANSI
    {1, 238},  // EASTEUROPE
    {2, 204},  // RUSSIAN
    {3, 161},  // GREEK
    {4, 162},  // TURKISH
    {5, 177},  // HEBREW
    {6, 178},  // ARABIC
    {7, 186},  // BALTIC
    {8, 163},  // VIETNAMESE
    {16, 222}, // THAI
    {17, 128}, // SHIFTJIS
    {18, 134}, // GB2312
    {19, 129}, // HANGUL
    {20, 136}, // CHINESEBIG5
    {21, 130}, // JOHAB
};

constexpr int symbolCharSet = 2;
constexpr int defaultCharSet = 1;

} // namespace

int charSetOf(bool symbolCmap, std::uint32_t codePageRange1)
{
    if (symbolCmap)
        return symbolCharSet;
    for (const CodePage& page : codePages)
        if (codePageRange1 & (std::uint32_t(1) << page.bit))
            return page.charSet;
    return defaultCharSet;
}

int clampToByte(int code)
{
    return std::clamp(code, 0, 255);
}

QStringList charsetTable()
{
    return {
        QString(),
        QStringLiteral("ANSI_CHARSET"),
        QStringLiteral("DEFAULT_CHARSET"),
        QStringLiteral("SYMBOL_CHARSET"),
        QStringLiteral("SHIFTJIS_CHARSET"),
        QStringLiteral("HANGUL_CHARSET"),
        QStringLiteral("GB2312_CHARSET"),
        QStringLiteral("CHINESEBIG5_CHARSET"),
        QStringLiteral("OEM_CHARSET"),
        QStringLiteral("JOHAB_CHARSET"),
        QStringLiteral("HEBREW_CHARSET"),
        QStringLiteral("ARABIC_CHARSET"),
        QStringLiteral("GREEK_CHARSET"),
        QStringLiteral("TURKISH_CHARSET"),
        QStringLiteral("VIETNAMESE_CHARSET"),
        QStringLiteral("THAI_CHARSET"),
        QStringLiteral("EASTEUROPE_CHARSET"),
        QStringLiteral("RUSSIAN_CHARSET"),
        QStringLiteral("MAC_CHARSET"),
        QStringLiteral("BALTIC_CHARSET"),
    };
}

QStringList informationLines(const TextMetric& metric, const QStringList& charsets)
{
    const QString crlf = QStringLiteral("\r\n");
    auto line = [&crlf](const char* label, const QString& value) { return QString::fromUtf8(label) + value + crlf; };
    QStringList lines;
    lines << line("Ascendant : ", QString::number(metric.tmAscent))
          << line("Descendant : ", QString::number(metric.tmDescent))
          << line("Hauteur : ", QString::number(metric.tmHeight))
          << line("Largeur moyenne des caractères : ", QString::number(metric.tmAveCharWidth));
    const int position = metric.tmCharSet + 1;
    if (position >= 1 && position <= 19 && position < charsets.size())
        lines << line("Jeu de caractères : ", charsets[position]);
    lines << line("Caractère par défaut : ", QString::number(metric.tmDefaultChar))
          << line("Premier caractère : ", QString::number(metric.tmFirstChar))
          << line("Dernier caractère : ", QString::number(metric.tmLastChar))
          << line("Largeur maximale des caractères : ", QString::number(metric.tmMaxCharWidth));
    return lines;
}

} // namespace TextMetrics
