/// A million lines through an archive, in memory and in a file, beside serialization libraries and beside the least
/// work that moves the same bytes: the same numbers written and read with memcpy, and for loading one allocation a
/// shape.
///
/// Every row stores and loads the same fields in the same order. Storing has to give the limit's bytes (the libraries:
/// at least as many, they add their own), loading the sum of all numbers.
#include "ArchiveWorkload.h"

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <malloc.h>
#include <unistd.h>

#ifdef KOLM_BENCH_SERIALIZATION
#include <boost/archive/binary_iarchive.hpp>
#include <boost/archive/binary_oarchive.hpp>
#endif
#ifdef KOLM_BENCH_CEREAL
#include <cereal/archives/binary.hpp>
#endif

#include <cstdio>
#include <sstream>

namespace {

using namespace bench;

// ---- By hand

/// Fills a block of `room` bytes over and over; `flush` takes what is in it.
template <typename Flush>
void StoreBare(BYTE* block, size_t room, const Flush& flush)
{
    BYTE* at = block;
    Put(at, int32_t(1)), Put(at, int32_t(kLines));
    for (const auto& line : TheDrawing().lines) {
        if (size_t(block + room - at) < kElementBytes) {
            flush(block, size_t(at - block));
            at = block;
        }
        EachField(*line, [&at](auto value) { Put(at, value); });
    }
    flush(block, size_t(at - block));
}

void LoadBare(BareLines& lines, const BYTE* at, int count)
{
    for (int i = 0; i < count; ++i) {
        lines.emplace_back(new BareLine);
        EachField(*lines.back(), [&at](auto& value) { Get(at, value); });
    }
}

constexpr size_t kBlock = 630 * kElementBytes; // about the archive's buffer

struct Limit
{
    static std::unique_ptr<BYTE[]> Store()
    {
        std::unique_ptr<BYTE[]> bytes(new BYTE[kRecordBytes]);
        StoreBare(bytes.get(), kRecordBytes, [](const BYTE*, size_t) {});
        return bytes;
    }
    static bool IsSame(const std::unique_ptr<BYTE[]>& bytes)
    {
        return std::memcmp(bytes.get(), TheBytes().data(), kRecordBytes) == 0;
    }
    static BareLines Load(const std::vector<BYTE>& bytes)
    {
        BareLines lines;
        LoadBare(lines, bytes.data() + 8, kLines);
        return lines;
    }
    static void StoreFile()
    {
        const int file = ::open(ThePath().c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
        std::vector<BYTE> block(kBlock);
        StoreBare(block.data(), kBlock, [file](const BYTE* bytes, size_t count) {
            if (::write(file, bytes, count) != ssize_t(count))
                std::abort();
        });
        ::close(file);
    }
    static BareLines LoadFile()
    {
        BareLines lines;
        const int file = ::open(ThePath().c_str(), O_RDONLY);
        std::vector<BYTE> block(kBlock);
        if (::read(file, block.data(), 8) != 8)
            std::abort();
        for (ssize_t got; (got = ::read(file, block.data(), kBlock)) > 0;)
            LoadBare(lines, block.data(), int(size_t(got) / kElementBytes));
        ::close(file);
        return lines;
    }
};

double SumOf(const BareLines& lines)
{
    double sum = 0;
    for (const auto& line : lines)
        sum += line->startX + line->startY + line->endX + line->endY + line->thickness;
    return sum;
}

// ---- Kolm

using Shapes = std::unique_ptr<CKGeomContainer>;

struct Kolm
{
    static void StoreInto(CFile& file)
    {
        CArchive archive(&file, CArchive::store);
        TheDrawing().shapes.Serialize(archive);
        archive.Close();
    }
    static Shapes LoadFrom(CFile& file)
    {
        auto shapes = std::make_unique<CKGeomContainer>();
        CArchive archive(&file, CArchive::load);
        shapes->Serialize(archive);
        return shapes;
    }
    static std::unique_ptr<CMemFile> Store()
    {
        auto file = std::make_unique<CMemFile>();
        StoreInto(*file);
        return file;
    }
    static bool IsSame(const std::unique_ptr<CMemFile>& file)
    {
        std::vector<BYTE> bytes(size_t(file->GetLength()));
        file->SeekToBegin();
        file->Read(bytes.data(), UINT(bytes.size()));
        return bytes == TheBytes();
    }
    static Shapes Load(const std::vector<BYTE>& bytes)
    {
        CMemFile file(const_cast<BYTE*>(bytes.data()), UINT(bytes.size()));
        return LoadFrom(file);
    }
    static void StoreFile()
    {
        CFile file(ThePath().c_str(), CFile::modeCreate | CFile::modeWrite);
        StoreInto(file);
    }
    static Shapes LoadFile()
    {
        CFile file(ThePath().c_str(), CFile::modeRead);
        return LoadFrom(file);
    }
};

double SumOf(const Shapes& shapes)
{
    double sum = 0;
    for (int i = 0; i < shapes->GetCount(); ++i) {
        auto* line = static_cast<CKGeomLine*>(shapes->GetAt(i));
        sum += line->GetStartX() + line->GetStartY() + line->GetEndX() + line->GetEndY() + line->GetThickness();
    }
    return sum;
}

// ---- Libraries with an archive over a stream. They make the same shapes as Kolm: what differs is how fields travel.

using Lines = std::vector<std::unique_ptr<CKGeomLine>>;

double SumOf(const Lines& lines)
{
    double sum = 0;
    for (const auto& line : lines)
        sum += line->GetStartX() + line->GetStartY() + line->GetEndX() + line->GetEndY() + line->GetThickness();
    return sum;
}

/// Reads the fields of all lines with `get` into new shapes.
template <typename Get>
Lines LoadShapes(const Get& get)
{
    Lines lines;
    for (int i = 0; i < kLines; ++i) {
        BareLine fields;
        EachField(fields, get);
        auto line =
            std::make_unique<CKGeomLine>(fields.startX, fields.startY, fields.endX, fields.endY, fields.thickness);
        line->SetOffsetXY(fields.offsetX, fields.offsetY);
        line->SetMinMax(fields.minMax[0], fields.minMax[1], fields.minMax[2], fields.minMax[3]);
        lines.push_back(std::move(line));
    }
    return lines;
}

/// `Out` and `In` are archives that put fields with << and get them with >>, or with a call, as `Way` knows.
template <class Way>
struct Streams
{
    static void StoreInto(std::ostream& stream)
    {
        typename Way::Out archive(stream);
        for (const auto& line : TheDrawing().lines)
            EachField(*line, [&archive](auto& value) { Way::Put(archive, value); });
    }
    static Lines LoadFrom(std::istream& stream)
    {
        typename Way::In archive(stream);
        return LoadShapes([&archive](auto& value) { Way::Get(archive, value); });
    }
    static std::string Store()
    {
        std::ostringstream stream;
        StoreInto(stream);
        return stream.str();
    }
    static bool IsSame(const std::string& bytes) { return bytes.size() >= kRecordBytes - 8; }
    static Lines Load(const std::string& bytes)
    {
        std::istringstream stream(bytes);
        return LoadFrom(stream);
    }
    static void StoreFile()
    {
        std::ofstream stream(ThePath(), std::ios::binary);
        StoreInto(stream);
    }
    static Lines LoadFile()
    {
        std::ifstream stream(ThePath(), std::ios::binary);
        return LoadFrom(stream);
    }
};

#ifdef KOLM_BENCH_SERIALIZATION
struct BoostArchives
{
    using Out = boost::archive::binary_oarchive;
    using In = boost::archive::binary_iarchive;
    template <typename Value>
    static void Put(Out& archive, const Value& value)
    {
        archive << value;
    }
    template <typename Value>
    static void Get(In& archive, Value& value)
    {
        archive >> value;
    }
};
#endif

#ifdef KOLM_BENCH_CEREAL
struct CerealArchives
{
    using Out = cereal::BinaryOutputArchive;
    using In = cereal::BinaryInputArchive;
    template <typename Value>
    static void Put(Out& archive, const Value& value)
    {
        archive(value);
    }
    template <typename Value>
    static void Get(In& archive, Value& value)
    {
        archive(value);
    }
};
#endif

/// The C library's files, a field at a time.
struct Stdio
{
    static void StoreFile()
    {
        FILE* file = std::fopen(ThePath().c_str(), "wb");
        const int32_t head[] = {1, kLines};
        std::fwrite(head, sizeof head, 1, file);
        for (const auto& line : TheDrawing().lines)
            EachField(*line, [file](auto& value) { std::fwrite(&value, sizeof value, 1, file); });
        std::fclose(file);
    }
    static Lines LoadFile()
    {
        FILE* file = std::fopen(ThePath().c_str(), "rb");
        int32_t head[2];
        size_t got = std::fread(head, sizeof head, 1, file);
        Lines lines = LoadShapes([file, &got](auto& value) { got += std::fread(&value, sizeof value, 1, file); });
        benchmark::DoNotOptimize(got);
        std::fclose(file);
        return lines;
    }
};

// ---- Rows

template <class Way>
void StoreRow(benchmark::State& state)
{
    TheDrawing();
    for (auto _ : state) {
        auto stored = Way::Store();
        benchmark::DoNotOptimize(stored);
        benchmark::ClobberMemory();
        state.PauseTiming(); // looking at the bytes and giving them back is not part of storing
        if (!Way::IsSame(stored))
            state.SkipWithError("other bytes than the limit's");
        stored = decltype(stored)();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * kLines);
}

template <class Way>
void StoreFileRow(benchmark::State& state)
{
    TheDrawing();
    for (auto _ : state)
        Way::StoreFile();
    if (FileBytes().size() < kRecordBytes - 8)
        state.SkipWithError("fewer bytes than the limit's");
    state.SetItemsProcessed(state.iterations() * kLines);
}

/// Times `load` and checks the lines that it gives. Memory goes back to the system after each load, so that every row
/// gets new pages, as a program does that opens its first board; else it depends on the rows before whether pages are
/// left over, which count for more than the loading.
template <typename Load>
void RunLoad(benchmark::State& state, const Load& load)
{
    size_t heapBytes = 0;
    for (auto _ : state) {
        const size_t before = mallinfo2().uordblks;
        auto loaded = load();
        state.PauseTiming(); // looking at the lines and giving them back is not part of loading
        heapBytes = mallinfo2().uordblks - before;
        if (SumOf(loaded) != TheDrawing().sum)
            state.SkipWithError("other lines than the limit's");
        loaded = decltype(loaded)();
        malloc_trim(0);
        state.ResumeTiming();
    }
    state.counters["bytes_per_shape"] = double(heapBytes) / kLines;
    state.SetItemsProcessed(state.iterations() * kLines);
}

template <class Way, class Bytes>
void LoadRow(benchmark::State& state, const Bytes& bytes)
{
    RunLoad(state, [&bytes] { return Way::Load(bytes); });
}

template <class Way>
void LoadFileRow(benchmark::State& state)
{
    Way::StoreFile();
    RunLoad(state, [] { return Way::LoadFile(); });
}

template <typename Row>
void Register(const char* workload, const char* way, const Row& row)
{
    const std::string name = std::string("archive/") + workload + "/" + way;
    benchmark::RegisterBenchmark(name.c_str(), row)->Unit(benchmark::kMillisecond);
}

template <class Way>
void RegisterFiles(const char* way)
{
    Register("store_1M_lines_file", way, StoreFileRow<Way>);
    Register("load_1M_lines_file", way, LoadFileRow<Way>);
}

template <class Way>
void RegisterAll(const char* way)
{
    Register("store_1M_lines", way, StoreRow<Way>);
    RegisterFiles<Way>(way);
}

template <class Way>
void RegisterStream(const char* way)
{
    RegisterAll<Way>(way);
    Register("load_1M_lines", way, [](benchmark::State& state) { LoadRow<Way>(state, Way::Store()); });
}

/// Loads what the limit stored.
template <class Way>
void RegisterOwn(const char* way)
{
    RegisterAll<Way>(way);
    Register("load_1M_lines", way, [](benchmark::State& state) { LoadRow<Way>(state, TheBytes()); });
}

} // namespace

int main(int argc, char** argv)
{
    RegisterOwn<Limit>("limit");
    RegisterOwn<Kolm>("kolm");
    RegisterFiles<Stdio>("stdio");
#ifdef KOLM_BENCH_SERIALIZATION
    RegisterStream<Streams<BoostArchives>>("boost");
#endif
#ifdef KOLM_BENCH_CEREAL
    RegisterStream<Streams<CerealArchives>>("cereal");
#endif
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
