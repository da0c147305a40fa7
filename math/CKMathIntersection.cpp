#include "math/CKMath.h"

#include "math/Crossing.h"

#include <limits>

// The codes beyond the ends of a segment (-1 behind, +1 beyond) make collinear segments come out right too: both ends
// of the other on one side of it multiply to 1, like two ends to the left.
int geo::IsCrossingByCodes(double x1, double y1, double x2, double y2, double x3, double y3, double x4, double y4)
{
    const int side3 = CKMath::GetRelativeDirection(x1, y1, x2, y2, x3, y3);
    const int side4 = CKMath::GetRelativeDirection(x1, y1, x2, y2, x4, y4);
    const int side1 = CKMath::GetRelativeDirection(x3, y3, x4, y4, x1, y1);
    const int side2 = CKMath::GetRelativeDirection(x3, y3, x4, y4, x2, y2);
    return side3 * side4 <= 0 && side1 * side2 <= 0;
}

double geo::DistanceOfAny(double x1, double y1, double x2, double y2, double x3, double y3, double x4, double y4)
{
    // The crossing test calls any two points crossing, so segments of no length go past it.
    const bool isPointA = x1 == x2 && y1 == y2;
    const bool isPointB = x3 == x4 && y3 == y4;
    if (!isPointA && !isPointB && CKMath::IsIntersectLineToLine(x1, y1, x2, y2, x3, y3, x4, y4))
        return 0.0;

    double least = CKMath::GetDistance(x1, y1, x2, y2, x3, y3);
    const double others[] = {CKMath::GetDistance(x1, y1, x2, y2, x4, y4), CKMath::GetDistance(x3, y3, x4, y4, x1, y1),
                             CKMath::GetDistance(x3, y3, x4, y4, x2, y2)};
    for (double distance : others)
        least = distance < least ? distance : least;
    return least;
}

namespace {

/// "No single crossing" as callers compare with it, exactly.
constexpr KPointD kNoPoint = {std::numeric_limits<double>::max(), std::numeric_limits<double>::max()};

bool IsBetween(double value, double end1, double end2)
{
    return (end1 <= value && value <= end2) || (end2 <= value && value <= end1);
}

} // namespace

int CKMath::IsPointOnLine(double x1, double y1, double x2, double y2, double px, double py)
{
    // Twice the area of the triangle P1 P2 P, in square millimetres. It is not divided by the length, so the strip
    // around the segment is the narrower the longer the segment is.
    constexpr double kTolerance = 0.5;
    const double area = (x2 - x1) * (py - y1) - (px - x1) * (y2 - y1);
    if (area > kTolerance || area < -kTolerance)
        return 0;
    // One coordinate decides between the ends: x, except where all x are equal.
    return x1 == x2 ? IsBetween(py, y1, y2) : IsBetween(px, x1, x2);
}

// By slopes, so a vertical line, which has none, comes first in either place.
KPointD CKMath::GetInfiniteLinesIntersectedPoint(double x1, double y1, double x2, double y2, double x3, double y3,
                                                 double x4, double y4)
{
    if (x1 == x2) {
        if (x3 == x4)
            return kNoPoint;
        return {x1, (y4 - y3) / (x4 - x3) * (x1 - x3) + y3};
    }
    const double slope1 = (y2 - y1) / (x2 - x1);
    if (x3 == x4)
        return {x3, (x3 - x1) * slope1 + y1};
    const double slope2 = (y4 - y3) / (x4 - x3);
    // Exactly equal only: nearly parallel lines cross far away.
    if (slope1 == slope2)
        return kNoPoint;
    const double x = (y3 - slope2 * x3 + slope1 * x1 - y1) / (slope1 - slope2);
    return {x, (x - x1) * slope1 + y1};
}

KPointD CKMath::GetLinesIntersectedPoint(double x1, double y1, double x2, double y2, double x3, double y3, double x4,
                                         double y4)
{
    if (!IsIntersectLineToLine(x1, y1, x2, y2, x3, y3, x4, y4))
        return kNoPoint;
    return GetInfiniteLinesIntersectedPoint(x1, y1, x2, y2, x3, y3, x4, y4);
}
