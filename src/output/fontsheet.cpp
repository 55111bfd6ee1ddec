// RTF and HTML font sheets, assembled by plain concatenation of their pieces.
#include "output/fontsheet.h"

#include "components/ansi.h"
#include "components/conversions.h"

#include <charconv>
#include <cmath>

namespace FontSheet {

namespace {

// The sheets are assembled as bytes: every name and the sample are encoded once, and
// the pieces appended to one growing buffer.
void tick(const std::function<void()>& beforeEachFont)
{
    if (beforeEachFont)
        beforeEachFont();
}

void appendNumber(QByteArray& out, qsizetype n)
{
    char digits[24];
    const auto end = std::to_chars(digits, digits + sizeof digits, n).ptr;
    out.append(digits, end - digits);
}

qsizetype totalSize(const QStringList& texts)
{
    qsizetype size = 0;
    for (const QString& text : texts)
        size += text.size();
    return size;
}

} // namespace

int halfPoints(const QString& sizeText)
{
    return static_cast<int>(std::floor(Conversions::leadingNumber(sizeText))) * 2;
}

QByteArray rtf(const QStringList& fonts, const QString& nameFont, const QString& sample,
               const QString& sampleSize, const QString& nameSize,
               const std::function<void()>& beforeEachFont)
{
    const QByteArray sampleFs = QByteArray::number(halfPoints(sampleSize));
    const QByteArray nameFs = QByteArray::number(halfPoints(nameSize));
    const QByteArray text = Ansi::encode(sample);

    QByteArray out;
    out.reserve(128 + 2 * totalSize(fonts) + fonts.size() * (text.size() + 80));

    // Header: the font table, and the number of the font that writes the names (the
    // last match wins; with none, the names get a bare "\f").
    out += "{\\rtf1\\ansi\\ansicpg1252\\deff0\\deflang1033{\\fonttbl\r\n";
    const QString nameFontTrimmed = nameFont.trimmed();
    QByteArray nameFontNumber;
    for (qsizetype k = 0; k < fonts.size(); ++k) {
        tick(beforeEachFont);
        out += "{\\f";
        appendNumber(out, k);
        out += "\\fnil\\fprq2\\fcharset0 ";
        Ansi::appendEncoded(out, fonts[k]);
        out += ";}\r\n";
        if (fonts[k].trimmed() == nameFontTrimmed)
            nameFontNumber = QByteArray::number(k);
    }
    out += "}\r\n";

    // First paragraph: the first font, its sample deliberately at the name size.
    out += "\\viewkind4\\uc1\\pard\\fs";
    out += sampleFs;
    out += "\\cf1\\fs";
    out += nameFs;
    out += "\\f";
    out += nameFontNumber;
    out += ' ';
    if (!fonts.isEmpty())
        Ansi::appendEncoded(out, fonts.first());
    out += "\\par\\fs";
    out += nameFs;
    out += "\\f0 ";
    out += text;
    out += "\\par\\par\r\n\r\n";

    // Body: every font but the first gets its name and sample paragraphs.
    for (qsizetype k = 0; k < fonts.size(); ++k) {
        tick(beforeEachFont);
        if (k > 0) {
            out += "\\fs";
            out += nameFs;
            out += "\\f";
            out += nameFontNumber;
            out += ' ';
            Ansi::appendEncoded(out, fonts[k]);
            out += "\\par\\fs";
            out += sampleFs;
            out += "\\f";
            appendNumber(out, k);
            out += ' ';
            out += text;
            out += "\\par";
        }
        out += "\\par\r\n";
    }
    out += "}\r\n";
    return out;
}

QByteArray html(const QStringList& fonts, const QString& nameFont, const QString& sample)
{
    const QByteArray text = Ansi::encode(sample);
    const QByteArray nameFace = Ansi::encode(nameFont);

    QByteArray out;
    out.reserve(128 + 2 * totalSize(fonts) + fonts.size() * (text.size() + nameFace.size() + 64));
    out += "<HTML>\r\n<HEAD>\r\n<TITLE>Liste des polices</TITLE>\r\n</HEAD>\r\n<BODY>\r\n";
    for (const QString& name : fonts) {
        out += "<FONT FACE=\"";
        out += nameFace;
        out += "\">";
        Ansi::appendEncoded(out, name);
        out += "</FONT><BR><FONT FACE=\"";
        Ansi::appendEncoded(out, name);
        out += "\">";
        out += text;
        out += "</FONT>\r\n<P>\r\n";
    }
    out += "</BODY>\r\n</HTML>\r\n";
    return out;
}

} // namespace FontSheet
