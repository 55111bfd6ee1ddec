// Font sheets as files: the RTF and HTML texts of a test page, built from the chosen
// fonts, name font, sample text and sizes, as Windows-1252 bytes with CR LF line ends.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <functional>

namespace FontSheet {

// An RTF size in half-points: the whole part of the size text's leading number,
// doubled (" 10" gives 20).
int halfPoints(const QString& sizeText);

// The RTF sheet. Font number k is fonts[k]; nameFont (compared trimmed) picks the font
// number that writes the names, and when it is not among the fonts the names get a
// bare "\f". The first font's sample is written at the name size and colour index 1
// is used without a colour table, as the sheet has always been. Nothing is escaped:
// names and sample text go in as typed, their line breaks included. beforeEachFont
// runs before every font of both passes (the dialog keeps its events flowing there).
QByteArray rtf(const QStringList& fonts, const QString& nameFont, const QString& sample,
               const QString& sampleSize, const QString& nameSize,
               const std::function<void()>& beforeEachFont = {});

// The HTML sheet: for each font its name in the name font (taken as it stands), a line
// break, the sample text in the font itself, then a paragraph mark. No sizes.
QByteArray html(const QStringList& fonts, const QString& nameFont, const QString& sample);

} // namespace FontSheet
