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
/// sides of 2^30 and longer, more than 2^31 - 1 bytes, or when memory does not suffice. The caller frees it with
/// std::free. A surface without pixels gets a byte.
uint8_t* AllocatePixels(int64_t width, int64_t height, int bitsPerPixel, Surface& surface);

/// One row of a surface.
inline uint8_t* Row(const Surface& surface, int32_t y)
{
    return surface.bits + surface.stride * y;
}

/// The value of a pixel; x and y have to lie inside.
uint32_t ReadPixel(const Surface& surface, int32_t x, int32_t y);
void WritePixel(const Surface& surface, int32_t x, int32_t y, uint32_t value);

} // namespace gdi
