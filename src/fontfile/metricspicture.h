// MetricsPicture: a word drawn large in a face with its vertical metrics as labelled
// lines (ascender, cap height, x-height, baseline, descender, line gap), into an image.
#pragma once

#include "fontfile/facetables.h"
#include "fontfile/samplerenderer.h"

#include <QColor>
#include <QImage>
#include <QList>
#include <QSize>
#include <QString>

namespace MetricsPicture {

struct Colours {
    QColor background = Qt::white;
    QColor text = Qt::black;
    QColor lines = QColor(0x30, 0x60, 0xC0);
};

// One labelled line, at `y` pixels from the top of the picture.
struct Line {
    QString label;
    int y = 0;
};

struct Picture {
    QImage image;
    QList<Line> lines;
    double pixelSize = 0; // the size the word was drawn at
};

// The first word of a sample text (blanks and line breaks end it); "Hxg" when there is none.
QString firstWord(const QString& text);

// `face` names the file, face index, axes and features; its text and size are set here.
Picture draw(SampleRenderer& renderer, SampleRenderer::Request face, const QString& word,
             const FaceTables::FaceData& data, QSize size, const Colours& colours);

} // namespace MetricsPicture
