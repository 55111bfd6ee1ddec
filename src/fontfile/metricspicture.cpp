// MetricsPicture: the word is sized to fit between the face's highest and lowest lines,
// drawn by the sample renderer, and the lines and their labels are painted over it.
#include "fontfile/metricspicture.h"

#include <QPainter>
#include <QRegularExpression>
#include <algorithm>
#include <cmath>

namespace MetricsPicture {

namespace {

constexpr int margin = 8;
constexpr int labelWidth = 140; // the column on the right where the labels go

struct Metric {
    QString label;
    double em = 0; // height above the baseline, in ems
};

// The lines the face's tables give, in ems; hhea first, as most systems lay out lines with it.
QList<Metric> metricsOf(const FaceTables::FaceData& data)
{
    QList<Metric> metrics;
    const double upem = data.unitsPerEm.value_or(0);
    if (upem <= 0)
        return metrics;
    const auto ascender = data.hheaAscender ? data.hheaAscender : data.typoAscender;
    const auto descender = data.hheaDescender ? data.hheaDescender : data.typoDescender;
    const int gap = data.hheaAscender ? data.hheaLineGap.value_or(0) : data.typoLineGap.value_or(0);
    if (ascender)
        metrics.append({QStringLiteral("Ascendant"), *ascender / upem});
    if (data.capHeight)
        metrics.append({data.capHeightMeasured ? QStringLiteral("Capitales (mesurée)") : QStringLiteral("Capitales"),
                        *data.capHeight / upem});
    if (data.xHeight)
        metrics.append({data.xHeightMeasured ? QStringLiteral("Hauteur d'x (mesurée)") : QStringLiteral("Hauteur d'x"),
                        *data.xHeight / upem});
    metrics.append({QStringLiteral("Ligne de base"), 0});
    if (descender)
        metrics.append({QStringLiteral("Descendant"), *descender / upem});
    if (descender && gap > 0)
        metrics.append({QStringLiteral("Interligne"), (*descender - gap) / upem});
    return metrics;
}

void drawLabels(QPainter& painter, QList<Line>& lines, const QSize& size, const Colours& colours)
{
    std::sort(lines.begin(), lines.end(), [](const Line& a, const Line& b) { return a.y < b.y; });
    QFont font = painter.font();
    font.setPointSizeF(font.pointSizeF() * 0.9);
    painter.setFont(font);
    const int textHeight = painter.fontMetrics().height();
    int lastBottom = -textHeight;
    for (const Line& line : std::as_const(lines)) {
        painter.setPen(QPen(colours.lines, 1, Qt::DashLine));
        painter.drawLine(margin, line.y, size.width() - margin, line.y);
        // Labels that would overlap are pushed down, and stay linked to their line by position order.
        const int top = std::max({line.y - textHeight, lastBottom, 0});
        // A background box keeps a label readable over the dashed lines.
        const QRect box = painter.fontMetrics()
                              .boundingRect(line.label)
                              .adjusted(-3, 0, 3, 0)
                              .translated(size.width() - margin - painter.fontMetrics().horizontalAdvance(line.label), 0);
        const QRect place(box.left(), top, box.width(), textHeight);
        painter.fillRect(place, colours.background);
        painter.setPen(colours.text);
        painter.drawText(place, Qt::AlignCenter, line.label);
        lastBottom = top + textHeight;
    }
}

// The characters of the word whose glyphs end within `width` (at the probe's size); one at least.
QString wordThatFits(const SampleRenderer::Result& probe, const QString& word, double width)
{
    for (const auto& glyph : probe.glyphs)
        if (glyph.origin.x() + glyph.advance > width && glyph.cluster > 0)
            return word.left(glyph.cluster);
    return word;
}

} // namespace

QString firstWord(const QString& text)
{
    const QStringList words = text.split(QRegularExpression(QStringLiteral("\\s+")), Qt::SkipEmptyParts);
    return words.isEmpty() ? QStringLiteral("Hxg") : words.first().left(SampleRenderer::maximumLineLength);
}

Picture draw(SampleRenderer& renderer, SampleRenderer::Request face, const QString& word,
             const FaceTables::FaceData& data, QSize size, const Colours& colours)
{
    Picture picture;
    picture.image = QImage(size.expandedTo(QSize(1, 1)), QImage::Format_ARGB32_Premultiplied);
    picture.image.fill(colours.background);
    face.text = word;
    face.margin = 0;
    face.draw = false;
    face.pixelSize = 100;
    const SampleRenderer::Result probe = renderer.render(face);
    QPainter painter(&picture.image);
    if (!probe.ok || probe.glyphs.isEmpty()) {
        painter.setPen(colours.text);
        painter.drawText(picture.image.rect(), Qt::AlignCenter, QStringLiteral("Aperçu indisponible"));
        return picture;
    }
    QList<Metric> metrics = metricsOf(data);
    if (metrics.isEmpty()) // no font units (bitmap faces): what the renderer measured
        metrics = {{QStringLiteral("Ascendant"), probe.ascent / 100}, {QStringLiteral("Ligne de base"), 0},
                   {QStringLiteral("Descendant"), -probe.descent / 100}};
    double top = 0, bottom = 0;
    for (const Metric& metric : metrics) {
        top = std::max(top, metric.em);
        bottom = std::min(bottom, metric.em);
    }
    top = std::max(top, probe.ascent / 100);
    // As large as the height allows while three characters fit; a longer word is cut.
    const double byHeight = (size.height() - 2 * margin) / std::max(0.1, top - bottom);
    const double room = size.width() - labelWidth - 2 * margin;
    const double threeWide = probe.glyphs.size() > 3 ? probe.glyphs[3].origin.x() : probe.width;
    picture.pixelSize = std::clamp(std::min(byHeight, room * 100 / std::max(1.0, threeWide)), 8.0, 400.0);
    face.text = wordThatFits(probe, word, room * 100 / picture.pixelSize);

    face.pixelSize = picture.pixelSize;
    face.draw = true;
    face.foreground = colours.text;
    face.background = colours.background;
    const SampleRenderer::Result drawn = renderer.render(face);
    const double blockHeight = (top - bottom) * picture.pixelSize;
    const int baseline = int(std::lround((size.height() - blockHeight) / 2 + top * picture.pixelSize));
    painter.drawImage(QPointF(margin, baseline - std::round(drawn.ascent)), drawn.image);
    for (const Metric& metric : std::as_const(metrics))
        picture.lines.append({metric.label, int(std::lround(baseline - metric.em * picture.pixelSize))});
    drawLabels(painter, picture.lines, picture.image.size(), colours);
    return picture;
}

} // namespace MetricsPicture
