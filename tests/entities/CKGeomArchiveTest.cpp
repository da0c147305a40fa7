#include "entities/CKGeomArc.h"
#include "entities/CKGeomCircle.h"
#include "entities/CKGeomLine.h"
#include "entities/CKGeomPoint.h"
#include "entities/CKGeomRectangle.h"
#include "entities/CKGeomText.h"
#include "support/ArchiveBytes.h"

#include <gtest/gtest.h>

#include <string>

using namespace archive_bytes;

namespace {

Record Header()
{
    return Record().Header(1.5, -2, 0, 0, 10, 10);
}

/// The shape with the geometry that Header() stores.
template <typename Shape>
Shape Placed(Shape shape)
{
    shape.SetOffsetXY(1.5, -2);
    shape.SetMinMax(0, 0, 10, 10);
    return shape;
}

CKGeomArc DirectedArc()
{
    CKGeomArc arc(1, 2, 3, 4, 5, 6, 0.25);
    arc.setDirection(-1);
    return arc;
}

CKGeomLine someLine = Placed(CKGeomLine(1, 2, 3, 4, 0.25));
CKGeomArc someArc = Placed(DirectedArc());
CKGeomText someText = Placed(CKGeomText("R12", 3, 4, 90, 33));

const Bytes lineRecord = Header().I(1).D(1).D(2).D(3).D(4).D(0.25).bytes;
const Bytes arcRecord = Header().I(1).D(1).D(2).D(3).D(4).D(0.25).D(5).D(6).I(-1).bytes;
const Bytes textRecord = Header().I(1).Text("\x03R12").D(3).D(4).F(90).bytes;

/// A shape that was cut off has, field by field, the new value where its bytes were there and the old one after that.
/// `fields` lists its doubles in the order of the record behind the header, which begins at byte 60.
template <typename Shape, size_t Count>
void ExpectCutsKeepOrder(const Bytes& record, const Shape& before, const Shape& after,
                         double (Shape::*const (&fields)[Count])())
{
    for (size_t size = 0; size < record.size(); ++size) {
        Shape shape(before);
        ASSERT_EQ(Load(shape, Bytes(record.begin(), record.begin() + long(size))).cause, CArchiveException::endOfFile);
        for (size_t i = 0; i < Count; ++i) {
            Shape expected(size >= 60 + 8 * (i + 1) ? after : before);
            ASSERT_EQ((shape.*fields[i])(), (expected.*fields[i])()) << "cut at " << size << ", field " << i;
        }
        ASSERT_EQ(shape.GetOffsetX(), size >= 12 ? 1.5 : 0) << size;
        ASSERT_EQ(shape.GetOffsetY(), size >= 20 ? -2 : 0) << size;
        ASSERT_EQ(shape.GetMinMax().GetX2(), size >= 48 ? 10 : 0) << size;
        ASSERT_EQ(shape.GetMinMax().GetY2(), size >= 56 ? 10 : 0) << size;
    }
}

} // namespace

TEST(CKGeomArchive, RecordsByteByByte)
{
    EXPECT_EQ(Stored(someLine), lineRecord);
    EXPECT_EQ(Stored(someArc), arcRecord);
    EXPECT_EQ(Stored(someText), textRecord) << "the font size is not archived";
    CKGeomPoint point(1, 2);
    EXPECT_EQ(Stored(point), Record().I(1).Zeros(16).I(1).Zeros(32).I(1).D(1).D(2).bytes);
    CKGeomCircle circle(1, 2, 3);
    EXPECT_EQ(Stored(circle), Record().Header(0, 0, 0, 0, 0, 0).bytes);
}

TEST(CKGeomArchive, LoadsWhatWasStoredAndLeavesTheEntityAlone)
{
    CKGeomLine line;
    const int number = line.GetObjectNumber();
    line.SetColor(0x00FF00ul);
    line.Picked(4);
    EXPECT_EQ(Load(line, lineRecord).consumed, lineRecord.size());
    EXPECT_EQ(line == someLine, 1);
    EXPECT_EQ(line.GetObjectNumber(), number);
    EXPECT_EQ(line.GetColor(), 0x00FF00u);
    EXPECT_EQ(line.GetPicker(), 4);
    CKGeomArc arc;
    EXPECT_EQ(Load(arc, arcRecord).consumed, arcRecord.size());
    EXPECT_EQ(arc == someArc, 1);
    CKGeomText text("old", 0, 0, 0, 33);
    EXPECT_EQ(Load(text, textRecord).consumed, textRecord.size());
    EXPECT_EQ(text == someText, 1) << "with the font size that it had";

    // Circle and rectangle take the header only and keep what is theirs.
    CKGeomCircle circle(1, 2, 3);
    EXPECT_EQ(Load(circle, Header().bytes).consumed, 56u);
    EXPECT_EQ(circle.GetOffsetX(), 1.5);
    EXPECT_EQ(circle.GetRadius(), 3);
    CKGeomRectangle rectangle;
    rectangle.SetData(0, 2, 0, 2, 5);
    EXPECT_EQ(Load(rectangle, Header().bytes).consumed, 56u);
    EXPECT_EQ(rectangle.GetWidth(), 2);
}

/// A section of version 0 behind the header leaves the shape as it was.
template <typename Shape>
void ExpectOldSectionKeeps(Shape shape)
{
    const Shape before(shape);
    EXPECT_EQ(Load(shape, Header().I(0).bytes).consumed, 60u);
    EXPECT_EQ(shape == before, 1);
}

TEST(CKGeomArchive, OldVersionsEndTheirSectionOnly)
{
    // A section of version 0 is its 4 bytes; the sections around it are read as usual.
    CKGeomLine line(9, 9, 9, 9, 9);
    EXPECT_EQ(Load(line, Record().I(0).I(1).D(1).D(2).D(3).D(4).D(5).bytes).consumed, 48u);
    EXPECT_EQ(line.GetOffsetX(), 0);
    EXPECT_EQ(line.GetThickness(), 5);
    CKGeomLine kept(9, 9, 9, 9, 9);
    EXPECT_EQ(Load(kept, Header().I(-3).D(1).bytes).consumed, 60u);
    EXPECT_EQ(kept.GetOffsetX(), 1.5);
    EXPECT_EQ(kept.GetStartX(), 9);
    CKGeomLine corners;
    EXPECT_EQ(Load(corners, Record().I(1).D(7).D(8).I(0).I(2).D(1).D(2).D(3).D(4).D(5).bytes).consumed, 68u);
    EXPECT_EQ(corners.GetOffsetY(), 8);
    EXPECT_EQ(corners.GetMinMax() == CKTwoPointD(), 1);
    EXPECT_EQ(corners.GetEndX(), 3);

    ExpectOldSectionKeeps(someArc);
    ExpectOldSectionKeeps(someText);
    ExpectOldSectionKeeps(Placed(CKGeomPoint(5, 6)));
}

TEST(CKGeomArchive, EveryCutRaisesAndKeepsWhatWasRead)
{
    ExpectCutsKeepOrder<CKGeomLine>(lineRecord, CKGeomLine(9, 9, 9, 9, 9), someLine,
                                    {&CKGeomLine::GetStartX, &CKGeomLine::GetStartY, &CKGeomLine::GetEndX,
                                     &CKGeomLine::GetEndY, &CKGeomLine::GetThickness});
    ExpectCutsKeepOrder<CKGeomArc>(arcRecord, CKGeomArc(9, 9, 9, 9, 9, 9, 9), someArc,
                                   {&CKGeomArc::GetStartX, &CKGeomArc::GetStartY, &CKGeomArc::GetEndX,
                                    &CKGeomArc::GetEndY, &CKGeomArc::GetThickness, &CKGeomArc::GetCenterX,
                                    &CKGeomArc::GetCenterY});
    for (size_t size = 0; size < textRecord.size(); ++size) {
        CKGeomText text("old", 9, 9, 9);
        ASSERT_EQ(Load(text, Bytes(textRecord.begin(), textRecord.begin() + long(size))).cause,
                  CArchiveException::endOfFile);
        ASSERT_STREQ(text.GetText(), size >= 64 ? "R12" : "old") << size;
        ASSERT_EQ(text.GetX(), size >= 72 ? 3 : 9) << size;
    }
}

TEST(CKGeomArchive, TextsOfAllLengthsAndForms)
{
    for (size_t length : {0, 254, 255, 300}) {
        CKGeomText text(std::string(length, 'x').c_str());
        const Bytes bytes = Stored(text);
        // The length takes 1 byte below 255, then the byte 0xFF and 2 more.
        EXPECT_EQ(bytes.size(), 80 + (length < 255 ? 1 : 3) + length);
        CKGeomText loaded("old");
        EXPECT_EQ(Load(loaded, bytes).cause, CArchiveException::none);
        EXPECT_EQ(loaded == text, 1) << length;
    }
    // A wide string, which only other writers make: the units of "AZ".
    CKGeomText wide;
    Record record = Header().I(1).Text("\xFF\xFE\xFF\x02");
    record.Text("A").Zeros(1).Text("Z").Zeros(1).D(3).D(4).F(0);
    EXPECT_EQ(Load(wide, record.bytes).consumed, record.bytes.size());
    EXPECT_STREQ(wide.GetText(), "AZ");
    // A length of 4 GB with three bytes behind it.
    CKGeomText promised("old");
    EXPECT_EQ(Load(promised, Header().I(1).Text("\xFF\xFF\xFF").I(-2).Text("abc").bytes).cause,
              CArchiveException::endOfFile);
    EXPECT_STREQ(promised.GetText(), "old");
}
