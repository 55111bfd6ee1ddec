// What the details window reads from a face: DejaVu Sans field by field against the
// file's own bytes, hand-made fonts with an OS/2 table of version 0, without OS/2 or
// without names, French names, a Type 1 face, a collection face, a bitmap font, the
// feature list of TeX Gyre Pagella and the axes and instances of Inter.
#include "fontfile/facetables.h"
#include "support/fontfiles.h"
#include "support/sfntwriter.h"
#include "support/testsupport.h"

#include <QFileInfo>
#include <QTemporaryDir>
#include <hb-ot.h>
#include <hb.h>

#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_OUTLINE_H

namespace {

int u16(const QByteArray& t, int at) { return (quint8(t[at]) << 8) | quint8(t[at + 1]); }
int i16(const QByteArray& t, int at) { return qint16(u16(t, at)); }
quint32 u32(const QByteArray& t, int at) { return (quint32(u16(t, at)) << 16) | quint32(u16(t, at + 2)); }

// The Microsoft English string of a name ID, decoded here from the name table's bytes.
QString englishName(const QByteArray& name, int id)
{
    const int count = u16(name, 2), storage = u16(name, 4);
    for (int i = 0; i < count; ++i) {
        const int r = 6 + 12 * i;
        if (u16(name, r) == 3 && u16(name, r + 4) == 0x409 && u16(name, r + 6) == id) {
            const QByteArray bytes = name.mid(storage + u16(name, r + 10), u16(name, r + 8));
            QString text;
            for (int c = 0; c + 1 < bytes.size(); c += 2)
                text += QChar(u16(bytes, c));
            return text;
        }
    }
    return QString();
}

// The top of a glyph's outline in font units, measured with FreeType here.
int outlineTop(const QString& path, char character)
{
    FT_Library library;
    FT_Init_FreeType(&library);
    FT_Face face;
    FT_New_Face(library, QFile::encodeName(path).constData(), 0, &face);
    FT_Load_Char(face, FT_ULong(character), FT_LOAD_NO_SCALE);
    FT_BBox box;
    FT_Outline_Get_CBox(&face->glyph->outline, &box);
    const int top = int(box.yMax);
    FT_Done_Face(face);
    FT_Done_FreeType(library);
    return top;
}

QSet<QByteArray> harfBuzzFeatureTags(const QString& path)
{
    hb_blob_t* blob = hb_blob_create_from_file(QFile::encodeName(path).constData());
    hb_face_t* face = hb_face_create(blob, 0);
    QSet<QByteArray> tags;
    for (hb_tag_t table : {HB_OT_TAG_GSUB, HB_OT_TAG_GPOS}) {
        hb_tag_t list[512];
        unsigned count = 512;
        hb_ot_layout_table_get_feature_tags(face, table, 0, &count, list);
        for (unsigned i = 0; i < count; ++i) {
            char text[4];
            hb_tag_to_string(list[i], text);
            tags.insert(QByteArray(text, 4));
        }
    }
    hb_face_destroy(face);
    hb_blob_destroy(blob);
    return tags;
}

QSet<QByteArray> tagsOf(const FaceTables::FaceData& data)
{
    QSet<QByteArray> tags;
    for (const auto& feature : data.features)
        tags.insert(feature.tag);
    return tags;
}

} // namespace

class TestFaceTables : public QObject {
    Q_OBJECT
private:
    QTemporaryDir m_dir;

    QString write(const QString& name, const QByteArray& bytes)
    {
        const QString path = m_dir.filePath(name);
        return Sfnt::writeFile(path, bytes) ? path : QString();
    }

private Q_SLOTS:
    void dejaVuSansFieldByField()
    {
        const QString path = FontFiles::dejaVuSans();
        const QByteArray file = Sfnt::readFile(path);
        const QByteArray os2 = Sfnt::tableOf(file, "OS/2"), hhea = Sfnt::tableOf(file, "hhea");
        const QByteArray post = Sfnt::tableOf(file, "post"), name = Sfnt::tableOf(file, "name");
        const auto data = FaceTables::read(path, 0);
        QVERIFY(data.opened);
        QCOMPARE(data.format, QStringLiteral("TrueType"));
        QCOMPARE(data.unitsPerEm, u16(Sfnt::tableOf(file, "head"), 18));
        QCOMPARE(data.hheaAscender, i16(hhea, 4));
        QCOMPARE(data.hheaDescender, i16(hhea, 6));
        QCOMPARE(data.hheaLineGap, i16(hhea, 8));
        QCOMPARE(data.os2Version, u16(os2, 0));
        QCOMPARE(data.weightClass, u16(os2, 4));
        QCOMPARE(data.widthClass, u16(os2, 6));
        QCOMPARE(data.fsType, quint16(u16(os2, 8)));
        QCOMPARE(data.strikeoutSize, i16(os2, 26));
        QCOMPARE(data.strikeoutPosition, i16(os2, 28));
        for (int i = 0; i < 10; ++i)
            QCOMPARE(int((*data.panose)[size_t(i)]), int(quint8(os2[32 + i])));
        for (int i = 0; i < 4; ++i)
            QCOMPARE((*data.unicodeRanges)[size_t(i)], u32(os2, 42 + 4 * i));
        QCOMPARE(data.vendorId, QString::fromLatin1(os2.mid(58, 4)));
        QCOMPARE(data.useTypoMetrics, (u16(os2, 62) & 0x80) != 0);
        QCOMPARE(data.typoAscender, i16(os2, 68));
        QCOMPARE(data.typoDescender, i16(os2, 70));
        QCOMPARE(data.typoLineGap, i16(os2, 72));
        QCOMPARE(data.winAscent, u16(os2, 74));
        QCOMPARE(data.winDescent, u16(os2, 76));
        QCOMPARE((*data.codePageRanges)[0], u32(os2, 78));
        QCOMPARE((*data.codePageRanges)[1], u32(os2, 82));
        QCOMPARE(data.italicAngle, double(qint32(u32(post, 4))) / 65536.0);
        QCOMPARE(data.underlinePosition, i16(post, 8));
        QCOMPARE(data.underlineThickness, i16(post, 10));
        QCOMPARE(data.glyphCount, u16(Sfnt::tableOf(file, "maxp"), 4));
        // DejaVu's OS/2 is version 1: no heights in it, so they are measured.
        QCOMPARE(u16(os2, 0), 1);
        QCOMPARE(data.xHeight, outlineTop(path, 'x'));
        QVERIFY(data.xHeightMeasured);
        QCOMPARE(data.capHeight, outlineTop(path, 'H'));
        QVERIFY(data.capHeightMeasured);
        for (int id : {0, 1, 2, 3, 4, 5, 6, 7, 8, 11, 13, 14})
            QCOMPARE(data.names.value(id), englishName(name, id));
        QCOMPARE(data.fileSize, QFileInfo(path).size());
        QCOMPARE(data.modified, QFileInfo(path).lastModified());
        QCOMPARE(tagsOf(data), harfBuzzFeatureTags(path));
        QVERIFY(data.axes.isEmpty() && data.instances.isEmpty());
    }

    void os2VersionZeroHasMeasuredHeights()
    {
        Sfnt::Os2Fields fields;
        fields.version = 0;
        fields.fsType = 0x0004;
        const QByteArray font = Sfnt::withTable(Sfnt::drawable(Sfnt::familyNames(QStringLiteral("Glyphora Zero"))),
                                                "OS/2", Sfnt::os2(fields));
        const QString path = write(QStringLiteral("zero.ttf"), font);
        const auto data = FaceTables::read(path, 0);
        QVERIFY(data.opened);
        QCOMPARE(data.os2Version, 0);
        QCOMPARE(data.fsType, quint16(0x0004));
        QCOMPARE(data.typoAscender, 1600);
        QCOMPARE(data.winDescent, 500);
        QVERIFY(!data.codePageRanges);
        QCOMPARE(data.xHeight, outlineTop(path, 'x'));
        QVERIFY(data.xHeightMeasured && data.capHeightMeasured);
        QCOMPARE(data.names.value(FaceTables::Family), QStringLiteral("Glyphora Zero"));
    }

    void os2VersionFourHasItsHeights()
    {
        Sfnt::Os2Fields fields;
        fields.xHeight = 1111;
        fields.capHeight = 1444;
        const QString path = write(QStringLiteral("four.ttf"),
                                   Sfnt::withTable(Sfnt::drawable(Sfnt::familyNames(QStringLiteral("Glyphora Four"))),
                                                   "OS/2", Sfnt::os2(fields)));
        const auto data = FaceTables::read(path, 0);
        QCOMPARE(data.xHeight, 1111);
        QCOMPARE(data.capHeight, 1444);
        QVERIFY(!data.xHeightMeasured && !data.capHeightMeasured);
    }

    void withoutOs2OrNames()
    {
        const QByteArray base = Sfnt::drawable(Sfnt::familyNames(QStringLiteral("Glyphora Sans OS2")));
        const auto noOs2 = FaceTables::read(write(QStringLiteral("noos2.ttf"), Sfnt::withoutTable(base, "OS/2")), 0);
        QVERIFY(noOs2.opened);
        QVERIFY(!noOs2.os2Version && !noOs2.fsType && !noOs2.vendorId && !noOs2.typoAscender && !noOs2.weightClass
                && !noOs2.panose && !noOs2.unicodeRanges && !noOs2.useTypoMetrics);
        QVERIFY(noOs2.hheaAscender && noOs2.unitsPerEm);
        QVERIFY(noOs2.xHeightMeasured && noOs2.capHeightMeasured);

        const auto noNames = FaceTables::read(write(QStringLiteral("nonames.ttf"), Sfnt::renamed(base, {})), 0);
        QVERIFY(noNames.opened);
        QVERIFY(noNames.names.isEmpty());
        QVERIFY(noNames.fsType);
    }

    void frenchNamesWin()
    {
        QList<Sfnt::Name> names = Sfnt::familyNames(QStringLiteral("Glyphora Langues"));
        names << Sfnt::microsoft(13, QStringLiteral("Licence en français"), 0x040C)
              << Sfnt::microsoft(13, QStringLiteral("English licence"), 0x0409)
              << Sfnt::microsoft(10, QStringLiteral("Beschreibung"), 0x0407)
              << Sfnt::microsoft(9, QStringLiteral("Designer"), 0x0409)
              << Sfnt::microsoft(9, QStringLiteral("Dessinateur"), 0x080C); // French of Belgium
        const auto data = FaceTables::read(write(QStringLiteral("langues.ttf"), Sfnt::drawable(names)), 0);
        QCOMPARE(data.names.value(FaceTables::License), QStringLiteral("Licence en français"));
        QCOMPARE(data.names.value(FaceTables::Designer), QStringLiteral("Dessinateur"));
        QCOMPARE(data.names.value(FaceTables::Description), QStringLiteral("Beschreibung")); // the only one
        QCOMPARE(data.names.value(FaceTables::Family), QStringLiteral("Glyphora Langues"));
    }

    void type1Face()
    {
        const auto data = FaceTables::read(FontFiles::nimbusSansType1(), 0);
        QVERIFY(data.opened);
        QCOMPARE(data.format, QStringLiteral("Type 1"));
        QCOMPARE(data.names.value(FaceTables::Family), QStringLiteral("Nimbus Sans"));
        QCOMPARE(data.names.value(FaceTables::PostScriptName), QStringLiteral("NimbusSans-Regular"));
        QVERIFY(!data.names.value(FaceTables::Copyright).isEmpty());
        QCOMPARE(data.unitsPerEm, 1000);
        QVERIFY(data.xHeightMeasured && data.xHeight > 400 && data.xHeight < 600);
        QVERIFY(!data.os2Version && !data.hheaAscender && !data.fsType);
        QVERIFY(data.features.isEmpty() && data.axes.isEmpty());
    }

    void collectionFace()
    {
        FT_Library library;
        FT_Init_FreeType(&library);
        FT_Face face;
        QCOMPARE(FT_New_Face(library, QFile::encodeName(FontFiles::notoSansCjk()).constData(), 2, &face), 0);
        const QString family = QString::fromUtf8(face->family_name);
        const int glyphs = int(face->num_glyphs);
        FT_Done_Face(face);
        FT_Done_FreeType(library);

        const auto data = FaceTables::read(FontFiles::notoSansCjk(), 2);
        QVERIFY(data.opened);
        QCOMPARE(data.format, QStringLiteral("OpenType CFF, collection"));
        QCOMPARE(data.freeTypeFamily, family);
        QCOMPARE(data.glyphCount, glyphs);
        QVERIFY(data.names.value(FaceTables::Family).startsWith(QStringLiteral("Noto Sans")));
        QVERIFY(tagsOf(data).contains("vert"));
        QVERIFY(!FaceTables::read(FontFiles::notoSansCjk(), 1000).opened);
    }

    void bitmapFont()
    {
        const auto data = FaceTables::read(write(QStringLiteral("bitmap.bdf"), FontFiles::bdf(QStringLiteral("Glyphora Bitmap"))), 0);
        QVERIFY(data.opened);
        QCOMPARE(data.format, QStringLiteral("Bitmap (BDF)"));
        QCOMPARE(data.names.value(FaceTables::Family), QStringLiteral("Glyphora Bitmap"));
        QVERIFY(!data.unitsPerEm && !data.xHeight && !data.hheaAscender);
        QVERIFY(data.glyphCount >= 3);
    }

    void featuresOfPagella()
    {
        const auto data = FaceTables::read(FontFiles::pagella(), 0);
        QCOMPARE(data.format, QStringLiteral("OpenType CFF"));
        QCOMPARE(tagsOf(data), harfBuzzFeatureTags(FontFiles::pagella()));
        for (const char* tag : {"smcp", "onum", "liga", "ss01", "kern"})
            QVERIFY2(tagsOf(data).contains(tag), tag);
        QVERIFY(std::is_sorted(data.features.begin(), data.features.end(),
                               [](const auto& a, const auto& b) { return a.tag < b.tag; }));
        for (const auto& feature : data.features) {
            if (feature.tag == "kern")
                QVERIFY(feature.inGpos && !feature.inGsub);
            if (feature.tag == "smcp")
                QVERIFY(feature.inGsub && !feature.inGpos);
        }
    }

    void stylisticSetNames()
    {
        QList<Sfnt::Name> names = Sfnt::familyNames(QStringLiteral("Glyphora Jeux"));
        names << Sfnt::microsoft(256, QStringLiteral("Open digits")) << Sfnt::microsoft(256, QStringLiteral("Chiffres ouverts"), 0x040C);
        const QByteArray font = Sfnt::withTable(Sfnt::withoutTable(Sfnt::drawable(names), "GPOS"), "GSUB",
                                                Sfnt::gsub({{"liga", {}}, {"ss01", 256}, {"smcp", {}}}));
        const auto data = FaceTables::read(write(QStringLiteral("jeux.ttf"), font), 0);
        QCOMPARE(data.features.size(), 3);
        QCOMPARE(data.features[0].tag, QByteArray("liga"));
        QCOMPARE(data.features[2].tag, QByteArray("ss01"));
        QCOMPARE(data.features[2].fontName, QStringLiteral("Chiffres ouverts"));
        QVERIFY(data.features[0].fontName.isEmpty());
    }

    void variableFont()
    {
        const auto data = FaceTables::read(FontFiles::interVariable(), 0);
        QCOMPARE(data.format, QStringLiteral("TrueType, variable"));
        hb_blob_t* blob = hb_blob_create_from_file(QFile::encodeName(FontFiles::interVariable()).constData());
        hb_face_t* face = hb_face_create(blob, 0);
        hb_ot_var_axis_info_t axes[8];
        unsigned count = 8;
        hb_ot_var_get_axis_infos(face, 0, &count, axes);
        QCOMPARE(data.axes.size(), int(count));
        for (unsigned i = 0; i < count; ++i) {
            char tag[4];
            hb_tag_to_string(axes[i].tag, tag);
            QCOMPARE(data.axes[int(i)].tag, QByteArray(tag, 4));
            QCOMPARE(data.axes[int(i)].minimum, double(axes[i].min_value));
            QCOMPARE(data.axes[int(i)].defaultValue, double(axes[i].default_value));
            QCOMPARE(data.axes[int(i)].maximum, double(axes[i].max_value));
        }
        QCOMPARE(data.instances.size(), int(hb_ot_var_get_named_instance_count(face)));
        hb_face_destroy(face);
        hb_blob_destroy(blob);
        QCOMPARE(data.axes[0].tag, QByteArray("wght"));
        QCOMPARE(data.instances.size(), 18);
        QCOMPARE(data.instances[12].name, QStringLiteral("Bold"));
        QCOMPARE(data.instances[12].coordinates, (QList<double>{700, 0}));
        QCOMPARE(data.coordinates, (QList<double>{400, 0})); // the default instance
        // A named instance opens at its coordinates.
        QCOMPARE(FaceTables::read(FontFiles::interVariable(), 13 << 16).coordinates, (QList<double>{700, 0}));
    }

    void filesThatAreNotFonts()
    {
        const QString garbage = write(QStringLiteral("garbage.ttf"), QByteArray(3000, '\x7f'));
        const auto data = FaceTables::read(garbage, 0);
        QVERIFY(!data.opened);
        QCOMPARE(data.fileSize, 3000);
        QVERIFY(!FaceTables::read(m_dir.filePath(QStringLiteral("absent.ttf")), 0).opened);
        QVERIFY(!FaceTables::read(m_dir.path(), 0).opened);
        QVERIFY(!FaceTables::read(FontFiles::dejaVuSans(), -1).opened);
        const QByteArray dejaVu = Sfnt::readFile(FontFiles::dejaVuSans());
        for (qint64 cut : Sfnt::tableBoundaries(dejaVu)) // never more than "not opened"
            FaceTables::read(write(QStringLiteral("cut.ttf"), dejaVu.left(cut)), 0);
    }
};

GLYPHORA_TEST_MAIN(TestFaceTables)
#include "test_facetables.moc"
