#include "BoardEvents.h"

#include "BoardView.h"

#include <algorithm>
#include <cstdlib>

namespace viewer {

namespace {

/// Far beyond any screen, and small enough that sums and differences of positions fit in an int.
constexpr int kFarthest = 1 << 20;

/// The library takes a recorded point left of the view for none, which would end a drag there. Points are handed to it
/// moved to the right by more than a screen; only their differences count.
CPoint ForLibrary(CPoint point)
{
    return CPoint(point.x + 2 * kFarthest, point.y);
}

CPoint Sane(CPoint point)
{
    return CPoint(std::clamp<int>(point.x, -kFarthest, kFarthest), std::clamp<int>(point.y, -kFarthest, kFarthest));
}

} // namespace

BoardEvents::BoardEvents(BoardView& target) : view(target) {}

int BoardEvents::OnMouseWheel(unsigned int, short zDelta, CPoint point)
{
    cursor = Sane(point);
    wheel += zDelta;
    for (; wheel >= WHEEL_DELTA; wheel -= WHEEL_DELTA)
        ZoomIn();
    for (; wheel <= -WHEEL_DELTA; wheel += WHEEL_DELTA)
        ZoomOut();
    view.SetCursor(cursor);
    return 1;
}

void BoardEvents::OnMouseMove(unsigned int flags, CPoint point)
{
    cursor = Sane(point);
    const int way = std::max(std::abs(cursor.x - pressed.x), std::abs(cursor.y - pressed.y));
    if (pressedButton != 0 && way > kTremble)
        dragging = true;
    if (dragging)
        CKEventHandler::OnMouseMove(flags, ForLibrary(cursor)); // from where the button went down: nothing is lost
    view.SetCursor(cursor);
}

void BoardEvents::OnLButtonDown(unsigned int flags, CPoint point)
{
    if ((flags & MK_SHIFT) != 0)
        view.PickSecond(Sane(point));
    else
        view.Pick(Sane(point));
}

void BoardEvents::OnRButtonDown(unsigned int flags, CPoint point)
{
    Press(MK_RBUTTON, flags, point);
}

void BoardEvents::OnRButtonUp(unsigned int flags, CPoint point)
{
    if (Release(MK_RBUTTON, flags, point) && contextMenu)
        contextMenu(Sane(point));
}

void BoardEvents::OnMButtonDown(unsigned int flags, CPoint point)
{
    Press(MK_MBUTTON, flags, point);
}

void BoardEvents::OnMButtonUp(unsigned int flags, CPoint point)
{
    Release(MK_MBUTTON, flags, point);
}

void BoardEvents::OnMouseLeave()
{
    view.ClearCursor();
}

void BoardEvents::OnCaptureLost()
{
    Release(pressedButton, 0, cursor);
}

void BoardEvents::OnDraw(CDC* dc)
{
    view.Draw(dc);
}

CKPainter* BoardEvents::GetPainter()
{
    return view.Painter();
}

CKPickingHandler* BoardEvents::GetPickingHandler()
{
    return view.Picker();
}

void BoardEvents::Redraw()
{
    view.Redraw();
}

void BoardEvents::ZoomIn()
{
    view.ZoomIn(cursor);
}

void BoardEvents::ZoomOut()
{
    view.ZoomOut(cursor);
}

/// While one button is down another one does nothing.
void BoardEvents::Press(int button, unsigned int flags, CPoint point)
{
    if (pressedButton != 0)
        return;
    pressedButton = button;
    cursor = pressed = Sane(point);
    CKEventHandler::OnRButtonDown(flags, ForLibrary(pressed));
}

/// True for the end of a click that did not drag.
bool BoardEvents::Release(int button, unsigned int flags, CPoint point)
{
    if (button == 0 || button != pressedButton)
        return false;
    const bool clicked = !dragging;
    pressedButton = 0;
    dragging = false;
    CKEventHandler::OnRButtonUp(flags, ForLibrary(Sane(point)));
    return clicked;
}

} // namespace viewer
