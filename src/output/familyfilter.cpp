// Family filter: case and accent folding, substring match.
#include "output/familyfilter.h"

namespace FamilyFilter {

QString fold(const QString& text)
{
    const QString decomposed = text.trimmed().normalized(QString::NormalizationForm_KD);
    QString folded;
    folded.reserve(decomposed.size());
    for (const QChar c : decomposed) {
        const QChar::Category category = c.category();
        if (category == QChar::Mark_NonSpacing || category == QChar::Mark_SpacingCombining || category == QChar::Mark_Enclosing)
            continue;
        folded.append(c);
    }
    return folded.toCaseFolded();
}

bool matches(const QString& foldedName, const QString& foldedQuery)
{
    return foldedQuery.isEmpty() || foldedName.contains(foldedQuery);
}

} // namespace FamilyFilter
