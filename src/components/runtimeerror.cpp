// Construction of run-time errors, the standard French descriptions and the stack of
// "what the program is doing" scopes that each new error copies.
#include "components/runtimeerror.h"

#include <QDir>
#include <QFileInfo>
#include <vector>

namespace {

thread_local std::vector<const ErrorContext*> openScopes;

QString lowerFirst(const QString& text)
{
    return text.isEmpty() ? text : text.left(1).toLower() + text.mid(1);
}

// Why a file cannot be used, from what the file system says about it now.
QString fileReason(int number, const QString& path)
{
    const QFileInfo file(path);
    const QFileInfo folder(file.absolutePath());
    if (number == RuntimeError::FileNotFound)
        return QStringLiteral("fichier introuvable");
    if (!folder.exists())
        return QStringLiteral("dossier introuvable");
    if ((file.exists() && !file.isWritable()) || (!file.exists() && !folder.isWritable()))
        return QStringLiteral("permission refusée");
    return QString();
}

} // namespace

ErrorContext ErrorContext::current()
{
    return openScopes.empty() ? ErrorContext() : *openScopes.back();
}

void ErrorContext::push(const ErrorContext* context)
{
    openScopes.push_back(context);
}

void ErrorContext::pop(const ErrorContext* context)
{
    // Scopes close in reverse order of opening; anything else is left alone.
    if (!openScopes.empty() && openScopes.back() == context)
        openScopes.pop_back();
}

RuntimeError::RuntimeError(int number, QString source, QString description)
    : m_number(number), m_source(std::move(source)), m_description(std::move(description)),
      m_reason(lowerFirst(m_description)), m_context(ErrorContext::current())
{
    m_what = (QString::number(m_number) + QStringLiteral(" (") + m_source + QStringLiteral("): ") + m_description)
                 .toStdString();
}

RuntimeError& RuntimeError::setReason(const QString& reason)
{
    m_reason = reason;
    return *this;
}

RuntimeError& RuntimeError::setContext(const ErrorContext& context)
{
    m_context = context;
    return *this;
}

RuntimeError RuntimeError::illegalCall(const QString& source)
{
    return {IllegalCall, source, QStringLiteral("Argument ou appel de procédure incorrect")};
}

RuntimeError RuntimeError::overflow(const QString& source)
{
    return {Overflow, source, QStringLiteral("Dépassement de capacité")};
}

RuntimeError RuntimeError::subscriptOutOfRange(const QString& source)
{
    return {SubscriptOutOfRange, source, QStringLiteral("L'indice n'appartient pas à la sélection")};
}

RuntimeError RuntimeError::typeMismatch(const QString& source)
{
    return {TypeMismatch, source, QStringLiteral("Incompatibilité de type")};
}

RuntimeError RuntimeError::objectMissing(const QString& source)
{
    RuntimeError error(ObjectMissing, source, QStringLiteral("Variable objet ou variable de bloc With non définie"));
    if (source.endsWith(QLatin1String("SelectedItem")))
        error.setReason(QStringLiteral("aucune police n'est sélectionnée dans la liste"));
    return error;
}

RuntimeError RuntimeError::fileError(int number, const QString& path, const QString& source)
{
    QString text;
    switch (number) {
    case FileNotFound: text = QStringLiteral("Fichier introuvable"); break;
    case PermissionDenied: text = QStringLiteral("Permission refusée"); break;
    case PathNotFound: text = QStringLiteral("Chemin d'accès introuvable"); break;
    default: text = QStringLiteral("Erreur d'accès chemin/fichier"); break;
    }
    const QString reason = path.isEmpty() ? QString() : fileReason(number, path);
    const QString plain = text.toLower();
    if (!path.isEmpty())
        text += QStringLiteral(" : ") + path;
    RuntimeError error(number, source, text);
    error.setReason(reason.isEmpty() ? plain : reason);
    return error;
}

RuntimeError RuntimeError::printerError(const QString& source)
{
    return {PrinterError, source, QStringLiteral("Erreur d'imprimante : aucune imprimante n'est installée")};
}
