#include "math/CKMath.h"

#include "math/Contact.h"

#include <algorithm>

namespace {

/// The part of an infinite line in a circle, by what the crossings are found from. A line through the centre has no
/// height to tell them apart by and takes the radius.
struct Chord
{
    Chord(const geo::Segment& line, KPointD centre)
        : middle(CKMath::GetDistanceInfiniteLinePoint(line.start.x, line.start.y, line.end.x, line.end.y, centre.x,
                                                      centre.y)),
          height(geo::Distance(centre, middle))
    {
        if (height == 0.0)
            middle = centre;
    }

    KPointD middle;
    double height;
};

/// Half the chord that a line at this distance from the centre cuts from the circle. By way of the angle, whose
/// rounding is part of the result; the clamp takes the excess of a tangent.
double HalfChord(double height, double radius)
{
    double sine = height / radius;
    if (sine < -1.0)
        sine = -1.0;
    if (sine > 1.0)
        sine = 1.0;
    return std::cos(std::asin(sine)) * radius;
}

} // namespace

geo::Facing geo::GlanceAtContact(const Segment& line, const Arc& arc)
{
    if (line.DistanceTo(arc.centre) > arc.radius)
        return Facing::No;
    const bool startOutside = Distance(line.start, arc.centre) >= arc.radius;
    const bool endOutside = Distance(line.end, arc.centre) >= arc.radius;
    if (!startOutside && !endOutside)
        return Facing::No;
    const Chord chord(line, arc.centre);
    const double half = std::sqrt(std::max(arc.radius * arc.radius - chord.height * chord.height, 0.0));
    const auto look = [&](KPointD end) {
        const double part = half / Distance(chord.middle, end);
        return arc.Look(arc.FromCentre(
            {chord.middle.x + (end.x - chord.middle.x) * part, chord.middle.y + (end.y - chord.middle.y) * part}));
    };
    const Facing first = look(startOutside ? line.start : line.end);
    const Facing second = startOutside && endOutside ? look(line.end) : first;
    if (first == Facing::Yes || second == Facing::Yes)
        return Facing::Yes;
    return first == Facing::No && second == Facing::No ? Facing::No : Facing::Unclear;
}

int geo::KeepFacedByArc(KTwoPointD& points, const Arc& arc)
{
    const bool first = arc.Faces({points.x1, points.y1});
    const bool second = arc.Faces({points.x2, points.y2});
    if (first && !second) {
        points.x2 = points.x1;
        points.y2 = points.y1;
    }
    if (second && !first) {
        points.x1 = points.x2;
        points.y1 = points.y2;
    }
    return first || second;
}

int CKMath::IsContactLineToCircle(KTwoPointD* points, int insideCounts, double x1, double y1, double x2, double y2,
                                  double cx, double cy, double radius)
{
    const geo::Segment line = {{x1, y1}, {x2, y2}};
    const KPointD centre = {cx, cy};
    if (line.DistanceTo(centre) > radius)
        return 0;
    const double startDistance = geo::Distance(line.start, centre);
    const double endDistance = geo::Distance(line.end, centre);
    if (radius > startDistance && radius > endDistance) {
        if (insideCounts && points)
            *points = {x1, y1, x2, y2};
        return insideCounts ? 1 : 0;
    }
    if (!points)
        return 1;

    // Each crossing lies half a chord before the foot of the centre, coming from the end on its side.
    const Chord chord(line, centre);
    const KPointD middle = chord.middle;
    const double half = chord.height == 0.0 ? radius : HalfChord(chord.height, radius);
    const bool startOutside = startDistance >= radius;
    const bool endOutside = endDistance >= radius;
    const KPointD first = geo::Moved(startOutside ? line.start : line.end, middle, -half);
    const KPointD second = startOutside && endOutside ? geo::Moved(line.end, middle, -half) : first;
    *points = {first.x, first.y, second.x, second.y};
    return 1;
}

int CKMath::IsContactLineToArc(KTwoPointD* points, double x1, double y1, double x2, double y2, int counterClockwise,
                               double cx, double cy, double sx, double sy, double ex, double ey, double radius)
{
    KTwoPointD scratch;
    KTwoPointD& crossings = points ? *points : scratch;
    if (!IsContactLineToCircle(&crossings, 0, x1, y1, x2, y2, cx, cy, radius))
        return 0;
    return geo::KeepFacedByArc(crossings, {{cx, cy}, {sx, sy}, {ex, ey}, radius, counterClockwise});
}

// By the signed distances of P3 and P4 from line 1, which are in proportion to their ways to the crossing.
int CKMath::IsContactInfiniteLineToInfiniteLine(KPointD* point, double x1, double y1, double x2, double y2, double x3,
                                                double y3, double x4, double y4)
{
    if ((x1 == x2 && y1 == y2) || (x3 == x4 && y3 == y4))
        return 0;
    const double length = GetDistance(x1, y1, x2, y2);
    const double ux = (x2 - x1) / length;
    const double uy = (y2 - y1) / length;
    const double ax = x3 - x1;
    const double ay = y3 - y1;
    const double bx = x4 - x1;
    const double by = y4 - y1;
    const double height3 = ux * ay - uy * ax;
    const double height4 = ux * by - uy * bx;
    if (height3 == height4)
        return 0;
    const double along4 = ux * bx + uy * by;
    const double along = ((ux * ax + uy * ay) - along4) * height4 / (height4 - height3) + along4;
    if (point)
        *point = {x1 + along * ux, y1 + along * uy};
    return 1;
}
