// The main window: menus, toolbar, status bar, the font list and its events.
#include "app/debut.h"
#include "app/tglyphora.h"
#include "browser/samplebox.h"
#include "components/ctlebsplitter.h"
#include "support/testsupport.h"

#include <QAction>
#include <QClipboard>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QStatusBar>
#include <QToolBar>
#include <QTreeWidget>

namespace {

QStringList listNames(const QTreeWidget* list)
{
    QStringList names;
    for (int i = 0; i < list->topLevelItemCount(); ++i)
        names.append(list->topLevelItem(i)->text(0));
    return names;
}

bool caseFoldedLess(const QString& a, const QString& b)
{
    const int folded = QString::compare(a, b, Qt::CaseInsensitive);
    return folded != 0 ? folded < 0 : QString::compare(a, b) < 0;
}

QString caption(const tglyphora& w, const char* name)
{
    auto* action = w.findChild<QAction*>(QString::fromLatin1(name));
    return action ? action->text() : QStringLiteral("<missing %1>").arg(QLatin1String(name));
}

// The program's own event loop, ended by "&Quitter": the unit chosen is not stored.
int quitScenario(bool withKeys)
{
    auto* w = new tglyphora;
    w->show();
    w->munit_Click(withKeys ? 4 : 1);
    QTimer::singleShot(0, w, [w, withKeys] {
        if (withKeys) {
            w->activateWindow();
            (void)QTest::qWaitForWindowActive(w);
            QTest::keyClick(w, Qt::Key_Q, Qt::ControlModifier);
        } else {
            w->findChild<QAction*>(QStringLiteral("Mquit"))->trigger();
        }
    });
    QTimer::singleShot(10000, [] { QCoreApplication::exit(5); });
    const int status = QApplication::exec();
    std::printf("%s\n", status == 0 ? "ended" : "still running");
    return status;
}

const bool scenariosRegistered = [] {
    TestSupport::registerScenario(QStringLiteral("quit-from-menu"), [] { return quitScenario(false); });
    TestSupport::registerScenario(QStringLiteral("quit-with-ctrl-q"), [] { return quitScenario(true); });
    return true;
}();

} // namespace

class TestMainWindow : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        TestSupport::clearSettings();
    }

    void menusCaptionsAndShortcuts()
    {
        tglyphora w;
        w.show();
        const QList<QMenu*> menus = {w.findChild<QMenu*>(QStringLiteral("mnupol")), w.findChild<QMenu*>(QStringLiteral("mdivers")),
                                     w.findChild<QMenu*>(QStringLiteral("medit")), w.findChild<QMenu*>(QStringLiteral("mhelp"))};
        QStringList titles;
        for (QAction* action : w.menuBar()->actions())
            titles.append(action->text());
        QCOMPARE(titles, (QStringList{QStringLiteral("&Polices"), QStringLiteral("&Divers"), QStringLiteral("&Edition"), QStringLiteral("&Outils"), QStringLiteral("&Aide")}));
        QVERIFY(w.findChild<QMenu*>(QStringLiteral("moutils")));
        for (QMenu* menu : menus)
            QVERIFY(menu);

        QCOMPARE(caption(w, "ElemPol_0"), QStringLiteral("police"));
        QStringList divers;
        for (QAction* action : menus[1]->actions())
            divers.append(action->isSeparator() ? QStringLiteral("-") : action->text());
        QCOMPARE(divers, (QStringList{
            QStringLiteral("Visualisation en &boucle"), QStringLiteral("&Table de caractères Windows..."),
            QStringLiteral("Une &autre table de caractères..."), QStringLiteral("&Imprimer une page de test..."),
            QStringLiteral("Sauvegarder la liste des polices vers un &fichier..."), QStringLiteral("Imprimer la &liste des polices"),
            QStringLiteral("&Ouvrir le répertoire des polices..."), QStringLiteral("&Désinstallation de polices"),
            QStringLiteral("Tester la police avec une &image de fond"), QStringLiteral("&Copier le nom dans le presse papiers"),
            QStringLiteral("Créer la commande HTML de sélection de la police"), QStringLiteral("Infos sur la police..."),
            QStringLiteral("Obtenir le nom des polices..."), QStringLiteral("Prévisualiser des polices non installées..."),
            QStringLiteral("-"), QStringLiteral("Unité de &mesure"), QStringLiteral("-"), QStringLiteral("Enregistrer les préférences"),
            QStringLiteral("-"), QStringLiteral("&Quitter")}));
        const char* names[] = {"mvisboucle", "mcharmap", "mautretable", "mpagtst", "mcreatefile", "mimpnames", "mopenfoldttf",
                               "mdesinst", "mimgfond", "mclipboard", "mHTML", "minfos", "mobtain", "mpreview", "msep1", "munite",
                               "msep2", "msavepref", "msep3", "Mquit"};
        for (int i = 0; i < menus[1]->actions().size(); ++i)
            QCOMPARE(menus[1]->actions()[i]->objectName(), QString::fromLatin1(names[i]));

        const QStringList units = {QStringLiteral("T&wip"), QStringLiteral("P&oint"), QStringLiteral("Pi&xel"), QStringLiteral("&Caractère"),
                                   QStringLiteral("Po&uce"), QStringLiteral("&Milimètre"), QStringLiteral("&Centimètre")};
        for (int i = 0; i < 7; ++i)
            QCOMPARE(caption(w, QStringLiteral("munit_%1").arg(i).toLatin1().constData()), units[i]);

        QStringList edit;
        for (QAction* action : menus[2]->actions())
            edit.append(action->isSeparator() ? action->objectName() : action->text());
        QCOMPARE(edit, (QStringList{QStringLiteral("Aligner à gauche"), QStringLiteral("Centrer"), QStringLiteral("Aligner à droite"),
                                    QStringLiteral("msep0"), QStringLiteral("Gras"), QStringLiteral("Italique"),
                                    QStringLiteral("Souligné"), QStringLiteral("Barré")}));
        QCOMPARE(caption(w, "mabout"), QStringLiteral("A propos de ..."));

        auto shortcut = [&](const char* name) { return w.findChild<QAction*>(QString::fromLatin1(name))->shortcut(); };
        QCOMPARE(shortcut("Mquit"), QKeySequence(Qt::CTRL | Qt::Key_Q));
        QCOMPARE(shortcut("mbold"), QKeySequence(Qt::CTRL | Qt::Key_B));
        QCOMPARE(shortcut("mital"), QKeySequence(Qt::CTRL | Qt::Key_I));
        QCOMPARE(shortcut("msoul"), QKeySequence(Qt::CTRL | Qt::Key_L));
        QCOMPARE(shortcut("mbar"), QKeySequence(Qt::CTRL | Qt::Key_A));
    }

    void toolbarHoverTexts()
    {
        tglyphora w;
        w.show();
        auto* toolbar = w.findChild<QToolBar*>(QStringLiteral("Toolbar1"));
        QVERIFY(toolbar);
        const QList<QAction*> actions = toolbar->actions();
        QCOMPARE(actions.size(), 21);
        const char* hover[21] = {
            "Ouvre le répertoire des polices", "Enregistre la liste des polices sur un fichier",
            "Créer la commande HTML de sélection de la police", "Propriétés de la police", "Imprimer une page de test",
            "Visualiser la police avec une image de fond", "", "Aligner à gauche", "Centrer", "Aligner à droite", "",
            "Gras", "Italique", "Souligné", "Barré", "", "Couleur de fond", "Couleur des caractères", "",
            "Taille de la police", "Aide"};
        for (int n = 1; n <= 21; ++n) {
            QAction* action = actions[n - 1];
            QCOMPARE(action->objectName(), QStringLiteral("Button%1").arg(n));
            QCOMPARE(action->toolTip().isEmpty() ? QString() : action->toolTip(), QString::fromUtf8(hover[n - 1]));
            const bool empty = n == 7 || n == 11 || n == 16 || n == 19;
            QCOMPARE(action->isSeparator(), empty);
            if (!empty && n != 20)
                QVERIFY2(!action->icon().isNull(), qPrintable(QStringLiteral("button %1 has no icon").arg(n)));
            QCOMPARE(action->isCheckable(), (n >= 8 && n <= 10) || (n >= 12 && n <= 15));
        }
        // The size box stands over place 20.
        QCOMPARE(toolbar->widgetForAction(actions[19]), static_cast<QWidget*>(w.Combo1));
        QCOMPARE(w.Combo1->toolTip(), QStringLiteral("Choisissez une taille ou appuyez sur + ou -"));
        // Icons render at 1x and 2x.
        QCOMPARE(actions[0]->icon().pixmap(QSize(20, 20), 2.0).deviceIndependentSize(), QSizeF(20, 20));
        QVERIFY(!actions[0]->icon().pixmap(QSize(40, 40)).toImage().isNull());
    }

    void alignmentButtonsAreExclusive()
    {
        tglyphora w;
        w.show();
        w.Button(8)->trigger();
        QCOMPARE(w.ButtonValue(8), 1);
        w.Button(9)->trigger();
        QCOMPARE(w.ButtonValue(8), 0);
        QCOMPARE(w.ButtonValue(9), 1);
        w.Button(10)->trigger();
        QCOMPARE(w.ButtonValue(8) + w.ButtonValue(9) + w.ButtonValue(10), 1);
    }

    void statusBarPanels()
    {
        tglyphora w;
        w.show();
        auto* bar = w.findChild<QStatusBar*>(QStringLiteral("état"));
        QVERIFY(bar);
        const char* hover[5] = {nullptr, "Largeur du texte en Millimètres", "Hauteur du texte en Millimètres",
                                "Numéro de la police dans la liste", "Nombre total de polices"};
        for (int n = 1; n <= 7; ++n)
            QVERIFY(bar->findChild<QLabel*>(QStringLiteral("Panel%1").arg(n)));
        for (int n = 2; n <= 5; ++n)
            QCOMPARE(w.Panel(n)->toolTip(), QString::fromUtf8(hover[n - 1]));
        // Panel 1's hover text names the printer once loaded.
        QCOMPARE(w.Panel(1)->toolTip(), QStringLiteral("Imprimante courante ") + w.CurrentPrinterName());
        QCOMPARE(w.CurrentPrinterName(), debut::CurrentPrinterName);
        const QLocale locale;
        QCOMPARE(w.Panel(6)->text(), locale.toString(QDate::currentDate(), QLocale::ShortFormat));
        QVERIFY(!w.Panel(7)->text().isEmpty());
    }

    void chargeFillsTheListAndTheSizeBox()
    {
        tglyphora w;
        w.show();
        QCOMPARE(w.Combo1->count(), 117);
        QCOMPARE(w.Combo1->itemText(0), QStringLiteral(" 4"));
        QCOMPARE(w.Combo1->itemText(116), QStringLiteral(" 120"));
        for (int i = 0; i < 117; ++i)
            QCOMPARE(w.Combo1->itemText(i), QStringLiteral(" %1").arg(i + 4));
        QCOMPARE(w.Combo1->currentText(), QStringLiteral(" 13"));
        QCOMPARE(w.Combo1->currentIndex(), 9);

        const int count = w.List1->topLevelItemCount();
        QVERIFY(count > 0);
        QCOMPARE(w.Panel(5)->text(), QString::number(count)); // the bare count
        QCOMPARE(w.List1->headerItem()->text(0), QStringLiteral("Nom de la police"));
        QCOMPARE(w.List1->columnCount(), 1);
        QVERIFY(w.List1->uniformRowHeights());
        QCOMPARE(w.List1->editTriggers(), QAbstractItemView::NoEditTriggers);
        int cancel = 0;
        w.List1_BeforeLabelEdit(cancel);
        QCOMPARE(cancel, 1);

        QCOMPARE(w.Text1->text(), QStringLiteral("ABCDEFGHIJKLMNOPQRSTUVWXYZ\r\nabcdefghijklmnopqrstuvwxyz\r\n0123456789\r\n"
                                                 "&é'(-è_çà)=+°~#{[|`\\^@]}\r\nâêûîôäëïöù\r\n,?;.:/!§%µ*"));
        QCOMPARE(w.Text2->text(), QStringLiteral("Texte d'essai"));
        // The first font is shown.
        const QString first = w.List1->topLevelItem(0)->text(0);
        QCOMPARE(w.List1->currentItem(), w.List1->topLevelItem(0));
        QCOMPARE(debut::CurrentFaceName, first);
        QCOMPARE(w.Panel(1)->text(), first);
        QCOMPARE(w.Panel(4)->text(), QStringLiteral("1"));
        QCOMPARE(w.Text1->font().family(), first);
        QCOMPARE(w.Text2->font().family(), first);
        QCOMPARE(w.Text1->font().pointSize(), 13);
        QVERIFY(w.widestNameWidth() > 0);
    }

    void listHoldsFontconfigsFamiliesSorted()
    {
        tglyphora w;
        w.show();
        QStringList names = listNames(w.List1);
        QVERIFY(std::is_sorted(names.begin(), names.end(), caseFoldedLess));
        QStringList expected = TestSupport::fcFamilies();
        std::sort(names.begin(), names.end());
        std::sort(expected.begin(), expected.end());
        QCOMPARE(names, expected);
        QCOMPARE(names.size(), QSet<QString>(names.begin(), names.end()).size());
    }

    void chargeAgainRebuildsTheList()
    {
        tglyphora w;
        w.show();
        const QStringList before = listNames(w.List1);
        w.Combo1->setCurrentIndex(30);
        w.Text2->setText(QStringLiteral("autre"));
        w.charge();
        QCOMPARE(listNames(w.List1), before);
        QCOMPARE(w.Combo1->currentText(), QStringLiteral(" 13"));
        QCOMPARE(w.Text2->text(), QStringLiteral("Texte d'essai"));
        QCOMPARE(w.Combo1->count(), 117);
    }

    void headerClicksToggleTheOrder()
    {
        tglyphora w;
        w.show();
        const QStringList ascending = listNames(w.List1);
        QVERIFY(ascending.size() > 1);
        QStringList descending = ascending;
        std::reverse(descending.begin(), descending.end());

        QHeaderView* header = w.List1->header();
        QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, QPoint(header->sectionViewportPosition(0) + 10, header->height() / 2));
        QCOMPARE(w.SortOrder(), 1);
        QCOMPARE(listNames(w.List1), descending);
        QCOMPARE(header->sortIndicatorOrder(), Qt::DescendingOrder);
        w.List1_ColumnClick(1);
        QCOMPARE(w.SortOrder(), 0);
        QCOMPARE(listNames(w.List1), ascending);
        QVERIFY(QApplication::overrideCursor() == nullptr); // the hourglass is gone
    }

    void clickShowsTheFont()
    {
        tglyphora w;
        w.show();
        QVERIFY(w.List1->topLevelItemCount() >= 3);
        QTreeWidgetItem* third = w.List1->topLevelItem(2);
        const QRect rect = w.List1->visualItemRect(third);
        QTest::mouseClick(w.List1->viewport(), Qt::LeftButton, {}, rect.center());
        QCOMPARE(debut::CurrentFaceName, third->text(0));
        QCOMPARE(w.Panel(1)->text(), third->text(0));
        QCOMPARE(w.Panel(4)->text(), QStringLiteral("3"));
        QCOMPARE(w.Text1->font().family(), third->text(0));
        QCOMPARE(w.Text2->font().family(), third->text(0));
        QCOMPARE(w.Picture1->font().family(), third->text(0));
    }

    void navigationKeysShowTheFontButNotLeftOrRight()
    {
        tglyphora w;
        w.show();
        w.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&w));
        w.List1->setFocus();
        QTest::keyClick(w.List1, Qt::Key_Down);
        QCOMPARE(w.Panel(4)->text(), QStringLiteral("2"));
        QCOMPARE(debut::CurrentFaceName, w.List1->topLevelItem(1)->text(0));
        QTest::keyClick(w.List1, Qt::Key_End);
        const int count = w.List1->topLevelItemCount();
        QCOMPARE(w.Panel(4)->text(), QString::number(count));
        QTest::keyClick(w.List1, Qt::Key_Home);
        QCOMPARE(w.Panel(4)->text(), QStringLiteral("1"));

        // Left and right never refresh the samples, even if the highlight moved.
        const QString shown = debut::CurrentFaceName;
        w.List1->setCurrentItem(w.List1->topLevelItem(1)); // highlight moves without a navigation key
        QTest::keyClick(w.List1, Qt::Key_Left);
        QTest::keyClick(w.List1, Qt::Key_Right);
        QCOMPARE(debut::CurrentFaceName, shown);
        QCOMPARE(w.Text2->font().family(), shown);
        QCOMPARE(w.Panel(4)->text(), QStringLiteral("1"));
        w.List1_KeyUp(37, 0);
        w.List1_KeyUp(39, 0);
        QCOMPARE(debut::CurrentFaceName, shown);
        w.List1_KeyUp(38, 0);
        QCOMPARE(debut::CurrentFaceName, w.List1->topLevelItem(1)->text(0));
    }

    void doubleClickCopiesTheName()
    {
        tglyphora w;
        w.show();
        QGuiApplication::clipboard()->setText(QStringLiteral("avant"));
        QTreeWidgetItem* second = w.List1->topLevelItem(1);
        const QPoint centre = w.List1->visualItemRect(second).center();
        QTest::mouseClick(w.List1->viewport(), Qt::LeftButton, {}, centre);
        QTest::mouseDClick(w.List1->viewport(), Qt::LeftButton, {}, centre);
        QCOMPARE(QGuiApplication::clipboard()->text(), second->text(0));
        // Its first click also showed the font.
        QCOMPARE(debut::CurrentFaceName, second->text(0));
    }

    void mclipboardCopiesTheSelectedName()
    {
        tglyphora w;
        w.show();
        w.List1->setCurrentItem(w.List1->topLevelItem(0));
        w.mclipboard_Click();
        QCOMPARE(QGuiApplication::clipboard()->text(), w.List1->topLevelItem(0)->text(0));
    }

    void rightClickOnTheListOpensDiversWithoutSelecting()
    {
        tglyphora w;
        w.show();
        QTreeWidgetItem* before = w.List1->currentItem();
        QTreeWidgetItem* other = w.List1->topLevelItem(3);
        const QPoint at = w.List1->visualItemRect(other).center();
        QTest::mouseClick(w.List1->viewport(), Qt::RightButton, {}, at);
        QMenu* divers = w.findChild<QMenu*>(QStringLiteral("mdivers"));
        QVERIFY(divers->isVisible());
        QVERIFY(qAbs(divers->pos().x() - w.List1->viewport()->mapToGlobal(at).x()) <= 2);
        QCOMPARE(w.List1->currentItem(), before);
        QCOMPARE(w.List1->selectedItems(), QList<QTreeWidgetItem*>{before});
        divers->close();
    }

    void rightClickOnTheWindowOpensTheSameMenu()
    {
        tglyphora w;
        w.show();
        QWidget* bar = w.ctlEBSplitter1->picSplitter();
        QTest::mouseClick(bar, Qt::RightButton, {}, QPoint(1, 20));
        QMenu* divers = w.findChild<QMenu*>(QStringLiteral("mdivers"));
        QVERIFY(divers->isVisible());
        divers->close();
        QVERIFY(!divers->isVisible());
        QTest::mouseClick(w.Toolbar1, Qt::RightButton, {}, QPoint(w.Toolbar1->width() - 3, w.Toolbar1->height() / 2));
        QVERIFY(divers->isVisible());
        divers->close();
    }

    void tinyOrMinimisedWindowRaisesNoError()
    {
        tglyphora w;
        w.show();
        w.resize(1, 1);
        QCoreApplication::processEvents();
        w.showMinimized();
        QCoreApplication::processEvents();
        w.showNormal();
        w.resize(800, 600);
        QCoreApplication::processEvents();
        QVERIFY(w.ctlEBSplitter1->width() > 0);
        // The outer splitter fills the space between the toolbar and the status bar.
        QCOMPARE(w.ctlEBSplitter1->geometry().top(), 0);
        QCOMPARE(w.ctlEBSplitter1->width(), w.centralWidget()->width());
        QCOMPARE(w.ctlEBSplitter1->height(), w.centralWidget()->height());
    }

    void ctrlBTogglesBoldLikeTheToolbarButton()
    {
        tglyphora w;
        w.show();
        w.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&w));
        w.List1->setFocus();
        QTest::keyClick(&w, Qt::Key_B, Qt::ControlModifier);
        QCOMPARE(w.ButtonValue(12), 1);
        QVERIFY(w.Text1->font().bold());
        QVERIFY(w.Text2->font().bold());
        w.Button(12)->trigger(); // the toolbar button releases it the same way
        QCOMPARE(w.ButtonValue(12), 0);
        QVERIFY(!w.Text1->font().bold());
        w.Button(12)->trigger();
        QCOMPARE(w.ButtonValue(12), 1);
        QVERIFY(w.Text2->font().bold());
        QTest::keyClick(&w, Qt::Key_B, Qt::ControlModifier);
        QCOMPARE(w.ButtonValue(12), 0);
        QVERIFY(!w.Text2->font().bold());
    }

    void closingStopsTheSlideshowAndStoresTheUnit()
    {
        auto* w = new tglyphora;
        w->show();
        w->munit_Click(2);
        w->Timer1->start();
        QVERIFY(w->close());
        QVERIFY(!w->Timer1->isActive());
        QCOMPARE(TestSupport::readSetting(QStringLiteral("Param"), QStringLiteral("unite")), QStringLiteral("3"));
        delete w;
    }

    void quitEndsAtOnceWithoutStoringTheUnit()
    {
        const auto child = TestSupport::runScenario(QStringLiteral("quit-from-menu"));
        QCOMPARE(child.exitStatus, QProcess::NormalExit);
        QCOMPARE(child.exitCode, 0);
        QVERIFY2(child.out.contains(QStringLiteral("ended")), qPrintable(child.out + child.err));
        QVERIFY(!TestSupport::hasSetting(QStringLiteral("Param"), QStringLiteral("unite")));
    }

    void quitIsOnTheMenuWithCtrlQ()
    {
        const auto child = TestSupport::runScenario(QStringLiteral("quit-with-ctrl-q"));
        QCOMPARE(child.exitCode, 0);
        QVERIFY2(child.out.contains(QStringLiteral("ended")), qPrintable(child.out + child.err));
        QVERIFY(!TestSupport::hasSetting(QStringLiteral("Param"), QStringLiteral("unite")));
    }

    void quitOutsideAnEventLoopChangesNothing()
    {
        tglyphora w;
        w.show();
        w.munit_Click(1);
        w.Timer1->start();
        w.Mquit_Click();
        QVERIFY(!w.Timer1->isActive());
        QVERIFY(w.isVisible());
        QVERIFY(!TestSupport::hasSetting(QStringLiteral("Param"), QStringLiteral("unite")));
    }
};

GLYPHORA_TEST_MAIN(TestMainWindow)
#include "test_mainwindow.moc"
