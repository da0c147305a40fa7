#include "foundation/CKObject.h"

#include <gtest/gtest.h>

// Made before main and before every test: the first object of the process.
static const int firstNumber = CKObject().GetObjectNumber();

TEST(CKObject, OnlyConstructionFromNothingTakesANumber)
{
    EXPECT_EQ(firstNumber, 1);
    CKObject a, b, c;
    EXPECT_EQ(b.GetObjectNumber(), a.GetObjectNumber() + 1);
    EXPECT_EQ(c.GetObjectNumber(), a.GetObjectNumber() + 2);

    const CKObject copy(b);
    EXPECT_EQ(copy.GetObjectNumber(), b.GetObjectNumber());
    a = c;
    EXPECT_EQ(a.GetObjectNumber(), c.GetObjectNumber());
    b.SetObjNumber(-7);
    EXPECT_EQ(b.IsSameObjectNumber(-7), 1);
    EXPECT_EQ(b.IsSameObjectNumber(7), 0);
    EXPECT_EQ(CKObject().GetObjectNumber(), c.GetObjectNumber() + 1)
        << "copies, assignment and the setter leave the counter alone";
}
