// The family index: one pass over fontconfig's patterns, grouped by first family name.
#include "browser/familyindex.h"

#include "browser/textfold.h"
#include "browser/writingsystems.h"

#include <climits>
#include <cstdlib>
#include <fontconfig/fontconfig.h>

namespace {

QString stringOf(FcPattern* pattern, const char* object, int n = 0)
{
    FcChar8* value = nullptr;
    if (FcPatternGetString(pattern, object, n, &value) != FcResultMatch || !value)
        return QString();
    return QString::fromUtf8(reinterpret_cast<const char*>(value));
}

int intOf(FcPattern* pattern, const char* object, int def)
{
    int value = def;
    FcPatternGetInteger(pattern, object, 0, &value);
    return value;
}

// How close a face is to the family's plain face: roman, regular weight, normal width.
int plainness(FcPattern* pattern)
{
    const int slant = intOf(pattern, FC_SLANT, FC_SLANT_ROMAN);
    const int weight = intOf(pattern, FC_WEIGHT, FC_WEIGHT_REGULAR);
    const int width = intOf(pattern, FC_WIDTH, FC_WIDTH_NORMAL);
    return (slant != FC_SLANT_ROMAN ? 1000 : 0) + std::abs(weight - FC_WEIGHT_REGULAR) + std::abs(width - FC_WIDTH_NORMAL);
}

// One language set per writing system, to test faces as `fc-list :lang=CODE` does.
class LanguageSets {
public:
    LanguageSets()
    {
        for (const WritingSystems::System& system : WritingSystems::all()) {
            FcLangSet* set = FcLangSetCreate();
            FcLangSetAdd(set, reinterpret_cast<const FcChar8*>(system.language));
            m_sets.append(set);
        }
    }
    ~LanguageSets()
    {
        for (FcLangSet* set : m_sets)
            FcLangSetDestroy(set);
    }
    quint64 covered(const FcLangSet* faceLanguages, quint64 known) const
    {
        quint64 bits = known;
        for (int i = 0; i < m_sets.size(); ++i) {
            if (!(bits & (quint64(1) << i)) && FcLangSetContains(faceLanguages, m_sets[i]))
                bits |= quint64(1) << i;
        }
        return bits;
    }

private:
    QList<FcLangSet*> m_sets;
};

bool hasAll(FcCharSet* charset, const QString& text)
{
    for (char32_t c : text.toUcs4()) {
        if (c != U' ' && !FcCharSetHasChar(charset, c))
            return false;
    }
    return true;
}

// A few characters the face has, for a family that cannot draw its own name: the
// sample of the first writing system it has, else its first two printable characters.
QString sampleOf(FcCharSet* charset)
{
    for (const WritingSystems::System& system : WritingSystems::all()) {
        if (hasAll(charset, system.sample))
            return system.sample;
    }
    QString sample;
    FcChar32 map[FC_CHARSET_MAP_SIZE];
    FcChar32 next = 0;
    for (FcChar32 page = FcCharSetFirstPage(charset, map, &next); page != FC_CHARSET_DONE && sample.size() < 4;
         page = FcCharSetNextPage(charset, map, &next)) {
        for (int i = 0; i < FC_CHARSET_MAP_SIZE * 32 && sample.size() < 4; ++i) {
            const char32_t c = page + char32_t(i);
            if ((map[i / 32] & (1U << (i % 32))) && c > 0x20 && QChar::isPrint(c))
                sample += QString::fromUcs4(&c, 1);
        }
    }
    return sample;
}

struct Builder {
    FamilyIndex::Family family;
    FcPattern* plain = nullptr;
    int plainScore = 0;
    const FcLangSet* lastLanguages = nullptr;
};

} // namespace

FamilyIndex::Snapshot::Snapshot()
{
    FcConfig* config = FcConfigReference(nullptr);
    if (!config)
        return;
    for (FcSetName which : {FcSetSystem, FcSetApplication}) {
        FcFontSet* fonts = FcConfigGetFonts(config, which);
        for (int i = 0; fonts && i < fonts->nfont; ++i) {
            FcPatternReference(fonts->fonts[i]);
            m_patterns.append(fonts->fonts[i]);
        }
    }
    FcConfigDestroy(config);
}

FamilyIndex::Snapshot::~Snapshot()
{
    for (FcPattern* pattern : m_patterns)
        FcPatternDestroy(pattern);
}

namespace {

// Adds one face to the builder of its family.
void addFace(Builder& b, FcPattern* pattern, const LanguageSets& languages)
{
    for (int n = 1;; ++n) {
        const QString other = stringOf(pattern, FC_FAMILY, n);
        if (other.isEmpty())
            break;
        if (!b.family.names.contains(other))
            b.family.names.append(other);
    }
    b.family.monospace = b.family.monospace && intOf(pattern, FC_SPACING, FC_PROPORTIONAL) >= FC_DUAL;
    FcLangSet* faceLanguages = nullptr;
    // Faces of one family mostly share their languages: test them once.
    if (FcPatternGetLangSet(pattern, FC_LANG, 0, &faceLanguages) == FcResultMatch
        && !(b.lastLanguages && FcLangSetEqual(b.lastLanguages, faceLanguages))) {
        b.family.writingSystems = languages.covered(faceLanguages, b.family.writingSystems);
        b.lastLanguages = faceLanguages;
    }
    const int score = plainness(pattern);
    if (score < b.plainScore) {
        b.plainScore = score;
        b.plain = pattern;
    }
}

// What the family's plain face tells: file, symbol map, the characters of its name.
void finish(FamilyIndex::Family& f, FcPattern* plain, bool readKinds)
{
    FcBool symbol = FcFalse;
    FcPatternGetBool(plain, FC_SYMBOL, 0, &symbol);
    f.symbol = symbol == FcTrue;
    f.file = stringOf(plain, FC_FILE);
    f.faceIndex = intOf(plain, FC_INDEX, 0) & 0xFFFF;
    FcCharSet* charset = nullptr;
    if (FcPatternGetCharSet(plain, FC_CHARSET, 0, &charset) == FcResultMatch && charset) {
        f.drawsOwnName = !f.symbol && hasAll(charset, f.name);
        if (!f.drawsOwnName)
            f.sample = sampleOf(charset);
    }
    QStringList folded;
    for (const QString& name : f.names)
        folded.append(TextFold::fold(name));
    f.folded = folded.join(QLatin1Char('\n'));
    if (readKinds)
        f.kind = FontKind::classify(f.file.isEmpty() ? std::nullopt : FontKind::readOs2File(f.file, f.faceIndex), f.symbol);
    else if (f.symbol)
        f.kind = FontKind::Kind::Symbol;
}

} // namespace

FamilyIndex FamilyIndex::build(const Snapshot& snapshot, bool readKinds)
{
    const LanguageSets languages;
    QList<Builder> builders;
    QHash<QString, int> byName;
    for (FcPattern* pattern : snapshot.patterns()) {
        const QString name = stringOf(pattern, FC_FAMILY);
        if (name.isEmpty())
            continue;
        auto found = byName.constFind(name);
        if (found == byName.constEnd()) {
            found = byName.insert(name, int(builders.size()));
            Builder fresh;
            fresh.family.name = name;
            fresh.family.names = {name};
            fresh.family.monospace = true;
            fresh.plainScore = INT_MAX;
            builders.append(std::move(fresh));
        }
        addFace(builders[*found], pattern, languages);
    }

    FamilyIndex index;
    index.m_families.reserve(builders.size());
    for (Builder& b : builders) {
        finish(b.family, b.plain, readKinds);
        index.m_byName.insert(b.family.name, int(index.m_families.size()));
        index.m_families.append(std::move(b.family));
    }
    return index;
}

const FamilyIndex::Family* FamilyIndex::find(const QString& name) const
{
    const auto found = m_byName.constFind(name);
    return found == m_byName.constEnd() ? nullptr : &m_families[*found];
}

QList<int> FamilyIndex::writingSystemCounts() const
{
    QList<int> counts(WritingSystems::all().size(), 0);
    for (const Family& f : m_families) {
        for (int i = 0; i < counts.size(); ++i) {
            if (f.writingSystems & (quint64(1) << i))
                ++counts[i];
        }
    }
    return counts;
}
