#include "foundation/CArrayArrayPointD.h"

CArrayArrayPointD::CArrayArrayPointD() = default;

// Element by element through the assignment of the point lists, so nothing is shared with the source. The base is made
// empty: it has no copy constructor.
CArrayArrayPointD::CArrayArrayPointD(const CArrayArrayPointD& other) : CArray<CArrayPointD, const CArrayPointD&>()
{
    Copy(other);
}

CArrayArrayPointD& CArrayArrayPointD::operator=(const CArrayArrayPointD& other)
{
    if (this != &other)
        Copy(other);
    return *this;
}

CArrayArrayPointD* CArrayArrayPointD::clone() const
{
    return new CArrayArrayPointD(*this);
}
