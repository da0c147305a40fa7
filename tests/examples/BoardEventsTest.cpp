// The mouse in a view: the wheel, drags and clicks, through the library's hooks.
#include "ViewTesting.h"

namespace viewer {
namespace {

/// Tells which hooks were called; the view is used as ever.
class RecordingEvents : public BoardEvents
{
public:
    using BoardEvents::BoardEvents;
    void Redraw() override
    {
        ++redraws;
        BoardEvents::Redraw();
    }
    void ZoomIn() override
    {
        steps += '+';
        BoardEvents::ZoomIn();
    }
    void ZoomOut() override
    {
        steps += '-';
        BoardEvents::ZoomOut();
    }

    int redraws = 0;
    std::string steps;
};

struct EventsTest : testing::Test
{
    ItemsView board{TrackItem(5, 10, 15, 10, "F.Cu")};
    BoardView& view = board.view;
    RecordingEvents events{view};
};

TEST_F(EventsTest, WheelDeltasAreSummedToNotches)
{
    struct Case
    {
        std::vector<int> deltas;
        std::string steps;
    };
    const Case cases[] = {
        {{120}, "+"},
        {{-120}, "-"},
        {{0}, ""},
        {{60, 59}, ""},
        {{60, 60}, "+"},
        {{8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8}, "+"},
        {{360}, "+++"},
        {{100, -100, -100}, ""},
        {{-50, -50, -50, -50, -50}, "--"},
        {{32767}, std::string(273, '+')}, // 273 x 120 = 32760
    };
    for (const Case& c : cases) {
        RecordingEvents fresh(view);
        for (int delta : c.deltas)
            EXPECT_EQ(fresh.OnMouseWheel(0, short(delta), CPoint(50, 50)), 1);
        EXPECT_EQ(fresh.steps, c.steps) << c.deltas.front();
    }
}

TEST_F(EventsTest, WheelZoomsAboutTheCursor)
{
    for (const CPoint& cursor : {CPoint(0, 0), CPoint(400, 300), CPoint(123, 45)}) {
        const KPointD before = *view.BoardPoint(cursor);
        const double scale = view.Painter()->GetScale();
        events.OnMouseWheel(0, WHEEL_DELTA, cursor.x, cursor.y); // the overload reaches the same rule
        EXPECT_NEAR(view.Painter()->GetScale(), scale * 1.3, 1e-12) << "away is nearer";
        events.OnMouseWheel(0, WHEEL_DELTA, cursor);
        EXPECT_NEAR(view.BoardPoint(cursor)->x, before.x, 1e-9);
        EXPECT_NEAR(view.BoardPoint(cursor)->y, before.y, 1e-9);
    }
}

/// The picture follows the mouse exactly wherever it goes, as outlines until the button is released.
TEST_F(EventsTest, DragPansAlsoPastTheEdges)
{
    for (bool middle : {false, true}) {
        const CPoint from(200, 150);
        const KPointD grabbed = *view.BoardPoint(from);
        middle ? events.OnMButtonDown(0, from) : events.OnRButtonDown(0, from);
        EXPECT_EQ(view.Painter()->IsSimpleDraw(), 0);
        for (const CPoint& to : {CPoint(150, 140), CPoint(-70, 140), CPoint(-300, -20), CPoint(900, 800)}) {
            events.OnMouseMove(0, to);
            EXPECT_TRUE(events.IsDragging());
            EXPECT_EQ(view.Painter()->IsSimpleDraw(), 1);
            EXPECT_NEAR(view.BoardPoint(to)->x, grabbed.x, 1e-9) << to.x;
            EXPECT_NEAR(view.BoardPoint(to)->y, grabbed.y, 1e-9) << to.x;
        }
        events.OnMouseMove(0, CPoint(190, 150));
        const int redraws = events.redraws;
        const Screen outlines(view);
        middle ? events.OnMButtonUp(0, CPoint(190, 150)) : events.OnRButtonUp(0, CPoint(190, 150));
        EXPECT_EQ(view.Painter()->IsSimpleDraw(), 0);
        EXPECT_EQ(events.redraws, redraws + 1);
        EXPECT_GT(Screen(view).Differences(outlines), 0) << "drawn in full again";
        events.OnMouseMove(0, CPoint(10, 10));
        EXPECT_NEAR(view.BoardPoint(CPoint(190, 150))->x, grabbed.x, 1e-9) << "the drag is over";
    }
}

TEST_F(EventsTest, OutlinesLeaveTheInsideOpen)
{
    for (int i = 0; i < 8; ++i)
        view.ZoomIn(board.At(10, 10)); // the track is some 37 pixels wide
    const CPoint inside = board.At(10, 10), edge = board.At(10, 10.25);
    const uint32_t copper = AsPixel(LayerColour("F.Cu"));
    EXPECT_EQ(Screen(view).At(inside), copper);
    view.Painter()->EnableSimpleDraw();
    view.Redraw();
    const Screen outlines(view);
    EXPECT_EQ(outlines.At(inside), 0u);
    int onEdge = 0;
    for (int dy = -2; dy <= 2; ++dy)
        onEdge += outlines.At(CPoint(edge.x, edge.y + dy)) == copper;
    EXPECT_EQ(onEdge, 1);
}

TEST_F(EventsTest, RightClickWithoutMovementAsksForTheMenu)
{
    std::vector<CPoint> menus;
    events.SetContextMenu([&](CPoint point) { menus.push_back(point); });
    const auto click = [&](CPoint from, CPoint to) {
        events.OnRButtonDown(0, from);
        events.OnMouseMove(0, to);
        events.OnRButtonUp(0, to);
    };
    const KPointD before = *view.BoardPoint(CPoint(0, 0));
    click(CPoint(100, 90), CPoint(100, 90));
    click(CPoint(100, 90), CPoint(103, 87)); // a hand that trembles
    ASSERT_EQ(menus.size(), 2u);
    EXPECT_EQ(menus[0].x, 100);
    EXPECT_EQ(view.BoardPoint(CPoint(0, 0))->x, before.x);
    EXPECT_EQ(events.redraws, 0);

    click(CPoint(100, 90), CPoint(104, 90));
    events.OnRButtonDown(0, CPoint(100, 90)); // there and back is a drag too
    events.OnMouseMove(0, CPoint(150, 90));
    events.OnMouseMove(0, CPoint(100, 90));
    events.OnRButtonUp(0, CPoint(100, 90));
    events.OnMButtonDown(0, CPoint(100, 90));
    events.OnMButtonUp(0, CPoint(100, 90));
    events.OnRButtonUp(0, CPoint(100, 90)); // went down elsewhere
    EXPECT_EQ(menus.size(), 2u);
}

TEST_F(EventsTest, OneButtonDragsAtATime)
{
    events.OnRButtonDown(0, CPoint(100, 100));
    events.OnMouseMove(0, CPoint(120, 100));
    events.OnMButtonDown(0, CPoint(120, 100));
    events.OnMButtonUp(0, CPoint(120, 100));
    EXPECT_TRUE(events.IsDragging());
    events.OnCaptureLost();
    EXPECT_FALSE(events.IsDragging());
    EXPECT_EQ(view.Painter()->IsSimpleDraw(), 0);
    events.OnCaptureLost();
    EXPECT_FALSE(events.IsDragging());
}

TEST_F(EventsTest, LeftClickPicksAndShiftMeasures)
{
    events.OnLButtonDown(0, board.At(10, 10));
    EXPECT_NE(view.PickedElement(), nullptr);
    EXPECT_EQ(events.GetPickingHandler()->IsPick(), 1);
    events.OnLButtonDown(MK_SHIFT, board.At(10, 10));
    EXPECT_EQ(view.SecondElement(), nullptr) << "there is no other";
    EXPECT_NE(view.PickedElement(), nullptr);
    events.OnLButtonDown(0, board.At(30, 25));
    EXPECT_EQ(view.PickedElement(), nullptr);
}

} // namespace
} // namespace viewer
