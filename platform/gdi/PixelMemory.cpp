/// Allocation of pixel rows and access to single pixels.
#include "gdi/PixelMemory.h"

#include "base/winkernel.h"

#include <cstdlib>
#include <cstring>
#include <utility>

#ifdef __linux__
#include <sys/mman.h>
#endif

namespace gdi {
namespace {

/// Stands before the rows, which begin at a cache line.
struct Block
{
    void* allocation;
    size_t bytes; ///< of the rows
};
constexpr size_t kAlignment = 64;
constexpr size_t kLarge = size_t(1) << 18; // smaller blocks the allocator has at hand itself
constexpr size_t kPage = size_t(1) << 21;  // a large page of the processor
// Room for a frame of 7680 x 4320 pixels. Larger blocks are no frames: their pages come as they are touched, and go.
constexpr size_t kLargestFrame = size_t(1) << 27;

uint8_t* g_spare = nullptr;

Block& BlockOf(uint8_t* rows)
{
    return *reinterpret_cast<Block*>(rows - sizeof(Block));
}

/// Frames lie in large pages where the system has them: a line that goes down touches a page a row, and the processor
/// knows the places of few hundreds.
void* ZeroedMemory(size_t bytes)
{
#ifdef __linux__
    if (bytes >= kPage && bytes <= kLargestFrame) {
        const size_t whole = (bytes + kPage - 1) / kPage * kPage;
        void* const memory = std::aligned_alloc(kPage, whole);
        if (memory != nullptr) {
            madvise(memory, whole, MADV_HUGEPAGE); // a wish: small pages do as well
            std::memset(memory, 0, bytes);
        }
        return memory;
    }
#endif
    return std::calloc(bytes, 1);
}

uint8_t* NewBlock(size_t bytes)
{
    void* const allocation = ZeroedMemory(bytes + kAlignment + sizeof(Block));
    if (allocation == nullptr) {
        return nullptr;
    }
    const uintptr_t first = reinterpret_cast<uintptr_t>(allocation) + sizeof(Block);
    uint8_t* const rows = static_cast<uint8_t*>(allocation) + sizeof(Block) + (kAlignment - first % kAlignment);
    BlockOf(rows) = {allocation, bytes};
    return rows;
}

} // namespace

uint8_t* AllocatePixels(int64_t width, int64_t height, int bitsPerPixel, Surface& surface)
{
    const bool known = bitsPerPixel == 1 || bitsPerPixel == 24 || bitsPerPixel == 32;
    // Half of int32's range: drawing adds the sizes of glyphs and hatches to pixels inside without a thought of
    // overflow.
    const int64_t longestSide = 0x3FFFFFFF, mostBytes = 0x7FFFFFFF;
    if (width < 0 || height < 0 || width > longestSide || height > longestSide || !known) {
        return nullptr;
    }
    const int64_t stride = RowBytes(width, bitsPerPixel);
    if (height > 0 && stride > mostBytes / height) {
        return nullptr;
    }
    const size_t bytes = size_t(stride * height);
    uint8_t* memory = nullptr;
    if (g_spare != nullptr && BlockOf(g_spare).bytes == bytes) {
        memory = std::exchange(g_spare, nullptr);
        std::memset(memory, 0, bytes);
    } else {
        memory = NewBlock(bytes);
    }
    if (memory == nullptr) {
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return nullptr;
    }
    surface = {memory, ptrdiff_t(stride), int32_t(width), int32_t(height), bitsPerPixel};
    return memory;
}

void FreePixels(uint8_t* memory)
{
    if (memory != nullptr && BlockOf(memory).bytes >= kLarge && BlockOf(memory).bytes <= kLargestFrame) {
        std::swap(memory, g_spare);
    }
    if (memory != nullptr) {
        std::free(BlockOf(memory).allocation);
    }
}

uint32_t ReadPixel(const Surface& surface, int32_t x, int32_t y)
{
    const uint8_t* const row = Row(surface, y);
    if (surface.bitsPerPixel == 1) {
        return row[x >> 3] >> (7 - (x & 7)) & 1u;
    }
    uint32_t value = 0;
    std::memcpy(&value, row + ptrdiff_t(x) * (surface.bitsPerPixel / 8), size_t(surface.bitsPerPixel / 8));
    return value;
}

void WritePixel(const Surface& surface, int32_t x, int32_t y, uint32_t value)
{
    uint8_t* const row = Row(surface, y);
    if (surface.bitsPerPixel == 1) {
        const uint8_t bit = uint8_t(0x80 >> (x & 7));
        row[x >> 3] = uint8_t(value != 0 ? row[x >> 3] | bit : row[x >> 3] & ~bit);
        return;
    }
    std::memcpy(row + ptrdiff_t(x) * (surface.bitsPerPixel / 8), &value, size_t(surface.bitsPerPixel / 8));
}

} // namespace gdi
