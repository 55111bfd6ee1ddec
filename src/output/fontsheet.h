// Font sheets as files: the RTF and HTML texts of a test page, built from the chosen
// fonts, name font, sample text and sizes, as Windows-1252 bytes with CR LF line ends.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <functional>

namespace FontSheet {

// The sizes the dialog offers; any other size text is brought into this range.
inline constexpr double MinimumSize = 6;
inline constexpr double MaximumSize = 120;

// The size text's leading number, clamped to MinimumSize..MaximumSize (text with no
// number gives the minimum), before anything converts it.
double pointSize(const QString& sizeText);
// An RTF size in half-points: the whole part of pointSize, doubled (" 10" gives 20).
int halfPoints(const QString& sizeText);

// How text goes into the sheets. Both stay Windows-1252: a character the code page
// cannot hold becomes \uN? in RTF (N the signed 16-bit UTF-16 unit, a surrogate pair
// as two escapes) and &#N; in HTML (N the code point). Font names come from font files,
// that is from anyone, so they are also escaped: in RTF "\\", "\{", "\}" and, in the
// font table where ";" ends an entry, "," for ";"; in HTML "&amp;", "&lt;", "&gt;" and
// "&quot;". The sample is the user's own text and keeps its markup as typed.
QByteArray rtfName(const QString& name, bool inFontTable);
QByteArray rtfSample(const QString& sample);
QByteArray htmlName(const QString& name);
QByteArray htmlSample(const QString& sample);

// The RTF sheet. Font number k is fonts[k]; nameFont (compared trimmed) picks the font
// number that writes the names, and when it is not among the fonts the names get a
// bare "\f". The first font's sample is written at the name size and colour index 1
// is used without a colour table, as the sheet has always been. Names are escaped as
// rtfName says; the sample goes in as typed, its line breaks included. beforeEachFont
// runs before every font of both passes (the dialog keeps its events flowing there).
QByteArray rtf(const QStringList& fonts, const QString& nameFont, const QString& sample,
               const QString& sampleSize, const QString& nameSize,
               const std::function<void()>& beforeEachFont = {});

// The HTML sheet: for each font its name in the name font (taken as it stands, escaped
// as htmlName says), a line break, the sample text in the font itself, then a
// paragraph mark. No sizes. A sheet holding a byte above 127 says in its head that
// it is Windows-1252 text (a META line after "<HEAD>"); an ASCII sheet declares nothing.
QByteArray html(const QStringList& fonts, const QString& nameFont, const QString& sample);

} // namespace FontSheet
