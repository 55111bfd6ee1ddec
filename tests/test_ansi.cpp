// Windows-1252 conversions.
#include "components/ansi.h"
#include "support/testsupport.h"

class TestAnsi : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void decodesTheHighRange()
    {
        QCOMPARE(Ansi::charOf(0x80), QChar(0x20AC));
        QCOMPARE(Ansi::charOf(0x9F), QChar(0x0178));
        QCOMPARE(Ansi::charOf(0x81), QChar(0x0081));
        QCOMPARE(Ansi::charOf(0xE9), QChar(0x00E9));
        QCOMPARE(Ansi::charOf('A'), QChar('A'));
        QCOMPARE(Ansi::decode(QByteArray("\x80\xE9t\xE9", 4)), QStringLiteral("€été"));
    }

    void encodesWithQuestionMarks()
    {
        QCOMPARE(Ansi::encode(QStringLiteral("é")), QByteArray("\xE9"));
        QCOMPARE(Ansi::encode(QStringLiteral("€œ")), QByteArray("\x80\x9C"));
        QCOMPARE(Ansi::encode(QStringLiteral("a一b")), QByteArray("a?b"));
        QCOMPARE(Ansi::encode(QString::fromUtf8("x\xF0\x9F\x98\x80y")), QByteArray("x?y"));
        QCOMPARE(Ansi::encode(QStringLiteral("\r\n")), QByteArray("\r\n"));
    }

    void roundTripsEveryCode()
    {
        for (int code = 0; code < 256; ++code)
            QCOMPARE(Ansi::codeOf(Ansi::charOf(static_cast<unsigned char>(code))), code);
    }
};

GLYPHORA_TEST_MAIN(TestAnsi)
#include "test_ansi.moc"
