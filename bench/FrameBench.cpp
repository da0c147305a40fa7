/// Frames composed by a painter from shapes on the heap, beside the least work that paints the same pixels.
///
/// A Kolm row is what a host pays: DrawView with its cleared off-screen bitmap, a pen for every stroke, and the block
/// transfer to the window. A row fails when it paints another number of pixels than its limit, but for the rim of a
/// stroke.
#include "kolm.h"
#include "LimitRaster.h"
#include "Workloads.h"

#include <benchmark/benchmark.h>

#include <cstdlib>

namespace {

using bench::LimitFrame;
using bench::Stroke;

constexpr COLORREF kColor = 0x00FFFFFF;

/// Shows an array of shapes at one pixel a millimetre, the frame's top left corner at logical (0, 0) and y downward
/// negated.
class BenchPainter : public CKPainter
{
public:
    explicit BenchPainter(CKGeomArray& shapes) : m_shapes(shapes)
    {
        Init();
        SetPixcelPerMM(1.0);
        SetScale(1.0);
        SetLogicalCenter(bench::kFrameWidth / 2, -bench::kFrameHeight / 2);
    }
    void DrawEnding(CWnd*, CDC* dc) override { DrawGeoms(dc, &m_shapes); }

private:
    CKGeomArray& m_shapes;
};

void AddLines(CKGeomArray& shapes, const std::vector<Stroke>& strokes)
{
    for (const Stroke& s : strokes)
        shapes.Add(new CKGeomLine(s.x1, -s.y1, s.x2, -s.y2, s.width));
}

int64_t PaintedPixels(CDC& dc)
{
    int64_t painted = 0;
    for (int y = 0; y < bench::kFrameHeight; ++y)
        for (int x = 0; x < bench::kFrameWidth; ++x)
            painted += dc.GetPixel(x, y) != 0;
    return painted;
}

void KolmFrame(benchmark::State& state, const std::vector<Stroke>& strokes, int64_t expected)
{
    CWnd window;
    window.CreateEx(0, "", "", WS_POPUP, 0, 0, bench::kFrameWidth, bench::kFrameHeight, nullptr, nullptr);
    CClientDC dc(&window);
    CKGeomArray shapes;
    AddLines(shapes, strokes);
    BenchPainter painter(shapes);
    for (auto _ : state)
        painter.DrawView(&window, &dc);
    const int64_t painted = PaintedPixels(dc);
    if (std::llabs(painted - expected) > expected / 200)
        state.SkipWithError("paints other pixels than the limit");
    state.counters["painted"] = double(painted);
    state.SetItemsProcessed(state.iterations() * int64_t(strokes.size()));
}

template <typename Draw>
int64_t LimitFrameRow(benchmark::State& state, const std::vector<Stroke>& strokes, Draw draw)
{
    LimitFrame frame;
    for (auto _ : state) {
        frame.Clear();
        for (const Stroke& s : strokes)
            draw(frame, s);
        frame.Show();
        benchmark::DoNotOptimize(frame.Shown());
    }
    state.counters["painted"] = double(frame.Painted());
    state.SetItemsProcessed(state.iterations() * int64_t(strokes.size()));
    return frame.Painted();
}

void DrawThin(LimitFrame& frame, const Stroke& s)
{
    frame.ThinLine(s, kColor);
}

void DrawWide(LimitFrame& frame, const Stroke& s)
{
    frame.Capsule(s, kColor);
}

void DrawVisible(LimitFrame& frame, const Stroke& s)
{
    const int r = s.width;
    if (std::max(s.x1, s.x2) + r < 0 || std::min(s.x1, s.x2) - r >= bench::kFrameWidth ||
        std::max(s.y1, s.y2) + r < 0 || std::min(s.y1, s.y2) - r >= bench::kFrameHeight)
        return;
    frame.Capsule(s, kColor);
}

/// Pixels that the limit paints; drawn once, outside of any timing.
template <typename Draw>
int64_t ExpectedPixels(const std::vector<Stroke>& strokes, Draw draw)
{
    LimitFrame frame;
    for (const Stroke& s : strokes)
        draw(frame, s);
    return frame.Painted();
}

template <typename Draw>
void RegisterPair(const std::string& name, std::vector<Stroke> strokes, Draw draw)
{
    const int64_t expected = ExpectedPixels(strokes, draw);
    benchmark::RegisterBenchmark((name + "/limit").c_str(), [strokes, draw](benchmark::State& state) {
        LimitFrameRow(state, strokes, draw);
    })->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark((name + "/kolm").c_str(), [strokes = std::move(strokes),
                                                            expected](benchmark::State& state) {
        KolmFrame(state, strokes, expected);
    })->Unit(benchmark::kMillisecond);
}

} // namespace

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    RegisterPair("frame/100k_thin_lines", bench::RandomStrokes(100000, 5, 40, 0, 0), DrawThin);
    RegisterPair("frame/100k_wide_tracks", bench::RandomStrokes(100000, 5, 40, 2, 12), DrawWide);
    RegisterPair("frame/1M_tracks_mostly_outside", bench::MostlyOutside(1000000, 1000), DrawVisible);
    benchmark::RunSpecifiedBenchmarks();
}
