#pragma once

#include "KolmApi.h"

#include "foundation/CRectF.h"

#include <afxtempl.h>

/// A list of single-precision rectangles held by value.
class KOLM_API CArrayRectF : public CArray<CRectF, const CRectF&>
{
public:
    /// 1 for the same list, or for lists of one size whose rectangles are pairwise equal in index order.
    int operator==(const CArrayRectF& other) const;
    /// The negation of ==.
    int operator!=(const CArrayRectF& other) const;
};
