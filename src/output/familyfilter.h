// The filter of a list of family names: a name matches when it holds the typed text,
// whatever the case and the accents ("cafe" finds "Café Sans").
#pragma once

#include <QString>

namespace FamilyFilter {

// Lower case, accents removed, blanks at the ends trimmed.
QString fold(const QString& text);
// Whether a folded name holds a folded query; an empty query matches every name.
bool matches(const QString& foldedName, const QString& foldedQuery);

} // namespace FamilyFilter
