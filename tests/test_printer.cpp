// The program-wide printer: lines printed for real on the default CUPS PDF queue.
#include "components/printer.h"
#include "components/runtimeerror.h"
#include "components/scalemode.h"
#include "support/testsupport.h"

#include <QDateTime>
#include <QFontMetricsF>
#include <QPrinter>
#include <QPrinterInfo>

class TestPrinter : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void printsTwoLinesAndReadsThemBack()
    {
        if (!TestSupport::requirePrinter()) {
            if (qEnvironmentVariableIsSet("GLYPHORA_REQUIRE_PRINTER"))
                QFAIL("no default printer");
            QSKIP("no default printer");
        }
        Printer& printer = Printer::instance();
        printer.reset();
        TestSupport::useOwnDocumentName(); // the queue may be shared with other test runs
        QCOMPARE(printer.DeviceName(), QPrinterInfo::defaultPrinterName());
        QVERIFY(printer.isInstalled());
        const QDateTime since = QDateTime::currentDateTime().addSecs(-1);
        QFont font(QStringLiteral("DejaVu Sans"));
        font.setPointSize(12);
        printer.setFont(font);
        printer.Print(QStringLiteral("Première ligne imprimée"));
        QVERIFY(printer.hasOpenDocument());
        printer.Print(QStringLiteral("Seconde ligne"));
        printer.EndDoc();
        QVERIFY(!printer.hasOpenDocument());
        const QString pdf = TestSupport::waitForPdf(since);
        QVERIFY2(!pdf.isEmpty(), "no PDF came out of the queue");
        const QString text = TestSupport::pdfText(pdf);
        const qsizetype first = text.indexOf(QStringLiteral("Première ligne imprimée"));
        const qsizetype second = text.indexOf(QStringLiteral("Seconde ligne"));
        QVERIFY2(first >= 0 && second > first, qPrintable(text));
        QVERIFY(TestSupport::pdfFonts(pdf).contains(QStringLiteral("DejaVuSans")));
    }

    void endingWithoutADocumentDoesNothing()
    {
        Printer& printer = Printer::instance();
        printer.EndDoc();
        QVERIFY(!printer.hasOpenDocument());
    }

    void measuresInTheScaleUnit()
    {
        Printer& printer = Printer::instance();
        QFont font(QStringLiteral("DejaVu Sans"));
        font.setPointSize(20);
        printer.setFont(font);
        printer.setScaleMode(ScaleMode::Pixel);
        const double pixels = printer.TextWidth(QStringLiteral("Texte d'essai"));
        QVERIFY(pixels > 0);
        printer.setScaleMode(ScaleMode::Twip);
        QCOMPARE(printer.TextWidth(QStringLiteral("Texte d'essai")), pixels * 1440.0 / printer.resolution());
        printer.setScaleMode(ScaleMode::Inch);
        QCOMPARE(printer.TextWidth(QStringLiteral("a\r\nTexte d'essai\r\nb")), pixels / printer.resolution());
        QCOMPARE(printer.TextWidth(QString()), 0.0);
        const double one = printer.TextHeight(QString());
        QVERIFY(one > 0);
        QCOMPARE(printer.TextHeight(QStringLiteral("x\r\ny\r\nz")), 3 * one);
        try {
            printer.setScaleMode(0);
            QFAIL("an invalid unit was accepted");
        } catch (const RuntimeError& e) {
            QCOMPARE(e.number(), 5);
        }
        QCOMPARE(printer.ScaleMode(), int(ScaleMode::Inch));
    }

    void scaleConversions()
    {
        QCOMPARE(ScaleMode::fromDevicePixels(1200, 1200, ScaleMode::Twip, false), 1440.0);
        QCOMPARE(ScaleMode::fromDevicePixels(1200, 1200, ScaleMode::Point, false), 72.0);
        QCOMPARE(ScaleMode::fromDevicePixels(1200, 1200, ScaleMode::Pixel, false), 1200.0);
        QCOMPARE(ScaleMode::fromDevicePixels(1200, 1200, ScaleMode::Character, false), 12.0);
        QCOMPARE(ScaleMode::fromDevicePixels(1200, 1200, ScaleMode::Character, true), 6.0);
        QCOMPARE(ScaleMode::fromDevicePixels(1200, 1200, ScaleMode::Inch, false), 1.0);
        QCOMPARE(ScaleMode::fromDevicePixels(1200, 1200, ScaleMode::Millimetre, false), 25.4);
        QCOMPARE(ScaleMode::fromDevicePixels(1200, 1200, ScaleMode::Centimetre, false), 2.54);
    }
};

GLYPHORA_TEST_MAIN(TestPrinter)
#include "test_printer.moc"
