// NameRenderer: font names drawn in their own font, one small image per family, made
// on a worker thread so that the list never waits for a font to load. A request that
// is still queued when its row scrolls out of view is dropped; results made for older
// settings (size, fonts installed) are dropped by their generation number. No widgets.
#pragma once

#include <QCache>
#include <QFont>
#include <QImage>
#include <QObject>
#include <QSet>
#include <QString>
#include <memory>

class QThread;

class NameRenderer : public QObject {
    Q_OBJECT
public:
    // What one image shows: the name in its own family, or - for a family that cannot
    // draw its name - the name in the interface font followed by `sample` in its own.
    // With `file`, the own-font part is shaped by HarfBuzz and drawn from that face's
    // outlines: no Qt font engine is made, so the worker never holds Qt's font database
    // lock (which every text drawn in the window needs) for a font lookup, and keeps no
    // engine cache. Without it the family is looked up through Qt.
    struct Request {
        QString family;
        bool ownName = true;
        QString sample;
        QString file;
        int faceIndex = 0;
    };

    explicit NameRenderer(QObject* parent = nullptr);
    ~NameRenderer() override;

    // The interface font, the row height and the pixel ratio the images are made for;
    // a change drops every image.
    void setGeometry(const QFont& interfaceFont, int rowHeight, qreal pixelRatio);
    // The image of a family when ready (an 8-bit alpha mask), else a null image; a
    // missing one is requested (most recent requests first).
    QImage image(const Request& request);
    // Only these families stay queued: the rows that are visible now.
    void retain(const QSet<QString>& families);
    int pendingCount() const;
    qint64 cachedBytes() const;
    void clear();

    // Draws one image; public for the tests.
    static QImage render(const Request& request, const QFont& interfaceFont, int rowHeight, qreal pixelRatio);

Q_SIGNALS:
    void imageReady(const QString& family);

private:
    struct Shared;
    void deliver(const QString& family, const QImage& image, quint64 generation);

    std::shared_ptr<Shared> m_shared;
    QThread* m_thread = nullptr;
    QObject* m_worker = nullptr;
    QFont m_font; // as last given, used on this thread only
    int m_rowHeight = 0;
    qreal m_pixelRatio = 0;
    QCache<QString, QImage> m_images;
    QSet<QString> m_requested;
};
