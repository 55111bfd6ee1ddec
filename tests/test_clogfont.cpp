// The logical-font record and the CLogFont object that owns the font made from it.
#include "components/runtimeerror.h"
#include "components/stdfont.h"
#include "samples/clogfont.h"
#include "support/testsupport.h"

#include <QGuiApplication>
#include <QScreen>
#include <cstring>

namespace {

StdFont font(const QString& name, double size)
{
    StdFont f;
    f.setName(name);
    f.setSize(size);
    return f;
}

QByteArray faceField(const LOGFONT& record)
{
    return QByteArray(record.lfFaceName, sizeof record.lfFaceName);
}

} // namespace

class TestCLogFont : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void heights_data()
    {
        QTest::addColumn<double>("points");
        QTest::addColumn<int>("dpi");
        QTest::addColumn<int>("height");
        QTest::newRow("8 at 96") << 8.0 << 96 << -11;    // 10.67
        QTest::newRow("10 at 96") << 10.0 << 96 << -13;  // 13.33
        QTest::newRow("12 at 96") << 12.0 << 96 << -16;
        QTest::newRow("72 at 96") << 72.0 << 96 << -96;
        QTest::newRow("8 at 120") << 8.0 << 120 << -13;  // 13.33
        QTest::newRow("10 at 120") << 10.0 << 120 << -17; // 16.67
        QTest::newRow("12 at 120") << 12.0 << 120 << -20;
        QTest::newRow("72 at 120") << 72.0 << 120 << -120;
        // Exact halves go to the even neighbour: 14.5 -> 14, 15.5 -> 16.
        QTest::newRow("10.875 at 96") << 10.875 << 96 << -14;
        QTest::newRow("11.625 at 96") << 11.625 << 96 << -16;
        // 8.25 x 96 / 72 = 11 exactly; 0.375 pt is half a pixel, which goes to 0.
        QTest::newRow("8.25 at 96") << 8.25 << 96 << -11;
        QTest::newRow("0.375 at 96") << 0.375 << 96 << 0;
    }
    void heights()
    {
        QFETCH(double, points);
        QFETCH(int, dpi);
        QFETCH(int, height);
        QCOMPARE(LogFontRecord::HeightForPoints(points, dpi), height);
        QCOMPARE(LogFontRecord::Make(font(QStringLiteral("Arial"), points), 0.0f, dpi).lfHeight, height);
    }

    void escapementsRoundHalvesToEven_data()
    {
        QTest::addColumn<float>("rotation");
        QTest::addColumn<int>("escapement");
        QTest::newRow("45.25") << 45.25f << 452;
        QTest::newRow("45.75") << 45.75f << 458;
        QTest::newRow("-45.25") << -45.25f << -452;
        QTest::newRow("0.05") << 0.05f << 0;     // 0.5 in single precision: even 0
        QTest::newRow("0.15") << 0.15f << 2;     // 1.5 -> 2
        QTest::newRow("30") << 30.0f << 300;
        QTest::newRow("-360") << -360.0f << -3600;
        QTest::newRow("720") << 720.0f << 7200;
    }
    void escapementsRoundHalvesToEven()
    {
        QFETCH(float, rotation);
        QFETCH(int, escapement);
        const LOGFONT record = LogFontRecord::Make(font(QStringLiteral("Arial"), 12), rotation, 96);
        QCOMPARE(record.lfEscapement, escapement);
        QCOMPARE(record.lfOrientation, escapement);
    }

    void charsetAndPrecisionRules_data()
    {
        QTest::addColumn<float>("rotation");
        QTest::addColumn<bool>("rotated");
        QTest::newRow("-360") << -360.0f << false;
        QTest::newRow("-90") << -90.0f << true;
        QTest::newRow("0") << 0.0f << false;
        QTest::newRow("30") << 30.0f << true;
        QTest::newRow("360") << 360.0f << false;
        QTest::newRow("720") << 720.0f << false;
        QTest::newRow("359.6 rounds to 360") << 359.6f << false;
        QTest::newRow("0.4 rounds to 0") << 0.4f << false;
        QTest::newRow("0.6 rounds to 1") << 0.6f << true;
    }
    void charsetAndPrecisionRules()
    {
        QFETCH(float, rotation);
        QFETCH(bool, rotated);
        StdFont oem = font(QStringLiteral("Terminal"), 12);
        oem.setCharset(255);
        const LOGFONT record = LogFontRecord::Make(oem, rotation, 96);
        QCOMPARE(int(record.lfCharSet), rotated ? 0 : 255);
        QCOMPARE(int(record.lfOutPrecision), rotated ? 7 : 0);
        QCOMPARE(LogFontRecord::IsRotated(rotation), rotated);

        // Other character sets are kept whatever the angle.
        StdFont symbol = font(QStringLiteral("Symbol"), 12);
        symbol.setCharset(2);
        QCOMPARE(int(LogFontRecord::Make(symbol, rotation, 96).lfCharSet), 2);
        StdFont ansi = font(QStringLiteral("Arial"), 12);
        ansi.setCharset(254);
        QCOMPARE(int(LogFontRecord::Make(ansi, rotation, 96).lfCharSet), 254);
    }

    void theOtherFields()
    {
        StdFont f = font(QStringLiteral("Arial"), 12);
        f.setWeight(700);
        f.setItalic(true);
        f.setStrikethrough(true);
        LOGFONT record = LogFontRecord::Make(f, 30.0f, 96);
        QCOMPARE(record.lfWidth, 0);
        QCOMPARE(record.lfWeight, 700);
        QCOMPARE(int(record.lfItalic), 255);
        QCOMPARE(int(record.lfUnderline), 0);
        QCOMPARE(int(record.lfStrikeOut), 255);
        QCOMPARE(int(record.lfClipPrecision), 0);
        QCOMPARE(int(record.lfQuality), 2);
        QCOMPARE(int(record.lfPitchAndFamily), 0);
        f.setItalic(false);
        f.setUnderline(true);
        f.setStrikethrough(false);
        f.setWeight(400);
        record = LogFontRecord::Make(f, 30.0f, 96);
        QCOMPARE(record.lfWeight, 400);
        QCOMPARE(int(record.lfItalic), 0);
        QCOMPARE(int(record.lfUnderline), 255);
        QCOMPARE(int(record.lfStrikeOut), 0);
    }

    void shortFaceNameIsTerminatedAndPaddedWithBlanks()
    {
        const LOGFONT record = LogFontRecord::Make(font(QStringLiteral("Arial"), 12), 0.0f, 96);
        QCOMPARE(faceField(record), QByteArray("Arial") + QByteArray(1, '\0') + QByteArray(26, ' '));
        QCOMPARE(LogFontRecord::FaceName(record), QStringLiteral("Arial"));
    }

    void faceNameIsInWindows1252()
    {
        const LOGFONT record = LogFontRecord::Make(font(QStringLiteral("Garamond Été €一"), 12), 0.0f, 96);
        QCOMPARE(faceField(record).left(18), QByteArray("Garamond \xC9t\xE9 \x80?\0  ", 18));
        QCOMPARE(LogFontRecord::FaceName(record), QStringLiteral("Garamond Été €?"));
    }

    void thirtyOneCharactersStillFitTheTerminator()
    {
        const QString name(31, QLatin1Char('N'));
        const LOGFONT record = LogFontRecord::Make(font(name, 12), 0.0f, 96);
        QCOMPARE(faceField(record), name.toLatin1() + QByteArray(1, '\0'));
        QCOMPARE(LogFontRecord::FaceName(record), name);
    }

    void thirtyTwoCharactersHaveNoTerminator()
    {
        const QString name = QStringLiteral("ABCDEFGHIJKLMNOPQRSTUVWXYZ012345");
        QCOMPARE(name.size(), 32);
        const LOGFONT record = LogFontRecord::Make(font(name, 12), 0.0f, 96);
        QCOMPARE(faceField(record), name.toLatin1());
        QVERIFY(!std::memchr(record.lfFaceName, 0, 32));
        QCOMPARE(LogFontRecord::FaceName(record), name);
    }

    void longerNamesAreCutAt32()
    {
        const QString name = QStringLiteral("ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789");
        const LOGFONT record = LogFontRecord::Make(font(name, 12), 0.0f, 96);
        QCOMPARE(faceField(record), name.left(32).toLatin1());
        QCOMPARE(LogFontRecord::FaceName(record), name.left(32));
    }

    void emptyNameIsATerminatorAndBlanks()
    {
        const LOGFONT record = LogFontRecord::Make(font(QString(), 12), 0.0f, 96);
        QCOMPARE(faceField(record), QByteArray(1, '\0') + QByteArray(31, ' '));
    }

    // The object.

    void startsWithNothing()
    {
        CLogFont logFont;
        QCOMPARE(logFont.Handle(), quintptr(0));
        QVERIFY(!logFont.LogFont());
        QCOMPARE(logFont.Rotation(), 0.0f);
        QVERIFY(!logFont.HandleFont());
    }

    void rotationWithoutAFontOnlyStoresTheAngle()
    {
        const int before = CLogFont::LiveHandles();
        CLogFont logFont;
        logFont.setRotation(30.0f);
        QCOMPARE(logFont.Rotation(), 30.0f);
        QCOMPARE(logFont.Handle(), quintptr(0));
        QCOMPARE(CLogFont::LiveHandles(), before);
        // The handle comes with the font, at the stored angle.
        const StdFont f = font(QStringLiteral("DejaVu Sans"), 12);
        logFont.setLogFont(&f);
        QVERIFY(logFont.Handle() != 0);
        QCOMPARE(logFont.Record().lfEscapement, 300);
        QCOMPARE(logFont.HandleAngle(), 30.0);
    }

    void settingAFontMakesAHandleFromTheScreenResolution()
    {
        CLogFont logFont;
        const StdFont f = font(QStringLiteral("DejaVu Sans"), 12);
        logFont.setLogFont(&f);
        QVERIFY(logFont.Handle() != 0);
        const int dpi = qRound(QGuiApplication::primaryScreen()->logicalDotsPerInchY());
        QCOMPARE(CLogFont::PixelsPerInch(), dpi);
        QCOMPARE(logFont.Record().lfHeight, LogFontRecord::HeightForPoints(12, dpi));
        QCOMPARE(LogFontRecord::FaceName(logFont.Record()), QStringLiteral("DejaVu Sans"));
        const QFont* made = logFont.HandleFont();
        QVERIFY(made);
        QCOMPARE(made->family(), QStringLiteral("DejaVu Sans"));
        QCOMPARE(made->pixelSize(), -logFont.Record().lfHeight);
    }

    void theFontObjectCarriesTheRecord()
    {
        StdFont f = font(QStringLiteral("DejaVu Serif"), 10);
        f.setWeight(700);
        f.setItalic(true);
        f.setUnderline(true);
        f.setStrikethrough(true);
        CLogFont logFont;
        logFont.setRotation(-90.0f);
        logFont.setLogFont(&f);
        const QFont* made = logFont.HandleFont();
        QVERIFY(made);
        QCOMPARE(made->weight(), QFont::Bold);
        QVERIFY(made->italic());
        QVERIFY(made->underline());
        QVERIFY(made->strikeOut());
        QCOMPARE(made->styleStrategy() & QFont::PreferOutline, QFont::PreferOutline);
        QCOMPARE(logFont.HandleAngle(), -90.0);
    }

    void multiplesOf360DrawUnrotated()
    {
        const StdFont f = font(QStringLiteral("DejaVu Sans"), 12);
        for (float angle : {360.0f, -360.0f, 720.0f, 0.0f}) {
            CLogFont logFont;
            logFont.setRotation(angle);
            logFont.setLogFont(&f);
            QCOMPARE(logFont.HandleAngle(), 0.0);
            QCOMPARE(int(logFont.Record().lfOutPrecision), 0);
            QCOMPARE(logFont.HandleFont()->styleStrategy() & QFont::PreferOutline, 0);
        }
    }

    void theSameRotationKeepsTheSameHandle()
    {
        CLogFont logFont;
        const StdFont f = font(QStringLiteral("DejaVu Sans"), 12);
        logFont.setLogFont(&f);
        logFont.setRotation(45.0f);
        const quintptr handle = logFont.Handle();
        const QFont* object = logFont.HandleFont();
        logFont.setRotation(45.0f);
        QCOMPARE(logFont.Handle(), handle);
        QCOMPARE(logFont.HandleFont(), object);
    }

    void aNewRotationReplacesTheHandle()
    {
        const int before = CLogFont::LiveHandles();
        CLogFont logFont;
        const StdFont f = font(QStringLiteral("DejaVu Sans"), 12);
        logFont.setLogFont(&f);
        const quintptr first = logFont.Handle();
        QCOMPARE(CLogFont::LiveHandles(), before + 1);
        logFont.setRotation(30.0f);
        QVERIFY(logFont.Handle() != 0);
        QVERIFY(logFont.Handle() != first);
        // The old one was deleted: still one per object.
        QCOMPARE(CLogFont::LiveHandles(), before + 1);
        QCOMPARE(logFont.Record().lfEscapement, 300);
    }

    void settingNoFontDeletesTheHandle()
    {
        const int before = CLogFont::LiveHandles();
        CLogFont logFont;
        const StdFont f = font(QStringLiteral("DejaVu Sans"), 12);
        logFont.setLogFont(&f);
        logFont.setLogFont(nullptr);
        QCOMPARE(logFont.Handle(), quintptr(0));
        QVERIFY(!logFont.LogFont());
        QVERIFY(!logFont.HandleFont());
        QCOMPARE(CLogFont::LiveHandles(), before);
        QCOMPARE(logFont.Record().lfHeight, 0);
        // Setting the font again replaces, it never adds.
        logFont.setLogFont(&f);
        const quintptr first = logFont.Handle();
        logFont.setLogFont(&f);
        QVERIFY(logFont.Handle() != first);
        QCOMPARE(CLogFont::LiveHandles(), before + 1);
    }

    void theEndOfTheObjectDeletesTheHandle()
    {
        const int before = CLogFont::LiveHandles();
        {
            CLogFont logFont;
            const StdFont f = font(QStringLiteral("DejaVu Sans"), 12);
            logFont.setLogFont(&f);
            QCOMPARE(CLogFont::LiveHandles(), before + 1);
        }
        QCOMPARE(CLogFont::LiveHandles(), before);
    }

    void theDescriptionIsCopied()
    {
        StdFont f = font(QStringLiteral("DejaVu Sans"), 12);
        f.setCharset(255);
        f.setItalic(true);
        f.setUnderline(true);
        f.setStrikethrough(true);
        f.setWeight(600);
        CLogFont logFont;
        logFont.setLogFont(&f);
        f.setName(QStringLiteral("Other"));
        f.setSize(30);
        f.setItalic(false);
        const StdFont* held = logFont.LogFont();
        QVERIFY(held);
        QVERIFY(held != &f);
        QCOMPARE(held->Name(), QStringLiteral("DejaVu Sans"));
        QCOMPARE(held->Size(), 12.0);
        QVERIFY(held->Italic());
        QVERIFY(held->Underline());
        QVERIFY(held->Strikethrough());
        QCOMPARE(held->Charset(), short(255));
        // Weight is copied after Bold, so it wins.
        QCOMPARE(held->Weight(), short(600));
        QCOMPARE(logFont.Record().lfWeight, 600);
    }

    void anAngleBeyondTheIntegerRangeIsAnOverflow()
    {
        CLogFont logFont;
        const StdFont f = font(QStringLiteral("DejaVu Sans"), 12);
        logFont.setLogFont(&f);
        try {
            logFont.setRotation(1e30f);
            QFAIL("no error");
        } catch (const RuntimeError& e) {
            QCOMPARE(e.number(), 6);
        }
        QCOMPARE(logFont.Handle(), quintptr(0));
    }

    void atAScreenOf120PixelsPerInch()
    {
        const auto result = TestSupport::runScenario(
            QStringLiteral("dpi120"), {QStringLiteral("QT_ENABLE_HIGHDPI_SCALING=0"), QStringLiteral("QT_FONT_DPI=120")});
        QCOMPARE(result.exitStatus, QProcess::NormalExit);
        QVERIFY2(result.exitCode == 0, qPrintable(result.out + result.err));
    }
};

// In a child whose screen has 120 pixels per inch: the heights follow it.
static int dpi120()
{
    if (CLogFont::PixelsPerInch() != 120) {
        std::printf("screen at %d dpi\n", CLogFont::PixelsPerInch());
        return 1;
    }
    const int expected[][2] = {{8, -13}, {10, -17}, {12, -20}, {72, -120}};
    for (const auto& row : expected) {
        CLogFont logFont;
        const StdFont f = font(QStringLiteral("DejaVu Sans"), row[0]);
        logFont.setLogFont(&f);
        if (logFont.Record().lfHeight != row[1] || logFont.HandleFont()->pixelSize() != -row[1]) {
            std::printf("%d points gave %d\n", row[0], logFont.Record().lfHeight);
            return 2;
        }
    }
    return 0;
}

int main(int argc, char** argv)
{
    TestSupport::registerScenario(QStringLiteral("dpi120"), dpi120);
    TestCLogFont test;
    return glyphoraTestMain(argc, argv, &test);
}
#include "test_clogfont.moc"
