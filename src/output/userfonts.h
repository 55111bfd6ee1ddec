// UserFonts: the fonts installed for this user only (system fonts need administrator
// rights): their folder, the files with the family and style fontconfig reads in them,
// removal to the desktop trash, and bringing fontconfig up to date afterwards. One of the
// few places that call fontconfig.
#pragma once

#include <QList>
#include <QString>
#include <QStringList>

namespace UserFonts {

struct FontFile {
    QString path;
    QString family; // every family of the file, "; " between them
    QString style;  // every style of the file, "; " between them
};

// Where this user's fonts go: $XDG_DATA_HOME/fonts, that is ~/.local/share/fonts.
QString Folder();
// Every folder fontconfig reads this user's fonts from that exists: Folder() and the
// older ~/.fonts.
QStringList Folders();
// The font files in those folders and their subfolders that fontconfig can read,
// sorted by family, style and path.
QList<FontFile> List();
// The families and styles fontconfig reads in one file; empty when it reads no font,
// and for anything but a regular file of at most 256 MB (read without blocking).
FontFile Describe(const QString& path);
// Moves a file into the desktop trash (freedesktop.org trash of the user's data folder);
// true when it went, and then *where holds its place in the trash.
bool MoveToTrash(const QString& path, QString* where = nullptr);
// Makes fontconfig read its configuration and font folders again, so that removed fonts
// leave the family list.
void Refresh();

} // namespace UserFonts
