// Fuzz target for the RTF and HTML sheet writers with hostile font names. The input is
// UTF-8 text cut into lines: the name font, the sample, the two sizes, then the fonts.
// Beyond not crashing, the sheets must keep their promises: in RTF every font's name
// reads back from the sheet exactly (unescaping \\ \{ \} and \uN?), the braces balance
// when the sample has none of its own, and each font-table entry has one ";"; in HTML
// every name reads back exactly (unescaping &amp; &lt; &gt; &quot; &#N;) and carries no
// markup of its own.
#include "components/ansi.h"
#include "fuzzsupport.h"
#include "output/fontsheet.h"

#include <QStringList>
#include <algorithm>
#include <cstdint>

namespace {

using FuzzSupport::check;

// RTF text back to characters: escapes and Windows-1252 bytes; stops at the first byte
// that is not part of a name (a lone "\" before anything else, or an unescaped brace).
QString rtfDecoded(const QByteArray& bytes)
{
    QString text;
    for (qsizetype i = 0; i < bytes.size(); ++i) {
        const char c = bytes[i];
        if (c == '{' || c == '}')
            return QStringLiteral("<brace>");
        if (c != '\\') {
            text += Ansi::charOf(static_cast<unsigned char>(c));
            continue;
        }
        if (++i == bytes.size())
            return QStringLiteral("<cut>");
        if (bytes[i] == '\\' || bytes[i] == '{' || bytes[i] == '}') {
            text += QLatin1Char(bytes[i]);
        } else if (bytes[i] == 'u') {
            const qsizetype end = bytes.indexOf('?', i);
            bool ok = false;
            const int unit = bytes.mid(i + 1, end - i - 1).toInt(&ok);
            check(ok && end > i && unit >= -32768 && unit <= 32767, "a well-formed \\uN? escape");
            text += QChar(char16_t(std::uint16_t(std::int16_t(unit))));
            i = end;
        } else {
            return QStringLiteral("<control>");
        }
    }
    return text;
}

QString htmlDecoded(const QByteArray& bytes)
{
    QString text;
    for (qsizetype i = 0; i < bytes.size(); ++i) {
        const char c = bytes[i];
        check(c != '<' && c != '>' && c != '"', "no markup in a name");
        if (c != '&') {
            text += Ansi::charOf(static_cast<unsigned char>(c));
            continue;
        }
        const qsizetype end = bytes.indexOf(';', i);
        check(end > i, "an entity is closed");
        const QByteArray entity = bytes.mid(i + 1, end - i - 1);
        i = end;
        if (entity == "amp") text += QLatin1Char('&');
        else if (entity == "lt") text += QLatin1Char('<');
        else if (entity == "gt") text += QLatin1Char('>');
        else if (entity == "quot") text += QLatin1Char('"');
        else {
            check(entity.startsWith('#'), "a known entity");
            const char32_t point = char32_t(entity.mid(1).toUInt());
            text += QString::fromUcs4(&point, 1);
        }
    }
    return text;
}

// What a name must read back as: a lone surrogate half has no code point in HTML.
QString htmlExpected(const QString& name)
{
    QString text;
    for (qsizetype i = 0; i < name.size(); ++i) {
        if (name[i].isHighSurrogate() && i + 1 < name.size() && name[i + 1].isLowSurrogate()) {
            text += name[i];
            text += name[++i];
        } else {
            text += name[i].isSurrogate() ? QChar(0xFFFD) : name[i];
        }
    }
    return text;
}

void checkRtf(const QStringList& fonts, const QString& nameFont, const QString& sample, const QString& sizeA,
              const QString& sizeB)
{
    const QByteArray sheet = FontSheet::rtf(fonts, nameFont, sample, sizeA, sizeB);
    for (const QString& font : fonts) {
        check(rtfDecoded(FontSheet::rtfName(font, false)) == font, "an RTF name reads back");
        QString inTable = font;
        inTable.replace(QLatin1Char(';'), QLatin1Char(','));
        check(rtfDecoded(FontSheet::rtfName(font, true)) == inTable, "an RTF font-table name reads back");
        check(sheet.contains(FontSheet::rtfName(font, true) + ";}\r\n"), "the font table holds the name");
    }
    if (sample.contains(QLatin1Char('{')) || sample.contains(QLatin1Char('}')) || sample.contains(QLatin1Char('\\')))
        return; // the sample is the user's own RTF
    int depth = 0;
    for (qsizetype i = 0; i < sheet.size(); ++i) {
        if (sheet[i] == '\\') {
            ++i;
            continue;
        }
        if (sheet[i] == '{')
            ++depth;
        else if (sheet[i] == '}')
            check(--depth > 0 || i == sheet.size() - 3, "the document closes only at its end");
    }
    check(depth == 0, "the braces balance");
    const QByteArray table = sheet.left(sheet.indexOf("}\r\n\\viewkind4"));
    check(table.count(';') == fonts.size(), "one ';' per font-table entry");
}

void checkHtml(const QStringList& fonts, const QString& nameFont, const QString& sample)
{
    const QByteArray sheet = FontSheet::html(fonts, nameFont, sample);
    check(htmlDecoded(FontSheet::htmlName(nameFont)) == htmlExpected(nameFont), "the name font reads back");
    for (const QString& font : fonts) {
        const QByteArray name = FontSheet::htmlName(font);
        check(htmlDecoded(name) == htmlExpected(font), "an HTML name reads back");
        check(sheet.contains("\">" + name + "</FONT><BR><FONT FACE=\"" + name + "\">"), "the sheet holds the name");
    }
    // The head is always the same, whatever the names and the sample hold.
    check(sheet.startsWith("<HTML>\r\n<HEAD>\r\n<TITLE>Liste des polices</TITLE>\r\n</HEAD>\r\n<BODY>\r\n"),
          "the head is the sheet's own");
    check(sheet.endsWith("</BODY>\r\n</HTML>\r\n"), "the end is unchanged");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QStringList lines = QString::fromUtf8(reinterpret_cast<const char*>(data), qsizetype(size)).split(QLatin1Char('\n'));
    const QString nameFont = lines.value(0);
    const QString sample = lines.value(1);
    const QStringList fonts = lines.mid(4);
    FuzzSupport::runTimed(FuzzSupport::inputLimitMs(100), [&] {
        checkRtf(fonts, nameFont, sample, lines.value(2), lines.value(3));
        checkHtml(fonts, nameFont, sample);
    });
    const int half = FontSheet::halfPoints(lines.value(2));
    check(half >= 12 && half <= 240, "a size within the dialog's range");
    return 0;
}
