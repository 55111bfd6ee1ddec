// FaceTables: FreeType gives the fixed tables (head, hhea, OS/2, post), PostScript font
// info and the glyphs measured when OS/2 has no heights; HarfBuzz gives the name
// strings, the layout feature lists and the variation axes.
#include "fontfile/facetables.h"

#include "fontfile/fontsystem.h"
#include "fontfile/typowords.h"

#include <QFile>
#include <QFileInfo>

#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_FONT_FORMATS_H
#include FT_MULTIPLE_MASTERS_H
#include FT_OUTLINE_H
#include FT_TRUETYPE_TABLES_H
#include FT_TRUETYPE_TAGS_H
#include FT_TYPE1_TABLES_H
#include <hb-ft.h>
#include <hb-ot.h>
#include <hb.h>

#include <algorithm>
#include <cstring>
#include <memory>

namespace FaceTables {

namespace {

struct Library {
    FT_Library handle = nullptr;
    Library()
    {
        if (FT_Init_FreeType(&handle) != 0)
            handle = nullptr;
    }
    ~Library()
    {
        if (handle)
            FT_Done_FreeType(handle);
    }
};

struct FaceDeleter {
    void operator()(FT_Face face) const { FT_Done_Face(face); }
};
struct HbFaceDeleter {
    void operator()(hb_face_t* face) const { hb_face_destroy(face); }
};

bool hasTable(FT_Face face, FT_ULong tag)
{
    FT_ULong length = 0;
    return FT_Load_Sfnt_Table(face, tag, 0, nullptr, &length) == 0 && length > 0;
}

// French when the font has it, else English, else the first language it has.
hb_language_t preferredLanguage(hb_face_t* face, hb_ot_name_id_t id)
{
    unsigned count = 0;
    const hb_ot_name_entry_t* entries = hb_ot_name_list_names(face, &count);
    hb_language_t english = HB_LANGUAGE_INVALID, other = HB_LANGUAGE_INVALID;
    auto is = [](hb_language_t language, const char* prefix) {
        const char* text = hb_language_to_string(language);
        const size_t n = strlen(prefix);
        return text && strncmp(text, prefix, n) == 0 && (text[n] == '\0' || text[n] == '-');
    };
    for (unsigned i = 0; i < count; ++i) {
        if (entries[i].name_id != id)
            continue;
        if (is(entries[i].language, "fr"))
            return entries[i].language;
        if (english == HB_LANGUAGE_INVALID && is(entries[i].language, "en"))
            english = entries[i].language;
        if (other == HB_LANGUAGE_INVALID)
            other = entries[i].language;
    }
    return english != HB_LANGUAGE_INVALID ? english : other;
}

QString nameString(hb_face_t* face, hb_ot_name_id_t id)
{
    const hb_language_t language = preferredLanguage(face, id);
    unsigned size = hb_ot_name_get_utf8(face, id, language, nullptr, nullptr);
    if (size == 0)
        return QString();
    QByteArray text(qsizetype(size) + 1, '\0');
    unsigned capacity = size + 1;
    hb_ot_name_get_utf8(face, id, language, &capacity, text.data());
    text.truncate(capacity);
    return QString::fromUtf8(text);
}

void readNames(hb_face_t* face, FaceData& data)
{
    unsigned count = 0;
    const hb_ot_name_entry_t* entries = hb_ot_name_list_names(face, &count);
    for (unsigned i = 0; i < count; ++i) {
        const int id = int(entries[i].name_id);
        if (id > 25 || data.names.contains(id)) // the standard IDs are enough here
            continue;
        const QString text = nameString(face, entries[i].name_id);
        if (!text.isEmpty())
            data.names.insert(id, text);
    }
}

// A PostScript font has no name table: its FontInfo dictionary says what it can.
void readPostScriptInfo(FT_Face face, FaceData& data)
{
    auto put = [&](int id, const char* text) {
        if (text && *text && !data.names.contains(id))
            data.names.insert(id, QString::fromLatin1(text));
    };
    put(Family, face->family_name);
    put(Subfamily, face->style_name);
    put(PostScriptName, FT_Get_Postscript_Name(face));
    PS_FontInfoRec info;
    if (FT_Get_PS_Font_Info(face, &info) != 0)
        return;
    put(Copyright, info.notice);
    put(FullName, info.full_name);
    put(Version, info.version);
    data.italicAngle = double(info.italic_angle);
    data.underlinePosition = info.underline_position;
    data.underlineThickness = info.underline_thickness;
}

void readOs2(const TT_OS2& os2, FaceData& data)
{
    data.os2Version = os2.version;
    data.vendorId = QString::fromLatin1(reinterpret_cast<const char*>(os2.achVendID), 4);
    data.fsType = os2.fsType;
    data.typoAscender = os2.sTypoAscender;
    data.typoDescender = os2.sTypoDescender;
    data.typoLineGap = os2.sTypoLineGap;
    data.useTypoMetrics = (os2.fsSelection & 0x80) != 0;
    data.winAscent = os2.usWinAscent;
    data.winDescent = os2.usWinDescent;
    data.strikeoutPosition = os2.yStrikeoutPosition;
    data.strikeoutSize = os2.yStrikeoutSize;
    data.weightClass = os2.usWeightClass;
    data.widthClass = os2.usWidthClass;
    std::array<quint8, 10> panose{};
    std::copy(os2.panose, os2.panose + 10, panose.begin());
    data.panose = panose;
    data.unicodeRanges = std::array<quint32, 4>{quint32(os2.ulUnicodeRange1), quint32(os2.ulUnicodeRange2),
                                                quint32(os2.ulUnicodeRange3), quint32(os2.ulUnicodeRange4)};
    if (os2.version >= 1)
        data.codePageRanges = std::array<quint32, 2>{quint32(os2.ulCodePageRange1), quint32(os2.ulCodePageRange2)};
    if (os2.version >= 2) {
        data.xHeight = os2.sxHeight;
        data.capHeight = os2.sCapHeight;
    }
}

void readFixedTables(FT_Face face, FaceData& data)
{
    if (const auto* head = static_cast<const TT_Header*>(FT_Get_Sfnt_Table(face, FT_SFNT_HEAD)))
        data.unitsPerEm = head->Units_Per_EM;
    if (const auto* hhea = static_cast<const TT_HoriHeader*>(FT_Get_Sfnt_Table(face, FT_SFNT_HHEA))) {
        data.hheaAscender = hhea->Ascender;
        data.hheaDescender = hhea->Descender;
        data.hheaLineGap = hhea->Line_Gap;
    }
    const auto* os2 = static_cast<const TT_OS2*>(FT_Get_Sfnt_Table(face, FT_SFNT_OS2));
    if (os2 && os2->version != 0xFFFF)
        readOs2(*os2, data);
    if (const auto* post = static_cast<const TT_Postscript*>(FT_Get_Sfnt_Table(face, FT_SFNT_POST))) {
        data.italicAngle = post->italicAngle / 65536.0;
        data.underlinePosition = post->underlinePosition;
        data.underlineThickness = post->underlineThickness;
    }
}

// The top of a letter's outline, in font units; nothing when the font lacks it.
std::optional<int> measuredHeight(FT_Face face, FT_ULong character)
{
    const FT_UInt glyph = FT_Get_Char_Index(face, character);
    if (glyph == 0 || FT_Load_Glyph(face, glyph, FT_LOAD_NO_SCALE | FT_LOAD_NO_HINTING | FT_LOAD_NO_BITMAP) != 0)
        return std::nullopt;
    if (face->glyph->format != FT_GLYPH_FORMAT_OUTLINE || face->glyph->outline.n_points == 0)
        return std::nullopt;
    FT_BBox box;
    FT_Outline_Get_CBox(&face->glyph->outline, &box);
    return int(box.yMax);
}

void measureHeights(FT_Face face, FaceData& data)
{
    if (!FT_IS_SCALABLE(face))
        return;
    if (!data.xHeight && (data.xHeight = measuredHeight(face, 'x')))
        data.xHeightMeasured = true;
    if (!data.capHeight && (data.capHeight = measuredHeight(face, 'H')))
        data.capHeightMeasured = true;
}

void readFeatures(hb_face_t* face, FaceData& data)
{
    QMap<QByteArray, Feature> byTag;
    for (const hb_tag_t table : {HB_OT_TAG_GSUB, HB_OT_TAG_GPOS}) {
        const unsigned total = hb_ot_layout_table_get_feature_tags(face, table, 0, nullptr, nullptr);
        for (unsigned start = 0; start < total;) {
            hb_tag_t tags[64];
            unsigned count = 64;
            hb_ot_layout_table_get_feature_tags(face, table, start, &count, tags);
            if (count == 0)
                break;
            for (unsigned i = 0; i < count; ++i) {
                char text[4];
                hb_tag_to_string(tags[i], text);
                Feature& feature = byTag[QByteArray(text, 4)];
                feature.tag = QByteArray(text, 4);
                (table == HB_OT_TAG_GSUB ? feature.inGsub : feature.inGpos) = true;
                hb_ot_name_id_t label = HB_OT_NAME_ID_INVALID;
                if (feature.fontName.isEmpty()
                    && hb_ot_layout_feature_get_name_ids(face, table, start + i, &label, nullptr, nullptr, nullptr, nullptr)
                    && label != HB_OT_NAME_ID_INVALID)
                    feature.fontName = nameString(face, label);
            }
            start += count;
        }
    }
    data.features = byTag.values(); // QMap keeps them sorted by tag
}

void readAxes(hb_face_t* face, FT_Face ftFace, FaceData& data)
{
    const unsigned count = hb_ot_var_get_axis_count(face);
    if (count == 0)
        return;
    std::vector<hb_ot_var_axis_info_t> infos(count);
    unsigned got = count;
    hb_ot_var_get_axis_infos(face, 0, &got, infos.data());
    for (unsigned i = 0; i < got; ++i) {
        char text[4];
        hb_tag_to_string(infos[i].tag, text);
        data.axes.append({QByteArray(text, 4), nameString(face, infos[i].name_id), infos[i].min_value,
                          infos[i].default_value, infos[i].max_value, (infos[i].flags & HB_OT_VAR_AXIS_FLAG_HIDDEN) != 0});
    }
    const unsigned instances = hb_ot_var_get_named_instance_count(face);
    for (unsigned i = 0; i < instances; ++i) {
        std::vector<float> coords(got);
        unsigned n = got;
        hb_ot_var_named_instance_get_design_coords(face, i, &n, coords.data());
        Instance instance;
        instance.name = nameString(face, hb_ot_var_named_instance_get_subfamily_name_id(face, i));
        for (unsigned a = 0; a < got; ++a)
            instance.coordinates.append(a < n ? coords[a] : infos[a].default_value);
        data.instances.append(instance);
    }
    std::vector<FT_Fixed> current(got);
    const bool known = FT_Get_Var_Design_Coordinates(ftFace, got, current.data()) == 0;
    for (unsigned a = 0; a < got; ++a)
        data.coordinates.append(known ? current[a] / 65536.0 : infos[a].default_value);
}

QString formatOf(FT_Face face, int index, const QString& path)
{
    TypoWords::FormatFacts facts;
    const char* container = FT_Get_Font_Format(face);
    facts.container = container ? QString::fromLatin1(container) : QString();
    facts.cff2 = FT_IS_SFNT(face) && hasTable(face, TTAG_CFF2);
    facts.outlines = FT_IS_SCALABLE(face);
    facts.collection = face->num_faces > 1 || (index & 0xFFFF) > 0;
    facts.variable = FT_HAS_MULTIPLE_MASTERS(face);
    QFile file(path);
    if (file.open(QIODevice::ReadOnly))
        facts.wrapper = FontSystem::wrapperOfTag(file.read(4));
    return TypoWords::formatWords(facts);
}

} // namespace

FaceData read(const QString& path, int index)
{
    FaceData data;
    const QFileInfo file(path);
    if (file.isFile()) {
        data.fileSize = file.size();
        data.modified = file.lastModified();
    }
    static thread_local Library library;
    FT_Face raw = nullptr;
    const QByteArray name = QFile::encodeName(path);
    if (!library.handle || !file.isFile() || index < 0 || FT_New_Face(library.handle, name.constData(), index, &raw) != 0)
        return data;
    std::unique_ptr<FT_FaceRec_, FaceDeleter> face(raw);
    data.opened = true;
    data.format = formatOf(raw, index, path);
    data.freeTypeFamily = QString::fromUtf8(raw->family_name ? raw->family_name : "");
    data.freeTypeStyle = QString::fromUtf8(raw->style_name ? raw->style_name : "");
    data.italic = (raw->style_flags & FT_STYLE_FLAG_ITALIC) != 0;
    data.glyphCount = int(raw->num_glyphs);
    if (FT_IS_SFNT(raw)) {
        readFixedTables(raw, data);
        std::unique_ptr<hb_face_t, HbFaceDeleter> hbFace(hb_ft_face_create_referenced(raw));
        readNames(hbFace.get(), data);
        readFeatures(hbFace.get(), data);
        readAxes(hbFace.get(), raw, data);
    } else {
        if (FT_IS_SCALABLE(raw))
            data.unitsPerEm = raw->units_per_EM;
        readPostScriptInfo(raw, data);
    }
    measureHeights(raw, data);
    return data;
}

} // namespace FaceTables
