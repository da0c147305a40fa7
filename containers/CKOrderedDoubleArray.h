#pragma once

#include "KolmApi.h"

#include <afxtempl.h>

/// A list of doubles that AddDouble keeps in ascending or descending order. Equal values are all kept. The inherited
/// operations put elements anywhere, and searches do not look at the order.
///
/// The archive record is that of the platform array, count and elements; the order is not part of it, and loading keeps
/// the one the list has. There are no virtual operations of its own.
class KOLM_API CKOrderedDoubleArray : public CArray<double, double&>
{
public:
    CKOrderedDoubleArray(); ///< empty and ascending
    /// Empty; ascending when the argument is not 0, else descending.
    explicit CKOrderedDoubleArray(int ascending);

    void SetOrderAscending(int ascending); ///< for insertions to come; the elements stay where they are

    /// Inserts the value before the first element greater than it (descending: less than it), else at the end; so it
    /// goes behind its equals, as which -0.0 and 0.0 count. A NaN goes to the end, and others pass one that is there.
    void AddDouble(double value);
    void RemoveLast(); ///< nothing happens in an empty list

    int IsContain(double value); ///< 1 when an element equals the value exactly, else 0; always 0 for a NaN

private:
    int m_orderAscending = 1;
};
