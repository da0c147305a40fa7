/// The dynamic array behind every list.
#pragma once

#include "base/CArchive.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <new>
#include <type_traits>
#include <utility>

namespace afx {

/// Whether elements archive themselves: they have a member Serialize(CArchive&).
template <class T, class = void>
struct HasSerialize : std::false_type
{};
template <class T>
struct HasSerialize<T, std::void_t<decltype(std::declval<T&>().Serialize(std::declval<CArchive&>()))>> : std::true_type
{};

/// Whether elements go to archives with << and come back with >>.
template <class T, class = void>
struct HasArchiveOperators : std::false_type
{};
template <class T>
struct HasArchiveOperators<T, std::void_t<decltype(std::declval<CArchive&>() << std::declval<const T&>()),
                                          decltype(std::declval<CArchive&>() >> std::declval<T&>())>> : std::true_type
{};

/// realloc for `count` elements: null makes a block. Raises the memory exception, also for a size that no pointer
/// spans; the old block then lives on.
KOLM_API void* ReallocateArray(void* block, INT_PTR count, size_t elementSize);

/// The sum of two sizes that are not negative; raises the memory exception when it does not fit.
KOLM_API INT_PTR AddSizes(INT_PTR a, INT_PTR b);

/// Room to make when `needed` elements do not fit into `capacity`: half as much again, or `growBy` more when that is
/// given and larger.
KOLM_API INT_PTR GrownCapacity(INT_PTR capacity, INT_PTR needed, INT_PTR growBy);

} // namespace afx

/// Stores or loads elements that lie side by side, for CArray::Serialize; a host may specialize it for its own type.
/// Plain records go as their bytes in memory, others through their Serialize or their archive operators. Pointers,
/// which mean nothing in another process, and types that have none of these raise the not-supported exception.
template <class TYPE>
void SerializeElements(CArchive& ar, TYPE* elements, INT_PTR count)
{
    if constexpr (std::is_trivially_copyable_v<TYPE> && !std::is_pointer_v<TYPE>) {
        constexpr INT_PTR kStep = INT_PTR(0x7FFFFFFF / sizeof(TYPE)); // an archive takes 32-bit byte counts
        for (INT_PTR done = 0; done < count; done += kStep) {
            const UINT bytes = UINT((count - done < kStep ? count - done : kStep) * INT_PTR(sizeof(TYPE)));
            if (ar.IsStoring())
                ar.Write(elements + done, bytes);
            else
                ar.EnsureRead(elements + done, bytes);
        }
    } else if constexpr (afx::HasSerialize<TYPE>::value) {
        for (INT_PTR i = 0; i < count; ++i)
            elements[i].Serialize(ar);
    } else if constexpr (afx::HasArchiveOperators<TYPE>::value) {
        for (INT_PTR i = 0; i < count; ++i) {
            if (ar.IsStoring())
                ar << elements[i];
            else
                ar >> elements[i];
        }
    } else {
        AfxThrowNotSupportedException();
    }
}

/// A list of elements side by side in memory, indexed from 0. ARG_TYPE is how elements are passed in: TYPE, const TYPE&
/// or TYPE&.
///
/// An index outside, a negative size or count raises CInvalidArgException*; no memory raises CMemoryException*. After
/// either the array is as it was. New elements that no call names are value-initialized: numbers and pointers are 0.
/// Adding one at a time costs amortised constant time. Addresses hold until the array grows, shrinks or is moved about.
/// Elements are moved with their move constructors, which are expected not to raise.
template <class TYPE, class ARG_TYPE = const TYPE&>
class CArray : public CObject
{
public:
    CArray() = default;
    ~CArray() override
    {
        Destroy(0, m_size);
        std::free(m_data);
    }

    /// @name Sizes, in elements. The upper bound of an empty array is -1.
    /// @{
    INT_PTR GetSize() const { return m_size; }
    INT_PTR GetCount() const { return m_size; }
    INT_PTR GetUpperBound() const { return m_size - 1; }
    bool IsEmpty() const { return m_size == 0; }
    /// @}

    /// Makes or removes elements at the end. `growBy` 0 or more becomes the least growth from now on; -1 keeps it.
    /// Size 0 gives the memory back.
    void SetSize(INT_PTR newSize, INT_PTR growBy = -1);
    void FreeExtra(); ///< gives back the memory that no element uses
    void RemoveAll() { SetSize(0); }

    /// @name Elements, checked. A reference holds as long as addresses do.
    /// @{
    TYPE& ElementAt(INT_PTR index) { return m_data[Checked(index)]; }
    const TYPE& ElementAt(INT_PTR index) const { return m_data[Checked(index)]; }
    TYPE& GetAt(INT_PTR index) { return m_data[Checked(index)]; }
    const TYPE& GetAt(INT_PTR index) const { return m_data[Checked(index)]; }
    TYPE& operator[](INT_PTR index) { return m_data[Checked(index)]; }
    const TYPE& operator[](INT_PTR index) const { return m_data[Checked(index)]; }
    void SetAt(INT_PTR index, ARG_TYPE element) { m_data[Checked(index)] = element; }
    /// @}

    TYPE* GetData() { return m_data; } ///< null as long as there never was an element
    const TYPE* GetData() const { return m_data; }

    /// Sets an element; an index past the end makes the elements up to it.
    void SetAtGrow(INT_PTR index, ARG_TYPE element);
    /// Adds at the end and returns the index. The element may be one of the array's own, as everywhere here.
    INT_PTR Add(ARG_TYPE element);
    /// Adds copies of all elements of `source`, which may be this array; returns the index of the first.
    INT_PTR Append(const CArray& source);
    /// Becomes a copy of `source`.
    void Copy(const CArray& source);

    /// Puts `count` copies before the element at `index`; past the end the array first grows up to `index`.
    void InsertAt(INT_PTR index, ARG_TYPE element, INT_PTR count = 1);
    /// Puts copies of all elements of `source`, which may be this array, before the element at `index`. Null raises.
    void InsertAt(INT_PTR index, const CArray* source);
    /// Removes `count` elements from `index` on; all of them have to be there. The memory stays for later elements.
    void RemoveAt(INT_PTR index, INT_PTR count = 1);

    /// The count (CArchive::WriteCount), then SerializeElements. Loading replaces the elements; when the archive ends
    /// early the exception passes and a leading part of the elements is there.
    void Serialize(CArchive& ar) override;

private:
    // Plain elements are moved as bytes, and grow in place where the allocator can do that.
    static constexpr bool kPlain = std::is_trivially_copyable_v<TYPE>;
    static_assert(alignof(TYPE) <= alignof(std::max_align_t), "the memory is aligned for ordinary types");

    INT_PTR Checked(INT_PTR index) const
    {
        if (size_t(index) >= size_t(m_size)) // a negative index is a huge unsigned one
            AfxThrowInvalidArgException();
        return index;
    }

    void Reserve(INT_PTR needed)
    {
        if (needed > m_capacity)
            Reallocate(afx::GrownCapacity(m_capacity, needed, m_growBy));
    }

    void Reallocate(INT_PTR capacity);
    void MoveTailTo(INT_PTR index, INT_PTR oldSize);
    void Destroy(INT_PTR first, INT_PTR last);
    template <class Source>
    void AppendFrom(INT_PTR count, const Source& sourceAt);

    // m_size elements live in room for m_capacity; the rest is raw memory. No room has no block.
    TYPE* m_data = nullptr;
    INT_PTR m_size = 0;
    INT_PTR m_capacity = 0;
    INT_PTR m_growBy = 0;
};

template <class TYPE, class ARG_TYPE>
void CArray<TYPE, ARG_TYPE>::SetSize(INT_PTR newSize, INT_PTR growBy)
{
    if (newSize < 0)
        AfxThrowInvalidArgException();
    if (growBy >= 0)
        m_growBy = growBy;
    if (newSize < m_size) {
        Destroy(newSize, m_size);
        m_size = newSize;
    }
    if (newSize == 0)
        FreeExtra(); // many lists of a board are emptied and never filled again
    Reserve(newSize);
    std::uninitialized_value_construct(m_data + m_size, m_data + newSize);
    m_size = newSize;
}

template <class TYPE, class ARG_TYPE>
void CArray<TYPE, ARG_TYPE>::FreeExtra()
{
    if (m_size == 0) {
        std::free(m_data);
        m_data = nullptr;
        m_capacity = 0;
    } else if (m_size < m_capacity) {
        Reallocate(m_size);
    }
}

template <class TYPE, class ARG_TYPE>
void CArray<TYPE, ARG_TYPE>::SetAtGrow(INT_PTR index, ARG_TYPE element)
{
    if (index < 0)
        AfxThrowInvalidArgException();
    if (index < m_size) {
        m_data[index] = element;
        return;
    }
    TYPE copy(element); // may be one of our own, which growing moves
    SetSize(afx::AddSizes(index, 1));
    m_data[index] = std::move(copy);
}

template <class TYPE, class ARG_TYPE>
INT_PTR CArray<TYPE, ARG_TYPE>::Add(ARG_TYPE element)
{
    if (m_size < m_capacity) {
        new (m_data + m_size) TYPE(element);
        return m_size++;
    }
    TYPE copy(element); // growing moves the array's own elements away from under a reference
    Reserve(afx::AddSizes(m_size, 1));
    new (m_data + m_size) TYPE(std::move(copy));
    return m_size++;
}

template <class TYPE, class ARG_TYPE>
INT_PTR CArray<TYPE, ARG_TYPE>::Append(const CArray& source)
{
    const INT_PTR oldSize = m_size;
    // Read by index, so that the array may be its own source although its elements move.
    AppendFrom(source.m_size, [&source](INT_PTR i) -> const TYPE& { return source.m_data[i]; });
    return oldSize;
}

template <class TYPE, class ARG_TYPE>
void CArray<TYPE, ARG_TYPE>::Copy(const CArray& source)
{
    if (this == &source)
        return;
    SetSize(0);
    Append(source);
}

template <class TYPE, class ARG_TYPE>
void CArray<TYPE, ARG_TYPE>::InsertAt(INT_PTR index, ARG_TYPE element, INT_PTR count)
{
    if (index < 0 || count < 0)
        AfxThrowInvalidArgException();
    if (count == 0)
        return;
    const TYPE copy(element);
    const INT_PTR oldSize = m_size;
    if (index > m_size) {
        Reserve(afx::AddSizes(index, count)); // before anything changes
        SetSize(index);
        AppendFrom(count, [&copy](INT_PTR) -> const TYPE& { return copy; });
    } else {
        AppendFrom(count, [&copy](INT_PTR) -> const TYPE& { return copy; });
        MoveTailTo(index, oldSize);
    }
}

template <class TYPE, class ARG_TYPE>
void CArray<TYPE, ARG_TYPE>::InsertAt(INT_PTR index, const CArray* source)
{
    if (index < 0 || !source)
        AfxThrowInvalidArgException();
    if (source->m_size == 0)
        return;
    if (index > m_size)
        SetSize(index);
    MoveTailTo(index, Append(*source));
}

template <class TYPE, class ARG_TYPE>
void CArray<TYPE, ARG_TYPE>::RemoveAt(INT_PTR index, INT_PTR count)
{
    if (index < 0 || count < 0 || index > m_size || count > m_size - index)
        AfxThrowInvalidArgException();
    const INT_PTR newSize = m_size - count;
    if constexpr (kPlain) {
        if (index < newSize)
            std::memmove(static_cast<void*>(m_data + index), m_data + index + count,
                         size_t(newSize - index) * sizeof(TYPE));
    } else if (count > 0) {
        std::move(m_data + index + count, m_data + m_size, m_data + index);
    }
    Destroy(newSize, m_size);
    m_size = newSize;
}

template <class TYPE, class ARG_TYPE>
void CArray<TYPE, ARG_TYPE>::Serialize(CArchive& ar)
{
    if (ar.IsStoring()) {
        ar.WriteCount(DWORD_PTR(m_size));
        SerializeElements<TYPE>(ar, m_data, m_size);
        return;
    }
    // The count is only a claim: elements are made a step at a time, as the archive turns out to hold them.
    constexpr INT_PTR kStep = sizeof(TYPE) < 65536 ? INT_PTR(65536 / sizeof(TYPE)) : 1;
    SetSize(0);
    for (DWORD_PTR missing = ar.ReadCount(); missing > 0;) {
        const INT_PTR first = m_size;
        const INT_PTR step = missing < DWORD_PTR(kStep) ? INT_PTR(missing) : kStep;
        SetSize(first + step);
        try {
            SerializeElements<TYPE>(ar, m_data + first, step);
        } catch (...) {
            SetSize(first);
            throw;
        }
        missing -= DWORD_PTR(step);
    }
}

template <class TYPE, class ARG_TYPE>
void CArray<TYPE, ARG_TYPE>::Reallocate(INT_PTR capacity)
{
    if constexpr (kPlain) {
        m_data = static_cast<TYPE*>(afx::ReallocateArray(m_data, capacity, sizeof(TYPE)));
    } else {
        TYPE* data = static_cast<TYPE*>(afx::ReallocateArray(nullptr, capacity, sizeof(TYPE)));
        for (INT_PTR i = 0; i < m_size; ++i) {
            new (data + i) TYPE(std::move(m_data[i]));
            m_data[i].~TYPE();
        }
        std::free(m_data);
        m_data = data;
    }
    m_capacity = capacity;
}

/// Brings the elements from `oldSize` on, which were appended, to their place at `index`. Copies are made at the end
/// and only then moved, so that one that cannot be made leaves the array as it was.
template <class TYPE, class ARG_TYPE>
void CArray<TYPE, ARG_TYPE>::MoveTailTo(INT_PTR index, INT_PTR oldSize)
{
    if (index < oldSize)
        std::rotate(m_data + index, m_data + oldSize, m_data + m_size);
}

template <class TYPE, class ARG_TYPE>
void CArray<TYPE, ARG_TYPE>::Destroy(INT_PTR first, INT_PTR last)
{
    if constexpr (!std::is_trivially_destructible_v<TYPE>) {
        for (INT_PTR i = first; i < last; ++i)
            m_data[i].~TYPE();
    }
    (void)first;
    (void)last;
}

template <class TYPE, class ARG_TYPE>
template <class Source>
void CArray<TYPE, ARG_TYPE>::AppendFrom(INT_PTR count, const Source& sourceAt)
{
    const INT_PTR oldSize = m_size;
    Reserve(afx::AddSizes(m_size, count));
    try {
        for (INT_PTR i = 0; i < count; ++i, ++m_size)
            new (m_data + m_size) TYPE(sourceAt(i));
    } catch (...) {
        Destroy(oldSize, m_size);
        m_size = oldSize;
        throw;
    }
}
