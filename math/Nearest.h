/// The nearest points of two elements while they are searched, and what drawn widths make of them. Inside of math/
/// only.
#pragma once

#include "math/Elements.h"

#include <algorithm>

namespace geo {

/// A point on each of two elements and how far they are apart.
struct NearestPair
{
    KPointD first, second;
    double distance;

    /// Strictly nearer only: of equally near pairs the earlier stays.
    void Take(const NearestPair& other)
    {
        if (other.distance < distance)
            *this = other;
    }
    NearestPair Swapped() const { return {second, first, distance}; }
};

inline NearestPair PairOf(KPointD first, KPointD second)
{
    return {first, second, Distance(first, second)};
}

/// P and the point of the arc nearest to it: the start, the end, or the point that P faces.
inline NearestPair NearestOnArc(KPointD p, const Arc& arc)
{
    NearestPair best = PairOf(p, arc.start);
    best.Take(PairOf(p, arc.end));
    // The distance first: it is cheaper than an angle. A point in the centre faces -x.
    const NearestPair radial = PairOf(p, Moved(p, arc.centre, -arc.radius));
    if (radial.distance < best.distance && arc.Faces(radial.second))
        return radial;
    return best;
}

/// Where the points come to lie when the elements overlap: both on the first one or both on the second.
enum class Overlap
{
    OnFirst,
    OnSecond
};

/// From centre lines to drawn edges: each point moves toward the other by half its own width, the second toward the
/// new first. Drawn elements that touch or overlap have the distance 0. A negative width counts in the sum as it is but
/// moves no point.
inline void ShrinkByWidths(NearestPair& pair, double firstWidth, double secondWidth, Overlap overlap)
{
    const double halves = firstWidth * 0.5 + secondWidth * 0.5;
    if (halves >= pair.distance) {
        const KPointD both = overlap == Overlap::OnFirst ? pair.first : pair.second;
        pair = {both, both, 0.0};
        return;
    }
    if (firstWidth > 0.0)
        pair.first = Moved(pair.second, pair.first, -firstWidth * 0.5);
    if (secondWidth > 0.0)
        pair.second = Moved(pair.first, pair.second, -secondWidth * 0.5);
    pair.distance -= halves;
}

/// Hands the points over, if anybody wants them, and returns the distance that belongs to them.
inline double Report(KTwoPointD* points, const NearestPair& pair)
{
    if (points)
        *points = {pair.first.x, pair.first.y, pair.second.x, pair.second.y};
    return pair.distance;
}

} // namespace geo
