// Launcher: starting the desktop's own programs (file manager, character map) without
// waiting for them. Programs are found on PATH and started with an argument list, never
// through a shell.
#pragma once

#include <QString>
#include <QStringList>

namespace Launcher {

// Full path of a program found on PATH, or "" when it is not installed.
QString Find(const QString& program);
// The first of the programs that is installed, or "" when none is.
QString FirstInstalled(const QStringList& programs);
// Starts a program detached with its arguments; true once it has started.
bool Start(const QString& program, const QStringList& arguments = {});

} // namespace Launcher
