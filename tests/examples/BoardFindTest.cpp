#include "BoardFind.h"
#include "ViewerTesting.h"

#include <algorithm>

namespace viewer {

struct FindCase
{
    const char* why;
    const char* pattern;
    const char* expected; ///< the lines; tabs stand as spaces
};

TEST(BoardFind, LinesOfWhatMatches)
{
    const auto footprint = [](const char* reference, const char* at, const char* pads = "") {
        return "(footprint f (layer F.Cu) (at " + std::string(at) + ") (fp_text reference \"" + reference +
               "\" (at 0 0) (layer F.SilkS))" + pads + ")";
    };
    const char* const kPad = "(pad 1 smd rect (at 2 0 90) (size 1 1) (layers F.Cu) (net 2 \"/CLK#1\"))";
    // A net declared behind footprints keeps its place; a footprint without a reference and the net without a name are
    // never found.
    const Board board = ReadItems(
        "(net 0 \"\") (net 1 GND) (net 2 \"/CLK#1\")" + footprint("R1", "10 20") + footprint("R12", "1.5 -2 90", kPad) +
        footprint("", "0 0") + footprint("R1", "30 40") + "(net 3 RESET) (net 4 \"\xC3\xA4\")" +
        "(segment (start 7 8) (end 9 8) (width 1) (layer F.Cu) (net 2)) (via (at 5 6) (size 1) (layers F.Cu B.Cu) (net "
        "1))(segment (start 3 4) (end 9 8) (width 1) (layer F.Cu) (net 1))");
    const FindCase cases[] = {
        {"a plain text is a beginning", "r1",
         "R1 footprint 10.0000 20.0000\nR12 footprint 1.5000 -2.0000\nR1 footprint 30.0000 40.0000\n"},
        {"a digit ends it", "R#", "R1 footprint 10.0000 20.0000\nR1 footprint 30.0000 40.0000\n"},
        {"a net without copper has no position", "R?*", "RESET net\n"},
        {"a net's first pad goes before its tracks, at (2, 0) turned to the file's (0, -2)", "/*",
         "/CLK#1 net 1.5000 -4.0000\n"},
        {"without a pad its first track goes before its vias", "g*d", "GND net 3.0000 4.0000\n"},
        {"an apostrophe takes the sign itself", "*'#1", "/CLK#1 net 1.5000 -4.0000\n"},
        {"two tokens, in the file's order and each item once", "R12 G* R1#",
         "GND net 3.0000 4.0000\nR12 footprint 1.5000 -2.0000\n"},
        {"bytes above 128", "\xC3\xA4", "\xC3\xA4 net\n"},
        {"all that has a name", "*",
         "GND net 3.0000 4.0000\n/CLK#1 net 1.5000 -4.0000\nR1 footprint 10.0000 20.0000\n"
         "R12 footprint 1.5000 -2.0000\nR1 footprint 30.0000 40.0000\nRESET net\n\xC3\xA4 net\n"},
        {"none", "X*", ""},
        {"no regular expression", "R.", ""},
    };
    for (const FindCase& c : cases) {
        std::string lines = FoundLines(FindItems(board, c.pattern));
        std::replace(lines.begin(), lines.end(), '\t', ' ');
        EXPECT_EQ(lines, c.expected) << c.why;
    }
}

} // namespace viewer
