// The measuring thread: one request at a time (the newest wins), fonts measured ahead
// when no request waits, figures kept on the requesting side by font.
#include "browser/measureworker.h"

#include "components/printer.h"

#include <QFontMetricsF>
#include <QMutex>
#include <QPaintDevice>
#include <QThread>
#include <QWaitCondition>
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
    QWaitCondition wake;
    std::optional<Job> request;
    std::deque<Job> ahead;
    quint64 generation = 0;
    bool stopping = false;
};

class MeasureWorker::Thread : public QThread {
public:
    Thread(MeasureWorker* owner, std::shared_ptr<Shared> shared) : m_owner(owner), m_shared(std::move(shared)) {}

protected:
    void run() override
    {
        for (;;) {
            Job job;
            {
                QMutexLocker lock(&m_shared->mutex);
                while (!m_shared->stopping && !m_shared->request && m_shared->ahead.empty())
                    m_shared->wake.wait(&m_shared->mutex);
                if (m_shared->stopping)
                    return;
                if (m_shared->request) {
                    job = std::move(*m_shared->request);
                    m_shared->request.reset();
                } else {
                    job = std::move(m_shared->ahead.front());
                    m_shared->ahead.pop_front();
                }
            }
            const MeasuredText figures = MeasureWorker::measure(job.font, job.text, job.dpi);
            job.font = QFont(); // released on this thread, which made its engines
            MeasureWorker* owner = m_owner;
            QMetaObject::invokeMethod(owner, [owner, job, figures] { owner->deliver(job, figures); }, Qt::QueuedConnection);
        }
    }

private:
    MeasureWorker* m_owner;
    std::shared_ptr<Shared> m_shared;
};

MeasureWorker::MeasureWorker(QObject* parent) : QObject(parent), m_shared(std::make_shared<Shared>())
{
    qRegisterMetaType<MeasuredText>();
    m_cache.setMaxCost(512);
    m_thread = new Thread(this, m_shared);
    m_thread->setObjectName(QStringLiteral("MeasureWorker"));
    m_thread->start();
}

MeasureWorker::~MeasureWorker()
{
    {
        QMutexLocker lock(&m_shared->mutex);
        m_shared->stopping = true;
        m_shared->request.reset();
        m_shared->ahead.clear();
        m_shared->wake.wakeAll();
    }
    // At most the text being measured is finished before the thread ends.
    m_thread->wait();
    delete m_thread;
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
    QMutexLocker lock(&m_shared->mutex);
    m_shared->generation = m_generation;
    m_shared->request = std::move(job);
    m_shared->wake.wakeAll();
    return m_generation;
}

void MeasureWorker::cancel()
{
    ++m_generation;
    QMutexLocker lock(&m_shared->mutex);
    m_shared->generation = m_generation;
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
    QMutexLocker lock(&m_shared->mutex);
    m_shared->ahead = std::move(jobs);
    if (!m_shared->ahead.empty())
        m_shared->wake.wakeAll();
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
