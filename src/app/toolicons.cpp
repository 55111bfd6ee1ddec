// Toolbar icons painted on a 24x24 grid by a small icon engine.
#include "app/toolicons.h"

#include <QGuiApplication>
#include <QHash>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>
#include <QRawFont>

namespace {

const QColor ink(0x33, 0x3b, 0x45);
const QColor blue(0x2f, 0x6f, 0xd0);

// Letters are outlines of the interface's own font, taken at a large size from the
// font already loaded for the menus: the icons cost no font of their own, and stay
// sharp at every scale.
const QPainterPath& letterPath(const QString& text)
{
    static QHash<QString, QPainterPath> paths;
    auto found = paths.find(text);
    if (found == paths.end()) {
        QRawFont raw = QRawFont::fromFont(QGuiApplication::font());
        raw.setPixelSize(100);
        const QList<quint32> glyphs = raw.glyphIndexesForString(text);
        const QList<QPointF> advances = raw.advancesForGlyphIndexes(glyphs);
        QPainterPath path;
        qreal x = 0;
        for (qsizetype i = 0; i < glyphs.size(); ++i) {
            path.addPath(raw.pathForGlyph(glyphs[i]).translated(x, 0));
            x += advances.value(i).x();
        }
        found = paths.insert(text, path);
    }
    return *found;
}

// Draws text centred on its ink in box, `height` pixels tall on the 24 grid; a shear
// slants it like an italic.
void drawLetters(QPainter& p, const QRectF& box, const QString& text, double height, const QColor& colour,
                 double shear = 0)
{
    const QPainterPath& path = letterPath(text);
    const QRectF ink = path.boundingRect();
    if (ink.isEmpty())
        return;
    const double scale = height / 100.0;
    QTransform t;
    t.translate(box.center().x(), box.center().y());
    t.shear(-shear, 0);
    t.scale(scale, scale);
    t.translate(-ink.center().x(), -ink.center().y());
    p.save();
    // A pen of the fill colour makes the letters bold.
    p.setPen(QPen(colour, height * 0.07, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    p.setBrush(colour);
    p.drawPath(t.map(path));
    p.restore();
}

void drawFolder(QPainter& p)
{
    QPainterPath back;
    back.moveTo(2, 6); back.lineTo(9, 6); back.lineTo(11, 8); back.lineTo(21, 8);
    back.lineTo(21, 19); back.lineTo(2, 19); back.closeSubpath();
    p.setPen(QPen(QColor(0xb0, 0x82, 0x10), 1));
    p.setBrush(QColor(0xf2, 0xc1, 0x4e));
    p.drawPath(back);
    QPainterPath front;
    front.moveTo(4, 11); front.lineTo(23, 11); front.lineTo(21, 19); front.lineTo(2, 19); front.closeSubpath();
    p.setBrush(QColor(0xfb, 0xd8, 0x6b));
    p.drawPath(front);
    drawLetters(p, QRectF(6, 11, 14, 8), QStringLiteral("Aa"), 8, ink);
}

void drawSave(QPainter& p)
{
    p.setPen(QPen(QColor(0x1d, 0x4a, 0x8c), 1));
    p.setBrush(blue);
    p.drawRoundedRect(QRectF(3, 3, 18, 18), 2, 2);
    p.setBrush(Qt::white);
    p.drawRect(QRectF(6, 3.5, 12, 7));
    p.setBrush(QColor(0xd9, 0xe4, 0xf5));
    p.drawRect(QRectF(7, 14, 10, 7));
    p.setPen(QPen(ink, 1));
    p.drawLine(QPointF(8, 6), QPointF(16, 6));
    p.drawLine(QPointF(8, 8.5), QPointF(14, 8.5));
}

void drawPage(QPainter& p)
{
    QPainterPath page;
    page.moveTo(5, 2); page.lineTo(15, 2); page.lineTo(20, 7); page.lineTo(20, 22); page.lineTo(5, 22); page.closeSubpath();
    p.setPen(QPen(QColor(0x8a, 0x93, 0x9e), 1));
    p.setBrush(Qt::white);
    p.drawPath(page);
    p.setBrush(QColor(0xe3, 0xe7, 0xec));
    QPainterPath fold;
    fold.moveTo(15, 2); fold.lineTo(15, 7); fold.lineTo(20, 7); fold.closeSubpath();
    p.drawPath(fold);
}

void drawHtml(QPainter& p)
{
    drawPage(p);
    p.setPen(QPen(QColor(0xd0, 0x4a, 0x2f), 1.8, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    p.setBrush(Qt::NoBrush);
    p.drawPolyline(QPolygonF({QPointF(10, 11), QPointF(7, 14.5), QPointF(10, 18)}));
    p.drawPolyline(QPolygonF({QPointF(15, 11), QPointF(18, 14.5), QPointF(15, 18)}));
    p.drawLine(QPointF(13.5, 10.5), QPointF(11.5, 18.5));
}

void drawInfo(QPainter& p)
{
    p.setPen(QPen(QColor(0x1d, 0x4a, 0x8c), 1));
    p.setBrush(blue);
    p.drawEllipse(QRectF(2.5, 2.5, 19, 19));
    p.setPen(Qt::NoPen);
    p.setBrush(Qt::white);
    p.drawEllipse(QRectF(10.6, 6, 2.8, 2.8));
    p.drawRoundedRect(QRectF(10.7, 10, 2.6, 8), 1, 1);
}

void drawPrinter(QPainter& p)
{
    p.setPen(QPen(QColor(0x8a, 0x93, 0x9e), 1));
    p.setBrush(Qt::white);
    p.drawRect(QRectF(7, 3, 10, 7));
    p.setPen(QPen(QColor(0x3a, 0x42, 0x4d), 1));
    p.setBrush(QColor(0x6b, 0x75, 0x82));
    p.drawRoundedRect(QRectF(2.5, 9, 19, 9), 2, 2);
    p.setPen(QPen(QColor(0x8a, 0x93, 0x9e), 1));
    p.setBrush(Qt::white);
    p.drawRect(QRectF(6.5, 14, 11, 7.5));
    p.setPen(QPen(ink, 0.9));
    p.drawLine(QPointF(8.5, 16.5), QPointF(15.5, 16.5));
    p.drawLine(QPointF(8.5, 19), QPointF(13.5, 19));
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(0x7c, 0xd9, 0x5b));
    p.drawEllipse(QRectF(17.5, 11, 2, 2));
}

void drawImage(QPainter& p)
{
    p.setPen(QPen(QColor(0x5f, 0x6b, 0x78), 1));
    p.setBrush(QColor(0xbf, 0xe3, 0xfa));
    p.drawRect(QRectF(2.5, 4.5, 19, 15));
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(0xf6, 0xc3, 0x2e));
    p.drawEllipse(QRectF(14.5, 6.5, 4, 4));
    p.setBrush(QColor(0x3f, 0x9b, 0x4b));
    QPainterPath hills;
    hills.moveTo(3, 19); hills.lineTo(9, 10.5); hills.lineTo(13, 15.5); hills.lineTo(15.5, 13); hills.lineTo(21, 19);
    hills.closeSubpath();
    p.drawPath(hills);
    drawLetters(p, QRectF(2.5, 12, 10, 8), QStringLiteral("A"), 9, QColor(0x1d, 0x1d, 0x1d));
}

void drawAlign(QPainter& p, int mode)
{
    p.setPen(QPen(ink, 1.8, Qt::SolidLine, Qt::FlatCap));
    const double lengths[5] = {16, 11, 16, 9, 14};
    for (int i = 0; i < 5; ++i) {
        const double len = lengths[i];
        double x = 4;
        if (mode == 1) x = 12 - len / 2;
        if (mode == 2) x = 20 - len;
        const double y = 5 + i * 3.5;
        p.drawLine(QPointF(x, y), QPointF(x + len, y));
    }
}

void drawLetter(QPainter& p, const QString& letter, bool italic, bool underline, bool strike)
{
    drawLetters(p, QRectF(0, 0, 24, underline ? 20 : 24), letter, 17, ink, italic ? 0.22 : 0);
    p.setPen(QPen(underline ? blue : QColor(0xd0, 0x3a, 0x2f), 1.6));
    if (underline)
        p.drawLine(QPointF(6, 21), QPointF(18, 21));
    if (strike)
        p.drawLine(QPointF(4, 12.5), QPointF(20, 12.5));
}

void drawBackColour(QPainter& p)
{
    p.setPen(QPen(QColor(0x8a, 0x93, 0x9e), 1));
    p.setBrush(QColor(0xfd, 0xe0, 0x47));
    p.drawRoundedRect(QRectF(2.5, 3.5, 19, 17), 2.5, 2.5);
    drawLetters(p, QRectF(2.5, 3.5, 19, 17), QStringLiteral("ab"), 13, ink);
}

void drawForeColour(QPainter& p)
{
    drawLetters(p, QRectF(0, 0, 24, 18), QStringLiteral("A"), 16, ink);
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(0xd9, 0x2b, 0x2b));
    p.drawRect(QRectF(4, 18, 16, 4));
}

void drawHelp(QPainter& p)
{
    p.setPen(QPen(QColor(0x2b, 0x7a, 0x3d), 1));
    p.setBrush(QColor(0x3f, 0xa3, 0x55));
    p.drawEllipse(QRectF(2.5, 2.5, 19, 19));
    drawLetters(p, QRectF(2.5, 2.5, 19, 19), QStringLiteral("?"), 14, Qt::white);
}

void drawApplication(QPainter& p)
{
    p.setPen(Qt::NoPen);
    QLinearGradient gradient(0, 0, 24, 24);
    gradient.setColorAt(0, QColor(0x3b, 0x82, 0xe0));
    gradient.setColorAt(1, QColor(0x1b, 0x3f, 0x8a));
    p.setBrush(gradient);
    p.drawRoundedRect(QRectF(1, 1, 22, 22), 5, 5);
    drawLetters(p, QRectF(1, 1, 22, 22), QStringLiteral("Aa"), 13, Qt::white);
}

class PaintedIcon : public QIconEngine {
public:
    explicit PaintedIcon(int which) : m_which(which) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override
    {
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setRenderHint(QPainter::TextAntialiasing);
        painter->translate(rect.topLeft());
        painter->scale(rect.width() / 24.0, rect.height() / 24.0);
        if (mode == QIcon::Disabled)
            painter->setOpacity(0.4);
        draw(*painter);
        painter->restore();
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect(QPoint(0, 0), size), mode, state);
        return pixmap;
    }

    QIconEngine* clone() const override { return new PaintedIcon(m_which); }

private:
    void draw(QPainter& p) const
    {
        switch (m_which) {
        case 0: drawApplication(p); break;
        case 1: drawFolder(p); break;
        case 2: drawSave(p); break;
        case 3: drawHtml(p); break;
        case 4: drawInfo(p); break;
        case 5: drawPrinter(p); break;
        case 6: drawImage(p); break;
        case 8: drawAlign(p, 0); break;
        case 9: drawAlign(p, 1); break;
        case 10: drawAlign(p, 2); break;
        case 12: drawLetter(p, QStringLiteral("G"), false, false, false); break;
        case 13: drawLetter(p, QStringLiteral("I"), true, false, false); break;
        case 14: drawLetter(p, QStringLiteral("S"), false, true, false); break;
        case 15: drawLetter(p, QStringLiteral("B"), false, false, true); break;
        case 17: drawBackColour(p); break;
        case 18: drawForeColour(p); break;
        case 21: drawHelp(p); break;
        default: break;
        }
    }

    int m_which;
};

} // namespace

namespace ToolIcons {

QIcon buttonIcon(int n)
{
    switch (n) {
    case 7: case 11: case 16: case 19: case 20:
        return QIcon();
    default:
        return QIcon(new PaintedIcon(n));
    }
}

QIcon applicationIcon()
{
    return QIcon(new PaintedIcon(0));
}

} // namespace ToolIcons
