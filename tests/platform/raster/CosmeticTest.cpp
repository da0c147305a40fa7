#include "RasterCanvas.h"

#include <cstdlib>
#include <set>

using namespace gdi;
using namespace raster_test;

namespace {

__extension__ typedef __int128 Wide;

/// The line's pixels by their definition: on every column or row of the longer axis the pixel nearest to the ideal
/// line, the smaller one of two that are equally near, the last point left out.
bool IsOnLine(DevicePoint from, DevicePoint to, int64_t x, int64_t y)
{
    Wide dx = Wide(to.x) - from.x, dy = Wide(to.y) - from.y, px = x - from.x, py = y - from.y;
    if ((dx < 0 ? -dx : dx) < (dy < 0 ? -dy : dy)) {
        std::swap(dx, dy);
        std::swap(px, py);
    }
    if (dx < 0) {
        dx = -dx;
        px = -px;
    }
    if (px < 0 || px >= dx)
        return false;
    const Wide twice = 2 * (py * dx - px * dy); // distance along the shorter axis, in units of 1 / (2 dx)
    return twice >= -dx && twice < dx;
}

void ExpectLine(DevicePoint from, DevicePoint to)
{
    Canvas canvas(40, 30);
    Rasterizer().StrokeCosmetic(Polyline({from, to}), nullptr, MakeInk(), canvas.Surface(), canvas.All());
    ExpectPixels(
        canvas, [&](int32_t x, int32_t y) { return IsOnLine(from, to, x, y); },
        std::to_string(from.x) + "," + std::to_string(from.y) + " " + std::to_string(to.x) + "," +
            std::to_string(to.y));
}

TEST(CosmeticLine, NearestPixelsWithoutTheLast)
{
    constexpr int32_t kLow = INT32_MIN, kHigh = INT32_MAX;
    const DevicePoint ends[][2] = {
        {{5, 5}, {5, 5}},   // length zero: nothing
        {{3, 4}, {20, 4}},  // level, and its reverse
        {{20, 4}, {3, 4}},  //
        {{7, 29}, {7, -5}}, // upright, leaves at the top
        {{0, 0}, {8, 4}},   // every second pixel is a tie
        {{8, 4}, {0, 0}},   //
        {{30, 2}, {2, 16}}, // ties the other way
        {{0, 0}, {29, 29}}, // a whole step each time
        {{kLow, kLow}, {kHigh, kHigh}},
        {{kHigh, kLow}, {kLow + 41, kHigh}},
        {{kLow, 10}, {kHigh, 11}}, // half a pixel in 2^32 columns
        {{kLow, kHigh}, {kHigh, kLow + 30}},
        {{20, kLow}, {21, kHigh}},
        {{kLow, 3}, {kLow, 9}},
    };
    for (const auto& end : ends)
        ExpectLine(end[0], end[1]);
    Random random(1);
    for (int i = 0; i < 400; ++i) {
        const int32_t reach = i % 4 == 0 ? 2000000000 : i % 4 == 1 ? 3000000 : 60;
        ExpectLine(random.Point(-reach, reach), random.Point(-20, 60));
    }
}

TEST(CosmeticLine, OutsideCostsNothing)
{
    // Would take minutes if a line were walked; 200,000 lines of 2^32 pixels.
    Canvas canvas(64, 64);
    Rasterizer rasterizer;
    DevicePath path;
    for (int i = 0; i < 100000; ++i) {
        path.Clear();
        path.MoveTo({INT32_MIN, INT32_MIN + i});
        path.LineTo({INT32_MAX, INT32_MAX - i});
        path.LineTo({INT32_MIN, 100});
        rasterizer.StrokeCosmetic(path, nullptr, MakeInk(), canvas.Surface(), canvas.All());
    }
    EXPECT_GT(canvas.Count(), 0);
}

TEST(CosmeticLine, DashesRunOnAndSurviveClipping)
{
    // By hand: 3 on, 2 off, along a hook of 7 + 5 + 6 pixels. The corner pixels are number 7, the third of its dash and
    // gap, and number 12, the third again.
    const uint8_t pattern[] = {3, 2, 0};
    Canvas canvas(12, 12);
    Rasterizer().StrokeCosmetic(Polyline({{1, 1}, {8, 1}, {8, 6}, {2, 6}}), pattern, MakeInk(), canvas.Surface(),
                                canvas.All());
    const char* const kOn = "111001110011100111"; // pixels 0 to 17
    for (int i = 0; i < 18; ++i) {
        const int x = i < 7 ? 1 + i : i < 12 ? 8 : 8 - (i - 12), y = i < 7 ? 1 : i < 12 ? 1 + i - 7 : 6;
        EXPECT_EQ(canvas.IsSet(x, y), kOn[i] == '1') << i;
    }

    const uint8_t odd[] = {4, 1, 2, 0}; // turns into 4 on, 1 off, 2 on, 4 off, 1 on, 2 off
    Random random(2);
    for (int i = 0; i < 60; ++i) {
        const DevicePath path = Polyline({random.Point(-50, 150), random.Point(0, 99), random.Point(-500, 600)});
        for (const uint8_t* dash : {pattern, odd}) {
            ExpectClippedIsCropped(
                [&](Rasterizer& rasterizer, const Surface& surface, const Box& clip) {
                    Ink ink = MakeInk();
                    ink.opaque = i % 2;
                    ink.backPixel = 5;
                    rasterizer.StrokeCosmetic(path, dash, ink, surface, clip);
                },
                {20, 31, 77, 64}, 100, "dashed");
        }
    }
}

struct CircleCase
{
    int64_t centerX2, centerY2, radius2;
};

TEST(CosmeticArc, CirclesAreSymmetricAndClosed)
{
    for (int64_t radius2 = 0; radius2 <= 90; ++radius2) {
        const int64_t center2 = 100 + radius2 % 2;
        Canvas canvas(101, 101);
        // Exclusive-or: a pixel drawn twice would be missing.
        Rasterizer().StrokeCosmetic(ArcPath(MakeArc(center2, center2, radius2, radius2, 3.14, 0)), nullptr,
                                    MakeInk(RasterOp::Xor), canvas.Surface(), canvas.All());
        const int32_t twice = static_cast<int32_t>(center2);
        for (int32_t y = 0; y < 101; ++y) {
            for (int32_t x = 0; x < 101; ++x) {
                if (!canvas.IsSet(x, y))
                    continue;
                ASSERT_TRUE(canvas.IsSet(y, x) && canvas.IsSet(twice - x, y) && canvas.IsSet(x, twice - y)) << radius2;
                const double distance = std::hypot(x - double(center2) / 2, y - double(center2) / 2);
                ASSERT_LE(std::fabs(distance - double(radius2) / 2), 0.75) << radius2; // half a diagonal, and a tie
                int neighbours = -1;
                for (int i = 0; i < 9; ++i)
                    neighbours += canvas.IsSet(x + i % 3 - 1, y + i / 3 - 1);
                ASSERT_GE(neighbours, radius2 > 1 ? 2 : 0) << radius2 << " at " << x << ", " << y; // no gap
            }
        }
        EXPECT_EQ(canvas.Count() > 0, true) << radius2;
    }
}

/// Walks over touching pixels from `at`; true when `goal` is reached.
bool IsConnected(const Canvas& canvas, DevicePoint at, DevicePoint goal)
{
    std::vector<DevicePoint> open = {at};
    std::set<std::pair<int32_t, int32_t>> seen = {{at.x, at.y}};
    while (!open.empty()) {
        at = open.back();
        open.pop_back();
        if (std::abs(at.x - goal.x) <= 1 && std::abs(at.y - goal.y) <= 1)
            return true;
        for (int i = 0; i < 9; ++i) {
            const DevicePoint next = {at.x + i % 3 - 1, at.y + i / 3 - 1};
            const bool inside =
                next.x >= 0 && next.y >= 0 && next.x < canvas.Surface().width && next.y < canvas.Surface().height;
            if (inside && canvas.IsSet(next.x, next.y) && seen.insert({next.x, next.y}).second)
                open.push_back(next);
        }
    }
    return false;
}

TEST(CosmeticArc, JoinsItsNeighboursAndKeepsToItsRadials)
{
    Random random(3);
    for (int i = 0; i < 1000; ++i) {
        const int32_t radiusX2 = random.Between(2, 150);
        const int32_t radiusY2 = i % 2 ? radiusX2 : random.Between(2, 150);
        const double sweep = random.Real(0.05, 6.2) * (i % 3 ? 1 : -1);
        const double from = random.Real(0, 6.28);
        const EllipseArc arc = MakeArc(160 + radiusX2 % 2, 160 + radiusY2 % 2, radiusX2, radiusY2, from, sweep);
        if (arc.start.x == arc.end.x && arc.start.y == arc.end.y)
            continue;
        Canvas canvas(161, 161);
        Rasterizer rasterizer;
        rasterizer.StrokeCosmetic(ArcPath(arc), nullptr, MakeInk(RasterOp::Xor), canvas.Surface(), canvas.All());
        EXPECT_TRUE(canvas.IsSet(arc.start.x, arc.start.y)) << i;
        EXPECT_FALSE(canvas.IsSet(arc.end.x, arc.end.y)) << i;
        ASSERT_TRUE(IsConnected(canvas, arc.start, arc.end))
            << i << " rx2 " << radiusX2 << " ry2 " << radiusY2 << " from " << from << " sweep " << sweep << " S "
            << arc.start.x << "," << arc.start.y << " E " << arc.end.x << "," << arc.end.y;
        // Forward and backward are the same pixels but for the ends.
        EllipseArc back = arc;
        std::swap(back.start, back.end);
        std::swap(back.startX, back.endX);
        std::swap(back.startY, back.endY);
        back.clockwise = !arc.clockwise;
        rasterizer.StrokeCosmetic(ArcPath(back), nullptr, MakeInk(RasterOp::Xor), canvas.Surface(), canvas.All());
        EXPECT_EQ(canvas.Count(), 2) << i;
    }
}

TEST(CosmeticArc, ClippedIsCropped)
{
    Random random(4);
    for (int i = 0; i < 200; ++i) {
        const int32_t radius2 = random.Between(0, i % 2 ? 3000 : 120);
        // The centre such that the circle passes near the middle.
        const double angle = random.Real(0, 6.28);
        const int64_t x2 = 100 + std::lround(radius2 * std::cos(angle)) / 2 * 2 + radius2 % 2;
        const int64_t y2 = 100 + std::lround(radius2 * std::sin(angle)) / 2 * 2 + radius2 % 2;
        const int32_t ry2 = i % 3 ? radius2 : radius2 + random.Between(0, 20) * 2;
        const EllipseArc arc = MakeArc(x2, y2, radius2, ry2, random.Real(0, 6.28), i % 5 ? random.Real(-6, 6) : 0);
        const DevicePath path = ArcPath(arc);
        ExpectClippedIsCropped(
            [&](Rasterizer& rasterizer, const Surface& surface, const Box& clip) {
                rasterizer.StrokeCosmetic(path, nullptr, MakeInk(RasterOp::Xor), surface, clip);
            },
            {33, 21, 70, 80}, 100, "arc " + std::to_string(i));
    }
}

TEST(CosmeticArc, HugeRadiusIsNearlyAStraightLine)
{
    // A circle of radius 2^31 - 1 with its top at row 10: over 64 columns it departs from the row by less than 10^-6.
    constexpr int64_t kRadius2 = 2 * int64_t(INT32_MAX);
    Canvas canvas(64, 64);
    Rasterizer().StrokeCosmetic(ArcPath(MakeArc(64, 20 + kRadius2, kRadius2, kRadius2, -M_PI / 2, 0)), nullptr,
                                MakeInk(RasterOp::Xor), canvas.Surface(), canvas.All());
    ExpectPixels(
        canvas, [](int32_t, int32_t y) { return y == 10; }, "top of a huge circle");
}

} // namespace
