// Settings live in QSettings("Glyphora", "Glyphora"), one group per section.
#include "components/settings.h"

#include "components/conversions.h"
#include "components/errorreport.h"
#include "components/runtimeerror.h"

#include <QDir>
#include <QFile>
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

static QString intRange(long long low, long long high)
{
    return QStringLiteral("n'est pas un nombre entier de %1 à %2").arg(low).arg(high);
}

int16_t GetInt16(const QString& section, const QString& key, int16_t def)
{
    const QString text = GetSetting(QString(), section, key, QString::number(def));
    const auto scope = ErrorReport::Doing::setting(section, key, text, QStringLiteral("n'est pas un nombre"),
                                                   intRange(INT16_MIN, INT16_MAX));
    return Conversions::toInt16(text);
}

int32_t GetInt32(const QString& section, const QString& key, int32_t def)
{
    const QString text = GetSetting(QString(), section, key, QString::number(def));
    const auto scope = ErrorReport::Doing::setting(section, key, text, QStringLiteral("n'est pas un nombre"),
                                                   intRange(INT32_MIN, INT32_MAX));
    return Conversions::toInt32(text);
}

bool GetBool(const QString& section, const QString& key, bool def)
{
    const QString text = GetSetting(QString(), section, key, Conversions::boolText(def));
    const auto scope = ErrorReport::Doing::setting(section, key, text, QStringLiteral("n'est ni True ni False"),
                                                   QStringLiteral("n'est ni True ni False"));
    return Conversions::toBool(text);
}

void RemoveSetting(const QString& sectionAndKey)
{
    QSettings store(QStringLiteral("Glyphora"), QStringLiteral("Glyphora"));
    store.remove(sectionAndKey);
    store.sync();
}

QString FileName()
{
    return QSettings(QStringLiteral("Glyphora"), QStringLiteral("Glyphora")).fileName();
}

QString DisplayFileName()
{
    const QString file = FileName();
    const QString home = QDir::homePath();
    if (home.size() > 1 && file.startsWith(home + QLatin1Char('/')))
        return QLatin1Char('~') + file.mid(home.size());
    return file;
}

void CheckReadable()
{
    const QString file = FileName();
    if (!QFile::exists(file))
        return;
    const auto scope = ErrorReport::Doing::settingsFile();
    QFile raw(file);
    bool readable = raw.open(QIODevice::ReadOnly);
    // Text only: a NUL byte means the file is something else (or was damaged).
    readable = readable && !raw.readAll().contains('\0');
    if (readable) {
        const QSettings store(QStringLiteral("Glyphora"), QStringLiteral("Glyphora"));
        readable = store.status() == QSettings::NoError;
    }
    if (!readable)
        throw RuntimeError::fileError(RuntimeError::PathFileAccess, file, QStringLiteral("Settings"))
            .setReason(QStringLiteral("le fichier est illisible"));
}

void SetFileAside()
{
    const QString file = FileName();
    const QString aside = file + QStringLiteral(".illisible");
    QFile::remove(aside);
    QFile::rename(file, aside);
}

} // namespace Settings
