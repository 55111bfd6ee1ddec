// The rotated sample over a background picture, driven through the main window's
// command and the window's own menu, keys and mouse.
#include "app/debut.h"
#include "app/tglyphora.h"
#include "browser/samplebox.h"
#include "samples/ftstimg.h"
#include "support/testpictures.h"
#include "support/testsupport.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QFileDialog>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QMouseEvent>
#include <QPointer>
#include <QScreen>
#include <QTemporaryDir>
#include <QTreeWidget>

namespace {

const QRgb red = qRgb(255, 0, 0);
const QRgb blue = qRgb(0, 0, 255);
const QRgb background = qRgb(10, 200, 10);
const QString title = QStringLiteral("Exemple d'une police avec une image de fond");

// A 40 x 30 blue picture whose top-left pixel is red: every tile corner shows red.
QImage tilePicture()
{
    QImage image(40, 30, QImage::Format_RGB32);
    image.fill(blue);
    image.setPixel(0, 0, red);
    return image;
}

void chooseFile(const QString& path)
{
    TestSupport::whenModal([path](QWidget* modal) {
        auto* dialog = qobject_cast<QFileDialog*>(modal);
        if (!dialog)
            return;
        // The whole path typed in the name box does not depend on the folder shown.
        auto* name = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        if (!name)
            return;
        name->setText(path);
        QTest::keyClick(name, Qt::Key_Return);
    });
}

// Answers the next message box with OK and keeps its text.
std::shared_ptr<QString> acknowledge()
{
    auto text = std::make_shared<QString>();
    TestSupport::whenModal([text](QWidget* modal) {
        if (auto* box = qobject_cast<QMessageBox*>(modal)) {
            *text = box->text();
            box->button(QMessageBox::Ok)->click();
        }
    });
    return text;
}

void sendMouse(QWidget* window, QEvent::Type type, Qt::MouseButton button, Qt::MouseButtons held, QPoint pos)
{
    QMouseEvent event(type, QPointF(pos), QPointF(window->mapToGlobal(pos)), button, held, Qt::NoModifier);
    QApplication::sendEvent(window, &event);
}

// Near-black pixels (the sample text is black) inside a rectangle of the canvas.
int inkIn(const QImage& canvas, const QRect& area)
{
    int count = 0;
    const QRect clipped = area.intersected(canvas.rect());
    for (int y = clipped.top(); y <= clipped.bottom(); ++y)
        for (int x = clipped.left(); x <= clipped.right(); ++x)
            if (qRed(canvas.pixel(x, y)) < 80 && qGreen(canvas.pixel(x, y)) < 80 && qBlue(canvas.pixel(x, y)) < 80)
                ++count;
    return count;
}

} // namespace

class TestFtstImg : public QObject {
    Q_OBJECT
private:
    QTemporaryDir m_dir;
    tglyphora* m_main = nullptr;
    QString m_picture;
    QPointer<FtstImg> m_window;

    FtstImg* open(const QString& path)
    {
        chooseFile(path);
        m_main->mimgfond_Click();
        m_window = m_main->findChild<FtstImg*>();
        return m_window.data();
    }

    void resizeTo(FtstImg* window, int width, int height)
    {
        window->resize(width, height);
        QTRY_COMPARE(window->Canvas().size(), QSize(width, height));
    }

    void switchToManual(FtstImg* window)
    {
        auto text = acknowledge();
        window->mmodeautoman->trigger();
        QVERIFY(!text->isEmpty());
        QCOMPARE(window->Mode(), 2);
    }

    void setAngle(FtstImg* window, const QString& answer)
    {
        TestSupport::whenModal([answer](QWidget* modal) {
            if (auto* box = qobject_cast<QInputDialog*>(modal)) {
                box->setTextValue(answer);
                box->accept();
            }
        });
        window->mangle->trigger();
    }

private Q_SLOTS:
    void initTestCase()
    {
        m_main = new tglyphora;
        m_main->show();
        QVERIFY(m_main->List1->topLevelItemCount() > 1);
        m_picture = TestPictures::write(m_dir.path(), QStringLiteral("fond.bmp"), QByteArray());
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

    void openingShowsThePictureInAutomaticMode()
    {
        QTreeWidgetItem* second = m_main->List1->topLevelItem(1);
        m_main->List1->setCurrentItem(second);
        debut::LastFolder = QStringLiteral("/");
        FtstImg* window = open(m_picture);
        QVERIFY(window);
        QVERIFY(window->isVisible());
        QCOMPARE(debut::CurrentFaceName, second->text(0));
        QCOMPARE(debut::PicturePath, m_picture);
        QCOMPARE(debut::LastFolder, m_dir.path() + QLatin1Char('/'));
        QCOMPARE(window->windowTitle(), title);
        QCOMPARE(window->Mode(), 1);
        QCOMPARE(window->Placement(), 1);
        QCOMPARE(window->Picture1->size(), QSize(40, 30));
        QVERIFY(!window->Picture1->isVisible());
        QCOMPARE(window->mmodeautoman->text(), QStringLiteral("Mode Automatique"));
        QVERIFY(!window->mangle->isEnabled());
        QCOMPARE(window->mcontextuel->title(), QStringLiteral("&Options"));
        // The rotated font copies the window's font, read from the main window.
        const StdFont* rotated = window->RotatedFont().LogFont();
        QVERIFY(rotated);
        QCOMPARE(rotated->Name(), second->text(0));
        QCOMPARE(rotated->Size(), 13.0);
        QCOMPARE(window->RotatedFont().Rotation(), 0.0f);
        QVERIFY(window->RotatedFont().Handle() != 0);
    }

    void menuCaptions()
    {
        FtstImg* window = open(m_picture);
        QVERIFY(window);
        QStringList captions;
        for (QAction* action : window->mcontextuel->actions())
            captions.append(action->isSeparator() ? QStringLiteral("-") : action->objectName() + QLatin1Char('=') + action->text());
        QCOMPARE(captions, (QStringList{
                               QStringLiteral("mmeth1=Mettre l'image sur toute la s&urface de la feuille"),
                               QStringLiteral("mmeth2=Mettre l'image sur la &gauche de la feuille"), QStringLiteral("-"),
                               QStringLiteral("mchgpict=&Changer d'image"), QStringLiteral("-"),
                               QStringLiteral("mmodeautoman=Mode Automatique"), QStringLiteral("mangle=Changer l'angle"),
                               QStringLiteral("mrefresh=Rafraichir"), QStringLiteral("-"), QStringLiteral("mquit=&Fermer")}));
    }

    void cancellingTheDialogChangesNothing()
    {
        debut::LastFolder = QStringLiteral("/nulle/part/");
        debut::PicturePath = QStringLiteral("/avant.gif");
        TestSupport::whenModal([](QWidget* modal) {
            if (auto* dialog = qobject_cast<QFileDialog*>(modal))
                dialog->reject();
        });
        m_main->mimgfond_Click();
        QVERIFY(!m_main->findChild<FtstImg*>());
        QCOMPARE(debut::LastFolder, QStringLiteral("/nulle/part/"));
        QCOMPARE(debut::PicturePath, QStringLiteral("/avant.gif"));
    }

    void theDialogIsTheOpenDialogWithTheImageFilters()
    {
        debut::LastFolder = m_dir.path() + QLatin1Char('/');
        QStringList filters;
        QString caption, folder;
        TestSupport::whenModal([&](QWidget* modal) {
            if (auto* dialog = qobject_cast<QFileDialog*>(modal)) {
                filters = dialog->nameFilters();
                caption = dialog->windowTitle();
                folder = dialog->directory().absolutePath();
                dialog->reject();
            }
        });
        m_main->mimgfond_Click();
        QCOMPARE(caption, QStringLiteral("Ouvrir"));
        QCOMPARE(folder, QDir(m_dir.path()).absolutePath());
        QCOMPARE(filters, (QStringList{QStringLiteral("Gif (*.gif)"), QStringLiteral("jpg (*.jpg)"), QStringLiteral("jpeg (*.jpeg)"),
                                       QStringLiteral("bmp (*.bmp)"), QStringLiteral("ico (*.ico)"), QStringLiteral("wmf (*.wmf)")}));
    }

    void aFileThatIsNoPictureIsReportedAndChangesNothing()
    {
        const QString bad = TestPictures::write(m_dir.path(), QStringLiteral("abime.gif"), QByteArray("GIF89a pas du tout"));
        debut::LastFolder = QStringLiteral("/avant/");
        debut::PicturePath = QStringLiteral("/avant.gif");
        chooseFile(bad);
        // The message comes once the file dialog has closed.
        auto text = std::make_shared<QString>();
        QTimer poll;
        poll.setInterval(10);
        connect(&poll, &QTimer::timeout, this, [&] {
            if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
                *text = box->text();
                box->button(QMessageBox::Ok)->click();
            }
        });
        poll.start();
        m_main->mimgfond_Click();
        poll.stop();
        QCOMPARE(*text, QStringLiteral("Erreur, impossible de lire l'image \"%1\". Le fichier est peut être endommagé ou d'un format inconnu.").arg(bad));
        QVERIFY(!m_main->findChild<FtstImg*>());
        QCOMPARE(debut::LastFolder, QStringLiteral("/avant/"));
        QCOMPARE(debut::PicturePath, QStringLiteral("/avant.gif"));
    }

    void placementOneTilesTheWholeWindow()
    {
        FtstImg* window = open(m_picture);
        QVERIFY(window);
        resizeTo(window, 130, 70);
        const QImage canvas = window->Canvas();
        // Tiles start at x = 0, 40, 80, 120 and y = 0, 30, 60.
        for (int x = 0; x < 130; ++x) {
            for (int y = 0; y < 70; ++y) {
                const bool corner = x % 40 == 0 && y % 30 == 0;
                QCOMPARE(canvas.pixel(x, y), corner ? red : blue);
            }
        }
    }

    void placementTwoDrawsOnlyTheLeftColumn()
    {
        FtstImg* window = open(m_picture);
        QVERIFY(window);
        resizeTo(window, 130, 70);
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
        FtstImg* window = open(m_picture);
        QVERIFY(window);
        resizeTo(window, 400, 300);
        const QImage canvas = window->Canvas();
        QVERIFY(inkIn(canvas, QRect(0, 0, 80, 50)) > 50);
        QCOMPARE(inkIn(canvas, QRect(150, 100, 250, 200)), 0);
        QCOMPARE(window->ForeColor(), QColor(Qt::black));
        QCOMPARE(window->BackColor(), QColor(background));
    }

    void switchingModes()
    {
        FtstImg* window = open(m_picture);
        QVERIFY(window);
        auto text = acknowledge();
        window->mmodeautoman->trigger();
        QCOMPARE(*text, QStringLiteral("C'est à vous de cliquer sur la fenêtre pour afficher le texte. Vous pouvez changer "
                                       "l'angle en appuyant sur les touches + et - ou aller dans le menu \"Changer l'angle\""));
        QCOMPARE(window->Mode(), 2);
        QCOMPARE(window->mmodeautoman->text(), QStringLiteral("Mode Manuel"));
        QVERIFY(window->mangle->isEnabled());
        QCOMPARE(window->windowTitle(), title + QStringLiteral(" - Angle 0 degrés"));

        setAngle(window, QStringLiteral("30"));
        window->mmodeautoman->trigger();
        QCOMPARE(window->Mode(), 1);
        QCOMPARE(window->mmodeautoman->text(), QStringLiteral("Mode Automatique"));
        QVERIFY(!window->mangle->isEnabled());
        QCOMPARE(window->windowTitle(), title);

        // The angle survives the mode changes.
        switchToManual(window);
        QCOMPARE(window->RotatedFont().Rotation(), 30.0f);
        QCOMPARE(window->windowTitle(), title + QStringLiteral(" - Angle 30 degrés"));
    }

    void switchingModesRefreshesTheWindow()
    {
        FtstImg* window = open(m_picture);
        QVERIFY(window);
        m_main->Text1->setText(QStringLiteral("MMMM"));
        switchToManual(window);
        // Manual mode repaints the tiles only: no text at the top left.
        QCOMPARE(inkIn(window->Canvas(), QRect(0, 0, 100, 40)), 0);
        window->mmodeautoman->trigger();
        QVERIFY(inkIn(window->Canvas(), QRect(0, 0, 100, 40)) > 20);
    }

    void plusAndMinusStopAtTheLimits()
    {
        FtstImg* window = open(m_picture);
        QVERIFY(window);
        switchToManual(window);
        setAngle(window, QStringLiteral("360"));
        QTest::keyClick(window, Qt::Key_Plus, Qt::NoModifier);
        QCOMPARE(window->RotatedFont().Rotation(), 360.0f);
        QCOMPARE(window->windowTitle(), title + QStringLiteral(" - Angle 360 degrés"));
        QTest::keyClick(window, Qt::Key_Minus, Qt::NoModifier);
        QCOMPARE(window->RotatedFont().Rotation(), 359.0f);
        QCOMPARE(window->windowTitle(), title + QStringLiteral(" - Angle 359 degrés"));

        setAngle(window, QStringLiteral("-360"));
        QTest::keyClick(window, Qt::Key_Minus, Qt::NoModifier);
        QCOMPARE(window->RotatedFont().Rotation(), -360.0f);
        QTest::keyClick(window, Qt::Key_Plus, Qt::NoModifier);
        QCOMPARE(window->RotatedFont().Rotation(), -359.0f);
        QCOMPARE(window->windowTitle(), title + QStringLiteral(" - Angle -359 degrés"));
    }

    void plusStartsFromTheRoundedAngle()
    {
        FtstImg* window = open(m_picture);
        QVERIFY(window);
        switchToManual(window);
        setAngle(window, QStringLiteral("45.6"));
        QCOMPARE(window->RotatedFont().Rotation(), 45.6f);
        QCOMPARE(window->windowTitle(), title + QStringLiteral(" - Angle 45.6 degrés"));
        QTest::keyClick(window, Qt::Key_Plus, Qt::NoModifier);
        QCOMPARE(window->RotatedFont().Rotation(), 47.0f);
        QCOMPARE(window->windowTitle(), title + QStringLiteral(" - Angle 47 degrés"));
    }

    void anyKeyInManualModeWritesTheTitle()
    {
        FtstImg* window = open(m_picture);
        QVERIFY(window);
        switchToManual(window);
        setAngle(window, QStringLiteral("12"));
        window->setWindowTitle(QStringLiteral("autre"));
        QTest::keyClick(window, Qt::Key_A, Qt::NoModifier);
        QCOMPARE(window->RotatedFont().Rotation(), 12.0f);
        QCOMPARE(window->windowTitle(), title + QStringLiteral(" - Angle 12 degrés"));
    }

    void theAngleBox()
    {
        FtstImg* window = open(m_picture);
        QVERIFY(window);
        switchToManual(window);
        setAngle(window, QStringLiteral("-12.5"));
        QString boxTitle, prompt, proposed;
        TestSupport::whenModal([&](QWidget* modal) {
            if (auto* box = qobject_cast<QInputDialog*>(modal)) {
                boxTitle = box->windowTitle();
                prompt = box->labelText();
                proposed = box->textValue();
                box->setTextValue(QStringLiteral("45abc"));
                box->accept();
            }
        });
        window->mangle->trigger();
        QCOMPARE(boxTitle, QStringLiteral("Changer d'angle"));
        QCOMPARE(prompt, QStringLiteral("Entrez l'angle (entre -360 et +360 degrés)"));
        QCOMPARE(proposed, QStringLiteral("-12.5"));
        QCOMPARE(window->RotatedFont().Rotation(), 45.0f);
        QCOMPARE(window->windowTitle(), title + QStringLiteral(" - Angle 45 degrés"));

        // An empty answer reads as 0.
        setAngle(window, QString());
        QCOMPARE(window->RotatedFont().Rotation(), 0.0f);
        QCOMPARE(window->windowTitle(), title + QStringLiteral(" - Angle 0 degrés"));
    }

    void aCancelledAngleBoxSetsTheAngleToZero()
    {
        FtstImg* window = open(m_picture);
        QVERIFY(window);
        switchToManual(window);
        setAngle(window, QStringLiteral("80"));
        TestSupport::whenModal([](QWidget* modal) {
            if (auto* box = qobject_cast<QInputDialog*>(modal))
                box->reject();
        });
        window->mangle->trigger();
        QCOMPARE(window->RotatedFont().Rotation(), 0.0f);
    }

    void anAngleOutOfRangeIsRefused()
    {
        FtstImg* window = open(m_picture);
        QVERIFY(window);
        switchToManual(window);
        setAngle(window, QStringLiteral("45"));
        const quintptr handle = window->RotatedFont().Handle();
        auto text = std::make_shared<QString>();
        TestSupport::whenModal([text](QWidget* modal) {
            if (auto* box = qobject_cast<QInputDialog*>(modal)) {
                box->setTextValue(QStringLiteral("400"));
                box->accept();
                TestSupport::whenModal([text](QWidget* next) {
                    if (auto* message = qobject_cast<QMessageBox*>(next)) {
                        *text = message->text();
                        message->button(QMessageBox::Ok)->click();
                    }
                });
            }
        });
        window->mangle->trigger();
        QCOMPARE(*text, QStringLiteral("Erreur, l'angle donné n'est pas correct"));
        QCOMPARE(window->RotatedFont().Rotation(), 45.0f);
        QCOMPARE(window->RotatedFont().Handle(), handle);
        QCOMPARE(window->windowTitle(), title + QStringLiteral(" - Angle 45 degrés"));
    }

    void inAutomaticModeTheMouseAndKeysDoNothing()
    {
        m_main->Text1->setText(QStringLiteral("MMMM"));
        FtstImg* window = open(m_picture);
        QVERIFY(window);
        resizeTo(window, 400, 300);
        const QImage before = window->Canvas().copy();
        sendMouse(window, QEvent::MouseButtonPress, Qt::LeftButton, Qt::LeftButton, QPoint(200, 150));
        sendMouse(window, QEvent::MouseMove, Qt::NoButton, Qt::LeftButton, QPoint(220, 160));
        sendMouse(window, QEvent::MouseButtonRelease, Qt::LeftButton, Qt::NoButton, QPoint(240, 170));
        QTest::keyClick(window, Qt::Key_Plus, Qt::NoModifier);
        QTest::keyClick(window, Qt::Key_Minus, Qt::NoModifier);
        QCOMPARE(window->Canvas(), before);
        QCOMPARE(window->RotatedFont().Rotation(), 0.0f);
        QCOMPARE(window->windowTitle(), title);
    }

    void draggingLeavesATrailOfStamps()
    {
        m_main->Text1->setText(QStringLiteral("MMMM"));
        FtstImg* window = open(m_picture);
        QVERIFY(window);
        resizeTo(window, 500, 400);
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
        FtstImg* window = open(m_picture);
        QVERIFY(window);
        resizeTo(window, 500, 400);
        switchToManual(window);
        setAngle(window, QStringLiteral("90"));
        sendMouse(window, QEvent::MouseButtonRelease, Qt::LeftButton, Qt::NoButton, QPoint(200, 300));
        const QImage canvas = window->Canvas();
        // At 90 degrees the line rises from the pointer: ink above it, none to its right.
        QVERIFY(inkIn(canvas, QRect(195, 150, 40, 150)) > 50);
        QCOMPARE(inkIn(canvas, QRect(240, 290, 200, 40)), 0);
        QCOMPARE(inkIn(canvas, QRect(150, 305, 100, 90)), 0);
    }

    void a360DegreeStampIsTheUnrotatedStamp()
    {
        m_main->Text1->setText(QStringLiteral("Glyphora"));
        FtstImg* window = open(m_picture);
        QVERIFY(window);
        resizeTo(window, 400, 300);
        switchToManual(window);
        sendMouse(window, QEvent::MouseButtonRelease, Qt::LeftButton, Qt::NoButton, QPoint(100, 100));
        const QImage flat = window->Canvas().copy();
        QVERIFY(inkIn(flat, QRect(100, 100, 120, 30)) > 20);
        for (const QString& angle : {QStringLiteral("360"), QStringLiteral("-360")}) {
            window->mrefresh->trigger();
            setAngle(window, angle);
            QCOMPARE(window->RotatedFont().Record().lfOutPrecision, uint8_t(0));
            sendMouse(window, QEvent::MouseButtonRelease, Qt::LeftButton, Qt::NoButton, QPoint(100, 100));
            QCOMPARE(window->Canvas(), flat);
        }
        window->mrefresh->trigger();
        setAngle(window, QStringLiteral("30"));
        sendMouse(window, QEvent::MouseButtonRelease, Qt::LeftButton, Qt::NoButton, QPoint(100, 100));
        QVERIFY(window->Canvas() != flat);
    }

    void theRotatedFontKeepsTheFontOfTheOpening()
    {
        FtstImg* window = open(m_picture);
        QVERIFY(window);
        const QString face = window->RotatedFont().LogFont()->Name();
        m_main->setButtonValue(12, 1);
        m_main->setButtonValue(13, 1);
        m_main->Combo1->setCurrentIndex(20); // 24 points
        window->mrefresh->trigger();
        QVERIFY(window->DrawingFont().Bold());
        QVERIFY(window->DrawingFont().Italic());
        QCOMPARE(window->DrawingFont().Size(), 24.0);
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
        FtstImg* window = open(m_picture);
        QVERIFY(window);
        window->resize(300, 200);
        const QRect screen = window->screen()->geometry();
        QTRY_COMPARE(window->frameGeometry().topLeft(),
                     QPoint(screen.x() + (screen.width() - window->frameGeometry().width()) / 2,
                            screen.y() + (screen.height() - window->frameGeometry().height()) / 2));
    }

    void aRightClickOpensTheMenu()
    {
        FtstImg* window = open(m_picture);
        QVERIFY(window);
        sendMouse(window, QEvent::MouseButtonRelease, Qt::RightButton, Qt::NoButton, QPoint(10, 10));
        QTRY_VERIFY(window->mcontextuel->isVisible());
        window->mcontextuel->hide();
    }

    void changingThePicture()
    {
        FtstImg* window = open(m_picture);
        QVERIFY(window);
        QImage small(20, 10, QImage::Format_RGB32);
        small.fill(red);
        const QString gif = TestPictures::write(m_dir.path(), QStringLiteral("petit.gif"), TestPictures::gif(small));
        chooseFile(gif);
        window->mchgpict->trigger();
        QCOMPARE(window->Picture1->size(), QSize(20, 10));
        QCOMPARE(window->Canvas().pixel(25, 15), red);
        QCOMPARE(debut::PicturePath, gif);

        // A file that is no picture leaves the picture as it was.
        const QString bad = TestPictures::write(m_dir.path(), QStringLiteral("faux.bmp"), QByteArray("BM"));
        chooseFile(bad);
        QTimer poll;
        QString text;
        connect(&poll, &QTimer::timeout, this, [&] {
            if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
                text = box->text();
                box->button(QMessageBox::Ok)->click();
            }
        });
        poll.start(10);
        window->mchgpict->trigger();
        poll.stop();
        QVERIFY(text.startsWith(QStringLiteral("Erreur, impossible de lire l'image")));
        QCOMPARE(window->Picture1->size(), QSize(20, 10));
        QCOMPARE(debut::PicturePath, gif);
    }

    void aMetafileBackground()
    {
        const QString wmf = TestPictures::write(m_dir.path(), QStringLiteral("dessin.wmf"), TestPictures::wmfFilled(60, 40, red));
        FtstImg* window = open(wmf);
        QVERIFY(window);
        QCOMPARE(window->Picture1->size(), QSize(60, 40));
        resizeTo(window, 200, 100);
        QCOMPARE(window->Canvas().pixel(150, 90), red);
    }

    void closing()
    {
        FtstImg* window = open(m_picture);
        QVERIFY(window);
        window->mquit->trigger();
        QTRY_VERIFY(!m_window);
    }

    void openingAgainReplacesTheWindow()
    {
        FtstImg* first = open(m_picture);
        QVERIFY(first);
        QPointer<FtstImg> old(first);
        FtstImg* second = open(m_picture);
        QVERIFY(second);
        QTRY_VERIFY(!old);
        QCOMPARE(m_main->findChildren<FtstImg*>().size(), 1);
    }

    void withoutASelectedFontTheCommandFailsAtRunTime()
    {
        const auto result = TestSupport::runScenario(QStringLiteral("noSelection"));
        QCOMPARE(result.exitCode, 3);
        QVERIFY2(result.err.contains(QStringLiteral("Erreur d'exécution '91'")), qPrintable(result.err));
    }
};

static int noSelection()
{
    tglyphora main;
    main.show();
    main.List1->setCurrentItem(nullptr);
    TestSupport::whenModal([](QWidget* modal) {
        if (auto* box = qobject_cast<QMessageBox*>(modal))
            box->button(QMessageBox::Ok)->click();
    });
    // From the event loop, as a menu choice runs.
    QTimer::singleShot(0, &main, [&main] { main.findChild<QAction*>(QStringLiteral("mimgfond"))->trigger(); });
    return QApplication::exec();
}

int main(int argc, char** argv)
{
    TestSupport::registerScenario(QStringLiteral("noSelection"), noSelection);
    TestFtstImg test;
    return glyphoraTestMain(argc, argv, &test);
}
#include "test_ftstimg.moc"
