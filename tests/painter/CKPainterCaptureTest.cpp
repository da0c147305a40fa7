#include "BoardPainter.h"

namespace {

BITMAP RecordOf(HBITMAP bitmap)
{
    BITMAP record = {};
    GetObjectA(bitmap, sizeof record, &record);
    return record;
}

TEST(CKPainterCapture, Sizes)
{
    struct Case
    {
        const char* why;
        int width, height;
        int madeWidth, madeHeight; // 0: no capture
    };
    const Case cases[] = {
        {"as asked", 100, 50, 100, 50},
        {"no width", 0, 30, 30, 30},
        {"no height", 30, 0, 30, 30},
        {"neither", 0, 0, 0, 0},
    };
    TestWindow window(40, 40);
    for (const Case& c : cases) {
        BoardPainter painter;
        painter.Capture(&window, c.width, c.height, 0, 0, 20, 20);
        ASSERT_EQ(painter.GetCaptureBitmap() != nullptr, c.madeWidth != 0) << c.why;
        if (!c.madeWidth)
            continue;
        const BITMAP record = RecordOf(*painter.GetCaptureBitmap());
        EXPECT_EQ(XY(record.bmWidth, record.bmHeight), XY(c.madeWidth, c.madeHeight)) << c.why;
        EXPECT_EQ(record.bmBitsPixel, 32) << c.why;
        EXPECT_EQ(DeleteObject(*painter.GetCaptureBitmap()), TRUE) << "not selected anywhere any more";
    }
}

TEST(CKPainterCapture, FramesTheAreaWhateverTheOrderOfCorners)
{
    TestWindow window(40, 40);
    const float orders[][4] = {{0, 15, 20, 25}, {20, 25, 0, 15}, {20, 15, 0, 25}};
    for (const auto& o : orders) {
        BoardPainter painter;
        painter.SetBackgroundColorForTransparent(0x00FF00);
        painter.squareSize = 4.0; // x 8 to 12, y 18 to 22
        painter.Capture(&window, 100, 50, o[0], o[1], o[2], o[3]);
        EXPECT_EQ(painter.TakeCalls(), "body ") << "no question for data, no ending";
        EXPECT_EQ(PhysicalCenter(painter), XY(50, 25));
        EXPECT_EQ(LogicalScreen(painter), std::pair(XY(0, 15), XY(20, 25)));

        // 5 pixels to the millimetre: the square covers 20 x 20 pixels around the middle; edges may differ by one.
        const std::vector<uint32_t> pixels = ReadPixels(*painter.GetCaptureBitmap());
        int wrong = 0;
        for (int row = 0; row < 50; ++row) {
            for (int column = 0; column < 100; ++column) {
                const int dx = std::abs(column - 50), dy = std::abs(row - 25);
                const uint32_t pixel = pixels[size_t(row * 100 + column)] & 0xFFFFFF;
                wrong += dx < 9 && dy < 9 && pixel != 0xFF0000;     // red, as a bitmap stores it
                wrong += (dx > 11 || dy > 11) && pixel != 0x00FF00; // background up to the edges
            }
        }
        EXPECT_EQ(wrong, 0);
        DeleteObject(*painter.GetCaptureBitmap());
    }
}

TEST(CKPainterCapture, Modes)
{
    TestWindow window(40, 40);
    BoardPainter painter;
    painter.SetCaptureMode(1);
    painter.Capture(&window, 20, 10, 0, 0, 20, 20);
    const HBITMAP monochrome = *painter.GetCaptureBitmap();
    EXPECT_EQ(RecordOf(monochrome).bmBitsPixel, 1);
    painter.SetCaptureMode(2);
    painter.Capture(&window, 20, 10, 0, 0, 20, 20);
    ASSERT_NE(painter.GetCaptureBitmap(), nullptr);
    EXPECT_EQ(*painter.GetCaptureBitmap(), nullptr);
    EXPECT_EQ(painter.TakeCalls(), "body body ");
    EXPECT_EQ(DeleteObject(monochrome), TRUE) << "replaced in the cell, not deleted";
}

TEST(CKPainterCapture, WholeViewUsesTheZoomAreaOnlyWhileTheCentreIsEmpty)
{
    TestWindow window(80, 60);
    BoardPainter painter;
    painter.SetBoardMirrorX(1);
    painter.SetSavedDCScale(123.0);
    painter.Capture(&window);
    EXPECT_EQ(painter.TakeCalls(), "data body ending ");
    EXPECT_EQ(painter.GetLogicalCenterX(), -10.0) << "without an area the target is fitted as in a frame";

    painter.FitToWindow();
    painter.SetCaptureZoomArea(5, 5, 20, 0);
    painter.Capture(&window);
    EXPECT_EQ(LogicalCenter(painter), XY(5, 5)) << "not negated";
    EXPECT_EQ(painter.GetScale(), 60 / 80.0 * 0.9); // 20 x 20 mm at 4 pixels to the millimetre
    EXPECT_EQ(painter.GetSavedDCScale(), 123.0) << "the saved viewport is a frame's alone";
    EXPECT_EQ(painter.IsFinishDraw(), 1);
    CClientDC dc(&window);
    EXPECT_EQ(dc.GetPixel(40, 30), painter.GetSavedDC()->GetPixel(40, 30));

    painter.SetLogicalCenter(1, 2);
    painter.Capture(&window);
    EXPECT_EQ(painter.GetLogicalCenterX(), 1.0);
    painter.Capture(nullptr);
    painter.Capture(nullptr, 10, 10, 0, 0, 1, 1);
    EXPECT_EQ(painter.GetCaptureBitmap(), nullptr);
}

TEST(CKPainterCapture, BackgroundPutsBackItsPenAndBrush)
{
    Canvas target(30, 20);
    BoardPainter painter;
    CDC memory;
    CBitmap bitmap;
    CRect rect(0, 0, 30, 20);
    painter.BackGroundDraw(target.Get(), &memory, &bitmap, &rect, 0x00FF00);
    EXPECT_EQ(target.TakeTrace(), "") << "the given context is only looked at";
    EXPECT_EQ(memory.GetPixel(29, 19), 0x00FF00u);
    EXPECT_EQ(GetCurrentObject(memory, OBJ_PEN), GetStockObject(BLACK_PEN));
    EXPECT_EQ(GetCurrentObject(memory, OBJ_BRUSH), GetStockObject(WHITE_BRUSH));
}

} // namespace
