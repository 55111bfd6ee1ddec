// The table of writing systems: fontconfig language, French name, sample characters.
#include "browser/writingsystems.h"

#include <cstring>

namespace WritingSystems {

const QList<System>& all()
{
    static const QList<System> table = {
        {"fr", QStringLiteral("Latin (français)"), QStringLiteral("Aa")},
        {"vi", QStringLiteral("Latin (vietnamien)"), QStringLiteral("Ươ")},
        {"el", QStringLiteral("Grec"), QStringLiteral("Αα")},
        {"ru", QStringLiteral("Cyrillique"), QStringLiteral("Яя")},
        {"hy", QStringLiteral("Arménien"), QStringLiteral("Աա")},
        {"ka", QStringLiteral("Géorgien"), QStringLiteral("აბ")},
        {"he", QStringLiteral("Hébreu"), QStringLiteral("אב")},
        {"ar", QStringLiteral("Arabe"), QStringLiteral("عرب")},
        {"syr", QStringLiteral("Syriaque"), QStringLiteral("ܐܒ")},
        {"dv", QStringLiteral("Thâna (divehi)"), QStringLiteral("ދވ")},
        {"am", QStringLiteral("Éthiopien (amharique)"), QStringLiteral("አማ")},
        {"hi", QStringLiteral("Dévanagari (hindi)"), QStringLiteral("अआ")},
        {"bn", QStringLiteral("Bengali"), QStringLiteral("অআ")},
        {"pa", QStringLiteral("Gurmukhi (pendjabi)"), QStringLiteral("ਅਆ")},
        {"gu", QStringLiteral("Goudjarati"), QStringLiteral("અઆ")},
        {"or", QStringLiteral("Oriya"), QStringLiteral("ଅଆ")},
        {"ta", QStringLiteral("Tamoul"), QStringLiteral("அஆ")},
        {"te", QStringLiteral("Télougou"), QStringLiteral("అఆ")},
        {"kn", QStringLiteral("Kannada"), QStringLiteral("ಅಆ")},
        {"ml", QStringLiteral("Malayalam"), QStringLiteral("അആ")},
        {"si", QStringLiteral("Cingalais"), QStringLiteral("අආ")},
        {"th", QStringLiteral("Thaï"), QStringLiteral("กข")},
        {"lo", QStringLiteral("Lao"), QStringLiteral("ກຂ")},
        {"my", QStringLiteral("Birman"), QStringLiteral("ကခ")},
        {"km", QStringLiteral("Khmer"), QStringLiteral("កខ")},
        {"bo", QStringLiteral("Tibétain"), QStringLiteral("ཀཁ")},
        {"mn-mn", QStringLiteral("Mongol"), QStringLiteral("ᠮᠣ")},
        {"ja", QStringLiteral("Japonais"), QStringLiteral("あア")},
        {"ko", QStringLiteral("Coréen"), QStringLiteral("한글")},
        {"zh-cn", QStringLiteral("Chinois simplifié"), QStringLiteral("中文")},
        {"zh-tw", QStringLiteral("Chinois traditionnel"), QStringLiteral("中文")},
        {"ii", QStringLiteral("Yi"), QStringLiteral("ꀀꀁ")},
        {"chr", QStringLiteral("Cherokee"), QStringLiteral("ᎠᎡ")},
        {"iu", QStringLiteral("Syllabaire inuktitut"), QStringLiteral("ᐃᐅ")},
    };
    return table;
}

int indexOf(const char* language)
{
    const QList<System>& table = all();
    for (int i = 0; i < table.size(); ++i) {
        if (std::strcmp(table[i].language, language) == 0)
            return i;
    }
    return -1;
}

} // namespace WritingSystems
