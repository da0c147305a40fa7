#include "entities/CKGeomArc.h"
#include "math/CKMath.h"
#include "support/Coordinates.h"

#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <random>

namespace {

void ExpectPoint(KPointD p, double x, double y, const char* why)
{
    EXPECT_EQ(At(p), XY(x, y)) << why;
}

void ExpectNear(KPointD p, double x, double y, double tolerance, const char* why)
{
    EXPECT_NEAR(p.x, x, tolerance) << why;
    EXPECT_NEAR(p.y, y, tolerance) << why;
}

} // namespace

TEST(CKMathConstruction, FootOfThePerpendicular)
{
    ExpectPoint(CKMath::GetDistanceInfiniteLinePoint(0, 0, 10000, 0.5, 3, 7), 3, 0, "flat within the tolerance");
    ExpectPoint(CKMath::GetDistanceInfiniteLinePoint(0, 0, 10000, 1, 3, 7), 3, 0, "exactly at the tolerance");
    EXPECT_NE(CKMath::GetDistanceInfiniteLinePoint(0, 0, 10000, 1.01, 3, 7).y, 0.0) << "just steeper";
    ExpectPoint(CKMath::GetDistanceInfiniteLinePoint(5, 6, 5, 6, 1, 2), 1, 6, "a line of no length");
    ExpectPoint(CKMath::GetDistanceInfiniteLinePoint(4, 0, 4, 2, 9, 5), 4, 5, "vertical");
    ExpectPoint(CKMath::GetDistanceInfiniteLinePoint(0, 0, 2, 2, 3, 1), 2, 2, "diagonal");
    const KPointD zeros[] = {CKMath::GetDistanceInfiniteLinePoint(-1, -0.0, 1, -0.0, -0.0, 3),
                             CKMath::GetDistanceInfiniteLinePoint(0, -1, 0, 1, -5, -0.0)};
    for (const KPointD& zero : zeros) {
        ExpectPoint(zero, 0, 0, "the origin");
        EXPECT_FALSE(std::signbit(zero.x) || std::signbit(zero.y));
    }
}

TEST(CKMathConstruction, NearestPointOfASegment)
{
    ExpectPoint(CKMath::GetDistanceLinePoint(0, 0, 4, 1, 9, 9), 4, 1, "beyond the second end");
    ExpectPoint(CKMath::GetDistanceLinePoint(0, 0, 4, 1, -9, 1), 0, 0, "behind the first");
    ExpectPoint(CKMath::GetDistanceLinePoint(0, 0, 4, 4, 1, 1), 1, 1, "on it: P itself");
    ExpectPoint(CKMath::GetDistanceLinePoint(0, 0, 4, 4, 4, 0), 2, 2, "beside it");

    std::mt19937 random(5);
    std::uniform_real_distribution<double> coordinate(-50, 50);
    for (int i = 0; i < 500; ++i) {
        double c[6];
        for (double& value : c)
            value = coordinate(random);
        const KPointD p = CKMath::GetDistanceLinePoint(c[0], c[1], c[2], c[3], c[4], c[5]);
        const double least = CKMath::GetDistance(c[0], c[1], c[2], c[3], c[4], c[5]);
        const KPointD image = CKMath::GetSymmetricPoint(c[0], c[1], c[2], c[3], c[4], c[5]);
        const KPointD foot = CKMath::GetDistanceInfiniteLinePoint(c[0], c[1], c[2], c[3], c[4], c[5]);
        // Half a turn of single precision is off by 8.75e-8 of the reach.
        const double tolerance = 9e-8 * std::hypot(c[4] - foot.x, c[5] - foot.y) + 1e-8;
        ExpectNear(image, 2 * foot.x - c[4], 2 * foot.y - c[5], tolerance, "mirrored at the foot");
        // Rounding of a foot computed from products of up to 100^3, divided by the squared length.
        ASSERT_NEAR(std::hypot(p.x - c[4], p.y - c[5]), least, 1e-9) << "round " << i;
        ASSERT_NEAR(CKMath::GetDistance(c[0], c[1], c[2], c[3], p.x, p.y), 0, 1e-9) << "round " << i;
    }
}

TEST(CKMathConstruction, PointsMovedAlongALine)
{
    ExpectPoint(CKMath::GetDistancedLinePoint(0, 0, 2, 0, 1), 3, 0, "along +x exactly");
    ExpectPoint(CKMath::GetDistancedLinePoint(1, 2, 1, 2, 5), 6, 2, "no length: along +x");
    ExpectPoint(CKMath::GetDistancedLinePoint(3, 1, 4, 7, 0), 4, 7, "no distance: P2 itself");
    // The steps with 70 decimal digits, rounded per operation.
    ExpectPoint(CKMath::GetDistancedLinePoint(0, 0, 3, 4, 5), 0x1.8000012b0dd9fp+2, 0x1.ffffff1fb59b8p+2, "to (6, 8)");
    ExpectPoint(CKMath::GetDistancedLinePoint(0, 0, 3, 4, -5), -0x1.2b0dd9f9fcfa3p-22, 0x1.c094c90ab2ba3p-23, "back");
    ExpectPoint(CKMath::GetDistancedLinePoint(10.25, -3.5, -7, 22, 1.75), -0x1.fec1300999bfcp+2, 0x1.773122ccacc57p+4,
                "anywhere");

    // Out where doubles are 2 apart the length 1 is lost in x1, and then the distance; their sum would not be.
    ExpectNear(CKMath::GetDistancedLinePoint(1e16, 0, 1e16, 1, 1), 1e16, 0, 1e-7, "far out");
    // In y the cosine of the turn, some 4e-8 of the length, is lost once: on the way back it turns up in x.
    ExpectNear(CKMath::GetDistancedLinePoint(0, 1e16, 0, 1e16 + 2, 2), -4 * 0x1.777a5cf72ceccp-25, 1e16 + 4, 1e-12,
               "far up");

    ExpectPoint(CKMath::GetDistancedLinePoint(-3, 4, 3, 4, 0, 0, 5), -3, 4, "both ends fit: the first");
    ExpectPoint(CKMath::GetDistancedLinePoint(0, 9, 3, 4, 0, 0, 5), 3, 4, "the second end");
    ExpectPoint(CKMath::GetDistancedLinePoint(4, 0, 4, 2, 9, 5, 1), 4, 5, "neither: the foot");
}

TEST(CKMathConstruction, MirrorImagesAndSquarePoints)
{
    // About (0, 0): half a turn of (3, 4) with the error of pi as a float, from 70 decimal digits.
    ExpectPoint(CKMath::GetSymmetricPoint(-4, 3, 4, -3, 3, 4), -0x1.7ffffd110b447p+1, -0x1.000001199bc4bp+2, "(3, 4)");
    // The rounding of a right angle is some 4e-8, of a moved point some 1e-7 of its length.
    ExpectNear(CKMath::GetRightAngleDistancedPoint(1, 0, 0, 1, 0, 2), 1, 2, 3e-7, "left");
    ExpectNear(CKMath::GetRightAngleDistancedPoint(0, 0, 0, 1, 0, 2), 1, -2, 3e-7, "right");
    ExpectNear(CKMath::GetRightAngleDistancedPoint(1, 2, 2, 2, 5, 1), 1, 5, 3e-7, "left of upward");
    struct Case
    {
        const char* why;
        int follow;
        double py, y;
    };
    const Case cases[] = {{"P on the left, followed", 1, 3, 3},
                          {"P on the left, not followed", 0, 3, -3},
                          {"P on the right", 1, -3, -3},
                          {"not followed either", 0, -3, -3}};
    for (const Case& c : cases)
        ExpectNear(CKMath::GetRightAngleDistancedPointToPoint(c.follow, 0, 0, 4, 0, 2, c.py), 4, c.y, 5e-7, c.why);
}

TEST(CKMathConstruction, ArcsFromThreePoints)
{
    std::unique_ptr<CKGeomArc> arc(CKMath::GenerateArcFromThreePoints(1, 0, 0, 1, -1, 0));
    EXPECT_EQ(XY(arc->GetStartX(), arc->GetStartY()), XY(1, 0));
    EXPECT_EQ(XY(arc->GetEndX(), arc->GetEndY()), XY(-1, 0));
    EXPECT_EQ(arc->GetThickness(), 0);
    EXPECT_EQ(arc->GetDirection(), -1);
    ExpectNear({arc->GetCenterX(), arc->GetCenterY()}, 0, -1, 3e-7, "centre");
    const CKGeomArc next;
    EXPECT_EQ(next.GetObjectNumber(), arc->GetObjectNumber() + 1);

    arc.reset(CKMath::GenerateArcFromThreePoints(-1, 0, 0, 1, 1, 0));
    EXPECT_EQ(arc->GetDirection(), 1) << "the other way round";
    arc.reset(CKMath::GenerateArcFromThreePoints(0, 0, 1, 1, 2, 2));
    EXPECT_EQ(arc->GetDirection(), 1) << "P3 beyond P2 on one line";
    EXPECT_EQ(XY(arc->GetCenterX(), arc->GetCenterY()), XY(1, 1)) << "P2 on the chord is the centre";
}
