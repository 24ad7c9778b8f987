#include "heap_blocks.h"

#include "control.h"
#include "memory_figures.h"

#include <atomic>
#include <cstdlib>

namespace win32 {
namespace {

// Blocks from this size on are counted against the commit limit. Smaller ones are too many and
// too small to matter, and their path stays free of the question.
constexpr size_t largeBlock = 1 << 20;

std::atomic<size_t> largeBytes{0};
std::atomic<size_t> heldBytes{0};
std::atomic<size_t> heldCount{0};

bool charge(size_t size)
{
    if (size < largeBlock)
        return true;
    uint64_t limit = memoryFigures().totalCommit;
    size_t charged = largeBytes.load();
    do {
        if (size > limit || charged > limit - size)
            return false;
    } while (!largeBytes.compare_exchange_weak(charged, charged + size));
    return true;
}

void discharge(size_t size)
{
    if (size >= largeBlock)
        largeBytes -= size;
}

} // namespace

void *allocateBlock(size_t size, bool cleared)
{
    if (!charge(size))
        return nullptr;
    size_t atLeastOne = size ? size : 1;
    void *block = cleared ? calloc(1, atLeastOne) : malloc(atLeastOne);
    if (!block) {
        discharge(size);
        return nullptr;
    }
    heldBytes.fetch_add(size, std::memory_order_relaxed);
    heldCount.fetch_add(1, std::memory_order_relaxed);
    return block;
}

void *resizeBlock(void *block, size_t oldSize, size_t newSize)
{
    if (!charge(newSize))
        return nullptr;
    void *resized = realloc(block, newSize ? newSize : 1);
    if (!resized) {
        discharge(newSize);
        return nullptr;
    }
    discharge(oldSize);
    heldBytes.fetch_add(newSize - oldSize, std::memory_order_relaxed);
    return resized;
}

void freeBlock(void *block, size_t size)
{
    discharge(size);
    heldBytes.fetch_sub(size, std::memory_order_relaxed);
    heldCount.fetch_sub(1, std::memory_order_relaxed);
    free(block);
}

void heldBlocks(SIZE_T *bytes, SIZE_T *blocks)
{
    *bytes = heldBytes.load();
    *blocks = heldCount.load();
}

} // namespace win32

void Win32Control_HeldMemory(SIZE_T *bytes, SIZE_T *blocks)
{
    win32::heldBlocks(bytes, blocks);
}
