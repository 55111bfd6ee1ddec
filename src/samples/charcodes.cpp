// Codes and texts of the character table.
#include "samples/charcodes.h"

#include "components/ansi.h"

namespace CharCodes {

GridPlace CellPlace(int index)
{
    return {index / CellsPerRow, index % CellsPerRow};
}

QString DecimalText(int code)
{
    return QString::number(code);
}

QString HexText(int code)
{
    return QString::number(code, 16).toUpper();
}

QString OctalText(int code)
{
    return QString::number(code, 8);
}

QString BinaryText(int code)
{
    QString text;
    int remaining = code;
    int divisor = 256;
    for (int step = 0; step < 8; ++step) {
        divisor /= 2;
        if (divisor <= remaining) {
            remaining -= divisor;
            text += QLatin1Char('1');
        } else {
            text += QLatin1Char('0');
        }
    }
    if (remaining == 1)
        text += QLatin1Char('1');
    return text;
}

QString ListEntry(int code)
{
    return QStringLiteral("   ") + Ansi::charOf(static_cast<unsigned char>(code));
}

QString EntryCharacter(const QString& entry)
{
    return entry.mid(3, 1);
}

QString TrimBlanks(const QString& text)
{
    qsizetype start = 0;
    qsizetype end = text.size();
    while (start < end && text[start] == QLatin1Char(' '))
        ++start;
    while (end > start && text[end - 1] == QLatin1Char(' '))
        --end;
    return text.mid(start, end - start);
}

int CodeOfText(const QString& text)
{
    return text.isEmpty() ? -1 : Ansi::codeOf(text[0]);
}

} // namespace CharCodes
