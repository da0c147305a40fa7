/// Memory for pixels, and pixels one at a time.
#pragma once

#include "gdi/raster/Surface.h"

namespace gdi {

/// Bytes of one row padded to 32 bits. `width` must not be negative.
constexpr int64_t RowBytes(int64_t width, int bitsPerPixel)
{
    return (width * bitsPerPixel + 31) / 32 * 4;
}

/// Zeroed rows for a surface, which is filled in (top-down). Null for negative sizes, other depths than 1, 24 and 32,
/// sides of 2^30 and longer, more than 2^31 - 1 bytes, or when memory does not suffice. The caller gives it back with
/// FreePixels. A surface without pixels gets memory too.
uint8_t* AllocatePixels(int64_t width, int64_t height, int bitsPerPixel, Surface& surface);

/// Gives the rows back. The last ones of a frame's size, up to 128 MiB, stay in hand for the next surface of the same
/// size: a frame is composed in a bitmap of its own each time, and to let the system take and clear its pages takes
/// longer than to draw a board.
void FreePixels(uint8_t* memory);

/// One row of a surface.
inline uint8_t* Row(const Surface& surface, int32_t y)
{
    return surface.bits + surface.stride * y;
}

/// The value of a pixel; x and y have to lie inside.
uint32_t ReadPixel(const Surface& surface, int32_t x, int32_t y);
void WritePixel(const Surface& surface, int32_t x, int32_t y, uint32_t value);

} // namespace gdi
