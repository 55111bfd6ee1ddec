// The test page dialog: what it shows when it opens, its selection buttons, and the RTF
// and HTML writers behind "&Imprimer", driven through the real window and its dialogs.
#include "app/tglyphora.h"
#include "browser/samplebox.h"
#include "output/ptest.h"
#include "support/modalscript.h"
#include "support/testsupport.h"

#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QFile>
#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QTreeWidget>
#include <memory>

namespace {

QByteArray readFile(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<missing>");
}

QByteArray lines(std::initializer_list<QByteArray> content)
{
    QByteArray bytes;
    for (const QByteArray& line : content)
        bytes += line + "\r\n";
    return bytes;
}

QByteArray latin(const QString& text)
{
    return text.toLatin1();
}

void selectByName(Ptest& dialog, const QStringList& names)
{
    for (const QString& name : names) {
        const QList<QListWidgetItem*> found = dialog.List1->findItems(name, Qt::MatchExactly);
        QVERIFY2(!found.isEmpty(), qPrintable(name));
        found.first()->setSelected(true);
    }
}

QList<int> selectedRows(const QListWidget* list)
{
    QList<int> rows;
    for (int i = 0; i < list->count(); ++i)
        if (list->item(i)->isSelected())
            rows.append(i);
    return rows;
}

} // namespace

class TestPtest : public QObject {
    Q_OBJECT
    std::unique_ptr<tglyphora> m_main;
    std::unique_ptr<QTemporaryDir> m_dir;
    QStringList m_fonts; // the main window's list, in order

    QString path(const QString& name) const { return m_dir->filePath(name); }

    std::unique_ptr<Ptest> openDialog()
    {
        auto dialog = std::make_unique<Ptest>(m_main.get());
        dialog->show();
        return dialog;
    }

private Q_SLOTS:
    void initTestCase()
    {
        m_main = std::make_unique<tglyphora>();
        m_main->show();
        // A name with an accent, as some installed fonts have.
        m_main->List1->addTopLevelItem(new QTreeWidgetItem(QStringList{QStringLiteral("Caf\u00e9 Test")}));
        for (int i = 0; i < m_main->List1->topLevelItemCount(); ++i)
            m_fonts.append(m_main->List1->topLevelItem(i)->text(0));
        QVERIFY(m_fonts.size() >= 3);
    }

    void cleanupTestCase()
    {
        m_main.reset(); // before the application object goes
    }

    void init()
    {
        m_dir = std::make_unique<QTemporaryDir>();
        QVERIFY(m_dir->isValid());
    }

    void opensWithTheMainListAndDefaults()
    {
        auto dialog = openDialog();
        QCOMPARE(dialog->windowTitle(), QStringLiteral("Imprimer une page de test"));
        QStringList list1, list2;
        for (int i = 0; i < dialog->List1->count(); ++i)
            list1.append(dialog->List1->item(i)->text());
        for (int i = 0; i < dialog->List2->count(); ++i)
            list2.append(dialog->List2->item(i)->text());
        QCOMPARE(list1, m_fonts);
        QCOMPARE(list2, m_fonts);

        QCOMPARE(dialog->List1->currentRow(), 0);
        QCOMPARE(dialog->List2->currentRow(), 0);
        QCOMPARE(dialog->List2->currentItem()->text(), m_fonts.first());
        QCOMPARE(dialog->List1->selectionMode(), QAbstractItemView::MultiSelection);
        QCOMPARE(dialog->List2->selectionMode(), QAbstractItemView::SingleSelection);

        for (QComboBox* box : {dialog->Combo1, dialog->Combo2}) {
            QCOMPARE(box->count(), 115);
            QCOMPARE(box->itemText(0), QStringLiteral(" 6"));
            QCOMPARE(box->itemText(114), QStringLiteral(" 120"));
            QCOMPARE(box->currentIndex(), 4);
            QCOMPARE(box->currentText(), QStringLiteral(" 10"));
            QCOMPARE(box->toolTip(), QStringLiteral("Choisissez une taille ou appuyer sur + ou -"));
        }
        QVERIFY(dialog->Option1(0)->isChecked());
        QVERIFY(!dialog->Option1(1)->isChecked());
        QVERIFY(!dialog->Option1(2)->isChecked());
        QCOMPARE(dialog->Text1->text(), QStringLiteral("Texte d'essai\r\n"));
        QVERIFY(!dialog->Temp_list->isVisible());
        QVERIFY(dialog->StatusBar1->isVisible());
    }

    void controlsCarryTheirNamesAndCaptions()
    {
        auto dialog = openDialog();
        const QStringList names = {"List1", "List2", "Text1", "Combo1", "Combo2", "Frame1", "Option1_0", "Option1_1",
                                   "Option1_2", "Command1", "Command2", "Command3", "Command4", "Command5",
                                   "Temp_list", "StatusBar1"};
        for (const QString& name : names)
            QVERIFY2(dialog->findChild<QWidget*>(name), qPrintable(name));
        QCOMPARE(dialog->Frame1->title(), QStringLiteral("6) Choisissez la destination "));
        QCOMPARE(dialog->findChild<QRadioButton*>("Option1_0")->text(), QStringLiteral("Imprimante courante"));
        QCOMPARE(dialog->findChild<QRadioButton*>("Option1_1")->text(), QStringLiteral("Fichier RTF"));
        QCOMPARE(dialog->findChild<QRadioButton*>("Option1_2")->text(), QStringLiteral("Fichier HTML"));
        QCOMPARE(dialog->Command1->text(), QStringLiteral("Inverser"));
        QCOMPARE(dialog->Command4->text(), QStringLiteral("toutes"));
        QCOMPARE(dialog->Command5->text(), QStringLiteral("Déselectionner"));
        QCOMPARE(dialog->Command2->text(), QStringLiteral("&Imprimer"));
        QCOMPARE(dialog->Command3->text(), QStringLiteral("&Annuler"));

        QStringList captions;
        for (const QLabel* label : dialog->findChildren<QLabel*>())
            captions.append(label->text());
        for (const char* step : {"1) Sélectionnez les polices à imprimer",
                                 "2) Sélectionner la police servant à écrire le nom des polices dans l'impression",
                                 "3) Entrez le texte à imprimer", "4) Sélectionnez la taille du texte d'essai",
                                 "5) Sélectionnez la taille du texte pour le nom de la police"})
            QVERIFY2(captions.contains(QString::fromUtf8(step)), step);
    }

    void reopeningFillsAfresh()
    {
        {
            auto first = openDialog();
            first->List1->item(1)->setSelected(true);
            first->Combo1->setCurrentIndex(20);
            first->Text1->setText(QStringLiteral("autre"));
        }
        auto second = openDialog();
        QVERIFY(selectedRows(second->List1).isEmpty());
        QCOMPARE(second->Combo1->currentText(), QStringLiteral(" 10"));
        QCOMPARE(second->Text1->text(), QStringLiteral("Texte d'essai\r\n"));
        QCOMPARE(second->List1->count(), m_fonts.size());
    }

    void invertTwiceRestoresTheSelection()
    {
        auto dialog = openDialog();
        dialog->List1->item(0)->setSelected(true);
        dialog->List1->item(2)->setSelected(true);
        const QList<int> original = selectedRows(dialog->List1);

        QTest::mouseClick(dialog->Command1, Qt::LeftButton);
        QList<int> inverted;
        for (int i = 0; i < dialog->List1->count(); ++i)
            if (!original.contains(i))
                inverted.append(i);
        QCOMPARE(selectedRows(dialog->List1), inverted);
        QVERIFY(dialog->List1->isVisible());

        QTest::mouseClick(dialog->Command1, Qt::LeftButton);
        QCOMPARE(selectedRows(dialog->List1), original);
    }

    void allAndNoneSelectEveryEntryOrNone()
    {
        auto dialog = openDialog();
        dialog->List1->item(1)->setSelected(true);
        QTest::mouseClick(dialog->Command4, Qt::LeftButton);
        QCOMPARE(selectedRows(dialog->List1).size(), m_fonts.size());
        QTest::mouseClick(dialog->Command5, Qt::LeftButton);
        QVERIFY(selectedRows(dialog->List1).isEmpty());
        // Only List1 is touched.
        QCOMPARE(dialog->List2->currentRow(), 0);
        QVERIFY(dialog->List2->item(0)->isSelected());
    }

    void cancelClosesTheModalDialog()
    {
        Ptest dialog(m_main.get());
        bool closedByCancel = false;
        ModalScript script({[&](QWidget* modal) {
            closedByCancel = modal == &dialog;
            QTest::mouseClick(dialog.Command3, Qt::LeftButton);
        }});
        QCOMPARE(dialog.exec(), int(QDialog::Rejected));
        QVERIFY(closedByCancel);
        QVERIFY(!dialog.isVisible());
    }

    void rtfSheetThroughTheDialog()
    {
        auto dialog = openDialog();
        selectByName(*dialog, {m_fonts[0], m_fonts[2]});
        dialog->List2->setCurrentRow(2);
        dialog->Text1->setText(QStringLiteral("Ligne 1\r\nLigne 2"));
        dialog->Combo1->setCurrentIndex(2); // 8
        dialog->Combo2->setCurrentIndex(8); // 14
        dialog->Option1(1)->setChecked(true);

        QString title;
        QFileDialog* seen = nullptr;
        ModalScript script({[&](QWidget* modal) {
            seen = qobject_cast<QFileDialog*>(modal);
            if (seen) {
                QCOMPARE(seen->selectedFiles().value(0), QDir::current().absoluteFilePath(QStringLiteral("listepol.rtf")));
                QCOMPARE(seen->nameFilters(), (QStringList{"Fichier RTF (*.rtf)", "Tous (*.*)"}));
                QCOMPARE(seen->defaultSuffix(), QStringLiteral("rtf"));
                QCOMPARE(seen->acceptMode(), QFileDialog::AcceptSave);
            }
            ModalScript::chooseFile(path(QStringLiteral("feuille")), &title)(modal);
        }});
        QTest::mouseClick(dialog->Command2, Qt::LeftButton);
        QVERIFY(seen);
        QCOMPARE(title, QStringLiteral("Sauvegarder vers un fichier RTF"));
        QVERIFY(script.unexpected().isEmpty());

        const QByteArray a = latin(m_fonts[0]), b = latin(m_fonts[2]);
        const QByteArray expected = lines({
            "{\\rtf1\\ansi\\ansicpg1252\\deff0\\deflang1033{\\fonttbl",
            "{\\f0\\fnil\\fprq2\\fcharset0 " + a + ";}",
            "{\\f1\\fnil\\fprq2\\fcharset0 " + b + ";}",
            "}",
            "\\viewkind4\\uc1\\pard\\fs16\\cf1\\fs28\\f1 " + a + "\\par\\fs28\\f0 Ligne 1",
            "Ligne 2\\par\\par",
            "",
            "\\par",
            "\\fs28\\f1 " + b + "\\par\\fs16\\f1 Ligne 1",
            "Ligne 2\\par\\par",
            "}",
        });
        // A name typed without extension gets the default one.
        QCOMPARE(readFile(path(QStringLiteral("feuille.rtf"))), expected);
        QCOMPARE(dialog->Temp_list->count(), 2);
        QCOMPARE(dialog->Temp_list->item(1)->text(), m_fonts[2]);
        QVERIFY(dialog->isVisible()); // the dialog stays open
        QCOMPARE(dialog->cursor().shape(), Qt::ArrowCursor);
        QVERIFY(dialog->StatusBar1->currentMessage().isEmpty());
    }

    void rtfNameWithAccentIsByteE9()
    {
        auto dialog = openDialog();
        selectByName(*dialog, {QStringLiteral("Caf\u00e9 Test")});
        const int row = dialog->List2->row(dialog->List2->findItems(QStringLiteral("Caf\u00e9 Test"), Qt::MatchExactly).first());
        dialog->List2->setCurrentRow(row);
        dialog->Option1(1)->setChecked(true);
        ModalScript script({ModalScript::chooseFile(path(QStringLiteral("accent.rtf")))});
        QTest::mouseClick(dialog->Command2, Qt::LeftButton);
        const QByteArray expected = lines({
            "{\\rtf1\\ansi\\ansicpg1252\\deff0\\deflang1033{\\fonttbl",
            "{\\f0\\fnil\\fprq2\\fcharset0 Caf\xE9 Test;}",
            "}",
            "\\viewkind4\\uc1\\pard\\fs20\\cf1\\fs20\\f0 Caf\xE9 Test\\par\\fs20\\f0 Texte d'essai",
            "\\par\\par",
            "",
            "\\par",
            "}",
        });
        QCOMPARE(readFile(path(QStringLiteral("accent.rtf"))), expected);
    }

    void htmlSheetThroughTheDialog()
    {
        auto dialog = openDialog();
        selectByName(*dialog, {m_fonts[1], QStringLiteral("Caf\u00e9 Test")});
        dialog->List2->setCurrentRow(0);
        dialog->Text1->setText(QStringLiteral("un\r\ndeux"));
        dialog->Option1(2)->setChecked(true);
        QString title;
        QFileDialog* seen = nullptr;
        ModalScript script({[&](QWidget* modal) {
            seen = qobject_cast<QFileDialog*>(modal);
            if (seen) {
                QCOMPARE(seen->selectedFiles().value(0), QDir::current().absoluteFilePath(QStringLiteral("listepol.htm")));
                QCOMPARE(seen->nameFilters(), (QStringList{"Fichier html (*.htm)", "Tous (*.*)"}));
                QCOMPARE(seen->defaultSuffix(), QStringLiteral("htm"));
            }
            ModalScript::chooseFile(path(QStringLiteral("liste.htm")), &title)(modal);
        }});
        QTest::mouseClick(dialog->Command2, Qt::LeftButton);
        QVERIFY(seen);
        QCOMPARE(title, QStringLiteral("Sauvegarder vers un fichier HTML"));
        QVERIFY(script.unexpected().isEmpty());
        const QByteArray nameFont = latin(m_fonts[0]), f1 = latin(m_fonts[1]);
        const QByteArray expected = lines({
            "<HTML>",
            "<HEAD>",
            // "Café Test" holds a byte above 127: the head says which code page it is in.
            "<META HTTP-EQUIV=\"Content-Type\" CONTENT=\"text/html; charset=windows-1252\">",
            "<TITLE>Liste des polices</TITLE>",
            "</HEAD>",
            "<BODY>",
            "<FONT FACE=\"" + nameFont + "\">" + f1 + "</FONT><BR><FONT FACE=\"" + f1 + "\">un",
            "deux</FONT>",
            "<P>",
            "<FONT FACE=\"" + nameFont + "\">Caf\xE9 Test</FONT><BR><FONT FACE=\"Caf\xE9 Test\">un",
            "deux</FONT>",
            "<P>",
            "</BODY>",
            "</HTML>",
        });
        QCOMPARE(readFile(path(QStringLiteral("liste.htm"))), expected);
        QVERIFY(dialog->isVisible());
        QCOMPARE(dialog->cursor().shape(), Qt::ArrowCursor);
    }

    void cancellingTheSaveDialogWritesAndShowsNothing_data()
    {
        QTest::addColumn<int>("destination");
        QTest::addColumn<QString>("title");
        QTest::newRow("rtf") << 1 << QStringLiteral("Sauvegarder vers un fichier RTF");
        QTest::newRow("html") << 2 << QStringLiteral("Sauvegarder vers un fichier HTML");
    }

    void cancellingTheSaveDialogWritesAndShowsNothing()
    {
        QFETCH(int, destination);
        QFETCH(QString, title);
        auto dialog = openDialog();
        dialog->List1->item(0)->setSelected(true);
        dialog->Option1(destination)->setChecked(true);
        QString seen;
        ModalScript script({ModalScript::cancel(&seen)});
        QTest::mouseClick(dialog->Command2, Qt::LeftButton);
        QCOMPARE(seen, title);
        QVERIFY2(script.unexpected().isEmpty(), qPrintable(script.unexpected().join('\n')));
        QVERIFY(QDir(m_dir->path()).isEmpty());
        QVERIFY(!QFile::exists(QStringLiteral("listepol.rtf")));
        QVERIFY(!QFile::exists(QStringLiteral("listepol.htm")));
        QCOMPARE(dialog->cursor().shape(), Qt::ArrowCursor);
    }

    void noSelectedFontIsToldAfterTheFileIsChosen_data()
    {
        QTest::addColumn<int>("destination");
        QTest::newRow("rtf") << 1;
        QTest::newRow("html") << 2;
    }

    void noSelectedFontIsToldAfterTheFileIsChosen()
    {
        QFETCH(int, destination);
        auto dialog = openDialog();
        dialog->Option1(destination)->setChecked(true);
        QString fileTitle, message;
        ModalScript script({ModalScript::chooseFile(path(QStringLiteral("vide.txt")), &fileTitle),
                            ModalScript::clickButton(QMessageBox::Ok, &message)});
        QTest::mouseClick(dialog->Command2, Qt::LeftButton);
        QVERIFY(fileTitle.startsWith(QStringLiteral("Sauvegarder vers un fichier")));
        QCOMPARE(message, QStringLiteral("Glyphora: Vous n'avez pas sélectionné de police"));
        QVERIFY(script.unexpected().isEmpty());
        QVERIFY(!QFile::exists(path(QStringLiteral("vide.txt"))));
        QCOMPARE(dialog->cursor().shape(), Qt::ArrowCursor);
    }

    void rtfThatCannotBeWrittenEndsSilently()
    {
        auto dialog = openDialog();
        dialog->List1->item(0)->setSelected(true);
        dialog->Option1(1)->setChecked(true);
        ModalScript script({ModalScript::chooseFile(QStringLiteral("/proc/glyphora-feuille.rtf"))});
        QTest::mouseClick(dialog->Command2, Qt::LeftButton);
        QCOMPARE(script.stepsRun(), 1);
        QVERIFY2(script.unexpected().isEmpty(), qPrintable(script.unexpected().join('\n')));
        QVERIFY(!QFile::exists(QStringLiteral("/proc/glyphora-feuille.rtf")));
        QVERIFY(dialog->isVisible());
        QCOMPARE(dialog->cursor().shape(), Qt::ArrowCursor);
    }

    void htmlThatCannotBeWrittenShowsTheFailureMessage()
    {
        auto dialog = openDialog();
        dialog->List1->item(0)->setSelected(true);
        dialog->Option1(2)->setChecked(true);
        QString message;
        ModalScript script({ModalScript::chooseFile(QStringLiteral("/proc/glyphora-feuille.htm")),
                            ModalScript::clickButton(QMessageBox::Ok, &message)});
        QTest::mouseClick(dialog->Command2, Qt::LeftButton);
        QCOMPARE(message, QStringLiteral("Glyphora: Problème pendant l'impression ou la génération du fichier"));
        QVERIFY(script.unexpected().isEmpty());
        QVERIFY(dialog->StatusBar1->currentMessage().isEmpty());
        QCOMPARE(dialog->cursor().shape(), Qt::ArrowCursor);
    }

    void anExistingFileIsEmptiedFirst()
    {
        const QString target = path(QStringLiteral("ancien.htm"));
        {
            QFile old(target);
            QVERIFY(old.open(QIODevice::WriteOnly));
            old.write(QByteArray(5000, '#'));
        }
        auto dialog = openDialog();
        dialog->List1->item(0)->setSelected(true);
        dialog->Option1(2)->setChecked(true);
        // The save dialog asks before replacing the file.
        QString overwrite;
        ModalScript script({ModalScript::chooseFile(target), ModalScript::clickButton(QMessageBox::Yes, &overwrite)});
        QTest::mouseClick(dialog->Command2, Qt::LeftButton);
        QVERIFY(!overwrite.isEmpty());
        const QByteArray written = readFile(target);
        QVERIFY(written.startsWith("<HTML>\r\n"));
        QVERIFY(written.endsWith("</BODY>\r\n</HTML>\r\n"));
        QVERIFY(!written.contains('#'));
    }
};

GLYPHORA_TEST_MAIN(TestPtest)
#include "test_ptest.moc"
