#include "RasterCanvas.h"

using namespace gdi;
using namespace raster_test;

namespace {

__extension__ typedef __int128 Wide;

/// Whether a pixel is less than width / 2 away from the segment, by the definition and in integers. At exactly that
/// distance the direction from the segment decides: left counts, and straight up.
bool IsInCapsule(DevicePoint a, DevicePoint b, int64_t width, int64_t x, int64_t y)
{
    const Wide dx = Wide(b.x) - a.x, dy = Wide(b.y) - a.y, px = x - a.x, py = y - a.y;
    const Wide length2 = dx * dx + dy * dy;
    const Wide along = px * dx + py * dy;
    const auto decide = [width](Wide distance2, Wide scale, Wide outX, Wide outY) {
        const Wide difference = 4 * distance2 - Wide(width) * width * scale;
        return difference < 0 || (difference == 0 && (outX < 0 || (outX == 0 && outY < 0)));
    };
    if (along <= 0)
        return decide(px * px + py * py, 1, px, py);
    if (along >= length2)
        return decide((px - dx) * (px - dx) + (py - dy) * (py - dy), 1, px - dx, py - dy);
    const Wide cross = dx * py - dy * px;
    return decide(cross * cross, length2, -dy * cross, dx * cross);
}

void ExpectCapsule(DevicePoint a, DevicePoint b, int32_t width)
{
    Canvas canvas(48, 40);
    Rasterizer().StrokeWide(Polyline({a, b}), width, MakeInk(RasterOp::Xor), canvas.Surface(), canvas.All());
    ExpectPixels(
        canvas, [&](int32_t x, int32_t y) { return IsInCapsule(a, b, width, x, y); },
        std::to_string(a.x) + "," + std::to_string(a.y) + " " + std::to_string(b.x) + "," + std::to_string(b.y) +
            " width " + std::to_string(width));
}

TEST(WideSegment, ExactlyThePixelsWithinHalfTheWidth)
{
    struct Case
    {
        const char* why;
        DevicePoint a, b;
        int32_t width;
    };
    const Case cases[] = {
        {"an odd width is centred: rows 9 to 11", {5, 10}, {30, 10}, 3},
        {"an even width has one row more above: 8 to 11", {5, 10}, {30, 10}, 4},
        {"upright, one column more on the left", {20, 5}, {20, 30}, 4},
        {"the smallest wide one", {20, 5}, {9, 17}, 2},
        {"disc, even", {20, 20}, {20, 20}, 10},
        {"disc, odd", {20, 20}, {20, 20}, 11},
        {"3-4-5: borders through pixel centres", {10, 8}, {22, 24}, 10},
        {"3-4-5 downward left", {30, 8}, {18, 24}, 10},
        {"5-12-13 with a large pen", {10, 10}, {22, 15}, 26},
        {"diagonal", {5, 5}, {35, 35}, 7},
        {"one row down", {5, 20}, {40, 21}, 9},
        {"far beyond the clip on both sides", {-100000, -70000}, {90000, 60001}, 5},
        {"so wide that it has no table of half widths", {-3000, 20}, {-2990, 3000}, 6003},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.why);
        ExpectCapsule(c.a, c.b, c.width);
        ExpectCapsule(c.b, c.a, c.width);
    }
    Random random(11);
    for (int i = 0; i < 500; ++i)
        ExpectCapsule(random.Point(-10, 50), random.Point(-10, 50), random.Between(2, i % 2 ? 8 : 40));
    for (int i = 0; i < 300; ++i) { // the far end anywhere; products of 127 bits in the test's own arithmetic
        const int32_t reach = i % 2 ? 2000000000 : 100000;
        ExpectCapsule(random.Point(-30, 70), random.Point(-reach, reach), random.Between(2, 60));
    }
}

TEST(WideSegment, EdgesOfInt32)
{
    constexpr int32_t kLow = INT32_MIN, kHigh = INT32_MAX;
    Canvas canvas(48, 40);
    Rasterizer rasterizer;
    const auto stroke = [&](DevicePoint a, DevicePoint b, int32_t width) {
        rasterizer.StrokeWide(Polyline({a, b}), width, MakeInk(RasterOp::Xor), canvas.Surface(), canvas.All());
    };
    stroke({kLow, kLow}, {kHigh, kHigh}, 7);
    // The band of half width 3.5 around the main diagonal (the ends differ from it by nothing visible): |x - y| <= 4.
    ExpectPixels(
        canvas, [](int32_t x, int32_t y) { return std::abs(x - y) <= 4; }, "diagonal");
    stroke({kLow, kLow}, {kHigh, kHigh}, 7);
    EXPECT_EQ(canvas.Count(), 0);
    stroke({kLow, kHigh}, {kHigh, kHigh}, kHigh); // reaches up to row 2^30: nothing of it here
    stroke({kLow, kLow}, {kLow, kHigh}, kHigh);
    EXPECT_EQ(canvas.Count(), 0);
    stroke({kLow, 0}, {kHigh, 0}, kHigh);
    EXPECT_EQ(canvas.Count(), 48 * 40);
}

TEST(WideArc, RingBetweenTheRadialsWithRoundEnds)
{
    Random random(12);
    for (int i = 0; i < 300; ++i) {
        const int32_t radius2 = random.Between(0, 100);
        const int32_t width = random.Between(2, 24);
        const double from = random.Real(0, 6.28);
        const double sweep = i % 6 ? random.Real(0.1, 6.1) : 0;
        const int64_t center2 = 160 + radius2 % 2;
        const EllipseArc arc = MakeArc(center2, center2, radius2, radius2, from, sweep);
        Canvas canvas(161, 161);
        Rasterizer().StrokeWide(ArcPath(arc), width, MakeInk(RasterOp::Xor), canvas.Surface(), canvas.All());
        const auto distance = [&](int32_t x, int32_t y) {
            const double dx = x - double(center2) / 2, dy = y - double(center2) / 2;
            double turn = std::fmod(std::atan2(dy, dx) - from + 4 * M_PI, 2 * M_PI);
            const double toEnds =
                std::min(std::hypot(x - arc.start.x, y - arc.start.y), std::hypot(x - arc.end.x, y - arc.end.y));
            const double toRing = std::fabs(std::hypot(dx, dy) - double(radius2) / 2);
            if (sweep == 0)
                return toRing;
            return turn <= sweep ? std::min(toRing, toEnds) : toEnds;
        };
        for (int32_t y = 0; y < 161; ++y) {
            for (int32_t x = 0; x < 161; ++x) {
                // On the border itself and on the radials the doubles of this test can't tell.
                const double off = distance(x, y) - width / 2.0;
                const bool level = std::fabs(off) < 1e-9;
                if (!level) {
                    ASSERT_EQ(canvas.IsSet(x, y), off < 0) << i << ": " << x << ", " << y << " off by " << off;
                }
            }
        }
    }
}

TEST(WideStroke, ClippedIsCropped)
{
    Random random(13);
    for (int i = 0; i < 150; ++i) {
        DevicePath path = Polyline({random.Point(-200, 300), random.Point(-20, 120), random.Point(0, 100)}, i % 4 == 0);
        const int32_t radius2 = random.Between(1, 300);
        const EllipseArc arc = MakeArc(random.Between(0, 100) * 2 + radius2 % 2, 100 + radius2 % 2, radius2,
                                       i % 3 ? radius2 : 120 + radius2 % 2, random.Real(0, 6), random.Real(-6, 6));
        path.MoveTo(arc.start);
        path.ArcTo(arc);
        const int32_t width = random.Between(2, 30);
        ExpectClippedIsCropped(
            [&](Rasterizer& rasterizer, const Surface& surface, const Box& clip) {
                rasterizer.StrokeWide(path, width, MakeInk(RasterOp::Xor), surface, clip);
            },
            {13, 40, 81, 77}, 100, "stroke " + std::to_string(i));
    }
}

TEST(WideStroke, EveryPixelOnce)
{
    // Pieces that cross and overlap, closed figures, arcs: exclusive-or has to reach the same pixels as copying does,
    // and undo itself. Cosmetic strokes alike.
    Random random(14);
    for (int i = 0; i < 100; ++i) {
        DevicePath path = Polyline({random.Point(0, 100), random.Point(0, 100), random.Point(0, 100)}, i % 2);
        if (i % 5 > 0) { // else only the two or three sides
            const EllipseArc arc = MakeArc(100, 90, 60, i % 3 ? 60 : 80, random.Real(0, 6), random.Real(-6, 6));
            path.LineTo(random.Point(0, 100));
            path.LineTo(arc.start);
            path.ArcTo(arc);
            path.LineTo(random.Point(0, 100));
        }
        const int32_t width = i % 4 ? random.Between(2, 20) : 1;
        const uint8_t dash[] = {5, 3, 0};
        Canvas copied(100, 100), toggled(100, 100), before(100, 100);
        Rasterizer rasterizer;
        const auto stroke = [&](Canvas& canvas, RasterOp op) {
            if (i % 8 == 0)
                rasterizer.StrokeCosmetic(path, dash, MakeInk(op), canvas.Surface(), canvas.All());
            else
                rasterizer.StrokeWide(path, width, MakeInk(op), canvas.Surface(), canvas.All());
        };
        stroke(copied, RasterOp::Copy);
        stroke(toggled, RasterOp::Xor);
        ASSERT_EQ(copied.Bits(), toggled.Bits()) << i;
        stroke(toggled, RasterOp::Xor);
        ASSERT_EQ(toggled.Bits(), before.Bits()) << i;
    }
}

} // namespace
