/// Spans on their way to a writer, a few hundred at a time.
#pragma once

#include "gdi/raster/PixelWriter.h"

namespace gdi {

/// Collects spans and hands them over when full and in its destructor. Lives on the stack; owns nothing.
class SpanBuffer
{
public:
    explicit SpanBuffer(PixelWriter& writer) : m_writer(writer) {}
    ~SpanBuffer() { Flush(); }
    SpanBuffer(const SpanBuffer&) = delete;
    SpanBuffer& operator=(const SpanBuffer&) = delete;

    void Add(int32_t row, int32_t left, int32_t right)
    {
        if (m_count == kCapacity)
            Flush();
        m_spans[m_count++] = {row, left, right};
    }
    void Flush()
    {
        m_writer.Spans(m_spans, m_count);
        m_count = 0;
    }

private:
    static constexpr size_t kCapacity = 256;

    PixelWriter& m_writer;
    size_t m_count = 0;
    Span m_spans[kCapacity];
};

} // namespace gdi
