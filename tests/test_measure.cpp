// Measurement of the sample on the printer in the seven units, French and plain locales.
#include "app/tglyphora.h"
#include "browser/measureformat.h"
#include "browser/samplebox.h"
#include "support/testsupport.h"

#include <QAction>
#include <QComboBox>
#include <QFontMetricsF>
#include <QLabel>
#include <QPrinter>
#include <QPrinterInfo>
#include <QTreeWidget>

namespace {

const QString knownFamily = QStringLiteral("DejaVu Sans");

void selectFamily(tglyphora& w, const QString& family)
{
    const auto items = w.List1->findItems(family, Qt::MatchExactly);
    if (items.isEmpty())
        return;
    w.List1->setCurrentItem(items.first());
    w.List1_Click();
}

// The expected texts, computed here from the printer's resolution and font metrics.
QStringList expectedFigures(const QFont& font, const QString& text, QChar decimal)
{
    std::unique_ptr<QPrinter> printer;
    if (QPrinterInfo::defaultPrinterName().isEmpty())
        printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
    else
        printer = std::make_unique<QPrinter>(QPrinterInfo::defaultPrinter(), QPrinter::HighResolution);
    const double dpi = printer->resolution();
    const QFontMetricsF metrics(font, printer.get());
    const QStringList lines = text.split(QStringLiteral("\r\n"));
    double width = 0;
    for (const QString& line : lines)
        width = std::max(width, metrics.horizontalAdvance(line));
    const double height = metrics.lineSpacing() * lines.size();
    // Inches per unit: twip, point, pixel, character (120 x 240 twips), inch, mm, cm.
    const double perUnitX[7] = {1.0 / 1440, 1.0 / 72, 1.0 / dpi, 120.0 / 1440, 1.0, 1.0 / 25.4, 1.0 / 2.54};
    const double perUnitY[7] = {1.0 / 1440, 1.0 / 72, 1.0 / dpi, 240.0 / 1440, 1.0, 1.0 / 25.4, 1.0 / 2.54};
    auto format = [&](double value) {
        QString s = QString::number(std::round(value * 100) / 100, 'f', 2);
        if (s.endsWith(QLatin1Char('0')))
            s.chop(1);
        return s.replace(QLatin1Char('.'), decimal);
    };
    QStringList figures;
    for (int u = 0; u < 7; ++u)
        figures << format(width / dpi / perUnitX[u]) + QLatin1Char('|') + format(height / dpi / perUnitY[u]);
    return figures;
}

// Prints one line per unit: "unit=<i> got=<w>|<h> want=<w>|<h>".
int measureInEveryUnit()
{
    auto* w = new tglyphora;
    w->show();
    selectFamily(*w, knownFamily);
    w->Combo1->setCurrentIndex(32); // 36 points
    w->Text2->setText(QStringLiteral("Texte d'essai\r\nDeuxième ligne, plus longue"));
    w->Button(12)->trigger();
    const QChar decimal = QLocale::system().decimalPoint().front();
    const QStringList want = expectedFigures(w->Text2->font(), w->Text2->text(), decimal);
    for (int u = 0; u < 7; ++u) {
        w->munit_Click(u);
        std::printf("unit=%d got=%s|%s want=%s tip=%s\n", u, qPrintable(w->Panel(2)->text()), qPrintable(w->Panel(3)->text()),
                    qPrintable(want[u]), qPrintable(w->Panel(2)->toolTip()));
    }
    std::fflush(stdout);
    return 0;
}

const bool registered = [] {
    TestSupport::registerScenario(QStringLiteral("measure"), &measureInEveryUnit);
    return true;
}();

} // namespace

class TestMeasure : public QObject {
    Q_OBJECT

private:
    void checkLocale(const QString& locale, QChar decimal)
    {
        const auto child = TestSupport::runScenario(QStringLiteral("measure"),
                                                    {QStringLiteral("LC_ALL=") + locale, QStringLiteral("LANG=") + locale});
        QCOMPARE(child.exitCode, 0);
        const QStringList lines = child.out.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
        QCOMPARE(lines.size(), 7);
        const QStringList units = {QStringLiteral("Twips"), QStringLiteral("Points"), QStringLiteral("Pixels"),
                                   QStringLiteral("Caractères"), QStringLiteral("Pouces"), QStringLiteral("Millimètres"),
                                   QStringLiteral("Centimètres")};
        for (int u = 0; u < 7; ++u) {
            const QString line = lines[u];
            const QString got = line.section(QStringLiteral(" got="), 1).section(QLatin1Char(' '), 0, 0);
            const QString want = line.section(QStringLiteral(" want="), 1).section(QLatin1Char(' '), 0, 0);
            QVERIFY2(got == want, qPrintable(line));
            QVERIFY2(got.contains(decimal), qPrintable(line));
            QVERIFY(line.endsWith(QStringLiteral("tip=Largeur du texte en ") + units[u]));
        }
    }

private Q_SLOTS:
    void init() { TestSupport::clearSettings(); }

    void everyUnitInFrench() { checkLocale(QStringLiteral("fr_FR.UTF-8"), QLatin1Char(',')); }
    void everyUnitInThePlainLocale() { checkLocale(QStringLiteral("C"), QLatin1Char('.')); }

    void formatPattern()
    {
        QCOMPARE(MeasureFormat::format(3.5, QLatin1Char(',')), QStringLiteral("3,5"));
        QCOMPARE(MeasureFormat::format(1984.0, QLatin1Char(',')), QStringLiteral("1984,0"));
        QCOMPARE(MeasureFormat::format(0.35, QLatin1Char(',')), QStringLiteral("0,35"));
        QCOMPARE(MeasureFormat::format(0.0, QLatin1Char('.')), QStringLiteral("0.0"));
        QCOMPARE(MeasureFormat::format(12345.678, QLatin1Char('.')), QStringLiteral("12345.68"));
        QCOMPARE(MeasureFormat::format(2.999, QLatin1Char('.')), QStringLiteral("3.0"));
        QCOMPARE(MeasureFormat::format(0.125, QLatin1Char('.')), QStringLiteral("0.13"));
    }

    void emptySampleIsOneLineHigh()
    {
        tglyphora w;
        w.show();
        w.munit_Click(1); // points
        w.Text2->setText(QString());
        w.afficheinfos();
        const QString zero = MeasureFormat::format(0.0);
        QCOMPARE(w.Panel(2)->text(), zero);
        QVERIFY(w.Panel(3)->text() != zero);
        const QString oneLine = w.Panel(3)->text();
        w.Text2->setText(QStringLiteral("x"));
        w.afficheinfos();
        QCOMPARE(w.Panel(3)->text(), oneLine);
    }

    void smallWidthsHaveALeadingZero()
    {
        tglyphora w;
        w.show();
        w.munit_Click(4); // inches
        w.Combo1->setCurrentIndex(0); // 4 points
        w.Text2->setText(QStringLiteral("i"));
        w.afficheinfos();
        QVERIFY2(w.Panel(2)->text().startsWith(QStringLiteral("0")), qPrintable(w.Panel(2)->text()));
        QVERIFY(w.Panel(2)->text().size() >= 3);
    }

    void choosingTheCheckedUnitAgainUnchecksIt()
    {
        tglyphora w;
        w.show();
        QCOMPARE(w.unite(), 6); // the default unit is the millimetre
        QVERIFY(w.munit(5)->isChecked());
        QCOMPARE(w.Panel(2)->toolTip(), QStringLiteral("Largeur du texte en Millimètres"));
        const QString width = w.Panel(2)->text();
        w.findChild<QAction*>(QStringLiteral("munit_5"))->trigger();
        for (int i = 0; i < 7; ++i)
            QVERIFY(!w.munit(i)->isChecked());
        QCOMPARE(w.unite(), 6);
        QCOMPARE(w.Panel(2)->text(), width);
        QCOMPARE(w.Panel(3)->toolTip(), QStringLiteral("Hauteur du texte en Millimètres"));
        // The next choice checks its item alone.
        w.findChild<QAction*>(QStringLiteral("munit_6"))->trigger();
        QVERIFY(w.munit(6)->isChecked());
        QCOMPARE(w.unite(), 7);
        for (int i = 0; i < 6; ++i)
            QVERIFY(!w.munit(i)->isChecked());
    }

    void savedUnitIsSelectedAtStart()
    {
        TestSupport::writeSetting(QStringLiteral("Param"), QStringLiteral("unite"), QStringLiteral("2"));
        tglyphora w;
        w.show();
        QCOMPARE(w.unite(), 2);
        QVERIFY(w.munit(1)->isChecked());
        QCOMPARE(w.Panel(2)->toolTip(), QStringLiteral("Largeur du texte en Points"));
    }

    void aGarbageUnitIsIgnoredStepByStep()
    {
        TestSupport::writeSetting(QStringLiteral("Param"), QStringLiteral("unite"), QStringLiteral("42"));
        tglyphora w;
        w.show(); // no error: the unit handler ignores its failures
        QCOMPARE(w.unite(), 42);
        for (int i = 0; i < 7; ++i)
            QVERIFY(!w.munit(i)->isChecked());
        w.munit_Click(0);
        QVERIFY(w.munit(0)->isChecked());
        QCOMPARE(w.Panel(2)->toolTip(), QStringLiteral("Largeur du texte en Twips"));
    }
};

GLYPHORA_TEST_MAIN(TestMeasure)
#include "test_measure.moc"
