// Text-to-number conversions: rounding, type mismatch and overflow errors.
#include "components/conversions.h"
#include "components/runtimeerror.h"
#include "support/testsupport.h"

#include <QLocale>

using namespace Conversions;

class TestConversions : public QObject {
    Q_OBJECT

private:
    template <typename F>
    static int errorNumber(F&& f)
    {
        try {
            f();
        } catch (const RuntimeError& e) {
            return e.number();
        }
        return 0;
    }

private Q_SLOTS:
    void roundsHalvesToEven()
    {
        QCOMPARE(roundHalfEven(2.5), 2.0);
        QCOMPARE(roundHalfEven(3.5), 4.0);
        QCOMPARE(roundHalfEven(-2.5), -2.0);
        QCOMPARE(roundHalfEven(13.33), 13.0);
        QCOMPARE(roundHalfEven(452.5), 452.0);
        QCOMPARE(roundHalfEven(457.5), 458.0);
    }

    void int16AcceptsNumericText()
    {
        QCOMPARE(toInt16(QStringLiteral("15")), int16_t(15));
        QCOMPARE(toInt16(QStringLiteral("  15  ")), int16_t(15));
        QCOMPARE(toInt16(QStringLiteral("-7")), int16_t(-7));
        QCOMPARE(toInt16(QStringLiteral("+7")), int16_t(7));
        QCOMPARE(toInt16(QStringLiteral("2.5")), int16_t(2));
        QCOMPARE(toInt16(QStringLiteral("3.5")), int16_t(4));
        QCOMPARE(toInt16(QStringLiteral("32767")), int16_t(32767));
        QCOMPARE(toInt16(QStringLiteral("-32768")), int16_t(-32768));
        QCOMPARE(toInt16(QStringLiteral("1e2")), int16_t(100));
    }

    void int16RejectsOtherText()
    {
        QCOMPARE(errorNumber([] { toInt16(QStringLiteral("abc")); }), 13);
        QCOMPARE(errorNumber([] { toInt16(QStringLiteral("")); }), 13);
        QCOMPARE(errorNumber([] { toInt16(QStringLiteral("12abc")); }), 13);
        QCOMPARE(errorNumber([] { toInt16(QStringLiteral("32768")); }), 6);
        QCOMPARE(errorNumber([] { toInt16(QStringLiteral("-32769")); }), 6);
        try {
            toInt16(QStringLiteral("abc"));
            QFAIL("no error");
        } catch (const RuntimeError& e) {
            QCOMPARE(e.description(), QStringLiteral("Incompatibilité de type"));
        }
        try {
            toInt16(QStringLiteral("99999"));
            QFAIL("no error");
        } catch (const RuntimeError& e) {
            QCOMPARE(e.description(), QStringLiteral("Dépassement de capacité"));
        }
    }

    void int32Range()
    {
        QCOMPARE(toInt32(QStringLiteral("16777215")), int32_t(16777215));
        QCOMPARE(toInt32(QStringLiteral("-2147483648")), int32_t(-2147483648LL));
        QCOMPARE(errorNumber([] { toInt32(QStringLiteral("2147483648")); }), 6);
        QCOMPARE(errorNumber([] { toInt32(QStringLiteral("x1")); }), 13);
    }

    void booleans()
    {
        QVERIFY(toBool(boolText(true)));
        QVERIFY(!toBool(boolText(false)));
        QVERIFY(toBool(QStringLiteral("True")));
        QVERIFY(toBool(QStringLiteral("vrai")));
        QVERIFY(toBool(QStringLiteral("-1")));
        QVERIFY(!toBool(QStringLiteral("0")));
        QCOMPARE(errorNumber([] { toBool(QStringLiteral("peut-être")); }), 13);
    }

    void leadingNumberReadsTheStart()
    {
        QCOMPARE(leadingNumber(QStringLiteral("2abc")), 2.0);
        QCOMPARE(leadingNumber(QStringLiteral("0.5")), 0.5);
        QCOMPARE(leadingNumber(QStringLiteral("")), 0.0);
        QCOMPARE(leadingNumber(QStringLiteral("abc")), 0.0);
        QCOMPARE(leadingNumber(QStringLiteral(" 13")), 13.0);
        QCOMPARE(leadingNumber(QStringLiteral("45abc")), 45.0);
        QCOMPARE(leadingNumber(QStringLiteral("-12.5x")), -12.5);
        QCOMPARE(leadingNumber(QStringLiteral("1 2")), 12.0);
        QCOMPARE(leadingNumber(QStringLiteral("0,5")), 0.0); // the comma is not a decimal point here
    }

    void signedTextKeepsASignPosition()
    {
        QCOMPARE(signedText(4), QStringLiteral(" 4"));
        QCOMPARE(signedText(120), QStringLiteral(" 120"));
        QCOMPARE(signedText(0), QStringLiteral(" 0"));
        QCOMPARE(signedText(-3), QStringLiteral("-3"));
    }
};

GLYPHORA_TEST_MAIN(TestConversions)
#include "test_conversions.moc"
