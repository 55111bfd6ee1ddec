// The texts missing from qtbase_fr, by Qt context and English source text.
#include "components/frenchqttexts.h"

#include <cstring>

namespace {

struct Text {
    const char* context;
    const char* source;
    const char* french;
};

const Text texts[] = {
    {"QAbstractFileIconProvider", "Drive", "Lecteur"},
    {"QAbstractFileIconProvider", "Folder", "Dossier"},
    {"QAbstractFileIconProvider", "File", "Fichier"},
    {"QAbstractFileIconProvider", "Unknown", "Inconnu"},
    {"QAbstractFileIconProvider", "Shortcut", "Raccourci"},
    {"QAbstractFileIconProvider", "%1 File", "Fichier %1"},
    {"QFileDialog", "Directory", "Dossier"},
    {"QFileDialog", "Save", "Enregistrer"},
    {"QFileSystemModel",
     "<b>The name \"%1\" cannot be used.</b><p>Try using another name, with fewer characters or no punctuation marks.",
     "<b>Le nom « %1 » ne peut pas être utilisé.</b><p>Essayez un autre nom, plus court ou sans ponctuation."},
    {"QColorDialog", "Select color", "Choisir une couleur"},
    {"QPrintDialog", "&Options >>", "&Options >>"},
    {"QPrintDialog", "&Options <<", "&Options <<"},
    {"QComboBox", "Open the combo box menu", "Ouvrir la liste"},
};

} // namespace

QString FrenchQtTexts::translate(const char* context, const char* sourceText, const char*, int) const
{
    if (!context || !sourceText)
        return QString();
    for (const Text& text : texts)
        if (std::strcmp(context, text.context) == 0 && std::strcmp(sourceText, text.source) == 0)
            return QString::fromUtf8(text.french);
    return QString();
}
