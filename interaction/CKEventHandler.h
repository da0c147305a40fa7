#pragma once

#include "KolmApi.h"

#include "foundation/CKObject.h"

#include <afxwin.h>

class CKPainter;
class CKPickingHandler;

/// Turns the mouse messages of a view into navigation: the wheel zooms, a drag with the right button pans. A host
/// derives from it, forwards its view's messages and overrides the hooks GetPainter, GetPickingHandler and Redraw.
///
/// Points are client pixels, x right and y down; the flags of a message (buttons and keys held) are ignored. Of the
/// painter only scale, logical centre and simple-draw flag change. Nothing but Redraw repaints.
///
/// The one state is the clicked mouse point. It is recorded while its x is not negative, and while it is, every mouse
/// move pans. A drag therefore ends at a move left of the client area: the picture stays there, in simple drawing,
/// until the button is released. A host that captures the mouse keeps such moves away.
class KOLM_API CKEventHandler : public CKObject
{
public:
    /// Takes the next object number; no point is recorded.
    CKEventHandler() = default;
    CKEventHandler(const CKEventHandler& other) = default; ///< object number and recorded point are the source's
    CKEventHandler& operator=(const CKEventHandler& other) = default; ///< the same

    // The virtual operations, in the order of their slots.

    ~CKEventHandler() override;
    /// Zooms by one step, however far the wheel was turned, about the view's centre: out for zDelta > 0, in for
    /// zDelta < 0, and repaints, also when the painter refused or there is none. 0 does nothing. Always returns 1.
    virtual int OnMouseWheel(unsigned int flags, short zDelta, CPoint point);
    /// While a point is recorded: pans by the way from it to `point` in simple drawing, repaints, and records `point`.
    virtual void OnMouseMove(unsigned int flags, CPoint point);
    virtual void OnLButtonDown(unsigned int flags, CPoint point); ///< host hook; here nothing
    virtual void OnLButtonUp(unsigned int flags, CPoint point);   ///< host hook; here nothing
    /// Records `point`, from which a drag starts; not without a painter.
    virtual void OnRButtonDown(unsigned int flags, CPoint point);
    /// Forgets the recorded point and, after a drag, leaves simple drawing and repaints in full; not without a painter.
    virtual void OnRButtonUp(unsigned int flags, CPoint point);
    virtual void OnDraw(CDC* dc); ///< host hook; here nothing
    /// Host hook: the painter of the view, which stays the host's. Here null, which makes all messages but the wheel's
    /// repaint do nothing.
    virtual CKPainter* GetPainter();
    /// Host hook: what picks in the view; stays the host's. Here null.
    virtual CKPickingHandler* GetPickingHandler();
    virtual void Redraw();  ///< host hook: repaints the view; here nothing
    virtual void ZoomIn();  ///< multiplies the painter's scale by 1.3; does not repaint
    virtual void ZoomOut(); ///< divides it by 1.3 unless that falls below 0.001; does not repaint

    /// The same as the virtual one, which it calls. A host that overrides that one hides this one unless it has a
    /// using-declaration.
    int OnMouseWheel(unsigned int flags, short zDelta, int x, int y);

    /// Records a point, where the next mouse move pans from. A negative x counts as no point.
    void SetClickedMousePoint(int x, int y);
    void InitClickedMousePoint() { m_clickedX = -1; }                ///< forgets the point; its y stays readable
    int IsSetClickedMousePoint() { return m_clickedX >= 0 ? 1 : 0; } ///< 1 while a point is recorded, else 0
    int GetClickedMousePointX() { return m_clickedX; }               ///< negative when no point is recorded
    int GetClickedMousePointY() { return m_clickedY; } ///< without meaning when no point is recorded; 0 at first

private:
    int m_clickedX = -1;
    int m_clickedY = 0;
};
