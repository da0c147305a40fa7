/// Integer arithmetic of the raster core: divisions that round down, square roots, saturation, and the walk of an edge.
#pragma once

#include "gdi/raster/Surface.h"

#include <cmath>
#include <limits>

namespace gdi {

__extension__ typedef __int128 Int128;
__extension__ typedef unsigned __int128 UInt128;

inline int32_t SaturateToInt32(int64_t value)
{
    constexpr int64_t low = std::numeric_limits<int32_t>::min();
    constexpr int64_t high = std::numeric_limits<int32_t>::max();
    return static_cast<int32_t>(value < low ? low : value > high ? high : value);
}

inline int32_t Clamp(int64_t value, int32_t low, int32_t high)
{
    return static_cast<int32_t>(value < low ? low : value > high ? high : value);
}

/// Largest integer not above `value`, kept within +-2^40, which is outside every surface. NaN gives the upper end.
inline int64_t FloorToInt64(double value)
{
    constexpr double kLimit = 1099511627776.0;
    if (!(value < kLimit))
        return int64_t(1) << 40;
    return value > -kLimit ? static_cast<int64_t>(std::floor(value)) : -(int64_t(1) << 40);
}

/// Halves, rounded down and up. Right shifts of negative numbers are arithmetic on every compiler this builds with.
inline int64_t FloorHalf(int64_t value)
{
    return value >> 1;
}
inline int64_t CeilHalf(int64_t value)
{
    return (value + 1) >> 1;
}

/// Quotient rounded down; the divisor is positive. Divisions of 32 bits take a third of the time of those of 64.
inline int64_t FloorDiv(int64_t dividend, int64_t divisor)
{
    if (dividend >= 0 && (dividend | divisor) <= std::numeric_limits<uint32_t>::max())
        return static_cast<uint32_t>(dividend) / static_cast<uint32_t>(divisor);
    const int64_t quotient = dividend / divisor;
    return quotient - (dividend < quotient * divisor);
}

inline Int128 FloorDiv(Int128 dividend, Int128 divisor)
{
    const Int128 quotient = dividend / divisor;
    return quotient - (dividend < quotient * divisor);
}

/// Largest integer whose square is not above `value`, which is at most 2^127.
inline int64_t FloorSqrt(UInt128 value)
{
    // Below 2^52 the correctly rounded root of a double can't reach the next integer: the roots of k*k - 1 and k*k are
    // further apart than a unit in the last place.
    if (value < UInt128(1) << 52)
        return static_cast<int64_t>(std::sqrt(static_cast<double>(static_cast<int64_t>(value))));
    // Above, the estimate is off by at most 2^11 (64-bit roots in 53 bits); one Newton step from there leaves less
    // than 1.
    UInt128 root = static_cast<UInt128>(std::sqrt(static_cast<double>(value)));
    root = (root + value / root) / 2;
    while (root * root > value)
        --root;
    while ((root + 1) * (root + 1) <= value)
        ++root;
    return static_cast<int64_t>(root);
}

/// A straight edge read row by row: the first column whose centre is on the edge or right of it, without rounding
/// errors and without a walk to the first row. At `row` (counted from the edge's own origin) the edge lies at (run *
/// row + offset) / rise; rise is positive.
class EdgeWalk
{
public:
    EdgeWalk() = default;
    EdgeWalk(int64_t run, int64_t rise, int64_t offset, int64_t row) : m_rise(rise)
    {
        constexpr int64_t kSmall = int64_t(1) << 30;
        if (run < kSmall && -run < kSmall && row < kSmall && -row < kSmall && offset < kSmall * kSmall &&
            -offset < kSmall * kSmall)
        {
            const int64_t start = run * row + offset + rise - 1;
            m_column = FloorDiv(start, rise);
            m_rest = start - m_column * rise;
        } else { // runs have 33 bits and rows too, so the product has 66
            const Int128 start = Int128(run) * row + offset + rise - 1;
            const Int128 column = FloorDiv(start, Int128(rise));
            m_column = static_cast<int64_t>(column);
            m_rest = static_cast<int64_t>(start - column * rise);
        }
        m_step = FloorDiv(run, rise);
        m_stepRest = run - m_step * rise;
    }

    int64_t Column() const { return m_column; }
    void NextRow()
    {
        m_rest += m_stepRest;
        const int64_t carry = -static_cast<int64_t>(m_rest >= m_rise); // a mask, since the branch can't be predicted
        m_column += m_step - carry;
        m_rest -= m_rise & carry;
    }

private:
    int64_t m_column = 0;
    int64_t m_rest = 0; ///< what the rounded-up column is ahead of, in units of 1 / rise: 0 to rise - 1
    int64_t m_step = 0;
    int64_t m_stepRest = 0;
    int64_t m_rise = 1;
};

/// Columns of one row of a disc: left inside, right outside, empty when left >= right.
struct DiscRow
{
    int64_t left;
    int64_t right;
};

/// A row of the disc around centerX2 / 2 with the diameter `diameter`, `offset2` being twice the distance of the row
/// from the centre, downward. A point of the circle itself belongs to the disc on its left half and at its very top.
/// Rows that miss the disc have both ends at the column of the centre, rounded up.
inline DiscRow RowOfDisc(int64_t centerX2, int64_t diameter, int64_t offset2)
{
    const int64_t distance = offset2 < 0 ? -offset2 : offset2;
    if (distance > diameter || (distance == diameter && offset2 >= 0))
        return {CeilHalf(centerX2), CeilHalf(centerX2)};
    int64_t root;
    bool exact;
    if (diameter < int64_t(1) << 25) {
        const int64_t square = (diameter - distance) * (diameter + distance);
        root = static_cast<int64_t>(std::sqrt(static_cast<double>(square)));
        exact = root * root == square;
    } else {
        const UInt128 square = UInt128(diameter - distance) * UInt128(diameter + distance);
        root = FloorSqrt(square);
        exact = UInt128(root) * UInt128(root) == square;
    }
    const int64_t reach =
        root - (exact && root > 0); // to the right; at the very top the root is 0 and the point counts
    return {CeilHalf(centerX2 - root), FloorHalf(centerX2 + reach) + 1};
}

/// Half length, doubled, of an ellipse's chord at the doubled offset `offset2` on the axis with the radius `across2`; 0
/// beyond it. The factors under the root are exact, so that the value is good near the ends of the axis too.
inline double HalfChord(int64_t across2, int64_t along2, int64_t offset2)
{
    const int64_t distance = offset2 < 0 ? -offset2 : offset2;
    if (distance > across2)
        return 0;
    if (across2 == 0)
        return static_cast<double>(along2);
    const double root = std::sqrt(static_cast<double>(across2 - distance) * static_cast<double>(across2 + distance));
    return across2 == along2 ? root : root * static_cast<double>(along2) / static_cast<double>(across2);
}

} // namespace gdi
