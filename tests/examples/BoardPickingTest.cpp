// Picking in a view: which elements a click finds, in which order, and what is shown of it.
#include "ViewTesting.h"

#include <algorithm>
#include <random>

namespace viewer {
namespace {

using Kind = BoardElement::Kind;

const std::string kNets = "(net 1 \"GND\") (net 2 \"CLK\")";

/// Three elements above each other at (10, 10), one more at (30, 20).
const std::string kStack = kNets + TrackItem(5, 10, 15, 10, "F.Cu") + TrackItem(10, 5, 10, 15, "B.Cu", 2) +
                           "(via (at 10 10) (size 1) (drill 0.4) (layers \"F.Cu\" \"B.Cu\") (net 1))" +
                           TrackItem(28, 20, 32, 20, "F.Cu", 2);

std::string PickedName(BoardView& view)
{
    const BoardElement* const element = view.PickedElement();
    if (!element)
        return "nothing";
    if (element->kind != Kind::Track)
        return element->kind == Kind::Via ? "via" : "pad";
    return view.File().board->layers.Name(view.File().board->tracks[size_t(element->item)].layer);
}

TEST(BoardPicking, ClicksGoThroughTheStackFromTheTop)
{
    ItemsView board(kStack);
    struct Case
    {
        bool fromBack;
        std::vector<std::string> names;
    };
    for (const Case& c : {Case{false, {"via", "F.Cu", "B.Cu", "via"}}, Case{true, {"via", "B.Cu", "F.Cu", "via"}}}) {
        if (c.fromBack)
            board.view.FlipAbout(board.view.Middle());
        board.view.ClearPick();
        for (const std::string& name : c.names) {
            board.view.Pick(board.At(10, 10));
            EXPECT_EQ(PickedName(board.view), name) << "from back " << c.fromBack;
        }
    }
    board.view.Pick(board.At(30, 20));
    board.view.Pick(board.At(10, 10));
    EXPECT_EQ(PickedName(board.view), "via") << "another place begins anew";
    board.view.Pick(board.At(20, 25));
    EXPECT_EQ(PickedName(board.view), "nothing");
}

TEST(BoardPicking, RecordsTellParentAndChildAndOnlyOneIsPicked)
{
    ItemsView board(kStack + PadItem("U7", 20, 20, "rect (at 0 0) (size 2 2)"));
    board.view.Pick(board.At(10, 10));
    board.view.Pick(board.At(10, 10)); // the track on the front
    CKPcbElementInfoArray& records = *board.view.Picker()->GetPickingInfoArray();
    ASSERT_EQ(records.GetSize(), 3);
    int picked = 0;
    for (int i = 0; i < 3; ++i) {
        auto* const owner = static_cast<BoardOwner*>(records.GetAt(i)->GetParent());
        ASSERT_NE(owner, nullptr);
        EXPECT_EQ(owner->item.kind, NamedItem::Kind::Net);
        picked += static_cast<BoardElement*>(records.GetAt(i)->GetChild())->IsPicked();
    }
    EXPECT_EQ(picked, 1);
    EXPECT_EQ(records.GetAt(1)->GetChild(), board.view.PickedElement());
    EXPECT_NEAR(records.GetAt(0)->GetPeekingX(), 10, 0.06) << "within half a pixel";
    EXPECT_NEAR(records.GetAt(0)->GetPeekingY(), -10, 0.06);

    BoardElement* const before = board.view.PickedElement();
    board.view.Pick(board.At(20, 20));
    EXPECT_EQ(before->IsPicked(), 0);
    ASSERT_EQ(board.view.Picker()->GetPickingInfoArray()->GetSize(), 1);
    CKPcbElementInfo& pad = *board.view.Picker()->GetPickingInfoArray()->GetAt(0);
    EXPECT_EQ(static_cast<BoardOwner*>(pad.GetParent())->item.name, "U7") << "a pad belongs to its footprint";
}

TEST(BoardPicking, TakesTheNearestFirst)
{
    // Edges at y 10.25 and 10.75, that is 4.5 pixels apart.
    ItemsView board(kNets + TrackItem(5, 10, 15, 10, "B.Cu") + TrackItem(5, 11, 15, 11, "F.Cu", 2));
    const CPoint upperEdge = board.At(10, 10.25), lowerEdge = board.At(10, 10.75);
    ASSERT_GE(lowerEdge.y - upperEdge.y, 4);
    ASSERT_LE(lowerEdge.y - upperEdge.y, 5) << "so that both are within the tolerance of a pixel in between";
    board.view.Pick(CPoint(upperEdge.x, upperEdge.y + 1));
    EXPECT_EQ(PickedName(board.view), "B.Cu") << "although it is drawn below";
    board.view.Pick(CPoint(upperEdge.x, lowerEdge.y - 1));
    EXPECT_EQ(PickedName(board.view), "F.Cu");
}

TEST(BoardPicking, ToleranceIsThreePixelsAtEveryZoom)
{
    ItemsView board(PadItem("U1", 20, 15, "rect (at 0 0) (size 2 2)"));
    for (int steps = 0; steps < 18; ++steps) {
        const CPoint edge = board.At(21, 15);
        if (edge.x + 5 < board.view.Width()) {
            board.view.Pick(CPoint(edge.x + 2, edge.y));
            EXPECT_EQ(PickedName(board.view), "pad") << steps;
            board.view.Pick(CPoint(edge.x + 4, edge.y)); // pixels are rounded, which can be half of one
            EXPECT_EQ(PickedName(board.view), "nothing") << steps;
        }
        board.view.ZoomIn(CPoint(edge.x, edge.y));
    }
}

/// Every pad of a board is found in its middle, at every zoom the same: what lies on top there, by a look at all.
TEST(BoardPicking, SamePickAtEveryZoom)
{
    BoardView view;
    view.Resize(800, 600);
    view.Show(OpenBoardFile(KOLM_VIEWER_BOARD));
    const Board& board = *view.File().board;
    ASSERT_GT(board.pads.size(), 10u);
    const auto pickAt = [&](KPointD point) {
        const KPoint pixel = view.Painter()->GetTranslatedPhysicalCoord(point.x, point.y);
        view.ClearPick();
        view.Pick(CPoint(pixel.x, pixel.y));
        return view.PickedElement();
    };
    for (const Pad& pad : board.pads) {
        view.Fit();
        std::vector<const BoardElement*> picks;
        for (int zoom = 0; zoom < 4; ++zoom) {
            const BoardElement* const element = pickAt(pad.centre);
            ASSERT_NE(element, nullptr);
            EXPECT_EQ(element->DistanceTo(pad.centre), 0);
            picks.push_back(element);
            const KPoint pixel = view.Painter()->GetTranslatedPhysicalCoord(pad.centre.x, pad.centre.y);
            for (int step = 0; step < 5; ++step)
                view.ZoomIn(CPoint(pixel.x, pixel.y));
        }
        for (const BoardElement* pick : picks)
            EXPECT_EQ(pick, picks.front()) << "pad at " << pad.centre.x << ", " << pad.centre.y;
    }
}

TEST(BoardPicking, FindsOnlyVisibleElements)
{
    ItemsView board(kStack);
    board.view.Pick(board.At(10, 10));
    board.view.Pick(board.At(10, 10));
    ASSERT_EQ(PickedName(board.view), "F.Cu");
    board.view.SetLayerVisible(board.view.Layers().Find("F.Cu"), false);
    EXPECT_EQ(PickedName(board.view), "nothing") << "hidden with its layer";
    board.view.Pick(board.At(7, 10));
    EXPECT_EQ(PickedName(board.view), "nothing");
    board.view.Pick(board.At(10, 10));
    EXPECT_EQ(PickedName(board.view), "via") << "it is on the back too";
    board.view.Pick(board.At(10, 10));
    EXPECT_EQ(PickedName(board.view), "B.Cu");
}

/// The tree against a look at all boxes.
TEST(ElementIndex, FindsWhatALookAtAllFinds)
{
    std::mt19937 random(7);
    std::uniform_real_distribution<double> place(-50, 50), size(0, 8);
    for (size_t count : {0u, 1u, 15u, 16u, 17u, 300u, 1000u}) {
        std::vector<Box> boxes;
        for (size_t i = 0; i < count; ++i) {
            const double x = place(random), y = place(random);
            boxes.push_back({x, y, x + size(random), y + size(random)});
        }
        const ElementIndex index(boxes);
        for (int query = 0; query < 50; ++query) {
            const double x = place(random), y = place(random), s = size(random);
            const Box box = query == 0 && count > 0 ? boxes[0] : Box{x, y, x + s, y + s};
            std::vector<uint32_t> expected;
            for (uint32_t i = 0; i < count; ++i) {
                const Box& b = boxes[i];
                if (b.left <= box.right && b.right >= box.left && b.bottom <= box.top && b.top >= box.bottom)
                    expected.push_back(i);
            }
            EXPECT_EQ(index.Find(box), expected) << count << " boxes";
        }
        EXPECT_TRUE(index.Find({NAN, NAN, NAN, NAN}).empty());
    }
}

// ---- Overlays

/// The overlay inverts the element's pixels and no others, and goes without a trace. A mark in the saved frame tells
/// that the board is not drawn again.
TEST(PickOverlay, CoversTheElementAndGoesWithoutADrawing)
{
    ItemsView board(kStack + PadItem("U7", 20, 20, "rect (at 0 0) (size 2 2)"));
    const Screen before(board.view);
    const auto takeAway = [&](int way) {
        if (way == 0)
            board.view.ClearPick();
        else
            board.view.Pick(board.At(35, 3)); // nothing there
    };
    for (int way : {0, 1}) {
        board.view.Pick(board.At(20, 20));
        const Screen picked(board.view);
        const CPoint from = board.At(19, 19), to = board.At(21, 21);
        for (int y = 0; y < picked.height; ++y) {
            for (int x = 0; x < picked.width; ++x) {
                const bool inside = x > from.x && x < to.x && y > from.y && y < to.y;
                const bool near = x >= from.x - 1 && x <= to.x + 1 && y >= from.y - 1 && y <= to.y + 1;
                const bool changed = picked.At(CPoint(x, y)) != before.At(CPoint(x, y));
                ASSERT_TRUE(inside ? changed : near || !changed) << x << ", " << y;
            }
        }
        takeAway(way);
        EXPECT_EQ(Screen(board.view).Differences(before), 0);

        board.view.Pick(board.At(20, 20));
        board.view.Pixels();
        board.view.Painter()->GetSavedDC()->SetPixel(0, 0, 0x123456);
        takeAway(way);
        const Screen marked(board.view);
        EXPECT_EQ(marked.At(CPoint(0, 0)), AsPixel(0x123456));
        EXPECT_EQ(marked.Differences(before), 1);
        board.view.Redraw();
        EXPECT_EQ(Screen(board.view).Differences(before), 0);
    }
}

/// What is painted twice by exclusive-or disappears; elements of a net lie over each other at every joint.
TEST(PickOverlay, UnitesWhatOverlaps)
{
    ItemsView board(kNets + TrackItem(5, 10, 15, 10, "F.Cu") + TrackItem(15, 10, 15, 20, "F.Cu") +
                    "(via (at 15 10) (size 1.5) (drill 0.4) (layers \"F.Cu\" \"B.Cu\") (net 1))");
    ASSERT_EQ(board.view.Find("GND").size(), 1u);
    ASSERT_TRUE(board.view.ShowMatch(0));
    const Screen picked(board.view);
    const CPoint points[] = {board.At(15, 10), board.At(14.8, 10), board.At(15, 10.5), board.At(8, 10)};
    board.view.ClearPick();
    const Screen plain(board.view);
    for (const CPoint& point : points)
        EXPECT_EQ(picked.At(point), plain.At(point) ^ 0xC0C0C0u) << point.x << ", " << point.y;
}

/// Also what is smaller than a pixel is marked.
TEST(PickOverlay, ShowsTheSmallestElement)
{
    ItemsView board(PadItem("U7", 20, 20, "circle (at 0 0) (size 0.02 0.02)"));
    const Screen before(board.view);
    board.view.Pick(board.At(20, 20));
    EXPECT_GE(Screen(board.view).Differences(before), 4);
}

} // namespace
} // namespace viewer
