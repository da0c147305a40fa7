#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

/// Matches whole texts against one regular expression of those that CKString::ConvertWildCardToRegex produces, with the
/// outcome that a full match by the standard library's ECMAScript engine has. That engine backtracks: it takes stack in
/// proportion to the text and, for several runs in a pattern, time that grows exponentially. This matcher steps once
/// through the text and keeps the set of all places in the pattern that it could have reached, one bit each: time is in
/// proportion to text x pattern / 64 at worst, and no stack is used.
///
/// The expressions consist of alternatives between "|"; "(.)*" for a run of any characters but line breaks; "\d" and
/// "\D" for one character that is, or is not, a decimal digit; any other character behind a backslash or by itself
/// stands for itself. Patterns and texts are bytes, zero included. Immutable but for Fold, so threads may share one.
class WildcardMatcher
{
public:
    /// The byte that each byte of a text stands for. Applied twice it has to do the same as once.
    using FoldTable = std::array<unsigned char, 256>;

    explicit WildcardMatcher(std::string_view pattern);

    /// From now on texts are seen through the table, which ignores case without copying a text. The pattern is taken as
    /// it is: bytes that the table maps away can no longer match.
    void Fold(const FoldTable& table);

    /// False when the standard engine refuses a pattern of this length. Such a matcher matches nothing.
    bool IsUsable() const { return m_words > 0; }

    /// Whether the text as a whole matches. Its first and its last byte settle most texts.
    bool Matches(std::string_view text) const
    {
        if (m_words != 1)
            return MatchesManyWords(text);
        return (text.empty() || (MayBeginWith(text.front()) && MayEndWith(text.back()))) && MatchesOneWord(text);
    }

private:
    using Bits = std::vector<uint64_t>;

    void Compile(std::string_view pattern);
    /// Where the places are one word: whether a first place takes the byte or waits.
    bool MayBeginWith(char ch) const { return (m_starts[0] & (AcceptsOf(ch) | m_runs[0])) != 0; }
    /// Whether a last place is reached by the byte or waits.
    bool MayEndWith(char ch) const { return (m_ends[0] & (AcceptsOf(ch) << 1 | m_runs[0])) != 0; }
    uint64_t AcceptsOf(char ch) const { return m_accepts[static_cast<unsigned char>(ch)]; }
    bool MatchesOneWord(std::string_view text) const;
    bool MatchesManyWords(std::string_view text) const;

    size_t m_words = 0; ///< words in a set of places; 0 when the pattern is refused
    Bits m_starts;      ///< the first place of each alternative
    Bits m_ends;        ///< the last one of each, where a text may end
    Bits m_runs;        ///< places where a run of any characters may go on
    Bits m_accepts;     ///< for each byte in turn a set: the places that it takes to the next one
};
