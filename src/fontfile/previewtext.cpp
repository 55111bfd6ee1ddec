// The preview's fixed texts and its information block, built in a string builder.
#include "fontfile/previewtext.h"

#include "components/cstringbuilder.h"

#include <QDir>

namespace PreviewText {

QList<int> sizes()
{
    return {60, 48, 36, 24, 18, 14, 12, 10, 7};
}

QString sampleSentence()
{
    return QStringLiteral("Voix ambiguë d'un coeur qui au zéphyr préfère les jattes de kiwis. 1234567890");
}

QString characterLine()
{
    return QStringLiteral("0123456789!@#$%^&*()~-_+=:;") + QLatin1Char('"') + QStringLiteral("',<.>/?");
}

QString informationText(const FileDescription& file)
{
    const QString crlf = QStringLiteral("\r\n");
    const std::pair<const char*, const QString*> lines[] = {
        {"Nom: ", &file.faceName},
        {"Famille : ", &file.familyName},
        {"Sous famille: ", &file.subFamilyName},
        {"Nom complet: ", &file.fullName},
        {"Identifier unique : ", &file.uniqueIdentifier},
        {"Nom Postscript : ", &file.postscriptName},
        {"Copyright: ", &file.copyright},
        {"Trademark: ", &file.trademark},
        {"Version: ", &file.versionString},
    };
    CStringBuilder text;
    for (const auto& [label, value] : lines)
        text.Append(QString::fromUtf8(label)).Append(*value).Append(crlf);
    text.Append(file.installed ? QStringLiteral("Installée: Oui") : QStringLiteral("Installée: Non")).Append(crlf);
    return text.ToString();
}

QString refusalText(const QString& path, BoundedFile::Outcome outcome)
{
    const QString file = QDir::toNativeSeparators(path);
    switch (outcome) {
    case BoundedFile::Outcome::Read:
        return QString();
    case BoundedFile::Outcome::NotRegular:
        return QStringLiteral("Erreur, \"%1\" n'est pas un fichier de police : c'est un dossier, un tube ou un périphérique.").arg(file);
    case BoundedFile::Outcome::TooLarge:
        return QStringLiteral("Erreur, le fichier \"%1\" est trop gros pour être une police (plus de 256 Mo).").arg(file);
    case BoundedFile::Outcome::Missing:
        return QStringLiteral("Erreur, le fichier \"%1\" est introuvable ou vous n'avez pas le droit de le lire.").arg(file);
    case BoundedFile::Outcome::Unreadable:
        break;
    }
    return QStringLiteral("Erreur, impossible de lire le fichier \"%1\".").arg(file);
}

} // namespace PreviewText
