#include "bitmap.h"

#include "kernel/heap_blocks.h"
#include "kernel/kernel_internal.h"

#include <sys/mman.h>

namespace win32::gdi {
namespace {

constexpr uintptr_t hugePage = 2 << 20;

// Pictures from this size on have pages of their own. The address sanitizer watches over blocks only.
#ifdef __SANITIZE_ADDRESS__
constexpr size_t ownPages = SIZE_MAX;
#else
constexpr size_t ownPages = 128 << 10;
#endif

// The first drawing on fresh memory costs a fault for each page, which is most of its time on a large
// picture; the kernel is asked to hand out huge pages where whole ones fit. It may refuse.
void askForHugePages(uint8_t *block, size_t size)
{
    uintptr_t begin = (reinterpret_cast<uintptr_t>(block) + hugePage - 1) & ~(hugePage - 1);
    uintptr_t end = (reinterpret_cast<uintptr_t>(block) + size) & ~(hugePage - 1);
    if (begin < end)
        madvise(reinterpret_cast<void *>(begin), end - begin, MADV_HUGEPAGE);
}

} // namespace

PixelMemory::~PixelMemory()
{
    if (block_)
        blockSize_ < ownPages ? freeBlock(block_, blockSize_) : freePages(block_, blockSize_);
}

bool PixelMemory::allocate(size_t byteCount)
{
    // Large pictures begin with a cache line: their rows often do then.
    constexpr size_t line = 64, large = 4096;
    blockSize_ = byteCount < large ? byteCount : byteCount + line;
    bool hasPages = blockSize_ >= ownPages;
    block_ = static_cast<uint8_t *>(hasPages ? allocatePages(blockSize_) : allocateBlock(blockSize_, true));
    if (!block_)
        return fail(ERROR_NOT_ENOUGH_MEMORY, false);
    data_ = byteCount < large || hasPages ? block_ : block_ + (line - reinterpret_cast<uintptr_t>(block_) % line);
    size_ = byteCount;
    if (byteCount >= 2 * hugePage)
        askForHugePages(data_, byteCount);
    return true;
}

} // namespace win32::gdi
