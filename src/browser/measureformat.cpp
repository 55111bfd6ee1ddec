// "###0.0#" formatting.
#include "browser/measureformat.h"

#include <QLocale>
#include <cmath>

namespace MeasureFormat {

QString format(double value, QChar decimalPoint)
{
    // Round half away from zero at the second decimal, as the format pattern does.
    const double hundredths = std::round(value * 100.0);
    QString text = QString::number(hundredths / 100.0, 'f', 2);
    if (text.endsWith(QLatin1Char('0')))
        text.chop(1);
    if (text == QLatin1String("-0.0"))
        text = QStringLiteral("0.0");
    text.replace(QLatin1Char('.'), decimalPoint);
    return text;
}

QString format(double value)
{
    return format(value, QLocale::system().decimalPoint().front());
}

} // namespace MeasureFormat
