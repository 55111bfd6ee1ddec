// Application object and its run-time error routing.
#include "app/glyphoraapplication.h"

#include "components/errorreport.h"
#include "components/runtimeerror.h"

GlyphoraApplication::GlyphoraApplication(int& argc, char** argv) : QApplication(argc, argv)
{
    setApplicationName(QStringLiteral("Glyphora"));
    setOrganizationName(QStringLiteral("Glyphora"));
    setApplicationDisplayName(QStringLiteral("Glyphora"));
}

bool GlyphoraApplication::notify(QObject* receiver, QEvent* event)
{
    try {
        return QApplication::notify(receiver, event);
    } catch (const RuntimeError& e) {
        ErrorReport::reportAndExit(e);
    } catch (const std::exception& e) {
        ErrorReport::reportAndExit(e);
    }
}
