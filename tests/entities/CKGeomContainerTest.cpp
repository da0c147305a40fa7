#include "entities/CKGeomContainer.h"
#include "entities/CKGeomArc.h"
#include "entities/CKGeomArray.h"
#include "entities/CKGeomCircle.h"
#include "entities/CKGeomLine.h"
#include "entities/CKGeomPolygon.h"
#include "entities/CKGeomText.h"
#include "Raises.h"
#include "support/ArchiveBytes.h"
#include "support/CountedShape.h"

#include <gtest/gtest.h>

#include <memory>
#include <typeinfo>

using namespace archive_bytes;

namespace {

template <typename List>
void AddCounted(List& list, int count)
{
    for (int i = 1; i <= count; ++i)
        list.Add(new CountedShape(i));
}

} // namespace

TEST(CKGeomArray, DeletesAndUnlinks)
{
    {
        CKGeomArray array;
        EXPECT_EQ(array.GetLastElement(), nullptr);
        AddCounted(array, 4);
        array.Add(nullptr);
        array.DeleteAt(4);
        EXPECT_EQ(array.GetSize(), 4) << "a null is taken out like any other";
        array.DeleteAt(1);
        EXPECT_EQ(CountedShape::lastDestroyed, 2);
        EXPECT_EQ(static_cast<CountedShape*>(array.GetAt(1))->GetX(), 3) << "later elements moved down";
        array.DeleteAt(3);
        EXPECT_EQ(array.GetSize(), 3) << "the size is past the end";
        EXPECT_TRUE(Raises<CInvalidArgException>([&] { array.DeleteAt(-1); }));
        EXPECT_EQ(CountedShape::alive, 3);

        const std::unique_ptr<CKGeom> unlinked(array.GetAt(0));
        array.RemoveAt(0);
        EXPECT_EQ(CountedShape::alive, 3);
        EXPECT_EQ(array.GetLastElement(), array.GetAt(1));
        array.DeleteElements();
        EXPECT_EQ(CountedShape::lastDestroyed, 4) << "in index order";
        EXPECT_EQ(CountedShape::alive, 1);
        AddCounted(array, 3);
        array.DeleteAt(0);
        EXPECT_EQ(CountedShape::lastDestroyed, 1);
        EXPECT_EQ(array.GetSize(), 2);
    }
    EXPECT_EQ(CountedShape::alive, 0) << "the list destroys its elements";
}

TEST(CKGeomContainer, HoldsNothingUntilTheFirstAdd)
{
    CKGeomContainer container;
    EXPECT_EQ(container.IsEmpty(), 1);
    EXPECT_EQ(container.GetAt(-5), nullptr);
    EXPECT_EQ(container.GetLastElement(), nullptr);
    container.RemoveAt(-1);
    container.DeleteAt(-1);
    container.DeleteElements();
    EXPECT_EQ(Stored(container), Record().I(1).I(0).bytes);
}

TEST(CKGeomContainer, OwnsItsElements)
{
    {
        CKGeomContainer container;
        AddCounted(container, 3);
        container.RemoveAt(3);
        container.DeleteAt(3);
        EXPECT_EQ(container.GetSize(), 3u) << "past the end there is nothing to do";
        EXPECT_TRUE(Raises<CInvalidArgException>([&] { container.RemoveAt(-1); }));
        EXPECT_TRUE(Raises<CInvalidArgException>([&] { container.DeleteAt(-1); }));
        EXPECT_TRUE(Raises<CInvalidArgException>([&] { container.GetAt(3); }));

        const std::unique_ptr<CKGeom> removed(container.GetAt(1));
        container.RemoveAt(1);
        EXPECT_EQ(CountedShape::alive, 3);
        container.DeleteAt(1);
        EXPECT_EQ(CountedShape::lastDestroyed, 3);
        EXPECT_EQ(container.GetCount(), 1);
        container.DeleteElements();
        EXPECT_EQ(container.IsEmpty(), 1);
        EXPECT_TRUE(Raises<CInvalidArgException>([&] { container.GetAt(0); })) << "the emptied list stays a list";
        AddCounted(container, 2);
    }
    EXPECT_EQ(CountedShape::alive, 0);
}

TEST(CKGeomContainer, CopiesKeepKindsAndOrder)
{
    CKGeomContainer source;
    source.SetOffsetXY(1, 2);
    source.SetColor(0x0000FF);
    source.Add(new CKGeomLine(1, 2, 3, 4, 5));
    source.Add(nullptr);
    source.Add(new CKGeomCircle(6, 7, 8));
    AddCounted(source, 1);

    CKGeomContainer target;
    AddCounted(target, 3);
    const int number = target.GetObjectNumber();
    target = source;
    EXPECT_EQ(CountedShape::alive, 2) << "the three are gone, a copy was made";
    EXPECT_EQ(target.GetObjectNumber(), number);
    EXPECT_EQ(target.GetColor(), 0x00FFFFFFu);
    EXPECT_EQ(target == source, 1);
    ASSERT_EQ(target.GetCount(), 4);
    EXPECT_NE(target.GetAt(0), source.GetAt(0));
    EXPECT_EQ(dynamic_cast<CKGeomLine&>(*target.GetAt(0)) == CKGeomLine(1, 2, 3, 4, 5), 1);
    EXPECT_EQ(target.GetAt(1), nullptr);
    EXPECT_EQ(dynamic_cast<CKGeomCircle&>(*target.GetAt(2)).GetRadius(), 8);
    EXPECT_EQ(target.GetAt(0)->GetObjectNumber(), source.GetAt(0)->GetObjectNumber());

    target = CKGeomContainer();
    EXPECT_EQ(target.GetCount(), 0);
    EXPECT_TRUE(Raises<CInvalidArgException>([&] { target.GetAt(0); })) << "its list is emptied, not given up";
    EXPECT_EQ(CountedShape::alive, 1);
}

TEST(CKGeomContainer, TakesOverOneOfItsOwnElements)
{
    CKGeomContainer outer;
    CKGeomContainer* inner = new CKGeomContainer;
    inner->SetOffsetXY(3, 4);
    AddCounted(*inner, 2);
    outer.Add(inner);
    outer = *inner; // destroys inner in the course of it
    ASSERT_EQ(outer.GetCount(), 2);
    EXPECT_EQ(outer.GetOffsetX(), 3);
    EXPECT_EQ(CountedShape::alive, 2);
}

TEST(CKGeomContainer, ComparesOffsetsAndCornersOfElementsOnly)
{
    CKGeomContainer a, b;
    a.Add(new CKGeomLine(1, 2, 3, 4, 5));
    EXPECT_EQ(a == b, 0);
    b.Add(new CKGeomPoint(9, 9));
    EXPECT_EQ(a == b, 1) << "kinds and their own fields are not looked at";
    a.SetOffsetXY(1, 0);
    EXPECT_EQ(a != b, 1);
    EXPECT_EQ(a.IsElementEqual(b), 1);
    b.GetAt(0)->SetMinMax(0, 0, 1, 1);
    EXPECT_EQ(a.IsElementEqual(b), 0);

    CKGeomContainer withNull, withShape;
    withNull.Add(nullptr);
    withShape.Add(new CKGeomPoint);
    EXPECT_EQ(withNull == withShape, 0);
    EXPECT_EQ(CKGeomContainer(withNull) == withNull, 1);
}

TEST(CKGeomContainer, FactoryMakesTheKindsOfTheArchive)
{
    CKGeomContainer container;
    const std::type_info* kinds[] = {
        &typeid(CKGeomText),   &typeid(CKGeomLine), &typeid(CKGeomArc), &typeid(CKGeomPoint), nullptr,
        &typeid(CKGeomPolygon)};
    for (int type : {1, 2, 3, 4, 6}) {
        const std::unique_ptr<CKGeom> shape(container.NewCKGeom(type));
        ASSERT_NE(shape, nullptr) << type;
        const CKGeom& made = *shape;
        EXPECT_TRUE(typeid(made) == *kinds[type - 1]) << type;
    }
    for (int type : {-1, 0, 5, 7, 2147483647})
        EXPECT_EQ(container.NewCKGeom(type), nullptr);
    const std::unique_ptr<CKGeom> first(container.NewCKGeom(2)), second(container.NewCKGeom(3));
    EXPECT_EQ(second->GetObjectNumber(), first->GetObjectNumber() + 1);
}

TEST(CKGeomContainer, StoresAndLoadsEveryKind)
{
    CKGeomContainer container;
    container.Add(new CKGeomPoint(1, 2));
    EXPECT_EQ(Stored(container).size(), 88u);
    container.Add(nullptr);
    container.Add(new CKGeomText("text", 1, 2, 3));
    container.Add(new CKGeomArc(1, 2, 3, 4, 5, 6, 7));
    CKGeomPolygon* polygon = new CKGeomPolygon;
    polygon->getHole()->Add(new CKGeomLine(1, 2, 3, 4, 5));
    container.Add(polygon);

    CKGeomContainer loaded;
    AddCounted(loaded, 2);
    loaded.SetOffsetXY(8, 8);
    const Bytes bytes = Stored(container);
    EXPECT_EQ(Load(loaded, bytes).consumed, bytes.size());
    EXPECT_EQ(CountedShape::alive, 0) << "what it held is destroyed";
    EXPECT_EQ(loaded.GetOffsetX(), 8);
    ASSERT_EQ(loaded.GetCount(), 4) << "the null was left out";
    EXPECT_EQ(Stored(loaded), bytes);
    EXPECT_STREQ(dynamic_cast<CKGeomText&>(*loaded.GetAt(1)).GetText(), "text");
    EXPECT_EQ(dynamic_cast<CKGeomPolygon&>(*loaded.GetAt(3)).getHole()->GetCount(), 1);
}

TEST(CKGeomContainer, EveryCutKeepsTheWholeShapesBefore)
{
    CKGeomContainer container;
    container.Add(new CKGeomPoint(1, 2));             // bytes 8 to 88
    container.Add(new CKGeomLine(1, 2, 3, 4, 5));     // to 192
    container.Add(new CKGeomText("abc", 1, 2, 3, 4)); // to 280
    const Bytes bytes = Stored(container);
    ASSERT_EQ(bytes.size(), 280u);
    for (size_t size = 0; size < bytes.size(); ++size) {
        CKGeomContainer loaded;
        AddCounted(loaded, 1);
        ASSERT_EQ(Load(loaded, Bytes(bytes.begin(), bytes.begin() + long(size))).cause, CArchiveException::endOfFile);
        ASSERT_EQ(loaded.GetCount(), size < 88 ? 0 : size < 192 ? 1 : 2) << size;
        ASSERT_EQ(CountedShape::alive, 0);
    }
}

TEST(CKGeomContainer, VersionsAndCountsAreSigned)
{
    struct Case
    {
        const char* why;
        Bytes bytes;
        int cause;
        size_t consumed;
    };
    const int none = CArchiveException::none;
    const Case cases[] = {
        {"version 0 ends the record", Record().I(0).I(5).bytes, none, 4},
        {"negative version", Record().I(-1).I(5).bytes, none, 4},
        {"negative count", Record().I(1).I(-1).I(4).bytes, none, 8},
        {"two thousand million promised", Record().I(1).I(2147483647).bytes, CArchiveException::endOfFile, 0},
        {"a kind without a factory", Record().I(1).I(1).I(0).Header(0, 0, 0, 0, 0, 0).bytes,
         CArchiveException::badSchema, 0},
        {"a bare container in a container", Record().I(1).I(1).I(5).I(1).I(0).bytes, CArchiveException::badSchema, 0},
    };
    for (const Case& c : cases) {
        CKGeomContainer container;
        AddCounted(container, 3);
        const Outcome outcome = Load(container, c.bytes);
        EXPECT_EQ(outcome.cause, c.cause) << c.why;
        EXPECT_EQ(outcome.consumed, c.consumed) << c.why;
        EXPECT_EQ(container.GetCount(), 0) << c.why;
        EXPECT_EQ(CountedShape::alive, 0) << c.why;
    }
}

TEST(CKGeomContainer, DerivedFactoriesTakePart)
{
    struct HostContainer : CKGeomContainer
    {
        CKGeom* NewCKGeom(int) override { return new CKGeomCircle(7, 7, 7); }
    } container;
    const Bytes bytes = Record().I(1).I(1).I(0).Header(1, 2, 3, 4, 5, 6).bytes;
    EXPECT_EQ(Load(container, bytes).consumed, bytes.size());
    EXPECT_EQ(dynamic_cast<CKGeomCircle&>(*container.GetAt(0)).GetRadius(), 7);
    EXPECT_EQ(container.GetAt(0)->GetOffsetY(), 2);
}
