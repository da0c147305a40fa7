#pragma once

#include <utility>

/// Both coordinates of a point of any kind as one value, so that a test compares them at once. Exact: every int and
/// float has its double.
using XY = std::pair<double, double>;

template <typename Point>
XY At(const Point& point)
{
    return {point.x, point.y};
}
