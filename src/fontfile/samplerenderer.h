// SampleRenderer: the one place that shapes text outside Qt. Qt 6.4 cannot turn on an
// OpenType feature or move a variation axis, so the details window's live sample is
// shaped by HarfBuzz and drawn from FreeType's outlines or bitmaps into an image.
// No widget is involved; a renderer keeps its face open between calls on the same file.
#pragma once

#include <QByteArray>
#include <QColor>
#include <QImage>
#include <QList>
#include <QPointF>
#include <QSize>
#include <QString>
#include <memory>

class SampleRenderer {
public:
    // A feature set to a value for the whole text (0 off, 1 on, n the n-th alternate).
    struct Feature {
        QByteArray tag;
        unsigned value = 1;
    };
    // A variation axis at a design-space value; axes not named keep the face's own.
    struct Axis {
        QByteArray tag;
        double value = 0;
    };
    struct Request {
        QString text;             // lines broken at CR LF, LF or CR
        QString file;
        int faceIndex = 0;        // a named instance number in the high 16 bits, as fontconfig gives it
        double pixelSize = 16;    // pixels per em
        QList<Feature> features;
        QList<Axis> axes;
        QColor foreground = Qt::black;
        QColor background = Qt::white;
        int margin = 4;
        QSize maximumSize{4096, 4096}; // the picture is cut there
        bool draw = true;         // false: shape and measure only, no picture
    };
    // One shaped glyph: its id in the font, the UTF-16 index of its first character in
    // its line, and where it is drawn in the picture (pixels, baseline origin).
    struct Glyph {
        unsigned id = 0;
        int cluster = 0;
        int line = 0;
        QPointF origin;
        double advance = 0;
    };
    struct Result {
        bool ok = false;          // false when the face could not be opened
        QImage image;             // null when nothing was drawn
        QList<Glyph> glyphs;
        double ascent = 0;        // pixels above the baseline
        double descent = 0;       // pixels below it
        double lineHeight = 0;
        double width = 0;         // the longest line's advance, in pixels
    };

    // Lines longer than this are cut: nothing after it could be seen.
    static constexpr int maximumLineLength = 2000;

    SampleRenderer();
    ~SampleRenderer();
    SampleRenderer(const SampleRenderer&) = delete;
    SampleRenderer& operator=(const SampleRenderer&) = delete;

    Result render(const Request& request);

private:
    void shapeLines(const Request& request, Result& result);
    void drawPicture(const Request& request, Result& result);

    struct Impl;
    std::unique_ptr<Impl> d;
};
