#include "AllocationCount.h"
#include "RasterCanvas.h"

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
        const bool flattened = arc.radiusX2 != arc.radiusY2 && arc.radiusX2 + arc.radiusY2 > kHuge;
        rasterizer.StrokeCosmetic(path, nullptr, MakeInk(RasterOp::Xor), canvas.Surface(), canvas.All());
        rasterizer.Fill(path, FillRule::Winding, MakeInk(), canvas.Surface(), canvas.All());
        if (flattened && i > 30)
            continue; // tens of thousands of chords each
        rasterizer.StrokeCosmetic(path, i < 20 ? dash : nullptr, MakeInk(), canvas.Surface(), canvas.All());
        rasterizer.StrokeWide(path, i % 2 ? 3 : INT32_MAX, MakeInk(RasterOp::Not), canvas.Surface(), canvas.All());
    }
    EXPECT_GT(canvas.Count(), 0);
}

} // namespace
