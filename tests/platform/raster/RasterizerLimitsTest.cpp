#include "AllocationCount.h"
#include "RasterCanvas.h"

#include <cmath>
#include <ctime>
#include <limits>

using namespace gdi;
using namespace raster_test;

namespace {

/// One of everything: lines, arcs, several figures, dashes, both fills, under copy and exclusive-or.
void DrawEverything(Rasterizer& rasterizer, DevicePath& path, const Canvas& canvas)
{
    const uint8_t dash[] = {6, 2, 0};
    for (const RasterOp op : {RasterOp::Copy, RasterOp::Xor}) {
        for (int shape = 0; shape < 4; ++shape) {
            path.Clear();
            path.MoveTo({10, 20});
            path.LineTo({90, 60});
            if (shape > 0) {
                path.LineTo({50, 90});
                const EllipseArc arc = MakeArc(100, 100, 60, shape == 2 ? 90 : 60, 1, 3);
                path.LineTo(arc.start);
                path.ArcTo(arc);
                path.Close();
            }
            rasterizer.StrokeCosmetic(path, nullptr, MakeInk(op), canvas.Surface(), canvas.All());
            rasterizer.StrokeCosmetic(path, dash, MakeInk(op), canvas.Surface(), canvas.All());
            rasterizer.StrokeWide(path, 5 + shape, MakeInk(op), canvas.Surface(), canvas.All());
            rasterizer.Fill(path, FillRule::Winding, MakeInk(op), canvas.Surface(), canvas.All());
        }
    }
}

TEST(RasterizerLimits, NothingIsAllocatedOnceWarm)
{
    Canvas canvas(100, 100);
    Rasterizer rasterizer;
    DevicePath path;
    DrawEverything(rasterizer, path, canvas);
    const int before = g_allocationCount;
    DrawEverything(rasterizer, path, canvas);
    EXPECT_EQ(g_allocationCount, before);
    EXPECT_GT(before, 0) << "nothing was counted";
}

TEST(RasterizerLimits, HugeAndSenselessArcs)
{
    // Nothing to expect but an end soon and no undefined value on the way; sanitizers look on.
    constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    constexpr int64_t kHuge = int64_t(1) << 32;
    const double directions[] = {0, 1, -1, 1e300, -1e-300, kInfinity, kNaN};
    const int64_t radii[] = {0, 1, 7, kHuge - 1, kHuge};
    const uint8_t dash[] = {200, 3, 0};
    Canvas canvas(64, 48);
    Rasterizer rasterizer;
    Random random(41);
    for (int i = 0; i < 300; ++i) {
        const auto direction = [&] { return directions[random.Between(0, 6)]; };
        EllipseArc arc = {};
        arc.centerX2 = i % 3 ? 60 : random.Between(-1, 1) * kHuge;
        arc.centerY2 = i % 2 ? 40 : random.Between(-1, 1) * kHuge;
        arc.radiusX2 = radii[random.Between(0, 4)];
        arc.radiusY2 = i % 4 ? arc.radiusX2 : radii[random.Between(0, 4)];
        arc.startX = direction();
        arc.startY = direction();
        arc.endX = direction();
        arc.endY = direction();
        arc.clockwise = i % 2;
        arc.whole = i % 5 == 0;
        arc.start = random.Point(INT32_MIN, INT32_MAX);
        arc.end = arc.whole ? arc.start : random.Point(-100, 100);
        const DevicePath path = ArcPath(arc);
        rasterizer.StrokeCosmetic(path, nullptr, MakeInk(RasterOp::Xor), canvas.Surface(), canvas.All());
        rasterizer.Fill(path, FillRule::Winding, MakeInk(), canvas.Surface(), canvas.All());
        rasterizer.StrokeCosmetic(path, i < 20 ? dash : nullptr, MakeInk(), canvas.Surface(), canvas.All());
        rasterizer.StrokeWide(path, i % 2 ? 3 : INT32_MAX, MakeInk(RasterOp::Not), canvas.Surface(), canvas.All());
    }
    EXPECT_GT(canvas.Count(), 0);
}

/// Distance of a point from an ellipse around (cx, cy), by sampling about the nearest of coarse samples.
double DistanceFromEllipse(double x, double y, double cx, double cy, double rx, double ry)
{
    const auto distance = [&](double angle) {
        return std::hypot(cx + rx * std::cos(angle) - x, cy + ry * std::sin(angle) - y);
    };
    double best = 0, step = 0.05;
    for (double angle = 0; angle < 6.3; angle += step)
        best = distance(angle) < distance(best) ? angle : best;
    for (; step > 1e-9; step /= 2) {
        const double side = distance(best - step) < distance(best + step) ? best - step : best + step;
        best = distance(side) < distance(best) ? side : best;
    }
    return distance(best);
}

TEST(RasterizerLimits, WideStrokesOfLargeEllipsesAreAsTheDistanceSays)
{
    // Outlines that cross the canvas: the inner border, the outer border, a thin stroke, and one under which the canvas
    // lies as a whole.
    const struct
    {
        int64_t centerX2, centerY2, radiusX2, radiusY2;
        int32_t width;
    } cases[] = {{80000, 100, 60000, 44000, 20000}, {90000, 60, 80000, 3000, 10000},  {40060, 60, 40000, 30000, 9},
                 {80, 200060, 5000, 200000, 5},     {60000, 64, 60000, 50000, 12000}, {-70000, 80, 60000, 20, 9990},
                 {64, 64, 20000, 20002, 20004}};
    for (const auto& c : cases) {
        Canvas canvas(64, 48);
        Rasterizer rasterizer;
        const DevicePath path = ArcPath(MakeArc(c.centerX2, c.centerY2, c.radiusX2, c.radiusY2, 0.3, 0));
        rasterizer.StrokeWide(path, c.width, MakeInk(RasterOp::Xor), canvas.Surface(), canvas.All());
        for (int32_t y = 0; y < 48; y += 3) {
            for (int32_t x = 0; x < 64; x += 3) {
                const double distance = DistanceFromEllipse(x, y, double(c.centerX2) / 2, double(c.centerY2) / 2,
                                                            double(c.radiusX2) / 2, double(c.radiusY2) / 2);
                // Chords keep within an eighth of a pixel and their ends are rounded by up to 0.71.
                if (std::fabs(distance - c.width * 0.5) < 0.9)
                    continue;
                ASSERT_EQ(canvas.IsSet(x, y), distance < c.width * 0.5) << c.width << " at " << x << ", " << y;
            }
        }
    }
}

TEST(RasterizerLimits, EllipsesAndPensOfAnySizeTakeLittleTime)
{
    constexpr int64_t kHuge = int64_t(1) << 32;
    Canvas canvas(640, 480);
    Rasterizer rasterizer;
    const clock_t start = clock();
    for (const int32_t width : {3, 1000, 100000, 2000000000}) {
        // Whole ellipses whose curve, inner border or outer border runs through the canvas, and those that have nearly
        // the pen's own curvature, so that the borders of all chords meet there.
        for (const int64_t past : {0, -width, width}) {
            for (const int64_t radiusY2 : {int64_t(2000), int64_t(100000), kHuge - 10}) {
                const DevicePath path = ArcPath(MakeArc(kHuge + past + 600, 500, kHuge, radiusY2, 1, 0));
                rasterizer.StrokeWide(path, width, MakeInk(RasterOp::Xor), canvas.Surface(), canvas.All());
            }
        }
        const DevicePath near = ArcPath(MakeArc(600, 500, width, width - 1, 1, 2));
        rasterizer.StrokeWide(near, width, MakeInk(RasterOp::Xor), canvas.Surface(), canvas.All());
    }
    // Walking all of their chords takes a minute.
    EXPECT_LT(double(clock() - start) / CLOCKS_PER_SEC, 2.0);
    EXPECT_GT(canvas.Count(), 0);
}

} // namespace
