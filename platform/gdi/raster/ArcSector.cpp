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

ArcChords::ArcChords(const EllipseArc& arc)
    : m_arc(arc), m_radiusX(static_cast<double>(arc.radiusX2) * 0.5),
      m_radiusY(static_cast<double>(arc.radiusY2) * 0.5), m_count(1)
{
    constexpr double kTurn = 6.283185307179586;
    constexpr double kMostChords = 65536;
    // A flat ellipse has no directions across.
    m_from = std::atan2(arc.startY * m_radiusX, arc.startX * m_radiusY);
    m_sweep = std::atan2(arc.endY * m_radiusX, arc.endX * m_radiusY) - m_from;
    if (arc.whole)
        m_sweep = arc.clockwise ? kTurn : -kTurn;
    else if (arc.clockwise)
        m_sweep += m_sweep < 0 ? kTurn : 0;
    else
        m_sweep -= m_sweep > 0 ? kTurn : 0;
    // A chord over the angle a has the height r a^2 / 8, which is to be an eighth.
    const double radius = std::max(m_radiusX, m_radiusY);
    const double chords = std::min(std::ceil(std::fabs(m_sweep) * std::sqrt(radius)) + 1, kMostChords);
    if (chords >= 1) // else the directions are no numbers, and nothing but the ends is known
        m_count = static_cast<int>(chords);
}

void ArcChords::RealPoint(int index, double& x, double& y) const
{
    const double angle = m_from + m_sweep * index / m_count;
    x = static_cast<double>(m_arc.centerX2) * 0.5 + m_radiusX * std::cos(angle);
    y = static_cast<double>(m_arc.centerY2) * 0.5 + m_radiusY * std::sin(angle);
}

DevicePoint ArcChords::Point(int index) const
{
    if (index <= 0)
        return m_arc.start;
    if (index >= m_count)
        return m_arc.end;
    double x, y;
    RealPoint(index, x, y);
    return {SaturateToInt32(FloorToInt64(x + 0.5)), SaturateToInt32(FloorToInt64(y + 0.5))};
}

double ArcChords::Height(int steps) const
{
    const double angle = m_sweep * steps / m_count;
    return std::max(m_radiusX, m_radiusY) * angle * angle / 8;
}

void FlattenArc(const EllipseArc& arc, std::vector<DevicePoint>& points)
{
    const ArcChords chords(arc);
    for (int i = 1; i <= chords.Count(); ++i)
        points.push_back(chords.Point(i));
}

} // namespace gdi
