#include "BoardArchive.h"
#include "PendingFile.h"
#include "PictureTesting.h"

namespace viewer {

namespace {

const Colour kBlack = 0;

/// A point of the file in millimetres and the layer whose colour it shows; "" is the background.
struct Spot
{
    double x, y;
    const char* layer;
};

struct DrawingCase
{
    const char* why;
    const char* items;
    std::vector<Spot> spots;
};

// Spots keep 0.15 mm, three pixels, away from edges: outlines round each corner by up to a pixel and a half.
const DrawingCase kDrawings[] = {
    {"a track and its round ends",
     "(segment (start 2 5) (end 8 5) (width 2) (layer \"F.Cu\") (net 1))",
     {{5, 5, "F.Cu"},
      {5, 4.2, "F.Cu"},
      {5, 3.8, ""},
      {1.2, 5, "F.Cu"},
      {8.8, 5, "F.Cu"},
      {9.2, 5, ""},
      {1.2, 4.2, ""}}},
    {"a thin track can be seen", "(segment (start 0 5) (end 10 5) (width 0.001) (layer \"B.Cu\") (net 1))", {}},
    {"an arc through the top",
     "(arc (start 9 5) (mid 5 1) (end 1 5) (width 1) (layer \"F.Cu\") (net 1))",
     {{5, 1, "F.Cu"}, {5, 1.3, "F.Cu"}, {5, 5, ""}, {5, 9, ""}, {9, 5, "F.Cu"}, {1, 5.3, "F.Cu"}}},
    {"an arc wider than its circle",
     "(arc (start 5.5 5) (mid 5 4.5) (end 4.5 5) (width 4) (layer \"F.Cu\") (net 1))",
     {{5, 5, "F.Cu"}, {5, 2.8, "F.Cu"}, {5, 2.2, ""}}},
    {"a via and its hole",
     "(via (at 5 5) (size 4) (drill 2) (layers \"F.Cu\" \"B.Cu\") (net 1))",
     {{5, 5, "Holes"}, {5.8, 5, "Holes"}, {6.2, 5, "F.Cu"}, {5, 3.2, "F.Cu"}, {7.2, 5, ""}, {6.6, 6.6, ""}}},
    {"an oval hole",
     "(footprint x (layer F.Cu) (at 5 5) (pad 1 thru_hole rect (at 0 0 90) (size 8 4) (drill oval 6 2) (layers *.Cu)))",
     {{5, 5, "Holes"}, {5, 2.2, "Holes"}, {6.2, 5, "F.Cu"}, {5, 1.5, "F.Cu"}, {2.8, 5, ""}}},
    {"a bare hole has no copper but a rim",
     "(footprint x (layer F.Cu) (at 5 5) (pad \"\" np_thru_hole circle (at 0 0) (size 4 4) (drill 4) (layers *.Cu)))",
     {{5, 5, "Holes"}, {7, 5, "Holes.Bare"}, {7.2, 5, ""}}},
    {"a zone with a cut-out",
     "(zone (net 1) (layer B.Cu) (filled_areas_thickness no) (filled_polygon (layer B.Cu) (pts (xy 0 0) (xy 10 0) (xy "
     "10 10) (xy 0 10)"
     " (xy 0 5) (xy 3 5) (xy 3 7) (xy 7 7) (xy 7 3) (xy 3 3) (xy 3 5) (xy 0 5))))",
     {{1, 1, "B.Cu"}, {1.5, 5, "B.Cu"}, {9, 9, "B.Cu"}, {5, 5, ""}, {3.3, 3.3, ""}, {6.7, 6.7, ""}, {8, 5, "B.Cu"}}},
    {"a border widens a polygon",
     "(gr_poly (pts (xy 4 4) (xy 6 4) (xy 6 6) (xy 4 6)) (layer \"F.Cu\") (width 2) (fill solid))",
     {{5, 5, "F.Cu"}, {3.2, 5, "F.Cu"}, {2.8, 5, ""}}},
    {"an unfilled rectangle",
     "(gr_rect (start 2 2) (end 8 8) (layer \"F.SilkS\") (width 1) (fill none))",
     {{2, 5, "F.SilkS"}, {5, 8, "F.SilkS"}, {5, 5, ""}}},
    {"a ring",
     "(gr_circle (center 5 5) (end 8 5) (layer \"F.SilkS\") (width 1) (fill none))",
     {{8, 5, "F.SilkS"}, {5, 2, "F.SilkS"}, {5, 5, ""}, {5, 2.8, ""}, {5, 8.8, ""}}},
    {"front copper lies on back copper and mask",
     "(segment (start 5 0) (end 5 10) (width 2) (layer \"F.Cu\") (net 1)) (segment (start 0 5) (end 10 5) (width 2) "
     "(layer \"B.Cu\") (net 1))"
     "(gr_line (start 5 5) (end 9 9) (layer \"F.Mask\") (width 1))",
     {{5, 5, "F.Cu"}, {2, 5, "B.Cu"}, {5, 2, "F.Cu"}, {8, 8, "F.Mask"}}},
};

Colour ColourAt(const Pixels& pixels, const Spot& spot)
{
    return pixels.At(int(spot.x * 20), int(spot.y * 20));
}

} // namespace

TEST(BoardDrawing, ShowsWhatTheFileSays)
{
    for (const DrawingCase& c : kDrawings) {
        const Pixels pixels = DrawItems(c.items);
        EXPECT_LT(pixels.Count(kBlack), 200 * 200) << c.why;
        for (const Spot& spot : c.spots) {
            const Colour expected = *spot.layer ? LayerColour(spot.layer) : kBlack;
            EXPECT_EQ(ColourAt(pixels, spot), expected) << c.why << " at " << spot.x << ", " << spot.y;
        }
    }
}

TEST(BoardDrawing, AreasAreTrueToSize)
{
    // Pixels of figures at 400 per square millimetre, within the rounding of their outlines by a pixel and a half.
    struct Case
    {
        const char* item;
        double area, perimeter;
    };
    const Case cases[] = {
        {"(via (at 5 5) (size 6) (drill 0.01) (layers \"F.Cu\" \"B.Cu\") (net 1))", M_PI * 9, M_PI * 6},
        {"(segment (start 2 3) (end 8 7) (width 1.5) (layer \"F.Cu\") (net 1))", std::sqrt(52.0) * 1.5 + M_PI * 0.5625,
         2 * std::sqrt(52.0) + M_PI * 1.5},
        {"(footprint x (layer F.Cu) (at 5 5) (pad 1 smd rect (at 0 0 30) (size 6 3) (layers F.Cu)))", 18, 18},
        {"(footprint x (layer F.Cu) (at 5 5) (pad 1 smd roundrect (at 0 0 20) (size 6 4) (roundrect_rratio 0.25) "
         "(layers F.Cu)))",
         24 - (4 - M_PI), 20 - 8 + 2 * M_PI},
    };
    for (const Case& c : cases) {
        const int pixels = DrawItems(c.item, false, {"F.Cu"}).Count(LayerColour("F.Cu"));
        EXPECT_NEAR(pixels / 400.0, c.area, c.perimeter * 1.5 / 20) << c.item;
    }
}

TEST(BoardDrawing, MirroredIsSeenFromTheBack)
{
    const char* items = "(segment (start 2 3) (end 2 3.5) (width 1) (layer \"F.Cu\") (net 1))"
                        "(arc (start 9 5) (mid 6 2) (end 3 5) (width 1) (layer \"F.Cu\") (net 1))";
    const Pixels front = DrawItems(items);
    EXPECT_EQ(ColourAt(front, {2, 3, ""}), LayerColour("F.Cu"));
    EXPECT_EQ(ColourAt(front, {8, 8, ""}), kBlack);

    // The area asked for is the same; a mirrored view shows it about x = 5.
    const Pixels back = DrawItems(items, true);
    EXPECT_EQ(ColourAt(back, {8, 3, ""}), LayerColour("F.Cu"));
    EXPECT_EQ(ColourAt(back, {4, 2, ""}), LayerColour("F.Cu"));
    EXPECT_EQ(ColourAt(front, {9, 4.8, ""}), LayerColour("F.Cu"));
    EXPECT_EQ(ColourAt(back, {9, 4.8, ""}), kBlack);
}

TEST(BoardDrawing, BackLayersLieOnTopSeenFromTheBack)
{
    std::string crossings; // all along one line
    for (const char* layer : {"F.SilkS", "F.Cu", "F.Mask", "In1.Cu", "In2.Cu", "B.Cu", "B.Mask", "B.SilkS"})
        crossings += std::string("(gr_line (start 1 5) (end 9 5) (layer \"") + layer + "\") (width 1))";
    EXPECT_EQ(ColourAt(DrawItems(crossings), {5, 5, ""}), LayerColour("F.SilkS"));
    EXPECT_EQ(ColourAt(DrawItems(crossings, true), {5, 5, ""}), LayerColour("B.SilkS"));

    const auto isBelow = [](const char* a, const char* b) { return LayerRankFromBack(a) < LayerRankFromBack(b); };
    EXPECT_TRUE(isBelow("F.SilkS", "F.Cu"));
    EXPECT_TRUE(isBelow("F.Cu", "In1.Cu"));
    EXPECT_TRUE(isBelow("In1.Cu", "In2.Cu"));
    EXPECT_TRUE(isBelow("In2.Cu", "In30.Cu"));
    EXPECT_TRUE(isBelow("In30.Cu", "B.Mask"));
    EXPECT_TRUE(isBelow("B.Mask", "B.Cu"));
    EXPECT_TRUE(isBelow("B.SilkS", "Edge.Cuts"));
    EXPECT_TRUE(isBelow("Edge.Cuts", "Holes"));
}

TEST(BoardDrawing, ShowsChosenLayersInTheirOrder)
{
    const char* items = "(via (at 5 5) (size 6) (drill 2) (layers \"F.Cu\" \"B.Cu\") (net 1))"
                        "(gr_line (start 0 5) (end 10 5) (layer \"F.SilkS\") (width 1))";
    EXPECT_EQ(ColourAt(DrawItems(items, false, {"F.Cu", "B.Cu"}), {3, 5, ""}), LayerColour("B.Cu"));
    EXPECT_EQ(ColourAt(DrawItems(items, false, {"B.Cu", "F.Cu"}), {3, 5, ""}), LayerColour("F.Cu"));
    EXPECT_EQ(ColourAt(DrawItems(items, false, {"B.Cu"}), {5, 5, ""}), LayerColour("Holes")) << "copper is drilled";
    EXPECT_EQ(ColourAt(DrawItems(items, false, {"F.SilkS"}), {5, 5, ""}), LayerColour("F.SilkS")) << "a print is not";
}

TEST(BoardDrawing, TextsFillTheirHeight)
{
    // An H of height 4 and pen 0.4 around (5, 5): its ink reaches from y 2.8 to 7.2.
    const Pixels pixels =
        DrawItems("(gr_text \"H\" (at 5 5) (layer \"F.SilkS\") (effects (font (size 4 4) (thickness 0.4))))");
    int top = 200, bottom = 0, left = 200, right = 0;
    for (int y = 0; y < 200; ++y) {
        for (int x = 0; x < 200; ++x) {
            if (pixels.At(x, y) == kBlack)
                continue;
            top = std::min(top, y), bottom = std::max(bottom, y);
            left = std::min(left, x), right = std::max(right, x);
        }
    }
    EXPECT_NEAR(top, 56, 2);
    EXPECT_NEAR(bottom, 144, 2);
    EXPECT_NEAR(left + right, 200, 3) << "centred";
}

TEST(BoardDrawing, MirroredTextIsTheMirrorImage)
{
    const std::string begin =
        "(gr_text \"F7\" (at 5 5 30) (layer \"F.SilkS\") (effects (font (size 3 3) (thickness 0.3))";
    const std::string turned = "(gr_text \"F7\" (at 5 5 -30) (layer \"F.SilkS\") (effects (font (size 3 3) (thickness "
                               "0.3)) (justify mirror)))";
    // Seen from the back, a text mirrored at the opposite angle looks as the other does from the front.
    const Pixels front = DrawItems(begin + "))");
    const Pixels back = DrawItems(turned, true);
    int different = 0, ink = 0;
    for (int y = 0; y < 200; ++y) {
        for (int x = 0; x < 200; ++x) {
            different += front.At(x, y) != back.At(x, y);
            ink += front.At(x, y) != kBlack;
        }
    }
    // Rounding of mirrored points differs by a pixel at the letters' edges.
    EXPECT_GT(ink, 500);
    EXPECT_LT(different, ink / 2);
}

TEST(BoardDrawing, FitsTheOutlineWithAMargin)
{
    const TestFolder folder;
    const BoardPicture picture =
        MakePicture(ReadItems("(gr_rect (start 20 20) (end 40 30) (layer \"Edge.Cuts\") (width 0.5) (fill none))"));
    BoardPainter painter(picture);
    ExportPicture(painter, {400, 400}, {}, folder.File("p.bmp"));
    const Pixels pixels(folder.File("p.bmp"));
    // 20 mm over nine tenths of 400 pixels: 18 pixels per millimetre, so the sides lie at 20 and 380, the edges at 110
    // and 290.
    EXPECT_EQ(pixels.At(20, 200), LayerColour("Edge.Cuts"));
    EXPECT_EQ(pixels.At(380, 200), LayerColour("Edge.Cuts"));
    EXPECT_EQ(pixels.At(200, 110), LayerColour("Edge.Cuts"));
    EXPECT_EQ(pixels.At(200, 290), LayerColour("Edge.Cuts"));
    EXPECT_EQ(pixels.At(12, 200), kBlack);
    EXPECT_EQ(pixels.At(200, 200), kBlack);
}

// ---- Archives

namespace {

const char* kEverything = "(segment (start 2 5) (end 8 5) (width 2) (layer \"F.Cu\") (net 1))"
                          "(arc (start 9 5) (mid 5 1) (end 1 5) (width 1) (layer \"B.Cu\") (net 1))"
                          "(via (at 5 5) (size 4) (drill 2) (layers \"F.Cu\" \"B.Cu\") (net 1))"
                          "(gr_poly (pts (xy 1 7) (xy 4 7) (xy 4 9)) (layer \"In1.Cu\") (width 0.4))"
                          "(gr_text \"\xC2\xB5 \\\"x\\\"\\n2\" (at 5 8 20) (layer \"F.SilkS\") (effects (font (size 1 "
                          "2) (thickness 0.2) italic)"
                          " (justify left mirror)))"
                          "(gr_circle (center 7 2) (end 8 2) (layer \"Edge.Cuts\") (width 0.1) (fill none))";

std::string PictureBytes(const BoardPicture& picture, const TestFolder& folder)
{
    BoardPainter painter(picture);
    ExportPicture(painter, {160, 120}, {}, folder.File("p.bmp"));
    return ReadBytes(folder.File("p.bmp"));
}

} // namespace

TEST(BoardArchive, ShowsTheSamePicture)
{
    const TestFolder folder;
    const BoardPicture picture = MakePicture(ReadItems(kEverything));
    StoreArchive(picture, folder.File("b.kolm"));
    const BoardPicture loaded = LoadArchive(ReadBytes(folder.File("b.kolm")), "b.kolm");
    ASSERT_EQ(loaded.layers.size(), picture.layers.size());
    EXPECT_TRUE(PictureBytes(loaded, folder) == PictureBytes(picture, folder));
}

TEST(BoardArchive, EveryTruncationIsAnError)
{
    const TestFolder folder;
    StoreArchive(MakePicture(ReadItems(kEverything)), folder.File("b.kolm"));
    const std::string whole = ReadBytes(folder.File("b.kolm"));
    for (size_t length = kArchiveMark.size(); length < whole.size(); ++length)
        EXPECT_THROW(LoadArchive(whole.substr(0, length), "b.kolm"), std::runtime_error) << length;
}

TEST(BoardArchive, DamageIsAnErrorOrAnotherPicture)
{
    const TestFolder folder;
    StoreArchive(MakePicture(ReadItems(kEverything)), folder.File("b.kolm"));
    const std::string whole = ReadBytes(folder.File("b.kolm"));
    for (size_t at = kArchiveMark.size(); at + 8 < whole.size(); at += 7) {
        for (const char* bytes :
             {"\xFF\xFF\xFF\xFF\xFF\xFF\xEF\x7F", "\xFF\xFF\xFF\x7F\xFF\xFF\xFF\x7F", "\0\0\0\0\0\0\xF8\x7F"})
        {
            std::string damaged = whole;
            damaged.replace(at, 8, bytes, 8);
            try {
                PictureBytes(LoadArchive(damaged, "b.kolm"), folder);
            } catch (const std::runtime_error&) {
            }
        }
    }
}

TEST(PictureExport, FailureKeepsTheOldFile)
{
    const TestFolder folder;
    const BoardPicture picture = MakePicture(ReadItems(kEverything));
    BoardPainter painter(picture);
    EXPECT_THROW(ExportPicture(painter, {16, 16}, {}, folder.File("none/p.bmp")), std::runtime_error);
    std::filesystem::create_directory(folder.File("p.jpg"));
    EXPECT_THROW(ExportPicture(painter, {16, 16}, {}, folder.File("p.jpg")), std::runtime_error);

    WriteBytes(folder.File("old.kolm"), "old");
    {
        // A file that is begun and not finished.
        PendingFile pending(folder.File("old.kolm"));
        WriteBytes(pending.Name(), "half");
    }
    EXPECT_EQ(ReadBytes(folder.File("old.kolm")), "old");
    ExportPicture(painter, {16, 16}, {}, folder.File("p.bmp"));
    ExportPicture(painter, {16, 16}, {}, folder.File("q.jpeg"));
    EXPECT_EQ(ReadBytes(folder.File("q.jpeg")).substr(0, 3), "\xFF\xD8\xFF");
    size_t files = 0;
    for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator(folder.path))
        ++files;
    EXPECT_EQ(files, 4u) << "nothing else is left lying about";
}

} // namespace viewer
