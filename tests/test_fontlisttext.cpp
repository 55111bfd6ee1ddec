// The font list file's bytes and the HTML font tag with its colour attribute.
#include "output/fontlisttext.h"
#include "support/testsupport.h"

class TestFontListText : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void listFileIsEveryNameWithCrLf()
    {
        QCOMPARE(FontListText::listFile({QStringLiteral("Arial"), QStringLiteral("Caf\u00e9 Sans"), QStringLiteral("Z")}),
                 QByteArray("Arial\r\nCaf\xE9 Sans\r\nZ\r\n"));
        QCOMPARE(FontListText::listFile({}), QByteArray());
        QCOMPARE(FontListText::listFile({QStringLiteral("\u4e00x")}), QByteArray("?x\r\n"));
    }

    void colourDigitsReadAsRedGreenBlue_data()
    {
        QTest::addColumn<quint32>("colour");
        QTest::addColumn<QString>("digits");
        QTest::newRow("black") << quint32(0) << QStringLiteral("000000");
        QTest::newRow("red") << quint32(255) << QStringLiteral("FF0000");
        QTest::newRow("blue") << quint32(0xFF0000) << QStringLiteral("0000FF");
        QTest::newRow("green") << quint32(0x00FF00) << QStringLiteral("00FF00");
        QTest::newRow("mixed") << quint32(0x123456) << QStringLiteral("563412");
        QTest::newRow("short") << quint32(0xABC) << QStringLiteral("BC0A00");
        QTest::newRow("system colour") << quint32(0x80000008) << QStringLiteral("080080");
    }

    void colourDigitsReadAsRedGreenBlue()
    {
        QFETCH(quint32, colour);
        QFETCH(QString, digits);
        QCOMPARE(FontListText::colourDigits(colour), digits);
    }

    void colourAttribute()
    {
        QCOMPARE(FontListText::colourAttribute(0), QStringLiteral(" COLOR=\"#000000\""));
        QCOMPARE(FontListText::colourAttribute(255), QStringLiteral(" COLOR=\"#FF0000\""));
        QCOMPARE(FontListText::colourAttribute(0xFF0000), QStringLiteral(" COLOR=\"#0000FF\""));
        QCOMPARE(FontListText::colourAttribute(0x80000008), QStringLiteral(" COLOR=\"#080080\""));
    }

    void fontTag()
    {
        QCOMPARE(FontListText::fontTag(QStringLiteral("Arial"), FontListText::colourAttribute(255)),
                 QStringLiteral("<FONT FACE=\"Arial\" COLOR=\"#FF0000\"></FONT>"));
        QCOMPARE(FontListText::fontTag(QStringLiteral("  Times New Roman "), QString()),
                 QStringLiteral("<FONT FACE=\"Times New Roman\"></FONT>"));
    }
};

GLYPHORA_TEST_MAIN(TestFontListText)
#include "test_fontlisttext.moc"
