/// Twenty wildcard patterns against a million names of board elements, beside expression engines and beside the least
/// work that finds the same ones: each pattern written out by hand, and the copies of the names that are found.
///
/// All rows go over the same list and append what they find to a list of their own; a row whose number of finds differs
/// from the hand-written one's fails. The standard library's expressions see only every fiftieth name.
#include "kolm.h"

#include <benchmark/benchmark.h>

#ifdef KOLM_BENCH_PCRE2
#define PCRE2_CODE_UNIT_WIDTH 8
#include <pcre2.h>
#endif
#ifdef KOLM_BENCH_RE2
#include <re2/re2.h>
#endif

#include <cstring>
#include <memory>
#include <random>
#include <regex>
#include <string>
#include <string_view>

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

bool StartsWith(std::string_view n, std::string_view upperCase)
{
    if (n.size() < upperCase.size())
        return false;
    for (size_t i = 0; i < upperCase.size(); ++i)
        if (Upper(n[i]) != upperCase[i])
            return false;
    return true;
}

bool EndsWith(std::string_view n, std::string_view digits)
{
    return n.size() >= digits.size() &&
           std::memcmp(n.data() + n.size() - digits.size(), digits.data(), digits.size()) == 0;
}

bool HasBehind(std::string_view n, size_t from, std::string_view part)
{
    return n.size() > from && n.find(part, from) != n.npos;
}

bool AreDigits(std::string_view n, size_t from, size_t count)
{
    bool all = n.size() >= from + count;
    for (size_t i = from; all && i < from + count; ++i)
        all = IsDigit(n[i]);
    return all;
}

using ByHand = bool (*)(std::string_view name);

struct Pattern
{
    const char* wildcards;
    ByHand matches;
};

// As users type them: a kind, a number or its beginning, the end of one, a sheet.
const Pattern kPatterns[] = {
    {"r1*", [](std::string_view n) { return StartsWith(n, "R1"); }},
    {"r12", [](std::string_view n) { return StartsWith(n, "R12"); }}, // no wildcard: the beginning
    {"c*", [](std::string_view n) { return StartsWith(n, "C"); }},
    {"led2*", [](std::string_view n) { return StartsWith(n, "LED2"); }},
    {"u##", [](std::string_view n) { return n.size() == 3 && StartsWith(n, "U") && AreDigits(n, 1, 2); }},
    {"tp####", [](std::string_view n) { return n.size() == 6 && StartsWith(n, "TP") && AreDigits(n, 2, 4); }},
    {"?#", [](std::string_view n) { return n.size() == 2 && !IsDigit(n[0]) && IsDigit(n[1]); }},
    {"??5*", [](std::string_view n) { return n.size() >= 3 && !IsDigit(n[0]) && !IsDigit(n[1]) && n[2] == '5'; }},
    {"*77", [](std::string_view n) { return EndsWith(n, "77"); }},
    {"*00#",
     [](std::string_view n) {
         return n.size() >= 3 && AreDigits(n, n.size() - 1, 1) && EndsWith(n.substr(0, n.size() - 1), "00");
     }},
    {"*/sheet4", [](std::string_view n) { return EndsWith(n, "/sheet4"); }},
    {"*123*", [](std::string_view n) { return HasBehind(n, 0, "123"); }},
    {"*9*9*", [](std::string_view n) { return n.find('9') != n.npos && HasBehind(n, n.find('9') + 1, "9"); }},
    {"*1*/*3",
     [](std::string_view n) {
         return n.find('1') != n.npos && HasBehind(n, n.find('1') + 1, "/") && EndsWith(n.substr(n.find('/') + 1), "3");
     }},
    {"r*/*", [](std::string_view n) { return StartsWith(n, "R") && HasBehind(n, 1, "/"); }},
    {"sw*8", [](std::string_view n) { return StartsWith(n, "SW") && EndsWith(n.substr(2), "8"); }},
    {"u*1*2",
     [](std::string_view n) {
         return StartsWith(n, "U") && n.find('1') != n.npos && EndsWith(n.substr(n.find('1') + 1), "2");
     }},
    {"c#5*", [](std::string_view n) { return n.size() >= 3 && StartsWith(n, "C") && IsDigit(n[1]) && n[2] == '5'; }},
    {"tp1#/*",
     [](std::string_view n) { return n.size() >= 5 && StartsWith(n, "TP1") && IsDigit(n[3]) && n[4] == '/'; }},
    {"zz*", [](std::string_view n) { return StartsWith(n, "ZZ"); }}, // finds nothing
};

std::string_view View(const CString& text)
{
    return std::string_view(text, size_t(text.GetLength()));
}

/// The expression that a peer gets for a pattern.
CString ExpressionOf(const Pattern& pattern)
{
    CString expression = CKString::ConvertWildCardToRegex(pattern.wildcards);
    if (!CKString::IsStringHaveWildCard(pattern.wildcards))
        expression += "(.)*";
    return expression;
}

template <typename Matches>
void Collect(CStringArray& found, int step, const Matches& matches)
{
    CStringArray& names = Names();
    for (int i = 0; i < kNames; i += step)
        if (matches(names[i]))
            found.Add(names[i]);
}

/// Runs a search for all patterns over and over and compares what it finds in every `step`-th name with the
/// hand-written ones.
template <typename Search>
void Run(benchmark::State& state, int step, const Search& search)
{
    INT_PTR expected = 0;
    for (const Pattern& pattern : kPatterns) {
        CStringArray found;
        Collect(found, step, [&](const CString& name) { return pattern.matches(View(name)); });
        expected += found.GetSize();
    }
    for (auto _ : state) {
        INT_PTR finds = 0;
        for (const Pattern& pattern : kPatterns) {
            CStringArray found;
            search(pattern, found);
            finds += found.GetSize();
        }
        if (finds != expected)
            state.SkipWithError("finds others");
    }
    state.counters["finds"] = double(expected);
    state.SetItemsProcessed(state.iterations() * int64_t(std::size(kPatterns)) * (kNames / step));
}

void Limit(benchmark::State& state)
{
    Run(state, 1, [](const Pattern& pattern, CStringArray& found) {
        Collect(found, 1, [&](const CString& name) { return pattern.matches(View(name)); });
    });
}

void Kolm(benchmark::State& state)
{
    Run(state, 1, [](const Pattern& pattern, CStringArray& found) {
        CString search(pattern.wildcards);
        CKString::SearchDataForWildCard(search, Names(), found, 0, 0);
    });
}

void Standard(benchmark::State& state)
{
    Run(state, kStandardShare, [](const Pattern& pattern, CStringArray& found) {
        const std::regex regex(LPCSTR(ExpressionOf(pattern)), std::regex::ECMAScript | std::regex::icase);
        Collect(found, kStandardShare, [&](const CString& name) { return std::regex_match(LPCSTR(name), regex); });
    });
}

#ifdef KOLM_BENCH_RE2
void Re2(benchmark::State& state)
{
    Run(state, 1, [](const Pattern& pattern, CStringArray& found) {
        RE2::Options options(RE2::Latin1);
        options.set_case_sensitive(false);
        const RE2 regex(LPCSTR(ExpressionOf(pattern)), options);
        Collect(found, 1, [&](const CString& name) {
            return RE2::FullMatch(re2::StringPiece(name, size_t(name.GetLength())), regex);
        });
    });
}
#endif

#ifdef KOLM_BENCH_PCRE2
/// Compiled to machine code, as a whole match, and without the group that nobody reads.
void Pcre2(benchmark::State& state)
{
    Run(state, 1, [](const Pattern& pattern, CStringArray& found) {
        CString expression = ExpressionOf(pattern);
        expression.Replace("(.)*", ".*");
        int error = 0;
        PCRE2_SIZE offset = 0;
        pcre2_code* const code =
            pcre2_compile(reinterpret_cast<PCRE2_SPTR>(LPCSTR(expression)), PCRE2_SIZE(expression.GetLength()),
                          PCRE2_CASELESS | PCRE2_ANCHORED | PCRE2_ENDANCHORED, &error, &offset, nullptr);
        pcre2_jit_compile(code, PCRE2_JIT_COMPLETE);
        pcre2_match_data* const data = pcre2_match_data_create_from_pattern(code, nullptr);
        Collect(found, 1, [&](const CString& name) {
            return pcre2_jit_match(code, reinterpret_cast<PCRE2_SPTR>(LPCSTR(name)), PCRE2_SIZE(name.GetLength()), 0, 0,
                                   data, nullptr) >= 0;
        });
        pcre2_match_data_free(data);
        pcre2_code_free(code);
    });
}
#endif

void Register(const char* way, void (*row)(benchmark::State&))
{
    const std::string name = std::string("search/1M_names_20_patterns/") + way;
    benchmark::RegisterBenchmark(name.c_str(), row)->Unit(benchmark::kMillisecond);
}

} // namespace

int main(int argc, char** argv)
{
    Register("limit", Limit);
    Register("kolm", Kolm);
#ifdef KOLM_BENCH_PCRE2
    Register("pcre2_jit", Pcre2);
#endif
#ifdef KOLM_BENCH_RE2
    Register("re2", Re2);
#endif
    Register("std_regex", Standard);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
