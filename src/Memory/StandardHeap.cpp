#include "StandardHeap.h"

#include <algorithm>
#include <cstring>
#include <utility>

UInt64 heapTotal = 0;

MEMp_StandardHeap::~MEMp_StandardHeap()
{
    heapTotal -= accountedHeap;
}

Ptr MEMp_StandardHeap::NewPtr(Size byteCount, const char *, const char *, SInt32)
{
    if (byteCount < 0)
        return nullptr;
    auto size = static_cast<UInt32>(byteCount);
    auto header = static_cast<MEMp_BlockHeader *>(malloc(size + sizeof(MEMp_BlockHeader)));
    if (!header)
        return nullptr;
    header->logicalSize = size;
    header->owner = this;
    heapTotal += UInt64{size} + accountedHeader;
    return reinterpret_cast<Ptr>(header + 1);
}

void MEMp_StandardHeap::DisposePtr(Ptr p)
{
    if (!p)
        return;
    MEMp_BlockHeader *header = headerOf(p);
    heapTotal -= UInt64{header->logicalSize} + accountedHeader;
    free(header);
}

Size MEMp_StandardHeap::GetPtrSize(Ptr p)
{
    return static_cast<Size>(headerOf(p)->logicalSize);
}

Ptr MEMp_StandardHeap::ResizePtr(Ptr p, Size byteCount, const char *name, const char *file, SInt32 line)
{
    if (!p)
        return NewPtr(byteCount, name, file, line);
    if (byteCount < 0)
        return nullptr;
    auto size = static_cast<UInt32>(byteCount);
    UInt32 oldSize = headerOf(p)->logicalSize;
    auto header = static_cast<MEMp_BlockHeader *>(realloc(headerOf(p), size + sizeof(MEMp_BlockHeader)));
    if (!header)
        return nullptr;
    heapTotal = heapTotal - oldSize + size;
    header->logicalSize = size;
    return reinterpret_cast<Ptr>(header + 1);
}

Handle MEMp_StandardHeap::NewHandle(Size byteCount, const char *name, const char *file, SInt32 line)
{
    auto cell = static_cast<Handle>(malloc(sizeof(Ptr)));
    if (!cell)
        return nullptr;
    *cell = nullptr;
    if (byteCount == 0)
        return cell;
    *cell = NewPtr(byteCount, name, file, line);
    if (*cell)
        return cell;
    free(cell);
    return nullptr;
}

Size MEMp_StandardHeap::GetHandleSize(Handle h)
{
    return h && *h ? GetPtrSize(*h) : 0;
}

void MEMp_StandardHeap::DisposeHandle(Handle h)
{
    if (!h)
        return;
    DisposePtr(*h);
    free(h);
}

// A change of size always makes a new block, so the old one is whole until the new one exists.
SInt32 MEMp_StandardHeap::SetHandleSize(Handle h, Size byteCount, const char *name, const char *file, SInt32 line)
{
    constexpr SInt32 noBlock = 4;
    if (byteCount == 0 && h && *h) {
        DisposePtr(*h);
        *h = nullptr;
        return 0;
    }
    Size oldSize = GetHandleSize(h);
    if (oldSize == byteCount)
        return 0;
    Handle scratch = h ? NewHandle(byteCount, name, file, line) : nullptr;
    if (!scratch)
        return noBlock;
    if (oldSize > 0)
        memcpy(*scratch, *h, static_cast<size_t>(std::min(oldSize, byteCount)));
    std::swap(*h, *scratch);
    DisposeHandle(scratch);
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
