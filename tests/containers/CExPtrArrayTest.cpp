#include "containers/CExPtrArray.h"

#include "foundation/CArrayPointD.h"
#include "foundation/CRectD.h"
#include "LetterObjects.h"

#include <algorithm>
#include <climits>
#include <random>
#include <vector>

namespace {

using List = CExPtrArray<Letter*, Letter*>;
using Model = std::vector<Letter*>;

const DeleteCase<List> kDeletes[] = {
    {"the first match", "abc", [](List& l) { EXPECT_TRUE(l.Delete(l.GetAt(1))); }, false, "b", "ac"},
    {"a null slot has no object", "a-b-", [](List& l) { EXPECT_TRUE(l.Delete(nullptr)); }, false, "", "ab-"},
    {"an absent element", "ab", [](List& l) { EXPECT_FALSE(l.Delete(nullptr)); }, false, "", "ab"},
    {"a range with a null in it", "a-cd", [](List& l) { l.DeleteAt(0, 3); }, false, "ac", "d"},
    {"no count", "abc", [](List& l) { l.DeleteAt(9, 0); }, false, "", "abc"},
    {"a negative count", "abc", [](List& l) { l.DeleteAt(0, INT_MIN); }, false, "", "abc"},
    {"past the end, after two", "abc", [](List& l) { l.DeleteAt(1, INT_MAX); }, true, "bc", "a"},
    {"at the end", "abc", [](List& l) { l.DeleteAt(3, 1); }, true, "", "abc"},
    {"at the largest index", "abc", [](List& l) { l.DeleteAt(INT_MAX, 2); }, true, "", "abc"},
    {"below the list", "abc", [](List& l) { l.DeleteAt(-1, 2); }, true, "", "abc"},
    {"the last", "abc", [](List& l) { EXPECT_TRUE(l.DeleteLastElement()); }, false, "c", "ab"},
    {"a null last", "ab-", [](List& l) { EXPECT_TRUE(l.DeleteLastElement()); }, false, "", "ab"},
    {"no last", "", [](List& l) { EXPECT_FALSE(l.DeleteLastElement()); }, false, "", ""},
    {"all, first to last", "a-cb", [](List& l) { l.DeleteAll(); }, false, "acb", ""},
    {"a move without a range", "abc", [](List& l) { EXPECT_FALSE(l.MoveElementTo(l, 2, 1)); }, false, "", "abc"},
    {"a move from past the end", "abc", [](List& l) { l.MoveElementTo(l, 0, 3); }, true, "", "abc"},
    {"a move from below the list", "abc", [](List& l) { l.MoveElementTo(l, INT_MIN, -1); }, true, "", "abc"},
};

// What the operations mean, written as one search, one insertion and one removal after the other.
bool RemoveFirst(Model& model, Letter* p)
{
    const auto found = std::find(model.begin(), model.end(), p);
    const bool isFound = found != model.end();
    if (isFound)
        model.erase(found);
    return isFound;
}

void RemoveDuplicates(Model& model)
{
    for (size_t i = 0; i + 1 < model.size(); ++i)
        model.erase(std::remove(model.begin() + std::ptrdiff_t(i) + 1, model.end(), model[i]), model.end());
}

/// True when an index fails.
bool MoveRange(Model& from, Model& to, int first, int last)
{
    const size_t end = to.size();
    for (int k = last; k >= first; --k) {
        if (k < 0 || size_t(k) >= from.size())
            return true;
        Letter* const moved = from[size_t(k)];
        to.insert(to.begin() + std::ptrdiff_t(end), moved);
        from.erase(from.begin() + k);
    }
    return false;
}

/// Two lists and their models under the same operations.
struct Twins
{
    List list, other;
    Model model, otherModel;

    void Step(int operation, Letter* object, int first, int last)
    {
        switch (operation) {
        case 0:
            EXPECT_EQ(list.Remove(object), RemoveFirst(model, object));
            break;
        case 1:
            list.RemoveNullElement();
            model.erase(std::remove(model.begin(), model.end(), nullptr), model.end());
            break;
        case 2:
            list.RemoveDuplicatedElements();
            RemoveDuplicates(model);
            break;
        case 3:
            list.Subtract(other);
            for (Letter* subtracted : otherModel)
                RemoveFirst(model, subtracted);
            break;
        case 4:
        case 5: {
            const bool fails = MoveRange(model, operation == 4 ? model : otherModel, first, last);
            List& to = operation == 4 ? list : other;
            EXPECT_EQ(
                Raises<CInvalidArgException>([&] { EXPECT_EQ(list.MoveElementTo(to, first, last), first <= last); }),
                fails);
            break;
        }
        case 6:
            list.Reverse();
            std::reverse(model.begin(), model.end());
            break;
        case 7:
            list.SetAt(first, object);
            if (list.IsValidIndex(first))
                model[size_t(first)] = object;
            break;
        default:
            EXPECT_EQ(list.Add_if_only_do_not_exists(object),
                      std::count(model.begin(), model.end(), object) ? -1 : INT_PTR(model.size()));
            if (list.GetSize() > INT_PTR(model.size()))
                model.push_back(object);
        }
    }
    void Add(Letter* object) { model.push_back(list.GetAt(list.Add(object))); }
    void Swap()
    {
        Model listed(list.GetData(), list.GetData() + list.GetSize());
        list.RemoveAll();
        list.Append(other);
        other.RemoveAll();
        for (Letter* object : listed)
            other.Add(object);
        model.swap(otherModel);
    }
    bool Agree() const
    {
        return std::equal(model.begin(), model.end(), list.GetData(), list.GetData() + list.GetSize()) &&
               std::equal(otherModel.begin(), otherModel.end(), other.GetData(), other.GetData() + other.GetSize()) &&
               list.GetLastElement() == (model.empty() ? nullptr : model.back()) &&
               list.IsElementEqual(other) == (model == otherModel);
    }
};

} // namespace

TEST(CExPtrArray, DeletesInOrderAndKeepsTheRest)
{
    for (const DeleteCase<List>& c : kDeletes)
        c.Run();
}

// Few objects that repeat often, then so many that their addresses outgrow a table on the stack.
TEST(CExPtrArray, FollowsTheModel)
{
    for (const auto& [seed, pool] : {std::pair(1u, 4), std::pair(2u, 100)}) {
        std::mt19937 random(seed);
        const auto below = [&random](int n) { return int(random() % unsigned(n)); };
        List objects;
        Spell(objects, std::string(size_t(pool), 'x') + "--");
        Twins twins;
        for (int step = 0; step < 3000; ++step) {
            const int size = int(twins.model.size());
            const int operation = below(9);
            if (step % 40 == 0) {
                twins.Swap();
                for (int i = below(3 * pool); i > 0; --i)
                    twins.Add(objects.GetAt(below(pool + 2)));
            }
            twins.Step(operation, objects.GetAt(below(pool + 2)), below(size + 3) - 1, below(size + 2) - 1);
            ASSERT_TRUE(twins.Agree()) << "seed " << seed << ", step " << step << ", operation " << operation;
        }
        EXPECT_EQ(Letter::destroyed, "");
        CleanUp(objects);
    }
}

TEST(CExPtrArray, LeavesWhatLiesOutsideAlone)
{
    List list;
    Spell(list, "ab");
    for (INT_PTR outside : {INT_PTR(-1), INT_PTR(2), INT_PTR(1) << 32}) {
        EXPECT_EQ(list.GetAt(outside), nullptr);
        list.SetAt(outside, nullptr);
    }
    EXPECT_EQ(Word(list), "ab");
    EXPECT_EQ(list.FindIndex(list.GetAt(1)), 1);
    EXPECT_EQ(list.FindIndex(nullptr), -1);
    List all;
    all.Append(list);
    list.Subtract(list);
    EXPECT_EQ(list.GetLastIndex(), -1) << "a list less itself is empty";
    EXPECT_EQ(list.RemoveLastElement(), nullptr);
    Letter* const last = all.RemoveLastElement();
    EXPECT_EQ(last->name, 'b');
    delete last;
    CleanUp(all);
}

// A search for each element would take some 10^10 steps here.
TEST(CExPtrArray, LongListsTakeLinearTime)
{
    constexpr int kCount = 200000;
    std::vector<char> memory(kCount);
    CExPtrArray<char*> list, twice, odd;
    for (int i = 0; i < kCount; ++i) {
        list.Add(&memory[size_t(i)]);
        if (i % 2)
            odd.Add(&memory[size_t(i)]);
    }
    twice.Append(list);
    twice.Append(list);
    twice.RemoveDuplicatedElements();
    EXPECT_TRUE(twice.IsElementEqual(list));
    list.Subtract(odd);
    ASSERT_EQ(list.GetSize(), kCount / 2);
    for (int i = 0; i < kCount; i += 2)
        ASSERT_EQ(list.GetAt(i / 2), &memory[size_t(i)]);
}

namespace {

int destroyedDerived = 0;

template <class Base>
struct Derived : Base
{
    ~Derived() override { ++destroyedDerived; }
};

} // namespace

TEST(CExPtrArray, ExportedListsDestroyThroughTheVirtualDestructor)
{
    CExPtrArray<CRectD*, CRectD*> rectangles;
    rectangles.Add(new Derived<CRectD>);
    rectangles.DeleteAll();
    CExPtrArray<CArrayPointD*, CArrayPointD*> points;
    points.Add(new Derived<CArrayPointD>);
    points.DeleteAt(0, 1);
    EXPECT_EQ(destroyedDerived, 2);
}
