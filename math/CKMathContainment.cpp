#include "math/CKMath.h"

#include "math/Elements.h"

int CKMath::IsAngleInArc(float startAngle, float endAngle, float angle, int counterClockwise)
{
    return geo::ArcRange(startAngle, endAngle, counterClockwise).Holds(angle);
}

// At float precision on purpose: the ends of an arc, which rounding leaves a little beside it, still belong to it.
int CKMath::IsPointInArcAngle(double px, double py, double cx, double cy, double sx, double sy, double ex, double ey,
                              int counterClockwise)
{
    const float start = GetLineAngle(cx, cy, sx, sy);
    const float end = GetLineAngle(cx, cy, ex, ey);
    return IsAngleInArc(start, end, GetLineAngle(cx, cy, px, py), counterClockwise);
}

// Raw angles, whose seam lies at 180: no rounding of an angle that is made positive comes in.
int CKMath::IsPointInteriorAngleOfArc(double cx, double cy, double sx, double sy, double ex, double ey,
                                      int counterClockwise, double px, double py)
{
    const float start = GetLineAngle(cx, cy, sx, sy);
    const float end = GetLineAngle(cx, cy, ex, ey);
    const float angle = GetLineAngle(cx, cy, px, py);
    const float low = counterClockwise ? start : end;
    const float high = counterClockwise ? end : start;
    if (high > low)
        return low <= angle && angle <= high;
    return low > high && (angle >= low || angle <= high); // across the seam at 180; equal angles hold nothing
}

int CKMath::IsPointInIcecreamHeadOfArc(double cx, double cy, double sx, double sy, double ex, double ey,
                                       int counterClockwise, double px, double py)
{
    // The distances are cheaper than the angles, and the order of the two tests changes nothing.
    return GetDistance(px, py, cx, cy) <= GetDistance(sx, sy, cx, cy) &&
           IsPointInteriorAngleOfArc(cx, cy, sx, sy, ex, ey, counterClockwise, px, py);
}

int CKMath::IsInCircle(double px, double py, double cx, double cy, double radius)
{
    return GetDistance(px, py, cx, cy) <= radius;
}

int CKMath::IsOnCircle(double px, double py, double cx, double cy, double radius, double width)
{
    return std::fabs(GetDistance(px, py, cx, cy) - radius) <= width * 0.5;
}

int CKMath::IsOnArc(double px, double py, double sx, double sy, double ex, double ey, double cx, double cy,
                    double width, int counterClockwise)
{
    if (std::fabs(GetDistance(px, py, cx, cy) - GetDistance(sx, sy, cx, cy)) > width * 0.5)
        return 0;
    // Only spares the angles: equal ends are a full circle there as well.
    if (sx == ex && sy == ey)
        return 1;
    return IsPointInArcAngle(px, py, cx, cy, sx, sy, ex, ey, counterClockwise);
}

int CKMath::IsOnArc(double px, double py, double sx, double sy, double ex, double ey, double cx, double cy,
                    double width, int counterClockwise, float angle, int mirror)
{
    TranslateArc(cx, cy, sx, sy, ex, ey, counterClockwise, angle, mirror);
    return IsOnArc(px, py, sx, sy, ex, ey, cx, cy, width, counterClockwise);
}

int CKMath::IsInArc(double px, double py, int direction, double radius, double cx, double cy, double sx, double sy,
                    double ex, double ey)
{
    if (GetDistance(px, py, cx, cy) > radius)
        return 0;
    // The chord itself (0) belongs to the arcs of both directions. On its line but beyond E the side is +1, behind S
    // -1; the disc holds such points only when the ends lie inside of it.
    return GetRelativeDirection(sx, sy, ex, ey, px, py) != direction;
}
