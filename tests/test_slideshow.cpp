// Slideshow and the font menu.
#include "app/debut.h"
#include "app/tglyphora.h"
#include "browser/samplebox.h"
#include "components/runtimeerror.h"
#include "support/testsupport.h"

#include <QAction>
#include <QComboBox>
#include <QInputDialog>
#include <QLabel>
#include <QTimer>
#include <QTreeWidget>

namespace {

// Starts the slideshow through its menu item (or, to see the error it raises, through
// its handler itself: the menu's boundary reports errors), answering the input box.
QString startWith(tglyphora& w, const std::optional<QString>& answer, bool throughMenu = true)
{
    QString seen;
    TestSupport::whenModal([&](QWidget* modal) {
        auto* box = qobject_cast<QInputDialog*>(modal);
        if (!box)
            return;
        seen = box->windowTitle() + QLatin1Char('|') + box->labelText() + QLatin1Char('|') + box->textValue();
        if (answer) {
            box->setTextValue(*answer);
            box->accept();
        } else {
            box->reject();
        }
    });
    if (throughMenu)
        w.findChild<QAction*>(QStringLiteral("mvisboucle"))->trigger();
    else
        w.mvisboucle_Click();
    return seen;
}

} // namespace

class TestSlideshow : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { TestSupport::clearSettings(); }

    void timerIsStoppedAfterLoading()
    {
        tglyphora w;
        w.show();
        auto* timer = w.findChild<QTimer*>(QStringLiteral("Timer1"));
        QVERIFY(timer);
        QVERIFY(!timer->isActive());
        QCOMPARE(timer->interval(), 1000);
    }

    void answerTwoShowsAFontEveryTwoSeconds()
    {
        tglyphora w;
        w.show();
        const QString prompt = startWith(w, QStringLiteral("2"));
        QCOMPARE(prompt, QStringLiteral("Temps d'attente|Entrez le nombre de secondes à attendre entre chaque police\r\n\r\n"
                                        "Note : pour arrêter la visualisation, appuyez sur la touche Esc de votre clavier|1"));
        QVERIFY(w.Timer1->isActive());
        QCOMPARE(w.Timer1->interval(), 2000);
        QCOMPARE(w.slideshowPosition(), 0);
        w.List1->setCurrentItem(w.List1->topLevelItem(2));
        w.Timer1_Timer(); // the first tick shows the first font of the list
        QCOMPARE(debut::CurrentFaceName, w.List1->topLevelItem(0)->text(0));
        QCOMPARE(w.Panel(4)->text(), QStringLiteral("1"));
        QCOMPARE(w.Text1->font().family(), w.List1->topLevelItem(0)->text(0));
        w.Timer1->stop();
    }

    void otherAnswers()
    {
        tglyphora w;
        w.show();
        startWith(w, QStringLiteral("0.5"));
        QCOMPARE(w.Timer1->interval(), 500);
        startWith(w, QStringLiteral("2abc"));
        QCOMPARE(w.Timer1->interval(), 2000);
        // Cancel and an empty answer keep the previous interval; the show starts anyway.
        startWith(w, std::nullopt);
        QCOMPARE(w.Timer1->interval(), 2000);
        QVERIFY(w.Timer1->isActive());
        startWith(w, QString());
        QCOMPARE(w.Timer1->interval(), 2000);
        startWith(w, QStringLiteral("n'importe quoi"));
        QCOMPARE(w.Timer1->interval(), 2000);
        QVERIFY(w.Timer1->isActive());
        startWith(w, QStringLiteral("65.535"));
        QCOMPARE(w.Timer1->interval(), 65535);
        w.Timer1->stop();
    }

    void anIntervalTheTimerRefusesIsARunTimeError()
    {
        tglyphora w;
        w.show();
        for (const QString& answer : {QStringLiteral("66"), QStringLiteral("-1")}) {
            try {
                startWith(w, answer, false);
                QFAIL("no error");
            } catch (const RuntimeError& e) {
                QCOMPARE(e.number(), 380);
            }
        }
    }

    void aListOfNFontsShowsOneToNMinusOne()
    {
        tglyphora w;
        w.show();
        const int n = w.List1->topLevelItemCount();
        QVERIFY(n >= 2);
        startWith(w, QStringLiteral("1"));
        QStringList shown;
        while (w.Timer1->isActive()) {
            w.Timer1_Timer();
            if (w.Timer1->isActive())
                shown.append(debut::CurrentFaceName);
        }
        QCOMPARE(shown.size(), n - 1);
        for (int i = 0; i < n - 1; ++i)
            QCOMPARE(shown[i], w.List1->topLevelItem(i)->text(0));
        QCOMPARE(w.slideshowPosition(), n);
        // The selected font stays the last one shown.
        QCOMPARE(w.List1->currentItem(), w.List1->topLevelItem(n - 2));
    }

    void runsOnItsTimer()
    {
        tglyphora w;
        w.show();
        startWith(w, QStringLiteral("0.01"));
        QCOMPARE(w.Timer1->interval(), 10);
        QVERIFY(TestSupport::waitFor([&] { return !w.Timer1->isActive(); }, 30000));
        QCOMPARE(w.List1->currentItem(), w.List1->topLevelItem(w.List1->topLevelItemCount() - 2));
    }

    void escapeStopsTheShow()
    {
        tglyphora w;
        w.show();
        w.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&w));
        for (QWidget* target : {static_cast<QWidget*>(w.Text2), static_cast<QWidget*>(w.Text1),
                                static_cast<QWidget*>(w.Combo1), static_cast<QWidget*>(w.List1)}) {
            startWith(w, QStringLiteral("5"));
            w.Timer1_Timer();
            const QString shown = debut::CurrentFaceName;
            target->setFocus();
            QTest::keyClick(target, Qt::Key_Escape);
            QVERIFY2(!w.Timer1->isActive(), qPrintable(target->objectName()));
            QCOMPARE(debut::CurrentFaceName, shown);
        }
        startWith(w, QStringLiteral("5"));
        QTest::keyClick(&w, Qt::Key_Escape);
        QVERIFY(!w.Timer1->isActive());
    }

    void clickingAnotherFontKeepsThePosition()
    {
        tglyphora w;
        w.show();
        QVERIFY(w.List1->topLevelItemCount() >= 4);
        startWith(w, QStringLiteral("5"));
        w.Timer1_Timer();
        w.List1->setCurrentItem(w.List1->topLevelItem(3));
        w.List1_Click();
        w.Timer1_Timer();
        QCOMPARE(debut::CurrentFaceName, w.List1->topLevelItem(1)->text(0));
        w.Timer1->stop();
    }

    void fontMenuItemPolice()
    {
        tglyphora w;
        w.show();
        auto* item = w.findChild<QAction*>(QStringLiteral("ElemPol_0"));
        QVERIFY(item);
        QCOMPARE(item->text(), QStringLiteral("police"));
        w.Button(13)->trigger();
        item->trigger();
        QCOMPARE(debut::CurrentFaceName, QStringLiteral("police"));
        QCOMPARE(w.Text1->font().family(), QStringLiteral("police"));
        QCOMPARE(w.Text2->font().family(), QStringLiteral("police"));
        QVERIFY(w.Text1->font().italic());
        QVERIFY(w.List1->selectedItems().isEmpty());
        QCOMPARE(w.ElemPol(0)->text(), QStringLiteral("police")); // the caption is never changed
    }

    void fontMenuSelectsTheMatchingFont()
    {
        tglyphora w;
        w.show();
        const QString name = w.List1->topLevelItem(2)->text(0);
        w.ElemPol(0)->setText(name);
        w.ElemPol_Click(0);
        QCOMPARE(w.List1->selectedItems(), QList<QTreeWidgetItem*>{w.List1->topLevelItem(2)});
        QCOMPARE(w.Text2->font().family(), name);
        // An index with no item is ignored and the rest still runs.
        w.ElemPol_Click(5);
        QCOMPARE(debut::CurrentFaceName, name);
    }
};

GLYPHORA_TEST_MAIN(TestSlideshow)
#include "test_slideshow.moc"
