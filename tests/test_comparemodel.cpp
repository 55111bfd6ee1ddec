// The compare window's model without the window: starting fonts, adding, removing and
// reordering, the 20-font limit, size and styles, the rows it hands out; the waterfall
// sizes read from text and kept in the settings; the family filter.
#include "output/comparemodel.h"
#include "output/comparisonview.h"
#include "output/waterfallsizes.h"
#include "support/testsupport.h"

namespace {

QStringList names(int count, const QString& stem = QStringLiteral("Police "))
{
    QStringList list;
    for (int i = 1; i <= count; ++i)
        list.append(stem + QString::number(i));
    return list;
}

QStringList labels(const QList<ProofPages::Row>& rows)
{
    QStringList list;
    for (const ProofPages::Row& row : rows)
        list.append(row.label);
    return list;
}

} // namespace

class TestCompareModel : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init() { TestSupport::clearSettings(); }

    void startsWithTheSelectedFontAndFiveShownBefore()
    {
        const QStringList recent = {"B", "A", "C", "D", "B", "E", "F", "G"};
        QCOMPARE(CompareModel::startingFonts("A", recent), (QStringList{"A", "B", "C", "D", "E", "F"}));
        // Only fonts still listed; none twice; the selected one first even if never shown.
        QCOMPARE(CompareModel::startingFonts("Z", {"Z", "X", "A", "gone"}, {"A", "X", "Z"}), (QStringList{"Z", "X", "A"}));
        QCOMPARE(CompareModel::startingFonts(QString(), {"A"}), (QStringList{"A"}));
        QCOMPARE(CompareModel::startingFonts("gone", {}, {"A"}), QStringList());
    }

    void addsUpToTwentyFontsOnce()
    {
        CompareModel model;
        for (const QString& font : names(20))
            QCOMPARE(model.add(font), CompareModel::Added::Added);
        QCOMPARE(model.add(QStringLiteral("Police 3")), CompareModel::Added::AlreadyThere);
        QCOMPARE(model.add(QStringLiteral("Vingt et unième")), CompareModel::Added::Full);
        QCOMPARE(model.fonts(), names(20));
        QVERIFY(model.remove(0));
        QCOMPARE(model.add(QStringLiteral("Vingt et unième")), CompareModel::Added::Added);
        QCOMPARE(model.fonts().last(), QStringLiteral("Vingt et unième"));
        QCOMPARE(model.count(), 20);
    }

    void removesAndReorders()
    {
        CompareModel model;
        for (const QString& font : names(4))
            model.add(font);
        QVERIFY(!model.remove(4));
        QVERIFY(!model.remove(-1));
        QVERIFY(model.move(3, 0));
        QCOMPARE(model.fonts(), (QStringList{"Police 4", "Police 1", "Police 2", "Police 3"}));
        QVERIFY(!model.move(0, 4));
        QVERIFY(model.remove(1));
        QCOMPARE(model.fonts(), (QStringList{"Police 4", "Police 2", "Police 3"}));
        QVERIFY(model.reorder({"Police 3", "Police 4", "Police 2"}));
        QCOMPARE(model.fonts(), (QStringList{"Police 3", "Police 4", "Police 2"}));
        // A new order must hold the same fonts.
        QVERIFY(!model.reorder({"Police 3", "Police 4"}));
        QVERIFY(!model.reorder({"Police 3", "Police 4", "Autre"}));
        QCOMPARE(model.fonts(), (QStringList{"Police 3", "Police 4", "Police 2"}));
    }

    void rowsCarryTheCommonSizeStylesAndText()
    {
        CompareModel model;
        model.add(QStringLiteral("DejaVu Sans"));
        model.add(QStringLiteral("DejaVu Serif"));
        model.setText(QStringLiteral("Voix ambiguë\nd'un cœur"));
        model.setSize(18);
        model.setSize(0); // refused: the size stays
        model.bold = true;
        model.underline = true;
        const QList<ProofPages::Row> rows = model.rows();
        QCOMPARE(labels(rows), (QStringList{"DejaVu Sans", "DejaVu Serif"}));
        for (const ProofPages::Row& row : rows) {
            QCOMPARE(row.font.families(), QStringList{row.label});
            QCOMPARE(row.font.pointSizeF(), 18.0);
            QVERIFY(row.font.bold());
            QVERIFY(!row.font.italic());
            QVERIFY(row.font.underline());
            QVERIFY(!row.font.strikeOut());
            QVERIFY(row.font.styleStrategy() & QFont::NoFontMerging);
            QCOMPARE(row.sample, QStringLiteral("Voix ambiguë\nd'un cœur"));
        }
    }

    void waterfallIsOneFontAtEverySize()
    {
        CompareModel model;
        model.add(QStringLiteral("A"));
        model.add(QStringLiteral("B"));
        model.setText(QStringLiteral("  \nTexte\nSuite"));
        model.italic = true;
        model.setCascade(true);
        model.setCascadeSizes({8, 12, 36});
        QCOMPARE(model.cascadeFont(), QStringLiteral("A")); // none chosen: the first
        model.setCascadeFont(QStringLiteral("B"));
        const QList<ProofPages::Row> rows = model.rows();
        QCOMPARE(labels(rows), (QStringList{"8 pt", "12 pt", "36 pt"}));
        QCOMPARE(rows[2].font.families(), QStringList{"B"});
        QCOMPARE(rows[2].font.pointSizeF(), 36.0);
        QVERIFY(rows[2].font.italic());
        for (const ProofPages::Row& row : rows)
            QCOMPARE(row.sample, QStringLiteral("Texte")); // one line per size: the first with text
        // The chosen font removed: back to the first.
        model.remove(1);
        QCOMPARE(model.cascadeFont(), QStringLiteral("A"));
        model.remove(0);
        QVERIFY(model.rows().isEmpty());
    }

    void sizesReadFromText_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QList<int>>("sizes");
        QTest::newRow("blanks") << QStringLiteral("  8 9\t10   12 ") << QList<int>{8, 9, 10, 12};
        QTest::newRow("commas") << QStringLiteral("8,9, 10 ,12;14") << QList<int>{8, 9, 10, 12, 14};
        QTest::newRow("duplicates count once") << QStringLiteral("12 10 12 10 72") << QList<int>{12, 10, 72};
        QTest::newRow("order kept") << QStringLiteral("72 48 36") << QList<int>{72, 48, 36};
        QTest::newRow("bounds") << QStringLiteral("4 400") << QList<int>{4, 400};
        QTest::newRow("default") << QStringLiteral("8 9 10 11 12 14 18 24 36 48 72") << WaterfallSizes::defaults();
    }

    void sizesReadFromText()
    {
        QFETCH(QString, text);
        QFETCH(QList<int>, sizes);
        const WaterfallSizes::Parsed parsed = WaterfallSizes::parse(text);
        QVERIFY2(parsed.ok(), qPrintable(parsed.error));
        QCOMPARE(parsed.sizes, sizes);
    }

    void wrongSizesGiveAFrenchMessageAndNoSizes_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("message");
        const QString bounds = QStringLiteral("de 4 à 400 points");
        QTest::newRow("zero") << QStringLiteral("8 0 12")
                              << QStringLiteral("La taille 0 n'est pas possible : les tailles vont ") + bounds + ".";
        QTest::newRow("1000") << QStringLiteral("12, 1000")
                              << QStringLiteral("La taille 1000 n'est pas possible : les tailles vont ") + bounds + ".";
        QTest::newRow("huge") << QStringLiteral("99999999999999999999")
                              << QStringLiteral("La taille 99999999999999999999 n'est pas possible : les tailles vont ") + bounds + ".";
        QTest::newRow("word") << QStringLiteral("8 abc 12")
                              << QStringLiteral("« abc » n'est pas une taille. Entrez des nombres entiers de points (") +
                                     bounds + "), séparés par des blancs ou des virgules.";
        QTest::newRow("negative") << QStringLiteral("-8")
                                  << QStringLiteral("« -8 » n'est pas une taille. Entrez des nombres entiers de points (") +
                                         bounds + "), séparés par des blancs ou des virgules.";
        QTest::newRow("decimal") << QStringLiteral("10.5")
                                 << QStringLiteral("« 10.5 » n'est pas une taille. Entrez des nombres entiers de points (") +
                                        bounds + "), séparés par des blancs ou des virgules.";
        QTest::newRow("nothing") << QStringLiteral(" , ,") << QStringLiteral("Entrez au moins une taille (") + bounds + ").";
        QStringList many;
        for (int i = 4; i <= 44; ++i)
            many.append(QString::number(i));
        QTest::newRow("too many") << many.join(' ') << QStringLiteral("Une cascade compte au plus 40 tailles.");
    }

    void wrongSizesGiveAFrenchMessageAndNoSizes()
    {
        QFETCH(QString, text);
        QFETCH(QString, message);
        const WaterfallSizes::Parsed parsed = WaterfallSizes::parse(text);
        QVERIFY(!parsed.ok());
        QCOMPARE(parsed.error, message);
        QVERIFY(parsed.sizes.isEmpty());
    }

    void sizesAreStoredAndRestored()
    {
        QCOMPARE(WaterfallSizes::load(), WaterfallSizes::defaults());
        QCOMPARE(WaterfallSizes::format(WaterfallSizes::defaults()), QStringLiteral("8 9 10 11 12 14 18 24 36 48 72"));
        WaterfallSizes::save({10, 20, 30});
        QCOMPARE(TestSupport::readSetting(QStringLiteral("Cascade"), QStringLiteral("Tailles")), QStringLiteral("10 20 30"));
        QCOMPARE(WaterfallSizes::load(), (QList<int>{10, 20, 30}));
        // Garbage in the store: the defaults.
        TestSupport::writeSetting(QStringLiteral("Cascade"), QStringLiteral("Tailles"), QStringLiteral("dix 0"));
        QCOMPARE(WaterfallSizes::load(), WaterfallSizes::defaults());
    }

    void filterTakesEveryWordWhateverTheCaseAndAccents()
    {
        FamilyProxy proxy({QStringLiteral("Café Sans"), QStringLiteral("Noto Sans CJK JP"), QStringLiteral("DejaVu Serif"),
                           QStringLiteral("Cafe Serif")});
        auto shown = [&proxy](const QString& query) {
            proxy.setQuery(query);
            QStringList names;
            for (int i = 0; i < proxy.rowCount(); ++i)
                names.append(proxy.family(proxy.index(i, 0)));
            return names;
        };
        QCOMPARE(shown(QStringLiteral("CAFE")), (QStringList{"Café Sans", "Cafe Serif"}));
        QCOMPARE(shown(QStringLiteral("café")), (QStringList{"Café Sans", "Cafe Serif"}));
        QCOMPARE(shown(QStringLiteral("jp  SANS")), QStringList{"Noto Sans CJK JP"});
        QCOMPARE(shown(QStringLiteral("serif cafe")), QStringList{"Cafe Serif"});
        QCOMPARE(shown(QStringLiteral("sans mono")), QStringList());
        QCOMPARE(shown(QStringLiteral("   ")).size(), 4);
    }
};

GLYPHORA_TEST_MAIN(TestCompareModel)
#include "test_comparemodel.moc"
