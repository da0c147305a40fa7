/// How spans and lines of pixels reach a surface: one writer for each form of pixel and operation, chosen once a
/// stroke.
#pragma once

#include "gdi/raster/Surface.h"

#include <variant>

namespace gdi {

/// Pixels of one row, left inside and right outside. Empty unless left < right.
struct Span
{
    int32_t row;
    int32_t left;
    int32_t right;
};

/// A visible piece of a line: `count` pixels from (x, y), each one step along the longer axis. The place on the other
/// axis is a fraction of 64 bits; when it overflows, that axis makes a step too.
struct LineRun
{
    int32_t x;
    int32_t y;
    int64_t count;
    bool steep;        ///< the longer axis is y
    int64_t majorStep; ///< +1 or -1
    int64_t minorStep; ///< +1 or -1
    uint64_t fraction;
    uint64_t slope;
};

/// Calls `pixel(x, y)` for every pixel of a run, in order.
template <class Pixel>
inline void ForEachPixel(const LineRun& run, Pixel pixel)
{
    int64_t x = run.x; // the step after the last pixel may leave 32 bits
    int64_t y = run.y;
    uint64_t fraction = run.fraction;
    for (int64_t left = run.count; left > 0; --left) {
        pixel(static_cast<int32_t>(x), static_cast<int32_t>(y));
        const uint64_t next = fraction + run.slope;
        const int64_t minor = next < fraction ? run.minorStep : 0;
        x += run.steep ? minor : run.majorStep;
        y += run.steep ? run.majorStep : minor;
        fraction = next;
    }
}

/// Receives pixels that all lie inside the surface.
class PixelWriter
{
public:
    virtual void Spans(const Span* spans, size_t count) = 0;
    virtual void Rectangle(const Box& box) = 0;
    virtual void Line(const LineRun& run) = 0;

protected:
    ~PixelWriter() = default;
};

/// Every pixel becomes `value`, 32 bits.
struct StoreFormat
{
    uint8_t* bits;
    ptrdiff_t stride;
    uint32_t value;
};

/// Every pixel changes by `mask`, 32 bits.
struct XorFormat
{
    uint8_t* bits;
    ptrdiff_t stride;
    uint32_t mask;
};

/// Every pixel becomes (old & keep) ^ flip, by its place in a pattern of 8 x 8. Covers every operation, hatched or not.
struct PatternFormat
{
    uint8_t* bits;
    ptrdiff_t stride;
    uint32_t keep[8][8];
    uint32_t flip[8][8];
};

struct Pattern32Format : PatternFormat
{};
struct Pattern24Format : PatternFormat
{};

/// The same for 1 bit a pixel: a row of the pattern is exactly a byte, for it is anchored to column 0.
struct Pattern1Format
{
    uint8_t* bits;
    ptrdiff_t stride;
    uint8_t keep[8];
    uint8_t flip[8];
};

/// Stores into a box. Long rows and whole ones go to the C library, which has the stores of this very processor.
void FillRows(const StoreFormat& format, const Box& box);

template <class Format>
class FormatWriter final : public PixelWriter
{
public:
    explicit FormatWriter(const Format& format) : m_format(format) {}
    void Spans(const Span* spans, size_t count) override;
    void Rectangle(const Box& box) override;
    void Line(const LineRun& run) override;

private:
    Format m_format;
};

/// What a solid ink does to a surface of 32 bits.
enum class SolidForm
{
    None,  ///< nothing, or the ink has a pattern, or the surface another depth
    Store, ///< every pixel becomes the value
    Toggle ///< every pixel changes by the value
};

/// The usual case, for which no writer has to be made; sets `value` unless the answer is None.
SolidForm SolidFormOf(const Ink& ink, const Surface& surface, uint32_t& value);

/// Makes the writer for an ink and holds it. `Get()` is null when nothing can change: no pixels, an unknown form or
/// operation, or the operation that leaves everything alone. Does not own the surface; lives as long as one stroke.
class InkWriter
{
public:
    InkWriter(const Ink& ink, const Surface& surface);
    InkWriter(const InkWriter&) = delete;
    InkWriter& operator=(const InkWriter&) = delete;

    PixelWriter* Get() const { return m_writer; }
    /// Writing a pixel a second time changes it again, so that overlapping pieces have to be merged.
    bool Toggles() const { return m_toggles; }

private:
    template <class Format>
    void Use(const Format& format);
    void UsePattern(const Ink& ink, const Surface& surface);

    std::variant<std::monostate, FormatWriter<StoreFormat>, FormatWriter<XorFormat>, FormatWriter<Pattern32Format>,
                 FormatWriter<Pattern24Format>, FormatWriter<Pattern1Format>>
        m_storage;
    PixelWriter* m_writer = nullptr;
    bool m_toggles = false;
};

} // namespace gdi
