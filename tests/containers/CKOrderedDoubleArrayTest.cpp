#include "containers/CKOrderedDoubleArray.h"

#include "support/ArchiveBytes.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <sstream>
#include <vector>

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

std::string Elements(const CKOrderedDoubleArray& list)
{
    std::ostringstream text;
    for (INT_PTR i = 0; i < list.GetSize(); ++i)
        text << list[i] << ' ';
    return text.str();
}

struct InsertCase
{
    const char* why;
    int ascending;
    std::vector<double> added;
    const char* elements;
};

const InsertCase kInserts[] = {
    {"equals stay together", 1, {0.5, 1, 0.5}, "0.5 0.5 1 "},
    {"descending", 0, {0.5, 2.5, 1, 2.5}, "2.5 2.5 1 0.5 "},
    {"a NaN goes to the end", 1, {2, 1, kNaN}, "1 2 nan "},
    {"a NaN stops nothing", 1, {kNaN, 2, 1}, "nan 1 2 "},
    {"nor does it descending", 0, {kNaN, 1, 2}, "nan 2 1 "},
    {"zeros are equal", 1, {0.0, -0.0, -1, 0.0}, "-1 0 -0 0 "},
    {"infinities bound all", 1, {kInfinity, 1, -kInfinity, kInfinity}, "-inf 1 inf inf "},
};

} // namespace

TEST(CKOrderedDoubleArray, InsertsInOrder)
{
    for (const InsertCase& c : kInserts) {
        CKOrderedDoubleArray list(c.ascending);
        for (double value : c.added)
            list.AddDouble(value);
        EXPECT_EQ(Elements(list), c.elements) << c.why;
    }
}

TEST(CKOrderedDoubleArray, ContainsExactValues)
{
    CKOrderedDoubleArray list;
    list.RemoveLast();
    for (double value : {0.5, 1.0, kNaN})
        list.AddDouble(value);
    EXPECT_EQ(list.IsContain(0.5), 1);
    EXPECT_EQ(list.IsContain(std::nextafter(0.5, 1.0)), 0);
    EXPECT_EQ(list.IsContain(kNaN), 0) << "a NaN equals nothing";
    list.RemoveLast();
    list.SetOrderAscending(0);
    list.AddDouble(2.0);
    EXPECT_EQ(archive_bytes::Stored(list), archive_bytes::Record().Raw("\3\0", 2).D(2).D(0.5).D(1).bytes);
}
