#include "base/CArray.h"

namespace afx {

void* ReallocateArray(void* block, INT_PTR count, size_t elementSize)
{
    if (size_t(count) > size_t(PTRDIFF_MAX) / elementSize)
        AfxThrowMemoryException();
    void* grown = std::realloc(block, size_t(count) * elementSize);
    if (!grown)
        AfxThrowMemoryException();
    return grown;
}

INT_PTR AddSizes(INT_PTR a, INT_PTR b)
{
    if (b > PTRDIFF_MAX - a)
        AfxThrowMemoryException();
    return a + b;
}

INT_PTR GrownCapacity(INT_PTR capacity, INT_PTR needed, INT_PTR growBy)
{
    constexpr INT_PTR kLeastGrowth = 4; // a list of one pointer costs little more than the pointer
    const INT_PTR growth = std::max({capacity / 2, growBy, kLeastGrowth});
    const INT_PTR grown = growth > PTRDIFF_MAX - capacity ? needed : capacity + growth;
    return std::max(needed, grown);
}

} // namespace afx
