// CompareModel: fonts, order, text, size, styles and the rows they give.
#include "output/comparemodel.h"

#include "components/pageflow.h"

QStringList CompareModel::startingFonts(const QString& selected, const QStringList& recent, const QStringList& available)
{
    auto usable = [&](const QString& font) { return !font.isEmpty() && (available.isEmpty() || available.contains(font)); };
    QStringList fonts;
    if (usable(selected))
        fonts.append(selected);
    int picked = 0;
    for (const QString& font : recent) {
        if (picked == RecentFonts)
            break;
        if (!usable(font) || fonts.contains(font))
            continue;
        fonts.append(font);
        ++picked;
    }
    return fonts;
}

CompareModel::Added CompareModel::add(const QString& font)
{
    if (m_fonts.contains(font))
        return Added::AlreadyThere;
    if (m_fonts.size() >= MaxFonts)
        return Added::Full;
    m_fonts.append(font);
    return Added::Added;
}

bool CompareModel::remove(int index)
{
    if (index < 0 || index >= m_fonts.size())
        return false;
    m_fonts.removeAt(index);
    return true;
}

bool CompareModel::move(int from, int to)
{
    if (from < 0 || from >= m_fonts.size() || to < 0 || to >= m_fonts.size())
        return false;
    m_fonts.move(from, to);
    return true;
}

bool CompareModel::reorder(const QStringList& order)
{
    QStringList a = order, b = m_fonts;
    a.sort();
    b.sort();
    if (a != b)
        return false;
    m_fonts = order;
    return true;
}

void CompareModel::setSize(int points)
{
    if (points > 0)
        m_size = points;
}

void CompareModel::setCascadeSizes(const QList<int>& sizes)
{
    m_cascadeSizes = sizes;
}

QString CompareModel::cascadeFont() const
{
    if (m_fonts.contains(m_cascadeFont))
        return m_cascadeFont;
    return m_fonts.value(0);
}

QFont CompareModel::sampleFont(const QString& family, double points) const
{
    QFont font;
    font.setFamilies({family});
    font.setPointSizeF(points);
    font.setBold(bold);
    font.setItalic(italic);
    font.setUnderline(underline);
    font.setStrikeOut(strikeOut);
    font.setStyleStrategy(QFont::NoFontMerging);
    return font;
}

QString CompareModel::waterfallLine(const QString& text)
{
    for (const QString& line : PageFlow::splitLines(text))
        if (!line.trimmed().isEmpty())
            return line;
    return QString();
}

QString CompareModel::sizeLabel(int points)
{
    return QStringLiteral("%1 pt").arg(points);
}

QList<ProofPages::Row> CompareModel::rows() const
{
    QList<ProofPages::Row> rows;
    if (m_cascade) {
        const QString font = cascadeFont();
        if (font.isEmpty())
            return rows;
        const QString line = waterfallLine(m_text);
        for (int points : m_cascadeSizes)
            rows.append({sizeLabel(points), sampleFont(font, points), line});
    } else {
        for (const QString& font : m_fonts)
            rows.append({font, sampleFont(font, m_size), m_text});
    }
    return rows;
}
