/// A line one pixel wide, its clip solved in closed form.
#pragma once

#include "gdi/raster/PixelWriter.h"
#include "gdi/raster/RasterMath.h"

namespace gdi {

/// The pixels from one point to another, numbered by steps along the longer axis from 0; the last point is left out. On
/// the shorter axis the nearer pixel is taken, and the upper or left one where two are equally near, so that a line and
/// its reverse touch the same pixels but for their ends. Points may be any int32.
///
/// After s steps the line has moved on the shorter axis by floor((2 s minor + major - tie) / (2 major)), with tie = 1
/// where that axis grows: there the smaller of two equally near pixels is the one not yet moved to.
///
/// What short lines need is inline: a line of twenty pixels takes less time than a few calls that keep its state in
/// memory.
class CosmeticLine
{
public:
    CosmeticLine(DevicePoint from, DevicePoint to) : m_from(from), m_to(to)
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

    /// Number of pixels: the longer of the two distances.
    int64_t Steps() const { return m_major; }

    /// A range of steps, end outside; empty when first >= end.
    struct StepRange
    {
        int64_t first;
        int64_t end;
    };

    /// The steps that lie in the clip. A line crosses a clip once, so there are no gaps.
    StepRange Visible(const Box& clip) const
    {
        const bool inside = Holds(clip, m_from) && Holds(clip, m_to);
        return inside ? StepRange{0, m_major} : CosmeticLine(m_from, m_to).CutToClip(clip);
    }

    /// Draws steps, all of which are visible. They are the same pixels whatever the clip was.
    template <class Writer>
    void Draw(StepRange steps, Writer&& writer) const
    {
        if (steps.first >= steps.end)
            return;
        const Start start =
            m_major < kShort ? StartShort(steps.first) : CosmeticLine(m_from, m_to).StartLong(steps.first);
        LineRun run;
        run.count = steps.end - steps.first;
        run.steep = m_steep;
        run.majorStep = m_majorStep;
        run.minorStep = m_minorStep;
        run.fraction = start.fraction;
        // A whole pixel a step does not fit; one unit less overflows all the same.
        run.slope = m_minor == m_major ? ~uint64_t(0) : start.slope;
        const int64_t major = steps.first * m_majorStep;
        const int64_t minor = start.moved * m_minorStep;
        run.x = static_cast<int32_t>(m_from.x + (m_steep ? minor : major));
        run.y = static_cast<int32_t>(m_from.y + (m_steep ? major : minor));
        if (m_minor > 0 || m_steep) {
            writer.Line(run);
            return;
        }
        const int32_t last = static_cast<int32_t>(run.x + (run.count - 1) * m_majorStep);
        writer.Rectangle({run.x < last ? run.x : last, run.y, (run.x < last ? last : run.x) + 1, run.y + 1});
    }

private:
    static constexpr int64_t kShort = int64_t(1) << 20;

    static bool Holds(const Box& clip, DevicePoint point)
    {
        return point.x >= clip.left && point.x < clip.right && point.y >= clip.top && point.y < clip.bottom;
    }
    int64_t Tie() const { return m_minorStep > 0; }
    int64_t FirstStepAtMinor(int64_t minor) const;

    // This and StartLong are called for a line made anew: one whose address goes nowhere stays in registers.
    StepRange CutToClip(const Box& clip) const;

    /// How far the line has moved at a step, and the fraction there. Fractions are multiples of 1 / (2 major);
    /// `fraction` lies half way between two of them, so that it overflows exactly with them as long as the errors of
    /// all steps add up to less than that half.
    struct Start
    {
        int64_t moved;
        uint64_t fraction;
        uint64_t slope;
    };

    Start StartShort(int64_t step) const
    {
        // In doubles: 2^20 steps with errors below 2^-52 stay below 2^-32, and the half is at least 2^-22.
        constexpr double kTwo63 = 9223372036854775808.0;
        int64_t moved = 0;
        int64_t rest = m_major - Tie();
        if (step > 0) {
            const int64_t dividend = 2 * step * m_minor + m_major - Tie();
            moved = FloorDiv(dividend, 2 * m_major);
            rest = dividend - moved * 2 * m_major;
        }
        const double scale = kTwo63 / static_cast<double>(m_major);
        const double fraction = static_cast<double>(2 * rest + 1) * 0.25 * scale;
        const double slope = static_cast<double>(m_minor) * 0.5 * scale;
        return {moved, static_cast<uint64_t>(static_cast<int64_t>(fraction)) << 1,
                static_cast<uint64_t>(static_cast<int64_t>(slope)) << 2};
    }
    Start StartLong(int64_t step) const;

    DevicePoint m_from;
    DevicePoint m_to;
    int64_t m_major; ///< distances along the longer and the shorter axis: up to 2^32
    int64_t m_minor;
    int64_t m_majorStep;
    int64_t m_minorStep;
    bool m_steep;
};

} // namespace gdi
