#include "ViewerTesting.h"

namespace viewer {

// ---- Arcs

struct ArcCase
{
    const char* why;
    const char* item;
    Figure::Kind kind;
    double centreX, centreY, startX, startY, endX, endY;
    bool counterClockwise;
};

// Hand geometry on the circle of radius 5 around (10, 20) of the file, which is (10, -20) here. As seen, the file's
// (13, 16) is up and to the right of the centre.
const ArcCase kArcs[] = {
    {"three points: right, top, left", "(gr_arc (start 15 20) (mid 10 15) (end 5 20) (layer \"F.SilkS\") (width 1))",
     Figure::Kind::Arc, 10, -20, 15, -20, 5, -20, true},
    {"three points: right, bottom, left", "(gr_arc (start 15 20) (mid 10 25) (end 5 20) (layer \"F.SilkS\") (width 1))",
     Figure::Kind::Arc, 10, -20, 15, -20, 5, -20, false},
    {"three quarters of a circle", "(gr_arc (start 15 20) (mid 7 16) (end 10 25) (layer \"F.SilkS\") (width 1))",
     Figure::Kind::Arc, 10, -20, 15, -20, 10, -25, true},
    {"centre and angle: 90 turns clockwise from the right to the bottom",
     "(gr_arc (start 10 20) (end 15 20) (angle 90) (layer F.SilkS) (width 1))", Figure::Kind::Arc, 10, -20, 15, -20, 10,
     -25, false},
    {"a negative angle turns counter-clockwise to the top",
     "(gr_arc (start 10 20) (end 15 20) (angle -90) (layer F.SilkS) (width 1))", Figure::Kind::Arc, 10, -20, 15, -20,
     10, -15, true},
    {"a full turn has equal ends", "(gr_arc (start 10 20) (end 15 20) (angle 360) (layer F.SilkS) (width 1))",
     Figure::Kind::Arc, 10, -20, 15, -20, 15, -20, false},
    {"no turn is no circle", "(gr_arc (start 10 20) (end 15 20) (angle 0) (layer F.SilkS) (width 1))",
     Figure::Kind::Line, 10, -20, 15, -20, 15, -20, true},
    {"three points on a line", "(gr_arc (start 0 0) (mid 1 1) (end 2 2) (layer \"F.SilkS\") (width 1))",
     Figure::Kind::Line, 0, 0, 0, 0, 2, -2, true},
};

TEST(BoardReader, Arcs)
{
    for (const ArcCase& c : kArcs) {
        const Board board = ReadItems(c.item);
        ASSERT_EQ(board.graphics.size(), 1u) << c.why;
        const Figure& figure = board.graphics[0].figures.at(0);
        EXPECT_EQ(figure.kind, c.kind) << c.why;
        ExpectPoint(figure.start, c.startX, c.startY, c.why);
        ExpectPoint(figure.end, c.endX, c.endY, c.why);
        if (c.kind != Figure::Kind::Arc)
            continue;
        ExpectPoint(figure.centre, c.centreX, c.centreY, c.why);
        EXPECT_EQ(figure.counterClockwise, c.counterClockwise) << c.why;
    }
}

// ---- Footprints

TEST(BoardReader, ChildrenOfFootprintsTurnAndMove)
{
    // 30 degrees counter-clockwise as seen: the file's (10, 0) goes to (5 sqrt 3, -5), up and to the right.
    const Board board =
        ReadItems("(footprint \"x\" (layer \"F.Cu\") (at 100 50 30)\n"
                  " (fp_line (start 0 0) (end 10 0) (layer \"F.SilkS\") (width 0.1))\n"
                  " (pad \"1\" smd rect (at 0 -10 75) (size 4 2) (layers \"F.Cu\" \"F.Mask\") (net 3 \"N\")))");
    const Figure& line = board.graphics.at(0).figures.at(0);
    ExpectPoint(line.start, 100, -50, "origin");
    ExpectPoint(line.end, 100 + 5 * std::sqrt(3.0), -45, "turned end");

    // (0, 10) upward goes to (-5, 5 sqrt 3). The pad's own angle is absolute: 75, not 105.
    const Pad& pad = board.pads.at(0);
    const double x = 95, y = -50 + 5 * std::sqrt(3.0);
    ExpectPoint(pad.centre, x, y, "pad");
    EXPECT_EQ(pad.net, 3);
    EXPECT_EQ(NamesOf(board, pad.layers), "F.Cu F.Mask");
    const double along = 2 * M_PI * 75 / 360;
    const KPointD tip = {x + 1.9 * std::cos(along), y + 1.9 * std::sin(along)};
    EXPECT_EQ(DistanceToFigure(pad.copper.at(0), tip), 0) << "1.9 of the half length 2 along the absolute angle";
    const KPointD aside = {x - 1.9 * std::sin(along), y + 1.9 * std::cos(along)};
    EXPECT_NEAR(DistanceToFigure(pad.copper.at(0), aside), 0.9, kTolerance) << "across it the half width is 1";
}

TEST(BoardReader, BackFootprintsAreNotMirrored)
{
    const Board board =
        ReadItems("(module x (layer B.Cu) (at 10 20)\n (fp_line (start 1 0) (end 2 0) (layer B.SilkS) (width 0.1))\n"
                  " (pad 1 smd rect (at 3 0) (size 1 1) (layers B.Cu B.Mask)))");
    ExpectPoint(board.graphics.at(0).figures.at(0).start, 11, -20, "line");
    ExpectPoint(board.pads.at(0).centre, 13, -20, "pad");
    EXPECT_EQ(NamesOf(board, board.pads[0].layers), "B.Cu B.Mask");
}

// ---- Pads

/// Probes of one pad at (100, 100), offsets from it with y up: on the copper or beside it.
struct Probe
{
    double x, y;
    bool copper;
};
struct PadCase
{
    const char* why;
    const char* pad;
    std::vector<Probe> probes;
};

const PadCase kPads[] = {
    {"circle", "circle (at 0 0) (size 2 2)", {{0.99, 0, true}, {0.71, 0.71, false}, {0.70, 0.70, true}}},
    {"rect", "rect (at 0 0) (size 4 2)", {{1.99, 0.99, true}, {2.01, 0, false}, {0, 1.01, false}}},
    {"rect turned by 45", "rect (at 0 0 45) (size 4 2)", {{1.4, 1.4, true}, {1.4, -1.4, false}, {0.7, -0.7, true}}},
    {"oval", "oval (at 0 0) (size 4 2)", {{1.99, 0, true}, {1.9, 0.9, false}, {1.7, 0.7, true}, {0, 0.99, true}}},
    {"oval upright", "oval (at 0 0 90) (size 4 2)", {{0, 1.99, true}, {1.01, 0, false}}},
    // The corner circle of radius 0.5 has its middle at (1.5, 0.5); (0.36, 0.36) from it is 0.509 away.
    {"roundrect",
     "roundrect (at 0 0) (size 4 2) (roundrect_rratio 0.25)",
     {{1.99, 0, true}, {1.86, 0.86, false}, {1.85, 0.85, true}, {1.99, 0.49, true}}},
    {"roundrect fully round",
     "roundrect (at 0 0) (size 4 2) (roundrect_rratio 0.5)",
     {{1.9, 0.9, false}, {1.99, 0, true}}},
    {"chamfered corner top left",
     "roundrect (at 0 0) (size 4 2) (roundrect_rratio 0) (chamfer_ratio 0.5) (chamfer top_left)",
     {{-1.6, 0.7, false}, {-1.4, 0.5, true}, {1.9, 0.9, true}, {-1.9, -0.9, true}}},
    // A y delta of 1 makes the lower edge 3 wide and the upper one 1.
    {"trapezoid",
     "trapezoid (at 0 0) (size 2 2) (rect_delta 0 1)",
     {{1.4, -0.99, true}, {1.4, 0.9, false}, {0.45, 0.99, true}, {0.6, 0.99, false}}},
    {"offset drill moves the copper",
     "rect (at 0 0) (size 2 2) (drill 0.5 (offset 3 0))",
     {{3.9, 0, true}, {0, 0, false}}},
    {"offset turns with the pad",
     "rect (at 0 0 90) (size 2 2) (drill 0.5 (offset 3 0))",
     {{0, 3.9, true}, {0, 0, false}}},
    {"custom: anchor and polygon turned", // (x, y) of the file is 90 degrees counter-clockwise at (y, x) here
     "custom (at 0 0 90) (size 1 1) (options (clearance outline) (anchor rect)) (primitives"
     " (gr_poly (pts (xy 2 0) (xy 4 0) (xy 4 2)) (width 0)))",
     {{0.4, 0.4, true}, {0.5, 3.5, true}, {1.5, 2.5, false}, {-0.5, 3.5, false}}},
    {"custom: circle anchor, disc, ring, line",
     "custom (at 0 0) (size 1 1) (options (anchor circle)) (primitives (gr_circle (center 5 0) (end 6 0) (width 0))"
     " (gr_circle (center -5 0) (end -6 0) (width 0.2)) (gr_line (start 0 2) (end 3 2) (width 0.5)))",
     {{0.4, 0.4, false},
      {0.3, 0.3, true},
      {5, 0, true},
      {5.99, 0, true},
      {-5, 0, false},
      {-6.09, 0, true},
      {1.5, -2.2, true},
      {1.5, -2.3, false}}},
};

TEST(BoardReader, PadShapes)
{
    for (const PadCase& c : kPads) {
        const Board board = ReadItems("(footprint \"x\" (layer \"F.Cu\") (at 100 100) (pad \"1\" thru_hole " +
                                      std::string(c.pad) + " (layers *.Cu *.Mask)))");
        for (const Probe& probe : c.probes) {
            double distance = HUGE_VAL;
            for (const Figure& figure : board.pads.at(0).copper)
                distance = std::min(distance, DistanceToFigure(figure, {100 + probe.x, -100 + probe.y}));
            EXPECT_EQ(distance == 0, probe.copper) << c.why << " at " << probe.x << ", " << probe.y;
        }
    }
}

TEST(BoardReader, Holes)
{
    const Board board =
        ReadItems("(footprint \"x\" (layer \"F.Cu\") (at 0 0)\n"
                  "(pad \"1\" thru_hole rect (at 5 0 90) (size 2 2) (drill 0.8 (offset 1 0)) (layers *.Cu))\n"
                  "(pad \"2\" thru_hole oval (at 9 0 20) (size 2 4) (drill oval 1 3) (layers *.Cu))\n"
                  "(pad \"\" np_thru_hole circle (at 0 9) (size 3 3) (drill 3) (layers *.Cu))\n"
                  "(pad \"\" np_thru_hole circle (at 0 9) (size 4 4) (drill 3) (layers *.Cu))\n"
                  "(pad \"3\" smd rect (at 0 0) (size 1 1) (drill (offset 1 1)) (layers F.Cu)))");
    ExpectPoint(board.pads.at(0).hole.centre, 5, 0, "the hole stays where the pad is");
    ExpectPoint(board.pads[0].centre, 5, 1, "its copper moves along the pad's x");
    EXPECT_EQ(board.pads[0].hole.width, 0.8);
    EXPECT_EQ(board.pads[0].hole.height, 0.8);
    EXPECT_EQ(board.pads.at(1).hole.width, 1);
    EXPECT_EQ(board.pads[1].hole.height, 3);
    EXPECT_EQ(board.pads[1].hole.angle, 20);
    EXPECT_TRUE(board.pads.at(2).hole.bare);
    EXPECT_TRUE(board.pads[2].copper.empty());
    EXPECT_FALSE(board.pads.at(3).hole.bare) << "a rim of copper is left";
    EXPECT_EQ(board.pads[3].copper.size(), 1u);
    EXPECT_EQ(board.pads.at(4).hole.width, 0) << "an offset alone drills nothing";
}

// ---- Layers, vias, zones

TEST(BoardReader, LayerSets)
{
    const Board board = ReadItems("(footprint \"x\" (layer \"F.Cu\") (at 0 0)\n"
                                  "(pad 1 thru_hole rect (at 0 0) (size 1 1) (drill 1) (layers *.Cu *.Mask))\n"
                                  "(pad 2 thru_hole rect (at 0 0) (size 1 1) (drill 1) (layers F&B.Cu F.SilkS))\n"
                                  "(pad 3 smd rect (at 0 0) (size 1 1) (layers In1.Cu \"B.Mask\")))");
    EXPECT_EQ(NamesOf(board, board.pads.at(0).layers), "F.Cu In1.Cu In2.Cu B.Cu B.Mask F.Mask");
    EXPECT_EQ(NamesOf(board, board.pads.at(1).layers), "F.Cu B.Cu F.SilkS");
    EXPECT_EQ(NamesOf(board, board.pads.at(2).layers), "In1.Cu B.Mask");
    EXPECT_EQ(board.layers.Find("GND_layer"), -1) << "the alias names nothing";
}

TEST(BoardReader, TracksAndVias)
{
    const Board board = ReadItems("(segment (start 1 2) (end 3 4) (width 0.25) (layer \"In2.Cu\") (net 7))\n"
                                  "(arc (start 15 20) (mid 10 15) (end 5 20) (width 0.5) (layer \"B.Cu\") (net 8))\n"
                                  "(via (at 1 2) (size 0.8) (drill 0.4) (layers \"F.Cu\" \"B.Cu\") (net 7))\n"
                                  "(via blind (at 1 2) (size 0.8) (drill 0.4) (layers \"In1.Cu\" \"F.Cu\") (net 7))");
    const Track& track = board.tracks.at(0);
    ExpectPoint(track.figure.start, 1, -2, "start");
    ExpectPoint(track.figure.end, 3, -4, "end");
    EXPECT_EQ(track.figure.width, 0.25);
    EXPECT_EQ(board.layers.Name(track.layer), "In2.Cu");
    EXPECT_EQ(track.net, 7);
    EXPECT_TRUE(board.tracks.at(1).isArc);
    EXPECT_EQ(board.tracks[1].figure.kind, Figure::Kind::Arc);
    EXPECT_EQ(NamesOf(board, board.vias.at(0).layers), "F.Cu In1.Cu In2.Cu B.Cu");
    EXPECT_EQ(NamesOf(board, board.vias.at(1).layers), "F.Cu In1.Cu");
}

TEST(BoardReader, ViasAndPadsLoseUnusedInnerRings)
{
    const char* via = "(via (at 10 10) (size 0.8) (drill 0.4) (layers \"F.Cu\" \"B.Cu\") (remove_unused_layers) "
                      "(keep_end_layers) (net 1))";
    struct Case
    {
        const char* why;
        std::string items;
        const char* layers;
    };
    // The cut-out of the zone is reached through coincident edges, as zones store it.
    const std::string holedZone =
        "(zone (net 1) (layer \"In1.Cu\") (filled_areas_thickness no) (filled_polygon (layer \"In1.Cu\") (pts"
        " (xy 0 0) (xy 20 0) (xy 20 20) (xy 0 20) (xy 0 10) (xy 8 10) (xy 10 12) (xy 12 10) (xy 10 8)"
        " (xy 8 10) (xy 0 10))))";
    const Case cases[] = {
        {"nothing meets it", "", "F.Cu B.Cu"},
        {"a track of its net ends in it", "(segment (start 10 10) (end 20 10) (width 0.2) (layer \"In2.Cu\") (net 1))",
         "F.Cu In2.Cu B.Cu"},
        {"a track of another net", "(segment (start 10 10) (end 20 10) (width 0.2) (layer \"In2.Cu\") (net 2))",
         "F.Cu B.Cu"},
        {"a filled area around it",
         "(zone (net 1) (layer \"In1.Cu\") (filled_areas_thickness no) (filled_polygon (layer \"In1.Cu\") (pts (xy 0 "
         "0) (xy 20 0) (xy 20 20)"
         " (xy 0 20))))",
         "F.Cu In1.Cu B.Cu"},
        {"a filled area with a clearance around it", holedZone, "F.Cu B.Cu"},
    };
    const char* pad = "(footprint \"x\" (layer \"F.Cu\") (at 10 10) (pad \"1\" thru_hole circle (at 0 0) (size 0.8 0.8)"
                      " (drill 0.4) (layers *.Cu) (remove_unused_layers) (net 1 \"A\")))";
    for (const Case& c : cases) {
        const Board board = ReadItems(c.items + via + pad);
        EXPECT_EQ(NamesOf(board, board.vias.at(0).layers), c.layers) << c.why;
        EXPECT_EQ(NamesOf(board, board.pads.at(0).layers), c.layers) << c.why << ", a pad";
    }
}

TEST(BoardReader, ZonesFillTheirFilledPolygonsOnly)
{
    const char* pts = "(pts (xy 0 0) (xy 1 0) (xy 1 1))";
    const std::string polygon = std::string("(polygon ") + pts + ")";
    const Board board =
        ReadItems("(zone (net 4) (layer F.Cu) (min_thickness 0.2) " + polygon + " (filled_polygon " + pts + "))" +
                  "(zone (net 5) (layers F&B.Cu) (min_thickness 0.2) (filled_areas_thickness no) " + polygon +
                  " (filled_polygon (layer B.Cu) " + pts + "))" + "(zone (net 6) (layer F.Cu) " + polygon + ")");
    ASSERT_EQ(board.filledPolygons.size(), 2u);
    EXPECT_EQ(board.filledPolygons[0].figure.width, 0.2)
        << "without a word the border is as wide as the narrowest copper";
    EXPECT_EQ(board.filledPolygons[0].net, 4);
    EXPECT_EQ(board.filledPolygons[1].figure.width, 0);
    EXPECT_EQ(board.layers.Name(board.filledPolygons[1].layer), "B.Cu");
    ExpectPoint(board.filledPolygons[1].figure.points.at(2), 1, -1, "corner");
}

// ---- Graphics and texts

TEST(BoardReader, FillsAndBorders)
{
    struct Case
    {
        const char* item;
        bool filled;
        double width;
        const char* kind;
    };
    const Case cases[] = {
        {"(gr_poly (pts (xy 0 0) (xy 1 0) (xy 1 1)) (layer \"F.Cu\") (width 0.1) (fill solid))", true, 0.1, "polygon"},
        {"(gr_poly (pts (xy 0 0) (xy 1 0) (xy 1 1)) (layer F.Cu) (width 0.3))", true, 0.3, "polygon"},
        {"(gr_poly (pts (xy 0 0) (xy 1 0) (xy 1 1)) (layer \"F.Cu\") (width 0.1) (fill none))", false, 0.1, "polygon"},
        {"(gr_circle (center 1 1) (end 2 1) (layer \"F.Cu\") (width 0.1) (fill none))", false, 0.1, "circle"},
        {"(gr_circle (center 1 1) (end 2 1) (layer \"F.Cu\") (width 0.1) (fill solid))", true, 0.1, "circle"},
        {"(gr_rect (start 1 1) (end 2 3) (layer \"F.Cu\") (width 0.1) (fill none))", false, 0.1, "rect"},
        {"(gr_rect (start 1 1) (end 2 3) (layer \"F.Cu\") (stroke (width 0.2) (type solid)) (fill solid))", true, 0.2,
         "rect"},
    };
    for (const Case& c : cases) {
        const Board board = ReadItems(c.item);
        const Graphic& graphic = board.graphics.at(0);
        EXPECT_EQ(graphic.kind, c.kind) << c.item;
        EXPECT_EQ(graphic.figures.at(0).filled, c.filled) << c.item;
        EXPECT_EQ(graphic.figures.at(0).width, c.width) << c.item;
    }
}

TEST(BoardReader, CurvesPassTheirMiddle)
{
    const Board board =
        ReadItems("(gr_curve (pts (xy 0 0) (xy 0 4) (xy 8 4) (xy 8 0)) (layer \"F.SilkS\") (width 0.1))");
    const Figure& curve = board.graphics.at(0).figures.at(0);
    ExpectPoint(curve.points.front(), 0, 0, "begin");
    ExpectPoint(curve.points.back(), 8, 0, "end");
    EXPECT_NEAR(DistanceToFigure(curve, {4, -3}), 0, kTolerance)
        << "a Bezier curve's middle is (p0 + 3 p1 + 3 p2 + p3) / 8";
}

TEST(BoardReader, ArcsInOutlinesBecomeChords)
{
    // A half disc of radius 5 around (10, 20) of the file: its round side bulges upward.
    const Board board =
        ReadItems("(gr_poly (pts (arc (start 15 20) (mid 10 15) (end 5 20)) (xy 10 20)) (layer \"F.Cu\")"
                  " (width 0) (fill solid))");
    const Figure& figure = board.graphics.at(0).figures.at(0);
    EXPECT_EQ(DistanceToFigure(figure, {10, -15.02}), 0);
    EXPECT_NEAR(DistanceToFigure(figure, {10, -14}), 1, 0.01) << "chords of 5 degrees stay within 0.005 of the arc";
    EXPECT_NEAR(DistanceToFigure(figure, {10, -21}), 1, 0.01);
}

TEST(BoardReader, DimensionsStandBesideTheirPoints)
{
    // From (10, 30) up to (10, 10): its right side, for a height of 5, lies at x 15.
    const Board board =
        ReadItems("(dimension (type aligned) (layer \"F.SilkS\") (pts (xy 10 30) (xy 10 10)) (height 5)\n"
                  "(gr_text \"20 mm\" (at 14 20 90) (layer \"F.SilkS\") (effects (font (size 1 1))))\n"
                  "(style (thickness 0.2) (arrow_length 1) (extension_height 0.5) (extension_offset 0)))");
    ASSERT_EQ(board.graphics.size(), 1u);
    EXPECT_EQ(board.graphics[0].kind, "dimension");
    double nearest = HUGE_VAL;
    for (const Figure& line : board.graphics[0].figures)
        nearest = std::min(nearest, DistanceToFigure(line, {15, -20}));
    EXPECT_EQ(nearest, 0);
    EXPECT_EQ(board.texts.at(0).text, "20 mm");
}

TEST(BoardReader, Texts)
{
    const Board board =
        ReadItems("(gr_text \"two\\nlines\" (at 1 2 180) (layer \"B.SilkS\") (effects (font (size 2 1.5) (thickness "
                  "0.3)) (justify left mirror)))\n"
                  "(gr_text \"gone\" (at 1 2) (layer \"F.SilkS\") (effects (font (size 1 1)) hide))\n"
                  "(footprint \"x\" (layer \"F.Cu\") (at 10 20 90)\n"
                  " (fp_text reference \"R1\" (at 0 5 180) (layer \"F.SilkS\") hide (effects (font (size 1 1))))\n"
                  " (fp_text value \"1k\" (at 0 0 -90) (layer \"F.SilkS\") (effects (font (size 1 1)) hide))\n"
                  " (fp_text user \"${REFERENCE}=${VALUE}\" (at 5 0 135) (layer \"F.SilkS\") (effects (font (size 1 1) "
                  "(thickness 0.1))))\n"
                  " (fp_text user \"%R\" (at 0 0 -90 unlocked) (layer \"F.SilkS\") (effects (font (size 1 1) "
                  "(thickness 0.1) italic)))\n"
                  " (fp_text user \"up\" (at 0 0 unlocked) (layer \"F.SilkS\") (effects (font (size 1 1)))))");
    ASSERT_EQ(board.texts.size(), 4u) << "hidden ones are left out";
    EXPECT_EQ(References(board), std::vector<std::string>{"R1"}) << "a hidden reference still is one";

    const Text& mirrored = board.texts[0];
    EXPECT_EQ(mirrored.text, "two\nlines");
    EXPECT_EQ(mirrored.angle, 180) << "board texts are not kept upright";
    EXPECT_EQ(mirrored.height, 2);
    EXPECT_EQ(mirrored.width, 1.5);
    EXPECT_TRUE(mirrored.mirrored);
    EXPECT_EQ(mirrored.horizontal, Text::Side::Low);
    EXPECT_EQ(mirrored.vertical, Text::Side::Middle);

    EXPECT_EQ(board.texts[1].text, "R1=1k");
    EXPECT_EQ(board.texts[1].angle, -45) << "135 degrees would be upside down";
    ExpectPoint(board.texts[1].anchor, 10, -15, "the footprint's 90 degrees turn (5, 0) upward");
    EXPECT_EQ(board.texts[2].text, "R1");
    EXPECT_EQ(board.texts[2].angle, -90) << "unlocked texts keep their angle";
    EXPECT_TRUE(board.texts[2].italic);
    EXPECT_EQ(board.texts[3].angle, 0);
}

TEST(BoardReader, NetsAndReferencesStayAsTheyAre)
{
    const Board board = ReadItems(
        "(net 0 \"\") (net 1 \"/BUS{slash}#A*\") (net 2 bare)\n"
        "(footprint \"x\" (layer \"F.Cu\") (at 0 0) (fp_text reference \"REF**\" (at 0 0) (layer \"F.SilkS\")))\n"
        "(module x (layer F.Cu) (at 0 0) (fp_text reference REF** (at 0 0) (layer F.SilkS)))");
    EXPECT_EQ(board.nets.at(1), "/BUS{slash}#A*");
    EXPECT_EQ(board.nets.at(2), "bare");
    EXPECT_EQ(References(board), (std::vector<std::string>{"REF**", "REF**"}));
}

struct RefusedCase
{
    const char* item;
    const char* message;
};

const RefusedCase kRefused[] = {
    {"(segment (start 0 0) (end 1 1) (width 1) (net 1))", "has no layer"},
    {"(segment (end 1 1) (width 1) (layer F.Cu))", "lacks (start"},
    {"(segment (start 0 0) (end 1 x) (width 1) (layer F.Cu))", "'x' is not a number"},
    {"(segment (start 0 0) (end 1 1e300) (width 1) (layer F.Cu))", "too large"},
    {"(gr_arc (start 0 0) (end 1 1) (layer F.Cu))", "neither a middle point nor an angle"},
    {"(footprint x (layer F.Cu) (at 0 0) (pad 1 smd blob (at 0 0) (size 1 1) (layers F.Cu)))", "unknown shape 'blob'"},
};

TEST(BoardReader, RefusesNonsenseWithItsLine)
{
    for (const RefusedCase& c : kRefused) {
        try {
            ReadItems(std::string("\n") + c.item);
            ADD_FAILURE() << c.item;
        } catch (const ReadError& error) {
            EXPECT_EQ(std::string(error.what()).find("test.kicad_pcb:4: "), 0u) << error.what();
            EXPECT_NE(std::string(error.what()).find(c.message), std::string::npos) << error.what();
        }
    }
}

TEST(BoardReader, RefusesMoreLayersThanASetHolds)
{
    std::string layers = "(layers";
    for (int i = 0; i <= LayerTable::kMost; ++i)
        layers += " (" + std::to_string(i) + " L" + std::to_string(i) + " user)";
    EXPECT_THROW(ReadBoard("(kicad_pcb " + layers + "))", "t"), ReadError);
}

TEST(LayerTable, ColoursAreTheirOwn)
{
    std::vector<std::string> names = {"F.Cu",      "B.Cu",      "F.Adhes",   "B.Adhes",   "F.Paste",   "B.Paste",
                                      "F.SilkS",   "B.SilkS",   "F.Mask",    "B.Mask",    "Dwgs.User", "Cmts.User",
                                      "Eco1.User", "Eco2.User", "Edge.Cuts", "Margin",    "F.CrtYd",   "B.CrtYd",
                                      "F.Fab",     "B.Fab",     "Holes",     "Holes.Bare"};
    for (int i = 1; i <= 30; ++i)
        names.push_back("In" + std::to_string(i) + ".Cu");
    for (int i = 1; i <= 9; ++i)
        names.push_back("User." + std::to_string(i));
    std::map<Colour, std::string> owners;
    for (const std::string& name : names) {
        const auto [owner, isNew] = owners.emplace(LayerColour(name), name);
        EXPECT_TRUE(isNew) << name << " looks like " << owner->second;
        EXPECT_NE(LayerColour(name), 0u) << name << " cannot be seen on black";
    }
}

} // namespace viewer
