// Classification of families from hand-made OS/2 tables, and reading those tables from
// fonts and collections, whole, truncated or absent.
#include "browser/fontkind.h"
#include "support/sfntwriter.h"
#include "support/testsupport.h"

#include <QTemporaryDir>

using FontKind::Kind;

namespace {

// An OS/2 table (version 1) with the given sFamilyClass and PANOSE bytes.
QByteArray os2With(quint16 familyClass, QList<quint8> panose)
{
    QByteArray table = Sfnt::os2(0);
    table[30] = char(familyClass >> 8); // sFamilyClass, offset 30
    table[31] = char(familyClass & 0xFF);
    for (int i = 0; i < panose.size() && i < 10; ++i)
        table[32 + i] = char(panose[i]); // panose, offsets 32..41
    return table;
}

QByteArray fontWith(const QByteArray& os2)
{
    return Sfnt::font({{"head", Sfnt::head(), {}}, {"OS/2", os2, {}}});
}

std::span<const std::uint8_t> bytesOf(const QByteArray& data)
{
    return {reinterpret_cast<const std::uint8_t*>(data.constData()), std::size_t(data.size())};
}

Kind kindOf(quint16 familyClass, QList<quint8> panose, bool symbol = false)
{
    const QByteArray font = fontWith(os2With(familyClass, panose));
    return FontKind::classify(FontKind::readOs2(bytesOf(font)), symbol);
}

// A collection of the given fonts: 'ttcf', version 1, the offsets, then each font with
// its table offsets moved to its place in the collection.
QByteArray collection(const QList<QByteArray>& fonts)
{
    QByteArray out("ttcf");
    out += QByteArray::fromHex("00010000");
    auto put32 = [](QByteArray& b, quint32 v) {
        b.append(char(v >> 24)).append(char(v >> 16)).append(char(v >> 8)).append(char(v));
    };
    put32(out, quint32(fonts.size()));
    qint64 place = 12 + 4 * fonts.size();
    QByteArray body;
    for (const QByteArray& font : fonts) {
        put32(out, quint32(place + body.size()));
        QByteArray moved = font;
        const int count = (quint8(font[4]) << 8) | quint8(font[5]);
        for (int i = 0; i < count; ++i) {
            const int at = 12 + 16 * i + 8;
            const quint32 offset = (quint32(quint8(font[at])) << 24) | (quint32(quint8(font[at + 1])) << 16)
                                 | (quint32(quint8(font[at + 2])) << 8) | quint32(quint8(font[at + 3]));
            QByteArray patched;
            put32(patched, offset + quint32(place + body.size()));
            moved.replace(at, 4, patched);
        }
        body += moved;
    }
    return out + body;
}

} // namespace

class TestFontKind : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void familyClassGivesTheKind()
    {
        for (quint16 serif : {0x0100, 0x0205, 0x0300, 0x0400, 0x0501, 0x0700})
            QCOMPARE(kindOf(serif, {}), Kind::Serif);
        QCOMPARE(kindOf(0x0800, {}), Kind::SansSerif);
        QCOMPARE(kindOf(0x0801, {}), Kind::SansSerif); // the subclass does not matter
        QCOMPARE(kindOf(0x0900, {}), Kind::Decorative);
        QCOMPARE(kindOf(0x0A05, {}), Kind::Script);
        QCOMPARE(kindOf(0x0C00, {}), Kind::Symbol);
    }

    void familyClassWinsOverPanose()
    {
        QCOMPARE(kindOf(0x0800, {2, 2}), Kind::SansSerif);
        QCOMPARE(kindOf(0x0100, {3}), Kind::Serif);
    }

    void panoseWhenTheClassSaysNothing()
    {
        QCOMPARE(kindOf(0, {2, 2}), Kind::Serif);   // Latin text, cove
        QCOMPARE(kindOf(0, {2, 10}), Kind::Serif);  // triangle
        QCOMPARE(kindOf(0, {2, 11}), Kind::SansSerif); // normal sans
        QCOMPARE(kindOf(0, {2, 15}), Kind::SansSerif); // rounded
        QCOMPARE(kindOf(0, {3}), Kind::Script);     // Latin hand written
        QCOMPARE(kindOf(0, {4}), Kind::Decorative);
        QCOMPARE(kindOf(0, {5}), Kind::Symbol);
        // Reserved classes are no classification.
        for (quint16 reserved : {0x0600, 0x0B00, 0x0D00, 0x0E00})
            QCOMPARE(kindOf(reserved, {2, 11}), Kind::SansSerif);
    }

    void neitherGivesNoKind()
    {
        QCOMPARE(kindOf(0, {}), Kind::None);
        QCOMPARE(kindOf(0, {2, 0}), Kind::None);  // Latin text, serif style "any"
        QCOMPARE(kindOf(0, {2, 1}), Kind::None);  // "no fit"
        QCOMPARE(kindOf(0, {1, 11}), Kind::None); // family "no fit"
        QCOMPARE(kindOf(0x0600, {}), Kind::None);
        QCOMPARE(FontKind::classify(std::nullopt), Kind::None);
        const QByteArray noOs2 = Sfnt::font({{"head", Sfnt::head(), {}}});
        QVERIFY(!FontKind::readOs2(bytesOf(noOs2)));
    }

    void symbolCharacterMapMakesASymbolFont()
    {
        QCOMPARE(kindOf(0x0800, {2, 11}, true), Kind::Symbol);
        QCOMPARE(FontKind::classify(std::nullopt, true), Kind::Symbol);
    }

    void genresMatchKindsAndPitch()
    {
        using FontKind::Genre;
        QCOMPARE(FontKind::genreCaptions(), (QStringList{QStringLiteral("Toutes"), QStringLiteral("Avec empattements"),
            QStringLiteral("Sans empattements"), QStringLiteral("Chasse fixe"), QStringLiteral("Manuscrites"),
            QStringLiteral("Décoratives"), QStringLiteral("Symboles")}));
        QVERIFY(FontKind::matches(Genre::All, Kind::None, false));
        QVERIFY(!FontKind::matches(Genre::Serif, Kind::None, false));
        QVERIFY(FontKind::matches(Genre::Serif, Kind::Serif, true));
        QVERIFY(FontKind::matches(Genre::Monospace, Kind::Serif, true));
        QVERIFY(!FontKind::matches(Genre::Monospace, Kind::SansSerif, false));
        QVERIFY(FontKind::matches(Genre::Monospace, Kind::None, true));
        QVERIFY(FontKind::matches(Genre::Script, Kind::Script, false));
        QVERIFY(FontKind::matches(Genre::Decorative, Kind::Decorative, false));
        QVERIFY(FontKind::matches(Genre::Symbol, Kind::Symbol, false));
        QVERIFY(!FontKind::matches(Genre::SansSerif, Kind::Serif, false));
    }

    void truncatedTablesGiveNothing()
    {
        const QByteArray os2 = os2With(0x0800, {2, 11});
        QVERIFY(FontKind::readOs2(bytesOf(fontWith(os2.left(42)))));
        QVERIFY(!FontKind::readOs2(bytesOf(fontWith(os2.left(41))))); // PANOSE cut short
        const QByteArray whole = fontWith(os2);
        for (qint64 cut : Sfnt::tableBoundaries(whole)) {
            if (cut < whole.size() - 44)
                QVERIFY2(!FontKind::readOs2(bytesOf(whole.left(cut))), qPrintable(QString::number(cut)));
        }
        QVERIFY(!FontKind::readOs2(bytesOf(QByteArray())));
        QVERIFY(!FontKind::readOs2(bytesOf(whole), 1)); // a single font has face 0 only
        // A directory entry pointing far outside the file.
        const QByteArray outside = Sfnt::font({{"OS/2", os2, qint64(0x7FFFFFF0)}});
        QVERIFY(!FontKind::readOs2(bytesOf(outside)));
    }

    void collectionsGiveEachFace()
    {
        const QByteArray ttc = collection({fontWith(os2With(0x0100, {})), fontWith(os2With(0x0A00, {}))});
        QCOMPARE(FontKind::classify(FontKind::readOs2(bytesOf(ttc), 0)), Kind::Serif);
        QCOMPARE(FontKind::classify(FontKind::readOs2(bytesOf(ttc), 1)), Kind::Script);
        QVERIFY(!FontKind::readOs2(bytesOf(ttc), 2));
        QVERIFY(!FontKind::readOs2(bytesOf(ttc), -1));

        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("deux.ttc"));
        QVERIFY(Sfnt::writeFile(path, ttc));
        QCOMPARE(FontKind::classify(FontKind::readOs2File(path, 1)), Kind::Script);
        QCOMPARE(FontKind::classify(FontKind::readOs2File(path, 0)), Kind::Serif);
        QVERIFY(!FontKind::readOs2File(path, 5));
        QVERIFY(!FontKind::readOs2File(dir.filePath(QStringLiteral("absent.ttf"))));
        const QString cut = dir.filePath(QStringLiteral("coupe.ttf"));
        QVERIFY(Sfnt::writeFile(cut, fontWith(os2With(0x0800, {})).left(40)));
        QVERIFY(!FontKind::readOs2File(cut));
    }

    void installedFontsAreClassified()
    {
        // DejaVu Sans says sans serif in its PANOSE.
        const auto os2 = FontKind::readOs2File(Sfnt::installedTrueTypeFile());
        QVERIFY(os2);
        QCOMPARE(FontKind::classify(os2), Kind::SansSerif);
    }
};

GLYPHORA_TEST_MAIN(TestFontKind)
#include "test_fontkind.moc"
