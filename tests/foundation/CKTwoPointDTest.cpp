#include "foundation/CKTwoPointD.h"

#include "support/ArchiveBytes.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace archive_bytes;

TEST(CKTwoPointD, ComparesExactlyAndItselfAlways)
{
    CKTwoPointD a(1, 2, 3, 4);
    for (int i = 0; i < 4; ++i) {
        CKTwoPointD b(1, 2, 3, 4);
        EXPECT_EQ(a == b, 1);
        double v[4] = {1, 2, 3, 4};
        v[i] = std::nextafter(v[i], 9);
        b = CKTwoPointD(v[0], v[1], v[2], v[3]);
        EXPECT_EQ(a == b, 0) << i;
        EXPECT_EQ(a != b, 1) << i;
    }
    CKTwoPointD nan(std::nan(""), 0, 0, 0);
    const CKTwoPointD other(nan);
    const CKTwoPointD& self = nan;
    EXPECT_EQ(nan != self, 0);
    EXPECT_EQ(nan == other, 0);
}

TEST(CKTwoPointD, RecordIsVersionAndFourDoubles)
{
    CKTwoPointD points(1.5, -2, 0, 1e300);
    const Bytes record = Record().I(1).D(1.5).D(-2).D(0).D(1e300).bytes;
    EXPECT_EQ(Stored(points), record);

    CKTwoPointD loaded;
    const Outcome outcome = Load(loaded, record);
    EXPECT_EQ(outcome.cause, CArchiveException::none);
    EXPECT_EQ(outcome.consumed, 36u);
    EXPECT_EQ(loaded == points, 1);
}

TEST(CKTwoPointD, VersionsDecideWhatIsRead)
{
    for (int version : {0, -1, -2147483647}) {
        CKTwoPointD kept(1, 2, 3, 4);
        const Outcome outcome = Load(kept, Record().I(version).D(9).D(9).D(9).D(9).bytes);
        EXPECT_EQ(outcome.consumed, 4u) << version;
        EXPECT_EQ(kept == CKTwoPointD(1, 2, 3, 4), 1) << version;
    }
    CKTwoPointD newer;
    EXPECT_EQ(Load(newer, Record().I(77).D(1).D(2).D(3).D(4).bytes).consumed, 36u);
    EXPECT_EQ(newer == CKTwoPointD(1, 2, 3, 4), 1);
}

TEST(CKTwoPointD, EveryCutKeepsWhatWasReadBefore)
{
    const Bytes record = Record().I(1).D(5).D(6).D(7).D(8).bytes;
    for (size_t size = 0; size < record.size(); ++size) {
        CKTwoPointD points(1, 2, 3, 4);
        EXPECT_EQ(Load(points, Bytes(record.begin(), record.begin() + long(size))).cause, CArchiveException::endOfFile);
        EXPECT_EQ(points.GetX1(), size >= 12 ? 5 : 1) << size;
        EXPECT_EQ(points.GetY1(), size >= 20 ? 6 : 2) << size;
        EXPECT_EQ(points.GetX2(), size >= 28 ? 7 : 3) << size;
        EXPECT_EQ(points.GetY2(), 4) << size;
    }
}
