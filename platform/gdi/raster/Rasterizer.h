/// The raster core: strokes and fills as spans, clipped before they are walked.
#pragma once

#include "gdi/raster/DevicePath.h"
#include "gdi/raster/Surface.h"

namespace gdi {

enum class FillRule
{
    Alternate,
    Winding
};

/// Draws paths into surfaces. Keeps its scratch memory between calls, so that a warm one allocates nothing; one serves a
/// whole thread. Every pixel of one stroke or fill is written once, whatever the raster operation.
///
/// A pixel belongs to a fill or to a wide stroke when its centre does; on the border left and top count as inside, right
/// and bottom as outside. Coordinates may be any int32: the cost depends on the visible pixels only.
class Rasterizer
{
public:
    /// Lines one pixel wide, each segment without its last point. `dash` null is solid; otherwise alternating run lengths
    /// in pixels, on first, ended by 0; the pattern runs on through a figure.
    void StrokeCosmetic(const DevicePath& path, const uint8_t* dash, const Ink& ink, const Surface& surface, const Box& clip);

    /// Lines `width` pixels wide (2 or more) with round ends and joins.
    void StrokeWide(const DevicePath& path, int32_t width, const Ink& ink, const Surface& surface, const Box& clip);

    /// Inside of the path; open figures are closed for filling.
    void Fill(const DevicePath& path, FillRule rule, const Ink& ink, const Surface& surface, const Box& clip);

    /// All pixels of a box.
    void FillBox(const Box& box, const Ink& ink, const Surface& surface, const Box& clip);
};

} // namespace gdi
