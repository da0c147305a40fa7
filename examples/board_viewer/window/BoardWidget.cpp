#include "BoardWidget.h"

#include <QGuiApplication>
#include <QMetaObject>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <QWindow>

#include <algorithm>
#include <climits>
#include <cmath>

namespace viewer {

namespace {

constexpr double kMillimetresPerInch = 25.4;

/// Buttons and keys held, as the platform's messages tell them.
unsigned int MessageFlags(Qt::MouseButtons buttons, Qt::KeyboardModifiers modifiers)
{
    const std::pair<bool, UINT> held[] = {{buttons.testFlag(Qt::LeftButton), MK_LBUTTON},
                                          {buttons.testFlag(Qt::RightButton), MK_RBUTTON},
                                          {buttons.testFlag(Qt::MiddleButton), MK_MBUTTON},
                                          {modifiers.testFlag(Qt::ShiftModifier), MK_SHIFT},
                                          {modifiers.testFlag(Qt::ControlModifier), MK_CONTROL}};
    unsigned int flags = 0;
    for (const auto& [isHeld, flag] : held)
        flags |= isHeld ? flag : 0;
    return flags;
}

/// Device pixels per millimetre. Screens that do not know their size, as projectors, count as what the desktop assumes.
double ResolutionOf(const QScreen& screen, double pixelRatio)
{
    const double physical = screen.physicalDotsPerInch();
    const bool believable = physical > 50 && physical < 500;
    return (believable ? physical : screen.logicalDotsPerInch()) * pixelRatio / kMillimetresPerInch;
}

} // namespace

BoardWidget::BoardWidget(QWidget* parent) : QWidget(parent)
{
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_OpaquePaintEvent); // every pixel comes from the view: nothing to erase before
    setMinimumSize(160, 120);
    view.SetRepaint([this] {
        update();
        Changed();
    });
}

void BoardWidget::SetContextMenu(std::function<void(QPoint)> function)
{
    events.SetContextMenu([this, function = std::move(function)](CPoint pixel) {
        const double ratio = devicePixelRatioF();
        function(mapToGlobal(QPointF(pixel.x / ratio, pixel.y / ratio).toPoint()));
    });
}

CPoint BoardWidget::Cursor() const
{
    const QPoint point = mapFromGlobal(QCursor::pos());
    return underMouse() && rect().contains(point) ? DevicePixel(point) : view.Middle();
}

/// Later and once, since the view may be in the middle of its work.
void BoardWidget::Changed()
{
    if (changeWaits || !changed)
        return;
    changeWaits = true;
    const auto tell = [this] {
        changeWaits = false;
        changed();
    };
    QMetaObject::invokeMethod(this, tell, Qt::QueuedConnection);
}

CPoint BoardWidget::DevicePixel(QPointF point) const
{
    const double ratio = devicePixelRatioF();
    return CPoint(int(std::floor(point.x() * ratio)), int(std::floor(point.y() * ratio)));
}

/// Gives the view the resolution of the screen and the size that the widget has in device pixels now.
void BoardWidget::FollowScreen()
{
    const double ratio = devicePixelRatioF();
    const double newResolution = ResolutionOf(*screen(), ratio);
    if (newResolution != resolution)
        view.SetScreenResolution(resolution = newResolution);
    const int newWidth = int(std::ceil(width() * ratio)), newHeight = int(std::ceil(height() * ratio));
    if (newWidth != view.Width() || newHeight != view.Height())
        view.Resize(newWidth, newHeight);
}

void BoardWidget::showEvent(QShowEvent*)
{
    const auto repaint = qOverload<>(&QWidget::update);
    connect(window()->windowHandle(), &QWindow::screenChanged, this, repaint, Qt::UniqueConnection);
}

void BoardWidget::resizeEvent(QResizeEvent*)
{
    FollowScreen();
}

void BoardWidget::paintEvent(QPaintEvent*)
{
    FollowScreen(); // the ratio changes without a resize when the window is moved to another screen
    QPainter painter(this);
    const BITMAP pixels = view.Pixels();
    if (pixels.bmBits == nullptr)
        return painter.fillRect(rect(), Qt::black);

    // Around the view's own memory, and not as const: setting the ratio would then make a copy.
    QImage image(static_cast<uchar*>(pixels.bmBits), pixels.bmWidth, pixels.bmHeight, pixels.bmWidthBytes,
                 QImage::Format_RGB32);
    image.setDevicePixelRatio(devicePixelRatioF());
    painter.drawImage(0, 0, image);
    // The view's pixels carry no opacity. Where the desktop's window has one (not under X11), fill it in.
    if (QGuiApplication::platformName().startsWith("wayland")) {
        painter.setCompositionMode(QPainter::CompositionMode_DestinationOver);
        painter.fillRect(rect(), Qt::black);
        painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    }
    if (view.File().picture.layers.empty() && !hint.isEmpty())
        DrawHint(painter);
}

void BoardWidget::DrawHint(QPainter& painter)
{
    painter.setPen(view.Layers().GetScheme() == Scheme::Dark ? QColor(170, 170, 170) : QColor(90, 90, 90));
    QFont large = font();
    large.setPointSizeF(large.pointSizeF() * 1.4);
    painter.setFont(large);
    painter.drawText(rect(), Qt::AlignCenter | Qt::TextWordWrap, hint);
}

void BoardWidget::wheelEvent(QWheelEvent* event)
{
    const int delta = std::clamp(event->angleDelta().y(), SHRT_MIN, SHRT_MAX);
    events.OnMouseWheel(MessageFlags(event->buttons(), event->modifiers()), short(delta),
                        DevicePixel(event->position()));
    Changed();
    event->accept();
}

void BoardWidget::mousePressEvent(QMouseEvent* event)
{
    const unsigned int flags = MessageFlags(event->buttons(), event->modifiers());
    const CPoint pixel = DevicePixel(event->position());
    if (event->button() == Qt::LeftButton)
        events.OnLButtonDown(flags, pixel);
    else if (event->button() == Qt::RightButton)
        events.OnRButtonDown(flags, pixel);
    else if (event->button() == Qt::MiddleButton)
        events.OnMButtonDown(flags, pixel);
    Changed();
}

void BoardWidget::mouseReleaseEvent(QMouseEvent* event)
{
    const unsigned int flags = MessageFlags(event->buttons(), event->modifiers());
    const CPoint pixel = DevicePixel(event->position());
    if (event->button() == Qt::LeftButton)
        events.OnLButtonUp(flags, pixel);
    else if (event->button() == Qt::RightButton)
        events.OnRButtonUp(flags, pixel);
    else if (event->button() == Qt::MiddleButton)
        events.OnMButtonUp(flags, pixel);
    Changed();
}

void BoardWidget::mouseMoveEvent(QMouseEvent* event)
{
    events.OnMouseMove(MessageFlags(event->buttons(), event->modifiers()), DevicePixel(event->position()));
    Changed();
}

void BoardWidget::leaveEvent(QEvent*)
{
    events.OnMouseLeave();
    Changed();
}

/// A release that happens while another window has the keyboard may not arrive.
void BoardWidget::focusOutEvent(QFocusEvent* event)
{
    QWidget::focusOutEvent(event);
    if (event->reason() == Qt::ActiveWindowFocusReason)
        events.OnCaptureLost();
}

} // namespace viewer
