// Family enumeration through fontconfig: the first family name of every font, each
// name once.
#include "browser/enumfont.h"

#include <QSet>
#include <fontconfig/fontconfig.h>

namespace EnumFont {

int EnumFontFamilies(FontFamProc callback, void* lParam)
{
    // The configuration's own font sets, the system's and the program's (fonts it
    // registered for a while), read in place: no pattern is copied.
    FcConfig* config = FcConfigReference(nullptr);
    if (!config)
        return 1;
    int result = 1;
    QSet<QString> seen;
    for (FcSetName which : {FcSetSystem, FcSetApplication}) {
        FcFontSet* fonts = FcConfigGetFonts(config, which);
        if (!fonts)
            continue;
        seen.reserve(seen.size() + fonts->nfont);
        for (int i = 0; i < fonts->nfont && result != 0; ++i) {
            FcChar8* family = nullptr;
            if (FcPatternGetString(fonts->fonts[i], FC_FAMILY, 0, &family) != FcResultMatch || !family)
                continue;
            LogFont logFont{QString::fromUtf8(reinterpret_cast<const char*>(family))};
            if (seen.contains(logFont.lfFaceName))
                continue;
            seen.insert(logFont.lfFaceName);
            result = callback(logFont, lParam);
        }
    }
    FcConfigDestroy(config);
    return result;
}

int EnumFontFamProc(const LogFont& logFont, void* lParam)
{
    auto* names = static_cast<QStringList*>(lParam);
    // Text ends at the first NUL, as the system's fixed-size name field would.
    const qsizetype nul = logFont.lfFaceName.indexOf(QChar(0));
    names->append(nul < 0 ? logFont.lfFaceName : logFont.lfFaceName.left(nul));
    return 1;
}

QStringList families()
{
    QStringList names;
    EnumFontFamilies(&EnumFontFamProc, &names);
    return names;
}

} // namespace EnumFont
