#include "gdi/raster/PixelWriter.h"

#include "gdi/raster/SolidFormats.h"

#include <algorithm>
#include <cwchar>

namespace gdi {
namespace {

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

void FillRows(const StoreFormat& format, const Box& box)
{
    constexpr int64_t kLong = 256;
    const int64_t width = int64_t(box.right) - box.left;
    int64_t rows = int64_t(box.bottom) - box.top;
    uint8_t* row = RowOf(format, box.top) + ptrdiff_t(box.left) * 4;
    if (format.stride == width * 4 && sizeof(wchar_t) == 4 && width * rows >= kLong) {
        std::wmemset(reinterpret_cast<wchar_t*>(row), static_cast<wchar_t>(format.value),
                     static_cast<size_t>(width * rows));
    } else if (sizeof(wchar_t) == 4 && width >= kLong) {
        for (; rows > 0; --rows, row += format.stride)
            std::wmemset(reinterpret_cast<wchar_t*>(row), static_cast<wchar_t>(format.value),
                         static_cast<size_t>(width));
    } else {
        for (; rows > 0; --rows, row += format.stride)
            Store(reinterpret_cast<uint32_t*>(row), width, format.value);
    }
}

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

template <>
void FormatWriter<StoreFormat>::Rectangle(const Box& box)
{
    FillRows(m_format, box);
}

template <class Format>
void FormatWriter<Format>::Line(const LineRun& run)
{
    if (run.count > 0)
        WriteLine(m_format, run);
}

SolidForm SolidFormOf(const Ink& ink, const Surface& surface, uint32_t& value)
{
    uint32_t keep;
    if (surface.bitsPerPixel != 32 || !surface.bits || ink.hatch ||
        !Resolve(ink.op, ink.pixel, ColourMask(32), keep, value))
        return SolidForm::None;
    return keep == 0 ? SolidForm::Store : SolidForm::Toggle;
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
