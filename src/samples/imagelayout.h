// Geometry and angle rules of the rotated sample over a picture: where the picture's
// tiles go, how the "+" and "-" keys and the angle box move the angle, and the titles.
#pragma once

#include <QList>
#include <QPoint>
#include <QString>
#include <optional>

namespace ImageLayout {

inline constexpr int PlacementWhole = 1; // tiles over the whole window
inline constexpr int PlacementLeft = 2;  // one column down the left edge
inline constexpr int MinimumAngle = -360;
inline constexpr int MaximumAngle = 360;

// Top-left corners of the tiles: placement 1 steps x = 0, tw, 2tw... while x <= ww and,
// for each x, y = 0, th, ... while y <= wh; any other placement only x = 0. A tile of
// no size gives no tiles.
QList<QPoint> TilePositions(int placement, int tileWidth, int tileHeight, int windowWidth, int windowHeight);

// The whole-degree angle (the rotation rounded, halves to even) plus or minus one, or
// nothing when the result would leave -360..360.
std::optional<int> RaisedAngle(float rotation);
std::optional<int> LoweredAngle(float rotation);
// Whether an angle typed by the user is taken.
bool AcceptsAngle(double degrees);

// The angle as the title and the angle box show it ("45", "-90", "45.6").
QString AngleText(float degrees);
QString AutomaticTitle();
QString ManualTitle(float degrees);

} // namespace ImageLayout
