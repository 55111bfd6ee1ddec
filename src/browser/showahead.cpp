// After a font is shown, or the list scrolled: the fonts of the rows the user is likely
// to show next are prepared while the window is idle (see NeighbourPrep).
#include "app/tglyphora.h"

#include "browser/fontlistfilter.h"
#include "browser/measureworker.h"
#include "browser/neighbourprep.h"
#include "browser/samplebox.h"
#include "components/printer.h"

#include <QScrollBar>
#include <QTimer>
#include <QTreeWidget>

void tglyphora::prepareNeighbours(bool afterShow)
{
    const int current = m_filtre->rowNumber(List1->currentItem());
    // The direction of travel is that of the last move, also when the list scrolls.
    if (afterShow && current != m_shownRow) {
        m_travelFrom = m_shownRow;
        m_shownRow = current;
    }
    if (current <= 0)
        return;
    if (!m_neighbourPrep) {
        m_neighbourPrep = new NeighbourPrep(measureWorker(), this);
        // The rows scrolled into view are planned once the scrolling stops.
        auto* scrolled = new QTimer(m_neighbourPrep);
        scrolled->setSingleShot(true);
        scrolled->setInterval(30);
        connect(scrolled, &QTimer::timeout, this, [this] { prepareNeighbours(false); });
        connect(List1->verticalScrollBar(), &QScrollBar::valueChanged, scrolled, qOverload<>(&QTimer::start));
    }

    const int firstVisible = m_filtre->rowNumber(List1->itemAt(0, 0));
    QTreeWidgetItem* bottom = List1->itemAt(0, List1->viewport()->height() - 1);
    const int lastVisible = bottom ? m_filtre->rowNumber(bottom) : m_filtre->visibleCount();
    QList<int> rows;
    if (!afterShow && (current < firstVisible || current > lastVisible)) {
        // Scrolled away from the shown row: the rows in view are the likely clicks.
        for (int row = firstVisible; row > 0 && row <= lastVisible; ++row)
            rows.append(row);
    }
    for (int row : NeighbourPrep::rowsToPrepare(current, m_travelFrom, m_filtre->visibleCount(), firstVisible, lastVisible)) {
        if (!rows.contains(row))
            rows.append(row);
    }
    // Each row's sample font: the shown one with that row's face.
    const QFont shown = Text2->font();
    QList<QFont> fonts;
    fonts.reserve(rows.size());
    for (int row : rows) {
        if (QTreeWidgetItem* item = m_filtre->visibleItem(row)) {
            QFont font = shown;
            font.setFamilies({item->text(0)});
            fonts.append(font);
        }
    }
    const QString drawn = Text1->toPlainText() + QLatin1Char('\n') + Text2->toPlainText();
    m_neighbourPrep->plan(fonts, Text2->text(), Printer::instance().resolution(), drawn);
}
