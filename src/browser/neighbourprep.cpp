// Preparing the next fonts when idle. The measuring thread only makes the figures of the
// first few fonts of a plan (the rows next in the direction of travel, which keys and the
// slideshow reach): a click on another row gets its figures measured after it, and the
// two threads compete less for the processor and Qt's font database lock.
#include "browser/neighbourprep.h"

#include "browser/measureworker.h"

#include <QCoreApplication>
#include <QEvent>
#include <QFontMetricsF>
#include <QPainter>

namespace {
constexpr int stepsAhead = 3;  // rows prepared in the direction of travel
constexpr int stepsBehind = 2; // and in the other one
constexpr int measuredAhead = 5; // fonts whose figures are made ahead
}

NeighbourPrep::NeighbourPrep(MeasureWorker* worker, QObject* parent) : QObject(parent), m_worker(worker)
{
    m_timer.setSingleShot(true);
    m_timer.setInterval(0);
    connect(&m_timer, &QTimer::timeout, this, &NeighbourPrep::step);
    if (QCoreApplication::instance())
        QCoreApplication::instance()->installEventFilter(this);
}

NeighbourPrep::~NeighbourPrep()
{
    if (QCoreApplication::instance())
        QCoreApplication::instance()->removeEventFilter(this);
}

QList<int> NeighbourPrep::rowsToPrepare(int current, int previous, int count, int firstVisible, int lastVisible)
{
    QList<int> rows;
    auto add = [&](int row) {
        if (row >= 1 && row <= count && row != current && !rows.contains(row))
            rows.append(row);
    };
    const int direction = previous > current ? -1 : 1;
    for (int i = 1; i <= stepsAhead; ++i)
        add(current + direction * i);
    const int page = firstVisible > 0 && lastVisible >= firstVisible ? lastVisible - firstVisible : 0;
    if (page > 0) {
        // A page key moves by the rows in view, the partly visible one included.
        add(current + direction * page);
        add(current + direction * (page + 1));
        add(current - direction * page);
        add(current - direction * (page + 1));
    }
    for (int i = 1; i <= stepsBehind; ++i)
        add(current - direction * i);
    if (page > 0) {
        for (int row = firstVisible; row <= lastVisible; ++row)
            add(row);
    }
    add(1);
    add(count);
    return rows;
}

void NeighbourPrep::plan(const QList<QFont>& fonts, const QString& text, int dpi, const QString& drawn)
{
    m_fonts = fonts;
    m_drawn = drawn.split(QLatin1Char('\n'));
    m_worker->prepare(fonts.mid(0, measuredAhead), text, dpi);
    if (m_fonts.isEmpty())
        m_timer.stop();
    else
        m_timer.start();
}

void NeighbourPrep::stop()
{
    m_fonts.clear();
    m_timer.stop();
}

void NeighbourPrep::step()
{
    if (m_fonts.isEmpty())
        return;
    const QFont font = m_fonts.takeFirst();
    // The screen engine the samples will use, and their glyphs drawn once so that the
    // engine has them ready (into an image of the format windows are painted in).
    const QFontMetricsF metrics(font);
    if (!m_drawn.isEmpty()) {
        const int lineHeight = std::max(1, int(metrics.lineSpacing()) + 1);
        const QSize size(480, std::min(2000, lineHeight * int(m_drawn.size())));
        if (m_image.size() != size)
            m_image = QImage(size, QImage::Format_ARGB32_Premultiplied);
        QPainter painter(&m_image);
        painter.setFont(font);
        for (int i = 0; i < m_drawn.size(); ++i)
            painter.drawText(QPointF(0, i * lineHeight + metrics.ascent()), m_drawn[i]);
    }
    if (m_fonts.isEmpty())
        Q_EMIT finished();
    else
        m_timer.start();
}

bool NeighbourPrep::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::Wheel:
        // The input is handled first; the work goes on once the queue is empty again.
        if (m_timer.isActive())
            m_timer.start();
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}
