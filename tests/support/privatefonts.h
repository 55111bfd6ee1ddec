// A private fontconfig configuration for a test process: DejaVu (a Debian package the
// project installs), a folder of hand-made test fonts and the user's font folder under
// a private XDG_DATA_HOME. Call prepare() before the application object exists.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace PrivateFonts {

// Writes the test fonts and fonts.conf, and points FONTCONFIG_FILE and XDG_DATA_HOME at
// them. Returns false when the fonts could not be made.
bool prepare();
QString root();
// $XDG_DATA_HOME/fonts: not created by prepare(); a test copies fonts there.
QString userFontsFolder();

// The hand-made families of the configuration.
QString twoNameFamily();      // "Glyphtest Kaku", also named in Japanese
QString japaneseName();       // its Japanese name
QString accentedFamily();     // "Éclat Test"
QString symbolFamily();       // a symbol character map
QString serifFamily();        // OS/2 class 1 (oldstyle serif)
QString sansFamily();         // OS/2 class 8
QString scriptFamily();       // OS/2 class 10
QString decorativeFamily();   // OS/2 class 9
// A drawable font of the given family with the given OS/2 sFamilyClass.
QByteArray fontOf(const QString& family, quint16 familyClass = 0);

// fc-list's first family names for a pattern (":lang=ja", ...) on this configuration,
// sorted, each once.
QStringList fcFamilies(const QString& pattern = QString());

} // namespace PrivateFonts
