#include "math/CKMath.h"
#include "support/Coordinates.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>

TEST(CKMathPlacement, RotatesFirstAndMirrorsSecond)
{
    struct Case
    {
        const char* why;
        double x, y;
        float angle;
        int mirror;
        double rx, ry;
    };
    const Case cases[] = {
        {"mirror alone keeps the bits", 3, 4, 0, 1, -3, 4},
        {"nothing", 3, 4, 0, 0, 3, 4},
        {"turned up, then mirrored", 1, 0, 90, 1, 0x1.777a5cf72ceccp-25, 0x1.ffffffffffff7p-1},
        {"a whole turn is turned", 1, 0, 360, -1, -0x1.fffffffffff76p-1, 0x1.777a5cf72ceadp-23},
    };
    for (const Case& c : cases) {
        double x = c.x, y = c.y;
        CKMath::TranslatePoint(x, y, c.angle, c.mirror);
        EXPECT_EQ(XY(x, y), XY(c.rx, c.ry)) << c.why;
    }
    float x = 3.25f, y = -7.5f;
    CKMath::TranslatePoint(x, y, 33.25f, 1);
    EXPECT_EQ(XY(x, y), XY(-0x1.b520d8p+2, -0x1.1f5f50p+2));
}

namespace {

/// Places two points and an arc of the same points: all have to go where TranslatePoint puts each of them.
template <typename Real>
void ExpectPlacementsAgree(float angle, int mirror)
{
    Real p[6] = {Real(1.5), -2, Real(0.25), 7, -3, Real(4.125)}, two[4], arc[6];
    std::copy_n(p, 4, two);
    std::copy_n(p, 6, arc);
    int counterClockwise = 1;
    CKMath::TranslatePoints(two[0], two[1], two[2], two[3], angle, mirror);
    CKMath::TranslateArc(arc[0], arc[1], arc[2], arc[3], arc[4], arc[5], counterClockwise, angle, mirror);
    for (int i = 0; i < 6; i += 2)
        CKMath::TranslatePoint(p[i], p[i + 1], angle, mirror);
    EXPECT_TRUE(std::equal(two, two + 4, p)) << angle << ' ' << mirror;
    EXPECT_TRUE(std::equal(arc, arc + 6, p)) << angle << ' ' << mirror;
    EXPECT_EQ(counterClockwise, mirror ? 0 : 1);
}

} // namespace

TEST(CKMathPlacement, ArcsGoWhereTheirPointsGo)
{
    for (float angle : {0.0f, 90.0f, 33.25f, -360.0f}) {
        for (int mirror : {0, 1, -2}) {
            ExpectPlacementsAgree<double>(angle, mirror);
            ExpectPlacementsAgree<float>(angle, mirror);
        }
    }
    double c[6] = {};
    for (int flag : {0, 1, -1}) {
        int sweep = flag;
        CKMath::TranslateArc(c[0], c[1], c[2], c[3], c[4], c[5], sweep, 0, 1);
        EXPECT_EQ(sweep, flag ? 0 : 1);
    }
}

TEST(CKMathPlacement, LibraryLocationSkipsWholeTurns)
{
    struct Case
    {
        double dx, dy;
        int mirror;
        float angle;
        double x, y;
    };
    const Case cases[] = {
        {0, 0, 1, 90, 10, 20},
        {1, 0, 0, 360, 11, 20},
        {1, 0, 1, -720, 9, 20},
        {0, 3, 1, 90, 10 + 3 * 0x1.ffffffffffff7p-1, 20 - 3 * 0x1.777a5cf72ceccp-25},
        {1, 0, 0, 90, 10 - 0x1.777a5cf72ceccp-25, 20 + 0x1.ffffffffffff7p-1},
    };
    for (const Case& c : cases) {
        const KPointD p = CKMath::GetLibraryLocation(10, 20, c.dx, c.dy, c.mirror, c.angle);
        EXPECT_EQ(At(p), XY(c.x, c.y)) << c.angle;
    }
}

TEST(CKMathPlacement, SnapsToTheNearestNode)
{
    const float inf = std::numeric_limits<float>::infinity();
    struct Case
    {
        const char* why;
        float coordinate, grid, snapped;
    };
    const Case cases[] = {
        {"down", 0.74f, 0.5f, 0.5f},
        {"up", 0.76f, 0.5f, 1.0f},
        {"half a step, away from zero", 2.5f, 1, 3},
        {"the same below zero", -2.5f, 1, -3},
        {"half a step of a half", -0.25f, 0.5f, -0.5f},
        {"no grid", 0.3f, 0, 0.3f},
        {"no grid at the origin", 0, 0, 0},
        {"the node's number is no int", 3e9f, 1, 3e9f},
        {"nor is this one", -1e30f, 0.1f, -1e30f},
        {"infinity stays", inf, 1, inf},
        {"an infinite grid has no node", 5, inf, 5},
    };
    for (const Case& c : cases) {
        float x = c.coordinate, y = 7.5f;
        CKMath::SnapToGrid(x, y, c.grid, 5);
        EXPECT_EQ(XY(x, y), XY(c.snapped, 10)) << c.why;
    }
}
