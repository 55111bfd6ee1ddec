// The live sample's renderer on its own: glyphs and advances as HarfBuzz shapes them
// (features and variation axes included), the picture it draws, lines, bitmap, Type 1
// and collection faces, and files or requests that give nothing.
#include "fontfile/samplerenderer.h"
#include "support/fontfiles.h"
#include "support/sfntwriter.h"
#include "support/testsupport.h"

#include <QTemporaryDir>
#include <hb-ot.h>
#include <hb.h>

namespace {

struct Shaped {
    QList<unsigned> ids;
    QList<double> advances; // pixels
};

// HarfBuzz on its own, with its OpenType functions, as a reference.
Shaped reference(const QString& path, int index, const QString& text, double pixels, const QByteArray& features = {},
                 const QByteArray& variations = {})
{
    hb_blob_t* blob = hb_blob_create_from_file(QFile::encodeName(path).constData());
    hb_face_t* face = hb_face_create(blob, unsigned(index));
    hb_font_t* font = hb_font_create(face);
    const int scale = int(std::lround(pixels * 64));
    hb_font_set_scale(font, scale, scale);
    std::vector<hb_variation_t> axes;
    for (const QByteArray& v : variations.split(',')) {
        hb_variation_t variation;
        if (!v.isEmpty() && hb_variation_from_string(v.constData(), int(v.size()), &variation))
            axes.push_back(variation);
    }
    hb_font_set_variations(font, axes.data(), unsigned(axes.size()));
    std::vector<hb_feature_t> feats;
    for (const QByteArray& f : features.split(',')) {
        hb_feature_t feature;
        if (!f.isEmpty() && hb_feature_from_string(f.constData(), int(f.size()), &feature))
            feats.push_back(feature);
    }
    hb_buffer_t* buffer = hb_buffer_create();
    const QByteArray utf8 = text.toUtf8();
    hb_buffer_add_utf8(buffer, utf8.constData(), int(utf8.size()), 0, int(utf8.size()));
    hb_buffer_guess_segment_properties(buffer);
    hb_shape(font, buffer, feats.data(), unsigned(feats.size()));
    unsigned count = 0;
    const hb_glyph_info_t* info = hb_buffer_get_glyph_infos(buffer, &count);
    const hb_glyph_position_t* pos = hb_buffer_get_glyph_positions(buffer, &count);
    Shaped shaped;
    for (unsigned i = 0; i < count; ++i) {
        shaped.ids << info[i].codepoint;
        shaped.advances << pos[i].x_advance / 64.0;
    }
    hb_buffer_destroy(buffer);
    hb_font_destroy(font);
    hb_face_destroy(face);
    hb_blob_destroy(blob);
    return shaped;
}

QList<unsigned> idsOf(const SampleRenderer::Result& result)
{
    QList<unsigned> ids;
    for (const auto& glyph : result.glyphs)
        ids << glyph.id;
    return ids;
}

QList<double> advancesOf(const SampleRenderer::Result& result)
{
    QList<double> advances;
    for (const auto& glyph : result.glyphs)
        advances << glyph.advance;
    return advances;
}

bool closeTo(const QList<double>& a, const QList<double>& b, double tolerance)
{
    if (a.size() != b.size())
        return false;
    for (qsizetype i = 0; i < a.size(); ++i)
        if (std::abs(a[i] - b[i]) > tolerance)
            return false;
    return true;
}

int inkPixels(const QImage& image, QRgb background)
{
    int ink = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (image.pixel(x, y) != background)
                ++ink;
    return ink;
}

SampleRenderer::Request request(const QString& file, const QString& text, double pixels, int index = 0)
{
    SampleRenderer::Request r;
    r.file = file;
    r.faceIndex = index;
    r.text = text;
    r.pixelSize = pixels;
    return r;
}

} // namespace

class TestSampleRenderer : public QObject {
    Q_OBJECT
private:
    QTemporaryDir m_dir;

private Q_SLOTS:
    void initTestCase()
    {
        for (const QString& file : {FontFiles::dejaVuSans(), FontFiles::pagella(), FontFiles::interVariable(),
                                    FontFiles::nimbusSansType1(), FontFiles::notoSansCjk()})
            QVERIFY2(!file.isEmpty(), "a font package of scripts/install-deps.sh is missing");
    }

    void shapesAsHarfBuzzDoes()
    {
        SampleRenderer renderer;
        const auto result = renderer.render(request(FontFiles::dejaVuSans(), QStringLiteral("Abc 123 office"), 48));
        QVERIFY(result.ok);
        const Shaped expected = reference(FontFiles::dejaVuSans(), 0, QStringLiteral("Abc 123 office"), 48);
        QCOMPARE(idsOf(result), expected.ids);
        QVERIFY(closeTo(advancesOf(result), expected.advances, 0.05));
        // Glyphs follow one another by their advances.
        for (int i = 1; i < result.glyphs.size(); ++i)
            QCOMPARE(result.glyphs[i].origin.x(), result.glyphs[i - 1].origin.x() + result.glyphs[i - 1].advance);
    }

    void featuresChangeGlyphsAsHarfBuzzDoes_data()
    {
        QTest::addColumn<QByteArray>("feature");
        QTest::newRow("smcp") << QByteArray("smcp");
        QTest::newRow("onum") << QByteArray("onum");
    }

    void featuresChangeGlyphsAsHarfBuzzDoes()
    {
        QFETCH(QByteArray, feature);
        const QString text = QStringLiteral("Abc 123");
        SampleRenderer renderer;
        auto r = request(FontFiles::pagella(), text, 48);
        const QList<unsigned> plain = idsOf(renderer.render(r));
        r.features = {{feature, 1}};
        const QList<unsigned> with = idsOf(renderer.render(r));
        QCOMPARE(plain, reference(FontFiles::pagella(), 0, text, 48).ids);
        QCOMPARE(with, reference(FontFiles::pagella(), 0, text, 48, feature).ids);
        QVERIFY(with != plain);
        r.features = {{feature, 0}};
        QCOMPARE(idsOf(renderer.render(r)), plain);
    }

    void defaultFeaturesTurnOff()
    {
        SampleRenderer renderer;
        auto r = request(FontFiles::pagella(), QStringLiteral("office"), 48);
        const int ligated = int(renderer.render(r).glyphs.size());
        r.features = {{"liga", 0}};
        const auto apart = renderer.render(r);
        QCOMPARE(apart.glyphs.size(), 6);
        QVERIFY(ligated < 6);
        QCOMPARE(idsOf(apart), reference(FontFiles::pagella(), 0, QStringLiteral("office"), 48, "-liga").ids);
    }

    void weightAxisChangesAdvances()
    {
        const QString text = QStringLiteral("Abc 123");
        SampleRenderer renderer;
        auto r = request(FontFiles::interVariable(), text, 48);
        r.axes = {{"wght", 100}};
        const auto thin = renderer.render(r);
        r.axes = {{"wght", 900}};
        const auto black = renderer.render(r);
        QVERIFY(black.width > thin.width * 1.05);
        QVERIFY(closeTo(advancesOf(thin), reference(FontFiles::interVariable(), 0, text, 48, {}, "wght=100").advances, 0.1));
        QVERIFY(closeTo(advancesOf(black), reference(FontFiles::interVariable(), 0, text, 48, {}, "wght=900").advances, 0.1));
        // Out of range values are held at the axis' ends.
        r.axes = {{"wght", 5000}};
        QCOMPARE(advancesOf(renderer.render(r)), advancesOf(black));
        // Thicker strokes put more ink in the picture.
        QVERIFY(inkPixels(black.image, qRgb(255, 255, 255)) > inkPixels(thin.image, qRgb(255, 255, 255)) * 1.5);
    }

    void namedInstanceIndexOpensAtItsCoordinates()
    {
        // Named instance 13 of Inter.var.ttf (counted from 1, as fontconfig and FreeType do) is "Bold" (700, 0).
        const QString text = QStringLiteral("Abc 123");
        SampleRenderer renderer;
        const auto bold = renderer.render(request(FontFiles::interVariable(), text, 48, 13 << 16));
        QVERIFY(bold.ok);
        auto r = request(FontFiles::interVariable(), text, 48);
        r.axes = {{"wght", 700}, {"slnt", 0}};
        QCOMPARE(advancesOf(bold), advancesOf(renderer.render(r)));
        r.axes.clear();
        QVERIFY(advancesOf(bold) != advancesOf(renderer.render(r)));
    }

    void drawsLinesIntoAPicture()
    {
        SampleRenderer renderer;
        auto r = request(FontFiles::dejaVuSans(), QStringLiteral("Ab\r\ncd\nef\rgh"), 20);
        r.foreground = QColor(200, 0, 0);
        r.background = QColor(0, 0, 255);
        r.margin = 5;
        const auto result = renderer.render(r);
        QCOMPARE(result.glyphs.size(), 8);
        for (int i = 0; i < 8; ++i)
            QCOMPARE(result.glyphs[i].line, i / 2);
        QVERIFY(result.lineHeight >= result.ascent + result.descent);
        QCOMPARE(result.glyphs[0].origin, QPointF(5, 5 + result.ascent));
        QCOMPARE(result.glyphs[6].origin.y(), 5 + result.ascent + 3 * result.lineHeight);
        QVERIFY(result.image.width() >= int(result.width) + 10);
        QVERIFY(result.image.height() >= int(3 * result.lineHeight + result.ascent + result.descent));
        QCOMPARE(result.image.pixel(0, 0), qRgb(0, 0, 255));
        bool red = false;
        for (int y = 0; y < result.image.height() && !red; ++y)
            for (int x = 0; x < result.image.width() && !red; ++x)
                red = result.image.pixel(x, y) == qRgb(200, 0, 0);
        QVERIFY(red);
    }

    void shapesWithoutDrawing()
    {
        SampleRenderer renderer;
        auto r = request(FontFiles::dejaVuSans(), QStringLiteral("Abc"), 30);
        r.draw = false;
        const auto result = renderer.render(r);
        QVERIFY(result.ok);
        QVERIFY(result.image.isNull());
        QCOMPARE(result.glyphs.size(), 3);
    }

    void bitmapType1AndCollectionFaces()
    {
        const QString bdf = m_dir.filePath(QStringLiteral("bitmap.bdf"));
        QVERIFY(Sfnt::writeFile(bdf, FontFiles::bdf(QStringLiteral("Glyphora Bitmap"))));
        SampleRenderer renderer;
        const auto bitmap = renderer.render(request(bdf, QStringLiteral("AxA"), 32));
        QVERIFY(bitmap.ok);
        QCOMPARE(bitmap.glyphs.size(), 3);
        QVERIFY(bitmap.glyphs[0].id != 0 && bitmap.glyphs[1].id != 0);
        QCOMPARE(bitmap.glyphs[1].advance, 16.0); // the 16-pixel strike drawn at 32 pixels
        QVERIFY(inkPixels(bitmap.image, qRgb(255, 255, 255)) > 0);

        const auto type1 = renderer.render(request(FontFiles::nimbusSansType1(), QStringLiteral("Abc"), 40));
        QVERIFY(type1.ok);
        QVERIFY(!idsOf(type1).contains(0u));
        QVERIFY(inkPixels(type1.image, qRgb(255, 255, 255)) > 0);

        const auto cjk = renderer.render(request(FontFiles::notoSansCjk(), QString::fromUtf8("永A"), 40, 2));
        QVERIFY(cjk.ok);
        QCOMPARE(idsOf(cjk), reference(FontFiles::notoSansCjk(), 2, QString::fromUtf8("永A"), 40).ids);
        QVERIFY(!idsOf(cjk).contains(0u));
    }

    void filesAndRequestsThatGiveNothing()
    {
        const QString garbage = m_dir.filePath(QStringLiteral("garbage.ttf"));
        QVERIFY(Sfnt::writeFile(garbage, QByteArray(5000, 'x')));
        const QString truncated = m_dir.filePath(QStringLiteral("truncated.ttf"));
        QVERIFY(Sfnt::writeFile(truncated, Sfnt::readFile(FontFiles::dejaVuSans()).left(300)));
        SampleRenderer renderer;
        for (const QString& file : {garbage, truncated, m_dir.filePath(QStringLiteral("absent.ttf")), m_dir.path()}) {
            const auto result = renderer.render(request(file, QStringLiteral("Abc"), 20));
            QVERIFY2(!result.ok && result.image.isNull() && result.glyphs.isEmpty(), qPrintable(file));
        }
        for (int index : {-1, 1, 7 << 16})
            QVERIFY(!renderer.render(request(FontFiles::dejaVuSans(), QStringLiteral("Abc"), 20, index)).ok);
        for (double size : {0.0, -3.0, std::nan("")})
            QVERIFY(!renderer.render(request(FontFiles::dejaVuSans(), QStringLiteral("Abc"), size)).ok);
        // After all that, the renderer still draws.
        QVERIFY(renderer.render(request(FontFiles::dejaVuSans(), QStringLiteral("Abc"), 20)).ok);
    }

    void hugeTextStaysBounded()
    {
        SampleRenderer renderer;
        auto r = request(FontFiles::dejaVuSans(), QString(100000, QLatin1Char('W')) + QStringLiteral("\n")
                                                      + QStringLiteral("x\n").repeated(20000), 24);
        r.maximumSize = QSize(800, 600);
        const auto result = renderer.render(r);
        QVERIFY(result.ok);
        QCOMPARE(result.image.size(), QSize(800, 600));
        int firstLine = 0, lines = 0;
        for (const auto& glyph : result.glyphs) {
            firstLine += glyph.line == 0;
            lines = std::max(lines, glyph.line + 1);
        }
        QCOMPARE(firstLine, SampleRenderer::maximumLineLength);
        QVERIFY(lines * result.lineHeight < 600 + 2 * result.lineHeight);
    }
};

GLYPHORA_TEST_MAIN(TestSampleRenderer)
#include "test_samplerenderer.moc"
