/// A wide arc of a circle: the ring around it, cut by the two radials, with a disc at both ends.
#pragma once

#include "gdi/raster/Capsule.h"
#include "gdi/raster/DevicePath.h"

namespace gdi {

/// Draws all points less than width / 2 away from the arc; the round ends sit on the arc's rounded end points. Works
/// row by row without flattening; the pieces of a row are merged, so every pixel is written once. Radii must be equal.
void DrawRingSector(const EllipseArc& arc, int32_t width, RoundEnds& ends, const Box& clip, PixelWriter& writer);

/// Fills a full circle, with the pixels that the general fill would find.
void FillDisc(const EllipseArc& circle, RoundEnds& ends, const Box& clip, PixelWriter& writer);

/// The same for the usual ink and a circle around a pixel, without a writer; false, and nothing drawn, for others.
bool StoreDisc(const EllipseArc& circle, RoundEnds& ends, const Box& clip, const StoreFormat& format);

} // namespace gdi
