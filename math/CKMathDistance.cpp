#include "math/CKMath.h"

#include "math/Crossing.h"
#include "math/Elements.h"

#include <algorithm>
#include <limits>

namespace {

using geo::Cross;
using geo::Difference;
using geo::Dot;

/// The squared distance of P from the segment P1-P2.
inline double SquaredDistance(double x1, double y1, double x2, double y2, double px, double py)
{
    const double dx = x2 - x1;
    const double dy = y2 - y1;
    // The position of P's projection along the segment. It is a NaN for a segment of no length, which is P1 anyway.
    const double t = ((px - x1) * dx + (py - y1) * dy) / (dx * dx + dy * dy);
    // The ends t = 0 and t = 1 are interpolated like everything between them. Looked up rather than branched to: which
    // part of a segment is nearest is anybody's guess, and a processor's wrong guess costs more than all of this.
    const KPointD candidates[] = {{x1 + t * dx, y1 + t * dy}, {x2, y2}, {x1, y1}};
    const int isStart = int(t < 0.0) | (int(x1 == x2) & int(y1 == y2)); // never beyond the end at the same time
    const KPointD nearest = candidates[2 * isStart + int(t > 1.0)];
    const double ex = px - nearest.x;
    const double ey = py - nearest.y;
    return ex * ex + ey * ey;
}

/// GetRelativeDirection() on the line: behind P1 the projection of e = P3 - P1 is negative, beyond P2 that of P3 - P2
/// is positive.
int DirectionOnLine(double dx, double dy, double ex, double ey)
{
    const double along = dx * ex + dy * ey;
    if (along > 0.0)
        return (ex - dx) * dx + (ey - dy) * dy > 0.0 ? 1 : 0;
    return along < 0.0 ? -1 : 0;
}

/// The segments P1-P2 and P3-P4 as differences of their points, each taken once.
struct SegmentPair
{
    SegmentPair(KPointD p1, KPointD p2, KPointD p3, KPointD p4)
        : a(Difference(p2, p1)), b(Difference(p4, p3)), from1To3(Difference(p3, p1)), from1To4(Difference(p4, p1)),
          from2To3(Difference(p3, p2)), sidesOfA(Cross(from1To3, a) * Cross(from1To4, a)),
          sidesOfB(Cross(from1To3, b) * Cross(from2To3, b))
    {}
    /// Whether a product of sides is 0, which an underflow can be as well, or a NaN: then it says nothing yet.
    bool IsUnclear() const { return !(std::fabs(sidesOfA * sidesOfB) > 0.0); }
    /// Unless that is unclear: each segment has the ends of the other on both of its sides.
    bool IsCrossing() const { return std::max(sidesOfA, sidesOfB) < 0.0; }

    const KPointD a, b;
    const KPointD from1To3, from1To4, from2To3;
    // The signs of the differences cancel out. All four sides are taken at once: leaving after two saves less than the
    // branch costs.
    const double sidesOfA; ///< negative when the ends of B lie on both sides of A
    const double sidesOfB;
};

/// SquaredDistance() of P from a segment of some length: `along` is the dot product of `whole`, from its start to its
/// end, and the difference of P and its start; `length` is the square of `whole`.
inline double SquaredDistance(KPointD start, KPointD whole, double length, double along, KPointD p, double fromStart,
                              double fromEnd)
{
    const double t = along / length;
    const KPointD foot = {start.x + t * whole.x, start.y + t * whole.y};
    const double squares[] = {geo::SquaredDistance(p, foot), fromEnd, fromStart};
    return squares[2 * size_t(t < 0.0) + size_t(t > 1.0)];
}

} // namespace

// In the precision of the arguments, like geo::Distance().
float CKMath::GetDistance(float x1, float y1, float x2, float y2)
{
    const float dx = x1 - x2;
    const float dy = y1 - y2;
    return std::sqrt(dx * dx + dy * dy);
}

double CKMath::GetDistance(double x1, double y1, double x2, double y2)
{
    return geo::Distance({x1, y1}, {x2, y2});
}

double CKMath::GetDistance(double x1, double y1, double x2, double y2, double px, double py)
{
    return std::sqrt(SquaredDistance(x1, y1, x2, y2, px, py));
}

double CKMath::GetDistance(double x1, double y1, double x2, double y2, double x3, double y3, double x4, double y4)
{
    const KPointD p1 = {x1, y1}, p2 = {x2, y2}, p3 = {x3, y3}, p4 = {x4, y4};
    const SegmentPair pair(p1, p2, p3, p4);
    if (pair.IsUnclear()) // segments of no length are
        return geo::DistanceOfAny(x1, y1, x2, y2, x3, y3, x4, y4);
    if (pair.IsCrossing())
        return 0.0;

    // Segments that do not cross are nearest to each other at an end of one of them.
    const double lengthA = Dot(pair.a, pair.a);
    const double lengthB = Dot(pair.b, pair.b);
    const double from1To3 = Dot(pair.from1To3, pair.from1To3);
    const double from1To4 = Dot(pair.from1To4, pair.from1To4);
    const double from2To3 = Dot(pair.from2To3, pair.from2To3);
    const double from2To4 = geo::SquaredDistance(p2, p4);
    const double of3 = SquaredDistance(p1, pair.a, lengthA, Dot(pair.from1To3, pair.a), p3, from1To3, from2To3);
    const double of4 = SquaredDistance(p1, pair.a, lengthA, Dot(pair.from1To4, pair.a), p4, from1To4, from2To4);
    const double of1 = SquaredDistance(p3, pair.b, lengthB, -Dot(pair.from1To3, pair.b), p1, from1To3, from1To4);
    const double of2 = SquaredDistance(p3, pair.b, lengthB, -Dot(pair.from2To3, pair.b), p2, from2To3, from2To4);
    // The root of the least square is the least root, to the last bit.
    return std::sqrt(std::min(std::min(std::min(of3, of4), of1), of2));
}

// Slope and intercept in single precision. The largest float says "no single value"; callers compare with it exactly.
float CKMath::GetLineXOrLineY(float x1, float y1, float x2, float y2, int wantY, float value)
{
    constexpr float kNone = std::numeric_limits<float>::max();
    const float dx = x1 - x2;
    const float dy = y1 - y2;
    // Vertical comes first, so that a line of no length has an x and no y.
    if (dx == 0.0f)
        return wantY ? kNone : x1;
    if (dy == 0.0f)
        return wantY ? y1 : kNone;
    const float slope = dy / dx;
    const float intercept = y1 - slope * x1;
    return wantY ? slope * value + intercept : (value - intercept) / slope;
}

// The sign of the cross product of P2 - P1 and P3 - P1, negated so that the right side is positive. It is exact for
// coordinates of up to 25 bits; beyond, rounding may call points near the line collinear or swap their side.
int CKMath::GetRelativeDirection(double x1, double y1, double x2, double y2, double x3, double y3)
{
    const KPointD whole = {x2 - x1, y2 - y1};
    const KPointD toP3 = {x3 - x1, y3 - y1};
    const double side = Cross(toP3, whole);
    if (side == 0.0)
        return DirectionOnLine(whole.x, whole.y, toP3.x, toP3.y);
    return int(side > 0.0) - int(side < 0.0);
}

int CKMath::IsIntersectLineToLine(double x1, double y1, double x2, double y2, double x3, double y3, double x4,
                                  double y4)
{
    const SegmentPair pair({x1, y1}, {x2, y2}, {x3, y3}, {x4, y4});
    if (pair.IsUnclear())
        return geo::IsCrossingByCodes(x1, y1, x2, y2, x3, y3, x4, y4);
    return pair.IsCrossing();
}
