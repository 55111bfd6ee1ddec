// The main window's font-list commands: the list file, the HTML font tag, the test
// page opener and the answers that stop them, driven through the real main window.
#include "app/tglyphora.h"
#include "browser/samplebox.h"
#include "components/printer.h"
#include "output/ptest.h"
#include "support/modalscript.h"
#include "support/testsupport.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QListWidget>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTreeWidget>
#include <cstdio>
#include <memory>

namespace {

QByteArray readFile(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<missing>");
}

QStringList listItems(const QTreeWidget* list)
{
    QStringList names;
    for (int i = 0; i < list->topLevelItemCount(); ++i)
        names.append(list->topLevelItem(i)->text(0));
    return names;
}

// Child process: saving the list where it cannot be written ends in the run-time error
// report. Prints the report's text.
int unwritableListScenario()
{
    tglyphora window;
    window.show();
    ModalScript script({ModalScript::chooseFile(QStringLiteral("/proc/glyphora-liste.txt")),
                        [](QWidget* modal) {
                            std::printf("%s\n", qPrintable(ModalScript::describe(modal)));
                            std::fflush(stdout);
                            ModalScript::clickButton(QMessageBox::Ok)(modal);
                        }});
    QTimer::singleShot(0, &window, &tglyphora::mcreatefile_Click);
    QApplication::exec();
    return 0; // not reached: the report ends the program
}

const bool scenariosRegistered = [] {
    TestSupport::registerScenario(QStringLiteral("unwritable-list"), unwritableListScenario);
    return true;
}();

} // namespace

class TestFontListCommands : public QObject {
    Q_OBJECT
    std::unique_ptr<tglyphora> m_main;
    std::unique_ptr<QTemporaryDir> m_dir;

    QString path(const QString& name) const { return m_dir->filePath(name); }
    QAction* menuItem(const char* name) const { return m_main->findChild<QAction*>(QString::fromLatin1(name)); }

    void selectFont(const QString& name)
    {
        const QList<QTreeWidgetItem*> found = m_main->List1->findItems(name, Qt::MatchExactly);
        QVERIFY(!found.isEmpty());
        m_main->List1->setCurrentItem(found.first());
    }

private Q_SLOTS:
    void initTestCase()
    {
        m_main = std::make_unique<tglyphora>();
        m_main->show();
    }

    void cleanupTestCase()
    {
        m_main.reset();
    }

    void init()
    {
        m_dir = std::make_unique<QTemporaryDir>();
        QVERIFY(m_dir->isValid());
        if (m_main->List1->topLevelItemCount() == 0)
            m_main->charge();
    }

    void listFileHoldsEveryNameWithCrLf()
    {
        m_main->List1->addTopLevelItem(new QTreeWidgetItem(QStringList{QStringLiteral("Caf\u00e9 Test")}));
        const QStringList names = listItems(m_main->List1);
        QVERIFY(names.size() > 3);

        QString title;
        QFileDialog* seen = nullptr;
        ModalScript script({[&](QWidget* modal) {
            seen = qobject_cast<QFileDialog*>(modal);
            if (seen) {
                QCOMPARE(seen->selectedFiles().value(0), QDir::current().absoluteFilePath(QStringLiteral("listepol.txt")));
                QCOMPARE(seen->nameFilters(), (QStringList{"Fichier texte (*.txt)", "Tous (*.*)"}));
                QCOMPARE(seen->defaultSuffix(), QStringLiteral("txt"));
                QCOMPARE(seen->acceptMode(), QFileDialog::AcceptSave);
            }
            ModalScript::chooseFile(path(QStringLiteral("polices")), &title)(modal);
        }});
        menuItem("mcreatefile")->trigger();
        QVERIFY(seen);
        QCOMPARE(title, QStringLiteral("Sauvegarder la liste des polices"));
        QVERIFY2(script.unexpected().isEmpty(), qPrintable(script.unexpected().join('\n'))); // no confirmation

        QByteArray expected;
        for (const QString& name : names)
            expected += name.toLatin1() + "\r\n";
        const QByteArray written = readFile(path(QStringLiteral("polices.txt")));
        QCOMPARE(written, expected);
        QVERIFY(written.contains("\r\nCaf\xE9 Test\r\n"));
        QVERIFY(!written.endsWith("\r\n\r\n"));
        QCOMPARE(m_main->cursor().shape(), Qt::ArrowCursor);
        delete m_main->List1->findItems(QStringLiteral("Caf\u00e9 Test"), Qt::MatchExactly).first();
    }

    void toolbarButtonTwoSavesTheListToo()
    {
        ModalScript script({ModalScript::chooseFile(path(QStringLiteral("bouton.txt")))});
        m_main->Button(2)->trigger();
        QCOMPARE(readFile(path(QStringLiteral("bouton.txt"))).count("\r\n"), m_main->List1->topLevelItemCount());
    }

    void emptyListGivesAnEmptyFile()
    {
        m_main->List1->clear();
        ModalScript script({ModalScript::chooseFile(path(QStringLiteral("vide.txt")))});
        m_main->mcreatefile_Click();
        QVERIFY(QFile::exists(path(QStringLiteral("vide.txt"))));
        QCOMPARE(readFile(path(QStringLiteral("vide.txt"))), QByteArray());
        m_main->charge();
    }

    void cancellingTheSaveDialogWritesNothing()
    {
        QString title;
        ModalScript script({ModalScript::cancel(&title)});
        m_main->mcreatefile_Click();
        QCOMPARE(title, QStringLiteral("Sauvegarder la liste des polices"));
        QVERIFY(script.unexpected().isEmpty());
        QVERIFY(QDir(m_dir->path()).isEmpty());
        QVERIFY(!QFile::exists(QStringLiteral("listepol.txt")));
    }

    void unwritableListFileIsARunTimeError()
    {
        const TestSupport::ChildResult child = TestSupport::runScenario(QStringLiteral("unwritable-list"));
        QCOMPARE(child.exitStatus, QProcess::NormalExit);
        QCOMPARE(child.exitCode, 3);
        QVERIFY2(child.out.contains(QStringLiteral("Erreur d'exécution '75'")), qPrintable(child.out + child.err));
        QVERIFY(child.out.contains(QStringLiteral("/proc/glyphora-liste.txt")));
    }

    void htmlTagWithColour_data()
    {
        QTest::addColumn<QColor>("colour");
        QTest::addColumn<QString>("digits");
        QTest::newRow("black") << QColor(0, 0, 0) << QStringLiteral("#000000");
        QTest::newRow("red") << QColor(255, 0, 0) << QStringLiteral("#FF0000");
        QTest::newRow("blue") << QColor(0, 0, 255) << QStringLiteral("#0000FF");
        QTest::newRow("mixed") << QColor(0x12, 0x34, 0x56) << QStringLiteral("#123456");
    }

    void htmlTagWithColour()
    {
        QFETCH(QColor, colour);
        QFETCH(QString, digits);
        const QString face = m_main->List1->topLevelItem(1)->text(0);
        selectFont(face);
        m_main->Text1->setForeColor(colour);
        QString question, done;
        ModalScript script({ModalScript::clickButton(QMessageBox::Yes, &question),
                            ModalScript::clickButton(QMessageBox::Ok, &done)});
        menuItem("mHTML")->trigger();
        QCOMPARE(question, QStringLiteral("Glyphora: Voulez vous inclure la commande de couleur ?"));
        QCOMPARE(done, QStringLiteral("Glyphora: La commande HTML a été placée dans le presse papiers"));
        QCOMPARE(QGuiApplication::clipboard()->text(),
                 QStringLiteral("<FONT FACE=\"") + face + QStringLiteral("\" COLOR=\"") + digits + QStringLiteral("\"></FONT>"));
        QVERIFY(script.unexpected().isEmpty());
    }

    void htmlTagWithoutColourOnNo()
    {
        // The face is trimmed of blanks.
        m_main->List1->addTopLevelItem(new QTreeWidgetItem(QStringList{QStringLiteral("  Espaces Autour ")}));
        selectFont(QStringLiteral("  Espaces Autour "));
        m_main->Text1->setForeColor(Qt::red);
        QString done;
        ModalScript script({ModalScript::clickButton(QMessageBox::No), ModalScript::clickButton(QMessageBox::Ok, &done)});
        m_main->Button(3)->trigger();
        QCOMPARE(done, QStringLiteral("Glyphora: La commande HTML a été placée dans le presse papiers"));
        QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("<FONT FACE=\"Espaces Autour\"></FONT>"));
        delete m_main->List1->findItems(QStringLiteral("  Espaces Autour "), Qt::MatchExactly).first();
    }

    void htmlTagNeedsASelectedFontAndAsksForColourFirst()
    {
        QGuiApplication::clipboard()->setText(QStringLiteral("avant"));
        m_main->List1->setCurrentItem(nullptr);
        QString question, message;
        ModalScript script({ModalScript::clickButton(QMessageBox::Yes, &question),
                            ModalScript::clickButton(QMessageBox::Ok, &message)});
        m_main->mHTML_Click();
        QCOMPARE(question, QStringLiteral("Glyphora: Voulez vous inclure la commande de couleur ?"));
        QCOMPARE(message, QStringLiteral("Glyphora: Vous devez d'abord sélectionner une police dans la liste"));
        QVERIFY(script.unexpected().isEmpty());
        QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("avant"));
        m_main->List1->setCurrentItem(m_main->List1->topLevelItem(0));
    }

    void copyNamePutsTheSelectedNameOnTheClipboard()
    {
        const QString face = m_main->List1->topLevelItem(2)->text(0);
        selectFont(face);
        ModalScript script;
        menuItem("mclipboard")->trigger();
        QCOMPARE(QGuiApplication::clipboard()->text(), face);
        QVERIFY(script.unexpected().isEmpty());
    }

    void testPageCommandShowsThePtestDialogModally()
    {
        const QStringList names = listItems(m_main->List1);
        QStringList seenNames;
        bool modal = false;
        QWidget* parent = nullptr;
        auto script = std::make_unique<ModalScript>(QList<ModalScript::Step>{[&](QWidget* w) {
            auto* dialog = qobject_cast<Ptest*>(w);
            if (!dialog)
                return;
            modal = dialog->isModal();
            parent = dialog->parentWidget();
            for (int i = 0; i < dialog->List1->count(); ++i)
                seenNames.append(dialog->List1->item(i)->text());
            QTest::mouseClick(dialog->Command3, Qt::LeftButton);
        }});
        menuItem("mpagtst")->trigger();
        QCOMPARE(script->stepsRun(), 1);
        script.reset();
        QVERIFY(modal);
        QCOMPARE(parent, m_main.get());
        QCOMPARE(seenNames, names);
        QVERIFY(!m_main->findChild<Ptest*>());

        ModalScript again({ModalScript::cancel()});
        m_main->Button(5)->trigger();
        QCOMPARE(again.stepsRun(), 1);
    }

    void printingTheListNeedsAYes()
    {
        Printer::instance().EndDoc();
        QString question;
        ModalScript script({ModalScript::clickButton(QMessageBox::No, &question)});
        menuItem("mimpnames")->trigger();
        QCOMPARE(question, QStringLiteral("Glyphora: Etes vous certain(e) ?"));
        QVERIFY(!Printer::instance().hasOpenDocument());
        QVERIFY(script.unexpected().isEmpty());
    }
};

GLYPHORA_TEST_MAIN(TestFontListCommands)
#include "test_fontlistcommands.moc"
