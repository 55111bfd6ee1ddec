// Colours as the platform stores them: a 24-bit value with red in the low byte, then
// green, then blue (settings and HTML tags carry colours in this form).
#pragma once

#include <QColor>
#include <QtGlobal>

namespace ColorValue {

inline quint32 fromColor(const QColor& colour)
{
    return quint32(colour.red()) | (quint32(colour.green()) << 8) | (quint32(colour.blue()) << 16);
}

// Only the low three bytes count.
inline QColor toColor(quint32 value)
{
    return QColor(int(value & 0xFF), int((value >> 8) & 0xFF), int((value >> 16) & 0xFF));
}

} // namespace ColorValue
