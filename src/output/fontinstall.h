// FontInstall: copies font files into this user's font folder (UserFonts::Folder()),
// web fonts as the TrueType or OpenType font they unpack to, after checking that each
// is a font and asking before replacing a file of the same name; then fontconfig and
// the program's font database learn of them. No windows here: the question is asked
// through a callback.
#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <functional>

namespace FontInstall {

enum class Outcome {
    Installed,   // copied (or unpacked) into the folder
    Replaced,    // the same name was there; the user agreed to replace it
    Kept,        // the same name was there; the user declined, nothing changed
    AlreadyThere,// the file is itself in the folder
    Refused,     // not a font that can be read, or a refused web font
    Failed,      // the folder or the file could not be written
};

struct Result {
    QString source;
    QString target;  // the file in the font folder (empty when refused)
    Outcome outcome = Outcome::Refused;
    QString message; // French, for Refused and Failed
};

// Asked with the name the file would take in the folder; true means replace it.
using ReplaceQuestion = std::function<bool(const QString& fileName)>;

// Installs each file into `folder` (created when missing), in order.
QList<Result> install(const QStringList& files, const ReplaceQuestion& replace, const QString& folder);
QList<Result> install(const QStringList& files, const ReplaceQuestion& replace);

// True for Installed and Replaced.
bool changedFolder(const Result& result);

// Brings fontconfig up to date with the folder and makes the program's font database
// read the system's fonts again, so that new families can be listed and drawn; given
// one of the fonts just installed.
void publish(const QString& installedFont);

} // namespace FontInstall
