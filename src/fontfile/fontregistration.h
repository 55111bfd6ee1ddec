// Temporary font registration: a font file made known to the program for a while
// (Qt's application fonts), the announcement that the fonts changed, whether the
// system knows a face by an exact name, and a file's face name read without
// registering anything.
#pragma once

#include <QByteArray>
#include <QEvent>
#include <QString>
#include <QStringList>

namespace FontRegistration {

// Registers the file (a regular file of at most 256 MB, read once); the id to remove
// it with, or -1 when nothing was registered.
int add(const QString& path);
// Registers a font held in memory (an unpacked web font), the same way.
int addData(const QByteArray& sfnt);
// Removes a registration made by add or addData; false when there was none with that id.
bool remove(int id);
// Every family of the files the program registered and has not removed.
QStringList registeredFamilies();

// Case-sensitively, a family the system enumerates (cached, refreshed whenever the
// font database changes) or one the program registered. Never asks for a font.
bool isKnownFace(const QString& name);

// The event every top-level window receives when the fonts changed, sent synchronously.
QEvent::Type fontChangeEventType();
void announceFontChange();

// The face name under which the system would list a TrueType file, or empty text when
// it is no font; nothing is registered and no file is written.
QString faceNameOfFile(const QString& path);
// The same for every face of a file of any format (one name per face of a collection,
// a web font read from the bytes it unpacks to). When a web font is refused, no name
// and, in `refusal`, the French reason.
QStringList faceNamesOfFile(const QString& path, QString* refusal = nullptr);
// The most faces of one file that are named or shown.
constexpr int maxFaces = 64;

} // namespace FontRegistration
