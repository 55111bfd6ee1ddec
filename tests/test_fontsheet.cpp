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
        // Sizes outside the dialog's range are clamped before any conversion.
        QCOMPARE(FontSheet::halfPoints(QStringLiteral("")), 12);
        QCOMPARE(FontSheet::halfPoints(QStringLiteral("-5")), 12);
        QCOMPARE(FontSheet::halfPoints(QStringLiteral("500")), 240);
        QCOMPARE(FontSheet::halfPoints(QStringLiteral("1e300")), 240);
        QCOMPARE(FontSheet::halfPoints(QStringLiteral("1e400")), 12); // no number a double can hold
        QCOMPARE(FontSheet::halfPoints(QStringLiteral("99999999999999999999")), 240);
        QCOMPARE(FontSheet::pointSize(QStringLiteral("-1e400")), 6.0);
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

    void rtfEscapesNamesAndKeepsTheSampleAsTyped()
    {
        const QByteArray sheet = FontSheet::rtf({QStringLiteral("Caf\u00e9"), QStringLiteral("a\\b{c};d")},
                                                QStringLiteral("Caf\u00e9"), QStringLiteral("\u20ac <\"x\"> {\\b x}"),
                                                QStringLiteral(" 10"), QStringLiteral(" 10"));
        QVERIFY(sheet.contains("{\\f0\\fnil\\fprq2\\fcharset0 Caf\xE9;}\r\n"));
        QVERIFY(sheet.contains("{\\f1\\fnil\\fprq2\\fcharset0 a\\\\b\\{c\\},d;}\r\n"));
        QVERIFY(sheet.contains("\\f0 a\\\\b\\{c\\};d\\par\\fs20\\f1 \x80 <\"x\"> {\\b x}\\par"));
        QVERIFY(!sheet.contains("\xC3"));
    }

    void rtfEscapesCharactersOutsideWindows1252ByteForByte()
    {
        // Cyrillic, CJK, Arabic, a character above U+7FFF and an emoji (a surrogate pair).
        const QString text = QStringLiteral("\u0416\u4e2d\u0639\uff21\U0001F600\u00e9");
        const QByteArray escaped = "\\u1046?\\u20013?\\u1593?\\u-223?\\u-10179?\\u-8704?\xE9";
        QCOMPARE(FontSheet::rtfSample(text), escaped);
        QCOMPARE(FontSheet::rtfName(text, true), escaped);
        const QByteArray sheet = FontSheet::rtf({text}, text, text, QStringLiteral(" 10"), QStringLiteral(" 12"));
        QCOMPARE(sheet, lines({
                            rtfHeader,
                            "{\\f0\\fnil\\fprq2\\fcharset0 " + escaped + ";}",
                            "}",
                            "\\viewkind4\\uc1\\pard\\fs20\\cf1\\fs24\\f0 " + escaped + "\\par\\fs24\\f0 " + escaped + "\\par\\par",
                            "",
                            "\\par",
                            "}",
                        }));
    }

    void rtfBracesBalanceWhateverTheNames()
    {
        const QStringList names{QStringLiteral("}"), QStringLiteral("{"), QStringLiteral("\\"), QStringLiteral("\\}"),
                                QStringLiteral("a;b"), QStringLiteral("}}}{"), QStringLiteral("\\par}{\\rtf1"),
                                QStringLiteral("x\\"), QStringLiteral("\U0001F600}")};
        const QByteArray sheet = FontSheet::rtf(names, names[1], QStringLiteral("T"), QStringLiteral(" 10"),
                                                QStringLiteral(" 10"));
        // Outside escapes, depth never goes below 1 before the end, and ends at 0.
        int depth = 0, closedAt = -1;
        for (qsizetype i = 0; i < sheet.size(); ++i) {
            if (sheet[i] == '\\') {
                ++i;
                continue;
            }
            if (sheet[i] == '{')
                ++depth;
            if (sheet[i] == '}' && --depth == 0)
                closedAt = int(i);
        }
        QCOMPARE(depth, 0);
        QCOMPARE(closedAt, int(sheet.size() - 3));
        // Every font-table entry holds exactly one ";", its own end.
        const QByteArray table = sheet.mid(0, sheet.indexOf("}\r\n\\viewkind4"));
        QCOMPARE(table.count(';'), names.size());
    }

    void htmlEscapesNamesAndKeepsTheSampleAsTyped()
    {
        const QString hostile = QStringLiteral("<script>\"&'</script>");
        const QByteArray sheet = FontSheet::html({hostile}, hostile, QStringLiteral("<b>gras</b> & \"x\""));
        const QByteArray name = "&lt;script&gt;&quot;&amp;'&lt;/script&gt;";
        QCOMPARE(FontSheet::htmlName(hostile), name);
        QVERIFY(sheet.contains("<FONT FACE=\"" + name + "\">" + name + "</FONT><BR><FONT FACE=\"" + name
                               + "\"><b>gras</b> & \"x\"</FONT>\r\n"));
        QVERIFY(!sheet.contains("<script"));
    }

    void htmlWritesCharactersOutsideWindows1252AsReferences()
    {
        const QString text = QStringLiteral("\u0416\u4e2d\u0639\uff21\U0001F600\u00e9\u20ac");
        const QByteArray referenced = "&#1046;&#20013;&#1593;&#65313;&#128512;\xE9\x80";
        QCOMPARE(FontSheet::htmlName(text), referenced);
        QCOMPARE(FontSheet::htmlSample(text), referenced);
        QCOMPARE(FontSheet::htmlSample(QString(QChar(0xD800))), QByteArray("&#65533;"));
        const QByteArray sheet = FontSheet::html({text}, text, text);
        QVERIFY(sheet.contains("<FONT FACE=\"" + referenced + "\">" + referenced + "</FONT><BR><FONT FACE=\""
                               + referenced + "\">" + referenced + "</FONT>\r\n"));
        // The head declares nothing, whatever the text holds: the bytes stay as they always were.
        QVERIFY(sheet.startsWith("<HTML>\r\n<HEAD>\r\n<TITLE>Liste des polices</TITLE>\r\n</HEAD>\r\n<BODY>\r\n"));
        QVERIFY(FontSheet::html({QStringLiteral("\u0416")}, QStringLiteral("A"), QStringLiteral("\U0001F600"))
                    .startsWith("<HTML>\r\n<HEAD>\r\n<TITLE>Liste des polices</TITLE>"));
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
