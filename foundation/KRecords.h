/// The plain records that functions of the library return by value or fill through pointers. Public members, no
/// behaviour, no platform include; the order of the members is part of the interface.
#pragma once

/// A point in device pixels or other whole units.
struct KPoint
{
    int x; ///< to the right
    int y; ///< downward in device pixels
};

/// A point in logical millimetres.
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

/// Two points in logical millimetres, y upward.
struct KTwoPointD
{
    /// @{
    /// The first point, then the second.
    double x1;
    double y1;
    double x2;
    double y2;
    /// @}
};
