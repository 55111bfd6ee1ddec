// CMDIALOG: the colour dialog, the open and save file dialogs and the shell's "open
// this document or address", each in one call, plus a path helper.
#pragma once

#include <QColor>
#include <QString>
#include <QStringList>

class QWidget;

namespace CMDIALOG {

// Dialog modes of ShowFileDialog.
inline constexpr int ModeOpen = 1;
inline constexpr int ModeSave = 2;

// Opens the colour dialog on black. On confirmation sets the control's text colour
// (its ForeColor) to the chosen colour and returns true; on cancel returns false.
bool ShowColor(QWidget* owner, QWidget* control);

// Opens the file dialog: mode 1 opens an existing file, any other mode saves (asking
// before overwriting). The filter is pairs of description and pattern, each element
// followed by a NUL except the last ("Fichier texte\0*.txt\0Tous\0*.*"). Returns the
// chosen path, or "" when the user cancelled.
QString ShowFileDialog(QWidget* owner, int mode, const QString& title, const QString& initialName,
                       const QString& filter, const QString& initialDir, const QString& defaultExt);

// The folder a save dialog starts in: the given one when it can be written to, else the
// user's documents folder, else the home folder. The process's current folder is not
// changed.
QString SaveFolder(const QString& initialDir);

// Hands a document path, web address or "mailto:" address to the desktop.
bool ShellOpen(const QString& target);

// The path up to and including its last backslash or slash; the whole text when it
// holds neither.
QString ExtractPath(const QString& path);

// Filter text from description/pattern pairs, as ShowFileDialog takes it.
QString BuildFilter(const QStringList& descriptionPatternPairs);
// The dialog's name filters ("description (pattern)") from a filter text.
QStringList NameFilters(const QString& filter);

// The text colour (ForeColor) of a control: its palette's Text and WindowText roles.
QColor ForeColor(const QWidget* control);
void setForeColor(QWidget* control, const QColor& color);

} // namespace CMDIALOG
