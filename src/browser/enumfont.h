// EnumFont: the system's font families, reported one by one to a callback, as the
// font list is filled. On this platform the families come from fontconfig.
#pragma once

#include <QString>
#include <QStringList>

namespace EnumFont {

// What the system tells about one family; the list reads only the face name.
struct LogFont {
    QString lfFaceName;
};

// Called once per family; returns 1 to go on, 0 to stop the enumeration.
using FontFamProc = int (*)(const LogFont& logFont, void* lParam);

// Enumerates every family name that selects an installed font, each once, in the
// system's order. Returns the last value the callback returned (1 when none ran).
int EnumFontFamilies(FontFamProc callback, void* lParam);

// The list's callback: appends the face name to the QStringList that lParam points
// to and always returns 1.
int EnumFontFamProc(const LogFont& logFont, void* lParam);

// Every family, in enumeration order.
QStringList families();

} // namespace EnumFont
