#include "containers/CKOrderedIntArray.h"

#include "support/ArchiveBytes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <random>
#include <vector>

namespace {

using Ints = std::vector<int>;

/// Elements as they are, whatever the order says.
void Fill(CKOrderedIntArray& list, const Ints& values)
{
    list.RemoveAll();
    for (int value : values)
        list.Add(value);
}

Ints Elements(const CKOrderedIntArray& list)
{
    return Ints(list.GetData(), list.GetData() + list.GetSize());
}

/// The insertion, walked element by element.
void InsertInOrder(Ints& model, int value, bool ascending)
{
    size_t at = 0;
    while (at < model.size() && (ascending ? model[at] <= value : model[at] >= value))
        ++at;
    model.insert(model.begin() + std::ptrdiff_t(at), value);
}

void ExpectSameAnswers(CKOrderedIntArray& list, CKOrderedIntArray& other, const Ints& model, const Ints& otherModel,
                       int value)
{
    const auto found = std::find(model.begin(), model.end(), value);
    const auto isHeld = [&](int v) { return std::find(model.begin(), model.end(), v) != model.end(); };
    EXPECT_EQ(list.IsContain(value), isHeld(value));
    EXPECT_EQ(list.GetIndex(value), isHeld(value) ? int(found - model.begin()) : -1);
    EXPECT_EQ(list.IsContainAny(&other), std::any_of(otherModel.begin(), otherModel.end(), isHeld));
    EXPECT_EQ(list.IsContainAll(&other),
              !otherModel.empty() && std::all_of(otherModel.begin(), otherModel.end(), isHeld));
    EXPECT_EQ(list == other, model == otherModel);
    EXPECT_EQ(list != other, model != otherModel);
}

} // namespace

TEST(CKOrderedIntArray, InsertsBehindEquals)
{
    for (int ascending : {1, 0, -7}) {
        CKOrderedIntArray list(ascending);
        for (int value : {5, 1, 3, 3, 9})
            list.AddInt(value);
        EXPECT_EQ(Elements(list), ascending ? Ints({1, 3, 3, 5, 9}) : Ints({9, 5, 3, 3, 1}));
    }
    CKOrderedIntArray list;
    Fill(list, {1, 2});
    list.SetOrderAscending(0);
    list.AppendInt(nullptr);
    list.AddInt(3);
    EXPECT_EQ(Elements(list), Ints({3, 1, 2})) << "the new order counts, the elements stay";
    for (int i = 0; i < 4; ++i)
        list.RemoveLast();
    EXPECT_TRUE(list.IsEmpty());
}

// Values from a narrow range repeat often, those from a wide one hardly. The order changes while elements are there, so
// most lists are out of order.
TEST(CKOrderedIntArray, FollowsTheModel)
{
    for (const auto& [seed, range] : {std::pair(1u, 12), std::pair(2u, INT_MAX)}) {
        std::mt19937 random(seed);
        CKOrderedIntArray list, other;
        Ints model, otherModel;
        bool ascending = true;
        const auto pick = [&, range = range](unsigned one, unsigned in) {
            const bool isNew = model.empty() || random() % in < one;
            return isNew ? int(random() % unsigned(range)) - range / 2 : model[random() % model.size()];
        };
        for (int step = 0; step < 3000; ++step) {
            const int v = pick(1, 2);
            const int operation = int(random() % 6);
            if (operation < 2) {
                list.AddInt(v);
                InsertInOrder(model, v, ascending);
            } else if (operation == 2 && model.size() < 400) {
                const bool isSelf = random() % 8 == 0;
                list.AppendInt(isSelf ? &list : &other);
                for (int appended : isSelf ? Ints(model) : otherModel)
                    InsertInOrder(model, appended, ascending);
            } else if (operation == 3) {
                list.RemoveInt(v);
                const auto found = std::find(model.begin(), model.end(), v);
                if (found != model.end())
                    model.erase(found);
            } else if (operation == 4) {
                otherModel.resize(random() % (random() % 2 ? 4 : 60));
                std::generate(otherModel.begin(), otherModel.end(), [&] { return pick(1, 16); });
                Fill(other, otherModel);
            } else if (random() % 8 == 0) {
                Fill(list, model = otherModel);
                list.SetOrderAscending(ascending = !ascending);
            }
            ASSERT_EQ(Elements(list), model) << "seed " << seed << ", step " << step << ", operation " << operation;
            ExpectSameAnswers(list, other, model, otherModel, v);
        }
    }
}

TEST(CKOrderedIntArray, EmptyListsContainNothing)
{
    CKOrderedIntArray empty, list;
    Fill(list, {0, 0, INT_MIN, -1});
    for (CKOrderedIntArray* other : {&empty, static_cast<CKOrderedIntArray*>(nullptr)})
        EXPECT_EQ(list.IsContainAll(other) + list.IsContainAny(other), 0);
    EXPECT_EQ(empty.IsContainAll(&list) + empty.IsContainAny(&list), 0);
    EXPECT_EQ(empty == CKOrderedIntArray(0), 1) << "orders are not compared";
}

namespace {

/// A host's list for which all lists are equal.
struct Indifferent : CKOrderedIntArray
{
    int operator==(const CKOrderedIntArray&) const override { return 1; }
};

} // namespace

TEST(CKOrderedIntArray, InequalityAsksTheHostsEquality)
{
    CKOrderedIntArray other;
    Fill(other, {1});
    const Indifferent list;
    EXPECT_EQ(static_cast<const CKOrderedIntArray&>(list) != other, 0);
}

TEST(CKOrderedIntArray, ArchivesElementsAndNotTheOrder)
{
    CKOrderedIntArray stored(0);
    for (int value : {1, -2, 3})
        stored.AddInt(value);
    const archive_bytes::Bytes bytes = archive_bytes::Stored(stored);
    EXPECT_EQ(bytes, archive_bytes::Record().Raw("\3\0", 2).I(3).I(1).I(-2).bytes) << "a WORD count, then the ints";

    CKOrderedIntArray loaded;
    archive_bytes::Load(loaded, bytes);
    loaded.AddInt(0);
    EXPECT_EQ(Elements(loaded), Ints({0, 3, 1, -2})) << "ascending, as it was constructed";
    const archive_bytes::Bytes cut(bytes.begin(), bytes.end() - 1);
    EXPECT_EQ(archive_bytes::Load(loaded, cut).cause, CArchiveException::endOfFile);
}

// A walk for each element would take some 10^10 steps.
TEST(CKOrderedIntArray, LongListsTakeLinearTime)
{
    constexpr int kCount = 200000;
    CKOrderedIntArray even, odd;
    for (int i = 0; i < 2 * kCount; ++i)
        (i % 2 ? odd : even).Add(i);
    EXPECT_EQ(even.IsContainAny(&odd), 0);
    even.AppendInt(&odd);
    ASSERT_EQ(even.GetSize(), 2 * kCount);
    for (int i = 0; i < 2 * kCount; ++i)
        ASSERT_EQ(even[i], i);
    EXPECT_EQ(even.IsContainAll(&odd), 1);
    EXPECT_EQ(odd.IsContainAll(&even), 0);
}
