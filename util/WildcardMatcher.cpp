#include "util/WildcardMatcher.h"

#include <algorithm>

namespace {

enum class Kind
{
    Literal,
    Digit,
    NonDigit,
    Run,
    Bar
};

struct Element
{
    Kind kind;
    unsigned char byte; ///< of a literal
};

constexpr std::string_view kRun = "(.)*";

/// Takes the next element off a pattern that is not empty. The conversion puts a backslash before every character that
/// could mean anything else here, so this reads all that it can produce.
Element TakeElement(std::string_view& pattern)
{
    if (pattern.substr(0, kRun.size()) == kRun) {
        pattern.remove_prefix(kRun.size());
        return {Kind::Run, 0};
    }
    const bool escaped = pattern[0] == '\\' && pattern.size() > 1;
    const char ch = pattern[escaped ? 1 : 0];
    pattern.remove_prefix(escaped ? 2 : 1);
    if (escaped && (ch == 'd' || ch == 'D'))
        return {ch == 'd' ? Kind::Digit : Kind::NonDigit, 0};
    return {!escaped && ch == '|' ? Kind::Bar : Kind::Literal, static_cast<unsigned char>(ch)};
}

bool IsDigit(unsigned byte)
{
    return byte >= '0' && byte <= '9';
}

bool IsLineBreak(unsigned char byte)
{
    return byte == '\n' || byte == '\r';
}

struct PatternSize
{
    size_t places = 1;       ///< of this matcher: one before each element that takes a character, one at each end
    size_t engineStates = 4; ///< of the standard engine's automaton; these are its frame
};

PatternSize Measure(std::string_view pattern)
{
    PatternSize size;
    while (!pattern.empty()) {
        switch (TakeElement(pattern).kind) {
        case Kind::Run:
            size.engineStates += 5; // a group's begin and end, the character, the alternative in it, the repetition
            break;
        case Kind::Bar:
            size.engineStates += 3; // the fork, the join, the alternative
            ++size.places;
            break;
        default:
            size.engineStates += 1;
            ++size.places;
        }
    }
    return size;
}

/// The standard engine refuses a pattern whose automaton has more states than this. Users see that a search text of
/// some tens of thousands of characters finds nothing; the table of accepted bytes stays below 4 megabytes.
constexpr size_t kMostEngineStates = 100000;

void Set(std::vector<uint64_t>& bits, size_t firstWord, size_t place)
{
    bits[firstWord + place / 64] |= uint64_t(1) << (place % 64);
}

} // namespace

WildcardMatcher::WildcardMatcher(std::string_view pattern)
{
    const PatternSize size = Measure(pattern);
    if (size.engineStates > kMostEngineStates)
        return;
    m_words = (size.places + 63) / 64;
    m_starts.resize(m_words);
    m_ends.resize(m_words);
    m_runs.resize(m_words);
    m_accepts.resize(256 * m_words);
    Compile(pattern);
}

void WildcardMatcher::Compile(std::string_view pattern)
{
    size_t place = 0;
    Set(m_starts, 0, place);
    while (!pattern.empty()) {
        const Element element = TakeElement(pattern);
        switch (element.kind) {
        case Kind::Run: // takes no place of its own: the place before the next character waits while the run lasts
            Set(m_runs, 0, place);
            break;
        case Kind::Bar: // nothing is accepted at an end, so no text runs from one alternative into the next
            Set(m_ends, 0, place++);
            Set(m_starts, 0, place);
            break;
        case Kind::Literal:
            Set(m_accepts, element.byte * m_words, place++);
            break;
        default:
            for (unsigned byte = 0; byte < 256; ++byte)
                if (IsDigit(byte) == (element.kind == Kind::Digit))
                    Set(m_accepts, byte * m_words, place);
            ++place;
        }
    }
    Set(m_ends, 0, place);
}

void WildcardMatcher::Fold(const FoldTable& table)
{
    for (size_t byte = 0; byte < 256; ++byte) {
        if (table[byte] != byte) {
            const auto source = m_accepts.begin() + std::ptrdiff_t(table[byte] * m_words);
            std::copy_n(source, m_words, m_accepts.begin() + std::ptrdiff_t(byte * m_words));
        }
    }
}

bool WildcardMatcher::MatchesOneWord(std::string_view text) const
{
    const uint64_t* const accepts = m_accepts.data();
    const uint64_t runs = m_runs[0];
    uint64_t reached = m_starts[0];
    for (const char ch : text) {
        const auto byte = static_cast<unsigned char>(ch);
        const uint64_t lasting = IsLineBreak(byte) ? 0 : runs;
        reached = (reached & accepts[byte]) << 1 | (reached & lasting);
        if (reached == 0)
            return false;
    }
    return (reached & m_ends[0]) != 0;
}

/// Only the words between the first and the last that hold a place are touched: while a long plain text is compared,
/// that is a single one.
bool WildcardMatcher::MatchesManyWords(std::string_view text) const
{
    if (m_words == 0)
        return false;
    Bits reached = m_starts;
    size_t first = 0, last = m_words - 1;
    for (const char ch : text) {
        const auto byte = static_cast<unsigned char>(ch);
        const uint64_t* const accepts = m_accepts.data() + byte * m_words;
        const uint64_t runsLast = IsLineBreak(byte) ? 0 : ~uint64_t(0);
        last = std::min(last + 1, m_words - 1);
        for (size_t word = last + 1; word-- > first;) { // downward, so that the word below is still the old one
            const uint64_t carry = word > first ? (reached[word - 1] & accepts[word - 1]) >> 63 : 0;
            reached[word] = (reached[word] & accepts[word]) << 1 | carry | (reached[word] & m_runs[word] & runsLast);
        }
        while (first <= last && reached[first] == 0)
            ++first;
        if (first > last)
            return false;
        while (reached[last] == 0)
            --last;
    }
    for (size_t word = first; word <= last; ++word)
        if (reached[word] & m_ends[word])
            return true;
    return false;
}
