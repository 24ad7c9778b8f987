// The exported calls on heap objects, and the figures that all heaps share.
#include "Memory_internal.h"
#include "StandardHeap.h"

#include <algorithm>
#include <new>

MEM_HeapRef MEM_NewHeap()
{
    auto heap = new (std::nothrow) MEMp_StandardHeap;
    if (heap)
        memoryAccount.heapTotal += MEMp_StandardHeap::accountedHeap;
    return heap;
}

void MEM_DisposeHeap(MEM_HeapRef heap)
{
    delete heap;
}

void MEM_SetBaseline(MEM_HeapRef heap)
{
    heap->SetBaseline();
}

void MEM_Report(MEM_HeapRef heap, SInt32 what)
{
    heap->Report(what);
}

void MEM_DumpLeaks(MEM_HeapRef heap)
{
    heap->DumpLeaks();
}

Ptr MEM_NewPtr(MEM_HeapRef heap, Size byteCount)
{
    return heap->NewPtr(byteCount, nullptr, nullptr, 0);
}

Ptr MEM_NewPtrDebug(MEM_HeapRef heap, Size byteCount, const char *name, const char *file, SInt32 line)
{
    return heap->NewPtr(byteCount, name, file, line);
}

Size MEM_GetPtrSize(MEM_HeapRef heap, Ptr p)
{
    return heap->GetPtrSize(p);
}

Ptr MEM_ResizePtr(MEM_HeapRef heap, Ptr p, Size byteCount)
{
    return heap->ResizePtr(p, byteCount, nullptr, nullptr, 0);
}

Ptr MEM_ResizePtrDebug(MEM_HeapRef heap, Ptr p, Size byteCount, const char *name, const char *file, SInt32 line)
{
    return heap->ResizePtr(p, byteCount, name, file, line);
}

void MEM_DisposePtr(MEM_HeapRef heap, Ptr p)
{
    heap->DisposePtr(p);
}

Handle MEM_NewHandle(MEM_HeapRef heap, Size byteCount)
{
    return heap->NewHandle(byteCount, nullptr, nullptr, 0);
}

Handle MEM_NewHandleDebug(MEM_HeapRef heap, Size byteCount, const char *name, const char *file, SInt32 line)
{
    return heap->NewHandle(byteCount, name, file, line);
}

Size MEM_GetHandleSize(MEM_HeapRef heap, Handle h)
{
    return heap->GetHandleSize(h);
}

void MEM_DisposeHandle(MEM_HeapRef heap, Handle h)
{
    heap->DisposeHandle(h);
}

SInt32 MEM_SetHandleSize(MEM_HeapRef heap, Handle h, Size byteCount)
{
    return heap->SetHandleSize(h, byteCount, nullptr, nullptr, 0);
}

SInt32 MEM_SetHandleSizeDebug(MEM_HeapRef heap, Handle h, Size byteCount, const char *name, const char *file,
                              SInt32 line)
{
    return heap->SetHandleSize(h, byteCount, name, file, line);
}

SInt32 MEM_CheckHandleFromHeap(MEM_HeapRef heap, Handle h)
{
    return heap->CheckHandleFromHeap(h);
}

SInt32 MEM_ExemptPtrFromLeakCheck(MEM_HeapRef heap, Ptr p)
{
    return heap->ExemptPtrFromLeakCheck(p);
}

SInt32 MEM_ExemptHandleFromLeakCheck(MEM_HeapRef heap, Handle h)
{
    return heap->ExemptHandleFromLeakCheck(h);
}

UInt64 MEM_GetMemUsage()
{
    return static_cast<UInt64>(memoryAccount.usage());
}

SInt32 MEM_AccountAllocation(SInt32 delta)
{
    memoryAccount.accounted = std::max<SInt64>(memoryAccount.accounted + delta, 0);
    return 0;
}

SInt32 MEM_SetMemUsageLimits(UInt64 soft, UInt64 hard)
{
    memoryAccount.softLimit = soft;
    memoryAccount.hardLimit = hard;
    return 0;
}

SInt32 MEM_GetMemUsageLimits(UInt64 *soft, UInt64 *hard)
{
    *soft = memoryAccount.softLimit;
    *hard = memoryAccount.hardLimit;
    return 0;
}
