// Favourites: the face names the user marked, kept in the settings (group "Favoris")
// whether or not they are installed now. No widgets.
#pragma once

#include <QStringList>

namespace Favourites {

// Every stored favourite, sorted as the font list sorts names.
QStringList load();
// Stores exactly these names: "Nombre" and "Police1".."PoliceN", sorted.
void save(const QStringList& names);
// Adds the name when absent, removes it when present; returns true when it was added.
bool toggle(const QString& name);
// The names sorted without regard to case first, then exactly.
void sort(QStringList& names);

} // namespace Favourites
