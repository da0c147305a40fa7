/// Where pixels live and how covered pixels change. The raster core draws into surfaces; it knows nothing of handles.
#pragma once

#include <cstddef>
#include <cstdint>

namespace gdi {

/// A point in device pixels, x to the right, y downward. A point stands for the centre of its pixel.
struct DevicePoint
{
    int32_t x;
    int32_t y;
};

/// Half-open box of pixels: right and bottom are the first column and row outside. Empty unless left < right, top <
/// bottom.
struct Box
{
    int32_t left;
    int32_t top;
    int32_t right;
    int32_t bottom;
};

/// Pixels in memory, rows from the top down (a negative stride makes a bottom-up bitmap). Does not own its bits.
/// Null bits, no width or no height is a surface without pixels: drawing into it does nothing.
/// 32 bits: 0x00RRGGBB in a little-endian dword, rows aligned to 4 bytes. 24 bits: blue, green, red. 1 bit: most
/// significant bit first, 1 is white.
struct Surface
{
    uint8_t* bits;
    ptrdiff_t stride; ///< bytes from one row to the next
    int32_t width;
    int32_t height;
    int bitsPerPixel; ///< 1, 24 or 32
};

/// What happens to a covered pixel; the values are those of the platform's R2_ codes.
enum class RasterOp
{
    Black = 1,
    Not = 6,
    Xor = 7,
    Nop = 11,
    Copy = 13,
    White = 16
};

/// How covered pixels change. Pixel values are in the surface's own form (0 or 1 on a surface of 1 bit).
struct Ink
{
    uint32_t pixel;
    RasterOp op;
    const uint8_t*
        hatch;   ///< null, or eight rows of eight bits anchored to device (0, 0), most significant bit leftmost
    bool opaque; ///< with a hatch or a dash: gaps are painted with backPixel instead of left alone
    uint32_t backPixel;
};

inline bool IsEmpty(const Box& box)
{
    return box.left >= box.right || box.top >= box.bottom;
}

/// The pixels that both boxes hold; may come out empty with any edges.
inline Box Intersection(const Box& a, const Box& b)
{
    return {a.left > b.left ? a.left : b.left, a.top > b.top ? a.top : b.top, a.right < b.right ? a.right : b.right,
            a.bottom < b.bottom ? a.bottom : b.bottom};
}

} // namespace gdi
