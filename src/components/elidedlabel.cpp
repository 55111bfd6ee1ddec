// Elided label: sizes from the text, painting cut with an ellipsis when narrower.
#include "components/elidedlabel.h"

#include <QPainter>
#include <QStyle>

ElidedLabel::ElidedLabel(QWidget* parent) : QLabel(parent)
{
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
}

void ElidedLabel::setPreferredWidth(int width)
{
    m_preferredWidth = width;
    updateGeometry();
}

int ElidedLabel::horizontalExtra() const
{
    const QMargins margins = contentsMargins();
    return margins.left() + margins.right() + 2 * margin();
}

QString ElidedLabel::displayedText() const
{
    const int room = contentsRect().width() - 2 * margin();
    return fontMetrics().elidedText(text(), Qt::ElideRight, std::max(0, room));
}

QSize ElidedLabel::sizeHint() const
{
    const QSize full = QLabel::sizeHint();
    return QSize(std::max(full.width(), m_preferredWidth), full.height());
}

QSize ElidedLabel::minimumSizeHint() const
{
    const int ellipsis = fontMetrics().horizontalAdvance(QStringLiteral("…"));
    return QSize(ellipsis + horizontalExtra(), QLabel::minimumSizeHint().height());
}

void ElidedLabel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    drawFrame(&painter);
    const QRect area = contentsRect().adjusted(margin(), margin(), -margin(), -margin());
    style()->drawItemText(&painter, area, int(alignment()), palette(), isEnabled(), displayedText(), foregroundRole());
}
