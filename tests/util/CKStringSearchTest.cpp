#include "util/CKString.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using List = std::vector<std::string>;

CString TextOf(const std::string& text)
{
    return CString(text.data(), int(text.size()));
}

List ListOf(const CStringArray& array)
{
    List list;
    for (INT_PTR i = 0; i < array.GetSize(); ++i)
        list.emplace_back(LPCSTR(array[i]), size_t(array[i].GetLength()));
    return list;
}

int Matches(const std::string& search, const std::string& data, int tokenize = 0)
{
    CString searchText = TextOf(search), dataText = TextOf(data);
    const int result = CKString::SearchDataForWildCard(searchText, dataText, tokenize);
    EXPECT_EQ(searchText, TextOf(search)) << "the search text was changed";
    return result;
}

TEST(CKStringSearch, MatchesOneText)
{
    const struct
    {
        const char* why;
        std::string search, data;
        int whole, tokenized;
    } cases[] = {
        {"a plain token is a prefix", "R1", "r10", 1, 1},
        {"at the start only", "R1", "XR1", 0, 0},
        {"a digit", "R#", "r1", 1, 1},
        {"and no more, since the token has a wildcard", "R#", "R12", 0, 0},
        {"no digit", "R?", "RA", 1, 1},
        {"a digit is none", "R?", "R1", 0, 0},
        {"a high byte is none either", "R?", "R\xE4", 1, 1},
        {"a run before", "*1", "X1", 1, 1},
        {"a run of nothing", "*1", "1", 1, 1},
        {"nothing matches all, but holds no token", "", "anything", 1, 0},
        {"a run ends at a line break", "a*", "a\nb", 0, 0},
        {"so does the run behind a plain token", "a", "a\rb", 0, 0},
        {"no digit may be a line break", "a?b", "a\nb", 1, 1},
        {"a run may go on behind a break that something else took", "*?A*B", "XA\nAZB", 1, 1},
        {"a zero byte is a character", std::string("a?b\0*", 5), std::string("a\0b\0c", 5), 1, 1},
        {"nor does it end a phrase", std::string("\"ab\0c\"", 6), "ab", 0, 0},
        {"of alternatives only the last is a prefix", "ab cd", "abx", 0, 1},
        {"the last one", "ab cd", "CDX", 1, 1},
        {"a wildcard in one takes that from all", "a* cd", "cdx", 0, 1},
        {"an empty last alternative is a prefix of all", "ab ", "zzz", 1, 0},
        {"characters with a meaning in expressions", "a.b[c", "A.B[C9", 1, 1},
        {"do not have it here", "a.b", "AXB", 0, 0},
        {"plain wildcards", "'*'?'#", "*?#-", 1, 1},
        {"letters of the conversion are not from the text", "#", "d", 0, 0},
        {"the first digit", "#", "0", 1, 1},
        {"the last digit", "#", "9", 1, 1},
        {"the character before the digits", "?", "/", 1, 1},
        {"the character after the digits", "?", ":", 1, 1},
        {"high bytes are compared as they are", "\xC3\xA4*", "\xC3\x84", 0, 0},
        {"and found", "\xC3\xA4*", "\xC3\xA4z", 1, 1},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Matches(c.search, c.data, 0), c.whole) << c.why;
        EXPECT_EQ(Matches(c.search, c.data, 1), c.tokenized) << c.why << ", tokenized";
    }
}

TEST(CKStringSearch, ChangesTheTextToUpperCaseWhenItComesToMatching)
{
    const struct
    {
        const char* why;
        const char* search;
        const char* data;
        int tokenize, result;
        const char* after;
    } cases[] = {
        {"an exact phrase comes before that", "\"abc\"", "Abc", 0, 1, "Abc"},
        {"without its quotes it is a token like others", "\"abc\"", "abcd", 0, 1, "ABCD"},
        {"tokenizing takes the quotes away", "\"abc\"", "abc", 1, 1, "ABC"},
        {"no match", "x", "abc", 0, 0, "ABC"},
        {"no token", "", "abc", 1, 0, "abc"},
        {"quotes with nothing between", "\"\"", "", 0, 1, ""},
        {"and then the prefix of all", "\"\"", "a", 0, 1, "A"},
        {"one quote is a character", "\"", "\"a", 0, 1, "\"A"},
    };
    for (const auto& c : cases) {
        CString search(c.search), data(c.data);
        EXPECT_EQ(CKString::SearchDataForWildCard(search, data, c.tokenize), c.result) << c.why;
        EXPECT_STREQ(data, c.after) << c.why;
    }
}

TEST(CKStringSearch, CollectsAndRemovesFromLists)
{
    const std::string zero("a\0b", 3);
    const struct
    {
        const char* why;
        std::string search;
        List data;
        int remove, tokenize;
        List found, left;
    } cases[] = {
        {"matches keep their case and leave", "R*", {"r1", "C2", "R3"}, 1, 0, {"r1", "R3"}, {"C2"}},
        {"or stay", "r*", {"r1", "C2", "R3"}, 0, 0, {"r1", "R3"}, {"r1", "C2", "R3"}},
        {"neighbours leave together",
         "a",
         {"a", "A1", "b", "a2", "c", "a3"},
         1,
         0,
         {"a", "A1", "a2", "a3"},
         {"b", "c"}},
        {"token by token, once for each", "r* #* *1", {"1", "r1"}, 0, 1, {"r1", "1", "1", "r1"}, {"1", "r1"}},
        {"once when they leave", "r* *1", {"1", "r1"}, 1, 1, {"r1", "1"}, {}},
        {"an exact phrase: the first equal text", "\"abc\"", {"x", "ABC", "abc"}, 1, 0, {"ABC"}, {"x", "abc"}},
        {"which stays without removing", "\"abc\"", {"x", "ABC"}, 0, 0, {"ABC"}, {"x", "ABC"}},
        {"no prefix match for a phrase", "\"ab\"", {"abc"}, 1, 0, {}, {"abc"}},
        {"a zero byte in a phrase is a character", "\"A" + zero.substr(1) + "\"", {"a", zero}, 1, 0, {zero}, {"a"}},
        {"tokenizing makes it a token", "\"ab c\" x", {"AB CD", "x"}, 1, 1, {"x"}, {"AB CD"}},
        {"no token, no match", "", {"a"}, 1, 1, {}, {"a"}},
        {"nothing untokenized matches all", "", {"a", "b\n", ""}, 1, 0, {"a", ""}, {"b\n"}},
        {"empty list", "*", {}, 1, 0, {}, {}},
    };
    for (const auto& c : cases) {
        CString search = TextOf(c.search);
        CStringArray data, found;
        for (const std::string& text : c.data)
            data.Add(TextOf(text));
        CKString::SearchDataForWildCard(search, data, found, c.remove, c.tokenize);
        EXPECT_EQ(ListOf(found), c.found) << c.why;
        EXPECT_EQ(ListOf(data), c.left) << c.why;
    }
}

TEST(CKStringSearch, SearchesAListIntoItselfOnce)
{
    CStringArray list;
    for (const char* text : {"r1", "c1", "r2"})
        list.Add(text);
    CKString::SearchDataForWildCard(list[0], list, list, 0, 0);
    EXPECT_EQ(ListOf(list), (List{"r1", "c1", "r2", "r1"}));
    CString search("r*");
    CKString::SearchDataForWildCard(search, list, list, 1, 0);
    EXPECT_EQ(ListOf(list), (List{"c1", "r1", "r2", "r1"}));
}

/// Texts and patterns at which backtracking takes all the stack, or time without end.
TEST(CKStringSearch, TakesLongTextsAndPatterns)
{
    const std::string megabyte(1 << 20, 'a');
    EXPECT_EQ(Matches("*", megabyte), 1);
    EXPECT_EQ(Matches("*A*A*A*A*A*B", megabyte), 0);
    EXPECT_EQ(Matches("*A*A*A*A*A*B", megabyte + "b"), 1);
    EXPECT_EQ(Matches("a*", megabyte + "\n"), 0);
    const std::string plain(20000, 'a'); // more places than fit into one word, by far
    EXPECT_EQ(Matches(plain, plain), 1);
    EXPECT_EQ(Matches(plain, plain.substr(1)), 0);
    EXPECT_EQ(Matches(plain + "#", plain + "1"), 1);
    EXPECT_EQ(Matches(plain + "#", plain + "a"), 0);
}

/// Taking out one by one would move the rest of the list each time.
TEST(CKStringSearch, RemovesHalfOfALongList)
{
    constexpr int kCount = 200000;
    CStringArray data, found;
    for (int i = 0; i < kCount; ++i) {
        CString name;
        name.Format("%c%d", i % 2 ? 'R' : 'C', i);
        data.Add(name);
    }
    CString search("r#*");
    CKString::SearchDataForWildCard(search, data, found, 1, 0);
    ASSERT_EQ(data.GetSize(), kCount / 2);
    ASSERT_EQ(found.GetSize(), kCount / 2);
    EXPECT_STREQ(data[kCount / 2 - 1], "C199998");
    EXPECT_STREQ(found[kCount / 2 - 1], "R199999");
}

} // namespace
