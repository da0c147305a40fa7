#include "gdi/raster/OnceWriter.h"

#include <algorithm>

namespace gdi {

void OnceWriter::Begin(const Box& area)
{
    m_area = area;
    m_wordsPerRow = (size_t(int64_t(area.right) - area.left) + 63) / 64;
    m_words.assign(m_wordsPerRow * size_t(int64_t(area.bottom) - area.top), 0);
}

void OnceWriter::Spans(const Span* spans, size_t count)
{
    for (const Span* span = spans; span != spans + count; ++span) {
        if (span->left < span->right)
            PassFresh(*span);
    }
}

void OnceWriter::Rectangle(const Box& box)
{
    for (int32_t row = box.top; row < box.bottom; ++row)
        PassFresh({row, box.left, box.right});
}

void OnceWriter::Line(const LineRun& run)
{
    ForEachPixel(run, [this](int32_t x, int32_t y) { PassFresh({y, x, x + 1}); });
}

void OnceWriter::PassFresh(const Span& span)
{
    uint64_t* const words = m_words.data() + m_wordsPerRow * size_t(int64_t(span.row) - m_area.top);
    const int64_t right = int64_t(span.right) - m_area.left;
    Span fresh = {span.row, span.left, span.left}; // pixels not seen before, up to where the loop stands
    for (int64_t x = int64_t(span.left) - m_area.left; x < right;) {
        const int64_t wordEnd = std::min((x | 63) + 1, right);
        const uint64_t mask = (~uint64_t(0) >> (64 - (wordEnd - x))) << (x & 63);
        uint64_t& word = words[x >> 6];
        if ((word & mask) == 0) { // the usual case: none of these was painted yet
            word |= mask;
            x = wordEnd;
            fresh.right = static_cast<int32_t>(x + m_area.left);
            continue;
        }
        if ((word & mask) == mask) { // inside of an earlier piece: wide pieces of a curve overlap nearly everywhere
            if (fresh.left < fresh.right)
                m_target->Spans(&fresh, 1);
            x = wordEnd;
            fresh.left = fresh.right = static_cast<int32_t>(x + m_area.left);
            continue;
        }
        for (; x < wordEnd; ++x) {
            const uint64_t bit = uint64_t(1) << (x & 63);
            const int32_t column = static_cast<int32_t>(x + m_area.left);
            if (word & bit) {
                if (fresh.left < fresh.right)
                    m_target->Spans(&fresh, 1);
                fresh.left = fresh.right = column + 1;
            } else {
                fresh.right = column + 1;
            }
        }
        word |= mask;
    }
    if (fresh.left < fresh.right)
        m_target->Spans(&fresh, 1);
}

} // namespace gdi
