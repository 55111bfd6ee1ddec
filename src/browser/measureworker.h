// MeasureWorker: the sample's width and height at the printer's resolution, measured on a
// thread of its own so that showing a font never waits for a printer-resolution font
// engine. The font is set up for a stand-in surface with the printer's resolution, exactly
// as the printer sets it up, so the figures are the printer's. No widgets.
#pragma once

#include <QCache>
#include <QFont>
#include <QList>
#include <QObject>
#include <QString>
#include <memory>
#include <optional>

class QPaintDevice;
class QThread;

// A measured text in device pixels of the surface it was measured on.
struct MeasuredText {
    double width = 0;  // widest line
    double height = 0; // line spacing times the number of lines
};

class MeasureWorker : public QObject {
    Q_OBJECT
public:
    explicit MeasureWorker(QObject* parent = nullptr);
    ~MeasureWorker() override;

    // Measures on the calling thread (any thread) against a stand-in surface of `dpi`.
    static MeasuredText measure(const QFont& font, const QString& text, int dpi);
    // Measures on a real surface (the printer); the same arithmetic as above.
    static MeasuredText measure(const QFont& font, const QString& text, const QPaintDevice* device);

    // Figures already made for this font, text and resolution (by a request or ahead).
    std::optional<MeasuredText> cached(const QFont& font, const QString& text, int dpi) const;
    // Asks for the figures; `measured` comes with the returned generation unless a newer
    // request or a cancel comes first. A request still queued is replaced.
    quint64 request(const QFont& font, const QString& text, int dpi);
    // Drops the queued request and makes the one being measured stale.
    void cancel();
    // Measures these fonts ahead when nothing is requested, in order; replaces the fonts
    // still queued from before. Their figures go to the cache.
    void prepare(const QList<QFont>& fonts, const QString& text, int dpi);
    int queuedCount() const;

Q_SIGNALS:
    void measured(quint64 generation, MeasuredText figures);
    // Each figure made ahead, once it is in the cache.
    void prepared();

private:
    struct Job;
    struct Shared;
    void deliver(const Job& job, MeasuredText figures);
    void useText(const QString& text, int dpi);
    QString cacheKey(const QFont& font, const QString& text, int dpi) const;

    static void drain(const std::shared_ptr<Shared>& shared, QObject* pump, MeasureWorker* owner);
    static void post(const std::shared_ptr<Shared>& shared, QObject* pump, MeasureWorker* owner);

    std::shared_ptr<Shared> m_shared;
    QThread* m_thread = nullptr;
    QObject* m_pump = nullptr; // lives on the measuring thread
    quint64 m_generation = 0;
    QCache<QString, MeasuredText> m_cache;
    QString m_cacheText; // the cache holds figures of this text at this resolution only
    int m_cacheDpi = 0;
};

Q_DECLARE_METATYPE(MeasuredText)
