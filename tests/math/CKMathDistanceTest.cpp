#include "math/CKMath.h"

#include <gtest/gtest.h>

#include <array>
#include <cfloat>
#include <cmath>
#include <random>

namespace {

/// Two segments on a small whole grid, so that touching, collinear and zero-length ones are common and everything that
/// the orientation test computes is exact.
std::array<double, 8> GridSegments(std::mt19937& random)
{
    std::array<double, 8> c;
    for (double& value : c)
        value = int(random() % 9) - 4;
    return c;
}

double DistanceOf(const std::array<double, 8>& c)
{
    return CKMath::GetDistance(c[0], c[1], c[2], c[3], c[4], c[5], c[6], c[7]);
}

/// The distance of P from P1-P2 by trying points of the segment; at most half a step of |P2 - P1| / n too large.
double TriedDistance(const std::array<double, 8>& s, double px, double py, int n)
{
    double best = DBL_MAX;
    for (int i = 0; i <= n; ++i) {
        const double t = double(i) / n;
        best = std::fmin(best, std::hypot(s[0] + t * (s[2] - s[0]) - px, s[1] + t * (s[3] - s[1]) - py));
    }
    return best;
}

} // namespace

TEST(CKMathDistance, OfPointsRoundsInItsOwnPrecision)
{
    EXPECT_EQ(CKMath::GetDistance(0.0, 0.0, 3.0, 4.0), 5.0);
    // Rounded only at the end the float result would be 0x1.887956p-2.
    EXPECT_EQ(CKMath::GetDistance(0.0f, 0.0f, 0.1f, 0x1.7ae148p-2f), 0x1.887958p-2f);
}

TEST(CKMathDistance, OfAPointFromASegment)
{
    struct Case
    {
        const char* why;
        double px, py, distance;
    };
    const Case cases[] = {
        {"beside it", 2, 3, 3},
        {"behind the first end", -3, 4, 5},
        {"beyond the second end", 7, 4, 5},
        {"at t = 0", 0, 1, 1},
        {"at t = 1", 4, -1, 1},
        {"on it", 1, 0, 0},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(CKMath::GetDistance(0, 0, 4, 0, c.px, c.py), c.distance) << c.why;
        EXPECT_EQ(CKMath::GetDistance(4, 0, 0, 0, c.px, c.py), c.distance) << c.why << ", reversed";
    }
    EXPECT_EQ(CKMath::GetDistance(1, 1, 1, 1, 4, 5), 5) << "a segment of no length";

    std::mt19937 random(7);
    for (int round = 0; round < 300; ++round) {
        const std::array<double, 8> c = GridSegments(random);
        const double tried = TriedDistance(c, c[4], c[5], 400);
        const double distance = CKMath::GetDistance(c[0], c[1], c[2], c[3], c[4], c[5]);
        ASSERT_LE(distance, tried + 1e-14);
        ASSERT_GE(distance, tried - std::hypot(c[2] - c[0], c[3] - c[1]) / 800 - 1e-14);
    }
}

TEST(CKMathDistance, OfSegmentsFollowsItsLaws)
{
    EXPECT_EQ(CKMath::GetDistance(0, 0, 4, 0, 1, 3, 9, 3), 3) << "parallel";
    EXPECT_EQ(CKMath::GetDistance(0, 0, 0, 0, 3, 4, 3, 4), 5) << "two points";

    std::mt19937 random(8);
    for (int round = 0; round < 2000; ++round) {
        const std::array<double, 8> c = GridSegments(random);
        const double distance = DistanceOf(c);
        ASSERT_EQ(DistanceOf({c[4], c[5], c[6], c[7], c[0], c[1], c[2], c[3]}), distance);
        // Reversed, the projection runs from the other end.
        ASSERT_NEAR(DistanceOf({c[2], c[3], c[0], c[1], c[4], c[5], c[6], c[7]}), distance, 1e-14);
        if ((c[0] != c[2] || c[1] != c[3]) && (c[4] != c[6] || c[5] != c[7])) {
            const int meets = CKMath::IsIntersectLineToLine(c[0], c[1], c[2], c[3], c[4], c[5], c[6], c[7]);
            ASSERT_EQ(meets, distance == 0.0) << "segments of whole points that do not meet are at least 0.01 apart";
            ASSERT_EQ(CKMath::IsIntersectLineToLine(c[4], c[5], c[6], c[7], c[2], c[3], c[0], c[1]), meets);
        }
        // No segment is nearer to another than its nearest tried point, nor farther than any of them.
        double tried = DBL_MAX;
        for (int i = 0; i <= 40; ++i) {
            const double t = i / 40.0;
            tried = std::fmin(tried, TriedDistance(c, c[4] + t * (c[6] - c[4]), c[5] + t * (c[7] - c[5]), 40));
        }
        ASSERT_LE(distance, tried + 1e-14);
        ASSERT_GE(distance, tried - 12.0 / 40); // two half steps of at most |(8, 8)| / 40 each
    }
}

TEST(CKMathDistance, SidesOfADirectedSegment)
{
    struct Case
    {
        const char* why;
        double x, y;
        int side;
    };
    const Case cases[] = {
        {"right", 1, -1, 1},  {"left", 1, 1e-300, -1}, {"behind", -1e-300, 0, -1}, {"first end", 0, 0, 0},
        {"between", 1, 0, 0}, {"second end", 2, 0, 0}, {"beyond", 2.5, 0, 1},
    };
    for (const Case& c : cases)
        EXPECT_EQ(CKMath::GetRelativeDirection(0, 0, 2, 0, c.x, c.y), c.side) << c.why;
    EXPECT_EQ(CKMath::GetRelativeDirection(1, 1, 1, 1, 5, -3), 0) << "no direction, no side";
    // Points as segments; all others are compared with the distance above.
    EXPECT_EQ(CKMath::IsIntersectLineToLine(0, 0, 0, 0, 5, 5, 5, 5), 1) << "two points count as meeting anywhere";
    EXPECT_EQ(CKMath::IsIntersectLineToLine(0, 0, 2, 0, 1, 0, 1, 0), 1) << "a point on a segment";
    EXPECT_EQ(CKMath::IsIntersectLineToLine(0, 0, 2, 0, 3, 0, 3, 0), 0) << "a point beyond it";
}

TEST(CKMathDistance, CoordinatesOnALine)
{
    EXPECT_EQ(CKMath::GetLineXOrLineY(0, 1, 2, 5, 1, 3), 7);
    EXPECT_EQ(CKMath::GetLineXOrLineY(0, 1, 2, 5, 0, 7), 3);
    EXPECT_EQ(CKMath::GetLineXOrLineY(4, 0, 4, 9, 0, 5), 4) << "a vertical line has one x";
    EXPECT_EQ(CKMath::GetLineXOrLineY(4, 0, 4, 9, 1, 4), FLT_MAX) << "and every y";
    EXPECT_EQ(CKMath::GetLineXOrLineY(0, 3, 9, 3, 1, 5), 3);
    EXPECT_EQ(CKMath::GetLineXOrLineY(0, 3, 9, 3, 0, 3), FLT_MAX);
    EXPECT_EQ(CKMath::GetLineXOrLineY(2, 2, 2, 2, 0, 0), 2) << "one point counts as vertical";
}
