// The character table window: its load, the codes of the character under the mouse, the
// single bordered cell, the list and copying; opened from the main window's menu.
#include "app/debut.h"
#include "app/tglyphora.h"
#include "components/runtimeerror.h"
#include "samples/charmap.h"
#include "support/testsupport.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QTreeWidget>

namespace {

int borderedCells(const charmap& window)
{
    int count = 0;
    for (int i = 0; i < 224; ++i)
        if (window.Label1(i)->frameShape() != QFrame::NoFrame)
            ++count;
    return count;
}

QPoint middle(const QWidget* widget)
{
    return widget->rect().center();
}

} // namespace

class TestCharmap : public QObject {
    Q_OBJECT
private:
    QString m_face;

private Q_SLOTS:
    void initTestCase()
    {
        const QStringList families = TestSupport::fcFamilies();
        QVERIFY(!families.isEmpty());
        m_face = families.contains(QStringLiteral("DejaVu Sans")) ? QStringLiteral("DejaVu Sans") : families.first();
    }

    void init()
    {
        debut::CurrentFaceName = m_face;
    }

    void designTexts()
    {
        charmap window;
        QCOMPARE(window.objectName(), QStringLiteral("charmap"));
        QCOMPARE(window.windowTitle(), QStringLiteral("Une autre table de caractères"));
        QCOMPARE(window.Label2->text(), QStringLiteral("Caractère :"));
        QCOMPARE(window.Label4->text(), QStringLiteral("Code Ascii :"));
        QCOMPARE(window.Label7->text(), QStringLiteral("Valeur Hexa :"));
        QCOMPARE(window.Label9->text(), QStringLiteral("Valeur Octal :"));
        QCOMPARE(window.Label10->text(), QStringLiteral("Valeur Binaire :"));
        QCOMPARE(window.Label12->text(), QStringLiteral("Police :"));
        QCOMPARE(window.Label13->text(), QStringLiteral("Arial")); // until the load
        QCOMPARE(window.Command2->text(), QStringLiteral("&Copier le caractère"));
        QCOMPARE(window.Command2->toolTip(), QStringLiteral("Dans le presse papiers"));
        QCOMPARE(window.Command1->text(), QStringLiteral("&Quitter"));
        for (int i : {0, 100, 223}) {
            QLabel* cell = window.findChild<QLabel*>(QStringLiteral("Label1_%1").arg(i));
            QVERIFY(cell);
            QCOMPARE(cell, window.Label1(i));
            QCOMPARE(cell->toolTip(), QStringLiteral("Faites un double clic pour copier le caractère dans le presse papiers"));
        }
        QVERIFY(!window.findChild<QLabel*>(QStringLiteral("Label1_224")));
        for (const char* name : {"Label2", "Label3", "Label5", "Label6", "Label8", "Label11", "Label13", "List1", "Command1", "Command2"})
            QVERIFY2(window.findChild<QWidget*>(QString::fromLatin1(name)), name);
    }

    void cellsOutsideTheArrayAreError9()
    {
        charmap window;
        for (int index : {-1, 224}) {
            try {
                window.Label1(index);
                QFAIL("no error");
            } catch (const RuntimeError& e) {
                QCOMPARE(e.number(), 9);
            }
        }
    }

    void loadingShowsTheCurrentFont()
    {
        charmap window;
        window.show();
        QCOMPARE(window.Label13->text(), m_face);
        QCOMPARE(window.List1->font().family(), m_face);
        QCOMPARE(window.Label3->font().family(), m_face);
        QVERIFY(window.List1->isVisible());
        for (int i = 0; i < 224; ++i) {
            QLabel* cell = window.Label1(i);
            QVERIFY(cell->isVisible());
            QCOMPARE(cell->font().family(), m_face);
            QCOMPARE(cell->text().size(), 1);
        }
        QCOMPARE(window.Label1(0)->text(), QStringLiteral(" "));
        QCOMPARE(window.Label1(33)->text(), QStringLiteral("A"));
        QCOMPARE(window.Label1(96)->text(), QStringLiteral("€"));       // code 128
        QCOMPARE(window.Label1(223)->text(), QStringLiteral("ÿ"));      // code 255
        QCOMPARE(window.Label1(0x81 - 32)->text(), QString(QChar(0x81))); // undefined in the code page
        QCOMPARE(borderedCells(window), 0);
    }

    void theListHoldsCodes33To252()
    {
        charmap window;
        window.show();
        QCOMPARE(window.List1->count(), 220);
        QCOMPARE(window.List1->item(0)->text(), QStringLiteral("   !"));
        QCOMPARE(window.List1->item(128 - 33)->text(), QStringLiteral("   €"));
        QCOMPARE(window.List1->item(219)->text(), QStringLiteral("   ü")); // 252, not 255
        for (int i = 0; i < 220; ++i) {
            QCOMPARE(window.List1->item(i)->text().left(3), QStringLiteral("   "));
            QCOMPARE(window.List1->item(i)->text().size(), 4);
        }
    }

    void movingOverCode65()
    {
        charmap window;
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QTest::mouseMove(window.Label1(65 - 32), middle(window.Label1(65 - 32)));
        QTRY_COMPARE(window.Label5->text(), QStringLiteral("65"));
        QCOMPARE(window.Label3->text(), QStringLiteral("A"));
        QCOMPARE(window.Label6->text(), QStringLiteral("41"));
        QCOMPARE(window.Label8->text(), QStringLiteral("101"));
        QCOMPARE(window.Label11->text(), QStringLiteral("01000001"));
        QCOMPARE(window.HighlightedCell(), 33);
    }

    void movingOverTheSpaceCell()
    {
        charmap window;
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QTest::mouseMove(window.Label1(5), middle(window.Label1(5)));
        QTest::mouseMove(window.Label1(0), middle(window.Label1(0)));
        QTRY_COMPARE(window.Label5->text(), QStringLiteral("32"));
        QCOMPARE(window.Label3->text(), QStringLiteral(" "));
        QCOMPARE(window.Label6->text(), QStringLiteral("20"));
        QCOMPARE(window.Label8->text(), QStringLiteral("40"));
        QCOMPARE(window.Label11->text(), QStringLiteral("00100000"));
    }

    void theHighCodes()
    {
        charmap window;
        window.show();
        window.Label1_MouseMove(223);
        QCOMPARE(window.Label5->text(), QStringLiteral("255"));
        QCOMPARE(window.Label6->text(), QStringLiteral("FF"));
        QCOMPARE(window.Label8->text(), QStringLiteral("377"));
        QCOMPARE(window.Label11->text(), QStringLiteral("11111111"));
        window.Label1_MouseMove(96);
        QCOMPARE(window.Label3->text(), QStringLiteral("€"));
        QCOMPARE(window.Label5->text(), QStringLiteral("128"));
        QCOMPARE(window.Label6->text(), QStringLiteral("80"));
        QCOMPARE(window.Label11->text(), QStringLiteral("10000000"));
    }

    void exactlyOneBorderedCellAfterMovingAcrossSeveral()
    {
        charmap window;
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        for (int i : {0, 1, 17, 40, 223, 100, 99}) {
            QTest::mouseMove(window.Label1(i), middle(window.Label1(i)));
            QTRY_COMPARE(window.HighlightedCell(), i);
            QCOMPARE(borderedCells(window), 1);
            QCOMPARE(window.Label1(i)->frameShape(), QFrame::Box);
            QCOMPARE(window.Label1(i)->lineWidth(), 1);
        }
        // Back over the same cell: still one.
        QTest::mouseMove(window.Label1(99), middle(window.Label1(99)) + QPoint(1, 1));
        QCOMPARE(borderedCells(window), 1);
    }

    void clickingAListEntryShowsItsCodesButLeavesTheBorders()
    {
        charmap window;
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        window.Label1_MouseMove(10);
        QListWidgetItem* euro = window.List1->item(128 - 33);
        window.List1->scrollToItem(euro);
        QTest::mouseClick(window.List1->viewport(), Qt::LeftButton, {}, window.List1->visualItemRect(euro).center());
        QCOMPARE(window.List1->currentItem(), euro);
        QCOMPARE(window.Label3->text(), QStringLiteral("€"));
        QCOMPARE(window.Label5->text(), QStringLiteral("128"));
        QCOMPARE(window.Label6->text(), QStringLiteral("80"));
        QCOMPARE(window.Label8->text(), QStringLiteral("200"));
        QCOMPARE(window.Label11->text(), QStringLiteral("10000000"));
        QCOMPARE(window.HighlightedCell(), 10);
        QCOMPARE(borderedCells(window), 1);
        QVERIFY(window.Label1(10)->frameShape() != QFrame::NoFrame);
    }

    void copyingTheShownCharacter()
    {
        charmap window;
        window.show();
        QGuiApplication::clipboard()->setText(QStringLiteral("avant"));
        window.Label1_MouseMove(65 - 32);
        QTest::mouseClick(window.Command2, Qt::LeftButton);
        QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("A"));
    }

    void doubleClickingACellCopiesTheShownCharacter()
    {
        charmap window;
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QTest::mouseMove(window.Label1(96), middle(window.Label1(96)));
        QTRY_COMPARE(window.HighlightedCell(), 96);
        QTest::mouseDClick(window.Label1(96), Qt::LeftButton, {}, middle(window.Label1(96)));
        QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("€"));
        // It copies what Label3 shows, which a list click may have changed since.
        window.List1->setCurrentRow(0);
        window.List1_Click();
        window.Label1_DblClick(96);
        QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("!"));
    }

    void doubleClickingAListEntryCopiesTheCharacterWithoutBlanks()
    {
        charmap window;
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QListWidgetItem* oe = window.List1->item(0x9C - 33);
        window.List1->scrollToItem(oe);
        // A real double click: the first click, then the second one.
        QTest::mouseClick(window.List1->viewport(), Qt::LeftButton, {}, window.List1->visualItemRect(oe).center());
        QTest::mouseDClick(window.List1->viewport(), Qt::LeftButton, {}, window.List1->visualItemRect(oe).center());
        QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("œ"));
        // Only blanks are removed: the no-break space of code 160 is copied.
        window.List1->setCurrentRow(160 - 33);
        window.List1_DblClick();
        QCOMPARE(QGuiApplication::clipboard()->text(), QString(QChar(0x00A0)));
    }

    void quitting()
    {
        charmap window;
        window.show();
        QVERIFY(window.isVisible());
        QTest::mouseClick(window.Command1, Qt::LeftButton);
        QVERIFY(!window.isVisible());
    }

    void theMenuOpensItOnTheSelectedFont()
    {
        tglyphora main;
        main.show();
        QVERIFY(main.List1->topLevelItemCount() > 2);
        QTreeWidgetItem* chosen = main.List1->topLevelItem(2);
        main.List1->setCurrentItem(chosen);
        debut::CurrentFaceName = QStringLiteral("autre chose");
        QString shownFace, listFace, title;
        bool modal = false;
        TestSupport::whenModal([&](QWidget* widget) {
            if (auto* window = qobject_cast<charmap*>(widget)) {
                title = window->windowTitle();
                shownFace = window->Label13->text();
                listFace = window->List1->font().family();
                modal = window->isModal();
                window->Command1->click();
            }
        });
        main.findChild<QAction*>(QStringLiteral("mautretable"))->trigger();
        QCOMPARE(title, QStringLiteral("Une autre table de caractères"));
        QCOMPARE(shownFace, chosen->text(0));
        QCOMPARE(listFace, chosen->text(0));
        QVERIFY(modal);
        QCOMPARE(debut::CurrentFaceName, chosen->text(0));
    }

    void theMenuWithoutASelectedFontFailsAtRunTime()
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
    QTimer::singleShot(0, &main, [&main] { main.findChild<QAction*>(QStringLiteral("mautretable"))->trigger(); });
    return QApplication::exec();
}

int main(int argc, char** argv)
{
    TestSupport::registerScenario(QStringLiteral("noSelection"), noSelection);
    TestCharmap test;
    return glyphoraTestMain(argc, argv, &test);
}
#include "test_charmap.moc"
