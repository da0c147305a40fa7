#include "gdi/raster/DevicePath.h"

#include "gdi/raster/RasterMath.h"

namespace gdi {

void DevicePath::ArcTo(const EllipseArc& arc)
{
    m_verbs.push_back(Verb::Arc);
    m_arcs.push_back(arc);
    Include(arc.start);
    Include(arc.end);
    // The bounds of the whole ellipse: they only serve to reject early, and an arc's own bounds would need its
    // quadrants. Halving rounds outward; the sums stay far inside 64 bits.
    Include({SaturateToInt32(FloorHalf(arc.centerX2 - arc.radiusX2)),
             SaturateToInt32(FloorHalf(arc.centerY2 - arc.radiusY2))});
    Include({SaturateToInt32(CeilHalf(arc.centerX2 + arc.radiusX2)),
             SaturateToInt32(CeilHalf(arc.centerY2 + arc.radiusY2))});
}

} // namespace gdi
