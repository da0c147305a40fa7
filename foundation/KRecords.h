/// The plain records that functions of the library return by value or fill through pointers. Public members, no
/// behaviour, no platform include; the order of the members is part of the interface.
#pragma once

/// A point in device pixels or other whole units.
struct KPoint
{
    int x;
    int y;
};

/// A point in logical millimetres, y upward.
struct KPointD
{
    double x;
    double y;
};

/// A point in logical millimetres in single precision.
struct KPointF
{
    float x;
    float y;
};

/// Two points in logical millimetres: the first is (x1, y1), the second (x2, y2).
struct KTwoPointD
{
    double x1;
    double y1;
    double x2;
    double y2;
};
