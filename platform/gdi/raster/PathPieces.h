/// Reading a path: its segments one by one, and the shapes that have a quicker way than the general one.
#pragma once

#include "gdi/raster/DevicePath.h"

namespace gdi {

/// Calls `figure()` at every MoveTo, `line(from, to)` for every line that has to be stroked and `arc(ellipseArc)` for
/// every arc. Closing a figure is a line when it has to go anywhere. The line of length zero that leads to an arc's
/// start is left out, since the arc draws that point itself.
template <class Figure, class Line, class Arc>
void ForEachPiece(const DevicePath& path, Figure figure, Line line, Arc arc)
{
    const auto differ = [](DevicePoint a, DevicePoint b) { return a.x != b.x || a.y != b.y; };
    const std::vector<DevicePath::Verb>& verbs = path.Verbs();
    const DevicePoint* point = path.Points().data();
    const EllipseArc* nextArc = path.Arcs().data();
    DevicePoint first = {0, 0};
    DevicePoint current = {0, 0};
    for (size_t i = 0; i < verbs.size(); ++i) {
        switch (verbs[i]) {
        case DevicePath::Verb::Move:
            first = current = *point++;
            figure();
            break;
        case DevicePath::Verb::Line:
            if (differ(current, *point) || i + 1 == verbs.size() || verbs[i + 1] != DevicePath::Verb::Arc)
                line(current, *point);
            current = *point++;
            break;
        case DevicePath::Verb::Arc:
            arc(*nextArc);
            current = nextArc++->end;
            break;
        case DevicePath::Verb::Close:
            if (differ(current, first))
                line(current, first);
            current = first;
            break;
        }
    }
}

/// More than one line or arc is drawn, so that pieces may overlap. Ellipses that are no circles count as several.
bool HasSeveralPieces(const DevicePath& path);

/// The path is one rectangle with sides along the axes: its pixels, in whichever order the corners come.
bool AsBox(const DevicePath& path, Box& box);

/// The arc when the path is one full circle and nothing else, null otherwise. Points into the path.
const EllipseArc* AsCircle(const DevicePath& path);

} // namespace gdi
