#pragma once

#include "KolmApi.h"

#include "containers/KeyTable.h"
#include "containers/ListOps.h"

#include <afxtempl.h>

#include <cstdint>
#include <type_traits>

class CArrayPointD;
class CRectD;

/// A list of pointers to objects on the heap, with operations on it as on a set. An operation whose name holds Delete
/// destroys objects; every other one only links and unlinks them, and so does the list's own destructor.
///
/// Elements are compared by address. Null is an element like any other, with no object behind it. Unlinking closes the
/// gap and keeps the order. Indices are checked where the single operations say so; those that raise do it with the
/// platform's invalid-argument exception. An object that is listed twice is destroyed twice: a list that owns its
/// objects holds each once.
///
/// Its virtual operations are those of the platform array, then RemoveNullElement and RemoveDuplicatedElements.
template <class TYPE, class ARG_TYPE = TYPE>
class CExPtrArray : public CArray<TYPE, ARG_TYPE>
{
    static_assert(std::is_pointer_v<TYPE>, "the elements are pointers");
    using Base = CArray<TYPE, ARG_TYPE>;

public:
    CExPtrArray() = default;

    /// @name Single elements
    /// @{
    TYPE GetAt(INT_PTR i) const { return IsIndex(i) ? this->GetData()[i] : nullptr; } ///< null outside the list
    void SetAt(INT_PTR i, TYPE p); ///< the old element lives on; outside the list nothing happens
    TYPE GetLastElement() const { return GetAt(GetLastIndex()); }         ///< null for an empty list
    INT_PTR GetLastIndex() const { return this->GetSize() - 1; }          ///< -1 for an empty list
    bool IsValidIndex(const int& i) const { return IsIndex(i); }          ///< whether the list has an element there
    bool Exists(TYPE p) const { return FindIndex(p) >= 0; }               ///< whether an element equals p
    int FindIndex(TYPE p) const { return int(lists::IndexOf(*this, p)); } ///< of the first that equals p, else -1
    /// @}

    /// Appends p and returns its index, unless the list holds it already: then -1.
    INT_PTR Add_if_only_do_not_exists(TYPE p);

    /// @name Unlinking. Nothing is destroyed.
    /// @{
    bool Remove(TYPE p);      ///< the first element that equals p; false when there is none
    TYPE RemoveLastElement(); ///< the former last element; null for an empty list
    /// Takes one occurrence out for each element of the other list, the first ones first. The other list may be this
    /// one, which ends empty.
    void Subtract(const CArray<TYPE, ARG_TYPE>& other);
    virtual void RemoveNullElement();        ///< all of them
    virtual void RemoveDuplicatedElements(); ///< the first occurrence of each address stays; null counts as an address
    /// Moves the elements from nFirst to nLast, both included, to the end of dest in their order; false, and nothing
    /// is moved, when nLast < nFirst. Moved to the end of this very list they end up in reversed order.
    ///
    /// The move works from nLast downward until an index fails: nLast outside the list raises at once, and a negative
    /// nFirst raises after the elements down to index 0 were moved, which then stay moved.
    bool MoveElementTo(CArray<TYPE, ARG_TYPE>& dest, const int& nFirst, const int& nLast);
    /// @}

    /// @name Destroying
    /// @{
    bool Delete(TYPE p); ///< the first element that equals p, object and slot; false when there is none
    /// Destroys and unlinks nCount elements from nIndex on, in index order; nothing when nCount < 1. At an index
    /// outside the list it raises; the elements before that one are gone.
    void DeleteAt(int nIndex, int nCount);
    void DeleteAll();         ///< destroys from the first to the last, then empties the list and frees its buffer
    bool DeleteLastElement(); ///< false for an empty list
    /// @}

    void Reverse() { lists::Reverse(*this); } ///< the order; objects stay
    /// Whether both lists hold the same addresses at the same indices.
    bool IsElementEqual(const CArray<TYPE, ARG_TYPE>& other) const { return lists::AreEqual(*this, other); }

private:
    bool IsIndex(INT_PTR i) const { return lists::Has(*this, i); }
    static uint64_t KeyOf(TYPE p) { return reinterpret_cast<uintptr_t>(p); }
};

template <class TYPE, class ARG_TYPE>
void CExPtrArray<TYPE, ARG_TYPE>::SetAt(INT_PTR i, TYPE p)
{
    if (IsIndex(i))
        this->GetData()[i] = p;
}

template <class TYPE, class ARG_TYPE>
INT_PTR CExPtrArray<TYPE, ARG_TYPE>::Add_if_only_do_not_exists(TYPE p)
{
    return Exists(p) ? -1 : this->Add(p);
}

template <class TYPE, class ARG_TYPE>
bool CExPtrArray<TYPE, ARG_TYPE>::Remove(TYPE p)
{
    const INT_PTR index = lists::IndexOf(*this, p);
    if (index < 0)
        return false;
    this->RemoveAt(index);
    return true;
}

template <class TYPE, class ARG_TYPE>
TYPE CExPtrArray<TYPE, ARG_TYPE>::RemoveLastElement()
{
    const TYPE last = GetLastElement();
    if (!this->IsEmpty())
        this->RemoveAt(GetLastIndex());
    return last;
}

// The first c occurrences of an address go when the other list holds it c times, so one pass that counts down does what
// a search for each element would.
template <class TYPE, class ARG_TYPE>
void CExPtrArray<TYPE, ARG_TYPE>::Subtract(const CArray<TYPE, ARG_TYPE>& other)
{
    KeyCounts counts(other.GetSize());
    for (INT_PTR i = 0; i < other.GetSize(); ++i)
        ++counts.InsertedCount(KeyOf(other.GetData()[i]));
    lists::RemoveIf(*this, [&counts](TYPE p) {
        uint32_t& count = counts.Count(KeyOf(p));
        const bool goes = count > 0;
        count -= uint32_t(goes);
        return goes;
    });
}

template <class TYPE, class ARG_TYPE>
void CExPtrArray<TYPE, ARG_TYPE>::RemoveNullElement()
{
    lists::RemoveIf(*this, [](TYPE p) { return !p; });
}

template <class TYPE, class ARG_TYPE>
void CExPtrArray<TYPE, ARG_TYPE>::RemoveDuplicatedElements()
{
    KeySet seen(this->GetSize());
    lists::RemoveIf(*this, [&seen](TYPE p) { return !seen.Insert(KeyOf(p)); });
}

template <class TYPE, class ARG_TYPE>
bool CExPtrArray<TYPE, ARG_TYPE>::MoveElementTo(CArray<TYPE, ARG_TYPE>& dest, const int& nFirst, const int& nLast)
{
    if (nLast < nFirst)
        return false;
    if (!IsIndex(nLast))
        AfxThrowInvalidArgException();
    const bool beginsOutside = nFirst < 0;
    const INT_PTR first = beginsOutside ? 0 : nFirst;
    const INT_PTR count = nLast - first + 1;
    if (&dest == this) {
        // Each element, the last of the range first, would go behind everything that is there.
        TYPE* const end = this->GetData() + this->GetSize();
        std::rotate(this->GetData() + first, this->GetData() + first + count, end);
        std::reverse(end - count, end);
    } else {
        const INT_PTR oldSize = dest.GetSize();
        dest.SetSize(oldSize + count); // the only step that can fail, before anything is moved
        std::copy_n(this->GetData() + first, count, dest.GetData() + oldSize);
        this->RemoveAt(first, count);
    }
    if (beginsOutside)
        AfxThrowInvalidArgException();
    return true;
}

template <class TYPE, class ARG_TYPE>
bool CExPtrArray<TYPE, ARG_TYPE>::Delete(TYPE p)
{
    const INT_PTR index = lists::IndexOf(*this, p);
    if (index < 0)
        return false;
    lists::DestroyAt(*this, index);
    this->RemoveAt(index);
    return true;
}

template <class TYPE, class ARG_TYPE>
void CExPtrArray<TYPE, ARG_TYPE>::DeleteAt(int nIndex, int nCount)
{
    if (nCount < 1)
        return;
    // All objects go before the tail moves, once, to close the gap.
    INT_PTR deleted = 0;
    for (; deleted < nCount && IsIndex(nIndex + deleted); ++deleted)
        lists::DestroyAt(*this, nIndex + deleted);
    if (deleted > 0)
        this->RemoveAt(nIndex, deleted);
    if (deleted < nCount)
        AfxThrowInvalidArgException();
}

template <class TYPE, class ARG_TYPE>
void CExPtrArray<TYPE, ARG_TYPE>::DeleteAll()
{
    lists::DestroyAll(*this);
    this->RemoveAll();
}

template <class TYPE, class ARG_TYPE>
bool CExPtrArray<TYPE, ARG_TYPE>::DeleteLastElement()
{
    return lists::DestroyLast(*this);
}

/// Compiled into the library, which exports them; a list of another class is compiled where it is used.
extern template class KOLM_DECLARED_TEMPLATE CExPtrArray<CRectD*, CRectD*>;
extern template class KOLM_DECLARED_TEMPLATE CExPtrArray<CArrayPointD*, CArrayPointD*>;
