// Starting desktop programs detached, optionally watching their first seconds.
#include "output/launcher.h"

#include <QProcess>
#include <QStandardPaths>
#include <memory>

namespace Launcher {

namespace {

// Runs "$@" in the background and waits for it, at most $1 seconds: its own exit
// status when it ends in time, 0 when the time is up (it then runs on alone, its
// parent gone). Its output goes where Glyphora's goes.
const char* const watchScript =
    "seconds=$1; shift\n"
    "\"$@\" </dev/null &\n"
    "child=$!\n"
    "trap 'exit 0' USR1\n"
    "( /bin/sleep \"$seconds\"; kill -USR1 $$ 2>/dev/null ) </dev/null >/dev/null 2>&1 &\n"
    "wait \"$child\"\n";

} // namespace

QString Find(const QString& program)
{
    return QStandardPaths::findExecutable(program);
}

QString FirstInstalled(const QStringList& programs)
{
    for (const QString& program : programs)
        if (!Find(program).isEmpty())
            return program;
    return QString();
}

bool Start(const QString& program, const QStringList& arguments)
{
    const QString path = Find(program);
    if (path.isEmpty())
        return false;
    return QProcess::startDetached(path, arguments);
}

bool StartWatched(const QString& program, const QStringList& arguments, QObject* context,
                  std::function<void(bool failed)> onEnd, int watchMs)
{
    const QString path = Find(program);
    if (path.isEmpty())
        return false;
    auto* watcher = new QProcess(context);
    watcher->setProcessChannelMode(QProcess::ForwardedChannels);
    watcher->setStandardInputFile(QProcess::nullDevice());
    QStringList shellArguments{QStringLiteral("-c"), QString::fromLatin1(watchScript), QStringLiteral("glyphora-launch"),
                               QString::number(watchMs / 1000.0, 'f', 3), path};
    shellArguments += arguments;
    auto reported = std::make_shared<bool>(false);
    QObject::connect(watcher, &QProcess::finished, context,
                     [watcher, onEnd, reported](int exitCode, QProcess::ExitStatus status) {
                         if (!*reported) {
                             *reported = true;
                             onEnd(status != QProcess::NormalExit || exitCode != 0);
                         }
                         watcher->deleteLater();
                     });
    watcher->start(QStringLiteral("/bin/sh"), shellArguments);
    if (!watcher->waitForStarted(5000)) {
        delete watcher;
        return false;
    }
    return true;
}

} // namespace Launcher
