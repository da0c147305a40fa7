#include "math/CKMath.h"

#include "math/Crossing.h"

#include <algorithm>
#include <limits>

namespace {

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

/// The negated cross product of P2 - P1 and P3 - P1: positive to the right of the line.
inline double SideOf(double x1, double y1, double x2, double y2, double x3, double y3)
{
    return (y2 - y1) * (x3 - x1) - (x2 - x1) * (y3 - y1);
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

/// The crossing test: each segment has to have the ends of the other on both of its sides.
inline int IsCrossing(double x1, double y1, double x2, double y2, double x3, double y3, double x4, double y4)
{
    // All four sides are taken at once: leaving after two saves less than the branch costs.
    const double ofB = SideOf(x1, y1, x2, y2, x3, y3) * SideOf(x1, y1, x2, y2, x4, y4);
    const double ofA = SideOf(x3, y3, x4, y4, x1, y1) * SideOf(x3, y3, x4, y4, x2, y2);
    // A product of 0, which an underflow can be as well, and a NaN say nothing yet.
    if (!(std::fabs(ofA * ofB) > 0.0))
        return geo::IsCrossingByCodes(x1, y1, x2, y2, x3, y3, x4, y4);
    return std::max(ofA, ofB) < 0.0;
}

} // namespace

// Plain squares in the precision of the arguments. A scaled hypot would be safe from overflow but differ in last bits.
float CKMath::GetDistance(float x1, float y1, float x2, float y2)
{
    const float dx = x1 - x2;
    const float dy = y1 - y2;
    return std::sqrt(dx * dx + dy * dy);
}

double CKMath::GetDistance(double x1, double y1, double x2, double y2)
{
    const double dx = x1 - x2;
    const double dy = y1 - y2;
    return std::sqrt(dx * dx + dy * dy);
}

double CKMath::GetDistance(double x1, double y1, double x2, double y2, double px, double py)
{
    return std::sqrt(SquaredDistance(x1, y1, x2, y2, px, py));
}

double CKMath::GetDistance(double x1, double y1, double x2, double y2, double x3, double y3, double x4, double y4)
{
    // The crossing test calls any two points crossing, so segments of no length go past it.
    const bool isPointA = x1 == x2 && y1 == y2;
    const bool isPointB = x3 == x4 && y3 == y4;
    if (!isPointA && !isPointB && IsCrossing(x1, y1, x2, y2, x3, y3, x4, y4))
        return 0.0;

    // Segments that do not cross are nearest to each other at an end of one of them. The root of the least square is
    // the least root, to the last bit.
    double smallest = SquaredDistance(x1, y1, x2, y2, x3, y3);
    const double others[] = {SquaredDistance(x1, y1, x2, y2, x4, y4), SquaredDistance(x3, y3, x4, y4, x1, y1),
                             SquaredDistance(x3, y3, x4, y4, x2, y2)};
    for (double squared : others)
        smallest = squared < smallest ? squared : smallest;
    return std::sqrt(smallest);
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
    const double side = SideOf(x1, y1, x2, y2, x3, y3);
    if (side == 0.0)
        return DirectionOnLine(x2 - x1, y2 - y1, x3 - x1, y3 - y1);
    return int(side > 0.0) - int(side < 0.0);
}

int CKMath::IsIntersectLineToLine(double x1, double y1, double x2, double y2, double x3, double y3, double x4,
                                  double y4)
{
    return IsCrossing(x1, y1, x2, y2, x3, y3, x4, y4);
}
