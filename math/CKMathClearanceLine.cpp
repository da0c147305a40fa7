#include "math/CKMath.h"

#include "math/Contact.h"
#include "math/Nearest.h"
#include "math/Turn.h"

#include <algorithm>
#include <limits>

namespace {

using geo::NearestPair;
using geo::Segment;

KPointD CrossingOf(const Segment& a, const Segment& b)
{
    return CKMath::GetLinesIntersectedPoint(a.start.x, a.start.y, a.end.x, a.end.y, b.start.x, b.start.y, b.end.x,
                                            b.end.y);
}

/// Segments that do not cross are nearest to each other at an end of one of them.
NearestPair NearestOf(const Segment& a, const Segment& b)
{
    const KPointD crossing = CrossingOf(a, b);
    if (crossing.x != std::numeric_limits<double>::max())
        return {crossing, crossing, 0.0};

    const double d3 = a.DistanceTo(b.start);
    const double d4 = a.DistanceTo(b.end);
    const double d1 = b.DistanceTo(a.start);
    const double d2 = b.DistanceTo(a.end);
    const double least = std::min(std::min(d1, d2), std::min(d3, d4));
    if (d3 == least)
        return {a.NearestTo(b.start), b.start, least};
    if (d4 == least)
        return {a.NearestTo(b.end), b.end, least};
    if (d1 == least)
        return {a.start, b.NearestTo(a.start), least};
    return {a.end, b.NearestTo(a.end), least};
}

/// Every candidate in full, for elements of any size.
NearestPair NearestOf(const Segment& line, const geo::Arc& arc)
{
    NearestPair best = geo::NearestOnArc(line.start, arc);
    best.Take(geo::NearestOnArc(line.end, arc));
    best.Take(geo::NearestOnArc(line.NearestTo(arc.centre), arc));
    // The ends of the arc count by the points that are returned, not by the distance from the segment, which another
    // formula gives.
    best.Take(geo::PairOf(line.NearestTo(arc.start), arc.start));
    best.Take(geo::PairOf(line.NearestTo(arc.end), arc.end));
    return best;
}

/// The same candidates in the same order, without those that cannot win.
NearestPair NearestWithin(const geo::Bounds& bounds, const Segment& line, const geo::Arc& arc)
{
    // Of the last two pairs the distance is known to what a foot on a flat line may be off.
    const double foot = bounds.FootSlack();
    const double ofStart = line.DistanceTo(arc.start);
    const double ofEnd = line.DistanceTo(arc.end);
    geo::NearestSearch search(bounds.Slack());
    search.Limit(std::min(ofStart, ofEnd) + foot);
    search.OfferOnArc(line.start, arc, false);
    search.OfferOnArc(line.end, arc, false);
    if (!line.IsBeside(arc.centre)) // an end has been offered already
        search.OfferOnArc(line.NearestTo(arc.centre), arc, false);
    NearestPair best = search.Nearest();
    if (ofStart - foot < best.distance)
        best.Take(geo::PairOf(line.NearestTo(arc.start), arc.start));
    if (ofEnd - foot < best.distance)
        best.Take(geo::PairOf(line.NearestTo(arc.end), arc.end));
    return best;
}

} // namespace

double CKMath::GetDistancePointToLine(double px, double py, int mirror, float angle, double x1, double y1, double x2,
                                      double y2)
{
    // Whole turns are skipped, unlike in TranslatePoints().
    if (std::fmod(angle, 360.0f) != 0.0f) {
        const Turn<double> turn(angle);
        turn.Apply(x1, y1);
        turn.Apply(x2, y2);
    }
    if (mirror) {
        x1 = -x1;
        x2 = -x2;
    }
    return GetDistance(x1, y1, x2, y2, px, py);
}

double CKMath::GetDistancePointsOfLineToLine(KTwoPointD* points, double x1, double y1, double x2, double y2, double x3,
                                             double y3, double x4, double y4)
{
    return geo::Report(points, NearestOf(Segment{{x1, y1}, {x2, y2}}, Segment{{x3, y3}, {x4, y4}}));
}

double CKMath::GetDistancePointsOfLineToLine(KTwoPointD* points, double x1, double y1, double x2, double y2,
                                             double width1, double x3, double y3, double x4, double y4, double width2)
{
    const NearestPair pair = NearestOf(Segment{{x1, y1}, {x2, y2}}, Segment{{x3, y3}, {x4, y4}});
    // Centre lines that cross keep their crossing. A negative width is a bare centre line like one of 0.
    if ((width1 > 0.0 || width2 > 0.0) && pair.distance > 0.0)
        return geo::ReportEdges(points, pair, std::max(width1, 0.0), std::max(width2, 0.0), geo::Overlap::OnFirst);
    return geo::Report(points, pair);
}

double CKMath::GetDistancePointsOfLineToArc(KTwoPointD* points, double x1, double y1, double x2, double y2,
                                            double lineWidth, double cx, double cy, double sx, double sy, double ex,
                                            double ey, double radius, double arcWidth, int counterClockwise)
{
    const Segment line = {{x1, y1}, {x2, y2}};
    const geo::Arc arc({cx, cy}, {sx, sy}, {ex, ey}, radius, counterClockwise);
    const geo::Bounds bounds(geo::Magnitude(line.start) + geo::Magnitude(line.end) + geo::Magnitude(arc.centre) +
                             geo::Magnitude(arc.start) + geo::Magnitude(arc.end) + radius);
    const bool isBounded = bounds.Suits(radius);
    const geo::Facing contact = isBounded ? geo::GlanceAtContact(line, arc) : geo::Facing::Unclear;
    if (contact == geo::Facing::Yes && !points)
        return 0.0;
    KTwoPointD scratch;
    KTwoPointD& contacts = points ? *points : scratch;
    if (contact != geo::Facing::No && IsContactLineToCircle(&contacts, 0, x1, y1, x2, y2, cx, cy, radius) &&
        geo::KeepFacedByArc(contacts, arc))
        return 0.0;
    const NearestPair pair = isBounded ? NearestWithin(bounds, line, arc) : NearestOf(line, arc);
    return geo::ReportEdges(points, pair, lineWidth, arcWidth, geo::Overlap::OnFirst);
}
