// The measuring thread: one request at a time (the newest wins), fonts measured ahead
// when no request waits, figures kept on the requesting side by font.
#include "browser/measureworker.h"

#include "components/printer.h"

#include <QFontMetricsF>
#include <QMutex>
#include <QPaintDevice>
#include <QThread>
#include <deque>

namespace {

// A surface that only has a resolution: what a font needs to be set up as on a printer.
class ResolutionDevice : public QPaintDevice {
public:
    explicit ResolutionDevice(int dpi) : m_dpi(dpi) {}
    QPaintEngine* paintEngine() const override { return nullptr; }

protected:
    int metric(PaintDeviceMetric metric) const override
    {
        switch (metric) {
        case PdmDpiX: case PdmDpiY: case PdmPhysicalDpiX: case PdmPhysicalDpiY: return m_dpi;
        case PdmWidth: case PdmHeight: return m_dpi * 8;
        case PdmWidthMM: case PdmHeightMM: return 203;
        case PdmNumColors: return INT_MAX;
        case PdmDepth: return 32;
        case PdmDevicePixelRatio: return 1;
        case PdmDevicePixelRatioScaled: return int(devicePixelRatioFScale());
        }
        return 0;
    }

private:
    int m_dpi;
};

// The font as the surface of `dpi` sets it up, owned by the caller alone: a font shared
// with the widgets would have its cached engines swapped by each thread in turn.
QFont fontForResolution(const QFont& font, int dpi)
{
    const ResolutionDevice device(dpi);
    QFont own(font, &device);
    if (own.isCopyOf(font)) {
        // Same resolution, same private data: a size set away and back gives a copy.
        const double points = own.pointSizeF();
        if (points > 0) {
            own.setPointSizeF(points * 2);
            own.setPointSizeF(points);
        } else {
            const int pixels = own.pixelSize();
            own.setPixelSize(pixels + 1);
            own.setPixelSize(pixels);
        }
    }
    return own;
}

} // namespace

struct MeasureWorker::Job {
    QFont font;
    QString text;
    int dpi = 0;
    quint64 generation = 0; // 0 for a font measured ahead
    QString key;
};

struct MeasureWorker::Shared {
    QMutex mutex;
    std::optional<Job> request;
    std::deque<Job> ahead;
    bool posted = false; // a call to drain is on its way
    bool stopping = false;
};

// Runs on the measuring thread, which has an event loop of its own so that Qt's font
// cache there is trimmed by its timers: one job per call, the next one posted after it.
void MeasureWorker::drain(const std::shared_ptr<Shared>& shared, QObject* pump, MeasureWorker* owner)
{
    Job job;
    {
        QMutexLocker lock(&shared->mutex);
        shared->posted = false;
        if (shared->stopping)
            return;
        if (shared->request) {
            job = std::move(*shared->request);
            shared->request.reset();
        } else if (!shared->ahead.empty()) {
            job = std::move(shared->ahead.front());
            shared->ahead.pop_front();
        } else {
            return;
        }
    }
    const MeasuredText figures = measure(job.font, job.text, job.dpi);
    job.font = QFont(); // let go on this thread, which made its engines
    QMetaObject::invokeMethod(owner, [owner, job, figures] { owner->deliver(job, figures); }, Qt::QueuedConnection);
    post(shared, pump, owner);
}

// Makes sure a call to drain is waiting on the measuring thread when there is work.
void MeasureWorker::post(const std::shared_ptr<Shared>& shared, QObject* pump, MeasureWorker* owner)
{
    {
        QMutexLocker lock(&shared->mutex);
        if (shared->posted || shared->stopping || (!shared->request && shared->ahead.empty()))
            return;
        shared->posted = true;
    }
    QMetaObject::invokeMethod(pump, [shared, pump, owner] { drain(shared, pump, owner); }, Qt::QueuedConnection);
}

MeasureWorker::MeasureWorker(QObject* parent) : QObject(parent), m_shared(std::make_shared<Shared>())
{
    qRegisterMetaType<MeasuredText>();
    m_cache.setMaxCost(512);
    m_thread = new QThread(this);
    m_thread->setObjectName(QStringLiteral("MeasureWorker"));
    m_pump = new QObject;
    m_pump->moveToThread(m_thread);
    connect(m_thread, &QThread::finished, m_pump, &QObject::deleteLater);
    m_thread->start();
}

MeasureWorker::~MeasureWorker()
{
    {
        QMutexLocker lock(&m_shared->mutex);
        m_shared->stopping = true;
        m_shared->request.reset();
        m_shared->ahead.clear();
    }
    // At most the text being measured is finished before the thread ends.
    m_thread->quit();
    m_thread->wait();
}

MeasuredText MeasureWorker::measure(const QFont& font, const QString& text, const QPaintDevice* device)
{
    const QFontMetricsF metrics(font, device);
    return {Printer::widestLine(metrics, text), Printer::linesHeight(metrics, text)};
}

MeasuredText MeasureWorker::measure(const QFont& font, const QString& text, int dpi)
{
    const ResolutionDevice device(dpi);
    return measure(font, text, &device);
}

QString MeasureWorker::cacheKey(const QFont& font, const QString&, int) const
{
    return font.families().join(QLatin1Char('\n')) + QLatin1Char('\x1f') + font.toString();
}

std::optional<MeasuredText> MeasureWorker::cached(const QFont& font, const QString& text, int dpi) const
{
    if (text != m_cacheText || dpi != m_cacheDpi)
        return std::nullopt;
    if (const MeasuredText* figures = m_cache.object(cacheKey(font, text, dpi)))
        return *figures;
    return std::nullopt;
}

void MeasureWorker::useText(const QString& text, int dpi)
{
    if (text == m_cacheText && dpi == m_cacheDpi)
        return;
    m_cache.clear();
    m_cacheText = text;
    m_cacheDpi = dpi;
}

quint64 MeasureWorker::request(const QFont& font, const QString& text, int dpi)
{
    useText(text, dpi);
    Job job{fontForResolution(font, dpi), text, dpi, ++m_generation, cacheKey(font, text, dpi)};
    {
        QMutexLocker lock(&m_shared->mutex);
        m_shared->request = std::move(job);
    }
    post(m_shared, m_pump, this);
    return m_generation;
}

void MeasureWorker::cancel()
{
    ++m_generation;
    QMutexLocker lock(&m_shared->mutex);
    m_shared->request.reset();
}

void MeasureWorker::prepare(const QList<QFont>& fonts, const QString& text, int dpi)
{
    useText(text, dpi);
    std::deque<Job> jobs;
    for (const QFont& font : fonts) {
        if (!cached(font, text, dpi))
            jobs.push_back({fontForResolution(font, dpi), text, dpi, 0, cacheKey(font, text, dpi)});
    }
    {
        QMutexLocker lock(&m_shared->mutex);
        m_shared->ahead = std::move(jobs);
    }
    post(m_shared, m_pump, this);
}

int MeasureWorker::queuedCount() const
{
    QMutexLocker lock(&m_shared->mutex);
    return int(m_shared->ahead.size()) + (m_shared->request ? 1 : 0);
}

void MeasureWorker::deliver(const Job& job, MeasuredText figures)
{
    // Figures made for a text or a resolution that has changed since are not kept.
    const bool current = job.text == m_cacheText && job.dpi == m_cacheDpi;
    if (current)
        m_cache.insert(job.key, new MeasuredText(figures));
    if (job.generation == 0)
        Q_EMIT prepared();
    else if (current && job.generation == m_generation)
        Q_EMIT measured(job.generation, figures);
}
