// fontconfig and FreeType calls, each wrapped so that every handle is released.
#include "fontfile/fontsystem.h"

#include "components/boundedfile.h"

#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_TRUETYPE_TABLES_H
#include FT_ADVANCES_H
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
    // A face of a font held in memory; the bytes must outlive the object.
    FreeTypeFace(const QByteArray& bytes, FT_Long index)
    {
        if (FT_Init_FreeType(&m_library) != 0) {
            m_library = nullptr;
            return;
        }
        if (FT_New_Memory_Face(m_library, reinterpret_cast<const FT_Byte*>(bytes.constData()), FT_Long(bytes.size()),
                               index, &m_face) != 0)
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

bool isScalarValue(FT_ULong code)
{
    return code <= 0x10FFFF && (code < 0xD800 || code > 0xDFFF);
}

// The codes one character map gives a glyph, in the map's order (ascending).
void appendCharmapCodes(FT_Face face, FT_CharMap charmap, std::vector<char32_t>& codes)
{
    if (FT_Set_Charmap(face, charmap) != 0)
        return;
    const bool symbol = charmap->encoding == FT_ENCODING_MS_SYMBOL;
    FT_UInt glyph = 0;
    for (FT_ULong code = FT_Get_First_Char(face, &glyph); glyph != 0; code = FT_Get_Next_Char(face, code, &glyph)) {
        if (!isScalarValue(code))
            continue;
        codes.push_back(char32_t(code));
        if (symbol && code >= 0xF000 && code <= 0xF0FF)
            codes.push_back(char32_t(code - 0xF000));
    }
}

bool familyNamed(FcPattern* pattern, const QString& family)
{
    FcChar8* value = nullptr;
    for (int i = 0; FcPatternGetString(pattern, FC_FAMILY, i, &value) == FcResultMatch; ++i)
        if (value && QString::fromUtf8(reinterpret_cast<const char*>(value)).compare(family, Qt::CaseInsensitive) == 0)
            return true;
    return false;
}

Pattern matchPattern(const QString& family, bool bold, bool italic)
{
    Pattern request(FcPatternCreate());
    const QByteArray name = family.toUtf8();
    FcPatternAddString(request.get(), FC_FAMILY, reinterpret_cast<const FcChar8*>(name.constData()));
    FcPatternAddInteger(request.get(), FC_WEIGHT, bold ? FC_WEIGHT_BOLD : FC_WEIGHT_REGULAR);
    FcPatternAddInteger(request.get(), FC_SLANT, italic ? FC_SLANT_ITALIC : FC_SLANT_ROMAN);
    FcConfigSubstitute(nullptr, request.get(), FcMatchPattern);
    FcDefaultSubstitute(request.get());
    FcResult result = FcResultNoMatch;
    return Pattern(FcFontMatch(nullptr, request.get(), &result));
}

std::optional<FaceFile> faceOf(FcPattern* match)
{
    FaceFile face;
    face.path = stringOf(match, FC_FILE);
    FcPatternGetInteger(match, FC_INDEX, 0, &face.index);
    if (face.path.isEmpty())
        return std::nullopt;
    return face;
}

// A number or the two ends of a range (variable fonts give ranges).
bool numberOf(FcPattern* pattern, const char* object, double& low, double& high)
{
    FcValue value;
    if (FcPatternGet(pattern, object, 0, &value) != FcResultMatch)
        return false;
    switch (value.type) {
    case FcTypeInteger: low = high = value.u.i; return true;
    case FcTypeDouble: low = high = value.u.d; return true;
    case FcTypeRange: return FcRangeGetDouble(value.u.r, &low, &high) == FcTrue;
    default: return false;
    }
}

bool boolOf(FcPattern* pattern, const char* object, bool fallback)
{
    FcBool value = FcFalse;
    return FcPatternGetBool(pattern, object, 0, &value) == FcResultMatch ? value == FcTrue : fallback;
}

// The tag a file starts with: "ttcf" for collections, "wOFF" and "wOF2" for web fonts.
QByteArray fileTag(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.read(4) : QByteArray();
}

FamilyFace faceOf(FcPattern* pattern, QHash<QString, QByteArray>& tags)
{
    FamilyFace face;
    face.style = stringOf(pattern, FC_STYLE);
    face.path = stringOf(pattern, FC_FILE);
    FcPatternGetInteger(pattern, FC_INDEX, 0, &face.index);
    face.fontFormat = stringOf(pattern, FC_FONTFORMAT);
    face.scalable = boolOf(pattern, FC_SCALABLE, true);
    face.variable = boolOf(pattern, FC_VARIABLE, false);
    double low = 0, high = 0;
    if (numberOf(pattern, FC_WEIGHT, low, high)) {
        if (low == high) {
            face.weight = FcWeightToOpenTypeDouble(low);
        } else {
            face.weightMin = FcWeightToOpenTypeDouble(low);
            face.weightMax = FcWeightToOpenTypeDouble(high);
        }
    }
    if (numberOf(pattern, FC_WIDTH, low, high))
        face.width = low == high ? low : 100;
    FcPatternGetInteger(pattern, FC_SLANT, 0, &face.slant);
    auto known = tags.find(face.path);
    if (known == tags.end())
        known = tags.insert(face.path, fileTag(face.path));
    face.collection = known.value() == "ttcf";
    face.wrapper = wrapperOfTag(known.value());
    return face;
}

// fontconfig's pattern for one face (or one instance of it) held by FreeType.
FaceNames namesOf(FT_Face face, int id)
{
    Pattern pattern(FcFreeTypeQueryFace(face, reinterpret_cast<const FcChar8*>(""), unsigned(id), nullptr));
    if (!pattern)
        return {};
    return {stringOf(pattern.get(), FC_FAMILY), stringOf(pattern.get(), FC_STYLE)};
}

} // namespace

QString wrapperOfTag(const QByteArray& tag)
{
    if (tag == "wOFF")
        return QStringLiteral("WOFF");
    if (tag == "wOF2")
        return QStringLiteral("WOFF2");
    return QString();
}

QList<FamilyFace> familyFaces(const QString& family)
{
    QList<FamilyFace> faces;
    if (family.isEmpty())
        return faces;
    Pattern request(FcPatternCreate());
    const QByteArray name = family.toUtf8();
    FcPatternAddString(request.get(), FC_FAMILY, reinterpret_cast<const FcChar8*>(name.constData()));
    std::unique_ptr<FcObjectSet, decltype(&FcObjectSetDestroy)> objects(
        FcObjectSetBuild(FC_STYLE, FC_FILE, FC_INDEX, FC_WEIGHT, FC_WIDTH, FC_SLANT, FC_FONTFORMAT, FC_SCALABLE,
                         FC_VARIABLE, static_cast<char*>(nullptr)),
        &FcObjectSetDestroy);
    std::unique_ptr<FcFontSet, decltype(&FcFontSetDestroy)> set(FcFontList(nullptr, request.get(), objects.get()),
                                                               &FcFontSetDestroy);
    if (!set)
        return faces;
    QHash<QString, QByteArray> tags;
    for (int i = 0; i < set->nfont; ++i) {
        FamilyFace face = faceOf(set->fonts[i], tags);
        if (!face.path.isEmpty())
            faces.append(face);
    }
    return faces;
}

QString familyOfFile(const QString& path)
{
    // Read once, bounded and only from a regular file: no pipe or device can hold this.
    const BoundedFile::Result file = BoundedFile::read(path, BoundedFile::FontLimit);
    if (!file.ok())
        return QString();
    const FreeTypeFace handle(file.bytes, 0);
    return handle.face() ? namesOf(handle.face(), 0).family : QString();
}

QList<FaceNames> facesOfData(const QByteArray& bytes)
{
    QList<FaceNames> faces;
    FT_Long count = 1;
    for (FT_Long index = 0; index < count; ++index) {
        const FreeTypeFace handle(bytes, index);
        FT_Face face = handle.face();
        if (!face)
            continue;
        count = face->num_faces;
        // The face, each named instance of a variable font, then the variable font
        // itself (a pattern without style), as fontconfig lists them.
        const int instances = int(face->style_flags >> 16);
        QList<int> ids{int(index)};
        for (int i = 1; i <= instances; ++i)
            ids.append(int(index) | (i << 16));
        if (instances > 0 && FT_HAS_MULTIPLE_MASTERS(face))
            ids.append(int(index) | (0x8000 << 16));
        for (int id : ids) {
            const FaceNames names = namesOf(face, id);
            if (!names.family.isEmpty())
                faces.append(names);
        }
    }
    return faces;
}

QStringList familiesOfFile(const QString& path, int maxFaces)
{
    // Read once, bounded and only from a regular file, as familyOfFile does.
    const BoundedFile::Result file = BoundedFile::read(path, BoundedFile::FontLimit);
    return file.ok() ? familiesOfData(file.bytes, maxFaces) : QStringList();
}

QStringList familiesOfData(const QByteArray& font, int maxFaces)
{
    QStringList families;
    FT_Library library = nullptr;
    if (FT_Init_FreeType(&library) != 0)
        return families;
    const auto* bytes = reinterpret_cast<const FT_Byte*>(font.constData());
    long count = 1;
    for (long index = 0; index < count && index < maxFaces; ++index) {
        FT_Face face = nullptr;
        if (FT_New_Memory_Face(library, bytes, FT_Long(font.size()), FT_Long(index), &face) != 0)
            break;
        count = face->num_faces;
        Pattern pattern(FcFreeTypeQueryFace(face, reinterpret_cast<const FcChar8*>(""), unsigned(index), nullptr));
        FT_Done_Face(face);
        if (!pattern)
            break;
        families.append(stringOf(pattern.get(), FC_FAMILY));
    }
    FT_Done_FreeType(library);
    return families;
}

std::optional<FaceFile> matchedFace(const QString& family, bool bold, bool italic)
{
    const Pattern match = matchPattern(family, bold, italic);
    return match ? faceOf(match.get()) : std::nullopt;
}

std::optional<FaceFile> familyFace(const QString& family, bool bold, bool italic)
{
    const Pattern match = matchPattern(family, bold, italic);
    if (!match || family.isEmpty() || !familyNamed(match.get(), family))
        return std::nullopt;
    return faceOf(match.get());
}

std::vector<char32_t> mappedCodePoints(const FaceFile& file)
{
    const FreeTypeFace handle(file);
    FT_Face face = handle.face();
    std::vector<char32_t> codes;
    if (!face)
        return codes;
    // The symbol map counts only for a face without a Unicode one, as fontconfig has it.
    for (const FT_Encoding wanted : {FT_ENCODING_UNICODE, FT_ENCODING_MS_SYMBOL}) {
        for (FT_Int i = 0; i < face->num_charmaps; ++i)
            if (face->charmaps[i]->encoding == wanted)
                appendCharmapCodes(face, face->charmaps[i], codes);
        if (!codes.empty())
            break;
    }
    // Several maps usually repeat each other (a BMP map beside a full one).
    std::sort(codes.begin(), codes.end());
    codes.erase(std::unique(codes.begin(), codes.end()), codes.end());
    return codes;
}

std::optional<GlyphMetrics> glyphMetrics(const FaceFile& file, char32_t code)
{
    const FreeTypeFace handle(file);
    FT_Face face = handle.face();
    if (!face)
        return std::nullopt;
    FT_UInt glyph = 0;
    for (FT_Int i = 0; i < face->num_charmaps && glyph == 0; ++i) {
        const FT_Encoding encoding = face->charmaps[i]->encoding;
        if (encoding != FT_ENCODING_UNICODE && encoding != FT_ENCODING_MS_SYMBOL)
            continue;
        if (FT_Set_Charmap(face, face->charmaps[i]) != 0)
            continue;
        glyph = FT_Get_Char_Index(face, code);
        if (glyph == 0 && encoding == FT_ENCODING_MS_SYMBOL && code <= 0xFF)
            glyph = FT_Get_Char_Index(face, code + 0xF000);
    }
    if (glyph == 0)
        return std::nullopt;
    GlyphMetrics metrics;
    metrics.glyphIndex = glyph;
    metrics.unitsPerEm = face->units_per_EM;
    FT_Fixed advance = 0;
    if (FT_Get_Advance(face, glyph, FT_LOAD_NO_SCALE, &advance) == 0)
        metrics.advance = long(advance);
    return metrics;
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
