// French file type names for the file dialogs.
#include "components/frenchfiletypes.h"

#include <QFileInfo>

QString FrenchFileTypes::type(const QFileInfo& info) const
{
    if (info.isRoot())
        return QStringLiteral("Lecteur");
    if (info.isSymLink() && !info.exists())
        return QStringLiteral("Raccourci");
    if (info.isDir())
        return QStringLiteral("Dossier");
    const QString suffix = info.suffix();
    return suffix.isEmpty() ? QStringLiteral("Fichier") : QStringLiteral("Fichier ") + suffix.toUpper();
}

FrenchFileTypes* FrenchFileTypes::instance()
{
    static FrenchFileTypes provider;
    return &provider;
}
