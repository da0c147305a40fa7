#include "math/CKMath.h"
#include "support/Coordinates.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <limits>
#include <random>

TEST(CKMathRotation, ExactResults)
{
    struct Case
    {
        const char* why;
        double x, y;
        float angle;
        double rx, ry;
    };
    // From the angle in single precision on, worked out with 70 decimal digits and rounded per operation.
    const Case cases[] = {
        {"angle 0 keeps the bits", 3.25, -7.5, 0, 3.25, -7.5},
        {"a right angle carries the error of pi", 1, 0, 90, -0x1.777a5cf72ceccp-25, 0x1.ffffffffffff7p-1},
        {"backward", 1, 0, -90, -0x1.777a5cf72ceccp-25, -0x1.ffffffffffff7p-1},
        {"half a turn", 1, 0, 180, -0x1.fffffffffffdep-1, -0x1.777a5cf72cec6p-24},
        {"a whole turn is turned", 1, 0, 360, 0x1.fffffffffff76p-1, 0x1.777a5cf72ceadp-23},
        {"both coordinates", 3.25, -7.5, 45, 0x1.e67d4de235ba4p+2, -0x1.80aa8369adedep+1},
        {"a crooked angle", 3.25, -7.5, 33.25f, 0x1.b520d74cd19d4p+2, -0x1.1f5f51ba2d691p+2},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(At(CKMath::GetRotatedPoint(c.x, c.y, c.angle)), XY(c.rx, c.ry)) << c.why;
        EXPECT_EQ(At(CKMath::GetRotatedPoint(c.x, c.y, c.x, c.y, c.angle)), XY(c.x, c.y)) << c.why << ", about itself";
    }
    EXPECT_EQ(At(CKMath::GetRotatedPoint(10.0, -20.0, 12.5, 3.0, 30.0f)),
              XY(0x1.548329f459de0p-1, 0x1.2b2854b749be0p+0));
    EXPECT_EQ(At(CKMath::GetRotatedPoint(3.25f, -7.5f, 33.25f)), XY(0x1.b520d8p+2, -0x1.1f5f50p+2));
}

TEST(CKMathRotation, WholePointsAreRoundedBeforeTheCentreComesBack)
{
    EXPECT_EQ(At(CKMath::GetRotatedPoint(1, 0, 90.0f)), XY(0, 1));
    // (-1, 0) by 45 degrees is (-0.707, -0.707): with a half added it truncates to 0.
    EXPECT_EQ(At(CKMath::GetRotatedPoint(100, -100, 99, -100, 45.0f)), XY(100, -100));
    EXPECT_EQ(At(CKMath::GetRotatedPoint(-5, 5, 0.0f)), XY(-4, 5)) << "-5 and a half, truncated";
    EXPECT_EQ(At(CKMath::GetRotatedPoint(INT_MIN, 5, INT_MAX, 5, 0.0f)), XY(-1, 5))
        << "the rounded difference saturates before the centre is added";
    EXPECT_EQ(At(CKMath::GetRotatedPoint(7, 7, std::numeric_limits<float>::quiet_NaN())), XY(0, 0));
}

TEST(CKMathRotation, KeepsDistancesAndTurnsBack)
{
    std::mt19937 random(99);
    std::uniform_real_distribution<double> coordinate(-200, 200);
    std::uniform_real_distribution<float> degrees(-720, 720);
    for (int i = 0; i < 500; ++i) {
        const double cx = coordinate(random), cy = coordinate(random), x = coordinate(random), y = coordinate(random);
        const float angle = degrees(random);
        const KPointD there = CKMath::GetRotatedPoint(cx, cy, x, y, angle);
        const KPointD back = CKMath::GetRotatedPoint(cx, cy, there.x, there.y, -angle);
        // The negated angle is exactly the opposite turn, so only double rounding is left: some 2^-53 of 1000.
        ASSERT_NEAR(back.x, x, 1e-12);
        ASSERT_NEAR(back.y, y, 1e-12);
        ASSERT_NEAR(std::hypot(there.x - cx, there.y - cy), std::hypot(x - cx, y - cy), 1e-12);
        // The float turn differs by the rounding of 24 bits, twice, of values up to 566.
        const KPointF single = CKMath::GetRotatedPoint(float(cx), float(cy), float(x), float(y), angle);
        ASSERT_NEAR(single.x, there.x, 3e-4);
        ASSERT_NEAR(single.y, there.y, 3e-4);
    }
}

TEST(CKMathRotation, PointsAtAnAngle)
{
    // Four angles are exact; the others are 2 times cosine and sine of the angle's radians in single precision.
    const std::pair<float, XY> cases[] = {
        {0, {2, 0}},
        {90, {0, 2}},
        {180, {-2, 0}},
        {270, {0, -2}},
        {45, {0x1.6a09e5e333598p+0, 0x1.6a09e6ecb41fep+0}},
        {360, {0x1.fffffffffff76p+0, 0x1.777a5cf72ceadp-22}},
        {-90, {-0x1.777a5cf72ceccp-24, -0x1.ffffffffffff7p+0}},
        {123.5f, {-0x1.1a977aa9a566fp+0, 0x1.aaf3160675586p+0}},
    };
    for (const auto& [angle, point] : cases)
        EXPECT_EQ(At(CKMath::GetAngleToPoint(2, angle)), point) << angle;
}
