#include "math/CKMath.h"

#include "foundation/Saturate.h"
#include "math/Turn.h"

KPointD CKMath::GetRotatedPoint(double x, double y, float angle)
{
    const Turn<double> turn(angle);
    return {turn.X(x, y), turn.Y(x, y)};
}

KPointF CKMath::GetRotatedPoint(float x, float y, float angle)
{
    const Turn<float> turn(angle);
    return {turn.X(x, y), turn.Y(x, y)};
}

// The centre is added to each turned difference last; a point that is the centre keeps its bits at any angle.
KPointD CKMath::GetRotatedPoint(double cx, double cy, double x, double y, float angle)
{
    const Turn<double> turn(angle);
    return {turn.X(x - cx, y - cy) + cx, turn.Y(x - cx, y - cy) + cy};
}

KPointF CKMath::GetRotatedPoint(float cx, float cy, float x, float y, float angle)
{
    const Turn<float> turn(angle);
    return {turn.X(x - cx, y - cy) + cx, turn.Y(x - cx, y - cy) + cy};
}

// Widening is exact, so only the turn and the final rounding lose anything. The rounding moves negative whole numbers
// up by one: -5 and a half truncates to -4, at angle 0 too.
KPoint CKMath::GetRotatedPoint(int x, int y, float angle)
{
    const KPointD turned = GetRotatedPoint(static_cast<double>(x), static_cast<double>(y), angle);
    return {GetRoundedOff(turned.x), GetRoundedOff(turned.y)};
}

KPoint CKMath::GetRotatedPoint(int cx, int cy, int x, int y, float angle)
{
    // The turned difference is rounded before the centre comes back, so that a centre never changes the rounding. The
    // difference is formed in 64 bits and exact as a double.
    const double dx = static_cast<double>(int64_t(x) - cx);
    const double dy = static_cast<double>(int64_t(y) - cy);
    const KPointD turned = GetRotatedPoint(dx, dy, angle);
    return {SaturatedSum(GetRoundedOff(turned.x), cx), SaturatedSum(GetRoundedOff(turned.y), cy)};
}

KPointD CKMath::GetAngleToPoint(double distance, float angle)
{
    // The four axes by exact comparison, where cosine and sine of a rounded angle would leave some 4e-8 of the distance
    // in the other coordinate. No normalisation comes first.
    if (angle == 0.0f)
        return {distance, 0.0};
    if (angle == 90.0f)
        return {0.0, distance};
    if (angle == 180.0f)
        return {-distance, 0.0};
    if (angle == 270.0f)
        return {0.0, -distance};
    const double radians = static_cast<double>(GetRadian(angle));
    return {distance * std::cos(radians), distance * std::sin(radians)};
}
