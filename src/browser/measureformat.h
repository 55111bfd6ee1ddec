// Formatting of a measured length as "###0.0#": at least one digit before the
// decimal separator, one or two decimals, no grouping.
#pragma once

#include <QChar>
#include <QString>

namespace MeasureFormat {

QString format(double value, QChar decimalPoint);
// With the decimal separator of the user's locale.
QString format(double value);

} // namespace MeasureFormat
