// CMDIALOG: the file and colour dialogs, driven as a user would, and ExtractPath.
#include "components/cmdialog.h"
#include "support/testsupport.h"

#include <QColorDialog>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>

namespace {

const QString textFilter = CMDIALOG::BuildFilter({QStringLiteral("Fichier texte"), QStringLiteral("*.txt"),
                                                  QStringLiteral("Tous"), QStringLiteral("*.*")});

void typeNameAndPressReturn(QWidget* dialog, const QString& name)
{
    auto* edit = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    QVERIFY(edit);
    edit->setText(name);
    QTest::keyClick(edit, Qt::Key_Return);
}

} // namespace

class TestCmDialog : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void extractPath()
    {
        QCOMPARE(CMDIALOG::ExtractPath(QStringLiteral("C:\\images\\fond.bmp")), QStringLiteral("C:\\images\\"));
        QCOMPARE(CMDIALOG::ExtractPath(QStringLiteral("fond.bmp")), QStringLiteral("fond.bmp"));
        QCOMPARE(CMDIALOG::ExtractPath(QStringLiteral("/home/moi/images/fond.bmp")), QStringLiteral("/home/moi/images/"));
        QCOMPARE(CMDIALOG::ExtractPath(QString()), QString());
    }

    void filterPairsBecomeNameFilters()
    {
        QCOMPARE(textFilter, QStringLiteral("Fichier texte") + QChar(0) + QStringLiteral("*.txt") + QChar(0)
                                 + QStringLiteral("Tous") + QChar(0) + QStringLiteral("*.*"));
        QCOMPARE(CMDIALOG::NameFilters(textFilter),
                 (QStringList{QStringLiteral("Fichier texte (*.txt)"), QStringLiteral("Tous (*.*)")}));
    }

    void saveDialogSetUp()
    {
        QTemporaryDir dir;
        QString title, selectedFilter, suffix, directory, name;
        bool confirms = false;
        TestSupport::whenModal([&](QWidget* modal) {
            auto* dialog = qobject_cast<QFileDialog*>(modal);
            QVERIFY(dialog);
            title = dialog->windowTitle();
            selectedFilter = dialog->selectedNameFilter();
            suffix = dialog->defaultSuffix();
            directory = dialog->directory().absolutePath();
            confirms = !dialog->testOption(QFileDialog::DontConfirmOverwrite) && dialog->acceptMode() == QFileDialog::AcceptSave;
            name = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->text();
            dialog->reject();
        });
        const QString result = CMDIALOG::ShowFileDialog(nullptr, 2, QStringLiteral("Sauvegarder la liste des polices"),
                                                        QStringLiteral("listepol.txt"), textFilter, dir.path(), QStringLiteral("txt"));
        QCOMPARE(result, QString()); // cancelled
        QCOMPARE(title, QStringLiteral("Sauvegarder la liste des polices"));
        QCOMPARE(selectedFilter, QStringLiteral("Fichier texte (*.txt)"));
        QCOMPARE(suffix, QStringLiteral("txt"));
        QCOMPARE(directory, QDir(dir.path()).absolutePath());
        QCOMPARE(name, QStringLiteral("listepol.txt"));
        QVERIFY(confirms);
        QVERIFY(QDir(dir.path()).entryList(QDir::Files).isEmpty());
    }

    void saveAppendsTheDefaultExtension()
    {
        QTemporaryDir dir;
        TestSupport::whenModal([](QWidget* modal) { typeNameAndPressReturn(modal, QStringLiteral("liste")); });
        const QString result = CMDIALOG::ShowFileDialog(nullptr, 2, QStringLiteral("t"), QStringLiteral("listepol.txt"),
                                                        textFilter, dir.path(), QStringLiteral("txt"));
        QCOMPARE(result, QDir(dir.path()).filePath(QStringLiteral("liste.txt")));
    }

    void saveOnAnExistingFileAsksBeforeReplacing()
    {
        QTemporaryDir dir;
        QFile existing(QDir(dir.path()).filePath(QStringLiteral("listepol.txt")));
        QVERIFY(existing.open(QIODevice::WriteOnly));
        existing.close();
        bool asked = false;
        TestSupport::whenModal([&](QWidget* modal) {
            QWidget* dialog = modal;
            TestSupport::whenAnotherModal(dialog, [&, dialog](QWidget* question) {
                auto* box = qobject_cast<QMessageBox*>(question);
                asked = box != nullptr && question != dialog;
                if (box)
                    box->button(QMessageBox::Yes)->click();
            });
            typeNameAndPressReturn(dialog, QStringLiteral("listepol.txt"));
        });
        const QString result = CMDIALOG::ShowFileDialog(nullptr, 2, QStringLiteral("t"), QStringLiteral("listepol.txt"),
                                                        textFilter, dir.path(), QStringLiteral("txt"));
        QVERIFY(asked);
        QCOMPARE(result, existing.fileName());
    }

    void openRefusesAMissingFile()
    {
        QTemporaryDir dir;
        QFile real(QDir(dir.path()).filePath(QStringLiteral("fond.gif")));
        QVERIFY(real.open(QIODevice::WriteOnly));
        real.close();
        bool stayedOpen = false;
        TestSupport::whenModal([&](QWidget* modal) {
            TestSupport::whenAnotherModal(modal, [](QWidget* warning) { static_cast<QDialog*>(warning)->accept(); });
            typeNameAndPressReturn(modal, QStringLiteral("absent.gif"));
            stayedOpen = modal->isVisible();
            typeNameAndPressReturn(modal, QStringLiteral("fond.gif"));
        });
        const QString result = CMDIALOG::ShowFileDialog(nullptr, 1, QStringLiteral("Ouvrir"), QStringLiteral("*.gif"),
                                                        CMDIALOG::BuildFilter({QStringLiteral("Gif"), QStringLiteral("*.gif")}),
                                                        dir.path(), QStringLiteral("gif"));
        QVERIFY(stayedOpen);
        QCOMPARE(result, real.fileName());
    }

    void colourDialogAlwaysStartsOnBlack()
    {
        QWidget control;
        CMDIALOG::setForeColor(&control, QColor(200, 10, 10));
        QColor initial;
        TestSupport::whenModal([&](QWidget* modal) {
            auto* dialog = qobject_cast<QColorDialog*>(modal);
            initial = dialog->currentColor();
            dialog->reject();
        });
        QVERIFY(!CMDIALOG::ShowColor(nullptr, &control));
        QCOMPARE(initial, QColor(Qt::black));
        QCOMPARE(CMDIALOG::ForeColor(&control), QColor(200, 10, 10)); // untouched on cancel

        TestSupport::whenModal([&](QWidget* modal) {
            auto* dialog = qobject_cast<QColorDialog*>(modal);
            initial = dialog->currentColor();
            dialog->setCurrentColor(QColor(1, 2, 3));
            dialog->accept();
        });
        QVERIFY(CMDIALOG::ShowColor(nullptr, &control));
        QCOMPARE(initial, QColor(Qt::black));
        QCOMPARE(CMDIALOG::ForeColor(&control), QColor(1, 2, 3));
    }

    void shellOpenRefusesNothing()
    {
        QVERIFY(!CMDIALOG::ShellOpen(QString()));
        QVERIFY(!CMDIALOG::ShellOpen(QStringLiteral("   ")));
    }
};

GLYPHORA_TEST_MAIN(TestCmDialog)
#include "test_cmdialog.moc"
