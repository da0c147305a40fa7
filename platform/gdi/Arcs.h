/// Elliptic arcs between logical boxes and device paths.
#pragma once

#include "gdi/DeviceContext.h"

namespace gdi {

struct ArcRequest
{
    int32_t left, top, right, bottom; ///< box of the ellipse
    int32_t xr1, yr1, xr2, yr2;       ///< ends of the radials
};

/// Appends the line from `from` (when it has an extent) and the arc to a path whose figure stands at device point
/// `from`. Returns the arc's end in logical coordinates.
///
/// An upright ellipse stays one; another one is split into short lines. The arc direction is meant with y downward
/// before the world transform, so a mirroring transform turns it round.
POINT AppendArc(const DeviceContext& dc, const ArcRequest& request, DevicePoint from, DevicePath& path);

/// The arc as Bezier curves of at most a quarter turn, three points each (its start left out), in device coordinates.
/// Calls `emit(RealPoint)` for every point.
template <class Emit>
void ArcToBeziers(const EllipseArc& arc, Emit emit);

/// Angle from the first radial to the second in the arc's direction, in (0, 2 pi], and the first radial's own, both as
/// parameters of the ellipse with y downward.
struct ArcAngles
{
    double start;
    double sweep; ///< negative when counter-clockwise as seen
};
ArcAngles AnglesOf(double startX, double startY, double endX, double endY, double radiusX, double radiusY,
                   bool clockwise, bool whole);

template <class Emit>
void ArcToBeziers(const EllipseArc& arc, Emit emit)
{
    const double cx = double(arc.centerX2) / 2, cy = double(arc.centerY2) / 2;
    const double rx = double(arc.radiusX2) / 2, ry = double(arc.radiusY2) / 2;
    const ArcAngles angles = AnglesOf(arc.startX, arc.startY, arc.endX, arc.endY, rx, ry, arc.clockwise, arc.whole);
    const int parts = 1 + int(std::fabs(angles.sweep) / 1.5708);
    const double step = angles.sweep / parts;
    // A cubic with this handle length touches the circle at both ends and in the middle.
    const double handle = 4.0 / 3.0 * std::tan(step / 4);
    for (int i = 0; i < parts; ++i) {
        const double a = angles.start + step * i, b = a + step;
        emit(RealPoint{cx + rx * (std::cos(a) - handle * std::sin(a)), cy + ry * (std::sin(a) + handle * std::cos(a))});
        emit(RealPoint{cx + rx * (std::cos(b) + handle * std::sin(b)), cy + ry * (std::sin(b) - handle * std::cos(b))});
        emit(RealPoint{cx + rx * std::cos(b), cy + ry * std::sin(b)});
    }
}

} // namespace gdi
