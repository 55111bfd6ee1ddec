// PageFlow: the one place that decides where a line or a block goes and when a page ends.
#include "components/pageflow.h"

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

// CR LF, LF and CR each end a line. Written out rather than with a shared regular
// expression because the measuring thread splits texts too.
QStringList PageFlow::splitLines(const QString& text)
{
    QStringList lines;
    qsizetype start = 0;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text[i];
        if (c != QLatin1Char('\r') && c != QLatin1Char('\n'))
            continue;
        lines.append(text.mid(start, i - start));
        if (c == QLatin1Char('\r') && i + 1 < text.size() && text[i + 1] == QLatin1Char('\n'))
            ++i;
        start = i + 1;
    }
    lines.append(text.mid(start));
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
