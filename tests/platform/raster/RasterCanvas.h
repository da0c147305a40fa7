/// A surface with its own pixels, paths made in one line, and seeded numbers: what all tests of the raster core share.
#pragma once

#include "gdi/raster/Rasterizer.h"
#include "gdi/raster/RasterMath.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <random>
#include <vector>

namespace raster_test {

constexpr uint32_t kInkPixel = 0x00C0FFEE;

/// Bits in a vector that is only as long as the surface needs, so that a sanitizer sees every stray write.
class Canvas
{
public:
    Canvas(int32_t width, int32_t height, int bitsPerPixel = 32, bool bottomUp = false)
        : m_stride(((width * bitsPerPixel + 31) / 32) * 4),
          m_bits(size_t(m_stride) * size_t(height)), m_surface{m_bits.data(), m_stride, width, height, bitsPerPixel}
    {
        if (bottomUp)
            m_surface = {m_bits.data() + m_stride * (height - 1), -m_stride, width, height, bitsPerPixel};
    }
    const gdi::Surface& Surface() const { return m_surface; }
    gdi::Box All() const { return {0, 0, m_surface.width, m_surface.height}; }
    std::vector<uint8_t>& Bits() { return m_bits; }

    uint32_t Pixel(int32_t x, int32_t y) const
    {
        const uint8_t* const row = m_surface.bits + y * m_surface.stride;
        switch (m_surface.bitsPerPixel) {
        case 1:
            return row[x / 8] >> (7 - x % 8) & 1;
        case 24:
            return row[3 * x] | uint32_t(row[3 * x + 1]) << 8 | uint32_t(row[3 * x + 2]) << 16;
        default:
            return row[4 * x] | uint32_t(row[4 * x + 1]) << 8 | uint32_t(row[4 * x + 2]) << 16 |
                   uint32_t(row[4 * x + 3]) << 24;
        }
    }
    bool IsSet(int32_t x, int32_t y) const { return Pixel(x, y) != 0; }
    int Count() const
    {
        int count = 0;
        for (int32_t y = 0; y < m_surface.height; ++y) {
            for (int32_t x = 0; x < m_surface.width; ++x)
                count += IsSet(x, y);
        }
        return count;
    }

private:
    ptrdiff_t m_stride;
    std::vector<uint8_t> m_bits;
    gdi::Surface m_surface;
};

inline gdi::Ink MakeInk(gdi::RasterOp op = gdi::RasterOp::Copy, uint32_t pixel = kInkPixel)
{
    return {pixel, op, nullptr, false, 0};
}

inline gdi::DevicePath Polyline(const std::vector<gdi::DevicePoint>& points, bool close = false)
{
    gdi::DevicePath path;
    path.MoveTo(points[0]);
    for (size_t i = 1; i < points.size(); ++i)
        path.LineTo(points[i]);
    if (close)
        path.Close();
    return path;
}

/// An arc around (x2, y2) / 2 from one angle to another, in radians, clockwise on the screen when they grow; its ends
/// are rounded as a device context rounds them. A sweep of 0 is the whole ellipse.
inline gdi::EllipseArc MakeArc(int64_t x2, int64_t y2, int64_t radiusX2, int64_t radiusY2, double from, double sweep)
{
    const auto point = [&](double dx, double dy) {
        const double rx = double(radiusX2) / 2;
        const double ry = double(radiusY2) / 2;
        const double scale = rx > 0 && ry > 0 ? 1 / std::hypot(dx / rx, dy / ry) : 0;
        const auto pixel = [](double v) { return gdi::SaturateToInt32(gdi::FloorToInt64(v + 0.5)); };
        return gdi::DevicePoint{pixel(double(x2) / 2 + dx * scale), pixel(double(y2) / 2 + dy * scale)};
    };
    gdi::EllipseArc arc = {x2, y2, radiusX2, radiusY2, 0, 0, 0, 0, sweep >= 0, {0, 0}, {0, 0}, sweep == 0};
    arc.startX = std::cos(from) * 1000;
    arc.startY = std::sin(from) * 1000;
    arc.endX = std::cos(from + sweep) * 1000;
    arc.endY = std::sin(from + sweep) * 1000;
    arc.start = point(arc.startX, arc.startY);
    arc.end = arc.whole ? arc.start : point(arc.endX, arc.endY);
    return arc;
}

inline gdi::DevicePath ArcPath(const gdi::EllipseArc& arc)
{
    gdi::DevicePath path;
    path.MoveTo(arc.start);
    path.ArcTo(arc);
    return path;
}

class Random
{
public:
    explicit Random(unsigned seed) : m_engine(seed), m_trace(__FILE__, __LINE__, "seed " + std::to_string(seed)) {}
    int32_t Between(int32_t low, int32_t high) { return std::uniform_int_distribution<int32_t>(low, high)(m_engine); }
    double Real(double low, double high) { return std::uniform_real_distribution<double>(low, high)(m_engine); }
    gdi::DevicePoint Point(int32_t low, int32_t high)
    {
        const int32_t x = Between(low, high);
        return {x, Between(low, high)};
    }

private:
    std::mt19937 m_engine;
    testing::ScopedTrace m_trace;
};

/// Calls `differ(x, y)` for every pixel and fails at the first where it says so.
template <class Differ>
void ExpectPixels(const Canvas& canvas, Differ expected, const std::string& what)
{
    for (int32_t y = 0; y < canvas.Surface().height; ++y) {
        for (int32_t x = 0; x < canvas.Surface().width; ++x) {
            ASSERT_EQ(canvas.IsSet(x, y), expected(x, y)) << what << " at " << x << ", " << y;
        }
    }
}

/// Draws with `draw(rasterizer, canvas, clip)` once under a clip and once into everything, and compares: the same
/// pixels inside the clip, none outside.
template <class Draw>
void ExpectClippedIsCropped(Draw draw, const gdi::Box& clip, int32_t size, const std::string& what)
{
    gdi::Rasterizer rasterizer;
    Canvas whole(size, size);
    Canvas clipped(size, size);
    draw(rasterizer, whole.Surface(), whole.All());
    draw(rasterizer, clipped.Surface(), clip);
    ExpectPixels(
        clipped,
        [&](int32_t x, int32_t y) {
            const bool inside = x >= clip.left && x < clip.right && y >= clip.top && y < clip.bottom;
            return inside && whole.IsSet(x, y);
        },
        what);
}

} // namespace raster_test
