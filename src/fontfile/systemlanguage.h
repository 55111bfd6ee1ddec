// The system's default locale as a Windows locale identifier (LCID), which is what a
// font's Microsoft name records carry as their language.
#pragma once

#include <QString>
#include <cstdint>

namespace SystemLanguage {

// The identifier of a POSIX locale name ("fr_FR", "fr_FR.UTF-8@euro", "de"): 0x040C
// for fr_FR, 0x0409 for en_US; a language alone gives its main country; an unknown
// name, "C" or "POSIX" gives 0x0409.
std::int32_t lcidOf(const QString& localeName);

// From the environment, as the C library reads it for messages: LC_ALL, then
// LC_MESSAGES, then LANG (the first that is set and not empty).
std::int32_t systemDefaultLCID();

} // namespace SystemLanguage
