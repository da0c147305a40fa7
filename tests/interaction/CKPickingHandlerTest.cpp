#include "interaction/CKPickingHandler.h"

#include "entities/CKGeomLine.h"
#include "entities/CKGeomPoint.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <tuple>
#include <utility>

namespace {

/// A record that tells by its letter when it is destroyed.
class Hit : public CKPcbElementInfo
{
public:
    explicit Hit(char name) : m_name(name) {}
    ~Hit() override { destroyed += m_name; }

    static std::string TakeDestroyed() { return std::exchange(destroyed, ""); }

private:
    const char m_name;
    static inline std::string destroyed;
};

/// A host's hit test: finds one element left of x = 100 and marks what it was called with.
class Picker final : public CKPickingHandler
{
public:
    using CKPickingHandler::Picking;

    int Picking(CKPcbElementInfoArray* list, unsigned int flags, int x, int y) override
    {
        asked = {list, flags, x, y};
        if (x < 100)
            list->Add(new Hit('p'));
        return 42 + y;
    }

    std::tuple<CKPcbElementInfoArray*, unsigned int, int, int> asked;
};

class PlainObject : public CObject
{};

class ObjectPoint : public CObject, public CKGeomPoint
{};

auto FieldsOf(CKPcbElementInfo record)
{
    return std::make_tuple(record.GetParent(), record.GetChild(), record.GetChildDetail(), record.GetPeekingX(),
                           record.GetPeekingY());
}

const auto kEmptyFields =
    std::make_tuple((CKEntity*)nullptr, (CKEntity*)nullptr, (CObject*)nullptr, 0.0, 0.0); // of a fresh record

TEST(CKPcbElementInfo, NullUnlessParentOrChild)
{
    CKGeomLine line;
    CKGeomPoint point;
    struct
    {
        CKEntity *parent, *child;
        int isNull, parentNumber, childNumber;
    } const cases[] = {
        {nullptr, nullptr, 1, 0, 0},
        {&line, nullptr, 0, line.GetObjectNumber(), 0},
        {nullptr, &point, 0, 0, point.GetObjectNumber()},
        {&line, &point, 0, line.GetObjectNumber(), point.GetObjectNumber()},
    };
    for (const auto& c : cases) {
        CKPcbElementInfo record(c.parent, c.child);
        EXPECT_EQ(FieldsOf(record), std::make_tuple(c.parent, c.child, (CObject*)nullptr, 0.0, 0.0));
        PlainObject detail;
        record.SetChildDetail(&detail);
        record.SetPeeking(1, 2);
        EXPECT_EQ(record.IsNull(), c.isNull) << "detail and peeking point do not count";
        EXPECT_EQ(record.GetParentObjectNumber(), c.parentNumber);
        EXPECT_EQ(record.GetChildObjectNumber(), c.childNumber);
    }
}

TEST(CKPcbElementInfo, DetailIsAnEntityOnlyWhenTheObjectIs)
{
    CKPcbElementInfo record;
    EXPECT_EQ(record.GetChildDetailCKEntity(), nullptr);
    PlainObject plain;
    record.SetChildDetail(&plain);
    EXPECT_EQ(record.GetChildDetailCKEntity(), nullptr);
    ObjectPoint both;
    record.SetChildDetail(&both);
    EXPECT_EQ(record.GetChildDetailCKEntity(), static_cast<CKEntity*>(&both));
}

TEST(CKPcbElementInfo, CopiesShareWhatTheyReferTo)
{
    CKGeomLine line;
    CKGeomPoint point;
    ObjectPoint detail;
    CKPcbElementInfo source;
    EXPECT_EQ(FieldsOf(source), kEmptyFields);
    source.SetParent(&line);
    source.SetChild(&point);
    source.SetChildDetail(&detail);
    source.SetPeeking(2.5, -1);
    const auto fields = std::make_tuple((CKEntity*)&line, (CKEntity*)&point, (CObject*)&detail, 2.5, -1.0);

    const std::unique_ptr<CKPcbElementInfo> clone(source.GenerateClone());
    CKPcbElementInfo assigned;
    assigned = source;
    for (const CKPcbElementInfo& copy : {source, *clone, assigned})
        EXPECT_EQ(FieldsOf(copy), fields);

    clone->SetParent(nullptr);
    source.DeleteAll();
    EXPECT_EQ(FieldsOf(source), fields) << "not tied to its clone, and nothing to delete";
    EXPECT_EQ(FieldsOf(source.GenerateEmptyClone()), kEmptyFields);
}

TEST(CKPickingHandler, FindsNothingByItself)
{
    CKPickingHandler handler;
    EXPECT_EQ(handler.Picking(0, 10, 20, 0), 0);
    handler.AddPickingInfo(nullptr);
    EXPECT_EQ(handler.IsPick(), 0);
    EXPECT_EQ(handler.IsEmptyPickingInfo(), 1);
    handler.Unpicking();
    handler.DeleteAllPickingInfoElements();
    EXPECT_EQ(handler.GetPickingInfoArray()->GetSize(), 0);
    EXPECT_EQ(handler.GetPainter(), nullptr);
}

TEST(CKPickingHandler, KeepsWhatTheHitTestAppends)
{
    {
        Picker picker;
        CKPcbElementInfoArray* const list = picker.GetPickingInfoArray();
        EXPECT_EQ(picker.Picking(7u, 100, -2, 9), 40);
        EXPECT_EQ(picker.asked, std::make_tuple(list, 7u, 100, -2));
        EXPECT_EQ(picker.IsPick(), 0) << "the result is not a count";

        Hit* const added = new Hit('a');
        picker.AddPickingInfo(added);
        EXPECT_EQ(picker.Picking(0, 99, 0, 0), 42);
        EXPECT_EQ(picker.Picking(0, 99, 0, 0), 42);
        EXPECT_EQ(list->GetSize(), 3) << "a new pick does not empty the list";
        EXPECT_EQ(list->GetAt(0), added);
        EXPECT_EQ(picker.IsPick(), 1);
        EXPECT_EQ(picker.IsEmptyPickingInfo(), 0);

        picker.AddPickingInfo(added);
        EXPECT_EQ(list->GetSize(), 4) << "duplicates are the host's business";
        list->RemoveAt(3);
        list->Add(nullptr);

        picker.DeleteAllPickingInfoElements();
        EXPECT_EQ(Hit::TakeDestroyed(), "app");
        EXPECT_EQ(picker.IsPick(), 0);
        EXPECT_EQ(picker.GetPickingInfoArray(), list);
        picker.AddPickingInfo(new Hit('x'));
        picker.AddPickingInfo(new Hit('y'));
    }
    EXPECT_EQ(Hit::TakeDestroyed(), "xy");
}

TEST(CKPickingHandler, LastOfTheCopiesFreesTheSharedList)
{
    auto first = std::make_unique<Picker>();
    first->AddPickingInfo(new Hit('s'));
    CKPickingHandler built(*first);
    EXPECT_EQ(built.GetPickingInfoArray(), first->GetPickingInfoArray());
    {
        CKPickingHandler assigned;
        assigned.AddPickingInfo(new Hit('o'));
        const std::unique_ptr<CKPcbElementInfoArray> old(assigned.GetPickingInfoArray());
        assigned = built;
        EXPECT_EQ(Hit::TakeDestroyed(), "") << "the list held before is the caller's now";
        EXPECT_EQ(old->GetSize(), 1);
        assigned = built;                                          // once more, from within
        assigned = static_cast<const CKPickingHandler&>(assigned); // parts from nobody
        assigned.AddPickingInfo(new Hit('t'));
    }
    EXPECT_EQ(Hit::TakeDestroyed(), "o") << "with the caller's list, while two still share the other";
    first.reset();
    EXPECT_EQ(Hit::TakeDestroyed(), "");
    EXPECT_EQ(built.GetPickingInfoArray()->GetSize(), 2);

    built.DeleteAllPickingInfoElements();
    EXPECT_EQ(Hit::TakeDestroyed(), "st");
}

} // namespace
