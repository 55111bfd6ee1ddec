// TextFold: font names and typed queries brought to one comparable form, so that the
// filter ignores case and accents ("e" finds "É", "NOTO  sans" finds "Noto Sans").
#pragma once

#include <QString>
#include <QStringList>
#include <QStringView>

namespace TextFold {

// Compatibility decomposition, combining marks dropped, case folded.
QString fold(QStringView text);
// The folded words of a query, split at any run of blanks; empty for a blank query.
QStringList words(QStringView query);
// True when every word occurs in `folded` (already folded text).
bool containsAll(QStringView folded, const QStringList& words);

} // namespace TextFold
