#include "BoardPainter.h"

#include "entities/CKGeomArray.h"
#include "support/CountedShape.h"

#include <memory>

namespace {

TEST(CKPainterEvents, ArrayLivesFromTheFirstShape)
{
    {
        CKPainter painter;
        painter.DeleteLastEventObject();
        painter.RemoveLastEventObject();
        painter.DeleteEventObjectElements();
        EXPECT_EQ(painter.GetEventObjects(), nullptr);

        CountedShape* const last = new CountedShape;
        painter.AddEventObject(new CountedShape);
        painter.AddEventObject(new CountedShape);
        painter.AddEventObject(last);
        EXPECT_EQ(painter.GetEventObjects()->GetSize(), 3);
        EXPECT_EQ(painter.GetEventObjects()->GetAt(2), last);
        painter.RemoveLastEventObject();
        EXPECT_EQ(CountedShape::alive, 3) << "the caller's again";
        delete last;
        painter.DeleteLastEventObject();
        EXPECT_EQ(CountedShape::alive, 1);

        CKGeomArray* const array = painter.GetEventObjects();
        painter.DeleteEventObjectElements();
        EXPECT_EQ(CountedShape::alive, 0);
        EXPECT_EQ(painter.GetEventObjects(), array);
        EXPECT_EQ(array->GetSize(), 0);
        painter.DeleteLastEventObject();

        painter.DeleteEventObjects();
        EXPECT_EQ(painter.GetEventObjects(), nullptr);
        painter.AddEventObject(new CountedShape);
        EXPECT_EQ(painter.GetEventObjects()->GetSize(), 1);
    }
    EXPECT_EQ(CountedShape::alive, 0) << "the painter frees what it still has";
}

/// A window that has been drawn in, which left a pen and a brush in its context, and the objects there are since.
struct Scene
{
    Scene() : window(30, 20), dc(&window)
    {
        BoardPainter().DrawView(&window, &dc);
        objects = CountGdiObjects();
    }

    TestWindow window;
    CClientDC dc;
    DWORD objects;
};

TEST(CKPainterCopy, CopiesShareAndTheLastOneFrees)
{
    Scene scene;
    auto& [window, dc, objects] = scene;

    auto first = std::make_unique<BoardPainter>();
    first->DrawView(&window, &dc);
    first->Capture(&window, 10, 10, 0, 0, 5, 5);
    const HBITMAP captured = *first->GetCaptureBitmap();
    first->AddEventObject(new CountedShape);
    auto second = std::make_unique<BoardPainter>(*first);
    CKPainter third;
    third.AddEventObject(new CountedShape);
    third = *second;
    EXPECT_EQ(CountedShape::alive, 1) << "what the target held is freed";
    const CKPainter& itself = third;
    third = itself;
    static_cast<CKPainter&>(*first) = third; // back into the same ring
    EXPECT_EQ(third.GetSavedDC(), first->GetSavedDC());
    EXPECT_EQ(third.GetEventObjects(), first->GetEventObjects());
    EXPECT_EQ(third.GetCaptureBitmap(), first->GetCaptureBitmap());
    EXPECT_EQ(third.GetSavedDCScale(), first->GetSavedDCScale());

    first.reset();
    EXPECT_EQ(CountedShape::alive, 1);
    EXPECT_NE(third.GetSavedDC()->GetPixel(0, 0), CLR_INVALID);
    second->DrawView(&window, &dc); // a new frame for this one; the other keeps the old
    EXPECT_NE(third.GetSavedDC(), second->GetSavedDC());
    EXPECT_NE(third.GetSavedDC()->GetPixel(0, 0), CLR_INVALID);
    third.DeleteEventObjects();
    EXPECT_EQ(CountedShape::alive, 1) << "still the other's";
    EXPECT_EQ(third.GetEventObjects(), nullptr);
    second.reset();
    EXPECT_EQ(CountedShape::alive, 0);

    third = CKPainter();
    EXPECT_EQ(third.GetSavedDC(), nullptr);
    EXPECT_EQ(CountGdiObjects(), objects + 1) << "the captured bitmap is left to the host";
    EXPECT_EQ(DeleteObject(captured), TRUE);
}

TEST(CKPainterCopy, SettersOnlyStoreThePointer)
{
    Scene scene;
    auto& [window, dc, objects] = scene;
    {
        BoardPainter painter;
        painter.DrawView(&window, &dc);
        CKPainter copy(painter);
        CDC* const frame = painter.GetSavedDC();
        painter.SetSavedDC(new CDC);
        EXPECT_NE(frame->GetPixel(0, 0), CLR_INVALID) << "not deleted: the copy has it";
        delete painter.GetSavedDC();
        painter.SetSavedDC(frame); // two painters hold it again, and it is freed once
    }
    EXPECT_EQ(CountGdiObjects(), objects);
}

/// Everything that can be asked for, one value after the other.
std::vector<double> StateOf(CKPainter& p)
{
    const auto [center, screen] = std::pair(LogicalCenter(p), LogicalScreen(p));
    const KPointD savedCenter = p.GetSavedDCLogicalCenterCoord();
    std::vector<double> state;
    for (const int value : {p.IsSimpleDraw(), p.IsRedraw(), p.IsBoardMirrorX(), p.GetCaptureMode(),
                            p.GetPhysicalCenterX(), p.GetPhysicalCenterY()})
        state.push_back(value);
    for (const double value :
         {center.first, center.second, p.GetScale(), p.GetPixcelPerMM(), screen.first.first, screen.second.first,
          screen.second.second, screen.first.second, p.GetSavedDCScale(), savedCenter.x, savedCenter.y,
          p.GetSavedDCLogicalScreenLeft(), p.GetSavedDCLogicalScreenRight(), p.GetSavedDCLogicalScreenTop(),
          p.GetSavedDCLogicalScreenBottom()})
        state.push_back(value);
    for (const COLORREF value : {p.GetBackgroundColorForTransparent(), p.GetBackgroundColorForReplacement()})
        state.push_back(value);
    return state;
}

TEST(CKPainterCopy, CarriesEveryMember)
{
    CKPainter source;
    PlaceView(source, 3.0, 5, 6);
    source.EnableSimpleDraw();
    source.SetRedraw();
    source.SetBoardMirrorX(2);
    source.SetCaptureMode(1);
    source.SetLogicalCenter(7, 8);
    source.SetScale(1.5);
    source.UpdateLogicalScreenSide(90, 45);
    source.SetSavedDCScale(9);
    source.SetSavedDCLogicalCenterCoord({10, 11});
    source.SetSavedDCLogicalScreenLeft(12);
    source.SetSavedDCLogicalScreenRight(13);
    source.SetSavedDCLogicalScreenTop(14);
    source.SetSavedDCLogicalScreenBottom(15);
    source.SetBackgroundColorForTransparent(16);
    source.SetBackgroundColorForReplacement(17);

    // 90 x 45 pixels at 4.5 to the millimetre, mirrored: x from -17 to 3.
    const std::vector<double> expected = {1,  1, 2, 1,  5,  6,  7,  8,  1.5, 3,  -17, 3,
                                          13, 3, 9, 10, 11, 12, 13, 14, 15,  16, 17};
    CKPainter assigned, copied(source);
    assigned = source;
    for (CKPainter* copy : {&assigned, &copied})
        EXPECT_EQ(StateOf(*copy), expected);
}

} // namespace
