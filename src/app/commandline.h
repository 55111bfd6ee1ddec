// The command line: "glyphora [options] [fichier...]". Read before any window exists,
// so that --help and --version answer without a display. Qt's own options (-platform,
// -style, -display, ...) are let through for the application object.
#pragma once

#include <QString>
#include <QStringList>

namespace CommandLine {

enum class Action {
    Run,     // start, and show `files` in the preview window
    Help,    // print usage() on standard output, exit 0
    Version, // print versionText() on standard output, exit 0
    Error,   // print `error` and usage() on standard error, exit 2
};

struct Request {
    Action action = Action::Run;
    QStringList files; // absolute paths, in the given order
    QString error;
};

// `arguments` as the program received them, the program's name first.
Request parse(const QStringList& arguments);
// French usage text, ending with a line break.
QString usage();
// "Glyphora 3.3.0"
QString versionText();
// Exit status of an Error.
inline constexpr int UsageError = 2;

} // namespace CommandLine
