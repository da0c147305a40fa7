#include "math/CKMath.h"
#include "RandomElements.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

namespace {

/// Moved points and angles at float precision: some 1.5e-7 of lengths of at most 40, a few times.
constexpr double kMoved = 3e-5;

double ClearanceOf(KTwoPointD* p, const TestSegment& a, double width1, const TestSegment& b, double width2)
{
    return CKMath::GetDistancePointsOfLineToLine(p, a.a.x, a.a.y, a.b.x, a.b.y, width1, b.a.x, b.a.y, b.b.x, b.b.y,
                                                 width2);
}

double ClearanceOf(KTwoPointD* p, const TestSegment& l, double lineWidth, const TestArc& c, double arcWidth)
{
    return CKMath::GetDistancePointsOfLineToArc(p, l.a.x, l.a.y, l.b.x, l.b.y, lineWidth, c.o.x, c.o.y, c.s.x, c.s.y,
                                                c.e.x, c.e.y, c.r, arcWidth, c.sweep);
}

double ClearanceOf(KTwoPointD* p, const TestArc& a, double width1, const TestArc& b, double width2)
{
    return CKMath::GetDistancePointsOfArcToArc(p, a.o.x, a.o.y, a.s.x, a.s.y, a.e.x, a.e.y, a.r, width1, a.sweep, b.o.x,
                                               b.o.y, b.s.x, b.s.y, b.e.x, b.e.y, b.r, width2, b.sweep);
}

template <typename Element>
double OffElement(KPointD p, const Element& element, int steps)
{
    double least = 1e300;
    for (int i = 0; i <= steps; ++i) {
        const KPointD q = element.At(double(i) / steps);
        least = std::fmin(least, std::hypot(p.x - q.x, p.y - q.y));
    }
    return least;
}

double OffElement(KPointD p, const TestSegment& s)
{
    return CKMath::GetDistance(s.a.x, s.a.y, s.b.x, s.b.y, p.x, p.y);
}

/// How far P is from the arc's circle, or from its nearer end when P does not face the arc.
double OffElement(KPointD p, const TestArc& arc)
{
    if (arc.AngularDepth(p) > 0)
        return std::fabs(std::hypot(p.x - arc.o.x, p.y - arc.o.y) - arc.r);
    return std::fmin(std::hypot(p.x - arc.s.x, p.y - arc.s.y), std::hypot(p.x - arc.e.x, p.y - arc.e.y));
}

double Apart(const KTwoPointD& p)
{
    return std::hypot(p.x2 - p.x1, p.y2 - p.y1);
}

/// Flat lines count as horizontal: the foot of a point is then up to a ten-thousandth of the run beside the segment.
double Flatness(const TestSegment& s)
{
    const double run = std::fabs(s.b.x - s.a.x);
    return std::fabs(s.b.y - s.a.y) <= 1e-4 * run ? 1e-4 * run : 0;
}

double Flatness(const TestArc&)
{
    return 0;
}

/// All that holds for the clearance of any two elements. Points of elements that meet may lie apart: a segment that
/// crosses an arc twice returns both crossings and 0.
template <typename First, typename Second>
void CheckLaws(const First& a, const Second& b, const std::string& why)
{
    KTwoPointD p;
    const double distance = ClearanceOf(&p, a, 0, b, 0);
    const double rounding = kMoved + Flatness(a) + Flatness(b);
    ASSERT_LE(OffElement(KPointD{p.x1, p.y1}, a), rounding) << why;
    ASSERT_LE(OffElement(KPointD{p.x2, p.y2}, b), rounding) << why;
    if (distance > 0) {
        ASSERT_NEAR(Apart(p), distance, 1e-9) << why;
    }

    constexpr int kSteps = 60;
    double sampled = 1e300;
    for (int i = 0; i <= kSteps; ++i)
        sampled = std::fmin(sampled, OffElement(a.At(double(i) / kSteps), b, kSteps));
    // The nearest points are at most half a step from a sampled one on either element.
    ASSERT_LE(distance, sampled + rounding) << why;
    ASSERT_GE(distance, sampled - (a.Length() + b.Length()) / (2 * kSteps) - rounding) << why;

    // Widths take their halves off, down to 0, and move the points along the same line.
    const double width1 = 0.75, width2 = 1.5;
    KTwoPointD edges;
    const double clearance = ClearanceOf(&edges, a, width1, b, width2);
    ASSERT_EQ(clearance, std::fmax(0, distance - 1.125)) << why;
    if (clearance > 0) {
        ASSERT_NEAR(Apart(edges), clearance, kMoved) << why;
        ASSERT_NEAR(std::hypot(edges.x1 - p.x1, edges.y1 - p.y1), width1 / 2, kMoved) << why;
        ASSERT_NEAR(std::hypot(edges.x2 - p.x2, edges.y2 - p.y2), width2 / 2, kMoved) << why;
    } else if (distance > 0) {
        ASSERT_EQ(Apart(edges), 0) << why;
    }
}

/// A common shift keeps the distance within the rounding out there, and scaling by a power of two scales every bit: no
/// length is hidden in the steps.
template <typename First, typename Second>
void CheckInvariance(const First& a, const Second& b, const std::string& why)
{
    KTwoPointD p, q;
    const double distance = ClearanceOf(&p, a, 0.25, b, 0.5);
    ASSERT_EQ(ClearanceOf(&q, a.Mapped(0x1p-20, 0), 0x1p-22, b.Mapped(0x1p-20, 0), 0x1p-21), distance * 0x1p-20) << why;
    const KTwoPointD back = {q.x1 * 0x1p20, q.y1 * 0x1p20, q.x2 * 0x1p20, q.y2 * 0x1p20};
    ASSERT_TRUE(back.x1 == p.x1 && back.y1 == p.y1 && back.x2 == p.x2 && back.y2 == p.y2) << why;
    ASSERT_NEAR(ClearanceOf(&q, a.Mapped(1, 1024), 0.25, b.Mapped(1, 1024), 0.5), distance,
                kMoved + Flatness(a) + Flatness(b))
        << why;
}

} // namespace

TEST(CKMathClearance, PointsAgainstPlacedSegments)
{
    EXPECT_NEAR(CKMath::GetDistancePointToLine(0, 5, 0, 90, 0, 0, 10, 0), 0, 1e-6);
    EXPECT_NEAR(CKMath::GetDistancePointToLine(3, 5, 1, 90, 0, 2, 10, 2), 1, 1e-6) << "turned to x = -2, mirrored to 2";
    EXPECT_EQ(CKMath::GetDistancePointToLine(-5, 1, 1, 0, 0, 0, 10, 0), 1);
    EXPECT_EQ(CKMath::GetDistancePointToLine(-5, 1, 1, -720, 0, 0, 10, 0), 1) << "whole turns leave no rounding";
}

TEST(CKMathClearance, PointsAgainstArcs)
{
    // The quarter circle from (1, 0) to (0, 1), and the rest of it.
    EXPECT_NEAR(CKMath::GetDistancePointToArc(2, 2, 1, 0, 0, 1, 0, 0, 1), std::sqrt(8.0) - 1, 1e-15);
    EXPECT_EQ(CKMath::GetDistancePointToArc(0, -2, 1, 0, 0, 1, 0, 0, 1), std::sqrt(5.0)) << "the nearer end";
    EXPECT_EQ(CKMath::GetDistancePointToArc(0, -2, 0, 0, 0, 1, 0, 0, 1), 1);
    EXPECT_EQ(CKMath::GetDistancePointToArc(-3, 0, 1, 0, 0, 1, 0, 1, 0), 4) << "a full circle is only its start";
    KPointD nearest;
    EXPECT_EQ(CKMath::GetDistancePointToArc(&nearest, -3, 0, 1, 0, 0, 1, 0, 1, 0, 1), 2) << "here it is one";
    EXPECT_EQ(nearest.x, -1);
    EXPECT_EQ(CKMath::GetDistancePointToArc(&nearest, 0, 3, 1, 0, 0, -1, 0, 1, 0, 1), std::sqrt(10.0));
    EXPECT_EQ(nearest.x, -1) << "both ends are equally near: the start";
    EXPECT_EQ(CKMath::GetDistancePointToArc(&nearest, 4, 4, 1, 4, 4, 4, 2, 4, 6, 2), 2) << "the centre";
    EXPECT_EQ(nearest.y, 2) << "which faces the start as well as all others";
    EXPECT_EQ(CKMath::GetDistancePointToArc(&nearest, 3, 0, 1, 0, 0, 2.5, 0, 0, 1, 1), 0.5);
    EXPECT_EQ(nearest.x, 2.5) << "a start outside the circle is nearer than what P faces";

    RandomElements random(351);
    for (int round = 0; round < 2000; ++round) {
        const TestArc c = random.Arc(round % 2 == 0);
        const KPointD p = {random.Real(-12, 12), random.Real(-12, 12)};
        if (std::fabs(c.AngularDepth(p)) < 1e-5)
            continue;
        const double expected = OffElement(p, c);
        const double distance =
            CKMath::GetDistancePointToArc(&nearest, p.x, p.y, c.sweep, c.o.x, c.o.y, c.s.x, c.s.y, c.e.x, c.e.y, c.r);
        ASSERT_NEAR(distance, expected, kMoved) << "round " << round;
        ASSERT_EQ(CKMath::GetDistance(nearest.x, nearest.y, p.x, p.y), distance) << "round " << round;
        if (c.s.x != c.e.x || c.s.y != c.e.y) {
            ASSERT_NEAR(CKMath::GetDistancePointToArc(p.x, p.y, c.sweep, c.o.x, c.o.y, c.s.x, c.s.y, c.e.x, c.e.y),
                        expected, 1e-12)
                << "round " << round;
        }
    }
}

TEST(CKMathClearance, SidesOfArcs)
{
    struct Case
    {
        const char* why;
        double px, py;
        int left, right; ///< for the codes -1 (a quarter) and +1 (the rest of the circle), both from (1, 0) to (0, 1)
    };
    const Case cases[] = {
        {"inside", 0.5, 0.5, -1, 1},
        {"in the centre", 0, 0, -1, 1},
        {"on the circle", 0.6, 0.8, -1, 1},
        {"outside, facing", 2, 2, 1, -1},
        {"outside, facing the rest", -3, -2, -1, -1},
        {"beyond the end", -2, 1.5, 1, -1},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(CKMath::GetRelativeDirection(1, 0, 0, 1, 0, 0, 1, -1, c.px, c.py), c.left) << c.why;
        EXPECT_EQ(CKMath::GetRelativeDirection(1, 0, 0, 1, 0, 0, 1, 1, c.px, c.py), c.right) << c.why;
    }
}

TEST(CKMathClearance, NamedPairs)
{
    KTwoPointD p;
    EXPECT_EQ(CKMath::GetDistancePointsOfLineToLine(&p, 0, 0, 10, 0, 5, 3, 5, 1), 1);
    ExpectPoints(p, {5, 0, 5, 1}, "an end above a segment");
    EXPECT_EQ(CKMath::GetDistancePointsOfLineToLine(&p, 0, 0, 4, 4, 0, 4, 4, 0), 0);
    ExpectPoints(p, {2, 2, 2, 2}, "crossing");
    EXPECT_EQ(CKMath::GetDistancePointsOfLineToLine(&p, 0, 0, 6, 0, 4, 0, 9, 0), 0);
    ExpectPoints(p, {4, 0, 4, 0}, "overlapping: the first end that lies on the other");
    EXPECT_EQ(ClearanceOf(&p, TestSegment{{0, 0}, {10, 0}}, 1, TestSegment{{5, 3}, {5, 1}}, -9), 0.5)
        << "a negative width is a bare line";
    ExpectPoints(p, {5, 0.5, 5, 1}, "only the first point moves");
    EXPECT_EQ(ClearanceOf(&p, TestSegment{{0, 0}, {10, 0}}, 1, TestSegment{{5, 3}, {5, 1}}, 1), 0) << "touching";
    ExpectPoints(p, {5, 0, 5, 0}, "both on the first centre line");

    const TestSegment above = {{-5, 3}, {5, 3}};
    const TestArc upper = {{0, 0}, {1, 0}, {-1, 0}, 1, 1};
    EXPECT_NEAR(ClearanceOf(&p, above, 0.4, upper, 0.2), 1.7, 1e-6);
    ExpectPoints(p, {0, 2.8, 0, 1.1}, "a segment above a half circle");
    EXPECT_NEAR(ClearanceOf(&p, above, 3, upper, 1), 0, 1e-6) << "touching, within the rounding of the nearest point";
    EXPECT_EQ(ClearanceOf(&p, above, 3, upper, 1.01), 0);
    ExpectPoints(p, {0, 3, 0, 3}, "both on the segment");
    EXPECT_EQ(ClearanceOf(nullptr, above, 3, upper, 1.01), 0);
    EXPECT_EQ(ClearanceOf(&p, TestSegment{{-2, 0.6}, {2, 0.6}}, 1, upper, 1), 0);
    ExpectPoints(p, {-0.8, 0.6, 0.8, 0.6}, "centre lines that meet return their crossings");

    const TestArc toRight = {{0, 0}, {0, -1}, {0, 1}, 1, 1}, toLeft = {{5, 0}, {5, 1}, {5, -1}, 1, 1};
    EXPECT_NEAR(ClearanceOf(&p, toRight, 0, toLeft, 0), 3, 1e-6);
    ExpectPoints(p, {1, 0, 4, 0}, "half circles that face each other");
    EXPECT_NEAR(ClearanceOf(&p, toRight, 0.5, toLeft, 0.5), 2.5, 1e-6);
    ExpectPoints(p, {1.25, 0, 3.75, 0}, "with widths");
    EXPECT_EQ(ClearanceOf(&p, toRight, 4, toLeft, 4), 0);
    ExpectPoints(p, {4, 0, 4, 0}, "both on the second arc");
    const TestArc inner = {{1, 0}, {1, -1}, {1, 1}, 1, 1}, outer = {{0, 0}, {0, -5}, {0, 5}, 5, 1};
    EXPECT_NEAR(ClearanceOf(&p, inner, 0, outer, 0), 3, 1e-6);
    ExpectPoints(p, {2, 0, 5, 0}, "one inside the other");
    EXPECT_NEAR(ClearanceOf(&p, outer, 0, inner, 0), 3, 1e-6);
    ExpectPoints(p, {5, 0, 2, 0}, "the other way round");
    const TestArc below = {{0, 0}, {-1, 0}, {1, 0}, 1, 1}, around = {{0, 0}, {3, 0}, {-3, 0}, 3, 0};
    EXPECT_EQ(ClearanceOf(&p, below, 0, around, 0), 2);
    ExpectPoints(p, {-1, 0, -3, 0}, "of one centre: all facing pairs are equally near, arc 1's start is kept");
}

TEST(CKMathClearance, LawsOfAllPairs)
{
    RandomElements random(352);
    for (int round = 0; round < 400; ++round) {
        const bool whole = round % 2 == 0;
        const TestSegment s = random.Segment(whole), t = random.Segment(whole);
        const TestArc c = random.Arc(whole), d = random.Arc(whole);
        const std::string number = std::to_string(round);
        CheckLaws(s, t, "segments, round " + number);
        CheckLaws(s, c, "segment and arc, round " + number);
        CheckLaws(c, d, "arcs, round " + number);
        CheckInvariance(s, t, "segments, round " + number);
        CheckInvariance(s, c, "segment and arc, round " + number);
        CheckInvariance(c, d, "arcs, round " + number);
        KTwoPointD p;
        ASSERT_NEAR(ClearanceOf(&p, s, 0.25, t, 0.5), ClearanceOf(&p, t, 0.5, s, 0.25), 1e-12) << number;
        ASSERT_NEAR(ClearanceOf(&p, c, 0.25, d, 0.5), ClearanceOf(&p, d, 0.5, c, 0.25), kMoved) << number;
        ASSERT_EQ(CKMath::GetDistancePointsOfLineToLine(&p, s.a.x, s.a.y, s.b.x, s.b.y, t.a.x, t.a.y, t.b.x, t.b.y),
                  CKMath::GetDistance(s.a.x, s.a.y, s.b.x, s.b.y, t.a.x, t.a.y, t.b.x, t.b.y))
            << number;
    }
}
