#include "ElementGap.h"

#include <cmath>

namespace viewer {

namespace {

/// A line or arc with a width, from the centre line of a figure.
CopperElement Stroke(KPointD from, KPointD to, double width)
{
    CopperElement stroke;
    stroke.figure.start = from;
    stroke.figure.end = to;
    stroke.figure.width = width;
    return stroke;
}

CopperElement HalfRing(const Figure& ring, KPointD from, KPointD to)
{
    CopperElement arc = Stroke(from, to, ring.width);
    arc.figure.kind = Figure::Kind::Arc;
    arc.figure.centre = ring.centre;
    return arc;
}

void AppendCircle(const Figure& circle, std::vector<CopperElement>& strokes)
{
    const double dx = circle.start.x - circle.centre.x, dy = circle.start.y - circle.centre.y;
    if (circle.filled) {
        strokes.push_back(Stroke(circle.centre, circle.centre, 2 * std::hypot(dx, dy) + circle.width));
        return;
    }
    const KPointD opposite = {circle.centre.x - dx, circle.centre.y - dy};
    strokes.push_back(HalfRing(circle, circle.start, opposite));
    strokes.push_back(HalfRing(circle, opposite, circle.start));
}

/// The strokes whose edges are the edge of the element, together with the filled insides of its polygons.
std::vector<CopperElement> StrokesOf(const BoardElement& element)
{
    std::vector<CopperElement> strokes;
    for (const Figure& figure : element.ink) {
        const std::vector<KPointD>& points = figure.points;
        if (figure.kind == Figure::Kind::Circle) {
            AppendCircle(figure, strokes);
        } else if (figure.kind == Figure::Kind::Line || figure.kind == Figure::Kind::Arc) {
            strokes.emplace_back().figure = figure;
        } else {
            for (size_t i = 1; i < points.size(); ++i)
                strokes.push_back(Stroke(points[i - 1], points[i], figure.width));
            if (figure.kind == Figure::Kind::Polygon && !points.empty())
                strokes.push_back(Stroke(points.back(), points.front(), figure.width));
        }
    }
    return strokes;
}

/// A point of some stroke that lies on the other element's ink, if there is one: where one element lies wholly within
/// a polygon of the other, no edges meet.
const KPointD* PointWithin(const std::vector<CopperElement>& strokes, const BoardElement& other)
{
    for (const CopperElement& stroke : strokes) {
        if (other.DistanceTo(stroke.figure.start) <= 0)
            return &stroke.figure.start;
    }
    return nullptr;
}

} // namespace

ElementGap MeasureElements(const BoardElement& first, const BoardElement& second)
{
    const std::vector<CopperElement> strokes1 = StrokesOf(first);
    const std::vector<CopperElement> strokes2 = StrokesOf(second);
    const KPointD* within = PointWithin(strokes1, second);
    if (!within)
        within = PointWithin(strokes2, first);
    if (within)
        return {0, *within, *within};

    ElementGap nearest = {HUGE_VAL, {}, {}};
    for (const CopperElement& a : strokes1) {
        for (const CopperElement& b : strokes2) {
            const ElementGap gap = MeasureGap(a, b);
            if (gap.clearance < nearest.clearance)
                nearest = gap;
        }
    }
    return nearest;
}

} // namespace viewer
