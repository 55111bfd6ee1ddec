// The per-user settings store: (application, section, key) addresses a text value.
#pragma once

#include <QString>
#include <cstdint>

namespace Settings {

// The store's application name; every section of the program lives under it.
inline constexpr const char* AppName = "Glyphora";

// The text stored at section/key, or def when the key is missing.
QString GetSetting(const QString& appName, const QString& section, const QString& key,
                   const QString& def = QString());
void SaveSetting(const QString& appName, const QString& section, const QString& key, const QString& value);
bool HasSetting(const QString& appName, const QString& section, const QString& key);

// Reads converted with the program's rules (components/conversions.h). A stored text
// that does not convert is a run-time error that names the setting, so that the
// report can offer to reset it.
int16_t GetInt16(const QString& section, const QString& key, int16_t def);
int32_t GetInt32(const QString& section, const QString& key, int32_t def);
bool GetBool(const QString& section, const QString& key, bool def);

// Removes one key ("Param/TaillePol"); the other settings stay as they are.
void RemoveSetting(const QString& sectionAndKey);
// The settings file, and the same with the home folder written "~".
QString FileName();
QString DisplayFileName();
// Raises a run-time error when the settings file exists but cannot be read as settings
// (not text, or refused by the store); the report then offers to set it aside.
void CheckReadable();
// Renames the settings file to the same name with ".illisible" added, so that the next
// start begins afresh and nothing of the old file is lost.
void SetFileAside();

} // namespace Settings
