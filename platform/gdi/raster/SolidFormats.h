/// How pixels of 32 bits without a pattern are written: stored or toggled, as spans and as lines. Inline, for the few
/// places where a call for each stroke shows; everything else goes through a PixelWriter.
#pragma once

#include "gdi/raster/PixelWriter.h"

#include <cstring>

namespace gdi {

/// Four pixels, which the compiler moves at once.
struct Block
{
    uint32_t pixel[4];
};
constexpr int64_t kBlock = 4;

inline void Put(uint32_t* at, const Block& block)
{
    std::memcpy(at, &block, sizeof(block));
}

inline Block Toggled(const uint32_t* at, uint32_t mask)
{
    Block block;
    std::memcpy(&block, at, sizeof(block));
    for (uint32_t& pixel : block.pixel)
        pixel ^= mask;
    return block;
}

// Strokes are mostly a few pixels wide, and how many they are cannot be predicted. So the last block overlaps the one
// before instead of ending pixel by pixel, and one to three pixels are written as three, some of them the same.

inline void Store(uint32_t* at, int64_t count, uint32_t value)
{
    if (count < kBlock) {
        if (count <= 0)
            return;
        at[0] = value;
        at[count >> 1] = value;
        at[count - 1] = value;
        return;
    }
    const Block block = {{value, value, value, value}};
    uint32_t* const last = at + count - kBlock;
    for (; last - at >= 3 * kBlock; at += 4 * kBlock) {
        Put(at, block);
        Put(at + kBlock, block);
        Put(at + 2 * kBlock, block);
        Put(at + 3 * kBlock, block);
    }
    for (; at < last; at += kBlock)
        Put(at, block);
    Put(last, block);
}

inline void Toggle(uint32_t* at, int64_t count, uint32_t mask)
{
    if (count < kBlock) {
        if (count <= 0)
            return;
        const uint32_t first = at[0] ^ mask; // all are read before the first is written
        const uint32_t middle = at[count >> 1] ^ mask;
        const uint32_t last = at[count - 1] ^ mask;
        at[0] = first;
        at[count >> 1] = middle;
        at[count - 1] = last;
        return;
    }
    uint32_t* const last = at + count - kBlock;
    const Block lastBlock = Toggled(last, mask);
    for (; at < last; at += kBlock)
        Put(at, Toggled(at, mask));
    Put(last, lastBlock);
}

template <class Format>
inline uint8_t* RowOf(const Format& format, int32_t row)
{
    return format.bits + row * format.stride;
}

inline void WriteSpan(const StoreFormat& format, const Span& span)
{
    Store(reinterpret_cast<uint32_t*>(RowOf(format, span.row)) + span.left, int64_t(span.right) - span.left,
          format.value);
}

inline void WriteSpan(const XorFormat& format, const Span& span)
{
    Toggle(reinterpret_cast<uint32_t*>(RowOf(format, span.row)) + span.left, int64_t(span.right) - span.left,
           format.mask);
}

/// 32 bits: the pixel's address moves by two strides, with a mask for the shorter axis, whose steps no branch predictor
/// could foretell.
template <class Change>
inline void WalkAddresses(uint8_t* bits, ptrdiff_t stride, const LineRun& run, Change change)
{
    const ptrdiff_t alongX = run.steep ? run.minorStep : run.majorStep;
    const ptrdiff_t alongY = run.steep ? run.majorStep : run.minorStep;
    const ptrdiff_t major = run.steep ? alongY * stride : alongX * 4;
    const ptrdiff_t minor = run.steep ? alongX * 4 : alongY * stride;
    uint8_t* at = bits + run.y * stride + ptrdiff_t(run.x) * 4;
    uint64_t fraction = run.fraction;
    for (int64_t left = run.count;;) {
        change(*reinterpret_cast<uint32_t*>(at));
        if (--left <= 0)
            return;
        const uint64_t next = fraction + run.slope;
        at += major + (minor & -static_cast<ptrdiff_t>(next < fraction));
        fraction = next;
    }
}

inline void WriteLine(const StoreFormat& format, const LineRun& run)
{
    const uint32_t value = format.value;
    WalkAddresses(format.bits, format.stride, run, [value](uint32_t& pixel) { pixel = value; });
}

inline void WriteLine(const XorFormat& format, const LineRun& run)
{
    const uint32_t mask = format.mask;
    WalkAddresses(format.bits, format.stride, run, [mask](uint32_t& pixel) { pixel ^= mask; });
}

/// Receives spans and lines like a PixelWriter, but is known where it is used.
template <class Format>
class SolidSink
{
public:
    explicit SolidSink(const Format& format) : m_format(format) {}
    void Line(const LineRun& run) { WriteLine(m_format, run); }
    void Rectangle(const Box& box)
    {
        for (int32_t row = box.top; row < box.bottom; ++row)
            WriteSpan(m_format, {row, box.left, box.right});
    }

private:
    Format m_format;
};

} // namespace gdi
