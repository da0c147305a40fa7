#include "entities/CKGeomArc.h"
#include "entities/CKGeomCircle.h"
#include "entities/CKGeomContainer.h"
#include "entities/CKGeomLine.h"
#include "entities/CKGeomPoint.h"
#include "entities/CKGeomPolygon.h"
#include "entities/CKGeomRectangle.h"
#include "entities/CKGeomText.h"
#include "support/Coordinates.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <typeinfo>
#include <utility>
#include <vector>

namespace {

/// Gives a shape of any class its entity state and geometry header.
void MarkEntity(CKGeom& shape)
{
    shape.SetColor(0x0000FF);
    shape.Picked(7);
    shape.SetHidden(true);
    shape.SetRectangleArea(1, 2, 3, 4);
    shape.SetOffsetXY(10, 20);
    shape.SetMinMax(1, 2, 3, 4);
}

template <typename Shape>
class AnyShape : public testing::Test
{};

using Shapes = testing::Types<CKGeom, CKGeomPoint, CKGeomLine, CKGeomArc, CKGeomCircle, CKGeomRectangle, CKGeomText,
                              CKGeomContainer, CKGeomPolygon>;
TYPED_TEST_SUITE(AnyShape, Shapes);

template <typename Shape>
using Change = std::function<void(Shape&)>;

/// Every change alone makes two equal shapes unequal, and copies carry it.
template <typename Shape>
void ExpectEachFieldCounts(const Shape& base, std::vector<Change<Shape>> changes)
{
    changes.push_back([](Shape& s) { s.SetOffsetXY(0, 1e-300); });
    changes.push_back([](Shape& s) { s.SetOffsetXY(-1, 0); });
    changes.push_back([](Shape& s) { s.SetMinMax(0, 0, 0, 5); });
    for (size_t i = 0; i < changes.size(); ++i) {
        Shape changed(base);
        EXPECT_EQ(changed == base, 1) << "change " << i;
        changes[i](changed);
        EXPECT_EQ(changed == base, 0) << "change " << i;
        EXPECT_EQ(changed != base, 1) << "change " << i;
        Shape assigned;
        assigned = changed;
        EXPECT_EQ(assigned == changed, 1) << "change " << i;
    }
}

} // namespace

TYPED_TEST(AnyShape, CopiesCarryEverythingAssignmentTheGeometry)
{
    TypeParam source;
    MarkEntity(source);
    TypeParam target;
    const int number = target.GetObjectNumber();
    target = source;
    EXPECT_EQ(target.GetObjectNumber(), number);
    EXPECT_EQ(target.GetColor(), 0x00FFFFFFu);
    EXPECT_EQ(target.IsPicked(), 0);
    EXPECT_EQ(target.IsHidden(), 0);
    EXPECT_EQ(target.GetRectangleArea().IsInitialized(), 0);
    EXPECT_EQ(target.GetOffsetX(), 10);
    EXPECT_EQ(target == source, 1) << "colours and numbers are not compared";

    std::unique_ptr<CKGeom> clone(source.clone());
    const CKGeom& cloned = *clone;
    EXPECT_TRUE(typeid(cloned) == typeid(TypeParam)) << "of the same class";
    EXPECT_EQ(clone->GetObjectNumber(), source.GetObjectNumber());
    EXPECT_EQ(clone->GetColor(), 0x0000FFu);
    EXPECT_EQ(clone->GetPicker(), 7);
    EXPECT_EQ(clone->GetRectangleArea().IsInitialized(), 1);
    EXPECT_EQ(*clone == source, 1);
    EXPECT_EQ(TypeParam().GetObjectNumber(), number + 1) << "copies take no number";
}

TEST(CKGeomShapes, TypeCodesAndFreshClones)
{
    CKGeomPoint point(1, 2);
    MarkEntity(point);
    const std::unique_ptr<CKGeom> fresh(point.GenerateClone());
    EXPECT_EQ(fresh->GetColor(), 0x00FFFFFFu);
    EXPECT_EQ(fresh->IsPicked(), 0);
    EXPECT_EQ(fresh->GetOffsetX(), 0);
    EXPECT_EQ(*static_cast<CKGeomPoint*>(fresh.get()) == CKGeomPoint(1, 2), 1);
    EXPECT_NE(fresh->GetObjectNumber(), point.GetObjectNumber());

    const std::pair<int, std::shared_ptr<CKGeom>> codes[] = {
        {0, std::make_shared<CKGeom>()},          {0, std::make_shared<CKGeomCircle>()},
        {0, std::make_shared<CKGeomRectangle>()}, {1, std::make_shared<CKGeomText>()},
        {2, std::make_shared<CKGeomLine>()},      {3, std::make_shared<CKGeomArc>()},
        {4, std::make_shared<CKGeomPoint>()},     {5, std::make_shared<CKGeomContainer>()},
        {6, std::make_shared<CKGeomPolygon>()},
    };
    for (const auto& [code, shape] : codes) {
        EXPECT_EQ(shape->GetType(), code);
        EXPECT_TRUE(code == 4 || shape->GenerateClone() == nullptr) << code;
    }
}

TEST(CKGeomShapes, ComparisonLooksAtEveryFieldOfItsOwn)
{
    ExpectEachFieldCounts<CKGeomPoint>({1, 2}, {[](auto& s) { s.SetX(0); }, [](auto& s) { s.SetY(0); }});
    ExpectEachFieldCounts<CKGeomLine>({1, 2, 3, 4, 5},
                                      {[](auto& s) { s.SetStart(0, 2); }, [](auto& s) { s.SetStart(1, 0); },
                                       [](auto& s) { s.SetEnd(0, 4); }, [](auto& s) { s.SetEnd(3, 0); },
                                       [](auto& s) { s.SetThickness(0); }, [](auto& s) { s.SetLocation(1, 2, 3, 3); }});
    ExpectEachFieldCounts<CKGeomArc>({1, 2, 3, 4, 5, 6, 7},
                                     {[](auto& s) { s.SetStart(0, 2); }, [](auto& s) { s.SetStart(1, 0); },
                                      [](auto& s) { s.SetEnd(0, 4); }, [](auto& s) { s.SetEnd(3, 0); },
                                      [](auto& s) { s.SetCenter(0, 6); }, [](auto& s) { s.SetCenter(5, 0); },
                                      [](auto& s) { s.SetThickness(0); }, [](auto& s) { s.setDirection(-1); }});
    ExpectEachFieldCounts<CKGeomText>({"Ab", 1, 2, 3, 4},
                                      {[](auto& s) { s.SetText("ab"); }, [](auto& s) { s.SetX(0); },
                                       [](auto& s) { s.SetXY(1, 0); }, [](auto& s) { s.SetAngle(0); },
                                       [](auto& s) { s.SetFontSize(20); }});
    const CKGeomCircle small(1, 2, 3), large(1, 2, 30);
    EXPECT_EQ(small == large, 1) << "circles compare as the base";
    CKGeomCircle assigned;
    assigned = large;
    EXPECT_EQ(assigned.GetRadius(), 30);
}

TEST(CKGeomShapes, ArcDirectionsCountAsClockwiseExceptMinusOne)
{
    CKGeomArc arc;
    EXPECT_EQ(arc.GetDirection(), 0);
    for (int direction : {-2, -1, 0, 1, 2}) {
        arc.setDirection(direction);
        EXPECT_EQ(arc.IsCCW(), direction == -1) << direction;
    }
}

TEST(CKGeomShapes, LinesMeasureThemselves)
{
    CKGeomLine line(0, 0, 3, 4, 1);
    EXPECT_EQ(line.GetDistance(), 5);
    EXPECT_EQ(line.GetDistance(3, 9), 5) << "from the end, without the thickness";
    const double ends[][3] = {{0, -1, -90}, {-1, 0, 180}, {1, 1, 45}, {0, 0, 0}};
    for (const auto& [x, y, angle] : ends) {
        line.SetEnd(x, y);
        EXPECT_EQ(line.GetLineAngle(), angle);
    }
    line.SetEnd(1, 0.3);
    EXPECT_EQ(line.GetLineAngle(), static_cast<double>(static_cast<float>(line.GetLineAngle()))) << "a float, widened";
    EXPECT_NEAR(line.GetLineAngle(), 16.699244233993621, 1e-5);
}

TEST(CKGeomShapes, RectanglesComeFromTwoCornersInAnyOrder)
{
    CKGeomRectangle rectangle;
    rectangle.SetData(4, 0, 3, -1, 30);
    EXPECT_EQ(XY(rectangle.GetCenterX(), rectangle.GetCenterY()), XY(2, 1));
    EXPECT_EQ(XY(rectangle.getLeft(), rectangle.getBottom()), XY(0, -1));
    EXPECT_EQ(XY(rectangle.getRight(), rectangle.getTop()), XY(4, 3));
    EXPECT_EQ(rectangle.GetRotation(), 30);
    rectangle.SetData(0, 0.1, 0, 1e300, 0);
    EXPECT_EQ(rectangle.GetWidth(), 0.1f);
    EXPECT_EQ(rectangle.getRight(), 0.05 + static_cast<double>(0.1f) * 0.5);
    CKGeomCircle circle;
    circle.SetRadius(0.1f);
    EXPECT_EQ(circle.GetRadius(), 0.10000000149011612);
    EXPECT_EQ(CKGeomText().GetFontSize(), 20);
}
