#pragma once

#include "KolmApi.h"

#include "foundation/CPointD.h"

#include <afxtempl.h>

/// A list of points held by value: the platform's array with copies. Its virtual operations are those of the platform
/// array and then clone.
class KOLM_API CArrayPointD : public CArray<CPointD, const CPointD&>
{
public:
    CArrayPointD();
    CArrayPointD(const CArrayPointD& other);            ///< holds copies of the elements
    CArrayPointD& operator=(const CArrayPointD& other); ///< the same, instead of what it held
    /// A new copy that the caller deletes.
    virtual CArrayPointD* clone() const;
};
