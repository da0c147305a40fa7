/// What the mouse does in the view of a board: the library's event handler as a host derives it.
#pragma once

#include "interaction/CKEventHandler.h"

#include <functional>

namespace viewer {

class BoardView;

/// Forwards mouse messages to a view. Points are device pixels of the view and may be anything, also outside of it.
/// The flags are the platform's MK_... bits.
class BoardEvents : public CKEventHandler
{
public:
    /// Nearer than this many pixels to where a button went down, a move is a tremble and no drag.
    static constexpr int kTremble = 3;

    /// The view is the caller's and has to outlive the handler.
    explicit BoardEvents(BoardView& view);

    using CKEventHandler::OnMouseWheel;

    /// Away from the user (zDelta > 0) is nearer, about the cursor. Trackpads send many small deltas: they are summed,
    /// and each full notch of 120 is one step. The library's own rule, one step per message about the centre and away
    /// is farther, suits neither what users of board viewers are used to nor trackpads.
    int OnMouseWheel(unsigned int flags, short zDelta, CPoint point) override;
    void OnMouseMove(unsigned int flags, CPoint point) override;
    /// Picks; with MK_SHIFT the second element of a measurement.
    void OnLButtonDown(unsigned int flags, CPoint point) override;
    void OnRButtonDown(unsigned int flags, CPoint point) override;
    void OnRButtonUp(unsigned int flags, CPoint point) override;
    void OnMButtonDown(unsigned int flags, CPoint point); ///< drags like the right button
    void OnMButtonUp(unsigned int flags, CPoint point);
    void OnMouseLeave(); ///< the cursor is no longer over the view
    /// The button's release will not arrive any more (capture lost, window deactivated): ends a drag.
    void OnCaptureLost();
    void OnDraw(CDC* dc) override; ///< brings the view's pixels up to date, see BoardView::Draw
    CKPainter* GetPainter() override;
    CKPickingHandler* GetPickingHandler() override;
    void Redraw() override;
    void ZoomIn() override;  ///< about the cursor
    void ZoomOut() override; ///< about the cursor

    /// Called for a right click that did not drag, with its pixel.
    void SetContextMenu(std::function<void(CPoint)> function) { contextMenu = std::move(function); }
    bool IsDragging() const { return dragging; }

private:
    void Press(int button, unsigned int flags, CPoint point);
    bool Release(int button, unsigned int flags, CPoint point);

    BoardView& view;
    std::function<void(CPoint)> contextMenu;
    CPoint cursor;
    CPoint pressed;
    int pressedButton = 0; ///< its MK_... bit, 0 for none
    bool dragging = false;
    int wheel = 0; ///< delta that has not become a step yet
};

} // namespace viewer
