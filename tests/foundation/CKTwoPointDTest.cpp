#include "foundation/CKTwoPointD.h"

#include "support/ArchiveBytes.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace archive_bytes;

TEST(CKTwoPointD, ComparesExactlyAndItselfAlways)
{
    CKTwoPointD a(1, 2, 3, 4);
    EXPECT_EQ(a == CKTwoPointD(1, 2, 3, 4), 1);
    for (int i = 0; i < 4; ++i) {
        double v[4] = {1, 2, 3, 4};
        v[i] = std::nextafter(v[i], 9);
        const CKTwoPointD b(v[0], v[1], v[2], v[3]);
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
    EXPECT_EQ(Load(loaded, record).consumed, 36u);
    EXPECT_EQ(loaded == points, 1);
    for (int version : {77, 0, -1, -2147483647}) {
        CKTwoPointD read(1, 2, 3, 4);
        const size_t consumed = Load(read, Record().I(version).D(9).D(9).D(9).D(9).bytes).consumed;
        EXPECT_EQ(consumed, version > 0 ? 36u : 4u) << version;
        EXPECT_EQ(read == (version > 0 ? CKTwoPointD(9, 9, 9, 9) : CKTwoPointD(1, 2, 3, 4)), 1) << version;
    }
}
