// Tiles, angle steps and titles of the rotated sample window, without the window.
#include "components/runtimeerror.h"
#include "samples/imagelayout.h"
#include "support/testsupport.h"

using namespace ImageLayout;

class TestImageLayout : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void placementOneTilesTheWholeWindow()
    {
        // A 100 x 50 picture in a 250 x 120 window: x 0, 100, 200 and y 0, 50, 100.
        const QList<QPoint> tiles = TilePositions(1, 100, 50, 250, 120);
        const QList<QPoint> expected = {{0, 0}, {0, 50}, {0, 100}, {100, 0}, {100, 50},
                                        {100, 100}, {200, 0}, {200, 50}, {200, 100}};
        QCOMPARE(tiles, expected);
    }

    void placementOneIncludesATileStartingOnTheEdge()
    {
        // "while x <= ww": a window exactly two tiles wide still gets a third column.
        const QList<QPoint> tiles = TilePositions(1, 100, 50, 200, 100);
        QCOMPARE(tiles.size(), 9);
        QVERIFY(tiles.contains(QPoint(200, 100)));
        QVERIFY(!TilePositions(1, 100, 50, 199, 99).contains(QPoint(200, 0)));
        QCOMPARE(TilePositions(1, 100, 50, 199, 99).size(), 4);
    }

    void placementTwoIsOneColumnOnTheLeft()
    {
        const QList<QPoint> expected = {{0, 0}, {0, 50}, {0, 100}};
        QCOMPARE(TilePositions(2, 100, 50, 250, 120), expected);
        // Any placement other than 1 behaves as 2.
        QCOMPARE(TilePositions(0, 100, 50, 250, 120), expected);
        QCOMPARE(TilePositions(7, 100, 50, 250, 120), expected);
    }

    void aTileBiggerThanTheWindowIsDrawnOnce()
    {
        QCOMPARE(TilePositions(1, 500, 400, 250, 120), QList<QPoint>{QPoint(0, 0)});
    }

    void noPictureGivesNoTiles()
    {
        QVERIFY(TilePositions(1, 0, 50, 250, 120).isEmpty());
        QVERIFY(TilePositions(1, 100, 0, 250, 120).isEmpty());
        QVERIFY(TilePositions(2, -3, 10, 250, 120).isEmpty());
        QVERIFY(TilePositions(1, 10, 10, -1, -1).isEmpty());
    }

    void plusStopsAt360()
    {
        QCOMPARE(RaisedAngle(359.0f), std::optional<int>(360));
        QCOMPARE(RaisedAngle(360.0f), std::nullopt);
        QCOMPARE(RaisedAngle(-360.0f), std::optional<int>(-359));
    }

    void minusStopsAtMinus360()
    {
        QCOMPARE(LoweredAngle(-359.0f), std::optional<int>(-360));
        QCOMPARE(LoweredAngle(-360.0f), std::nullopt);
        QCOMPARE(LoweredAngle(360.0f), std::optional<int>(359));
    }

    void stepsStartFromTheRoundedAngle()
    {
        QCOMPARE(RaisedAngle(45.6f), std::optional<int>(47)); // 46 + 1
        QCOMPARE(RaisedAngle(44.5f), std::optional<int>(45)); // 44 (halves to even) + 1
        QCOMPARE(RaisedAngle(45.5f), std::optional<int>(47)); // 46 + 1
        QCOMPARE(LoweredAngle(0.5f), std::optional<int>(-1)); // 0 - 1
        QCOMPARE(LoweredAngle(-359.6f), std::nullopt);        // -360 - 1
        QCOMPARE(RaisedAngle(359.6f), std::nullopt);          // 360 + 1
    }

    void anglesOutsideTheIntegerRangeOverflow()
    {
        try {
            RaisedAngle(1e20f);
            QFAIL("no error");
        } catch (const RuntimeError& e) {
            QCOMPARE(e.number(), 6);
        }
    }

    void acceptedAngles()
    {
        QVERIFY(AcceptsAngle(-360));
        QVERIFY(AcceptsAngle(360));
        QVERIFY(AcceptsAngle(0));
        QVERIFY(AcceptsAngle(45.6));
        QVERIFY(!AcceptsAngle(360.01));
        QVERIFY(!AcceptsAngle(-360.5));
        QVERIFY(!AcceptsAngle(400));
    }

    void titles()
    {
        QCOMPARE(AutomaticTitle(), QStringLiteral("Exemple d'une police avec une image de fond"));
        QCOMPARE(ManualTitle(0.0f), QStringLiteral("Exemple d'une police avec une image de fond - Angle 0 degrés"));
        QCOMPARE(ManualTitle(-90.0f), QStringLiteral("Exemple d'une police avec une image de fond - Angle -90 degrés"));
        QCOMPARE(AngleText(45.6f), QStringLiteral("45.6"));
        QCOMPARE(AngleText(360.0f), QStringLiteral("360"));
        QCOMPARE(AngleText(-0.25f), QStringLiteral("-0.25"));
    }
};

GLYPHORA_TEST_MAIN(TestImageLayout)
#include "test_imagelayout.moc"
