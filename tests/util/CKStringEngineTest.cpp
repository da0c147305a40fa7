/// The searches against the standard library's regular expressions, whose outcome they promise.
#include "util/CKString.h"

#include <gtest/gtest.h>

#include <random>
#include <regex>
#include <string>
#include <string_view>
#include <vector>

namespace {

CString TextOf(const std::string& text)
{
    return CString(text.data(), int(text.size()));
}

/// The expression that a token is matched with, as the standard library takes it.
std::string PatternOf(const std::string& token)
{
    CString upper = TextOf(token);
    upper.MakeUpper();
    const CString regex = CKString::ConvertWildCardToRegex(upper);
    std::string pattern(LPCSTR(regex), size_t(regex.GetLength()));
    if (!CKString::IsStringHaveWildCard(upper))
        pattern += "(.)*";
    return pattern;
}

std::string Upper(std::string text)
{
    for (char& ch : text)
        if (ch >= 'a' && ch <= 'z')
            ch = char(ch - 'a' + 'A');
    return text;
}

std::string RandomText(std::mt19937& random, std::string_view alphabet, size_t longest)
{
    std::string text(random() % (longest + 1), '\0');
    for (char& ch : text)
        ch = alphabet[random() % alphabet.size()];
    return text;
}

/// Texts are short, so that the engine comes to an end. A pattern's own pieces are frequent in its texts, and patterns
/// of one kind of letter make many ways to match.
TEST(CKStringEngine, AgreesOnRandomPatternsAndTexts)
{
    using namespace std::string_view_literals;
    constexpr unsigned kSeed = 20240611;
    const struct
    {
        std::string_view patterns, texts;
        size_t longestPattern;
    } kinds[] = {
        {"*?#'aA \""sv, "aA1'\n\""sv, 9},
        {"*?aB"sv, "aB\r\n"sv, 9},
        {"*?#' a1$()+-.[\\]^{|}/\"\n\r\t\0\xE4\xC4\xFF"sv, "a1$()+-.[\\]^{|}/\"\n\r\t\0\xE4\xC4\xFF*?#'"sv, 7},
        {"*a? "sv, "a\n"sv, 90},
    };
    std::mt19937 random(kSeed);
    int matches = 0;
    for (const auto& kind : kinds) {
        for (int i = 0; i < 500; ++i) {
            const std::string token = RandomText(random, kind.patterns, kind.longestPattern);
            if (token.size() >= 2 && token.front() == '"' && token.back() == '"')
                continue; // an exact phrase has a way of its own
            const std::regex engine(PatternOf(token));
            CStringArray data, found;
            std::vector<std::string> expected;
            for (int k = 0; k < 16; ++k) {
                const std::string text = RandomText(random, kind.texts, 8);
                data.Add(TextOf(text));
                if (std::regex_match(Upper(text), engine))
                    expected.push_back(text);
            }
            CString search = TextOf(token);
            CKString::SearchDataForWildCard(search, data, found, 0, 0);
            std::vector<std::string> actual;
            for (INT_PTR k = 0; k < found.GetSize(); ++k)
                actual.emplace_back(LPCSTR(found[k]), size_t(found[k].GetLength()));
            ASSERT_EQ(actual, expected) << "token " << testing::PrintToString(token) << ", seed " << kSeed;
            matches += int(expected.size());
        }
    }
    EXPECT_GT(matches, 1000) << "the texts hardly ever match, so little was compared";
}

bool EngineTakes(const std::string& pattern)
{
    try {
        std::regex engine(pattern);
        return true;
    } catch (const std::regex_error&) {
        return false;
    }
}

/// Many alternatives, since the engine takes stack for each character of a sequence. It has 100,000 states: 4 at its
/// ends, 5 for a run, 3 for a bar between alternatives, 1 for any other character.
TEST(CKStringEngine, AgreesOnTheLengthThatIsRefused)
{
    std::string alternatives;
    for (int i = 0; i < 198; ++i)
        alternatives += std::string(100, '*') + " ";
    constexpr int kLeft = 100000 - 4 - 198 * (100 * 5 + 3);
    for (const char* last : {"?", "'*", "#"}) {
        for (const int count : {kLeft, kLeft + 1}) {
            std::string token = alternatives;
            for (int i = 0; i < count; ++i)
                token += last;
            const bool taken = count == kLeft;
            EXPECT_EQ(EngineTakes(PatternOf(token)), taken) << last;
            CString search = TextOf(token), data("any");
            EXPECT_EQ(CKString::SearchDataForWildCard(search, data, 0), int(taken)) << last;
        }
    }
}

/// A token that is refused does not keep the next one from being found.
TEST(CKStringEngine, GoesOnBehindARefusedToken)
{
    const std::string refused(20000, '*');
    CString search = TextOf(refused + " b"), data("abc");
    EXPECT_EQ(CKString::SearchDataForWildCard(search, data, 1), 0);
    CStringArray list, found;
    list.Add("a");
    list.Add("b");
    CKString::SearchDataForWildCard(search, list, found, 0, 1);
    ASSERT_EQ(found.GetSize(), 1);
    EXPECT_STREQ(found[0], "b");
    CString taken = TextOf(refused.substr(1)); // at most so many runs
    EXPECT_EQ(CKString::SearchDataForWildCard(taken, data, 0), 1);
}

} // namespace
