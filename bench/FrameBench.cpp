/// Frames composed by a painter from shapes on the heap, beside the least work that paints the same pixels and beside
/// other libraries.
///
/// A Kolm row is what a host pays: DrawView with its cleared off-screen bitmap, a pen for every stroke, and the block
/// transfer to the window. A row fails when its picture differs from the limit's: Kolm's in a few pixels at most, other
/// libraries' in the rims of their shapes, which follow other rules, and hardly in how many pixels they paint.
#include "BoardTracks.h"
#include "FramePeers.h"
#include "KolmFrame.h"
#include "LimitRaster.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <memory>
#include <utility>

namespace {

using namespace bench;

constexpr double kOurShare = 0.0001; // of the painted pixels: roundings of the limit's floating-point edges
constexpr double kThinRims = 0.75;   // other rules move a thin line by half a pixel, over much of its length
constexpr double kWideRims = 0.35;
constexpr double kCount = 0.06;

/// The limit's picture and what is drawn, which all rows of a workload share.
using Picture = std::shared_ptr<const Pixels>;
template <class Content>
using Shared = std::shared_ptr<const Content>;

/// Fails the row when more than a share of the painted pixels differs from the limit's, or their number does.
void Compare(benchmark::State& state, const Pixels& pixels, const Pixels& expected, double share)
{
    int64_t painted = 0, wanted = 0, different = 0;
    for (size_t i = 0; i < expected.size(); ++i) {
        painted += (pixels[i] & 0xFFFFFF) != 0;
        wanted += expected[i] != 0;
        different += (pixels[i] & 0xFFFFFF) != expected[i];
    }
    state.counters["painted"] = double(painted);
    state.counters["different"] = double(different);
    if (double(different) > share * double(wanted) || double(std::llabs(painted - wanted)) > kCount * double(wanted))
        state.SkipWithError((std::to_string(painted) + " pixels, of which " + std::to_string(different) +
                             " differ from the limit's " + std::to_string(wanted))
                                .c_str());
}

template <class Run>
void Row(const std::string& name, Run run)
{
    benchmark::RegisterBenchmark(name.c_str(), run)->Unit(benchmark::kMillisecond);
}

Picture LimitPicture(const Scene& scene)
{
    LimitFrame frame;
    frame.Draw(scene);
    frame.Show();
    return std::make_shared<const Pixels>(frame.Shown());
}

/// A row of the limit or of a peer; `paint(frame)` draws between clearing and showing.
template <class Frame, class Paint>
void PlainRow(const std::string& name, const Picture& expected, double share, Paint paint)
{
    Row(name + "/" + Frame::kName, [=](benchmark::State& state) {
        Frame frame;
        for (auto _ : state) {
            frame.Clear(0);
            paint(frame);
            frame.Show();
        }
        Compare(state, frame.Shown(), *expected, share);
    });
}

/// The rows of the limit and all peers.
template <class Paint>
void PlainRows(const std::string& name, const Picture& expected, double rims, Paint paint)
{
    PlainRow<LimitFrame>(name, expected, 0, paint);
    ForEachPeer([&](auto peer) { PlainRow<typename decltype(peer)::Type>(name, expected, rims, paint); });
}

/// A frame of Kolm's of the shapes in `content`.
template <class Content>
void KolmRow(const std::string& name, const Picture& expected, const Shared<Content>& content, const View* view)
{
    Row(name + "/kolm", [=, shown = view ? *view : View{}, changed = view != nullptr](benchmark::State& state) {
        KolmFrame frame;
        if (changed)
            frame.Painter().Show(shown);
        frame.Painter().Add(*content);
        for (auto _ : state)
            frame.Frame();
        Compare(state, frame.Shown(), *expected, kOurShare);
    });
}

void SceneRows(const std::string& name, Scene drawn, double rims)
{
    const auto scene = std::make_shared<const Scene>(std::move(drawn));
    const Picture expected = LimitPicture(*scene);
    KolmRow(name, expected, scene, nullptr);
    PlainRows(name, expected, rims, [scene](auto& frame) { frame.Draw(*scene); });
}

/// A board's tracks in millimetres: where their pixels are is part of the work.
void BoardRows(const std::string& name, const std::string& file, double zoom)
{
    const auto tracks = std::make_shared<const std::vector<Track>>(ReadTracks(file));
    if (tracks->empty())
        return;
    const View view = Fit(*tracks, zoom);
    Scene scene;
    for (const Track& t : *tracks)
        scene.strokes.push_back(ToPixels(t, view));
    const Picture expected = LimitPicture(scene);
    KolmRow(name, expected, tracks, &view);
    PlainRows(name, expected, kThinRims, [tracks, view](auto& frame) {
        size_t index = 0;
        for (const Track& t : *tracks)
            frame.Line(ToPixels(t, view), PixelOf(index++));
    });
}

void Toggle(LimitFrame& frame, const std::vector<Stroke>& lines)
{
    size_t index = 0;
    for (const Stroke& s : lines) {
        const uint32_t mask = PixelOf(index++);
        frame.ThinLine(s, [mask](uint32_t& pixel) { pixel ^= mask; });
    }
}

/// What is shown after the overlay was taken out has to be the black frame of before.
void CompareUndone(benchmark::State& state, const Pixels& shown)
{
    if (std::any_of(shown.begin(), shown.end(), [](uint32_t pixel) { return (pixel & 0xFFFFFF) != 0; }))
        state.SkipWithError("the overlay stayed in the saved frame");
}

/// Temporary lines over a frame: drawn with exclusive-or, shown, and taken out again.
void OverlayRows(const std::string& name, const std::vector<Stroke>& lines)
{
    LimitFrame limit;
    Toggle(limit, lines);
    limit.Show();
    const auto expected = std::make_shared<const Pixels>(limit.Shown());
    Row(name + "/limit", [=](benchmark::State& state) {
        LimitFrame frame;
        for (auto _ : state) {
            Toggle(frame, lines);
            frame.Show();
            Toggle(frame, lines);
        }
        Compare(state, frame.Shown(), *expected, 0);
        frame.Show();
        CompareUndone(state, frame.Shown());
    });
    Row(name + "/saved_pixels", [=](benchmark::State& state) {
        LimitFrame frame, saved;
        for (auto _ : state) {
            saved.CopyFrom(frame);
            Toggle(frame, lines);
            frame.Show();
            frame.CopyFrom(saved);
        }
        Compare(state, frame.Shown(), *expected, 0);
        frame.Show();
        CompareUndone(state, frame.Shown());
    });
    Row(name + "/kolm", [=](benchmark::State& state) {
        KolmFrame frame;
        frame.Frame();
        CKGeomArray shapes;
        for (const Stroke& s : lines)
            BenchPainter::Add(shapes, new CKGeomLine(s.x1, -s.y1, s.x2, -s.y2, 0));
        for (auto _ : state)
            frame.Overlay(shapes);
        Compare(state, frame.Shown(), *expected, 0);
        frame.Transfer();
        CompareUndone(state, frame.Shown());
    });
}

constexpr uint32_t kGround = 0x102030;

template <class Frame>
void PlainClearRow(const std::string& name)
{
    Row(name + "/" + Frame::kName, [](benchmark::State& state) {
        Frame frame;
        for (auto _ : state) {
            frame.Clear(kGround);
            benchmark::ClobberMemory();
        }
        frame.Show();
        Compare(state, frame.Shown(), Pixels(size_t(kFrameWidth) * kFrameHeight, kGround), 0);
    });
}

/// The background as the painter lays it: a rectangle with a pen and a brush of its colour.
void ClearRows(const std::string& name)
{
    Row(name + "/kolm", [](benchmark::State& state) {
        KolmFrame frame;
        CBitmap bitmap;
        CClientDC screen(nullptr);
        bitmap.CreateCompatibleBitmap(&screen, kFrameWidth, kFrameHeight);
        CBrush brush(ColorOf(kGround));
        CPen pen(PS_SOLID, 0, ColorOf(kGround));
        CDC memory;
        memory.CreateCompatibleDC(&screen);
        memory.SelectObject(&bitmap);
        memory.SelectObject(&brush);
        memory.SelectObject(&pen);
        for (auto _ : state)
            memory.Rectangle(0, 0, kFrameWidth, kFrameHeight);
        Compare(state, ReadFrame(memory), Pixels(size_t(kFrameWidth) * kFrameHeight, kGround), 0);
    });
    PlainClearRow<LimitFrame>(name);
    ForEachPeer([&](auto peer) { PlainClearRow<typename decltype(peer)::Type>(name); });
}

template <class Frame>
void PlainTransferRow(const std::string& name, const Shared<Scene>& scene, const Picture& expected, double rims)
{
    Row(name + "/" + Frame::kName, [=](benchmark::State& state) {
        Frame frame;
        frame.Clear(0);
        frame.Draw(*scene);
        for (auto _ : state) {
            frame.Show();
            benchmark::ClobberMemory();
        }
        Compare(state, frame.Shown(), *expected, rims);
    });
}

void TransferRows(const std::string& name, Scene drawn)
{
    const auto scene = std::make_shared<const Scene>(std::move(drawn));
    const Picture expected = LimitPicture(*scene);
    Row(name + "/kolm", [=](benchmark::State& state) {
        KolmFrame frame;
        frame.Painter().Add(*scene);
        frame.Frame();
        for (auto _ : state)
            frame.Transfer();
        Compare(state, frame.Shown(), *expected, 0);
    });
    PlainTransferRow<LimitFrame>(name, scene, expected, 0);
    ForEachPeer([&](auto peer) { PlainTransferRow<typename decltype(peer)::Type>(name, scene, expected, kWideRims); });
}

void AddRows()
{
    SceneRows("frame/100k_thin_lines", {RandomStrokes(100000, 5, 40, 0, 0), {}, {}}, kThinRims);
    SceneRows("frame/100k_wide_tracks", {RandomStrokes(100000, 5, 40, 2, 12), {}, {}}, kWideRims);
    SceneRows("frame/20k_arcs", {{}, RandomArcs(20000, 3), {}}, kThinRims);
    SceneRows("frame/20k_pads", {{}, {}, RandomPads(20000)}, kWideRims);
    SceneRows("frame/1M_tracks_mostly_outside", {MostlyOutside(1000000, 1000), {}, {}}, kWideRims);
    OverlayRows("frame/overlay_1k_lines", RandomStrokes(1000, 5, 40, 0, 0));
    const std::string boards = KOLM_BENCH_BOARDS;
    for (const int zoom : {1, 8}) {
        const std::string way = zoom == 1 ? "_fitted" : "_zoomed";
        BoardRows("frame/video" + way, boards + "/video/video.kicad_pcb", zoom);
        BoardRows("frame/coldfire" + way,
                  boards + "/kit-dev-coldfire-xilinx_5213/kit-dev-coldfire-xilinx_5213.kicad_pcb", zoom);
    }
    ClearRows("frame/clear");
    TransferRows("frame/transfer", {RandomStrokes(1000, 5, 40, 2, 12), {}, {}});
}

} // namespace

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    AddRows();
    benchmark::RunSpecifiedBenchmarks();
}
