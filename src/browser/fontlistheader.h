// FontListHeader: the font list's header, sized without the bold variant of its font
// and left-aligned like the rows below it.
#pragma once

#include <QHeaderView>

class FontListHeader : public QHeaderView {
    Q_OBJECT
public:
    explicit FontListHeader(QWidget* parent = nullptr);

protected:
    QSize sectionSizeFromContents(int logicalIndex) const override;
};
