// fontconfig and FreeType calls, each wrapped so that every handle is released.
#include "fontfile/fontsystem.h"

#include "components/boundedfile.h"

#include <QFile>
#include <QFileInfo>
#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_TRUETYPE_TABLES_H
#include <fontconfig/fontconfig.h>
#include <fontconfig/fcfreetype.h>

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

// fontconfig's pattern for one face (or one instance of it) held by FreeType.
FaceNames namesOf(FT_Face face, int id)
{
    Pattern pattern(FcFreeTypeQueryFace(face, reinterpret_cast<const FcChar8*>(""), unsigned(id), nullptr));
    if (!pattern)
        return {};
    return {stringOf(pattern.get(), FC_FAMILY), stringOf(pattern.get(), FC_STYLE)};
}

} // namespace

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

} // namespace FontSystem
