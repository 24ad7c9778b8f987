#include "heap_blocks.h"

#include "control.h"
#include "faults.h"
#include "memory_figures.h"

#include <atomic>
#include <cstdlib>
#include <sys/mman.h>

namespace win32 {
namespace {

// The limit is read anew for blocks of this size and more once half of it is in use, and when it seems to
// be reached. Otherwise the figure that was read last serves: asking the kernel takes longer than making a
// picture of a megabyte.
constexpr size_t largeBlock = 1 << 20;

std::atomic<size_t> heldBytes{0};
std::atomic<size_t> heldCount{0};
std::atomic<uint64_t> commitLimit{0};

// False when the blocks together would pass the limit.
bool charge(size_t freed, size_t size)
{
    size_t held = heldBytes.load(std::memory_order_relaxed);
    bool fresh = size >= largeBlock && held > commitLimit.load(std::memory_order_relaxed) / 2;
    if (fresh)
        commitLimit = memoryFigures().totalCommit;
    for (;;) {
        uint64_t limit = commitLimit.load(std::memory_order_relaxed);
        bool fits = size <= limit && held - freed <= limit - size;
        if (!fits && fresh)
            return false;
        if (!fits) {
            commitLimit = memoryFigures().totalCommit;
            fresh = true;
        } else if (heldBytes.compare_exchange_weak(held, held - freed + size, std::memory_order_relaxed)) {
            return true;
        }
    }
}

void discharge(size_t size)
{
    heldBytes.fetch_sub(size, std::memory_order_relaxed);
}

} // namespace

void *allocateBlock(size_t size, bool cleared)
{
    if (!charge(0, size))
        return nullptr;
    size_t atLeastOne = size ? size : 1;
    void *block = cleared ? calloc(1, atLeastOne) : malloc(atLeastOne);
    if (block)
        heldCount.fetch_add(1, std::memory_order_relaxed);
    else
        discharge(size);
    return block;
}

void *resizeBlock(void *block, size_t oldSize, size_t newSize)
{
    if (!charge(oldSize, newSize))
        return nullptr;
    void *resized = realloc(block, newSize ? newSize : 1);
    if (!resized)
        discharge(newSize - oldSize);
    return resized;
}

void freeBlock(void *block, size_t size)
{
    discharge(size);
    heldCount.fetch_sub(1, std::memory_order_relaxed);
    free(block);
}

void *allocatePages(size_t size)
{
    if (faults::refuses(WIN32_ALLOCATION_LAYER, size) || !charge(0, size))
        return nullptr;
    void *pages = mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (pages == MAP_FAILED) {
        discharge(size);
        return nullptr;
    }
    heldCount.fetch_add(1, std::memory_order_relaxed);
    return pages;
}

void freePages(void *pages, size_t size)
{
    discharge(size);
    heldCount.fetch_sub(1, std::memory_order_relaxed);
    munmap(pages, size);
}

void forgetCommitLimit()
{
    commitLimit = 0;
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
