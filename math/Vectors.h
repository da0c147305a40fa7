/// Differences of points and their products. Inside of math/ only.
#pragma once

#include "foundation/KRecords.h"

namespace geo {

inline KPointD Difference(KPointD to, KPointD from)
{
    return {to.x - from.x, to.y - from.y};
}

inline double Dot(KPointD a, KPointD b)
{
    return a.x * b.x + a.y * b.y;
}

inline double Cross(KPointD a, KPointD b)
{
    return a.x * b.y - a.y * b.x;
}

} // namespace geo
