#include "BoardArchive.h"
#include "DiffPicture.h"
#include "PictureTesting.h"

#include <algorithm>

namespace viewer {

namespace {

const char* const kNets = "(net 1 \"A\") (net 2 \"B\")";
const char* const kTrack = "(segment (start 1 2) (end 9 2) (width 1) (layer \"F.Cu\") (net 1))";
const char* const kVia = "(via (at 5 5) (size 2) (drill 1) (layers \"F.Cu\" \"B.Cu\") (net 1))";
const char* const kFootprint =
    "(footprint x (layer F.Cu) (at 5 5) (fp_line (start 0 0) (end 1 1) (layer F.SilkS) (width 1))"
    " (pad 1 thru_hole rect (at 0 0) (size 2 2) (drill 1) (layers F.Cu B.Cu) (net 1 \"A\")))";

BoardFile FileOf(Board board)
{
    BoardFile file;
    file.picture = MakePicture(board);
    file.board = std::move(board);
    return file;
}

BoardFile FileOf(const std::string& items)
{
    return FileOf(ReadItems(items));
}

/// What an archive keeps of it.
BoardFile ArchiveOf(const std::string& items)
{
    const TestFolder folder;
    StoreArchive(FileOf(items).picture, folder.File("a.kolm"));
    return OpenBoardFile(folder.File("a.kolm"));
}

std::string Lines(const BoardFile& older, const BoardFile& newer)
{
    return DifferenceLines(CompareBoards(older, newer).changes);
}

/// A filled area on the front over the whole width, down to this y.
std::string Zone(int bottom)
{
    const std::string y = std::to_string(bottom);
    return "(zone (net 1) (layer F.Cu) (filled_polygon (pts (xy 0 0) (xy 10 0) (xy 10 " + y + ") (xy 0 " + y + "))))";
}

/// The bytes of the picture of their difference: 0 to 10 mm at 20 pixels a millimetre.
std::string DiffBytes(const BoardFile& older, const BoardFile& newer, DiffView view = {})
{
    const TestFolder folder;
    if (!view.area)
        view.area = FileArea{0, 0, 10, 10};
    view.size.pixelsPerMm = 20;
    BoardDifference difference = CompareBoards(older, newer);
    KeepLayers(difference, view.layers);
    ExportDifference(std::move(difference), older, newer, view, folder.File("d.bmp"));
    return ReadBytes(folder.File("d.bmp"));
}

/// The same as pixels, of boards of these items.
Pixels DiffPixels(const std::string& older, const std::string& newer, const DiffView& view = {})
{
    const TestFolder folder;
    WriteBytes(folder.File("p.bmp"), DiffBytes(FileOf(older), FileOf(newer), view));
    return Pixels(folder.File("p.bmp"));
}

} // namespace

TEST(BoardDiff, CountsWhatHasNoEqual)
{
    const std::string track = kTrack, via = kVia, footprint = kFootprint;
    const struct
    {
        const char* why;
        std::string older;
        std::string newer;
        const char* lines;
    } cases[] = {
        {"nothing", "", "", "0 layers differ\n"},
        {"the same", kNets + track + via + footprint, kNets + track + via + footprint, "0 layers differ\n"},
        {"another order", kNets + track + via + footprint, kNets + footprint + via + track, "0 layers differ\n"},
        {"nets are names", kNets + track,
         "(net 7 \"A\") (segment (start 1 2) (end 9 2) (width 1) (layer F.Cu) (net 7))", "0 layers differ\n"},
        {"either end first", kNets + track,
         std::string(kNets) + "(segment (start 9 2) (end 1 2) (width 1) (layer F.Cu) "
                              "(net 1))",
         "0 layers differ\n"},
        {"an arc either way", "(gr_arc (start 1 5) (mid 5 1) (end 9 5) (layer F.SilkS) (width 1))",
         "(gr_arc (start 9 5) (mid 5 1) (end 1 5) (layer F.SilkS) (width 1))", "0 layers differ\n"},
        {"the other arc of the circle", "(gr_arc (start 1 5) (mid 5 1) (end 9 5) (layer F.SilkS) (width 1))",
         "(gr_arc (start 1 5) (mid 5 9) (end 9 5) (layer F.SilkS) (width 1))", "F.SilkS\t1\t1\n1 layer differs\n"},
        {"moved by a nanometre", kNets + track,
         std::string(kNets) + "(segment (start 1 2) (end 9.000001 2) (width 1) "
                              "(layer F.Cu) (net 1))",
         "F.Cu\t1\t1\n1 layer differs\n"},
        {"wider", kNets + track, std::string(kNets) + "(segment (start 1 2) (end 9 2) (width 2) (layer F.Cu) (net 1))",
         "F.Cu\t1\t1\n1 layer differs\n"},
        {"another net", kNets + track,
         std::string(kNets) + "(segment (start 1 2) (end 9 2) (width 1) (layer F.Cu) (net "
                              "2))",
         "F.Cu\t1\t1\n1 layer differs\n"},
        {"another layer", kNets + track,
         std::string(kNets) + "(segment (start 1 2) (end 9 2) (width 1) (layer B.Cu) "
                              "(net 1))",
         "F.Cu\t1\t0\nB.Cu\t0\t1\n2 layers differ\n"},
        {"one of three", kNets + track + track + track, kNets + track, "F.Cu\t2\t0\n1 layer differs\n"},
        {"a via counts on each layer", kNets, kNets + via,
         "Holes\t0\t1\nF.Cu\t0\t1\nIn1.Cu\t0\t1\nIn2.Cu\t0\t1\nB.Cu\t0\t1\n5 layers differ\n"},
        {"a hole alone", kNets + via,
         std::string(kNets) + "(via (at 5 5) (size 2) (drill 1.5) (layers F.Cu B.Cu) (net "
                              "1))",
         "Holes\t1\t1\n1 layer differs\n"},
        {"a footprint", kNets + footprint, kNets,
         "Holes\t1\t0\nF.SilkS\t1\t0\nF.Cu\t1\t0\nB.Cu\t1\t0\n4 layers differ\n"},
        {"a pad of one layer less", kNets + footprint,
         kNets + std::string(footprint).replace(footprint.find(" B.Cu"), 5, ""), "B.Cu\t1\t0\n1 layer differs\n"},
        {"a text", "(gr_text AB (at 1 1) (layer F.SilkS))", "(gr_text AC (at 1 1) (layer F.SilkS))",
         "F.SilkS\t1\t1\n1 layer differs\n"},
        {"an area", Zone(5), Zone(6), "F.Cu\t1\t1\n1 layer differs\n"},
        {"negative zero", "(gr_text A (at 0 -0) (layer F.SilkS))", "(gr_text A (at -0 0) (layer F.SilkS))",
         "0 layers differ\n"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(Lines(FileOf(c.older), FileOf(c.newer)), c.lines) << c.why;
}

/// An archive has no nets and no elements: shapes are compared, also where the other file is a board.
TEST(BoardDiff, ComparesShapesWithArchives)
{
    const std::string items = kNets + std::string(kTrack) + kVia + kFootprint + Zone(4) +
                              "(gr_text AB (at 1 1) (layer F.SilkS))"
                              "(gr_arc (start 1 5) (mid 5 1) (end 9 5) (layer F.SilkS) (width 1))";
    EXPECT_EQ(Lines(ArchiveOf(items), ArchiveOf(items)), "0 layers differ\n");
    EXPECT_EQ(Lines(FileOf(items), ArchiveOf(items)), "0 layers differ\n");
    std::string otherNet = items;
    otherNet.replace(otherNet.find("(net 1))"), 8, "(net 2))");
    EXPECT_EQ(Lines(FileOf(otherNet), ArchiveOf(items)), "0 layers differ\n");
    EXPECT_EQ(Lines(FileOf(otherNet), FileOf(items)), "F.Cu\t1\t1\n1 layer differs\n");

    for (const char* added : {kTrack, "(gr_text AB (at 1 1) (layer F.Cu))",
                              "(gr_arc (start 1 5) (mid 5 9) (end 9 5) (layer F.Cu) (width 1))"})
        EXPECT_EQ(Lines(ArchiveOf(items), FileOf(items + added)), "F.Cu\t0\t1\n1 layer differs\n") << added;
    EXPECT_EQ(Lines(ArchiveOf(Zone(4)), ArchiveOf(Zone(5))), "F.Cu\t1\t1\n1 layer differs\n");
}

TEST(DiffPicture, ShowsChangesInThreeColours)
{
    const std::string both = kNets + std::string("(segment (start 1 9) (end 9 9) (width 1) (layer F.Cu) (net 1))");
    const struct
    {
        const char* why;
        std::string older;
        std::string newer;
        int x; ///< millimetres of the pixel to look at
        int y;
        Colour colour;
    } cases[] = {
        {"common", both, both, 5, 9, kCommonColour},
        {"nothing", both, both, 5, 2, 0},
        {"moved from", both + kTrack, both, 5, 2, kOnlyOldColour},
        {"moved to", both, both + kTrack, 5, 2, kOnlyNewColour},
        {"another width is the new one", both + kTrack,
         both + "(segment (start 1 2) (end 9 2) (width 2) (layer F.Cu) (net 1))", 5, 2, kOnlyNewColour},
        {"an added via, hole and all", both, both + kVia, 5, 5, kOnlyNewColour},
        {"a removed footprint", both + kFootprint, both, 5, 5, kOnlyOldColour},
        {"a common hole is open", both + kVia, both + kVia, 5, 5, 0},
        {"a change below common copper", both + "(segment (start 1 9) (end 9 9) (width 1) (layer B.Cu) (net 1))", both,
         5, 9, kOnlyOldColour},
        {"what areas share did not change", both + Zone(4), both + Zone(6), 5, 3, kCommonAreaColour},
        {"where an area grew", both + Zone(4), both + Zone(6), 5, 5, kOnlyNewColour},
        {"where an area shrank", both + Zone(6), both + Zone(4), 5, 5, kOnlyOldColour},
        {"a track whose place an area takes", both + kTrack, both + Zone(6), 5, 2, kOnlyOldColour},
        {"common copper on an area that grew", both + Zone(4), both + Zone(10), 5, 9, kOnlyNewColour},
    };
    for (const auto& c : cases)
        EXPECT_EQ(DiffPixels(c.older, c.newer).At(c.x * 20, c.y * 20), c.colour) << c.why;
}

TEST(DiffPicture, FollowsTheView)
{
    const std::string newer = kNets + std::string(kTrack) + kFootprint;
    DiffView view;
    view.layers = {"F.SilkS"};
    const Pixels silk = DiffPixels(kNets, newer, view);
    EXPECT_EQ(silk.At(100, 40), Colour(0)) << "the track is on copper";
    EXPECT_EQ(silk.At(110, 110), kOnlyNewColour);
    BoardDifference difference = CompareBoards(FileOf(kNets), FileOf(newer));
    KeepLayers(difference, {"B.Cu"});
    EXPECT_EQ(DifferenceLines(difference.changes), "Holes\t0\t1\nB.Cu\t0\t1\n2 layers differ\n");

    // A via at x 2 of an area that ends at 10 is seen at 8 from the back.
    const std::string via = "(via (at 2 5) (size 2) (drill 1) (layers F.Cu B.Cu) (net 1))";
    view = {};
    view.mirror = true;
    const Pixels back = DiffPixels(kNets, kNets + via, view);
    EXPECT_EQ(back.At(160, 100), kOnlyNewColour);
    EXPECT_EQ(back.At(40, 100), Colour(0));

    view = {};
    view.area = FileArea{0, 0, 5, 4};
    EXPECT_EQ(DiffPixels(kNets, newer, view).width, 100);
}

TEST(DiffPicture, FramesBothOutlines)
{
    const TestFolder folder;
    const auto outline = [](int right) {
        return FileOf("(gr_rect (start 0 0) (end " + std::to_string(right) +
                      " 10) (layer \"Edge.Cuts\") (width 1) (fill none))");
    };
    DiffView view;
    view.size.pixelsPerMm = 2;
    for (const auto& [older, newer] : {std::pair(20, 30), std::pair(30, 20)}) {
        ExportDifference(CompareBoards(outline(older), outline(newer)), outline(older), outline(newer), view,
                         folder.File("o.bmp"));
        EXPECT_EQ(Pixels(folder.File("o.bmp")).width, 2 * (30 + 1) + 2);
    }
}

TEST(DiffPicture, OrderMakesNoDifference)
{
    const BoardFile file = OpenBoardFile(KOLM_VIEWER_BOARD);
    Board turned = *file.board;
    std::reverse(turned.tracks.begin(), turned.tracks.end());
    std::reverse(turned.vias.begin(), turned.vias.end());
    std::reverse(turned.pads.begin(), turned.pads.end());
    std::reverse(turned.graphics.begin(), turned.graphics.end());
    std::reverse(turned.texts.begin(), turned.texts.end());
    std::reverse(turned.filledPolygons.begin(), turned.filledPolygons.end());
    DiffView view;
    view.area = FileArea{120, 90, 140, 110};
    const std::string same = DiffBytes(file, file, view);
    EXPECT_TRUE(same == DiffBytes(file, FileOf(turned), view));
    EXPECT_TRUE(same == DiffBytes(FileOf(turned), file, view));
}

} // namespace viewer
