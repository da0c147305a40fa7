#include "PainterFixture.h"

#include "entities/CKGeomArc.h"
#include "entities/CKGeomArray.h"
#include "entities/CKGeomCircle.h"
#include "entities/CKGeomContainer.h"
#include "entities/CKGeomLine.h"
#include "entities/CKGeomPoint.h"
#include "entities/CKGeomPolygon.h"
#include "entities/CKGeomRectangle.h"
#include "entities/CKGeomText.h"

#include <algorithm>

namespace {

std::string Drawn(CKGeom& shape, COLORREF color, double scale = 1.0)
{
    Canvas canvas;
    CKPainter painter;
    PlaceView(painter, 4.0);
    painter.SetScale(scale);
    shape.DrawNoWorldTransform(&painter, canvas.Get(), color);
    return canvas.TakeTrace();
}

TEST(ShapeDrawing, LineAndArcAreMovedByTheirOffset)
{
    CKGeomLine line(0, 0, 3, 4, 0.5);
    line.SetOffsetXY(1, 2);
    EXPECT_EQ(Drawn(line, 0x0000FF), Stroked("MoveTo 4 -8\nLineTo 16 -24\n", 2, "0x0000FF"));

    CKGeomArc arc(2, 0, 0, 2, 0, 0, 0.25);
    arc.setDirection(-1);
    arc.SetOffsetXY(1, 2);
    EXPECT_EQ(Drawn(arc, 0x0000FF),
              Stroked("MoveTo 12 -8\nSetArcDirection 2\nArcTo -4 -16 12 0 12 -8 4 -16\n", 1, "0x0000FF"));
    arc.setDirection(1);
    EXPECT_NE(Drawn(arc, 0x0000FF).find("SetArcDirection 1\n"), std::string::npos);
}

TEST(ShapeDrawing, CircleIsWhiteAtItsStoredCentre)
{
    CKGeomCircle circle(1, 2, 3);
    circle.SetOffsetXY(5, 5);
    circle.SetColor(0x00FF00);
    EXPECT_EQ(Drawn(circle, 0x0000FF), Stroked("MoveTo -8 -8\nArcTo -8 -20 16 4 -8 -8 -8 -8\n", 0, "0xFFFFFF"));
}

TEST(ShapeDrawing, RectangleIsNeverTurned)
{
    CKGeomRectangle box;
    box.SetCenterPoint(1, 2);
    box.SetWidth(2.0f);
    box.SetHeight(1.0f);
    box.SetOffsetXY(1, 2);
    const std::string expected =
        Stroked("MoveTo 4 -18\nLineTo 12 -18\nLineTo 12 -14\nLineTo 4 -14\nLineTo 4 -18\n", 0, "0x0000FF");
    EXPECT_EQ(Drawn(box, 0x0000FF), expected);
    box.SetRotation(45.0f);
    EXPECT_EQ(Drawn(box, 0x0000FF), expected);
}

TEST(ShapeDrawing, TextKeepsItsPixelSizeAtEveryZoom)
{
    const SIZE extent = MeasurePixelText(12, "C1");
    if (extent.cx == 0)
        GTEST_SKIP() << "no font on this system";
    CKGeomText text("C1", 1, 2, 30.0f, 12);
    text.SetOffsetXY(1, 1);
    for (const double scale : {2.0, 0.37, 11.0}) {
        const std::string trace = Drawn(text, 0x0000FF, scale);
        EXPECT_EQ(std::count(trace.begin(), trace.end(), '\n'), extent.cx * extent.cy) << scale;
        const int left = int(2 * 4 * scale + 0.5) - extent.cx / 2;
        EXPECT_EQ(trace.rfind("SetPixel " + std::to_string(left) + " ", 0), 0u) << scale;
    }
}

TEST(ShapeDrawing, PointsContainersAndPolygonsDrawNothing)
{
    Canvas canvas;
    CKPainter painter;
    CKGeomArray shapes;
    CKGeomContainer* const container = new CKGeomContainer;
    container->Add(new CKGeomLine(0, 0, 3, 4, 0.5));
    shapes.Add(new CKGeomPoint);
    shapes.Add(container);
    shapes.Add(new CKGeomPolygon);
    painter.DrawGeoms(canvas.Get(), &shapes);
    for (INT_PTR i = 0; i < shapes.GetSize(); ++i)
        shapes[i]->Draw(&painter, canvas.Get(), 1);
    EXPECT_EQ(canvas.TakeTrace(), "");
}

} // namespace
