#include "ViewerTesting.h"

namespace viewer {

TEST(SExpr, WalksItems)
{
    const std::string text = "(top word \"a \\\"b\\\"\\n\" (pair 1 -2.5e1) (empty) ())";
    SExprReader reader(text, "t", "top");

    SExpr item = reader.NextItem();
    EXPECT_EQ(item.Raw(), "word");
    EXPECT_FALSE(item.IsList());
    EXPECT_EQ(reader.NextItem().Text(), "a \"b\"\n");
    item = reader.NextItem();
    EXPECT_TRUE(item.Is("pair"));
    EXPECT_EQ(item.Number(0), 1);
    EXPECT_EQ(item.Number(1), -25);
    EXPECT_EQ(item.Number(2, 7), 7) << "a missing item gives the fallback";
    EXPECT_FALSE(reader.NextItem().First());
    EXPECT_TRUE(reader.NextItem().Is(""));
    EXPECT_FALSE(reader.NextItem());
}

TEST(SExpr, TellsQuotedFromBareWords)
{
    SExprReader reader("(top (text \"hide\") (text hide) (text (hide)))", "t", "top");
    EXPECT_FALSE(reader.NextItem().Has("hide")) << "a text that happens to read so";
    EXPECT_TRUE(reader.NextItem().Has("hide"));
    EXPECT_TRUE(reader.NextItem().Has("hide"));
}

struct BrokenCase
{
    const char* why;
    const char* text;
    const char* message;
};

const BrokenCase kBroken[] = {
    {"nothing at all", "", "t:1: not a board"},
    {"another format", "(export (version D))", "t:1: not a board"},
    {"a longer head", "(topmost)", "t:1: not a board"},
    {"cut in the outer list", "(top\n (a)\n", "t:3: the file ends inside (top"},
    {"cut in a nested list", "(top\n (a\n (b 1", "t:3: the file ends inside (b"},
    {"cut in a quoted text", "(top (a \"b)\n)\n", "t:3: the file ends inside (a"},
    {"cut after a backslash", "(top (a \"b\\", "t:1: the file ends inside (a"},
    {"a parenthesis too many", "(top))", "t:1: text after the end"},
};

std::string MessageOf(const std::string& text)
{
    try {
        SExprReader reader(text, "t", "top");
        while (reader.NextItem()) {
        }
    } catch (const ReadError& error) {
        return error.what();
    }
    return "";
}

TEST(SExpr, SaysWhereATextIsBroken)
{
    for (const BrokenCase& c : kBroken)
        EXPECT_EQ(MessageOf(c.text).substr(0, std::string(c.message).size()), c.message) << c.why;
}

TEST(SExpr, RefusesBottomlessNesting)
{
    const auto nested = [](size_t depth) { return "(top " + std::string(depth, '(') + std::string(depth, ')') + ")"; };
    EXPECT_EQ(MessageOf(nested(SExprReader::kDeepest)), "");
    EXPECT_NE(MessageOf(nested(SExprReader::kDeepest + 1)).find("nested deeper"), std::string::npos);
    EXPECT_NE(MessageOf("(top " + std::string(10'000'000, '(')).find("nested deeper"), std::string::npos);
}

struct NumberCase
{
    const char* text;
    double value; ///< NaN: refused
};

const NumberCase kNumbers[] = {
    {"0", 0},       {"-0.000001", -1e-6}, {"1e6", 1e6},  {"1e-400", 0}, {"1000001", NAN}, {"1e300", NAN},
    {"1e999", NAN}, {"nan", NAN},         {"-inf", NAN}, {"12mm", NAN}, {"\"\"", NAN},    {"(1)", NAN},
};

TEST(SExpr, AcceptsNumbersThatFitABoard)
{
    for (const NumberCase& c : kNumbers) {
        const std::string text = std::string("(top (n ") + c.text + "))";
        SExprReader reader(text, "t", "top");
        const SExpr item = reader.NextItem();
        if (std::isnan(c.value))
            EXPECT_THROW(item.Number(0), ReadError) << c.text;
        else
            EXPECT_EQ(item.Number(0), c.value) << c.text;
    }
}

} // namespace viewer
