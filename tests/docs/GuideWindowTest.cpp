/// The program of docs/guide.md, run as it stands: its window is looked at and then used.
#define main GuideMain
#include "guide_program.cpp"
#undef main

#include <gtest/gtest.h>

#include <cmath>

namespace {

/// The number of pixels in the track's colour, and the rows of the first and last.
struct Drawn
{
    int count = 0;
    int top = -1;
    int bottom = -1;
};

Drawn DrawnIn(QWidget& window)
{
    const QImage picture = window.grab().toImage();
    Drawn drawn;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (picture.pixel(x, y) != qRgb(200, 52, 52))
                continue;
            ++drawn.count;
            drawn.top = drawn.top < 0 ? y : drawn.top;
            drawn.bottom = y;
        }
    }
    return drawn;
}

/// The pixels of three tracks 30 mm long and 1.5 mm wide, with round ends, whose pen has a whole number of pixels.
double TrackPixels(double pixelsPerMM)
{
    const double width = std::floor(1.5 * pixelsPerMM + 0.5);
    return 3 * (30 * pixelsPerMM * width + 3.14159 * width * width / 4);
}

/// Half of the outlines of six round ends may count or not.
constexpr double kEndPixels = 3 * 3.14159 * 14 / 2;

void Use(QWidget& window)
{
    window.resize(400, 200);
    const Drawn fitted = DrawnIn(window);
    // 40 x 20 mm in nine tenths of 400 x 200 pixels: 9 pixels a millimetre. The tracks reach from y = 4.25 to 15.75 mm
    // about the middle at 10 mm.
    EXPECT_NEAR(fitted.count, TrackPixels(9), kEndPixels);
    EXPECT_NEAR(fitted.top, 100 - 9 * 5.75, 1.5);
    EXPECT_NEAR(fitted.bottom, 100 + 9 * 5.75, 1.5);

    const QPointF from(200, 100), to(200, 130);
    QMouseEvent press(QEvent::MouseButtonPress, from, from, Qt::RightButton, Qt::RightButton, Qt::NoModifier);
    QMouseEvent move(QEvent::MouseMove, to, to, Qt::NoButton, Qt::RightButton, Qt::NoModifier);
    QMouseEvent release(QEvent::MouseButtonRelease, to, to, Qt::RightButton, Qt::NoButton, Qt::NoModifier);
    for (QMouseEvent* event : {&press, &move, &release})
        QApplication::sendEvent(&window, event);
    EXPECT_EQ(DrawnIn(window).top, fitted.top + 30) << "a drag takes the board along";

    QWheelEvent wheel(from, from, QPoint(), QPoint(0, 120), Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&window, &wheel);
    EXPECT_NEAR(DrawnIn(window).count, TrackPixels(9 / 1.3), kEndPixels) << "the wheel zooms out";
}

TEST(Guide, ItsWindowShowsAndMovesTheBoard)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    int used = 0;
    QTimer::singleShot(0, [&used] {
        for (QWidget* window : QApplication::topLevelWidgets()) {
            Use(*window);
            ++used;
        }
        QApplication::quit();
    });
    int argc = 1;
    char name[] = "guide";
    char* argv[] = {name, nullptr};
    EXPECT_EQ(GuideMain(argc, argv), 0);
    EXPECT_EQ(used, 1);
}

} // namespace
