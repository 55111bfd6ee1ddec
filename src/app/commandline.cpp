// The command line through QCommandLineParser, with a French usage text.
#include "app/commandline.h"

#include "components/version.h"

#include <QCommandLineParser>
#include <QFileInfo>

namespace CommandLine {

namespace {

// Options Qt's application object reads itself; each takes a value unless said.
struct QtOption {
    const char* name;
    bool takesValue;
};
constexpr QtOption qtOptions[] = {
    {"platform", true}, {"platformpluginpath", true}, {"platformtheme", true}, {"plugin", true},
    {"display", true},  {"geometry", true},           {"qwindowgeometry", true}, {"qwindowtitle", true},
    {"qwindowicon", true}, {"title", true},           {"name", true},          {"style", true},
    {"stylesheet", true}, {"session", true},          {"reverse", false},      {"widgetcount", false},
    {"nograb", false},    {"dograb", false},          {"sync", false},
};

} // namespace

QString versionText()
{
    return QStringLiteral("Glyphora ") + QString::fromLatin1(Version::Text);
}

QString usage()
{
    return QStringLiteral(
        "Utilisation : glyphora [options] [fichier...]\n"
        "Visionneuse de polices de caractères.\n"
        "\n"
        "Sans fichier, Glyphora montre les polices installées. Avec des fichiers de police\n"
        "(TrueType, OpenType, collections, WOFF, WOFF2), il ouvre aussi la fenêtre\n"
        "d'aperçu sur le dossier du premier et montre celui-ci.\n"
        "\n"
        "Options :\n"
        "  -h, --help     affiche cette aide et quitte\n"
        "  -v, --version  affiche la version et quitte\n");
}

Request parse(const QStringList& arguments)
{
    QCommandLineParser parser;
    // "-platform" is one option, as Qt reads it, not -p -l -a ...
    parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")}, QString());
    const QCommandLineOption version({QStringLiteral("v"), QStringLiteral("version")}, QString());
    parser.addOption(help);
    parser.addOption(version);
    for (const QtOption& option : qtOptions) {
        QCommandLineOption qt(QString::fromLatin1(option.name), QString());
        if (option.takesValue)
            qt.setValueName(QStringLiteral("valeur"));
        qt.setFlags(QCommandLineOption::HiddenFromHelp);
        parser.addOption(qt);
    }

    Request request;
    if (!parser.parse(arguments)) {
        request.action = Action::Error;
        const QStringList unknown = parser.unknownOptionNames();
        if (unknown.isEmpty()) {
            request.error = QStringLiteral("glyphora : ligne de commande incorrecte.\n");
            return request;
        }
        // The option as it was written, dashes included.
        QString written = QStringLiteral("--") + unknown.first();
        for (const QString& argument : arguments.mid(1))
            if (argument.startsWith(QLatin1Char('-')) && argument.section(QLatin1Char('='), 0, 0).endsWith(unknown.first())) {
                written = argument.section(QLatin1Char('='), 0, 0);
                break;
            }
        request.error = QStringLiteral("glyphora : option inconnue « %1 ».\n").arg(written);
        return request;
    }
    if (parser.isSet(help)) {
        request.action = Action::Help;
    } else if (parser.isSet(version)) {
        request.action = Action::Version;
    } else {
        for (const QString& file : parser.positionalArguments())
            request.files.append(QFileInfo(file).absoluteFilePath());
    }
    return request;
}

} // namespace CommandLine
