// The family index on a private fontconfig configuration (hand-made fonts and DejaVu):
// every name of a family, kinds, fixed pitch, writing systems against fc-list, names a
// face cannot draw; name folding; favourites in the settings.
#include "browser/familyindex.h"
#include "browser/favourites.h"
#include "browser/textfold.h"
#include "browser/writingsystems.h"
#include "support/privatefonts.h"
#include "support/testsupport.h"

using FontKind::Kind;

class TestFamilyIndex : public QObject {
    Q_OBJECT

    FamilyIndex build()
    {
        const FamilyIndex::Snapshot snapshot;
        return FamilyIndex::build(snapshot);
    }

private Q_SLOTS:
    void foldingIgnoresCaseAccentsAndBlanks()
    {
        QCOMPARE(TextFold::fold(u"Éclat"), QStringLiteral("eclat"));
        QCOMPARE(TextFold::fold(u"NOTO Sans JP"), QStringLiteral("noto sans jp"));
        QCOMPARE(TextFold::fold(u"Ｆｕｌｌ"), QStringLiteral("full")); // full-width forms
        QCOMPARE(TextFold::words(u"  NOTO  sans\tJp "), (QStringList{QStringLiteral("noto"), QStringLiteral("sans"), QStringLiteral("jp")}));
        QVERIFY(TextFold::words(u"   ").isEmpty());
        const QString name = TextFold::fold(u"Noto Sans JP");
        QVERIFY(TextFold::containsAll(name, TextFold::words(u"jp noto")));
        QVERIFY(!TextFold::containsAll(name, TextFold::words(u"noto mono")));
        QVERIFY(TextFold::containsAll(TextFold::fold(u"Éclat Test"), TextFold::words(u"e")));
    }

    void everyNameOfAFamily()
    {
        const FamilyIndex index = build();
        const QStringList listed = PrivateFonts::fcFamilies();
        QCOMPARE(index.size(), listed.size());
        for (const QString& name : listed)
            QVERIFY2(index.find(name), qPrintable(name));
        // The two-name family is listed once, under fontconfig's first name, and
        // answers to both.
        const QStringList kaku = PrivateFonts::fcFamilies(QStringLiteral(":family=") + PrivateFonts::japaneseName());
        QCOMPARE(kaku.size(), 1);
        const FamilyIndex::Family* family = index.find(kaku.first());
        QVERIFY(family);
        QVERIFY(family->names.contains(PrivateFonts::twoNameFamily()));
        QVERIFY(family->names.contains(PrivateFonts::japaneseName()));
        QVERIFY(family->folded.contains(QStringLiteral("glyphtest kaku")));
        QVERIFY(family->folded.contains(TextFold::fold(PrivateFonts::japaneseName())));
        QVERIFY(TextFold::containsAll(family->folded, TextFold::words(u"グリフ")));
        QVERIFY(!index.find(kaku.first() == PrivateFonts::twoNameFamily() ? PrivateFonts::japaneseName()
                                                                          : PrivateFonts::twoNameFamily()));
    }

    void kindsAndPitch()
    {
        const FamilyIndex index = build();
        QCOMPARE(index.find(PrivateFonts::serifFamily())->kind, Kind::Serif);
        QCOMPARE(index.find(PrivateFonts::sansFamily())->kind, Kind::SansSerif);
        QCOMPARE(index.find(PrivateFonts::scriptFamily())->kind, Kind::Script);
        QCOMPARE(index.find(PrivateFonts::decorativeFamily())->kind, Kind::Decorative);
        QCOMPARE(index.find(PrivateFonts::symbolFamily())->kind, Kind::Symbol);
        QVERIFY(index.find(PrivateFonts::symbolFamily())->symbol);
        QVERIFY(index.find(QStringLiteral("DejaVu Sans Mono"))->monospace);
        QVERIFY(!index.find(QStringLiteral("DejaVu Sans"))->monospace);
        QVERIFY(!index.find(PrivateFonts::serifFamily())->monospace);
        // Without reading the files, only the symbol flag gives a kind.
        const FamilyIndex::Snapshot snapshot;
        const FamilyIndex quick = FamilyIndex::build(snapshot, false);
        QCOMPARE(quick.find(PrivateFonts::serifFamily())->kind, Kind::None);
        QCOMPARE(quick.find(PrivateFonts::symbolFamily())->kind, Kind::Symbol);
    }

    void writingSystemsCountAsFcListDoes()
    {
        const FamilyIndex index = build();
        const QList<int> counts = index.writingSystemCounts();
        const QList<WritingSystems::System>& systems = WritingSystems::all();
        QCOMPARE(counts.size(), systems.size());
        int nonZero = 0;
        for (int i = 0; i < systems.size(); ++i) {
            const QStringList expected = PrivateFonts::fcFamilies(QStringLiteral(":lang=") + QString::fromLatin1(systems[i].language));
            QCOMPARE(counts[i], int(expected.size()));
            nonZero += counts[i] > 0;
            for (const QString& name : expected)
                QVERIFY(index.find(name)->writingSystems & (quint64(1) << i));
        }
        QVERIFY(nonZero >= 3); // DejaVu covers French, Greek, Cyrillic and more
        QVERIFY(counts[WritingSystems::indexOf("fr")] > 0);
        QVERIFY(counts[WritingSystems::indexOf("el")] > 0);
        QCOMPARE(WritingSystems::all()[WritingSystems::indexOf("ja")].name, QStringLiteral("Japonais"));
        QCOMPARE(WritingSystems::indexOf("xx"), -1);
    }

    void namesAFaceCannotDraw()
    {
        const FamilyIndex index = build();
        const FamilyIndex::Family* sans = index.find(QStringLiteral("DejaVu Sans"));
        QVERIFY(sans->drawsOwnName);
        QVERIFY(sans->sample.isEmpty());
        // A symbol font draws its own symbols, not the letters of its name: its row shows
        // the name in the interface font and a sample of what it has.
        const FamilyIndex::Family* symbol = index.find(PrivateFonts::symbolFamily());
        QVERIFY(!symbol->drawsOwnName);
        QVERIFY(!symbol->sample.isEmpty());
        // The Japanese name is made of characters DejaVu's outlines do not have.
        const FamilyIndex::Family* kaku = index.find(PrivateFonts::fcFamilies(QStringLiteral(":family=") + PrivateFonts::japaneseName()).first());
        QCOMPARE(kaku->drawsOwnName, kaku->name == PrivateFonts::twoNameFamily());
    }

    void favouritesInTheSettings()
    {
        TestSupport::clearSettings();
        QVERIFY(Favourites::load().isEmpty());
        QVERIFY(Favourites::toggle(QStringLiteral("b police")));
        QVERIFY(Favourites::toggle(QStringLiteral("A police")));
        QCOMPARE(Favourites::load(), (QStringList{QStringLiteral("A police"), QStringLiteral("b police")}));
        QCOMPARE(TestSupport::readSetting(QStringLiteral("Favoris"), QStringLiteral("Nombre")), QStringLiteral("2"));
        QCOMPARE(TestSupport::readSetting(QStringLiteral("Favoris"), QStringLiteral("Police1")), QStringLiteral("A police"));
        QCOMPARE(TestSupport::readSetting(QStringLiteral("Favoris"), QStringLiteral("Police2")), QStringLiteral("b police"));
        QVERIFY(!Favourites::toggle(QStringLiteral("A police")));
        QCOMPARE(Favourites::load(), QStringList{QStringLiteral("b police")});
        QVERIFY(!TestSupport::hasSetting(QStringLiteral("Favoris"), QStringLiteral("Police2")));
        // Garbage in the store reads as no favourite, and loses nothing else.
        TestSupport::writeSetting(QStringLiteral("Favoris"), QStringLiteral("Nombre"), QStringLiteral("beaucoup"));
        QVERIFY(Favourites::load().isEmpty());
        TestSupport::writeSetting(QStringLiteral("Favoris"), QStringLiteral("Nombre"), QStringLiteral("2000000000"));
        QCOMPARE(Favourites::load(), QStringList{QStringLiteral("b police")});
    }
};

int main(int argc, char** argv)
{
    if (!PrivateFonts::prepare()) {
        std::fprintf(stderr, "cannot make the test fonts\n");
        return 1;
    }
    TestFamilyIndex test;
    return glyphoraTestMain(argc, argv, &test);
}
#include "test_familyindex.moc"
