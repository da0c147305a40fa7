/// A line one pixel wide, its clip solved in closed form.
#pragma once

#include "gdi/raster/PixelWriter.h"

namespace gdi {

/// The pixels from one point to another, numbered by steps along the longer axis from 0; the last point is left out. On
/// the shorter axis the nearer pixel is taken, and the upper or left one where two are equally near, so that a line and
/// its reverse touch the same pixels but for their ends. Points may be any int32.
class CosmeticLine
{
public:
    CosmeticLine(DevicePoint from, DevicePoint to);

    /// Number of pixels: the longer of the two distances.
    int64_t Steps() const { return m_major; }

    /// The steps [first, end) that lie in the clip; none when first >= end. A line crosses a clip once, so there are no
    /// gaps.
    void Visible(const Box& clip, int64_t& first, int64_t& end) const;

    /// Draws the steps [first, end), all of which are visible. They are the same pixels whatever the clip was.
    void Draw(int64_t first, int64_t end, PixelWriter& writer) const;

private:
    void CutToClip(const Box& clip, int64_t& first, int64_t& end) const;
    int64_t FirstStepAtMinor(int64_t minor) const;
    void Start(int64_t step, LineRun& run) const;

    DevicePoint m_from;
    DevicePoint m_to;
    int64_t m_major; ///< distances along the longer and the shorter axis: up to 2^32
    int64_t m_minor;
    int32_t m_majorStep;
    int32_t m_minorStep;
    bool m_steep;
};

} // namespace gdi
