// Layout that fits what it shows: the main window's place and splitters kept in
// "Fenetre", status bar panels that shrink instead of overlapping, the test page's
// name-font list tall enough, the about box's version lines in two columns.
#include "about/about.h"
#include "about/versionlinedelegate.h"
#include "app/tglyphora.h"
#include "components/ctlebsplitter.h"
#include "components/elidedlabel.h"
#include "output/ptest.h"
#include "support/testsupport.h"

#include <QListWidget>
#include <QStatusBar>

namespace {

// The first column, from x, whose pixels in the row band differ from the background.
int firstInk(const QImage& image, int from, int top, int bottom, QRgb background)
{
    for (int x = std::max(0, from); x < image.width(); ++x)
        for (int y = top; y < bottom; ++y)
            if (qGray(image.pixel(x, y)) < qGray(background) - 60)
                return x;
    return -1;
}

} // namespace

class TestWindowLayout : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { TestSupport::clearSettings(); }

    void firstStartKeepsTheDesignGeometry()
    {
        tglyphora w;
        w.show();
        QCOMPARE(w.size(), QSize(860, 600));
        QVERIFY(!w.isMaximized());
        QVERIFY(!TestSupport::hasSetting(QStringLiteral("Fenetre"), QStringLiteral("Largeur")));
    }

    void sizePlaceAndSplittersComeBack()
    {
        long outer = 0, inner = 0;
        QRect geometry;
        {
            tglyphora w;
            w.show();
            w.setGeometry(40, 60, 700, 520);
            QCoreApplication::processEvents();
            outer = w.ctlEBSplitter1->setSplitterPos(3450);
            inner = w.ctlEBSplitter2->setSplitterPos(2400);
            geometry = w.geometry();
            w.close();
        }
        QCOMPARE(TestSupport::readSetting(QStringLiteral("Fenetre"), QStringLiteral("Largeur")), QStringLiteral("700"));
        QCOMPARE(TestSupport::readSetting(QStringLiteral("Fenetre"), QStringLiteral("Maximisee")), QStringLiteral("0"));
        tglyphora again;
        again.show();
        QCOMPARE(again.geometry(), geometry);
        QCOMPARE(again.ctlEBSplitter1->SplitterPos(), outer);
        QCOMPARE(again.ctlEBSplitter2->SplitterPos(), inner);
    }

    void aMaximizedWindowComesBackMaximizedWithItsNormalSize()
    {
        {
            tglyphora w;
            w.show();
            w.resize(640, 480);
            w.setWindowState(Qt::WindowMaximized);
            QVERIFY(TestSupport::waitFor([&] { return w.isMaximized(); }));
            w.close();
        }
        QCOMPARE(TestSupport::readSetting(QStringLiteral("Fenetre"), QStringLiteral("Maximisee")), QStringLiteral("1"));
        QCOMPARE(TestSupport::readSetting(QStringLiteral("Fenetre"), QStringLiteral("Largeur")), QStringLiteral("640"));
        tglyphora again;
        again.show();
        QVERIFY(again.isMaximized());
        again.setWindowState(Qt::WindowNoState);
        QVERIFY(TestSupport::waitFor([&] { return again.size() == QSize(640, 480); }));
    }

    void quittingFromTheMenuKeepsThePlaceToo()
    {
        tglyphora w;
        w.show();
        w.resize(720, 540);
        w.findChild<QAction*>(QStringLiteral("Mquit"))->trigger();
        QCOMPARE(TestSupport::readSetting(QStringLiteral("Fenetre"), QStringLiteral("Hauteur")), QStringLiteral("540"));
        QVERIFY(!TestSupport::hasSetting(QStringLiteral("Param"), QStringLiteral("unite"))); // still not stored
    }

    void garbageInTheGroupIsIgnored()
    {
        for (const char* key : {"Largeur", "Hauteur", "Gauche", "Haut", "Maximisee", "Separation1", "Separation2"})
            TestSupport::writeSetting(QStringLiteral("Fenetre"), QString::fromLatin1(key), QStringLiteral("abc"));
        tglyphora w;
        w.show();
        QCOMPARE(w.size(), QSize(860, 600));
        QVERIFY(!w.isMaximized());
        TestSupport::writeSetting(QStringLiteral("Fenetre"), QStringLiteral("Largeur"), QStringLiteral("99999999"));
        TestSupport::writeSetting(QStringLiteral("Fenetre"), QStringLiteral("Hauteur"), QStringLiteral("-5"));
        tglyphora other;
        other.show();
        QCOMPARE(other.size(), QSize(860, 600));
    }

    void aPlaceOffEveryScreenIsNotUsed()
    {
        TestSupport::writeSetting(QStringLiteral("Fenetre"), QStringLiteral("Largeur"), QStringLiteral("600"));
        TestSupport::writeSetting(QStringLiteral("Fenetre"), QStringLiteral("Hauteur"), QStringLiteral("450"));
        TestSupport::writeSetting(QStringLiteral("Fenetre"), QStringLiteral("Gauche"), QStringLiteral("15000"));
        TestSupport::writeSetting(QStringLiteral("Fenetre"), QStringLiteral("Haut"), QStringLiteral("15000"));
        tglyphora w;
        w.show();
        QCOMPARE(w.size(), QSize(600, 450));
        QVERIFY(w.screen()->availableGeometry().intersects(w.geometry()));
    }

    void statusPanelsShrinkInsteadOfOverlapping()
    {
        tglyphora w;
        w.show();
        w.Panel(1)->setText(QStringLiteral("Textes d'exemple récupérés après l'erreur précédente"));
        for (int width : {860, 420, 300}) {
            w.resize(width, 400);
            QCoreApplication::processEvents();
            QVERIFY2(w.width() <= std::max(width, 320), qPrintable(QString::number(w.width())));
            int right = -1;
            for (int n = 1; n <= 7; ++n) {
                const QRect panel = w.Panel(n)->geometry();
                QVERIFY2(panel.left() > right, qPrintable(QStringLiteral("panel %1 at width %2").arg(n).arg(width)));
                right = panel.right();
            }
            QVERIFY(right <= w.etat->width());
            auto* first = qobject_cast<ElidedLabel*>(w.Panel(1));
            QVERIFY(first);
            QCOMPARE(first->text(), QStringLiteral("Textes d'exemple récupérés après l'erreur précédente"));
            if (width < 860)
                QVERIFY2(first->displayedText().endsWith(QStringLiteral("…")), qPrintable(first->displayedText()));
            // The others give way first: some of the name stays readable.
            QVERIFY2(first->width() >= 100, qPrintable(QString::number(first->width())));
        }
    }

    void theTestPageNameFontListShowsEightRows()
    {
        tglyphora main;
        main.show();
        Ptest dialog(&main);
        dialog.show();
        QCoreApplication::processEvents();
        QVERIFY(dialog.List2->count() >= 8);
        const int row = dialog.List2->sizeHintForRow(0);
        QVERIFY(row > 0);
        QVERIFY2(dialog.List2->viewport()->height() >= 8 * row,
                 qPrintable(QStringLiteral("%1 px for rows of %2 px").arg(dialog.List2->viewport()->height()).arg(row)));
    }

    void versionValuesStartInOneColumn()
    {
        about box;
        box.show();
        box.TabStrip1_Click(2);
        auto* list = box.List1;
        QCoreApplication::processEvents();
        const QImage shot = list->viewport()->grab().toImage();
        const QRgb background = list->palette().color(QPalette::Base).rgb();
        const int column = VersionLineDelegate::valueColumn(list->model(), list->fontMetrics());
        QList<int> starts;
        for (int row = 0; row < list->count(); ++row) {
            const QRect rect = list->visualItemRect(list->item(row));
            if (!list->viewport()->rect().contains(rect))
                continue;
            const QString line = list->item(row)->text();
            QCOMPARE(VersionLineDelegate::labelOf(line) + QLatin1Char('\t'), line.left(line.indexOf(QLatin1Char('\t')) + 1));
            const int labelEnd = rect.left() + list->fontMetrics().horizontalAdvance(VersionLineDelegate::labelOf(line));
            QVERIFY(labelEnd < rect.left() + column);
            starts.append(firstInk(shot, labelEnd + 4, rect.top() + 1, rect.bottom(), background));
        }
        QVERIFY(starts.size() >= 5);
        for (int start : starts)
            QVERIFY2(std::abs(start - starts.first()) <= 3, qPrintable(QStringLiteral("%1 vs %2").arg(start).arg(starts.first())));
    }
};

GLYPHORA_TEST_MAIN(TestWindowLayout)
#include "test_windowlayout.moc"
