// Measuring off the window thread and preparing the next fonts: the figures are the
// printer's own, late results never show another font's figures, direct measurements
// stay immediate, and the rows around the shown one are prepared while idle.
#include "app/tglyphora.h"
#include "browser/enumfont.h"
#include "browser/measureformat.h"
#include "browser/measureworker.h"
#include "browser/neighbourprep.h"
#include "browser/samplebox.h"
#include "components/printer.h"
#include "components/scalemode.h"
#include "support/testsupport.h"

#include <QComboBox>
#include <QLabel>
#include <QSignalSpy>
#include <QTreeWidget>

namespace {

// The figures afficheinfos writes, for this font and text, in every unit.
QStringList printerFigures(const QFont& font, const QString& text)
{
    Printer& printer = Printer::instance();
    const int mode = printer.ScaleMode();
    printer.setFont(font);
    QStringList figures;
    for (int code = 1; code <= 7; ++code) {
        printer.setScaleMode(code);
        figures << MeasureFormat::format(printer.TextWidth(text)) + QLatin1Char('|') + MeasureFormat::format(printer.TextHeight(text));
    }
    printer.setScaleMode(mode);
    return figures;
}

QStringList figuresInEveryUnit(const MeasuredText& measured, int dpi)
{
    QStringList figures;
    for (int code = 1; code <= 7; ++code)
        figures << MeasureFormat::format(ScaleMode::fromDevicePixels(measured.width, dpi, code, false)) + QLatin1Char('|')
                       + MeasureFormat::format(ScaleMode::fromDevicePixels(measured.height, dpi, code, true));
    return figures;
}

// Panels 2 and 3 as afficheinfos would write them now, measured here on the printer
// (afficheinfos itself would also drop a measurement in progress).
QString directFigures(tglyphora& w)
{
    Printer& printer = Printer::instance();
    printer.setFont(w.Text2->font());
    const QString text = w.Text2->text();
    return MeasureFormat::format(printer.TextWidth(text)) + QLatin1Char('|') + MeasureFormat::format(printer.TextHeight(text));
}

QString shownFigures(tglyphora& w) { return w.Panel(2)->text() + QLatin1Char('|') + w.Panel(3)->text(); }

void clickRow(tglyphora& w, int row)
{
    w.List1->setCurrentItem(w.List1->topLevelItem(row));
    w.List1_Click();
}

} // namespace

class TestShowAhead : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { TestSupport::clearSettings(); }

    // Every family of the machine, plain and bold italic, on two lines: the measuring
    // thread's figures equal the printer's to the last digit in every unit.
    void figuresAreThePrintersForEveryFamily()
    {
        MeasureWorker worker;
        QSignalSpy spy(&worker, &MeasureWorker::measured);
        const int dpi = Printer::instance().resolution();
        const QString text = QStringLiteral("Texte d'essai\r\nVoix ambiguë d'un cœur");
        const QStringList families = EnumFont::families();
        QVERIFY(families.size() > 3);
        int compared = 0;
        for (const QString& family : families) {
            for (bool styled : {false, true}) {
                QFont font;
                font.setFamilies({family});
                font.setPointSizeF(13);
                font.setStyleStrategy(QFont::NoFontMerging);
                font.setBold(styled);
                font.setItalic(styled);
                spy.clear();
                const quint64 generation = worker.request(font, text, dpi);
                QVERIFY(spy.wait(10000) || spy.size() == 1);
                QCOMPARE(spy.size(), 1);
                QCOMPARE(spy.first().at(0).toULongLong(), generation);
                const auto measured = spy.first().at(1).value<MeasuredText>();
                QCOMPARE(figuresInEveryUnit(measured, dpi), printerFigures(font, text));
                // The same figures are kept for the next time this font is shown.
                QVERIFY(worker.cached(font, text, dpi).has_value());
                ++compared;
            }
        }
        QCOMPARE(compared, 2 * families.size());
    }

    void onlyTheNewestRequestIsAnswered()
    {
        MeasureWorker worker;
        QSignalSpy spy(&worker, &MeasureWorker::measured);
        const QStringList families = EnumFont::families();
        quint64 last = 0;
        for (int i = 0; i < std::min<int>(20, int(families.size())); ++i) {
            QFont font;
            font.setFamilies({families[i]});
            font.setPointSizeF(40 + i);
            last = worker.request(font, QStringLiteral("abc"), 1200);
        }
        QVERIFY(spy.wait(10000));
        QTest::qWait(200);
        QCOMPARE(spy.size(), 1);
        QCOMPARE(spy.first().at(0).toULongLong(), last);
    }

    void cancelledRequestsAreNotAnswered()
    {
        MeasureWorker worker;
        QSignalSpy spy(&worker, &MeasureWorker::measured);
        QFont font;
        font.setPointSizeF(61);
        worker.request(font, QStringLiteral("abc"), 1200);
        worker.cancel();
        QTest::qWait(300);
        QCOMPARE(spy.size(), 0);
        QCOMPARE(worker.queuedCount(), 0);
    }

    void rowsToPrepareFollowTheDirection()
    {
        // Moving down from row 10 to 11, rows 20..40 in view: the next rows come first.
        QList<int> rows = NeighbourPrep::rowsToPrepare(11, 10, 100, 20, 40);
        QCOMPARE(rows.mid(0, 3), (QList<int>{12, 13, 14}));
        QVERIFY(rows.contains(31) && rows.contains(32)); // one page down
        QVERIFY(rows.contains(10) && rows.contains(9));
        QVERIFY(rows.contains(20) && rows.contains(40) && rows.contains(1) && rows.contains(100));
        QVERIFY(!rows.contains(11));
        // Moving up: the rows above first; the ends of the list stop it.
        rows = NeighbourPrep::rowsToPrepare(2, 3, 5, 0, 0);
        QCOMPARE(rows, (QList<int>{1, 3, 4, 5}));
        QVERIFY(NeighbourPrep::rowsToPrepare(1, 0, 1, 1, 1).isEmpty());
    }

    // Quick clicks one after another: once idle, the figures are those of the font in
    // panel 1, never those of an earlier click.
    void figuresFollowPanelOneAfterQuickClicks()
    {
        tglyphora w;
        w.show();
        const int count = std::min(12, w.List1->topLevelItemCount());
        QVERIFY(count >= 3);
        for (int row = 0; row < count; ++row)
            clickRow(w, row);
        QCOMPARE(w.Panel(1)->text(), w.List1->topLevelItem(count - 1)->text(0));
        const QString want = directFigures(w);
        QTRY_COMPARE(shownFigures(w), want);
        QTest::qWait(300);
        QCOMPARE(shownFigures(w), want);
        // And going back up, fonts with different figures.
        for (int row = count - 1; row >= 0; --row) {
            clickRow(w, row);
            QTRY_COMPARE(shownFigures(w), directFigures(w));
        }
    }

    // A size change right after a click measures at once, and the click's figures that
    // arrive later do not replace them.
    void directMeasurementStaysImmediate()
    {
        tglyphora w;
        w.show();
        QVERIFY(w.List1->topLevelItemCount() >= 2);
        clickRow(w, 1);
        w.Panel(2)->setText(QStringLiteral("marque"));
        w.Panel(3)->setText(QStringLiteral("marque"));
        w.Combo1->setCurrentIndex(40);
        QVERIFY(w.Panel(2)->text() != QStringLiteral("marque"));
        const QString now = shownFigures(w);
        QCOMPARE(now, directFigures(w));
        QTest::qWait(300);
        QCOMPARE(shownFigures(w), now);

        w.Panel(2)->setText(QStringLiteral("marque"));
        w.afficheinfos();
        QCOMPARE(shownFigures(w), now);
    }

    // After a font is shown and the window is idle, the next row down is ready: showing
    // it writes its figures at once.
    void theNextRowIsPreparedWhileIdle()
    {
        tglyphora w;
        w.show();
        QVERIFY(w.List1->topLevelItemCount() >= 3);
        clickRow(w, 0);
        clickRow(w, 1);
        auto* prep = w.findChild<NeighbourPrep*>();
        QVERIFY(prep);
        QTRY_VERIFY_WITH_TIMEOUT(!prep->isBusy(), 20000);
        auto* worker = w.findChild<MeasureWorker*>();
        QVERIFY(worker);
        QTRY_COMPARE(worker->queuedCount(), 0);
        QTest::qWait(50);
        w.Panel(2)->setText(QStringLiteral("marque"));
        w.Panel(3)->setText(QStringLiteral("marque"));
        QTest::keyClick(w.List1, Qt::Key_Down);
        QCOMPARE(w.Panel(1)->text(), w.List1->topLevelItem(2)->text(0));
        QCOMPARE(shownFigures(w), directFigures(w));
    }
};

GLYPHORA_TEST_MAIN(TestShowAhead)
#include "test_showahead.moc"
