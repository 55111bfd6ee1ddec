// NeighbourPrep: the fonts the user is likely to show next, prepared while the event
// queue is empty - the screen font engine on this thread, then the printer figures on the
// measuring thread - one font at a time, so that a key, a click or a slideshow step finds
// them ready. Any key, button or wheel input stops the work until it has been handled.
// No widgets.
#pragma once

#include <QFont>
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

    // Replaces what is left to prepare. `fonts` are the sample's fonts in order.
    void plan(const QList<QFont>& fonts, const QString& text, int dpi);
    void stop();
    // Fonts whose screen engine is still to be made.
    int remaining() const { return int(m_fonts.size()); }
    bool isBusy() const { return !m_fonts.isEmpty() || m_waitingForWorker; }

Q_SIGNALS:
    // Everything planned is prepared.
    void finished();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void step();
    void workerPrepared();

    MeasureWorker* m_worker;
    QTimer m_timer;
    QList<QFont> m_fonts;
    QString m_text;
    int m_dpi = 0;
    bool m_waitingForWorker = false;
};
