// Version lines in two columns.
#include "about/versionlinedelegate.h"

#include <QApplication>
#include <QPainter>

namespace {

constexpr int gap = 16;

} // namespace

QString VersionLineDelegate::labelOf(const QString& line)
{
    const qsizetype tab = line.indexOf(QLatin1Char('\t'));
    return tab < 0 ? line : line.left(tab);
}

QString VersionLineDelegate::valueOf(const QString& line)
{
    const qsizetype tab = line.lastIndexOf(QLatin1Char('\t'));
    return tab < 0 ? QString() : line.mid(tab + 1);
}

int VersionLineDelegate::valueColumn(const QAbstractItemModel* model, const QFontMetrics& metrics)
{
    int widest = 0;
    for (int row = 0; model && row < model->rowCount(); ++row)
        widest = std::max(widest, metrics.horizontalAdvance(labelOf(model->index(row, 0).data().toString())));
    return widest + gap;
}

void VersionLineDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    QStyleOptionViewItem item = option;
    initStyleOption(&item, index);
    const QString line = item.text;
    item.text.clear();
    const QWidget* widget = option.widget;
    QStyle* style = widget ? widget->style() : QApplication::style();
    style->drawControl(QStyle::CE_ItemViewItem, &item, painter, widget);

    const QRect text = style->subElementRect(QStyle::SE_ItemViewItemText, &item, widget);
    const int column = valueColumn(index.model(), item.fontMetrics);
    const QPalette::ColorRole role = (item.state & QStyle::State_Selected) ? QPalette::HighlightedText : QPalette::Text;
    const int flags = int(Qt::AlignLeft | Qt::AlignVCenter);
    style->drawItemText(painter, text, flags, item.palette, true, labelOf(line), role);
    style->drawItemText(painter, text.adjusted(column, 0, 0, 0), flags, item.palette, true, valueOf(line), role);
}

QSize VersionLineDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    QSize size = QStyledItemDelegate::sizeHint(option, index);
    const QString line = index.data().toString();
    const int needed = valueColumn(index.model(), option.fontMetrics) + option.fontMetrics.horizontalAdvance(valueOf(line));
    size.setWidth(std::max(size.width(), needed + 8));
    return size;
}
