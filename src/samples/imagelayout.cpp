// Tiles, angle steps and titles of the rotated sample window.
#include "samples/imagelayout.h"

#include "components/conversions.h"

namespace ImageLayout {

QList<QPoint> TilePositions(int placement, int tileWidth, int tileHeight, int windowWidth, int windowHeight)
{
    QList<QPoint> positions;
    if (tileWidth <= 0 || tileHeight <= 0)
        return positions;
    const int lastX = placement == PlacementWhole ? windowWidth : 0;
    // 64-bit steps: a window near the integer limit must not wrap around.
    for (long long x = 0; x <= lastX; x += tileWidth)
        for (long long y = 0; y <= windowHeight; y += tileHeight)
            positions.append(QPoint(static_cast<int>(x), static_cast<int>(y)));
    return positions;
}

std::optional<int> RaisedAngle(float rotation)
{
    const int angle = Conversions::toInt32(static_cast<double>(rotation)) + 1;
    if (angle < MaximumAngle + 1)
        return angle;
    return std::nullopt;
}

std::optional<int> LoweredAngle(float rotation)
{
    const int angle = Conversions::toInt32(static_cast<double>(rotation)) - 1;
    if (angle >= MinimumAngle)
        return angle;
    return std::nullopt;
}

bool AcceptsAngle(double degrees)
{
    return degrees >= MinimumAngle && degrees <= MaximumAngle;
}

QString AngleText(float degrees)
{
    // Seven significant digits are what a single-precision angle holds.
    return QString::number(static_cast<double>(degrees), 'g', 7);
}

QString AutomaticTitle()
{
    return QStringLiteral("Exemple d'une police avec une image de fond");
}

QString ManualTitle(float degrees)
{
    return AutomaticTitle() + QStringLiteral(" - Angle ") + AngleText(degrees) + QStringLiteral(" degrés");
}

} // namespace ImageLayout
