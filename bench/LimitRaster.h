/// The least work that draws the workloads: plain loops into plain memory, without clipping, paths, pens or handles.
/// Kolm's rows are read as ratios to these.
#pragma once

#include "Workloads.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <vector>

namespace bench {

/// A frame of 32-bit pixels, rows from the top down.
class LimitFrame
{
public:
    LimitFrame() : m_pixels(size_t(kFrameWidth) * kFrameHeight), m_shown(m_pixels.size()) {}

    void Clear() { std::fill(m_pixels.begin(), m_pixels.end(), 0u); }
    void Show() { std::memcpy(m_shown.data(), m_pixels.data(), m_pixels.size() * sizeof(uint32_t)); }
    int64_t Painted() const { return int64_t(m_pixels.size()) - std::count(m_pixels.begin(), m_pixels.end(), 0u); }
    const uint32_t* Shown() const { return m_shown.data(); }

    /// Bresenham's line without its last point.
    void ThinLine(const Stroke& s, uint32_t color)
    {
        const int dx = std::abs(s.x2 - s.x1), dy = std::abs(s.y2 - s.y1);
        const int stepX = s.x2 < s.x1 ? -1 : 1, stepY = s.y2 < s.y1 ? -kFrameWidth : kFrameWidth;
        const bool steep = dy > dx;
        const int major = steep ? dy : dx, minor = steep ? dx : dy;
        const int majorStep = steep ? stepY : stepX, minorStep = steep ? stepX : stepY;
        uint32_t* pixel = At(s.x1, s.y1);
        int error = major / 2;
        for (int i = 0; i < major; ++i) {
            *pixel = color;
            pixel += majorStep;
            error -= minor;
            if (error < 0) {
                error += major;
                pixel += minorStep;
            }
        }
    }

    /// A segment with round ends: a span a row between the outermost of two discs and the two straight edges.
    void Capsule(const Stroke& s, uint32_t color)
    {
        const double r = s.width * 0.5;
        const double dx = s.x2 - s.x1, dy = s.y2 - s.y1, length = std::sqrt(dx * dx + dy * dy);
        const double nx = -dy / length * r, ny = dx / length * r;
        const double cornerX[4] = {s.x1 + nx, s.x2 + nx, s.x2 - nx, s.x1 - nx};
        const double cornerY[4] = {s.y1 + ny, s.y2 + ny, s.y2 - ny, s.y1 - ny};
        const int top = int(std::ceil(std::min(s.y1, s.y2) - r)), bottom = int(std::ceil(std::max(s.y1, s.y2) + r));
        for (int y = top; y < bottom; ++y) {
            double left = 1e9, right = -1e9;
            const auto disc = [&](double cx, double cy) {
                const double h = r * r - (y - cy) * (y - cy);
                if (h >= 0) {
                    const double half = std::sqrt(h);
                    left = std::min(left, cx - half);
                    right = std::max(right, cx + half);
                }
            };
            disc(s.x1, s.y1);
            disc(s.x2, s.y2);
            for (int i = 0; i < 4; ++i) {
                const int j = (i + 1) & 3;
                if ((cornerY[i] <= y) == (cornerY[j] <= y))
                    continue;
                const double x = cornerX[i] + (y - cornerY[i]) * (cornerX[j] - cornerX[i]) / (cornerY[j] - cornerY[i]);
                left = std::min(left, x);
                right = std::max(right, x);
            }
            const int from = int(std::ceil(left)), to = int(std::ceil(right));
            if (from < to)
                std::fill(At(from, y), At(to, y), color);
        }
    }

private:
    uint32_t* At(int x, int y) { return m_pixels.data() + ptrdiff_t(y) * kFrameWidth + x; }

    std::vector<uint32_t> m_pixels;
    std::vector<uint32_t> m_shown;
};

} // namespace bench
