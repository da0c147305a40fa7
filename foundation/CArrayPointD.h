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
    /// @{
    /// A copy holds copies of the elements.
    CArrayPointD(const CArrayPointD& other);
    CArrayPointD& operator=(const CArrayPointD& other);
    /// @}
    /// A new copy that the caller deletes.
    virtual CArrayPointD* clone() const;
};
