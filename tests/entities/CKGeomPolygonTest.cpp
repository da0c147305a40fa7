#include "entities/CKGeomPolygon.h"
#include "entities/CKGeomLine.h"
#include "support/ArchiveBytes.h"
#include "support/CountedShape.h"

#include <gtest/gtest.h>

using namespace archive_bytes;

namespace {

void Fill(CKGeomPolygon& polygon, int outline, int holes)
{
    for (int i = 0; i < outline; ++i)
        polygon.getOutline()->Add(new CountedShape);
    for (int i = 0; i < holes; ++i)
        polygon.getHole()->Add(new CountedShape);
}

} // namespace

TEST(CKGeomPolygon, MakesItsContainersOnFirstUse)
{
    CKGeomPolygon polygon, untouched;
    CKGeomContainer* outline = polygon.getOutline();
    ASSERT_NE(outline, nullptr);
    EXPECT_EQ(polygon.getOutline(), outline);
    EXPECT_NE(polygon.getHole(), outline);
    EXPECT_EQ(polygon == untouched, 1) << "asking changes nothing";
    polygon.getHole()->Add(new CKGeomLine);
    EXPECT_EQ(polygon == untouched, 0) << "an element does";
    polygon.getHole()->DeleteElements();
    polygon.getOutline()->SetOffsetXY(1, 0);
    EXPECT_EQ(untouched == polygon, 0) << "so does an offset";
}

TEST(CKGeomPolygon, OwnsCopiesAndComparesByContent)
{
    {
        CKGeomPolygon source;
        Fill(source, 2, 1);
        CKGeomPolygon target;
        Fill(target, 0, 4);
        target = source;
        EXPECT_EQ(CountedShape::alive, 6) << "three of the source, three copies";
        EXPECT_NE(target.getOutline(), source.getOutline());
        EXPECT_EQ(target == source, 1);
        const CKGeomPolygon copy(source);
        EXPECT_EQ(CountedShape::alive, 9);
        EXPECT_EQ(copy == source, 1);
        target.getHole()->GetAt(0)->SetOffsetXY(0, 1);
        EXPECT_EQ(target != source, 1);
        target = CKGeomPolygon();
        EXPECT_EQ(CountedShape::alive, 6);
    }
    EXPECT_EQ(CountedShape::alive, 0);
}

TEST(CKGeomPolygon, TakesOverAPartOfItself)
{
    CKGeomPolygon outer;
    CKGeomPolygon* inner = new CKGeomPolygon;
    Fill(*inner, 1, 1);
    inner->SetOffsetXY(5, 6);
    outer.getHole()->Add(inner);
    outer = *inner; // destroys inner in the course of it
    EXPECT_EQ(outer.GetOffsetY(), 6);
    EXPECT_EQ(outer.getHole()->GetCount(), 1);
    EXPECT_EQ(CountedShape::alive, 2);
}

TEST(CKGeomPolygon, RecordsHaveNoHeaderOfTheirOwn)
{
    CKGeomPolygon polygon;
    polygon.SetOffsetXY(1, 2);
    EXPECT_EQ(Stored(polygon), Record().I(1).I(1).I(0).I(1).I(0).bytes);

    Fill(polygon, 1, 2);
    CKGeomContainer* outline = polygon.getOutline();
    EXPECT_EQ(Load(polygon, Record().I(0).bytes).consumed, 4u);
    EXPECT_EQ(CountedShape::alive, 3) << "version 0 keeps both containers' elements";
    const Bytes bytes = Record().I(1).I(0).I(1).I(1).I(2).Header(0, 0, 0, 0, 0, 0).I(0).bytes;
    EXPECT_EQ(Load(polygon, bytes).consumed, bytes.size());
    EXPECT_EQ(CountedShape::alive, 0);
    EXPECT_EQ(polygon.getOutline(), outline) << "the containers stay the same objects";
    EXPECT_EQ(outline->GetCount(), 0);
    EXPECT_EQ(dynamic_cast<CKGeomLine&>(*polygon.getHole()->GetAt(0)).GetThickness(), 0);
    EXPECT_EQ(polygon.GetOffsetX(), 1);
}
