/// What the lists of this folder have in common, as functions over the platform's array. A list of pointers holds null
/// like any other pointer; destroying a null element destroys nothing.
#pragma once

#include <afxtempl.h>

#include <algorithm>

namespace lists {

/// The index of the first element that equals the value; -1 when there is none.
template <class TYPE, class ARG_TYPE>
INT_PTR IndexOf(const CArray<TYPE, ARG_TYPE>& list, TYPE value)
{
    const TYPE* const end = list.GetData() + list.GetSize();
    const TYPE* const found = std::find(list.GetData(), end, value);
    return found == end ? -1 : found - list.GetData();
}

/// Whether the list has an element at the index.
template <class TYPE, class ARG_TYPE>
bool Has(const CArray<TYPE, ARG_TYPE>& list, INT_PTR index)
{
    return index >= 0 && index < list.GetSize();
}

/// Whether both lists hold equal elements at the same indices.
template <class TYPE, class ARG_TYPE>
bool AreEqual(const CArray<TYPE, ARG_TYPE>& a, const CArray<TYPE, ARG_TYPE>& b)
{
    return a.GetSize() == b.GetSize() && std::equal(a.GetData(), a.GetData() + a.GetSize(), b.GetData());
}

/// Reverses the order in place.
template <class TYPE, class ARG_TYPE>
void Reverse(CArray<TYPE, ARG_TYPE>& list)
{
    std::reverse(list.GetData(), list.GetData() + list.GetSize());
}

/// Unlinks the elements that the predicate names, asked once for each from the first to the last. The others keep their
/// order and close up.
template <class TYPE, class ARG_TYPE, class Predicate>
void RemoveIf(CArray<TYPE, ARG_TYPE>& list, const Predicate& goes)
{
    TYPE* const elements = list.GetData();
    const INT_PTR size = list.GetSize();
    INT_PTR kept = 0;
    for (INT_PTR i = 0; i < size; ++i) {
        // Written without a branch: which elements go is rarely predictable.
        const TYPE element = elements[i];
        const bool stays = !goes(element);
        elements[kept] = element;
        kept += INT_PTR(stays);
    }
    if (kept < size)
        list.RemoveAt(kept, size - kept);
}

/// Destroys the object at an index that the list has; the slot stays and keeps its address.
template <class TYPE, class ARG_TYPE>
void DestroyAt(CArray<TYPE, ARG_TYPE>& list, INT_PTR index)
{
    static_assert(sizeof(*list.GetData()[0]) > 0, "the class has to be known where its objects are destroyed");
    delete list.GetData()[index];
}

/// Destroys all objects from the first to the last; the slots stay. The size is read anew for each, so that a
/// destructor which shortens the list does no more harm than it has to.
template <class TYPE, class ARG_TYPE>
void DestroyAll(CArray<TYPE, ARG_TYPE>& list)
{
    for (INT_PTR i = 0; i < list.GetSize(); ++i)
        DestroyAt(list, i);
}

/// Destroys the last object and then unlinks its slot; false for an empty list.
template <class TYPE, class ARG_TYPE>
bool DestroyLast(CArray<TYPE, ARG_TYPE>& list)
{
    const INT_PTR last = list.GetSize() - 1;
    if (last < 0)
        return false;
    DestroyAt(list, last);
    list.RemoveAt(last);
    return true;
}

} // namespace lists
