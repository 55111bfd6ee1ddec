// PageFlow: lines and blocks laid down a paged surface (printer, PDF writer, print
// preview, or one endless "page" on screen), starting a new page when one no longer fits.
#pragma once

#include <QStringList>
#include <functional>

class QFont;
class QPainter;
class QPaintDevice;

class PageFlow {
public:
    // Draws with `painter` on pages `pageWidth` x `pageHeight` device pixels; `newPage`
    // starts the next page on the device. A flow whose newPage is empty never breaks:
    // everything goes on one endless page.
    PageFlow(QPainter& painter, double pageWidth, double pageHeight, std::function<void()> newPage = {});

    QPainter& painter() const { return m_painter; }
    // The device fonts are measured on (the painter's).
    QPaintDevice* device() const;
    double pageWidth() const { return m_pageWidth; }
    double pageHeight() const { return m_pageHeight; }
    // Top of the next line or block on the current page, in device pixels.
    double y() const { return m_y; }
    // Pages started so far, the first one included.
    int pageCount() const { return m_pages; }

    // Makes room for a block `height` high: when the page already holds something and
    // the block would cross its bottom, the next page starts. Returns the block's top.
    double placeBlock(double height);
    void advance(double height) { m_y += height; }

    // Each line of the text (CR LF, LF or CR separate them) at the left edge, in the
    // font: a line goes to the next page when its height no longer fits, and the next
    // line starts one line spacing lower.
    void printLines(const QFont& font, const QString& text);

    // The lines of a text (see TextLines::split), as strings.
    static QStringList splitLines(const QString& text);

private:
    QPainter& m_painter;
    double m_pageWidth;
    double m_pageHeight;
    std::function<void()> m_newPage;
    double m_y = 0;
    int m_pages = 1;
};
