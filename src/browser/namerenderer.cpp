// Drawing font names in their own font on a worker thread with its own event loop (so
// that Qt's per-thread font cache is trimmed by its timers as it fills).
#include "browser/namerenderer.h"

#include "fontfile/samplerenderer.h"

#include <QCoreApplication>
#include <QFontMetricsF>
#include <QMutex>
#include <QPainter>
#include <QPointer>
#include <QThread>
#include <QtMath>
#include <deque>

struct NameRenderer::Shared {
    QMutex mutex;
    std::deque<Request> queue; // newest at the back
    QFont interfaceFont;
    int rowHeight = 16;
    qreal pixelRatio = 1;
    quint64 generation = 0;
    bool draining = false;
};

namespace {
constexpr qsizetype maxQueued = 400;
constexpr qsizetype cacheBytes = 40 * 1024 * 1024;
constexpr int maxWidth = 480;
}

NameRenderer::NameRenderer(QObject* parent) : QObject(parent), m_shared(std::make_shared<Shared>())
{
    m_images.setMaxCost(cacheBytes);
    m_thread = new QThread(this);
    m_thread->setObjectName(QStringLiteral("NameRenderer"));
    m_worker = new QObject;
    m_worker->moveToThread(m_thread);
    connect(m_thread, &QThread::finished, m_worker, &QObject::deleteLater);
    m_thread->start(QThread::LowPriority);
}

NameRenderer::~NameRenderer()
{
    {
        QMutexLocker lock(&m_shared->mutex);
        m_shared->queue.clear();
    }
    // At most the image being drawn is finished before the thread ends.
    m_thread->quit();
    m_thread->wait();
}

void NameRenderer::setGeometry(const QFont& interfaceFont, int rowHeight, qreal pixelRatio)
{
    if (m_font == interfaceFont && m_rowHeight == rowHeight && m_pixelRatio == pixelRatio)
        return;
    m_font = interfaceFont;
    m_rowHeight = rowHeight;
    m_pixelRatio = pixelRatio;
    // The worker gets a font of its own: a QFont shared between threads would have its
    // cached engines replaced by each thread in turn.
    QFont detached;
    detached.fromString(interfaceFont.toString());
    QMutexLocker lock(&m_shared->mutex);
    m_shared->interfaceFont = detached;
    m_shared->rowHeight = rowHeight;
    m_shared->pixelRatio = pixelRatio;
    ++m_shared->generation;
    m_shared->queue.clear();
    lock.unlock();
    m_images.clear();
    m_requested.clear();
}

void NameRenderer::clear()
{
    QMutexLocker lock(&m_shared->mutex);
    ++m_shared->generation;
    m_shared->queue.clear();
    lock.unlock();
    m_images.clear();
    m_requested.clear();
}

QImage NameRenderer::image(const Request& request)
{
    if (const QImage* found = m_images.object(request.family))
        return *found;
    if (m_requested.contains(request.family))
        return QImage();
    m_requested.insert(request.family);
    QMutexLocker lock(&m_shared->mutex);
    m_shared->queue.push_back(request);
    while (qsizetype(m_shared->queue.size()) > maxQueued) {
        m_requested.remove(m_shared->queue.front().family);
        m_shared->queue.pop_front();
    }
    if (m_shared->draining)
        return QImage();
    m_shared->draining = true;
    lock.unlock();

    // The worker draws the newest request first until none is left.
    QPointer<NameRenderer> self(this);
    std::shared_ptr<Shared> shared = m_shared;
    QMetaObject::invokeMethod(m_worker, [shared, self] {
        for (;;) {
            QMutexLocker lock(&shared->mutex);
            if (shared->queue.empty()) {
                shared->draining = false;
                return;
            }
            const Request next = shared->queue.back();
            shared->queue.pop_back();
            const QFont font = shared->interfaceFont;
            const int height = shared->rowHeight;
            const qreal ratio = shared->pixelRatio;
            const quint64 generation = shared->generation;
            lock.unlock();
            const QImage drawn = render(next, font, height, ratio);
            QMetaObject::invokeMethod(qApp, [self, family = next.family, drawn, generation] {
                if (self)
                    self->deliver(family, drawn, generation);
            }, Qt::QueuedConnection);
            // Let the thread's own timers (font cache trimming) run between images.
            QCoreApplication::processEvents();
        }
    }, Qt::QueuedConnection);
    return QImage();
}

void NameRenderer::deliver(const QString& family, const QImage& image, quint64 generation)
{
    {
        QMutexLocker lock(&m_shared->mutex);
        if (generation != m_shared->generation)
            return;
    }
    m_requested.remove(family);
    m_images.insert(family, new QImage(image), qMax<qsizetype>(1, image.sizeInBytes()));
    emit imageReady(family);
}

void NameRenderer::retain(const QSet<QString>& families)
{
    QMutexLocker lock(&m_shared->mutex);
    std::deque<Request> kept;
    for (const Request& request : m_shared->queue) {
        if (families.contains(request.family))
            kept.push_back(request);
        else
            m_requested.remove(request.family);
    }
    m_shared->queue.swap(kept);
}

int NameRenderer::pendingCount() const
{
    return int(m_requested.size());
}

qint64 NameRenderer::cachedBytes() const
{
    return m_images.totalCost();
}

QImage NameRenderer::render(const Request& request, const QFont& interfaceFont, int rowHeight, qreal pixelRatio)
{
    const qreal pointSize = interfaceFont.pointSizeF() > 0 ? interfaceFont.pointSizeF() : 9;
    const QFontMetricsF ui(interfaceFont);
    const QString lead = request.ownName ? QString() : request.family + QLatin1Char(' ');
    const QString tail = request.ownName ? request.family : request.sample;
    const qreal leadWidth = lead.isEmpty() ? 0 : ui.horizontalAdvance(lead);

    // The own-font part: drawn apart from its file when known, else through Qt.
    SampleRenderer::Result drawn;
    if (!request.file.isEmpty() && !tail.isEmpty()) {
        static thread_local SampleRenderer renderer;
        SampleRenderer::Request sample;
        sample.text = tail.left(SampleRenderer::maximumLineLength);
        sample.file = request.file;
        sample.faceIndex = request.faceIndex;
        // Points to pixels at the resolution Qt gives images, as the fallback below draws.
        static const int imageDpi = QImage(1, 1, QImage::Format_Alpha8).logicalDpiY();
        sample.pixelSize = pointSize * imageDpi / 72.0 * pixelRatio;
        sample.foreground = Qt::black;
        sample.background = Qt::transparent;
        sample.margin = 0;
        sample.maximumSize = QSize(qCeil(maxWidth * pixelRatio), qCeil(rowHeight * pixelRatio) * 2);
        drawn = renderer.render(sample);
        if (drawn.ok && !drawn.image.isNull())
            drawn.image.setDevicePixelRatio(pixelRatio);
        else
            drawn.ok = false;
    }
    QFont own(request.family);
    own.setPointSizeF(pointSize);
    own.setStyleStrategy(QFont::NoFontMerging);
    const qreal tailWidth = drawn.ok ? drawn.width / pixelRatio : QFontMetricsF(own).horizontalAdvance(tail);
    const qreal width = std::min<qreal>(maxWidth, leadWidth + tailWidth + 2);

    QImage canvas(qMax(1, qCeil(width * pixelRatio)), qMax(1, qCeil(rowHeight * pixelRatio)),
                  QImage::Format_ARGB32_Premultiplied);
    canvas.setDevicePixelRatio(pixelRatio);
    canvas.fill(Qt::transparent);
    // Both parts stand on the interface font's baseline, as the plain rows do.
    const qreal baseline = (rowHeight - ui.height()) / 2 + ui.ascent();
    QPainter painter(&canvas);
    painter.setPen(Qt::black);
    if (!lead.isEmpty()) {
        painter.setFont(interfaceFont);
        painter.drawText(QPointF(0, baseline), lead);
    }
    if (drawn.ok) {
        painter.drawImage(QPointF(leadWidth, baseline - drawn.ascent / pixelRatio), drawn.image);
    } else {
        painter.setFont(own);
        painter.drawText(QPointF(leadWidth, baseline), tail);
    }
    painter.end();
    return canvas.convertToFormat(QImage::Format_Alpha8);
}
