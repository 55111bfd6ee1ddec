// Settings live in QSettings("Glyphora", "Glyphora"), one group per section.
#include "components/settings.h"

#include <QSettings>

namespace Settings {

static QString keyPath(const QString& section, const QString& key)
{
    return section + QLatin1Char('/') + key;
}

QString GetSetting(const QString&, const QString& section, const QString& key, const QString& def)
{
    QSettings store(QStringLiteral("Glyphora"), QStringLiteral("Glyphora"));
    const QVariant value = store.value(keyPath(section, key));
    if (!value.isValid())
        return def;
    if (value.typeId() == QMetaType::QStringList) // an unquoted "a, b" reads back as a list
        return value.toStringList().join(QStringLiteral(", "));
    return value.toString();
}

void SaveSetting(const QString&, const QString& section, const QString& key, const QString& value)
{
    QSettings store(QStringLiteral("Glyphora"), QStringLiteral("Glyphora"));
    store.setValue(keyPath(section, key), value);
}

bool HasSetting(const QString&, const QString& section, const QString& key)
{
    QSettings store(QStringLiteral("Glyphora"), QStringLiteral("Glyphora"));
    return store.contains(keyPath(section, key));
}

} // namespace Settings
