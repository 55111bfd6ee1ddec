// Sample rendering: size, styles, alignment and colours acting on both sample boxes.
#include "app/tglyphora.h"
#include "browser/samplebox.h"
#include "support/testsupport.h"

#include <QAction>
#include <QColorDialog>
#include <QComboBox>
#include <QLabel>
#include <QClipboard>
#include <QMimeData>
#include <QTreeWidget>

namespace {

void keypad(QWidget* target, Qt::Key key)
{
    QTest::keyClick(target, key, Qt::KeypadModifier);
}

} // namespace

class TestSamples : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<tglyphora> w;

private Q_SLOTS:
    void init()
    {
        TestSupport::clearSettings();
        w = std::make_unique<tglyphora>();
        w->show();
        w->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(w.get()));
    }

    void cleanup() { w.reset(); }

    void sizeBoxSetsBothBoxes()
    {
        w->Combo1->setCurrentIndex(32); // " 36"
        QCOMPARE(w->Text1->font().pointSize(), 36);
        QCOMPARE(w->Text2->font().pointSize(), 36);
        w->Combo1->setCurrentIndex(-1); // nothing selected: nothing applied
        QCOMPARE(w->Text1->font().pointSize(), 36);
    }

    void keypadPlusAndMinusStepTheSize()
    {
        w->List1->setFocus();
        keypad(w->List1, Qt::Key_Plus);
        QCOMPARE(w->Combo1->currentText(), QStringLiteral(" 14"));
        QCOMPARE(w->Text2->font().pointSize(), 14);
        keypad(w->List1, Qt::Key_Minus);
        keypad(w->List1, Qt::Key_Minus);
        QCOMPARE(w->Combo1->currentText(), QStringLiteral(" 12"));
        QCOMPARE(w->Text1->font().pointSize(), 12);
        // The main keyboard's + and - do nothing.
        QTest::keyClick(w->List1, Qt::Key_Plus);
        QTest::keyClick(w->List1, Qt::Key_Minus);
        QCOMPARE(w->Combo1->currentText(), QStringLiteral(" 12"));
        // In the size box itself, the keypad keys work too.
        w->Combo1->setFocus();
        keypad(w->Combo1, Qt::Key_Plus);
        QCOMPARE(w->Combo1->currentText(), QStringLiteral(" 13"));
    }

    void sizeStopsAtBothEnds()
    {
        w->Combo1->setCurrentIndex(116);
        keypad(w->List1, Qt::Key_Plus);
        QCOMPARE(w->Combo1->currentText(), QStringLiteral(" 120"));
        QCOMPARE(w->Text1->font().pointSize(), 120);
        w->Combo1->setCurrentIndex(0);
        keypad(w->List1, Qt::Key_Minus);
        QCOMPARE(w->Combo1->currentText(), QStringLiteral(" 4"));
        QCOMPARE(w->Text2->font().pointSize(), 4);
    }

    void keypadPlusInASampleBoxIsTyped()
    {
        w->Text2->setFocus();
        w->Text2->moveCursor(QTextCursor::End);
        keypad(w->Text2, Qt::Key_Plus);
        QCOMPARE(w->Combo1->currentText(), QStringLiteral(" 13"));
        QCOMPARE(w->Text2->text(), QStringLiteral("Texte d'essai+"));
        w->Text1->setFocus();
        w->Text1->moveCursor(QTextCursor::End);
        keypad(w->Text1, Qt::Key_Minus);
        QCOMPARE(w->Combo1->currentText(), QStringLiteral(" 13"));
        QVERIFY(w->Text1->text().endsWith(QStringLiteral("%µ*-")));
    }

    void menuStylesToggleTheirButtons()
    {
        auto* gras = w->findChild<QAction*>(QStringLiteral("mbold"));
        gras->trigger();
        QCOMPARE(w->ButtonValue(12), 1);
        QVERIFY(w->Text1->font().bold() && w->Text2->font().bold());
        gras->trigger();
        QCOMPARE(w->ButtonValue(12), 0);
        QVERIFY(!w->Text1->font().bold() && !w->Text2->font().bold());

        w->findChild<QAction*>(QStringLiteral("mital"))->trigger();
        QCOMPARE(w->ButtonValue(13), 1);
        QVERIFY(w->Text1->font().italic() && w->Text2->font().italic());
        w->findChild<QAction*>(QStringLiteral("msoul"))->trigger();
        QCOMPARE(w->ButtonValue(14), 1);
        QVERIFY(w->Text1->font().underline() && w->Text2->font().underline());
        w->findChild<QAction*>(QStringLiteral("mbar"))->trigger();
        QCOMPARE(w->ButtonValue(15), 1);
        QVERIFY(w->Text1->font().strikeOut() && w->Text2->font().strikeOut());
    }

    void toolbarStyleButtonsKeepTheirState()
    {
        w->Button(13)->trigger();
        QCOMPARE(w->ButtonValue(13), 1);
        QVERIFY(w->Text1->font().italic());
        w->Button(14)->trigger();
        w->Button(15)->trigger();
        QVERIFY(w->Text2->font().underline() && w->Text2->font().strikeOut());
        w->Button(15)->trigger();
        QVERIFY(!w->Text2->font().strikeOut());
        // A new font keeps the styles of the buttons.
        QTreeWidgetItem* second = w->List1->topLevelItem(1);
        QTest::mouseClick(w->List1->viewport(), Qt::LeftButton, {}, w->List1->visualItemRect(second).center());
        QCOMPARE(w->Text1->font().family(), second->text(0));
        QVERIFY(w->Text1->font().italic() && w->Text1->font().underline() && !w->Text1->font().strikeOut());
    }

    void shortcutsWinOverTheSampleBox()
    {
        w->Text1->setFocus();
        QTest::keyClick(w->Text1, Qt::Key_A, Qt::ControlModifier);
        QCOMPARE(w->ButtonValue(15), 1);
        QVERIFY(w->Text1->font().strikeOut());
        QVERIFY(!w->Text1->textCursor().hasSelection()); // not "select all"
        QTest::keyClick(w->Text1, Qt::Key_I, Qt::ControlModifier);
        QCOMPARE(w->ButtonValue(13), 1);
        QTest::keyClick(w->Text2, Qt::Key_L, Qt::ControlModifier);
        QCOMPARE(w->ButtonValue(14), 1);
        QTest::keyClick(w->Text2, Qt::Key_B, Qt::ControlModifier);
        QCOMPARE(w->ButtonValue(12), 1);
        QVERIFY(w->Text2->font().bold() && w->Text2->font().underline() && w->Text2->font().italic());
    }

    void alignmentActsOnBothBoxes()
    {
        w->Button(9)->trigger();
        QCOMPARE(w->Text1->alignment(), 2);
        QCOMPARE(w->Text2->alignment(), 2);
        QCOMPARE(w->Text1->document()->defaultTextOption().alignment(), Qt::AlignHCenter);
        w->Button(10)->trigger();
        QCOMPARE(w->Text1->alignment(), 1);
        QCOMPARE(w->Text2->document()->defaultTextOption().alignment(), Qt::AlignRight);
        w->findChild<QAction*>(QStringLiteral("malgauche"))->trigger();
        QCOMPARE(w->Text2->alignment(), 0);
        w->findChild<QAction*>(QStringLiteral("malcentre"))->trigger();
        QCOMPARE(w->Text1->alignment(), 2);
        w->findChild<QAction*>(QStringLiteral("maldrote"))->trigger();
        QCOMPARE(w->Text1->alignment(), 1);
        QCOMPARE(w->Text2->alignment(), 1);
    }

    void alignmentDoesNotMeasureButSizeAndStylesDo()
    {
        w->Panel(2)->setText(QStringLiteral("marque"));
        w->Panel(3)->setText(QStringLiteral("marque"));
        w->Button(9)->trigger();
        w->findChild<QAction*>(QStringLiteral("maldrote"))->trigger();
        QCOMPARE(w->Panel(2)->text(), QStringLiteral("marque"));
        QCOMPARE(w->Panel(3)->text(), QStringLiteral("marque"));
        w->Combo1->setCurrentIndex(20);
        QVERIFY(w->Panel(2)->text() != QStringLiteral("marque"));
        for (int button : {12, 13, 14, 15}) {
            w->Panel(2)->setText(QStringLiteral("marque"));
            w->Panel(3)->setText(QStringLiteral("marque"));
            w->Button(button)->trigger();
            QVERIFY(w->Panel(2)->text() != QStringLiteral("marque"));
            QVERIFY(w->Panel(3)->text() != QStringLiteral("marque"));
        }
    }

    void cancelledColourDialogsChangeNothing()
    {
        w->Text1->setForeColor(QColor(10, 20, 30));
        w->Text2->setForeColor(QColor(10, 20, 30));
        for (int button : {17, 18}) {
            TestSupport::whenModal([](QWidget* modal) { qobject_cast<QColorDialog*>(modal)->reject(); });
            w->Toolbar1_ButtonClick(button);
            QCOMPARE(w->Text1->ForeColor(), QColor(10, 20, 30));
            QCOMPARE(w->Text2->ForeColor(), QColor(10, 20, 30));
            QCOMPARE(w->Text1->BackColor(), QColor(Qt::white));
            QCOMPARE(w->Text2->BackColor(), QColor(Qt::white));
        }
    }

    void backgroundColour()
    {
        w->Text1->setForeColor(QColor(10, 20, 30));
        w->Text2->setForeColor(QColor(10, 20, 30));
        TestSupport::whenModal([](QWidget* modal) {
            auto* dialog = qobject_cast<QColorDialog*>(modal);
            dialog->setCurrentColor(QColor(250, 240, 100));
            dialog->accept();
        });
        w->Button(17)->trigger();
        QCOMPARE(w->Text1->BackColor(), QColor(250, 240, 100));
        QCOMPARE(w->Text2->BackColor(), QColor(250, 240, 100));
        QCOMPARE(w->Text1->ForeColor(), QColor(10, 20, 30)); // the text colour is restored
        QCOMPARE(w->Text2->ForeColor(), QColor(10, 20, 30));
    }

    void textColour()
    {
        TestSupport::whenModal([](QWidget* modal) {
            auto* dialog = qobject_cast<QColorDialog*>(modal);
            dialog->setCurrentColor(QColor(200, 0, 50));
            dialog->accept();
        });
        w->Button(18)->trigger();
        QCOMPARE(w->Text1->ForeColor(), QColor(200, 0, 50));
        QCOMPARE(w->Text2->ForeColor(), QColor(200, 0, 50));
        QCOMPARE(w->Text1->BackColor(), QColor(Qt::white));
        QCOMPARE(w->Text2->BackColor(), QColor(Qt::white));
    }

    void tabsNeedCtrlTab()
    {
        QCOMPARE(w->Text2->toolTip(), QStringLiteral("Pour mettre des tabulations, appuyez sur Ctrl Tab"));
        w->Text2->setFocus();
        w->Text2->moveCursor(QTextCursor::End);
        QTest::keyClick(w->Text2, Qt::Key_Tab, Qt::ControlModifier);
        QCOMPARE(w->Text2->text(), QStringLiteral("Texte d'essai\t"));
        QTest::keyClick(w->Text2, Qt::Key_Tab);
        QCOMPARE(w->Text2->text(), QStringLiteral("Texte d'essai\t"));
        QVERIFY(!w->Text2->hasFocus());
    }

    void pastedRichTextStaysPlain()
    {
        auto* mime = new QMimeData;
        mime->setHtml(QStringLiteral("<b>gras</b> <i>penché</i>"));
        mime->setText(QStringLiteral("gras penché"));
        QGuiApplication::clipboard()->setMimeData(mime);
        w->Text2->clear();
        w->Text2->paste();
        QCOMPARE(w->Text2->text(), QStringLiteral("gras penché"));
    }

    void textsReadWithCrLf()
    {
        w->Text2->setFocus();
        w->Text2->moveCursor(QTextCursor::End);
        QTest::keyClick(w->Text2, Qt::Key_Return);
        QTest::keyClicks(w->Text2, QStringLiteral("suite"));
        QCOMPARE(w->Text2->text(), QStringLiteral("Texte d'essai\r\nsuite"));
    }
};

GLYPHORA_TEST_MAIN(TestSamples)
#include "test_samples.moc"
