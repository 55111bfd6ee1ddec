// Construction of run-time errors and the standard French descriptions.
#include "components/runtimeerror.h"

RuntimeError::RuntimeError(int number, QString source, QString description)
    : m_number(number), m_source(std::move(source)), m_description(std::move(description))
{
    m_what = (QString::number(m_number) + QStringLiteral(" (") + m_source + QStringLiteral("): ") + m_description)
                 .toStdString();
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
    return {ObjectMissing, source, QStringLiteral("Variable objet ou variable de bloc With non définie")};
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
    if (!path.isEmpty())
        text += QStringLiteral(" : ") + path;
    return {number, source, text};
}

RuntimeError RuntimeError::printerError(const QString& source)
{
    return {PrinterError, source, QStringLiteral("Erreur d'imprimante : aucune imprimante n'est installée")};
}
