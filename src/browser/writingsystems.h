// WritingSystems: the writing systems the font list can be filtered by, each standing
// for one fontconfig language, with its French name and a short sample of its letters.
#pragma once

#include <QList>
#include <QString>

namespace WritingSystems {

struct System {
    const char* language; // fontconfig's language code, as in fc-list :lang=CODE
    QString name;         // French name shown in the list
    QString sample;       // a few characters of the script, drawn in the font itself
};

// Every system, in the order the filter offers them. A family's writing systems are
// kept as a bit set: bit i stands for entry i.
const QList<System>& all();
// The entry of a language code, or -1.
int indexOf(const char* language);

} // namespace WritingSystems
