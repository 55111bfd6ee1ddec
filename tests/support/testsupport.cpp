// Test harness implementation.
#include "support/testsupport.h"

#include "components/printer.h"
#include <QUuid>

#include "app/glyphoraapplication.h"

#include <QApplication>
#include <QDateTime>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QMap>
#include <QPointer>
#include <QSettings>
#include <QTemporaryDir>
#include <QTimer>
#include <QUuid>
#include <QWidget>
#include <linux/capability.h>
#include <memory>
#include <sys/syscall.h>
#include <unistd.h>

namespace TestSupport {

static QTemporaryDir* environmentRoot = nullptr;

static QMap<QString, std::function<int()>>& scenarios()
{
    static QMap<QString, std::function<int()>> map;
    return map;
}

void prepareEnvironment()
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    if (!environmentRoot) {
        environmentRoot = new QTemporaryDir(QDir::tempPath() + QStringLiteral("/glyphora-test-XXXXXX"));
        QDir root(environmentRoot->path());
        root.mkpath(QStringLiteral("config"));
        root.mkpath(QStringLiteral("runtime"));
        QFile::setPermissions(root.filePath(QStringLiteral("runtime")),
                              QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        // A child process keeps the settings its parent prepared for it.
        if (qEnvironmentVariableIsEmpty("GLYPHORA_KEEP_CONFIG"))
            qputenv("XDG_CONFIG_HOME", root.filePath(QStringLiteral("config")).toLocal8Bit());
        qputenv("XDG_RUNTIME_DIR", root.filePath(QStringLiteral("runtime")).toLocal8Bit());
    }
}

QString configHome()
{
    return qEnvironmentVariable("XDG_CONFIG_HOME");
}

QString settingsFile()
{
    return configHome() + QStringLiteral("/Glyphora/Glyphora.conf");
}

void clearSettings()
{
    QSettings store(QStringLiteral("Glyphora"), QStringLiteral("Glyphora"));
    store.clear();
    store.sync();
}

void writeSetting(const QString& section, const QString& key, const QString& value)
{
    QSettings store(QStringLiteral("Glyphora"), QStringLiteral("Glyphora"));
    store.setValue(section + QLatin1Char('/') + key, value);
    store.sync();
}

QString readSetting(const QString& section, const QString& key, const QString& def)
{
    QSettings store(QStringLiteral("Glyphora"), QStringLiteral("Glyphora"));
    return store.value(section + QLatin1Char('/') + key, def).toString();
}

bool hasSetting(const QString& section, const QString& key)
{
    QSettings store(QStringLiteral("Glyphora"), QStringLiteral("Glyphora"));
    return store.contains(section + QLatin1Char('/') + key);
}

std::shared_ptr<bool> whenModal(std::function<void(QWidget*)> action, int timeoutMs)
{
    return whenAnotherModal(nullptr, std::move(action), timeoutMs);
}

std::shared_ptr<bool> whenAnotherModal(QWidget* current, std::function<void(QWidget*)> action, int timeoutMs)
{
    auto done = std::make_shared<bool>(false);
    auto* timer = new QTimer;
    auto started = std::make_shared<QElapsedTimer>();
    started->start();
    timer->setInterval(10);
    QPointer<QWidget> skip(current);
    QObject::connect(timer, &QTimer::timeout, [timer, action, done, started, timeoutMs, skip, current] {
        QWidget* modal = QApplication::activeModalWidget();
        if (modal && (current == nullptr || (modal != skip.data()))) {
            timer->stop();
            timer->deleteLater();
            *done = true;
            action(modal);
        } else if (started->elapsed() > timeoutMs) {
            timer->stop();
            timer->deleteLater();
        }
    });
    timer->start();
    return done;
}

bool waitFor(const std::function<bool()>& done, int timeoutMs)
{
    QElapsedTimer clock;
    clock.start();
    while (!done()) {
        if (clock.elapsed() > timeoutMs)
            return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
        QTest::qSleep(5);
    }
    return true;
}

QStringList fcFamilies()
{
    QProcess fc;
    fc.start(QStringLiteral("fc-list"), {QStringLiteral("--format"), QStringLiteral("%{family[0]}\\n")});
    fc.waitForFinished(60000);
    QStringList names = QString::fromUtf8(fc.readAllStandardOutput()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    names.sort();
    names.removeDuplicates();
    return names;
}

void registerScenario(const QString& name, std::function<int()> scenario)
{
    scenarios().insert(name, std::move(scenario));
}

ChildResult runScenario(const QString& name, const QStringList& extraEnv, int timeoutMs)
{
    QProcess child;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("GLYPHORA_KEEP_CONFIG"), QStringLiteral("1"));
    for (const QString& assignment : extraEnv) {
        const qsizetype eq = assignment.indexOf(QLatin1Char('='));
        env.insert(assignment.left(eq), assignment.mid(eq + 1));
    }
    child.setProcessEnvironment(env);
    child.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--scenario"), name});
    ChildResult result;
    if (!child.waitForFinished(timeoutMs)) {
        child.kill();
        child.waitForFinished();
    }
    result.exitCode = child.exitCode();
    result.exitStatus = child.exitStatus();
    result.out = QString::fromUtf8(child.readAllStandardOutput());
    result.err = QString::fromUtf8(child.readAllStandardError());
    return result;
}

bool obeyFilePermissions()
{
    if (geteuid() != 0)
        return true;
    __user_cap_header_struct header{_LINUX_CAPABILITY_VERSION_3, 0};
    __user_cap_data_struct data[_LINUX_CAPABILITY_U32S_3] = {};
    if (syscall(SYS_capget, &header, data) != 0)
        return false;
    for (const int cap : {CAP_DAC_OVERRIDE, CAP_DAC_READ_SEARCH}) {
        data[cap / 32].effective &= ~(1u << (cap % 32));
        data[cap / 32].permitted &= ~(1u << (cap % 32));
    }
    return syscall(SYS_capset, &header, data) == 0;
}

bool requirePrinter()
{
    QProcess lpstat;
    lpstat.start(QStringLiteral("lpstat"), {QStringLiteral("-d")});
    lpstat.waitForFinished(10000);
    const QString out = QString::fromUtf8(lpstat.readAllStandardOutput());
    return out.contains(QStringLiteral("system default destination:"));
}

QString pdfOutputFolder()
{
    const QString configured = qEnvironmentVariable("GLYPHORA_PDF_OUT");
    return configured.isEmpty() ? QStringLiteral("/tmp/cups-pdf-out") : configured;
}

static QString& ownDocumentName()
{
    static QString name;
    return name;
}

QString useOwnDocumentName()
{
    ownDocumentName() = QStringLiteral("Glyphora") + QUuid::createUuid().toString(QUuid::Id128).left(8).toUpper();
    Printer::instance().setDocumentName(ownDocumentName());
    return ownDocumentName();
}

QString waitForPdf(const QDateTime& since, int timeoutMs)
{
    QElapsedTimer clock;
    clock.start();
    while (clock.elapsed() < timeoutMs) {
        QProcess lpstat;
        lpstat.start(QStringLiteral("lpstat"), {QStringLiteral("-o")});
        lpstat.waitForFinished(10000);
        const bool queueEmpty = lpstat.readAllStandardOutput().trimmed().isEmpty();
        if (queueEmpty) {
            QString newest;
            QDateTime newestTime = since;
            QDirIterator files(pdfOutputFolder(), {QStringLiteral("*.pdf")}, QDir::Files, QDirIterator::Subdirectories);
            while (files.hasNext()) {
                const QFileInfo info(files.next());
                if (!info.fileName().startsWith(ownDocumentName()))
                    continue;
                if (info.lastModified() >= newestTime && info.size() > 0) {
                    newestTime = info.lastModified();
                    newest = info.filePath();
                }
            }
            if (!newest.isEmpty())
                return newest;
        }
        QCoreApplication::processEvents(QEventLoop::AllEvents, 50);
        QTest::qSleep(100);
    }
    return QString();
}

static QString runTool(const QString& program, const QStringList& args)
{
    QProcess tool;
    tool.start(program, args);
    tool.waitForFinished(60000);
    return QString::fromUtf8(tool.readAllStandardOutput());
}

QString pdfText(const QString& pdf)
{
    return runTool(QStringLiteral("pdftotext"), {QStringLiteral("-layout"), pdf, QStringLiteral("-")});
}

QString pdfFonts(const QString& pdf)
{
    return runTool(QStringLiteral("pdffonts"), {pdf});
}

} // namespace TestSupport

int glyphoraTestMain(int argc, char** argv, QObject* test)
{
    TestSupport::prepareEnvironment();
    for (int i = 1; i + 1 < argc; ++i) {
        if (QByteArray(argv[i]) == "--scenario") {
            GlyphoraApplication app(argc, argv);
            const QString name = QString::fromLocal8Bit(argv[i + 1]);
            auto scenario = TestSupport::scenarios().value(name);
            if (!scenario) {
                std::fprintf(stderr, "unknown scenario %s\n", argv[i + 1]);
                return 99;
            }
            return scenario();
        }
    }
    GlyphoraApplication app(argc, argv);
    QTEST_SET_MAIN_SOURCE_PATH
    return QTest::qExec(test, argc, argv);
}
