#include "containers/CKArray.h"

#include "LetterObjects.h"

namespace {

using List = CKArray<Letter*, Letter*>;

const DeleteCase<List> kDeletes[] = {
    {"one of the middle", "abc", [](List& l) { l.RemoveAfterDelete(1); }, false, "b", "ac"},
    {"a null slot", "a-c", [](List& l) { l.RemoveAfterDelete(1); }, false, "", "ac"},
    {"past the end", "abc", [](List& l) { l.RemoveAfterDelete(3); }, true, "", "abc"},
    {"below the list", "abc", [](List& l) { l.RemoveAfterDelete(-1); }, true, "", "abc"},
    {"the last", "abc", [](List& l) { l.DeleteLastElement(); }, false, "c", "ab"},
    {"no last", "", [](List& l) { l.DeleteLastElement(); }, false, "", ""},
    {"the last again", "abc", [](List& l) { l.EliminateLast(); }, false, "c", "ab"},
    {"none to eliminate", "", [](List& l) { l.EliminateLast(); }, true, "", ""},
    {"all, first to last", "ba-c", [](List& l) { l.RemoveAllAfterDelete(); }, false, "bac", ""},
    {"indices that no list has", "abc", [](List& l) { l.DeleteAt(5), l.DeleteAt(-1); }, false, "", "abc"},
};

} // namespace

TEST(CKArray, UnlinksWhatItDestroys)
{
    for (const DeleteCase<List>& c : kDeletes)
        c.Run();
}

TEST(CKArray, KeepsTheSlotsOfDestroyedObjects)
{
    List list;
    Spell(list, "ab-c");
    list.DeleteAt(1);
    EXPECT_EQ(Letter::destroyed, "b");
    EXPECT_EQ(list.GetSize(), 4);
    list.SetAt(1, nullptr);
    list.DeleteElements();
    EXPECT_EQ(Letter::destroyed, "bac");
    EXPECT_EQ(list.GetSize(), 4);
    Letter::destroyed.clear();
}

TEST(CKArray, FindsByAddressAndLeavesElementsToTheirOwner)
{
    Letter a('a'), b('b'), alike('a');
    {
        List list;
        for (Letter* element : {&b, &a, &a, static_cast<Letter*>(nullptr)})
            list.Add(element);
        EXPECT_EQ(list.GetIndex(&a), 1);
        EXPECT_EQ(list.GetIndex(nullptr), 3);
        EXPECT_EQ(list.GetIndex(&alike), -1);
        EXPECT_EQ(list.Contain(&b), 1);
        EXPECT_EQ(list.Contain(&alike), 0);
    }
    EXPECT_EQ(Letter::destroyed, "");
}
