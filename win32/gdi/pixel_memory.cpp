#include "bitmap.h"

#include "kernel/heap_blocks.h"
#include "kernel/kernel_internal.h"

namespace win32::gdi {

PixelMemory::~PixelMemory()
{
    if (data_)
        freeBlock(data_, size_);
}

bool PixelMemory::allocate(size_t byteCount)
{
    data_ = static_cast<uint8_t *>(allocateBlock(byteCount, true));
    if (!data_)
        return fail(ERROR_NOT_ENOUGH_MEMORY, false);
    size_ = byteCount;
    return true;
}

} // namespace win32::gdi
