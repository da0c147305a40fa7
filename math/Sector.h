/// Which directions an arc covers, told without angles wherever that is safe. Inside of math/ only.
#pragma once

#include "math/Vectors.h"

#include <limits>

namespace geo {

/// Whether an arc has a point in some direction from its centre.
enum class Facing
{
    No,
    Unclear,
    Yes
};

struct Facings
{
    Facing ahead, behind;
};

/// Whether an arc covers a direction is decided by angles at single precision, and that decision is part of the
/// results. Its roundings add up to less than 3e-6 rad, so a direction that lies further than the margin from both ends
/// comes out as its cross products with them say; nearer ones are unclear and have to be decided by the angles.
class Sector
{
public:
    /// `start` and `end` are taken relative to the centre.
    Sector(KPointD start, KPointD end, int counterClockwise)
        : m_from(counterClockwise ? start : end), m_to(counterClockwise ? end : start)
    {
        constexpr double kSquaredMargin = 1e-6; // 1e-3 rad
        const double squaredFrom = Dot(m_from, m_from);
        const double squaredTo = Dot(m_to, m_to);
        const double turn = Cross(m_from, m_to);
        m_needsBoth = turn >= 0.0;
        m_limitFrom = kSquaredMargin * squaredFrom;
        m_limitTo = kSquaredMargin * squaredTo;
        // Ends in one direction make an arc of nothing or of nearly a full circle. Those in opposite directions do not
        // matter: both cross products have one sign there.
        if (!(turn * turn > m_limitFrom * squaredTo) && !(Dot(m_from, m_to) < 0.0))
            m_limitFrom = std::numeric_limits<double>::infinity();
    }
    /// NaN, infinities and lengths whose squares leave the numbers are unclear.
    Facing Look(KPointD direction) const { return LookBothWays(direction).ahead; }
    /// In the direction and in the opposite one, which costs little more: all products only change their signs.
    Facings LookBothWays(KPointD direction) const
    {
        constexpr double kSafe = 1e-250; // squares above it have lost nothing by being small
        const double squared = Dot(direction, direction);
        const double limitFrom = m_limitFrom * squared;
        const double limitTo = m_limitTo * squared;
        const double afterFrom = Cross(m_from, direction);
        const double beforeTo = Cross(direction, m_to);
        const bool isClear = (int(afterFrom * afterFrom > limitFrom) & int(beforeTo * beforeTo > limitTo) &
                              int(limitFrom > kSafe) & int(limitTo > kSafe)) != 0;
        if (!isClear)
            return {Facing::Unclear, Facing::Unclear};
        const int sides = int(afterFrom > 0.0) + int(beforeTo > 0.0) + int(!m_needsBoth);
        const int sidesBehind = int(afterFrom < 0.0) + int(beforeTo < 0.0) + int(!m_needsBoth);
        return {sides >= 2 ? Facing::Yes : Facing::No, sidesBehind >= 2 ? Facing::Yes : Facing::No};
    }

private:
    KPointD m_from; ///< where the counter-clockwise way along the arc begins
    KPointD m_to;
    double m_limitFrom; ///< the least clear square of a cross product, for a direction of length 1
    double m_limitTo;
    bool m_needsBoth; ///< at most half a turn: a covered direction lies after one end and before the other
};

} // namespace geo
