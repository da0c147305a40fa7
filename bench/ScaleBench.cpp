/// The same work for a thousand to ten million shapes or names: drawing, loading and searching. The time for one
/// element should not grow with their number, nor the memory that a loaded shape takes.
#include "kolm.h"

#include "Workloads.h"

#include <benchmark/benchmark.h>
#include <malloc.h>

#include <ctime>
#include <memory>
#include <random>
#include <string>

namespace {

constexpr int kLeast = 1000;
constexpr int kMost = 10000000;

/// Processor time, so that other programs on the machine don't count.
double SecondsSince(std::clock_t start)
{
    return double(std::clock() - start) / CLOCKS_PER_SEC;
}

/// Draws an array of lines into the frame and takes the time of that alone, without the frame's own work.
class TimedPainter : public CKPainter
{
public:
    explicit TimedPainter(CKGeomArray& shapes) : m_shapes(shapes)
    {
        Init();
        SetPixcelPerMM(1.0);
        SetScale(1.0);
        SetLogicalCenter(bench::kFrameWidth / 2, -bench::kFrameHeight / 2);
    }
    void DrawEnding(CWnd*, CDC* dc) override
    {
        const std::clock_t start = std::clock();
        DrawGeoms(dc, &m_shapes);
        m_seconds = SecondsSince(start);
    }
    double GetSeconds() const { return m_seconds; }

private:
    CKGeomArray& m_shapes;
    double m_seconds = 0;
};

/// Thin lines of 5 to 40 pixels, all of them in view.
void Draw(benchmark::State& state, int count)
{
    CKGeomArray shapes;
    for (const bench::Stroke& s : bench::RandomStrokes(count, 5, 40, 0, 0))
        shapes.Add(new CKGeomLine(s.x1, -s.y1, s.x2, -s.y2, 0));
    CWnd window;
    window.CreateEx(0, "", "", WS_POPUP, 0, 0, bench::kFrameWidth, bench::kFrameHeight, nullptr, nullptr);
    CClientDC dc(&window);
    TimedPainter painter(shapes);
    for (auto _ : state) {
        painter.DrawView(&window, &dc);
        state.SetIterationTime(painter.GetSeconds());
    }
    state.SetItemsProcessed(state.iterations() * count);
}

/// Lines from an archive in memory. What they take counts the list of them, too.
void Load(benchmark::State& state, int count)
{
    CMemFile file(1 << 20);
    {
        std::mt19937 random(7);
        const auto coordinate = [&random] { return int(random() % 2000000) * 1e-4; };
        CKGeomContainer source;
        for (int i = 0; i < count; ++i)
            source.Add(new CKGeomLine(coordinate(), coordinate(), coordinate(), coordinate(), 0.25));
        CArchive archive(&file, CArchive::store);
        source.Serialize(archive);
        archive.Close();
    }
    size_t bytes = 0;
    for (auto _ : state) {
        file.SeekToBegin();
        const size_t before = mallinfo2().uordblks + mallinfo2().hblkhd;
        const std::clock_t start = std::clock();
        CKGeomContainer shapes;
        {
            CArchive archive(&file, CArchive::load);
            shapes.Serialize(archive);
        }
        state.SetIterationTime(SecondsSince(start));
        bytes = mallinfo2().uordblks + mallinfo2().hblkhd - before;
        if (shapes.GetCount() != count)
            state.SkipWithError("shapes are missing");
    }
    state.counters["bytes_per_shape"] = double(bytes) / double(count);
    state.SetItemsProcessed(state.iterations() * count);
}

/// One pattern that about every hundredth name matches.
void Search(benchmark::State& state, int count)
{
    CStringArray names;
    std::mt19937 random(11);
    for (int i = 0; i < count; ++i) {
        CString name;
        name.Format("R%u", unsigned(random() % 10000));
        names.Add(name);
    }
    for (auto _ : state) {
        CStringArray found;
        CString pattern("r*77");
        CKString::SearchDataForWildCard(pattern, names, found, 0, 0);
        benchmark::DoNotOptimize(found.GetData());
    }
    state.SetItemsProcessed(state.iterations() * count);
}

void Register(const char* workload, void (*row)(benchmark::State&, int), bool timesItself)
{
    for (int count = kLeast; count <= kMost; count *= 10) {
        const std::string name = std::string("scale/") + workload + "/" + std::to_string(count) + "/kolm";
        auto* registered =
            benchmark::RegisterBenchmark(name.c_str(), [row, count](benchmark::State& state) { row(state, count); });
        if (timesItself)
            registered->UseManualTime();
    }
}

} // namespace

int main(int argc, char** argv)
{
    Register("draw_lines", Draw, true);
    Register("load_lines", Load, true);
    Register("search_names", Search, false);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
