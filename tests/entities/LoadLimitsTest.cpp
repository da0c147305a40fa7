/// What a load costs follows the bytes that are there, not the numbers that they claim. In a program of its own, since
/// it counts the memory of the whole process.
#include "entities/CKGeomContainer.h"
#include "entities/CKGeomText.h"
#include "support/ArchiveBytes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <ctime>
#include <malloc.h>
#include <new>

using namespace archive_bytes;

namespace {

size_t g_inUse = 0;
size_t g_peak = 0;

} // namespace

// The library's calls of operator new arrive here too. Kept out of line, since the compiler takes an inlined pair for a
// mismatch of new and free.
__attribute__((noinline)) void* operator new(size_t size)
{
    void* const memory = std::malloc(size > 0 ? size : 1);
    if (!memory)
        throw std::bad_alloc();
    g_inUse += malloc_usable_size(memory);
    g_peak = std::max(g_peak, g_inUse);
    return memory;
}

__attribute__((noinline)) void operator delete(void* memory) noexcept
{
    g_inUse -= malloc_usable_size(memory);
    std::free(memory);
}

__attribute__((noinline)) void operator delete(void* memory, size_t) noexcept
{
    operator delete(memory);
}

namespace {

/// Bytes that are in use at most while the record loads, beyond those in use before and the record itself.
template <class Shape>
size_t PeakOfLoad(const Bytes& bytes)
{
    Shape shape;
    CMemFile file(const_cast<BYTE*>(bytes.data()), UINT(bytes.size()));
    CArchive archive(&file, CArchive::load);
    const size_t before = g_inUse;
    g_peak = before;
    try {
        shape.Serialize(archive);
    } catch (CArchiveException* e) {
        e->Delete();
    }
    return g_peak - before;
}

Record Points(int claimed, int there)
{
    Record record;
    record.I(1).I(claimed);
    for (int i = 0; i < there; ++i)
        record.I(4).Header(0, 0, 0, 0, 0, 0).I(1).D(i).D(-i);
    return record;
}

/// A text's record up to a length prefix of 64 bits, and some of its characters.
Record TextThatClaims(uint64_t length, size_t there, bool wide)
{
    Record record;
    record.Header(0, 0, 0, 0, 0, 0).I(1);
    if (wide)
        record.Raw("\xFF\xFE\xFF", 3);
    record.Raw("\xFF\xFF\xFF\xFF\xFF\xFF\xFF", 7).Raw(&length, sizeof length);
    record.bytes.resize(record.bytes.size() + there, 'x');
    return record;
}

} // namespace

TEST(LoadLimits, MemoryFollowsTheBytesThatAreThere)
{
    // A point takes 80 bytes in an archive and some 200 as an object with its place in a list, which grows by doubling.
    constexpr size_t kTimes = 6, kConstant = 16384;
    for (const int there : {0, 1, 1000, 20000}) {
        const Record record = Points(0x7FFFFFFF, there);
        EXPECT_LE(PeakOfLoad<CKGeomContainer>(record.bytes), kConstant + kTimes * record.bytes.size()) << there;
    }
    for (const uint64_t claimed : {uint64_t(1) << 20, uint64_t(1) << 31, uint64_t(1) << 62, ~uint64_t(0)}) {
        for (const bool wide : {false, true}) {
            const Record record = TextThatClaims(claimed, 50000, wide);
            EXPECT_LE(PeakOfLoad<CKGeomText>(record.bytes), kConstant + kTimes * record.bytes.size()) << claimed;
        }
    }
    Record nested; // every level claims as much as it can
    for (int i = 0; i < 120; ++i)
        nested.I(1).I(0x7FFFFFFF).I(6).I(1);
    EXPECT_LE(PeakOfLoad<CKGeomContainer>(nested.bytes), kConstant + 100 * nested.bytes.size());
}

TEST(LoadLimits, TimeIsLinear)
{
    const auto seconds = [](int count) {
        const Bytes bytes = Points(count, count).bytes;
        double best = 1e9; // of the processor; the least is what the work takes
        for (int i = 0; i < 3; ++i) {
            const clock_t start = clock();
            CKGeomContainer container;
            Load(container, bytes);
            EXPECT_EQ(container.GetCount(), count);
            best = std::min(best, double(clock() - start) / CLOCKS_PER_SEC);
        }
        return best;
    };
    const double few = seconds(10000), many = seconds(80000);
    EXPECT_LT(many, 24 * few + 0.005) << "eight times the shapes; a quadratic step would make it 64";
}
