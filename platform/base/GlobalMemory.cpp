#include "base/Immortal.h"
#include "base/winkernel.h"

#include <cstdlib>
#include <cstring>
#include <mutex>
#include <new>
#include <unordered_map>
#include <utility>

namespace {

/// What is known of a block. Its handle is the address of its first byte, moveable or not.
struct Block
{
    SIZE_T size;
    bool moveable;
    UINT locks;
};

struct BlockTable
{
    std::mutex mutex;
    std::unordered_map<HGLOBAL, Block> blocks;
};

BlockTable& Blocks()
{
    return Immortal<BlockTable>();
}

/// The block, or null with the error set. The table has to be locked.
Block* FindBlock(BlockTable& table, HGLOBAL handle)
{
    const auto found = table.blocks.find(handle);
    if (found != table.blocks.end())
        return &found->second;
    SetLastError(ERROR_INVALID_HANDLE);
    return nullptr;
}

HGLOBAL NoMemory()
{
    SetLastError(ERROR_NOT_ENOUGH_MEMORY);
    return nullptr;
}

/// malloc and realloc may answer null to a size of 0, which is not a failure here.
SIZE_T BytesToAsk(SIZE_T bytes)
{
    return bytes ? bytes : 1;
}

} // namespace

HGLOBAL GlobalAlloc(UINT flags, SIZE_T bytes)
{
    if (bytes > SIZE_T(PTRDIFF_MAX))
        return NoMemory();
    void* memory = flags & GMEM_ZEROINIT ? std::calloc(1, BytesToAsk(bytes)) : std::malloc(BytesToAsk(bytes));
    if (!memory)
        return NoMemory();
    try {
        BlockTable& table = Blocks();
        const std::lock_guard<std::mutex> guard(table.mutex);
        table.blocks[memory] = {bytes, (flags & GMEM_MOVEABLE) != 0, 0};
    } catch (const std::bad_alloc&)
    { // no room for the entry: a block that the table does not know could never be freed
        std::free(memory);
        return NoMemory();
    }
    return memory;
}

HGLOBAL GlobalReAlloc(HGLOBAL handle, SIZE_T bytes, UINT flags)
{
    BlockTable& table = Blocks();
    const std::lock_guard<std::mutex> guard(table.mutex);
    Block* block = FindBlock(table, handle);
    if (!block)
        return nullptr;
    const bool mayMove = (flags & GMEM_MOVEABLE) != 0 || (block->moveable && block->locks == 0);
    if (bytes > SIZE_T(PTRDIFF_MAX) || (bytes > block->size && !mayMove))
        return NoMemory();

    // A block that must stay keeps all of its memory when it shrinks: realloc might move it even then.
    void* memory = mayMove ? std::realloc(handle, BytesToAsk(bytes)) : handle;
    if (!memory)
        return NoMemory();
    if (flags & GMEM_ZEROINIT && bytes > block->size)
        std::memset(static_cast<BYTE*>(memory) + block->size, 0, bytes - block->size);
    block->size = bytes;
    // The table knows blocks by their address, which may have changed. The entry moves as it is: the old block is gone,
    // so nothing here may need memory.
    auto entry = table.blocks.extract(handle);
    entry.key() = memory;
    table.blocks.insert(std::move(entry));
    return memory;
}

SIZE_T GlobalSize(HGLOBAL handle)
{
    BlockTable& table = Blocks();
    const std::lock_guard<std::mutex> guard(table.mutex);
    const Block* block = FindBlock(table, handle);
    return block ? block->size : 0;
}

HGLOBAL GlobalFree(HGLOBAL handle)
{
    if (!handle)
        return nullptr;
    BlockTable& table = Blocks();
    const std::lock_guard<std::mutex> guard(table.mutex);
    if (!FindBlock(table, handle))
        return handle; // refused: freeing it anyway would free somebody else's memory
    table.blocks.erase(handle);
    std::free(handle);
    return nullptr;
}

LPVOID GlobalLock(HGLOBAL handle)
{
    BlockTable& table = Blocks();
    const std::lock_guard<std::mutex> guard(table.mutex);
    Block* block = FindBlock(table, handle);
    if (!block)
        return nullptr;
    if (block->moveable)
        ++block->locks;
    return handle;
}

BOOL GlobalUnlock(HGLOBAL handle)
{
    BlockTable& table = Blocks();
    const std::lock_guard<std::mutex> guard(table.mutex);
    Block* block = FindBlock(table, handle);
    if (!block)
        return FALSE;
    if (!block->moveable)
        return TRUE;
    if (block->locks == 0) {
        SetLastError(ERROR_NOT_LOCKED);
        return FALSE;
    }
    if (--block->locks > 0)
        return TRUE;
    SetLastError(NO_ERROR);
    return FALSE;
}
