// Starting desktop programs detached.
#include "output/launcher.h"

#include <QProcess>
#include <QStandardPaths>

namespace Launcher {

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

} // namespace Launcher
