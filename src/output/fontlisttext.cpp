// Font list file and HTML font tag.
#include "output/fontlisttext.h"

#include "components/ansi.h"

namespace FontListText {

QByteArray listFile(const QStringList& names)
{
    QByteArray bytes;
    for (const QString& name : names)
        bytes += Ansi::encode(name) + QByteArrayLiteral("\r\n");
    return bytes;
}

QString colourDigits(quint32 colour)
{
    QString hex = QString::number(colour, 16).toUpper();
    if (hex.size() < 6)
        hex = hex.rightJustified(6, QLatin1Char('0'));
    return hex.right(2) + hex.mid(2, 2) + hex.left(2);
}

QString colourAttribute(quint32 colour)
{
    return QStringLiteral(" COLOR=\"#") + colourDigits(colour) + QLatin1Char('"');
}

QString fontTag(const QString& face, const QString& attribute)
{
    return QStringLiteral("<FONT FACE=\"") + face.trimmed() + QLatin1Char('"') + attribute + QStringLiteral("></FONT>");
}

} // namespace FontListText
