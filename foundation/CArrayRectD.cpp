#include "foundation/CArrayRectD.h"

CArrayRectD::CArrayRectD() = default;

CArrayRectD::CArrayRectD(const CArrayRectD& other) : CArray<CRectD*, CRectD*>()
{
    Copy(other);
}

CArrayRectD& CArrayRectD::operator=(const CArrayRectD& other)
{
    if (this != &other)
        Copy(other);
    return *this;
}

CArrayRectD* CArrayRectD::clone() const
{
    return new CArrayRectD(*this);
}

int CArrayRectD::operator==(const CArrayRectD& other) const
{
    if (this == &other)
        return 1;
    if (GetSize() != other.GetSize())
        return 0;
    for (INT_PTR i = 0; i < GetSize(); ++i) {
        if (*GetAt(i) != *other.GetAt(i))
            return 0;
    }
    return 1;
}

int CArrayRectD::operator!=(const CArrayRectD& other) const
{
    return !(*this == other);
}
