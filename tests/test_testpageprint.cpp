// Printing for real: the test page and the font list go to the default CUPS printer (a
// PDF queue) and the PDF is read back; with no printer, the documented messages.
#include "app/tglyphora.h"
#include "browser/samplebox.h"
#include "components/printer.h"
#include "output/ptest.h"
#include "support/modalscript.h"
#include "support/pdfcheck.h"
#include "support/testsupport.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDirIterator>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpression>
#include <QStatusBar>
#include <QTreeWidget>
#include <QUuid>
#include <cstdio>
#include <memory>

// Real printing needs the PDF queue: skipped without it, unless it is required.
#define REQUIRE_PRINTER()                                     \
    do {                                                      \
        if (!m_hasPrinter) {                                  \
            if (qEnvironmentVariableIsSet("GLYPHORA_REQUIRE_PRINTER")) \
                QFAIL("no default printer");                  \
            QSKIP("no default printer");                      \
        }                                                     \
    } while (false)

namespace {

// PDFs of this process (named after its own document name) that the queue wrote since
// `since` and whose text holds `marker`.
QStringList pdfsContaining(const QDateTime& since, const QString& marker, const QString& documentName)
{
    QStringList found;
    QDirIterator files(TestSupport::pdfOutputFolder(), {documentName + QStringLiteral("*.pdf")}, QDir::Files,
                       QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QFileInfo info(files.next());
        if (info.lastModified() >= since && TestSupport::pdfText(info.filePath()).contains(marker))
            found.append(info.filePath());
    }
    return found;
}

// Hex digits keep the marker narrow: a 120-point sample line holding it must fit the page.
QString uniqueMarker()
{
    return QStringLiteral("Marque") + QUuid::createUuid().toString(QUuid::Id128).left(8).toUpper();
}

// Child process with no printer: the test page on the printer shows the failure
// message; printing the list says nothing. Prints what happened.
int noPrinterScenario()
{
    tglyphora window;
    window.show();
    Ptest dialog(&window);
    dialog.show();
    dialog.List1->item(0)->setSelected(true);
    QStringList seen;
    ModalScript script({[&](QWidget* modal) {
        seen.append(ModalScript::describe(modal));
        ModalScript::clickButton(QMessageBox::Ok)(modal);
    }});
    QTest::mouseClick(dialog.Command2, Qt::LeftButton);
    std::printf("device=[%s]\n", qPrintable(Printer::instance().DeviceName()));
    std::printf("page=[%s]\n", qPrintable(seen.join('|')));
    std::printf("status=[%s] cursor=%d\n", qPrintable(dialog.StatusBar1->currentMessage()), int(dialog.cursor().shape()));
    dialog.close();

    ModalScript list({ModalScript::clickButton(QMessageBox::Yes)});
    window.mimpnames_Click();
    std::printf("list=[%s] open=%d\n", qPrintable(list.unexpected().join('|')), int(Printer::instance().hasOpenDocument()));
    std::fflush(stdout);
    return 0;
}

const bool scenariosRegistered = [] {
    TestSupport::registerScenario(QStringLiteral("no-printer"), noPrinterScenario);
    return true;
}();

} // namespace

class TestTestPagePrint : public QObject {
    Q_OBJECT
    std::unique_ptr<tglyphora> m_main;
    QString m_nameFont;
    QStringList m_sampleFonts;
    QString m_documentName;
    bool m_hasPrinter = false;

    QAction* menuItem(const char* name) const { return m_main->findChild<QAction*>(QString::fromLatin1(name)); }

    // Opens the test page from the menu, lets `prepare` fill it, presses "&Imprimer"
    // and closes it. Returns the texts of any message box that appeared.
    QStringList printTestPage(const std::function<void(Ptest&)>& prepare, QStringList* statusTexts = nullptr)
    {
        QStringList messages;
        ModalScript script({[&](QWidget* modal) {
            auto* dialog = qobject_cast<Ptest*>(modal);
            if (!dialog)
                return;
            prepare(*dialog);
            if (statusTexts)
                connect(dialog->StatusBar1, &QStatusBar::messageChanged, dialog,
                        [statusTexts](const QString& text) { statusTexts->append(text); });
            QTest::mouseClick(dialog->Command2, Qt::LeftButton);
            QTest::mouseClick(dialog->Command3, Qt::LeftButton);
        }});
        menuItem("mpagtst")->trigger();
        messages = script.unexpected();
        return messages;
    }

    static void select(Ptest& dialog, const QStringList& names)
    {
        for (const QString& name : names)
            dialog.List1->findItems(name, Qt::MatchExactly).value(0)->setSelected(true);
    }

private Q_SLOTS:
    void initTestCase()
    {
        m_hasPrinter = TestSupport::requirePrinter();
        m_main = std::make_unique<tglyphora>();
        m_main->show();
        // The jobs of this run are told apart from any other by their document name.
        m_documentName = TestSupport::useOwnDocumentName();
        QStringList installed;
        for (int i = 0; i < m_main->List1->topLevelItemCount(); ++i)
            installed.append(m_main->List1->topLevelItem(i)->text(0));
        // Fonts of distinct designs from the packages the tests install (fonts-dejavu-core,
        // fonts-urw-base35), whatever else the machine has.
        m_sampleFonts = {QStringLiteral("DejaVu Serif"), QStringLiteral("Nimbus Mono PS"), QStringLiteral("URW Gothic")};
        m_nameFont = QStringLiteral("DejaVu Sans");
        const QStringList needed = QStringList(m_sampleFonts) << m_nameFont;
        for (const QString& font : needed)
            QVERIFY2(installed.contains(font), qPrintable(font + QStringLiteral(" is not installed")));
    }

    void cleanupTestCase()
    {
        Printer::instance().EndDoc();
        m_main.reset();
    }

    void testPageForThreeFonts()
    {
        REQUIRE_PRINTER();
        Printer::instance().EndDoc();
        const QString marker = uniqueMarker();
        const QString sample = QStringLiteral("Texte d'essai ") + marker + QStringLiteral("\r\nSeconde ligne");
        const QDateTime since = QDateTime::currentDateTime();
        QStringList status;
        const QStringList messages = printTestPage(
            [&](Ptest& dialog) {
                select(dialog, m_sampleFonts);
                dialog.List2->setCurrentItem(dialog.List2->findItems(m_nameFont, Qt::MatchExactly).value(0));
                dialog.Text1->setText(sample);
                dialog.Combo1->setCurrentIndex(dialog.Combo1->findText(QStringLiteral(" 14")));
                dialog.Combo2->setCurrentIndex(dialog.Combo2->findText(QStringLiteral(" 10")));
            },
            &status);
        QVERIFY2(messages.isEmpty(), qPrintable(messages.join('\n')));
        QVERIFY(!Printer::instance().hasOpenDocument());

        // The list is walked in its own order, which need not be the order chosen here.
        QStringList order;
        for (int i = 0; i < m_main->List1->topLevelItemCount(); ++i)
            if (m_sampleFonts.contains(m_main->List1->topLevelItem(i)->text(0)))
                order.append(m_main->List1->topLevelItem(i)->text(0));
        QStringList expectedStatus;
        for (const QString& font : order)
            expectedStatus.append(QStringLiteral("Impression de la police ") + font);
        expectedStatus.append(QString());
        QCOMPARE(status, expectedStatus);

        QVERIFY(!TestSupport::waitForPdf(since).isEmpty());
        const QStringList pdfs = pdfsContaining(since, marker, m_documentName);
        QCOMPARE(pdfs.size(), 1);
        const QList<PdfCheck::Line> lines = PdfCheck::lines(pdfs.first());
        QStringList dump;
        for (const PdfCheck::Line& line : lines)
            dump.append(line.text + QStringLiteral(" [") + line.font + QLatin1Char(']'));
        const QString nameFontPs = PdfCheck::postScriptName(m_nameFont);
        QCOMPARE(lines.size(), 3 * order.size());
        for (int k = 0; k < order.size(); ++k) {
            const QString fontPs = PdfCheck::postScriptName(order[k]);
            const PdfCheck::Line& name = lines[3 * k];
            const PdfCheck::Line& first = lines[3 * k + 1];
            const PdfCheck::Line& second = lines[3 * k + 2];
            QVERIFY2(name.text == order[k] && PdfCheck::sameFont(name.font, nameFontPs), qPrintable(dump.join('\n')));
            QVERIFY2(first.text == QStringLiteral("Texte d'essai ") + marker && PdfCheck::sameFont(first.font, fontPs),
                     qPrintable(dump.join('\n')));
            QVERIFY2(second.text == QStringLiteral("Seconde ligne") && PdfCheck::sameFont(second.font, fontPs), qPrintable(dump.join('\n')));
        }
        // pdffonts agrees: the name font and the three fonts, embedded.
        const QString fontTable = TestSupport::pdfFonts(pdfs.first());
        QStringList embedded;
        static const QRegularExpression row(QStringLiteral("^[A-Z]{6}\\+(\\S+)"), QRegularExpression::MultilineOption);
        for (auto it = row.globalMatch(fontTable); it.hasNext();)
            embedded.append(it.next().captured(1));
        QCOMPARE(embedded.size(), 4);
        const QStringList printedFonts = QStringList(order) << m_nameFont;
        for (const QString& font : printedFonts) {
            const QString ps = PdfCheck::postScriptName(font);
            QVERIFY2(std::any_of(embedded.begin(), embedded.end(), [&](const QString& e) { return PdfCheck::sameFont(e, ps); }),
                     qPrintable(fontTable));
        }
    }

    void twoListsThenATestPageMakeOneJob()
    {
        REQUIRE_PRINTER();
        Printer::instance().EndDoc();
        const QString marker = uniqueMarker();
        const QString listMarker = QStringLiteral("Liste") + marker;
        // A list of the test's own instead of the machine's fonts: what is printed does
        // not depend on which fonts are installed.
        m_main->List1->clear();
        for (int i = 1; i <= 12; ++i)
            m_main->List1->addTopLevelItem(new QTreeWidgetItem(QStringList{QStringLiteral("Police temoin %1").arg(i)}));
        m_main->List1->addTopLevelItem(new QTreeWidgetItem(QStringList{listMarker}));
        const QDateTime since = QDateTime::currentDateTime();
        for (int round = 0; round < 2; ++round) {
            QString question;
            ModalScript script({ModalScript::clickButton(QMessageBox::Yes, &question)});
            menuItem("mimpnames")->trigger();
            QCOMPARE(question, QStringLiteral("Glyphora: Etes vous certain(e) ?"));
            QVERIFY(script.unexpected().isEmpty());
            QVERIFY(Printer::instance().hasOpenDocument()); // nothing sent yet
        }
        QStringList printedList;
        for (int i = 0; i < m_main->List1->topLevelItemCount(); ++i)
            printedList.append(m_main->List1->topLevelItem(i)->text(0));
        m_main->charge(); // the test page lists the installed fonts again
        const QStringList messages = printTestPage([&](Ptest& dialog) {
            select(dialog, {m_sampleFonts.first()});
            dialog.Text1->setText(QStringLiteral("Page ") + marker);
        });
        QVERIFY(messages.isEmpty());
        QVERIFY(!Printer::instance().hasOpenDocument());

        QVERIFY(!TestSupport::waitForPdf(since).isEmpty());
        const QStringList pdfs = pdfsContaining(since, marker, m_documentName);
        QCOMPARE(pdfs.size(), 1);
        QString text = TestSupport::pdfText(pdfs.first());
        const qsizetype first = text.indexOf(listMarker);
        const qsizetype second = text.indexOf(listMarker, first + 1);
        const qsizetype page = text.indexOf(QStringLiteral("Page ") + marker);
        QVERIFY(first >= 0);
        QVERIFY(second > first);
        QVERIFY(page > second);
        QCOMPARE(text.count(listMarker), 2);
        // Both lists are whole: every font name of the list is printed twice before the page.
        const QString lists = text.left(page);
        for (const QString& name : printedList)
            QVERIFY2(lists.count(QRegularExpression(QStringLiteral("(^|\\n)\\s*") + QRegularExpression::escape(name) + QStringLiteral("\\s*\\n"))) == 2,
                     qPrintable(name + QStringLiteral(" in ") + lists));
    }

    void aLongSampleFlowsOntoTheNextPages()
    {
        REQUIRE_PRINTER();
        Printer::instance().EndDoc();
        const QString marker = uniqueMarker().right(5); // short: a 120-point line must fit the width
        QStringList sampleLines;
        for (int i = 1; i <= 12; ++i)
            sampleLines.append(QStringLiteral("%1 ").arg(i) + marker);
        const QDateTime since = QDateTime::currentDateTime();
        const QStringList messages = printTestPage([&](Ptest& dialog) {
            select(dialog, {m_sampleFonts.first()});
            dialog.Text1->setText(sampleLines.join(QStringLiteral("\r\n")));
            dialog.Combo1->setCurrentIndex(dialog.Combo1->count() - 1); // 120 points
        });
        QVERIFY(messages.isEmpty());
        QVERIFY(!TestSupport::waitForPdf(since).isEmpty());
        const QStringList pdfs = pdfsContaining(since, marker, m_documentName);
        QCOMPARE(pdfs.size(), 1);
        const int pages = PdfCheck::pageCount(pdfs.first());
        QVERIFY2(pages >= 3, qPrintable(QStringLiteral("%1 pages").arg(pages)));
        // Every line is printed whole, in order, none lost at a page break.
        QStringList printed;
        for (const PdfCheck::Line& line : PdfCheck::lines(pdfs.first()))
            if (line.text.contains(marker))
                printed.append(line.text);
        QCOMPARE(printed, sampleLines);
    }

    void noSelectedFontSendsAnEmptyDocumentSilently()
    {
        REQUIRE_PRINTER();
        Printer::instance().EndDoc();
        const QDateTime since = QDateTime::currentDateTime();
        const QStringList messages = printTestPage([](Ptest& dialog) { QVERIFY(dialog.selectedFonts().isEmpty()); });
        QVERIFY2(messages.isEmpty(), qPrintable(messages.join('\n')));
        QVERIFY(!Printer::instance().hasOpenDocument());
        const QString pdf = TestSupport::waitForPdf(since);
        QVERIFY(!pdf.isEmpty());
        QVERIFY(TestSupport::pdfText(pdf).trimmed().isEmpty());
    }

    void withNoPrinter()
    {
        const TestSupport::ChildResult child = TestSupport::runScenario(
            QStringLiteral("no-printer"), {QStringLiteral("CUPS_SERVER=/nonexistent/glyphora-cups.sock"),
                                           QStringLiteral("PRINTER="), QStringLiteral("LPDEST=")});
        QCOMPARE(child.exitCode, 0);
        QVERIFY2(child.out.contains(QStringLiteral("device=[]")), qPrintable(child.out + child.err));
        QVERIFY2(child.out.contains(QStringLiteral("page=[Glyphora: Problème pendant l'impression ou la génération du fichier]")),
                 qPrintable(child.out));
        QVERIFY2(child.out.contains(QStringLiteral("status=[] cursor=0")), qPrintable(child.out));
        QVERIFY2(child.out.contains(QStringLiteral("list=[] open=0")), qPrintable(child.out));
    }
};

GLYPHORA_TEST_MAIN(TestTestPagePrint)
#include "test_testpageprint.moc"
