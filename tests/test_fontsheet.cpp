// RTF and HTML font sheets: their exact bytes from plain inputs.
#include "output/fontsheet.h"
#include "support/testsupport.h"

namespace {

// Joins lines, each ended by CR LF.
QByteArray lines(std::initializer_list<QByteArray> content)
{
    QByteArray bytes;
    for (const QByteArray& line : content)
        bytes += line + "\r\n";
    return bytes;
}

const QByteArray rtfHeader = "{\\rtf1\\ansi\\ansicpg1252\\deff0\\deflang1033{\\fonttbl";

} // namespace

class TestFontSheet : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void halfPointsDoubleTheWholePart()
    {
        QCOMPARE(FontSheet::halfPoints(QStringLiteral(" 10")), 20);
        QCOMPARE(FontSheet::halfPoints(QStringLiteral(" 6")), 12);
        QCOMPARE(FontSheet::halfPoints(QStringLiteral(" 120")), 240);
        QCOMPARE(FontSheet::halfPoints(QStringLiteral("10.9")), 20);
        QCOMPARE(FontSheet::halfPoints(QStringLiteral("")), 0);
    }

    void rtfForTwoFontsIsTheNineLineSheet()
    {
        const QByteArray expected = lines({
            rtfHeader,
            "{\\f0\\fnil\\fprq2\\fcharset0 A;}",
            "{\\f1\\fnil\\fprq2\\fcharset0 B;}",
            "}",
            "\\viewkind4\\uc1\\pard\\fs20\\cf1\\fs24\\f0 A\\par\\fs24\\f0 T\\par\\par",
            "",
            "\\par",
            "\\fs24\\f0 B\\par\\fs20\\f1 T\\par\\par",
            "}",
        });
        const QByteArray sheet = FontSheet::rtf({QStringLiteral("A"), QStringLiteral("B")}, QStringLiteral("A"),
                                                QStringLiteral("T"), QStringLiteral(" 10"), QStringLiteral(" 12"));
        QCOMPARE(sheet, expected);
    }

    void rtfForOneFontPutsTheWholeSheetInTheFirstParagraph()
    {
        const QByteArray expected = lines({
            rtfHeader,
            "{\\f0\\fnil\\fprq2\\fcharset0 Arial;}",
            "}",
            "\\viewkind4\\uc1\\pard\\fs16\\cf1\\fs28\\f0 Arial\\par\\fs28\\f0 Texte\\par\\par",
            "",
            "\\par",
            "}",
        });
        const QByteArray sheet = FontSheet::rtf({QStringLiteral("Arial")}, QStringLiteral("Arial"),
                                                QStringLiteral("Texte"), QStringLiteral(" 8"), QStringLiteral(" 14"));
        QCOMPARE(sheet, expected);
    }

    void rtfWithTheNameFontNotSelectedWritesABareF()
    {
        const QByteArray expected = lines({
            rtfHeader,
            "{\\f0\\fnil\\fprq2\\fcharset0 A;}",
            "{\\f1\\fnil\\fprq2\\fcharset0 B;}",
            "}",
            "\\viewkind4\\uc1\\pard\\fs20\\cf1\\fs20\\f A\\par\\fs20\\f0 T\\par\\par",
            "",
            "\\par",
            "\\fs20\\f B\\par\\fs20\\f1 T\\par\\par",
            "}",
        });
        const QByteArray sheet = FontSheet::rtf({QStringLiteral("A"), QStringLiteral("B")}, QStringLiteral("Z"),
                                                QStringLiteral("T"), QStringLiteral(" 10"), QStringLiteral(" 10"));
        QCOMPARE(sheet, expected);
    }

    void rtfNameFontIsMatchedTrimmedAndTheLastMatchWins()
    {
        const QByteArray sheet = FontSheet::rtf({QStringLiteral("A"), QStringLiteral("B "), QStringLiteral(" B")},
                                                QStringLiteral(" B"), QStringLiteral("T"), QStringLiteral(" 10"),
                                                QStringLiteral(" 10"));
        QVERIFY(sheet.contains("\\cf1\\fs20\\f2 A\\par"));
        QVERIFY(sheet.contains("\\fs20\\f2 B \\par\\fs20\\f1 T\\par\\par\r\n"));
        QVERIFY(sheet.contains("{\\f1\\fnil\\fprq2\\fcharset0 B ;}\r\n{\\f2\\fnil\\fprq2\\fcharset0  B;}\r\n"));
    }

    void rtfCopiesTheSampleLineBreaksRaw()
    {
        const QByteArray sheet = FontSheet::rtf({QStringLiteral("A"), QStringLiteral("B")}, QStringLiteral("A"),
                                                QStringLiteral("un\r\ndeux\r\n"), QStringLiteral(" 10"),
                                                QStringLiteral(" 12"));
        const QByteArray expected = lines({
            rtfHeader,
            "{\\f0\\fnil\\fprq2\\fcharset0 A;}",
            "{\\f1\\fnil\\fprq2\\fcharset0 B;}",
            "}",
            "\\viewkind4\\uc1\\pard\\fs20\\cf1\\fs24\\f0 A\\par\\fs24\\f0 un",
            "deux",
            "\\par\\par",
            "",
            "\\par",
            "\\fs24\\f0 B\\par\\fs20\\f1 un",
            "deux",
            "\\par\\par",
            "}",
        });
        QCOMPARE(sheet, expected);
    }

    void rtfWritesNamesAsWindows1252AndEscapesNothing()
    {
        const QByteArray sheet = FontSheet::rtf({QStringLiteral("Caf\u00e9"), QStringLiteral("a\\b{c}")},
                                                QStringLiteral("Caf\u00e9"), QStringLiteral("\u20ac <\"x\"> \u4e00"),
                                                QStringLiteral(" 10"), QStringLiteral(" 10"));
        QVERIFY(sheet.contains("{\\f0\\fnil\\fprq2\\fcharset0 Caf\xE9;}\r\n"));
        QVERIFY(sheet.contains("{\\f1\\fnil\\fprq2\\fcharset0 a\\b{c};}\r\n"));
        QVERIFY(sheet.contains("\\f1 \x80 <\"x\"> ?\\par"));
        QVERIFY(!sheet.contains("\xC3"));
    }

    void rtfYieldsOncePerFontInEachPass()
    {
        int ticks = 0;
        FontSheet::rtf({QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("C")}, QStringLiteral("A"),
                       QStringLiteral("T"), QStringLiteral(" 10"), QStringLiteral(" 10"), [&ticks] { ++ticks; });
        QCOMPARE(ticks, 6);
    }

    void htmlForTwoFonts()
    {
        const QByteArray expected = lines({
            "<HTML>",
            "<HEAD>",
            "<TITLE>Liste des polices</TITLE>",
            "</HEAD>",
            "<BODY>",
            "<FONT FACE=\"Arial\">Arial</FONT><BR><FONT FACE=\"Arial\">Texte d'essai</FONT>",
            "<P>",
            "<FONT FACE=\"Arial\">Courier New</FONT><BR><FONT FACE=\"Courier New\">Texte d'essai</FONT>",
            "<P>",
            "</BODY>",
            "</HTML>",
        });
        QCOMPARE(FontSheet::html({QStringLiteral("Arial"), QStringLiteral("Courier New")}, QStringLiteral("Arial"),
                                 QStringLiteral("Texte d'essai")),
                 expected);
    }

    void htmlKeepsTheNameFontUntrimmedAndTheSampleRaw()
    {
        const QByteArray expected = lines({
            "<HTML>",
            "<HEAD>",
            "<TITLE>Liste des polices</TITLE>",
            "</HEAD>",
            "<BODY>",
            "<FONT FACE=\" Z \">Caf\xE9</FONT><BR><FONT FACE=\"Caf\xE9\">a<b>",
            "\"c\"</FONT>",
            "<P>",
            "</BODY>",
            "</HTML>",
        });
        QCOMPARE(FontSheet::html({QStringLiteral("Caf\u00e9")}, QStringLiteral(" Z "), QStringLiteral("a<b>\r\n\"c\"")),
                 expected);
    }

    void htmlWithNoFontHasOnlyTheFrame()
    {
        QCOMPARE(FontSheet::html({}, QStringLiteral("A"), QStringLiteral("T")),
                 lines({"<HTML>", "<HEAD>", "<TITLE>Liste des polices</TITLE>", "</HEAD>", "<BODY>", "</BODY>",
                        "</HTML>"}));
    }
};

GLYPHORA_TEST_MAIN(TestFontSheet)
#include "test_fontsheet.moc"
