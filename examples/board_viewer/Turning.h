/// Directions about a centre, as everything that walks along an arc needs them. Radians, counter-clockwise, y upward.
#pragma once

#include "foundation/KRecords.h"

#include <cmath>

namespace viewer {

/// The direction in which a point is seen from a centre; 0 when they are the same.
inline double DirectionFrom(KPointD centre, KPointD point)
{
    return std::atan2(point.y - centre.y, point.x - centre.x);
}

/// The counter-clockwise way from one direction to another, in [0, 2 pi).
inline double TurnBetween(double from, double to)
{
    const double turn = std::fmod(to - from, 2 * M_PI);
    return turn < 0 ? turn + 2 * M_PI : turn;
}

/// The angle that an arc travels in its own sense, in (0, 2 pi]: equal ends are a whole circle.
inline double SweepOfArc(KPointD centre, KPointD start, KPointD end, bool counterClockwise)
{
    const double from = DirectionFrom(centre, start);
    const double to = DirectionFrom(centre, end);
    const double sweep = counterClockwise ? TurnBetween(from, to) : TurnBetween(to, from);
    return sweep > 0 ? sweep : 2 * M_PI;
}

} // namespace viewer
