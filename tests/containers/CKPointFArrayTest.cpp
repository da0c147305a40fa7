#include "containers/CKPointFArray.h"
#include "containers/CKPointFArrayArray.h"
#include "containers/CKRectDArray.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>
#include <vector>

namespace {

constexpr float kNone = std::numeric_limits<float>::max();

void AddPoints(CKPointFArray& line, const std::vector<CKPointF>& points)
{
    for (const CKPointF& point : points)
        line.Add(new CKPointF(point));
}

struct Square : CKPointFArray
{
    Square() { AddPoints(*this, {{0, 0}, {10, 0}, {10, 10}, {0, 10}}); }
};

struct QueryCase
{
    const char* why;
    float a, b, c, d; ///< x1 y1 x2 y2, or left right bottom top
    int line, rectangle;
    int segments[4]; ///< what each segment says to the line
};

const QueryCase kQueries[] = {
    {"a line through the closing segment; a rectangle over it", -1, 5, 1, 5, 1, 1, {0, 0, 0, 1}},
    {"a line inside; a rectangle inside", 2, 8, 8, 2, 0, 0, {0, 0, 0, 0}},
    {"a line at the corner", 10, 10, 12, 12, 1, 0, {0, 1, 1, 0}},
    {"a line and a rectangle over the left side", -1, 1, 4, 6, 1, 1, {0, 0, 0, 1}},
    {"a line through the top; a rectangle on it", 4, 6, 10, 12, 1, 1, {0, 0, 1, 0}},
    {"outside", 20, 30, 20, 30, 0, 0, {0, 0, 0, 0}},
};

} // namespace

TEST(CKPointFArray, MeetsLinesAndRectanglesAlongTheRing)
{
    Square square;
    for (const QueryCase& c : kQueries) {
        CKPointF a(c.a, c.b), b(c.c, c.d);
        EXPECT_EQ(square.IsIntersectLine(c.a, c.b, c.c, c.d), c.line) << c.why;
        EXPECT_EQ(square.IsIntersectLine(&b, &a), c.line) << c.why;
        EXPECT_EQ(square.IsIntersectRectangle(c.a, c.b, c.c, c.d), c.rectangle) << c.why;
        for (int i = 0; i < 4; ++i)
            EXPECT_EQ(square.IsIntersectLineToLine(i, c.a, c.b, c.c, c.d), c.segments[i]) << c.why << i;
    }
    for (int outside : {-1, 4})
        EXPECT_EQ(square.IsIntersectLineToLine(outside, -1, 5, 1, 5), 0);
    EXPECT_EQ(square.IsIntersectLine(square.GetFirst(), nullptr), 0);
}

TEST(CKPointFArray, MeasuresPathAndSegments)
{
    Square square;
    EXPECT_EQ(square.GetLenth(), 30) << "the closing segment does not count";
    EXPECT_EQ(square.GetDistanceLineToPoint(3, -2, 5), 2) << "the closing segment";
    EXPECT_EQ(square.GetDistanceLineToPoint(1, 13, 14), 5) << "beyond an end";
    for (int outside : {-1, 4})
        EXPECT_EQ(square.GetDistanceLineToPoint(outside, 0, 0), kNone);
    EXPECT_EQ(square.GetDistanceLineToPoint(0, kNone, kNone), std::numeric_limits<float>::infinity());

    CKPointFArray rounded;
    AddPoints(rounded, {{0, 0}, {16777216, 0}, {16777216, 1}, {16777216, 2}});
    EXPECT_EQ(rounded.GetLenth(), 16777216) << "each sum is rounded, and 2^24 + 1 is no float";

    square.InsertAt(2, static_cast<CKPointF*>(nullptr));
    EXPECT_EQ(square.GetLenth(), 20) << "without the segments at a null";
    EXPECT_EQ(square.GetDistanceLineToPoint(1, 10, 5), kNone);
    EXPECT_EQ(square.IsIntersectLine(9, 5, 11, 5), 0);
    EXPECT_EQ(square.IsIntersectRectangle(9, 11, 4, 6), 0);
}

TEST(CKPointFArray, FewPoints)
{
    CKPointFArray line;
    EXPECT_EQ(line.GetFirst(), nullptr);
    EXPECT_EQ(line.GetLast(), nullptr);
    EXPECT_EQ(line.IsIntersectLine(0, 0, 1, 1), 0);
    EXPECT_EQ(line.IsIntersectRectangle(-1, 1, -1, 1), 0);
    EXPECT_EQ(line.GetNextNextIndex(3), 0);
    AddPoints(line, {{1, 1}});
    EXPECT_EQ(line.GetLenth(), 0);
    EXPECT_EQ(line.IsIntersectLineToLine(0, 0, 0, 2, 2), 0) << "one point has no segment";
    EXPECT_EQ(line.GetDistanceLineToPoint(0, 1, 1), kNone);
    EXPECT_EQ(line.IsIntersectLine(0, 0, 2, 2), 1) << "but the ring has one of no length";
    EXPECT_EQ(line.IsIntersectLine(0, 0, 2, 1), 0);
    EXPECT_EQ(line.IsIntersectRectangle(0, 1, 0, 1), 1);
}

TEST(CKPointFArray, IndicesGoAroundTheRing)
{
    Square square;
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(square.GetNextIndex(i), (i + 1) % 4);
        EXPECT_EQ(square.GetNextNextIndex(i), (i + 2) % 4);
        EXPECT_EQ(square.GetPreviousIndex(i), (i + 3) % 4);
    }
    EXPECT_EQ(square.GetNextNextIndex(-5), -3);
    EXPECT_EQ(square.GetNextNextIndex(std::numeric_limits<int>::max()), 1) << "(2^31 + 1) modulo 4";
}

// Points added to an empty polyline are sorted stably by their distance in single precision.
TEST(CKPointFArray, SortsByDistanceAndReverses)
{
    std::mt19937 random(5);
    CKPointFArray line;
    std::vector<CKPointF*> points;
    for (int i = 0; i < 200; ++i) {
        points.push_back(new CKPointF(float(random() % 9), float(random() % 9)));
        line.AddAndSortByMinDistanceFrom(points.back(), 4, 3);
        line.AddAndSortByMinDistanceFrom(nullptr, 4, 3);
    }
    const auto square = [](CKPointF* p) {
        return (p->GetX() - 4) * (p->GetX() - 4) + (p->GetY() - 3) * (p->GetY() - 3);
    };
    std::stable_sort(points.begin(), points.end(), [&](CKPointF* a, CKPointF* b) { return square(a) < square(b); });
    ASSERT_EQ(line.GetSize(), 200);
    EXPECT_TRUE(std::equal(points.begin(), points.end(), line.GetData()));
    line.Reverse();
    EXPECT_TRUE(std::equal(points.rbegin(), points.rend(), line.GetData()));
}

namespace {

struct CountedLine : CKPointFArray
{
    ~CountedLine() override { ++destroyed; }
    static inline int destroyed = 0;
};

} // namespace

TEST(CKPointFArrayArray, OwnsItsPolylines)
{
    {
        CKPointFArrayArray lines;
        lines.Add(new CountedLine);
        lines.Add(new CountedLine);
        AddPoints(*lines[0], {{1, 2}});
        lines.RemoveAfterDelete(1);
        EXPECT_EQ(CountedLine::destroyed, 1);
    }
    EXPECT_EQ(CountedLine::destroyed, 2);
}

TEST(CKRectDArray, ComparesObjectsAndDestroysThemOnlyWhenAsked)
{
    CKRectDArray list, same, alike;
    CKRectD* const rectangle = new CKRectD(1, 2, 3, 4);
    for (CKRectDArray* each : {&list, &same})
        each->Add(rectangle);
    alike.Add(new CKRectD(*rectangle));
    alike.Add(nullptr);
    EXPECT_EQ(list == same, 1);
    EXPECT_EQ(list == alike, 0) << "sizes differ";
    alike.RemoveAt(1);
    EXPECT_EQ(list == alike, 0) << "equal edges, another object";
    alike.DeleteElements();
    EXPECT_EQ(alike.GetData(), nullptr);
    {
        CKRectDArray passing;
        passing.Add(rectangle);
    }
    EXPECT_EQ(rectangle->GetLeft(), 1);
    list.DeleteElements();
    EXPECT_EQ(list == CKRectDArray(), 1);
}
