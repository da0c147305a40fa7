#include "gdi/raster/CosmeticLine.h"

#include <algorithm>

namespace gdi {

CosmeticLine::StepRange CosmeticLine::CutToClip(const Box& clip) const
{
    // Both ranges in the line's own frame: distances from its first point, end outside.
    const int64_t majorFrom = m_steep ? m_from.y : m_from.x;
    const int64_t minorFrom = m_steep ? m_from.x : m_from.y;
    int64_t majorLow = (m_steep ? clip.top : clip.left) - majorFrom;
    int64_t majorEnd = (m_steep ? clip.bottom : clip.right) - majorFrom;
    int64_t minorLow = (m_steep ? clip.left : clip.top) - minorFrom;
    int64_t minorEnd = (m_steep ? clip.right : clip.bottom) - minorFrom;
    if (m_majorStep < 0) {
        const int64_t low = majorLow;
        majorLow = 1 - majorEnd;
        majorEnd = 1 - low;
    }
    if (m_minorStep < 0) {
        const int64_t low = minorLow;
        minorLow = 1 - minorEnd;
        minorEnd = 1 - low;
    }
    if (minorEnd <= 0 || minorLow > m_minor || clip.left >= clip.right || clip.top >= clip.bottom)
        return {0, 0};
    StepRange visible = {std::max<int64_t>(0, majorLow), std::min(m_major, majorEnd)};
    if (minorLow > 0)
        visible.first = std::max(visible.first, FirstStepAtMinor(minorLow));
    if (minorEnd <= m_minor)
        visible.end = std::min(visible.end, FirstStepAtMinor(minorEnd));
    return visible;
}

/// The first step that has moved by `minor` (1 to the line's own) on the shorter axis.
int64_t CosmeticLine::FirstStepAtMinor(int64_t minor) const
{
    const int64_t tie = Tie();
    // ceil((2 major minor - major + tie) / (2 m_minor)); the product has 66 bits
    const Int128 dividend = Int128(2) * m_major * minor - m_major + tie;
    const int64_t divisor = 2 * m_minor;
    if (dividend < std::numeric_limits<int32_t>::max())
        return FloorDiv(static_cast<int64_t>(dividend) + divisor - 1, divisor);
    return static_cast<int64_t>(FloorDiv(dividend + divisor - 1, Int128(divisor)));
}

CosmeticLine::Start CosmeticLine::StartLong(int64_t step) const
{
    const Int128 dividend = Int128(2) * step * m_minor + m_major - Tie();
    const int64_t moved = static_cast<int64_t>(FloorDiv(dividend, Int128(2) * m_major));
    const int64_t rest = static_cast<int64_t>(dividend - Int128(moved) * 2 * m_major);
    return {moved, static_cast<uint64_t>((UInt128(2 * rest + 1) << 62) / UInt128(m_major)),
            static_cast<uint64_t>((UInt128(m_minor) << 64) / UInt128(m_major))};
}

} // namespace gdi
