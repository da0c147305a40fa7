/// Seeded drawings shared by the rows of the frame benchmark, so that every row of one workload paints the same shapes.
///
/// All are in pixels of the frame, y downward. Every shape has a colour of its own: the last one on a pixel shows, so a
/// row that leaves out shapes or changes their order ends in another picture.
#pragma once

#include "Workloads.h"

#include <cmath>

namespace bench {

/// An arc of a circle around (x, y), clockwise as seen from its start to its end, both rounded to pixels.
struct Arc
{
    int32_t x, y, radius;
    int32_t startX, startY, endX, endY;
    int32_t width;
};

/// A filled disc of a radius, or a box with half sides.
struct Pad
{
    int32_t x, y;
    int32_t halfWidth, halfHeight; ///< both the radius of a disc
    bool disc;
};

struct Scene
{
    std::vector<Stroke> strokes;
    std::vector<Arc> arcs;
    std::vector<Pad> pads;

    int64_t Count() const { return int64_t(strokes.size() + arcs.size() + pads.size()); }
};

/// 0x00RRGGBB, never black, which is the background.
inline uint32_t PixelOf(size_t index)
{
    return (uint32_t(index + 1) * 2654435761u >> 8) | 0x010101;
}

/// The ray from the centre of a circle through the pixel (x, y) meets the circle in that pixel, whose distance rounds
/// to the radius.
inline bool OnCircle(int x, int y, int radius)
{
    const double length = std::sqrt(double(x) * x + double(y) * y);
    return std::lround(length) == radius && std::floor(x / length * radius + 0.5) == x &&
           std::floor(y / length * radius + 0.5) == y;
}

/// `count` arcs inside the frame, with radii of 5 to 40 pixels and sweeps of 30 to 330 degrees.
inline std::vector<Arc> RandomArcs(int count, int width)
{
    std::mt19937 random(20240301);
    const auto between = [&random](int low, int high) { return int(low + random() % unsigned(high - low + 1)); };
    std::vector<Arc> arcs;
    while (int(arcs.size()) < count) {
        Arc arc = {};
        arc.radius = between(5, 40);
        arc.width = width;
        const int margin = arc.radius + width + 1;
        arc.x = between(margin, kFrameWidth - 1 - margin);
        arc.y = between(margin, kFrameHeight - 1 - margin);
        const double start = between(0, 359) * 0.017453292519943295;
        const double end = start + between(30, 330) * 0.017453292519943295;
        arc.startX = arc.x + int(std::lround(arc.radius * std::cos(start)));
        arc.startY = arc.y + int(std::lround(arc.radius * std::sin(start)));
        arc.endX = arc.x + int(std::lround(arc.radius * std::cos(end)));
        arc.endY = arc.y + int(std::lround(arc.radius * std::sin(end)));
        // Only arcs whose ends all libraries put into the same pixels.
        if (OnCircle(arc.startX - arc.x, arc.startY - arc.y, arc.radius) &&
            OnCircle(arc.endX - arc.x, arc.endY - arc.y, arc.radius))
            arcs.push_back(arc);
    }
    return arcs;
}

/// `count` pads inside the frame, boxes and discs in turn, 4 to 40 pixels across.
inline std::vector<Pad> RandomPads(int count)
{
    std::mt19937 random(20240302);
    const auto between = [&random](int low, int high) { return int(low + random() % unsigned(high - low + 1)); };
    std::vector<Pad> pads;
    for (int i = 0; i < count; ++i) {
        const int half = between(2, 20);
        const bool disc = i % 2 == 1;
        pads.push_back(
            {between(21, kFrameWidth - 22), between(21, kFrameHeight - 22), half, disc ? half : between(2, 20), disc});
    }
    return pads;
}

/// A straight track of a board in millimetres, y downward.
struct Track
{
    double x1, y1, x2, y2;
    double width;
};

/// How a board is shown: pixels a millimetre, and what lies in the middle of the frame.
struct View
{
    double scale;
    double centerX, centerY;
};

/// The pixels of a track under a view, with the width cut to whole pixels.
inline Stroke ToPixels(const Track& track, const View& view)
{
    const auto pixel = [&view](double v, double center, int middle) {
        return int32_t(std::floor((v - center) * view.scale + middle + 0.5));
    };
    return {pixel(track.x1, view.centerX, kFrameWidth / 2), pixel(track.y1, view.centerY, kFrameHeight / 2),
            pixel(track.x2, view.centerX, kFrameWidth / 2), pixel(track.y2, view.centerY, kFrameHeight / 2),
            int32_t(track.width * view.scale + 0.5)};
}

/// Draws all of a scene in its order, each shape in its own colour. A frame has Line, DrawArc and DrawPad.
template <class FRAME>
void DrawScene(FRAME& frame, const Scene& scene)
{
    size_t index = 0;
    for (const Stroke& s : scene.strokes)
        frame.Line(s, PixelOf(index++));
    for (const Arc& a : scene.arcs)
        frame.DrawArc(a, PixelOf(index++));
    for (const Pad& p : scene.pads)
        frame.DrawPad(p, PixelOf(index++));
}

} // namespace bench
