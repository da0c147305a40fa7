#include <afx.h>

#include "Raises.h"

#include <gtest/gtest.h>

#include <climits>

namespace {

TEST(CString, PartsAreCutToWhatIsThere)
{
    const CString text("board");
    const struct
    {
        const char* why;
        CString part;
        const char* expected;
    } cases[] = {
        {"inner part", text.Mid(1, 3), "oar"},
        {"from a position on", text.Mid(3), "rd"},
        {"start before the text", text.Mid(-2, 2), "bo"},
        {"start past the text", text.Mid(9, 2), ""},
        {"count past the text", text.Mid(2, INT_MAX), "ard"},
        {"negative count", text.Mid(2, -1), ""},
        {"left of less than nothing", text.Left(-1), ""},
        {"right", text.Right(2), "rd"},
        {"right of more", text.Right(INT_MAX), "board"},
        {"right of less than nothing", text.Right(INT_MIN), ""},
    };
    for (const auto& c : cases)
        EXPECT_EQ(c.part, c.expected) << c.why;
}

TEST(CString, Searches)
{
    const CString text("a.b.c");
    EXPECT_EQ(text.Find('.'), 1);
    EXPECT_EQ(text.Find('.', 2), 3);
    EXPECT_EQ(text.Find(".c"), 3);
    EXPECT_EQ(text.Find("", 5), 5);
    EXPECT_EQ(text.Find("a", 1), -1);
    EXPECT_EQ(text.Find("a", -1), -1);
    EXPECT_EQ(text.Find("", 6), -1);
    EXPECT_EQ(text.Find(static_cast<LPCSTR>(nullptr)), -1);
    EXPECT_EQ(text.ReverseFind('.'), 3);
    EXPECT_EQ(text.FindOneOf("cb"), 2);
}

TEST(CString, Edits)
{
    CString text("  one two  ");
    EXPECT_EQ(text.Trim(), "one two");
    EXPECT_EQ(text.Trim("eo"), "ne tw");
    EXPECT_EQ(CString("xxx").TrimLeft('x'), "");
    EXPECT_EQ(CString("xxx").TrimRight("x"), "");
    EXPECT_EQ(text.Insert(99, "!"), 6);
    EXPECT_EQ(text.Insert(-1, '>'), 7);
    EXPECT_EQ(text, ">ne tw!");
    EXPECT_EQ(text.Delete(3, INT_MAX), 3);
    EXPECT_EQ(text.Delete(7), 3);
    EXPECT_EQ(text, ">ne");

    text = "aXbXX";
    EXPECT_EQ(text.Replace("X", "XX"), 3) << "what was put in is not searched again";
    EXPECT_EQ(text, "aXXbXXXX");
    EXPECT_EQ(text.Replace("XX", nullptr), 3);
    EXPECT_EQ(text.Replace("", "y"), 0);
    EXPECT_EQ(text.Replace('a', 'b'), 1);
    EXPECT_EQ(text.Remove('b'), 2);
    EXPECT_TRUE(text.IsEmpty());

    text = "self";
    text += text;
    text.Append(text);
    text.Insert(1, text);
    EXPECT_EQ(text.GetLength(), 32) << "a text may be its own argument";
    EXPECT_EQ('<' + CString("a") + "b" + CString("c") + '>', "<abc>");
}

TEST(CString, MappingLeavesHighBytesAlone)
{
    // Every byte value, compared with the two ranges of ASCII letters.
    for (int value = 0; value < 256; ++value) {
        const char ch = char(value);
        const CString text(ch, 2);
        const bool lower = value >= 'a' && value <= 'z';
        const bool upper = value >= 'A' && value <= 'Z';
        EXPECT_EQ(CString(text).MakeUpper(), CString(lower ? char(value - 32) : ch, 2)) << value;
        EXPECT_EQ(CString(text).MakeLower(), CString(upper ? char(value + 32) : ch, 2)) << value;
    }
    EXPECT_EQ(CString("Pad").CompareNoCase("pAD"), 0);
    EXPECT_EQ(CString("Pad").CompareNoCase("pae"), -1);
    EXPECT_EQ(CString("a\0b", 3).CompareNoCase(CString("A\0B", 3)), 0);
}

TEST(CString, ComparesBytesAsUnsignedNumbers)
{
    EXPECT_GT(CString("\xC3"), "z");
    EXPECT_LT("z", CString("\xC3"));
    EXPECT_NE(CString("a\0b", 3), CString("a\0c", 3)) << "zero bytes count";
    EXPECT_EQ(CString("a\0b", 3).GetLength(), 3);
    EXPECT_EQ(CString(static_cast<LPCSTR>(nullptr)), "");
    EXPECT_EQ(CString("ab").Compare("abc"), -1);
}

TEST(CString, Tokens)
{
    const struct
    {
        const char* text;
        const char* delimiters;
        const char* expected; // pieces joined by |
    } cases[] = {
        {"one two", " ", "one|two|"},      {" ;a;; b; ", "; ", "a|b|"}, {"", " ", ""}, {";;;", ";", ""},
        {"whole text", "", "whole text|"},
    };
    for (const auto& c : cases) {
        CString joined;
        int start = 0;
        const CString text(c.text);
        for (CString token = text.Tokenize(c.delimiters, start); start != -1;
             token = text.Tokenize(c.delimiters, start))
            joined += token + '|';
        EXPECT_EQ(joined, c.expected) << c.text;
    }
    int start = 0;
    CString("one,two").Tokenize(",", start);
    EXPECT_EQ(start, 4) << "behind the delimiter";
    start = -1;
    EXPECT_TRUE(Raises<CInvalidArgException>([&] { CString("a").Tokenize(" ", start); }));
}

TEST(CString, Formats)
{
    CString text("track");
    text.Format("%s %i %.3f %%", text.GetString(), -5, 0.0625);
    EXPECT_EQ(text, "track -5 0.062 %") << "the exact half rounds to even";
    text.AppendFormat("|%s", text.GetString());
    EXPECT_EQ(text, "track -5 0.062 %|track -5 0.062 %");
    text.Format("%0200d", 7);
    EXPECT_EQ(text.GetLength(), 200);
}

TEST(CString, PositionsOutsideRaise)
{
    CString text("ab");
    EXPECT_EQ(text[2], 0) << "the final zero can be read";
    EXPECT_TRUE(Raises<CInvalidArgException>([&] { text.GetAt(3); }));
    EXPECT_TRUE(Raises<CInvalidArgException>([&] { text.GetAt(-1); }));
    EXPECT_TRUE(Raises<CInvalidArgException>([&] { text.SetAt(2, 'c'); }));
    EXPECT_TRUE(Raises<CInvalidArgException>([&] { CString("ab", -1); }));
    text.SetAt(1, '\0');
    EXPECT_EQ(text.GetLength(), 2);
}

TEST(CString, BuffersAreWrittenInto)
{
    CString text("ab");
    char* buffer = text.GetBuffer(10);
    EXPECT_STREQ(buffer, "ab");
    memcpy(buffer, "0123456789", 11);
    text.ReleaseBuffer();
    EXPECT_EQ(text, "0123456789");
    text.GetBuffer();
    text.ReleaseBuffer(4);
    EXPECT_EQ(text, "0123");
    text.GetBuffer(4);
    text.ReleaseBuffer(100);
    EXPECT_EQ(text.GetLength(), 4);
}

TEST(CString, WideTextBecomesUtf8)
{
    // Encodings by the bit patterns of UTF-8, written out by hand.
    EXPECT_EQ(CString(L"5 \u00B5m"), "5 \xC2\xB5m");
    EXPECT_EQ(CString(L"\u2126\U0001F50C"), "\xE2\x84\xA6\xF0\x9F\x94\x8C");
    const wchar_t lone[] = {L'a', wchar_t(0xDC00), wchar_t(0xD800), 0};
    EXPECT_EQ(CString(lone), "a\xEF\xBF\xBD\xEF\xBF\xBD");
    EXPECT_EQ(CString(L"abc", 2), "ab");
}

} // namespace
