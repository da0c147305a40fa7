#include "interaction/CKEventHandler.h"

#include "painter/CKPainter.h"
#include "support/Coordinates.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <climits>
#include <string>

namespace {

constexpr double kScale = 2.0;
constexpr double kPixelsPerMM = 4.0; // 8 pixels to the millimetre, so that pixels are exact in millimetres

/// A view without a window that writes down what is asked of its host.
class View : public CKEventHandler
{
public:
    using CKEventHandler::OnMouseWheel;

    View()
    {
        painter.SetPixcelPerMM(kPixelsPerMM);
        painter.SetScale(kScale);
        painter.SetLogicalCenter(0.0, 0.0);
    }
    CKPainter* GetPainter() override { return hasPainter ? &painter : nullptr; }
    void Redraw() override { calls += painter.IsSimpleDraw() ? "simple " : "full "; }
    void ZoomIn() override
    {
        calls += "in ";
        CKEventHandler::ZoomIn();
    }
    void ZoomOut() override
    {
        calls += "out ";
        CKEventHandler::ZoomOut();
    }

    void Press(int x, int y) { OnRButtonDown(0, CPoint(x, y)); }
    void Move(int x, int y) { OnMouseMove(0, CPoint(x, y)); }
    void Release(int x, int y) { OnRButtonUp(0, CPoint(x, y)); }

    XY Center() { return At(painter.GetLogicalCenterCoord()); }

    CKPainter painter;
    bool hasPainter = true;
    std::string calls; ///< in their order; a repaint by whether the painter's drawing was simple
};

struct WheelCase
{
    const char* why;
    double scale;
    short zDelta;
    bool hasPainter;
    double scaleAfter;
    const char* calls;
};

const WheelCase kWheels[] = {
    {"away from the user zooms out", 2.0, WHEEL_DELTA, true, 2.0 / 1.3, "out full "},
    {"two notches in one message are one step", 2.0, -2 * WHEEL_DELTA, true, 2.0 * 1.3, "in full "},
    {"the least turn is a whole step", 2.0, 1, true, 2.0 / 1.3, "out full "},
    {"the most that a message holds", 2.0, SHRT_MIN, true, 2.0 * 1.3, "in full "},
    {"no turn", 2.0, 0, true, 2.0, ""},
    {"at the limit the scale stays, the repaint comes", 0.0012, WHEEL_DELTA, true, 0.0012, "out full "},
    {"without a painter", 2.0, WHEEL_DELTA, false, 2.0, "out full "},
};

TEST(CKEventHandler, WheelZoomsAboutTheCentre)
{
    for (const WheelCase& c : kWheels) {
        for (bool asTwoInts : {false, true}) {
            View view;
            view.hasPainter = c.hasPainter;
            view.painter.SetScale(c.scale);
            const int result = asTwoInts ? view.OnMouseWheel(MK_CONTROL, c.zDelta, 700, 9)
                                         : view.OnMouseWheel(MK_CONTROL, c.zDelta, CPoint(700, 9));
            EXPECT_EQ(result, 1) << c.why;
            EXPECT_EQ(view.painter.GetScale(), c.scaleAfter) << c.why;
            EXPECT_EQ(view.calls, c.calls) << c.why;
            EXPECT_EQ(view.Center(), XY(0, 0)) << c.why;
            EXPECT_EQ(view.IsSetClickedMousePoint(), 0) << c.why;
        }
    }
}

struct DragCase
{
    const char* why;
    void (*mouse)(View& view);
    XY center; // 1 mm is 8 pixels
    const char* calls;
    int isDragging;
};

const DragCase kDrags[] = {
    {"the flags alone make no drag", [](View& v) { v.OnMouseMove(MK_RBUTTON, CPoint(9, 9)); }, {0, 0}, "", 0},
    {"a press alone moves nothing, and 0 is a point", [](View& v) { v.Press(0, 0); }, {0, 0}, "", 1},
    {"to the right and up", [](View& v) { v.Press(100, 100), v.Move(110, 95); }, {-1.25, -0.625}, "simple ", 1},
    {"only the way from the last move counts",
     [](View& v) { v.Press(100, 100), v.Move(110, 95), v.Move(110, 103); },
     {-1.25, 0.375},
     "simple simple ",
     1},
    {"a release moves nothing itself and ends the drag",
     [](View& v) { v.Press(0, 0), v.Move(8, 0), v.Release(80, 80), v.Move(160, 160), v.Release(0, 0); },
     {-1, 0},
     "simple full ",
     0},
    {"a click", [](View& v) { v.Press(3, 3), v.Release(50, 50); }, {0, 0}, "", 0},
    {"left of the view the drag ends, the release still repaints",
     [](View& v) { v.Press(8, 8), v.Move(-8, 8), v.Move(80, 8), v.Release(80, 8); },
     {2, 0},
     "simple full ",
     0},
    {"an empty centre stays",
     [](View& v) { v.painter.SetLogicalCenterToEmpty(), v.Press(1, 1), v.Move(9, 9); },
     {DBL_MAX, 0},
     "simple ",
     1},
    {"the nearest distances that an int holds",
     [](View& v) { v.SetClickedMousePoint(5, INT_MIN), v.Move(INT_MIN, INT_MAX); },
     {2147483648.0 / 8, 2147483647.0 / 8},
     "simple ",
     0},
    {"no press without a painter", [](View& v) { v.hasPainter = false, v.Press(10, 10); }, {0, 0}, "", 0},
    {"no move and no release without a painter",
     [](View& v) { v.Press(10, 10), v.hasPainter = false, v.Move(40, 40), v.Release(40, 40); },
     {0, 0},
     "",
     1},
};

TEST(CKEventHandler, DragPansInSimpleDrawingUntilTheRelease)
{
    for (const DragCase& c : kDrags) {
        View view;
        c.mouse(view);
        EXPECT_EQ(view.Center(), c.center) << c.why;
        EXPECT_EQ(view.calls, c.calls) << c.why;
        EXPECT_EQ(view.IsSetClickedMousePoint(), c.isDragging) << c.why;
    }
}

TEST(CKEventHandler, BoardPointUnderTheMouseFollowsIt)
{
    for (int mirror : {0, 1}) {
        View view;
        view.painter.SetBoardMirrorX(mirror);
        view.painter.SetPhysicalCenter(320, 200);
        const KPointD held = view.painter.GetLogicalCoordFromPhysicalCoord(17, 41);
        view.Press(17, 41);
        for (CPoint at : {CPoint(18, 41), CPoint(400, 0), CPoint(0, 333), CPoint(250, -60)}) {
            view.Move(at.x, at.y);
            EXPECT_EQ(At(view.painter.GetLogicalCoordFromPhysicalCoord(at.x, at.y)), At(held)) << mirror << " " << at.x;
        }
    }
}

TEST(CKEventHandler, BaseHooksSupplyNothing)
{
    CKEventHandler base;
    EXPECT_EQ(base.GetPainter(), nullptr);
    EXPECT_EQ(base.GetPickingHandler(), nullptr);
    EXPECT_EQ(base.OnMouseWheel(0, WHEEL_DELTA, CPoint(1, 1)), 1);
    base.OnLButtonDown(MK_LBUTTON, CPoint(1, 1));
    base.OnLButtonUp(0, CPoint(2, 2));
    base.OnDraw(nullptr);
    EXPECT_EQ(base.IsSetClickedMousePoint(), 0);
}

TEST(CKEventHandler, PointAndNumberAreCopied)
{
    CKEventHandler handler;
    EXPECT_EQ(handler.GetClickedMousePointX(), -1);
    handler.SetClickedMousePoint(-5, 10);
    EXPECT_EQ(handler.IsSetClickedMousePoint(), 0);
    handler.SetClickedMousePoint(12, 34);
    handler.InitClickedMousePoint();
    EXPECT_EQ(handler.GetClickedMousePointX(), -1);
    EXPECT_EQ(handler.GetClickedMousePointY(), 34);

    handler.SetClickedMousePoint(56, -78);
    const CKEventHandler built(handler);
    CKEventHandler assigned;
    EXPECT_NE(assigned.GetObjectNumber(), handler.GetObjectNumber());
    assigned = handler;
    for (CKEventHandler copy : {built, assigned}) {
        EXPECT_EQ(copy.GetObjectNumber(), handler.GetObjectNumber());
        EXPECT_EQ(copy.GetClickedMousePointX(), 56);
        EXPECT_EQ(copy.GetClickedMousePointY(), -78);
    }
}

} // namespace
