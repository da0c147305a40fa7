/// A million lines through an archive in memory, beside the least work that moves the same bytes: the same numbers
/// written and read with memcpy, and for loading one allocation a shape.
#include "kolm.h"

#include <benchmark/benchmark.h>
#include <malloc.h>

#include <cstring>
#include <memory>
#include <random>
#include <vector>

namespace {

constexpr int kLines = 1000000;
constexpr size_t kElementBytes = 104; // type code and record of a line
constexpr size_t kRecordBytes = 8 + size_t(kLines) * kElementBytes;

void FillWithLines(CKGeomContainer& container)
{
    std::mt19937 random(7);
    const auto coordinate = [&random] { return int(random() % 2000000) * 1e-4; };
    for (int i = 0; i < kLines; ++i) {
        const double x1 = coordinate(), y1 = coordinate(), x2 = coordinate(), y2 = coordinate();
        container.Add(new CKGeomLine(x1, y1, x2, y2, 0.25));
    }
}

void StoreInto(CMemFile& file, CKGeomContainer& container)
{
    CArchive archive(&file, CArchive::store);
    container.Serialize(archive);
    archive.Close();
}

/// The bytes of the record, taken from a store.
std::vector<BYTE> RecordOf(CKGeomContainer& container)
{
    CMemFile file;
    StoreInto(file, container);
    std::vector<BYTE> bytes(size_t(file.GetLength()));
    file.SeekToBegin();
    file.Read(bytes.data(), UINT(bytes.size()));
    return bytes;
}

void StoreKolm(benchmark::State& state)
{
    CKGeomContainer container;
    FillWithLines(container);
    for (auto _ : state) {
        CMemFile file;
        StoreInto(file, container);
        if (file.GetLength() != kRecordBytes)
            state.SkipWithError("wrong number of bytes");
    }
    state.SetItemsProcessed(state.iterations() * kLines);
    state.SetBytesProcessed(state.iterations() * int64_t(kRecordBytes));
}

/// What a loaded line has to hold, and no more.
struct BareLine
{
    double offsetX, offsetY, minMax[4], startX, startY, endX, endY, thickness;
};

std::vector<std::unique_ptr<BareLine>> BareLines(const CKGeomContainer& container)
{
    std::vector<std::unique_ptr<BareLine>> lines;
    for (int i = 0; i < container.GetCount(); ++i) {
        auto* line = static_cast<CKGeomLine*>(container.GetAt(i));
        lines.emplace_back(new BareLine{
            0, 0, {}, line->GetStartX(), line->GetStartY(), line->GetEndX(), line->GetEndY(), line->GetThickness()});
    }
    return lines;
}

template <typename Value>
void Put(BYTE*& at, Value value)
{
    std::memcpy(at, &value, sizeof value);
    at += sizeof value;
}

template <typename Value>
void Get(const BYTE*& at, Value& value)
{
    std::memcpy(&value, at, sizeof value);
    at += sizeof value;
}

void StoreLimit(benchmark::State& state)
{
    CKGeomContainer container;
    FillWithLines(container);
    const auto lines = BareLines(container);
    for (auto _ : state) {
        std::unique_ptr<BYTE[]> bytes(new BYTE[kRecordBytes]);
        BYTE* at = bytes.get();
        Put(at, int32_t(1));
        Put(at, int32_t(kLines));
        for (const auto& line : lines) {
            Put(at, int32_t(2));
            Put(at, int32_t(1));
            Put(at, line->offsetX);
            Put(at, line->offsetY);
            Put(at, int32_t(1));
            for (double value : line->minMax)
                Put(at, value);
            Put(at, int32_t(1));
            for (double value : {line->startX, line->startY, line->endX, line->endY, line->thickness})
                Put(at, value);
        }
        benchmark::DoNotOptimize(bytes.get());
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations() * kLines);
    state.SetBytesProcessed(state.iterations() * int64_t(kRecordBytes));
}

void LoadKolm(benchmark::State& state)
{
    std::vector<BYTE> bytes;
    {
        CKGeomContainer source;
        FillWithLines(source);
        bytes = RecordOf(source);
    }
    size_t heapBytes = 0;
    for (auto _ : state) {
        const size_t before = mallinfo2().uordblks;
        auto container = std::make_unique<CKGeomContainer>();
        CMemFile file(bytes.data(), UINT(bytes.size()));
        CArchive archive(&file, CArchive::load);
        container->Serialize(archive);
        heapBytes = mallinfo2().uordblks - before;
        if (container->GetCount() != kLines)
            state.SkipWithError("lines are missing");
        state.PauseTiming(); // giving the shapes back is not part of loading
        container.reset();
        state.ResumeTiming();
    }
    state.counters["bytes_per_shape"] = double(heapBytes) / kLines;
    state.counters["sizeof_line"] = sizeof(CKGeomLine);
    state.SetItemsProcessed(state.iterations() * kLines);
}

void LoadLimit(benchmark::State& state)
{
    std::vector<BYTE> bytes;
    {
        CKGeomContainer source;
        FillWithLines(source);
        bytes = RecordOf(source);
    }
    for (auto _ : state) {
        std::vector<std::unique_ptr<BareLine>> lines;
        const BYTE* at = bytes.data() + 8;
        for (int i = 0; i < kLines; ++i) {
            lines.emplace_back(new BareLine);
            BareLine& line = *lines.back();
            int32_t code;
            Get(at, code);
            Get(at, code);
            Get(at, line.offsetX);
            Get(at, line.offsetY);
            Get(at, code);
            for (double& value : line.minMax)
                Get(at, value);
            Get(at, code);
            for (double* value : {&line.startX, &line.startY, &line.endX, &line.endY, &line.thickness})
                Get(at, *value);
        }
        benchmark::DoNotOptimize(lines.data());
        state.PauseTiming();
        lines.clear();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * kLines);
}

BENCHMARK(StoreLimit)->Name("archive/store_1M_lines/limit")->Unit(benchmark::kMillisecond);
BENCHMARK(StoreKolm)->Name("archive/store_1M_lines/kolm")->Unit(benchmark::kMillisecond);
BENCHMARK(LoadLimit)->Name("archive/load_1M_lines/limit")->Unit(benchmark::kMillisecond);
BENCHMARK(LoadKolm)->Name("archive/load_1M_lines/kolm")->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
