// After a font is shown: the fonts of the rows the user is likely to show next are
// prepared while the window is idle (see NeighbourPrep).
#include "app/tglyphora.h"

#include "browser/fontlistfilter.h"
#include "browser/measureworker.h"
#include "browser/neighbourprep.h"
#include "browser/samplebox.h"
#include "components/printer.h"

#include <QTreeWidget>

void tglyphora::prepareNeighbours()
{
    QTreeWidgetItem* item = List1->currentItem();
    const int current = m_filtre->rowNumber(item);
    const int previous = m_shownRow;
    m_shownRow = current;
    if (current <= 0)
        return;
    if (!m_neighbourPrep)
        m_neighbourPrep = new NeighbourPrep(measureWorker(), this);

    const QWidget* viewport = List1->viewport();
    const int firstVisible = m_filtre->rowNumber(List1->itemAt(0, 0));
    QTreeWidgetItem* bottom = List1->itemAt(0, viewport->height() - 1);
    const int lastVisible = bottom ? m_filtre->rowNumber(bottom) : m_filtre->visibleCount();
    const QList<int> rows = NeighbourPrep::rowsToPrepare(current, previous, m_filtre->visibleCount(),
                                                         firstVisible, lastVisible);
    // Each row's sample font: the shown one with that row's face.
    const QFont shown = Text2->font();
    QList<QFont> fonts;
    fonts.reserve(rows.size());
    for (int row : rows) {
        if (QTreeWidgetItem* neighbour = m_filtre->visibleItem(row)) {
            QFont font = shown;
            font.setFamilies({neighbour->text(0)});
            fonts.append(font);
        }
    }
    m_neighbourPrep->plan(fonts, Text2->text(), Printer::instance().resolution());
}
