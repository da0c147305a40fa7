/// What a user of the example viewer waits for: frames of a real board in full and as outlines, picks and searches.
///
/// Frames have 1920 x 1080 pixels. A row of a frame is all that a paint message costs but for the toolkit's own copy.
#include "BoardView.h"

#include <benchmark/benchmark.h>

#include <filesystem>

namespace {

using viewer::BoardView;

constexpr const char* kBoard = KOLM_BENCH_BOARDS "/video/video.kicad_pcb";

/// Shows the board `steps` zoom steps nearer than fitted. False, with the row left out, where the board is missing.
bool Open(benchmark::State& state, BoardView& view, int steps)
{
    if (!std::filesystem::exists(kBoard)) {
        state.SkipWithError("the board is not there");
        return false;
    }
    view.Resize(1920, 1080);
    view.Show(viewer::OpenBoardFile(kBoard));
    for (int i = 0; i < steps; ++i)
        view.ZoomIn(view.Middle());
    view.Pixels();
    return true;
}

/// A frame in full or, as while the board is dragged, as outlines.
void Frame(benchmark::State& state, bool simple, int steps)
{
    BoardView view;
    if (!Open(state, view, steps))
        return;
    if (simple)
        view.Painter()->EnableSimpleDraw();
    int way = 1;
    for (auto _ : state) {
        view.PanBy(way, 0);
        benchmark::DoNotOptimize(view.Pixels().bmBits);
        way = -way;
    }
}

/// A click in the middle and the paint of its overlay.
void Pick(benchmark::State& state)
{
    BoardView view;
    if (!Open(state, view, 8))
        return;
    int x = 0;
    for (auto _ : state) {
        view.Pick(CPoint(x, 540));
        benchmark::DoNotOptimize(view.Pixels().bmBits);
        x = (x + 7) % 1920;
    }
}

/// A search as one types.
void Find(benchmark::State& state)
{
    BoardView view;
    if (!Open(state, view, 0))
        return;
    for (auto _ : state)
        benchmark::DoNotOptimize(view.Find("U1* /B?"));
}

BENCHMARK_CAPTURE(Frame, fitted, false, 0)->Name("viewer/full_frame/fitted")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Frame, zoomed, false, 8)->Name("viewer/full_frame/zoomed")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Frame, fitted, true, 0)->Name("viewer/pan_in_outlines/fitted")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Frame, zoomed, true, 8)->Name("viewer/pan_in_outlines/zoomed")->Unit(benchmark::kMillisecond);
BENCHMARK(Pick)->Name("viewer/pick/zoomed")->Unit(benchmark::kMillisecond);
BENCHMARK(Find)->Name("viewer/find/fitted")->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
