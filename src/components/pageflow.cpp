// PageFlow: the one place that decides where a line or a block goes and when a page ends.
#include "components/pageflow.h"

#include "components/textlines.h"

#include <QFontMetricsF>
#include <QPainter>

PageFlow::PageFlow(QPainter& painter, double pageWidth, double pageHeight, std::function<void()> newPage)
    : m_painter(painter), m_pageWidth(pageWidth), m_pageHeight(pageHeight), m_newPage(std::move(newPage))
{
}

QPaintDevice* PageFlow::device() const
{
    return m_painter.device();
}

QStringList PageFlow::splitLines(const QString& text)
{
    QStringList lines;
    for (QStringView line : TextLines::split(text))
        lines.append(line.toString());
    return lines;
}

double PageFlow::placeBlock(double height)
{
    if (m_newPage && m_y > 0 && m_y + height > m_pageHeight) {
        m_newPage();
        ++m_pages;
        m_y = 0;
    }
    return m_y;
}

void PageFlow::printLines(const QFont& font, const QString& text)
{
    m_painter.setFont(font);
    const QFontMetricsF metrics(font, device());
    for (const QString& line : splitLines(text)) {
        const double top = placeBlock(metrics.height());
        m_painter.drawText(QPointF(0, top + metrics.ascent()), line);
        advance(metrics.lineSpacing());
    }
}
