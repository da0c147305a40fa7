#include "foundation/CKRect.h"
#include "foundation/CKRectD.h"
#include "foundation/CKRectF.h"
#include "support/Coordinates.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cmath>
#include <memory>
#include <random>
#include <vector>

namespace {

template <typename Rect>
void ExpectRect(Rect& rect, double left, double right, double bottom, double top, int initialized, const char* why)
{
    const std::vector<double> edges = {rect.GetLeft(), rect.GetRight(), rect.GetBottom(), rect.GetTop()};
    EXPECT_EQ(edges, std::vector<double>({left, right, bottom, top})) << why;
    EXPECT_EQ(rect.IsInitialized(), initialized) << why;
}

template <typename Rect>
class FloatingRect : public testing::Test
{};

using FloatingRects = testing::Types<CKRectD, CKRectF>;
TYPED_TEST_SUITE(FloatingRect, FloatingRects);

} // namespace

TYPED_TEST(FloatingRect, GathersBounds)
{
    TypeParam rect;
    ExpectRect(rect, 0, 0, 0, 0, 0, "holds nothing");
    rect.MergePoint(2, 3);
    ExpectRect(rect, 2, 2, 3, 3, 1, "the first point is the rectangle");
    rect.MergePoint(-1, 5);
    ExpectRect(rect, -1, 2, 3, 5, 1, "grown");
    rect.MergePoint(0, 4);
    ExpectRect(rect, -1, 2, 3, 5, 1, "a point inside changes nothing");
    rect.MergePoint(std::nanf(""), std::nanf(""));
    ExpectRect(rect, -1, 2, 3, 5, 1, "a NaN moves no edge");
    rect.Merge(-2, 1, 2, 6);
    ExpectRect(rect, -2, 2, 2, 6, 1, "edges");

    TypeParam crossed;
    crossed.Merge(4, 1, 9, 8);
    ExpectRect(crossed, 4, 1, 9, 8, 1, "the first edges are taken as they are");
    crossed.Arrange();
    ExpectRect(crossed, 1, 4, 8, 9, 1, "arranged");
}

TYPED_TEST(FloatingRect, OnlyTheFlagTellsCopyFromAssignment)
{
    TypeParam empty;
    TypeParam assigned(1, 2, 3, 4);
    assigned = empty;
    ExpectRect(assigned, 0, 0, 0, 0, 1, "assignment initializes");
    TypeParam copied(empty);
    ExpectRect(copied, 0, 0, 0, 0, 0, "a copy carries the flag");
    EXPECT_EQ(copied == assigned, 1) << "the flags are not compared";
    TypeParam* self = &empty;
    empty = *self;
    EXPECT_EQ(empty.IsInitialized(), 0) << "to itself: nothing";
    empty.SetTop(1);
    empty.Arrange();
    EXPECT_EQ(empty.IsInitialized(), 0) << "a single edge does not initialize";
    EXPECT_EQ(copied == empty, 0);
}

TYPED_TEST(FloatingRect, SizesAreAbsolute)
{
    TypeParam rect(5, 2, 1, -6);
    EXPECT_EQ(rect.GetWidth(), 3);
    EXPECT_EQ(rect.GetHeight(), 7);
    EXPECT_EQ(rect.GetMaxSize(), 7);
    EXPECT_EQ(rect.GetMinSize(), 3);
    EXPECT_EQ(At(rect.GetCenter()), XY(3.5, -2.5));
}

TYPED_TEST(FloatingRect, IntersectsWhereIntervalsMeet)
{
    using Edge = decltype(TypeParam().GetLeft());
    std::mt19937 random(20240611);
    std::uniform_int_distribution<int> edge(0, 6);
    for (int round = 0; round < 2000; ++round) {
        Edge e[8];
        for (int i = 0; i < 8; i += 2) {
            const int p = edge(random), q = edge(random);
            e[i] = static_cast<Edge>(std::min(p, q));
            e[i + 1] = static_cast<Edge>(std::max(p, q));
        }
        // On whole edges two closed rectangles meet exactly when they share a whole point.
        bool meets = false;
        for (int x = 0; x <= 6; ++x) {
            for (int y = 0; y <= 6; ++y)
                meets |= e[0] <= x && x <= e[1] && e[2] <= y && y <= e[3] && e[4] <= x && x <= e[5] && e[6] <= y &&
                         y <= e[7];
        }
        TypeParam a(e[0], e[1], e[2], e[3]), b(e[4], e[5], e[6], e[7]);
        ASSERT_EQ(a.IsIntersect(b), meets) << "round " << round;
        ASSERT_EQ(b.IsIntersect(a), meets) << "round " << round;
    }
}

TEST(CKRectD, MergesEdgesOfARectangleThatHoldsNothing)
{
    CKRectD rect(1, 2, 1, 2);
    rect.Merge(CKRectD());
    ExpectRect(rect, 0, 2, 0, 2, 1, "the zero edges count");
    double width = 0, height = 0;
    EXPECT_EQ(CKRectD(3, 1, 0, 9).GetMaxSizeWidthHeight(width, height), 9);
    EXPECT_EQ(width, 2);
    EXPECT_EQ(height, 9);
}

TEST(CKRectD, GivesCornerAndSizeForDrawing)
{
    const CRectD draw = CKRectD(5, 2, 1, 7).GetDrawRectD();
    EXPECT_EQ(draw == CRectD(5, 7, 3, 6), 1);
    EXPECT_STREQ(CKRectD(-1, 2.5, 1e-7, 4).ToString(),
                 "CKRectD left:-1.000000 right:2.500000 bottom:0.000000 top:4.000000");
}

TEST(CKRectF, CentreAndExpansionAreSinglePrecision)
{
    CKRectF rect(16777216.0f, 1.0f, 0, 3);
    EXPECT_EQ(At(rect.GetCenter()), XY(8388608, 1.5)) << "the sum 16777217 has no float";
    EXPECT_EQ(XY(rect.GetCenterX(), rect.GetCenterY()), XY(8388608, 1.5));

    CKRectF grown;
    grown.Expand(0.5f);
    ExpectRect(grown, -0.5, 0.5, -0.5, 0.5, 0, "expanding does not initialize");
    grown.Expand(-1);
    ExpectRect(grown, 0.5, -0.5, 0.5, -0.5, 0, "nor does it arrange");
    const std::unique_ptr<CKRectF> clone(grown.GetClone());
    ExpectRect(*clone, 0.5, -0.5, 0.5, -0.5, 1, "a clone is always initialized");
    rect.Merge(static_cast<CKRectF*>(nullptr));
    rect.Merge(clone.get());
    ExpectRect(rect, 0.5, 1, 0, 3, 1, "merged by pointer; null adds nothing");
    EXPECT_STREQ(CKRectF(0.1f, 1, 2, 3).ToString(),
                 "CKRectF left:0.100000 right:1.000000 bottom:2.000000 top:3.000000");
}

TEST(CKRect, SizesAreSigned)
{
    struct Case
    {
        int left, right, bottom, top, width, height, maxSize, centerX, centerY;
    };
    const Case cases[] = {
        {5, 2, 0, 0, -3, 0, 0, 3, 0},
        {-3, 0, 0, -3, 3, 3, 3, -1, -1}, // halves are dropped toward zero
        {INT_MIN, INT_MAX, INT_MIN, INT_MAX, INT_MAX, INT_MIN, INT_MAX, 0, 0},
        {INT_MAX, INT_MAX, INT_MIN, INT_MIN, 0, 0, 0, INT_MAX, INT_MIN},
    };
    for (const Case& c : cases) {
        CKRect rect;
        rect.Set(c.left, c.right, c.bottom, c.top);
        EXPECT_EQ(rect.GetWidth(), c.width);
        EXPECT_EQ(rect.GetHeight(), c.height);
        EXPECT_EQ(rect.GetMaxSize(), c.maxSize);
        EXPECT_EQ(At(rect.GetCenter()), XY(c.centerX, c.centerY));
    }
}
