// Application object and its run-time error routing.
#include "app/glyphoraapplication.h"

#include "components/errorreport.h"
#include "components/runtimeerror.h"

#include <QLibraryInfo>
#include <QTranslator>

GlyphoraApplication::GlyphoraApplication(int& argc, char** argv) : QApplication(argc, argv)
{
    setApplicationName(QStringLiteral("Glyphora"));
    // The interface is French whatever the locale: Qt's own dialogs and buttons too.
    auto* translator = new QTranslator(this);
    if (translator->load(QStringLiteral("qtbase_fr"), QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        installTranslator(translator);
    setOrganizationName(QStringLiteral("Glyphora"));
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
