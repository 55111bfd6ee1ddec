// fontconfig and FreeType calls, each wrapped so that every handle is released.
#include "fontfile/fontsystem.h"

#include <QFile>
#include <QFileInfo>
#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_TRUETYPE_TABLES_H
#include <fontconfig/fontconfig.h>
#include <fontconfig/fcfreetype.h>

#include <algorithm>
#include <memory>

namespace FontSystem {

namespace {

struct PatternDeleter {
    void operator()(FcPattern* pattern) const { FcPatternDestroy(pattern); }
};
using Pattern = std::unique_ptr<FcPattern, PatternDeleter>;

QString stringOf(FcPattern* pattern, const char* object)
{
    FcChar8* value = nullptr;
    if (FcPatternGetString(pattern, object, 0, &value) != FcResultMatch || !value)
        return QString();
    return QString::fromUtf8(reinterpret_cast<const char*>(value));
}

class FreeTypeFace {
public:
    explicit FreeTypeFace(const FaceFile& file)
    {
        if (FT_Init_FreeType(&m_library) != 0) {
            m_library = nullptr;
            return;
        }
        const QByteArray path = QFile::encodeName(file.path);
        if (FT_New_Face(m_library, path.constData(), file.index, &m_face) != 0)
            m_face = nullptr;
    }
    ~FreeTypeFace()
    {
        if (m_face)
            FT_Done_Face(m_face);
        if (m_library)
            FT_Done_FreeType(m_library);
    }
    FreeTypeFace(const FreeTypeFace&) = delete;
    FreeTypeFace& operator=(const FreeTypeFace&) = delete;
    FT_Face face() const { return m_face; }

private:
    FT_Library m_library = nullptr;
    FT_Face m_face = nullptr;
};

bool hasSymbolCmap(FT_Face face)
{
    for (FT_Int i = 0; i < face->num_charmaps; ++i)
        if (face->charmaps[i]->platform_id == 3 && face->charmaps[i]->encoding_id == 0)
            return true;
    return false;
}

// Without an OS/2 table, the first and last codes of the selected character map.
void mappedRange(FT_Face face, CharacterInfo& info)
{
    FT_UInt glyph = 0;
    FT_ULong code = FT_Get_First_Char(face, &glyph);
    if (glyph == 0)
        return;
    info.firstChar = int(code);
    FT_ULong last = code;
    while (glyph != 0) {
        last = code;
        code = FT_Get_Next_Char(face, code, &glyph);
    }
    info.lastChar = int(last);
}

} // namespace

QString familyOfFile(const QString& path)
{
    if (!QFileInfo(path).isFile()) // no directories, pipes or devices
        return QString();
    int count = 0;
    const QByteArray file = QFile::encodeName(path);
    Pattern pattern(FcFreeTypeQuery(reinterpret_cast<const FcChar8*>(file.constData()), 0, nullptr, &count));
    return pattern ? stringOf(pattern.get(), FC_FAMILY) : QString();
}

std::optional<FaceFile> matchedFace(const QString& family, bool bold, bool italic)
{
    Pattern request(FcPatternCreate());
    const QByteArray name = family.toUtf8();
    FcPatternAddString(request.get(), FC_FAMILY, reinterpret_cast<const FcChar8*>(name.constData()));
    FcPatternAddInteger(request.get(), FC_WEIGHT, bold ? FC_WEIGHT_BOLD : FC_WEIGHT_REGULAR);
    FcPatternAddInteger(request.get(), FC_SLANT, italic ? FC_SLANT_ITALIC : FC_SLANT_ROMAN);
    FcConfigSubstitute(nullptr, request.get(), FcMatchPattern);
    FcDefaultSubstitute(request.get());
    FcResult result = FcResultNoMatch;
    Pattern match(FcFontMatch(nullptr, request.get(), &result));
    if (!match)
        return std::nullopt;
    FaceFile face;
    face.path = stringOf(match.get(), FC_FILE);
    FcPatternGetInteger(match.get(), FC_INDEX, 0, &face.index);
    if (face.path.isEmpty())
        return std::nullopt;
    return face;
}

std::optional<CharacterInfo> characterInfo(const FaceFile& file)
{
    const FreeTypeFace handle(file);
    FT_Face face = handle.face();
    if (!face)
        return std::nullopt;
    CharacterInfo info;
    info.symbolCmap = hasSymbolCmap(face);
    const auto* os2 = static_cast<const TT_OS2*>(FT_Get_Sfnt_Table(face, FT_SFNT_OS2));
    if (os2 && os2->version != 0xFFFF) {
        info.codePageRange1 = std::uint32_t(os2->ulCodePageRange1);
        info.firstChar = os2->usFirstCharIndex;
        info.lastChar = os2->usLastCharIndex;
        info.defaultChar = os2->version >= 2 ? os2->usDefaultChar : 0;
    } else {
        mappedRange(face, info);
    }
    return info;
}

bool Coverage::contains(char32_t code) const
{
    const auto after = std::upper_bound(ranges.begin(), ranges.end(), code,
                                        [](char32_t c, const std::pair<char32_t, char32_t>& r) { return c < r.first; });
    return after != ranges.begin() && code <= std::prev(after)->second;
}

QString Coverage::firstCharacters(int count) const
{
    QString text;
    int taken = 0;
    for (const auto& [first, last] : ranges) {
        for (char32_t code = first; code <= last && taken < count; ++code) {
            const QChar::Category category = QChar::category(code);
            if (code <= 0x20 || category == QChar::Other_Control || category == QChar::Other_Format
                || category == QChar::Separator_Space || category == QChar::Other_Surrogate
                || category == QChar::Other_NotAssigned || category == QChar::Other_PrivateUse)
                continue;
            text += QString::fromUcs4(&code, 1);
            ++taken;
        }
        if (taken >= count)
            break;
    }
    return text;
}

namespace {

std::vector<std::pair<char32_t, char32_t>> rangesOf(const FcCharSet* charset)
{
    std::vector<std::pair<char32_t, char32_t>> ranges;
    FcChar32 map[FC_CHARSET_MAP_SIZE];
    FcChar32 next = 0;
    for (FcChar32 base = FcCharSetFirstPage(charset, map, &next); base != FC_CHARSET_DONE;
         base = FcCharSetNextPage(charset, map, &next)) {
        for (int word = 0; word < FC_CHARSET_MAP_SIZE; ++word) {
            for (int bit = 0; bit < 32 && map[word]; ++bit) {
                if (!(map[word] & (1u << bit)))
                    continue;
                const char32_t code = base + FcChar32(word) * 32 + FcChar32(bit);
                if (!ranges.empty() && ranges.back().second + 1 == code)
                    ranges.back().second = code;
                else
                    ranges.emplace_back(code, code);
            }
        }
    }
    return ranges;
}

} // namespace

std::optional<Coverage> coverage(const QString& family)
{
    Pattern request(FcPatternCreate());
    const QByteArray name = family.toUtf8();
    FcPatternAddString(request.get(), FC_FAMILY, reinterpret_cast<const FcChar8*>(name.constData()));
    FcConfigSubstitute(nullptr, request.get(), FcMatchPattern);
    FcDefaultSubstitute(request.get());
    FcResult matched = FcResultNoMatch;
    Pattern match(FcFontMatch(nullptr, request.get(), &matched));
    if (!match)
        return std::nullopt;
    // fontconfig always finds something; only a face of that very family will do.
    bool named = false;
    FcChar8* value = nullptr;
    for (int i = 0; FcPatternGetString(match.get(), FC_FAMILY, i, &value) == FcResultMatch; ++i)
        named = named || QString::fromUtf8(reinterpret_cast<const char*>(value)) == family;
    if (!named)
        return std::nullopt;
    Coverage result;
    FcCharSet* charset = nullptr;
    if (FcPatternGetCharSet(match.get(), FC_CHARSET, 0, &charset) == FcResultMatch && charset)
        result.ranges = rangesOf(charset);
    FcLangSet* langs = nullptr;
    if (FcPatternGetLangSet(match.get(), FC_LANG, 0, &langs) == FcResultMatch && langs) {
        FcStrSet* set = FcLangSetGetLangs(langs);
        FcStrList* list = FcStrListCreate(set);
        while (FcChar8* lang = FcStrListNext(list))
            result.languages.append(QString::fromUtf8(reinterpret_cast<const char*>(lang)));
        FcStrListDone(list);
        FcStrSetDestroy(set);
    }
    return result;
}

} // namespace FontSystem
