/// Seeded workloads shared by the benchmark programs, so that every row of one workload does the same work.
#pragma once

#include <cstdint>
#include <random>
#include <vector>

namespace bench {

constexpr int kFrameWidth = 1920;
constexpr int kFrameHeight = 1080;

/// A straight stroke in pixels of the frame, y downward, with its width in pixels (0: a thin line).
struct Stroke
{
    int32_t x1, y1, x2, y2;
    int32_t width;
};

/// `count` strokes with lengths of minLength to maxLength pixels and all inside the frame by more than their width.
inline std::vector<Stroke> RandomStrokes(int count, int minLength, int maxLength, int minWidth, int maxWidth)
{
    std::mt19937 random(20240229);
    const auto between = [&random](int low, int high) { return int(low + random() % unsigned(high - low + 1)); };
    std::vector<Stroke> strokes;
    strokes.reserve(size_t(count));
    while (int(strokes.size()) < count) {
        const int margin = maxWidth + 1;
        Stroke s;
        s.x1 = between(margin, kFrameWidth - 1 - margin);
        s.y1 = between(margin, kFrameHeight - 1 - margin);
        s.x2 = s.x1 + between(-maxLength, maxLength);
        s.y2 = s.y1 + between(-maxLength, maxLength);
        s.width = between(minWidth, maxWidth);
        const int64_t dx = s.x2 - s.x1, dy = s.y2 - s.y1;
        const int64_t squared = dx * dx + dy * dy;
        const bool inside =
            s.x2 >= margin && s.x2 < kFrameWidth - margin && s.y2 >= margin && s.y2 < kFrameHeight - margin;
        if (inside && squared >= int64_t(minLength) * minLength && squared <= int64_t(maxLength) * maxLength)
            strokes.push_back(s);
    }
    return strokes;
}

/// Strokes of which one in `visibleEvery` lies in the frame and all others far to the right of it or below.
inline std::vector<Stroke> MostlyOutside(int count, int visibleEvery)
{
    std::vector<Stroke> strokes = RandomStrokes(count, 5, 40, 2, 12);
    for (int i = 0; i < count; ++i) {
        if (i % visibleEvery == 0)
            continue;
        Stroke& s = strokes[size_t(i)];
        const int32_t right = (i % 3) * 3 * kFrameWidth;
        const int32_t down = (i % 3 == 0 ? 2 : i % 2) * 3 * kFrameHeight;
        s.x1 += right, s.x2 += right, s.y1 += down, s.y2 += down;
    }
    return strokes;
}

} // namespace bench
