// UnicodeGrid: the cells of the Unicode character table, drawn by hand so that only
// the visible rows cost anything, whatever the number of characters; and
// CharacterPreview, one character drawn large. Both draw with the face's own glyphs
// only: a character the face lacks leaves its cell blank.
#pragma once

#include "samples/unicodecoverage.h"

#include <QAbstractScrollArea>
#include <QRawFont>
#include <optional>
#include <vector>

class UnicodeGrid : public QAbstractScrollArea {
    Q_OBJECT
public:
    explicit UnicodeGrid(QWidget* parent = nullptr);

    // The face to draw with (no font merging is applied here).
    void setFaceFont(const QFont& font);
    QFont faceFont() const { return m_font; }
    // The cells, in code point order; the current character stays current when it is
    // still there, else the first cell becomes current.
    void setCells(std::vector<CharacterCell> cells);
    const std::vector<CharacterCell>& cells() const { return m_cells; }
    int cellCount() const { return int(m_cells.size()); }
    // Side of a square cell in pixels.
    void setCellSize(int pixels);
    int cellSize() const { return m_cellSize; }

    int columnCount() const;
    int visibleRowCount() const;
    int currentIndex() const { return m_current; }
    // Clamped to the cells; scrolls it into view.
    void setCurrentIndex(int index);
    std::optional<char32_t> currentCode() const;
    // Index of the cell of the code, -1 when absent; the first cell at or after it.
    int indexOfCode(char32_t code) const;
    int indexAtOrAfter(char32_t code) const;
    // Scrolls so that the row of the cell is the top one.
    void scrollToTop(int index);
    // Cell geometry in viewport coordinates, and the cell under a viewport point (-1).
    QRect cellRect(int index) const;
    int indexAt(const QPoint& point) const;
    // Index of the first cell of the top visible row.
    int firstVisibleIndex() const;

    // Draws the code's glyph centred in the rectangle with the raw font, unless the
    // face has none.
    static void drawCharacter(QPainter& painter, const QRawFont& font, char32_t code, const QRectF& rect);

Q_SIGNALS:
    void currentChanged(int index);
    void activated(int index);          // double click, Enter
    void menuRequested(int index, const QPoint& globalPos);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    bool viewportEvent(QEvent* event) override;

private:
    void updateRawFont();
    void updateScrollBars();
    void ensureVisible(int index);
    void paintCells(QPainter& painter, int first, int last);
    void paintGlyphs(QPainter& painter, int first, int last);
    bool jumpToTypedCharacter(const QString& text);
    int moveTarget(int key) const;
    void startDrag();

    QFont m_font;
    QRawFont m_raw;
    std::vector<CharacterCell> m_cells;
    int m_cellSize = 48;
    int m_current = -1;
    QPoint m_pressPos;
    bool m_dragArmed = false;
};

class CharacterPreview : public QWidget {
    Q_OBJECT
public:
    explicit CharacterPreview(QWidget* parent = nullptr);
    void setFaceFont(const QFont& font);
    // The character shown, or none.
    void setCode(std::optional<char32_t> code);
    std::optional<char32_t> code() const { return m_code; }
    QSize sizeHint() const override { return {120, 120}; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QFont m_font;
    QRawFont m_raw;
    std::optional<char32_t> m_code;
};
