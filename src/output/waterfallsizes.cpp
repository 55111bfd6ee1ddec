// Waterfall sizes: parsing, formatting and the settings.
#include "output/waterfallsizes.h"

#include "components/settings.h"

#include <QRegularExpression>
#include <QStringList>

namespace WaterfallSizes {

namespace {

const QString section = QStringLiteral("Cascade");
const QString key = QStringLiteral("Tailles");

bool allDigits(const QString& word)
{
    return !word.isEmpty() && std::all_of(word.begin(), word.end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
}

QString boundsText()
{
    return QStringLiteral("de %1 à %2 points").arg(Smallest).arg(Largest);
}

} // namespace

QList<int> defaults()
{
    return {8, 9, 10, 11, 12, 14, 18, 24, 36, 48, 72};
}

QString format(const QList<int>& sizes)
{
    QStringList words;
    for (int size : sizes)
        words.append(QString::number(size));
    return words.join(QLatin1Char(' '));
}

Parsed parse(const QString& text)
{
    static const QRegularExpression separators(QStringLiteral("[\\s,;]+"));
    Parsed result;
    QList<int> sizes;
    for (const QString& word : text.split(separators, Qt::SkipEmptyParts)) {
        if (!allDigits(word)) {
            result.error = QStringLiteral("« %1 » n'est pas une taille. Entrez des nombres entiers de points "
                                          "(%2), séparés par des blancs ou des virgules.")
                               .arg(word.left(40), boundsText());
            return result;
        }
        bool ok = false;
        const int size = word.toInt(&ok);
        if (!ok || size < Smallest || size > Largest) {
            result.error = QStringLiteral("La taille %1 n'est pas possible : les tailles vont %2.")
                               .arg(word.left(40), boundsText());
            return result;
        }
        if (!sizes.contains(size))
            sizes.append(size);
    }
    if (sizes.isEmpty())
        result.error = QStringLiteral("Entrez au moins une taille (%1).").arg(boundsText());
    else if (sizes.size() > MaxCount)
        result.error = QStringLiteral("Une cascade compte au plus %1 tailles.").arg(MaxCount);
    else
        result.sizes = sizes;
    return result;
}

QList<int> load()
{
    const QString stored = Settings::GetSetting(QString::fromLatin1(Settings::AppName), section, key, QString());
    const Parsed parsed = parse(stored);
    return parsed.ok() ? parsed.sizes : defaults();
}

void save(const QList<int>& sizes)
{
    Settings::SaveSetting(QString::fromLatin1(Settings::AppName), section, key, format(sizes));
}

} // namespace WaterfallSizes
