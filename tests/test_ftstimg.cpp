// The rotated sample over a background picture: opening it from the main window, its
// menu, the two modes, the angle keys and the angle box.
#include "app/debut.h"
#include "app/tglyphora.h"
#include "browser/samplebox.h"
#include "samples/ftstimg.h"
#include "support/sampledriver.h"
#include "support/testpictures.h"
#include "support/testsupport.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QFileDialog>
#include <QInputDialog>
#include <QLabel>
#include <QMenu>
#include <QMessageBox>
#include <QPointer>
#include <QTemporaryDir>
#include <QTreeWidget>

using namespace SampleDriver;

namespace {

const QString title = QStringLiteral("Exemple d'une police avec une image de fond");

} // namespace

class TestFtstImg : public QObject {
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

private Q_SLOTS:
    void initTestCase()
    {
        m_main = new tglyphora;
        m_main->show();
        QVERIFY(m_main->List1->topLevelItemCount() > 1);
        m_picture = m_dir.filePath(QStringLiteral("fond.bmp"));
        QVERIFY(tilePicture().save(m_picture, "BMP"));
    }

    void init()
    {
        m_main->Text1->setText(QString());
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
        FtstImg* window = openPicture(m_picture);
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
        FtstImg* window = openPicture(m_picture);
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
        MessageCatcher messages;
        m_main->mimgfond_Click();
        QCOMPARE(messages.texts, QStringList{QStringLiteral("Erreur, impossible de lire l'image \"%1\". Le fichier est peut-"
                                                            "être endommagé ou d'un format inconnu.").arg(bad)});
        QVERIFY(!m_main->findChild<FtstImg*>());
        QCOMPARE(debut::LastFolder, QStringLiteral("/avant/"));
        QCOMPARE(debut::PicturePath, QStringLiteral("/avant.gif"));
    }

    void switchingModes()
    {
        FtstImg* window = openPicture(m_picture);
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
        QCOMPARE(window->Mode(), 2);
        QCOMPARE(window->RotatedFont().Rotation(), 30.0f);
        QCOMPARE(window->windowTitle(), title + QStringLiteral(" - Angle 30 degrés"));
    }

    void plusAndMinusStopAtTheLimits()
    {
        FtstImg* window = openPicture(m_picture);
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
        FtstImg* window = openPicture(m_picture);
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
        FtstImg* window = openPicture(m_picture);
        QVERIFY(window);
        switchToManual(window);
        setAngle(window, QStringLiteral("12"));
        window->setWindowTitle(QStringLiteral("autre"));
        QTest::keyClick(window, Qt::Key_A, Qt::NoModifier);
        QCOMPARE(window->RotatedFont().Rotation(), 12.0f);
        QCOMPARE(window->windowTitle(), title + QStringLiteral(" - Angle 12 degrés"));
    }

    void inAutomaticModeTheKeysDoNothing()
    {
        FtstImg* window = openPicture(m_picture);
        QVERIFY(window);
        QTest::keyClick(window, Qt::Key_Plus, Qt::NoModifier);
        QTest::keyClick(window, Qt::Key_Minus, Qt::NoModifier);
        QTest::keyClick(window, Qt::Key_A, Qt::NoModifier);
        QCOMPARE(window->RotatedFont().Rotation(), 0.0f);
        QCOMPARE(window->windowTitle(), title);
    }

    void theAngleBox()
    {
        FtstImg* window = openPicture(m_picture);
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
        FtstImg* window = openPicture(m_picture);
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
        FtstImg* window = openPicture(m_picture);
        QVERIFY(window);
        switchToManual(window);
        setAngle(window, QStringLiteral("45"));
        const quintptr handle = window->RotatedFont().Handle();
        for (const QString& answer : {QStringLiteral("400"), QStringLiteral("-360.5"), QStringLiteral("361")}) {
            answerInput(answer);
            MessageCatcher messages;
            window->mangle->trigger();
            QCOMPARE(messages.texts, QStringList{QStringLiteral("Erreur, l'angle donné n'est pas correct")});
            QCOMPARE(window->RotatedFont().Rotation(), 45.0f);
            QCOMPARE(window->RotatedFont().Handle(), handle);
            QCOMPARE(window->windowTitle(), title + QStringLiteral(" - Angle 45 degrés"));
        }
    }

    void aRightClickOpensTheMenu()
    {
        FtstImg* window = openPicture(m_picture);
        QVERIFY(window);
        sendMouse(window, QEvent::MouseButtonRelease, Qt::RightButton, Qt::NoButton, QPoint(10, 10));
        QTRY_VERIFY(window->mcontextuel->isVisible());
        window->mcontextuel->hide();
    }

    void closing()
    {
        FtstImg* window = openPicture(m_picture);
        QVERIFY(window);
        window->mquit->trigger();
        QTRY_VERIFY(!m_window);
    }

    void openingAgainReplacesTheWindow()
    {
        FtstImg* first = openPicture(m_picture);
        QVERIFY(first);
        QPointer<FtstImg> old(first);
        QVERIFY(openPicture(m_picture));
        QTRY_VERIFY(!old);
        QCOMPARE(m_main->findChildren<FtstImg*>().size(), 1);
    }

    void theToolbarButtonOpensItToo()
    {
        chooseFile(m_picture);
        m_main->Button(6)->trigger();
        m_window = m_main->findChild<FtstImg*>();
        QVERIFY(m_window);
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
    acknowledge();
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
