// The Memory Manager's calls on handles and pointers.
#include "MemoryManager_internal.h"

#include <mtbx/MTBXEnvironment.h>
#include <mtbx/MTBXGlobals.h>

#include <cstring>

SInt16 memError = noErr;

namespace {

constexpr Size smallMemoryLimit = 0xFE0000;

// Never destroyed: blocks and usage queries may outlive all other objects of the library.
union ImmortalHeap {
    constexpr ImmortalHeap() : heap() {}
    ~ImmortalHeap() {}
    MEMp_StandardHeap heap;
};
constinit ImmortalHeap immortalHeap;

using Contents = MEMp_StandardHeap::Contents;

template <Contents contents = Contents::Undefined> inline Handle newHandle(Size byteCount)
{
    if (gWin32S && byteCount >= smallMemoryLimit) [[unlikely]]
        return nullptr;
    return allocateOrPurge(byteCount, [=] { return immortalHeap.heap.makeHandle(byteCount, contents); });
}

template <Contents contents = Contents::Undefined> inline Ptr newPtr(Size byteCount)
{
    return allocateOrPurge(byteCount, [=] { return immortalHeap.heap.makeBlock(byteCount, contents); });
}

void setHandleSize(Handle h, Size byteCount)
{
    memError = noErr;
    bool refused = gWin32S && byteCount > smallMemoryLimit;
    if (refused || libraryHeap().SetHandleSize(h, byteCount, nullptr, nullptr, 0) != 0)
        memError = memFullErr;
}

} // namespace

MEMp_StandardHeap &libraryHeap()
{
    return immortalHeap.heap;
}

MEM_HeapRef MTBX_LibraryHeap()
{
    return &libraryHeap();
}

OSErr MemError()
{
    return memError;
}

Handle NewHandle(Size byteCount)
{
    return newHandle(byteCount);
}

Handle NewHandleClear(Size byteCount)
{
    return newHandle<Contents::Cleared>(byteCount);
}

Handle NewHandleSys(Size byteCount)
{
    return NewHandle(byteCount);
}

Handle NewEmptyHandle()
{
    return libraryHeap().makeHandle(0);
}

Handle NewHandleDebug(Size byteCount, const char *, SInt32)
{
    return newHandle(byteCount);
}

Handle NewHandleSysDebug(Size byteCount, const char *file, SInt32 line)
{
    return NewHandleDebug(byteCount, file, line);
}

Handle NewHandleClearDebug(Size byteCount, const char *, SInt32)
{
    return NewHandleClear(byteCount);
}

Handle NewHandleSysClearDebug(Size byteCount, const char *file, SInt32 line)
{
    return NewHandleClearDebug(byteCount, file, line);
}

Ptr NewPtr(Size byteCount)
{
    return newPtr(byteCount);
}

Ptr NewPtrClear(Size byteCount)
{
    return newPtr<Contents::Cleared>(byteCount);
}

Ptr NewPtrDebug(Size byteCount, const char *, SInt32)
{
    return newPtr(byteCount);
}

Ptr NewPtrClearDebug(Size byteCount, const char *, SInt32)
{
    return NewPtrClear(byteCount);
}

Ptr NewPtrSys(Size)
{
    StubError("Memory", "NewPtrSys");
    return nullptr;
}

Ptr NewPtrSysDebug(Size, const char *, SInt32)
{
    StubError("Memory", "NewPtrSysDebug");
    return nullptr;
}

Ptr NewPtrSysClearDebug(Size, const char *, SInt32)
{
    StubError("Memory", "NewPtrSysClearDebug");
    return nullptr;
}

void DisposeHandle(Handle h)
{
    memError = noErr;
    MEMp_StandardHeap::freeHandle(h);
}

void DisposePtr(Ptr p)
{
    memError = p ? OSErr{noErr} : OSErr{memWZErr};
    MEMp_StandardHeap::freeBlock(p);
}

Size GetHandleSize(Handle h)
{
    return libraryHeap().GetHandleSize(h);
}

Size GetPtrSize(Ptr p)
{
    return libraryHeap().GetPtrSize(p);
}

void SetHandleSize(Handle h, Size byteCount)
{
    setHandleSize(h, byteCount);
}

void SetHandleSizeDebug(Handle h, Size byteCount, const char *, SInt32)
{
    if (!h) {
        memError = memWZErr;
        return;
    }
    setHandleSize(h, byteCount);
}

void ReallocateHandle(Handle h, Size byteCount)
{
    SetHandleSize(h, byteCount);
}

void EmptyHandle(Handle h)
{
    memError = h ? OSErr{noErr} : OSErr{nilHandleErr};
    if (!h)
        return;
    MEMp_StandardHeap::freeBlock(*h);
    *h = nullptr;
}

void SetPtrSizeDebug(Ptr, Size, const char *, SInt32)
{
    StubError("Memory", "SetPtrSizeDebug");
}

void BlockMove(const void *source, void *destination, Size byteCount)
{
    if (byteCount > 0)
        memmove(destination, source, static_cast<size_t>(byteCount));
}

OSErr PtrToHand(const void *source, Handle *result, Size byteCount)
{
    *result = NewHandle(byteCount);
    if (!*result)
        return memFullErr;
    BlockMove(source, **result, byteCount);
    return noErr;
}

OSErr HandToHand(Handle *h)
{
    Size byteCount = GetHandleSize(*h);
    Handle copy = NewHandle(byteCount);
    if (!copy)
        return memFullErr;
    BlockMove(**h, *copy, byteCount);
    *h = copy;
    return noErr;
}

void HLock(Handle h)
{
    if (!h)
        memError = memWZErr;
}

void HUnlock(Handle h)
{
    memError = h ? OSErr{noErr} : OSErr{memWZErr};
}

void HLockHi(Handle)
{
}

void MoveHHi(Handle)
{
}

void HPurge(Handle)
{
}

void HNoPurge(Handle)
{
}

void HSetState(Handle, SInt8)
{
}

SInt8 HGetState(Handle)
{
    return 0;
}

SInt32 FreeMem()
{
    return 0;
}

void PurgeSpace(SInt32 *total, SInt32 *contiguous)
{
    *total = 0;
    *contiguous = 0;
    memError = noErr;
}

void ReserveMem(Size)
{
    memError = noErr;
}

Ptr ApplicationZone()
{
    return nullptr;
}

void MaxApplZone()
{
}

void MoreMasterPointers(UInt32)
{
}

void MoreMasters()
{
    StubError("Memory", "MoreMasters");
}

Ptr GetApplLimit()
{
    StubError("Memory", "GetApplLimit");
    return nullptr;
}

void SetApplLimit(void *)
{
    StubError("Memory", "SetApplLimit");
}

Handle GZSaveHnd()
{
    return nullptr;
}

Ptr StripAddress(void *address)
{
    return static_cast<Ptr>(address);
}
