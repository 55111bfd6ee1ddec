// FrenchFileTypes: the file dialogs' "Type" column in French whatever the system's
// language: "Dossier" for a folder, "Fichier TXT" for a file (the system's type
// descriptions follow the system's language, not the program's).
#pragma once

#include <QFileIconProvider>

class FrenchFileTypes : public QFileIconProvider {
public:
    QString type(const QFileInfo& info) const override;
    // The provider every dialog of the program shares.
    static FrenchFileTypes* instance();
};
