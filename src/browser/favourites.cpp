// Favourites in the settings store.
#include "browser/favourites.h"

#include "components/settings.h"

#include <QSettings>
#include <algorithm>

namespace Favourites {

namespace {
const QString group = QStringLiteral("Favoris");
}

void sort(QStringList& names)
{
    std::sort(names.begin(), names.end(), [](const QString& a, const QString& b) {
        const int folded = QString::compare(a, b, Qt::CaseInsensitive);
        return folded != 0 ? folded < 0 : QString::compare(a, b, Qt::CaseSensitive) < 0;
    });
}

QStringList load()
{
    QSettings store(QString::fromLatin1(Settings::AppName), QString::fromLatin1(Settings::AppName));
    store.beginGroup(group);
    bool ok = false;
    const int count = store.value(QStringLiteral("Nombre")).toString().toInt(&ok);
    QStringList names;
    // A garbled count reads as no favourite; a count far beyond the keys stops at the
    // first missing one.
    for (int i = 1; ok && i <= count; ++i) {
        const QVariant value = store.value(QStringLiteral("Police%1").arg(i));
        if (!value.isValid())
            break;
        const QString name = value.toString();
        if (!name.isEmpty() && !names.contains(name))
            names.append(name);
    }
    sort(names);
    return names;
}

void save(const QStringList& unsorted)
{
    QStringList names = unsorted;
    names.removeDuplicates();
    sort(names);
    QSettings store(QString::fromLatin1(Settings::AppName), QString::fromLatin1(Settings::AppName));
    store.remove(group);
    store.beginGroup(group);
    store.setValue(QStringLiteral("Nombre"), QString::number(names.size()));
    for (int i = 0; i < names.size(); ++i)
        store.setValue(QStringLiteral("Police%1").arg(i + 1), names[i]);
    store.endGroup();
    store.sync();
}

bool toggle(const QString& name)
{
    QStringList names = load();
    const bool adding = !names.contains(name);
    if (adding)
        names.append(name);
    else
        names.removeAll(name);
    save(names);
    return adding;
}

} // namespace Favourites
