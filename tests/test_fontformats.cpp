// The reader and CFontPreview on every format: OpenType with CFF outlines, collections
// face by face (hand-made and Noto CJK's), WOFF and WOFF2 read and registered from the
// bytes they unpack to, a WOFF named .ttf, and refused web fonts.
#include "browser/enumfont.h"
#include "fontfile/cfontpreview.h"
#include "fontfile/fontregistration.h"
#include "fontfile/truetypefile.h"
#include "support/sfntwriter.h"
#include "support/testsupport.h"
#include "support/webfontwriter.h"

#include <QFontDatabase>
#include <QTemporaryDir>

using namespace TrueType;

namespace {

std::span<const std::uint8_t> view(const QByteArray& bytes)
{
    return {reinterpret_cast<const std::uint8_t*>(bytes.constData()), std::size_t(bytes.size())};
}

QString family(const FontTables& tables)
{
    return nameString(tables, 1, 0x0409).value_or(QStringLiteral("<never read>"));
}

QByteArray simple(const QString& name)
{
    return Sfnt::simpleFont({Sfnt::microsoft(1, name), Sfnt::microsoft(2, QStringLiteral("Regular"))}, 0x20);
}

QByteArray drawable(const QString& name)
{
    return Sfnt::drawable(Sfnt::familyNames(name));
}

bool registeredAnywhere(const QString& name)
{
    return QFontDatabase::families().contains(name) || FontRegistration::registeredFamilies().contains(name);
}

const QString noto = QStringLiteral("/usr/share/fonts/opentype/noto/NotoSansCJK-Regular.ttc");
const QString nimbus = QStringLiteral("/usr/share/fonts/opentype/urw-base35/NimbusSans-Regular.otf");

} // namespace

class TestFontFormats : public QObject {
    Q_OBJECT
private:
    QTemporaryDir m_dir;
    QString path(const QString& name) const { return m_dir.filePath(name); }

private Q_SLOTS:
    void initTestCase()
    {
        qputenv("LC_ALL", "en_US.UTF-8");
        const QByteArray one = drawable(QStringLiteral("Glyphora Coll Un"));
        const QByteArray two = drawable(QStringLiteral("Glyphora Coll Deux"));
        QVERIFY(Sfnt::writeFile(path(QStringLiteral("deux.ttc")), WebFontWriter::collection({one, two})));
        QVERIFY(Sfnt::writeFile(path(QStringLiteral("web.woff")), WebFontWriter::woff(drawable(QStringLiteral("Glyphora Woff")))));
        QVERIFY(Sfnt::writeFile(path(QStringLiteral("web.woff2")), WebFontWriter::woff2(drawable(QStringLiteral("Glyphora Woff2")))));
        QVERIFY(Sfnt::writeFile(path(QStringLiteral("deguisee.ttf")), WebFontWriter::woff(drawable(QStringLiteral("Glyphora Deguisee")))));
        QVERIFY(Sfnt::writeFile(path(QStringLiteral("bombe.woff")),
                                WebFontWriter::woff(drawable(QStringLiteral("X")), {.totalSfntSize = 0xFFFFFFF0u})));
        QVERIFY(Sfnt::writeFile(path(QStringLiteral("tronquee.woff2")),
                                WebFontWriter::woff2(drawable(QStringLiteral("Y"))).left(2000)));
    }

    void readerTakesOpenTypeAsTrueType()
    {
        QByteArray cff = simple(QStringLiteral("Cff"));
        cff.replace(0, 4, "OTTO");
        FontTables tables;
        QCOMPARE(readFontFile(view(cff), tables), ReadEnd::Complete);
        QVERIFY(tables.valid);
        QCOMPARE(family(tables), QStringLiteral("Cff"));
        QCOMPARE(faceCount(view(cff)), 1);
    }

    void readerReadsEachFaceOfACollection()
    {
        const QByteArray ttc = WebFontWriter::collection({simple(QStringLiteral("Premier")), simple(QStringLiteral("Second"))});
        QCOMPARE(faceCount(view(ttc)), 2);
        FontTables first, second, none;
        QCOMPARE(readFontFace(view(ttc), 0, first), ReadEnd::Complete);
        QCOMPARE(family(first), QStringLiteral("Premier"));
        QCOMPARE(readFontFace(view(ttc), 1, second), ReadEnd::Complete);
        QCOMPARE(family(second), QStringLiteral("Second"));
        QVERIFY(second.valid);
        // readFontFile reads the first face.
        FontTables plain;
        QCOMPARE(readFontFile(view(ttc), plain), ReadEnd::Complete);
        QCOMPARE(family(plain), QStringLiteral("Premier"));
        for (int face : {2, -1, 1000})
            QCOMPARE(readFontFace(view(ttc), face, none), ReadEnd::BadFaceIndex);
        QVERIFY(!none.names);
        QCOMPARE(readFontFace(view(simple(QStringLiteral("A"))), 1, none), ReadEnd::BadFaceIndex);
        QCOMPARE(faceCount(view(simple(QStringLiteral("A")))), 1);
        QCOMPARE(faceCount(view(QByteArray("tt"))), 0);
    }

    void brokenCollections()
    {
        const QByteArray ttc = WebFontWriter::collection({simple(QStringLiteral("Premier")), simple(QStringLiteral("Second"))});
        // A count far beyond the file: only the offsets that are there count.
        QByteArray huge = ttc;
        huge.replace(8, 4, QByteArray("\xFF\xFF\xFF\xFF", 4));
        QCOMPARE(faceCount(view(huge)), int((huge.size() - 12) / 4));
        FontTables tables;
        QCOMPARE(readFontFace(view(huge.left(14)), 1, tables), ReadEnd::CollectionOutside);
        QVERIFY(readFontFace(view(huge), 5, tables) != ReadEnd::Complete);
        // A face offset past the end.
        QByteArray outside = ttc;
        outside.replace(16, 4, QByteArray("\x7F\xFF\xFF\xF0", 4));
        QCOMPARE(readFontFace(view(outside), 1, tables), ReadEnd::NoOffsetTable);
        // Cut anywhere, nothing is read outside the bytes.
        for (qsizetype length = 0; length < ttc.size(); length += 7) {
            FontTables cut;
            readFontFace(view(ttc.left(length)), 1, cut);
            readFontFace(view(ttc.left(length)), 0, cut);
            QVERIFY(faceCount(view(ttc.left(length))) <= 2);
        }
    }

    void notoCollectionFaceByFace()
    {
        if (!QFile::exists(noto))
            QSKIP("fonts-noto-cjk is not installed");
        QProcess scan;
        scan.start(QStringLiteral("fc-scan"), {QStringLiteral("--format"), QStringLiteral("%{family[0]}\\n"), noto});
        QVERIFY(scan.waitForFinished(30000));
        const QStringList expected = QString::fromUtf8(scan.readAllStandardOutput()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
        QCOMPARE(faceCount(noto), int(expected.size()));
        QVERIFY(expected.size() > 1);
        for (int face = 0; face < expected.size(); ++face) {
            FontTables tables;
            QCOMPARE(readFontFace(noto, face, tables), ReadEnd::Complete);
            QVERIFY(tables.valid);
            QCOMPARE(family(tables), expected[face]);
        }
    }

    void previewOfAnOpenTypeCffFile()
    {
        if (!QFile::exists(nimbus))
            QSKIP("fonts-urw-base35 is not installed");
        CFontPreview preview;
        preview.setFontFile(nimbus);
        QVERIFY(preview.ValidTrueTypeFile());
        QCOMPARE(preview.FamilyName(), QStringLiteral("Nimbus Sans"));
        QCOMPARE(preview.FaceName(), QStringLiteral("Nimbus Sans"));
        QVERIFY(preview.Installed());
        QCOMPARE(preview.FaceCount(), 1);
        QVERIFY(preview.ReadError().isEmpty());
    }

    void previewOfACollectionFaceByFace()
    {
        CFontPreview preview;
        preview.setFontFile(path(QStringLiteral("deux.ttc")));
        QCOMPARE(preview.FaceCount(), 2);
        QCOMPARE(preview.FaceIndex(), 0);
        QCOMPARE(preview.FamilyName(), QStringLiteral("Glyphora Coll Un"));
        QCOMPARE(preview.FaceName(), QStringLiteral("Glyphora Coll Un"));
        QVERIFY(!preview.Installed());
        preview.setFaceIndex(1);
        QCOMPARE(preview.FaceIndex(), 1);
        QCOMPARE(preview.FamilyName(), QStringLiteral("Glyphora Coll Deux"));
        QCOMPARE(preview.FaceName(), QStringLiteral("Glyphora Coll Deux"));
        QCOMPARE(preview.FullName(), QStringLiteral("Glyphora Coll Deux Regular"));
        QVERIFY(!preview.Installed());
        QVERIFY(registeredAnywhere(QStringLiteral("Glyphora Coll Deux")));
        // The index chosen before the file is the face read.
        CFontPreview second;
        second.setFaceIndex(1);
        second.setFontFile(path(QStringLiteral("deux.ttc")));
        QCOMPARE(second.FamilyName(), QStringLiteral("Glyphora Coll Deux"));
    }

    void collectionLeavesNothingRegistered()
    {
        {
            CFontPreview preview;
            preview.setFontFile(path(QStringLiteral("deux.ttc")));
            preview.setFaceIndex(1);
        }
        QVERIFY(!registeredAnywhere(QStringLiteral("Glyphora Coll Un")));
        QVERIFY(!registeredAnywhere(QStringLiteral("Glyphora Coll Deux")));
    }

    void previewOfWebFontsFromMemory()
    {
        // A temporary folder of this test's own: nothing may be unpacked into it.
        QTemporaryDir privateTemp;
        const QByteArray oldTemp = qgetenv("TMPDIR");
        qputenv("TMPDIR", privateTemp.path().toLocal8Bit());
        const QStringList before = QDir(QDir::tempPath()).entryList(QDir::Files | QDir::Hidden);
        QVERIFY(before.isEmpty());
        for (const auto& [file, name] : {std::pair{QStringLiteral("web.woff"), QStringLiteral("Glyphora Woff")},
                                         std::pair{QStringLiteral("web.woff2"), QStringLiteral("Glyphora Woff2")},
                                         std::pair{QStringLiteral("deguisee.ttf"), QStringLiteral("Glyphora Deguisee")}}) {
            {
                CFontPreview preview;
                preview.setFontFile(path(file));
                QVERIFY(preview.ReadError().isEmpty());
                QVERIFY(preview.ValidTrueTypeFile());
                QCOMPARE(preview.FamilyName(), name);
                QCOMPARE(preview.FaceName(), name); // registered from the unpacked bytes
                QVERIFY(!preview.Installed());
                QCOMPARE(preview.FaceCount(), 1);
                QVERIFY(QFontDatabase::families().contains(name));
            }
            QVERIFY(!registeredAnywhere(name));
        }
        // Nothing was unpacked to a file.
        QCOMPARE(QDir(QDir::tempPath()).entryList(QDir::Files | QDir::Hidden), before);
        if (oldTemp.isEmpty())
            qunsetenv("TMPDIR");
        else
            qputenv("TMPDIR", oldTemp);
    }

    void refusedWebFontsAreNeitherReadNorOffered()
    {
        const QStringList registered = FontRegistration::registeredFamilies();
        CFontPreview preview;
        preview.setFontFile(path(QStringLiteral("bombe.woff")));
        QCOMPARE(preview.ReadError(), QStringLiteral("La police web « bombe.woff » est refusée : décompressée, elle ferait "
                                                     "4096,0 Mo, au-delà de la limite de 64 Mo."));
        QVERIFY(preview.FaceName().isEmpty());
        QVERIFY(!preview.ValidTrueTypeFile());
        QCOMPARE(preview.FaceCount(), 0);
        QCOMPARE(FontRegistration::registeredFamilies(), registered);

        preview.setFontFile(path(QStringLiteral("tronquee.woff2")));
        QCOMPARE(preview.ReadError(),
                 QStringLiteral("La police web « tronquee.woff2 » est illisible : le fichier WOFF2 est tronqué ou abîmé."));
        QVERIFY(preview.FaceName().isEmpty());
        QCOMPARE(FontRegistration::registeredFamilies(), registered);

        // A good file afterwards clears the reason.
        preview.setFontFile(path(QStringLiteral("web.woff")));
        QVERIFY(preview.ReadError().isEmpty());
        QCOMPARE(preview.FaceName(), QStringLiteral("Glyphora Woff"));
    }

    void faceNamesOfEveryFormat()
    {
        QCOMPARE(FontRegistration::faceNamesOfFile(path(QStringLiteral("deux.ttc"))),
                 (QStringList{QStringLiteral("Glyphora Coll Un"), QStringLiteral("Glyphora Coll Deux")}));
        QCOMPARE(FontRegistration::faceNamesOfFile(path(QStringLiteral("web.woff2"))), QStringList{QStringLiteral("Glyphora Woff2")});
        QCOMPARE(FontRegistration::faceNamesOfFile(path(QStringLiteral("deguisee.ttf"))), QStringList{QStringLiteral("Glyphora Deguisee")});
        QString refusal;
        QCOMPARE(FontRegistration::faceNamesOfFile(path(QStringLiteral("bombe.woff")), &refusal), QStringList());
        QVERIFY(refusal.contains(QStringLiteral("64 Mo")));
        QVERIFY(!registeredAnywhere(QStringLiteral("Glyphora Woff2")));
    }
};

GLYPHORA_TEST_MAIN(TestFontFormats)
#include "test_fontformats.moc"
