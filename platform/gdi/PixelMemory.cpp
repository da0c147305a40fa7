/// Allocation of pixel rows and access to single pixels.
#include "gdi/PixelMemory.h"

#include <cstdlib>
#include <cstring>

namespace gdi {

uint8_t* AllocatePixels(int64_t width, int64_t height, int bitsPerPixel, Surface& surface)
{
    const bool known = bitsPerPixel == 1 || bitsPerPixel == 24 || bitsPerPixel == 32;
    // Half of int32's range: drawing adds the sizes of glyphs and hatches to pixels inside without a thought of
    // overflow.
    const int64_t longestSide = 0x3FFFFFFF, mostBytes = 0x7FFFFFFF;
    if (width < 0 || height < 0 || width > longestSide || height > longestSide || !known) {
        return nullptr;
    }
    const int64_t stride = RowBytes(width, bitsPerPixel);
    if (height > 0 && stride > mostBytes / height) {
        return nullptr;
    }
    const size_t bytes = size_t(stride * height);
    uint8_t* const memory = static_cast<uint8_t*>(std::calloc(bytes > 0 ? bytes : 1, 1));
    if (memory != nullptr) {
        surface = {memory, ptrdiff_t(stride), int32_t(width), int32_t(height), bitsPerPixel};
    }
    return memory;
}

uint32_t ReadPixel(const Surface& surface, int32_t x, int32_t y)
{
    const uint8_t* const row = Row(surface, y);
    if (surface.bitsPerPixel == 1) {
        return row[x >> 3] >> (7 - (x & 7)) & 1u;
    }
    uint32_t value = 0;
    std::memcpy(&value, row + ptrdiff_t(x) * (surface.bitsPerPixel / 8), size_t(surface.bitsPerPixel / 8));
    return value;
}

void WritePixel(const Surface& surface, int32_t x, int32_t y, uint32_t value)
{
    uint8_t* const row = Row(surface, y);
    if (surface.bitsPerPixel == 1) {
        const uint8_t bit = uint8_t(0x80 >> (x & 7));
        row[x >> 3] = uint8_t(value != 0 ? row[x >> 3] | bit : row[x >> 3] & ~bit);
        return;
    }
    std::memcpy(row + ptrdiff_t(x) * (surface.bitsPerPixel / 8), &value, size_t(surface.bitsPerPixel / 8));
}

} // namespace gdi
