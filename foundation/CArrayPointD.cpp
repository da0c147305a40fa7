#include "foundation/CArrayPointD.h"

CArrayPointD::CArrayPointD() = default;

// The platform's arrays cannot be copied by themselves. Copy() takes over the size and each element by its assignment.
CArrayPointD::CArrayPointD(const CArrayPointD& other) : CArray<CPointD, const CPointD&>()
{
    Copy(other);
}

CArrayPointD& CArrayPointD::operator=(const CArrayPointD& other)
{
    if (this != &other)
        Copy(other);
    return *this;
}

CArrayPointD* CArrayPointD::clone() const
{
    return new CArrayPointD(*this);
}
