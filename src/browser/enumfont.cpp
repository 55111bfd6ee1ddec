// Family enumeration through fontconfig: the first family name of every font pattern,
// each name once.
#include "browser/enumfont.h"

#include <QSet>
#include <fontconfig/fontconfig.h>

namespace EnumFont {

int EnumFontFamilies(FontFamProc callback, void* lParam)
{
    FcPattern* pattern = FcPatternCreate();
    FcObjectSet* objects = FcObjectSetBuild(FC_FAMILY, nullptr);
    FcFontSet* fonts = FcFontList(nullptr, pattern, objects);
    FcObjectSetDestroy(objects);
    FcPatternDestroy(pattern);
    if (!fonts)
        return 1;

    int result = 1;
    QSet<QString> seen;
    seen.reserve(fonts->nfont);
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
    FcFontSetDestroy(fonts);
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
