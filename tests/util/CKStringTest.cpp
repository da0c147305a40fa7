#include "util/CKString.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

std::vector<std::string> ListOf(const CStringArray& array)
{
    std::vector<std::string> list;
    for (INT_PTR i = 0; i < array.GetSize(); ++i)
        list.emplace_back(LPCSTR(array[i]), size_t(array[i].GetLength()));
    return list;
}

std::vector<std::string> TokensOf(const std::string& text, const char* delimiters)
{
    CString s(text.data(), int(text.size()));
    CStringArray tokens;
    CKString::GetStringTokenArray(s, tokens, delimiters);
    EXPECT_EQ(s, CString(text.data(), int(text.size()))) << "the text was changed";
    return ListOf(tokens);
}

TEST(CKString, ConvertsWildcardsToExpressions)
{
    const struct
    {
        const char* why;
        const char* text;
        const char* regex;
    } cases[] = {
        {"nothing stays nothing", "", ""},
        {"a run", "a*b", "a(.)*b"},
        {"digit, then no digit", "R#?", "R\\d\\D"},
        {"all thirteen characters are escaped", "$()+-.[\\]^{|}", "\\$\\(\\)\\+\\-\\.\\[\\\\\\]\\^\\{\\|\\}"},
        {"others with no meaning are not", "a/b,\"c\":d", "a/b,\"c\":d"},
        {"wildcards behind an apostrophe are characters", "x'*y'#z'?", "x\\*y#z\\?"},
        {"two apostrophes are one", "it''s", "it's"},
        {"a single one stays", "it's", "it's"},
        {"two before a wildcard: one and the plain character", "''*''#''?", "'\\*'#'\\?"},
        {"three before a wildcard: two become one at the end", "'''*", "'\\*"},
        {"four in a row are two", "''''", "''"},
        {"a plain star is not taken for a run again", "'**", "\\*(.)*"},
        {"spaces separate alternatives", "ab  cd ", "ab||cd|"},
        {"the text of a run is not a run", "'(.)*", "'\\(\\.\\)(.)*"},
        {"nor is that of a digit a digit", "'\\d", "'\\\\d"},
        {"case and high bytes stay", "aB\xC3\xA4*", "aB\xC3\xA4(.)*"},
    };
    for (const auto& c : cases)
        EXPECT_STREQ(CKString::ConvertWildCardToRegex(c.text), c.regex) << c.why;
}

TEST(CKString, KnowsWildcardCharacters)
{
    for (int byte = 0; byte < 256; ++byte) {
        const char ch = char(byte);
        EXPECT_EQ(CKString::IsWildCardAsterisk(ch), ch == '*');
        EXPECT_EQ(CKString::IsWildCardSharp(ch), ch == '#');
        EXPECT_EQ(CKString::IsWildCardQuestion(ch), ch == '?');
        EXPECT_EQ(CKString::IsWildCard(ch), ch == '*' || ch == '#' || ch == '?');
    }
    const struct
    {
        const char* text;
        int expected;
    } cases[] = {{"", 0},    {"abc", 0},  {"*", 1},   {"C*", 1},       {"C'*", 0},          {"'#5", 0},
                 {"'", 0},   {"'*?", 1},  {"''*", 0}, {"a' *", 1},     {"\xAA\xBF\xA3", 0}, // a wildcard's low bits
                 {"'?#", 1}, {"'#'?", 0}, {"x#", 1},  {"\xC3\xA4?", 1}};
    for (const auto& c : cases)
        EXPECT_EQ(CKString::IsStringHaveWildCard(c.text), c.expected) << c.text;
}

TEST(CKString, SplitsTokensAndJoinsPhrases)
{
    using List = std::vector<std::string>;
    const struct
    {
        const char* why;
        std::string text;
        const char* delimiters;
        List tokens;
    } cases[] = {
        {"nothing", "", " ", {}},
        {"only delimiters", "   ", " ", {}},
        {"runs of delimiters give no empty tokens", "  a  b ", " ", {"a", "b"}},
        {"each character of the set separates", "a,b;c", ";,", {"a", "b", "c"}},
        {"a phrase stays together", "say \"hello world\" now", " ", {"say", "hello world", "now"}},
        {"spaces within a phrase become one", "\"a    b\"", " ", {"a b"}},
        {"other delimiters within a phrase become a space", "\"a,b\",c", ",", {"a b", "c"}},
        {"an open phrase is dropped", "x \"a b", " ", {"x"}},
        {"a quote alone opens one too", "\" a \" b", " ", {" a ", "b"}},
        {"a quote inside or at the end opens nothing", "a\"b c\"", " ", {"ab", "c"}},
        {"the closing quote may stand inside a token", "\"a b\"c d", " ", {"a bc", "d"}},
        {"a third quote goes with the others", "\"a b\"\"c d", " ", {"a bc", "d"}},
        {"quotes with nothing between", "\"\"", " ", {""}},
        {"one space at the end goes, not two", "a  ,b ,c", ",", {"a ", "b", "c"}},
        {"but not behind a quote", "\"a\" ,b", ",", {"a ", "b"}},
        {"a space alone becomes an empty token", " ,a", ",", {"", "a"}},
        {"without delimiters all is one token", "a b,c ", "", {"a b,c"}},
        {"high and zero bytes are text", std::string("\xFF\0b c", 5), " ", {std::string("\xFF\0b", 3), "c"}},
    };
    for (const auto& c : cases)
        EXPECT_EQ(TokensOf(c.text, c.delimiters), c.tokens) << c.why;
}

TEST(CKString, AppendsTokensEvenOfAnElementOfTheList)
{
    CStringArray tokens;
    tokens.Add("a b c d e f g h i j a text that is longer than a small one");
    CKString::GetStringTokenArray(tokens[0], tokens, " ");
    ASSERT_EQ(tokens.GetSize(), 1 + 10 + 9);
    EXPECT_STREQ(tokens[1], "a");
    EXPECT_STREQ(tokens[19], "one");
}

/// Counting quotes anew for each piece would take minutes.
TEST(CKString, TakesLongOpenPhrasesInTimeProportionalToTheirLength)
{
    std::string text = "\"";
    for (int i = 0; i < 200000; ++i)
        text += "a ";
    EXPECT_TRUE(TokensOf(text, " ").empty());
    EXPECT_EQ(TokensOf(text + "\"", " "), std::vector<std::string>{text.substr(1)});
}

TEST(CKString, LooksUpTextsWithTheirCase)
{
    CStringArray list;
    list.Add("ABC");
    list.Add("x");
    list.Add("x");
    EXPECT_EQ(CKString::IsExistStrArray(list, "ABC"), 1);
    EXPECT_EQ(CKString::IsExistStrArray(list, "abc"), 0);
    EXPECT_EQ(CKString::IsExistStrArray(list, ""), 0);
    EXPECT_EQ(CKString::GetIndex(&list, "x"), 1);
    EXPECT_EQ(CKString::GetIndex(&list, "X"), -1);
    EXPECT_EQ(CKString::GetIndex(nullptr, "x"), -1);
}

} // namespace
