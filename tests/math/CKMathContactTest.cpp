#include "math/CKMath.h"
#include "RandomElements.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

/// A point moved along a line takes its direction from degrees as floats: some 1.5e-7 of the length, here at most 40.
constexpr double kMoved = 1e-5;

/// How far inside the closed range a value lies; negative outside.
double Depth(double value, double low, double high)
{
    return std::fmin(value - low, high - value);
}

int ContactOf(KTwoPointD* points, const TestSegment& l, const TestArc& c)
{
    return CKMath::IsContactLineToArc(points, l.a.x, l.a.y, l.b.x, l.b.y, c.sweep, c.o.x, c.o.y, c.s.x, c.s.y, c.e.x,
                                      c.e.y, c.r);
}

int ContactOf(KPointD* point, const TestArc& a, const TestArc& b)
{
    return CKMath::IsContactArcToArc(point, a.o.x, a.o.y, a.s.x, a.s.y, a.e.x, a.e.y, a.r, a.sweep, b.o.x, b.o.y, b.s.x,
                                     b.s.y, b.e.x, b.e.y, b.r, b.sweep);
}

} // namespace

TEST(CKMathContact, SegmentsAgainstTheUnitCircle)
{
    struct Case
    {
        const char* why;
        double x1, y1, x2, y2;
        int inside, contact;
        KTwoPointD points; ///< 7 in all fields: not written
    };
    const KTwoPointD untouched = {7, 7, 7, 7};
    const Case cases[] = {
        {"through the centre", -2, 0, 2, 0, 0, 1, {-1, 0, 1, 0}},
        {"through the centre, backward", 2, 0, -2, 0, 0, 1, {1, 0, -1, 0}},
        {"from the centre", 0, 0, 2, 0, 0, 1, {1, 0, 1, 0}},
        {"to the centre", -2, 0, 0, 0, 0, 1, {-1, 0, -1, 0}},
        {"all inside", -0.5, 0, 0.5, 0, 0, 0, untouched},
        {"all inside, and that counts", -0.5, 0, 0.5, 0, 1, 1, {-0.5, 0, 0.5, 0}},
        {"one end inside, which also counts", 0, 0.6, -2, 0.6, 1, 1, {-0.8, 0.6, -0.8, 0.6}},
        {"tangent", -2, 1, 2, 1, 0, 1, {0, 1, 0, 1}},
        {"a chord", -2, 0.6, 2, 0.6, 0, 1, {-0.8, 0.6, 0.8, 0.6}},
        {"a chord upward", 0.6, -2, 0.6, 2, 0, 1, {0.6, -0.8, 0.6, 0.8}},
        {"ends on the circle", -0.6, -0.8, 0.6, -0.8, 0, 1, {-0.6, -0.8, 0.6, -0.8}},
        {"passing", -2, 1.001, 2, 1.001, 1, 0, untouched},
        {"short of it", -3, 0, -1.001, 0, 1, 0, untouched},
        {"a point on it", 1, 0, 1, 0, 0, 1, {1, 0, 1, 0}},
        {"from the circle inward", 1, 0, 0.5, 0, 0, 1, {1, 0, 1, 0}},
        {"from inside onto the circle", 0.5, 0, 1, 0, 0, 1, {1, 0, 1, 0}},
    };
    for (const Case& c : cases) {
        KTwoPointD points = untouched;
        EXPECT_EQ(CKMath::IsContactLineToCircle(&points, c.inside, c.x1, c.y1, c.x2, c.y2, 0, 0, 1), c.contact)
            << c.why;
        ExpectPoints(points, c.points, c.why);
        EXPECT_EQ(CKMath::IsContactLineToCircle(nullptr, c.inside, c.x1, c.y1, c.x2, c.y2, 0, 0, 1), c.contact)
            << c.why;
    }
    KTwoPointD points = untouched;
    EXPECT_EQ(CKMath::IsContactLineToCircle(&points, 0, -2, 0, 2, 0, 0, 0, 0), 1) << "a circle without radius";
    ExpectPoints(points, {0, 0, 0, 0}, "a circle without radius");
    EXPECT_EQ(CKMath::IsContactLineToArc(&points, -2, 0.6, 2, 0.6, 1, 0, 0, 1, 0, 0, 1, 1), 1);
    ExpectPoints(points, {0.8, 0.6, 0.8, 0.6}, "only the second crossing lies on the arc");
    EXPECT_EQ(CKMath::IsContactLineToArc(&points, -2, 0.6, 2, 0.6, 0, 0, 0, 1, 0, 0, 1, 1), 1);
    ExpectPoints(points, {-0.8, 0.6, -0.8, 0.6}, "only the first lies on the rest of the circle");
    EXPECT_EQ(CKMath::IsContactLineToArc(&points, -2, -0.6, 2, -0.6, 1, 0, 0, 1, 0, 0, 1, 1), 0);
    ExpectPoints(points, {-0.8, -0.6, 0.8, -0.6}, "neither: the crossings of the circle stay");
}

// The crossings by the quadratic equation of the segment's parameter.
TEST(CKMathContact, SegmentsMeetArcsWhereTheEquationSays)
{
    RandomElements random(331);
    int contacts = 0;
    for (int round = 0; round < 4000; ++round) {
        const TestSegment line = random.Segment(false);
        const TestArc arc = random.Arc(false);
        const double dx = line.b.x - line.a.x, dy = line.b.y - line.a.y, fx = line.a.x - arc.o.x,
                     fy = line.a.y - arc.o.y;
        const double a = dx * dx + dy * dy, b = dx * fx + dy * fy, c = fx * fx + fy * fy - arc.r * arc.r;
        const double root = b * b - a * c;
        // Left out: nearly tangent, and flat enough to be taken for horizontal.
        if (std::fabs(root) < 1e-2 * a || std::fabs(dy) < 2e-4 * std::fabs(dx))
            continue;
        bool isClose = false;
        KTwoPointD expected[2];
        int count = 0;
        for (int i = 0; root > 0 && i < 2; ++i) {
            const double t = (-b + (i ? 1 : -1) * std::sqrt(root)) / a;
            const double inside = Depth(t, 0, 1), facing = arc.AngularDepth(line.At(t));
            isClose = isClose || std::fabs(inside) < 1e-5 || std::fabs(facing) < 1e-5;
            if (inside > 0 && facing > 0)
                expected[count++] = {line.At(t).x, line.At(t).y, 0, 0};
        }
        if (isClose)
            continue;
        KTwoPointD points;
        ASSERT_EQ(ContactOf(&points, line, arc), count > 0 ? 1 : 0) << "round " << round;
        if (count == 0)
            continue;
        ++contacts;
        const KTwoPointD& last = expected[count - 1];
        ASSERT_NEAR(std::hypot(points.x1 - expected[0].x1, points.y1 - expected[0].y1), 0, kMoved) << "round " << round;
        ASSERT_NEAR(std::hypot(points.x2 - last.x1, points.y2 - last.y1), 0, kMoved) << "round " << round;
    }
    EXPECT_GT(contacts, 500);
}

TEST(CKMathContact, OutlinesOfCircles)
{
    struct Case
    {
        const char* why;
        double c2x, r1, r2; ///< circles about (0, 0) and (c2x, 0)
        int contact;
        KTwoPointD points;
    };
    const KTwoPointD untouched = {7, 7, 7, 7};
    const double high = std::sqrt(0.75);
    const Case cases[] = {
        {"touching", 2, 1, 1, 1, {1, 0, 1, 0}},
        {"touching from inside", 1, 2, 1, 1, {2, 0, 2, 0}},
        {"crossing: the right point first", 1, 1, 1, 1, {0.5, -high, 0.5, high}},
        {"crossing, seen the other way", -1, 1, 1, 1, {-0.5, high, -0.5, -high}},
        {"one inside the other", 0.5, 2, 1, 0, untouched},
        {"apart", 2.001, 1, 1, 0, untouched},
        {"concentric", 0, 2, 1, 0, untouched},
        {"the same: the reference point", 0, 2, 2, 1, {30, 40, 30, 40}},
    };
    for (const Case& c : cases) {
        KTwoPointD points = untouched;
        EXPECT_EQ(CKMath::IsContactCircleOutlineToCircleOutline(&points, 0, 0, c.r1, c.c2x, 0, c.r2, 30, 40), c.contact)
            << c.why;
        ExpectPoints(points, c.points, c.why);
    }
    RandomElements random(332);
    for (int round = 0; round < 300; ++round) {
        // Touching in (r1, 0); the square root of a rounding below 0 would be no number.
        const double r1 = random.Real(0.1, 8), r2 = random.Real(0.1, 8);
        KTwoPointD p;
        ASSERT_EQ(CKMath::IsContactCircleOutlineToCircleOutline(&p, 0, 0, r1, r1 + r2, 0, r2, 0, 0), 1);
        ASSERT_NEAR(p.x1, r1, 1e-13);
        ASSERT_NEAR(p.y1, 0, 1e-6); // a root of 1e-14
        ASSERT_EQ(p.y2, -p.y1);
    }
    for (int round = 0; round < 2000; ++round) {
        const TestArc a = random.Arc(false), b = random.Arc(false);
        const double dx = b.o.x - a.o.x, dy = b.o.y - a.o.y, d = std::hypot(dx, dy);
        const double depth = Depth(d, std::fabs(a.r - b.r), a.r + b.r);
        if (std::fabs(depth) < 1e-6)
            continue;
        KTwoPointD p;
        ASSERT_EQ(CKMath::IsContactCircleOutlineToCircleOutline(&p, a.o.x, a.o.y, a.r, b.o.x, b.o.y, b.r, 0, 0),
                  depth > 0);
        if (depth < 0)
            continue;
        // The radii square to 64; near tangency the half chord's square is the difference of such squares.
        for (const KPointD& q : {KPointD{p.x1, p.y1}, KPointD{p.x2, p.y2}}) {
            ASSERT_NEAR(std::hypot(q.x - a.o.x, q.y - a.o.y), a.r, 1e-10);
            ASSERT_NEAR(std::hypot(q.x - b.o.x, q.y - b.o.y), b.r, 1e-10);
        }
        ASSERT_LE(dx * (p.y1 - a.o.y) - dy * (p.x1 - a.o.x), 0) << "the first lies on the right";
        ASSERT_GE(dx * (p.y2 - a.o.y) - dy * (p.x2 - a.o.x), 0);
    }
}

TEST(CKMathContact, ArcsMeetWhereTheirCirclesCrossOnBoth)
{
    RandomElements random(333);
    int contacts = 0;
    for (int round = 0; round < 6000; ++round) {
        const TestArc a = random.Arc(false), b = random.Arc(false);
        KTwoPointD p;
        const int cross = CKMath::IsContactCircleOutlineToCircleOutline(&p, a.o.x, a.o.y, a.r, b.o.x, b.o.y, b.r, 0, 0);
        KPointD point = {7, 7}, swapped;
        int contact = 0;
        KPointD expected = point;
        bool isClose = false;
        for (const KPointD& q : {KPointD{p.x2, p.y2}, KPointD{p.x1, p.y1}}) {
            const double depth = cross ? std::fmin(a.AngularDepth(q), b.AngularDepth(q)) : -1;
            isClose = isClose || std::fabs(depth) < 1e-5;
            if (depth > 0) {
                contact = 1;
                expected = q; // the first of the two is looked at last
            }
        }
        if (isClose)
            continue;
        ASSERT_EQ(ContactOf(&point, a, b), contact) << "round " << round;
        ASSERT_EQ(point.x, expected.x);
        ASSERT_EQ(point.y, expected.y);
        ASSERT_EQ(ContactOf(&swapped, b, a), contact) << "round " << round;
        contacts += contact;
    }
    EXPECT_GT(contacts, 300);

    // Two arcs of the unit circle that share one end.
    const TestArc right = {{0, 0}, {1, 0}, {0, 1}, 1, 1}, left = {{0, 0}, {0, 1}, {-1, 0}, 1, 1};
    KPointD point = {7, 7};
    EXPECT_EQ(ContactOf(&point, right, left), 0) << "arc 1's start does not lie on arc 2";
    EXPECT_EQ(point.x, 7);
    EXPECT_EQ(ContactOf(&point, left, right), 1);
    EXPECT_EQ(point.x, 0);
    EXPECT_EQ(point.y, 1);
}

TEST(CKMathContact, InfiniteLinesOfWholeNumbers)
{
    RandomElements random(334);
    for (int round = 0; round < 3000; ++round) {
        const TestSegment a = random.Segment(true), b = random.Segment(true);
        const double dx1 = a.b.x - a.a.x, dy1 = a.b.y - a.a.y, dx2 = b.b.x - b.a.x, dy2 = b.b.y - b.a.y;
        const double determinant = dx1 * dy2 - dy1 * dx2; // exact
        KPointD point = {7.5, 7.5};
        const int contact =
            CKMath::IsContactInfiniteLineToInfiniteLine(&point, a.a.x, a.a.y, a.b.x, a.b.y, b.a.x, b.a.y, b.b.x, b.b.y);
        if (a.Length() == 0 || b.Length() == 0 || (determinant == 0 && dx1 * dy1 == 0)) {
            ASSERT_EQ(contact, 0);
            ASSERT_EQ(point.x, 7.5);
        }
        // The rounded unit vector of another direction can leave parallel lines a trace of an angle.
        if (determinant == 0)
            continue;
        const double t = ((b.a.x - a.a.x) * dy2 - (b.a.y - a.a.y) * dx2) / determinant;
        ASSERT_EQ(contact, 1);
        // Up to 512 lengths of 23, each with a few roundings of heights that differ by at least 1/23.
        ASSERT_NEAR(point.x, a.At(t).x, 1e-9) << "round " << round;
        ASSERT_NEAR(point.y, a.At(t).y, 1e-9) << "round " << round;
    }
}

TEST(CKMathContact, ArcsAndDiscsAgainstRectangles)
{
    const auto gap = [](KPointD p) {
        return std::hypot(std::fmax(0, -Depth(p.x, -4, 3)), std::fmax(0, -Depth(p.y, -2, 5)));
    };
    RandomElements random(335);
    int meet = 0, chordOnly = 0;
    for (int round = 0; round < 1500; ++round) {
        const TestArc arc = random.Arc(false);
        const int disc = CKMath::IsRectangleIncludeCircle(-4, 3, -2, 5, arc.o.x, arc.o.y, arc.r);
        ASSERT_EQ(disc, gap(arc.o) <= arc.r) << "round " << round;
        double nearest = 1e9, chord = 1e9;
        for (int i = 0; i <= 400; ++i) {
            const double t = i / 400.0;
            nearest = std::fmin(nearest, gap(arc.At(t)));
            chord = std::fmin(chord, gap(TestSegment{arc.s, arc.e}.At(t)));
        }
        const int result = CKMath::IsIntersectArcToRectangle(arc.sweep, arc.o.x, arc.o.y, arc.s.x, arc.s.y, arc.e.x,
                                                             arc.e.y, arc.r, -4, 3, -2, 5);
        // The step is at most 2 pi 8 / 400.
        if (nearest == 0 || (chord == 0 && disc)) {
            ASSERT_EQ(result, 1) << "round " << round;
        } else if (nearest > 0.07 && (chord > 0.02 || !disc)) {
            ASSERT_EQ(result, 0) << "round " << round;
        }
        meet += nearest == 0;
        chordOnly += nearest > 0.07 && result;
    }
    EXPECT_GT(meet, 300);
    EXPECT_GT(chordOnly, 5) << "the chord alone counts too";
    EXPECT_EQ(CKMath::IsRectangleIncludeCircle(0, 9, 0, 9, 4, 4, 1), 1) << "the disc inside";
    EXPECT_EQ(CKMath::IsRectangleIncludeCircle(0, 1, 0, 1, 4, 4, 9), 1) << "the rectangle inside";
    EXPECT_EQ(CKMath::IsRectangleIncludeCircle(0, 1, 0, 1, 4, 0.5, 2.9), 0) << "beside it";
}
