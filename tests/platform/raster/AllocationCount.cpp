#include "AllocationCount.h"

#include <cstdlib>
#include <new>

int g_allocationCount = 0;

// A file of their own keeps the compiler from inlining one operator and not its counterpart. The library takes its
// memory from here too, as it does from any host that replaces the global operators.

void* operator new(size_t size)
{
    ++g_allocationCount;
    if (void* const memory = std::malloc(size ? size : 1))
        return memory;
    throw std::bad_alloc();
}

void operator delete(void* memory) noexcept
{
    std::free(memory);
}

void operator delete(void* memory, size_t) noexcept
{
    std::free(memory);
}
