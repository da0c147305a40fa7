#include "gdi/raster/CosmeticLine.h"

#include "gdi/raster/RasterMath.h"

#include <algorithm>

namespace gdi {

// After s steps the line has moved on the shorter axis by floor((2 s minor + major - tie) / (2 major)): the nearest
// pixel, with tie = 1 where the axis grows, since there the smaller of two equally near pixels is the one not yet moved
// to.

CosmeticLine::CosmeticLine(DevicePoint from, DevicePoint to) : m_from(from), m_to(to)
{
    const int64_t dx = int64_t(to.x) - from.x;
    const int64_t dy = int64_t(to.y) - from.y;
    const int64_t width = dx < 0 ? -dx : dx;
    const int64_t height = dy < 0 ? -dy : dy;
    m_steep = height > width;
    m_major = m_steep ? height : width;
    m_minor = m_steep ? width : height;
    m_majorStep = (m_steep ? dy : dx) < 0 ? -1 : 1;
    m_minorStep = (m_steep ? dx : dy) < 0 ? -1 : 1;
}

void CosmeticLine::Visible(const Box& clip, int64_t& first, int64_t& end) const
{
    first = 0;
    end = m_major;
    const bool inside = std::min(m_from.x, m_to.x) >= clip.left && std::max(m_from.x, m_to.x) < clip.right &&
                        std::min(m_from.y, m_to.y) >= clip.top && std::max(m_from.y, m_to.y) < clip.bottom;
    if (!inside)
        CutToClip(clip, first, end);
}

void CosmeticLine::Draw(int64_t first, int64_t end, PixelWriter& writer) const
{
    if (first >= end)
        return;
    LineRun run;
    run.count = end - first;
    run.steep = m_steep;
    run.majorStep = m_majorStep;
    run.minorStep = m_minorStep;
    Start(first, run);
    if (m_minor == 0 && !m_steep) {
        const int32_t other = static_cast<int32_t>(run.x + (run.count - 1) * m_majorStep);
        const Span span = {run.y, std::min(run.x, other), std::max(run.x, other) + 1};
        writer.Spans(&span, 1);
        return;
    }
    writer.Line(run);
}

void CosmeticLine::CutToClip(const Box& clip, int64_t& first, int64_t& end) const
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
    first = std::max(first, majorLow);
    end = std::min(end, majorEnd);
    if (minorEnd <= 0 || minorLow > m_minor || clip.left >= clip.right || clip.top >= clip.bottom) {
        end = first;
        return;
    }
    if (minorLow > 0)
        first = std::max(first, FirstStepAtMinor(minorLow));
    if (minorEnd <= m_minor)
        end = std::min(end, FirstStepAtMinor(minorEnd));
}

/// The first step that has moved by `minor` (1 to the line's own) on the shorter axis.
int64_t CosmeticLine::FirstStepAtMinor(int64_t minor) const
{
    const int64_t tie = m_minorStep > 0;
    // ceil((2 major minor - major + tie) / (2 m_minor)); the product has 66 bits
    const Int128 dividend = Int128(2) * m_major * minor - m_major + tie;
    const int64_t divisor = 2 * m_minor;
    if (dividend < std::numeric_limits<int32_t>::max())
        return FloorDiv(static_cast<int64_t>(dividend) + divisor - 1, divisor);
    return static_cast<int64_t>(FloorDiv(dividend + divisor - 1, Int128(divisor)));
}

/// Sets the place and the fraction at a step. Fractions are multiples of 1 / (2 major), and `fraction` lies half way
/// between two of them, so that it overflows exactly with them as long as the steps add up to less than that half.
void CosmeticLine::Start(int64_t step, LineRun& run) const
{
    constexpr double kTwo63 = 9223372036854775808.0;
    constexpr int64_t kSmall = int64_t(1) << 20;
    const int64_t tie = m_minorStep > 0;
    int64_t moved = 0;
    if (m_major < kSmall) {
        // In doubles: 2^20 steps with errors below 2^-52 stay below 2^-32, and the half is at least 2^-22.
        int64_t rest = m_major - tie;
        if (step > 0) {
            const int64_t dividend = 2 * step * m_minor + m_major - tie;
            moved = FloorDiv(dividend, 2 * m_major);
            rest = dividend - moved * 2 * m_major;
        }
        const double scale = kTwo63 / static_cast<double>(m_major);
        run.fraction = static_cast<uint64_t>(static_cast<int64_t>(static_cast<double>(2 * rest + 1) * 0.25 * scale))
                       << 1;
        run.slope = static_cast<uint64_t>(static_cast<int64_t>(static_cast<double>(m_minor) * scale * 0.5)) << 2;
    } else {
        const Int128 dividend = Int128(2) * step * m_minor + m_major - tie;
        moved = static_cast<int64_t>(FloorDiv(dividend, Int128(2) * m_major));
        const int64_t rest = static_cast<int64_t>(dividend - Int128(moved) * 2 * m_major);
        run.fraction = static_cast<uint64_t>((UInt128(2 * rest + 1) << 62) / UInt128(m_major));
        run.slope = static_cast<uint64_t>((UInt128(m_minor) << 64) / UInt128(m_major));
    }
    if (m_minor == m_major)
        run.slope = ~uint64_t(0); // a whole pixel a step does not fit; one unit less overflows all the same
    const int64_t major = step * m_majorStep;
    const int64_t minor = moved * m_minorStep;
    run.x = static_cast<int32_t>(m_from.x + (m_steep ? minor : major));
    run.y = static_cast<int32_t>(m_from.y + (m_steep ? major : minor));
}

} // namespace gdi
