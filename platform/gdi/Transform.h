/// The world transform in double precision, and the step from real numbers to pixels.
#pragma once

#include "gdi/raster/Surface.h"
#include "gdi/wingdi.h"

#include <cmath>
#include <limits>

namespace gdi {

/// The nearest integer, floor(v + 0.5), held within int32; 0 for a NaN. Written without a call of floor: this runs for
/// every coordinate that is drawn.
inline int32_t RoundToPixel(double v)
{
    v += 0.5;
    if (!(v >= -2147483648.0)) {
        return std::isnan(v) ? 0 : std::numeric_limits<int32_t>::min();
    }
    if (v >= 2147483648.0) {
        return std::numeric_limits<int32_t>::max();
    }
    const int64_t truncated = int64_t(v);
    return int32_t(truncated - (double(truncated) > v));
}

struct RealPoint
{
    double x;
    double y;
};

/// x' = x * m11 + y * m21 + dx, y' = x * m12 + y * m22 + dy.
struct Transform
{
    double m11 = 1, m12 = 0, m21 = 0, m22 = 1, dx = 0, dy = 0;
    bool identity = true;
    bool straight = true;  ///< axes stay axes: boxes stay boxes, ellipses stay upright
    double widthScale = 1; ///< what a pen's width is multiplied with: the square root of the area scale
    bool mirrored = false; ///< turns clockwise into counter-clockwise

    RealPoint Apply(double x, double y) const { return {x * m11 + y * m21 + dx, x * m12 + y * m22 + dy}; }
    DevicePoint ToDevice(int32_t x, int32_t y) const
    {
        if (identity) {
            return {x, y};
        }
        const RealPoint p = Apply(x, y);
        return {RoundToPixel(p.x), RoundToPixel(p.y)};
    }

    /// False, and nothing changed, for a matrix that is singular or not finite.
    bool Set(const XFORM& matrix);
    XFORM Get() const;
    /// The exact logical point of a device point, but for rounding of doubles.
    RealPoint Inverse(RealPoint device) const;
    /// The logical point of a device point as ints. Of the candidates beside the exact inverse the one that maps back
    /// is taken, so that points given as ints come out as they went in where the transform does not shrink.
    POINT ToLogical(RealPoint device) const;
};

} // namespace gdi
