#include "Options.h"

#include <gtest/gtest.h>

namespace viewer {

TEST(Options, TakesAllThatThereIs)
{
    const Options options =
        ParseOptions({"--mirror", "b.kicad_pcb", "--export", "o.BMP", "--size", "64x48", "--area", "-1.5,2,3e1,4",
                      "--layers", "F.Cu,Edge.Cuts", "--archive", "o.kolm", "--info"});
    EXPECT_EQ(options.input, "b.kicad_pcb");
    EXPECT_EQ(options.exportPath, "o.BMP");
    EXPECT_EQ(options.archivePath, "o.kolm");
    EXPECT_EQ(options.size.width, 64);
    EXPECT_EQ(options.size.height, 48);
    ASSERT_TRUE(options.area);
    EXPECT_EQ(options.area->x1, -1.5);
    EXPECT_EQ(options.area->x2, 30);
    EXPECT_EQ(options.layers, (std::vector<std::string>{"F.Cu", "Edge.Cuts"}));
    EXPECT_TRUE(options.mirror);
    EXPECT_TRUE(options.info);
}

TEST(Options, TakesReports)
{
    const Options clearance = ParseOptions({"b", "--clearance", ".25", "--json"});
    ASSERT_TRUE(clearance.clearance);
    EXPECT_EQ(*clearance.clearance, 0.25);
    EXPECT_TRUE(clearance.json);
    EXPECT_EQ(ParseOptions({"--find", "-R*", "b"}).find, "-R*") << "a pattern may look like an option";
}

TEST(Options, TakesSizesInPixelsOrByScale)
{
    EXPECT_EQ(ParseOptions({"b", "--info", "--size", "268435456x1"}).size.width, 268435456) << "a gigabyte";
    EXPECT_EQ(ParseOptions({"b", "--info", "--px-per-mm", "2.5"}).size.pixelsPerMm, 2.5);
    EXPECT_DOUBLE_EQ(ParseOptions({"b", "--info", "--dpi", "254"}).size.pixelsPerMm, 10);
}

TEST(Options, ShowsAWindowWhereNothingElseIsAskedFor)
{
    EXPECT_TRUE(ParseOptions({}).window);
    EXPECT_TRUE(ParseOptions({"b", "--mirror", "--layers", "F.Cu", "--log"}).window);
    const std::vector<std::string> others[] = {
        {"b", "--export", "o.bmp"}, {"b", "--archive", "o.kolm"}, {"b", "--info"},
        {"b", "--clearance", "1"},  {"b", "--find", "R*"},        {"--diff", "a", "b", "d.png"}};
    for (const std::vector<std::string>& arguments : others)
        EXPECT_FALSE(ParseOptions(arguments).window) << arguments[1];
}

TEST(Options, TakesADifference)
{
    const Options options = ParseOptions({"--mirror", "--diff", "old", "new", "d.png", "--layers", "F.Cu"});
    ASSERT_TRUE(options.diff);
    EXPECT_EQ(options.diff->older, "old");
    EXPECT_EQ(options.diff->newer, "new");
    EXPECT_EQ(options.diff->picture, "d.png");
    EXPECT_TRUE(options.mirror);
    EXPECT_EQ(options.layers, std::vector<std::string>{"F.Cu"});
}

TEST(Options, RefusesTheRestByName)
{
    const std::pair<std::vector<std::string>, const char*> cases[] = {
        {{"--info"}, "no board file"},
        {{"a", "--size", "9x9"}, "--size goes with --export"},
        {{"a", "--area", "0,0,1,1"}, "--area goes with --export"},
        {{"a", "--info", "--log"}, "--log goes with the window"},
        {{"a", "b", "--info"}, "one file at a time"},
        {{"a", "--inof"}, "unknown option --inof"},
        {{"a", "--export"}, "--export needs a value"},
        {{"a", "--export", "o.gif"}, ".png, .bmp or .jpg"},
        {{"o.bmp", "--export", "./o.bmp"}, "would overwrite o.bmp"},
        {{"a", "--archive", "x/../a"}, "would overwrite a"},
        {{"a", "--export", "o.bmp", "--archive", "o.bmp"}, "would overwrite o.bmp"},
        {{"a", "--info", "--size", "10"}, "--size 10"},
        {{"a", "--info", "--size", "0x10"}, "--size 0x10"},
        {{"a", "--info", "--size", "99999999999x10"}, "--size"},
        {{"a", "--info", "--size", "16385x16384"}, "together at most 268435456"},
        {{"a", "--info", "--size", "1073741824x1"}, "--size"},
        {{"a", "--info", "--dpi", "0"}, "--dpi 0"},
        {{"a", "--info", "--dpi", "nan"}, "--dpi nan"},
        {{"a", "--info", "--px-per-mm", "-1"}, "--px-per-mm -1"},
        {{"a", "--info", "--px-per-mm", "1e300"}, "--px-per-mm 1e300"},
        {{"a", "--info", "--size", "1x1", "--dpi", "1"}, "one size at a time"},
        {{"a", "--info", "--dpi", "1", "--px-per-mm", "1"}, "one size at a time"},
        {{"a", "--info", "--size", "1x1", "--size", "1x1"}, "--size is given twice"},
        {{"a", "--info", "--mirror", "--mirror"}, "--mirror is given twice"},
        {{"--diff", "a", "b"}, "--diff needs 3 values"},
        {{"--diff", "a", "", "d.png"}, "--diff needs 3 values"},
        {{"--diff", "a", "b", "d.gif"}, ".png, .bmp or .jpg"},
        {{"--diff", "a", "b.bmp", "./b.bmp"}, "would overwrite b.bmp"},
        {{"--diff", "a.bmp", "b", "a.bmp"}, "would overwrite a.bmp"},
        {{"a", "--diff", "a", "b", "d.png"}, "takes no further file: a"},
        {{"--diff", "a", "b", "d.png", "--info"}, "--diff and --info"},
        {{"--diff", "a", "b", "d.png", "--log"}, "--diff and --log"},
        {{"--diff", "a", "b", "d.png", "--export", "e.png"}, "--diff and --export"},
        {{"a", "-h", "--help"}, "--help is given twice"},
        {{"a", "--info", "--area", "1,2,3"}, "--area"},
        {{"a", "--info", "--area", "1,2,1,4"}, "--area"},
        {{"a", "--info", "--area", "nan,0,1,1"}, "--area"},
        {{"a", "--info", "--area", "0,0,1e300,1"}, "--area"},
        {{"a", "--info", "--area", "0,0,1,1 "}, "--area"},
        {{"a", "--clearance", "0"}, "--clearance 0"},
        {{"a", "--clearance", "-1"}, "--clearance -1"},
        {{"a", "--clearance", "nan"}, "--clearance nan"},
        {{"a", "--clearance", "1e300"}, "--clearance 1e300"},
        {{"a", "--clearance", "0.2mm"}, "--clearance 0.2mm"},
        {{"a", "--find", ""}, "--find needs a value"},
        {{"a", "--find", "R*", "--json"}, "--json goes with --clearance"},
        {{"a", "--find", "R*", "--clearance", "1"}, "one report at a time"},
    };
    for (const auto& [arguments, message] : cases) {
        try {
            ParseOptions(arguments);
            ADD_FAILURE() << message;
        } catch (const std::runtime_error& error) {
            EXPECT_NE(std::string(error.what()).find(message), std::string::npos) << error.what();
        }
    }
}

} // namespace viewer
