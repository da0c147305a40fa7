/// Dashed lines one pixel wide.
#pragma once

#include "gdi/raster/CosmeticLine.h"
#include "gdi/raster/DevicePath.h"
#include "gdi/raster/OnceWriter.h"

namespace gdi {

/// Draws a path with a pattern of dashes and gaps that runs on from line to line within a figure. Where a line is
/// clipped the pattern is advanced in closed form. Gaps are left alone, or painted in the back colour when the ink is
/// opaque.
class DashedStroke
{
public:
    /// `dash` has at least one length and ends with 0; an odd number of lengths changes the roles with every
    /// repetition. References and `dash` have to outlive the stroke.
    DashedStroke(const uint8_t* dash, const Ink& ink, const Surface& surface, const Box& clip, OnceWriter& once);

    /// `points` is scratch: arcs are dashed along their chords.
    void Draw(const DevicePath& path, std::vector<DevicePoint>& points);

private:
    void DrawLine(DevicePoint from, DevicePoint to);
    void DrawSteps(const CosmeticLine& line, const CosmeticLine::StepRange& steps, bool dash);

    const uint8_t* m_dash;
    int64_t m_period = 0; ///< pixels until the pattern repeats, roles included
    InkWriter m_dashes;
    InkWriter m_gaps;
    bool m_paintsGaps;
    Box m_clip;
    OnceWriter& m_once;
    bool m_merges = false;
    int64_t m_position = 0; ///< pixels of the figure before the line
};

} // namespace gdi
