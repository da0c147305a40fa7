/// One wildcard pattern against a million names of board elements, beside the least work that finds the same ones: the
/// pattern written out by hand, and the copies of the names that are found.
///
/// All rows go over the same list and append what they find to a list of their own; a row whose number of finds differs
/// from the hand-written one's fails. The standard library's expressions see only every fiftieth name.
#include "kolm.h"

#include <benchmark/benchmark.h>

#include <memory>
#include <random>
#include <regex>
#include <string>

#if defined(KOLM_BENCH_RE2)
#include <re2/re2.h>
#endif

namespace {

constexpr int kNames = 1000000;
constexpr int kStandardShare = 50;

/// References as boards have them, in both cases: a kind, a number, sometimes the sheet that they stand on.
CStringArray& Names()
{
    static const std::unique_ptr<CStringArray> names = [] {
        constexpr const char* kinds[] = {"R", "c", "U", "tp", "SW", "led"};
        auto list = std::make_unique<CStringArray>();
        std::mt19937 random(11);
        for (int i = 0; i < kNames; ++i) {
            CString name;
            name.Format(random() % 3 ? "%s%u" : "%s%u/sheet%u", kinds[random() % 6], unsigned(random() % 10000),
                        unsigned(random() % 9));
            list->Add(name);
        }
        return list;
    }();
    return *names;
}

char Upper(char ch)
{
    return ch >= 'a' && ch <= 'z' ? char(ch - 32) : ch;
}

bool IsDigit(char ch)
{
    return ch >= '0' && ch <= '9';
}

using ByHand = bool (*)(const CString& name);

struct Pattern
{
    const char* wildcards;
    ByHand matches;
};

const Pattern kPatterns[] = {
    {"r1*", [](const CString& n) { return n.GetLength() >= 2 && Upper(n[0]) == 'R' && n[1] == '1'; }},
    {"u##",
     [](const CString& n) { return n.GetLength() == 3 && Upper(n[0]) == 'U' && IsDigit(n[1]) && IsDigit(n[2]); }},
    {"*77",
     [](const CString& n) {
         const int l = n.GetLength();
         return l >= 2 && n[l - 1] == '7' && n[l - 2] == '7';
     }},
    {"*1*/*3",
     [](const CString& n) {
         const int one = n.Find('1'), slash = one < 0 ? -1 : n.Find('/', one + 1);
         return slash >= 0 && n.GetLength() > slash + 1 && n[n.GetLength() - 1] == '3';
     }},
};

template <typename Matches>
void Collect(CStringArray& found, int step, const Matches& matches)
{
    CStringArray& names = Names();
    for (int i = 0; i < kNames; i += step)
        if (matches(names[i]))
            found.Add(names[i]);
}

/// Runs a search over and over and compares what it finds in every `step`-th name with the hand-written one.
template <typename Search>
void Run(benchmark::State& state, const Pattern& pattern, int step, const Search& search)
{
    CStringArray expected;
    Collect(expected, step, pattern.matches);
    for (auto _ : state) {
        CStringArray found;
        search(found);
        if (found.GetSize() != expected.GetSize())
            state.SkipWithError("finds others");
        state.PauseTiming(); // giving the finds back is nobody's work
        found.RemoveAll();
        state.ResumeTiming();
    }
    state.counters["finds"] = double(expected.GetSize());
    state.SetItemsProcessed(state.iterations() * (kNames / step));
}

void Limit(benchmark::State& state, const Pattern& pattern)
{
    Run(state, pattern, 1, [&](CStringArray& found) { Collect(found, 1, pattern.matches); });
}

void Kolm(benchmark::State& state, const Pattern& pattern)
{
    Run(state, pattern, 1, [&](CStringArray& found) {
        CString search(pattern.wildcards);
        CKString::SearchDataForWildCard(search, Names(), found, 0, 0);
    });
}

void Standard(benchmark::State& state, const Pattern& pattern)
{
    Run(state, pattern, kStandardShare, [&](CStringArray& found) {
        const std::regex regex(std::string(CKString::ConvertWildCardToRegex(CString(pattern.wildcards).MakeUpper())));
        Collect(found, kStandardShare,
                [&](const CString& name) { return std::regex_match(LPCSTR(CString(name).MakeUpper()), regex); });
    });
}

#if defined(KOLM_BENCH_RE2)
void Re2(benchmark::State& state, const Pattern& pattern)
{
    Run(state, pattern, 1, [&](CStringArray& found) {
        RE2::Options options(RE2::Latin1);
        options.set_case_sensitive(false);
        const RE2 regex(LPCSTR(CKString::ConvertWildCardToRegex(pattern.wildcards)), options);
        Collect(found, 1, [&](const CString& name) {
            return RE2::FullMatch(re2::StringPiece(name, size_t(name.GetLength())), regex);
        });
    });
}
#endif

void Register(const char* way, void (*row)(benchmark::State&, const Pattern&), const Pattern& pattern)
{
    const std::string name = std::string("search/1M_names/") + pattern.wildcards + "/" + way;
    benchmark::RegisterBenchmark(name.c_str(), [row, &pattern](benchmark::State& state) {
        row(state, pattern);
    })->Unit(benchmark::kMillisecond);
}

} // namespace

int main(int argc, char** argv)
{
    for (const Pattern& pattern : kPatterns) {
        Register("limit", Limit, pattern);
        Register("kolm", Kolm, pattern);
#if defined(KOLM_BENCH_RE2)
        Register("re2", Re2, pattern);
#endif
        Register("std_regex_20k", Standard, pattern);
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
