// Glyphora's entry point: the application object, then the start-up sequence.
#include "app/debut.h"
#include "app/glyphoraapplication.h"
#include "components/errorreport.h"
#include "components/printer.h"

int main(int argc, char** argv)
{
    GlyphoraApplication app(argc, argv);
    Printer::instance().lookUpInBackground(); // while the windows are being built
    ErrorReport::guard([] { debut::Main(); });
    const int status = app.exec();
    Printer::instance().EndDoc(); // an unended print document is sent at exit
    return status;
}
