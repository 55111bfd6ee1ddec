// Rows of the font list drawn with the name in its own font.
#include "browser/fontnamedelegate.h"

#include "browser/familyindex.h"
#include "browser/namerenderer.h"

#include <QApplication>
#include <QPainter>
#include <QScrollBar>
#include <QTimer>
#include <QTreeWidget>

FontNameDelegate::FontNameDelegate(QTreeWidget* list, std::function<const FamilyIndex*()> index)
    : QStyledItemDelegate(list), m_list(list), m_viewport(list->viewport()), m_index(std::move(index)),
      m_renderer(new NameRenderer(this))
{
    m_tinted.setMaxCost(400);
    m_repaint = new QTimer(this);
    m_repaint->setSingleShot(true);
    m_repaint->setInterval(15); // images arriving together are shown in one paint
    connect(m_repaint, &QTimer::timeout, m_list->viewport(), qOverload<>(&QWidget::update));
    connect(m_renderer, &NameRenderer::imageReady, m_repaint, qOverload<>(&QTimer::start));
    connect(m_list->verticalScrollBar(), &QScrollBar::valueChanged, this, [this] { keepVisibleQueued(); });
    m_viewport->installEventFilter(this);
}

bool FontNameDelegate::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_viewport) {
        if (event->type() == QEvent::Paint)
            m_waiting = 0; // counted afresh for each paint of the rows
        return false;
    }
    return QStyledItemDelegate::eventFilter(watched, event);
}

FontNameDelegate::~FontNameDelegate() = default;

void FontNameDelegate::reset()
{
    m_renderer->clear();
    m_tinted.clear();
    m_list->viewport()->update();
}

void FontNameDelegate::keepVisibleQueued()
{
    // Requests for rows that scrolled away are dropped; the visible ones stay.
    QSet<QString> visible;
    const QRect area = m_list->viewport()->rect();
    for (QTreeWidgetItem* item = m_list->itemAt(area.topLeft()); item; item = m_list->itemBelow(item)) {
        if (m_list->visualItemRect(item).top() > area.bottom())
            break;
        visible.insert(item->text(0));
    }
    m_renderer->retain(visible);
}

void FontNameDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    QStyleOptionViewItem opt = option;
    initStyleOption(&opt, index);
    const QString name = opt.text;
    const FamilyIndex* families = m_index();
    const FamilyIndex::Family* family = families ? families->find(name) : nullptr;
    m_renderer->setGeometry(opt.font, opt.rect.height(), painter->device()->devicePixelRatioF());
    QImage image;
    if (family)
        image = m_renderer->image({name, family->drawsOwnName, family->sample, family->file, family->faceIndex});
    if (image.isNull()) {
        ++m_waiting;
        QStyledItemDelegate::paint(painter, option, index);
        return;
    }

    QStyle* style = opt.widget ? opt.widget->style() : QApplication::style();
    const QRect textRect = style->subElementRect(QStyle::SE_ItemViewItemText, &opt, opt.widget);
    opt.text.clear();
    style->drawControl(QStyle::CE_ItemViewItem, &opt, painter, opt.widget);
    const bool selected = opt.state & QStyle::State_Selected;
    const QColor colour = opt.palette.color(opt.state & QStyle::State_Enabled ? QPalette::Normal : QPalette::Disabled,
                                            selected ? QPalette::HighlightedText : QPalette::Text);
    const QString key = name + QLatin1Char('\n') + colour.name(QColor::HexArgb);
    QPixmap* tinted = m_tinted.object(key);
    if (!tinted) {
        // The mask takes the row's text colour.
        QImage coloured(image.size(), QImage::Format_ARGB32_Premultiplied);
        coloured.setDevicePixelRatio(image.devicePixelRatio());
        coloured.fill(colour);
        QPainter mask(&coloured);
        mask.setCompositionMode(QPainter::CompositionMode_DestinationIn);
        mask.drawImage(0, 0, image);
        mask.end();
        tinted = new QPixmap(QPixmap::fromImage(coloured));
        m_tinted.insert(key, tinted);
    }
    painter->save();
    painter->setClipRect(textRect);
    painter->drawPixmap(QPoint(textRect.left(), opt.rect.top()), *tinted);
    painter->restore();
}
