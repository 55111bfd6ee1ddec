// RTF and HTML font sheets, assembled by plain concatenation of their pieces.
#include "output/fontsheet.h"

#include "components/ansi.h"
#include "components/conversions.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>

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

// A character Windows-1252 cannot hold, as RTF: one \uN? per UTF-16 unit, N signed
// 16-bit, "?" the fallback that readers without Unicode show (and \uc1 skips).
void appendRtfUnicode(QByteArray& out, char16_t unit)
{
    out += "\\u";
    appendNumber(out, std::int16_t(unit));
    out += '?';
}

// Text in an RTF sheet: Windows-1252 bytes, other characters escaped. Names (and only
// names) also get "\\", "\{" and "\}" for the characters that structure RTF, and in
// the font table, where ";" ends an entry, "," for ";".
enum class RtfText { Sample, Name, FontTableName };

void appendRtf(QByteArray& out, QStringView text, RtfText kind)
{
    for (const QChar c : text) {
        const char16_t u = c.unicode();
        if (kind != RtfText::Sample && (u == u'\\' || u == u'{' || u == u'}')) {
            out += '\\';
            out += char(u);
        } else if (kind == RtfText::FontTableName && u == u';') {
            out += ',';
        } else if (const int code = u < 0x80 ? int(u) : Ansi::codeOf(c); code >= 0) {
            out += char(code);
        } else {
            appendRtfUnicode(out, u); // both halves of a surrogate pair, one escape each
        }
    }
}

// Text in the HTML sheet: Windows-1252 bytes, other characters as numeric references
// (&#N; with the code point). Names also get "&amp;", "&lt;", "&gt;" and "&quot;";
// the sample's markup is kept as typed.
void appendHtml(QByteArray& out, QStringView text, bool name)
{
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text[i];
        const char16_t u = c.unicode();
        if (name && (u == u'&' || u == u'<' || u == u'>' || u == u'"')) {
            out += u == u'&' ? "&amp;" : u == u'<' ? "&lt;" : u == u'>' ? "&gt;" : "&quot;";
            continue;
        }
        if (const int code = u < 0x80 ? int(u) : Ansi::codeOf(c); code >= 0) {
            out += char(code);
            continue;
        }
        char32_t point = u;
        if (c.isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate())
            point = QChar::surrogateToUcs4(c, text[++i]);
        else if (c.isSurrogate())
            point = 0xFFFD; // half a pair stands for no character
        out += "&#";
        appendNumber(out, qsizetype(point));
        out += ';';
    }
}

QByteArray rtfText(QStringView text, RtfText kind)
{
    QByteArray out;
    out.reserve(text.size());
    appendRtf(out, text, kind);
    return out;
}

} // namespace

double pointSize(const QString& sizeText)
{
    // Clamped while still a double: no size text can make a conversion overflow.
    const double size = Conversions::leadingNumber(sizeText);
    if (!(size >= MinimumSize))
        return MinimumSize;
    return size > MaximumSize ? MaximumSize : size;
}

int halfPoints(const QString& sizeText)
{
    return static_cast<int>(std::floor(pointSize(sizeText))) * 2;
}

QByteArray rtfName(const QString& name, bool inFontTable)
{
    return rtfText(name, inFontTable ? RtfText::FontTableName : RtfText::Name);
}

QByteArray rtfSample(const QString& sample)
{
    return rtfText(sample, RtfText::Sample);
}

QByteArray htmlName(const QString& name)
{
    QByteArray out;
    appendHtml(out, name, true);
    return out;
}

QByteArray htmlSample(const QString& sample)
{
    QByteArray out;
    appendHtml(out, sample, false);
    return out;
}

QByteArray rtf(const QStringList& fonts, const QString& nameFont, const QString& sample,
               const QString& sampleSize, const QString& nameSize,
               const std::function<void()>& beforeEachFont)
{
    const QByteArray sampleFs = QByteArray::number(halfPoints(sampleSize));
    const QByteArray nameFs = QByteArray::number(halfPoints(nameSize));
    const QByteArray text = rtfText(sample, RtfText::Sample);

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
        appendRtf(out, fonts[k], RtfText::FontTableName);
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
        appendRtf(out, fonts.first(), RtfText::Name);
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
            appendRtf(out, fonts[k], RtfText::Name);
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
    const QByteArray text = htmlSample(sample);
    const QByteArray nameFace = htmlName(nameFont);

    QByteArray out;
    out.reserve(128 + 2 * totalSize(fonts) + fonts.size() * (text.size() + nameFace.size() + 64));
    out += "<HTML>\r\n<HEAD>\r\n<TITLE>Liste des polices</TITLE>\r\n</HEAD>\r\n<BODY>\r\n";
    for (const QString& name : fonts) {
        const QByteArray escaped = htmlName(name);
        out += "<FONT FACE=\"";
        out += nameFace;
        out += "\">";
        out += escaped;
        out += "</FONT><BR><FONT FACE=\"";
        out += escaped;
        out += "\">";
        out += text;
        out += "</FONT>\r\n<P>\r\n";
    }
    out += "</BODY>\r\n</HTML>\r\n";
    return out;
}

} // namespace FontSheet
