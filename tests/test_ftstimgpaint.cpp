// What the rotated-sample window draws: the tiles for both placements, the text in
// automatic mode, the stamps of manual mode at their angle, and the picture change.
#include "app/debut.h"
#include "app/tglyphora.h"
#include "browser/samplebox.h"
#include "samples/ftstimg.h"
#include "support/sampledriver.h"
#include "support/testpictures.h"
#include "support/testsupport.h"

#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QPointer>
#include <QScreen>
#include <QTemporaryDir>
#include <QTreeWidget>

using namespace SampleDriver;

namespace {

const QRgb red = qRgb(255, 0, 0);
const QRgb blue = qRgb(0, 0, 255);
const QRgb background = qRgb(10, 200, 10);

} // namespace

class TestFtstImgPaint : public QObject {
    Q_OBJECT
private:
    QTemporaryDir m_dir;
    tglyphora* m_main = nullptr;
    QString m_picture;
    QPointer<FtstImg> m_window;

    FtstImg* openPicture(const QString& path)
    {
        m_window = SampleDriver::open(m_main, path);
        return m_window.data();
    }

    void stampAt(FtstImg* window, QPoint pos)
    {
        sendMouse(window, QEvent::MouseButtonRelease, Qt::LeftButton, Qt::NoButton, pos);
    }

private Q_SLOTS:
    void initTestCase()
    {
        m_main = new tglyphora;
        m_main->show();
        m_picture = m_dir.filePath(QStringLiteral("fond.bmp"));
        QVERIFY(tilePicture().save(m_picture, "BMP"));
    }

    void init()
    {
        m_main->Text1->setText(QString());
        m_main->Text1->setBackColor(background);
        m_main->Text1->setForeColor(Qt::black);
        m_main->List1->setCurrentItem(m_main->List1->topLevelItem(0));
    }

    void cleanup()
    {
        if (m_window)
            delete m_window.data();
    }

    void placementOneTilesTheWholeWindow()
    {
        FtstImg* window = openPicture(m_picture);
        QVERIFY(window);
        QVERIFY(resizeTo(window, 130, 70));
        const QImage canvas = window->Canvas();
        // Tiles start at x = 0, 40, 80, 120 and y = 0, 30, 60.
        for (int x = 0; x < 130; ++x)
            for (int y = 0; y < 70; ++y)
                QCOMPARE(canvas.pixel(x, y), (x % 40 == 0 && y % 30 == 0) ? red : blue);
    }

    void placementTwoDrawsOnlyTheLeftColumn()
    {
        FtstImg* window = openPicture(m_picture);
        QVERIFY(window);
        QVERIFY(resizeTo(window, 130, 70));
        window->mmeth2->trigger();
        QCOMPARE(window->Placement(), 2);
        const QImage canvas = window->Canvas();
        for (int y = 0; y < 70; ++y) {
            for (int x = 0; x < 130; ++x) {
                QRgb expected = background; // the rest keeps the sample box's background colour
                if (x < 40)
                    expected = (x == 0 && y % 30 == 0) ? red : blue;
                QCOMPARE(canvas.pixel(x, y), expected);
            }
        }
        window->mmeth1->trigger();
        QCOMPARE(window->Placement(), 1);
        QCOMPARE(window->Canvas().pixel(80, 30), red);
    }

    void automaticModePrintsTheSampleAtTheTopLeft()
    {
        m_main->Text1->setText(QStringLiteral("MMMM\r\nMMMM"));
        FtstImg* window = openPicture(m_picture);
        QVERIFY(window);
        // As the new window shows it: each later print goes on the next lines.
        const QImage canvas = window->Canvas();
        QVERIFY(inkIn(canvas, QRect(0, 0, 80, 50)) > 50);
        QCOMPARE(inkIn(canvas, QRect(150, 100, 250, 200)), 0);
        QCOMPARE(window->ForeColor(), QColor(Qt::black));
        QCOMPARE(window->BackColor(), QColor(background));
    }

    void switchingModesRefreshesTheWindow()
    {
        m_main->Text1->setText(QStringLiteral("MMMM"));
        FtstImg* window = openPicture(m_picture);
        QVERIFY(window);
        switchToManual(window);
        // Manual mode repaints the tiles only: no text at the top left.
        QCOMPARE(inkIn(window->Canvas(), QRect(0, 0, 100, 40)), 0);
        window->mmodeautoman->trigger();
        QVERIFY(inkIn(window->Canvas(), QRect(0, 0, 100, 40)) > 20);
    }

    void inAutomaticModeTheMouseDoesNothing()
    {
        m_main->Text1->setText(QStringLiteral("MMMM"));
        FtstImg* window = openPicture(m_picture);
        QVERIFY(window);
        QVERIFY(resizeTo(window, 400, 300));
        const QImage before = window->Canvas().copy();
        sendMouse(window, QEvent::MouseButtonPress, Qt::LeftButton, Qt::LeftButton, QPoint(200, 150));
        sendMouse(window, QEvent::MouseMove, Qt::NoButton, Qt::LeftButton, QPoint(220, 160));
        sendMouse(window, QEvent::MouseButtonRelease, Qt::LeftButton, Qt::NoButton, QPoint(240, 170));
        QCOMPARE(window->Canvas(), before);
    }

    void draggingLeavesATrailOfStamps()
    {
        m_main->Text1->setText(QStringLiteral("MMMM"));
        FtstImg* window = openPicture(m_picture);
        QVERIFY(window);
        QVERIFY(resizeTo(window, 500, 400));
        switchToManual(window);
        QCOMPARE(inkIn(window->Canvas(), window->Canvas().rect()), 0);
        sendMouse(window, QEvent::MouseButtonPress, Qt::LeftButton, Qt::LeftButton, QPoint(20, 20));
        for (int i = 1; i <= 3; ++i)
            sendMouse(window, QEvent::MouseMove, Qt::NoButton, Qt::LeftButton, QPoint(20, 20 + 100 * i));
        // A move with another button held too stamps nothing.
        sendMouse(window, QEvent::MouseMove, Qt::NoButton, Qt::LeftButton | Qt::RightButton, QPoint(300, 20));
        sendMouse(window, QEvent::MouseButtonRelease, Qt::LeftButton, Qt::NoButton, QPoint(300, 200));
        const QImage canvas = window->Canvas();
        for (int i = 1; i <= 3; ++i)
            QVERIFY2(inkIn(canvas, QRect(20, 20 + 100 * i, 80, 30)) > 20, qPrintable(QString::number(i)));
        QCOMPARE(inkIn(canvas, QRect(300, 20, 80, 30)), 0);
        QVERIFY(inkIn(canvas, QRect(300, 200, 80, 30)) > 20);
        // A press alone stamps nothing; the stamps stay until the next paint.
        QCOMPARE(inkIn(canvas, QRect(20, 20, 80, 30)), 0);
        window->mrefresh->trigger();
        QCOMPARE(inkIn(window->Canvas(), window->Canvas().rect()), 0);
    }

    void stampsTurnCounterClockwise()
    {
        m_main->Text1->setText(QStringLiteral("MMMMMMMM"));
        FtstImg* window = openPicture(m_picture);
        QVERIFY(window);
        QVERIFY(resizeTo(window, 500, 400));
        switchToManual(window);
        setAngle(window, QStringLiteral("90"));
        stampAt(window, QPoint(200, 300));
        const QImage canvas = window->Canvas();
        // At 90 degrees the line rises from the pointer: ink above it, none to its right or below.
        QVERIFY(inkIn(canvas, QRect(195, 150, 40, 150)) > 50);
        QCOMPARE(inkIn(canvas, QRect(240, 290, 200, 40)), 0);
        QCOMPARE(inkIn(canvas, QRect(150, 305, 100, 90)), 0);
    }

    void a360DegreeStampIsTheUnrotatedStamp()
    {
        m_main->Text1->setText(QStringLiteral("Glyphora"));
        FtstImg* window = openPicture(m_picture);
        QVERIFY(window);
        QVERIFY(resizeTo(window, 400, 300));
        switchToManual(window);
        stampAt(window, QPoint(100, 100));
        const QImage flat = window->Canvas().copy();
        QVERIFY(inkIn(flat, QRect(100, 100, 120, 30)) > 20);
        for (const QString& angle : {QStringLiteral("360"), QStringLiteral("-360")}) {
            window->mrefresh->trigger();
            setAngle(window, angle);
            QCOMPARE(window->RotatedFont().Record().lfOutPrecision, uint8_t(0));
            stampAt(window, QPoint(100, 100));
            QCOMPARE(window->Canvas(), flat);
        }
        window->mrefresh->trigger();
        setAngle(window, QStringLiteral("30"));
        stampAt(window, QPoint(100, 100));
        QVERIFY(window->Canvas() != flat);
    }

    void theRotatedFontKeepsTheFontOfTheOpening()
    {
        FtstImg* window = openPicture(m_picture);
        QVERIFY(window);
        const QString face = window->RotatedFont().LogFont()->Name();
        m_main->setButtonValue(12, 1);
        m_main->setButtonValue(13, 1);
        m_main->Combo1->setCurrentIndex(20); // 24 points
        window->mrefresh->trigger();
        // The window's own font follows the main window at every paint...
        QVERIFY(window->DrawingFont().Bold());
        QVERIFY(window->DrawingFont().Italic());
        QCOMPARE(window->DrawingFont().Size(), 24.0);
        // ...the stamps keep the font the window opened with.
        QVERIFY(!window->RotatedFont().LogFont()->Bold());
        QVERIFY(!window->RotatedFont().LogFont()->Italic());
        QCOMPARE(window->RotatedFont().LogFont()->Size(), 13.0);
        QCOMPARE(window->RotatedFont().LogFont()->Name(), face);
        m_main->setButtonValue(12, 0);
        m_main->setButtonValue(13, 0);
        m_main->Combo1->setCurrentIndex(9);
    }

    void theWindowStaysCentred()
    {
        FtstImg* window = openPicture(m_picture);
        QVERIFY(window);
        window->resize(300, 200);
        const QRect screen = window->screen()->geometry();
        QTRY_COMPARE(window->frameGeometry().topLeft(),
                     QPoint(screen.x() + (screen.width() - window->frameGeometry().width()) / 2,
                            screen.y() + (screen.height() - window->frameGeometry().height()) / 2));
    }

    void changingThePicture()
    {
        FtstImg* window = openPicture(m_picture);
        QVERIFY(window);
        QImage small(20, 10, QImage::Format_RGB32);
        small.fill(red);
        const QString gif = TestPictures::write(m_dir.path(), QStringLiteral("petit.gif"), TestPictures::gif(small));
        debut::LastFolder = QStringLiteral("/");
        chooseFile(gif);
        window->mchgpict->trigger();
        QCOMPARE(window->Picture1->size(), QSize(20, 10));
        QCOMPARE(window->Canvas().pixel(25, 15), red);
        QCOMPARE(debut::PicturePath, gif);
        QCOMPARE(debut::LastFolder, m_dir.path() + QLatin1Char('/'));

        // A file that is no picture leaves the picture as it was.
        const QString bad = TestPictures::write(m_dir.path(), QStringLiteral("faux.bmp"), QByteArray("BM"));
        chooseFile(bad);
        MessageCatcher messages;
        window->mchgpict->trigger();
        QCOMPARE(messages.texts.size(), 1);
        QVERIFY(messages.texts.first().startsWith(QStringLiteral("Erreur, impossible de lire l'image")));
        QCOMPARE(window->Picture1->size(), QSize(20, 10));
        QCOMPARE(window->Canvas().pixel(25, 15), red);
        QCOMPARE(debut::PicturePath, gif);
    }

    void aMetafileBackground()
    {
        const QString wmf = TestPictures::write(m_dir.path(), QStringLiteral("dessin.wmf"), TestPictures::wmfFilled(60, 40, red));
        FtstImg* window = openPicture(wmf);
        QVERIFY(window);
        QCOMPARE(window->Picture1->size(), QSize(60, 40));
        QVERIFY(resizeTo(window, 200, 100));
        QCOMPARE(window->Canvas().pixel(150, 90), red);
    }

    void aGifBackground()
    {
        QImage image(30, 20, QImage::Format_RGB32);
        image.fill(blue);
        image.setPixel(0, 0, red);
        const QString gif = TestPictures::write(m_dir.path(), QStringLiteral("fond.gif"), TestPictures::gif(image));
        FtstImg* window = openPicture(gif);
        QVERIFY(window);
        QVERIFY(resizeTo(window, 100, 50));
        QCOMPARE(window->Canvas().pixel(90, 40), red);
        QCOMPARE(window->Canvas().pixel(91, 40), blue);
    }
};

GLYPHORA_TEST_MAIN(TestFtstImgPaint)
#include "test_ftstimgpaint.moc"
