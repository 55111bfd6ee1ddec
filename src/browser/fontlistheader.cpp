#include "browser/fontlistheader.h"

#include <QStyleOptionHeader>

FontListHeader::FontListHeader(QWidget* parent) : QHeaderView(Qt::Horizontal, parent)
{
    // A fixed minimum keeps the header from measuring the widest glyph of every
    // fallback font, which costs tens of milliseconds with thousands of fonts.
    setMinimumSectionSize(24);
    // Left-aligned like the rows below: a centred title wider than a narrow list would
    // lose its first letters as well as its last.
    setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
}

QSize FontListHeader::sectionSizeFromContents(int logicalIndex) const
{
    // Sized with the header's own font: the stock sizing measures a bold variant that
    // is never drawn, which costs a font of its own.
    QStyleOptionHeader option;
    initStyleOption(&option);
    option.section = logicalIndex;
    option.text = model() ? model()->headerData(logicalIndex, orientation()).toString() : QString();
    option.fontMetrics = fontMetrics();
    if (isSortIndicatorShown() && sortIndicatorSection() == logicalIndex)
        option.sortIndicator = sortIndicatorOrder() == Qt::AscendingOrder ? QStyleOptionHeader::SortDown
                                                                         : QStyleOptionHeader::SortUp;
    QSize size = style()->sizeFromContents(QStyle::CT_HeaderSection, &option, QSize(), this);
    if (isSortIndicatorShown()) {
        const int margin = style()->pixelMetric(QStyle::PM_HeaderMargin, &option, this);
        size.rwidth() += size.height() + margin;
    }
    return size;
}
