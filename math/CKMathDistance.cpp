#include "math/CKMath.h"

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

/// GetRelativeDirection() on the line: behind P1 the projection of e = P3 - P1 is negative, beyond P2 that of P3 - P2
/// is positive.
int DirectionOnLine(double dx, double dy, double ex, double ey)
{
    const double along = dx * ex + dy * ey;
    if (along > 0.0)
        return (ex - dx) * dx + (ey - dy) * dy > 0.0 ? 1 : 0;
    return along < 0.0 ? -1 : 0;
}

/// GetRelativeDirection(), for the four calls of the crossing test. Without branches for points off the line.
inline int DirectionOf(double x1, double y1, double x2, double y2, double x3, double y3)
{
    const double dx = x2 - x1;
    const double dy = y2 - y1;
    const double ex = x3 - x1;
    const double ey = y3 - y1;
    const double side = dy * ex - dx * ey;
    if (side == 0.0)
        return DirectionOnLine(dx, dy, ex, ey);
    return int(side > 0.0) - int(side < 0.0);
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
    if (!isPointA && !isPointB && IsIntersectLineToLine(x1, y1, x2, y2, x3, y3, x4, y4))
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
    return DirectionOf(x1, y1, x2, y2, x3, y3);
}

// The codes beyond the ends of a segment (-1 behind, +1 beyond) make collinear segments come out right too: both ends
// of the other on one side of it multiply to 1, like two ends to the left.
int CKMath::IsIntersectLineToLine(double x1, double y1, double x2, double y2, double x3, double y3, double x4,
                                  double y4)
{
    // Each segment has to have the ends of the other on both of its sides or on itself. All four sides are taken at
    // once; leaving after two saves less than the branch costs.
    const int side3 = DirectionOf(x1, y1, x2, y2, x3, y3);
    const int side4 = DirectionOf(x1, y1, x2, y2, x4, y4);
    const int side1 = DirectionOf(x3, y3, x4, y4, x1, y1);
    const int side2 = DirectionOf(x3, y3, x4, y4, x2, y2);
    return int(side3 * side4 <= 0) & int(side1 * side2 <= 0);
}
