#pragma once

// For the painter's own sources: the two conversions that every point passes through, and the only places where logical
// values become pixels. And pi as degrees are converted with it, in float arithmetic.

#include "foundation/Saturate.h"
#include "painter/CKPainter.h"

constexpr float kPiF = 3.1415927f;

/// World-transform pixels: rounded half up toward zero, so -2.6 and -3.4 both become -2 at one pixel per mm.
inline int CKPainter::T(double value) const
{
    return SaturatedToInt(value * m_scale * m_pixelsPerMM + 0.5);
}

/// Device pixels. The logical centre is in mirrored form already, so only the point's x is negated.
inline KPoint CKPainter::D(double x, double y) const
{
    const double mirroredX = m_boardMirror ? -x : x;
    const double k = PixelsPerUnit();
    return {SaturatedFloor((mirroredX - m_logicalCenterX) * k + m_physicalCenterX + 0.5),
            SaturatedFloor(m_physicalCenterY - (y - m_logicalCenterY) * k + 0.5)};
}
