#include "gdi/raster/ArcSector.h"

#include "gdi/raster/RasterMath.h"

#include <algorithm>
#include <cmath>

namespace gdi {

ArcSector::ArcSector(const EllipseArc& arc) : m_whole(arc.whole)
{
    m_fromX = arc.clockwise ? arc.startX : arc.endX;
    m_fromY = arc.clockwise ? arc.startY : arc.endY;
    m_toX = arc.clockwise ? arc.endX : arc.startX;
    m_toY = arc.clockwise ? arc.endY : arc.startY;
    const double cross = m_fromX * m_toY - m_fromY * m_toX;
    const double dot = m_fromX * m_toX + m_fromY * m_toY;
    m_convex = cross > 0 || (cross == 0 && dot < 0);
}

void FlattenArc(const EllipseArc& arc, std::vector<DevicePoint>& points)
{
    constexpr double kTurn = 6.283185307179586;
    constexpr double kChords = 65536;
    const double radiusX = static_cast<double>(arc.radiusX2) * 0.5;
    const double radiusY = static_cast<double>(arc.radiusY2) * 0.5;
    // Angles of the circle that the ellipse is a scaled image of; a flat ellipse has no directions across.
    const double from = std::atan2(arc.startY * radiusX, arc.startX * radiusY);
    double sweep = std::atan2(arc.endY * radiusX, arc.endX * radiusY) - from;
    if (arc.whole)
        sweep = arc.clockwise ? kTurn : -kTurn;
    else if (arc.clockwise)
        sweep += sweep < 0 ? kTurn : 0;
    else
        sweep -= sweep > 0 ? kTurn : 0;
    // A chord over the angle a has the height r a^2 / 8, which is to be an eighth.
    const double radius = std::max(radiusX, radiusY);
    const double chords = std::min(std::ceil(std::fabs(sweep) * std::sqrt(radius)) + 1, kChords);
    if (!(chords >= 1)) { // directions that are no numbers: nothing but the ends is known
        points.push_back(arc.end);
        return;
    }
    for (int i = 1; i < static_cast<int>(chords); ++i) {
        const double angle = from + sweep * i / chords;
        const double x = static_cast<double>(arc.centerX2) * 0.5 + radiusX * std::cos(angle);
        const double y = static_cast<double>(arc.centerY2) * 0.5 + radiusY * std::sin(angle);
        points.push_back({SaturateToInt32(FloorToInt64(x + 0.5)), SaturateToInt32(FloorToInt64(y + 0.5))});
    }
    points.push_back(arc.end);
}

} // namespace gdi
