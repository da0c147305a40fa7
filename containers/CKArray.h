#pragma once

#include "KolmApi.h"

#include "containers/ListOps.h"

#include <afxtempl.h>

#include <type_traits>

/// The base of the library's owning lists of pointers. An operation whose name holds Delete destroys objects; the
/// inherited ones (Add, RemoveAt, SetAt, ...) only link and unlink. Its destructor frees the buffer alone: lists that
/// own their elements for good derive from it and destroy them in theirs.
///
/// Elements are compared by address. Null is an element like any other, with no object behind it. Raising is done with
/// the platform's invalid-argument exception. An object that is listed twice is destroyed twice.
template <class TYPE, class ARG_TYPE = TYPE>
class CKArray : public CArray<TYPE, ARG_TYPE>
{
    static_assert(std::is_pointer_v<TYPE>, "the elements are pointers");

public:
    CKArray() = default;

    int GetIndex(TYPE p) { return int(lists::IndexOf(*this, p)); } ///< of the first that equals p, else -1
    int Contain(TYPE p) { return GetIndex(p) >= 0 ? 1 : 0; }       ///< 1 when p is in the list, else 0

    /// @name Destroying objects whose slots stay. The slots keep the addresses, so RemoveAll, RemoveAt or SetAt has to
    /// follow before the list is read again.
    /// @{
    void DeleteAt(int nIndex);                          ///< outside the list nothing happens
    void DeleteElements() { lists::DestroyAll(*this); } ///< from the first to the last
    /// @}

    /// @name Destroying objects and unlinking their slots
    /// @{
    void DeleteLastElement() { lists::DestroyLast(*this); } ///< nothing happens in an empty list
    void RemoveAfterDelete(int nIndex);                     ///< an index outside the list destroys nothing and raises
    void EliminateLast() { RemoveAfterDelete(Size() - 1); } ///< raises for an empty list
    void RemoveAllAfterDelete(); ///< destroys from the first to the last, then empties the list and frees its buffer
    /// @}

protected:
    int Size() const { return int(this->GetSize()); }          ///< as an int, as hosts count
    bool IsIndex(int i) const { return i >= 0 && i < Size(); } ///< whether the list has an element there
};

template <class TYPE, class ARG_TYPE>
void CKArray<TYPE, ARG_TYPE>::DeleteAt(int nIndex)
{
    if (IsIndex(nIndex))
        lists::DestroyAt(*this, nIndex);
}

template <class TYPE, class ARG_TYPE>
void CKArray<TYPE, ARG_TYPE>::RemoveAfterDelete(int nIndex)
{
    DeleteAt(nIndex);
    this->RemoveAt(nIndex); // raises for an index outside the list
}

template <class TYPE, class ARG_TYPE>
void CKArray<TYPE, ARG_TYPE>::RemoveAllAfterDelete()
{
    lists::DestroyAll(*this);
    this->RemoveAll();
}
