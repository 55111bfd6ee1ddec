// ProofPages: the drawing of every printed proof, on any paged device or on screen.
#include "output/proofpages.h"

#include "components/pageflow.h"

#include <QFontMetricsF>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QPdfWriter>
#include <QSaveFile>

namespace ProofPages {

QFont testPage(PageFlow& flow, QFont font, const TestPage& page, const std::function<void(const QString&)>& beforeFont)
{
    // The same steps as on the program's printer: a size that is not a number leaves
    // the size in force.
    auto setSize = [&font](double points) {
        if (points > 0)
            font.setPointSizeF(points);
    };
    for (const QString& name : page.fonts) {
        if (beforeFont)
            beforeFont(name);
        font.setFamily(page.nameFont);
        setSize(page.nameSize);
        flow.printLines(font, name);
        font.setFamily(name.trimmed());
        setSize(page.sampleSize);
        flow.printLines(font, page.sample);
        flow.printLines(font, QStringLiteral(" "));
    }
    return font;
}

void lines(PageFlow& flow, const QFont& font, const QStringList& texts)
{
    for (const QString& text : texts)
        flow.printLines(font, text);
}

bool canDraw(const QFont& face, const QString& text, QPaintDevice* device)
{
    QFont single = face;
    single.setStyleStrategy(QFont::StyleStrategy(face.styleStrategy() | QFont::NoFontMerging));
    const QFontMetricsF metrics = device ? QFontMetricsF(single, device) : QFontMetricsF(single);
    for (const char32_t c : text.toUcs4())
        if (!metrics.inFontUcs4(c))
            return false;
    return true;
}

void fontList(PageFlow& flow, const QStringList& names, const QFont& fallback, double points,
              const std::function<bool()>& next)
{
    QFont other = fallback;
    other.setPointSizeF(points);
    for (const QString& name : names) {
        QFont face;
        face.setFamilies({name});
        face.setPointSizeF(points);
        // Without merging: a missing character shows here, not in some other face.
        face.setStyleStrategy(QFont::NoFontMerging);
        flow.printLines(canDraw(face, name, flow.device()) ? face : other, name);
        if (next && !next())
            return;
    }
}

namespace {

// A row's sample face as drawn: the row's font, or the same face at the reference size
// with the scale that brings it to the row's size.
struct SampleFace {
    QFont font;
    double scale = 1;
};

SampleFace sampleFace(const Row& row, const RowOptions& options)
{
    const double points = row.font.pointSizeF();
    if (options.referencePoints <= 0 || points <= 0)
        return {row.font, 1};
    QFont reference = row.font;
    reference.setPointSizeF(options.referencePoints);
    return {reference, points / options.referencePoints};
}

} // namespace

RowGeometry measureRows(QPaintDevice* device, const QFont& labelFont, const QList<Row>& rows, const RowOptions& options)
{
    const QFontMetricsF label(labelFont, device);
    RowGeometry geometry;
    double widestLabel = 0;
    for (const Row& row : rows)
        widestLabel = std::max(widestLabel, label.horizontalAdvance(row.label));
    if (options.maxLabelWidth >= 0)
        widestLabel = std::min(widestLabel, options.maxLabelWidth);
    geometry.sampleLeft = widestLabel + label.height();
    for (const Row& row : rows) {
        const SampleFace face = sampleFace(row, options);
        const QFontMetricsF sample(face.font, device);
        const QStringList lines = PageFlow::splitLines(row.sample);
        const double ascent = std::max(label.ascent(), sample.ascent() * face.scale);
        const double descent = std::max(label.descent(), sample.descent() * face.scale);
        double widest = 0;
        for (const QString& line : lines)
            widest = std::max(widest, sample.horizontalAdvance(line) * face.scale);
        geometry.baselines.append(ascent);
        // Half a label line between rows.
        geometry.heights.append(ascent + sample.lineSpacing() * face.scale * double(lines.size() - 1) + descent +
                                label.lineSpacing() / 2);
        geometry.width = std::max(geometry.width, geometry.sampleLeft + widest);
    }
    return geometry;
}

void rows(PageFlow& flow, const QFont& labelFont, const QList<Row>& rows, RowOptions options)
{
    if (options.maxLabelWidth < 0)
        options.maxLabelWidth = flow.pageWidth() * 0.4;
    const RowGeometry geometry = measureRows(flow.device(), labelFont, rows, options);
    const QFontMetricsF label(labelFont, flow.device());
    QPainter& painter = flow.painter();
    for (qsizetype i = 0; i < rows.size(); ++i) {
        const Row& row = rows[i];
        const double top = flow.placeBlock(geometry.heights[i]);
        const double baseline = top + geometry.baselines[i];
        painter.setFont(labelFont);
        const bool fits = label.horizontalAdvance(row.label) <= options.maxLabelWidth;
        painter.drawText(QPointF(0, baseline),
                         fits ? row.label : label.elidedText(row.label, Qt::ElideRight, options.maxLabelWidth));
        painter.save();
        painter.setClipRect(QRectF(geometry.sampleLeft, top, flow.pageWidth() - geometry.sampleLeft, geometry.heights[i]));
        const SampleFace face = sampleFace(row, options);
        painter.translate(geometry.sampleLeft, baseline);
        painter.scale(face.scale, face.scale);
        painter.setFont(face.font);
        const double lineSpacing = QFontMetricsF(face.font, flow.device()).lineSpacing();
        const QStringList lines = PageFlow::splitLines(row.sample);
        for (qsizetype k = 0; k < lines.size(); ++k)
            painter.drawText(QPointF(0, lineSpacing * double(k)), lines[k]);
        painter.restore();
        flow.advance(geometry.heights[i]);
    }
}

int drawPages(QPagedPaintDevice& device, const Drawing& draw)
{
    QPainter painter;
    if (!painter.begin(&device))
        return 0;
    const QRect page = device.pageLayout().paintRectPixels(device.logicalDpiY());
    PageFlow flow(painter, page.width(), page.height(), [&device] { device.newPage(); });
    draw(flow);
    painter.end();
    return flow.pageCount();
}

bool writePdf(const QString& path, const QPageLayout& layout, int resolution, const QString& title, const Drawing& draw,
              const std::function<bool()>& keep)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    {
        QPdfWriter writer(&file);
        writer.setPageLayout(layout);
        writer.setResolution(resolution);
        writer.setTitle(title);
        writer.setCreator(QStringLiteral("Glyphora"));
        if (drawPages(writer, draw) == 0) {
            file.cancelWriting();
            return false;
        }
    }
    if (keep && !keep()) {
        file.cancelWriting();
        return false;
    }
    return file.commit();
}

} // namespace ProofPages
