#include "interaction/CKEventHandler.h"

#include "painter/CKPainter.h"
#include "support/Coordinates.h"

#include <gtest/gtest.h>

#include <climits>
#include <string>
#include <utility>

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

    std::string TakeCalls() { return std::exchange(calls, ""); }
    XY Center() { return At(painter.GetLogicalCenterCoord()); }
    XY Clicked() { return {GetClickedMousePointX(), GetClickedMousePointY()}; }

    CKPainter painter;
    bool hasPainter = true;

private:
    std::string calls;
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
    {"no limit the other way", 0.0012, -WHEEL_DELTA, true, 0.0012 * 1.3, "in full "},
    {"without a painter", 2.0, WHEEL_DELTA, false, 2.0, "out full "},
    {"without a painter, the other way", 2.0, -WHEEL_DELTA, false, 2.0, "in full "},
    {"without a painter, no turn", 2.0, 0, false, 2.0, ""},
};

TEST(CKEventHandler, WheelZoomsAboutTheCentre)
{
    for (const WheelCase& c : kWheels) {
        for (bool asTwoInts : {false, true}) {
            View view;
            view.hasPainter = c.hasPainter;
            view.painter.SetScale(c.scale);
            view.SetClickedMousePoint(3, 4);
            const int result = asTwoInts ? view.OnMouseWheel(MK_CONTROL, c.zDelta, 700, 9)
                                         : view.OnMouseWheel(MK_CONTROL, c.zDelta, CPoint(700, 9));
            EXPECT_EQ(result, 1) << c.why;
            EXPECT_EQ(view.painter.GetScale(), c.scaleAfter) << c.why;
            EXPECT_EQ(view.TakeCalls(), c.calls) << c.why;
            EXPECT_EQ(view.Center(), XY(0, 0)) << c.why;
            EXPECT_EQ(view.Clicked(), XY(3, 4)) << c.why;
        }
    }
}

TEST(CKEventHandler, DragPansInSimpleDrawingUntilTheRelease)
{
    View view;
    view.OnMouseMove(MK_RBUTTON, CPoint(50, 50));
    EXPECT_EQ(view.TakeCalls(), "") << "the flags alone make no drag";

    view.OnRButtonDown(MK_RBUTTON, CPoint(100, 100));
    EXPECT_EQ(view.Center(), XY(0, 0));
    EXPECT_EQ(view.TakeCalls(), "");
    view.OnMouseMove(0, CPoint(110, 95));
    EXPECT_EQ(view.Center(), XY(-1.25, -0.625));
    EXPECT_EQ(view.Clicked(), XY(110, 95));
    view.OnMouseMove(MK_RBUTTON, CPoint(110, 103)); // only the way from the last move counts
    EXPECT_EQ(view.Center(), XY(-1.25, 0.375));
    EXPECT_EQ(view.TakeCalls(), "simple simple ");

    view.OnRButtonUp(0, CPoint(300, 300));
    EXPECT_EQ(view.Center(), XY(-1.25, 0.375)) << "the release itself moves nothing";
    EXPECT_EQ(view.TakeCalls(), "full ");
    EXPECT_EQ(view.IsSetClickedMousePoint(), 0);
    view.OnMouseMove(MK_RBUTTON, CPoint(200, 200));
    view.OnRButtonUp(0, CPoint(200, 200));
    EXPECT_EQ(view.Center(), XY(-1.25, 0.375));
    EXPECT_EQ(view.TakeCalls(), "");
}

TEST(CKEventHandler, BoardPointUnderTheMouseFollowsIt)
{
    for (int mirror : {0, 1}) {
        View view;
        view.painter.SetBoardMirrorX(mirror);
        view.painter.SetPhysicalCenter(320, 200);
        const KPointD held = view.painter.GetLogicalCoordFromPhysicalCoord(17, 41);
        view.OnRButtonDown(MK_RBUTTON, CPoint(17, 41));
        for (CPoint at : {CPoint(18, 41), CPoint(400, 0), CPoint(0, 333), CPoint(250, -60)}) {
            view.OnMouseMove(MK_RBUTTON, at);
            EXPECT_EQ(At(view.painter.GetLogicalCoordFromPhysicalCoord(at.x, at.y)), At(held)) << mirror << " " << at.x;
        }
    }
}

TEST(CKEventHandler, ClickWithoutAMoveDoesNotRepaint)
{
    View view;
    view.OnRButtonDown(MK_RBUTTON, CPoint(0, 0)); // 0 is a point
    EXPECT_EQ(view.IsSetClickedMousePoint(), 1);
    view.OnRButtonUp(0, CPoint(0, 0));
    EXPECT_EQ(view.TakeCalls(), "");
    EXPECT_EQ(view.IsSetClickedMousePoint(), 0);
}

TEST(CKEventHandler, DragEndsLeftOfTheView)
{
    View view;
    view.OnRButtonDown(MK_RBUTTON, CPoint(8, 8));
    view.OnMouseMove(MK_RBUTTON, CPoint(-8, 8));
    view.OnMouseMove(MK_RBUTTON, CPoint(80, 8));
    EXPECT_EQ(view.Center(), XY(2, 0));
    EXPECT_EQ(view.TakeCalls(), "simple ");
    view.OnRButtonUp(0, CPoint(80, 8));
    EXPECT_EQ(view.TakeCalls(), "full ") << "the simple picture is not left behind";
}

TEST(CKEventHandler, EmptyCentreAndExtremeWays)
{
    View view;
    view.painter.SetLogicalCenterToEmpty();
    view.OnRButtonDown(MK_RBUTTON, CPoint(1, 1));
    view.OnMouseMove(MK_RBUTTON, CPoint(90, 90));
    EXPECT_EQ(view.painter.IsLogicalCenterEmpty(), 1);
    EXPECT_EQ(view.TakeCalls(), "simple ");

    view.painter.SetLogicalCenter(0.0, 0.0);
    view.SetClickedMousePoint(5, INT_MIN);
    view.OnMouseMove(MK_RBUTTON, CPoint(INT_MIN, INT_MAX));
    EXPECT_EQ(view.Center(), XY(2147483648.0 / 8, 2147483647.0 / 8)) << "the nearest distances that an int holds";
}

TEST(CKEventHandler, WithoutAPainterNothingChanges)
{
    View view;
    view.hasPainter = false;
    view.painter.EnableSimpleDraw();
    view.OnRButtonDown(MK_RBUTTON, CPoint(10, 10));
    EXPECT_EQ(view.IsSetClickedMousePoint(), 0);
    view.SetClickedMousePoint(20, 30);
    view.OnMouseMove(MK_RBUTTON, CPoint(40, 40));
    view.OnRButtonUp(0, CPoint(40, 40));
    EXPECT_EQ(view.Clicked(), XY(20, 30));
    EXPECT_EQ(view.Center(), XY(0, 0));
    EXPECT_EQ(view.painter.IsSimpleDraw(), 1);
    EXPECT_EQ(view.TakeCalls(), "");
}

TEST(CKEventHandler, BaseHooksSupplyNothing)
{
    CKEventHandler base;
    EXPECT_EQ(base.GetPainter(), nullptr);
    EXPECT_EQ(base.GetPickingHandler(), nullptr);
    EXPECT_EQ(base.OnMouseWheel(0, WHEEL_DELTA, CPoint(1, 1)), 1);
    base.SetClickedMousePoint(6, 7);
    base.OnLButtonDown(MK_LBUTTON, CPoint(1, 1));
    base.OnLButtonUp(0, CPoint(2, 2));
    base.OnDraw(nullptr);
    EXPECT_EQ(base.GetClickedMousePointX(), 6);
    EXPECT_EQ(base.GetClickedMousePointY(), 7);
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
