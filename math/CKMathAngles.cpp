#include "math/CKMath.h"

#include "math/Turn.h"

namespace {

/// Adds 360.0f as long as the angle stays below -2^27 and the sum still changes it: the end of a walk of up to 24
/// million steps, each rounded to float, in a few hundred.
///
/// Between two powers of two all floats have one spacing, so all steps there round to one length; the first may differ
/// (a spacing of 16 makes 360 a tie, broken by the last bit) and is therefore walked. Lengths are between 352 and 512.
float StepUpHugeAngle(float angle)
{
    constexpr float kExactBelow = 134217728.0f; // 2^27: from here on the spacing divides 360 and no step rounds
    while (angle < -kExactBelow) {
        const float next = angle + 360.0f;
        if (next == angle)
            return angle;
        angle = next;
        const double length = static_cast<double>(angle + 360.0f) - static_cast<double>(angle);
        const double binadeEnd = std::ldexp(1.0, std::ilogb(angle));
        // The last two steps before the spacing changes are left to be walked.
        const double steps = std::floor((-static_cast<double>(angle) - binadeEnd) / length) - 2.0;
        if (steps > 0.0)
            angle = static_cast<float>(static_cast<double>(angle) + steps * length);
    }
    return angle;
}

} // namespace

float CKMath::GetDegree(float radians)
{
    return radians * 180.0f / kPiF;
}

float CKMath::GetRadian(float degrees)
{
    return degrees * kPiF / 180.0f;
}

float CKMath::GetPositiveAngle(float angle)
{
    angle = StepUpHugeAngle(angle);
    // The remainder is exact, and so are the sums of full turns down here, except the one that an angle above -360
    // gets.
    float rest = std::fmod(angle, 360.0f);
    if (rest < 0.0f)
        rest = std::fmod(rest + 360.0f, 360.0f);
    return rest == 0.0f && angle < 0.0f ? 0.0f : rest; // full turns below zero end in +0.0
}

// Clockwise from s to e is what is left of a turn after the counter-clockwise way. The difference is rounded before
// and after the subtraction, each time to float.
float CKMath::GetSweepAngle(float startAngle, float endAngle, int counterClockwise)
{
    float sweep = endAngle - startAngle;
    if (!counterClockwise)
        sweep = 360.0f - sweep;
    return GetPositiveAngle(sweep);
}

// The arc tangent is taken in double and narrowed before it becomes degrees.
float CKMath::GetLineAngle(double x1, double y1, double x2, double y2)
{
    return GetDegree(static_cast<float>(std::atan2(y2 - y1, x2 - x1)));
}

// From the scalar product of the arms, both taken from their ends to the vertex P2.
float CKMath::GetAngleFrom3Points(float x1, float y1, float x2, float y2, float x3, float y3)
{
    const float dot = (x2 - x1) * (x2 - x3) + (y2 - y1) * (y2 - y3);
    float cosine = dot / (GetDistance(x3, y3, x2, y2) * GetDistance(x1, y1, x2, y2));
    // Rounding can leave [-1, 1]. A NaN of an arm without length passes both tests.
    if (1.0f < cosine)
        cosine = 1.0f;
    if (-1.0f > cosine)
        cosine = -1.0f;
    return GetDegree(std::acos(cosine));
}

int CKMath::GetReversedDirection(int direction)
{
    return direction == 1 || direction == -1 ? -direction : direction;
}

// For callers that need a side in any case: a missing direction counts as clockwise reversed.
int CKMath::ReverseDirection(int direction)
{
    return direction == 1 ? -1 : 1;
}
