// ctlEBSplitter: a container that divides its area into two panes separated by a
// draggable bar and keeps its (at most two) child controls sized to the panes.
// All positions and sizes are in twips (15 twips to a pixel).
#pragma once

#include <QHash>
#include <QList>
#include <QPointer>
#include <QRectF>
#include <QStringList>
#include <QVariant>
#include <QWidget>

// Saved design data of a control: property names matched without regard to case,
// a property equal to its default not written.
class PropertyBag {
public:
    QVariant ReadProperty(const QString& name, const QVariant& defaultValue) const;
    void WriteProperty(const QString& name, const QVariant& value, const QVariant& defaultValue);
    bool contains(const QString& name) const { return m_values.contains(name.toLower()); }
    int count() const { return static_cast<int>(m_values.size()); }

private:
    QHash<QString, QVariant> m_values; // keyed by lower-case name
};

class ctlEBSplitter : public QWidget {
    Q_OBJECT
public:
    static constexpr int TwipsPerPixel = 15;
    static constexpr long DefaultSplitterWidth = 75;
    static constexpr long Margin = 120;

    explicit ctlEBSplitter(QWidget* parent = nullptr);

    long Orientation() const { return m_orientation; }
    void setOrientation(long orientation);
    long SplitterWidth() const { return m_splitterWidth; }
    void setSplitterWidth(long width);
    long SplitterPos() const;
    // Clamps the position, moves the bar there and returns the clamped value.
    long setSplitterPos(double position);

    // The contained controls, in the order they were placed (picSplitter excluded).
    QList<QWidget*> childControls() const;
    QWidget* picSplitter() const { return m_bar; }

    // Geometry in twips of the bar and of a contained control, as last set.
    QRectF barTwips() const { return m_barRect; }
    static QRectF twipsOf(const QWidget* control);
    double widthTwips() const { return width() * double(TwipsPerPixel); }
    double heightTwips() const { return height() * double(TwipsPerPixel); }

    // Design-data life cycle.
    void InitProperties();
    void ReadProperties(const PropertyBag& bag);
    void WriteProperties(PropertyBag& bag) const;
    // Names passed to PropertyChanged since the last clear, in order.
    QStringList changedProperties() const { return m_changed; }
    void clearChangedProperties() { m_changed.clear(); }

    // Mouse move over the bar: Button is the button state (1 left, 2 right, 4 middle,
    // summed), X and Y the pointer position relative to the bar in twips.
    void picSplitter_MouseMove(int Button, int Shift, double X, double Y);
    // Lays out the bar and the contained controls.
    void UserControl_Resize();

protected:
    void resizeEvent(QResizeEvent* event) override;
    void childEvent(QChildEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool vertical() const { return m_orientation != 0; }
    void moveBar(double left, double top, double width, double height);
    static void moveTwips(QWidget* control, double left, double top, double width, double height);
    void PropertyChanged(const QString& name) { m_changed.append(name); }

    QWidget* m_bar = nullptr;
    QList<QPointer<QWidget>> m_children;
    QRectF m_barRect;
    long m_orientation = 1;
    long m_splitterWidth = DefaultSplitterWidth;
    long m_lastDragVertical = 0;
    long m_lastDragHorizontal = 0;
    QStringList m_changed;
};
