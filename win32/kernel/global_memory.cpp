// GlobalAlloc and its kin. A fixed block's handle is its address; a movable block's handle is a
// table entry with bit 1 set, which no address of a block has.
#include "block_map.h"
#include "control.h"
#include "faults.h"
#include "handle_table.h"
#include "heap_blocks.h"
#include "kernel_internal.h"

#include <cstring>
#include <mutex>

namespace {

using namespace win32;

constexpr uintptr_t movableBit = 2;
constexpr UINT maximumLockCount = 0xff;

struct MovableBlock {
    void *data = nullptr; // null while discarded
    size_t size = 0;
    UINT lockCount = 0;
    bool discardable = false;
};

std::mutex memoryMutex;
BlockMap blocks; // fixed blocks, and the data of movable ones with their handle

bool isMovable(HGLOBAL memory)
{
    return (reinterpret_cast<uintptr_t>(memory) & 3) == movableBit;
}

HANDLE tableHandle(HGLOBAL memory)
{
    return reinterpret_cast<HANDLE>(reinterpret_cast<uintptr_t>(memory) & ~movableBit);
}

MovableBlock *movableBlock(HGLOBAL memory)
{
    return static_cast<MovableBlock *>(handles::find(tableHandle(memory), HandleKind::GlobalBlock));
}

BlockMap::Block *fixedBlock(HGLOBAL memory)
{
    BlockMap::Block *block = blocks.find(memory);
    if (!block || block->handle)
        return fail(ERROR_INVALID_HANDLE, static_cast<BlockMap::Block *>(nullptr));
    return block;
}

// A block of memory that is entered in the map, or null with nothing changed.
void *allocateListed(size_t size, bool cleared, HANDLE handle)
{
    void *data = allocateBlock(size, cleared);
    if (!data)
        return nullptr;
    if (!blocks.insert({data, size, handle})) {
        freeBlock(data, size);
        return nullptr;
    }
    return data;
}

void freeListed(void *data)
{
    BlockMap::Block *block = blocks.find(data);
    size_t size = block->size;
    blocks.remove(block);
    freeBlock(data, size);
}

// Both the old and the new data exist for a moment, so a refusal leaves the old one whole.
void *resizeListed(void *data, size_t size, bool cleared)
{
    BlockMap::Block old = *blocks.find(data);
    void *resized = allocateListed(size, cleared, old.handle);
    if (!resized)
        return nullptr;
    memcpy(resized, data, old.size < size ? old.size : size);
    freeListed(data);
    return resized;
}

HGLOBAL allocateMovable(UINT flags, size_t size)
{
    auto block = new (std::nothrow) MovableBlock;
    if (!block)
        return fail(ERROR_NOT_ENOUGH_MEMORY, HGLOBAL{});
    block->discardable = (flags & GMEM_DISCARDABLE) != 0;
    HANDLE handle = handles::insert(HandleKind::GlobalBlock, block);
    HGLOBAL memory = reinterpret_cast<HGLOBAL>(reinterpret_cast<uintptr_t>(handle) | movableBit);
    // A movable block of size 0 is made discarded.
    if (handle && size > 0) {
        block->data = allocateListed(size, flags & GMEM_ZEROINIT, memory);
        block->size = size;
    }
    if (!handle || (size > 0 && !block->data)) {
        if (handle)
            handles::remove(handle, HandleKind::GlobalBlock);
        delete block;
        return fail(ERROR_NOT_ENOUGH_MEMORY, HGLOBAL{});
    }
    return memory;
}

HGLOBAL resizeMovable(HGLOBAL memory, size_t size, UINT flags)
{
    MovableBlock *block = movableBlock(memory);
    if (!block)
        return nullptr;
    if (flags & GMEM_MODIFY) {
        block->discardable = (flags & GMEM_DISCARDABLE) != 0;
        return memory;
    }
    if (size == 0) {
        if (block->lockCount > 0)
            return fail(ERROR_INVALID_PARAMETER, HGLOBAL{});
        if (block->data)
            freeListed(block->data);
        block->data = nullptr;
        block->size = 0;
        return memory;
    }
    void *data = block->data ? resizeListed(block->data, size, flags & GMEM_ZEROINIT)
                             : allocateListed(size, flags & GMEM_ZEROINIT, memory);
    if (!data)
        return fail(ERROR_NOT_ENOUGH_MEMORY, HGLOBAL{});
    block->data = data;
    block->size = size;
    return memory;
}

// A fixed block stays where it is unless the caller lets it move.
HGLOBAL resizeFixed(HGLOBAL memory, size_t size, UINT flags)
{
    BlockMap::Block *block = fixedBlock(memory);
    if (!block)
        return nullptr;
    if (flags & GMEM_MODIFY)
        return memory;
    if (size <= block->size && size > 0) {
        block->size = size;
        return memory;
    }
    if (!(flags & GMEM_MOVEABLE))
        return fail(ERROR_NOT_ENOUGH_MEMORY, HGLOBAL{});
    void *data = resizeListed(memory, size, flags & GMEM_ZEROINIT);
    return data ? data : fail(ERROR_NOT_ENOUGH_MEMORY, HGLOBAL{});
}

} // namespace

HGLOBAL GlobalAlloc(UINT flags, SIZE_T size)
{
    if (faults::refuses(WIN32_ALLOCATION_GLOBAL, size))
        return fail(ERROR_NOT_ENOUGH_MEMORY, HGLOBAL{});
    std::lock_guard lock(memoryMutex);
    if (flags & GMEM_MOVEABLE)
        return allocateMovable(flags, size);
    void *data = allocateListed(size, flags & GMEM_ZEROINIT, nullptr);
    return data ? data : fail(ERROR_NOT_ENOUGH_MEMORY, HGLOBAL{});
}

HGLOBAL GlobalReAlloc(HGLOBAL memory, SIZE_T size, UINT flags)
{
    if (!(flags & GMEM_MODIFY) && faults::refuses(WIN32_ALLOCATION_GLOBAL, size))
        return fail(ERROR_NOT_ENOUGH_MEMORY, HGLOBAL{});
    std::lock_guard lock(memoryMutex);
    return isMovable(memory) ? resizeMovable(memory, size, flags) : resizeFixed(memory, size, flags);
}

HGLOBAL GlobalFree(HGLOBAL memory)
{
    if (!memory)
        return nullptr;
    std::lock_guard lock(memoryMutex);
    if (!isMovable(memory)) {
        if (!fixedBlock(memory))
            return memory;
        freeListed(memory);
        return nullptr;
    }
    MovableBlock *block = movableBlock(memory);
    if (!block)
        return memory;
    handles::remove(tableHandle(memory), HandleKind::GlobalBlock);
    if (block->data)
        freeListed(block->data);
    delete block;
    return nullptr;
}

LPVOID GlobalLock(HGLOBAL memory)
{
    std::lock_guard lock(memoryMutex);
    if (!isMovable(memory))
        return fixedBlock(memory) ? memory : nullptr;
    MovableBlock *block = movableBlock(memory);
    if (!block)
        return nullptr;
    if (!block->data)
        return fail(ERROR_DISCARDED, static_cast<LPVOID>(nullptr));
    if (block->lockCount < maximumLockCount)
        ++block->lockCount;
    return block->data;
}

BOOL GlobalUnlock(HGLOBAL memory)
{
    std::lock_guard lock(memoryMutex);
    if (!isMovable(memory))
        return fixedBlock(memory) != nullptr;
    MovableBlock *block = movableBlock(memory);
    if (!block)
        return FALSE;
    if (block->lockCount == 0)
        return fail(ERROR_NOT_LOCKED, FALSE);
    if (--block->lockCount > 0)
        return TRUE;
    return fail(NO_ERROR, FALSE);
}

SIZE_T GlobalSize(HGLOBAL memory)
{
    std::lock_guard lock(memoryMutex);
    if (!isMovable(memory)) {
        BlockMap::Block *block = blocks.find(memory);
        return block ? block->size : fail(ERROR_INVALID_HANDLE, SIZE_T{0});
    }
    MovableBlock *block = movableBlock(memory);
    return block ? block->size : 0;
}

UINT GlobalFlags(HGLOBAL memory)
{
    std::lock_guard lock(memoryMutex);
    if (!isMovable(memory))
        return fixedBlock(memory) ? 0 : UINT{GMEM_INVALID_HANDLE};
    MovableBlock *block = movableBlock(memory);
    if (!block)
        return GMEM_INVALID_HANDLE;
    return block->lockCount | (block->discardable ? GMEM_DISCARDABLE : 0) | (block->data ? 0 : GMEM_DISCARDED);
}

HGLOBAL GlobalHandle(LPCVOID pointer)
{
    std::lock_guard lock(memoryMutex);
    BlockMap::Block *block = blocks.find(pointer);
    if (!block)
        return fail(ERROR_INVALID_HANDLE, HGLOBAL{});
    return block->handle ? block->handle : block->address;
}
