/// Lists of pointers without duplicates or without the elements of another list, and numbers inserted in order: each
/// beside the least that does the job (a bare loop over a table of addresses made for it, a std::vector known to be
/// sorted) and beside the standard library's hash containers. All three arrive at the same elements.
#include "kolm.h"

#include <benchmark/benchmark.h>

#ifdef KOLM_BENCH_BOOST
#include <boost/container/flat_set.hpp>
#endif

#include <algorithm>
#include <memory>
#include <random>
#include <unordered_set>
#include <vector>

namespace {

constexpr int kPointers = 20000;
constexpr int kInserts = 50000;

using Pointers = std::vector<CRectD*>;
using List = CExPtrArray<CRectD*, CRectD*>;

/// Objects on the heap in random order; of the `count` pointers every one comes about `repeats` times.
struct Workload
{
    Workload(int count, int repeats)
    {
        std::mt19937 random(11);
        for (int i = 0; i < count / repeats; ++i)
            objects.push_back(std::make_unique<CRectD>());
        for (int i = 0; i < count; ++i)
            pointers.push_back(objects[size_t(i) % objects.size()].get());
        std::shuffle(pointers.begin(), pointers.end(), random);
        std::shuffle(objects.begin(), objects.end(), random);
        for (size_t i = 0; i < objects.size() / 2; ++i)
            subtracted.push_back(objects[i].get());
    }
    std::vector<std::unique_ptr<CRectD>> objects;
    Pointers pointers, subtracted;
};

/// Addresses in open addressing, no more than the loops below need, in memory that is there already.
struct BareTable
{
    BareTable() { std::fill(std::begin(slots), std::end(slots), 0); }
    /// The slot of the address, or the empty one for it.
    uintptr_t& operator[](CRectD* p)
    {
        const uintptr_t key = reinterpret_cast<uintptr_t>(p);
        size_t slot = ((key ^ key >> 15) * 0x9E3779B97F4A7C15u) >> 49;
        while (std::min(slots[slot], slots[slot] ^ key) != 0) // neither empty nor the address, in one branch
            slot = (slot + 1) & mask;
        return slots[slot];
    }
    static constexpr size_t mask = 32767;
    static inline uintptr_t slots[mask + 1];
};

void DistinctBare(Pointers& pointers, const Pointers&)
{
    BareTable table;
    size_t kept = 0;
    for (CRectD* p : pointers) {
        uintptr_t& slot = table[p];
        pointers[kept] = p;
        kept += slot ? 0 : 1;
        slot = reinterpret_cast<uintptr_t>(p);
    }
    pointers.resize(kept);
}

void DistinctStandard(Pointers& pointers, const Pointers&)
{
    std::unordered_set<CRectD*> seen;
    pointers.erase(std::remove_if(pointers.begin(), pointers.end(), [&](CRectD* p) { return !seen.insert(p).second; }),
                   pointers.end());
}

/// For elements that occur once in each list: nothing is counted.
void SubtractBare(Pointers& pointers, const Pointers& subtracted)
{
    BareTable table;
    for (CRectD* p : subtracted)
        table[p] = reinterpret_cast<uintptr_t>(p);
    size_t kept = 0;
    for (CRectD* p : pointers) {
        pointers[kept] = p;
        kept += table[p] ? 0 : 1;
    }
    pointers.resize(kept);
}

void SubtractStandard(Pointers& pointers, const Pointers& subtracted)
{
    const std::unordered_set<CRectD*> gone(subtracted.begin(), subtracted.end());
    pointers.erase(std::remove_if(pointers.begin(), pointers.end(), [&](CRectD* p) { return gone.count(p) > 0; }),
                   pointers.end());
}

void Fill(List& list, const Pointers& pointers)
{
    list.RemoveAll();
    for (CRectD* p : pointers)
        list.Add(p);
}

using Operation = void (*)(Pointers&, const Pointers&);

void RunVector(benchmark::State& state, Operation operation, int repeats)
{
    const Workload work(kPointers, repeats);
    Pointers pointers;
    for (auto _ : state) {
        state.PauseTiming();
        pointers = work.pointers;
        state.ResumeTiming();
        operation(pointers, work.subtracted);
        benchmark::DoNotOptimize(pointers.data());
    }
    state.SetItemsProcessed(state.iterations() * kPointers);
}

void RunList(benchmark::State& state, void (*operation)(List&, const List&), Operation standard, int repeats)
{
    const Workload work(kPointers, repeats);
    List subtracted;
    Fill(subtracted, work.subtracted);
    List list;
    for (auto _ : state) {
        state.PauseTiming();
        Fill(list, work.pointers);
        state.ResumeTiming();
        operation(list, subtracted);
    }
    Pointers expected = work.pointers;
    standard(expected, work.subtracted);
    if (!std::equal(expected.begin(), expected.end(), list.GetData(), list.GetData() + list.GetSize()))
        state.SkipWithError("other elements than those of the standard library");
    state.SetItemsProcessed(state.iterations() * kPointers);
}

template <typename Number>
std::vector<Number> RandomNumbers()
{
    std::mt19937 random(13);
    std::vector<Number> numbers(kInserts);
    for (Number& number : numbers)
        number = Number(random() % 1000000);
    return numbers;
}

/// A binary search, which needs to know that the elements are in order, and one move of the tail.
template <typename Number>
void InsertBare(benchmark::State& state)
{
    const std::vector<Number> numbers = RandomNumbers<Number>();
    for (auto _ : state) {
        std::vector<Number> sorted;
        for (Number number : numbers)
            sorted.insert(std::upper_bound(sorted.begin(), sorted.end(), number), number);
        benchmark::DoNotOptimize(sorted.data());
    }
    state.SetItemsProcessed(state.iterations() * kInserts);
}

#ifdef KOLM_BENCH_BOOST
template <typename Number>
void InsertBoost(benchmark::State& state)
{
    const std::vector<Number> numbers = RandomNumbers<Number>();
    for (auto _ : state) {
        boost::container::flat_multiset<Number> sorted;
        for (Number number : numbers)
            sorted.insert(number);
        benchmark::DoNotOptimize(&*sorted.begin());
    }
    state.SetItemsProcessed(state.iterations() * kInserts);
}
#endif

template <typename Number, class OrderedList>
void InsertKolm(benchmark::State& state, void (*insert)(OrderedList&, const std::vector<Number>&))
{
    std::vector<Number> numbers = RandomNumbers<Number>();
    OrderedList list;
    for (auto _ : state) {
        list.RemoveAll();
        insert(list, numbers);
    }
    std::sort(numbers.begin(), numbers.end());
    if (!std::equal(numbers.begin(), numbers.end(), list.GetData(), list.GetData() + list.GetSize()))
        state.SkipWithError("not the sorted numbers");
    state.SetItemsProcessed(state.iterations() * kInserts);
}

void AddInts(CKOrderedIntArray& list, const std::vector<int>& numbers)
{
    for (int number : numbers)
        list.AddInt(number);
}

void AddDoubles(CKOrderedDoubleArray& list, const std::vector<double>& numbers)
{
    for (double number : numbers)
        list.AddDouble(number);
}

void AppendInts(CKOrderedIntArray& list, const std::vector<int>& numbers)
{
    CKOrderedIntArray other;
    for (int number : numbers)
        other.Add(number);
    list.AppendInt(&other);
}

void Distinct(List& list, const List&)
{
    list.RemoveDuplicatedElements();
}

void Subtract(List& list, const List& subtracted)
{
    list.Subtract(subtracted);
}

BENCHMARK_CAPTURE(RunVector, distinct / limit, DistinctBare, 2)->Name("list/distinct_20k/limit");
BENCHMARK_CAPTURE(RunList, distinct / kolm, Distinct, DistinctStandard, 2)->Name("list/distinct_20k/kolm");
BENCHMARK_CAPTURE(RunVector, distinct / std, DistinctStandard, 2)->Name("list/distinct_20k/std_unordered_set");
BENCHMARK_CAPTURE(RunVector, subtract / limit, SubtractBare, 1)->Name("list/subtract_20k/limit");
BENCHMARK_CAPTURE(RunList, subtract / kolm, Subtract, SubtractStandard, 1)->Name("list/subtract_20k/kolm");
BENCHMARK_CAPTURE(RunVector, subtract / std, SubtractStandard, 1)->Name("list/subtract_20k/std_unordered_set");
BENCHMARK(InsertBare<int>)->Name("list/insert_50k_ints/limit")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(InsertKolm, ints, AddInts)->Name("list/insert_50k_ints/kolm")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(InsertKolm, append, AppendInts)->Name("list/append_50k_ints/kolm")->Unit(benchmark::kMillisecond);
BENCHMARK(InsertBare<double>)->Name("list/insert_50k_doubles/limit")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(InsertKolm, doubles, AddDoubles)->Name("list/insert_50k_doubles/kolm")->Unit(benchmark::kMillisecond);
#ifdef KOLM_BENCH_BOOST
BENCHMARK(InsertBoost<int>)->Name("list/insert_50k_ints/boost_flat_multiset")->Unit(benchmark::kMillisecond);
BENCHMARK(InsertBoost<double>)->Name("list/insert_50k_doubles/boost_flat_multiset")->Unit(benchmark::kMillisecond);
#endif

} // namespace

BENCHMARK_MAIN();
