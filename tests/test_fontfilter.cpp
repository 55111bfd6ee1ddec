// The font list's filter panel, favourites, names in their own font and a list that
// follows installs, driving the real main window on a private font configuration.
#include "app/debut.h"
#include "app/tglyphora.h"
#include "browser/familyindex.h"
#include "browser/fontlistfilter.h"
#include "browser/fontnamedelegate.h"
#include "browser/fontwatch.h"
#include "browser/namerenderer.h"
#include "browser/samplebox.h"
#include "browser/writingsystems.h"
#include "support/modalscript.h"
#include "support/privatefonts.h"
#include "support/sfntwriter.h"
#include "support/testsupport.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QFontDatabase>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QTemporaryDir>
#include <QTimer>
#include <QTreeWidget>

namespace {

struct InkBox {
    int top = -1;
    int bottom = -1;
    int pixels = 0;
};

// Rows holding ink in an 8-bit alpha mask, and how many pixels are inked.
InkBox inkBox(const QImage& mask)
{
    InkBox box;
    for (int y = 0; y < mask.height(); ++y) {
        const uchar* line = mask.constScanLine(y);
        for (int x = 0; x < mask.width(); ++x) {
            if (line[x] > 64) {
                ++box.pixels;
                if (box.top < 0)
                    box.top = y;
                box.bottom = y;
            }
        }
    }
    return box;
}

FontListFilter* panel(tglyphora& w) { return w.findChild<FontListFilter*>(QStringLiteral("FontListFilter")); }
QLineEdit* box(tglyphora& w) { return w.findChild<QLineEdit*>(QStringLiteral("txtFiltre")); }
QLabel* count(tglyphora& w) { return w.findChild<QLabel*>(QStringLiteral("lblCompte")); }
QAction* action(tglyphora& w, const QString& name) { return w.findChild<QAction*>(name); }

QStringList visibleNames(const QTreeWidget* list)
{
    QStringList names;
    for (int i = 0; i < list->topLevelItemCount(); ++i) {
        if (!list->topLevelItem(i)->isHidden())
            names.append(list->topLevelItem(i)->text(0));
    }
    return names;
}

QStringList allNames(const QTreeWidget* list)
{
    QStringList names;
    for (int i = 0; i < list->topLevelItemCount(); ++i)
        names.append(list->topLevelItem(i)->text(0));
    return names;
}

QTreeWidgetItem* itemNamed(const QTreeWidget* list, const QString& name)
{
    for (int i = 0; i < list->topLevelItemCount(); ++i) {
        if (list->topLevelItem(i)->text(0) == name)
            return list->topLevelItem(i);
    }
    return nullptr;
}

void typeFilter(tglyphora& w, const QString& text)
{
    box(w)->clear();
    // Typed key by key; letters beyond ASCII come as the text of a key event.
    for (QChar c : text) {
        if (c.unicode() < 0x80)
            QTest::keyClick(box(w), c.toLatin1());
        else
            QTest::sendKeyEvent(QTest::Click, box(w), Qt::Key_unknown, QString(c), Qt::NoModifier);
    }
}

// Sets a combo box as a user would and waits until the list has been filtered.
void choose(tglyphora& w, const char* name, int index)
{
    auto* combo = w.findChild<QComboBox*>(QString::fromLatin1(name));
    combo->setCurrentIndex(index);
    QVERIFY(TestSupport::waitFor([&] { return panel(w)->index() && !count(w)->text().contains(QStringLiteral("Analyse")); }));
}

QString kaku()
{
    return PrivateFonts::fcFamilies(QStringLiteral(":family=") + PrivateFonts::japaneseName()).value(0);
}

} // namespace

class TestFontFilter : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { TestSupport::clearSettings(); }

    void menuAndControls()
    {
        tglyphora w;
        w.show();
        QStringList items;
        for (QAction* a : w.findChild<QMenu*>(QStringLiteral("mnupol"))->actions())
            items.append(a->objectName() + QLatin1Char('=') + (a->isSeparator() ? QStringLiteral("-") : a->text()));
        QCOMPARE(items, (QStringList{QStringLiteral("ElemPol_0=police"), QStringLiteral("msep4=-"),
                                     QStringLiteral("mactualiser=Actualiser la liste des polices"),
                                     QStringLiteral("mapercu=Afficher les noms dans leur police"),
                                     QStringLiteral("mfavori=Ajouter aux favoris"), QStringLiteral("msep5=-")}));
        QCOMPARE(action(w, QStringLiteral("mactualiser"))->shortcut(), QKeySequence(Qt::Key_F5));
        QCOMPARE(action(w, QStringLiteral("mfavori"))->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_D));
        QVERIFY(action(w, QStringLiteral("mapercu"))->isCheckable());
        QVERIFY(!action(w, QStringLiteral("mapercu"))->isChecked());
        QCOMPARE(box(w)->placeholderText(), QStringLiteral("Rechercher une police (Ctrl+F)"));
        QStringList genres;
        auto* genre = w.findChild<QComboBox*>(QStringLiteral("cboGenre"));
        for (int i = 0; i < genre->count(); ++i)
            genres.append(genre->itemText(i));
        QCOMPARE(genres, (QStringList{QStringLiteral("Toutes"), QStringLiteral("Avec empattements"), QStringLiteral("Sans empattements"),
                                      QStringLiteral("Chasse fixe"), QStringLiteral("Manuscrites"), QStringLiteral("Décoratives"),
                                      QStringLiteral("Symboles")}));
        QCOMPARE(w.findChild<QComboBox*>(QStringLiteral("cboEcriture"))->itemText(0), QStringLiteral("Toutes les écritures"));
        QCOMPARE(w.findChild<QCheckBox*>(QStringLiteral("chkFavoris"))->text(), QStringLiteral("Favoris seulement"));
        QVERIFY(!w.findChild<QCheckBox*>(QStringLiteral("chkFavoris"))->isChecked());
        QCOMPARE(count(w)->text(), QStringLiteral("%1 polices").arg(w.List1->topLevelItemCount()));
        QCOMPARE(allNames(w.List1).size(), PrivateFonts::fcFamilies().size());
    }

    void wordsCaseAccentsAndOtherNames()
    {
        tglyphora w;
        w.show();
        const int total = w.List1->topLevelItemCount();
        typeFilter(w, QStringLiteral("dejavu"));
        QStringList dejavu = visibleNames(w.List1);
        QVERIFY(dejavu.size() >= 2);
        for (const QString& name : dejavu)
            QVERIFY(name.startsWith(QStringLiteral("DejaVu")));
        QCOMPARE(count(w)->text(), QStringLiteral("%1 sur %2").arg(dejavu.size()).arg(total));
        QCOMPARE(w.List1->topLevelItemCount(), total); // hidden, not removed
        typeFilter(w, QStringLiteral("sans mono dejavu"));
        QCOMPARE(visibleNames(w.List1), QStringList{QStringLiteral("DejaVu Sans Mono")});
        typeFilter(w, QStringLiteral("DEJAVU  sans  Mono"));
        QCOMPARE(visibleNames(w.List1), QStringList{QStringLiteral("DejaVu Sans Mono")});
        typeFilter(w, QStringLiteral("eclat"));
        QCOMPARE(visibleNames(w.List1), QStringList{PrivateFonts::accentedFamily()});
        typeFilter(w, QStringLiteral("é"));
        QVERIFY(visibleNames(w.List1).contains(PrivateFonts::accentedFamily()));
        QVERIFY(visibleNames(w.List1).contains(PrivateFonts::serifFamily())); // "e" of "Serif"
        // The family answers to its Japanese name and to its English one, and the list
        // shows the name it always shows.
        QVERIFY(TestSupport::waitFor([&] { return panel(w)->index() != nullptr; }));
        typeFilter(w, QStringLiteral("グリフテスト"));
        QCOMPARE(visibleNames(w.List1), QStringList{kaku()});
        typeFilter(w, QStringLiteral("kaku GLYPHTEST"));
        QCOMPARE(visibleNames(w.List1), QStringList{kaku()});
        box(w)->clear();
        QCOMPARE(visibleNames(w.List1).size(), total);
        QCOMPARE(count(w)->text(), QStringLiteral("%1 polices").arg(total));
    }

    void ctrlFEscAndDown()
    {
        tglyphora w;
        w.show();
        w.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&w));
        w.Text1->setFocus();
        QTest::keyClick(w.Text1, Qt::Key_F, Qt::ControlModifier);
        QVERIFY(box(w)->hasFocus());
        QTest::keyClicks(box(w), QStringLiteral("serif"));
        QVERIFY(visibleNames(w.List1).size() < w.List1->topLevelItemCount());
        QTest::keyClick(box(w), Qt::Key_Escape);
        QVERIFY(box(w)->text().isEmpty());
        QCOMPARE(visibleNames(w.List1).size(), w.List1->topLevelItemCount());
        QTest::keyClicks(box(w), QStringLiteral("glyphtest"));
        QTest::keyClick(box(w), Qt::Key_Down);
        QVERIFY(w.List1->hasFocus());
        QVERIFY(!w.List1->currentItem()->isHidden());
    }

    void navigationSkipsHiddenRows()
    {
        tglyphora w;
        w.show();
        w.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&w));
        typeFilter(w, QStringLiteral("glyphtest"));
        const QStringList visible = visibleNames(w.List1);
        QVERIFY(visible.size() >= 5);
        QVERIFY(visible.size() < w.List1->topLevelItemCount());
        QCOMPARE(w.List1->currentItem()->text(0), visible.first());
        w.List1->setFocus();
        QTest::keyClick(w.List1, Qt::Key_Down);
        QCOMPARE(debut::CurrentFaceName, visible[1]);
        QCOMPARE(w.Panel(4)->text(), QStringLiteral("2"));
        QTest::keyClick(w.List1, Qt::Key_End);
        QCOMPARE(debut::CurrentFaceName, visible.last());
        QCOMPARE(w.Panel(4)->text(), QString::number(visible.size()));
        QTest::keyClick(w.List1, Qt::Key_Up);
        QCOMPARE(debut::CurrentFaceName, visible[visible.size() - 2]);
        QTest::keyClick(w.List1, Qt::Key_Home);
        QCOMPARE(debut::CurrentFaceName, visible.first());
        QCOMPARE(w.Panel(4)->text(), QStringLiteral("1"));
        QTest::keyClick(w.List1, Qt::Key_PageDown);
        QVERIFY(visible.contains(debut::CurrentFaceName));
        QCOMPARE(w.Panel(4)->text(), QString::number(visible.indexOf(debut::CurrentFaceName) + 1));
        // A click on a visible row: Panel 4 counts the visible rows only.
        QTreeWidgetItem* third = itemNamed(w.List1, visible[2]);
        QTest::mouseClick(w.List1->viewport(), Qt::LeftButton, {}, w.List1->visualItemRect(third).center());
        QCOMPARE(debut::CurrentFaceName, visible[2]);
        QCOMPARE(w.Panel(4)->text(), QStringLiteral("3"));
        QVERIFY(w.List1->indexOfTopLevelItem(third) + 1 != 3 || visible.first() == allNames(w.List1).first());
    }

    void slideshowGoesThroughVisibleRows()
    {
        tglyphora w;
        w.show();
        typeFilter(w, QStringLiteral("glyphtest"));
        const QStringList visible = visibleNames(w.List1);
        TestSupport::whenModal([](QWidget* modal) {
            auto* input = qobject_cast<QInputDialog*>(modal);
            input->setTextValue(QStringLiteral("5"));
            input->accept();
        });
        w.mvisboucle_Click();
        QStringList shown;
        for (int tick = 0; tick < visible.size() + 2 && w.Timer1->isActive(); ++tick) {
            w.Timer1_Timer();
            if (w.Timer1->isActive())
                shown.append(debut::CurrentFaceName);
        }
        QVERIFY(!w.Timer1->isActive());
        QCOMPARE(shown, visible.mid(0, visible.size() - 1)); // the last one is never shown
    }

    void saveListWritesEveryFont()
    {
        tglyphora w;
        w.show();
        typeFilter(w, QStringLiteral("mono"));
        QVERIFY(visibleNames(w.List1).size() < w.List1->topLevelItemCount());
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("liste.txt"));
        ModalScript script({ModalScript::chooseFile(path)});
        w.mcreatefile_Click();
        QByteArray expected;
        for (const QString& name : allNames(w.List1))
            expected += name.toLatin1() + "\r\n";
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(), expected);
    }

    void selectionKeptMovedOrEmpty()
    {
        tglyphora w;
        w.show();
        QTreeWidgetItem* mono = itemNamed(w.List1, QStringLiteral("DejaVu Sans Mono"));
        w.List1->setCurrentItem(mono);
        w.List1_Click();
        typeFilter(w, QStringLiteral("mono"));
        QCOMPARE(w.List1->currentItem(), mono); // still visible: kept
        QCOMPARE(debut::CurrentFaceName, QStringLiteral("DejaVu Sans Mono"));
        QCOMPARE(w.Panel(4)->text(), QString::number(visibleNames(w.List1).indexOf(QStringLiteral("DejaVu Sans Mono")) + 1));
        typeFilter(w, QStringLiteral("glyphtest s"));
        const QStringList visible = visibleNames(w.List1);
        QCOMPARE(w.List1->currentItem()->text(0), visible.first()); // moved, then shown
        QVERIFY(TestSupport::waitFor([&] { return debut::CurrentFaceName == visible.first(); }));
        QCOMPARE(w.Text1->font().family(), visible.first());
        QCOMPARE(w.Panel(4)->text(), QStringLiteral("1"));
        const QString shownFace = debut::CurrentFaceName;
        box(w)->setText(QStringLiteral("aucune police ne porte ce nom"));
        QVERIFY(visibleNames(w.List1).isEmpty());
        QCOMPARE(count(w)->text(), QStringLiteral("0 sur %1").arg(w.List1->topLevelItemCount()));
        QVERIFY(w.List1->selectedItems().isEmpty());
        QCOMPARE(w.Panel(4)->text(), QString());
        QCOMPARE(w.Text1->font().family(), shownFace); // the samples stay as they were
        QCOMPARE(debut::CurrentFaceName, shownFace);
        box(w)->clear();
        QVERIFY(w.List1->currentItem());
        QVERIFY(TestSupport::waitFor([&] { return debut::CurrentFaceName == w.List1->currentItem()->text(0); }));
    }

    void kindsAndWritingSystems()
    {
        tglyphora w;
        w.show();
        choose(w, "cboGenre", 1); // Avec empattements
        QStringList serif = visibleNames(w.List1);
        QVERIFY(serif.contains(PrivateFonts::serifFamily()));
        QVERIFY(!serif.contains(PrivateFonts::sansFamily()));
        QVERIFY(!serif.contains(QStringLiteral("DejaVu Sans")));
        choose(w, "cboGenre", 3); // Chasse fixe
        QCOMPARE(visibleNames(w.List1), QStringList{QStringLiteral("DejaVu Sans Mono")});
        choose(w, "cboGenre", 4);
        QCOMPARE(visibleNames(w.List1), QStringList{PrivateFonts::scriptFamily()});
        choose(w, "cboGenre", 5);
        QCOMPARE(visibleNames(w.List1), QStringList{PrivateFonts::decorativeFamily()});
        choose(w, "cboGenre", 6);
        QCOMPARE(visibleNames(w.List1), QStringList{PrivateFonts::symbolFamily()});
        choose(w, "cboGenre", 2);
        QVERIFY(visibleNames(w.List1).contains(PrivateFonts::sansFamily()));
        // Combined with the filter box.
        typeFilter(w, QStringLiteral("glyphtest"));
        QVERIFY(visibleNames(w.List1).contains(PrivateFonts::sansFamily()));
        QVERIFY(!visibleNames(w.List1).contains(QStringLiteral("DejaVu Sans")));
        box(w)->clear();
        choose(w, "cboGenre", 0);

        // Every writing system offered, with the count fc-list gives on this configuration.
        auto* systems = w.findChild<QComboBox*>(QStringLiteral("cboEcriture"));
        QVERIFY(systems->count() > 2);
        for (int i = 1; i < systems->count(); ++i) {
            const WritingSystems::System& system = WritingSystems::all()[systems->itemData(i).toInt()];
            const QStringList expected = PrivateFonts::fcFamilies(QStringLiteral(":lang=") + QString::fromLatin1(system.language));
            QCOMPARE(systems->itemText(i), QStringLiteral("%1 (%2)").arg(system.name).arg(expected.size()));
            choose(w, "cboEcriture", i);
            QStringList shown = visibleNames(w.List1);
            shown.sort();
            QCOMPARE(shown, expected);
        }
        const int greek = systems->findData(WritingSystems::indexOf("el"));
        QVERIFY(greek > 0);
        QVERIFY(systems->itemText(greek).startsWith(QStringLiteral("Grec (")));
        QCOMPARE(systems->findData(WritingSystems::indexOf("ja")), -1); // no family writes Japanese here
    }

    void namesInTheirOwnFont()
    {
        {
            tglyphora w;
            w.resize(500, 600);
            w.show();
            const QImage plain = w.List1->viewport()->grab().toImage();
            QAction* preview = action(w, QStringLiteral("mapercu"));
            preview->trigger();
            QVERIFY(preview->isChecked());
            QCOMPARE(TestSupport::readSetting(QStringLiteral("Liste"), QStringLiteral("NomsDansLeurPolice")), QStringLiteral("1"));
            auto* delegate = qobject_cast<FontNameDelegate*>(w.List1->itemDelegate());
            QVERIFY(delegate);
            // Rows are drawn in the interface font until their images are ready.
            QVERIFY(TestSupport::waitFor([&] {
                w.List1->viewport()->repaint();
                return panel(w)->index() && delegate->renderer()->pendingCount() == 0 && delegate->waitingRows() == 0
                       && w.List1->viewport()->grab().toImage() != plain;
            }));
            const QImage withNames = w.List1->viewport()->grab().toImage();
            preview->trigger();
            QVERIFY(!w.List1->itemDelegate()->inherits("FontNameDelegate"));
            QCOMPARE(TestSupport::readSetting(QStringLiteral("Liste"), QStringLiteral("NomsDansLeurPolice")), QStringLiteral("0"));
            QVERIFY(w.List1->viewport()->grab().toImage() != withNames);
            preview->trigger();
        }
        tglyphora again;
        again.show();
        QVERIFY(action(again, QStringLiteral("mapercu"))->isChecked()); // saved
        QVERIFY(qobject_cast<FontNameDelegate*>(again.List1->itemDelegate()));
    }

    void symbolFontShowsItsNameAndASample()
    {
        tglyphora w;
        w.show();
        panel(w)->ensureIndex();
        QVERIFY(TestSupport::waitFor([&] { return panel(w)->index() != nullptr; }));
        const FamilyIndex::Family* symbol = panel(w)->index()->find(PrivateFonts::symbolFamily());
        QVERIFY(symbol && !symbol->drawsOwnName && !symbol->sample.isEmpty());
        const QFont ui = w.List1->font();
        const int height = 20;
        const QImage withSample = NameRenderer::render({symbol->name, false, symbol->sample}, ui, height, 1);
        const QImage nameOnly = NameRenderer::render({symbol->name, false, QString()}, ui, height, 1);
        // The name in the interface font, then the sample in the font itself.
        QVERIFY(withSample.width() > nameOnly.width());
        QCOMPARE(withSample.copy(0, 0, nameOnly.width() - 4, height), nameOnly.copy(0, 0, nameOnly.width() - 4, height));
        const QImage own = NameRenderer::render({QStringLiteral("DejaVu Serif"), true, QString()}, ui, height, 1);
        const QImage inUi = NameRenderer::render({QStringLiteral("DejaVu Serif"), false, QString()}, ui, height, 1);
        QVERIFY(own != inUi);
    }

    // Names are drawn from the regular face's file (HarfBuzz and FreeType, no Qt font
    // engine on the worker): the picture matches the one Qt draws from the same family,
    // on the same baseline, and the interface-font lead of a symbol font is unchanged.
    void namesDrawnFromTheFileMatchQt()
    {
        tglyphora w;
        w.show();
        panel(w)->ensureIndex();
        QVERIFY(TestSupport::waitFor([&] { return panel(w)->index() != nullptr; }));
        const QFont ui = w.List1->font();
        const int height = 20;
        const FamilyIndex::Family* serif = panel(w)->index()->find(QStringLiteral("DejaVu Serif"));
        QVERIFY(serif && serif->drawsOwnName && !serif->file.isEmpty());
        const QImage byQt = NameRenderer::render({serif->name, true, QString()}, ui, height, 1);
        const QImage byFile = NameRenderer::render({serif->name, true, QString(), serif->file, serif->faceIndex}, ui, height, 1);
        QVERIFY(byFile != byQt); // drawn apart, not through Qt
        QVERIFY(qAbs(byQt.width() - byFile.width()) <= 3);
        const InkBox qtInk = inkBox(byQt), fileInk = inkBox(byFile);
        QVERIFY(fileInk.pixels > 0);
        QVERIFY2(qAbs(qtInk.top - fileInk.top) <= 1 && qAbs(qtInk.bottom - fileInk.bottom) <= 1,
                 qPrintable(QStringLiteral("Qt %1-%2, file %3-%4").arg(qtInk.top).arg(qtInk.bottom).arg(fileInk.top).arg(fileInk.bottom)));
        QVERIFY(qAbs(qtInk.pixels - fileInk.pixels) * 4 <= qtInk.pixels);

        const FamilyIndex::Family* symbol = panel(w)->index()->find(PrivateFonts::symbolFamily());
        QVERIFY(symbol && !symbol->drawsOwnName && !symbol->file.isEmpty());
        const QImage nameOnly = NameRenderer::render({symbol->name, false, QString()}, ui, height, 1);
        const QImage withSample = NameRenderer::render({symbol->name, false, symbol->sample, symbol->file, symbol->faceIndex}, ui, height, 1);
        QVERIFY(withSample.width() > nameOnly.width());
        QCOMPARE(withSample.copy(0, 0, nameOnly.width() - 4, height), nameOnly.copy(0, 0, nameOnly.width() - 4, height));
        QVERIFY(inkBox(withSample.copy(nameOnly.width(), 0, withSample.width() - nameOnly.width(), height)).pixels > 0);

        // A file that cannot be read: the name is still drawn, through Qt.
        const QImage broken = NameRenderer::render({serif->name, true, QString(), QStringLiteral("/nonexistent/font.ttf"), 0}, ui, height, 1);
        QCOMPARE(broken, byQt);
    }

    void listFollowsInstalls()
    {
        tglyphora w;
        w.show();
        typeFilter(w, QStringLiteral("glyphtest"));
        QTreeWidgetItem* serif = itemNamed(w.List1, PrivateFonts::serifFamily());
        w.List1->setCurrentItem(serif);
        w.List1_Click();
        const QString added = QStringLiteral("Glyphtest Nouvelle");
        auto* watch = w.findChild<FontWatch*>(QStringLiteral("FontWatch"));
        QVERIFY(TestSupport::waitFor([&] { return !watch->watchedFolders().isEmpty(); }));
        QDir().mkpath(PrivateFonts::userFontsFolder());
        const QString file = PrivateFonts::userFontsFolder() + QStringLiteral("/nouvelle.ttf");
        QVERIFY(Sfnt::writeFile(file, PrivateFonts::fontOf(added, 0x0800)));
        QVERIFY(TestSupport::waitFor([&] { return itemNamed(w.List1, added) != nullptr; }, 15000));
        QVERIFY(QFontDatabase::hasFamily(added));
        QVERIFY(!itemNamed(w.List1, added)->isHidden()); // matches the filter in force
        QCOMPARE(box(w)->text(), QStringLiteral("glyphtest"));
        QCOMPARE(w.List1->currentItem()->text(0), PrivateFonts::serifFamily()); // selection kept
        QCOMPARE(w.Panel(5)->text(), QString::number(w.List1->topLevelItemCount()));
        QVERIFY(QFile::remove(file));
        QVERIFY(TestSupport::waitFor([&] { return itemNamed(w.List1, added) == nullptr; }, 15000));
        QCOMPARE(w.List1->currentItem()->text(0), PrivateFonts::serifFamily());

        // F5 reads the folders at once.
        QVERIFY(Sfnt::writeFile(file, PrivateFonts::fontOf(added, 0x0800)));
        action(w, QStringLiteral("mactualiser"))->trigger();
        QVERIFY(itemNamed(w.List1, added));
        QVERIFY(QFile::remove(file));
        action(w, QStringLiteral("mactualiser"))->trigger();
        QVERIFY(!itemNamed(w.List1, added));
    }

    void favourites()
    {
        TestSupport::writeSetting(QStringLiteral("Favoris"), QStringLiteral("Nombre"), QStringLiteral("1"));
        TestSupport::writeSetting(QStringLiteral("Favoris"), QStringLiteral("Police1"), QStringLiteral("Police désinstallée"));
        {
            tglyphora w;
            w.show();
            QVERIFY(!w.findChild<QAction*>(QStringLiteral("ElemPol_1"))); // not installed: not offered
            w.List1->setCurrentItem(itemNamed(w.List1, PrivateFonts::serifFamily()));
            w.List1_Click();
            QAction* toggle = action(w, QStringLiteral("mfavori"));
            QCOMPARE(toggle->text(), QStringLiteral("Ajouter aux favoris"));
            toggle->trigger();
            QCOMPARE(toggle->text(), QStringLiteral("Retirer des favoris"));
            w.List1->setCurrentItem(itemNamed(w.List1, QStringLiteral("DejaVu Sans Mono")));
            QCOMPARE(toggle->text(), QStringLiteral("Ajouter aux favoris"));
            w.activateWindow();
            QVERIFY(QTest::qWaitForWindowActive(&w));
            QTest::keyClick(w.List1, Qt::Key_D, Qt::ControlModifier);
            QCOMPARE(TestSupport::readSetting(QStringLiteral("Favoris"), QStringLiteral("Nombre")), QStringLiteral("3"));
            QCOMPARE(TestSupport::readSetting(QStringLiteral("Favoris"), QStringLiteral("Police1")), QStringLiteral("DejaVu Sans Mono"));
            QCOMPARE(TestSupport::readSetting(QStringLiteral("Favoris"), QStringLiteral("Police2")), QStringLiteral("Glyphtest Serif"));
            QCOMPARE(TestSupport::readSetting(QStringLiteral("Favoris"), QStringLiteral("Police3")), QStringLiteral("Police désinstallée"));
            QCOMPARE(action(w, QStringLiteral("ElemPol_1"))->text(), QStringLiteral("DejaVu Sans Mono"));
            QCOMPARE(action(w, QStringLiteral("ElemPol_2"))->text(), PrivateFonts::serifFamily());
            QVERIFY(!action(w, QStringLiteral("ElemPol_3")));
            QCOMPARE(action(w, QStringLiteral("ElemPol_0"))->text(), QStringLiteral("police"));
            // The menu shows the font as ElemPol does: the samples and every row of that name.
            action(w, QStringLiteral("ElemPol_2"))->trigger();
            QCOMPARE(debut::CurrentFaceName, PrivateFonts::serifFamily());
            QCOMPARE(w.Text2->font().family(), PrivateFonts::serifFamily());
            QVERIFY(itemNamed(w.List1, PrivateFonts::serifFamily())->isSelected());
            // Favourites only.
            w.findChild<QCheckBox*>(QStringLiteral("chkFavoris"))->setChecked(true);
            QCOMPARE(visibleNames(w.List1), (QStringList{QStringLiteral("DejaVu Sans Mono"), PrivateFonts::serifFamily()}));
            typeFilter(w, QStringLiteral("serif"));
            QCOMPARE(visibleNames(w.List1), QStringList{PrivateFonts::serifFamily()});
        }
        tglyphora again;
        again.show();
        QCOMPARE(action(again, QStringLiteral("ElemPol_1"))->text(), QStringLiteral("DejaVu Sans Mono"));
        QCOMPARE(action(again, QStringLiteral("ElemPol_2"))->text(), PrivateFonts::serifFamily());
        QVERIFY(!again.findChild<QCheckBox*>(QStringLiteral("chkFavoris"))->isChecked());
        QCOMPARE(TestSupport::readSetting(QStringLiteral("Favoris"), QStringLiteral("Police3")), QStringLiteral("Police désinstallée"));
    }
};

int main(int argc, char** argv)
{
    if (!PrivateFonts::prepare()) {
        std::fprintf(stderr, "cannot make the test fonts\n");
        return 1;
    }
    TestFontFilter test;
    return glyphoraTestMain(argc, argv, &test);
}
#include "test_fontfilter.moc"
