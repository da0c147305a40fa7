#include "math/CKMath.h"

#include "math/LineMover.h"

#include <algorithm>

namespace {

/// Turns -0.0 into +0.0 and leaves everything else alone.
double PositiveZero(double value)
{
    return value == 0.0 ? 0.0 : value;
}

} // namespace

// Flat lines keep the height of P1 exactly: a line that is meant to be horizontal but is a rounding off gives clean
// feet, where the general formula would blur them.
KPointD CKMath::GetDistanceInfiniteLinePoint(double x1, double y1, double x2, double y2, double px, double py)
{
    // The line as a x + b y + c = 0.
    const double a = y1 - y2;
    const double b = x2 - x1;
    const double c = x1 * y2 - y1 * x2;
    constexpr double kFlatSlope = 0.0001; // rise per run, without unit
    if (std::fabs(b) * kFlatSlope >= std::fabs(a))
        return {PositiveZero(px), PositiveZero(y1)};

    const double w = b * px - a * py; // the perpendicular through P: b x - a y = w
    const double n = a * a + b * b;
    return {PositiveZero((w * b - c * a) / n), PositiveZero((-b * c - w * a) / n)};
}

// The candidate whose distance is that of the segment. Exact comparisons decide nearly always, in the order P, P1, P2,
// foot; ties go to the first.
KPointD CKMath::GetDistanceLinePoint(double x1, double y1, double x2, double y2, double px, double py)
{
    const double d = GetDistance(x1, y1, x2, y2, px, py);
    if (d == 0.0)
        return {px, py};
    const double d1 = GetDistance(x1, y1, px, py);
    if (d == d1)
        return {x1, y1};
    const double d2 = GetDistance(x2, y2, px, py);
    if (d == d2)
        return {x2, y2};
    const KPointD foot = GetDistanceInfiniteLinePoint(x1, y1, x2, y2, px, py);
    const double d3 = GetDistance(foot.x, foot.y, px, py);
    if (d == d3)
        return foot;

    // The distance comes from a projection and the candidates from other formulas, so rounding may keep them all apart.
    const double off1 = std::fabs(d - d1);
    const double off2 = std::fabs(d - d2);
    const double least = std::min({off1, off2, std::fabs(d - d3)});
    if (least == off1)
        return {x1, y1};
    if (least == off2)
        return {x2, y2};
    return foot;
}

KPointD CKMath::GetDistancedLinePoint(double x1, double y1, double x2, double y2, double distance)
{
    if (distance == 0.0)
        return {x2, y2}; // spares the angle
    return LineMover({x1, y1}, {x2, y2}).By(distance);
}

KPointD CKMath::GetDistancedLinePoint(double x1, double y1, double x2, double y2, double px, double py, double distance)
{
    if (GetDistance(x1, y1, px, py) == distance)
        return {x1, y1};
    if (GetDistance(x2, y2, px, py) == distance)
        return {x2, y2};
    return GetDistanceInfiniteLinePoint(x1, y1, x2, y2, px, py);
}

// Half a turn in single precision lands some 8.7e-8 of the distance beside the true image, along the line.
KPointD CKMath::GetSymmetricPoint(double x1, double y1, double x2, double y2, double px, double py)
{
    const KPointD foot = GetDistanceInfiniteLinePoint(x1, y1, x2, y2, px, py);
    return GetRotatedPoint(foot.x, foot.y, px, py, 180.0f);
}

// Along the line first, then a quarter turn about P2: both roundings are part of the result.
KPointD CKMath::GetRightAngleDistancedPoint(int left, double x1, double y1, double x2, double y2, double distance)
{
    const KPointD ahead = GetDistancedLinePoint(x1, y1, x2, y2, distance);
    return GetRotatedPoint(x2, y2, ahead.x, ahead.y, left ? 90.0f : -90.0f);
}

// A point on the line has no side and takes the right one.
KPointD CKMath::GetRightAngleDistancedPointToPoint(int followPoint, double x1, double y1, double x2, double y2,
                                                   double px, double py)
{
    const double distance = GetDistance(x1, y1, x2, y2, px, py);
    const int left = followPoint && GetRelativeDirection(x1, y1, x2, y2, px, py) == -1;
    return GetRightAngleDistancedPoint(left, x1, y1, x2, y2, distance);
}
