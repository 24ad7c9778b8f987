// Raw blocks behind GlobalAlloc and HeapAlloc, and the bound on what may be committed.
#pragma once

#include <windows.h>

namespace win32 {

// Null when memory is short. All blocks together may not pass the memory that the machine can commit,
// although the kernel would promise more than it has.
void *allocateBlock(size_t size, bool cleared);
void *resizeBlock(void *block, size_t oldSize, size_t newSize);
void freeBlock(void *block, size_t size);

// The same with pages of the system's, zeroed, which go back to it when they are freed: a C heap would keep large blocks
// that small ones lie behind.
void *allocatePages(size_t size);
void freePages(void *pages, size_t size);

// The bound is read anew with the next block.
void forgetCommitLimit();

// Bytes and blocks held now.
void heldBlocks(SIZE_T *bytes, SIZE_T *blocks);

} // namespace win32
