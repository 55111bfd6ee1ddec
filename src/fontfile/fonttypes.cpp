// The type captions and the patterns read out of them.
#include "fontfile/fonttypes.h"

#include <QRegularExpression>

namespace FontTypes {

QStringList captions()
{
    return {
        QStringLiteral("Polices TrueType (*.ttf)"),
        QStringLiteral("Toutes les polices (*.ttf *.otf *.ttc *.otc *.woff *.woff2)"),
        QStringLiteral("Polices OpenType (*.otf)"),
        QStringLiteral("Collections (*.ttc *.otc)"),
        QStringLiteral("Polices web (*.woff *.woff2)"),
    };
}

static QStringList patterns(int index)
{
    const QString caption = captions().value(index);
    const qsizetype open = caption.lastIndexOf(QLatin1Char('('));
    const qsizetype close = caption.lastIndexOf(QLatin1Char(')'));
    if (open < 0 || close < open)
        return {};
    return caption.mid(open + 1, close - open - 1).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

QString pattern(int index)
{
    return patterns(index).join(QLatin1Char(';'));
}

bool matches(int index, const QString& fileName)
{
    for (const QString& wildcard : patterns(index)) {
        const QRegularExpression re(QRegularExpression::wildcardToRegularExpression(wildcard),
                                    QRegularExpression::CaseInsensitiveOption);
        if (re.match(fileName).hasMatch())
            return true;
    }
    return false;
}

} // namespace FontTypes
