// Texts the font-list commands hand out: the list file's bytes and the HTML font tag
// with its optional colour attribute.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace FontListText {

// Every name followed by CR LF, in Windows-1252; nothing else (an empty list is empty).
QByteArray listFile(const QStringList& names);

// The six colour digits of the tag from a 32-bit colour value (red in the low byte):
// upper-case hexadecimal padded to six digits, then its last two digits, the two from
// the third position and the first two. A value with its high byte set keeps its eight
// digits and is cut where the pieces fall (0x80000008 gives "080080").
QString colourDigits(quint32 colour);
// ` COLOR="#RRGGBB"`.
QString colourAttribute(quint32 colour);
// `<FONT FACE="face"` + attribute + `></FONT>`; the face is trimmed of blanks.
QString fontTag(const QString& face, const QString& attribute);

} // namespace FontListText
