/// Lets every pixel through once, so that exclusive-or undoes itself where the pieces of one stroke overlap.
#pragma once

#include "gdi/raster/PixelWriter.h"

#include <vector>

namespace gdi {

/// Stands before other writers and remembers in a bit per pixel what it has passed on; whoever comes first paints the
/// pixel. Keeps its memory from stroke to stroke.
class OnceWriter final : public PixelWriter
{
public:
    /// Forgets everything. Until the next Begin() all pixels have to lie in `area`.
    void Begin(const Box& area);
    /// Where fresh pixels go from here on; not owned.
    void SetTarget(PixelWriter* target) { m_target = target; }

    void Spans(const Span* spans, size_t count) override;
    void Rectangle(const Box& box) override;
    void Line(const LineRun& run) override;

private:
    void PassFresh(const Span& span);

    PixelWriter* m_target = nullptr;
    Box m_area = {0, 0, 0, 0};
    size_t m_wordsPerRow = 0;
    std::vector<uint64_t> m_words;
};

} // namespace gdi
