// Private heaps and the process heap.
#include "block_map.h"
#include "faults.h"
#include "handle_table.h"
#include "heap_blocks.h"
#include "kernel_internal.h"

#include <cstring>
#include <mutex>

namespace {

using namespace win32;

struct Heap {
    explicit Heap(size_t maximumSize) : maximum(maximumSize) {}

    ~Heap()
    {
        blocks.forEach([](BlockMap::Block &block) { freeBlock(block.address, block.size); });
    }

    std::mutex mutex;
    BlockMap blocks;
    size_t used = 0;
    size_t maximum; // 0: grows as far as memory reaches
};

Heap *heapOf(HANDLE handle)
{
    return static_cast<Heap *>(handles::find(handle, HandleKind::Heap));
}

bool fits(const Heap &heap, size_t freed, size_t size)
{
    return heap.maximum == 0 || (size <= heap.maximum && heap.used - freed <= heap.maximum - size);
}

void *allocate(Heap &heap, DWORD flags, size_t size)
{
    if (!fits(heap, 0, size))
        return nullptr;
    void *data = allocateBlock(size, flags & HEAP_ZERO_MEMORY);
    if (data && !heap.blocks.insert({data, size, nullptr})) {
        freeBlock(data, size);
        data = nullptr;
    }
    if (data)
        heap.used += size;
    return data;
}

BlockMap::Block *blockOf(Heap &heap, LPCVOID address)
{
    BlockMap::Block *block = heap.blocks.find(address);
    return block ? block : fail(ERROR_INVALID_PARAMETER, static_cast<BlockMap::Block *>(nullptr));
}

} // namespace

HANDLE HeapCreate(DWORD, SIZE_T, SIZE_T maximumSize)
{
    if (faults::fails("HeapCreate"))
        return nullptr;
    auto heap = new (std::nothrow) Heap(maximumSize);
    if (!heap)
        return fail(ERROR_NOT_ENOUGH_MEMORY, HANDLE{});
    HANDLE handle = handles::insert(HandleKind::Heap, heap);
    if (!handle)
        delete heap;
    return handle;
}

BOOL HeapDestroy(HANDLE handle)
{
    if (handle == GetProcessHeap())
        return fail(ERROR_INVALID_PARAMETER, FALSE);
    auto heap = static_cast<Heap *>(handles::remove(handle, HandleKind::Heap));
    delete heap;
    return heap != nullptr;
}

LPVOID HeapAlloc(HANDLE handle, DWORD flags, SIZE_T size)
{
    Heap *heap = heapOf(handle);
    if (!heap)
        return nullptr;
    if (faults::refuses(WIN32_ALLOCATION_HEAP, size))
        return fail(ERROR_NOT_ENOUGH_MEMORY, static_cast<LPVOID>(nullptr));
    std::lock_guard lock(heap->mutex);
    void *data = allocate(*heap, flags, size);
    return data ? data : fail(ERROR_NOT_ENOUGH_MEMORY, static_cast<LPVOID>(nullptr));
}

LPVOID HeapReAlloc(HANDLE handle, DWORD flags, LPVOID address, SIZE_T size)
{
    Heap *heap = heapOf(handle);
    if (!heap)
        return nullptr;
    if (faults::refuses(WIN32_ALLOCATION_HEAP, size))
        return fail(ERROR_NOT_ENOUGH_MEMORY, static_cast<LPVOID>(nullptr));
    std::lock_guard lock(heap->mutex);
    BlockMap::Block *block = blockOf(*heap, address);
    if (!block)
        return nullptr;
    size_t oldSize = block->size;
    if ((flags & HEAP_REALLOC_IN_PLACE_ONLY) && size <= oldSize) {
        return address;
    }
    if ((flags & HEAP_REALLOC_IN_PLACE_ONLY) || !fits(*heap, oldSize, size))
        return fail(ERROR_NOT_ENOUGH_MEMORY, static_cast<LPVOID>(nullptr));
    void *resized = resizeBlock(address, oldSize, size);
    if (!resized)
        return fail(ERROR_NOT_ENOUGH_MEMORY, static_cast<LPVOID>(nullptr));
    // The slot that is given up makes room for the new one, so the map need not grow.
    heap->blocks.remove(block);
    heap->blocks.insert({resized, size, nullptr});
    heap->used += size - oldSize;
    if ((flags & HEAP_ZERO_MEMORY) && size > oldSize)
        memset(static_cast<char *>(resized) + oldSize, 0, size - oldSize);
    return resized;
}

BOOL HeapFree(HANDLE handle, DWORD, LPVOID address)
{
    Heap *heap = heapOf(handle);
    if (!heap)
        return FALSE;
    if (!address)
        return TRUE;
    std::lock_guard lock(heap->mutex);
    BlockMap::Block *block = blockOf(*heap, address);
    if (!block)
        return FALSE;
    size_t size = block->size;
    heap->blocks.remove(block);
    heap->used -= size;
    freeBlock(address, size);
    return TRUE;
}

SIZE_T HeapSize(HANDLE handle, DWORD, LPCVOID address)
{
    Heap *heap = heapOf(handle);
    if (!heap)
        return static_cast<SIZE_T>(-1);
    std::lock_guard lock(heap->mutex);
    BlockMap::Block *block = blockOf(*heap, address);
    return block ? block->size : static_cast<SIZE_T>(-1);
}

HANDLE GetProcessHeap()
{
    static HANDLE processHeap = HeapCreate(0, 0, 0);
    return processHeap;
}
