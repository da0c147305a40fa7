#include "gdi/raster/DevicePath.h"

#include "gdi/raster/RasterMath.h"

#include <algorithm>

namespace gdi {
namespace {

void Include(Box& bounds, DevicePoint point)
{
    bounds.left = std::min(bounds.left, point.x);
    bounds.top = std::min(bounds.top, point.y);
    bounds.right = std::max(bounds.right, point.x);
    bounds.bottom = std::max(bounds.bottom, point.y);
}

} // namespace

void DevicePath::AddSegment() const
{
    m_verbs.reserve(2); // both or none when memory runs out
    m_points.reserve(2);
    m_isSegment = false;
    m_verbs.push_back(Verb::Move);
    m_verbs.push_back(Verb::Line);
    m_points.push_back(m_from);
    m_points.push_back(m_to);
}

void DevicePath::AddFurtherSegment(DevicePoint from, DevicePoint to)
{
    MoveTo(from);
    LineTo(to);
}

Box DevicePath::Bounds() const
{
    constexpr int32_t kLow = std::numeric_limits<int32_t>::min();
    constexpr int32_t kHigh = std::numeric_limits<int32_t>::max();
    Box bounds = {kHigh, kHigh, kLow, kLow};
    for (const DevicePoint point : Points())
        Include(bounds, point);
    for (const EllipseArc& arc : m_arcs) {
        Include(bounds, arc.start);
        Include(bounds, arc.end);
        // The bounds of the whole ellipse: they only serve to reject early, and an arc's own would need its quadrants.
        // Halving rounds outward; the sums stay far inside 64 bits.
        Include(bounds, {SaturateToInt32(FloorHalf(arc.centerX2 - arc.radiusX2)),
                         SaturateToInt32(FloorHalf(arc.centerY2 - arc.radiusY2))});
        Include(bounds, {SaturateToInt32(CeilHalf(arc.centerX2 + arc.radiusX2)),
                         SaturateToInt32(CeilHalf(arc.centerY2 + arc.radiusY2))});
    }
    return bounds;
}

} // namespace gdi
