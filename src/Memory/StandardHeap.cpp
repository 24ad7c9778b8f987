#include "StandardHeap.h"

#include <algorithm>
#include <cstring>
#include <utility>

MEMp_Account memoryAccount{};

MEMp_StandardHeap::~MEMp_StandardHeap()
{
    memoryAccount.heapTotal -= accountedHeap;
}

Ptr MEMp_StandardHeap::NewPtr(Size byteCount, const char *, const char *, SInt32)
{
    return makeBlock(byteCount);
}

void MEMp_StandardHeap::DisposePtr(Ptr p)
{
    freeBlock(p);
}

Size MEMp_StandardHeap::GetPtrSize(Ptr p)
{
    return static_cast<Size>(headerOf(p)->logicalSize);
}

Ptr MEMp_StandardHeap::ResizePtr(Ptr p, Size byteCount, const char *, const char *, SInt32)
{
    if (!p)
        return makeBlock(byteCount);
    if (byteCount < 0)
        return nullptr;
    auto size = static_cast<UInt32>(byteCount);
    UInt32 oldSize = headerOf(p)->logicalSize;
    auto header = static_cast<MEMp_BlockHeader *>(realloc(headerOf(p), size + sizeof(MEMp_BlockHeader)));
    if (!header)
        return nullptr;
    memoryAccount.heapTotal = memoryAccount.heapTotal - oldSize + size;
    header->logicalSize = size;
    return reinterpret_cast<Ptr>(header + 1);
}

Handle MEMp_StandardHeap::NewHandle(Size byteCount, const char *, const char *, SInt32)
{
    return makeHandle(byteCount);
}

Size MEMp_StandardHeap::GetHandleSize(Handle h)
{
    return h && *h ? GetPtrSize(*h) : 0;
}

void MEMp_StandardHeap::DisposeHandle(Handle h)
{
    freeHandle(h);
}

// A change of size always makes a new block, so the old one is whole until the new one exists.
SInt32 MEMp_StandardHeap::SetHandleSize(Handle h, Size byteCount, const char *, const char *, SInt32)
{
    constexpr SInt32 noBlock = 4;
    if (byteCount == 0 && h && *h) {
        freeBlock(*h);
        *h = nullptr;
        return 0;
    }
    Size oldSize = GetHandleSize(h);
    if (oldSize == byteCount)
        return 0;
    Handle scratch = h ? makeHandle(byteCount) : nullptr;
    if (!scratch)
        return noBlock;
    if (oldSize > 0)
        memcpy(*scratch, *h, static_cast<size_t>(std::min(oldSize, byteCount)));
    std::swap(*h, *scratch);
    freeHandle(scratch);
    return 0;
}

SInt32 MEMp_StandardHeap::CheckHandleFromHeap(Handle)
{
    return 0;
}

SInt32 MEMp_StandardHeap::ExemptPtrFromLeakCheck(Ptr)
{
    return 0;
}

SInt32 MEMp_StandardHeap::ExemptHandleFromLeakCheck(Handle)
{
    return 0;
}

void MEMp_StandardHeap::SetBaseline()
{
}

void MEMp_StandardHeap::Report(SInt32)
{
}

void MEMp_StandardHeap::DumpLeaks()
{
}
