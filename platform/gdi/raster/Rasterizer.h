/// The raster core: strokes and fills as spans, clipped before they are walked.
#pragma once

#include "gdi/raster/DevicePath.h"
#include "gdi/raster/Surface.h"
#include "KolmApi.h"

#include <memory>

namespace gdi {

enum class FillRule
{
    Alternate,
    Winding
};

/// Draws paths into surfaces. Keeps its scratch memory between calls, so that a warm one allocates nothing; one serves
/// a whole thread. Every pixel of one stroke or fill is written once, or, where writing twice gives the same (copy,
/// black, white), possibly more often.
///
/// A pixel belongs to a fill or to a wide stroke when its centre does; on the border left and top count as inside,
/// right and bottom as outside. On a round border that means the left half and the topmost point. Coordinates may be
/// any int32: the cost depends on the visible pixels only. The clip is cut to the surface; an empty one draws nothing.
class KOLM_API Rasterizer
{
public:
    Rasterizer();
    ~Rasterizer();
    Rasterizer(const Rasterizer&) = delete;
    Rasterizer& operator=(const Rasterizer&) = delete;

    /// Lines one pixel wide, each segment without its last point, so that a segment of length zero draws nothing. Where
    /// the ideal line passes half way between two pixels, the upper or left one is taken. An arc draws its first point
    /// and leaves out its last; a whole ellipse has each of its pixels once, one of radius 0 is a single pixel.
    /// `dash` null is solid; otherwise alternating run lengths in pixels, on first, ended by 0; the pattern runs on
    /// through a figure and starts again with the next.
    void StrokeCosmetic(const DevicePath& path, const uint8_t* dash, const Ink& ink, const Surface& surface,
                        const Box& clip);

    /// Lines `width` pixels wide with round ends and joins; a line of length zero is a disc. A width below 2 is
    /// cosmetic.
    void StrokeWide(const DevicePath& path, int32_t width, const Ink& ink, const Surface& surface, const Box& clip);

    /// Either of them for a path of one line.
    void StrokeSegment(DevicePoint from, DevicePoint to, int32_t width, const uint8_t* dash, const Ink& ink,
                       const Surface& surface, const Box& clip);

    /// Inside of the path; open figures are closed for filling.
    void Fill(const DevicePath& path, FillRule rule, const Ink& ink, const Surface& surface, const Box& clip);

    /// All pixels of a box.
    void FillBox(const Box& box, const Ink& ink, const Surface& surface, const Box& clip);

private:
    struct Scratch;
    std::unique_ptr<Scratch> m_scratch;
};

/// What Rasterizer::StrokeSegment draws for the most frequent stroke: solid, one pixel wide, on a surface of 32 bits.
void DrawThinLine(DevicePoint from, DevicePoint to, uint32_t pixel, RasterOp op, const Surface& surface);

} // namespace gdi
