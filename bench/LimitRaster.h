/// The least work that draws the workloads: plain loops into plain memory, without paths, pens or handles. Kolm's rows
/// are read as ratios to these.
///
/// A pixel belongs to a wide or filled shape when its centre does, left and top borders included, and a thin line takes
/// the upper or left one of two pixels that are equally near: the pixels that Kolm paints too.
#pragma once

#include "Scene.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <vector>

namespace bench {

/// A frame of 32-bit pixels, rows from the top down.
class LimitFrame
{
public:
    static constexpr const char* kName = "limit";

    LimitFrame() : m_pixels(size_t(kFrameWidth) * kFrameHeight), m_shown(m_pixels.size()) {}

    void Clear(uint32_t color) { std::fill(m_pixels.begin(), m_pixels.end(), color); }
    void Show() { std::memcpy(m_shown.data(), m_pixels.data(), m_pixels.size() * sizeof(uint32_t)); }
    void CopyFrom(const LimitFrame& other)
    {
        std::memcpy(m_pixels.data(), other.m_pixels.data(), m_pixels.size() * sizeof(uint32_t));
    }
    const std::vector<uint32_t>& Shown() const { return m_shown; }

    void Draw(const Scene& scene) { DrawScene(*this, scene); }

    /// Nothing when it lies outside; a thin line for a width of 0 or 1, a segment with round ends for others.
    void Line(const Stroke& s, uint32_t color)
    {
        const int r = s.width / 2;
        if (std::max(s.x1, s.x2) + r < 0 || std::min(s.x1, s.x2) - r >= kFrameWidth || std::max(s.y1, s.y2) + r < 0 ||
            std::min(s.y1, s.y2) - r >= kFrameHeight)
            return;
        if (s.width > 1)
            Capsule(s, color);
        else if (Holds(s.x1, s.y1) && Holds(s.x2, s.y2))
            ThinLine(s, [color](uint32_t& pixel) { pixel = color; });
        else
            ClippedLine(s, color);
    }

    /// Bresenham's line without its last point.
    template <class Change>
    void ThinLine(const Stroke& s, Change change)
    {
        const int dx = std::abs(s.x2 - s.x1), dy = std::abs(s.y2 - s.y1);
        const int stepX = s.x2 < s.x1 ? -1 : 1, stepY = s.y2 < s.y1 ? -kFrameWidth : kFrameWidth;
        const bool steep = dy > dx;
        const int major = steep ? dy : dx, minor = steep ? dx : dy;
        const int majorStep = steep ? stepY : stepX, minorStep = steep ? stepX : stepY;
        uint32_t* pixel = At(s.x1, s.y1);
        int error = minorStep > 0 ? -major : 1 - major; // half a pixel, and ties go up or left
        for (int i = 0; i < major; ++i) {
            change(*pixel);
            pixel += majorStep;
            error += 2 * minor;
            if (error > 0) {
                error -= 2 * major;
                pixel += minorStep;
            }
        }
    }

    /// The ring between two discs, cut by the half planes of its ends, and a disc at both ends.
    void DrawArc(const Arc& a, uint32_t color)
    {
        const int startX = a.startX - a.x, startY = a.startY - a.y, endX = a.endX - a.x, endY = a.endY - a.y;
        const bool convex = startX * endY - startY * endX > 0;
        const int outerDiameter = 2 * a.radius + a.width, innerDiameter = 2 * a.radius - a.width;
        const DiscRow *const outer = Disc(outerDiameter), *const inner = Disc(innerDiameter);
        // A direction lies between the ends when it comes after the start and (in the smaller part) before the end.
        const bool passesTop = convex ? startX <= 0 && endX >= 0 : startX <= 0 || endX >= 0;
        const bool passesBottom = convex ? startX >= 0 && endX <= 0 : startX >= 0 || endX <= 0;
        const int top = passesTop ? -a.radius : std::min(startY, endY), reach = a.width / 2 + 1;
        const int bottom = passesBottom ? a.radius : std::max(startY, endY);
        const int lastRow = std::min(bottom + reach, (outerDiameter - 1) / 2);
        for (int y = std::max(top - reach, -(outerDiameter / 2)); y <= lastRow; ++y) {
            const bool hollow = y >= -(innerDiameter / 2) && y <= (innerDiameter - 1) / 2;
            // Columns after the start (cross product with it not below 0) and before the end.
            const DiscRow after = HalfPlane(startX, startY, y, true), before = HalfPlane(endX, endY, y, false);
            const auto cut = [&](int left, int right) {
                if (convex) {
                    Span(a.y + y, a.x + std::max({left, after.left, before.left}),
                         a.x + std::min({right, after.right, before.right}), color);
                    return;
                }
                Span(a.y + y, a.x + std::max(left, after.left), a.x + std::min(right, after.right), color);
                Span(a.y + y, a.x + std::max(left, before.left), a.x + std::min(right, before.right), color);
            };
            cut(-outer[y].left, hollow ? -inner[y].left : outer[y].right);
            if (hollow)
                cut(inner[y].right, outer[y].right);
        }
        FillDisc(a.startX, a.startY, a.width, color);
        FillDisc(a.endX, a.endY, a.width, color);
    }

    void DrawPad(const Pad& p, uint32_t color)
    {
        if (p.disc) {
            FillDisc(p.x, p.y, 2 * p.halfWidth, color);
            return;
        }
        for (int y = p.y - p.halfHeight; y < p.y + p.halfHeight; ++y)
            std::fill(At(p.x - p.halfWidth, y), At(p.x + p.halfWidth, y), color);
    }

private:
    /// One row of a disc around a pixel: from `left` pixels left of its centre to before `right` pixels right of it.
    struct DiscRow
    {
        int left, right;
    };

    static constexpr int kFar = 1 << 20; // beyond every pixel

    static bool Holds(int x, int y) { return x >= 0 && x < kFrameWidth && y >= 0 && y < kFrameHeight; }
    uint32_t* At(int x, int y) { return m_pixels.data() + ptrdiff_t(y) * kFrameWidth + x; }

    void Span(int y, int left, int right, uint32_t color)
    {
        left = std::max(left, 0), right = std::min(right, kFrameWidth);
        if (left < right)
            std::fill(At(left, y), At(right, y), color);
    }

    /// The same line with a look at every pixel, for the few that cross the frame's edge.
    void ClippedLine(const Stroke& s, uint32_t color)
    {
        const int64_t dx = s.x2 - s.x1, dy = s.y2 - s.y1;
        const int64_t major = std::max(std::abs(dx), std::abs(dy));
        const auto at = [major](int64_t d, int64_t i) { // rounded to the nearest, ties to the smaller
            const int64_t twice = 2 * d * i + major - 1;
            return twice >= 0 ? twice / (2 * major) : -((2 * major - 1 - twice) / (2 * major));
        };
        for (int64_t i = 0; i < major; ++i) {
            const int64_t x = s.x1 + at(dx, i), y = s.y1 + at(dy, i);
            if (x >= 0 && x < kFrameWidth && y >= 0 && y < kFrameHeight)
                *At(int(x), int(y)) = color;
        }
    }

    /// The rows of a disc, from diameter / 2 above its centre; worked out once a diameter.
    const DiscRow* Disc(int diameter)
    {
        if (size_t(diameter) >= m_discs.size())
            m_discs.resize(size_t(diameter) + 1);
        std::vector<DiscRow>& rows = m_discs[size_t(diameter)];
        for (int y = -(diameter / 2); int(rows.size()) < diameter + 1; ++y) {
            const int square = diameter * diameter - 4 * y * y; // of the doubled half chord
            const int chord = square > 0 ? int(std::sqrt(square)) : 0;
            const bool border = chord > 0 && chord % 2 == 0 && chord * chord == square; // out on the right side
            rows.push_back(square < 0 ? DiscRow{0, 0} : DiscRow{chord / 2, chord / 2 + 1 - border});
        }
        return rows.data() + diameter / 2;
    }

    /// A segment with round ends: a span a row, each side of it on a disc, on a straight edge, or on the other disc.
    void Capsule(Stroke s, uint32_t color)
    {
        if (s.y2 < s.y1 || (s.y2 == s.y1 && s.x2 < s.x1))
            std::swap(s.x1, s.x2), std::swap(s.y1, s.y2);
        const double dx = s.x2 - s.x1, dy = s.y2 - s.y1, length = std::sqrt(dx * dx + dy * dy);
        const double slope = dy > 0 ? dx / dy : 0, across = dy > 0 ? s.width * 0.5 * length / dy : 0;
        const double tangent = length > 0 ? s.width * 0.5 * dx / length : 0; // rows from an end to its tangent points
        const bool level = s.y1 == s.y2; // between two discs, without edges that cross rows
        const int leftFrom = level ? kFar : s.y1 + int(std::ceil(tangent)), leftTo = s.y2 + int(std::floor(tangent));
        const int rightFrom = level ? -kFar : s.y1 + int(std::ceil(-tangent));
        const int rightTo = level ? -kFar : s.y2 + int(std::floor(-tangent));
        const DiscRow* const disc = Disc(s.width);
        const int top = std::max(s.y1 - s.width / 2, 0);
        const int bottom = std::min(s.y2 + (s.width - 1) / 2, kFrameHeight - 1);
        for (int y = top; y <= bottom; ++y) {
            const double middle = s.x1 + (y - s.y1) * slope;
            const int left = y < leftFrom ? s.x1 - disc[y - s.y1].left
                             : y > leftTo ? s.x2 - disc[y - s.y2].left
                                          : int(std::ceil(middle - across));
            const int right = y < rightFrom ? s.x1 + disc[y - s.y1].right
                              : y > rightTo ? s.x2 + disc[y - s.y2].right
                                            : int(std::ceil(middle + across));
            Span(y, left, right, color);
        }
    }

    void FillDisc(int x, int y, int diameter, uint32_t color)
    {
        const DiscRow* const disc = Disc(diameter);
        for (int row = -(diameter / 2); row <= (diameter - 1) / 2; ++row)
            Span(y + row, x - disc[row].left, x + disc[row].right, color);
    }

    /// The columns of a row on one side of a direction from the centre, left inside, right outside.
    static DiscRow HalfPlane(int x, int y, int row, bool clockwise)
    {
        if (y == 0)
            return row == 0 || (row > 0) == (clockwise == (x > 0)) ? DiscRow{-kFar, kFar} : DiscRow{0, 0};
        const double border = double(x) / y * row;
        if (clockwise == (y > 0))
            return {-kFar, int(std::floor(border)) + 1};
        return {int(std::ceil(border)), kFar};
    }

    std::vector<uint32_t> m_pixels;
    std::vector<uint32_t> m_shown;
    std::vector<std::vector<DiscRow>> m_discs;
};

} // namespace bench
