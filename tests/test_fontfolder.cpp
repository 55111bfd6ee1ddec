// The fonts-folder and character-map commands, with fake desktop programs on PATH.
#include "app/tglyphora.h"
#include "output/launcher.h"
#include "output/userfonts.h"
#include "support/testsupport.h"

#include <QAbstractButton>
#include <QAction>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QTreeWidget>
#include <QUrl>
#include <csignal>
#include <optional>

namespace {

// Makes PATH hold only the given folder for the life of the object.
class PathOverride {
public:
    explicit PathOverride(const QString& folder) : m_saved(qgetenv("PATH")) { qputenv("PATH", folder.toLocal8Bit()); }
    ~PathOverride() { qputenv("PATH", m_saved); }
    PathOverride(const PathOverride&) = delete;
    PathOverride& operator=(const PathOverride&) = delete;

private:
    QByteArray m_saved;
};

// Answers the next message box with OK and keeps its text.
std::shared_ptr<QString> acknowledge()
{
    auto text = std::make_shared<QString>();
    TestSupport::whenModal([text](QWidget* modal) {
        if (auto* box = qobject_cast<QMessageBox*>(modal)) {
            *text = box->text();
            box->button(QMessageBox::Ok)->click();
        }
    });
    return text;
}

QString readAll(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

} // namespace

class TestFontFolder : public QObject {
    Q_OBJECT
private:
    QTemporaryDir m_root;
    QString m_bin;     // fake programs
    QString m_calls;   // what they were called with
    tglyphora* m_main = nullptr;

    // A program that writes its arguments, one per line, to <calls>/<name>.args.
    void fakeProgram(const QString& name, bool executable = true)
    {
        const QString path = m_bin + QLatin1Char('/') + name;
        QFile script(path);
        QVERIFY(script.open(QIODevice::WriteOnly | QIODevice::Truncate));
        script.write(QStringLiteral("#!/bin/sh\nprintf '%s\\n' \"$@\" > \"%1/%2.args.tmp\"\n/bin/mv \"%1/%2.args.tmp\" \"%1/%2.args\"\n")
                         .arg(m_calls, name)
                         .toUtf8());
        script.close();
        QFile::Permissions permissions = QFile::ReadOwner | QFile::WriteOwner;
        if (executable)
            permissions |= QFile::ExeOwner;
        QVERIFY(QFile::setPermissions(path, permissions));
    }

    // A program whose body is the given shell lines.
    void scriptProgram(const QString& name, const QString& body)
    {
        const QString path = m_bin + QLatin1Char('/') + name;
        QFile script(path);
        QVERIFY(script.open(QIODevice::WriteOnly | QIODevice::Truncate));
        script.write(QStringLiteral("#!/bin/sh\n%1\n").arg(body).toUtf8());
        script.close();
        QVERIFY(QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    }

    // Runs a command and answers the message box it shows, at once or a little later.
    QString messageOf(const char* command)
    {
        auto text = acknowledge();
        {
            PathOverride path(m_bin);
            m_main->findChild<QAction*>(QString::fromLatin1(command))->trigger();
        }
        TestSupport::waitFor([&] { return !text->isEmpty(); }, Launcher::WatchMs + 5000);
        return *text;
    }

    QString called(const QString& name)
    {
        const QString marker = m_calls + QLatin1Char('/') + name + QStringLiteral(".args");
        if (!TestSupport::waitFor([&] { return QFile::exists(marker); }, 10000))
            return QStringLiteral("<not called>");
        return readAll(marker);
    }

    void resetPrograms()
    {
        for (const QString& folder : {m_bin, m_calls}) {
            QDir dir(folder);
            dir.removeRecursively();
            QDir().mkpath(folder);
        }
    }

public:
    TestFontFolder()
    {
        // Before the application exists: this process's user data lives in a temporary folder.
        qputenv("XDG_DATA_HOME", (m_root.path() + QStringLiteral("/data")).toLocal8Bit());
        m_bin = m_root.path() + QStringLiteral("/bin");
        m_calls = m_root.path() + QStringLiteral("/calls");
    }

private Q_SLOTS:
    void initTestCase()
    {
        m_main = new tglyphora;
        m_main->show();
    }

    void init()
    {
        resetPrograms();
    }

    void theFontsFolderIsTheUsersOne()
    {
        QCOMPARE(UserFonts::Folder(), m_root.path() + QStringLiteral("/data/fonts"));
    }

    void openingTheFolderCreatesItAndHandsItToTheFileManager()
    {
        QDir(UserFonts::Folder()).removeRecursively();
        fakeProgram(QStringLiteral("xdg-open"));
        {
            PathOverride path(m_bin);
            m_main->findChild<QAction*>(QStringLiteral("mopenfoldttf"))->trigger();
        }
        QVERIFY(QFileInfo(UserFonts::Folder()).isDir());
        QCOMPARE(called(QStringLiteral("xdg-open")), QUrl::fromLocalFile(UserFonts::Folder()).toString() + QLatin1Char('\n'));
    }

    void theToolbarButtonOpensTheFolderToo()
    {
        fakeProgram(QStringLiteral("xdg-open"));
        {
            PathOverride path(m_bin);
            m_main->Button(1)->trigger();
        }
        QCOMPARE(called(QStringLiteral("xdg-open")), QUrl::fromLocalFile(UserFonts::Folder()).toString() + QLatin1Char('\n'));
    }

    void withoutAFileManagerTheFolderCannotBeOpened()
    {
        auto text = acknowledge();
        {
            PathOverride path(m_bin);
            m_main->findChild<QAction*>(QStringLiteral("mopenfoldttf"))->trigger();
        }
        QCOMPARE(*text, QStringLiteral("Erreur, impossible d'ouvrir le répertoire..."));
    }

    void aFolderThatCannotBeCreatedCannotBeOpened()
    {
        fakeProgram(QStringLiteral("xdg-open"));
        const QByteArray saved = qgetenv("XDG_DATA_HOME");
        // A file where the data folder should be.
        const QString blocker = m_root.path() + QStringLiteral("/fichier");
        QFile file(blocker);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.close();
        qputenv("XDG_DATA_HOME", blocker.toLocal8Bit());
        auto text = acknowledge();
        {
            PathOverride path(m_bin);
            m_main->findChild<QAction*>(QStringLiteral("mopenfoldttf"))->trigger();
        }
        qputenv("XDG_DATA_HOME", saved);
        QCOMPARE(*text, QStringLiteral("Erreur, impossible d'ouvrir le répertoire..."));
        QVERIFY(!QFile::exists(m_calls + QStringLiteral("/xdg-open.args")));
    }

    void theCharacterMapIsTheFirstInstalled_data()
    {
        QTest::addColumn<QStringList>("installed");
        QTest::addColumn<QString>("started");
        QTest::newRow("all three") << QStringList{"gnome-characters", "gucharmap", "kcharselect"} << "gnome-characters";
        QTest::newRow("gucharmap and kcharselect") << QStringList{"gucharmap", "kcharselect"} << "gucharmap";
        QTest::newRow("gnome-characters and kcharselect") << QStringList{"kcharselect", "gnome-characters"} << "gnome-characters";
        QTest::newRow("kcharselect only") << QStringList{"kcharselect"} << "kcharselect";
    }
    void theCharacterMapIsTheFirstInstalled()
    {
        QFETCH(QStringList, installed);
        QFETCH(QString, started);
        for (const QString& program : installed)
            fakeProgram(program);
        {
            PathOverride path(m_bin);
            m_main->findChild<QAction*>(QStringLiteral("mcharmap"))->trigger();
        }
        // Started without arguments: no font is passed.
        QCOMPARE(called(started), QStringLiteral("\n"));
        for (const QString& program : installed)
            if (program != started)
                QVERIFY(!QFile::exists(m_calls + QLatin1Char('/') + program + QStringLiteral(".args")));
    }

    void withoutACharacterMapTheMainWindowStaysAsItWas()
    {
        fakeProgram(QStringLiteral("gucharmap"), false); // there, but not a program
        QTreeWidgetItem* current = m_main->List1->currentItem();
        const int count = m_main->List1->topLevelItemCount();
        const QString panel = m_main->Panel(1)->text();
        const QString title = m_main->windowTitle();
        auto text = acknowledge();
        {
            PathOverride path(m_bin);
            m_main->findChild<QAction*>(QStringLiteral("mcharmap"))->trigger();
        }
        QCOMPARE(*text, QStringLiteral("Erreur, CHARMAP.EXE n'est peut être pas installé sur votre ordinateur ?"));
        QCOMPARE(m_main->List1->currentItem(), current);
        QCOMPARE(m_main->List1->topLevelItemCount(), count);
        QCOMPARE(m_main->Panel(1)->text(), panel);
        QCOMPARE(m_main->windowTitle(), title);
        QVERIFY(m_main->isVisible());
    }

    void aFileManagerThatFailsAtOnceIsReported()
    {
        scriptProgram(QStringLiteral("xdg-open"), QStringLiteral("echo 'xdg-open: no method available' >&2\nexit 3"));
        QCOMPARE(messageOf("mopenfoldttf"), QStringLiteral("Erreur, impossible d'ouvrir le répertoire..."));
    }

    void aCharacterMapThatCrashesIsReported()
    {
        scriptProgram(QStringLiteral("gnome-characters"), QStringLiteral("kill -SEGV $$"));
        QCOMPARE(messageOf("mcharmap"), QStringLiteral("Erreur, CHARMAP.EXE n'est peut être pas installé sur votre ordinateur ?"));
    }

    void theWatchSaysHowTheProgramEnded_data()
    {
        QTest::addColumn<QString>("body");
        QTest::addColumn<bool>("failed");
        QTest::newRow("ends well") << "exit 0" << false;
        QTest::newRow("ends with an error") << "/bin/sleep 0.1; exit 2" << true;
        QTest::newRow("killed") << "kill -KILL $$" << true;
        QTest::newRow("still running") << "echo $$ > \"$1\"; exec /bin/sleep 30" << false;
    }
    void theWatchSaysHowTheProgramEnded()
    {
        QFETCH(QString, body);
        QFETCH(bool, failed);
        scriptProgram(QStringLiteral("outil"), body);
        const QString pidFile = m_calls + QStringLiteral("/outil.pid");
        std::optional<bool> seen;
        QObject context;
        {
            PathOverride path(m_bin);
            QVERIFY(Launcher::StartWatched(QStringLiteral("outil"), {pidFile}, &context, [&](bool f) { seen = f; }, 600));
        }
        QVERIFY(TestSupport::waitFor([&] { return seen.has_value(); }, 10000));
        QCOMPARE(*seen, failed);
        if (QFile::exists(pidFile)) {
            // A program still running when the watch ends runs on, on its own.
            const pid_t pid = readAll(pidFile).trimmed().toInt();
            QVERIFY(pid > 0);
            QCOMPARE(::kill(pid, 0), 0);
            ::kill(pid, SIGTERM);
        }
        {
            PathOverride path(m_bin);
            QVERIFY(!Launcher::StartWatched(QStringLiteral("absent"), {}, &context, [](bool) {}));
        }
    }

    void theLauncherUsesArgumentListsNotAShell()
    {
        fakeProgram(QStringLiteral("xdg-open"));
        {
            PathOverride path(m_bin);
            QCOMPARE(Launcher::FirstInstalled({QStringLiteral("absent"), QStringLiteral("xdg-open")}), QStringLiteral("xdg-open"));
            QVERIFY(Launcher::Start(QStringLiteral("xdg-open"), {QStringLiteral("a b; touch pwned"), QStringLiteral("$(id)")}));
            QVERIFY(!Launcher::Start(QStringLiteral("absent")));
            QCOMPARE(Launcher::FirstInstalled({QStringLiteral("absent")}), QString());
        }
        QCOMPARE(called(QStringLiteral("xdg-open")), QStringLiteral("a b; touch pwned\n$(id)\n"));
        QVERIFY(!QFile::exists(QStringLiteral("pwned")));
        // Watched, the arguments are passed as they are too.
        resetPrograms();
        fakeProgram(QStringLiteral("xdg-open"));
        QObject context;
        {
            PathOverride path(m_bin);
            QVERIFY(Launcher::StartWatched(QStringLiteral("xdg-open"), {QStringLiteral("a b; touch pwned"), QStringLiteral("$(id)")},
                                           &context, [](bool) {}));
        }
        QCOMPARE(called(QStringLiteral("xdg-open")), QStringLiteral("a b; touch pwned\n$(id)\n"));
        QVERIFY(!QFile::exists(QStringLiteral("pwned")));
    }
};

GLYPHORA_TEST_MAIN(TestFontFolder)
#include "test_fontfolder.moc"
