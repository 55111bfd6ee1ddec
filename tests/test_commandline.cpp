// The command line: options read before any window, the program itself answering
// --help, --version and an unknown option without a display, and files opened in the
// preview window over the main window.
#include "app/commandline.h"
#include "app/debut.h"
#include "app/tglyphora.h"
#include "fontfile/ffontpreview.h"
#include "fontfile/filelists.h"
#include "support/modalscript.h"
#include "support/sfntwriter.h"
#include "support/testsupport.h"
#include "support/webfontwriter.h"

#include <QComboBox>
#include <QTemporaryDir>

using CommandLine::Action;

namespace {

struct Run {
    int exitCode = -1;
    QByteArray out;
    QByteArray err;
};

// The real program, with no display of any kind.
Run runProgram(const QStringList& arguments)
{
    QProcess program;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
        env.remove(QString::fromLatin1(name));
    program.setProcessEnvironment(env);
    program.start(QStringLiteral(GLYPHORA_EXECUTABLE), arguments);
    if (!program.waitForFinished(30000))
        program.kill();
    return {program.exitStatus() == QProcess::NormalExit ? program.exitCode() : -1, program.readAllStandardOutput(),
            program.readAllStandardError()};
}

void closeMainWindow()
{
    if (tglyphora* w = tglyphora::instance()) {
        w->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

} // namespace

class TestCommandLine : public QObject {
    Q_OBJECT
private:
    QTemporaryDir m_dir;
    QString file(const QString& name) const { return QDir(m_dir.path()).filePath(name); }

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(Sfnt::writeFile(file(QStringLiteral("premiere.ttf")),
                                Sfnt::drawable(Sfnt::familyNames(QStringLiteral("Glyphora Ligne Un")))));
        QVERIFY(Sfnt::writeFile(file(QStringLiteral("seconde.woff2")),
                                WebFontWriter::woff2(Sfnt::drawable(Sfnt::familyNames(QStringLiteral("Glyphora Ligne Deux"))))));
        QVERIFY(Sfnt::writeFile(file(QStringLiteral("autre.txt")), "pas une police"));
        // No donation splash before the main window.
        TestSupport::writeSetting(QStringLiteral("Donation"), QStringLiteral("Merci"), QStringLiteral("oui"));
    }

    void parsesFilesAndOptions()
    {
        const auto files = CommandLine::parse({QStringLiteral("glyphora"), QStringLiteral("a.ttf"), QStringLiteral("/tmp/b.otf")});
        QCOMPARE(files.action, Action::Run);
        QCOMPARE(files.files, (QStringList{QDir::current().absoluteFilePath(QStringLiteral("a.ttf")), QStringLiteral("/tmp/b.otf")}));
        QCOMPARE(CommandLine::parse({QStringLiteral("glyphora")}).files, QStringList());
        for (const char* help : {"--help", "-h"})
            QCOMPARE(CommandLine::parse({QStringLiteral("glyphora"), QString::fromLatin1(help)}).action, Action::Help);
        for (const char* version : {"--version", "-v"})
            QCOMPARE(CommandLine::parse({QStringLiteral("glyphora"), QString::fromLatin1(version)}).action, Action::Version);
        const auto unknown = CommandLine::parse({QStringLiteral("glyphora"), QStringLiteral("--bizarre"), QStringLiteral("a.ttf")});
        QCOMPARE(unknown.action, Action::Error);
        QCOMPARE(unknown.error, QStringLiteral("glyphora : option inconnue « --bizarre ».\n"));
        // Qt's own options go through to the application object.
        const auto qt = CommandLine::parse({QStringLiteral("glyphora"), QStringLiteral("-platform"), QStringLiteral("offscreen"),
                                            QStringLiteral("-style"), QStringLiteral("Fusion"), QStringLiteral("a.ttf")});
        QCOMPARE(qt.action, Action::Run);
        QCOMPARE(qt.files.size(), 1);
        // After "--", a name that starts with a dash is a file.
        const auto dashed = CommandLine::parse({QStringLiteral("glyphora"), QStringLiteral("--"), QStringLiteral("-x.ttf")});
        QCOMPARE(dashed.action, Action::Run);
        QCOMPARE(dashed.files, QStringList{QDir::current().absoluteFilePath(QStringLiteral("-x.ttf"))});
    }

    void helpAndVersionNeedNoDisplay()
    {
        const Run help = runProgram({QStringLiteral("--help")});
        QCOMPARE(help.exitCode, 0);
        QCOMPARE(QString::fromUtf8(help.out), CommandLine::usage());
        QVERIFY(help.out.startsWith("Utilisation : glyphora [options] [fichier...]\n"));
        QVERIFY(help.err.isEmpty());
        const Run version = runProgram({QStringLiteral("--version")});
        QCOMPARE(version.exitCode, 0);
        QCOMPARE(version.out, QByteArray("Glyphora 3.3.0\n"));
        QVERIFY(version.err.isEmpty());
    }

    void unknownOptionPrintsTheUsageAndExits2()
    {
        const Run run = runProgram({QStringLiteral("--couleur=rouge")});
        QCOMPARE(run.exitCode, 2);
        QVERIFY(run.out.isEmpty());
        QCOMPARE(QString::fromUtf8(run.err), QStringLiteral("glyphora : option inconnue « --couleur ».\n") + CommandLine::usage());
    }

    void aFileOpensThePreviewOverTheMainWindow()
    {
        QString shown, folder, information;
        int type = -1;
        bool mainWindowUp = false;
        auto seen = TestSupport::whenModal([&](QWidget* modal) {
            auto* preview = qobject_cast<FFontPreview*>(modal);
            if (preview) {
                shown = preview->File1->FileName();
                folder = preview->File1->Path();
                type = preview->cboType->currentIndex();
                information = preview->lastInformation();
                mainWindowUp = tglyphora::instance() && tglyphora::instance()->isVisible();
            }
            modal->close();
        });
        debut::Main({file(QStringLiteral("premiere.ttf"))});
        QVERIFY(TestSupport::waitFor([&] { return *seen; }));
        QCOMPARE(shown, QStringLiteral("premiere.ttf"));
        QCOMPARE(folder, m_dir.path());
        QCOMPARE(type, 1); // every font type listed
        QVERIFY(information.startsWith(QStringLiteral("Nom: Glyphora Ligne Un\r\n")));
        QVERIFY(mainWindowUp);
        QVERIFY(tglyphora::instance()->isVisible()); // stays once the preview is closed
        closeMainWindow();
    }

    void twoFilesShowTheFirstAndListTheOther()
    {
        QStringList listed;
        QString first, second;
        auto seen = TestSupport::whenModal([&](QWidget* modal) {
            if (auto* preview = qobject_cast<FFontPreview*>(modal)) {
                first = preview->File1->FileName();
                for (int i = 0; i < preview->File1->ListCount(); ++i)
                    listed.append(preview->File1->List(i));
                preview->File1->setListIndex(int(listed.indexOf(QStringLiteral("seconde.woff2"))));
                second = preview->lastInformation();
            }
            modal->close();
        });
        debut::Main({file(QStringLiteral("premiere.ttf")), file(QStringLiteral("seconde.woff2"))});
        QVERIFY(TestSupport::waitFor([&] { return *seen; }));
        QCOMPARE(first, QStringLiteral("premiere.ttf"));
        QCOMPARE(listed, (QStringList{QStringLiteral("premiere.ttf"), QStringLiteral("seconde.woff2")}));
        QVERIFY2(second.startsWith(QStringLiteral("Nom: Glyphora Ligne Deux\r\n")), qPrintable(second));
        closeMainWindow();
    }

    void aFileThatIsNoFontIsNamedAndNothingElseOpens()
    {
        QString message;
        ModalScript script({ModalScript::clickButton(QMessageBox::Ok, &message)});
        debut::Main({file(QStringLiteral("autre.txt"))});
        QVERIFY(script.waitUntilDone());
        QTest::qWait(100);
        QCOMPARE(message, QStringLiteral("Glyphora: Le fichier « autre.txt » n'est pas une police de caractères."));
        QCOMPARE(script.unexpected(), QStringList()); // no preview window
        QVERIFY(tglyphora::instance() && tglyphora::instance()->isVisible());
        closeMainWindow();
    }
};

GLYPHORA_TEST_MAIN(TestCommandLine)
#include "test_commandline.moc"
