// FontNameDelegate: draws the font list's rows with each name in its own font once its
// image is ready (NameRenderer), and in the interface font until then.
#pragma once

#include <QCache>
#include <QPixmap>
#include <QStyledItemDelegate>
#include <functional>

class FamilyIndex;
class NameRenderer;
class QTimer;
class QTreeWidget;

class FontNameDelegate : public QStyledItemDelegate {
    Q_OBJECT
public:
    // `index` gives the family index when built (nullptr before).
    FontNameDelegate(QTreeWidget* list, std::function<const FamilyIndex*()> index);
    ~FontNameDelegate() override;

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;

    NameRenderer* renderer() const { return m_renderer; }
    // Drops every image (fonts installed or removed, index rebuilt).
    void reset();
    // Rows drawn in the interface font in the last paint, while waiting for images.
    int waitingRows() const { return m_waiting; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void keepVisibleQueued();

    QTreeWidget* m_list;
    // The list's viewport, kept so that events reaching it while the list is being
    // destroyed are recognised without calling into the half-destroyed list.
    QWidget* m_viewport;
    std::function<const FamilyIndex*()> m_index;
    NameRenderer* m_renderer;
    QTimer* m_repaint;
    mutable QCache<QString, QPixmap> m_tinted; // image in the row's text colour
    mutable int m_waiting = 0;
};
