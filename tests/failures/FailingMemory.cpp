#include "failures/FailingMemory.h"

#include <atomic>
#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <new>

namespace {

// Atomic, since a library may allocate in threads of its own.
std::atomic<bool> g_armed{false};
std::atomic<size_t> g_left{0}; // allocations until the one that fails; 0 when it has failed
std::atomic<bool> g_all{false};
std::atomic<size_t> g_alive{0};

bool Refused()
{
    if (!g_armed)
        return false;
    if (g_left == 0)
        return g_all;
    return --g_left == 0;
}

} // namespace

namespace failures {

FailingAllocation::FailingAllocation(size_t n, bool all)
{
    g_left = n;
    g_all = all;
    g_armed = true;
}

FailingAllocation::~FailingAllocation()
{
    g_armed = false;
}

bool FailingAllocation::Happened() const
{
    return g_left == 0;
}

size_t BlocksAlive()
{
    return g_alive;
}

} // namespace failures

#if defined(__SANITIZE_ADDRESS__)
#define KOLM_ADDRESS_SANITIZER
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define KOLM_ADDRESS_SANITIZER
#endif
#endif

#ifdef KOLM_ADDRESS_SANITIZER

// Kept out of line, since the compiler takes an inlined pair for a mismatch of new and free.
__attribute__((noinline)) void* operator new(size_t size)
{
    void* const memory = Refused() ? nullptr : std::malloc(size ? size : 1);
    if (!memory)
        throw std::bad_alloc();
    return memory;
}

__attribute__((noinline)) void* operator new(size_t size, const std::nothrow_t&) noexcept
{
    return Refused() ? nullptr : std::malloc(size ? size : 1);
}

__attribute__((noinline)) void* operator new[](size_t size, const std::nothrow_t&) noexcept
{
    return Refused() ? nullptr : std::malloc(size ? size : 1);
}

__attribute__((noinline)) void operator delete(void* memory) noexcept
{
    std::free(memory);
}

__attribute__((noinline)) void operator delete(void* memory, size_t) noexcept
{
    std::free(memory);
}

#else

extern "C" {

// The C library's own, under the names that it keeps for programs like this one.
void* __libc_malloc(size_t);
void* __libc_calloc(size_t, size_t);
void* __libc_realloc(void*, size_t);
void* __libc_memalign(size_t, size_t);
void __libc_free(void*);

static void* Counted(void* memory)
{
    g_alive += memory != nullptr;
    return memory;
}

static void* NoMemory()
{
    errno = ENOMEM;
    return nullptr;
}

void* malloc(size_t size)
{
    return Refused() ? NoMemory() : Counted(__libc_malloc(size));
}

void* calloc(size_t count, size_t size)
{
    return Refused() ? NoMemory() : Counted(__libc_calloc(count, size));
}

void* realloc(void* block, size_t size)
{
    if (Refused())
        return NoMemory();
    void* const memory = __libc_realloc(block, size);
    if (!block)
        return Counted(memory);
    if (!memory && size == 0)
        --g_alive;
    return memory;
}

void* memalign(size_t alignment, size_t size)
{
    return Refused() ? NoMemory() : Counted(__libc_memalign(alignment, size));
}

void* aligned_alloc(size_t alignment, size_t size)
{
    return memalign(alignment, size);
}

int posix_memalign(void** block, size_t alignment, size_t size)
{
    *block = memalign(alignment, size);
    return *block ? 0 : ENOMEM;
}

void free(void* block)
{
    g_alive -= block != nullptr;
    __libc_free(block);
}

} // extern "C"

#endif
