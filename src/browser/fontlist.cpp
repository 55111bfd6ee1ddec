// The font list of the main window: filling it, showing the selected font, its events
// and its sorting.
#include "app/tglyphora.h"

#include "app/debut.h"
#include "browser/enumfont.h"
#include "browser/fontlistfilter.h"
#include "browser/samplebox.h"
#include "components/conversions.h"
#include "components/runtimeerror.h"

#include <QApplication>
#include <QComboBox>
#include <QFontMetrics>
#include <QHeaderView>
#include <QScrollBar>
#include <QSet>
#include <QLabel>
#include <QMenu>
#include <QSignalBlocker>
#include <QTimer>
#include <QTreeWidget>

namespace {

// Items compare as text, without regard to case first so that the order reads
// naturally, then exactly so that the order is total.
class FontItem : public QTreeWidgetItem {
public:
    explicit FontItem(const QString& name) : QTreeWidgetItem(QStringList{name}) {}
    bool operator<(const QTreeWidgetItem& other) const override
    {
        const QString a = text(0), b = other.text(0);
        const int folded = QString::compare(a, b, Qt::CaseInsensitive);
        return folded != 0 ? folded < 0 : QString::compare(a, b, Qt::CaseSensitive) < 0;
    }
};

const QString alphabetSample = QStringLiteral(
    "ABCDEFGHIJKLMNOPQRSTUVWXYZ\r\n"
    "abcdefghijklmnopqrstuvwxyz\r\n"
    "0123456789\r\n"
    "&é'(-è_çà)=+°~#{[|`\\^@]}\r\n"
    "âêûîôäëïöù\r\n"
    ",?;.:/!§%µ*");

// The width of the widest text, each measured as one line from its characters'
// advances (as a single-line calculation without kerning). Advances of the ASCII
// characters, which make up most font names, are looked up once.
int widestLine(const QFontMetrics& metrics, const QStringList& texts)
{
    int ascii[128];
    std::fill(std::begin(ascii), std::end(ascii), -1);
    int widest = 0;
    for (const QString& text : texts) {
        int width = 0;
        for (qsizetype i = 0; i < text.size(); ++i) {
            const QChar c = text[i];
            if (c.unicode() < 128) {
                int& advance = ascii[c.unicode()];
                if (advance < 0)
                    advance = metrics.horizontalAdvance(c);
                width += advance;
            } else if (c.isHighSurrogate() && i + 1 < text.size()) {
                width += metrics.horizontalAdvance(text.mid(i, 2));
                ++i;
            } else {
                width += metrics.horizontalAdvance(c);
            }
        }
        widest = std::max(widest, width);
    }
    return widest;
}

} // namespace

void tglyphora::charge()
{
    {
        const QSignalBlocker blockList(List1);
        List1->clear();
    }
    {
        const QSignalBlocker blockSizes(Combo1);
        Combo1->clear();
    }

    QStringList names;
    EnumFont::EnumFontFamilies(&EnumFont::EnumFontFamProc, &names);
    QList<QTreeWidgetItem*> items;
    items.reserve(names.size());
    for (const QString& name : names)
        items.append(new FontItem(name));
    List1->insertTopLevelItems(0, items);
    sortList();

    {
        const QSignalBlocker blockSizes(Combo1);
        QStringList sizes;
        for (int size = 4; size <= 120; ++size)
            sizes.append(Conversions::signedText(size));
        Combo1->addItems(sizes);
        Combo1->setCurrentIndex(9); // size 13
    }

    QTreeWidgetItem* first = List1->topLevelItem(0);
    if (!first)
        throw RuntimeError::objectMissing(QStringLiteral("List1"));
    // The first face and the size go to the samples together, so that each box lays
    // its text out once; the size box's click then finds them as it would leave them.
    for (SampleBox* box : {Text1, Text2}) {
        QFont font = box->font();
        font.setFamilies({first->text(0)});
        font.setPointSizeF(Conversions::leadingNumber(Combo1->currentText()));
        // The samples show the font's own glyphs: a character it lacks is not borrowed
        // from another font (and no fallback fonts are looked up for each new face).
        font.setStyleStrategy(QFont::NoFontMerging);
        box->setFont(font);
    }
    // The texts come once their font is set, so that each is laid out once.
    Text1->setText(alphabetSample);
    Combo1_Click();
    Text2->setText(QStringLiteral("Texte d'essai"));
    List1->setCurrentItem(first);

    // Widest name in the window's own font; the list view does not use it.
    m_widestName = widestLine(QFontMetrics(font()), names);

    Panel(5)->setText(QString::number(List1->topLevelItemCount()));
}

void tglyphora::sortList()
{
    List1->sortItems(m_sortKey, m_sortOrder == 0 ? Qt::AscendingOrder : Qt::DescendingOrder);
    List1->header()->setSortIndicator(m_sortKey, m_sortOrder == 0 ? Qt::AscendingOrder : Qt::DescendingOrder);
}

void tglyphora::ShowSelectedFont()
{
    QTreeWidgetItem* item = List1->currentItem();
    if (!item)
        throw RuntimeError::objectMissing(QStringLiteral("List1.SelectedItem"));
    debut::CurrentFaceName = item->text(0);
    debut::noteShownFace(debut::CurrentFaceName);

    QFont pictureFont = Picture1->font();
    pictureFont.setFamilies({debut::CurrentFaceName});
    Picture1->setFont(pictureFont);
    applyFaceAndStyles(debut::CurrentFaceName);
    // Measured once the samples carry the new face; the figures may come a moment later.
    measureShownFont();

    Panel(1)->setText(debut::CurrentFaceName);
    // The position among the rows the filter leaves visible (all of them without one).
    const int number = m_filtre->rowNumber(item);
    Panel(4)->setText(number > 0 ? QString::number(number) : QString());
    if (m_loaded && !m_holdMeasure)
        prepareNeighbours();
}

void tglyphora::syncList(const QStringList& names)
{
    // Fonts installed or removed: the rows follow without a new charge, keeping the
    // selection, the scroll position and the samples.
    const QSet<QString> installed(names.cbegin(), names.cend());
    QSet<QString> listed;
    const QString current = List1->currentItem() ? List1->currentItem()->text(0) : QString();
    const int scroll = List1->verticalScrollBar()->value();
    for (int row = List1->topLevelItemCount() - 1; row >= 0; --row) {
        const QString name = List1->topLevelItem(row)->text(0);
        if (installed.contains(name))
            listed.insert(name);
        else
            delete List1->takeTopLevelItem(row);
    }
    QList<QTreeWidgetItem*> added;
    for (const QString& name : names) {
        if (!listed.contains(name))
            added.append(new FontItem(name));
    }
    if (!added.isEmpty()) {
        List1->addTopLevelItems(added);
        sortList();
    }
    List1->verticalScrollBar()->setValue(scroll);
    Panel(5)->setText(QString::number(List1->topLevelItemCount()));
}

void tglyphora::List1_Click()
{
    ShowSelectedFont();
}

void tglyphora::List1_DblClick()
{
    mclipboard_Click();
}

void tglyphora::List1_KeyUp(int KeyCode, int)
{
    switch (KeyCode) {
    case 33: case 34: case 35: case 36: case 38: case 40:
        ShowSelectedFont();
        break;
    case 27:
        stopSlideshow();
        break;
    default:
        break; // left and right arrows deliberately leave the samples alone
    }
}

void tglyphora::List1_ColumnClick(int ColumnIndex)
{
    QApplication::setOverrideCursor(Qt::WaitCursor);
    m_sortKey = ColumnIndex - 1;
    m_sortOrder = m_sortOrder == 1 ? 0 : 1;
    sortList();
    QApplication::restoreOverrideCursor();
    m_sortKey = ColumnIndex - 1;
}

void tglyphora::List1_MouseUp(int Button, int, int X, int Y)
{
    if (Button == 2)
        mdivers->popup(List1->viewport()->mapToGlobal(QPoint(X, Y)));
}

void tglyphora::List1_BeforeLabelEdit(int& Cancel)
{
    Cancel = 1;
}

void tglyphora::ElemPol_Click(int Index)
{
    // Every failure in this handler is ignored and the next step runs.
    try {
        debut::CurrentFaceName = ElemPol(Index)->text();
    } catch (const RuntimeError&) {
    }
    applyFaceAndStyles(debut::CurrentFaceName);
    afficheinfos();
    // Every item bearing exactly that name is selected; the list does not scroll.
    List1->clearSelection();
    const bool autoScroll = List1->hasAutoScroll();
    List1->setAutoScroll(false);
    for (int i = 0; i < List1->topLevelItemCount(); ++i) {
        QTreeWidgetItem* item = List1->topLevelItem(i);
        if (item->text(0) == debut::CurrentFaceName)
            List1->setCurrentItem(item);
    }
    List1->setAutoScroll(autoScroll);
}
