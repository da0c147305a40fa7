#include "BoardPainter.h"
#include "Raises.h"

#include "entities/CKGeomArray.h"
#include "entities/CKGeomLine.h"
#include "entities/CKGeomRectangle.h"

namespace {

CKGeom* NewLine(double x1, double y1, double x2, double y2, COLORREF color)
{
    CKGeomLine* const line = new CKGeomLine;
    line->SetLocation(x1, y1, x2, y2);
    line->SetColor(color);
    return line;
}

TEST(CKPainterFrame, FirstFrameFitsTheTarget)
{
    for (int mirror = 0; mirror < 2; ++mirror) {
        BoardWindow host(801, 600);
        auto& [window, dc, painter] = host;
        painter.SetBoardMirrorX(mirror);
        painter.SetBackgroundColorForTransparent(0x402010);
        painter.DrawView(&window, &dc);
        EXPECT_EQ(painter.TakeCalls(), "data body ending ");
        EXPECT_EQ(PhysicalCenter(painter), XY(400, 300));
        EXPECT_EQ(LogicalCenter(painter), XY(mirror ? -10 : 10, 20));
        EXPECT_EQ(painter.GetScale(), 801 / 400.0 * 0.9);
        EXPECT_EQ(painter.IsFinishDraw(), 1);

        // What the frame remembers of the view.
        EXPECT_EQ(painter.GetSavedDCScale(), painter.GetScale());
        EXPECT_EQ(At(painter.GetSavedDCLogicalCenterCoord()), LogicalCenter(painter));
        EXPECT_EQ(XY(painter.GetSavedDCLogicalScreenLeft(), painter.GetSavedDCLogicalScreenBottom()),
                  LogicalScreen(painter).first);
        EXPECT_EQ(XY(painter.GetSavedDCLogicalScreenRight(), painter.GetSavedDCLogicalScreenTop()),
                  LogicalScreen(painter).second);

        // 4 x 10 x 1.80225 pixels are 72.09: float(400 -+ 72.09), float(300 + 144.18).
        EXPECT_EQ(painter.bodyTransform.eM11, mirror ? -1.0f : 1.0f);
        EXPECT_FLOAT_EQ(painter.bodyTransform.eDx, mirror ? 472.09f : 327.91f);
        EXPECT_FLOAT_EQ(painter.bodyTransform.eDy, 444.18f);

        // The square of 72 pixels lies around the middle; the window and the saved frame hold the same picture.
        for (CDC* shown : {static_cast<CDC*>(&dc), painter.GetSavedDC()}) {
            EXPECT_EQ(shown->GetPixel(400, 300), 0x0000FFu);
            EXPECT_EQ(shown->GetPixel(400 + 33, 300 - 33), 0x0000FFu);
            EXPECT_EQ(shown->GetPixel(400 + 39, 300), 0x402010u);
            EXPECT_EQ(shown->GetPixel(0, 0), 0x402010u);
            EXPECT_EQ(shown->GetPixel(800, 599), 0x402010u) << "the background reaches the last pixel";
        }
    }
}

TEST(CKPainterFrame, NextFramesKeepTheView)
{
    BoardWindow host(80, 60);
    auto& [window, dc, painter] = host;
    painter.DrawView(&window, &dc);
    painter.SetLogicalCenter(12, 20);
    painter.SetScale(0.5);
    painter.target = {7, 7, 0, 0};
    painter.DrawView(&window, &dc);
    EXPECT_EQ(painter.GetLogicalCenterX(), 12.0);
    EXPECT_EQ(painter.GetSavedDCScale(), 0.5);
    EXPECT_EQ(painter.GetLogicalScreenLeft(), 12.0 - 20.0); // 80 pixels at 2 to the millimetre

    painter.Init();
    painter.target = {0, 0, 3, 4};
    painter.DrawView(&window, &dc);
    EXPECT_EQ(painter.IsLogicalCenterEmpty(), 1) << "nothing to fit";
    EXPECT_EQ(painter.GetScale(), 0.5);
}

TEST(CKPainterFrame, WithoutDataOnlyTheEndingIsDrawn)
{
    BoardWindow host(80, 60);
    auto& [window, dc, painter] = host;
    painter.hasData = 0;
    painter.SetBackgroundColorForTransparent(0x00FF00);
    painter.DrawView(&window, &dc);
    EXPECT_EQ(painter.TakeCalls(), "data ending ");
    EXPECT_EQ(dc.GetPixel(40, 30), 0x00FF00u);
    painter.DrawView(nullptr, &dc);
    EXPECT_EQ(painter.TakeCalls(), "");
}

TEST(CKPainterFrame, TransferTrace)
{
    TestWindow window(80, 60);
    Canvas canvas(80, 60);
    BoardPainter painter;
    painter.DrawView(&window, canvas.Get());
    // The set-up leaves the background's brush and pen in the target; they are gone once others take their place.
    EXPECT_EQ(canvas.TakeTrace(), "SelectBrush solid 0x000000\nSelectPen 0 0 0x000000\n"
                                  "BitBlt 0 0 80 60 0 0 0x00CC0020\n");
    painter.DrawSavedDC(&window, canvas.Get());
    EXPECT_EQ(canvas.TakeTrace(), "BitBlt 0 0 80 60 0 0 0x00CC0020\n");
    painter.DrawSavedDC(nullptr, canvas.Get());
    painter.DrawSavedDC(&window, nullptr);
    BoardPainter().DrawSavedDC(&window, canvas.Get());
    EXPECT_EQ(canvas.TakeTrace(), "");
}

TEST(CKPainterFrame, ExceptionOfAHookRestoresTheContext)
{
    BoardWindow host(80, 60);
    auto& [window, dc, painter] = host;
    painter.throwInBody = true;
    const DWORD objects = CountGdiObjects();
    EXPECT_TRUE(Raises<CInvalidArgException>([&] { host.painter.DrawView(&host.window, &host.dc); }));
    EXPECT_TRUE(Raises<CInvalidArgException>([&] { host.painter.Capture(&host.window, 20, 20, 0, 0, 5, 5); }));
    EXPECT_EQ(painter.IsFinishDraw(), 0);
    EXPECT_EQ(painter.GetSavedDC()->GetGraphicsMode(), GM_COMPATIBLE);
    DeleteObject(*painter.GetCaptureBitmap());
    EXPECT_EQ(CountGdiObjects(), objects + 4) << "the saved frame with the background's pen and brush in it";
}

TEST(CKPainterFrame, ShapesAreDrawnInTheirColoursUnlessHidden)
{
    Canvas canvas;
    CKPainter painter;
    PlaceView(painter, 1.0);
    CKGeomArray shapes;
    shapes.Add(NewLine(0, 0, 5, 0, 0x0000FF));
    shapes.Add(NewLine(0, 1, 5, 1, 0x00FF00));
    shapes.Add(nullptr);
    shapes.Add(NewLine(0, 2, 5, 2, 0xFF0000));
    shapes[1]->SetHidden(true);
    const std::string first = "MoveTo 0 0\nLineTo 5 0\n", third = "MoveTo 0 -2\nLineTo 5 -2\n";
    painter.DrawGeoms(canvas.Get(), &shapes);
    EXPECT_EQ(canvas.TakeTrace(), Stroked(first, 0, "0x0000FF") + Stroked(third, 0, "0xFF0000"));
    painter.DrawGeoms(canvas.Get(), &shapes, 0xABCDEF);
    EXPECT_EQ(canvas.TakeTrace(), Stroked(first, 0, "0xABCDEF") + Stroked(third, 0, "0xABCDEF"));
    painter.DrawGeoms(canvas.Get(), nullptr);
    EXPECT_EQ(canvas.TakeTrace(), "");
}

/// A frame with content, and two arrays of shapes that cross it and each other.
struct OverlayScene : BoardWindow
{
    OverlayScene() : BoardWindow(120, 90)
    {
        painter.SetBackgroundColorForTransparent(0x302010);
        painter.DrawView(&window, &dc);
        first.Add(NewLine(-30, 0, 50, 40, 0x00FFFF));
        second.Add(NewLine(-30, 40, 50, 0, 0xFFFFFF));
        CKGeomRectangle* const box = new CKGeomRectangle;
        box->SetData(-5, 25, 10, 30, 0.0f);
        second.Add(box);
    }
    std::vector<uint32_t> Frame() { return ReadPixels(*painter.GetSavedBitmap()); }

    CKGeomArray first, second;
};

TEST(CKPainterFrame, OverlayLeavesTheSavedFrameAsItWas)
{
    OverlayScene scene;
    const std::vector<uint32_t> before = scene.Frame();
    const COLORREF shown = scene.dc.GetPixel(60, 45);
    scene.painter.DrawGeomsAndDrawSavedDC(&scene.window, &scene.first, &scene.second);
    EXPECT_EQ(scene.Frame(), before);
    EXPECT_EQ(scene.painter.GetSavedDC()->GetROP2(), R2_COPYPEN);

    int changed = 0;
    for (int y = 0; y < 90; ++y) {
        for (int x = 0; x < 120; ++x)
            changed += scene.dc.GetPixel(x, y) != scene.painter.GetSavedDC()->GetPixel(x, y);
    }
    EXPECT_GT(changed, 100) << "the window shows the shapes";
    EXPECT_EQ(scene.dc.GetPixel(60, 45), shown ^ 0x00FFFF ^ 0xFFFFFF) << "where the lines cross";

    scene.painter.DrawGeomsAndDrawSavedDC(&scene.window, &scene.first, nullptr, 0x0F0F0F);
    EXPECT_EQ(scene.Frame(), before);
}

TEST(CKPainterFrame, OverlayWithoutAWindowTogglesTheShapes)
{
    OverlayScene scene;
    const std::vector<uint32_t> before = scene.Frame();
    scene.painter.DrawGeomsAndDrawSavedDC(nullptr, &scene.first, &scene.second, 0xFFFFFF);
    EXPECT_NE(scene.Frame(), before);
    scene.painter.DrawGeomsAndDrawSavedDC(nullptr, &scene.first, &scene.second, 0xFFFFFF);
    EXPECT_EQ(scene.Frame(), before);

    CKGeomArray none;
    CStringArray calls;
    GdiSetTrace(*scene.painter.GetSavedDC(), &calls);
    scene.painter.DrawGeomsAndDrawSavedDC(nullptr, nullptr, &none);
    GdiSetTrace(*scene.painter.GetSavedDC(), nullptr);
    EXPECT_EQ(calls.GetSize(), 0);
    BoardPainter().DrawGeomsAndDrawSavedDC(&scene.window, &scene.first, &scene.second); // no frame: nothing to do
}

TEST(CKPainterFrame, AThousandFramesAndCapturesLeaveNoObjects)
{
    BoardWindow host(24, 18);
    auto& [window, dc, painter] = host;
    painter.DrawView(&window, &dc);
    CKGeomArray shapes;
    shapes.Add(NewLine(0, 0, 20, 30, 0xFFFFFF));
    const DWORD objects = CountGdiObjects();
    for (int i = 0; i < 1000; ++i) {
        painter.DrawView(&window, &dc);
        painter.DrawGeomsAndDrawSavedDC(&window, &shapes, nullptr);
        painter.Capture(&window);
        painter.Capture(&window, 8, 8, 0, 0, 20, 20);
        DeleteObject(*painter.GetCaptureBitmap()); // the host's own
    }
    EXPECT_EQ(CountGdiObjects(), objects);
}

} // namespace
