// The character table's codes and texts, without the window.
#include "samples/charcodes.h"
#include "support/testsupport.h"

class TestCharCodes : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void binaryTextHasEightDigits_data()
    {
        QTest::addColumn<int>("code");
        QTest::addColumn<QString>("binary");
        QTest::newRow("0") << 0 << "00000000";
        QTest::newRow("1") << 1 << "00000001";
        QTest::newRow("32") << 32 << "00100000";
        QTest::newRow("65") << 65 << "01000001";
        QTest::newRow("128") << 128 << "10000000";
        QTest::newRow("170") << 170 << "10101010";
        QTest::newRow("255") << 255 << "11111111";
    }
    void binaryTextHasEightDigits()
    {
        QFETCH(int, code);
        QFETCH(QString, binary);
        QCOMPARE(CharCodes::BinaryText(code), binary);
    }

    void binaryTextKeepsItsNinthDigitRule()
    {
        // After eight halvings 256 leaves exactly 1, which adds a ninth "1"; 257 leaves 2.
        QCOMPARE(CharCodes::BinaryText(256), QStringLiteral("111111111"));
        QCOMPARE(CharCodes::BinaryText(257), QStringLiteral("11111111"));
    }

    void decimalHexOctal()
    {
        QCOMPARE(CharCodes::DecimalText(65), QStringLiteral("65"));
        QCOMPARE(CharCodes::HexText(65), QStringLiteral("41"));
        QCOMPARE(CharCodes::OctalText(65), QStringLiteral("101"));
        QCOMPARE(CharCodes::HexText(10), QStringLiteral("A"));
        QCOMPARE(CharCodes::HexText(255), QStringLiteral("FF"));
        QCOMPARE(CharCodes::HexText(171), QStringLiteral("AB"));
        QCOMPARE(CharCodes::OctalText(8), QStringLiteral("10"));
        QCOMPARE(CharCodes::OctalText(255), QStringLiteral("377"));
        QCOMPARE(CharCodes::OctalText(7), QStringLiteral("7"));
    }

    void listEntriesAreThreeBlanksAndTheWindows1252Character()
    {
        QCOMPARE(CharCodes::ListEntry(128), QStringLiteral("   €"));
        QCOMPARE(CharCodes::ListEntry(65), QStringLiteral("   A"));
        QCOMPARE(CharCodes::ListEntry(0x9C), QStringLiteral("   œ"));
        QCOMPARE(CharCodes::ListEntry(252), QStringLiteral("   ü"));
        QCOMPARE(CharCodes::ListEntry(160), QStringLiteral("   ") + QChar(0x00A0));
        QCOMPARE(CharCodes::LastListCode - CharCodes::FirstListCode + 1, 220);
    }

    void entryCharacterIsTheFourth()
    {
        QCOMPARE(CharCodes::EntryCharacter(QStringLiteral("   €")), QStringLiteral("€"));
        QCOMPARE(CharCodes::EntryCharacter(QStringLiteral("   ")), QString());
        QCOMPARE(CharCodes::EntryCharacter(QString()), QString());
    }

    void trimBlanksRemovesOnlySpaces()
    {
        QCOMPARE(CharCodes::TrimBlanks(QStringLiteral("   €  ")), QStringLiteral("€"));
        QCOMPARE(CharCodes::TrimBlanks(QStringLiteral("   ")), QString());
        QCOMPARE(CharCodes::TrimBlanks(QStringLiteral("   ") + QChar(0x00A0)), QString(QChar(0x00A0)));
        QCOMPARE(CharCodes::TrimBlanks(QStringLiteral("\ta ")), QStringLiteral("\ta"));
    }

    void codeOfText()
    {
        QCOMPARE(CharCodes::CodeOfText(QStringLiteral("€")), 128);
        QCOMPARE(CharCodes::CodeOfText(QStringLiteral("A")), 65);
        QCOMPARE(CharCodes::CodeOfText(QString()), -1);
        QCOMPARE(CharCodes::CodeOfText(QStringLiteral("一")), -1);
    }

    void cellsFillRowsOfSixteen()
    {
        QCOMPARE(CharCodes::CellPlace(0).row, 0);
        QCOMPARE(CharCodes::CellPlace(0).column, 0);
        QCOMPARE(CharCodes::CellPlace(15).column, 15);
        QCOMPARE(CharCodes::CellPlace(16).row, 1);
        QCOMPARE(CharCodes::CellPlace(16).column, 0);
        QCOMPARE(CharCodes::CellPlace(223).row, 13);
        QCOMPARE(CharCodes::CellPlace(223).column, 15);
    }
};

GLYPHORA_TEST_MAIN(TestCharCodes)
#include "test_charcodes.moc"
