/// Block transfers.
#include "gdi/Colors.h"
#include "gdi/DeviceContext.h"
#include "gdi/PixelMemory.h"
#include "gdi/Trace.h"

#include <algorithm>
#include <cstring>

using namespace gdi;

namespace {

/// A block that lies inside both surfaces.
struct Block
{
    int32_t x, y, width, height, xSrc, ySrc;
};

/// Cuts one axis of a block to 0 <= target < extent, and to the source's extent where there is one (below 0: none).
bool CutAxis(int64_t& target, int64_t& source, int64_t& length, int64_t extent, int64_t sourceExtent)
{
    int64_t skip = std::max<int64_t>(0, -target);
    if (sourceExtent >= 0) {
        skip = std::max(skip, -source);
        length = std::min(length, sourceExtent - source);
    }
    length = std::min(length, extent - target) - skip;
    target += skip;
    source += skip;
    return length > 0;
}

/// Sums of int32 values are taken in 64 bits, so blocks may lie anywhere. False when nothing is left.
bool CutBlock(const Surface& to, const Surface* from, DevicePoint at, DevicePoint source, int32_t width, int32_t height,
              Block& block)
{
    int64_t x = at.x, y = at.y, xSrc = source.x, ySrc = source.y, w = width, h = height;
    if (!CutAxis(x, xSrc, w, to.width, from ? from->width : -1) ||
        !CutAxis(y, ySrc, h, to.height, from ? from->height : -1))
    {
        return false;
    }
    block = {int32_t(x), int32_t(y), int32_t(w), int32_t(h), int32_t(xSrc), int32_t(ySrc)};
    return true;
}

// The table gives the result for pattern, source and destination as bits 2, 1 and 0 of the row number: an input matters
// when rows that differ in it alone differ.
constexpr bool UsesSource(uint32_t table)
{
    return ((table >> 2 ^ table) & 0x33) != 0;
}

constexpr bool UsesPattern(uint32_t table)
{
    return ((table >> 4 ^ table) & 0x0F) != 0;
}

/// Bit by bit: the three inputs number the row of the truth table.
uint32_t Combine(uint32_t table, uint32_t pattern, uint32_t source, uint32_t target)
{
    uint32_t result = 0;
    for (uint32_t row = 0; row < 8; ++row) {
        if ((table >> row & 1) != 0) {
            result |= (row & 4 ? pattern : ~pattern) & (row & 2 ? source : ~source) & (row & 1 ? target : ~target);
        }
    }
    return result;
}

/// How a source pixel looks to the destination.
struct SourceColors
{
    int fromBits, toBits;
    uint32_t zero, one;  ///< what 0 and 1 of a monochrome source become
    uint32_t background; ///< the source pixel that becomes 1 on a monochrome destination

    SourceColors(const DeviceContext& to, const DeviceContext& from)
        : fromBits(from.surface->bitsPerPixel), toBits(to.surface->bitsPerPixel), zero(SwapRedBlue(to.textColor)),
          one(SwapRedBlue(to.bkColor)), background(SwapRedBlue(from.bkColor))
    {}
    uint32_t Convert(uint32_t value) const
    {
        if ((fromBits == 1) == (toBits == 1)) {
            return value;
        }
        return fromBits == 1 ? (value != 0 ? one : zero) : (value & 0xFFFFFF) == background;
    }
};

/// The brush at a device pixel. Patterns cover all of a block whatever the background mode.
uint32_t PatternAt(const Ink& ink, int32_t x, int32_t y)
{
    const bool gap = ink.hatch != nullptr && (ink.hatch[y & 7] >> (7 - (x & 7)) & 1) == 0;
    return gap ? ink.backPixel : ink.pixel;
}

/// The order of rows and columns. A block that moves down or to the right within one surface begins at its far end, so
/// that every pixel is read before another one is written over it.
struct Order
{
    bool upward = false;
    bool leftward = false;

    Order(const Surface& to, const Surface* from, const Block& block)
    {
        if (from != nullptr && from->bits == to.bits) {
            upward = block.y > block.ySrc;
            leftward = block.y == block.ySrc && block.x > block.xSrc;
        }
    }
    int32_t Row(const Block& block, int32_t i) const { return upward ? block.height - 1 - i : i; }
    int32_t Column(const Block& block, int32_t i) const { return leftward ? block.width - 1 - i : i; }
};

/// Whole rows of the same depth, each as overlapping memory.
void CopyRows(const Surface& to, const Surface& from, const Block& block)
{
    const int bytes = to.bitsPerPixel / 8;
    const Order order(to, &from, block);
    const size_t rowBytes = size_t(block.width) * size_t(bytes);
    if (to.stride == ptrdiff_t(rowBytes) && from.stride == to.stride) { // whole rows are one piece of memory
        std::memmove(Row(to, block.y), Row(from, block.ySrc), rowBytes * size_t(block.height));
        return;
    }
    for (int32_t i = 0; i < block.height; ++i) {
        const int32_t row = order.Row(block, i);
        std::memmove(Row(to, block.y + row) + ptrdiff_t(block.x) * bytes,
                     Row(from, block.ySrc + row) + ptrdiff_t(block.xSrc) * bytes, rowBytes);
    }
}

/// Any code between any depths, pixel by pixel.
void CombinePixels(const DeviceContext& to, const DeviceContext* from, const Block& block, uint32_t table,
                   const Ink& ink)
{
    const Surface& target = *to.surface;
    const uint32_t mask = target.bitsPerPixel == 1 ? 1 : 0xFFFFFF;
    const Order order(target, from != nullptr ? from->surface : nullptr, block);
    const SourceColors colors(to, from != nullptr ? *from : to);
    for (int32_t i = 0; i < block.height; ++i) {
        const int32_t row = order.Row(block, i), y = block.y + row;
        for (int32_t j = 0; j < block.width; ++j) {
            const int32_t column = order.Column(block, j), x = block.x + column;
            uint32_t source = 0;
            if (from != nullptr) {
                source = colors.Convert(ReadPixel(*from->surface, block.xSrc + column, block.ySrc + row));
            }
            const uint32_t value = Combine(table, PatternAt(ink, x, y), source, ReadPixel(target, x, y));
            WritePixel(target, x, y, value & mask);
        }
    }
}

/// Codes that leave one colour or pattern behind; false for others.
bool IsFill(DWORD code, const Surface& surface, Ink& ink)
{
    if (code == BLACKNESS || code == WHITENESS) {
        ink = {code == BLACKNESS ? 0 : surface.bitsPerPixel == 1 ? 1u : 0xFFFFFFu, RasterOp::Copy, nullptr, false, 0};
    } else if (code == PATCOPY) {
        ink.op = RasterOp::Copy;
        ink.opaque = true; // a pattern covers all of the block
    }
    return code == BLACKNESS || code == WHITENESS || code == PATCOPY;
}

/// Only moves: what block transfers can follow.
bool OnlyMoves(const DeviceContext& dc)
{
    return dc.world.straight && dc.world.m11 == 1 && dc.world.m22 == 1;
}

BOOL Transfer(DeviceContext& to, const DeviceContext* from, DevicePoint at, DevicePoint source, int width, int height,
              DWORD code)
{
    const uint32_t table = code >> 16 & 0xFF;
    const DeviceContext* const used = UsesSource(table) ? from : nullptr;
    if (!OnlyMoves(to) || (UsesSource(table) && (from == nullptr || !OnlyMoves(*from)))) {
        return FALSE;
    }
    Ink ink = {};
    if (UsesPattern(table) && !BrushInk(to, ink)) {
        return TRUE; // a hollow brush paints nothing
    }
    Block block;
    if (to.surface->bits == nullptr || (used != nullptr && used->surface->bits == nullptr) ||
        !CutBlock(*to.surface, used != nullptr ? used->surface : nullptr, at, source, width, height, block))
    {
        return TRUE;
    }
    if (code == SRCCOPY && used->surface->bitsPerPixel == to.surface->bitsPerPixel && to.surface->bitsPerPixel > 1) {
        CopyRows(*to.surface, *used->surface, block);
    } else if (IsFill(code, *to.surface, ink)) {
        const Box box = {block.x, block.y, block.x + block.width, block.y + block.height};
        SharedRasterizer().FillBox(box, ink, *to.surface, to.Clip());
    } else {
        CombinePixels(to, used, block, table, ink);
    }
    return TRUE;
}

} // namespace

BOOL BitBlt(HDC handle, int x, int y, int width, int height, HDC source, int xSrc, int ySrc, DWORD code)
{
    DeviceContext* const dc = FindDc(handle);
    const DeviceContext* const from = FindDc(source);
    if (dc == nullptr || (source != nullptr && from == nullptr)) {
        return FALSE;
    }
    Trace(dc, "BitBlt %d %d %d %d %d %d 0x%08X", x, y, width, height, xSrc, ySrc, code);
    const DevicePoint at = dc->world.ToDevice(x, y);
    const DevicePoint start = from != nullptr ? from->world.ToDevice(xSrc, ySrc) : at;
    return WithMemory([&] { return Transfer(*dc, from, at, start, width, height, code); });
}

BOOL PatBlt(HDC handle, int x, int y, int width, int height, DWORD code)
{
    DeviceContext* const dc = FindDc(handle);
    if (dc == nullptr || UsesSource(code >> 16 & 0xFF)) {
        return FALSE;
    }
    const DevicePoint at = dc->world.ToDevice(x, y);
    return WithMemory([&] { return Transfer(*dc, nullptr, at, {0, 0}, width, height, code); });
}

int GetClipBox(HDC handle, LPRECT box)
{
    const DeviceContext* const dc = FindDc(handle);
    if (dc == nullptr || box == nullptr) {
        return 0;
    }
    const Box clip = dc->Clip();
    if (clip.left >= clip.right || clip.top >= clip.bottom) {
        *box = {0, 0, 0, 0};
        return NULLREGION;
    }
    *box = {INT32_MAX, INT32_MAX, INT32_MIN, INT32_MIN};
    // A pixel stands for what lies up to half of one around it, hence the halves outward.
    for (const double x : {clip.left - 0.5, clip.right - 0.5}) {
        for (const double y : {clip.top - 0.5, clip.bottom - 0.5}) {
            const RealPoint corner = dc->world.Inverse({x, y});
            box->left = std::min(box->left, RoundToPixel(std::ceil(corner.x) - 0.5));
            box->top = std::min(box->top, RoundToPixel(std::ceil(corner.y) - 0.5));
            box->right = std::max(box->right, RoundToPixel(std::floor(corner.x) + 0.5));
            box->bottom = std::max(box->bottom, RoundToPixel(std::floor(corner.y) + 0.5));
        }
    }
    return SIMPLEREGION;
}
