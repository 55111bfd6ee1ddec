// Printing and PDFs beyond the compare window: the test page's "PDF" choice gives the
// same pages as the printer (read back from the CUPS PDF queue), print previews that
// send nothing when closed and exactly one job when printed from, the compare window
// on the printer, and the font list as a PDF for 300 fonts made for the test.
#include "app/tglyphora.h"
#include "browser/samplebox.h"
#include "components/printer.h"
#include "output/comparer.h"
#include "output/ptest.h"
#include "support/modalscript.h"
#include "support/pdfcheck.h"
#include "support/sfntwriter.h"
#include "support/testsupport.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrintPreviewWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QTreeWidget>
#include <cstdio>
#include <memory>

#define REQUIRE_PRINTER()                                                  \
    do {                                                                   \
        if (!m_hasPrinter) {                                               \
            if (qEnvironmentVariableIsSet("GLYPHORA_REQUIRE_PRINTER"))    \
                QFAIL("no default printer");                               \
            QSKIP("no default printer");                                   \
        }                                                                  \
    } while (false)

namespace {

const QString listFamilyStem = QStringLiteral("Glyphora Liste ");
const QString accentFamily = QStringLiteral("Glyphora Liste Évasion");

// In the preview: records what it shows, then either closes it or prints from it
// (the print dialog that follows is accepted as it stands).
struct PreviewSeen {
    QString title;
    int pages = 0;
    bool printDialog = false;
};

QList<ModalScript::Step> previewSteps(PreviewSeen* seen, bool print)
{
    QList<ModalScript::Step> steps;
    steps.append([seen, print](QWidget* modal) {
        auto* preview = qobject_cast<QPrintPreviewDialog*>(modal);
        if (!preview)
            return;
        seen->title = preview->windowTitle();
        if (auto* widget = preview->findChild<QPrintPreviewWidget*>())
            seen->pages = widget->pageCount();
        if (!print) {
            preview->reject();
            return;
        }
        const QString printText = QCoreApplication::translate("QPrintPreviewDialog", "Print");
        for (QAction* action : preview->findChildren<QAction*>())
            if (action->text() == printText) {
                action->trigger();
                return;
            }
    });
    if (print)
        steps.append([seen](QWidget* modal) {
            if (auto* dialog = qobject_cast<QPrintDialog*>(modal)) {
                seen->printDialog = true;
                dialog->accept();
            }
        });
    return steps;
}

// Child process with a fontconfig of its own (the system's fonts and 300 made for the
// test): saves the main window's list as a PDF through the menu, prints the list.
int listPdfScenario()
{
    tglyphora window;
    window.show();
    const QString pdf = qEnvironmentVariable("GLYPHORA_LIST_PDF");
    QString title, offered;
    // Only the save dialog is answered: the progress box that may follow is left alone.
    TestSupport::whenModal([&](QWidget* modal) {
        title = modal->windowTitle();
        if (auto* edit = modal->findChild<QLineEdit*>(QStringLiteral("fileNameEdit")))
            offered = edit->text();
        ModalScript::chooseFile(pdf)(modal);
    });
    window.findChild<QAction*>(QStringLiteral("mlistepdf"))->trigger();
    std::printf("dialog=[%s|%s] written=%d\n", qPrintable(title), qPrintable(offered), int(QFile::exists(pdf)));
    std::printf("interface=[%s]\n", qPrintable(QApplication::font().family()));
    for (int i = 0; i < window.List1->topLevelItemCount(); ++i)
        std::printf("name=[%s]\n", qPrintable(window.List1->topLevelItem(i)->text(0)));
    std::fflush(stdout);
    return 0;
}

const bool scenariosRegistered = [] {
    TestSupport::registerScenario(QStringLiteral("list-pdf"), listPdfScenario);
    return true;
}();

} // namespace

class TestProofPrint : public QObject {
    Q_OBJECT
    std::unique_ptr<tglyphora> m_main;
    std::unique_ptr<QTemporaryDir> m_dir;
    bool m_hasPrinter = false;

    QAction* menuItem(const char* name) const { return m_main->findChild<QAction*>(QString::fromLatin1(name)); }

    std::unique_ptr<Ptest> testPage(const QString& sample)
    {
        auto dialog = std::make_unique<Ptest>(m_main.get());
        dialog->show();
        for (const char* family : {"DejaVu Serif", "URW Gothic", "C059"})
            dialog->List1->findItems(QString::fromLatin1(family), Qt::MatchExactly).value(0)->setSelected(true);
        dialog->List2->setCurrentItem(dialog->List2->findItems(QStringLiteral("DejaVu Sans"), Qt::MatchExactly).value(0));
        dialog->Text1->setText(sample);
        dialog->Combo1->setCurrentIndex(dialog->Combo1->findText(QStringLiteral(" 36")));
        dialog->Combo2->setCurrentIndex(dialog->Combo2->findText(QStringLiteral(" 12")));
        return dialog;
    }

    // Waits long enough for a job to reach the queue, then lists those with the marker.
    QStringList jobsAfterAWhile(const QDateTime& since, const QString& marker)
    {
        QTest::qWait(1500);
        return PdfCheck::queuedPdfs(since, marker, 0, 20000);
    }

private Q_SLOTS:
    void initTestCase()
    {
        m_hasPrinter = TestSupport::requirePrinter();
        TestSupport::useOwnDocumentName(); // the queue may be shared with other test runs
        m_main = std::make_unique<tglyphora>();
        m_main->show();
    }

    void cleanupTestCase()
    {
        Printer::instance().EndDoc();
        m_main.reset();
    }

    void init()
    {
        m_dir = std::make_unique<QTemporaryDir>();
        QVERIFY(m_dir->isValid());
    }

    void theTestPageOffersPdfAndAPreview()
    {
        Ptest dialog(m_main.get());
        dialog.show();
        QCOMPARE(dialog.Option1(3)->objectName(), QStringLiteral("Option1_3"));
        QCOMPARE(dialog.Option1(3)->text(), QStringLiteral("PDF"));
        QCOMPARE(dialog.Option1(3)->parent(), dialog.Frame1);
        QVERIFY(!dialog.Option1(3)->isChecked());
        QVERIFY(!dialog.Option1(4));
        QCOMPARE(dialog.chkApercu->objectName(), QStringLiteral("chkApercu"));
        QCOMPARE(dialog.chkApercu->text(), QStringLiteral("Aperçu avant impression"));
        QVERIFY(!dialog.chkApercu->isChecked());
        QVERIFY(dialog.chkApercu->isEnabled());
        // Only the printer has a preview.
        dialog.Option1(3)->setChecked(true);
        QVERIFY(!dialog.chkApercu->isEnabled());
        dialog.Option1(0)->setChecked(true);
        QVERIFY(dialog.chkApercu->isEnabled());
    }

    void thePdfChoiceAsksForAFileThenForAFont()
    {
        Ptest dialog(m_main.get());
        dialog.show();
        dialog.Option1(3)->setChecked(true);
        const QString pdf = m_dir->filePath(QStringLiteral("pagetest.pdf"));
        QString title, offered, message;
        {
            ModalScript script({[&](QWidget* modal) {
                                    title = modal->windowTitle();
                                    offered = modal->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->text();
                                    ModalScript::chooseFile(pdf)(modal);
                                },
                                ModalScript::clickButton(QMessageBox::Ok, &message)});
            QTest::mouseClick(dialog.Command2, Qt::LeftButton);
            QVERIFY(script.waitUntilDone());
        }
        QCOMPARE(title, QStringLiteral("Sauvegarder vers un fichier PDF"));
        QCOMPARE(offered, QStringLiteral("pagetest.pdf"));
        QCOMPARE(message, QStringLiteral("Glyphora: Vous n'avez pas sélectionné de police"));
        QVERIFY(!QFile::exists(pdf));
        // Cancelled: nothing, not even the message.
        dialog.List1->item(0)->setSelected(true);
        ModalScript cancel({ModalScript::cancel()});
        QTest::mouseClick(dialog.Command2, Qt::LeftButton);
        QVERIFY(cancel.unexpected().isEmpty());
        QVERIFY(QDir(m_dir->path()).entryList(QDir::Files).isEmpty());
    }

    void theTestPageAsPdfIsThePagePrinted()
    {
        REQUIRE_PRINTER();
        Printer::instance().EndDoc();
        const QString marker = PdfCheck::uniqueMarker();
        auto dialog = testPage(QStringLiteral("Essai ") + marker +
                               QStringLiteral("\r\nSeconde ligne\r\nTroisième\r\nQuatrième\r\nCinquième\r\nSixième"));
        const QDateTime since = QDateTime::currentDateTime();
        QTest::mouseClick(dialog->Command2, Qt::LeftButton);
        const QStringList printed = PdfCheck::queuedPdfs(since, marker);
        QCOMPARE(printed.size(), 1);

        dialog->Option1(3)->setChecked(true);
        const QString pdf = m_dir->filePath(QStringLiteral("pagetest.pdf"));
        ModalScript script({ModalScript::chooseFile(pdf)});
        QTest::mouseClick(dialog->Command2, Qt::LeftButton);
        QVERIFY(script.unexpected().isEmpty());
        QCOMPARE(dialog->StatusBar1->currentMessage(), QString());

        const QList<PdfCheck::Line> paper = PdfCheck::lines(printed.first());
        const QList<PdfCheck::Line> file = PdfCheck::lines(pdf);
        QCOMPARE(PdfCheck::texts(file), PdfCheck::texts(paper));
        QCOMPARE(file.size(), 3 * 7);
        for (qsizetype i = 0; i < file.size(); ++i) {
            QCOMPARE(file[i].font, paper[i].font);
            QCOMPARE(file[i].page, paper[i].page);
        }
        QCOMPARE(PdfCheck::pageCount(pdf), PdfCheck::pageCount(printed.first()));
        QVERIFY(PdfCheck::pageCount(pdf) >= 2); // 36-point lines flow over the pages
        QStringList paperFonts, fileFonts;
        for (const PdfCheck::Font& font : PdfCheck::fonts(printed.first()))
            paperFonts.append(font.name);
        for (const PdfCheck::Font& font : PdfCheck::fonts(pdf)) {
            QVERIFY2(font.embedded, qPrintable(font.name));
            fileFonts.append(font.name);
        }
        paperFonts.sort();
        fileFonts.sort();
        paperFonts.removeDuplicates();
        fileFonts.removeDuplicates();
        QCOMPARE(fileFonts, paperFonts);
        QCOMPARE(fileFonts.size(), 4);
    }

    void aPreviewClosedPrintsNothingAndPrintingFromItSendsOneJob()
    {
        REQUIRE_PRINTER();
        Printer::instance().EndDoc();
        const QString marker = PdfCheck::uniqueMarker();
        auto dialog = testPage(QStringLiteral("Aperçu ") + marker);
        dialog->chkApercu->setChecked(true);
        const QDateTime since = QDateTime::currentDateTime();
        PreviewSeen closed;
        {
            // Gone before the next preview: a script past its last step closes any
            // window that comes up.
            ModalScript closing(previewSteps(&closed, false));
            QTest::mouseClick(dialog->Command2, Qt::LeftButton);
            QVERIFY(closing.unexpected().isEmpty());
        }
        QCOMPARE(closed.title, QStringLiteral("Aperçu avant impression"));
        QVERIFY(closed.pages >= 1);
        QVERIFY(!Printer::instance().hasOpenDocument());
        QVERIFY(jobsAfterAWhile(since, marker).isEmpty());

        PreviewSeen printing;
        ModalScript printed(previewSteps(&printing, true));
        QTest::mouseClick(dialog->Command2, Qt::LeftButton);
        QVERIFY(printed.waitUntilDone());
        QVERIFY(printed.unexpected().isEmpty());
        QVERIFY(printing.printDialog);
        QCOMPARE(printing.pages, closed.pages);
        const QStringList jobs = PdfCheck::queuedPdfs(since, marker);
        QCOMPARE(jobs.size(), 1);
        QCOMPARE(jobsAfterAWhile(since, marker).size(), 1);
        // What was previewed is what came out: the page count and the test page's lines.
        QCOMPARE(PdfCheck::pageCount(jobs.first()), printing.pages);
        QCOMPARE(PdfCheck::texts(PdfCheck::lines(jobs.first())),
                 (QStringList{"C059", "Aperçu " + marker, "DejaVu Serif", "Aperçu " + marker, "URW Gothic", "Aperçu " + marker}));
    }

    void theComparisonOnThePrinterAndInItsPreview()
    {
        REQUIRE_PRINTER();
        Printer::instance().EndDoc();
        const QString marker = PdfCheck::uniqueMarker();
        Comparer dialog(m_main.get());
        dialog.show();
        QVERIFY(dialog.model().count() >= 1);
        dialog.txtTexte->setPlainText(QStringLiteral("Comparaison ") + marker);
        const QStringList fonts = dialog.model().fonts();
        const QDateTime since = QDateTime::currentDateTime();
        QTest::mouseClick(dialog.cmdImprimer, Qt::LeftButton);
        QStringList jobs = PdfCheck::queuedPdfs(since, marker);
        QCOMPARE(jobs.size(), 1);
        QVERIFY(!Printer::instance().hasOpenDocument());
        QStringList expected;
        for (const QString& font : fonts)
            expected << font << QStringLiteral("Comparaison ") + marker;
        QCOMPARE(PdfCheck::texts(PdfCheck::lines(jobs.first())), expected);

        const QString previewMarker = PdfCheck::uniqueMarker();
        dialog.txtTexte->setPlainText(QStringLiteral("Comparaison ") + previewMarker);
        dialog.chkApercu->setChecked(true);
        const QDateTime again = QDateTime::currentDateTime();
        PreviewSeen closed, printing;
        {
            ModalScript script(previewSteps(&closed, false));
            QTest::mouseClick(dialog.cmdImprimer, Qt::LeftButton);
        }
        QVERIFY(closed.pages >= 1);
        QVERIFY(jobsAfterAWhile(again, previewMarker).isEmpty());
        ModalScript script(previewSteps(&printing, true));
        QTest::mouseClick(dialog.cmdImprimer, Qt::LeftButton);
        QVERIFY(script.waitUntilDone());
        QCOMPARE(PdfCheck::queuedPdfs(again, previewMarker).size(), 1);
        QCOMPARE(jobsAfterAWhile(again, previewMarker).size(), 1);
    }

    void theListPreviewLeavesThePrintedListWaiting()
    {
        REQUIRE_PRINTER();
        Printer::instance().EndDoc();
        const QString marker = PdfCheck::uniqueMarker();
        const QString listMarker = QStringLiteral("Liste") + marker;
        m_main->List1->addTopLevelItem(new QTreeWidgetItem(QStringList{listMarker}));
        // "Imprimer la liste des polices" keeps its document open, as always.
        {
            ModalScript yes({ModalScript::clickButton(QMessageBox::Yes)});
            menuItem("mimpnames")->trigger();
            QVERIFY(yes.unexpected().isEmpty());
        }
        QVERIFY(Printer::instance().hasOpenDocument());

        QAction* item = menuItem("maperculiste");
        QVERIFY(item);
        QCOMPARE(item->text(), QStringLiteral("Aperçu de la liste avant impression"));
        QVERIFY(m_main->moutils->actions().contains(item));
        const QDateTime since = QDateTime::currentDateTime();
        PreviewSeen closed, printing;
        {
            ModalScript script(previewSteps(&closed, false));
            item->trigger();
        }
        QVERIFY(closed.pages >= 1);
        QVERIFY(jobsAfterAWhile(since, listMarker).isEmpty());
        ModalScript script(previewSteps(&printing, true));
        item->trigger();
        QVERIFY(script.waitUntilDone());
        const QStringList jobs = PdfCheck::queuedPdfs(since, listMarker);
        QCOMPARE(jobs.size(), 1);
        QCOMPARE(TestSupport::pdfText(jobs.first()).count(listMarker), 1);
        QCOMPARE(PdfCheck::pageCount(jobs.first()), printing.pages);
        // The printed list still waits for the next ended document.
        QVERIFY(Printer::instance().hasOpenDocument());
        Printer::instance().EndDoc();
        QCOMPARE(PdfCheck::queuedPdfs(since, listMarker, 2).size(), 2);
        delete m_main->List1->findItems(listMarker, Qt::MatchExactly).value(0);
    }

    void theListAsPdfFor300Fonts()
    {
        const QString fontsDir = m_dir->filePath(QStringLiteral("fonts"));
        QVERIFY(QDir().mkpath(fontsDir));
        QStringList made;
        for (int i = 1; i <= 300; ++i) {
            const QString family = listFamilyStem + QStringLiteral("%1").arg(i, 3, 10, QLatin1Char('0'));
            made.append(family);
            QVERIFY(Sfnt::writeFile(fontsDir + QStringLiteral("/liste%1.ttf").arg(i), Sfnt::outlineFont(Sfnt::familyNames(family))));
        }
        // A face without an "É" for its own name's first letter.
        QList<Sfnt::Name> names = Sfnt::familyNames(accentFamily);
        for (Sfnt::Name& name : names)
            if (name.nameId == 6)
                name = Sfnt::microsoft(6, QStringLiteral("GlyphoraListeEvasion-Regular"));
        QVERIFY(Sfnt::writeFile(fontsDir + QStringLiteral("/evasion.ttf"), Sfnt::outlineFont(names)));
        made.append(accentFamily);
        const QString conf = m_dir->filePath(QStringLiteral("fonts.conf"));
        QVERIFY(Sfnt::writeFile(conf, QStringLiteral("<?xml version=\"1.0\"?>\n<!DOCTYPE fontconfig SYSTEM \"fonts.dtd\">\n"
                                                     "<fontconfig>\n  <cachedir>%1</cachedir>\n  <dir>%2</dir>\n"
                                                     "  <include ignore_missing=\"yes\">/etc/fonts/fonts.conf</include>\n"
                                                     "</fontconfig>\n")
                                          .arg(m_dir->filePath(QStringLiteral("cache")), fontsDir)
                                          .toUtf8()));
        const QString pdf = m_dir->filePath(QStringLiteral("listepol.pdf"));
        const TestSupport::ChildResult child = TestSupport::runScenario(
            QStringLiteral("list-pdf"), {QStringLiteral("FONTCONFIG_FILE=") + conf, QStringLiteral("GLYPHORA_LIST_PDF=") + pdf},
            120000);
        QCOMPARE(child.exitCode, 0);
        QVERIFY2(child.out.contains(QStringLiteral("dialog=[Enregistrer la liste des polices en PDF|listepol.pdf] written=1")),
                 qPrintable(child.out.left(500) + child.err.left(2000)));
        QStringList listed;
        static const QRegularExpression nameLine(QStringLiteral("^name=\\[(.*)\\]$"), QRegularExpression::MultilineOption);
        for (auto it = nameLine.globalMatch(child.out); it.hasNext();)
            listed.append(it.next().captured(1));
        const QString interfaceFamily = QRegularExpression(QStringLiteral("interface=\\[(.*)\\]")).match(child.out).captured(1);
        for (const QString& family : made)
            QVERIFY2(listed.contains(family), qPrintable(family));

        // Our fonts' names come out in the list's order, each in its own face (the accented
        // one in the interface font), page after page; every font is embedded.
        const QList<PdfCheck::Line> lines = PdfCheck::lines(pdf);
        QStringList ours, expected;
        for (const QString& family : listed)
            if (family.startsWith(listFamilyStem))
                expected.append(family);
        int lastPage = 1;
        for (const PdfCheck::Line& line : lines) {
            QVERIFY(line.page >= lastPage);
            lastPage = line.page;
            if (!line.text.startsWith(listFamilyStem))
                continue;
            ours.append(line.text);
            const QString ps = line.text == accentFamily ? PdfCheck::postScriptName(interfaceFamily)
                                                         : QString(line.text).remove(QLatin1Char(' ')) + QStringLiteral("-Regular");
            QVERIFY2(PdfCheck::sameFont(line.font, ps), qPrintable(line.text + ": " + line.font + " / " + ps));
        }
        QCOMPARE(ours, expected);
        QCOMPARE(lastPage, PdfCheck::pageCount(pdf));
        QVERIFY(lastPage >= 300 / 60);
        const QList<PdfCheck::Font> fonts = PdfCheck::fonts(pdf);
        QVERIFY(fonts.size() >= 300);
        for (const PdfCheck::Font& font : fonts)
            QVERIFY2(font.embedded, qPrintable(font.name));
    }
};

GLYPHORA_TEST_MAIN(TestProofPrint)
#include "test_proofprint.moc"
