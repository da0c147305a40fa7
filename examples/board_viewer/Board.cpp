#include "Board.h"

#include "Turning.h"

#include <algorithm>
#include <cmath>

// Distances are those of the exact geometry. Nothing here rounds to pixels, so that what a test or a check finds on a
// board does not depend on how it is shown.

namespace viewer {

namespace {

/// Length of the way between two points.
double Distance(KPointD a, KPointD b)
{
    return std::hypot(a.x - b.x, a.y - b.y);
}

/// To the nearest point of a segment; a segment of no length is its start.
double DistanceToSegment(KPointD a, KPointD b, KPointD p)
{
    const double dx = b.x - a.x;
    const double dy = b.y - a.y;
    const double lengthSquared = dx * dx + dy * dy;
    if (lengthSquared <= 0)
        return Distance(a, p);
    const double along = std::clamp(((p.x - a.x) * dx + (p.y - a.y) * dy) / lengthSquared, 0.0, 1.0);
    return Distance({a.x + along * dx, a.y + along * dy}, p);
}

/// Inside the arc's sweep the nearest point lies on the ray from the centre, outside it is one of the ends.
double DistanceToArc(const Figure& arc, KPointD p)
{
    const KPointD& from = arc.counterClockwise ? arc.start : arc.end;
    const KPointD& to = arc.counterClockwise ? arc.end : arc.start;
    const double first = DirectionFrom(arc.centre, from);
    const double sweep = TurnBetween(first, DirectionFrom(arc.centre, to));
    if (TurnBetween(first, DirectionFrom(arc.centre, p)) <= sweep)
        return std::fabs(Distance(p, arc.centre) - Distance(arc.start, arc.centre));
    return std::min(Distance(p, from), Distance(p, to));
}

/// Crossings of a ray to the right, counted even-odd. An edge that runs there and back counts twice and so not at all,
/// which is how the cut-outs of a filled polygon come out empty.
bool IsInside(const std::vector<KPointD>& points, KPointD p)
{
    bool inside = false;
    for (size_t i = 0, j = points.size() - 1; i < points.size(); j = i++) {
        const KPointD& a = points[i];
        const KPointD& b = points[j];
        if ((a.y > p.y) != (b.y > p.y) && p.x < (b.x - a.x) * (p.y - a.y) / (b.y - a.y) + a.x)
            inside = !inside;
    }
    return inside;
}

/// To a chain of points, closed for a polygon. Nothing is near to a chain without points.
double DistanceToPoints(const Figure& figure, KPointD p)
{
    const std::vector<KPointD>& points = figure.points;
    if (points.empty())
        return HUGE_VAL;
    const bool closed = figure.kind == Figure::Kind::Polygon;
    if (closed && figure.filled && IsInside(points, p))
        return 0;

    double nearest = closed ? DistanceToSegment(points.back(), points.front(), p) : Distance(points.front(), p);
    for (size_t i = 1; i < points.size(); ++i)
        nearest = std::min(nearest, DistanceToSegment(points[i - 1], points[i], p));
    return nearest;
}

/// As if drawn with no width; a filled area counts as a whole.
double DistanceToCentreLine(const Figure& figure, KPointD p)
{
    switch (figure.kind) {
    case Figure::Kind::Line:
        return DistanceToSegment(figure.start, figure.end, p);
    case Figure::Kind::Arc:
        return DistanceToArc(figure, p);
    case Figure::Kind::Circle: {
        const double outside = Distance(p, figure.centre) - Distance(figure.start, figure.centre);
        return figure.filled ? std::max(outside, 0.0) : std::fabs(outside);
    }
    case Figure::Kind::Polygon:
    case Figure::Kind::Polyline:
        break;
    }
    return DistanceToPoints(figure, p);
}

/// Whether copper of the net, other than the rings in question, comes within `reach` of the point.
bool IsMet(const Board& board, int net, int layer, KPointD centre, double reach)
{
    const auto meets = [&](const Figure& figure) { return DistanceToFigure(figure, centre) <= reach; };
    for (const Track& track : board.tracks) {
        if (track.net == net && track.layer == layer && meets(track.figure))
            return true;
    }
    for (const FilledPolygon& area : board.filledPolygons) {
        if (area.net == net && area.layer == layer && meets(area.figure))
            return true;
    }
    return false;
}

/// Those of the candidate layers on which nothing of the net reaches the ring.
LayerSet UnusedRings(const Board& board, LayerSet candidates, int net, KPointD centre, double reach)
{
    LayerSet unused = 0;
    for (int layer = 0; layer < board.layers.Count(); ++layer) {
        const LayerSet bit = LayerSet(1) << layer;
        if ((candidates & bit) != 0 && !IsMet(board, net, layer, centre, reach))
            unused |= bit;
    }
    return unused;
}

} // namespace

std::vector<std::string> References(const Board& board)
{
    std::vector<std::string> references;
    for (const NamedItem& item : board.names) {
        if (item.kind == NamedItem::Kind::Footprint)
            references.push_back(item.name);
    }
    return references;
}

double DistanceToFigure(const Figure& figure, KPointD point)
{
    return std::max(DistanceToCentreLine(figure, point) - figure.width / 2, 0.0);
}

void DropUnusedRings(Board& board)
{
    for (Via& via : board.vias)
        via.layers &= ~UnusedRings(board, via.unlessUnused, via.net, via.centre, via.diameter / 2);
    // Tracks and the spokes of zones run to a pad's middle, so what does not reach its hole passes by.
    for (Pad& pad : board.pads)
        pad.layers &=
            ~UnusedRings(board, pad.unlessUnused, pad.net, pad.centre, std::max(pad.hole.width, pad.hole.height) / 2);
}

} // namespace viewer
