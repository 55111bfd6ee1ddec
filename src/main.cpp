// Glyphora's entry point: the command line, the application object, then the start-up
// sequence.
#include "app/commandline.h"
#include "app/debut.h"
#include "app/glyphoraapplication.h"
#include "components/errorreport.h"
#include "components/printer.h"

#include <cstdio>

int main(int argc, char** argv)
{
    // Read before the application object, which needs a display.
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    const CommandLine::Request request = CommandLine::parse(arguments);
    switch (request.action) {
    case CommandLine::Action::Help:
        std::fputs(CommandLine::usage().toLocal8Bit().constData(), stdout);
        return 0;
    case CommandLine::Action::Version:
        std::fputs((CommandLine::versionText() + QLatin1Char('\n')).toLocal8Bit().constData(), stdout);
        return 0;
    case CommandLine::Action::Error:
        std::fputs((request.error + CommandLine::usage()).toLocal8Bit().constData(), stderr);
        return CommandLine::UsageError;
    case CommandLine::Action::Run:
        break;
    }

    GlyphoraApplication app(argc, argv);
    Printer::instance().lookUpInBackground(); // while the windows are being built
    ErrorReport::guard([&] { debut::Main(request.files); });
    const int status = app.exec();
    Printer::instance().EndDoc(); // an unended print document is sent at exit
    return status;
}
