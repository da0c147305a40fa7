#include "gdi/raster/PathPieces.h"

#include <algorithm>

namespace gdi {

using Verb = DevicePath::Verb;

bool HasSeveralPieces(const DevicePath& path)
{
    int pieces = 0;
    ForEachPiece(
        path, [] {}, [&pieces](DevicePoint, DevicePoint) { ++pieces; },
        [&pieces](const EllipseArc& arc) { pieces += arc.radiusX2 == arc.radiusY2 ? 1 : 2; });
    return pieces > 1;
}

bool AsBox(const DevicePath& path, Box& box)
{
    const std::vector<Verb>& verbs = path.Verbs();
    const std::vector<DevicePoint>& points = path.Points();
    if (verbs.size() < 4 || verbs.size() > 6 || points.size() < 4 || points.size() > 5 || verbs[0] != Verb::Move)
        return false;
    for (size_t i = 1; i < verbs.size(); ++i) {
        const bool closing = verbs[i] == Verb::Close && i + 1 == verbs.size();
        if (verbs[i] != Verb::Line && !closing)
            return false;
    }
    if (points.size() == 5 && (points[4].x != points[0].x || points[4].y != points[0].y))
        return false;
    const bool acrossFirst = points[0].y == points[1].y && points[1].x == points[2].x && points[2].y == points[3].y &&
                             points[3].x == points[0].x;
    const bool downFirst = points[0].x == points[1].x && points[1].y == points[2].y && points[2].x == points[3].x &&
                           points[3].y == points[0].y;
    if (!acrossFirst && !downFirst)
        return false;
    const DevicePoint a = points[0];
    const DevicePoint b = points[2];
    box = {std::min(a.x, b.x), std::min(a.y, b.y), std::max(a.x, b.x), std::max(a.y, b.y)};
    return true;
}

const EllipseArc* AsCircle(const DevicePath& path)
{
    const std::vector<Verb>& verbs = path.Verbs();
    if (path.Arcs().size() != 1 || verbs.size() < 2 || verbs[0] != Verb::Move)
        return nullptr;
    const EllipseArc& arc = path.Arcs()[0];
    if (!arc.whole || arc.radiusX2 != arc.radiusY2 || (verbs[1] != Verb::Arc && verbs[1] != Verb::Line))
        return nullptr;
    for (const DevicePoint point : path.Points()) { // lines that go nowhere enclose nothing
        if (point.x != arc.start.x || point.y != arc.start.y)
            return nullptr;
    }
    return std::count(verbs.begin(), verbs.end(), Verb::Move) == 1 ? &arc : nullptr;
}

} // namespace gdi
