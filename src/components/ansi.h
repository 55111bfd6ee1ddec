// The system's ANSI code page, Windows-1252 on every platform: 8-bit text in files,
// font name strings and the character table.
#pragma once

#include <QByteArray>
#include <QChar>
#include <QString>
#include <QStringView>

namespace Ansi {

// The character of an 8-bit code (0..255). The five codes Windows-1252 leaves
// undefined (0x81, 0x8D, 0x8F, 0x90, 0x9D) map to the control characters of the same
// value, as the system's conversion does.
QChar charOf(unsigned char code);
// One character per byte.
QString decode(const QByteArray& bytes);
QString decode(const char* data, qsizetype size);
// One byte per character; a character outside the code page becomes "?".
QByteArray encode(const QString& text);
// The same, appended to `out`.
void appendEncoded(QByteArray& out, QStringView text);
// The code of a character in the code page, or -1 when it has none.
int codeOf(QChar c);

} // namespace Ansi
