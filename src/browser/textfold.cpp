// Folding of names and queries for the font filter.
#include "browser/textfold.h"

#include <QRegularExpression>

namespace TextFold {

QString fold(QStringView text)
{
    // ASCII names, the great majority, need only their case folded.
    bool ascii = true;
    for (QChar c : text) {
        if (c.unicode() >= 0x80) {
            ascii = false;
            break;
        }
    }
    if (ascii)
        return text.toString().toCaseFolded();
    const QString decomposed = text.toString().normalized(QString::NormalizationForm_KD);
    QString out;
    out.reserve(decomposed.size());
    for (QChar c : decomposed) {
        // Accents of the Latin, Greek and Cyrillic letters go; marks that make another
        // letter in other scripts (Japanese voicing marks, ...) stay.
        if (c.unicode() < 0x0300 || c.unicode() > 0x036F)
            out.append(c);
    }
    return out.toCaseFolded();
}

QStringList words(QStringView query)
{
    return fold(query).split(QRegularExpression(QStringLiteral("\\s+")), Qt::SkipEmptyParts);
}

bool containsAll(QStringView folded, const QStringList& words)
{
    for (const QString& word : words) {
        if (!folded.contains(word))
            return false;
    }
    return true;
}

} // namespace TextFold
