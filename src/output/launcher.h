// Launcher: starting the desktop's own programs (file manager, character map) without
// waiting for them. Programs are found on PATH and started with an argument list; the
// watched start goes through a fixed /bin/sh script that takes the program and its
// arguments as positional parameters, never as command text.
#pragma once

#include <QString>
#include <QStringList>
#include <functional>

class QObject;

namespace Launcher {

// How long after starting an exit still counts as a failure to start.
inline constexpr int WatchMs = 3000;

// Full path of a program found on PATH, or "" when it is not installed.
QString Find(const QString& program);
// The first of the programs that is installed, or "" when none is.
QString FirstInstalled(const QStringList& programs);
// Starts a program detached with its arguments; true once it has started.
bool Start(const QString& program, const QStringList& arguments = {});
// Starts a program that goes on running on its own, and watches it for watchMs: onEnd
// runs once, on context's thread, with true when the program ended with an error
// status or a crash within that time, false when it ended well or still runs. Returns
// false (and onEnd is not called) when the program cannot be started at all.
bool StartWatched(const QString& program, const QStringList& arguments, QObject* context,
                  std::function<void(bool failed)> onEnd, int watchMs = WatchMs);

} // namespace Launcher
