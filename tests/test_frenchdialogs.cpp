// Qt's own dialogs in French throughout, and save dialogs that never start in a folder
// the user cannot write to (the process's current folder staying as it is).
#include "app/tglyphora.h"
#include "components/cmdialog.h"
#include "fontfile/filelists.h"
#include "fontfile/fname.h"
#include "output/fontinstallcommand.h"
#include "support/modalscript.h"
#include "support/testsupport.h"

#include <QAction>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFileSystemModel>
#include <QHeaderView>
#include <QInputDialog>
#include <QLabel>
#include <QPushButton>
#include <QTemporaryDir>
#include <QToolButton>
#include <QTreeView>

namespace {

// Every text a file dialog shows: labels, buttons and their tips, the type list, the
// detail view's headers and its rows' type column.
QStringList textsOf(QFileDialog* dialog)
{
    QStringList texts;
    for (auto* label : dialog->findChildren<QLabel*>())
        texts << label->text();
    for (auto* button : dialog->findChildren<QAbstractButton*>())
        texts << button->text() << button->toolTip();
    for (auto* combo : dialog->findChildren<QComboBox*>())
        for (int i = 0; i < combo->count(); ++i)
            texts << combo->itemText(i);
    auto* tree = dialog->findChild<QTreeView*>(QStringLiteral("treeView"));
    auto* model = dialog->findChild<QFileSystemModel*>();
    if (tree && model) {
        for (int column = 0; column < model->columnCount(); ++column)
            texts << model->headerData(column, Qt::Horizontal).toString();
        const QModelIndex root = tree->rootIndex();
        for (int row = 0; row < model->rowCount(root); ++row)
            texts << model->index(row, 0, root).data().toString() + QStringLiteral(" = ")
                         + model->index(row, 2, root).data().toString();
    }
    texts.removeAll(QString());
    return texts;
}

// Child: this process obeys file permissions; its current folder is GLYPHORA_FOLDER,
// which it may not write to. Prints the folder the save dialog opens on, then the
// current folder.
int saveDialogFolder()
{
    if (!TestSupport::obeyFilePermissions())
        return 98;
    tglyphora main;
    main.show();
    // As the user browses there in the name finder, which makes it the current folder.
    {
        FName finder(&main);
        finder.show();
        finder.Dir1->setPath(qEnvironmentVariable("GLYPHORA_FOLDER"));
        finder.close();
    }
    std::printf("current-before=%s\n", qPrintable(QDir::currentPath()));
    ModalScript script({[](QWidget* modal) {
        if (auto* dialog = qobject_cast<QFileDialog*>(modal))
            std::printf("dialog=%s\n", qPrintable(dialog->directory().absolutePath()));
        std::fflush(stdout);
        qobject_cast<QDialog*>(modal)->reject();
    }});
    main.findChild<QAction*>(QStringLiteral("mcreatefile"))->trigger();
    std::printf("current-after=%s\n", qPrintable(QDir::currentPath()));
    std::fflush(stdout);
    return 0;
}

const bool registered = [] {
    TestSupport::registerScenario(QStringLiteral("save-dialog-folder"), &saveDialogFolder);
    return true;
}();

QString line(const TestSupport::ChildResult& child, const QString& name)
{
    for (const QString& l : child.out.split(QLatin1Char('\n')))
        if (l.startsWith(name + QLatin1Char('=')))
            return l.mid(name.size() + 1);
    return QStringLiteral("<none>");
}

// A folder with a sub-folder and a text file, and the texts of a file dialog shown on it
// in its detail view.
class FrenchFolder {
public:
    FrenchFolder()
    {
        QDir(m_dir.path()).mkdir(QStringLiteral("sous-dossier"));
        QFile file(m_dir.filePath(QStringLiteral("notes.txt")));
        if (file.open(QIODevice::WriteOnly))
            file.close();
    }
    QString path() const { return m_dir.path(); }

    // rows: what the dialog lists there (its type filter may hide the text file).
    QStringList textsOfDialog(int rows, const std::function<void()>& open) const
    {
        QStringList texts;
        const QString folder = m_dir.path();
        TestSupport::whenModal([&, rows](QWidget* modal) {
            auto* dialog = qobject_cast<QFileDialog*>(modal);
            if (!dialog)
                return;
            dialog->setDirectory(folder);
            dialog->setViewMode(QFileDialog::Detail);
            auto* model = dialog->findChild<QFileSystemModel*>();
            TestSupport::waitFor([&] {
                return model && model->rowCount(model->index(folder)) == rows
                       && !model->index(0, 2, model->index(folder)).data().toString().isEmpty();
            });
            texts = textsOf(dialog);
            dialog->reject();
        });
        open();
        return texts;
    }

private:
    QTemporaryDir m_dir;
};

void checkFrench(const QStringList& texts, std::initializer_list<const char*> french)
{
    const QString all = texts.join(QLatin1Char('\n'));
    for (const char* expected : french)
        QVERIFY2(texts.contains(QString::fromUtf8(expected)), qPrintable(expected + QStringLiteral(" not in:\n") + all));
    for (const char* english : {"Folder", "File Folder", "Name", "Size", "Kind", "Date Modified", "Look in:", "File &name:",
                                "Files of type:", "&Save", "Save", "&Open", "Open", "Cancel", "Back", "Forward",
                                "Parent Directory", "Create New Folder", "List View", "Detail View", "Directory", "Drive",
                                "Unknown"})
        for (const QString& text : texts)
            QVERIFY2(!text.contains(QRegularExpression(QStringLiteral("\\b") + QRegularExpression::escape(QString::fromUtf8(english))
                                                       + QStringLiteral("\\b"))),
                     qPrintable(text));
}

} // namespace

class TestFrenchDialogs : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theFileDialogIsFrenchThroughout()
    {
        FrenchFolder folder;
        const QStringList texts = folder.textsOfDialog(2, [&] {
            CMDIALOG::ShowFileDialog(nullptr, CMDIALOG::ModeSave, QStringLiteral("Sauvegarder la liste des polices"),
                                     QStringLiteral("listepol.txt"),
                                     CMDIALOG::BuildFilter({QStringLiteral("Fichier texte"), QStringLiteral("*.txt"),
                                                            QStringLiteral("Tous"), QStringLiteral("*.*")}),
                                     folder.path(), QStringLiteral("txt"));
        });
        checkFrench(texts, {"Nom", "Taille", "Type", "Dernière modification", "sous-dossier = Dossier",
                            "notes.txt = Fichier TXT", "&Enregistrer", "Annuler", "Fichier texte (*.txt)", "Voir dans :",
                            "Dossier parent", "Vue détaillée"});
    }

    void theInstallersFileDialogIsFrenchToo()
    {
        FrenchFolder folder;
        const QStringList texts = folder.textsOfDialog(1, [] { FontInstallCommand::askFiles(nullptr); });
        checkFrench(texts, {"Nom", "Type", "sous-dossier = Dossier", "&Ouvrir", "Annuler",
                            "Voir dans :", "Dossier parent"});
    }

    void inputAndMessageBoxesAreFrench()
    {
        QStringList buttons;
        TestSupport::whenModal([&](QWidget* modal) {
            for (auto* button : modal->findChildren<QPushButton*>())
                buttons << button->text();
            qobject_cast<QDialog*>(modal)->reject();
        });
        QInputDialog box;
        box.setInputMode(QInputDialog::TextInput);
        box.exec();
        buttons.sort();
        QCOMPARE(buttons, (QStringList{QStringLiteral("Annuler"), QStringLiteral("OK")}));
    }

    void saveDialogsAvoidAFolderTheUserCannotWrite()
    {
        QTemporaryDir root;
        const QString folder = root.filePath(QStringLiteral("polices"));
        const QString home = root.filePath(QStringLiteral("maison"));
        QVERIFY(QDir().mkpath(folder));
        QVERIFY(QDir().mkpath(home + QStringLiteral("/Documents")));
        QVERIFY(QFile::setPermissions(folder, QFile::ReadOwner | QFile::ExeOwner));
        const QStringList environment{QStringLiteral("GLYPHORA_FOLDER=") + folder, QStringLiteral("HOME=") + home};

        auto child = TestSupport::runScenario(QStringLiteral("save-dialog-folder"), environment);
        QCOMPARE(child.exitCode, 0);
        QCOMPARE(line(child, QStringLiteral("current-before")), folder);
        QCOMPARE(line(child, QStringLiteral("dialog")), home + QStringLiteral("/Documents"));
        QCOMPARE(line(child, QStringLiteral("current-after")), folder); // left as the name finder set it

        // Without a documents folder: the home folder.
        QVERIFY(QDir(home + QStringLiteral("/Documents")).removeRecursively());
        child = TestSupport::runScenario(QStringLiteral("save-dialog-folder"), environment);
        QCOMPARE(line(child, QStringLiteral("dialog")), home);

        // A folder the user can write to is kept.
        QVERIFY(QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
        child = TestSupport::runScenario(QStringLiteral("save-dialog-folder"), environment);
        QCOMPARE(line(child, QStringLiteral("dialog")), folder);
        QCOMPARE(CMDIALOG::SaveFolder(folder), folder);
    }
};

GLYPHORA_TEST_MAIN(TestFrenchDialogs)
#include "test_frenchdialogs.moc"
