// What is shown is the font named: the character table, the preview of an uninstalled
// file, the rotated sample and the sample boxes draw with the face's own glyphs only,
// checked with hand-made fonts that have no Latin letters; the notice under the samples
// and its script sample.
#include "app/debut.h"
#include "app/tglyphora.h"
#include "browser/samplebox.h"
#include "browser/scriptnotice.h"
#include "browser/scriptsample.h"
#include "components/ctlebsplitter.h"
#include "fontfile/ffontpreview.h"
#include "fontfile/filelists.h"
#include "fontfile/fontregistration.h"
#include "fontfile/fontsystem.h"
#include "fontfile/picturebox.h"
#include "fontfile/previewtext.h"
#include "samples/charmap.h"
#include "samples/ftstimg.h"
#include "support/sfntwriter.h"
#include "support/testsupport.h"

#include <QComboBox>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTreeWidget>

namespace {

const QString laoFamily = QStringLiteral("Glyphora Lao Essai");
const QString symbolFamily = QStringLiteral("Glyphora Symboles Essai");
const QString laoSample = QStringLiteral("ພາສາລາວ ສະບາຍດີ");

QFont withStrategy(QFont font, QFont::StyleStrategy strategy)
{
    font.setStyleStrategy(strategy);
    return font;
}

// A label drawn as the table's cells are, in the given font.
QImage cellImage(const QLabel* cell, const QFont& font)
{
    QLabel reference;
    reference.setAttribute(Qt::WA_DontShowOnScreen);
    reference.setFixedSize(cell->size());
    reference.setAlignment(cell->alignment());
    reference.setFrameStyle(cell->frameStyle());
    reference.setFont(font);
    reference.setText(cell->text());
    reference.show();
    return reference.grab().toImage().convertToFormat(QImage::Format_RGB32);
}

// The first line of the preview's samples, as a picture box of the same size draws it.
QImage previewLine(const QSize& size, const QFont& font, int height)
{
    PictureBox box;
    box.setAttribute(Qt::WA_DontShowOnScreen);
    box.resize(size);
    box.show();
    box.setFont(font);
    box.Print(PreviewText::sampleSentence());
    return box.Image().copy(0, 0, size.width(), height);
}

QTreeWidgetItem* itemNamed(tglyphora& w, const QString& name)
{
    const auto found = w.List1->findItems(name, Qt::MatchExactly);
    return found.isEmpty() ? nullptr : found.first();
}

void choose(tglyphora& w, const QString& name)
{
    QTreeWidgetItem* item = itemNamed(w, name);
    QVERIFY2(item, qPrintable(name));
    w.List1->setCurrentItem(item);
    w.List1_Click();
}

// Child: writes the hand-made fonts into GLYPHORA_FOLDER (to install them for a look at
// the program under a real display).
int writeFonts()
{
    const QString folder = qEnvironmentVariable("GLYPHORA_FOLDER");
    const bool lao = Sfnt::writeFile(folder + QStringLiteral("/laoessai.ttf"),
                                     Sfnt::boxFont(laoFamily, Sfnt::characterRange(0x0E80, 0x0EFF) + QList<char32_t>{U' '}));
    const bool symbols = Sfnt::writeFile(folder + QStringLiteral("/symboles.ttf"),
                                         Sfnt::boxFont(symbolFamily, Sfnt::characterRange(0x2600, 0x2650)));
    return lao && symbols ? 0 : 1;
}

const bool registered = [] {
    TestSupport::registerScenario(QStringLiteral("write-fonts"), &writeFonts);
    return true;
}();

} // namespace

class TestFaceGlyphs : public QObject {
    Q_OBJECT

    QTemporaryDir m_dir;
    QString m_laoFile;
    int m_lao = -1;
    int m_symbols = -1;

private Q_SLOTS:
    void initTestCase()
    {
        TestSupport::clearSettings();
        m_laoFile = m_dir.filePath(QStringLiteral("laoessai.ttf"));
        QVERIFY(Sfnt::writeFile(m_laoFile, Sfnt::boxFont(laoFamily, Sfnt::characterRange(0x0E80, 0x0EFF) + QList<char32_t>{U' '})));
        const QString symbols = m_dir.filePath(QStringLiteral("symboles.ttf"));
        QVERIFY(Sfnt::writeFile(symbols, Sfnt::boxFont(symbolFamily, Sfnt::characterRange(0x2600, 0x2650))));
        m_lao = FontRegistration::add(m_laoFile);
        m_symbols = FontRegistration::add(symbols);
        QVERIFY(m_lao >= 0 && m_symbols >= 0);
    }

    void cleanupTestCase()
    {
        FontRegistration::remove(m_lao);
        FontRegistration::remove(m_symbols);
    }

    void fontconfigKnowsWhatTheHandMadeFontsHold()
    {
        const auto lao = FontSystem::coverage(laoFamily);
        QVERIFY(lao);
        QVERIFY(lao->contains(0x0E81));
        QVERIFY(!lao->contains(U'A'));
        QVERIFY2(lao->languages.contains(QStringLiteral("lo")), qPrintable(lao->languages.join(',')));
        const auto has = [&](char32_t c) { return lao->contains(c); };
        QVERIFY(ScriptSample::lacksLettersOf(QStringLiteral("Texte d'essai"), has));
        QVERIFY(!ScriptSample::lacksLettersOf(QStringLiteral("abc ສະ"), has));
        QVERIFY(!ScriptSample::lacksLettersOf(QStringLiteral("1234 !?"), has));
        QCOMPARE(ScriptSample::sampleFor(*lao), laoSample);
        const auto symbols = FontSystem::coverage(symbolFamily);
        QVERIFY(symbols);
        QString first;
        for (char32_t c = 0x2600; c < 0x2600 + 40; ++c)
            first += QString::fromUcs4(&c, 1);
        QCOMPARE(ScriptSample::sampleFor(*symbols), first);
        QVERIFY(!FontSystem::coverage(QStringLiteral("Glyphora Police Inexistante")));
    }

    void theCharacterTableDrawsTheFacesMissingGlyph()
    {
        debut::CurrentFaceName = laoFamily;
        charmap window;
        window.show();
        QLabel* cell = window.Label1(65 - 32);
        QCOMPARE(cell->text(), QStringLiteral("A"));
        QCOMPARE(cell->font().styleStrategy() & QFont::NoFontMerging, QFont::NoFontMerging);
        const QImage shown = cell->grab().toImage().convertToFormat(QImage::Format_RGB32);
        QFont face(laoFamily);
        face.setPointSizeF(cell->font().pointSizeF());
        QCOMPARE(shown, cellImage(cell, withStrategy(face, QFont::NoFontMerging)));
        QVERIFY(shown != cellImage(cell, face)); // a substitute 'A' would look like this
        window.Label1_MouseMove(65 - 32);
        QCOMPARE(window.Label14->text(), QStringLiteral("Absent de cette police"));
        QCOMPARE(window.Label3->font().styleStrategy() & QFont::NoFontMerging, QFont::NoFontMerging);
        QCOMPARE(window.List1->font().styleStrategy() & QFont::NoFontMerging, QFont::NoFontMerging);
    }

    void theCharacterTableSaysNothingForACharacterTheFaceHas()
    {
        debut::CurrentFaceName = QStringLiteral("DejaVu Sans");
        charmap window;
        window.show();
        window.Label1_MouseMove(65 - 32);
        QCOMPARE(window.Label14->text(), QString());
        window.List1->setCurrentRow(0);
        window.List1_Click();
        QCOMPARE(window.Label14->text(), QString());
    }

    void thePreviewOfAFileWithoutLatinDrawsItsOwnGlyphs()
    {
        FontRegistration::remove(m_lao); // the preview registers it for itself
        FFontPreview window;
        window.show();
        window.Dir1->setPath(m_dir.path());
        const int row = window.File1->findItems(QStringLiteral("laoessai.ttf"), Qt::MatchExactly).isEmpty()
                            ? -1
                            : window.File1->row(window.File1->findItems(QStringLiteral("laoessai.ttf"), Qt::MatchExactly).first());
        QVERIFY(row >= 0);
        window.File1->setCurrentRow(row);
        QCOMPARE(window.windowTitle(), QStringLiteral("Glyphora: ") + laoFamily);
        m_lao = FontRegistration::add(m_laoFile);
        QFont face(laoFamily);
        face.setPointSize(PreviewText::sizes().first());
        const QImage drawn = window.Picture1->Image();
        const int height = QFontMetrics(withStrategy(face, QFont::NoFontMerging), &drawn).height();
        const QImage shown = drawn.copy(0, 0, window.Picture1->width(), height);
        QCOMPARE(shown, previewLine(window.Picture1->size(), withStrategy(face, QFont::NoFontMerging), height));
        QVERIFY(shown != previewLine(window.Picture1->size(), face, height));
    }

    void theRotatedSampleDrawsTheFacesOwnGlyphs()
    {
        tglyphora main;
        main.show();
        main.charge();
        choose(main, laoFamily);
        QTemporaryDir pictures;
        const QString picture = pictures.filePath(QStringLiteral("fond.png"));
        QImage white(8, 8, QImage::Format_RGB32);
        white.fill(Qt::white);
        QVERIFY(white.save(picture));
        debut::PicturePath = picture;
        FtstImg window(&main);
        window.show();
        QCOMPARE(window.DrawingFont().Name(), laoFamily);
        QCOMPARE(window.DrawingFont().toQFont().styleStrategy() & QFont::NoFontMerging, QFont::NoFontMerging);
        // The automatic text against the same text drawn with the face alone.
        auto reference = [&](QFont font) {
            QImage canvas(window.Canvas().size(), window.Canvas().format());
            canvas.setDotsPerMeterX(window.Canvas().dotsPerMeterX());
            canvas.setDotsPerMeterY(window.Canvas().dotsPerMeterY());
            canvas.fill(Qt::white);
            QPainter painter(&canvas);
            painter.setFont(font);
            painter.setPen(main.Text1->ForeColor());
            const QString line = main.Text1->text().section(QStringLiteral("\r\n"), 0, 0);
            painter.drawText(QRectF(0, 0, 0, QFontMetricsF(font, &canvas).lineSpacing()),
                             Qt::AlignLeft | Qt::AlignTop | Qt::TextSingleLine | Qt::TextExpandTabs | Qt::TextDontClip, line);
            painter.end();
            return canvas.copy(0, 0, canvas.width(), int(QFontMetricsF(font, &canvas).lineSpacing()));
        };
        const QFont drawn = window.DrawingFont().toQFont();
        const QImage firstLine = window.Canvas().copy(0, 0, window.Canvas().width(),
                                                      int(QFontMetricsF(drawn, &window.Canvas()).lineSpacing()));
        QCOMPARE(firstLine, reference(drawn));
        QVERIFY(firstLine != reference(withStrategy(drawn, QFont::PreferDefault)));
    }

    void theNoticeOffersASampleInTheFacesScript()
    {
        tglyphora w;
        w.show();
        w.charge();
        auto* notice = w.findChild<ScriptNotice*>(QStringLiteral("ScriptNotice"));
        QVERIFY(notice);
        choose(w, QStringLiteral("DejaVu Sans"));
        QVERIFY(notice->isHidden());
        const QRect samplesBefore = w.ctlEBSplitter1->geometry();

        choose(w, laoFamily);
        QVERIFY(!notice->isHidden());
        QCOMPARE(notice->Label1->text(), QStringLiteral("Cette police ne contient pas les caractères de l'exemple"));
        QCOMPARE(notice->Command1->text(), QStringLiteral("Exemple dans son écriture"));
        QVERIFY(w.ctlEBSplitter1->geometry().bottom() < notice->geometry().top()); // under the samples
        QVERIFY(w.ctlEBSplitter1->height() < samplesBefore.height());
        QCOMPARE(w.Text2->font().styleStrategy() & QFont::NoFontMerging, QFont::NoFontMerging);
        QTest::mouseClick(notice->Command1, Qt::LeftButton);
        QCOMPARE(w.Text2->text(), laoSample);
        QVERIFY(notice->isHidden()); // the face now has letters to show

        // For this font only: the next font gets the text back.
        choose(w, QStringLiteral("DejaVu Sans"));
        QCOMPARE(w.Text2->text(), QStringLiteral("Texte d'essai"));
        QVERIFY(notice->isHidden());
        QCOMPARE(w.ctlEBSplitter1->geometry(), samplesBefore);

        choose(w, symbolFamily);
        QVERIFY(!notice->isHidden());
        QTest::mouseClick(notice->Command1, Qt::LeftButton);
        QCOMPARE(w.Text2->text().toUcs4().size(), qsizetype(ScriptSample::SymbolSampleLength));
        QCOMPARE(w.Text2->text().toUcs4().first(), 0x2600u);
        // A text the user changed after the sample is the user's: it stays.
        w.Text2->setText(QStringLiteral("☀ à moi"));
        choose(w, QStringLiteral("DejaVu Sans"));
        QCOMPARE(w.Text2->text(), QStringLiteral("☀ à moi"));
    }

    void typingLettersTheFaceHasHidesTheNotice()
    {
        tglyphora w;
        w.show();
        w.charge();
        auto* notice = w.findChild<ScriptNotice*>(QStringLiteral("ScriptNotice"));
        choose(w, laoFamily);
        QVERIFY(!notice->isHidden());
        w.Text1->setText(QStringLiteral("ສະບາຍດີ"));
        QVERIFY(notice->isHidden());
        w.Text1->setText(QStringLiteral("ABC"));
        QVERIFY(!notice->isHidden());
    }
};

GLYPHORA_TEST_MAIN(TestFaceGlyphs)
#include "test_faceglyphs.moc"
