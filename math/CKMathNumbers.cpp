#include "math/CKMath.h"

#include "foundation/Saturate.h"

// Clears the sign bit, so -0.0 becomes +0.0; a comparison with 0 would leave it.
double CKMath::Abs(double value)
{
    return std::fabs(value);
}

// The cast truncates toward zero, so -1.4 gives 0 and -2.7 gives -2. The painter's pixels and the whole-number
// rotations round the same way, which is why this is not std::lround.
int CKMath::GetRoundedOff(double value)
{
    return SaturatedToInt(value + 0.5);
}

double CKMath::GetRoundedOff(double value, int digits)
{
    // Scaled back by a product, not by a division: the two differ in the last bit.
    const double power = std::pow(10.0, static_cast<double>(digits));
    return std::floor(power * value + 0.5) * std::pow(10.0, -static_cast<double>(digits));
}

double CKMath::GetCrossProduct(double x1, double y1, double x2, double y2)
{
    return x1 * y2 - y1 * x2;
}

// The closed form of the sum; the product needs 62 bits.
int CKMath::GetFactorial(int n)
{
    return n < 1 ? 0 : SaturatedToInt(int64_t(n) * (int64_t(n) + 1) / 2);
}

// Not std::min: its result for a NaN depends on the order of the arguments, this one never takes it over.
void CKMath::SetMinMax(double x, double y, double& minX, double& minY, double& maxX, double& maxY)
{
    if (minX > x)
        minX = x;
    if (x > maxX)
        maxX = x;
    if (minY > y)
        minY = y;
    if (y > maxY)
        maxY = y;
}
