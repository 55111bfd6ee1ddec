// RTF and HTML font sheets, assembled by plain concatenation and encoded once.
#include "output/fontsheet.h"

#include "components/ansi.h"
#include "components/conversions.h"

#include <cmath>

namespace FontSheet {

namespace {

const QString crlf = QStringLiteral("\r\n");

QString halfPointText(const QString& sizeText)
{
    return QString::number(halfPoints(sizeText));
}

void tick(const std::function<void()>& beforeEachFont)
{
    if (beforeEachFont)
        beforeEachFont();
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
    const QString sampleFs = halfPointText(sampleSize);
    const QString nameFs = halfPointText(nameSize);

    // Header: the font table, and the number of the font that writes the names.
    QString header = QStringLiteral("{\\rtf1\\ansi\\ansicpg1252\\deff0\\deflang1033{\\fonttbl") + crlf;
    QString nameFontNumber;
    for (qsizetype k = 0; k < fonts.size(); ++k) {
        tick(beforeEachFont);
        header += QStringLiteral("{\\f") + QString::number(k) + QStringLiteral("\\fnil\\fprq2\\fcharset0 ")
                  + fonts[k] + QStringLiteral(";}") + crlf;
        if (fonts[k].trimmed() == nameFont.trimmed())
            nameFontNumber = QString::number(k);
    }

    // Body: every font but the first gets its name and sample paragraphs.
    QString body;
    for (qsizetype k = 0; k < fonts.size(); ++k) {
        tick(beforeEachFont);
        if (k > 0)
            body += QStringLiteral("\\fs") + nameFs + QStringLiteral("\\f") + nameFontNumber + QLatin1Char(' ')
                    + fonts[k] + QStringLiteral("\\par") + QStringLiteral("\\fs") + sampleFs + QStringLiteral("\\f")
                    + QString::number(k) + QLatin1Char(' ') + sample + QStringLiteral("\\par");
        body += QStringLiteral("\\par") + crlf;
    }

    // First paragraph: the first font, its sample at the name size.
    const QString first = QStringLiteral("\\viewkind4\\uc1\\pard") + QStringLiteral("\\fs") + sampleFs
                          + QStringLiteral("\\cf1\\fs") + nameFs + QStringLiteral("\\f") + nameFontNumber
                          + QLatin1Char(' ') + fonts.value(0) + QStringLiteral("\\par\\fs") + nameFs
                          + QStringLiteral("\\f0 ") + sample + QStringLiteral("\\par") + QStringLiteral("\\par")
                          + crlf;

    header += QLatin1Char('}');
    body += QLatin1Char('}');
    return Ansi::encode(header + crlf + first + crlf + body + crlf);
}

QByteArray html(const QStringList& fonts, const QString& nameFont, const QString& sample)
{
    QString text;
    auto line = [&text](const QString& content) { text += content + crlf; };
    line(QStringLiteral("<HTML>"));
    line(QStringLiteral("<HEAD>"));
    line(QStringLiteral("<TITLE>Liste des polices</TITLE>"));
    line(QStringLiteral("</HEAD>"));
    line(QStringLiteral("<BODY>"));
    const QChar quote = QLatin1Char('"');
    for (const QString& font : fonts) {
        line(QStringLiteral("<FONT FACE=") + quote + nameFont + quote + QLatin1Char('>') + font
             + QStringLiteral("</FONT><BR><FONT FACE=") + quote + font + quote + QLatin1Char('>') + sample
             + QStringLiteral("</FONT>"));
        line(QStringLiteral("<P>"));
    }
    line(QStringLiteral("</BODY>"));
    line(QStringLiteral("</HTML>"));
    return Ansi::encode(text);
}

} // namespace FontSheet
