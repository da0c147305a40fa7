#pragma once

#include "KolmApi.h"

#include <afxtempl.h>

/// A list of ints that AddInt and AppendInt keep in ascending or descending order. Equal values are all kept. The
/// inherited operations put elements anywhere; nothing but an insertion looks at the order, so such a list is searched
/// and compared like any other.
///
/// The archive record is that of the platform array, count and elements; the order is not part of it, and loading keeps
/// the one the list has. The virtual operations are those of the platform array, then == and !=.
class KOLM_API CKOrderedIntArray : public CArray<int, int&>
{
public:
    CKOrderedIntArray(); ///< empty and ascending
    /// Empty; ascending when the argument is not 0, else descending.
    explicit CKOrderedIntArray(int ascending);

    void SetOrderAscending(int ascending); ///< for insertions to come; the elements stay where they are

    /// Inserts the value before the first element greater than it (descending: less than it), else at the end; so it
    /// goes behind its equals.
    void AddInt(int value);
    /// Does AddInt for each element that the other list holds, from its first to its last; nothing for null. The other
    /// list may be this one.
    void AppendInt(CKOrderedIntArray* other);
    void RemoveInt(int value); ///< the first element that equals the value; nothing happens when there is none
    void RemoveLast();         ///< nothing happens in an empty list

    int GetIndex(int value);  ///< of the first element that equals the value, else -1
    int IsContain(int value); ///< 1 when an element equals the value, else 0
    /// 1 when every element of the other list is one of this list's, else 0. Multiplicity does not count. Always 0 when
    /// the other list is null or one of the two is empty.
    int IsContainAll(CKOrderedIntArray* other);
    /// 1 when some element of the other list is one of this list's, else 0, also for null.
    int IsContainAny(CKOrderedIntArray* other);

    /// 1 when both lists hold equal elements at the same indices, else 0. The orders are not compared.
    virtual int operator==(const CKOrderedIntArray& other) const;
    virtual int operator!=(const CKOrderedIntArray& other) const; ///< the negation of ==

private:
    int m_orderAscending = 1;
};
