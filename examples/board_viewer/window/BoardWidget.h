/// The part of the window that shows the board.
#pragma once

#include "view/BoardEvents.h"
#include "view/BoardView.h"

#include <QWidget>

#include <functional>

namespace viewer {

/// Hosts the board's view: gives it a window of the library as large as this widget in device pixels, forwards mouse
/// messages in the platform's form, and shows the pixels. The widget follows the screen that it is on: on one with
/// another pixel ratio the library's window gets another size.
class BoardWidget : public QWidget
{
public:
    explicit BoardWidget(QWidget* parent = nullptr);

    BoardView& View() { return view; }

    /// Called from the event loop after something changed that the view's texts tell; several changes make one call.
    void SetChanged(std::function<void()> function) { changed = std::move(function); }
    /// Called for a right click that did not drag, with its place on the screen.
    void SetContextMenu(std::function<void(QPoint)> function);
    /// What stands in the middle while there is no board.
    void SetHint(const QString& text) { hint = text; }

    CPoint Cursor() const; ///< its device pixel; the middle of the view while it is elsewhere

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void FollowScreen();
    void Changed();
    CPoint DevicePixel(QPointF point) const;
    void DrawHint(QPainter& painter);

    BoardView view;
    BoardEvents events{view};
    std::function<void()> changed;
    bool changeWaits = false;
    double resolution = 0; ///< of the screen as the view knows it
    QString hint;
};

} // namespace viewer
