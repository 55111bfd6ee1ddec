// The font information window on the main window's selected font: the lines and
// their order, the character set by position, the character codes read through
// FreeType, metrics that follow the size, the caption, and loading that stops.
#include "app/tglyphora.h"
#include "browser/samplebox.h"
#include "fontfile/fontinfo.h"
#include "fontfile/picturebox.h"
#include "fontfile/textmetric.h"
#include "support/sfntwriter.h"
#include "support/testsupport.h"

#include <QComboBox>
#include <QFontDatabase>
#include <QPlainTextEdit>
#include <QTemporaryDir>
#include <QTreeWidget>

namespace {

QString valueOf(const QString& text, const QString& label)
{
    for (const QString& line : text.split(QStringLiteral("\r\n")))
        if (line.startsWith(label))
            return line.mid(label.size());
    return QStringLiteral("<absent>");
}

QStringList labelsOf(const QString& text)
{
    QStringList labels;
    for (const QString& line : text.split(QStringLiteral("\r\n"), Qt::SkipEmptyParts))
        labels << line.section(QStringLiteral(" : "), 0, 0);
    return labels;
}

} // namespace

class TestFontInfo : public QObject {
    Q_OBJECT
private:
    QTemporaryDir m_dir;
    tglyphora* m_main = nullptr;

    void registerFont(const QString& fileName, const QByteArray& bytes)
    {
        const QString path = m_dir.filePath(fileName);
        QVERIFY(Sfnt::writeFile(path, bytes));
        QVERIFY(QFontDatabase::addApplicationFont(path) >= 0);
    }

    void choose(const QString& family, int size = 12)
    {
        const auto found = m_main->List1->findItems(family, Qt::MatchExactly);
        QVERIFY2(!found.isEmpty(), qPrintable(family));
        m_main->List1->setCurrentItem(found.first());
        m_main->List1_Click();
        m_main->Combo1->setCurrentIndex(m_main->Combo1->findText(QStringLiteral(" ") + QString::number(size)));
        QCOMPARE(m_main->Combo1->currentText(), QStringLiteral(" ") + QString::number(size));
    }

    QString infoText(QString* caption = nullptr)
    {
        FontInfo window;
        window.show();
        if (caption)
            *caption = window.windowTitle();
        return window.Text();
    }

private Q_SLOTS:
    void initTestCase()
    {
        const QByteArray base = Sfnt::drawable(Sfnt::familyNames(QStringLiteral("Glyphora Ansi")));
        registerFont(QStringLiteral("ansi.ttf"), Sfnt::withCodePages(base, 0x1 | 0x4, 0x41, 0x17F, 0x2E));
        registerFont(QStringLiteral("symbole.ttf"),
                     Sfnt::withSymbolCmap(Sfnt::drawable(Sfnt::familyNames(QStringLiteral("Glyphora Symbole")))));
        registerFont(QStringLiteral("cyrillique.ttf"),
                     Sfnt::withCodePages(Sfnt::drawable(Sfnt::familyNames(QStringLiteral("Glyphora Cyrillique"))), 0x4));
        registerFont(QStringLiteral("defaut.ttf"),
                     Sfnt::withCodePages(Sfnt::drawable(Sfnt::familyNames(QStringLiteral("Glyphora Defaut"))), 0));
        m_main = new tglyphora;
        m_main->show(); // fills the list, registered fonts included
    }

    void cleanupTestCase() { delete m_main; }

    void init()
    {
        for (int button : {12, 13, 14, 15})
            m_main->setButtonValue(button, 0);
    }

    void ansiFont()
    {
        choose(QStringLiteral("Glyphora Ansi"));
        QString caption;
        const QString text = infoText(&caption);
        QCOMPARE(caption, QStringLiteral("Infos sur une police - Glyphora Ansi"));
        QCOMPARE(labelsOf(text),
                 (QStringList{QStringLiteral("Ascendant"), QStringLiteral("Descendant"), QStringLiteral("Hauteur"),
                              QStringLiteral("Largeur moyenne des caractères"), QStringLiteral("Jeu de caractères"),
                              QStringLiteral("Caractère par défaut"), QStringLiteral("Premier caractère"),
                              QStringLiteral("Dernier caractère"), QStringLiteral("Largeur maximale des caractères")}));
        QVERIFY(text.endsWith(QStringLiteral("\r\n")));
        QCOMPARE(valueOf(text, QStringLiteral("Jeu de caractères : ")), QStringLiteral("ANSI_CHARSET"));
        QCOMPARE(valueOf(text, QStringLiteral("Caractère par défaut : ")), QStringLiteral("46"));
        QCOMPARE(valueOf(text, QStringLiteral("Premier caractère : ")), QStringLiteral("65"));
        QCOMPARE(valueOf(text, QStringLiteral("Dernier caractère : ")), QStringLiteral("255")); // 0x17F held in 8 bits
    }

    void metricsFollowTheSize()
    {
        choose(QStringLiteral("Glyphora Ansi"), 12);
        const QString small = infoText();
        choose(QStringLiteral("Glyphora Ansi"), 48);
        const QString large = infoText();
        for (const QString& text : {small, large}) {
            const int ascent = valueOf(text, QStringLiteral("Ascendant : ")).toInt();
            const int descent = valueOf(text, QStringLiteral("Descendant : ")).toInt();
            QCOMPARE(valueOf(text, QStringLiteral("Hauteur : ")).toInt(), ascent + descent);
            QVERIFY(ascent > descent && descent > 0);
            const int average = valueOf(text, QStringLiteral("Largeur moyenne des caractères : ")).toInt();
            QVERIFY(average > 0);
            QVERIFY(valueOf(text, QStringLiteral("Largeur maximale des caractères : ")).toInt() >= average);
        }
        // 12 points are 16 pixels at 96 dpi; DejaVu's outlines stand about 1.16 em high.
        const int smallHeight = valueOf(small, QStringLiteral("Hauteur : ")).toInt();
        const int largeHeight = valueOf(large, QStringLiteral("Hauteur : ")).toInt();
        QVERIFY2(smallHeight >= 14 && smallHeight <= 24, qPrintable(QString::number(smallHeight)));
        QVERIFY2(largeHeight >= 3.5 * smallHeight && largeHeight <= 4.5 * smallHeight,
                 qPrintable(QStringLiteral("%1 %2").arg(smallHeight).arg(largeHeight)));
    }

    void installedFont()
    {
        choose(QStringLiteral("DejaVu Sans"));
        const QString text = infoText();
        QCOMPARE(valueOf(text, QStringLiteral("Jeu de caractères : ")), QStringLiteral("ANSI_CHARSET"));
        QCOMPARE(valueOf(text, QStringLiteral("Premier caractère : ")), QStringLiteral("32"));
        QCOMPARE(valueOf(text, QStringLiteral("Dernier caractère : ")), QStringLiteral("255"));
        QCOMPARE(valueOf(text, QStringLiteral("Caractère par défaut : ")), QStringLiteral("0"));
    }

    void symbolFont()
    {
        choose(QStringLiteral("Glyphora Symbole"));
        QCOMPARE(valueOf(infoText(), QStringLiteral("Jeu de caractères : ")), QStringLiteral("SYMBOL_CHARSET"));
    }

    void cyrillicFontHasNoCharacterSetLine()
    {
        choose(QStringLiteral("Glyphora Cyrillique"));
        const QString text = infoText();
        QCOMPARE(valueOf(text, QStringLiteral("Jeu de caractères : ")), QStringLiteral("<absent>"));
        const QStringList lines = text.split(QStringLiteral("\r\n"));
        int average = -1;
        for (int i = 0; i < lines.size() && average < 0; ++i)
            if (lines[i].startsWith(QStringLiteral("Largeur moyenne des caractères : ")))
                average = i;
        QVERIFY(average >= 0);
        QVERIFY(lines[average + 1].startsWith(QStringLiteral("Caractère par défaut : ")));
        QCOMPARE(lines.size(), 9); // eight lines and the empty text after the last CR LF
    }

    void noCodePageIsTheDefaultSet()
    {
        choose(QStringLiteral("Glyphora Defaut"));
        QCOMPARE(valueOf(infoText(), QStringLiteral("Jeu de caractères : ")), QStringLiteral("DEFAULT_CHARSET"));
    }

    void stylesAndSampleReachThePicture()
    {
        choose(QStringLiteral("Glyphora Ansi"), 20);
        for (int button : {12, 13, 14, 15})
            m_main->setButtonValue(button, 1);
        m_main->Text1->setText(QStringLiteral("Échantillon"));
        FontInfo window;
        window.show();
        const QFont font = window.Picture1->font();
        QCOMPARE(font.family(), QStringLiteral("Glyphora Ansi"));
        QVERIFY(font.bold());
        QVERIFY(font.italic());
        QVERIFY(font.underline());
        QVERIFY(font.strikeOut());
        QCOMPARE(font.pointSizeF(), 20.0);
        QCOMPARE(window.Picture1->CurrentY(), window.Picture1->TextHeight()); // the sample was printed
    }

    void textCoversTheWindow()
    {
        choose(QStringLiteral("Glyphora Ansi"));
        FontInfo window;
        window.show();
        window.resize(500, 333);
        QCOMPARE(window.Text1->geometry(), QRect(0, 0, 500, 333));
        QVERIFY(window.Text1->isVisible());
    }

    void loadingStopsWithoutASelection()
    {
        m_main->List1->setCurrentItem(nullptr);
        QString caption;
        QCOMPARE(infoText(&caption), QString());
        QCOMPARE(caption, QStringLiteral("Infos sur une police"));
    }

    void characterSetTableByPosition()
    {
        const QStringList table = TextMetrics::charsetTable();
        QCOMPARE(table.size(), 20);
        QCOMPARE(table[0], QString());
        TextMetric metric;
        const QList<std::pair<int, QString>> cases = {
            {0, QStringLiteral("ANSI_CHARSET")}, {1, QStringLiteral("DEFAULT_CHARSET")},
            {2, QStringLiteral("SYMBOL_CHARSET")}, {18, QStringLiteral("BALTIC_CHARSET")},
            {17, QStringLiteral("MAC_CHARSET")}, {19, QStringLiteral("<absent>")},
            {77, QStringLiteral("<absent>")}, {128, QStringLiteral("<absent>")}, {161, QStringLiteral("<absent>")},
            {186, QStringLiteral("<absent>")}, {204, QStringLiteral("<absent>")}, {238, QStringLiteral("<absent>")},
            {255, QStringLiteral("<absent>")}};
        for (const auto& [code, name] : cases) {
            metric.tmCharSet = code;
            QCOMPARE(valueOf(TextMetrics::informationLines(metric, table).join(QString()),
                             QStringLiteral("Jeu de caractères : ")),
                     name);
        }
        metric = TextMetric{17, 13, 4, 7, 20, 0, 0, 32, 255};
        QCOMPARE(TextMetrics::informationLines(metric, table).join(QString()),
                 QStringLiteral("Ascendant : 13\r\nDescendant : 4\r\nHauteur : 17\r\n"
                                "Largeur moyenne des caractères : 7\r\nJeu de caractères : ANSI_CHARSET\r\n"
                                "Caractère par défaut : 0\r\nPremier caractère : 32\r\nDernier caractère : 255\r\n"
                                "Largeur maximale des caractères : 20\r\n"));
    }

    void characterSetsFromCodePages()
    {
        QCOMPARE(TextMetrics::charSetOf(false, 0x1), 0);
        QCOMPARE(TextMetrics::charSetOf(true, 0x1), 2);
        QCOMPARE(TextMetrics::charSetOf(false, 0), 1);
        QCOMPARE(TextMetrics::charSetOf(false, 0x2), 238);
        QCOMPARE(TextMetrics::charSetOf(false, 0x4), 204);
        QCOMPARE(TextMetrics::charSetOf(false, 0x6), 238); // the lowest bit wins
        QCOMPARE(TextMetrics::charSetOf(false, 0x8), 161);
        QCOMPARE(TextMetrics::charSetOf(false, 0x10), 162);
        QCOMPARE(TextMetrics::charSetOf(false, 0x20), 177);
        QCOMPARE(TextMetrics::charSetOf(false, 0x40), 178);
        QCOMPARE(TextMetrics::charSetOf(false, 0x80), 186);
        QCOMPARE(TextMetrics::charSetOf(false, 0x100), 163);
        QCOMPARE(TextMetrics::charSetOf(false, 1u << 16), 222);
        QCOMPARE(TextMetrics::charSetOf(false, 1u << 17), 128);
        QCOMPARE(TextMetrics::charSetOf(false, 1u << 18), 134);
        QCOMPARE(TextMetrics::charSetOf(false, 1u << 19), 129);
        QCOMPARE(TextMetrics::charSetOf(false, 1u << 20), 136);
        QCOMPARE(TextMetrics::charSetOf(false, 1u << 21), 130);
        QCOMPARE(TextMetrics::charSetOf(false, 1u << 9), 1); // a bit with no set of its own
        QCOMPARE(TextMetrics::clampToByte(0xFFFC), 255);
        QCOMPARE(TextMetrics::clampToByte(-3), 0);
        QCOMPARE(TextMetrics::clampToByte(65), 65);
    }

    void menuCommandOpensItModally()
    {
        choose(QStringLiteral("Glyphora Ansi"));
        QString name;
        QString text;
        auto ran = TestSupport::whenModal([&](QWidget* modal) {
            name = modal->objectName();
            if (auto* info = qobject_cast<FontInfo*>(modal))
                text = info->Text();
            modal->close();
        });
        m_main->minfos_Click();
        QVERIFY(*ran);
        QCOMPARE(name, QStringLiteral("FontInfo"));
        QCOMPARE(valueOf(text, QStringLiteral("Jeu de caractères : ")), QStringLiteral("ANSI_CHARSET"));
    }
};

GLYPHORA_TEST_MAIN(TestFontInfo)
#include "test_fontinfo.moc"
