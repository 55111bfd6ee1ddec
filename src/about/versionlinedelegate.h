// VersionLineDelegate: draws the about box's version lines ("label", tabs, "value") as
// two columns, every value starting at the same place after the widest label.
#pragma once

#include <QStyledItemDelegate>

class VersionLineDelegate : public QStyledItemDelegate {
    Q_OBJECT
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    // The label (before the first tab) and the value (after the last tab) of a line.
    static QString labelOf(const QString& line);
    static QString valueOf(const QString& line);
    // Where the values start, from the item's left edge: after the widest label of the
    // model, and a gap.
    static int valueColumn(const QAbstractItemModel* model, const QFontMetrics& metrics);

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};
