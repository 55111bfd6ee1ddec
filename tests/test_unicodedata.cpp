// The Unicode table's widget-free units: a face's coverage (checked against
// fontconfig's own reading), blocks and their counts, cell lists, the name index,
// search parsing in every code form, and the copy formats.
#include "samples/unicodeblocks.h"
#include "samples/unicodecoverage.h"
#include "samples/unicodeformats.h"
#include "samples/unicodenames.h"
#include "samples/unicodesearch.h"
#include "support/sfntwriter.h"
#include "support/testsupport.h"

#include <QProcess>
#include <QTemporaryDir>

namespace {

using Codes = std::vector<char32_t>;

// fontconfig's charset of a face, "20-7e a0-17f ...", as a list of code points.
Codes fcCharset(const FontSystem::FaceFile& face)
{
    QProcess query;
    query.start(QStringLiteral("fc-query"), {QStringLiteral("-i"), QString::number(face.index),
                                             QStringLiteral("--format"), QStringLiteral("%{charset}"), face.path});
    query.waitForFinished(30000);
    Codes codes;
    const QString text = QString::fromLatin1(query.readAllStandardOutput());
    for (const QString& range : text.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
        const QStringList ends = range.split(QLatin1Char('-'));
        const uint first = ends.first().toUInt(nullptr, 16);
        const uint last = ends.last().toUInt(nullptr, 16);
        for (uint code = first; code <= last; ++code)
            codes.push_back(char32_t(code));
    }
    return codes;
}

// A font with DejaVu Sans' outlines that maps exactly these five code points.
const QList<QPair<char32_t, quint16>> fiveCodes = {
    {0x41, 36}, {0x42, 37}, {0xE9, 38}, {0x20AC, 39}, {0x20B9, 40}};

QString fiveCodesFont(const QTemporaryDir& dir)
{
    const QString path = dir.filePath(QStringLiteral("cinq.ttf"));
    const QByteArray base = Sfnt::drawable(Sfnt::familyNames(QStringLiteral("Glyphora Cinq")));
    Sfnt::writeFile(path, Sfnt::withTable(base, "cmap", Sfnt::cmap(fiveCodes)));
    return path;
}

QStringList entries(const Codes& codes)
{
    QStringList texts;
    for (const auto& covered : UnicodeBlocks::coverage(codes))
        texts << UnicodeBlocks::entryText(covered);
    return texts;
}

} // namespace

class TestUnicodeData : public QObject {
    Q_OBJECT
private:
    QTemporaryDir m_dir;

private Q_SLOTS:
    void coverageOfDejaVuSansIsFontconfigsCharset()
    {
        const auto face = FontSystem::familyFace(QStringLiteral("DejaVu Sans"), false, false);
        QVERIFY(face);
        QVERIFY(face->path.endsWith(QStringLiteral("DejaVuSans.ttf")));
        const UnicodeCoverage coverage = UnicodeCoverage::ofFace(*face);
        const Codes expected = fcCharset(*face);
        QVERIFY(expected.size() > 5000);
        QCOMPARE(coverage.codes().size(), expected.size());
        QVERIFY(coverage.codes() == expected);
    }

    void aSymbolCharacterMapReadsAsFontconfigReadsIt()
    {
        const QString path = m_dir.filePath(QStringLiteral("symbole.ttf"));
        QVERIFY(Sfnt::writeFile(path, Sfnt::withSymbolCmap(Sfnt::drawable(Sfnt::familyNames(QStringLiteral("Glyphora Symbole"))))));
        // DejaVu keeps a Unicode map (0, 3) beside it: that one is read.
        const UnicodeCoverage coverage = UnicodeCoverage::ofFace({path, 0});
        QVERIFY(coverage.contains(0x41));
        QVERIFY(!coverage.contains(0));
        QVERIFY(coverage.codes() == fcCharset({path, 0}));

        // With only a symbol map, its U+F0xx also stand for U+00xx.
        QByteArray cmap = Sfnt::cmap({{0xF041, 36}, {0xF042, 37}, {0xF0E9, 38}});
        cmap[3] = 1; // one record: the first, (3, 1) ...
        cmap[7] = 0; // ... made (3, 0)
        const QString only = m_dir.filePath(QStringLiteral("symbole-seul.ttf"));
        const QByteArray base = Sfnt::drawable(Sfnt::familyNames(QStringLiteral("Glyphora Symbole Seul")));
        QVERIFY(Sfnt::writeFile(only, Sfnt::withTable(base, "cmap", cmap)));
        const UnicodeCoverage symbol = UnicodeCoverage::ofFace({only, 0});
        QVERIFY(symbol.codes() == (Codes{0x41, 0x42, 0xE9, 0xF041, 0xF042, 0xF0E9}));
        QVERIFY(symbol.codes() == fcCharset({only, 0}));
    }

    void boldAndCollectionsPickTheirFace()
    {
        const auto bold = FontSystem::familyFace(QStringLiteral("DejaVu Sans"), true, false);
        QVERIFY(bold && bold->path.endsWith(QStringLiteral("DejaVuSans-Bold.ttf")));
        // A face inside a collection is read at its own index.
        const auto korean = FontSystem::familyFace(QStringLiteral("Noto Sans CJK KR"), false, false);
        QVERIFY(korean);
        QVERIFY(korean->path.endsWith(QStringLiteral(".ttc")));
        QCOMPARE(korean->index, 1);
        const UnicodeCoverage coverage = UnicodeCoverage::ofFace(*korean);
        QVERIFY(coverage.codes() == fcCharset(*korean));
        QVERIFY(coverage.contains(0xAC00)); // HANGUL SYLLABLE GA
        QVERIFY(coverage.contains(0x1F229)); // SQUARED CJK UNIFIED IDEOGRAPH-4E00, beyond the BMP
        // An unknown family is no face at all, not fontconfig's substitute.
        QVERIFY(!UnicodeCoverage::ofFamily(QStringLiteral("Glyphora Absente"), false, false).hasFace());
    }

    void supplementaryPlanes()
    {
        const UnicodeCoverage math = UnicodeCoverage::ofFamily(QStringLiteral("DejaVu Math TeX Gyre"), false, false);
        QVERIFY(math.hasFace());
        QVERIFY(math.contains(0x1D400)); // MATHEMATICAL BOLD CAPITAL A
        QVERIFY(math.codes() == fcCharset(math.face()));
        const auto blocks = UnicodeBlocks::coverage(math.codes());
        const auto alphanumerics = std::find_if(blocks.begin(), blocks.end(), [](const auto& covered) {
            return covered.block->first == 0x1D400;
        });
        QVERIFY(alphanumerics != blocks.end());
        QVERIFY(UnicodeBlocks::entryText(*alphanumerics)
                    .startsWith(QStringLiteral("U+1D400 Symboles mathématiques alphanumériques ")));
    }

    void fiveCodePointsInThreeBlocks()
    {
        const UnicodeCoverage coverage = UnicodeCoverage::ofFace({fiveCodesFont(m_dir), 0});
        QVERIFY(coverage.codes() == (Codes{0x41, 0x42, 0xE9, 0x20AC, 0x20B9}));
        QCOMPARE(entries(coverage.codes()),
                 (QStringList{QStringLiteral("U+0000 Latin de base 2/128"),
                              QStringLiteral("U+0080 Supplément Latin-1 1/128"),
                              QStringLiteral("U+20A0 Symboles monétaires 2/33")}));
        const auto cells = coverage.cells(false);
        QCOMPARE(cells.size(), std::size_t(5));
        QVERIFY(std::all_of(cells.begin(), cells.end(), [](const CharacterCell& c) { return c.present; }));
        // With the holes: every assigned character of the three blocks, five of them present.
        const auto withHoles = coverage.cells(true);
        QCOMPARE(withHoles.size(), std::size_t(128 + 128 + 33));
        QCOMPARE(std::count_if(withHoles.begin(), withHoles.end(), [](const CharacterCell& c) { return c.present; }), 5);
        QCOMPARE(withHoles[0x41].code, char32_t(0x41));
        QVERIFY(withHoles[0x41].present);
        QVERIFY(!withHoles[0x43].present);
        QCOMPARE(withHoles.back().code, char32_t(0x20C0));
        // A search keeps the font's own matches, or all of them "hors de la police".
        const Codes matches{0x42, 0x43, 0x20AC};
        QCOMPARE(coverage.cellsOf(matches, false).size(), std::size_t(2));
        const auto outside = coverage.cellsOf(matches, true);
        QCOMPARE(outside.size(), std::size_t(3));
        QVERIFY(!outside[1].present);
    }

    void blockTable()
    {
        const auto& blocks = UnicodeBlocks::all();
        QVERIFY(blocks.size() > 300);
        const UnicodeBlocks::Block* greek = UnicodeBlocks::blockOf(0x3A9);
        QVERIFY(greek);
        QCOMPARE(uint(greek->first), 0x370u);
        QCOMPARE(uint(greek->last), 0x3FFu);
        QCOMPARE(greek->assigned, 135);
        QCOMPARE(greek->englishName, QStringLiteral("Greek and Coptic"));
        QCOMPARE(greek->name(), QStringLiteral("Grec et copte"));
        QCOMPARE(UnicodeBlocks::blockOf(0x2190)->name(), QStringLiteral("Flèches"));
        QCOMPARE(UnicodeBlocks::blockOf(0x4E00)->name(), QStringLiteral("Idéogrammes unifiés CJK"));
        // Without a French name, the English one.
        QCOMPARE(UnicodeBlocks::blockOf(0xA500)->name(), QStringLiteral("Vai"));
        QCOMPARE(UnicodeBlocks::blockOf(0x10400)->name(), QStringLiteral("Deseret"));
        QVERIFY(!UnicodeBlocks::blockOf(0x2FE0)); // between two blocks
        for (std::size_t i = 1; i < blocks.size(); ++i)
            QVERIFY(blocks[i - 1].last < blocks[i].first);
    }

    void copyFormats_data()
    {
        QTest::addColumn<uint>("code");
        QTest::addColumn<QString>("character");
        QTest::addColumn<QString>("uplus");
        QTest::addColumn<QString>("numeric");
        QTest::addColumn<QString>("entity");
        QTest::addColumn<QString>("escapes");
        QTest::addColumn<QString>("utf16");
        QTest::newRow("euro") << 0x20ACu << QStringLiteral("€") << QStringLiteral("U+20AC") << QStringLiteral("&#8364;")
                              << QStringLiteral("&euro;") << QStringLiteral("\\xE2\\x82\\xAC") << QStringLiteral("20AC");
        QTest::newRow("e acute") << 0xE9u << QStringLiteral("é") << QStringLiteral("U+00E9") << QStringLiteral("&#233;")
                                 << QStringLiteral("&eacute;") << QStringLiteral("\\xC3\\xA9") << QStringLiteral("00E9");
        QTest::newRow("bold A") << 0x1D400u << QString::fromUcs4(U"\U0001D400", 1) << QStringLiteral("U+1D400")
                                << QStringLiteral("&#119808;") << QStringLiteral("&#119808;")
                                << QStringLiteral("\\xF0\\x9D\\x90\\x80") << QStringLiteral("D835 DC00");
        QTest::newRow("less than") << 0x3Cu << QStringLiteral("<") << QStringLiteral("U+003C") << QStringLiteral("&#60;")
                                   << QStringLiteral("&lt;") << QStringLiteral("\\x3C") << QStringLiteral("003C");
    }

    void copyFormats()
    {
        QFETCH(uint, code);
        const char32_t c = char32_t(code);
        QTEST(UnicodeFormats::characterText(c), "character");
        QTEST(UnicodeFormats::uPlusCode(c), "uplus");
        QTEST(UnicodeFormats::numericEntity(c), "numeric");
        QTEST(UnicodeFormats::htmlEntity(c), "entity");
        QTEST(UnicodeFormats::utf8Escapes(c), "escapes");
        QTEST(UnicodeFormats::utf16Units(c), "utf16");
    }

    void characterProperties()
    {
        QCOMPARE(UnicodeFormats::characterName(0xE9), QStringLiteral("LATIN SMALL LETTER E WITH ACUTE"));
        QCOMPARE(UnicodeFormats::characterName(0x1D400), QStringLiteral("MATHEMATICAL BOLD CAPITAL A"));
        QCOMPARE(UnicodeFormats::characterName(0x0A), QStringLiteral("<control-000A>"));
        QCOMPARE(UnicodeFormats::utf8Bytes(0x20AC), QStringLiteral("E2 82 AC"));
        QCOMPARE(UnicodeFormats::decimalText(0x1D400), QStringLiteral("119808"));
        QCOMPARE(UnicodeFormats::categoryLabel(0xE9), QStringLiteral("Lettre minuscule (Ll)"));
        QCOMPARE(UnicodeFormats::categoryLabel(0x1D400), QStringLiteral("Lettre majuscule (Lu)"));
        QCOMPARE(UnicodeFormats::categoryLabel(0x20AC), QStringLiteral("Symbole monétaire (Sc)"));
        QCOMPARE(UnicodeFormats::scriptName(0xE9), QStringLiteral("Latine"));
        QCOMPARE(UnicodeFormats::scriptName(0x1D400), QStringLiteral("Commune"));
        QCOMPARE(UnicodeFormats::scriptName(0x10400), QStringLiteral("Deseret"));
        QCOMPARE(UnicodeFormats::codeOfEntityName(QStringLiteral("euro")), 0x20AC);
        QCOMPARE(UnicodeFormats::codeOfEntityName(QStringLiteral("nosuchname")), -1);
    }

    void searchCodeForms_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<uint>("code");
        QTest::addColumn<bool>("alsoWords");
        for (const char* form : {"U+20AC", "u+20ac", "0x20AC", "&#8364;", "&#x20AC;", "&euro;", "\\u20AC",
                                 "\\x{20AC}", "\\xE2\\x82\\xAC", "  U+20AC  "})
            QTest::newRow(form) << QString::fromLatin1(form) << 0x20ACu << false;
        QTest::newRow("bare hex") << QStringLiteral("20ac") << 0x20ACu << true;
        QTest::newRow("pasted") << QStringLiteral("€") << 0x20ACu << false;
        QTest::newRow("pasted e acute") << QStringLiteral("é") << 0xE9u << false;
        QTest::newRow("pasted supplementary") << QString::fromUcs4(U"\U0001D400", 1) << 0x1D400u << false;
        QTest::newRow("one letter") << QStringLiteral("a") << 0x61u << false;
        QTest::newRow("supplementary code") << QStringLiteral("U+1D400") << 0x1D400u << false;
    }

    void searchCodeForms()
    {
        QFETCH(QString, text);
        QFETCH(uint, code);
        QFETCH(bool, alsoWords);
        const UnicodeSearch::Query query = UnicodeSearch::parse(text);
        QCOMPARE(query.codes.size(), std::size_t(1));
        QCOMPARE(uint(query.codes.front()), code);
        QCOMPARE(!query.words.isEmpty(), alsoWords);
    }

    void searchWordsAndNonsense()
    {
        QCOMPARE(UnicodeSearch::parse(QStringLiteral("Greek small alpha TONOS")).words,
                 (QStringList{QStringLiteral("Greek"), QStringLiteral("small"), QStringLiteral("alpha"), QStringLiteral("TONOS")}));
        QCOMPARE(UnicodeSearch::parse(QStringLiteral("per-mille")).words,
                 (QStringList{QStringLiteral("per"), QStringLiteral("mille")}));
        QVERIFY(UnicodeSearch::parse(QStringLiteral("arrow")).codes.empty());
        // Codes outside Unicode, surrogates, unknown names and broken UTF-8 give no code.
        for (const char* bad : {"U+110000", "U+D800", "&#99999999;", "&nosuch;", "\\xFF\\xFE", "\\xE2\\x82"})
            QVERIFY2(UnicodeSearch::parse(QString::fromLatin1(bad)).codes.empty(), bad);
        QVERIFY(UnicodeSearch::parse(QString()).codes.empty());
        // Pasted characters, several at once.
        QVERIFY(UnicodeSearch::parse(QStringLiteral("€é")).codes == (Codes{0x20AC, 0xE9}));
    }

    void nameIndex()
    {
        const auto index = NameIndex::build();
        QVERIFY(index->wordCount() > 10000);
        const Codes perMille = index->find({QStringLiteral("per"), QStringLiteral("mille")});
        QVERIFY(std::find(perMille.begin(), perMille.end(), 0x2030) != perMille.end());
        QVERIFY(index->find({QStringLiteral("greek"), QStringLiteral("small"), QStringLiteral("alpha"),
                             QStringLiteral("tonos")}) == Codes{0x3AC});
        const Codes arrows = index->find({QStringLiteral("arrow")});
        QVERIFY(arrows.size() > 500);
        QVERIFY(std::is_sorted(arrows.begin(), arrows.end()));
        QVERIFY(std::find(arrows.begin(), arrows.end(), 0x2192) != arrows.end());
        QVERIFY(index->find({QStringLiteral("zzzqqq")}).empty());
        QVERIFY(index->find({QStringLiteral("flèche")}).empty());
        // The hexadecimal ending of algorithmic names is no word.
        QVERIFY(index->find({QStringLiteral("4E00")}) == Codes{0x1F229}); // SQUARED CJK UNIFIED IDEOGRAPH-4E00
        QVERIFY(index->find({QStringLiteral("ideograph")}).size() > 80000);
        // The search merges codes and names.
        const UnicodeSearch::Query query = UnicodeSearch::parse(QStringLiteral("euro 20ac"));
        QVERIFY(UnicodeSearch::matches(query, index.get()) == Codes{0x20AC});
        QVERIFY(UnicodeSearch::matches(UnicodeSearch::parse(QStringLiteral("euro")), nullptr).empty());
    }

    void theLoaderBuildsOnceInTheBackground()
    {
        NameIndexLoader* loader = NameIndexLoader::instance();
        QSignalSpy ready(loader, &NameIndexLoader::ready);
        loader->request();
        loader->request();
        QVERIFY(TestSupport::waitFor([&] { return loader->index() != nullptr; }));
        QCOMPARE(ready.count(), 1);
    }
};

GLYPHORA_TEST_MAIN(TestUnicodeData)
#include "test_unicodedata.moc"
