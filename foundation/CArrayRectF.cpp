#include "foundation/CArrayRectF.h"

// Index order counts: the same rectangles in another order are another list.
int CArrayRectF::operator==(const CArrayRectF& other) const
{
    if (this == &other)
        return 1;
    if (GetSize() != other.GetSize())
        return 0;
    for (INT_PTR i = 0; i < GetSize(); ++i) {
        if (GetAt(i) != other.GetAt(i))
            return 0;
    }
    return 1;
}

int CArrayRectF::operator!=(const CArrayRectF& other) const
{
    return !(*this == other);
}
