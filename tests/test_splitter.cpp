// ctlEBSplitter: clamping, drag snapping, the last-drag rule and the pane layout, in twips.
#include "app/tglyphora.h"
#include "components/ctlebsplitter.h"
#include "support/testsupport.h"

#include <QMouseEvent>
#include <QTreeWidget>

namespace {

QRectF twips(const QWidget* w) { return ctlEBSplitter::twipsOf(w); }

void sendMove(QWidget* bar, QPointF pos, Qt::MouseButtons buttons)
{
    QMouseEvent move(QEvent::MouseMove, pos, bar->mapToGlobal(pos), Qt::NoButton, buttons, Qt::NoModifier);
    QCoreApplication::sendEvent(bar, &move);
}

} // namespace

class TestSplitter : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void newInstanceDefaults()
    {
        ctlEBSplitter s;
        s.resize(400, 300); // 6000 x 4500 twips
        QCOMPARE(s.Orientation(), 1L);
        QCOMPARE(s.SplitterWidth(), 75L);
        QVERIFY(s.childControls().isEmpty());
        QCOMPARE(s.picSplitter()->objectName(), QStringLiteral("picSplitter"));
        s.InitProperties();
        QCOMPARE(s.SplitterPos(), 3000L);
        QCOMPARE(s.picSplitter()->cursor().shape(), Qt::SizeHorCursor);
    }

    void layoutOfTwoChildrenVertical()
    {
        ctlEBSplitter s;
        s.resize(400, 300);
        auto* first = new QWidget(&s);
        auto* second = new QWidget(&s);
        QCOMPARE(s.childControls(), (QList<QWidget*>{first, second}));
        s.setSplitterPos(1820);
        // The first (left) pane holds child 1, overlapping the bar by 15 twips.
        QCOMPARE(twips(second), QRectF(0, 0, 1835, 4500));
        // The second pane starts at B + S - 15 and fills the rest.
        QCOMPARE(twips(first), QRectF(1880, 0, 6000 - 1880, 4500));
        QCOMPARE(s.barTwips(), QRectF(1820, 0, 75, 4500));
    }

    void layoutOfOneChild()
    {
        ctlEBSplitter s;
        s.resize(400, 300);
        auto* only = new QWidget(&s);
        s.setSplitterPos(1500);
        QCOMPARE(twips(only), QRectF(0, 0, 1515, 4500));
        s.setOrientation(0);
        QCOMPARE(s.picSplitter()->cursor().shape(), Qt::SizeVerCursor);
        QCOMPARE(s.SplitterPos(), 2250L);
        QCOMPARE(twips(only), QRectF(0, 0, 6000, 2265));
    }

    void layoutOfTwoChildrenHorizontal()
    {
        ctlEBSplitter s;
        s.resize(400, 300);
        auto* lower = new QWidget(&s);
        auto* upper = new QWidget(&s);
        s.setOrientation(0);
        s.setSplitterPos(2048);
        QCOMPARE(twips(upper), QRectF(0, 0, 6000, 2063));
        QCOMPARE(twips(lower), QRectF(0, 2108, 6000, 4500 - 2108));
        QCOMPARE(s.barTwips(), QRectF(0, 2048, 6000, 75));
    }

    void secondPaneSkippedWhenItWouldBeEmpty()
    {
        ctlEBSplitter s;
        s.resize(400, 300);
        PropertyBag bag;
        bag.WriteProperty(QStringLiteral("SplitterPos"), 7000.0f, 3000.0f);
        auto* right = new QWidget(&s);
        auto* left = new QWidget(&s);
        s.ReadProperties(bag); // stored outside the margins: applied as it stands
        QCOMPARE(s.SplitterPos(), 7000L);
        right->setGeometry(5, 6, 7, 8);
        s.UserControl_Resize();
        QCOMPARE(twips(left), QRectF(0, 0, 7015, 4500));
        QCOMPARE(right->geometry(), QRect(5, 6, 7, 8)); // left where it was
    }

    void noChildOrMoreThanTwoOnlySizesTheBar()
    {
        ctlEBSplitter none;
        none.resize(400, 300);
        none.setSplitterPos(1500);
        QCOMPARE(none.barTwips(), QRectF(1500, 0, 75, 4500));

        ctlEBSplitter three;
        three.resize(400, 300);
        QList<QWidget*> children;
        for (int i = 0; i < 3; ++i) {
            auto* child = new QWidget(&three);
            child->setGeometry(10 * i, 11, 12, 13);
            children.append(child);
        }
        three.setSplitterPos(1500);
        three.resize(500, 200);
        three.UserControl_Resize();
        QCOMPARE(three.barTwips(), QRectF(1500, 0, 75, 3000));
        for (int i = 0; i < 3; ++i)
            QCOMPARE(children[i]->geometry(), QRect(10 * i, 11, 12, 13));
    }

    void clampOfThePositionProperty()
    {
        ctlEBSplitter s;
        s.resize(400, 300);
        QCOMPARE(s.setSplitterPos(50), 120L);
        QCOMPARE(s.SplitterPos(), 120L);
        QCOMPARE(s.setSplitterPos(99999), 6000L - 75 - 120);
        QCOMPARE(s.SplitterPos(), 5805L);
        QCOMPARE(s.setSplitterPos(2000), 2000L);
        // Not snapped to 15.
        QCOMPARE(s.setSplitterPos(2003), 2003L);
    }

    void clampBoundsAreNotCombined()
    {
        ctlEBSplitter s;
        s.resize(20, 300); // 300 twips wide: smaller than S + 240
        QCOMPARE(s.setSplitterPos(50), 120L);           // below the margin: 120, no upper check
        QCOMPARE(s.setSplitterPos(130), 300L - 75 - 120); // the far bound: 105, below 120
        s.setSplitterWidth(400);
        QCOMPARE(s.setSplitterPos(125), 300L - 400 - 120); // negative
    }

    void dragSnapsAndClamps()
    {
        ctlEBSplitter s;
        s.resize(400, 300);
        s.setSplitterPos(3000);
        s.clearChangedProperties();
        // P = 3000 + 500 - 37.5 = 3462.5 -> 3462 (half to even) -> snapped 3450.
        s.picSplitter_MouseMove(1, 0, 500, 10);
        QCOMPARE(s.SplitterPos(), 3450L);
        QCOMPARE(s.changedProperties(), QStringList{QStringLiteral("SplitterPos")});
        s.picSplitter_MouseMove(1, 0, -100000, 10);
        QCOMPARE(s.SplitterPos(), 120L);
        s.picSplitter_MouseMove(1, 0, 100000, 10);
        QCOMPARE(s.SplitterPos(), 5805L);
    }

    void farRightIsNotAMultipleOf15()
    {
        ctlEBSplitter s;
        s.resize(400, 300);
        s.setSplitterWidth(80);
        s.picSplitter_MouseMove(1, 0, 100000, 0);
        QCOMPARE(s.SplitterPos(), 6000L - 80 - 120); // 5800
        QVERIFY(s.SplitterPos() % 15 != 0);
    }

    void dragToTheLastDragPositionDoesNothing()
    {
        ctlEBSplitter s;
        s.resize(400, 300);
        s.setSplitterPos(3000);
        s.picSplitter_MouseMove(1, 0, 500, 0); // 3450
        QCOMPARE(s.SplitterPos(), 3450L);
        s.setSplitterPos(2000);
        s.clearChangedProperties();
        // From 2000, X = 1487.5 gives 3450 again: equal to the last drag position.
        s.picSplitter_MouseMove(1, 0, 1487.5, 0);
        QCOMPARE(s.SplitterPos(), 2000L);
        QVERIFY(s.changedProperties().isEmpty());
        s.picSplitter_MouseMove(1, 0, 1500, 0); // 3462.5 -> 3450 again: still nothing
        QCOMPARE(s.SplitterPos(), 2000L);
        s.picSplitter_MouseMove(1, 0, 1520, 0); // 3482.5 -> 3482 -> 3480
        QCOMPARE(s.SplitterPos(), 3480L);
    }

    void onlyTheLeftButtonAloneDrags()
    {
        ctlEBSplitter s;
        s.resize(400, 300);
        s.setSplitterPos(3000);
        s.picSplitter_MouseMove(2, 0, 500, 0);
        QCOMPARE(s.SplitterPos(), 3000L);
        s.picSplitter_MouseMove(3, 0, 500, 0);
        QCOMPARE(s.SplitterPos(), 3000L);
        s.picSplitter_MouseMove(0, 0, 500, 0);
        QCOMPARE(s.SplitterPos(), 3000L);
    }

    void realMouseMovesOverTheBar()
    {
        ctlEBSplitter s;
        s.resize(400, 300);
        s.setSplitterPos(3000);
        QWidget* bar = s.picSplitter();
        sendMove(bar, QPointF(20, 5), Qt::RightButton);
        QCOMPARE(s.SplitterPos(), 3000L);
        sendMove(bar, QPointF(20, 5), Qt::LeftButton | Qt::RightButton);
        QCOMPARE(s.SplitterPos(), 3000L);
        // 20 px = 300 twips: P = 3000 + 300 - 37.5 = 3262.5 -> 3262 -> 3255.
        sendMove(bar, QPointF(20, 5), Qt::LeftButton);
        QCOMPARE(s.SplitterPos(), 3255L);
    }

    void horizontalDragUsesY()
    {
        ctlEBSplitter s;
        s.resize(400, 300);
        s.setOrientation(0);
        s.picSplitter_MouseMove(1, 0, 9999, 300); // 2250 + 300 - 37.5 = 2512.5 -> 2512 -> 2505
        QCOMPARE(s.SplitterPos(), 2505L);
        s.picSplitter_MouseMove(1, 0, 0, 100000);
        QCOMPARE(s.SplitterPos(), 4500L - 75 - 120);
    }

    void lastDragPositionsAreKeptPerOrientation()
    {
        ctlEBSplitter s;
        s.resize(400, 300);
        s.setSplitterPos(3000);
        s.picSplitter_MouseMove(1, 0, 500, 0); // vertical: 3450
        s.setOrientation(0);
        s.setOrientation(1); // re-centred at 3000
        QCOMPARE(s.SplitterPos(), 3000L);
        s.picSplitter_MouseMove(1, 0, 487.5, 0); // 3450 again: the vertical last drag
        QCOMPARE(s.SplitterPos(), 3000L);
    }

    void orientationRecentresTheBar()
    {
        ctlEBSplitter s;
        s.resize(400, 300);
        s.setSplitterPos(1000);
        s.clearChangedProperties();
        s.setOrientation(1);
        QCOMPARE(s.SplitterPos(), 3000L);
        QCOMPARE(s.changedProperties(), (QStringList{QStringLiteral("Orientation"), QStringLiteral("SplitterPos")}));
        s.setOrientation(0);
        QCOMPARE(s.SplitterPos(), 2250L);
        QCOMPARE(s.barTwips(), QRectF(0, 2250, 6000, 75));
        s.setOrientation(7); // any non-zero value is vertical
        QCOMPARE(s.barTwips(), QRectF(3000, 0, 75, 4500));
    }

    void storedPositionOutsideTheMarginsIsKeptUntilChanged()
    {
        ctlEBSplitter s;
        s.resize(400, 300);
        PropertyBag bag;
        bag.WriteProperty(QStringLiteral("splitterpos"), 30.0f, 3000.0f);
        s.ReadProperties(bag);
        QCOMPARE(s.SplitterPos(), 30L);
        s.resize(410, 300);
        QCOMPARE(s.SplitterPos(), 30L);
        s.picSplitter_MouseMove(1, 0, 40, 0);
        QCOMPARE(s.SplitterPos(), 120L);
    }

    void propertiesRoundTripWithoutDefaults()
    {
        ctlEBSplitter s;
        s.resize(400, 300);
        s.InitProperties();
        PropertyBag defaults;
        s.WriteProperties(defaults);
        QCOMPARE(defaults.count(), 0);
        s.setOrientation(0);
        s.setSplitterPos(1234);
        s.setSplitterWidth(90);
        PropertyBag saved;
        s.WriteProperties(saved);
        QCOMPARE(saved.ReadProperty(QStringLiteral("ORIENTATION"), 1).toLongLong(), 0LL);
        QCOMPARE(saved.ReadProperty(QStringLiteral("SplitterPos"), 0).toDouble(), 1234.0);
        QCOMPARE(saved.ReadProperty(QStringLiteral("splitterwidth"), 75).toLongLong(), 90LL);
        ctlEBSplitter other;
        other.resize(400, 300);
        other.ReadProperties(saved);
        QCOMPARE(other.Orientation(), 0L);
        QCOMPARE(other.SplitterPos(), 1234L);
        QCOMPARE(other.SplitterWidth(), 90L);
    }

    void mainWindowNestsTwoSplitters()
    {
        tglyphora w;
        w.show();
        ctlEBSplitter* outer = w.findChild<ctlEBSplitter*>(QStringLiteral("ctlEBSplitter1"));
        ctlEBSplitter* inner = w.findChild<ctlEBSplitter*>(QStringLiteral("ctlEBSplitter2"));
        QVERIFY(outer && inner);
        QCOMPARE(outer->Orientation(), 1L);
        QCOMPARE(outer->SplitterPos(), 1820L);
        QCOMPARE(inner->Orientation(), 0L);
        QCOMPARE(inner->SplitterPos(), 2048L);
        QCOMPARE(outer->SplitterWidth(), 75L);
        QCOMPARE(inner->SplitterWidth(), 75L);
        // The left pane holds the filter panel above the list.
        QWidget* pane = w.findChild<QWidget*>(QStringLiteral("fraListe"));
        QVERIFY(pane);
        QCOMPARE(outer->childControls(), (QList<QWidget*>{inner, pane}));
        QCOMPARE(w.List1->parentWidget(), pane);
        QCOMPARE(inner->childControls(), (QList<QWidget*>{w.findChild<QWidget*>(QStringLiteral("Text2")),
                                                           w.findChild<QWidget*>(QStringLiteral("Text1"))}));
        QCOMPARE(twips(pane), QRectF(0, 0, 1835, outer->heightTwips()));
        QCOMPARE(w.List1->geometry().bottom(), pane->height() - 1);
        QCOMPARE(w.List1->width(), pane->width());
        QCOMPARE(twips(inner).left(), 1880.0);
        QCOMPARE(twips(inner).width(), outer->widthTwips() - 1880);
        QCOMPARE(twips(w.findChild<QWidget*>(QStringLiteral("Text1"))), QRectF(0, 0, inner->widthTwips(), 2063));
        // The window sizes only the outer splitter; the inner one follows.
        w.resize(700, 500);
        QCOMPARE(twips(inner).width(), outer->widthTwips() - 1880);
        QCOMPARE(outer->SplitterPos(), 1820L);
    }
};

GLYPHORA_TEST_MAIN(TestSplitter)
#include "test_splitter.moc"
