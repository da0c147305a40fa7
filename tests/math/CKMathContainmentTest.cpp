#include "math/CKMath.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

/// The remainder that is never negative.
int Modulo(int value, int n)
{
    return (value % n + n) % n;
}

/// Whole-number points at 45 degrees x k from (3, -2), at different distances.
KPointD Compass(int k)
{
    const int dx[] = {2, 1, 0, -3, -2, -1, 0, 4};
    const int dy[] = {0, 1, 5, 3, 0, -1, -1, -4};
    return {3.0 + dx[k], -2.0 + dy[k]};
}

} // namespace

TEST(CKMathContainment, AngularRangesAreWaysRoundACircle)
{
    for (int start = -360; start <= 360; start += 45) {
        for (int end = -360; end <= 360; end += 30) {
            for (int angle = -720; angle <= 720; angle += 15) {
                // By how far the way from the start is, in whole degrees.
                const int toAngle = Modulo(angle - start, 360), toEnd = Modulo(end - start, 360);
                const int left = toEnd == 0 || toAngle <= toEnd;
                const int right = toEnd == 0 || toAngle >= toEnd || toAngle == 0;
                const float s = float(start), e = float(end), a = float(angle);
                ASSERT_EQ(CKMath::IsAngleInArc(s, e, a, 1), left) << start << " to " << end << ": " << angle;
                ASSERT_EQ(CKMath::IsAngleInArc(s, e, a, 0), right) << start << " to " << end << ": " << angle;
            }
        }
    }
}

TEST(CKMathContainment, PointsByTheirPolarAngle)
{
    const double cx = 3, cy = -2;
    for (int i = 0; i < 8 * 8 * 8; ++i) {
        const int start = i / 64, end = i / 8 % 8, point = i % 8;
        const KPointD s = Compass(start), e = Compass(end), p = Compass(point);
        for (int sweep : {0, 1}) {
            const int toPoint = Modulo(sweep ? point - start : start - point, 8);
            const int toEnd = Modulo(sweep ? end - start : start - end, 8);
            const int between = toPoint <= toEnd;
            ASSERT_EQ(CKMath::IsPointInArcAngle(p.x, p.y, cx, cy, s.x, s.y, e.x, e.y, sweep), between || toEnd == 0)
                << start << " to " << end << ": " << point;
            const int interior = between && toEnd != 0;
            ASSERT_EQ(CKMath::IsPointInteriorAngleOfArc(cx, cy, s.x, s.y, e.x, e.y, sweep, p.x, p.y), interior)
                << start << " to " << end << ": " << point;
            const int near = std::hypot(p.x - cx, p.y - cy) <= std::hypot(s.x - cx, s.y - cy);
            ASSERT_EQ(CKMath::IsPointInIcecreamHeadOfArc(cx, cy, s.x, s.y, e.x, e.y, sweep, p.x, p.y),
                      interior && near);
        }
    }
    EXPECT_EQ(CKMath::IsPointInArcAngle(0, 0, 0, 0, 0, -1, 0, 1, 1), 1) << "the centre has the angle 0";
    EXPECT_EQ(CKMath::IsPointInArcAngle(0, 0, 0, 0, 0, -1, 0, 1, 0), 0);
    EXPECT_EQ(CKMath::IsPointInArcAngle(1, 1e-9, 0, 0, 1, 0, 0, -1, 0), 0) << "1e-9 left of a clockwise start";
    EXPECT_EQ(CKMath::IsPointInArcAngle(-1, 1e-9, 0, 0, -1, 0, 0, 1, 1), 1) << "equal at float precision";
}

TEST(CKMathContainment, CirclesAndArcsWithWidth)
{
    EXPECT_EQ(CKMath::IsInCircle(3, 4, 0, 0, 5), 1);
    EXPECT_EQ(CKMath::IsInCircle(3, 4, 0, 0, 4.999), 0);
    EXPECT_EQ(CKMath::IsOnCircle(3, 4, 0, 0, 5.25, 0.5), 1) << "the difference is half the width";
    EXPECT_EQ(CKMath::IsOnCircle(3, 4, 0, 0, 5.25, 0.49), 0);
    EXPECT_EQ(CKMath::IsOnCircle(3, 4, 0, 0, 4.75, 0.5), 1);

    struct Case
    {
        const char* why;
        double px, py, ex, ey, width;
        int sweep, on;
    };
    // About (0, 0) from (5, 0).
    const Case cases[] = {
        {"on the quarter circle", 3, 4, 0, 5, 0, 1, 1},
        {"on the other three quarters", 3, 4, 0, 5, 0, 0, 0},
        {"outside by half the width", 4.5, 6, 0, 5, 5, 1, 1},
        {"outside by more", 4.5, 6, 0, 5, 4.99, 1, 0},
        {"the end has another radius", 3, 4, 0, 9, 0, 1, 1},
        {"a full circle", -3, -4, 5, 0, 0, 1, 1},
        {"a full circle, beside it", -3, -4.1, 5, 0, 0.1, 1, 0},
        {"no full circle: the ends share y", 3, -4, -5, 0, 0, 1, 0},
        {"no full circle: the ends share x", 3, -4, 5, 9, 0, 1, 0},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(CKMath::IsOnArc(c.px, c.py, 5, 0, c.ex, c.ey, 0, 0, c.width, c.sweep), c.on) << c.why;
        // Mirrored, the arc holds the mirrored point. Turned by 180 its radius keeps some 1e-14.
        EXPECT_EQ(CKMath::IsOnArc(-c.px, c.py, 5, 0, c.ex, c.ey, 0, 0, c.width, c.sweep, 0, 1), c.on) << c.why;
        EXPECT_EQ(CKMath::IsOnArc(-c.px, -c.py, 5, 0, c.ex, c.ey, 0, 0, c.width + 1e-9, c.sweep, 180, 0), c.on)
            << c.why;
    }
}

TEST(CKMathContainment, SegmentsOfDiscs)
{
    struct Case
    {
        const char* why;
        double px, py;
        int left, right; ///< for the direction codes -1 and +1 of the arc from (1, 0) to (0, 1)
    };
    const Case cases[] = {
        {"beyond the chord", 0.6, 0.6, 1, 0}, {"on the centre's side", 0.1, 0.1, 0, 1},
        {"on the chord", 0.5, 0.5, 1, 1},     {"outside the disc", 0.8, 0.8, 0, 0},
        {"on the circle", 0.6, 0.8, 1, 0},    {"on the far side of the circle", -1, 0, 0, 1},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(CKMath::IsInArc(c.px, c.py, -1, 1, 0, 0, 1, 0, 0, 1), c.left) << c.why;
        EXPECT_EQ(CKMath::IsInArc(c.px, c.py, 1, 1, 0, 0, 1, 0, 0, 1), c.right) << c.why;
        EXPECT_EQ(CKMath::IsInArc(c.px, c.py, 1, 1, 0, 0, 0, 1, 1, 0), c.left) << c.why << ", walked backward";
    }
}
