#include "interaction/CKEventHandler.h"

#include "foundation/Saturate.h"
#include "painter/CKPainter.h"

namespace {

constexpr double kZoomStep = 1.3; // of one wheel message

} // namespace

CKEventHandler::~CKEventHandler() = default;

int CKEventHandler::OnMouseWheel(unsigned int, short zDelta, CPoint)
{
    if (zDelta == 0)
        return 1;
    if (zDelta > 0)
        ZoomOut();
    else
        ZoomIn();
    // The scale may not have changed; whether that is worth a repaint is the host's to know.
    Redraw();
    return 1;
}

int CKEventHandler::OnMouseWheel(unsigned int flags, short zDelta, int x, int y)
{
    return OnMouseWheel(flags, zDelta, CPoint(x, y));
}

void CKEventHandler::OnMouseMove(unsigned int, CPoint point)
{
    CKPainter* const painter = GetPainter();
    if (!painter || !IsSetClickedMousePoint())
        return;

    // Set before the repaint, which reads it, and at every move: the host may have drawn in full in between.
    painter->EnableSimpleDraw();
    painter->MovedOriginByPhysicalDistance(SaturatedDifference(point.x, m_clickedX),
                                           SaturatedDifference(point.y, m_clickedY));
    Redraw();
    SetClickedMousePoint(point.x, point.y);
}

void CKEventHandler::OnLButtonDown(unsigned int, CPoint) {}

void CKEventHandler::OnLButtonUp(unsigned int, CPoint) {}

void CKEventHandler::OnRButtonDown(unsigned int, CPoint point)
{
    if (GetPainter())
        SetClickedMousePoint(point.x, point.y);
}

void CKEventHandler::OnRButtonUp(unsigned int, CPoint)
{
    CKPainter* const painter = GetPainter();
    if (!painter)
        return;
    InitClickedMousePoint();
    // Without a move in between the picture is still the full one.
    if (!painter->IsSimpleDraw())
        return;
    painter->DisableSimpleDraw();
    Redraw();
}

void CKEventHandler::OnDraw(CDC*) {}

CKPainter* CKEventHandler::GetPainter()
{
    return nullptr;
}

CKPickingHandler* CKEventHandler::GetPickingHandler()
{
    return nullptr;
}

void CKEventHandler::Redraw() {}

void CKEventHandler::ZoomIn()
{
    if (CKPainter* const painter = GetPainter())
        painter->ZoomInScale(kZoomStep);
}

void CKEventHandler::ZoomOut()
{
    if (CKPainter* const painter = GetPainter())
        painter->ZoomOutScale(kZoomStep, 0); // not below the coarse limit
}

void CKEventHandler::SetClickedMousePoint(int x, int y)
{
    m_clickedX = x;
    m_clickedY = y;
}
