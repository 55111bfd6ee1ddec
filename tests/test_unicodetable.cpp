// The Unicode character table window: opening from the "&Outils" menu on the selected
// font with its style, the grid of the face's own characters, the blocks and their
// counts, the holes, the search, the details panel, copying, the keyboard and the zoom.
#include "app/debut.h"
#include "app/tglyphora.h"
#include "samples/unicodegrid.h"
#include "samples/unicodetable.h"
#include "support/sfntwriter.h"
#include "support/testsupport.h"

#include <hb.h>

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QFontDatabase>
#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QSlider>
#include <QTemporaryDir>
#include <QTreeWidget>

namespace {

QString clipboard()
{
    return QGuiApplication::clipboard()->text();
}

QStringList blockEntries(const UnicodeTable& window)
{
    QStringList entries;
    for (int row = 0; row < window.lstBlocs->count(); ++row)
        entries << window.lstBlocs->item(row)->text();
    return entries;
}

int presentCells(const UnicodeGrid* grid)
{
    const auto& cells = grid->cells();
    return int(std::count_if(cells.begin(), cells.end(), [](const CharacterCell& c) { return c.present; }));
}

// Pixels inside a cell (its grid lines left out) that differ from the cell's own
// background, read at its corner: what a glyph drew there.
int inkIn(const QImage& image, const QRect& cell)
{
    int ink = 0;
    const QRect inside = cell.adjusted(3, 3, -3, -3);
    const int background = qGray(image.pixel(inside.topLeft()));
    for (int y = inside.top(); y <= inside.bottom(); ++y)
        for (int x = inside.left(); x <= inside.right(); ++x)
            if (std::abs(qGray(image.pixel(x, y)) - background) > 60)
                ++ink;
    return ink;
}

void typeText(QWidget* widget, const QString& text)
{
    QKeyEvent press(QEvent::KeyPress, Qt::Key_unknown, Qt::NoModifier, text);
    QApplication::sendEvent(widget, &press);
}

// The glyph and advance (font units) HarfBuzz finds in a face file.
struct HbGlyph {
    unsigned glyph = 0;
    int advance = 0;
};
HbGlyph harfBuzzGlyph(const FontSystem::FaceFile& face, char32_t code)
{
    hb_blob_t* blob = hb_blob_create_from_file(face.path.toLocal8Bit().constData());
    hb_face_t* hbFace = hb_face_create(blob, unsigned(face.index));
    hb_font_t* font = hb_font_create(hbFace);
    HbGlyph result;
    hb_codepoint_t glyph = 0;
    if (hb_font_get_nominal_glyph(font, code, &glyph)) {
        result.glyph = glyph;
        result.advance = hb_font_get_glyph_h_advance(font, glyph);
    }
    hb_font_destroy(font);
    hb_face_destroy(hbFace);
    hb_blob_destroy(blob);
    return result;
}

void search(UnicodeTable& window, const QString& text)
{
    window.txtCherche->setText(text);
    QVERIFY(TestSupport::waitFor([&] { return !window.searchPending(); }));
}

void selectCode(UnicodeTable& window, char32_t code)
{
    const int index = window.grdCaracteres->indexOfCode(code);
    QVERIFY2(index >= 0, qPrintable(QString::number(uint(code), 16)));
    window.grdCaracteres->setCurrentIndex(index);
    QCOMPARE(window.selectedCode().value_or(0), code);
}

} // namespace

class TestUnicodeTable : public QObject {
    Q_OBJECT
private:
    QTemporaryDir m_dir;

private Q_SLOTS:
    void initTestCase()
    {
        // A font with DejaVu Sans' outlines that maps exactly five code points.
        const QString path = m_dir.filePath(QStringLiteral("cinq.ttf"));
        const QByteArray base = Sfnt::drawable(Sfnt::familyNames(QStringLiteral("Glyphora Cinq")));
        QVERIFY(Sfnt::writeFile(path, Sfnt::withTable(base, "cmap", Sfnt::cmap({{0x41, 36}, {0x42, 37}, {0xE9, 38},
                                                                                  {0x20AC, 39}, {0x20B9, 40}}))));
        QVERIFY(QFontDatabase::addApplicationFont(path) >= 0);
    }

    void init()
    {
        TestSupport::clearSettings();
        debut::CurrentFaceName = QStringLiteral("DejaVu Sans");
    }

    void designTexts()
    {
        UnicodeTable window;
        QCOMPARE(window.objectName(), QStringLiteral("UnicodeTable"));
        QCOMPARE(window.windowTitle(), QStringLiteral("Table des caractères Unicode"));
        QCOMPARE(window.txtCherche->placeholderText(), QStringLiteral("Rechercher un caractère"));
        QCOMPARE(window.chkAbsents->text(), QStringLiteral("Afficher aussi les caractères absents"));
        QCOMPARE(window.chkHorsPolice->text(), QStringLiteral("Chercher aussi hors de la police"));
        QCOMPARE(window.cmdCopier->text(), QStringLiteral("&Copier"));
        QCOMPARE(window.sldZoom->minimum(), 24);
        QCOMPARE(window.sldZoom->maximum(), 96);
        QVERIFY(!window.chkAbsents->isChecked());
        QVERIFY(!window.chkHorsPolice->isChecked());
        for (const char* name : {"txtCherche", "chkHorsPolice", "chkAbsents", "sldZoom", "lstBlocs", "grdCaracteres",
                                 "fraDetails", "txtCollecte", "cmdCopier", "cmdAjouter", "cmdCopierCaractere",
                                 "cmdCopierCode", "cmdCopierNumerique", "cmdCopierEntite", "cmdCopierUtf8"})
            QVERIFY2(window.findChild<QWidget*>(QString::fromLatin1(name)), name);
        QCOMPARE(window.findChild<QFrame*>(QStringLiteral("fraDetails")), window.fraDetails);
    }

    void theMenuOpensItOnTheSelectedFontWithBold()
    {
        tglyphora main;
        main.show();
        auto* municode = main.findChild<QAction*>(QStringLiteral("municode"));
        QVERIFY(municode);
        QCOMPARE(municode->text(), QStringLiteral("Table des caractères &Unicode..."));
        QCOMPARE(municode->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_U));
        QCOMPARE(main.moutils->actions().value(0), municode);
        const auto found = main.List1->findItems(QStringLiteral("DejaVu Sans"), Qt::MatchExactly);
        QVERIFY(!found.isEmpty());
        main.List1->setCurrentItem(found.first());
        main.List1_Click();
        main.mbold_Click();
        QCOMPARE(main.ButtonValue(tglyphora::BoldButton), 1);

        debut::CurrentFaceName.clear();
        QString face, file, caption;
        bool bold = false, fontBold = false, modal = false;
        auto ran = TestSupport::whenModal([&](QWidget* widget) {
            auto* window = qobject_cast<UnicodeTable*>(widget);
            if (!window)
                return;
            modal = window->isModal();
            face = window->FaceName();
            bold = window->isBold();
            file = window->coverage().face().path;
            fontBold = window->grdCaracteres->faceFont().bold();
            caption = window->findChild<QLabel*>(QStringLiteral("lblPolice"))->text();
            QTest::keyClick(window->grdCaracteres, Qt::Key_Escape); // Esc closes the window
        });
        municode->trigger();
        QVERIFY(*ran);
        QVERIFY(modal);
        QCOMPARE(face, QStringLiteral("DejaVu Sans"));
        QVERIFY(bold);
        QVERIFY(fontBold);
        QVERIFY2(file.endsWith(QStringLiteral("DejaVuSans-Bold.ttf")), qPrintable(file));
        QCOMPARE(caption, QStringLiteral("Police : DejaVu Sans, gras"));
        QVERIFY(!QApplication::activeModalWidget());
    }

    void aFontOfFiveCodePoints()
    {
        debut::CurrentFaceName = QStringLiteral("Glyphora Cinq");
        UnicodeTable window;
        window.show();
        QCOMPARE(window.grdCaracteres->cellCount(), 5);
        QCOMPARE(presentCells(window.grdCaracteres), 5);
        QCOMPARE(blockEntries(window), (QStringList{QStringLiteral("U+0000 Latin de base 2/128"),
                                                   QStringLiteral("U+0080 Supplément Latin-1 1/128"),
                                                   QStringLiteral("U+20A0 Symboles monétaires 2/33")}));
        QCOMPARE(window.lblEtat->text(), QStringLiteral("5 caractères dans la police"));
        // Each of the five cells carries ink; the place of a sixth is empty.
        window.resize(1100, 700);
        QApplication::processEvents();
        const QImage image = window.grdCaracteres->viewport()->grab().toImage();
        for (int i = 0; i < 5; ++i)
            QVERIFY2(inkIn(image, window.grdCaracteres->cellRect(i)) > 20, qPrintable(QString::number(i)));
        QCOMPARE(inkIn(image, window.grdCaracteres->cellRect(5)), 0);
        // A click on a block brings its first character.
        window.lstBlocs->setCurrentRow(2);
        QCOMPARE(window.selectedCode().value_or(0), char32_t(0x20AC));
        window.grdCaracteres->setCurrentIndex(1);
        QCOMPARE(window.lstBlocs->currentRow(), 0);
    }

    void theMissingCharactersCheckbox()
    {
        debut::CurrentFaceName = QStringLiteral("Glyphora Cinq");
        UnicodeTable window;
        window.resize(1100, 700);
        window.show();
        QTest::mouseClick(window.chkAbsents, Qt::LeftButton);
        QVERIFY(window.chkAbsents->isChecked());
        QCOMPARE(window.grdCaracteres->cellCount(), 128 + 128 + 33);
        QCOMPARE(presentCells(window.grdCaracteres), 5);
        // The hole of "C" (U+0043) is an empty cell: no box, no other font's glyph.
        const int a = window.grdCaracteres->indexOfCode(0x41);
        const int c = window.grdCaracteres->indexOfCode(0x43);
        QVERIFY(!window.grdCaracteres->cells()[std::size_t(c)].present);
        window.grdCaracteres->setCurrentIndex(0);
        window.grdCaracteres->scrollToTop(a);
        QApplication::processEvents();
        const QImage image = window.grdCaracteres->viewport()->grab().toImage();
        QVERIFY(inkIn(image, window.grdCaracteres->cellRect(a)) > 20);
        QCOMPARE(inkIn(image, window.grdCaracteres->cellRect(c)), 0);
        QTest::mouseClick(window.chkAbsents, Qt::LeftButton);
        QCOMPARE(window.grdCaracteres->cellCount(), 5);
    }

    void supplementaryPlaneFont()
    {
        debut::CurrentFaceName = QStringLiteral("DejaVu Math TeX Gyre");
        UnicodeTable window;
        window.show();
        QVERIFY(window.grdCaracteres->indexOfCode(0x1D400) >= 0);
        QVERIFY(blockEntries(window).filter(QStringLiteral("U+1D400 Symboles mathématiques alphanumériques ")).size() == 1);
    }

    void detailsOfEAcute()
    {
        UnicodeTable window;
        window.show();
        selectCode(window, 0xE9);
        QCOMPARE(window.lblNom->text(), QStringLiteral("LATIN SMALL LETTER E WITH ACUTE"));
        QCOMPARE(window.lblCode->text(), QStringLiteral("U+00E9"));
        QCOMPARE(window.lblDecimal->text(), QStringLiteral("233"));
        QCOMPARE(window.lblUtf8->text(), QStringLiteral("C3 A9"));
        QCOMPARE(window.lblUtf16->text(), QStringLiteral("00E9"));
        QCOMPARE(window.lblEntite->text(), QStringLiteral("&eacute;"));
        QCOMPARE(window.lblBloc->text(), QStringLiteral("Supplément Latin-1"));
        QCOMPARE(window.lblEcriture->text(), QStringLiteral("Latine"));
        QCOMPARE(window.lblCategorie->text(), QStringLiteral("Lettre minuscule (Ll)"));
        const HbGlyph expected = harfBuzzGlyph(window.coverage().face(), 0xE9);
        QVERIFY(expected.glyph != 0);
        QCOMPARE(window.lblGlyphe->text(), QStringLiteral("n° %1").arg(expected.glyph));
        QCOMPARE(window.lblChasse->text(), QStringLiteral("%1 unités sur 2048 par cadratin").arg(expected.advance));
        QCOMPARE(window.findChild<CharacterPreview*>(QStringLiteral("picApercu"))->code().value_or(0), char32_t(0xE9));
    }

    void detailsOfMathematicalBoldCapitalA()
    {
        debut::CurrentFaceName = QStringLiteral("DejaVu Math TeX Gyre");
        UnicodeTable window;
        window.show();
        selectCode(window, 0x1D400);
        QCOMPARE(window.lblNom->text(), QStringLiteral("MATHEMATICAL BOLD CAPITAL A"));
        QCOMPARE(window.lblCode->text(), QStringLiteral("U+1D400"));
        QCOMPARE(window.lblDecimal->text(), QStringLiteral("119808"));
        QCOMPARE(window.lblUtf8->text(), QStringLiteral("F0 9D 90 80"));
        QCOMPARE(window.lblUtf16->text(), QStringLiteral("D835 DC00"));
        QCOMPARE(window.lblEntite->text(), QStringLiteral("&#119808;"));
        QCOMPARE(window.lblBloc->text(), QStringLiteral("Symboles mathématiques alphanumériques"));
        QCOMPARE(window.lblEcriture->text(), QStringLiteral("Commune"));
        QCOMPARE(window.lblCategorie->text(), QStringLiteral("Lettre majuscule (Lu)"));
        const HbGlyph expected = harfBuzzGlyph(window.coverage().face(), 0x1D400);
        QVERIFY(expected.glyph != 0);
        QCOMPARE(window.lblGlyphe->text(), QStringLiteral("n° %1").arg(expected.glyph));
        QVERIFY(window.lblChasse->text().startsWith(QString::number(expected.advance) + QStringLiteral(" unités sur ")));
        QVERIFY(!window.cmdCopierEntite->isEnabled()); // HTML has no name for it
    }

    void searchByNameWords()
    {
        UnicodeTable window;
        window.show();
        search(window, QStringLiteral("per mille"));
        QVERIFY(window.grdCaracteres->indexOfCode(0x2030) >= 0);
        search(window, QStringLiteral("greek small alpha tonos"));
        QCOMPARE(window.grdCaracteres->cellCount(), 1);
        QCOMPARE(window.selectedCode().value_or(0), char32_t(0x3AC));
        QCOMPARE(window.lblEtat->text(), QStringLiteral("1 caractère(s) trouvé(s)"));
        search(window, QStringLiteral("arrow"));
        const int inFont = window.grdCaracteres->cellCount();
        QVERIFY(inFont > 100);
        QCOMPARE(presentCells(window.grdCaracteres), inFont);
        QVERIFY(window.grdCaracteres->indexOfCode(0x2192) >= 0);
        // Also outside the font: more matches, the new ones as empty cells.
        QTest::mouseClick(window.chkHorsPolice, Qt::LeftButton);
        QVERIFY(window.grdCaracteres->cellCount() > inFont);
        QCOMPARE(presentCells(window.grdCaracteres), inFont);
        search(window, QStringLiteral("zzzqqq"));
        QCOMPARE(window.grdCaracteres->cellCount(), 0);
        QCOMPARE(window.lblEtat->text(), QStringLiteral("Aucun caractère trouvé"));
        QVERIFY(!window.cmdCopierCaractere->isEnabled());
        search(window, QString());
        QCOMPARE(window.grdCaracteres->cellCount(), int(window.coverage().codes().size()));
    }

    void searchByEveryCodeForm_data()
    {
        QTest::addColumn<QString>("text");
        for (const char* form : {"U+20AC", "20ac", "0x20AC", "&#8364;", "&#x20ac;", "&euro;", "\\xE2\\x82\\xAC", "€"})
            QTest::newRow(form) << QString::fromUtf8(form);
    }

    void searchByEveryCodeForm()
    {
        QFETCH(QString, text);
        UnicodeTable window;
        window.show();
        search(window, text);
        QCOMPARE(window.grdCaracteres->cellCount(), 1);
        QCOMPARE(window.selectedCode().value_or(0), char32_t(0x20AC));
    }

    void searchOutsideTheFont()
    {
        UnicodeTable window;
        window.show();
        search(window, QStringLiteral("U+1D400")); // DejaVu Sans has no MATHEMATICAL BOLD CAPITAL A
        QCOMPARE(window.grdCaracteres->cellCount(), 0);
        QTest::mouseClick(window.chkHorsPolice, Qt::LeftButton);
        QCOMPARE(window.grdCaracteres->cellCount(), 1);
        QVERIFY(!window.grdCaracteres->cells().front().present);
        QCOMPARE(window.lblNom->text(), QStringLiteral("MATHEMATICAL BOLD CAPITAL A"));
        QCOMPARE(window.lblGlyphe->text(), QStringLiteral("absent de la police"));
    }

    void copyFormats_data()
    {
        QTest::addColumn<QString>("face");
        QTest::addColumn<uint>("code");
        QTest::addColumn<QStringList>("copies"); // character, U+, numeric, named, UTF-8
        QTest::newRow("euro") << QStringLiteral("DejaVu Sans") << 0x20ACu
                              << QStringList{QStringLiteral("€"), QStringLiteral("U+20AC"), QStringLiteral("&#8364;"),
                                             QStringLiteral("&euro;"), QStringLiteral("\\xE2\\x82\\xAC")};
        QTest::newRow("e acute") << QStringLiteral("DejaVu Sans") << 0xE9u
                                 << QStringList{QStringLiteral("é"), QStringLiteral("U+00E9"), QStringLiteral("&#233;"),
                                                QStringLiteral("&eacute;"), QStringLiteral("\\xC3\\xA9")};
        QTest::newRow("less than") << QStringLiteral("DejaVu Sans") << 0x3Cu
                                   << QStringList{QStringLiteral("<"), QStringLiteral("U+003C"), QStringLiteral("&#60;"),
                                                  QStringLiteral("&lt;"), QStringLiteral("\\x3C")};
        QTest::newRow("bold A") << QStringLiteral("DejaVu Math TeX Gyre") << 0x1D400u
                                << QStringList{QString::fromUcs4(U"\U0001D400", 1), QStringLiteral("U+1D400"),
                                               QStringLiteral("&#119808;"), QString(),
                                               QStringLiteral("\\xF0\\x9D\\x90\\x80")};
    }

    void copyFormats()
    {
        QFETCH(QString, face);
        QFETCH(uint, code);
        QFETCH(QStringList, copies);
        debut::CurrentFaceName = face;
        UnicodeTable window;
        window.show();
        selectCode(window, char32_t(code));
        const QList<QPushButton*> buttons{window.cmdCopierCaractere, window.cmdCopierCode, window.cmdCopierNumerique,
                                          window.cmdCopierEntite, window.cmdCopierUtf8};
        for (int i = 0; i < buttons.size(); ++i) {
            if (copies[i].isEmpty())
                continue;
            QGuiApplication::clipboard()->clear();
            QTest::mouseClick(buttons[i], Qt::LeftButton);
            QCOMPARE(clipboard(), copies[i]);
        }
        // The buttons show what they copy.
        QCOMPARE(window.cmdCopierCode->text(), copies[1]);
        QCOMPARE(window.cmdCopierUtf8->text(), copies[4]);
        // Enter and a double click copy the character.
        QGuiApplication::clipboard()->clear();
        QTest::keyClick(window.grdCaracteres, Qt::Key_Return);
        QCOMPARE(clipboard(), copies[0]);
        QGuiApplication::clipboard()->clear();
        const QRect cell = window.grdCaracteres->cellRect(window.grdCaracteres->currentIndex());
        QTest::mouseDClick(window.grdCaracteres->viewport(), Qt::LeftButton, {}, cell.center());
        QCOMPARE(clipboard(), copies[0]);
    }

    void theContextMenuCopies()
    {
        UnicodeTable window;
        window.show();
        selectCode(window, 0x20AC);
        QStringList texts;
        QTimer::singleShot(50, [&] {
            auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            if (!menu)
                return;
            for (QAction* action : menu->actions())
                texts << action->text();
            menu->findChild<QAction*>(QStringLiteral("mcopierentite"))->trigger();
            menu->close();
        });
        QGuiApplication::clipboard()->clear();
        const QRect cell = window.grdCaracteres->cellRect(window.grdCaracteres->currentIndex());
        QContextMenuEvent event(QContextMenuEvent::Mouse, cell.center(), window.grdCaracteres->viewport()->mapToGlobal(cell.center()));
        QApplication::sendEvent(window.grdCaracteres->viewport(), &event);
        QCOMPARE(texts, (QStringList{QStringLiteral("Copier le caractère"), QStringLiteral("Copier U+20AC"),
                                     QStringLiteral("Copier &&#8364;"), QStringLiteral("Copier &&euro;"),
                                     QStringLiteral("Copier \\xE2\\x82\\xAC"), QString(),
                                     QStringLiteral("Ajouter à la collecte")}));
        QCOMPARE(clipboard(), QStringLiteral("&euro;"));
    }

    void collectingSeveralCharacters()
    {
        UnicodeTable window;
        window.show();
        selectCode(window, 0x20AC);
        QTest::mouseClick(window.cmdAjouter, Qt::LeftButton);
        selectCode(window, 0xE9);
        QTest::mouseClick(window.cmdAjouter, Qt::LeftButton);
        QCOMPARE(window.txtCollecte->text(), QStringLiteral("€é"));
        window.txtCollecte->insert(QStringLiteral("!"));
        QTest::mouseClick(window.cmdCopier, Qt::LeftButton);
        QCOMPARE(clipboard(), QStringLiteral("€é!"));
    }

    void keyboardNavigation()
    {
        UnicodeTable window;
        window.resize(1100, 700);
        window.show();
        UnicodeGrid* grid = window.grdCaracteres;
        const int columns = grid->columnCount();
        const int page = columns * grid->visibleRowCount();
        QVERIFY(columns > 1);
        QTest::keyClick(grid, Qt::Key_Home);
        QCOMPARE(grid->currentIndex(), 0);
        QTest::keyClick(grid, Qt::Key_Right);
        QCOMPARE(grid->currentIndex(), 1);
        QTest::keyClick(grid, Qt::Key_Down);
        QCOMPARE(grid->currentIndex(), 1 + columns);
        QTest::keyClick(grid, Qt::Key_Left);
        QCOMPARE(grid->currentIndex(), columns);
        QTest::keyClick(grid, Qt::Key_Up);
        QCOMPARE(grid->currentIndex(), 0);
        QTest::keyClick(grid, Qt::Key_Left); // nothing before the first
        QCOMPARE(grid->currentIndex(), 0);
        QTest::keyClick(grid, Qt::Key_PageDown);
        QCOMPARE(grid->currentIndex(), page);
        QTest::keyClick(grid, Qt::Key_PageUp);
        QCOMPARE(grid->currentIndex(), 0);
        QTest::keyClick(grid, Qt::Key_End);
        QCOMPARE(grid->currentIndex(), grid->cellCount() - 1);
        QVERIFY(grid->cellRect(grid->currentIndex()).bottom() <= grid->viewport()->height());
        // Typing a character jumps to it.
        typeText(grid, QStringLiteral("é"));
        QCOMPARE(window.selectedCode().value_or(0), char32_t(0xE9));
        typeText(grid, QStringLiteral("€"));
        QCOMPARE(window.selectedCode().value_or(0), char32_t(0x20AC));
        QTest::keyClick(grid, Qt::Key_Escape);
        QVERIFY(!window.isVisible());
    }

    void theZoomIsSavedAndRestored()
    {
        {
            UnicodeTable window;
            window.show();
            QCOMPARE(window.sldZoom->value(), UnicodeTable::DefaultZoom);
            QCOMPARE(window.grdCaracteres->cellSize(), UnicodeTable::DefaultZoom);
            window.sldZoom->setValue(80);
            QCOMPARE(window.grdCaracteres->cellSize(), 80);
        }
        QCOMPARE(TestSupport::readSetting(QStringLiteral("TableUnicode"), QStringLiteral("Zoom")), QStringLiteral("80"));
        {
            UnicodeTable window;
            window.show();
            QCOMPARE(window.sldZoom->value(), 80);
            QCOMPARE(window.grdCaracteres->cellSize(), 80);
        }
        for (const auto& [stored, shown] : {std::pair{"abc", 48}, std::pair{"500", 96}, std::pair{"3", 24}}) {
            TestSupport::writeSetting(QStringLiteral("TableUnicode"), QStringLiteral("Zoom"), QString::fromLatin1(stored));
            UnicodeTable window;
            window.show();
            QCOMPARE(window.sldZoom->value(), shown);
        }
    }

    void anUnknownFamily()
    {
        debut::CurrentFaceName = QStringLiteral("Glyphora Absente");
        UnicodeTable window;
        window.show();
        QCOMPARE(window.grdCaracteres->cellCount(), 0);
        QCOMPARE(window.lstBlocs->count(), 0);
        QCOMPARE(window.lblEtat->text(), QStringLiteral("Police introuvable : Glyphora Absente"));
        search(window, QStringLiteral("arrow"));
        QCOMPARE(window.grdCaracteres->cellCount(), 0);
    }
};

GLYPHORA_TEST_MAIN(TestUnicodeTable)
#include "test_unicodetable.moc"
