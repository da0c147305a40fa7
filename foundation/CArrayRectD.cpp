#include "foundation/CArrayRectD.h"

CArrayRectD::CArrayRectD() = default;

// Copies pointers: source and copy show the same rectangles, and neither frees them.
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

// Asked through the elements' !=, which a class derived from the element may override apart from ==.
int CArrayRectD::operator==(const CArrayRectD& other) const
{
    if (this == &other)
        return 1;
    // Two empty lists pass this test and have nothing left to differ in.
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
