// Reading a PDF back with poppler's tools: its lines of text with the font of each,
// its fonts as pdffonts lists them, its page count; and a family's PostScript name.
#pragma once

#include <QDateTime>
#include <QList>
#include <QString>
#include <QStringList>

namespace PdfCheck {

struct Line {
    QString text;
    QString font; // PostScript name, subset prefix removed
    int page = 0;
};
// The text lines top to bottom, page after page (pdftohtml -xml).
QList<Line> lines(const QString& pdf);
QStringList texts(const QList<Line>& lines);

struct Font {
    QString name; // subset prefix removed
    QString type;
    bool embedded = false;
};
QList<Font> fonts(const QString& pdf);
int pageCount(const QString& pdf);

// fontconfig's PostScript name of the face a family selects.
QString postScriptName(const QString& family);
// Whether a font name found in a PDF is that PostScript name (a regular face may be
// named by its family alone).
bool sameFont(const QString& inPdf, const QString& postScript);

// The PDF printer queue: the PDFs it wrote after `since` whose text holds `marker`,
// waiting (up to timeoutMs) until the queue is empty and at least `expected` are there.
// When the program's printer carries a document name of the test's own, only the files
// named after it are read.
QStringList queuedPdfs(const QDateTime& since, const QString& marker, int expected = 1, int timeoutMs = 60000);
// A marker no other print job carries.
QString uniqueMarker();

} // namespace PdfCheck
