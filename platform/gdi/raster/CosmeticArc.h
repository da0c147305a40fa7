/// An arc one pixel wide.
#pragma once

#include "gdi/raster/DevicePath.h"
#include "gdi/raster/PixelWriter.h"

namespace gdi {

/// Draws the arc's visible pixels, each once: its rounded start point, then those pixels of the ellipse that lie
/// between the radials, without the rounded end point. A whole ellipse is drawn in full, without its rounded start
/// point. Consecutive pixels touch at least at their corners, also where lines end at the start point or go on from the
/// end point; a circle is symmetric about its axes and diagonals. Only visible columns and rows are looked at, whatever
/// the radius.
void DrawCosmeticArc(const EllipseArc& arc, const Box& clip, PixelWriter& writer);

} // namespace gdi
