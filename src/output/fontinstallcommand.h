// The install command shared by the main window's "&Installer des polices..." and the
// preview window's "Installer" button: the questions and messages around FontInstall,
// then the main window's font list reloaded with its selection kept.
#pragma once

#include <QStringList>

class QWidget;
class tglyphora;

namespace FontInstallCommand {

// Asks for one or more font files ("Installer des polices"); empty when cancelled.
QStringList askFiles(QWidget* owner);
// Installs the files, asking "Remplacer « name » ?" before replacing one, and tells in
// one message what was refused. Returns the files written into the font folder.
QStringList run(QWidget* owner, const QStringList& files);
// Reloads the list through charge and selects again the family that was selected.
void reloadFontList(tglyphora* window);

} // namespace FontInstallCommand
