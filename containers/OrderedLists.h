/// What the ordered lists of numbers share. Inside of containers/ only.
#pragma once

#include <afxtempl.h>

#include <functional>

namespace ordered {

constexpr INT_PTR kBlock = 64;

/// Whether an element of the block comes after the value. In forms that compilers turn into vector instructions: no
/// early exit, and for ints a mark of their own width.
template <class After>
bool HasAfter(const int* block, int value, const After& after)
{
    int mark = 0;
    for (INT_PTR i = 0; i < kBlock; ++i)
        mark |= after(block[i], value) ? -1 : 0;
    return mark != 0;
}

/// For doubles the outermost of the elements and the value is one instruction a step, which passes over NaNs like the
/// comparison: first in each column of the block, then of the columns.
template <class After>
bool HasAfter(const double* block, double value, const After& after)
{
    constexpr INT_PTR kRows = 8, kColumns = kBlock / kRows;
    double columns[kColumns];
    for (INT_PTR column = 0; column < kColumns; ++column) {
        double outermost = value;
        for (INT_PTR row = 0; row < kRows; ++row) {
            const double element = block[row * kColumns + column];
            outermost = after(element, outermost) ? element : outermost;
        }
        columns[column] = outermost;
    }
    double outermost = value;
    for (const double column : columns)
        outermost = after(column, outermost) ? column : outermost;
    return after(outermost, value);
}

/// The first index from `from` on whose element comes after the value in the given order; the size when none does. The
/// elements need not be in order themselves, which rules out a binary search. Nothing comes after a NaN, nor does it.
template <class TYPE, class After>
INT_PTR FirstAfter(const TYPE* elements, INT_PTR from, INT_PTR size, TYPE value, const After& after)
{
    while (size - from >= kBlock && !HasAfter(elements + from, value, after))
        from += kBlock;
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
