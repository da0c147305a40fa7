#include "foundation/CKPoint.h"
#include "foundation/CKPointD.h"
#include "foundation/CKPointF.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <memory>

TEST(CKPoint, ComparesBothCoordinates)
{
    CKPoint a(3, 4), others[] = {{3, 4}, {2, 4}, {3, 5}};
    for (CKPoint& other : others) {
        EXPECT_EQ(a == other, &other == others);
        EXPECT_EQ(a.IsEqual(&other), &other == others);
    }
    EXPECT_EQ(a.IsEqual(nullptr), 0);
    const std::unique_ptr<CKPoint> clone(a.clone()), second(a.GetClone());
    EXPECT_EQ(clone->IsEqual(&a) && second->IsEqual(&a), 1);
}

TEST(CKPointF, DistanceIsRoundedAtEveryStep)
{
    EXPECT_EQ(CKPointF(1, 2).GetDistance(4, 6), 5.0f);
    // Rounded only once the result would be 0x1.887956p-2 (both worked out with other arithmetic).
    EXPECT_EQ(CKPointF().GetDistance(0.1f, 0x1.7ae148p-2f), 0x1.887958p-2f);
    EXPECT_EQ(CKPointF().GetDistance(1e30f, 0), std::numeric_limits<float>::infinity()) << "the square overflows";
}

TEST(CKPointF, SamenessIsStrict)
{
    struct Case
    {
        const char* why;
        float x, y, tolerance;
        int same;
    };
    const Case cases[] = {
        {"tolerance 0 takes nothing", 1, 1, 0, 0},
        {"just the difference is not enough", 1.5f, 1, 0.5f, 0},
        {"a little more is", 1.5f, 1, 0.5000001f, 1},
        {"y counts as x does", 1, 0.5f, 0.5f, 0},
        {"both have to be near", 1, 2, 0.5f, 0},
        // 1 + 2^-24 + 2^-40 lies past the middle of two floats, so it becomes 1 + 2^-23.
        {"the difference is rounded to float first", -0x1.0001p-24f, 1, 0x1.000002p0f, 0},
        {"a NaN is nowhere", std::nanf(""), 1, 10, 0},
    };
    for (const Case& c : cases)
        EXPECT_EQ(CKPointF(1, 1).IsSame(c.x, c.y, c.tolerance), c.same) << c.why;
}
