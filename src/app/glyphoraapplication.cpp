// Application object and its run-time error routing.
#include "app/glyphoraapplication.h"

#include "components/errorreport.h"
#include "components/frenchqttexts.h"
#include "components/runtimeerror.h"

#include <QLibraryInfo>
#include <cstdio>
#include <QTranslator>

GlyphoraApplication::GlyphoraApplication(int& argc, char** argv) : QApplication(argc, argv)
{
    setApplicationName(QStringLiteral("Glyphora"));
    // The interface is French whatever the locale: Qt's own dialogs and buttons too.
    auto* translator = new QTranslator(this);
    if (translator->load(QStringLiteral("qtbase_fr"), QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        installTranslator(translator);
    // Asked first: the texts qtbase_fr lacks.
    installTranslator(new FrenchQtTexts(this));
    setOrganizationName(QStringLiteral("Glyphora"));
}

bool GlyphoraApplication::notify(QObject* receiver, QEvent* event)
{
    // Handlers catch their own errors (ErrorReport::guard); one that got here has
    // already unwound through Qt's code, which the message below makes visible.
    try {
        return QApplication::notify(receiver, event);
    } catch (const std::exception& e) {
        std::fprintf(stderr, "Glyphora: erreur non interceptée par son gestionnaire (%s)\n",
                     receiver ? receiver->metaObject()->className() : "?");
        ErrorReport::reportAndExit(e);
    }
}
