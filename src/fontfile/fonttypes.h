// The kinds of font files the browsing windows offer in their type box, each a caption
// that names its patterns between parentheses. The first, TrueType alone, is chosen when
// a window opens.
#pragma once

#include <QString>
#include <QStringList>

namespace FontTypes {

enum Index { TrueTypeOnly = 0, AllFonts = 1, OpenTypeOnly = 2, Collections = 3, WebFonts = 4 };

// The captions, in the order of Index.
QStringList captions();
// The patterns of one caption, as a file list takes them: "*.ttc;*.otc".
QString pattern(int index);
// True when a file name matches one of the patterns, without regard to case.
bool matches(int index, const QString& fileName);

} // namespace FontTypes
