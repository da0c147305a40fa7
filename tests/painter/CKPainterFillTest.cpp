#include "PainterFixture.h"

#include <functional>

namespace {

struct FillCase
{
    const char* why;
    std::function<void(CKPainter&, CDC*, CPen&)> draw;
    std::string trace;
};

const std::string kPen = std::string(Canvas::kOwnPen) + "\n";
const std::string kBrush = std::string(Canvas::kOwnBrush) + "\n";

const FillCase kFills[] = {
    {"stroke", [](CKPainter& p, CDC* dc, CPen&) { p.StrokePath(dc, 3, 0x0000FF); },
     "SelectPen 0 3 0x0000FF\nStrokePath\n" + kPen},
    {"stroke with a pen", [](CKPainter& p, CDC* dc, CPen& pen) { p.StrokePath(dc, pen); },
     "SelectPen 1 1 0x00FF00\nStrokePath\n" + kPen},
    {"fill", [](CKPainter& p, CDC* dc, CPen&) { p.FillPath(dc, 0x0000FF); },
     "SelectBrush solid 0x0000FF\nFillPath\n" + kBrush},
    {"fill with a pen", [](CKPainter& p, CDC* dc, CPen& pen) { p.FillPath(dc, pen, 0x0000FF); },
     "SelectBrush solid 0x0000FF\nSelectPen 1 1 0x00FF00\nFillPath\n" + kPen + kBrush},
    {"both", [](CKPainter& p, CDC* dc, CPen&) { p.StrokeAndFillPath(dc, 2, 0x0000FF); },
     "SelectBrush solid 0x0000FF\nSelectPen 0 2 0x0000FF\nStrokeAndFillPath\n" + kPen + kBrush},
    {"both with a pen", [](CKPainter& p, CDC* dc, CPen& pen) { p.StrokeAndFillPath(dc, pen, 0x0000FF); },
     "SelectBrush solid 0x0000FF\nSelectPen 1 1 0x00FF00\nStrokeAndFillPath\n" + kPen + kBrush},
    {"hatched", [](CKPainter& p, CDC* dc, CPen&) { p.StrokeAndFillPathHatchStyle(dc, 2, 0x0000FF, HS_DIAGCROSS); },
     "SelectPen 65536 2 0x0000FF\nSelectBrush hatch 5 0x0000FF\nSetBkMode 1\nStrokeAndFillPath\nSetBkMode 2\n" + kPen +
         kBrush},
    {"hatched solid", [](CKPainter& p, CDC* dc, CPen& pen) { p.StrokeAndFillPathHatchStyle(dc, pen, 0x0000FF, -1); },
     "SelectPen 1 1 0x00FF00\nSelectBrush solid 0x0000FF\nSetBkMode 1\nStrokeAndFillPath\nSetBkMode 2\n" + kPen +
         kBrush},
};

TEST(CKPainterFill, SelectsAndPutsBack)
{
    Canvas canvas;
    CKPainter painter;
    CPen pen(PS_DASH, 1, COLORREF(0x00FF00));
    const DWORD objects = CountGdiObjects();
    for (const FillCase& c : kFills) {
        canvas.Get()->BeginPath();
        painter.AddRectanglePath(canvas.Get(), 5, 5, 8, 8, 0, 0, 1);
        canvas.Get()->EndPath();
        canvas.TakeTrace();
        c.draw(painter, canvas.Get(), pen);
        EXPECT_EQ(canvas.TakeTrace(), c.trace) << c.why;
        EXPECT_EQ(canvas.Get()->StrokePath(), FALSE) << c.why << ": the path is used up";
        canvas.TakeTrace();
        EXPECT_EQ(CountGdiObjects(), objects) << c.why;
    }
}

} // namespace
