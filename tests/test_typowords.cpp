// The words and texts of the details window without any window: fsType words for every
// bit pattern, classes, PANOSE, formats, feature and axis names, Unicode ranges and code
// pages, the face list's order and first face, the shaper's feature requests, the CSS.
#include "fontfile/detailsfields.h"
#include "fontfile/typowords.h"
#include "support/testsupport.h"

using namespace TypoWords;

namespace {

FontSystem::FamilyFace face(const QString& style, std::optional<double> weight, int slant = 0, double width = 100)
{
    FontSystem::FamilyFace f;
    f.style = style;
    f.weight = weight;
    f.slant = slant;
    f.width = width;
    f.path = QStringLiteral("/fonts/") + style + QStringLiteral(".ttf");
    f.fontFormat = QStringLiteral("TrueType");
    return f;
}

FaceTables::Feature feature(const char* tag)
{
    FaceTables::Feature f;
    f.tag = tag;
    f.inGsub = true;
    return f;
}

} // namespace

class TestTypoWords : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void fsTypeWordsForEveryBitPattern()
    {
        const QString install = QStringLiteral("Installable"), restricted = QStringLiteral("Modification interdite"),
                      preview = QStringLiteral("Aperçu et impression seulement"), editable = QStringLiteral("Modifiable"),
                      noSubset = QStringLiteral("Pas de sous-ensembles"), bitmap = QStringLiteral("Bitmap seulement");
        // Every combination of the usage bits 0..3 with the two flags 8 and 9.
        for (quint16 usage = 0; usage < 16; ++usage) {
            for (quint16 flags : {0x0000, 0x0100, 0x0200, 0x0300}) {
                QStringList expected;
                if ((usage & 0xE) == 0)
                    expected << install;
                if (usage & 2)
                    expected << restricted;
                if (usage & 4)
                    expected << preview;
                if (usage & 8)
                    expected << editable;
                if (flags & 0x100)
                    expected << noSubset;
                if (flags & 0x200)
                    expected << bitmap;
                QCOMPARE(fsTypeWords(quint16(usage | flags)), expected);
            }
        }
        QCOMPARE(fsTypeWords(0x0000), QStringList{install});
        QCOMPARE(fsTypeWords(0x0008), QStringList{editable});
        QCOMPARE(fsTypeWords(0x0304), (QStringList{preview, noSubset, bitmap}));
        QCOMPARE(fsTypeWords(0xFCF1), QStringList{install}); // reserved bits say nothing
    }

    void classesAndSlants()
    {
        QCOMPARE(weightWord(400), QStringLiteral("Normal"));
        QCOMPARE(weightWord(700), QStringLiteral("Gras"));
        QCOMPARE(weightWord(100), QStringLiteral("Fin"));
        QCOMPARE(weightWord(950), QStringLiteral("Noir"));
        QCOMPARE(weightWord(1000), QStringLiteral("Noir"));
        QCOMPARE(weightWord(30), QStringLiteral("Fin"));
        QCOMPARE(weightWord(0), QString());
        QCOMPARE(weightWord(1001), QString());
        QCOMPARE(widthWord(1), QStringLiteral("Ultra-condensé"));
        QCOMPARE(widthWord(5), QStringLiteral("Normal"));
        QCOMPARE(widthWord(9), QStringLiteral("Ultra-étendu"));
        QCOMPARE(widthWord(0), QString());
        QCOMPARE(widthWord(10), QString());
        QCOMPARE(widthClassOfPercent(100), 5);
        QCOMPARE(widthClassOfPercent(87.5), 4);
        QCOMPARE(widthClassOfPercent(50), 1);
        QCOMPARE(widthClassOfPercent(200), 9);
        QCOMPARE(slantWord(0), QStringLiteral("Romain"));
        QCOMPARE(slantWord(100), QStringLiteral("Italique"));
        QCOMPARE(slantWord(110), QStringLiteral("Oblique"));
    }

    void panose()
    {
        QCOMPARE(panoseFamilyWord(2), QStringLiteral("Texte et titrage"));
        QCOMPARE(panoseFamilyWord(5), QStringLiteral("Symboles"));
        QCOMPARE(panoseFamilyWord(6), QString());
        QCOMPARE(panoseSerifWord(2, 11), QStringLiteral("Sans empattement normal"));
        QCOMPARE(panoseSerifWord(2, 16), QString());
        QCOMPARE(panoseSerifWord(3, 11), QString()); // only Latin text faces
        QCOMPARE(panoseProportionWord(2, 9), QStringLiteral("Chasse fixe"));
        QCOMPARE(panoseProportionWord(2, 3), QStringLiteral("Moderne"));
        QCOMPARE(panoseProportionWord(4, 3), QString());
    }

    void formats()
    {
        FormatFacts facts;
        facts.container = QStringLiteral("TrueType");
        QCOMPARE(formatWords(facts), QStringLiteral("TrueType"));
        facts.variable = true;
        QCOMPARE(formatWords(facts), QStringLiteral("TrueType, variable"));
        facts = {QStringLiteral("CFF"), false, true, true, false, {}};
        QCOMPARE(formatWords(facts), QStringLiteral("OpenType CFF, collection"));
        facts = {QStringLiteral("CFF"), true, true, false, true, {}};
        QCOMPARE(formatWords(facts), QStringLiteral("OpenType CFF2, variable"));
        facts = {QStringLiteral("Type 1"), false, true, false, false, {}};
        QCOMPARE(formatWords(facts), QStringLiteral("Type 1"));
        facts = {QStringLiteral("CID Type 1"), false, true, false, false, {}};
        QCOMPARE(formatWords(facts), QStringLiteral("Type 1 CID"));
        facts = {QStringLiteral("PCF"), false, false, false, false, {}};
        QCOMPARE(formatWords(facts), QStringLiteral("Bitmap (PCF)"));
        facts = {QStringLiteral("TrueType"), false, true, false, false, QStringLiteral("WOFF2")};
        QCOMPARE(formatWords(facts), QStringLiteral("TrueType (WOFF2)"));
        QCOMPARE(FontSystem::wrapperOfTag("wOFF"), QStringLiteral("WOFF"));
        QCOMPARE(FontSystem::wrapperOfTag("wOF2"), QStringLiteral("WOFF2"));
        QCOMPARE(FontSystem::wrapperOfTag("ttcf"), QString());
    }

    void featureNames()
    {
        QCOMPARE(featureName("liga"), QStringLiteral("Ligatures standard"));
        QCOMPARE(featureName("smcp"), QStringLiteral("Petites capitales"));
        QCOMPARE(featureName("onum"), QStringLiteral("Chiffres elzéviriens"));
        QCOMPARE(featureName("tnum"), QStringLiteral("Chiffres tabulaires"));
        QCOMPARE(featureName("ss01"), QStringLiteral("Jeu stylistique 1"));
        QCOMPARE(featureName("ss20"), QStringLiteral("Jeu stylistique 20"));
        QCOMPARE(featureName("ss21"), QString());
        QCOMPARE(featureName("ss00"), QString());
        QCOMPARE(featureName("cv07"), QStringLiteral("Variante de caractère 7"));
        for (const char* tag : {"frac", "sups", "subs", "zero", "case", "calt", "dlig", "swsh", "salt", "kern"})
            QVERIFY2(!featureName(tag).isEmpty(), tag);
        QCOMPARE(featureName(" RQD"), QString());
        QCOMPARE(featureName("li"), QString());
        for (const char* tag : {"liga", "kern", "calt", "clig", "ccmp", "locl", "mark", "mkmk", "rlig"})
            QVERIFY2(featureOnByDefault(tag), tag);
        for (const char* tag : {"smcp", "onum", "ss01", "dlig", "salt", "tnum", "frac", "aalt"})
            QVERIFY2(!featureOnByDefault(tag), tag);
    }

    void axisNames()
    {
        QCOMPARE(axisName("wght"), QStringLiteral("Graisse"));
        QCOMPARE(axisName("wdth"), QStringLiteral("Chasse"));
        QCOMPARE(axisName("slnt"), QStringLiteral("Inclinaison"));
        QCOMPARE(axisName("ital"), QStringLiteral("Italique"));
        QCOMPARE(axisName("opsz"), QStringLiteral("Taille optique"));
        QCOMPARE(axisName("GRAD"), QString());
        FaceTables::Axis axis{"GRAD", QStringLiteral("Grade"), -200, 0, 150, false};
        QCOMPARE(DetailsFields::axisLabel(axis), QStringLiteral("Grade (GRAD)"));
        axis.fontName.clear();
        QCOMPARE(DetailsFields::axisLabel(axis), QStringLiteral("GRAD"));
        axis.tag = "wght";
        QCOMPARE(DetailsFields::axisLabel(axis), QStringLiteral("Graisse (wght)"));
    }

    void rangesAndCodePages()
    {
        QCOMPARE(unicodeRangeWord(0), QStringLiteral("Latin de base"));
        QCOMPARE(unicodeRangeWord(9), QStringLiteral("Cyrillique"));
        QCOMPARE(unicodeRangeWord(59), QStringLiteral("Idéogrammes unifiés CJC"));
        QCOMPARE(unicodeRangeWord(122), QStringLiteral("Dominos et tuiles de mah-jong"));
        QCOMPARE(unicodeRangeWord(123), QString());
        QCOMPARE(unicodeRangeWords({0x3, 0, 0, 1u << 26}),
                 (QStringList{QStringLiteral("Latin de base"), QStringLiteral("Supplément Latin-1"),
                              QStringLiteral("Dominos et tuiles de mah-jong")}));
        QCOMPARE(unicodeRangeWords({0, 0, 0, 0xF8000000}), QStringList()); // reserved bits
        QCOMPARE(codePageWord(0), QStringLiteral("1252 Latin 1"));
        QCOMPARE(codePageWord(31), QStringLiteral("Jeu de caractères Symbole"));
        QCOMPARE(codePageWord(63), QStringLiteral("437 États-Unis"));
        QCOMPARE(codePageWord(9), QString());
        QCOMPARE(codePageWords({0x5, 0x80000000}),
                 (QStringList{QStringLiteral("1252 Latin 1"), QStringLiteral("1251 Cyrillique"),
                              QStringLiteral("437 États-Unis")}));
    }

    void facesInOrderAndTheRegularOne()
    {
        FontSystem::FamilyFace variable = face(QStringLiteral("Variable"), std::nullopt);
        variable.weightMin = 100;
        variable.weightMax = 900;
        variable.variable = true;
        const QList<FontSystem::FamilyFace> faces{
            face(QStringLiteral("Bold Italic"), 700, 100), face(QStringLiteral("Condensed"), 400, 0, 87.5),
            face(QStringLiteral("Bold"), 700), variable, face(QStringLiteral("Light"), 300),
            face(QStringLiteral("Book"), 380), face(QStringLiteral("Italic"), 400, 100)};
        const auto sorted = DetailsFields::sortedFaces(faces);
        QStringList styles;
        for (const auto& f : sorted)
            styles << f.style;
        // A variable face sits where its lightest weight would.
        QCOMPARE(styles, (QStringList{QStringLiteral("Variable"), QStringLiteral("Light"), QStringLiteral("Book"),
                                      QStringLiteral("Bold"), QStringLiteral("Italic"), QStringLiteral("Bold Italic"),
                                      QStringLiteral("Condensed")}));
        QCOMPARE(sorted[DetailsFields::regularFace(sorted)].style, QStringLiteral("Variable"));
        QList<FontSystem::FamilyFace> withRegular = sorted;
        withRegular.append(face(QStringLiteral("Regular"), 400));
        QCOMPARE(withRegular[DetailsFields::regularFace(withRegular)].style, QStringLiteral("Regular"));
        QCOMPARE(DetailsFields::regularFace({}), -1);
        QCOMPARE(DetailsFields::faceColumns(variable),
                 (QStringList{QStringLiteral("Variable"), QStringLiteral("100–900"), QStringLiteral("Normal"),
                              QStringLiteral("Romain"), QStringLiteral("TrueType, variable"), QStringLiteral("0"),
                              QStringLiteral("/fonts/Variable.ttf")}));
        FontSystem::FamilyFace instance = variable;
        instance.index = 3 << 16;
        QCOMPARE(DetailsFields::faceColumns(instance)[5], QStringLiteral("0, instance 3"));
    }

    void featureRequestsFollowTheDefaults()
    {
        const QList<FaceTables::Feature> features{feature("kern"), feature("liga"), feature("onum"), feature("smcp")};
        QSet<QByteArray> checked = DetailsFields::defaultChecked(features);
        QCOMPARE(checked, (QSet<QByteArray>{"kern", "liga"}));
        QVERIFY(DetailsFields::requestedFeatures(features, checked).isEmpty());
        checked.insert("smcp");
        checked.remove("liga");
        const auto requested = DetailsFields::requestedFeatures(features, checked);
        QCOMPARE(requested.size(), 2);
        QCOMPARE(requested[0].tag, QByteArray("liga"));
        QCOMPARE(requested[0].value, 0u);
        QCOMPARE(requested[1].tag, QByteArray("smcp"));
        QCOMPARE(requested[1].value, 1u);
        FaceTables::Feature set = feature("ss01");
        set.fontName = QStringLiteral("Chiffres ouverts");
        QCOMPARE(DetailsFields::featureLabel(set), QStringLiteral("Jeu stylistique 1 : Chiffres ouverts"));
        QCOMPARE(DetailsFields::featureLabel(feature("xxxx")), QStringLiteral("—"));
        set.inGpos = true;
        QCOMPARE(DetailsFields::featureTables(set), QStringLiteral("GSUB, GPOS"));
    }

    void numbers()
    {
        QCOMPARE(DetailsFields::frenchNumber(12.0625), QStringLiteral("12,06"));
        QCOMPARE(DetailsFields::frenchNumber(-11.5), QStringLiteral("-11,5"));
        QCOMPARE(DetailsFields::frenchNumber(400), QStringLiteral("400"));
        QCOMPARE(DetailsFields::frenchNumber(-0.001), QStringLiteral("0"));
        QCOMPARE(DetailsFields::frenchNumber(12345.5), QStringLiteral("12345,5"));
        QCOMPARE(DetailsFields::cssNumber(650), QStringLiteral("650"));
        QCOMPARE(DetailsFields::cssNumber(12.5), QStringLiteral("12.5"));
        QCOMPARE(DetailsFields::cssNumber(-10), QStringLiteral("-10"));
        QCOMPARE(DetailsFields::cssNumber(-0.0001), QStringLiteral("0"));
    }

    void cssForAKnownState()
    {
        DetailsFields::State state;
        state.family = QStringLiteral("Glyphora \"Essai\"");
        state.points = 13;
        state.data.weightClass = 700;
        state.data.features = {feature("kern"), feature("liga"), feature("smcp"), feature("ss02")};
        state.checked = {"kern", "smcp", "ss02"};
        QCOMPARE(DetailsFields::cssText(state),
                 QStringLiteral("font-family: \"Glyphora \\\"Essai\\\"\";\n"
                                "font-weight: 700;\n"
                                "font-style: normal;\n"
                                "font-size: 13pt;\n"
                                "font-feature-settings: \"liga\" 0, \"smcp\" 1, \"ss02\" 1;\n"));
        state.checked = {"kern", "liga"};
        state.data.italic = true;
        state.points = 9.5;
        state.data.axes = {{"wght", QString(), 100, 400, 900, false}, {"slnt", QString(), -10, 0, 0, false}};
        state.axisValues = {650, -7.5};
        QCOMPARE(DetailsFields::cssText(state),
                 QStringLiteral("font-family: \"Glyphora \\\"Essai\\\"\";\n"
                                "font-weight: 650;\n"
                                "font-style: italic;\n"
                                "font-size: 9.5pt;\n"
                                "font-feature-settings: normal;\n"
                                "font-variation-settings: \"wght\" 650, \"slnt\" -7.5;\n"));
    }

    void fieldsOfAnEmptyFace()
    {
        const FaceTables::FaceData nothing;
        for (const auto& field : DetailsFields::identityFields(nothing) + DetailsFields::metricFields(nothing, 12)) {
            QCOMPARE(field.value, QStringLiteral("—"));
            QVERIFY(field.points.isEmpty() && field.link.isEmpty() && field.children.isEmpty());
        }
    }

    void linksOnlyForWebAddresses()
    {
        FaceTables::FaceData data;
        data.names = {{FaceTables::LicenseUrl, QStringLiteral("https://openfontlicense.org")},
                      {FaceTables::DesignerUrl, QStringLiteral("www.example.org")},
                      {FaceTables::VendorUrl, QStringLiteral("javascript:alert(1)")}};
        QMap<QString, QString> links;
        for (const auto& field : DetailsFields::identityFields(data))
            links.insert(field.label, field.link);
        QCOMPARE(links.value(QStringLiteral("URL de la licence")), QStringLiteral("https://openfontlicense.org"));
        QCOMPARE(links.value(QStringLiteral("URL du dessinateur")), QStringLiteral("http://www.example.org"));
        QCOMPARE(links.value(QStringLiteral("URL du fournisseur")), QString());
    }
};

GLYPHORA_TEST_MAIN(TestTypoWords)
#include "test_typowords.moc"
