// The per-user settings store: (application, section, key) addresses a text value.
#pragma once

#include <QString>

namespace Settings {

// The store's application name; every section of the program lives under it.
inline constexpr const char* AppName = "Glyphora";

// The text stored at section/key, or def when the key is missing.
QString GetSetting(const QString& appName, const QString& section, const QString& key,
                   const QString& def = QString());
void SaveSetting(const QString& appName, const QString& section, const QString& key, const QString& value);
bool HasSetting(const QString& appName, const QString& section, const QString& key);

} // namespace Settings
