#include "foundation/CKRectD.h"
#include "foundation/CKRectF.h"
#include "math/CKMath.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>
#include <random>

TEST(CKMathIntersection, PointsOnALineWithinAnArea)
{
    struct Case
    {
        const char* why;
        double x2, y2, px, py;
        int on;
    };
    // Segments from (0, 0).
    const Case cases[] = {
        {"0.4 of twice the area", 10, 0, 5, 0.04, 1},
        {"0.6 of it", 10, 0, 5, 0.06, 0},
        {"the same, below", 10, 0, 5, -0.06, 0},
        {"0.5 is still in", 10, 0, 5, -0.05, 1},
        {"long: a narrow strip", 100, 0, 50, 0.004, 1},
        {"beside the strip", 100, 0, 50, 0.006, 0},
        {"beyond the end", 10, 0, 10.1, 0, 0},
        {"behind the start", 10, 0, -0.1, 0, 0},
        {"vertical", 0, 10, 0.04, 10, 1},
        {"vertical, beyond the end", 0, 10, 0, 10.1, 0},
        {"downward", 0, -10, 0, -4, 1},
        {"to the left", -10, 0, -10, 0, 1},
        {"short and steep: x decides", 0.1, 1, 0, 4, 1},
        {"no length, the point", 0, 0, 7, 0, 1},
        {"no length, another height", 0, 0, 0, 1, 0},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(CKMath::IsPointOnLine(0, 0, c.x2, c.y2, c.px, c.py), c.on) << c.why;
        EXPECT_EQ(CKMath::IsPointOnLine(c.x2, c.y2, 0, 0, c.px, c.py), c.on) << c.why << ", walked backward";
    }
    EXPECT_EQ(CKMath::IsPointOnLine(20, 30, 24, 33, 22, 31.5), 1) << "sloped, away from the origin";
    EXPECT_EQ(CKMath::IsPointOnLine(20, 30, 24, 33, 22, 31.64), 0) << "0.56 of twice the area";
}

TEST(CKMathIntersection, CrossingPointsOfWholeNumberSegments)
{
    std::mt19937 random(321);
    std::uniform_int_distribution<int> coordinate(-4, 4);
    int crossings = 0;
    for (int round = 0; round < 5000; ++round) {
        int c[8];
        for (int& value : c)
            value = coordinate(random);
        const KPointD line = CKMath::GetInfiniteLinesIntersectedPoint(c[0], c[1], c[2], c[3], c[4], c[5], c[6], c[7]);
        const KPointD segment = CKMath::GetLinesIntersectedPoint(c[0], c[1], c[2], c[3], c[4], c[5], c[6], c[7]);
        const int dx1 = c[2] - c[0], dy1 = c[3] - c[1], dx2 = c[6] - c[4], dy2 = c[7] - c[5];
        const int determinant = dx1 * dy2 - dy1 * dx2;
        if ((dx1 == 0 && dy1 == 0) || (dx2 == 0 && dy2 == 0))
            continue; // a point counts as a vertical line
        if (determinant == 0) {
            ASSERT_EQ(line.x, DBL_MAX) << "parallel";
            ASSERT_EQ(line.y, DBL_MAX);
            ASSERT_EQ(segment.x, DBL_MAX) << "also where they overlap";
            continue;
        }
        // Cramer's rule in whole numbers: the positions along both lines, as fractions of the determinant.
        const int along1 = (c[4] - c[0]) * dy2 - (c[5] - c[1]) * dx2,
                  along2 = (c[4] - c[0]) * dy1 - (c[5] - c[1]) * dx1;
        // Slopes of at most 8 and values of at most 300, a few roundings, divided by at least 1/56.
        ASSERT_NEAR(line.x, c[0] + double(along1) * dx1 / determinant, 1e-11);
        ASSERT_NEAR(line.y, c[1] + double(along1) * dy1 / determinant, 1e-10);
        const auto isInside = [determinant](int along) {
            return determinant > 0 ? along >= 0 && along <= determinant : along <= 0 && along >= determinant;
        };
        const bool meet = isInside(along1) && isInside(along2);
        ASSERT_EQ(segment.x, meet ? line.x : DBL_MAX);
        ASSERT_EQ(segment.y, meet ? line.y : DBL_MAX);
        crossings += meet;
    }
    EXPECT_GT(crossings, 500);
}

TEST(CKMathIntersection, PointsInRectangles)
{
    CKRectD rectD(1, 3, 2, 6);
    CKRectF rectF(1, 3, 2, 6);
    const double xs[] = {0.5, 1, 2, 3, 3.5}, ys[] = {1.5, 2, 4, 6, 6.5};
    for (int i = 0; i < 25; ++i) {
        const double x = xs[i % 5], y = ys[i / 5];
        const int inside = i % 5 % 4 != 0 && i / 5 % 4 != 0;
        EXPECT_EQ(CKMath::IsInRectangle(x, y, 1, 3, 2, 6), inside);
        EXPECT_EQ(CKMath::IsInRectangle(x, y, 3, 1, 2, 6), 0) << "edges the wrong way round";
        EXPECT_EQ(CKMath::IsInRectangle(x, y, &rectD, 0), inside);
        EXPECT_EQ(CKMath::IsInRectangle(x, y, &rectF, 0), inside);
        EXPECT_EQ(CKMath::IsInRectangle(x, y, &rectD, 0.5), 1) << "the margin takes all in";
        EXPECT_EQ(CKMath::IsInRectangle(x, y, &rectF, -0.5), inside && x == 2 && y == 4) << "only the centre is left";
        EXPECT_EQ(CKMath::IsInRectangle(-x, y, 1, 3, 2, 6, 0, 1), inside) << "mirrored";
    }
    EXPECT_EQ(CKMath::IsInRectangle(-4, 2, 1, 3, 3, 5, 90, 0), 1) << "turned back to (2, 4)";
    EXPECT_EQ(CKMath::IsInRectangle(4, 2, 1, 3, 3, 5, 90, 0), 0);
    EXPECT_EQ(CKMath::IsInRectangle(-4, 2, -3, -1, 3, 5, 90, 1), 1) << "turned back, then mirrored to (-2, 4)";
    EXPECT_EQ(CKMath::IsInRectangle(0, 0, static_cast<CKRectD*>(nullptr), 1), 0);
    EXPECT_EQ(CKMath::IsInRectangle(0, 0, static_cast<CKRectF*>(nullptr), 1), 0);
    CKRectD empty;
    EXPECT_EQ(CKMath::IsInRectangle(0, 0, &empty, 0), 1) << "the flag is not looked at";
}

TEST(CKMathIntersection, RectanglesMeetWhereTheirRangesDo)
{
    for (int i = 0; i < 81; ++i) {
        // Both have sides of 2; `a` stays, `b` moves by whole numbers in both directions.
        const double x = i % 9 - 4.0, y = i / 9 - 4.0;
        const int meet = x <= 2 && x >= -2 && y <= 2 && y >= -2;
        ASSERT_EQ(CKMath::IsIntersectRectangle(0.0, 2.0, 0.0, 2.0, x, x + 2, y, y + 2), meet);
        ASSERT_EQ(CKMath::IsIntersectRectangle(0.0f, 2.0f, 0.0f, 2.0f, float(x), float(x + 2), float(y), float(y + 2)),
                  meet);
        CKRectD aD(0, 2, 0, 2), bD(x, x + 2, y, y + 2);
        CKRectF aF(0, 2, 0, 2), bF(float(x), float(x + 2), float(y), float(y + 2));
        const int near = x <= 3 && x >= -3 && y <= 3 && y >= -3;
        ASSERT_EQ(CKMath::IsToCheck(aD, bD, 0), meet);
        ASSERT_EQ(CKMath::IsToCheck(aD, bD, 1), near);
        ASSERT_EQ(CKMath::IsToCheck(aF, bF, 1), near);
        ASSERT_EQ(CKMath::IsToCheck(bF, aF, 0.999), x <= 2 && x >= -2 && y <= 2 && y >= -2);
    }
}

TEST(CKMathIntersection, SegmentsAndDiscsReachRectangles)
{
    EXPECT_EQ(CKMath::IsIntersectLineToRectangle(1.25, -1, 1.25, 2, 0.25, 0, 1, 0, 1), 1);
    EXPECT_EQ(CKMath::IsIntersectLineToRectangle(1.25, -1, 1.25, 2, 0.24, 0, 1, 0, 1), 0);
    EXPECT_EQ(CKMath::IsIntersectLineToRectangle(0.5, 0.5, 2, 2, -1, 0, 1, 0, 1), 1)
        << "an end inside needs no nearness";
    EXPECT_EQ(CKMath::IsIntersectLineToRectangle(2, 2, 0.5, 0.5, -1, 0, 1, 0, 1), 1);
    EXPECT_EQ(CKMath::IsIntersectCircleToRectangle(2, 0.5, 1, 0, 1, 0, 1), 1) << "touching";
    std::mt19937 random(322);
    std::uniform_real_distribution<double> coordinate(-4, 4);
    const auto outside = [](double value, double low, double high) {
        return std::fmax(0, std::fmax(low - value, value - high));
    };
    for (int round = 0; round < 1000; ++round) {
        const double x1 = coordinate(random), y1 = coordinate(random), x2 = coordinate(random), y2 = coordinate(random);
        double tried = DBL_MAX;
        for (int i = 0; i <= 500; ++i) {
            const double t = i / 500.0, x = x1 + t * (x2 - x1), y = y1 + t * (y2 - y1);
            tried = std::fmin(tried, std::hypot(outside(x, -1, 2), outside(y, -2, 1)));
        }
        // The tried points are at most half a step, |(8, 8)| / 1000, off the nearest one.
        ASSERT_EQ(CKMath::IsIntersectLineToRectangle(x1, y1, x2, y2, tried + 1e-12, -1, 2, -2, 1), 1);
        if (tried > 0.012) {
            ASSERT_EQ(CKMath::IsIntersectLineToRectangle(x1, y1, x2, y2, tried - 0.012, -1, 2, -2, 1), 0);
        }
        const double gap = std::hypot(outside(x1, -1, 2), outside(y1, -2, 1));
        ASSERT_EQ(CKMath::IsIntersectCircleToRectangle(x1, y1, gap + 1e-12, -1, 2, -2, 1), 1);
        if (gap > 0) {
            ASSERT_EQ(CKMath::IsIntersectCircleToRectangle(x1, y1, gap - 1e-12, -1, 2, -2, 1), 0);
        }
    }
}
