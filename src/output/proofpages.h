// ProofPages: every printed proof drawn on a QPainter through a PageFlow, so that the
// printer, a PDF file, the print preview and the screen show the same pages: the test
// page, the font list, and rows of samples (fonts compared, or one font's waterfall).
#pragma once

#include <QFont>
#include <QList>
#include <QString>
#include <QStringList>
#include <functional>

class PageFlow;
class QPageLayout;
class QPagedPaintDevice;
class QPaintDevice;

namespace ProofPages {

using Drawing = std::function<void(PageFlow&)>;

// The test page as the printer writer prints it: for each font its name in the name
// font at the name size, the sample (one line per line of it) in the font itself at the
// sample size, then a line holding one blank.
struct TestPage {
    QStringList fonts; // in list order, as they stand
    QString nameFont;  // trimmed
    double nameSize = 10;
    QString sample;
    double sampleSize = 10;
};
// Starts from `base` (only its family and size change, as on the program's printer);
// beforeFont(name) runs before each font. Returns the font in force at the end.
QFont testPage(PageFlow& flow, QFont base, const TestPage& page,
               const std::function<void(const QString&)>& beforeFont = {});

// Each text on a line of its own, in one font.
void lines(PageFlow& flow, const QFont& font, const QStringList& texts);

// The font list as a proof: each name in its own face at `points`; a name whose face
// lacks one of its characters is written in `fallback` at the same size. `next` runs
// after each name; when it returns false the list stops there.
void fontList(PageFlow& flow, const QStringList& names, const QFont& fallback, double points = 12,
              const std::function<bool()>& next = {});
// Whether the face draws every character of the text with glyphs of its own, measured
// on `device` (the screen when none). A symbol font that maps letters to its own
// pictures counts as drawing them: the list then shows those pictures.
bool canDraw(const QFont& face, const QString& text, QPaintDevice* device = nullptr);

// A row: a label (a font's name, or a size) and a sample in its font. The rows' samples
// share one left edge, right of the widest label, and each sample's first baseline is
// the label's.
struct Row {
    QString label;
    QFont font;
    QString sample;
};
// How rows are laid out beyond their fonts.
struct RowOptions {
    // Labels wider than this are shortened with "..."; on paper, when negative, two
    // fifths of the page (and no limit when measuring).
    double maxLabelWidth = -1;
    // When above 0, each sample is drawn from its face at this size, scaled to the
    // row's size: a change of size then loads no new font (the screen uses it).
    double referencePoints = 0;
};
// Where the rows go on a device: the samples' left edge, and each row's height and
// first baseline (from the row's top).
struct RowGeometry {
    double sampleLeft = 0;
    QList<double> heights;
    QList<double> baselines;
    double width = 0; // the widest row
};
RowGeometry measureRows(QPaintDevice* device, const QFont& labelFont, const QList<Row>& rows,
                        const RowOptions& options = {});
// Draws the rows one under the other, a row never split over two pages; samples are cut
// at the page's right edge.
void rows(PageFlow& flow, const QFont& labelFont, const QList<Row>& rows, RowOptions options = {});

// Draws on a fresh paged device (a QPrinter, a QPdfWriter) from its first page.
// Returns the number of pages, or 0 when the device could not be opened.
int drawPages(QPagedPaintDevice& device, const Drawing& draw);
// Writes a PDF file with the given page layout and resolution (those of the program's
// printer, so that paper and PDF match); the fonts used are embedded. The file is
// replaced only once the whole PDF is written, and only when `keep` (if given) still
// says so then. False, with nothing changed on disk, when the file cannot be written
// or is not kept.
bool writePdf(const QString& path, const QPageLayout& layout, int resolution, const QString& title,
              const Drawing& draw, const std::function<bool()>& keep = {});

} // namespace ProofPages
