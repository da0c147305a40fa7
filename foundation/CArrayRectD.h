#pragma once

#include "KolmApi.h"

#include "foundation/CRectD.h"

#include <afxtempl.h>

/// A list of pointers to rectangles that belong to the host: the list frees only its buffer, and a copy points to the
/// same rectangles. The pointers must not be null when lists are compared. Its virtual operations are those of the
/// platform array and then clone.
class KOLM_API CArrayRectD : public CArray<CRectD*, CRectD*>
{
public:
    CArrayRectD();
    /// @{
    /// A copy holds the same pointers.
    CArrayRectD(const CArrayRectD& other);
    CArrayRectD& operator=(const CArrayRectD& other);
    /// @}
    /// A new list of the same pointers that the caller deletes.
    virtual CArrayRectD* clone() const;

    /// 1 for the same list, or for lists of one size whose rectangles are pairwise equal in index order.
    int operator==(const CArrayRectD& other) const;
    /// The negation of ==.
    int operator!=(const CArrayRectD& other) const;
};
