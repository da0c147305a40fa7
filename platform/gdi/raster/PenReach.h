/// How a wide pen that is drawn along a line lies to the visible pixels.
#pragma once

#include "gdi/raster/Surface.h"

#include <algorithm>
#include <cmath>

namespace gdi {

enum class Reach
{
    Misses, ///< no visible pixel is touched
    Cuts,   ///< undecided: some may be
    Covers  ///< every visible pixel is inside
};

/// Decides by the distance of the line from the middle of the clip, without walking a row. Only clear cases are
/// decided; a pixel of slack absorbs the rounding of the arithmetic, which for any int32 stays far below it.
class PenReach
{
public:
    PenReach(const Box& clip, int32_t width)
        : m_x((double(clip.left) + clip.right - 1) * 0.5), m_y((double(clip.top) + clip.bottom - 1) * 0.5),
          m_corner(std::hypot(double(clip.right) - clip.left, double(clip.bottom) - clip.top) * 0.5 + 1),
          m_halfWidth(width * 0.5)
    {}

    /// The line from (ax, ay) to (bx, by), or any curve between these points that stays within `slack` of it.
    Reach Of(double ax, double ay, double bx, double by, double slack) const
    {
        const double runX = bx - ax, runY = by - ay, square = runX * runX + runY * runY;
        const double along = square > 0 ? ((m_x - ax) * runX + (m_y - ay) * runY) / square : 0;
        const double at = std::min(std::max(along, 0.0), 1.0);
        const double distance = std::hypot(m_x - (ax + runX * at), m_y - (ay + runY * at));
        if (distance - m_corner - slack > m_halfWidth)
            return Reach::Misses;
        return distance + m_corner + slack < m_halfWidth ? Reach::Covers : Reach::Cuts;
    }

private:
    double m_x, m_y; ///< middle of the visible pixels
    double m_corner; ///< from there to the furthest one
    double m_halfWidth;
};

} // namespace gdi
