#include "foundation/CArrayArrayPointD.h"
#include "foundation/CArrayRectD.h"
#include "foundation/CArrayRectF.h"
#include "foundation/CPointF.h"
#include "support/ArchiveBytes.h"
#include "support/Coordinates.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <memory>

using namespace archive_bytes;

TEST(CRectD, ComparesClonesAndClears)
{
    CRectD rect(1, 2, 3, -4);
    EXPECT_EQ(rect.GetArea(), -12);
    const std::unique_ptr<CRectD> clone(rect.clone());
    EXPECT_EQ(*clone == rect, 1);
    const CRectD others[] = {{0, 2, 3, -4}, {1, 0, 3, -4}, {1, 2, 0, -4}, {1, 2, 3, 0}};
    for (const CRectD& other : others)
        EXPECT_EQ(rect != other, 1);
    rect.Init();
    EXPECT_EQ(rect == CRectD(0, 0, 0, 0), 1);
}

TEST(CRectF, NarrowsAndArchives)
{
    CRectF rect;
    rect = CRectD(0.1, 1e300, -1e300, 2);
    EXPECT_EQ(rect.GetLeft(), 0.1f);
    EXPECT_EQ(rect.GetTop(), std::numeric_limits<float>::infinity());
    EXPECT_EQ(rect.GetWidth(), -std::numeric_limits<float>::infinity());

    CRectF loaded;
    const Bytes bytes = Stored(rect);
    EXPECT_EQ(Load(loaded, bytes).consumed, bytes.size());
    EXPECT_EQ(loaded == rect, 1);
    EXPECT_EQ(Load(loaded, Bytes(bytes.begin(), bytes.end() - 1)).cause, CArchiveException::endOfFile);

    CPointF point, other;
    point.SetX(3);
    point.SetY(std::nanf(""));
    const CPointF& self = point;
    EXPECT_EQ(point == self, 1);
    EXPECT_EQ(Load(other, Stored(point)).cause, CArchiveException::none);
    EXPECT_EQ(other.GetX(), 3);
    EXPECT_EQ(point != other, 1) << "a NaN is equal in the same object only";
}

TEST(BasaltArrays, CopiesOfPointListsShareNothing)
{
    CArrayArrayPointD lists;
    CArrayPointD list;
    CPointD point;
    point.SetData(1, 2);
    list.Add(point);
    lists.Add(list);
    const std::unique_ptr<CArrayArrayPointD> clone(lists.clone());
    lists[0][0].SetX(9);
    ASSERT_EQ(clone->GetSize(), 1);
    ASSERT_EQ(clone->GetAt(0).GetSize(), 1);
    const CPointD copied = clone->GetAt(0).GetAt(0);
    EXPECT_EQ(XY(copied.GetX(), copied.GetY()), XY(1, 2));
}

TEST(BasaltArrays, RectangleListsCompareByValueInOrder)
{
    CRectD a(1, 2, 3, 4), sameAsA(1, 2, 3, 4), b(5, 6, 7, 8);
    CArrayRectD list, equal, swapped;
    EXPECT_EQ(list == equal, 1) << "both empty";
    for (CRectD* rect : {&a, &b})
        list.Add(rect);
    EXPECT_EQ(list != equal, 1);
    for (CRectD* rect : {&sameAsA, &b})
        equal.Add(rect);
    for (CRectD* rect : {&b, &a})
        swapped.Add(rect);
    EXPECT_EQ(list == equal, 1);
    EXPECT_EQ(list == swapped, 0);
    const std::unique_ptr<CArrayRectD> clone(list.clone());
    EXPECT_EQ(clone->GetAt(1), &b) << "a copy points to the same rectangles";

    CArrayRectF values, others;
    CRectF value;
    values.Add(value);
    value = a;
    others.Add(value);
    EXPECT_EQ(values != others, 1);
    values.SetAt(0, value);
    EXPECT_EQ(values == others, 1);
}
