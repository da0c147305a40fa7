/// What the ordered lists of numbers share. Inside of containers/ only.
#pragma once

#include <afxtempl.h>

#include <functional>
#include <type_traits>

namespace ordered {

/// The first index from `from` on whose element comes after the value in the given order; the size when none does. The
/// elements need not be in order themselves, which rules out a binary search. Nothing comes after a NaN, nor does it.
template <class TYPE, class After>
INT_PTR FirstAfter(const TYPE* elements, INT_PTR from, INT_PTR size, TYPE value, const After& after)
{
    // Whole blocks without an early exit. The mark has the type of the elements and, for doubles, no bitwise operator:
    // so the compiler can use vector instructions for either.
    constexpr INT_PTR kBlock = 64;
    for (; size - from >= kBlock; from += kBlock) {
        TYPE mark = 0;
        for (INT_PTR i = 0; i < kBlock; ++i) {
            if constexpr (std::is_integral_v<TYPE>)
                mark |= after(elements[from + i], value) ? TYPE(-1) : TYPE(0);
            else
                mark = after(elements[from + i], value) ? TYPE(1) : mark;
        }
        if (mark != 0)
            break;
    }
    while (from < size && !after(elements[from], value))
        ++from;
    return from;
}

/// The same with the order given by a flag: non-zero is ascending.
template <class TYPE>
INT_PTR FirstAfter(const TYPE* elements, INT_PTR from, INT_PTR size, TYPE value, int ascending)
{
    return ascending ? FirstAfter(elements, from, size, value, std::greater<TYPE>())
                     : FirstAfter(elements, from, size, value, std::less<TYPE>());
}

/// Puts the value before the first element that comes after it, else at the end.
template <class TYPE>
void Insert(CArray<TYPE, TYPE&>& list, TYPE value, int ascending)
{
    list.InsertAt(FirstAfter(list.GetData(), 0, list.GetSize(), value, ascending), value);
}

/// Drops the last element when there is one.
template <class TYPE>
void RemoveLast(CArray<TYPE, TYPE&>& list)
{
    if (!list.IsEmpty())
        list.RemoveAt(list.GetSize() - 1);
}

} // namespace ordered
