// Saves on a full disk (a small tmpfs mounted for the test): the font list and the RTF
// sheet are written beside their file and renamed over it only when complete, so the
// previous file survives a failed save; the HTML sheet keeps its own rule (its message,
// and the file left as far as it got).
#include "app/tglyphora.h"
#include "browser/samplebox.h"
#include "components/errorreport.h"
#include "output/ptest.h"
#include "support/modalscript.h"
#include "support/testsupport.h"

#include <QDir>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QTreeWidget>
#include <cstdio>
#include <memory>
#include <sys/mount.h>

namespace {

QByteArray readFile(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<absent>");
}

void writeFile(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    QCOMPARE(file.write(bytes), bytes.size());
}

// Child process: the list saved over an existing file (the overwrite question is
// answered Yes); its run-time error report is printed and acknowledged.
int fullDiskListScenario()
{
    tglyphora window;
    window.show();
    ModalScript script({ModalScript::chooseFile(qEnvironmentVariable("GLYPHORA_TEST_TARGET")),
                        ModalScript::clickButton(QMessageBox::Yes), [](QWidget* modal) {
                            std::printf("%s\n", qPrintable(ModalScript::describe(modal)));
                            std::fflush(stdout);
                            ModalScript::clickButton(QMessageBox::Ok)(modal);
                        }});
    QTimer::singleShot(0, &window, ErrorReport::guarded([&window] { window.mcreatefile_Click(); }));
    QApplication::exec();
    return 0; // not reached: the report ends the program
}

const bool scenariosRegistered = [] {
    TestSupport::registerScenario(QStringLiteral("full-disk-list"), fullDiskListScenario);
    return true;
}();

} // namespace

class TestAtomicSave : public QObject {
    Q_OBJECT
    QTemporaryDir m_mount;
    bool m_mounted = false;
    std::unique_ptr<tglyphora> m_main; // the test page takes its fonts from it

    QString path(const QString& name) const { return m_mount.filePath(name); }
    QString fillerPath() const { return path(QStringLiteral(".remplissage")); }

    // Takes every free byte of the small disk.
    void fillDisk()
    {
        QFile filler(fillerPath());
        QVERIFY(filler.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Unbuffered));
        const QByteArray block(4096, 'x');
        while (filler.write(block) == block.size()) {
        }
        QFile probe(path(QStringLiteral(".sonde")));
        QVERIFY(probe.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
        QVERIFY(probe.write(block) != block.size());
        probe.remove();
    }

    void freeDisk() { QFile::remove(fillerPath()); }

    // The files of the mounted folder but the filler.
    QStringList files() const
    {
        return QDir(m_mount.path()).entryList(QDir::Files | QDir::Hidden, QDir::Name).filter(QRegularExpression("^[^.]"));
    }

    // Ptest on RTF or HTML, first font selected, the file chosen and its overwrite confirmed.
    QStringList printSheet(int destination, const QString& file, const QString& sample = QString())
    {
        Ptest dialog;
        dialog.show();
        if (!sample.isEmpty())
            dialog.Text1->setText(sample);
        dialog.List1->item(0)->setSelected(true);
        dialog.Option1(destination)->setChecked(true);
        QStringList messages;
        ModalScript script({ModalScript::chooseFile(file), ModalScript::clickButton(QMessageBox::Yes)}, {&dialog});
        dialog.Command2->click();
        messages = script.unexpected();
        return messages;
    }

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(m_mount.isValid());
        if (::mount("tmpfs", QFile::encodeName(m_mount.path()).constData(), "tmpfs", 0, "size=256k,mode=0755") != 0)
            QSKIP("A tmpfs cannot be mounted here (root and CAP_SYS_ADMIN are needed)");
        m_mounted = true;
        m_main = std::make_unique<tglyphora>();
        m_main->show();
        QVERIFY(m_main->List1->topLevelItemCount() > 0);
    }

    void cleanupTestCase()
    {
        m_main.reset();
        if (m_mounted)
            ::umount2(QFile::encodeName(m_mount.path()).constData(), MNT_DETACH);
    }

    void cleanup()
    {
        freeDisk();
        for (const QString& name : files())
            QFile::remove(path(name));
    }

    void theListOnAFullDiskLeavesThePreviousFile()
    {
        const QString list = path(QStringLiteral("listepol.txt"));
        writeFile(list, "ancienne liste\r\n");
        fillDisk();
        const TestSupport::ChildResult child = TestSupport::runScenario(
            QStringLiteral("full-disk-list"), {QStringLiteral("GLYPHORA_TEST_TARGET=") + list});
        // Still the design's run-time error, naming the file...
        QCOMPARE(child.exitCode, 3);
        QVERIFY2(child.out.contains(QStringLiteral("Erreur d'exécution")), qPrintable(child.out + child.err));
        QVERIFY(child.out.contains(list));
        QVERIFY2(child.out.contains(QStringLiteral("Enregistrement de la liste dans ") + list
                                    + QStringLiteral(" : le disque est plein.")),
                 qPrintable(child.out));
        // ...but the old file is whole, and no temporary file is left beside it.
        QCOMPARE(readFile(list), QByteArray("ancienne liste\r\n"));
        QCOMPARE(files(), QStringList{QStringLiteral("listepol.txt")});
    }

    void theListWithRoomReplacesThePreviousFile()
    {
        const QString list = path(QStringLiteral("listepol.txt"));
        writeFile(list, "ancienne liste\r\n");
        ModalScript script({ModalScript::chooseFile(list), ModalScript::clickButton(QMessageBox::Yes)});
        m_main->mcreatefile_Click();
        QByteArray expected;
        for (int i = 0; i < m_main->List1->topLevelItemCount(); ++i)
            expected += m_main->List1->topLevelItem(i)->text(0).toLatin1() + "\r\n";
        QCOMPARE(readFile(list), expected);
        QCOMPARE(files(), QStringList{QStringLiteral("listepol.txt")});
    }

    void theRtfSheetOnAFullDiskIsSilentAndLeavesThePreviousFile()
    {
        const QString sheet = path(QStringLiteral("listepol.rtf"));
        writeFile(sheet, "{\\rtf1 ancienne feuille}\r\n");
        fillDisk();
        QCOMPARE(printSheet(1, sheet), QStringList()); // no message
        QCOMPARE(readFile(sheet), QByteArray("{\\rtf1 ancienne feuille}\r\n"));
        QCOMPARE(files(), QStringList{QStringLiteral("listepol.rtf")});
        // With room again the sheet replaces it.
        freeDisk();
        QCOMPARE(printSheet(1, sheet), QStringList());
        QVERIFY(readFile(sheet).startsWith("{\\rtf1\\ansi\\ansicpg1252"));
        QCOMPARE(files(), QStringList{QStringLiteral("listepol.rtf")});
    }

    void theHtmlSheetOnAFullDiskSaysSoAndLeavesItsFileAsFarAsItGot()
    {
        const QString sheet = path(QStringLiteral("listepol.htm"));
        writeFile(sheet, "<HTML>ancienne feuille</HTML>\r\n");
        fillDisk();
        // Longer than the page the emptied file gives back.
        const QStringList messages = printSheet(2, sheet, QString(20000, QLatin1Char('a')));
        QCOMPARE(messages.size(), 1);
        QVERIFY2(messages.first().endsWith(QStringLiteral("Problème pendant l'impression ou la génération du fichier")),
                 qPrintable(messages.first()));
        QVERIFY(readFile(sheet).size() < 20000); // emptied when opened, then the disk was full
    }
};

GLYPHORA_TEST_MAIN(TestAtomicSave)
#include "test_atomicsave.moc"
