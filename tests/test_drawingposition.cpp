// The rotated sample's drawing position belongs to the window: a new window prints at
// the top left, each print moves it to the start of the next line, and automatic mode
// after a stamp prints on the line below the stamp, at the left edge.
#include "app/tglyphora.h"
#include "browser/samplebox.h"
#include "samples/ftstimg.h"
#include "support/sampledriver.h"
#include "support/testsupport.h"

#include <QAction>
#include <QFontMetricsF>
#include <QPointer>
#include <QTemporaryDir>

using namespace SampleDriver;

class TestDrawingPosition : public QObject {
    Q_OBJECT

    QTemporaryDir m_dir;
    tglyphora* m_main = nullptr;
    QString m_picture;
    QPointer<FtstImg> m_window;

    qreal lineHeight(FtstImg* window) const
    {
        return QFontMetricsF(window->DrawingFont().toQFont(), &window->Canvas()).lineSpacing();
    }

    // Ink in the band of lines [top, top + height) at the left of the window.
    int inkInBand(FtstImg* window, qreal top, qreal height) const
    {
        return inkIn(window->Canvas(), QRect(0, int(top) + 1, 120, int(height) - 2));
    }

private Q_SLOTS:
    void initTestCase()
    {
        TestSupport::clearSettings();
        m_main = new tglyphora;
        m_main->show();
        m_picture = m_dir.filePath(QStringLiteral("blanc.bmp"));
        QImage white(16, 16, QImage::Format_RGB32);
        white.fill(Qt::white);
        QVERIFY(white.save(m_picture, "BMP"));
    }

    void init()
    {
        m_main->Text1->setText(QStringLiteral("MMMM"));
        m_main->Text1->setBackColor(Qt::white);
        m_main->Text1->setForeColor(Qt::black);
        m_window = open(m_main, m_picture);
        QVERIFY(m_window);
        QVERIFY(resizeTo(m_window, 420, 320));
    }

    void cleanup()
    {
        delete m_window.data();
    }

    void aNewWindowPrintsAtTheTopLeftThenEachPrintGoesOneLineDown()
    {
        delete m_window.data();
        m_window = open(m_main, m_picture);
        FtstImg* window = m_window;
        const qreal line = lineHeight(window);
        QVERIFY(inkInBand(window, 0, line) > 20);
        QCOMPARE(window->CurrentPosition(), QPointF(0, line));
        window->mrefresh->trigger();
        QCOMPARE(inkInBand(window, 0, line), 0);
        QVERIFY(inkInBand(window, line, line) > 20);
        QCOMPARE(window->CurrentPosition(), QPointF(0, 2 * line));
    }

    void automaticModeAfterAStampPrintsOnTheLineBelowIt()
    {
        FtstImg* window = m_window;
        switchToManual(window);
        sendMouse(window, QEvent::MouseButtonRelease, Qt::LeftButton, Qt::NoButton, QPoint(200, 150));
        const QPointF afterStamp = window->CurrentPosition();
        QCOMPARE(afterStamp.x(), 0.0);
        QVERIFY(afterStamp.y() > 150);
        QVERIFY(inkIn(window->Canvas(), QRect(200, 150, 60, 20)) > 20);

        window->mmodeautoman->trigger(); // back to automatic
        const qreal line = lineHeight(window);
        QCOMPARE(inkInBand(window, 0, 3 * line), 0); // not at the top left
        QVERIFY(inkInBand(window, afterStamp.y(), line) > 20);
        QCOMPARE(window->CurrentPosition(), QPointF(0, afterStamp.y() + line));
    }

    void aNewWindowStartsAtTheTopLeftAgain()
    {
        m_window->mrefresh->trigger();
        m_window->mrefresh->trigger();
        delete m_window.data();
        m_window = open(m_main, m_picture);
        QVERIFY(inkInBand(m_window, 0, lineHeight(m_window)) > 20);
    }
};

GLYPHORA_TEST_MAIN(TestDrawingPosition)
#include "test_drawingposition.moc"
