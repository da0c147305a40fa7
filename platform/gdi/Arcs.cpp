/// Where radials meet ellipses, in logical and in device coordinates.
#include "gdi/Arcs.h"

#include <algorithm>

namespace gdi {
namespace {

constexpr double kTwoPi = 6.283185307179586;

__extension__ typedef __int128 Wide;

/// Where the ray from the centre meets the ellipse, relative to the centre. Without a direction it points to the right;
/// an ellipse without extent is met in its centre.
RealPoint OnEllipse(RealPoint direction, double radiusX, double radiusY)
{
    if (radiusX <= 0 || radiusY <= 0) {
        return {0, 0};
    }
    const double u = direction.x / radiusX, v = direction.y / radiusY;
    const double length = std::sqrt(u * u + v * v);
    if (length == 0) {
        return {radiusX, 0};
    }
    return {direction.x / length, direction.y / length};
}

/// Centre, radii and radials, doubled so that they are whole numbers: 33 bits and a sign each.
struct Ellipse
{
    int64_t centerX2, centerY2, radiusX2, radiusY2;
    int64_t startX2, startY2, endX2, endY2;

    explicit Ellipse(const ArcRequest& r)
        : centerX2(int64_t(r.left) + r.right), centerY2(int64_t(r.top) + r.bottom),
          radiusX2(std::abs(int64_t(r.right) - r.left)), radiusY2(std::abs(int64_t(r.bottom) - r.top)),
          startX2(2 * int64_t(r.xr1) - centerX2), startY2(2 * int64_t(r.yr1) - centerY2),
          endX2(2 * int64_t(r.xr2) - centerX2), endY2(2 * int64_t(r.yr2) - centerY2)
    {}

    /// The radials point the same way. Exact: the products need 68 bits.
    bool IsWhole() const
    {
        if (startX2 == endX2 && startY2 == endY2) {
            return true;
        }
        const Wide cross = Wide(startX2) * endY2 - Wide(startY2) * endX2;
        const Wide dot = Wide(startX2) * endX2 + Wide(startY2) * endY2;
        return cross == 0 && dot >= 0;
    }
};

DevicePoint Rounded(RealPoint p)
{
    return {RoundToPixel(p.x), RoundToPixel(p.y)};
}

bool Same(DevicePoint a, DevicePoint b)
{
    return a.x == b.x && a.y == b.y;
}

/// The ellipse in device space when the axes stay axes: its box goes corner by corner to the nearest pixels, so that
/// circles stay circles under a transform that moves by fractions.
EllipseArc UprightArc(const Transform& world, const ArcRequest& request, const Ellipse& ellipse, bool clockwise)
{
    const DevicePoint a = world.ToDevice(request.left, request.top);
    const DevicePoint b = world.ToDevice(request.right, request.bottom);
    EllipseArc arc = {};
    arc.centerX2 = int64_t(a.x) + b.x;
    arc.centerY2 = int64_t(a.y) + b.y;
    arc.radiusX2 = std::abs(int64_t(b.x) - a.x);
    arc.radiusY2 = std::abs(int64_t(b.y) - a.y);
    arc.startX = double(ellipse.startX2) * world.m11;
    arc.startY = double(ellipse.startY2) * world.m22;
    arc.endX = double(ellipse.endX2) * world.m11;
    arc.endY = double(ellipse.endY2) * world.m22;
    arc.clockwise = clockwise;
    arc.whole = ellipse.IsWhole();

    const double cx = double(arc.centerX2) / 2, cy = double(arc.centerY2) / 2;
    const double rx = double(arc.radiusX2) / 2, ry = double(arc.radiusY2) / 2;
    const RealPoint start = OnEllipse({arc.startX, arc.startY}, rx, ry);
    arc.start = arc.end = Rounded({cx + start.x, cy + start.y});
    if (!arc.whole) {
        const RealPoint end = OnEllipse({arc.endX, arc.endY}, rx, ry);
        arc.end = Rounded({cx + end.x, cy + end.y});
    }
    return arc;
}

/// Lines along an ellipse that the transform turns or shears, no further than a tenth of a pixel from it.
void AppendFlattened(const Transform& world, const Ellipse& ellipse, bool logicalClockwise, DevicePoint from,
                     DevicePath& path)
{
    const double cx = double(ellipse.centerX2) / 2, cy = double(ellipse.centerY2) / 2;
    const double rx = double(ellipse.radiusX2) / 2, ry = double(ellipse.radiusY2) / 2;
    const ArcAngles angles = AnglesOf(double(ellipse.startX2), double(ellipse.startY2), double(ellipse.endX2),
                                      double(ellipse.endY2), rx, ry, logicalClockwise, ellipse.IsWhole());
    const double reach = std::max(std::hypot(world.m11, world.m12) * rx, std::hypot(world.m21, world.m22) * ry);
    // A chord over the angle t stays within r * t^2 / 8 of its arc.
    const double steps = std::fabs(angles.sweep) / std::sqrt(0.8 / std::max(reach, 1.0));
    const int count = int(std::min(std::max(steps, 4.0), 4096.0)) + 1;
    DevicePoint last = from;
    for (int i = 0; i <= count; ++i) {
        const double a = angles.start + angles.sweep * i / count;
        const DevicePoint p = Rounded(world.Apply(cx + rx * std::cos(a), cy + ry * std::sin(a)));
        if (!Same(p, last)) {
            path.LineTo(p);
            last = p;
        }
    }
}

} // namespace

ArcAngles AnglesOf(double startX, double startY, double endX, double endY, double radiusX, double radiusY,
                   bool clockwise, bool whole)
{
    // The parameter of a point on the ellipse; that of a circle is the angle itself. y runs downward, so a growing
    // parameter turns clockwise as seen.
    const auto parameter = [&](double x, double y) {
        return radiusX > 0 && radiusY > 0 ? std::atan2(y / radiusY, x / radiusX) : 0.0;
    };
    const double start = parameter(startX, startY);
    double sweep = parameter(endX, endY) - start;
    if (whole) {
        sweep = clockwise ? kTwoPi : -kTwoPi;
    } else if (clockwise && sweep <= 0) {
        sweep += kTwoPi;
    } else if (!clockwise && sweep >= 0) {
        sweep -= kTwoPi;
    }
    return {start, sweep};
}

POINT AppendArc(const DeviceContext& dc, const ArcRequest& request, DevicePoint from, DevicePath& path)
{
    const Ellipse ellipse(request);
    const Transform& world = dc.world;
    const bool logicalClockwise = dc.arcDirection == AD_CLOCKWISE;
    if (world.straight) {
        const EllipseArc arc = UprightArc(world, request, ellipse, logicalClockwise != world.mirrored);
        if (!Same(arc.start, from)) {
            path.LineTo(arc.start);
        }
        path.ArcTo(arc);
        if (world.identity) {
            return {arc.end.x, arc.end.y};
        }
    } else {
        AppendFlattened(world, ellipse, logicalClockwise, from, path);
    }

    const RealPoint end = ellipse.IsWhole() ? RealPoint{double(ellipse.startX2), double(ellipse.startY2)}
                                            : RealPoint{double(ellipse.endX2), double(ellipse.endY2)};
    const RealPoint at = OnEllipse(end, double(ellipse.radiusX2) / 2, double(ellipse.radiusY2) / 2);
    return {RoundToPixel(double(ellipse.centerX2) / 2 + at.x), RoundToPixel(double(ellipse.centerY2) / 2 + at.y)};
}

} // namespace gdi
