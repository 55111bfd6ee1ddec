// Locale names to Windows locale identifiers, by table.
#include "fontfile/systemlanguage.h"

#include <QByteArray>
#include <QtGlobal>

namespace SystemLanguage {

namespace {

struct Entry {
    const char* name; // language_TERRITORY; the first entry of a language is its default
    std::int32_t lcid;
};

constexpr std::int32_t usEnglish = 0x0409;

const Entry table[] = {
    {"en_US", 0x0409}, {"en_GB", 0x0809}, {"en_AU", 0x0C09}, {"en_CA", 0x1009}, {"en_NZ", 0x1409},
    {"en_IE", 0x1809}, {"en_ZA", 0x1C09}, {"en_IN", 0x4009},
    {"fr_FR", 0x040C}, {"fr_BE", 0x080C}, {"fr_CA", 0x0C0C}, {"fr_CH", 0x100C}, {"fr_LU", 0x140C},
    {"fr_MC", 0x180C},
    {"de_DE", 0x0407}, {"de_CH", 0x0807}, {"de_AT", 0x0C07}, {"de_LU", 0x1007}, {"de_LI", 0x1407},
    {"es_ES", 0x0C0A}, {"es_MX", 0x080A}, {"es_AR", 0x2C0A}, {"es_CO", 0x240A}, {"es_CL", 0x340A},
    {"it_IT", 0x0410}, {"it_CH", 0x0810},
    {"nl_NL", 0x0413}, {"nl_BE", 0x0813},
    {"pt_PT", 0x0816}, {"pt_BR", 0x0416},
    {"ca_ES", 0x0403}, {"eu_ES", 0x042D}, {"gl_ES", 0x0456},
    {"sv_SE", 0x041D}, {"sv_FI", 0x081D}, {"da_DK", 0x0406}, {"nb_NO", 0x0414}, {"nn_NO", 0x0814},
    {"fi_FI", 0x040B}, {"is_IS", 0x040F},
    {"pl_PL", 0x0415}, {"cs_CZ", 0x0405}, {"sk_SK", 0x041B}, {"hu_HU", 0x040E}, {"sl_SI", 0x0424},
    {"hr_HR", 0x041A}, {"ro_RO", 0x0418}, {"bg_BG", 0x0402}, {"sr_RS", 0x241A},
    {"ru_RU", 0x0419}, {"uk_UA", 0x0422}, {"be_BY", 0x0423},
    {"et_EE", 0x0425}, {"lv_LV", 0x0426}, {"lt_LT", 0x0427},
    {"el_GR", 0x0408}, {"tr_TR", 0x041F}, {"he_IL", 0x040D}, {"ar_SA", 0x0401}, {"ar_EG", 0x0C01},
    {"fa_IR", 0x0429},
    {"ja_JP", 0x0411}, {"ko_KR", 0x0412}, {"zh_CN", 0x0804}, {"zh_TW", 0x0404}, {"zh_HK", 0x0C04},
    {"zh_SG", 0x1004},
    {"th_TH", 0x041E}, {"vi_VN", 0x042A}, {"id_ID", 0x0421}, {"ms_MY", 0x043E}, {"hi_IN", 0x0439},
};

} // namespace

std::int32_t lcidOf(const QString& localeName)
{
    // "language_TERRITORY.codeset@modifier": only language and territory count.
    QString name = localeName.section(QLatin1Char('@'), 0, 0).section(QLatin1Char('.'), 0, 0);
    const QString language = name.section(QLatin1Char('_'), 0, 0).toLower();
    const QString territory = name.section(QLatin1Char('_'), 1, 1).toUpper();
    if (language.isEmpty())
        return usEnglish;
    const QString full = language + QLatin1Char('_') + territory;
    for (const Entry& entry : table)
        if (full == QLatin1String(entry.name))
            return entry.lcid;
    const QString prefix = language + QLatin1Char('_');
    for (const Entry& entry : table)
        if (QLatin1String(entry.name).startsWith(prefix))
            return entry.lcid;
    return usEnglish; // "C", "POSIX" and every unknown language
}

std::int32_t systemDefaultLCID()
{
    for (const char* variable : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        const QString value = qEnvironmentVariable(variable);
        if (!value.isEmpty())
            return lcidOf(value);
    }
    return usEnglish;
}

} // namespace SystemLanguage
