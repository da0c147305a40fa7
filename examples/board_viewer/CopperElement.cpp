#include "CopperElement.h"

#include "math/CKMath.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace viewer {

namespace {

constexpr double kResolution = 1e-6; ///< millimetres: the nanometre in which files tell positions

/// Radius of an arc, as its start tells it.
double RadiusOf(const Figure& arc)
{
    return CKMath::GetDistance(arc.start.x, arc.start.y, arc.centre.x, arc.centre.y);
}

Figure DiscAt(KPointD centre, double diameter)
{
    Figure disc;
    disc.start = disc.end = centre;
    disc.width = diameter;
    return disc;
}

/// Gathers elements; what is on no copper layer is none.
class Collector
{
public:
    explicit Collector(const LayerTable& layers) : copper(layers.Copper()) {}

    void Add(const Figure& figure, LayerSet layers, int net)
    {
        if ((layers & copper) != 0)
            elements.push_back({figure, layers & copper, net});
    }
    /// A ring where it is kept, and the hole on the layers that have lost theirs.
    void AddDrilled(const Figure& ring, const Hole& hole, LayerSet kept, LayerSet unlessUnused, int net)
    {
        Add(ring, kept, net);
        if (hole.width > 0 && hole.height > 0)
            Add(HoleFigure(hole), unlessUnused & ~kept, net);
    }

    std::vector<CopperElement> elements;

private:
    LayerSet copper;
};

/// The pad's copper as a thick line; null for a shape that is none.
const Figure* RoundCopper(const Pad& pad, Figure& disc)
{
    if (pad.copper.empty() || (pad.shape != "circle" && pad.shape != "oval"))
        return nullptr;
    const Figure& copper = pad.copper.front();
    if (copper.kind != Figure::Kind::Circle)
        return &copper;
    disc = DiscAt(copper.centre, 2 * RadiusOf(copper));
    return &disc;
}

MeasuredGap MeasureSegments(const Figure& a, const Figure& b)
{
    KTwoPointD points{};
    const double clearance = CKMath::GetDistancePointsOfLineToLine(
        &points, a.start.x, a.start.y, a.end.x, a.end.y, a.width, b.start.x, b.start.y, b.end.x, b.end.y, b.width);
    return {clearance, {points.x1, points.y1}, {points.x2, points.y2}};
}

/// Whether the point where two lines are said to touch or cross is within both of their widths.
bool IsOnBoth(const Figure& a, const Figure& b, KPointD p)
{
    const double apart = CKMath::GetDistance(a.start.x, a.start.y, a.end.x, a.end.y, p.x, p.y) +
                         CKMath::GetDistance(b.start.x, b.start.y, b.end.x, b.end.y, p.x, p.y);
    return apart <= (a.width + b.width) / 2 + kResolution;
}

/// The library tells by exact signs on which sides of a line the ends of another lie. Positions of a file are whole
/// nanometres, which a double in millimetres is not: where two tracks follow one slanting line with a gap between them,
/// rounding can put each one's ends on both sides of the other and make them cross. Such a crossing is not on both, and
/// the gap is between an end and a line, which is measured without signs.
MeasuredGap MeasureLines(const Figure& a, const Figure& b)
{
    const MeasuredGap gap = MeasureSegments(a, b);
    if (gap.clearance > 0 || IsOnBoth(a, b, gap.first))
        return gap;

    MeasuredGap nearest = MeasureSegments(DiscAt(a.start, a.width), b);
    for (const MeasuredGap& other :
         {MeasureSegments(DiscAt(a.end, a.width), b), MeasureSegments(a, DiscAt(b.start, b.width)),
          MeasureSegments(a, DiscAt(b.end, b.width))})
    {
        if (other.clearance < nearest.clearance)
            nearest = other;
    }
    return nearest;
}

MeasuredGap MeasureLineToArc(const Figure& line, const Figure& arc)
{
    KTwoPointD points{};
    const double clearance = CKMath::GetDistancePointsOfLineToArc(
        &points, line.start.x, line.start.y, line.end.x, line.end.y, line.width, arc.centre.x, arc.centre.y,
        arc.start.x, arc.start.y, arc.end.x, arc.end.y, RadiusOf(arc), arc.width, arc.counterClockwise);
    return {clearance, {points.x1, points.y1}, {points.x2, points.y2}};
}

MeasuredGap MeasureArcs(const Figure& a, const Figure& b)
{
    KTwoPointD points{};
    const double clearance =
        CKMath::GetDistancePointsOfArcToArc(&points, a.centre.x, a.centre.y, a.start.x, a.start.y, a.end.x, a.end.y,
                                            RadiusOf(a), a.width, a.counterClockwise, b.centre.x, b.centre.y, b.start.x,
                                            b.start.y, b.end.x, b.end.y, RadiusOf(b), b.width, b.counterClockwise);
    return {clearance, {points.x1, points.y1}, {points.x2, points.y2}};
}

} // namespace

/// As long as its sides differ.
Figure HoleFigure(const Hole& hole)
{
    const double across = std::min(hole.width, hole.height);
    const double half = (std::max(hole.width, hole.height) - across) / 2;
    const double angle = (hole.angle + (hole.width >= hole.height ? 0 : 90)) * M_PI / 180;
    Figure slot = DiscAt(hole.centre, across);
    if (half > 0) {
        slot.start = {hole.centre.x - half * std::cos(angle), hole.centre.y - half * std::sin(angle)};
        slot.end = {hole.centre.x + half * std::cos(angle), hole.centre.y + half * std::sin(angle)};
    }
    return slot;
}

std::vector<CopperElement> CopperElements(const Board& board)
{
    Collector collector(board.layers);
    for (const Track& track : board.tracks)
        collector.Add(track.figure, LayerSet(1) << track.layer, track.net);
    for (const Via& via : board.vias)
        collector.AddDrilled(DiscAt(via.centre, via.diameter), via.hole, via.layers, via.unlessUnused, via.net);
    for (const Pad& pad : board.pads) {
        Figure disc;
        if (const Figure* copper = RoundCopper(pad, disc))
            collector.AddDrilled(*copper, pad.hole, pad.layers, pad.unlessUnused, pad.net);
    }
    return std::move(collector.elements);
}

MeasuredGap MeasureGap(const CopperElement& first, const CopperElement& second)
{
    const bool isArc1 = first.figure.kind == Figure::Kind::Arc;
    const bool isArc2 = second.figure.kind == Figure::Kind::Arc;
    if (isArc1 && isArc2)
        return MeasureArcs(first.figure, second.figure);
    if (isArc2)
        return MeasureLineToArc(first.figure, second.figure);
    if (!isArc1)
        return MeasureLines(first.figure, second.figure);
    // The library takes the line first.
    MeasuredGap gap = MeasureLineToArc(second.figure, first.figure);
    std::swap(gap.first, gap.second);
    return gap;
}

} // namespace viewer
