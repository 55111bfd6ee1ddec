// Splitter control: clamp, drag snapping and the two-pane layout rules.
#include "components/ctlebsplitter.h"

#include "components/conversions.h"

#include <QChildEvent>
#include <QMouseEvent>
#include <cmath>

using Conversions::roundHalfEven;

QVariant PropertyBag::ReadProperty(const QString& name, const QVariant& defaultValue) const
{
    return m_values.value(name.toLower(), defaultValue);
}

void PropertyBag::WriteProperty(const QString& name, const QVariant& value, const QVariant& defaultValue)
{
    if (value == defaultValue)
        m_values.remove(name.toLower());
    else
        m_values.insert(name.toLower(), value);
}

ctlEBSplitter::ctlEBSplitter(QWidget* parent) : QWidget(parent)
{
    m_bar = new QWidget(this);
    m_bar->setObjectName(QStringLiteral("picSplitter"));
    m_bar->setAutoFillBackground(true);
    m_bar->setBackgroundRole(QPalette::Mid);
    m_bar->installEventFilter(this);
    InitProperties();
    m_changed.clear();
}

void ctlEBSplitter::childEvent(QChildEvent* event)
{
    QWidget::childEvent(event);
    auto* widget = qobject_cast<QWidget*>(event->child());
    if (event->added() && event->child()->isWidgetType()) {
        // During construction the object is not yet a QWidget; the bar is never a child control.
        QWidget* control = static_cast<QWidget*>(event->child());
        if (control != m_bar && m_bar != nullptr && !m_children.contains(control))
            m_children.append(control);
    } else if (event->removed()) {
        m_children.removeAll(widget);
        m_children.removeAll(nullptr);
    }
}

QList<QWidget*> ctlEBSplitter::childControls() const
{
    QList<QWidget*> controls;
    for (const auto& child : m_children)
        if (child && child->parent() == this)
            controls.append(child.data());
    return controls;
}

QRectF ctlEBSplitter::twipsOf(const QWidget* control)
{
    const QVariant stored = control->property("twips");
    if (stored.isValid())
        return stored.toRectF();
    const QRect g = control->geometry();
    return QRectF(g.x() * TwipsPerPixel, g.y() * TwipsPerPixel, g.width() * TwipsPerPixel, g.height() * TwipsPerPixel);
}

void ctlEBSplitter::moveTwips(QWidget* control, double left, double top, double width, double height)
{
    control->setProperty("twips", QRectF(left, top, width, height));
    const auto px = [](double twips) { return static_cast<int>(std::lround(twips / TwipsPerPixel)); };
    control->setGeometry(px(left), px(top), std::max(0, px(width)), std::max(0, px(height)));
}

void ctlEBSplitter::moveBar(double left, double top, double width, double height)
{
    m_barRect = QRectF(left, top, width, height);
    moveTwips(m_bar, left, top, width, height);
}

void ctlEBSplitter::InitProperties()
{
    m_splitterWidth = DefaultSplitterWidth;
    setOrientation(1);
    moveBar(widthTwips() / 2, m_barRect.top(), m_barRect.width(), m_barRect.height());
}

void ctlEBSplitter::ReadProperties(const PropertyBag& bag)
{
    m_splitterWidth = bag.ReadProperty(QStringLiteral("SplitterWidth"), qlonglong(DefaultSplitterWidth)).toLongLong();
    setOrientation(bag.ReadProperty(QStringLiteral("Orientation"), qlonglong(1)).toLongLong());
    // The stored position is applied as it stands, without the clamp.
    if (m_orientation == 0) {
        const double pos = bag.ReadProperty(QStringLiteral("SplitterPos"), heightTwips() / 2).toDouble();
        moveBar(m_barRect.left(), pos, m_barRect.width(), m_barRect.height());
    } else {
        const double pos = bag.ReadProperty(QStringLiteral("SplitterPos"), widthTwips() / 2).toDouble();
        moveBar(pos, m_barRect.top(), m_barRect.width(), m_barRect.height());
    }
    UserControl_Resize();
}

void ctlEBSplitter::WriteProperties(PropertyBag& bag) const
{
    bag.WriteProperty(QStringLiteral("SplitterWidth"), qlonglong(m_splitterWidth), qlonglong(DefaultSplitterWidth));
    bag.WriteProperty(QStringLiteral("Orientation"), qlonglong(m_orientation), qlonglong(1));
    if (vertical())
        bag.WriteProperty(QStringLiteral("SplitterPos"), float(m_barRect.left()), float(widthTwips() / 2));
    else
        bag.WriteProperty(QStringLiteral("SplitterPos"), float(m_barRect.top()), float(heightTwips() / 2));
}

void ctlEBSplitter::setOrientation(long orientation)
{
    m_orientation = orientation;
    const double w = widthTwips(), h = heightTwips();
    if (orientation == 0) {
        moveBar(0, h / 2, w, m_splitterWidth);
        m_bar->setCursor(Qt::SizeVerCursor);
    } else {
        moveBar(w / 2, 0, m_splitterWidth, h);
        m_bar->setCursor(Qt::SizeHorCursor);
    }
    UserControl_Resize();
    PropertyChanged(QStringLiteral("Orientation"));
    PropertyChanged(QStringLiteral("SplitterPos"));
}

void ctlEBSplitter::setSplitterWidth(long width)
{
    m_splitterWidth = width;
    UserControl_Resize();
    PropertyChanged(QStringLiteral("SplitterWidth"));
}

long ctlEBSplitter::SplitterPos() const
{
    return static_cast<long>(roundHalfEven(vertical() ? m_barRect.left() : m_barRect.top()));
}

long ctlEBSplitter::setSplitterPos(double position)
{
    const double length = vertical() ? widthTwips() : heightTwips();
    // The two bounds are deliberately not combined: below the margin wins outright.
    if (position < Margin)
        position = Margin;
    else if (length - m_splitterWidth - Margin < position)
        position = roundHalfEven(length - m_splitterWidth - Margin);
    if (vertical())
        moveBar(position, m_barRect.top(), m_barRect.width(), m_barRect.height());
    else
        moveBar(m_barRect.left(), position, m_barRect.width(), m_barRect.height());
    UserControl_Resize();
    PropertyChanged(QStringLiteral("SplitterPos"));
    return static_cast<long>(roundHalfEven(position));
}

void ctlEBSplitter::picSplitter_MouseMove(int Button, int, double X, double Y)
{
    if (Button != 1)
        return;
    const double s = m_splitterWidth;
    double p = vertical() ? m_barRect.left() + X - s / 2 : m_barRect.top() + Y - s / 2;
    p = roundHalfEven(p);
    p = std::trunc(p / 15) * 15;
    const double length = vertical() ? widthTwips() : heightTwips();
    if (p < Margin)
        p = Margin;
    else if (length - s - Margin < p)
        p = roundHalfEven(length - s - Margin);

    long& last = vertical() ? m_lastDragVertical : m_lastDragHorizontal;
    const long position = static_cast<long>(p);
    if (position == last)
        return;
    last = position;
    if (vertical())
        moveBar(position, 0, m_barRect.width(), m_barRect.height());
    else
        moveBar(0, position, m_barRect.width(), m_barRect.height());
    PropertyChanged(QStringLiteral("SplitterPos"));
    UserControl_Resize();
}

void ctlEBSplitter::UserControl_Resize()
{
    const double w = widthTwips(), h = heightTwips(), s = m_splitterWidth;
    const QList<QWidget*> children = childControls();
    if (vertical()) {
        moveBar(m_barRect.left(), 0, s, h);
        const double b = m_barRect.left();
        if (children.size() == 1) {
            moveTwips(children[0], 0, 0, b + 15, h);
        } else if (children.size() == 2) {
            moveTwips(children[1], 0, 0, b + 15, h);
            const double r = roundHalfEven(b + s - 15);
            if (w - r > 0)
                moveTwips(children[0], r, 0, w - r, h);
        }
    } else {
        moveBar(0, m_barRect.top(), w, s);
        const double b = m_barRect.top();
        if (children.size() == 1) {
            moveTwips(children[0], 0, 0, w, b + 15);
        } else if (children.size() == 2) {
            moveTwips(children[1], 0, 0, w, b + 15);
            const double r = roundHalfEven(b + s - 15);
            if (h - r > 0)
                moveTwips(children[0], 0, r, w, h - r);
        }
    }
}

void ctlEBSplitter::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    UserControl_Resize();
}

bool ctlEBSplitter::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_bar && event->type() == QEvent::MouseMove) {
        const auto* mouse = static_cast<QMouseEvent*>(event);
        int button = 0;
        if (mouse->buttons() & Qt::LeftButton) button |= 1;
        if (mouse->buttons() & Qt::RightButton) button |= 2;
        if (mouse->buttons() & Qt::MiddleButton) button |= 4;
        int shift = 0;
        if (mouse->modifiers() & Qt::ShiftModifier) shift |= 1;
        if (mouse->modifiers() & Qt::ControlModifier) shift |= 2;
        if (mouse->modifiers() & Qt::AltModifier) shift |= 4;
        picSplitter_MouseMove(button, shift, mouse->position().x() * TwipsPerPixel,
                              mouse->position().y() * TwipsPerPixel);
        return true;
    }
    return QWidget::eventFilter(watched, event);
}
