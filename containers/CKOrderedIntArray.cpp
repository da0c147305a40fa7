#include "containers/CKOrderedIntArray.h"

#include "containers/KeyTable.h"
#include "containers/ListOps.h"
#include "containers/OrderedLists.h"

#include <algorithm>
#include <cstdint>

namespace {

/// What inserting one value does to a list: it goes before the element that has this index beforehand.
struct Insertion
{
    int value;
    INT_PTR index;
};

uint64_t KeyOf(int value)
{
    return static_cast<uint32_t>(value);
}

} // namespace

CKOrderedIntArray::CKOrderedIntArray() = default;

CKOrderedIntArray::CKOrderedIntArray(int ascending) : m_orderAscending(ascending) {}

void CKOrderedIntArray::SetOrderAscending(int ascending)
{
    m_orderAscending = ascending;
}

void CKOrderedIntArray::AddInt(int value)
{
    ordered::Insert(*this, value, m_orderAscending);
}

// One insertion at a time would move the tail once for each. But where a value goes among the elements that were there
// does not depend on the values inserted before it, and those that go to the same place end up in order. So the values
// are sorted, their places found in one walk, and every element moved once. That holds for lists out of order as well:
// what did not stop a value does not stop one that comes after it in the order.
void CKOrderedIntArray::AppendInt(CKOrderedIntArray* other)
{
    if (!other || other->IsEmpty())
        return;
    const INT_PTR oldSize = GetSize();
    const INT_PTR count = other->GetSize();
    CArray<Insertion, const Insertion&> insertions;
    insertions.SetSize(count);
    Insertion* const sorted = insertions.GetData();
    for (INT_PTR i = 0; i < count; ++i)
        sorted[i].value = other->GetData()[i];
    const int ascending = m_orderAscending;
    std::sort(sorted, sorted + count, [ascending](const Insertion& a, const Insertion& b) {
        return ascending ? a.value < b.value : b.value < a.value;
    });
    INT_PTR index = 0;
    for (INT_PTR i = 0; i < count; ++i) {
        index = ordered::FirstAfter(GetData(), index, oldSize, sorted[i].value, ascending);
        sorted[i].index = index;
    }

    SetSize(oldSize + count);
    INT_PTR end = oldSize; // of the old elements that have not found their place yet
    for (INT_PTR i = count; i-- > 0;) {
        std::move_backward(GetData() + sorted[i].index, GetData() + end, GetData() + end + i + 1);
        end = sorted[i].index;
        GetData()[end + i] = sorted[i].value;
    }
}

void CKOrderedIntArray::RemoveInt(int value)
{
    const INT_PTR index = lists::IndexOf(*this, value);
    if (index >= 0)
        RemoveAt(index);
}

void CKOrderedIntArray::RemoveLast()
{
    ordered::RemoveLast(*this);
}

int CKOrderedIntArray::GetIndex(int value)
{
    return static_cast<int>(lists::IndexOf(*this, value));
}

int CKOrderedIntArray::IsContain(int value)
{
    return lists::IndexOf(*this, value) >= 0 ? 1 : 0;
}

int CKOrderedIntArray::IsContainAll(CKOrderedIntArray* other)
{
    if (!other || other->IsEmpty())
        return 0;
    KeyCounts wanted(other->GetSize());
    INT_PTR missing = 0;
    for (INT_PTR i = 0; i < other->GetSize(); ++i) {
        uint32_t& count = wanted.InsertedCount(KeyOf(other->GetData()[i]));
        missing += 1 - count;
        count = 1;
    }
    for (INT_PTR i = 0; i < GetSize() && missing > 0; ++i) {
        uint32_t& count = wanted.Count(KeyOf(GetData()[i]));
        missing -= count;
        count = 0;
    }
    return missing == 0 ? 1 : 0;
}

int CKOrderedIntArray::IsContainAny(CKOrderedIntArray* other)
{
    if (!other)
        return 0;
    const bool isOtherSmaller = other->GetSize() < GetSize();
    const CKOrderedIntArray& smaller = isOtherSmaller ? *other : *this;
    const CKOrderedIntArray& larger = isOtherSmaller ? *this : *other;
    KeySet wanted(smaller.GetSize());
    for (INT_PTR i = 0; i < smaller.GetSize(); ++i)
        wanted.Insert(KeyOf(smaller.GetData()[i]));
    for (INT_PTR i = 0; i < larger.GetSize(); ++i) {
        if (wanted.Has(KeyOf(larger.GetData()[i])))
            return 1;
    }
    return 0;
}

int CKOrderedIntArray::operator==(const CKOrderedIntArray& other) const
{
    return lists::AreEqual(*this, other) ? 1 : 0;
}

int CKOrderedIntArray::operator!=(const CKOrderedIntArray& other) const
{
    return *this == other ? 0 : 1;
}
