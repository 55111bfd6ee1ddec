// The hand-drawn character grid: geometry from the cell size and the viewport width,
// glyphs of the visible cells drawn as one glyph run, keyboard and mouse handling.
#include "samples/unicodegrid.h"

#include "samples/unicodeformats.h"

#include <QApplication>
#include <QDrag>
#include <QGlyphRun>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QPainter>
#include <QScrollBar>
#include <QToolTip>
#include <algorithm>
#include <cmath>

namespace {

// Glyphs take this share of a cell's side.
constexpr double GlyphShare = 0.6;

QRawFont rawFontOf(QFont font, int pixels)
{
    font.setPixelSize(std::max(6, pixels));
    font.setStyleStrategy(QFont::NoFontMerging);
    return QRawFont::fromFont(font);
}

// Where a glyph goes so that it sits centred in the rectangle: by its advance, or by
// its outline for glyphs that advance nothing (combining marks).
QPointF glyphOrigin(const QRawFont& font, quint32 glyph, qreal advance, const QRectF& rect)
{
    const qreal baseline = rect.top() + (rect.height() - font.ascent() - font.descent()) / 2 + font.ascent();
    if (advance > 0)
        return {rect.left() + (rect.width() - advance) / 2, baseline};
    const QRectF outline = font.boundingRect(glyph);
    return {rect.center().x() - outline.center().x(), baseline};
}

quint32 glyphOf(const QRawFont& font, char32_t code)
{
    const QString text = UnicodeFormats::characterText(code);
    quint32 glyph = 0;
    int count = 1;
    if (!font.glyphIndexesForChars(text.constData(), int(text.size()), &glyph, &count) || count != 1)
        return 0;
    return glyph;
}

} // namespace

UnicodeGrid::UnicodeGrid(QWidget* parent) : QAbstractScrollArea(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
    viewport()->setBackgroundRole(QPalette::Base);
}

void UnicodeGrid::setFaceFont(const QFont& font)
{
    m_font = font;
    updateRawFont();
    viewport()->update();
}

void UnicodeGrid::updateRawFont()
{
    m_raw = rawFontOf(m_font, int(std::lround(m_cellSize * GlyphShare)));
}

void UnicodeGrid::setCells(std::vector<CharacterCell> cells)
{
    const std::optional<char32_t> previous = currentCode();
    m_cells = std::move(cells);
    int current = m_cells.empty() ? -1 : 0;
    if (previous) {
        const int kept = indexOfCode(*previous);
        if (kept >= 0)
            current = kept;
    }
    m_current = -1;
    updateScrollBars();
    if (current >= 0 && !previous)
        verticalScrollBar()->setValue(0);
    setCurrentIndex(current);
    if (current < 0)
        Q_EMIT currentChanged(-1);
    viewport()->update();
}

void UnicodeGrid::setCellSize(int pixels)
{
    if (pixels == m_cellSize || pixels <= 0)
        return;
    const int keep = m_current;
    m_cellSize = pixels;
    updateRawFont();
    updateScrollBars();
    ensureVisible(keep);
    viewport()->update();
}

int UnicodeGrid::columnCount() const
{
    return std::max(1, viewport()->width() / m_cellSize);
}

int UnicodeGrid::visibleRowCount() const
{
    return std::max(1, viewport()->height() / m_cellSize);
}

void UnicodeGrid::setCurrentIndex(int index)
{
    if (m_cells.empty())
        index = -1;
    else
        index = std::clamp(index, 0, cellCount() - 1);
    ensureVisible(index);
    if (index == m_current)
        return;
    m_current = index;
    viewport()->update();
    Q_EMIT currentChanged(index);
}

std::optional<char32_t> UnicodeGrid::currentCode() const
{
    if (m_current < 0 || m_current >= cellCount())
        return std::nullopt;
    return m_cells[std::size_t(m_current)].code;
}

int UnicodeGrid::indexAtOrAfter(char32_t code) const
{
    const auto it = std::lower_bound(m_cells.begin(), m_cells.end(), code,
                                     [](const CharacterCell& cell, char32_t c) { return cell.code < c; });
    return int(it - m_cells.begin());
}

int UnicodeGrid::indexOfCode(char32_t code) const
{
    const int index = indexAtOrAfter(code);
    return index < cellCount() && m_cells[std::size_t(index)].code == code ? index : -1;
}

void UnicodeGrid::scrollToTop(int index)
{
    if (index >= 0)
        verticalScrollBar()->setValue(index / columnCount() * m_cellSize);
}

QRect UnicodeGrid::cellRect(int index) const
{
    const int columns = columnCount();
    return {index % columns * m_cellSize, index / columns * m_cellSize - verticalScrollBar()->value(), m_cellSize,
            m_cellSize};
}

int UnicodeGrid::indexAt(const QPoint& point) const
{
    const int columns = columnCount();
    if (point.x() < 0 || point.y() < 0 || point.x() >= columns * m_cellSize)
        return -1;
    const int index = (point.y() + verticalScrollBar()->value()) / m_cellSize * columns + point.x() / m_cellSize;
    return index < cellCount() ? index : -1;
}

int UnicodeGrid::firstVisibleIndex() const
{
    return verticalScrollBar()->value() / m_cellSize * columnCount();
}

void UnicodeGrid::updateScrollBars()
{
    const int columns = columnCount();
    const int rows = (cellCount() + columns - 1) / columns;
    QScrollBar* bar = verticalScrollBar();
    bar->setRange(0, std::max(0, rows * m_cellSize - viewport()->height()));
    bar->setPageStep(viewport()->height());
    bar->setSingleStep(m_cellSize);
}

void UnicodeGrid::ensureVisible(int index)
{
    if (index < 0)
        return;
    const int top = index / columnCount() * m_cellSize;
    QScrollBar* bar = verticalScrollBar();
    if (top < bar->value())
        bar->setValue(top);
    else if (top + m_cellSize > bar->value() + viewport()->height())
        bar->setValue(top + m_cellSize - viewport()->height());
}

void UnicodeGrid::resizeEvent(QResizeEvent* event)
{
    QAbstractScrollArea::resizeEvent(event);
    updateScrollBars();
    ensureVisible(m_current);
}

void UnicodeGrid::scrollContentsBy(int, int)
{
    viewport()->update();
}

void UnicodeGrid::paintEvent(QPaintEvent*)
{
    QPainter painter(viewport());
    painter.fillRect(viewport()->rect(), palette().brush(QPalette::Base));
    if (m_cells.empty())
        return;
    const int columns = columnCount();
    const int firstRow = verticalScrollBar()->value() / m_cellSize;
    const int lastRow = (verticalScrollBar()->value() + viewport()->height() - 1) / m_cellSize;
    const int first = firstRow * columns;
    const int last = std::min(cellCount() - 1, (lastRow + 1) * columns - 1);
    if (first > last)
        return;
    paintCells(painter, first, last);
    paintGlyphs(painter, first, last);
}

void UnicodeGrid::paintCells(QPainter& painter, int first, int last)
{
    for (int i = first; i <= last; ++i) {
        const QRect rect = cellRect(i);
        if (i == m_current)
            painter.fillRect(rect, palette().brush(hasFocus() ? QPalette::Active : QPalette::Inactive, QPalette::Highlight));
        else if (!m_cells[std::size_t(i)].present)
            painter.fillRect(rect, palette().brush(QPalette::Window));
    }
    // Each cell draws its right and bottom edges; the first column its left edge too.
    QList<QLine> lines;
    lines.reserve((last - first + 1) * 2 + visibleRowCount() + 2);
    for (int i = first; i <= last; ++i) {
        const QRect rect = cellRect(i);
        lines.append({rect.topRight(), rect.bottomRight()});
        lines.append({rect.bottomLeft(), rect.bottomRight()});
        if (rect.left() == 0)
            lines.append({rect.topLeft(), rect.bottomLeft()});
    }
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawLines(lines);
}

void UnicodeGrid::paintGlyphs(QPainter& painter, int first, int last)
{
    // One call for the glyph indexes of every visible character the face has.
    QString text;
    std::vector<int> cellOf;
    for (int i = first; i <= last; ++i) {
        if (!m_cells[std::size_t(i)].present)
            continue;
        const char32_t code = m_cells[std::size_t(i)].code;
        text.append(QString::fromUcs4(&code, 1));
        cellOf.push_back(i);
    }
    QList<quint32> glyphs(qsizetype(cellOf.size()));
    int count = int(glyphs.size());
    if (glyphs.isEmpty() || !m_raw.glyphIndexesForChars(text.constData(), int(text.size()), glyphs.data(), &count)
        || count != int(cellOf.size()))
        return;
    const QList<QPointF> advances = m_raw.advancesForGlyphIndexes(glyphs);
    QList<quint32> runGlyphs;
    QList<QPointF> runPositions;
    for (int k = 0; k < count; ++k) {
        const quint32 glyph = glyphs[k];
        if (glyph == 0) // the face has no glyph here: the cell stays blank
            continue;
        const int index = cellOf[std::size_t(k)];
        const QRectF rect = cellRect(index);
        const qreal advance = advances[k].x();
        if (index == m_current || advance > rect.width()) {
            // Drawn alone: in the highlight's colour, or clipped to its cell when wide.
            painter.save();
            painter.setClipRect(rect);
            painter.setPen(palette().color(index == m_current ? QPalette::HighlightedText : QPalette::Text));
            drawCharacter(painter, m_raw, m_cells[std::size_t(index)].code, rect);
            painter.restore();
            continue;
        }
        runGlyphs.append(glyph);
        runPositions.append(glyphOrigin(m_raw, glyph, advance, rect));
    }
    QGlyphRun run;
    run.setRawFont(m_raw);
    run.setGlyphIndexes(runGlyphs);
    run.setPositions(runPositions);
    painter.setPen(palette().color(QPalette::Text));
    painter.drawGlyphRun(QPointF(0, 0), run);
}

void UnicodeGrid::drawCharacter(QPainter& painter, const QRawFont& font, char32_t code, const QRectF& rect)
{
    const quint32 glyph = glyphOf(font, code);
    if (glyph == 0)
        return;
    const QList<QPointF> advance = font.advancesForGlyphIndexes({glyph});
    QGlyphRun run;
    run.setRawFont(font);
    run.setGlyphIndexes({glyph});
    run.setPositions({glyphOrigin(font, glyph, advance.value(0).x(), rect)});
    painter.drawGlyphRun(QPointF(0, 0), run);
}

static bool isMoveKey(int key)
{
    switch (key) {
    case Qt::Key_Left: case Qt::Key_Right: case Qt::Key_Up: case Qt::Key_Down:
    case Qt::Key_PageUp: case Qt::Key_PageDown: case Qt::Key_Home: case Qt::Key_End:
        return true;
    default:
        return false;
    }
}

int UnicodeGrid::moveTarget(int key) const
{
    const int columns = columnCount();
    const int page = columns * visibleRowCount();
    const int current = std::max(m_current, 0);
    switch (key) {
    case Qt::Key_Left: return current - 1;
    case Qt::Key_Right: return current + 1;
    case Qt::Key_Up: return current >= columns ? current - columns : current;
    case Qt::Key_Down: return current + columns < cellCount() ? current + columns : current;
    case Qt::Key_PageUp: return current - page;
    case Qt::Key_PageDown: return current + page;
    case Qt::Key_Home: return 0;
    case Qt::Key_End: return cellCount() - 1;
    default: return -1;
    }
}

bool UnicodeGrid::jumpToTypedCharacter(const QString& text)
{
    const QList<uint> codes = text.toUcs4();
    if (codes.size() != 1 || !QChar::isPrint(codes.first()))
        return false;
    const int index = indexAtOrAfter(char32_t(codes.first()));
    if (index < cellCount())
        setCurrentIndex(index);
    return true;
}

void UnicodeGrid::keyPressEvent(QKeyEvent* event)
{
    const int key = event->key();
    if (isMoveKey(key)) {
        const int scrollRows = (key == Qt::Key_PageUp || key == Qt::Key_PageDown) ? visibleRowCount() : 0;
        if (scrollRows > 0) // a page key moves the view by a screen as well
            verticalScrollBar()->setValue(verticalScrollBar()->value()
                                          + (key == Qt::Key_PageDown ? 1 : -1) * scrollRows * m_cellSize);
        setCurrentIndex(moveTarget(key));
    } else if (key == Qt::Key_Return || key == Qt::Key_Enter || event->matches(QKeySequence::Copy)) {
        if (m_current >= 0)
            Q_EMIT activated(m_current);
    } else if (key == Qt::Key_Escape) {
        event->ignore(); // the window closes
        return;
    } else if ((event->modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier)) != 0
               || !jumpToTypedCharacter(event->text())) {
        QAbstractScrollArea::keyPressEvent(event);
        return;
    }
    event->accept();
}

void UnicodeGrid::mousePressEvent(QMouseEvent* event)
{
    const int index = indexAt(event->position().toPoint());
    if (index >= 0)
        setCurrentIndex(index);
    m_pressPos = event->position().toPoint();
    m_dragArmed = index >= 0 && event->button() == Qt::LeftButton;
}

void UnicodeGrid::mouseMoveEvent(QMouseEvent* event)
{
    if (!m_dragArmed || !(event->buttons() & Qt::LeftButton))
        return;
    if ((event->position().toPoint() - m_pressPos).manhattanLength() < QApplication::startDragDistance())
        return;
    m_dragArmed = false;
    startDrag();
}

void UnicodeGrid::startDrag()
{
    const std::optional<char32_t> code = currentCode();
    if (!code)
        return;
    auto* data = new QMimeData;
    data->setText(UnicodeFormats::characterText(*code));
    auto* drag = new QDrag(this);
    drag->setMimeData(data);
    drag->exec(Qt::CopyAction);
}

void UnicodeGrid::mouseDoubleClickEvent(QMouseEvent* event)
{
    const int index = indexAt(event->position().toPoint());
    if (index < 0)
        return;
    setCurrentIndex(index);
    Q_EMIT activated(index);
}

void UnicodeGrid::contextMenuEvent(QContextMenuEvent* event)
{
    int index = m_current;
    QPoint global = event->globalPos();
    if (event->reason() == QContextMenuEvent::Mouse) {
        index = indexAt(event->pos());
        if (index >= 0)
            setCurrentIndex(index);
    } else if (index >= 0) {
        global = viewport()->mapToGlobal(cellRect(index).center());
    }
    if (index >= 0)
        Q_EMIT menuRequested(index, global);
}

bool UnicodeGrid::viewportEvent(QEvent* event)
{
    if (event->type() == QEvent::ToolTip) {
        auto* help = static_cast<QHelpEvent*>(event);
        const int index = indexAt(help->pos());
        if (index < 0) {
            QToolTip::hideText();
            return true;
        }
        const CharacterCell& cell = m_cells[std::size_t(index)];
        QString tip = UnicodeFormats::uPlusCode(cell.code) + QLatin1Char(' ') + UnicodeFormats::characterName(cell.code);
        if (!cell.present)
            tip += QStringLiteral("\nAbsent de la police");
        QToolTip::showText(help->globalPos(), tip, viewport(), cellRect(index));
        return true;
    }
    return QAbstractScrollArea::viewportEvent(event);
}

CharacterPreview::CharacterPreview(QWidget* parent) : QWidget(parent)
{
    setBackgroundRole(QPalette::Base);
    setAutoFillBackground(true);
    setMinimumSize(96, 96);
}

void CharacterPreview::setFaceFont(const QFont& font)
{
    m_font = font;
    m_raw = rawFontOf(m_font, int(std::min(width(), height()) * GlyphShare));
    update();
}

void CharacterPreview::setCode(std::optional<char32_t> code)
{
    m_code = code;
    update();
}

void CharacterPreview::resizeEvent(QResizeEvent*)
{
    setFaceFont(m_font);
}

void CharacterPreview::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
    if (!m_code)
        return;
    painter.setPen(palette().color(QPalette::Text));
    UnicodeGrid::drawCharacter(painter, m_raw, *m_code, rect());
}
