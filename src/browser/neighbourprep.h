// NeighbourPrep: the fonts the user is likely to show next, prepared while the event
// queue is empty - the screen font engine on this thread, one font at a time, and the
// printer figures of the first few on the measuring thread - so that a key, a click or a
// slideshow step finds them ready. Any key, button or wheel input goes first. No widgets.
#pragma once

#include <QFont>
#include <QImage>
#include <QStringList>
#include <QList>
#include <QObject>
#include <QString>
#include <QTimer>

class MeasureWorker;

class NeighbourPrep : public QObject {
    Q_OBJECT
public:
    explicit NeighbourPrep(MeasureWorker* worker, QObject* parent = nullptr);
    ~NeighbourPrep() override;

    // The rows (1-based numbers among `count`) worth preparing after row `current` was
    // shown coming from row `previous` (0 for none): the next rows in the direction of
    // travel first, one page on, the other direction, the rows in view, the two ends.
    // `firstVisible`..`lastVisible` are the rows in view (0 when unknown).
    static QList<int> rowsToPrepare(int current, int previous, int count, int firstVisible, int lastVisible);

    // Replaces what is left to prepare. `fonts` are the sample's fonts in order, `text`
    // the measured text at `dpi`; the lines of `drawn` (LF between them) are drawn.
    void plan(const QList<QFont>& fonts, const QString& text, int dpi, const QString& drawn = QString());
    void stop();
    // Fonts whose screen engine is still to be made.
    int remaining() const { return int(m_fonts.size()); }
    bool isBusy() const { return !m_fonts.isEmpty(); }

Q_SIGNALS:
    // Everything planned is prepared.
    void finished();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void step();

    MeasureWorker* m_worker;
    QTimer m_timer;
    QList<QFont> m_fonts;
    QStringList m_drawn;
    QImage m_image;
};
