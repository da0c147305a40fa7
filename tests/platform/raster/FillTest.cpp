#include "RasterCanvas.h"

#include <ctime>

using namespace gdi;
using namespace raster_test;

namespace {

/// Winding number of a pixel's centre: every edge that covers the row (upper end inside, lower outside) and lies on the
/// pixel or left of it counts, in integers.
int WindingAt(const std::vector<DevicePoint>& points, int64_t x, int64_t y)
{
    int winding = 0;
    for (size_t i = 0; i < points.size(); ++i) {
        DevicePoint a = points[i];
        DevicePoint b = points[(i + 1) % points.size()];
        const int direction = a.y < b.y ? 1 : -1;
        if (direction < 0)
            std::swap(a, b);
        if (y < a.y || y >= b.y)
            continue;
        const int64_t rise = int64_t(b.y) - a.y;
        if ((x - a.x) * rise >= (y - a.y) * (int64_t(b.x) - a.x))
            winding += direction;
    }
    return winding;
}

void ExpectPolygon(const std::vector<DevicePoint>& points, FillRule rule)
{
    Canvas canvas(60, 50);
    Rasterizer().Fill(Polyline(points), rule, MakeInk(RasterOp::Xor), canvas.Surface(), {0, 0, 60, 50});
    ExpectPixels(
        canvas,
        [&](int32_t x, int32_t y) {
            const int winding = WindingAt(points, x, y);
            return rule == FillRule::Alternate ? winding % 2 != 0 : winding != 0;
        },
        "polygon of " + std::to_string(points.size()));
}

TEST(Fill, PixelsWhoseCentresAreInside)
{
    const std::vector<std::vector<DevicePoint>> polygons = {
        {{0, 0}, {10, 0}, {10, 10}, {0, 10}},             // covers 0 to 9
        {{5, 5}},                                         // nothing at all
        {{5, 5}, {30, 20}},                               // there and back
        {{5, 5}, {30, 5}, {30, 20}, {30, 5}},             // a fold without area
        {{30, 2}, {50, 45}, {2, 17}, {58, 17}, {10, 45}}, // five-pointed star: its middle tells the rules apart
        {{-1000000000, 25}, {30, -1000000000}, {1000000000, 30}, {20, 1000000000}}, // products of 61 bits
        {{-50, -50}, {200, -40}, {190, 300}, {-60, 280}},                           // covers everything
    };
    Random random(21);
    for (const FillRule rule : {FillRule::Alternate, FillRule::Winding}) {
        for (const auto& points : polygons)
            ExpectPolygon(points, rule);
        for (int i = 0; i < 200; ++i) {
            std::vector<DevicePoint> points;
            for (int corners = random.Between(3, i % 10 ? 9 : 300); corners > 0; --corners)
                points.push_back(random.Point(-30, i % 2 ? 60 : 200));
            ExpectPolygon(points, rule);
        }
    }
}

TEST(Fill, TrianglesThatMeetInAPointCoverEveryPixelOnce)
{
    Random random(22);
    Rasterizer rasterizer;
    for (int i = 0; i < 300; ++i) {
        Canvas canvas(50, 50);
        const DevicePoint corners[] = {{0, 0}, {50, 0}, {50, 50}, {0, 50}};
        const DevicePoint middle = random.Point(0, 50);
        for (int k = 0; k < 4; ++k)
            rasterizer.Fill(Polyline({corners[k], corners[(k + 1) % 4], middle}), FillRule::Alternate,
                            MakeInk(RasterOp::Xor), canvas.Surface(), canvas.All());
        ASSERT_EQ(canvas.Count(), 50 * 50) << middle.x << ", " << middle.y;
    }
}

/// Adds a figure without area far away, which the ways for single shapes do not know.
DevicePath Generalised(DevicePath path)
{
    path.MoveTo({200, 200});
    return path;
}

TEST(Fill, SingleShapesAreFilledAsInGeneral)
{
    Random random(23);
    Rasterizer rasterizer;
    for (int i = 0; i < 300; ++i) {
        DevicePath path;
        const int32_t radius2 = random.Between(0, 90);
        const int64_t x2 = random.Between(0, 60) * 2 + radius2 % 2;
        if (i % 2) {
            EllipseArc circle = MakeArc(x2, 50 + radius2 % 2, radius2, radius2, random.Real(0, 6), 0);
            if (i % 8 > 4) { // radials straight up and down, exactly
                const int32_t side = i % 16 > 8 ? 1 : -1;
                circle.startX = circle.endX = 0;
                circle.startY = circle.endY = side;
                circle.start.x = circle.end.x = static_cast<int32_t>(x2 / 2);
                circle.start.y = circle.end.y = (50 + radius2 % 2 + side * radius2) / 2;
            }
            path = ArcPath(circle);
        } else {
            const DevicePoint a = random.Point(-10, 60), b = random.Point(-10, 60);
            path = i % 4 ? Polyline({a, {b.x, a.y}, b, {a.x, b.y}}, true) : Polyline({a, {a.x, b.y}, b, {b.x, a.y}, a});
        }
        Canvas single(60, 50), general(60, 50);
        rasterizer.Fill(path, FillRule::Alternate, MakeInk(), single.Surface(), {3, 0, 57, 50});
        rasterizer.Fill(Generalised(path), FillRule::Alternate, MakeInk(), general.Surface(), {3, 0, 57, 50});
        ASSERT_EQ(single.Bits(), general.Bits()) << i;
        if (i % 2) {
            ExpectPixels(
                single,
                [&](int32_t x, int32_t y) { // strictly inside, or on the left half of the circle, or its topmost point
                    const int64_t dx = 2 * x - x2, dy = 2 * y - 50 - radius2 % 2;
                    const int64_t off = dx * dx + dy * dy - int64_t(radius2) * radius2;
                    return x >= 3 && x < 57 && (off < 0 || (off == 0 && (dx < 0 || (dx == 0 && dy < 0))));
                },
                "disc " + std::to_string(radius2));
        }
    }
}

TEST(Fill, ArcsInsideFigures)
{
    // A pie of any angle: the pixels of the disc between two radials, up to a pixel at the sides, since the corners on
    // the circle are rounded.
    Random random(24);
    for (int i = 0; i < 200; ++i) {
        const int32_t rx = random.Between(10, 45), ry = i % 2 ? rx : random.Between(10, 45);
        const double from = i % 5 ? random.Real(0, 6.28) : M_PI / 2 * (i / 5 % 4);
        const double sweep = i % 7 ? random.Real(-6.2, 6.2) : M_PI;
        const EllipseArc arc = MakeArc(100, 100, 2 * rx, 2 * ry, from, sweep);
        DevicePath path;
        path.MoveTo({50, 50});
        path.LineTo(arc.start);
        path.ArcTo(arc);
        Canvas canvas(100, 100);
        Rasterizer().Fill(path, FillRule::Winding, MakeInk(RasterOp::Xor), canvas.Surface(), canvas.All());
        const auto toRadial = [](double x, double y, double rx, double ry) { // distance from a ray
            const double length = std::hypot(rx, ry);
            return x * rx + y * ry < 0 ? std::hypot(x, y) : std::fabs(x * ry - y * rx) / length;
        };
        for (int32_t y = 0; y < 100; ++y) {
            for (int32_t x = 0; x < 100; ++x) {
                const double dx = x - 50, dy = y - 50;
                if (toRadial(dx, dy, arc.startX, arc.startY) < 1.5 || toRadial(dx, dy, arc.endX, arc.endY) < 1.5)
                    continue;
                const double off = dx * dx / (rx * rx) + dy * dy / (ry * ry) - 1;
                if (std::fabs(off) < 1e-9)
                    continue;
                const double turn = std::fmod((std::atan2(dy, dx) - from) * (sweep < 0 ? -1 : 1) + 8 * M_PI, 2 * M_PI);
                const bool between = turn < std::fabs(sweep);
                if (between && (y == arc.start.y || y == arc.end.y))
                    continue; // beside a corner that was rounded by up to half a row to or from the flat of the ellipse
                const bool inside = between && off < 0;
                ASSERT_EQ(canvas.IsSet(x, y), inside)
                    << i << ": " << x << ", " << y << " r " << rx << " from " << from << " sweep " << sweep;
            }
        }
    }
}

TEST(Fill, ClippedIsCropped)
{
    Random random(25);
    for (int i = 0; i < 100; ++i) {
        DevicePath path = Polyline({random.Point(-300, 400), random.Point(-20, 120), random.Point(-50, 150)});
        const int32_t radius2 = random.Between(1, 200);
        const EllipseArc arc = MakeArc(random.Between(0, 100) * 2 + radius2 % 2, 100 + radius2 % 2, radius2, radius2,
                                       random.Real(0, 6), random.Real(-6, 6));
        path.LineTo(arc.start);
        path.ArcTo(arc);
        ExpectClippedIsCropped(
            [&](Rasterizer& rasterizer, const Surface& surface, const Box& clip) {
                rasterizer.Fill(path, i % 2 ? FillRule::Winding : FillRule::Alternate, MakeInk(RasterOp::Xor), surface,
                                clip);
            },
            {30, 41, 62, 70}, 100, "fill " + std::to_string(i));
    }
}

TEST(Fill, ManyEdgesInFewRows)
{
    // A comb whose 200,000 teeth all start in one row, out of order. Quadratic sorting would move 4 * 10^10 edges,
    // which takes most of a minute; the limit is a hundred times what it takes.
    constexpr int kTeeth = 200000;
    std::vector<DevicePoint> comb;
    for (int64_t i = 0; i < kTeeth; ++i) {
        const int32_t x = static_cast<int32_t>(i * 7919 % kTeeth / 500);
        comb.push_back({x, 0});
        comb.push_back({x + 1, 10});
    }
    Canvas canvas(400, 10);
    const DevicePath path = Polyline(comb);
    const std::clock_t start = std::clock(); // processor time: the machine may be busy
    Rasterizer().Fill(path, FillRule::Alternate, MakeInk(), canvas.Surface(), canvas.All());
    EXPECT_LT(std::clock() - start, 10 * CLOCKS_PER_SEC);
    for (int32_t y = 0; y < 10; y += 9) {
        for (int32_t x = 0; x < 400; x += 37)
            EXPECT_EQ(canvas.IsSet(x, y), WindingAt(comb, x, y) % 2 != 0) << x << ", " << y;
    }
}

} // namespace
