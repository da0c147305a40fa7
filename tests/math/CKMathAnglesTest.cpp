#include "math/CKMath.h"
#include "support/Coordinates.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <limits>
#include <random>

namespace {

const float kInf = std::numeric_limits<float>::infinity();
const double kHuge = 1e300;

/// The definition of the positive angle, step by step.
float WalkedPositiveAngle(float angle)
{
    while (angle < 0.0f)
        angle += 360.0f;
    return std::fmod(angle, 360.0f);
}

} // namespace

TEST(CKMathAngles, PositiveAngles)
{
    struct Case
    {
        const char* why;
        float angle, positive;
    };
    const Case cases[] = {
        {"quarter turn back", -90, 270},
        {"a whole turn is none", 360, 0},
        {"two turns and a little", 725, 5},
        {"whole turns back", -720, 0},
        {"too small to be seen below a full turn", -1e-10f, 0},
        // 2^33 = 23860929 turns and 152 degrees; the sum no longer changes the float, the remainder is exact.
        {"where no walk arrives", -0x1p34f, 360.0f - 304.0f},
        {"large and positive", 0x1p33f, 152},
    };
    for (const Case& c : cases)
        EXPECT_EQ(CKMath::GetPositiveAngle(c.angle), c.positive) << c.why;
    EXPECT_FALSE(std::signbit(CKMath::GetPositiveAngle(-360.0f)));
    for (float none : {kInf, -kInf, std::nanf("")})
        EXPECT_TRUE(std::isnan(CKMath::GetPositiveAngle(none)));
}

TEST(CKMathAngles, PositiveAngleHasTheBitsOfTheWalk)
{
    // 2^27 is where the walk begins to round; a spacing of 16 (up to 2^28) makes every step a tie.
    const float starts[] = {-0x1p27f,         -0x1.000002p27f, -0x1.000006p27f, -0x1.fffffep27f,
                            -0x1.2345678p28f, -0x1.fffffep29f, -0x1.8p30f,      -0x1.abcdep31f};
    for (float start : starts)
        EXPECT_EQ(CKMath::GetPositiveAngle(start), WalkedPositiveAngle(start)) << start;
    std::mt19937 random(11);
    std::uniform_real_distribution<float> exponent(-20.0f, 27.5f);
    for (int i = 0; i < 300; ++i) {
        const float start = -std::exp2(exponent(random));
        ASSERT_EQ(CKMath::GetPositiveAngle(start), WalkedPositiveAngle(start)) << start;
    }
}

TEST(CKMathAngles, SweepsFromStartToEnd)
{
    EXPECT_EQ(CKMath::GetSweepAngle(350, 10, 1), 20);
    EXPECT_EQ(CKMath::GetSweepAngle(350, 10, 0), 340);
    for (int flag : {0, 1})
        EXPECT_EQ(CKMath::GetSweepAngle(10, 10, flag), 0);
    EXPECT_EQ(CKMath::GetSweepAngle(10, 9, -5), 359) << "every non-zero flag is counter-clockwise";
}

TEST(CKMathAngles, ConversionsAreSinglePrecision)
{
    // Worked out with every operation rounded to 24 bits.
    EXPECT_EQ(CKMath::GetDegree(1.0f), 0x1.ca5dcp+5f);
    EXPECT_EQ(CKMath::GetDegree(0.1f), 0x1.6eb168p+2f);
    EXPECT_EQ(CKMath::GetRadian(90.0f), 0x1.921fb6p+0f);
    EXPECT_EQ(CKMath::GetRadian(57.3f), 0x1.0004d4p+0f);
}

TEST(CKMathAngles, AnglesOfLines)
{
    EXPECT_EQ(CKMath::GetLineAngle(0, 0, -1, 0), 180);
    EXPECT_EQ(CKMath::GetLineAngle(0, 0, 0, -1), -90);
    EXPECT_EQ(CKMath::GetLineAngle(3, 3, 3, 3), 0);
    EXPECT_EQ(CKMath::GetLineAngle(0, 0, kHuge, kHuge), 45);

    EXPECT_EQ(CKMath::GetAngleFrom3Points(1, 0, 0, 0, 0, 1), 90);
    EXPECT_EQ(CKMath::GetAngleFrom3Points(-1, 0, 0, 0, 3, 0), 180);
    EXPECT_EQ(CKMath::GetAngleFrom3Points(1, 0, 0, 0, 3, 0), 0);
    // The float square of the root of 2 lies below 2, so the cosine exceeds 1, or falls below -1, and is cut.
    EXPECT_EQ(CKMath::GetAngleFrom3Points(1, 1, 0, 0, 1, 1), 0);
    EXPECT_EQ(CKMath::GetAngleFrom3Points(1, 1, 0, 0, -1, -1), 180);
    EXPECT_TRUE(std::isnan(CKMath::GetAngleFrom3Points(2, 2, 2, 2, 5, 5)));
}

TEST(CKMathAngles, DirectionCodes)
{
    for (int direction : {1, -1, 0, 2, INT_MIN}) {
        const bool isCode = direction == 1 || direction == -1;
        EXPECT_EQ(CKMath::GetReversedDirection(direction), isCode ? -direction : direction);
        EXPECT_EQ(CKMath::ReverseDirection(direction), direction == 1 ? -1 : 1);
    }
}

TEST(CKMathNumbers, RoundsByAddingAHalfAndTruncating)
{
    const std::pair<double, int> cases[] = {
        {2.5, 3},
        {-2.5, -2},
        {-2.7, -2},
        {-0.5, 0},
        {1e10, INT_MAX},
        {std::nan(""), 0},
        {kInf, INT_MAX},
        {2147483646.5, INT_MAX},
        {-2147483649.4, INT_MIN},
    };
    for (const auto& [value, rounded] : cases)
        EXPECT_EQ(CKMath::GetRoundedOff(value), rounded) << value;

    EXPECT_EQ(CKMath::GetRoundedOff(0.3, 1), 0.30000000000000004);
    EXPECT_EQ(CKMath::GetRoundedOff(-2.5, 0), -2);
    EXPECT_EQ(CKMath::GetRoundedOff(1250, -2), 1300);
    EXPECT_EQ(CKMath::GetRoundedOff(2.344, 2), 234 * 0.01);
}

TEST(CKMathNumbers, SumsSignsAndRanges)
{
    const int sums[][2] = {
        {1, 1}, {4, 10}, {0, 0}, {-3, 0}, {65535, 2147450880}, {65536, INT_MAX}, {INT_MAX, INT_MAX}, {INT_MIN, 0},
    };
    for (const auto& sum : sums)
        EXPECT_EQ(CKMath::GetFactorial(sum[0]), sum[1]) << sum[0];
    EXPECT_FALSE(std::signbit(CKMath::Abs(-0.0)));
    EXPECT_TRUE(std::isnan(CKMath::Abs(-std::nan(""))));
    EXPECT_EQ(CKMath::GetCrossProduct(2, 3, 5, 7), -1);

    double minX = kHuge, minY = kHuge, maxX = -kHuge, maxY = -kHuge;
    CKMath::SetMinMax(3, -4, minX, minY, maxX, maxY);
    CKMath::SetMinMax(-1, std::nan(""), minX, minY, maxX, maxY);
    EXPECT_EQ(XY(minX, minY), XY(-1, -4));
    EXPECT_EQ(XY(maxX, maxY), XY(3, -4));
}
