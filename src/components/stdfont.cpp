// StdFont conversions.
#include "components/stdfont.h"

#include <QStringList>
#include <algorithm>
#include <cmath>

void StdFont::setSize(double points)
{
    m_size = std::round(points * 10000.0) / 10000.0;
}

QFont StdFont::toQFont() const
{
    QFont font;
    font.setFamilies(QStringList{m_name});
    if (m_size > 0)
        font.setPointSizeF(m_size);
    font.setWeight(static_cast<QFont::Weight>(std::clamp((m_weight + 5) / 10 * 10, 1, 1000)));
    font.setItalic(m_italic);
    font.setUnderline(m_underline);
    font.setStrikeOut(m_strikethrough);
    // What is drawn is this face's own glyphs, never another font's.
    font.setStyleStrategy(QFont::NoFontMerging);
    return font;
}

StdFont StdFont::fromQFont(const QFont& font)
{
    StdFont result;
    result.setName(font.family());
    result.setSize(font.pointSizeF() > 0 ? font.pointSizeF() : 8.25);
    result.setWeight(static_cast<short>(font.weight()));
    result.setItalic(font.italic());
    result.setUnderline(font.underline());
    result.setStrikethrough(font.strikeOut());
    return result;
}
