/// The plain records that functions of the library return by value or fill through pointers. Public members, no
/// behaviour, no platform include; the order of the members is part of the interface.
#pragma once

/// A point in device pixels or other whole units.
struct KPoint
{
    int x; ///< to the right
    int y; ///< downward in device pixels
};

/// A point in logical millimetres, y upward.
struct KPointD
{
    double x; ///< to the right
    double y; ///< upward
};

/// A point in logical millimetres in single precision.
struct KPointF
{
    float x; ///< to the right
    float y; ///< upward
};

/// Two points in logical millimetres: the first is (x1, y1), the second (x2, y2).
struct KTwoPointD
{
    double x1; ///< of the first point
    double y1; ///< of the first point
    double x2; ///< of the second point
    double y2; ///< of the second point
};
