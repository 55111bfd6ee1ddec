// Preparing the next fonts when idle. The screen engine and the printer-resolution engine
// are made one after the other, never together: both need Qt's font database lock, and
// the window thread should not wait for the measuring thread's engine.
#include "browser/neighbourprep.h"

#include "browser/measureworker.h"

#include <QCoreApplication>
#include <QEvent>
#include <QFontMetricsF>

namespace {
constexpr int stepsAhead = 3;  // rows prepared in the direction of travel
constexpr int stepsBehind = 2; // and in the other one
}

NeighbourPrep::NeighbourPrep(MeasureWorker* worker, QObject* parent) : QObject(parent), m_worker(worker)
{
    m_timer.setSingleShot(true);
    m_timer.setInterval(0);
    connect(&m_timer, &QTimer::timeout, this, &NeighbourPrep::step);
    connect(m_worker, &MeasureWorker::prepared, this, &NeighbourPrep::workerPrepared);
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
        add(current + direction * page);
        add(current - direction * page);
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

void NeighbourPrep::plan(const QList<QFont>& fonts, const QString& text, int dpi)
{
    m_fonts = fonts;
    m_text = text;
    m_dpi = dpi;
    if (!m_waitingForWorker && !m_fonts.isEmpty())
        m_timer.start();
}

void NeighbourPrep::stop()
{
    m_fonts.clear();
    m_timer.stop();
}

void NeighbourPrep::step()
{
    if (m_fonts.isEmpty()) {
        Q_EMIT finished();
        return;
    }
    const QFont font = m_fonts.takeFirst();
    // The screen engine the samples will use (Latin text is laid out with the engine
    // for common characters, which these metrics load).
    QFontMetricsF(font).ascent();
    if (m_worker->cached(font, m_text, m_dpi)) {
        m_timer.start();
        return;
    }
    m_waitingForWorker = true;
    m_worker->prepare({font}, m_text, m_dpi);
}

void NeighbourPrep::workerPrepared()
{
    if (!m_waitingForWorker)
        return;
    m_waitingForWorker = false;
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
