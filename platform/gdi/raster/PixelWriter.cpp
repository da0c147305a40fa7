#include "gdi/raster/PixelWriter.h"

#include <algorithm>
#include <cstring>

namespace gdi {
namespace {

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

inline void WriteSpan(const Pattern32Format& format, const Span& span)
{
    uint32_t* const row = reinterpret_cast<uint32_t*>(RowOf(format, span.row));
    const uint32_t* const keep = format.keep[span.row & 7];
    const uint32_t* const flip = format.flip[span.row & 7];
    for (int32_t x = span.left; x < span.right; ++x)
        row[x] = (row[x] & keep[x & 7]) ^ flip[x & 7];
}

inline void WriteSpan(const Pattern24Format& format, const Span& span)
{
    const uint32_t* const keep = format.keep[span.row & 7];
    const uint32_t* const flip = format.flip[span.row & 7];
    uint8_t* at = RowOf(format, span.row) + ptrdiff_t(span.left) * 3;
    for (int32_t x = span.left; x < span.right; ++x, at += 3) {
        const uint32_t old = at[0] | uint32_t(at[1]) << 8 | uint32_t(at[2]) << 16;
        const uint32_t pixel = (old & keep[x & 7]) ^ flip[x & 7];
        at[0] = static_cast<uint8_t>(pixel);
        at[1] = static_cast<uint8_t>(pixel >> 8);
        at[2] = static_cast<uint8_t>(pixel >> 16);
    }
}

inline void WriteSpan(const Pattern1Format& format, const Span& span)
{
    if (span.left >= span.right)
        return;
    const uint8_t keep = format.keep[span.row & 7];
    const uint8_t flip = format.flip[span.row & 7];
    uint8_t* const row = RowOf(format, span.row);
    const auto change = [keep, flip](uint8_t& byte, unsigned mask) {
        byte = static_cast<uint8_t>((byte & (keep | ~mask)) ^ (flip & mask));
    };
    const int32_t first = span.left >> 3;
    const int32_t last = (span.right - 1) >> 3;
    const unsigned firstMask = 0xFFu >> (span.left & 7);
    const unsigned lastMask = 0xFFu & (0xFF00u >> (((span.right - 1) & 7) + 1));
    if (first == last) {
        change(row[first], firstMask & lastMask);
        return;
    }
    change(row[first], firstMask);
    for (int32_t i = first + 1; i < last; ++i)
        change(row[i], 0xFF);
    change(row[last], lastMask);
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

template <class Format>
inline void WriteLine(const Format& format, const LineRun& run)
{
    ForEachPixel(run, [&format](int32_t x, int32_t y) { WriteSpan(format, {y, x, x + 1}); });
}

uint32_t ColourMask(int bitsPerPixel)
{
    return bitsPerPixel == 1 ? 1 : 0xFFFFFF;
}

/// What an operation does, as (old & keep) ^ flip. False for the operation that does nothing and for unknown ones.
bool Resolve(RasterOp op, uint32_t pixel, uint32_t white, uint32_t& keep, uint32_t& flip)
{
    keep = 0;
    flip = pixel;
    switch (op) {
    case RasterOp::Copy:
        break;
    case RasterOp::Black:
        flip = 0;
        break;
    case RasterOp::White:
        flip = white;
        break;
    case RasterOp::Not:
        keep = ~0u;
        flip = white;
        break;
    case RasterOp::Xor:
        keep = ~0u;
        break;
    default:
        return false;
    }
    return true;
}

} // namespace

template <class Format>
void FormatWriter<Format>::Spans(const Span* spans, size_t count)
{
    const Format format = m_format; // a local one can stay in registers, whatever the pixels alias
    for (const Span* span = spans; span != spans + count; ++span)
        WriteSpan(format, *span);
}

template <class Format>
void FormatWriter<Format>::Rectangle(const Box& box)
{
    const Format format = m_format;
    for (int32_t row = box.top; row < box.bottom; ++row)
        WriteSpan(format, {row, box.left, box.right});
}

template <class Format>
void FormatWriter<Format>::Line(const LineRun& run)
{
    if (run.count > 0)
        WriteLine(m_format, run);
}

InkWriter::InkWriter(const Ink& ink, const Surface& surface)
{
    const bool known = surface.bitsPerPixel == 1 || surface.bitsPerPixel == 24 || surface.bitsPerPixel == 32;
    uint32_t keep;
    uint32_t flip;
    if (!surface.bits || !known || !Resolve(ink.op, ink.pixel, ColourMask(surface.bitsPerPixel), keep, flip))
        return;
    m_toggles = keep != 0;
    if (surface.bitsPerPixel != 32 || ink.hatch)
        UsePattern(ink, surface);
    else if (m_toggles)
        Use(XorFormat{surface.bits, surface.stride, flip});
    else
        Use(StoreFormat{surface.bits, surface.stride, flip});
}

template <class Format>
void InkWriter::Use(const Format& format)
{
    m_writer = &m_storage.template emplace<FormatWriter<Format>>(format);
}

void InkWriter::UsePattern(const Ink& ink, const Surface& surface)
{
    const uint32_t white = ColourMask(surface.bitsPerPixel);
    uint32_t keep[2] = {~0u, ~0u}; // of the gaps, of the pattern's own pixels
    uint32_t flip[2] = {0, 0};
    if (ink.opaque)
        Resolve(ink.op, ink.backPixel, white, keep[0], flip[0]);
    Resolve(ink.op, ink.pixel, white, keep[1], flip[1]);

    PatternFormat pattern;
    pattern.bits = surface.bits;
    pattern.stride = surface.stride;
    Pattern1Format bitPattern = {surface.bits, surface.stride, {}, {}};
    for (int row = 0; row < 8; ++row) {
        for (int column = 0; column < 8; ++column) {
            const bool set = !ink.hatch || (ink.hatch[row] >> (7 - column) & 1);
            pattern.keep[row][column] = keep[set];
            pattern.flip[row][column] = flip[set];
            bitPattern.keep[row] |= static_cast<uint8_t>((keep[set] & 1) << (7 - column));
            bitPattern.flip[row] |= static_cast<uint8_t>((flip[set] & 1) << (7 - column));
        }
    }
    if (surface.bitsPerPixel == 1)
        Use(bitPattern);
    else if (surface.bitsPerPixel == 24)
        Use(Pattern24Format{pattern});
    else
        Use(Pattern32Format{pattern});
}

} // namespace gdi
