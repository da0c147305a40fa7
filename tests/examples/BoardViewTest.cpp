// The view without a toolkit: navigation, layers, measuring, searching, copies, and what must do no harm.
#include "PictureTesting.h"
#include "ViewTesting.h"

#include "BoardArchive.h"

#include <climits>
#include <random>

namespace viewer {
namespace {

const std::string kNets = "(net 1 \"GND\") (net 2 \"/CLK\")";

double PixelsPerMM(BoardView& view)
{
    return view.Painter()->GetScale() * view.Painter()->GetPixcelPerMM();
}

// ---- Navigation

TEST(BoardViewNavigation, FitShowsTheWholeBoardInTheMiddle)
{
    ItemsView board("");
    // The tighter of both directions decides: 90 % of 401 pixels for 40 mm.
    EXPECT_NEAR(PixelsPerMM(board.view), 0.9 * 401 / 40, 1e-9);
    EXPECT_EQ(board.At(20, 15).x, 200);
    EXPECT_EQ(board.At(20, 15).y, 150);

    board.view.Resize(801, 601);
    EXPECT_NEAR(PixelsPerMM(board.view), 0.9 * 801 / 40, 1e-9) << "a fitted board stays fitted";
    board.view.ZoomIn(board.view.Middle());
    const double scale = PixelsPerMM(board.view);
    board.view.Resize(201, 101);
    EXPECT_EQ(PixelsPerMM(board.view), scale) << "another view keeps its scale";
    EXPECT_EQ(board.At(20, 15).x, 100) << "and its middle";
}

TEST(BoardViewNavigation, PointUnderTheCursorStays)
{
    ItemsView board(TrackItem(5, 5, 12, 9, "F.Cu"));
    const CPoint cursors[] = {CPoint(0, 0), CPoint(400, 300), CPoint(77, 211), CPoint(-30, 500)};
    for (const CPoint& cursor : cursors) {
        board.view.Fit();
        const double scale = PixelsPerMM(board.view);
        for (int step = 0; step < 6; ++step) {
            const KPointD before = *board.view.BoardPoint(cursor);
            if (step == 2 || step == 5)
                board.view.FlipAbout(cursor);
            else if (step == 4)
                board.view.ZoomOut(cursor);
            else
                board.view.ZoomIn(cursor);
            EXPECT_NEAR(board.view.BoardPoint(cursor)->x, before.x, 1e-9) << step;
            EXPECT_NEAR(board.view.BoardPoint(cursor)->y, before.y, 1e-9) << step;
        }
        EXPECT_NEAR(PixelsPerMM(board.view), scale * 1.3 * 1.3, 1e-9) << "three steps in and one out";
        EXPECT_FALSE(board.view.IsFromBack());
    }
}

/// What is drawn follows: a track that reaches from the cursor to the right reaches to the left from the back.
TEST(BoardViewNavigation, FlipMirrorsThePictureAboutTheCursor)
{
    ItemsView board(TrackItem(30, 10, 35, 10, "F.Cu"));
    const CPoint cursor = board.At(31, 10);
    const uint32_t copper = AsPixel(LayerColour("F.Cu"));
    const CPoint right(cursor.x + 20, cursor.y), left(cursor.x - 20, cursor.y);
    EXPECT_EQ(Screen(board.view).At(cursor), copper);
    EXPECT_EQ(Screen(board.view).At(right), copper);
    EXPECT_NE(Screen(board.view).At(left), copper);
    board.view.FlipAbout(cursor);
    EXPECT_NE(Screen(board.view).At(right), copper);
    EXPECT_EQ(Screen(board.view).At(left), copper);
    EXPECT_EQ(Screen(board.view).At(cursor), copper);
}

TEST(BoardViewNavigation, ZoomHasLimits)
{
    ItemsView board("");
    const CPoint middle = board.view.Middle();
    for (int i = 0; i < 200; ++i)
        board.view.ZoomIn(middle);
    EXPECT_GT(PixelsPerMM(board.view), 10000 / 1.3);
    EXPECT_LE(PixelsPerMM(board.view), 10000);
    EXPECT_NEAR(board.view.BoardPoint(middle)->x, 20, 1e-6);
    for (int i = 0; i < 200; ++i)
        board.view.ZoomOut(middle);
    EXPECT_GE(board.view.Painter()->GetScale(), 0.001);
    EXPECT_LT(board.view.Painter()->GetScale(), 0.0013);
}

TEST(BoardViewNavigation, ScaleIsToldByTheScreensResolution)
{
    ItemsView board("");
    board.view.SetScreenResolution(18.045);
    const Screen before(board.view);
    EXPECT_EQ(board.view.ScaleText(), "scale 50 %"); // 9.0225 pixels per millimetre
    for (double wrong : {0.0, -1.0, double(NAN), double(INFINITY)})
        board.view.SetScreenResolution(wrong);
    EXPECT_EQ(board.view.ScaleText(), "scale 50 %");
    EXPECT_EQ(Screen(board.view).Differences(before), 0);
}

/// Many changes between two paint messages cost one frame.
TEST(BoardViewNavigation, AsksForAPaintAndDrawsWhenPainted)
{
    ItemsView board("");
    int asked = 0;
    board.view.SetRepaint([&] { ++asked; });
    board.view.Pixels();
    board.view.PanBy(3, 0);
    board.view.ZoomIn(CPoint(1, 1));
    EXPECT_EQ(asked, 2);
    EXPECT_EQ(board.view.Painter()->IsRedraw(), 1);
    board.view.Pixels();
    EXPECT_EQ(board.view.Painter()->IsRedraw(), 0);
    EXPECT_EQ(asked, 2);
}

// ---- Layers

TEST(BoardViewLayers, ListHasCopperFirstAndNumbersToggle)
{
    ItemsView board(TrackItem(5, 10, 15, 10, "B.Cu") + TrackItem(10, 5, 10, 15, "F.Cu") +
                    "(gr_line (start 1 1) (end 5 1) (layer \"F.SilkS\") (width 0.2))"
                    "(via (at 30 10) (size 1) (drill 0.4) (layers \"F.Cu\" \"B.Cu\") (net 1))");
    std::string names;
    for (int i = 0; i < board.view.Layers().Count(); ++i)
        names += board.view.Layers().At(i).name + ' ';
    EXPECT_EQ(names, "F.Cu In1.Cu In2.Cu B.Cu Edge.Cuts Holes F.SilkS ");

    const uint32_t front = AsPixel(LayerColour("F.Cu")), back = AsPixel(LayerColour("B.Cu"));
    const CPoint crossing = board.At(10, 10);
    EXPECT_EQ(Screen(board.view).At(crossing), front);
    board.view.ToggleLayer(1);
    EXPECT_EQ(Screen(board.view).At(crossing), back);
    board.view.ToggleLayer(4);
    EXPECT_EQ(Screen(board.view).At(crossing), 0u);
    board.view.ToggleLayer(1);
    EXPECT_EQ(Screen(board.view).At(crossing), front);
    for (int wrong : {0, 8, 9, -1, INT_MAX, INT_MIN + 1})
        board.view.ToggleLayer(wrong);
    EXPECT_EQ(Screen(board.view).At(crossing), front);
}

TEST(BoardViewLayers, WorkLayerIsOnTopAndTheOthersAreDimmed)
{
    ItemsView board(TrackItem(5, 10, 15, 10, "B.Cu") + TrackItem(10, 5, 10, 15, "F.Cu") +
                    "(via (at 30 10) (size 2) (drill 1) (layers \"F.Cu\" \"B.Cu\") (net 1))");
    const CPoint crossing = board.At(10, 10), frontOnly = board.At(10, 7), hole = board.At(30, 10);
    const uint32_t holeColour = Screen(board.view).At(hole);
    board.view.SetWorkLayer(board.view.Layers().Find("B.Cu"));
    const Screen work(board.view);
    EXPECT_EQ(work.At(crossing), AsPixel(LayerColour("B.Cu")));
    EXPECT_NE(work.At(hole), AsPixel(LayerColour("B.Cu"))) << "holes go through the work layer";
    for (int shift : {0, 8, 16}) {
        const int full = int(AsPixel(LayerColour("F.Cu")) >> shift & 0xFF);
        EXPECT_EQ(int(work.At(frontOnly) >> shift & 0xFF), full / 3) << "a third over black";
    }
    board.view.SetWorkLayer(-1);
    EXPECT_EQ(Screen(board.view).At(crossing), AsPixel(LayerColour("F.Cu")));
    EXPECT_EQ(Screen(board.view).At(hole), holeColour);
    board.view.SetWorkLayer(99);
    EXPECT_EQ(board.view.Layers().Work(), -1);
}

/// Every layer has to be seen: on black, on white, and dimmed on either.
TEST(BoardViewLayers, ColoursStandOutFromTheBackground)
{
    ItemsView board("");
    for (const auto& layer : board.view.File().picture.layers) {
        if (layer->name == kHolesName)
            continue;
        const Colour colour = SchemeColour(*layer, Scheme::Light);
        const int red = int(colour & 0xFF), green = int(colour >> 8 & 0xFF), blue = int(colour >> 16 & 0xFF);
        EXPECT_LT((2 * red + 5 * green + blue) / 8, 150) << layer->name;
        EXPECT_NE(DimmedColour(colour, 0xFFFFFF), 0xFFFFFFu) << layer->name;
    }
    board.view.SetScheme(Scheme::Light);
    EXPECT_EQ(Screen(board.view).At(CPoint(0, 0)), 0xFFFFFFu);
    board.view.SetScheme(Scheme::Dark);
    EXPECT_EQ(Screen(board.view).At(CPoint(0, 0)), 0u);
}

// ---- Measuring

TEST(BoardViewMeasure, TellsTheClearanceOfTwoPads)
{
    // Discs of diameter 1 and 2 with their middles 5 mm apart on a 3-4-5 slope: 3.5 mm remain.
    ItemsView board(PadItem("U1", 10, 10, "circle (at 0 0) (size 1 1)") +
                    PadItem("U2", 13, 14, "circle (at 0 0) (size 2 2)"));
    board.view.PickSecond(board.At(10, 10));
    ASSERT_NE(board.view.PickedElement(), nullptr) << "the first one where nothing is picked";
    EXPECT_FALSE(board.view.Measured());
    EXPECT_EQ(board.view.MeasureText(), "");
    const Screen before(board.view);
    board.view.PickSecond(board.At(13, 14));
    const char* const text = "clearance 3.5000 mm from 10.3000, 10.4000 to 12.4000, 13.2000";
    EXPECT_EQ(board.view.MeasureText(), text);
    EXPECT_EQ(board.view.PickText(), text);
    const Screen measured(board.view);
    const CPoint halfway = board.At(11.35, 11.8);
    EXPECT_NE(measured.At(halfway), before.At(halfway)) << "a line between the nearest points";

    board.view.PickSecond(board.At(30, 25));
    EXPECT_EQ(board.view.MeasureText(), "");
    EXPECT_EQ(Screen(board.view).Differences(before), 0) << "the line is gone";
    board.view.PickSecond(board.At(10, 10));
    EXPECT_FALSE(board.view.Measured()) << "an element has no clearance to itself";
}

/// Tracks that cross on two layers have no distance in the plane, which is no short.
TEST(BoardViewMeasure, TellsElementsThatShareNoLayer)
{
    ItemsView board(TrackItem(5, 10, 15, 10, "F.Cu") + TrackItem(10, 5, 10, 15, "B.Cu") +
                    "(via (at 30 10) (size 2) (drill 1) (layers \"F.Cu\" \"B.Cu\") (net 1))");
    board.view.Pick(board.At(6, 10));
    board.view.PickSecond(board.At(10, 6));
    EXPECT_EQ(board.view.MeasureText().rfind("clearance 0.0000 mm from ", 0), 0u);
    const std::string note = ", no copper layer in common";
    EXPECT_NE(board.view.MeasureText().find(note), std::string::npos);
    board.view.PickSecond(board.At(30, 10));
    EXPECT_EQ(board.view.MeasureText(), "clearance 13.7500 mm from 15.2500, 10.0000 to 29.0000, 10.0000");
}

/// Pads of a board at (10, 10) and beside it, with what geometry says of them.
TEST(BoardViewMeasure, EdgeToEdgeByHandGeometry)
{
    const double root2 = std::sqrt(2.0);
    struct Case
    {
        const char* name;
        const char* first;
        const char* second;
        double x, y; ///< of the second
        double clearance;
    };
    const Case cases[] = {
        {"rectangles side by side", "rect (at 0 0) (size 1 2)", "rect (at 0 0) (size 2 1)", 14, 10, 4 - 0.5 - 1},
        {"corner to corner", "rect (at 0 0) (size 2 2)", "rect (at 0 0) (size 2 2)", 15, 16, 5},
        {"turned corner to disc", "rect (at 0 0 45) (size 2 2)", "circle (at 0 0) (size 1 1)", 14, 10, 4 - root2 - 0.5},
        {"rounded corner to disc", "roundrect (at 0 0 45) (size 2 2) (roundrect_rratio 0.25)",
         "circle (at 0 0) (size 1 1)", 14, 10, 4 - (0.5 * root2 + 0.5) - 0.5},
        {"ovals end to end", "oval (at 0 0) (size 3 1)", "oval (at 0 0) (size 3 1)", 16, 10, 3},
        {"one inside the other", "rect (at 0 0) (size 8 8)", "circle (at 0 0) (size 1 1)", 11, 11, 0},
        {"crossing bars", "rect (at 0 0) (size 8 1)", "rect (at 0 0) (size 1 8)", 10, 10, 0},
        {"ring around a disc",
         "custom (at 0 0) (size 0.2 0.2) (options (anchor circle)) (primitives (gr_circle (center 0 0) (end 4 0) "
         "(width 1)))",
         "circle (at 0 0) (size 1 1)", 12, 10, 1}, // the ring begins at 3.5, the anchor ends at 0.1
    };
    for (const Case& c : cases) {
        const Board board = ReadItems(PadItem("A", 10, 10, c.first) + PadItem("B", c.x, c.y, c.second));
        const BoardElements elements(board);
        ASSERT_EQ(elements.elements.size(), 2u);
        const BoardElement& a = *elements.elements[0];
        const BoardElement& b = *elements.elements[1];
        const ElementGap gap = MeasureElements(a, b);
        EXPECT_NEAR(gap.clearance, c.clearance, 1e-9) << c.name;
        EXPECT_NEAR(MeasureElements(b, a).clearance, c.clearance, 1e-9) << c.name;
        EXPECT_NEAR(std::hypot(gap.first.x - gap.second.x, gap.first.y - gap.second.y), c.clearance, 1e-9) << c.name;
        EXPECT_NEAR(a.DistanceTo(gap.first), 0, 1e-9) << c.name;
        EXPECT_NEAR(b.DistanceTo(gap.second), 0, 1e-9) << c.name;
    }
}

// ---- Texts

TEST(BoardViewTexts, TellsCursorScaleAndWhatIsPicked)
{
    ItemsView board(kNets + TrackItem(5, 10, 15, 10, "B.Cu", 2) +
                    "(via (at 30 10) (size 2) (drill 1) (layers \"F.Cu\" \"B.Cu\") (net 1))" +
                    PadItem("U7", 20, 20, "oval (at 0 0 30) (size 2 1.5) (net 1 \"GND\")"));
    EXPECT_EQ(board.view.CursorText(), "");
    board.view.SetCursor(CPoint(200, 150));
    EXPECT_EQ(board.view.CursorText(), "20.0000, 15.0000 mm");
    struct Case
    {
        double x, y;
        const char* text;
    };
    const Case cases[] = {
        {12, 10, "track, net /CLK, B.Cu, width 0.5000 mm, length 10.0000 mm"},
        {30, 10, "via, net GND, F.Cu In1.Cu In2.Cu B.Cu, diameter 2.0000 mm, hole 1.0000 mm"},
        {20, 20, "pad U7.1, net GND, F.Cu, 2.0000 x 1.5000 mm"},
        {38, 28, ""},
    };
    for (const Case& c : cases) {
        board.view.Pick(board.At(c.x, c.y));
        EXPECT_EQ(board.view.PickText(), c.text);
        EXPECT_NE(board.view.StatusText().find(c.text), std::string::npos);
    }
    board.view.ClearCursor();
    EXPECT_EQ(board.view.StatusText(), board.view.ScaleText());
}

// ---- Searching

TEST(BoardViewFind, FindsAsOneTypesAndBringsIntoView)
{
    ItemsView board(kNets + PadItem("U1", 10, 10, "circle (at 0 0) (size 1 1) (net 2 \"/CLK\")") +
                    PadItem("U12", 30, 20, "circle (at 0 0) (size 1 1) (net 2 \"/CLK\")") +
                    PadItem("R1", 35, 5, "circle (at 0 0) (size 1 1)"));
    const std::pair<const char*, size_t> typed[] = {{"U", 2}, {"U1", 2}, {"u12", 1}, {"*1", 2}, {"?CLK", 1},
                                                    {"/", 1}, {"x", 0},  {"", 0},    {"  ", 0}, {"U1 R", 3}};
    for (const auto& [pattern, count] : typed)
        EXPECT_EQ(board.view.Find(pattern).size(), count) << pattern;

    // Out of view and far too small, in view but too small, and then where nothing need be moved.
    board.view.Find("U12");
    for (int steps : {8, -8}) {
        board.view.Fit();
        for (int i = 0; i < std::abs(steps); ++i)
            steps > 0 ? board.view.ZoomIn(CPoint(0, 0)) : board.view.ZoomOut(board.view.Middle());
        ASSERT_TRUE(board.view.ShowMatch(0));
        const CPoint left = board.At(29.5, 20), right = board.At(30.5, 20);
        EXPECT_TRUE(left.x >= 0 && right.x < 401 && right.x - left.x >= 24) << steps;
        EXPECT_EQ(board.view.PickText(), "footprint U12, 1 element");
        const KPointD corner = *board.view.BoardPoint(CPoint(0, 0));
        ASSERT_TRUE(board.view.ShowMatch(0));
        EXPECT_EQ(board.view.BoardPoint(CPoint(0, 0))->x, corner.x);
    }
    board.view.Find("/CLK");
    ASSERT_TRUE(board.view.ShowMatch(0));
    EXPECT_EQ(board.view.PickText(), "net /CLK, 2 elements");
    EXPECT_NEAR(board.At(30.5, 20).x - board.At(9.5, 10).x, 0.9 * 401, 2) << "larger than what was shown: all of it";
    board.view.Find("GND");
    EXPECT_EQ(board.view.PickText(), "") << "the former match";
    ASSERT_EQ(board.view.Matches().size(), 1u);
    EXPECT_FALSE(board.view.ShowMatch(0)) << "nowhere on the board";
    for (int wrong : {-1, 1, INT_MAX})
        EXPECT_FALSE(board.view.ShowMatch(wrong));
}

TEST(BoardViewFind, DimsAllButTheMatches)
{
    ItemsView board(PadItem("U1", 10, 10, "rect (at 0 0) (size 2 2)") +
                    PadItem("R1", 30, 10, "rect (at 0 0) (size 2 2)"));
    const CPoint u1 = board.At(10, 10), r1 = board.At(30, 10);
    const Screen before(board.view);
    board.view.Find("U1");
    board.view.DimOthers(true);
    EXPECT_EQ(Screen(board.view).At(u1), AsPixel(LayerColour("F.Cu")));
    EXPECT_LT(Screen(board.view).At(r1), before.At(r1));
    board.view.Find("R1");
    EXPECT_EQ(Screen(board.view).At(r1), AsPixel(LayerColour("F.Cu"))) << "as one types";
    EXPECT_LT(Screen(board.view).At(u1), before.At(u1));
    board.view.DimOthers(false);
    EXPECT_EQ(Screen(board.view).Differences(before), 0);
}

// ---- Copies

TEST(BoardViewCopies, ClipboardGetsWhatIsShown)
{
    ItemsView board(TrackItem(5, 10, 15, 10, "F.Cu"));
    board.view.Pick(board.At(10, 10));
    ASSERT_TRUE(board.view.CopyPicture());
    const Screen screen(board.view);
    ASSERT_TRUE(OpenClipboard(nullptr));
    CDC dc;
    dc.CreateCompatibleDC(nullptr);
    CBitmap* const bitmap = CBitmap::FromHandle(static_cast<HBITMAP>(GetClipboardData(CF_BITMAP)));
    ASSERT_NE(bitmap, nullptr);
    CBitmap* const former = dc.SelectObject(bitmap);
    int differences = 0;
    for (int y = 0; y < screen.height; ++y) {
        for (int x = 0; x < screen.width; ++x)
            differences += AsPixel(dc.GetPixel(x, y)) != screen.At(CPoint(x, y));
    }
    EXPECT_EQ(differences, 0);
    dc.SelectObject(former);
    EmptyClipboard();
    CloseClipboard();
}

TEST(BoardViewCopies, ExportWritesTheViewWithoutPicks)
{
    const TestFolder folder;
    ItemsView board(TrackItem(5, 10, 15, 10, "F.Cu") + TrackItem(20, 5, 30, 25, "B.Cu"));
    for (bool flipped : {false, true}) {
        if (flipped)
            board.view.FlipAbout(CPoint(100, 100));
        board.view.SetScheme(flipped ? Scheme::Light : Scheme::Dark);
        board.view.ZoomIn(CPoint(100, 100));
        board.view.ClearPick();
        const Screen shown(board.view);
        board.view.Pick(board.At(10, 10));
        board.view.Export(folder.File("v.bmp"));
        const Pixels written(folder.File("v.bmp"));
        ASSERT_EQ(written.width, 401);
        ASSERT_EQ(written.height, 301);
        int differences = 0;
        for (int y = 0; y < 301; ++y) {
            for (int x = 0; x < 401; ++x)
                differences += AsPixel(written.At(x, y)) != shown.At(CPoint(x, y));
        }
        EXPECT_EQ(differences, 0) << flipped;
    }
}

// ---- What must do no harm

/// Everything that a user can do, in any order, on windows of any size and with absurd positions.
void DoEverything(BoardView& view, unsigned seed)
{
    std::mt19937 random(seed);
    const int numbers[] = {0, 1, -1, 7, 100, 399, INT_MAX, INT_MIN, 1 << 20};
    const auto number = [&] { return numbers[random() % std::size(numbers)]; };
    const auto size = [&] { return int(random() % 3 == 0 ? random() % 2 : random() % 120); };
    BoardEvents events(view);
    for (int i = 0; i < 60; ++i) {
        const CPoint point(number(), number());
        switch (random() % 18) {
        case 0:
            view.Resize(size(), size());
            break;
        case 1:
            view.Fit();
            break;
        case 2:
            view.FlipAbout(point);
            break;
        case 3:
            view.ZoomIn(point);
            break;
        case 4:
            view.ZoomOut(point);
            break;
        case 5:
            view.PanBy(number(), number());
            break;
        case 6:
            view.ToggleLayer(number());
            break;
        case 7:
            view.SetWorkLayer(number());
            break;
        case 8:
            view.SetScheme(random() % 2 ? Scheme::Light : Scheme::Dark);
            break;
        case 9:
            view.Pick(random() % 2 ? point : view.Middle());
            break;
        case 10:
            view.PickSecond(random() % 2 ? point : view.Middle());
            break;
        case 11:
            view.ClearPick();
            break;
        case 12:
            view.Find(random() % 2 ? "*" : "U");
            break;
        case 13:
            view.ShowMatch(number());
            break;
        case 14:
            view.DimOthers(random() % 2 != 0);
            break;
        case 15:
            events.OnMouseWheel(0, short(number()), point);
            break;
        case 16:
            events.OnRButtonDown(0, point);
            break;
        default:
            events.OnMouseMove(0, point);
            break;
        }
        view.SetCursor(point);
        view.StatusText();
        if (random() % 2)
            view.Pixels();
    }
}

/// Puts a number that no position is where tracks, pads and vias have theirs. The reader refuses such files, but an
/// archive can hold them.
void Damage(Board& board, double number)
{
    board.tracks[0].figure.start.x = number;
    board.vias[0].centre.y = number;
    board.vias[0].diameter = number;
    board.pads[0].copper[0].points[1].x = number;
    board.pads[0].centre.x = number;
}

TEST(BoardViewHarmless, AnyBoardAnyWindowAnyOrder)
{
    const std::string items = kNets + TrackItem(5, 10, 15, 10, "F.Cu") +
                              PadItem("U1", 10, 10, "rect (at 0 0) (size 2 2)") +
                              "(via (at 10 10) (size 1) (drill 0.4) (layers \"F.Cu\" \"B.Cu\") (net 1))";
    std::vector<Board> boards = {ReadItems(""), ReadItems(items), ReadItems(kOutline40x30 + items)};
    for (double number : {double(NAN), double(INFINITY), -1e300, 1e12}) {
        boards.push_back(boards[1]);
        Damage(boards.back(), number);
    }
    const TestFolder folder;
    unsigned seed = 1;
    for (const Board& board : boards) {
        StoreArchive(MakePicture(board), folder.File("archive"));
        for (bool archived : {false, true}) {
            BoardView view;
            EXPECT_EQ(view.Pixels().bmBits, nullptr);
            DoEverything(view, seed++);
            view.Show(archived ? OpenBoardFile(folder.File("archive")) : BoardFile{MakePicture(board), board});
            DoEverything(view, seed++);
            view.Resize(50, 40);
            view.Fit();
            EXPECT_EQ(Screen(view).width, 50);
            DoEverything(view, seed++);
        } // deleted with whatever is picked, found and dragged
    }
}

TEST(BoardViewHarmless, RefusedSizesLeaveTheWindow)
{
    ItemsView board("");
    board.view.Resize(INT_MAX, INT_MAX);
    EXPECT_EQ(board.view.Width(), 401);
    EXPECT_EQ(Screen(board.view).width, 401);
    board.view.Resize(-5, 7);
    EXPECT_EQ(board.view.Width(), 0);
    EXPECT_EQ(board.view.Pixels().bmBits, nullptr);
    EXPECT_FALSE(board.view.CopyPicture());
    EXPECT_THROW(board.view.Export("x.bmp"), std::runtime_error);
    board.view.Resize(401, 301);
    EXPECT_EQ(board.At(20, 15).x, 200) << "fitted again";
}

} // namespace
} // namespace viewer
