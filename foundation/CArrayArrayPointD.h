#pragma once

#include "KolmApi.h"

#include "foundation/CArrayPointD.h"

/// A list of point lists, held by value; a copy therefore shares nothing with its source. Its virtual operations are
/// those of the platform array and then clone.
class KOLM_API CArrayArrayPointD : public CArray<CArrayPointD, const CArrayPointD&>
{
public:
    CArrayArrayPointD();
    /// @{
    /// A copy holds copies of the elements.
    CArrayArrayPointD(const CArrayArrayPointD& other);
    CArrayArrayPointD& operator=(const CArrayArrayPointD& other);
    /// @}
    /// A new copy that the caller deletes.
    virtual CArrayArrayPointD* clone() const;
};
