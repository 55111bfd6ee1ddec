// The compare window "Comparer des polices", driven through its controls: the fonts it
// starts with, adding (with the filter), removing and reordering, the 20-font limit,
// the common size and styles, baselines in line on screen, the waterfall and its sizes,
// and the PDFs it writes, read back with poppler.
#include "app/debut.h"
#include "app/tglyphora.h"
#include "browser/samplebox.h"
#include "output/comparer.h"
#include "output/comparisonview.h"
#include "support/modalscript.h"
#include "support/pdfcheck.h"
#include "support/testsupport.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QListView>
#include <QListWidget>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QTemporaryDir>
#include <QTreeWidget>
#include <memory>

namespace {

QStringList chosen(const Comparer& dialog)
{
    QStringList names;
    for (int i = 0; i < dialog.lstChoix->count(); ++i)
        names.append(dialog.lstChoix->item(i)->text());
    return names;
}

QStringList rowLabels(const Comparer& dialog)
{
    QStringList labels;
    for (const ProofPages::Row& row : dialog.picComparaison->rows())
        labels.append(row.label);
    return labels;
}

QStringList filtered(const Comparer& dialog)
{
    QStringList names;
    const QAbstractItemModel* model = dialog.lstPolices->model();
    for (int i = 0; i < model->rowCount(); ++i)
        names.append(model->index(i, 0).data().toString());
    return names;
}

// Picks a family in the searchable list the way a user does: filter, click, "Ajouter".
void pick(Comparer& dialog, const QString& family)
{
    dialog.txtFiltre->setText(family);
    const QAbstractItemModel* model = dialog.lstPolices->model();
    for (int i = 0; i < model->rowCount(); ++i)
        if (model->index(i, 0).data().toString() == family)
            dialog.lstPolices->setCurrentIndex(model->index(i, 0));
    QTest::mouseClick(dialog.cmdAjouter, Qt::LeftButton);
}

// A save dialog step that records the title and the name offered, then saves `path`.
ModalScript::Step saveAs(const QString& path, QString* title, QString* offered)
{
    return [=](QWidget* modal) {
        *title = modal->windowTitle();
        if (auto* edit = modal->findChild<QLineEdit*>(QStringLiteral("fileNameEdit")))
            *offered = edit->text();
        ModalScript::chooseFile(path)(modal);
    };
}

// The lowest row of dark pixels in a column range and row range of an image; -1 if none.
int lowestInk(const QImage& image, int left, int right, int top, int bottom)
{
    for (int y = std::min(bottom, image.height() - 1); y >= std::max(top, 0); --y)
        for (int x = std::max(left, 0); x < std::min(right, image.width()); ++x)
            if (qGray(image.pixel(x, y)) < 128)
                return y;
    return -1;
}

int leftmostInk(const QImage& image, int left, int top, int bottom)
{
    for (int x = std::max(left, 0); x < image.width(); ++x)
        for (int y = std::max(top, 0); y < std::min(bottom, image.height()); ++y)
            if (qGray(image.pixel(x, y)) < 128)
                return x;
    return -1;
}

} // namespace

class TestComparer : public QObject {
    Q_OBJECT
    std::unique_ptr<tglyphora> m_main;
    std::unique_ptr<QTemporaryDir> m_dir;

    QAction* menuItem(const char* name) const { return m_main->findChild<QAction*>(QString::fromLatin1(name)); }

    void showInMain(const QString& family)
    {
        const QList<QTreeWidgetItem*> found = m_main->List1->findItems(family, Qt::MatchExactly);
        QVERIFY2(!found.isEmpty(), qPrintable(family));
        m_main->List1->setCurrentItem(found.first());
        m_main->List1_Click();
    }

    std::unique_ptr<Comparer> open()
    {
        auto dialog = std::make_unique<Comparer>(m_main.get());
        dialog->show();
        return dialog;
    }

private Q_SLOTS:
    void initTestCase()
    {
        TestSupport::clearSettings();
        m_main = std::make_unique<tglyphora>();
        m_main->show();
        m_main->List1->addTopLevelItem(new QTreeWidgetItem(QStringList{QStringLiteral("Café Test")}));
        for (int i = 1; i <= 21; ++i)
            m_main->List1->addTopLevelItem(new QTreeWidgetItem(QStringList{QStringLiteral("Essai %1").arg(i, 2, 10, QLatin1Char('0'))}));
    }

    void cleanupTestCase() { m_main.reset(); }

    void init()
    {
        m_dir = std::make_unique<QTemporaryDir>();
        QVERIFY(m_dir->isValid());
    }

    void menuItemOpensTheWindowModally()
    {
        QAction* item = menuItem("mcomparer");
        QVERIFY(item);
        QCOMPARE(item->text(), QStringLiteral("Co&mparer des polices..."));
        QCOMPARE(item->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_M));
        QStringList tools;
        for (const QAction* action : m_main->moutils->actions())
            tools.append(action->objectName());
        QCOMPARE(tools, (QStringList{"municode", "mdetails", "mcomparer", "mlistepdf", "maperculiste", "minstaller"}));
        QString seen;
        bool modal = false;
        ModalScript script({[&](QWidget* window) {
            seen = window->windowTitle() + QLatin1Char('|') + window->objectName();
            modal = window->isModal();
            QTest::mouseClick(window->findChild<QPushButton*>(QStringLiteral("cmdFermer")), Qt::LeftButton);
        }});
        item->trigger();
        QCOMPARE(seen, QStringLiteral("Comparer des polices|Comparer"));
        QVERIFY(modal);
        QVERIFY(script.unexpected().isEmpty());
    }

    void startsWithTheSelectedFontAndTheLastFiveShown()
    {
        for (const char* family : {"C059", "DejaVu Serif", "DejaVu Sans Mono", "Inter", "Noto Sans CJK JP",
                                   "Noto Serif CJK JP", "DejaVu Serif", "DejaVu Sans"})
            showInMain(QString::fromLatin1(family));
        auto dialog = open();
        QCOMPARE(chosen(*dialog), (QStringList{"DejaVu Sans", "DejaVu Serif", "Noto Serif CJK JP", "Noto Sans CJK JP",
                                                "Inter", "DejaVu Sans Mono"}));
        QCOMPARE(rowLabels(*dialog), chosen(*dialog));
        QCOMPARE(dialog->lstChoix->currentRow(), 0);
        // The sample is the main window's first text, at its size.
        QCOMPARE(dialog->txtTexte->toPlainText(), m_main->Text1->text().replace(QStringLiteral("\r\n"), QStringLiteral("\n")));
        QCOMPARE(dialog->cboTaille->currentText(), m_main->Combo1->currentText());
        QCOMPARE(dialog->cboTaille->count(), 117);
        for (const char* name : {"txtFiltre", "lstPolices", "cmdAjouter", "lstChoix", "cmdRetirer", "cmdMonter", "cmdDescendre",
                                 "txtTexte", "cboTaille", "chkCascade", "txtTailles", "picComparaison", "chkApercu",
                                 "cmdImprimer", "cmdPDF", "cmdFermer"})
            QVERIFY2(dialog->findChild<QWidget*>(QString::fromLatin1(name)), name);
        QCOMPARE(dialog->chkCascade->text(), QStringLiteral("Cascade"));
        QCOMPARE(dialog->chkApercu->text(), QStringLiteral("Aperçu avant impression"));
        QCOMPARE(dialog->cmdImprimer->text(), QStringLiteral("Imprimer"));
        QCOMPARE(dialog->cmdPDF->text(), QStringLiteral("PDF..."));
        QVERIFY(!dialog->chkCascade->isChecked());
        QVERIFY(!dialog->chkApercu->isChecked());
    }

    void theFilterIgnoresCaseAndAccents()
    {
        auto dialog = open();
        QCOMPARE(filtered(*dialog).size(), m_main->List1->topLevelItemCount());
        dialog->txtFiltre->setText(QStringLiteral("CAFE"));
        QCOMPARE(filtered(*dialog), QStringList{"Café Test"});
        dialog->txtFiltre->setText(QStringLiteral("dejavu ser"));
        QCOMPARE(filtered(*dialog), QStringList{"DejaVu Serif"});
        dialog->txtFiltre->setText(QStringLiteral("essai 2"));
        QCOMPARE(filtered(*dialog), (QStringList{"Essai 02", "Essai 12", "Essai 20", "Essai 21"}));
        // The main list's rules: every word, in any order.
        dialog->txtFiltre->setText(QStringLiteral("SERIF  dejavu"));
        QCOMPARE(filtered(*dialog).join('|'), QStringLiteral("DejaVu Serif"));
        // And the other names fontconfig gives a family (DejaVu's condensed faces carry
        // "DejaVu Sans Condensed" beside "DejaVu Sans"), once the family index is built.
        dialog->txtFiltre->setText(QStringLiteral("condensed dejavu"));
        QTRY_COMPARE(filtered(*dialog), (QStringList{"DejaVu Sans", "DejaVu Serif"}));
        dialog->txtFiltre->clear();
        QCOMPARE(filtered(*dialog).size(), m_main->List1->topLevelItemCount());
    }

    void fontsAreAddedRemovedAndReordered()
    {
        showInMain(QStringLiteral("DejaVu Sans"));
        debut::ShownFaces = {QStringLiteral("DejaVu Sans")};
        auto dialog = open();
        QCOMPARE(chosen(*dialog), QStringList{"DejaVu Sans"});
        pick(*dialog, QStringLiteral("DejaVu Serif"));
        pick(*dialog, QStringLiteral("Inter"));
        // Activating a family (double-click, Return) adds it too; one already there is
        // not added twice.
        dialog->txtFiltre->setText(QStringLiteral("mono"));
        const QModelIndex mono = dialog->lstPolices->model()->index(filtered(*dialog).indexOf("DejaVu Sans Mono"), 0);
        dialog->lstPolices->setCurrentIndex(mono);
        emit dialog->lstPolices->activated(mono);
        pick(*dialog, QStringLiteral("Inter"));
        // Return in the filter box takes the first family it leaves.
        dialog->txtFiltre->setText(QStringLiteral("noto serif cjk jp"));
        QTest::keyClick(dialog->txtFiltre, Qt::Key_Return);
        QCOMPARE(chosen(*dialog), (QStringList{"DejaVu Sans", "DejaVu Serif", "Inter", "DejaVu Sans Mono", "Noto Serif CJK JP"}));
        dialog->lstChoix->setCurrentRow(4);
        QTest::mouseClick(dialog->cmdRetirer, Qt::LeftButton);
        QCOMPARE(chosen(*dialog), (QStringList{"DejaVu Sans", "DejaVu Serif", "Inter", "DejaVu Sans Mono"}));
        QCOMPARE(rowLabels(*dialog), chosen(*dialog));

        dialog->lstChoix->setCurrentRow(1);
        QTest::mouseClick(dialog->cmdRetirer, Qt::LeftButton);
        QCOMPARE(chosen(*dialog), (QStringList{"DejaVu Sans", "Inter", "DejaVu Sans Mono"}));
        QCOMPARE(dialog->lstChoix->currentRow(), 1);
        QTest::mouseClick(dialog->cmdDescendre, Qt::LeftButton);
        QCOMPARE(chosen(*dialog), (QStringList{"DejaVu Sans", "DejaVu Sans Mono", "Inter"}));
        QCOMPARE(dialog->lstChoix->currentRow(), 2);
        QTest::mouseClick(dialog->cmdDescendre, Qt::LeftButton); // already last
        dialog->lstChoix->setCurrentRow(1);
        QTest::mouseClick(dialog->cmdMonter, Qt::LeftButton);
        QCOMPARE(chosen(*dialog), (QStringList{"DejaVu Sans Mono", "DejaVu Sans", "Inter"}));
        QCOMPARE(rowLabels(*dialog), chosen(*dialog));

        // A drag in the list moves the row as the list's own drop does.
        QVERIFY(dialog->lstChoix->dragDropMode() == QAbstractItemView::InternalMove);
        QVERIFY(dialog->lstChoix->model()->moveRow(QModelIndex(), 2, QModelIndex(), 0));
        QCOMPARE(chosen(*dialog), (QStringList{"Inter", "DejaVu Sans Mono", "DejaVu Sans"}));
        QCOMPARE(rowLabels(*dialog), chosen(*dialog));
        QCOMPARE(dialog->model().fonts(), chosen(*dialog));

        for (int i = 0; i < 3; ++i) {
            dialog->lstChoix->setCurrentRow(0);
            QTest::mouseClick(dialog->cmdRetirer, Qt::LeftButton);
        }
        QVERIFY(chosen(*dialog).isEmpty());
        QVERIFY(rowLabels(*dialog).isEmpty());
        QVERIFY(!dialog->cmdImprimer->isEnabled());
        QVERIFY(!dialog->cmdPDF->isEnabled());
    }

    void twentyFontsAtMost()
    {
        debut::ShownFaces.clear();
        showInMain(QStringLiteral("DejaVu Sans"));
        auto dialog = open();
        for (int i = 1; i <= 19; ++i)
            pick(*dialog, QStringLiteral("Essai %1").arg(i, 2, 10, QLatin1Char('0')));
        QCOMPARE(dialog->model().count(), 20);
        QString message;
        ModalScript script({ModalScript::clickButton(QMessageBox::Ok, &message)});
        pick(*dialog, QStringLiteral("Essai 20"));
        QVERIFY(script.waitUntilDone());
        QCOMPARE(message, QStringLiteral("Glyphora: On ne peut pas comparer plus de 20 polices à la fois. "
                                         "Retirez-en une avant d'en ajouter une autre."));
        QCOMPARE(dialog->model().count(), 20);
        QVERIFY(!chosen(*dialog).contains(QStringLiteral("Essai 20")));
        dialog->lstChoix->setCurrentRow(5);
        QTest::mouseClick(dialog->cmdRetirer, Qt::LeftButton);
        ModalScript none;
        pick(*dialog, QStringLiteral("Essai 20"));
        QCOMPARE(chosen(*dialog).last(), QStringLiteral("Essai 20"));
        QCOMPARE(rowLabels(*dialog).size(), 20);
        QVERIFY(none.unexpected().isEmpty());
    }

    void everyRowHasTheCommonSizeAndStyles()
    {
        showInMain(QStringLiteral("DejaVu Serif"));
        m_main->Combo1->setCurrentIndex(m_main->Combo1->findText(QStringLiteral(" 24")));
        m_main->setButtonValue(tglyphora::BoldButton, 1);
        m_main->setButtonValue(tglyphora::StrikeButton, 1);
        auto dialog = open();
        m_main->setButtonValue(tglyphora::BoldButton, 0);
        m_main->setButtonValue(tglyphora::StrikeButton, 0);
        QVERIFY(dialog->model().count() >= 2);
        QCOMPARE(dialog->cboTaille->currentText(), QStringLiteral(" 24"));
        for (const ProofPages::Row& row : dialog->picComparaison->rows()) {
            QCOMPARE(row.font.families(), QStringList{row.label});
            QCOMPARE(row.font.pointSizeF(), 24.0);
            QVERIFY(row.font.bold());
            QVERIFY(!row.font.italic());
            QVERIFY(!row.font.underline());
            QVERIFY(row.font.strikeOut());
        }
        dialog->cboTaille->setCurrentIndex(dialog->cboTaille->findText(QStringLiteral(" 72")));
        dialog->txtTexte->setPlainText(QStringLiteral("Portez ce vieux whisky"));
        for (const ProofPages::Row& row : dialog->picComparaison->rows()) {
            QCOMPARE(row.font.pointSizeF(), 72.0);
            QCOMPARE(row.sample, QStringLiteral("Portez ce vieux whisky"));
        }
        m_main->Combo1->setCurrentIndex(m_main->Combo1->findText(QStringLiteral(" 13")));
    }

    void baselinesLineUpWithTheNames()
    {
        debut::ShownFaces = {QStringLiteral("Noto Sans CJK JP"), QStringLiteral("DejaVu Serif")};
        showInMain(QStringLiteral("DejaVu Sans"));
        auto dialog = open();
        QCOMPARE(chosen(*dialog), (QStringList{"DejaVu Sans", "Noto Sans CJK JP", "DejaVu Serif"}));
        dialog->txtTexte->setPlainText(QStringLiteral("HHHH"));
        dialog->cboTaille->setCurrentIndex(dialog->cboTaille->findText(QStringLiteral(" 36")));
        QCoreApplication::processEvents();
        const QImage image = dialog->picComparaison->grab().toImage();
        const ProofPages::RowGeometry g = dialog->picComparaison->geometry();
        const int margin = dialog->picComparaison->fontMetrics().height();
        const QFontMetrics label = dialog->picComparaison->fontMetrics();
        double top = margin;
        QList<int> sampleEdges;
        for (qsizetype i = 0; i < g.heights.size(); ++i) {
            const int rowTop = int(top), rowBottom = int(top + g.heights[i]);
            const QString name = dialog->picComparaison->rows()[i].label;
            // The name's first letter (D, N: no descender) and the sample's H sit on one line.
            const int nameBase = lowestInk(image, margin, margin + label.horizontalAdvance(name.left(1)), rowTop, rowBottom);
            const int sampleLeft = margin + int(g.sampleLeft);
            const int sampleBase = lowestInk(image, sampleLeft, image.width(), rowTop, rowBottom);
            QVERIFY2(nameBase > rowTop && sampleBase > rowTop, qPrintable(name));
            QVERIFY2(qAbs(nameBase - sampleBase) <= 1, qPrintable(QStringLiteral("%1: %2 / %3").arg(name).arg(nameBase).arg(sampleBase)));
            QVERIFY2(qAbs(sampleBase - (rowTop + g.baselines[i])) <= 2, qPrintable(name));
            sampleEdges.append(leftmostInk(image, sampleLeft - 4, rowTop, rowBottom));
            // Nothing of the sample left of the common edge, names included.
            const int afterName = leftmostInk(image, margin + label.horizontalAdvance(name) + 1, rowTop, rowBottom);
            QVERIFY2(afterName >= sampleLeft - 1, qPrintable(QStringLiteral("%1: %2 < %3 (%4..%5)").arg(name).arg(afterName).arg(sampleLeft).arg(rowTop).arg(rowBottom)));
            top += g.heights[i];
        }
        // One left edge for every sample (within the side bearing of an H).
        for (int edge : sampleEdges)
            QVERIFY2(qAbs(edge - sampleEdges.first()) <= 4, qPrintable(QStringLiteral("%1 / %2").arg(edge).arg(sampleEdges.first())));
        QVERIFY(g.baselines[1] > g.baselines[0]); // the CJK face rises higher: its row is taller
    }

    void theWaterfallShowsTheChosenFontAtEachSize()
    {
        TestSupport::clearSettings();
        debut::ShownFaces = {QStringLiteral("DejaVu Serif")};
        showInMain(QStringLiteral("DejaVu Sans"));
        auto dialog = open();
        QCOMPARE(dialog->txtTailles->text(), QStringLiteral("8 9 10 11 12 14 18 24 36 48 72"));
        dialog->lstChoix->setCurrentRow(1);
        dialog->chkCascade->click();
        QCOMPARE(rowLabels(*dialog), (QStringList{"8 pt", "9 pt", "10 pt", "11 pt", "12 pt", "14 pt", "18 pt", "24 pt",
                                                   "36 pt", "48 pt", "72 pt"}));
        const QList<ProofPages::Row> rows = dialog->picComparaison->rows();
        for (const ProofPages::Row& row : rows) {
            QCOMPARE(row.font.families(), QStringList{"DejaVu Serif"});
            QCOMPARE(row.sample, QStringLiteral("ABCDEFGHIJKLMNOPQRSTUVWXYZ"));
            QCOMPARE(QString::number(row.font.pointSizeF()) + QStringLiteral(" pt"), row.label);
        }
        dialog->lstChoix->setCurrentRow(0);
        QCOMPARE(dialog->picComparaison->rows().first().font.families(), QStringList{"DejaVu Sans"});
        // A font just added is the one the waterfall shows.
        pick(*dialog, QStringLiteral("Inter"));
        QCOMPARE(dialog->picComparaison->rows().first().font.families(), QStringList{"Inter"});
        dialog->chkCascade->click();
        QCOMPARE(rowLabels(*dialog), chosen(*dialog));
    }

    void wrongWaterfallSizesAreRefusedInFrench_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("message");
        QTest::newRow("word") << QStringLiteral("10 abc") << QStringLiteral("Glyphora: « abc » n'est pas une taille. Entrez des "
                                                                            "nombres entiers de points (de 4 à 400 points), séparés "
                                                                            "par des blancs ou des virgules.");
        QTest::newRow("zero") << QStringLiteral("0, 10") << QStringLiteral("Glyphora: La taille 0 n'est pas possible : les tailles "
                                                                          "vont de 4 à 400 points.");
        QTest::newRow("1000") << QStringLiteral("10 1000") << QStringLiteral("Glyphora: La taille 1000 n'est pas possible : les "
                                                                            "tailles vont de 4 à 400 points.");
        QTest::newRow("empty") << QStringLiteral("  ") << QStringLiteral("Glyphora: Entrez au moins une taille (de 4 à 400 points).");
    }

    void wrongWaterfallSizesAreRefusedInFrench()
    {
        QFETCH(QString, typed);
        QFETCH(QString, message);
        TestSupport::writeSetting(QStringLiteral("Cascade"), QStringLiteral("Tailles"), QStringLiteral("10 20"));
        auto dialog = open();
        dialog->chkCascade->click();
        QCOMPARE(rowLabels(*dialog), (QStringList{"10 pt", "20 pt"}));
        dialog->txtTailles->setFocus();
        dialog->txtTailles->selectAll();
        QString seen;
        ModalScript script({ModalScript::clickButton(QMessageBox::Ok, &seen)});
        QTest::keyClicks(dialog->txtTailles, typed);
        QTest::keyClick(dialog->txtTailles, Qt::Key_Return);
        QVERIFY(script.waitUntilDone());
        QCOMPARE(seen, message);
        QTest::qWait(50);
        QVERIFY2(script.unexpected().isEmpty(), qPrintable(script.unexpected().join('\n'))); // said once
        // Nothing applied, nothing stored.
        QCOMPARE(rowLabels(*dialog), (QStringList{"10 pt", "20 pt"}));
        QCOMPARE(TestSupport::readSetting(QStringLiteral("Cascade"), QStringLiteral("Tailles")), QStringLiteral("10 20"));
    }

    void waterfallSizesAreStoredAndRestored()
    {
        TestSupport::clearSettings();
        {
            auto dialog = open();
            dialog->chkCascade->click();
            dialog->txtTailles->setFocus();
            dialog->txtTailles->selectAll();
            ModalScript none;
            QTest::keyClicks(dialog->txtTailles, QStringLiteral(" 12, 24  12;36 "));
            QTest::keyClick(dialog->txtTailles, Qt::Key_Return);
            QVERIFY(none.unexpected().isEmpty());
            QCOMPARE(rowLabels(*dialog), (QStringList{"12 pt", "24 pt", "36 pt"}));
            QCOMPARE(dialog->txtTailles->text(), QStringLiteral("12 24 36"));
        }
        QCOMPARE(TestSupport::readSetting(QStringLiteral("Cascade"), QStringLiteral("Tailles")), QStringLiteral("12 24 36"));
        auto again = open();
        QCOMPARE(again->txtTailles->text(), QStringLiteral("12 24 36"));
        again->chkCascade->click();
        QCOMPARE(rowLabels(*again), (QStringList{"12 pt", "24 pt", "36 pt"}));
        // Garbage in the settings: the usual sizes.
        TestSupport::writeSetting(QStringLiteral("Cascade"), QStringLiteral("Tailles"), QStringLiteral("0 abc"));
        QCOMPARE(open()->txtTailles->text(), QStringLiteral("8 9 10 11 12 14 18 24 36 48 72"));
    }

    void theComparisonAsAPdf()
    {
        debut::ShownFaces = {QStringLiteral("C059"), QStringLiteral("Inter"), QStringLiteral("DejaVu Sans Mono"),
                             QStringLiteral("Noto Sans CJK JP"), QStringLiteral("DejaVu Serif")};
        showInMain(QStringLiteral("DejaVu Sans"));
        auto dialog = open();
        const QStringList fonts = chosen(*dialog);
        QCOMPARE(fonts.size(), 6);
        dialog->txtTexte->setPlainText(QStringLiteral("Hamburgefontsiv\nsecond"));
        dialog->cboTaille->setCurrentIndex(dialog->cboTaille->findText(QStringLiteral(" 96")));
        const QString pdf = m_dir->filePath(QStringLiteral("comparaison.pdf"));
        QString title, offered;
        ModalScript script({saveAs(pdf, &title, &offered)});
        QTest::mouseClick(dialog->cmdPDF, Qt::LeftButton);
        QVERIFY(script.unexpected().isEmpty());
        QCOMPARE(title, QStringLiteral("Enregistrer la comparaison en PDF"));
        QCOMPARE(offered, QStringLiteral("comparaison.pdf"));

        const QList<PdfCheck::Line> lines = PdfCheck::lines(pdf);
        QStringList expected;
        for (const QString& font : fonts)
            expected << font << QStringLiteral("Hamburgefontsiv") << QStringLiteral("second");
        QCOMPARE(PdfCheck::texts(lines), expected);
        // Six rows at 96 points do not fit one page: they flow, a row never cut.
        QVERIFY(PdfCheck::pageCount(pdf) >= 2);
        QVERIFY(lines.last().page >= 2);
        const QString interfacePs = PdfCheck::postScriptName(QApplication::font().family());
        for (qsizetype k = 0; k < fonts.size(); ++k) {
            QCOMPARE(lines[3 * k].page, lines[3 * k + 2].page);
            QVERIFY2(PdfCheck::sameFont(lines[3 * k].font, interfacePs), qPrintable(lines[3 * k].font));
            const QString ps = PdfCheck::postScriptName(fonts[k]);
            QVERIFY2(PdfCheck::sameFont(lines[3 * k + 1].font, ps), qPrintable(fonts[k] + ": " + lines[3 * k + 1].font + " / " + ps));
            QVERIFY2(PdfCheck::sameFont(lines[3 * k + 2].font, ps), qPrintable(fonts[k]));
        }
        const QList<PdfCheck::Font> embedded = PdfCheck::fonts(pdf);
        QSet<QString> used{interfacePs};
        for (const QString& font : fonts)
            used.insert(PdfCheck::postScriptName(font));
        QCOMPARE(embedded.size(), used.size());
        for (const PdfCheck::Font& font : embedded)
            QVERIFY2(font.embedded, qPrintable(font.name));
    }

    void theWaterfallAsAPdf()
    {
        TestSupport::writeSetting(QStringLiteral("Cascade"), QStringLiteral("Tailles"), QStringLiteral("9 14 30"));
        debut::ShownFaces.clear();
        showInMain(QStringLiteral("DejaVu Serif"));
        auto dialog = open();
        dialog->txtTexte->setPlainText(QStringLiteral("Cascade de tailles"));
        dialog->chkCascade->click();
        const QString pdf = m_dir->filePath(QStringLiteral("cascade.pdf"));
        QString title, offered;
        ModalScript script({saveAs(pdf, &title, &offered)});
        QTest::mouseClick(dialog->cmdPDF, Qt::LeftButton);
        QCOMPARE(title, QStringLiteral("Enregistrer la cascade en PDF"));
        QCOMPARE(offered, QStringLiteral("cascade.pdf"));
        const QList<PdfCheck::Line> lines = PdfCheck::lines(pdf);
        QCOMPARE(PdfCheck::texts(lines), (QStringList{"9 pt", "Cascade de tailles", "14 pt", "Cascade de tailles", "30 pt",
                                                       "Cascade de tailles"}));
        const QString ps = PdfCheck::postScriptName(QStringLiteral("DejaVu Serif"));
        for (int k = 0; k < 3; ++k)
            QVERIFY(PdfCheck::sameFont(lines[2 * k + 1].font, ps));
        for (const PdfCheck::Font& font : PdfCheck::fonts(pdf))
            QVERIFY(font.embedded);
    }

    void cancellingTheSaveDialogWritesNothing()
    {
        auto dialog = open();
        ModalScript script({ModalScript::cancel()});
        QTest::mouseClick(dialog->cmdPDF, Qt::LeftButton);
        QVERIFY(script.unexpected().isEmpty());
        QVERIFY(QDir(m_dir->path()).entryList(QDir::Files).isEmpty());
    }
};

GLYPHORA_TEST_MAIN(TestComparer)
#include "test_comparer.moc"
