// The page-drawing unit on its own: where the page flow breaks, how rows line up, and
// the PDFs it writes (read back with poppler): pages flowing, every font embedded, the
// fonts used being the ones asked for, a file replaced only when the PDF is whole.
#include "components/pageflow.h"
#include "output/pdftask.h"
#include "output/proofpages.h"
#include "support/pdfcheck.h"
#include "support/sfntwriter.h"
#include "support/testsupport.h"

#include <QFontDatabase>
#include <QFontMetricsF>
#include <QImage>
#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QProgressDialog>
#include <QPushButton>
#include <QTemporaryDir>
#include <QThread>

namespace {

QPageLayout a4()
{
    return QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait, QMarginsF(10, 10, 10, 10), QPageLayout::Millimeter);
}

QFont face(const QString& family, double points)
{
    QFont font;
    font.setFamilies({family});
    font.setPointSizeF(points);
    return font;
}

} // namespace

class TestProofPages : public QObject {
    Q_OBJECT
    QTemporaryDir m_dir;
    QString m_boxFamily; // a font made here, with glyphs for ASCII only
    QString m_boxPostScript;
    QString m_accentFamily; // the same, named with a letter it has no glyph for

    QString path(const QString& name) const { return m_dir.filePath(name); }

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(m_dir.isValid());
        m_boxFamily = QStringLiteral("Glyphora Boites");
        const QString file = path(QStringLiteral("boites.ttf"));
        QVERIFY(Sfnt::writeFile(file, Sfnt::outlineFont(Sfnt::familyNames(m_boxFamily))));
        QVERIFY(QFontDatabase::addApplicationFont(file) >= 0);
        QVERIFY(QFontDatabase::families().contains(m_boxFamily));
        m_boxPostScript = QStringLiteral("GlyphoraBoites-Regular");

        m_accentFamily = QStringLiteral("Glyphora Boîtes");
        QList<Sfnt::Name> names = Sfnt::familyNames(m_accentFamily);
        for (Sfnt::Name& name : names)
            if (name.nameId == 6)
                name = Sfnt::microsoft(6, QStringLiteral("GlyphoraBoitesAccent-Regular"));
        const QString accentFile = path(QStringLiteral("boites-accent.ttf"));
        QVERIFY(Sfnt::writeFile(accentFile, Sfnt::outlineFont(names)));
        QVERIFY(QFontDatabase::addApplicationFont(accentFile) >= 0);
        QVERIFY(QFontDatabase::families().contains(m_accentFamily));
    }

    void aBlockGoesToTheNextPageWhenItNoLongerFits()
    {
        QImage image(100, 100, QImage::Format_ARGB32);
        QPainter painter(&image);
        int breaks = 0;
        PageFlow flow(painter, 100, 100, [&breaks] { ++breaks; });
        QCOMPARE(flow.placeBlock(40), 0.0);
        flow.advance(40);
        QCOMPARE(flow.placeBlock(60), 40.0); // exactly fills the page
        flow.advance(60);
        QCOMPARE(flow.placeBlock(1), 0.0);
        QCOMPARE(breaks, 1);
        QCOMPARE(flow.pageCount(), 2);
        // A block taller than a page, at the top of one, stays there.
        QCOMPARE(flow.placeBlock(150), 0.0);
        QCOMPARE(breaks, 1);
        flow.advance(150);
        QCOMPARE(flow.placeBlock(10), 0.0);
        QCOMPARE(flow.pageCount(), 3);
    }

    void anEndlessFlowNeverBreaks()
    {
        QImage image(100, 100, QImage::Format_ARGB32);
        QPainter painter(&image);
        PageFlow flow(painter, 100, 100);
        for (int i = 0; i < 10; ++i) {
            QCOMPARE(flow.placeBlock(40), 40.0 * i);
            flow.advance(40);
        }
        QCOMPARE(flow.pageCount(), 1);
    }

    void linesFollowThePrinterRule()
    {
        // A line goes over when its height no longer fits; lines are a line spacing apart.
        QImage image(400, 400, QImage::Format_ARGB32);
        QPainter painter(&image);
        const QFont font = face(QStringLiteral("DejaVu Sans"), 12);
        const QFontMetricsF metrics(font, &image);
        const double page = metrics.lineSpacing() * 2 + metrics.height();
        int breaks = 0;
        PageFlow flow(painter, 400, page, [&breaks] { ++breaks; });
        flow.printLines(font, QStringLiteral("un\r\ndeux\ntrois\rquatre"));
        QCOMPARE(breaks, 1);
        QCOMPARE(flow.y(), metrics.lineSpacing());
        QCOMPARE(PageFlow::splitLines(QStringLiteral("a\r\nb\nc\rd")), (QStringList{"a", "b", "c", "d"}));
        // An empty text is one empty line; a final line end leaves an empty last line;
        // LF CR is two line ends.
        QCOMPARE(PageFlow::splitLines(QString()), QStringList{QString()});
        QCOMPARE(PageFlow::splitLines(QStringLiteral("a\r\n")), (QStringList{"a", ""}));
        QCOMPARE(PageFlow::splitLines(QStringLiteral("a\n\rb")), (QStringList{"a", "", "b"}));
    }

    void rowsShareTheSampleEdgeAndTheLabelBaseline()
    {
        QImage image(800, 600, QImage::Format_ARGB32);
        const QFont label = face(QStringLiteral("DejaVu Sans"), 9);
        const QList<ProofPages::Row> rows = {
            {QStringLiteral("Un nom assez long"), face(QStringLiteral("DejaVu Serif"), 30), QStringLiteral("Hx\nHy")},
            {QStringLiteral("Court"), face(QStringLiteral("DejaVu Sans"), 6), QStringLiteral("Hx")},
        };
        const ProofPages::RowGeometry g = ProofPages::measureRows(&image, label, rows);
        const QFontMetricsF labelMetrics(label, &image);
        const QFontMetricsF big(rows[0].font, &image);
        QCOMPARE(g.sampleLeft, labelMetrics.horizontalAdvance(rows[0].label) + labelMetrics.height());
        // The bigger face sets the first row's baseline; the label sets the small one's.
        QCOMPARE(g.baselines[0], big.ascent());
        QCOMPARE(g.baselines[1], labelMetrics.ascent());
        QCOMPARE(g.heights[0], big.ascent() + big.lineSpacing() + big.descent() + labelMetrics.lineSpacing() / 2);
        // Limited labels move the samples' edge left.
        ProofPages::RowOptions narrow;
        narrow.maxLabelWidth = 20;
        QCOMPARE(ProofPages::measureRows(&image, label, rows, narrow).sampleLeft, 20 + labelMetrics.height());
        // Scaled from a reference size, the row keeps about its size.
        ProofPages::RowOptions scaled;
        scaled.referencePoints = 48;
        const ProofPages::RowGeometry s = ProofPages::measureRows(&image, label, rows, scaled);
        QVERIFY(qAbs(s.baselines[0] - g.baselines[0]) < 2);
        QVERIFY(qAbs(s.heights[0] - g.heights[0]) < 4);
    }

    void rowsFlowOverPagesWholeAndEmbedTheirFonts()
    {
        const QStringList families = {QStringLiteral("DejaVu Sans"), QStringLiteral("DejaVu Serif"), m_boxFamily};
        QList<ProofPages::Row> rows;
        for (int i = 0; i < 12; ++i) {
            const QString family = families[i % 3];
            rows.append({QStringLiteral("Ligne %1").arg(i, 2, 10, QLatin1Char('0')), face(family, 60),
                         QStringLiteral("Hamburg %1\nsuite %1").arg(i)});
        }
        const QString pdf = path(QStringLiteral("rows.pdf"));
        int pages = 0;
        QVERIFY(ProofPages::writePdf(pdf, a4(), 1200, QStringLiteral("Lignes"), [&](PageFlow& flow) {
            ProofPages::rows(flow, face(QStringLiteral("DejaVu Sans"), 9), rows);
            pages = flow.pageCount();
        }));
        QVERIFY(pages > 2);
        QCOMPARE(PdfCheck::pageCount(pdf), pages);
        const QList<PdfCheck::Line> lines = PdfCheck::lines(pdf);
        QStringList expected;
        for (int i = 0; i < 12; ++i)
            expected << QStringLiteral("Ligne %1").arg(i, 2, 10, QLatin1Char('0')) << QStringLiteral("Hamburg %1").arg(i)
                     << QStringLiteral("suite %1").arg(i);
        QCOMPARE(PdfCheck::texts(lines), expected);
        for (int i = 0; i < 12; ++i) {
            // A row is never cut by a page break, and its sample is in its own face.
            QCOMPARE(lines[3 * i].page, lines[3 * i + 2].page);
            const QString ps = families[i % 3] == m_boxFamily ? m_boxPostScript : PdfCheck::postScriptName(families[i % 3]);
            QVERIFY2(PdfCheck::sameFont(lines[3 * i + 1].font, ps), qPrintable(lines[3 * i + 1].font + " / " + ps));
            QVERIFY2(PdfCheck::sameFont(lines[3 * i + 2].font, ps), qPrintable(lines[3 * i + 2].font));
        }
        const QList<PdfCheck::Font> fonts = PdfCheck::fonts(pdf);
        QCOMPARE(fonts.size(), 3);
        for (const PdfCheck::Font& font : fonts)
            QVERIFY2(font.embedded, qPrintable(font.name));
    }

    void testPageIsThePrinterWritersLines()
    {
        ProofPages::TestPage page;
        page.fonts = {QStringLiteral("DejaVu Serif"), QStringLiteral(" DejaVu Sans Mono ")};
        page.nameFont = QStringLiteral("DejaVu Sans");
        page.nameSize = 10;
        page.sample = QStringLiteral("Texte d'essai\r\nSeconde ligne");
        page.sampleSize = 14;
        const QString pdf = path(QStringLiteral("page.pdf"));
        QStringList announced;
        QFont last;
        QVERIFY(ProofPages::writePdf(pdf, a4(), 1200, QStringLiteral("Page"), [&](PageFlow& flow) {
            QFont base;
            base.setPointSizeF(12);
            base.setBold(true); // what the printer's font had stays
            last = ProofPages::testPage(flow, base, page, [&](const QString& name) { announced.append(name); });
        }));
        QCOMPARE(announced, page.fonts);
        QCOMPARE(last.family(), QStringLiteral("DejaVu Sans Mono"));
        QCOMPARE(last.pointSizeF(), 14.0);
        QVERIFY(last.bold());
        const QList<PdfCheck::Line> lines = PdfCheck::lines(pdf);
        QCOMPARE(PdfCheck::texts(lines), (QStringList{"DejaVu Serif", "Texte d'essai", "Seconde ligne", "DejaVu Sans Mono",
                                                       "Texte d'essai", "Seconde ligne"}));
        const QString name = PdfCheck::postScriptName(QStringLiteral("DejaVu Sans:bold"));
        QVERIFY2(PdfCheck::sameFont(lines[0].font, name), qPrintable(lines[0].font));
        QVERIFY2(PdfCheck::sameFont(lines[1].font, PdfCheck::postScriptName(QStringLiteral("DejaVu Serif:bold"))),
                 qPrintable(lines[1].font));
        QVERIFY2(PdfCheck::sameFont(lines[4].font, PdfCheck::postScriptName(QStringLiteral("DejaVu Sans Mono:bold"))),
                 qPrintable(lines[4].font));
    }

    void fontListWritesANameInTheInterfaceFontWhenItsFaceCannot()
    {
        QVERIFY(ProofPages::canDraw(face(m_boxFamily, 12), QStringLiteral("Glyphora Boites")));
        QVERIFY(!ProofPages::canDraw(face(m_boxFamily, 12), QStringLiteral("Boîtes")));
        QVERIFY(!ProofPages::canDraw(face(m_accentFamily, 12), m_accentFamily));
        const QString pdf = path(QStringLiteral("list.pdf"));
        const QStringList names = {m_boxFamily, QStringLiteral("DejaVu Serif"), m_accentFamily};
        QVERIFY(ProofPages::writePdf(pdf, a4(), 1200, QStringLiteral("Liste"), [&](PageFlow& flow) {
            ProofPages::fontList(flow, names, face(QStringLiteral("DejaVu Sans"), 9));
        }));
        const QList<PdfCheck::Line> lines = PdfCheck::lines(pdf);
        QCOMPARE(PdfCheck::texts(lines), names);
        QVERIFY2(PdfCheck::sameFont(lines[0].font, m_boxPostScript), qPrintable(lines[0].font));
        QVERIFY2(PdfCheck::sameFont(lines[1].font, PdfCheck::postScriptName(QStringLiteral("DejaVu Serif"))), qPrintable(lines[1].font));
        // The face of "Glyphora Boîtes" has no "î": the interface font writes its name.
        QVERIFY2(PdfCheck::sameFont(lines[2].font, PdfCheck::postScriptName(QStringLiteral("DejaVu Sans"))), qPrintable(lines[2].font));
    }

    void aPdfThatCannotBeWrittenChangesNothing()
    {
        const auto draw = [](PageFlow& flow) { flow.printLines(face(QStringLiteral("DejaVu Sans"), 12), QStringLiteral("Nouveau")); };
        QVERIFY(!ProofPages::writePdf(path(QStringLiteral("absent/x.pdf")), a4(), 1200, QString(), draw));
        QVERIFY(!QFile::exists(path(QStringLiteral("absent/x.pdf"))));
        const QString existing = path(QStringLiteral("existing.pdf"));
        QVERIFY(Sfnt::writeFile(existing, "ancien contenu"));
        QVERIFY(!ProofPages::writePdf(existing, a4(), 1200, QString(), draw, [] { return false; }));
        QCOMPARE(Sfnt::readFile(existing), QByteArray("ancien contenu"));
        QVERIFY(ProofPages::writePdf(existing, a4(), 1200, QString(), draw));
        QVERIFY(Sfnt::readFile(existing).startsWith("%PDF-"));
        QCOMPARE(PdfCheck::texts(PdfCheck::lines(existing)), QStringList{"Nouveau"});
    }

    void aPdfStoppedFromItsProgressBoxIsNotWritten()
    {
        QWidget owner;
        owner.show();
        const QFont font = face(QStringLiteral("DejaVu Sans"), 12);
        PdfTask::Job job;
        job.path = path(QStringLiteral("long.pdf"));
        job.layout = a4();
        job.resolution = 300;
        job.title = QStringLiteral("Long");
        job.steps = 100;
        job.label = QStringLiteral("Enregistrement...");
        job.draw = [font](PageFlow& flow, PdfTask::Progress& progress) {
            for (int i = 0; i < 100; ++i) {
                flow.printLines(font, QString::number(i));
                QThread::msleep(40); // long enough for the box to show
                if (!progress.step())
                    return;
            }
        };
        QString label, cancelText;
        int shownAt = -1;
        TestSupport::whenModal([&](QWidget* modal) {
            if (auto* box = qobject_cast<QProgressDialog*>(modal)) {
                label = box->labelText();
                shownAt = box->value();
                cancelText = box->findChild<QPushButton*>()->text();
                QTest::mouseClick(box->findChild<QPushButton*>(), Qt::LeftButton);
            }
        });
        QCOMPARE(PdfTask::write(&owner, job), PdfTask::Result::Stopped);
        QCOMPARE(label, QStringLiteral("Enregistrement..."));
        QCOMPARE(cancelText, QStringLiteral("Annuler"));
        QVERIFY(shownAt > 0);
        QVERIFY(!QFile::exists(job.path));

        // Left to run, it writes everything; nothing waits for an answer.
        job.draw = [font](PageFlow& flow, PdfTask::Progress& progress) {
            for (int i = 0; i < 100 && progress.step(); ++i)
                flow.printLines(font, QString::number(i));
        };
        QCOMPARE(PdfTask::write(&owner, job), PdfTask::Result::Written);
        QCOMPARE(PdfCheck::texts(PdfCheck::lines(job.path)).size(), 100);
        job.path = path(QStringLiteral("absent/long.pdf"));
        QCOMPARE(PdfTask::write(&owner, job), PdfTask::Result::Failed);
    }
};

GLYPHORA_TEST_MAIN(TestProofPages)
#include "test_proofpages.moc"
