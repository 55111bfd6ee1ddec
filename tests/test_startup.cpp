// Start-up: the donation splash and the main window after it; the run-time error report.
#include "app/debut.h"
#include "app/splash.h"
#include "app/tglyphora.h"
#include "components/errorreport.h"
#include "support/testsupport.h"

#include <QLabel>
#include <QAbstractButton>
#include <QMessageBox>
#include <QTreeWidget>

namespace {

// Closes and deletes the main window debut::Main left open.
void closeMainWindow()
{
    if (tglyphora* w = tglyphora::instance()) {
        w->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

// Runs the program as main() does, reporting what the error box says.
int programWithErrorReport()
{
    TestSupport::whenModal([](QWidget* modal) {
        if (auto* box = qobject_cast<QMessageBox*>(modal)) {
            std::printf("title=%s\ntext=%s\n", qPrintable(box->windowTitle()), qPrintable(box->text()));
            std::fflush(stdout);
            box->button(QMessageBox::Ok)->click();
        }
    });
    ErrorReport::guard([] { debut::Main(); });
    return QApplication::exec();
}

const bool scenariosRegistered = [] {
    TestSupport::registerScenario(QStringLiteral("program"), &programWithErrorReport);
    return true;
}();

} // namespace

class TestStartup : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        TestSupport::clearSettings();
    }

    void splashShowsTwoRedLinesAndClosesAfterFourSeconds()
    {
        QString text;
        QColor colour;
        int interval = 0;
        bool timerRunning = false;
        bool mainWindowExisted = true;
        auto seen = TestSupport::whenModal([&](QWidget* modal) {
            auto* splash = qobject_cast<Splash*>(modal);
            QVERIFY(splash);
            auto* message = splash->findChild<QLabel*>(QStringLiteral("LoadMsg"));
            text = message->text();
            colour = message->palette().color(QPalette::WindowText);
            auto* timer = splash->findChild<QTimer*>(QStringLiteral("Timer1"));
            interval = timer->interval();
            timerRunning = timer->isActive();
            mainWindowExisted = tglyphora::instance() != nullptr;
        });
        QElapsedTimer clock;
        clock.start();
        debut::Main();
        const qint64 elapsed = clock.elapsed();
        QVERIFY(*seen);
        QCOMPARE(text, QStringLiteral("Merci de faire une donation\r\nAllez voir la fenêtre 'A propos de'"));
        QCOMPARE(colour, QColor(255, 0, 0));
        QCOMPARE(interval, 4000);
        QVERIFY(timerRunning);
        QVERIFY(!mainWindowExisted); // the main window comes after the splash
        QVERIFY2(elapsed >= 3900, qPrintable(QString::number(elapsed)));
        QVERIFY(tglyphora::instance());
        QVERIFY(tglyphora::instance()->isVisible());
        QVERIFY(!tglyphora::instance()->isModal());
        QVERIFY(QApplication::activeModalWidget() == nullptr);
        closeMainWindow();
    }

    void clickClosesTheSplashAtOnce()
    {
        bool timerStillPending = false;
        TestSupport::whenModal([&](QWidget* modal) {
            auto* splash = qobject_cast<Splash*>(modal);
            timerStillPending = splash->Timer1->isActive();
            QTest::mouseClick(splash, Qt::LeftButton, {}, QPoint(10, 10));
        });
        debut::Main();
        QVERIFY(timerStillPending);
        QVERIFY(tglyphora::instance() && tglyphora::instance()->isVisible());
        closeMainWindow();
    }

    void characterKeyClosesButFunctionAndArrowKeysDoNot()
    {
        bool stillOpenAfterF1 = false, stillOpenAfterArrow = false, closedByKey = false;
        TestSupport::whenModal([&](QWidget* modal) {
            auto* splash = qobject_cast<Splash*>(modal);
            QTest::keyClick(splash, Qt::Key_F1);
            stillOpenAfterF1 = splash->isVisible();
            QTest::keyClick(splash, Qt::Key_Left);
            QTest::keyClick(splash, Qt::Key_Down);
            stillOpenAfterArrow = splash->isVisible();
            QTest::keyClick(splash, Qt::Key_X);
            closedByKey = !splash->isVisible();
        });
        debut::Main();
        QVERIFY(stillOpenAfterF1);
        QVERIFY(stillOpenAfterArrow);
        QVERIFY(closedByKey);
        closeMainWindow();
    }

    void anyThanksSkipTheSplash()
    {
        for (const QString& value : {QStringLiteral(" "), QStringLiteral("merci beaucoup")}) {
            TestSupport::writeSetting(QStringLiteral("Donation"), QStringLiteral("Merci"), value);
            bool splashSeen = false;
            auto seen = TestSupport::whenModal([&](QWidget* modal) {
                splashSeen = qobject_cast<Splash*>(modal) != nullptr;
                modal->close();
            }, 1500);
            debut::Main();
            QVERIFY(tglyphora::instance() && tglyphora::instance()->isVisible());
            QTest::qWait(1600);
            QVERIFY(!*seen);
            QVERIFY(!splashSeen);
            closeMainWindow();
        }
        // The program reads the key and never writes it.
        QCOMPARE(TestSupport::readSetting(QStringLiteral("Donation"), QStringLiteral("Merci")), QStringLiteral("merci beaucoup"));
    }

    void splashIsHarmlessToUnloadTwice()
    {
        Splash splash;
        splash.show();
        splash.Form_Click();
        QVERIFY(!splash.isVisible());
        splash.Timer1_Timer();
        splash.Form_KeyPress('a');
        QVERIFY(!splash.isVisible());
    }

    void emptyFontListIsARunTimeError()
    {
        QTemporaryDir fonts;
        const QString config = fonts.filePath(QStringLiteral("empty.conf"));
        QFile file(config);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("<?xml version=\"1.0\"?>\n<!DOCTYPE fontconfig SYSTEM \"fonts.dtd\">\n<fontconfig>\n<dir>");
        file.write(fonts.path().toUtf8());
        file.write("/none</dir>\n<cachedir>");
        file.write(fonts.path().toUtf8());
        file.write("/cache</cachedir>\n</fontconfig>\n");
        file.close();
        TestSupport::writeSetting(QStringLiteral("Donation"), QStringLiteral("Merci"), QStringLiteral(" "));
        const auto child = TestSupport::runScenario(QStringLiteral("program"), {QStringLiteral("FONTCONFIG_FILE=") + config});
        QCOMPARE(child.exitStatus, QProcess::NormalExit);
        QCOMPARE(child.exitCode, ErrorReport::ExitStatus);
        QVERIFY2(child.out.contains(QStringLiteral("title=Glyphora")), qPrintable(child.out + child.err));
        QVERIFY2(child.out.contains(QStringLiteral("Erreur d'exécution '91'")), qPrintable(child.out + child.err));
        QVERIFY(child.out.contains(QStringLiteral("Variable objet ou variable de bloc With non définie")));
    }
};

GLYPHORA_TEST_MAIN(TestStartup)
#include "test_startup.moc"
