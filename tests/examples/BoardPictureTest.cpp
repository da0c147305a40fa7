#include "BoardPicture.h"
#include "StrokeFont.h"
#include "ViewerTesting.h"

#include "entities/CKGeomArc.h"
#include "entities/CKGeomLine.h"
#include "entities/CKGeomPolygon.h"

namespace viewer {

namespace {

const PictureLayer& LayerOf(const BoardPicture& picture, const char* name)
{
    const PictureLayer* layer = picture.Find(name);
    EXPECT_NE(layer, nullptr) << name;
    static const PictureLayer kNone;
    return layer ? *layer : kNone;
}

template <class SHAPE>
SHAPE* ShapeOf(const PictureLayer& layer, int index, int type)
{
    CKGeom* shape = index < layer.shapes.GetCount() ? layer.shapes.GetAt(index) : nullptr;
    EXPECT_NE(shape, nullptr) << layer.name << " " << index;
    if (!shape || shape->GetType() != type) {
        ADD_FAILURE() << layer.name << " " << index << " is of another kind";
        return nullptr;
    }
    return static_cast<SHAPE*>(shape);
}

} // namespace

TEST(BoardPicture, TracksBecomeLinesAndArcs)
{
    const BoardPicture picture =
        MakePicture(ReadItems("(segment (start 1 2) (end 3 4) (width 0.25) (layer \"F.Cu\") (net 7))\n"
                              "(arc (start 15 20) (mid 10 25) (end 5 20) (width 0.5) (layer \"F.Cu\") (net 8))"));
    const PictureLayer& layer = LayerOf(picture, "F.Cu");
    ASSERT_EQ(layer.shapes.GetCount(), 2);
    CKGeomLine* line = ShapeOf<CKGeomLine>(layer, 0, 2);
    ASSERT_TRUE(line);
    ExpectPoint({line->GetStartX(), line->GetStartY()}, 1, -2, "start");
    ExpectPoint({line->GetEndX(), line->GetEndY()}, 3, -4, "end");
    EXPECT_EQ(line->GetThickness(), 0.25);
    EXPECT_EQ(line->GetColor(), LayerColour("F.Cu"));
    CKGeomArc* arc = ShapeOf<CKGeomArc>(layer, 1, 3);
    ASSERT_TRUE(arc);
    ExpectPoint({arc->GetCenterX(), arc->GetCenterY()}, 10, -20, "centre");
    EXPECT_EQ(arc->GetDirection(), 1) << "through the bottom is clockwise";
}

TEST(BoardPicture, DiscsRingsAndHoles)
{
    const BoardPicture picture =
        MakePicture(ReadItems("(via (at 1 2) (size 0.8) (drill 0.4) (layers \"F.Cu\" \"B.Cu\") (net 7))\n"
                              "(gr_circle (center 5 5) (end 7 5) (layer \"F.SilkS\") (width 0.1) (fill none))\n"
                              "(gr_circle (center 5 5) (end 7 5) (layer \"B.SilkS\") (width 0.1) (fill solid))\n"
                              "(footprint \"x\" (layer \"F.Cu\") (at 9 0)\n"
                              "(pad 1 thru_hole oval (at 0 0 90) (size 4 2) (drill oval 3 1) (layers F.Mask))\n"
                              "(pad \"\" np_thru_hole circle (at 9 0) (size 3 3) (drill 3) (layers *.Cu)))"));
    for (const char* name : {"F.Cu", "In1.Cu", "B.Cu"}) {
        CKGeomLine* disc = ShapeOf<CKGeomLine>(LayerOf(picture, name), 0, 2);
        ASSERT_TRUE(disc);
        EXPECT_EQ(disc->GetDistance(), 0);
        EXPECT_EQ(disc->GetThickness(), 0.8);
    }
    CKGeomArc* ring = ShapeOf<CKGeomArc>(LayerOf(picture, "F.SilkS"), 0, 3);
    ASSERT_TRUE(ring);
    EXPECT_EQ(ring->GetStartX(), ring->GetEndX());
    EXPECT_EQ(ring->GetStartY(), ring->GetEndY());
    CKGeomLine* filled = ShapeOf<CKGeomLine>(LayerOf(picture, "B.SilkS"), 0, 2);
    ASSERT_TRUE(filled);
    EXPECT_NEAR(filled->GetThickness(), 4.1, kTolerance) << "twice the radius and half the border on either side";

    const PictureLayer& holes = LayerOf(picture, "Holes");
    ASSERT_EQ(holes.shapes.GetCount(), 3);
    CKGeomLine* slot = ShapeOf<CKGeomLine>(holes, 1, 2);
    ASSERT_TRUE(slot);
    EXPECT_NEAR(slot->GetDistance(), 2, kTolerance) << "3 long and 1 wide: the ends' centres are 2 apart";
    EXPECT_NEAR(slot->GetStartX(), 9, kTolerance) << "turned upright by the pad's 90 degrees";
    EXPECT_EQ(LayerOf(picture, "Holes.Bare").shapes.GetCount(), 1) << "only the hole without copper has a rim";
}

TEST(BoardPicture, FilledAreasArePolygonsAndEmptyOnesLines)
{
    const BoardPicture picture =
        MakePicture(ReadItems("(gr_poly (pts (xy 0 0) (xy 1 0) (xy 1 1)) (layer \"F.Cu\") (width 0.1))"
                              "(gr_rect (start 0 0) (end 2 1) (layer \"F.SilkS\") (width 0.2) (fill none))"));
    CKGeomPolygon* polygon = ShapeOf<CKGeomPolygon>(LayerOf(picture, "F.Cu"), 0, 6);
    ASSERT_TRUE(polygon);
    EXPECT_EQ(polygon->getOutline()->GetCount(), 3) << "closed";
    EXPECT_EQ(static_cast<CKGeomLine*>(polygon->getOutline()->GetAt(2))->GetThickness(), 0.1);
    EXPECT_EQ(LayerOf(picture, "F.SilkS").shapes.GetCount(), 4);
}

TEST(BoardPicture, LayersLieInTheOrderOfTheFrontView)
{
    const BoardPicture picture = MakePicture(ReadItems(""));
    std::string order;
    for (const auto& layer : picture.layers)
        order += layer->name + " ";
    EXPECT_EQ(order, "B.SilkS B.Mask B.Cu In2.Cu In1.Cu F.Mask F.Cu F.SilkS Edge.Cuts Holes Holes.Bare ");
}

// ---- Texts

struct TextCase
{
    const char* why;
    const char* text;
    double x, y; ///< start of the baseline of the first line, for the text "W" of width w and height 2 at (0, 0)
    double dx;   ///< further, in widths of the letter
};

const TextCase kTexts[] = {
    {"centred", "\"W\" (at 0 0)", 0, -1, -0.5},
    {"left", "\"W\" (at 0 0) (effects (font (size 2 2)) (justify left))", 0, -1, 0},
    {"right", "\"W\" (at 0 0) (effects (font (size 2 2)) (justify right))", 0, -1, -1},
    {"mirrored, left: runs to the left of the anchor",
     "\"W\" (at 0 0) (effects (font (size 2 2)) (justify left mirror))", 0, -1, 0},
    {"mirrored, right: ends at the anchor", "\"W\" (at 0 0) (effects (font (size 2 2)) (justify right mirror))", 0, -1,
     1},
    {"top: hangs below the anchor", "\"W\" (at 0 0) (effects (font (size 2 2)) (justify left top))", 0, -2, 0},
    {"bottom: stands on the anchor", "\"W\" (at 0 0) (effects (font (size 2 2)) (justify left bottom))", 0, 0, 0},
    {"turned by 90: the baseline lies to the right", "\"W\" (at 0 0 90) (effects (font (size 2 2)) (justify left))", 1,
     0, 0},
    // Two lines of height 2 at a spacing of 3.2 fill 5.2: from 2.6 down to -2.6.
    {"two lines, centred as a block", "\"W\\nW\" (at 0 0) (effects (font (size 2 2)) (justify left))", 0, 0.6, 0},
};

TEST(BoardPicture, TextsAreJustified)
{
    const double width = 2 * WidthOfText("W");
    EXPECT_GT(width, 0.5);
    EXPECT_LT(width, 2.5);
    for (const TextCase& c : kTexts) {
        const bool hasEffects = std::string(c.text).find("effects") != std::string::npos;
        const std::string item = std::string("(gr_text ") + c.text + " (layer \"F.SilkS\")" +
                                 (hasEffects ? "" : " (effects (font (size 2 2)))") + ")";
        const BoardPicture picture = MakePicture(ReadItems(item));
        CKGeomText* text = ShapeOf<CKGeomText>(LayerOf(picture, "F.SilkS"), 0, 1);
        ASSERT_TRUE(text) << c.why;
        ExpectPoint({text->GetX(), text->GetY()}, c.x + c.dx * width, c.y, c.why);
        const TextStyle style = TextStyle::Of(*text);
        EXPECT_EQ(style.height, 2) << c.why;
        EXPECT_EQ(style.width, std::string(c.text).find("mirror") == std::string::npos ? 2 : -2) << c.why;
    }
}

TEST(StrokeFont, EveryCharacterHasStrokesInItsCell)
{
    // Also some beyond ASCII: micro, Omega, one without a glyph and one that is no UTF-8.
    std::vector<std::string> characters = {"\xC2\xB5", "\xCE\xA9", "\xE6\xBC\xA2", "\xFF"};
    for (char c = '!'; c <= '~'; ++c)
        characters.emplace_back(1, c);
    for (const std::string& character : characters) {
        const std::vector<Stroke> strokes = StrokesOfText(character);
        const double width = WidthOfText(character);
        EXPECT_FALSE(strokes.empty()) << character;
        for (const Stroke& stroke : strokes) {
            EXPECT_GE(stroke.size(), 2u) << character;
            for (const KPointD& point : stroke) {
                EXPECT_GE(point.x, 0) << character;
                EXPECT_LE(point.x, width + 1e-12) << character;
                EXPECT_GE(point.y, -0.4) << character;
                EXPECT_LE(point.y, 1.2) << character;
            }
        }
    }
}

TEST(StrokeFont, WidthsAddUpAndBarsTakeNoRoom)
{
    const double a = WidthOfText("A"), b = WidthOfText("B"), ab = WidthOfText("AB");
    EXPECT_GT(ab, a + b);
    EXPECT_NEAR(WidthOfText("ABAB"), 2 * ab + (ab - a - b), 1e-12);
    EXPECT_EQ(WidthOfText("~{AB}A"), WidthOfText("ABA"));
    EXPECT_EQ(StrokesOfText("~{AB}A").size(), StrokesOfText("ABA").size() + 1);
    EXPECT_EQ(WidthOfText(""), 0);
}

// ---- Bounds

TEST(BoardPicture, FitsTheCentreLinesOfTheOutline)
{
    // The arc from (10, 0) over (15, 5) to (10, 10) of the file reaches x 15. The silk screen lies outside and does not
    // count.
    const BoardPicture picture =
        MakePicture(ReadItems("(gr_line (start 0 0) (end 10 0) (layer \"Edge.Cuts\") (width 2))"
                              "(gr_arc (start 10 0) (mid 15 5) (end 10 10) (layer \"Edge.Cuts\") (width 2))"
                              "(gr_line (start -50 -50) (end 90 90) (layer \"F.SilkS\") (width 2))"));
    for (double reach : {0, 1}) { // half the width, when asked
        CKRectD box = BoundsOf(picture, reach > 0);
        ASSERT_TRUE(box.IsInitialized());
        EXPECT_NEAR(box.GetLeft(), -reach, kTolerance);
        EXPECT_NEAR(box.GetRight(), 15 + reach, kTolerance);
        EXPECT_NEAR(box.GetTop(), reach, kTolerance);
        EXPECT_NEAR(box.GetBottom(), -10 - reach, kTolerance);
    }
}

TEST(BoardPicture, FitsEverythingWithoutAnOutline)
{
    CKRectD box =
        BoundsOf(MakePicture(ReadItems("(segment (start 1 1) (end 5 1) (width 1) (layer \"F.Cu\") (net 0))"
                                       "(gr_poly (pts (xy 3 3) (xy 9 3) (xy 9 8)) (layer \"B.Cu\") (width 0))")),
                 false);
    ASSERT_TRUE(box.IsInitialized());
    EXPECT_NEAR(box.GetLeft(), 0.5, kTolerance);
    EXPECT_NEAR(box.GetRight(), 9, kTolerance);
    EXPECT_NEAR(box.GetTop(), -0.5, kTolerance);
    EXPECT_NEAR(box.GetBottom(), -8, kTolerance);
    EXPECT_FALSE(BoundsOf(MakePicture(ReadItems("")), false).IsInitialized());
}

} // namespace viewer
