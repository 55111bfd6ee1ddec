// FamilyIndex: what the font list's filters know of each listed family - every name
// it answers to, its kind, fixed pitch, the writing systems it covers, whether it can
// draw its own name - read from fontconfig's font sets in one pass. No widgets.
#pragma once

#include "browser/fontkind.h"

#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>
#include <memory>

struct _FcPattern;

class FamilyIndex {
public:
    struct Family {
        QString name;       // the name the list shows: the faces' first family name
        QStringList names;  // every family name of its faces, `name` first
        QString folded;     // the names folded (TextFold), one per line
        bool monospace = false;   // every face has fixed spacing (mono, dual or char cell)
        bool symbol = false;      // its regular face has a symbol character map
        bool drawsOwnName = true; // its regular face has every character of `name`
        QString sample;           // when it cannot draw its name: characters it has
        quint64 writingSystems = 0; // bit i: WritingSystems::all()[i]
        FontKind::Kind kind = FontKind::Kind::None;
        QString file;       // the regular face: file and face index
        int faceIndex = 0;
    };

    // The patterns of the current configuration's font sets (system, then application),
    // each referenced so that they outlive a change of configuration. Cheap: take them
    // on the GUI thread, where fonts are registered, and build from them anywhere.
    class Snapshot {
    public:
        Snapshot();
        ~Snapshot();
        Snapshot(const Snapshot&) = delete;
        Snapshot& operator=(const Snapshot&) = delete;
        const QList<_FcPattern*>& patterns() const { return m_patterns; }

    private:
        QList<_FcPattern*> m_patterns;
    };

    // One pass over the patterns; `readKinds` also reads the OS/2 table of each
    // family's regular face from its file.
    static FamilyIndex build(const Snapshot& snapshot, bool readKinds = true);

    int size() const { return int(m_families.size()); }
    const QList<Family>& families() const { return m_families; }
    const Family* find(const QString& name) const;
    // For each writing system, the number of families that cover it.
    QList<int> writingSystemCounts() const;

private:
    QList<Family> m_families;
    QHash<QString, int> m_byName;
};
