/* The Memory Manager.

   There is no Macintosh heap behind these calls: blocks lie in the C heap, and a handle is a small
   block of its own that points to its data. A handle behaves as locked and unpurgeable for life;
   only a change of size moves its data. Sizes are in bytes and new blocks are not cleared unless a
   call's name says so. Whoever gets a handle or pointer frees it with DisposeHandle or DisposePtr.

   When the C heap refuses, NewHandle and NewPtr call the host's grow-zone function, up to five
   times for one allocation, and try again after each time that it freed something. */
#ifndef MTBX_MACMEMORY_H
#define MTBX_MACMEMORY_H

#include <mtbx/MacTypes.h>

#ifdef __cplusplus
extern "C" {
#endif

/* Asked to free memory: the number of bytes wanted, which may be more than the host holds. It runs
   inside the call that is short of memory, may allocate (a nested shortage then fails at once), and
   gives back non-zero when it freed something and the caller should try again, 0 when it can free
   no more. */
typedef SInt32 (*GrowZoneExProcPtr)(UInt64 bytesWanted);

/* Installs the grow-zone function, the library's only way to get memory back; null removes it.
   Sets MemError to 0. */
MTBX_API void SetGrowZoneEx(GrowZoneExProcPtr growZone);

/* The result of the last call that sets it: 0, memFullErr (-108), nilHandleErr (-109) or memWZErr
   (-111). Reading it does not clear it. */
MTBX_API OSErr MemError(void);

/* A new handle with a block of the size, owned by the caller. A size of 0 gives a handle with a
   null master pointer. Null with MemError memFullErr when memory is short or the size negative. With
   gWin32S set, sizes from 0xFE0000 on are refused and MemError stays. */
MTBX_API Handle NewHandle(Size byteCount);
MTBX_API Handle NewHandleClear(Size byteCount);
MTBX_API Handle NewHandleSys(Size byteCount);
/* A handle with a null master pointer. It is not tried again when memory is short, and MemError
   stays. */
MTBX_API Handle NewEmptyHandle(void);
/* The same calls with the place they are made from, which is not used. */
MTBX_API Handle NewHandleDebug(Size byteCount, const char *file, SInt32 line);
MTBX_API Handle NewHandleSysDebug(Size byteCount, const char *file, SInt32 line);
MTBX_API Handle NewHandleClearDebug(Size byteCount, const char *file, SInt32 line);
MTBX_API Handle NewHandleSysClearDebug(Size byteCount, const char *file, SInt32 line);

/* A new block, owned by the caller; a size of 0 gives a pointer too. Null with MemError memFullErr
   when memory is short or the size negative. */
MTBX_API Ptr NewPtr(Size byteCount);
MTBX_API Ptr NewPtrClear(Size byteCount);
MTBX_API Ptr NewPtrDebug(Size byteCount, const char *file, SInt32 line);
MTBX_API Ptr NewPtrClearDebug(Size byteCount, const char *file, SInt32 line);
/* There is no system heap: these always give null and leave MemError. */
MTBX_API Ptr NewPtrSys(Size byteCount);
MTBX_API Ptr NewPtrSysDebug(Size byteCount, const char *file, SInt32 line);
MTBX_API Ptr NewPtrSysClearDebug(Size byteCount, const char *file, SInt32 line);

/* Frees the block and the handle; null is allowed. */
MTBX_API void DisposeHandle(Handle h);
/* Frees the block. Null sets MemError to memWZErr. */
MTBX_API void DisposePtr(Ptr p);

/* The size asked for, 0 for a null handle and for one without a block. */
MTBX_API Size GetHandleSize(Handle h);
MTBX_API Size GetPtrSize(Ptr p);

/* Changes the size of a handle's block and keeps the contents up to the smaller of the two sizes;
   what is added is not cleared. The block moves on every real change; size 0 frees it. When memory
   is short MemError is memFullErr and the handle keeps its block; the grow-zone function is not
   asked. The handle must not be null. */
MTBX_API void SetHandleSize(Handle h, Size byteCount);
/* As SetHandleSize; a null handle sets MemError to memWZErr. */
MTBX_API void SetHandleSizeDebug(Handle h, Size byteCount, const char *file, SInt32 line);
/* As SetHandleSize: the contents are kept, which they are not on a Macintosh. */
MTBX_API void ReallocateHandle(Handle h, Size byteCount);
/* Frees the block and leaves the handle with a null master pointer. Null sets nilHandleErr. */
MTBX_API void EmptyHandle(Handle h);
/* Does nothing. */
MTBX_API void SetPtrSizeDebug(Ptr p, Size byteCount, const char *file, SInt32 line);

/* Copies bytes; the two places may overlap. */
MTBX_API void BlockMove(const void *source, void *destination, Size byteCount);
/* A new handle with a copy of the bytes, owned by the caller, in *result: null when memory is
   short, which gives memFullErr. */
MTBX_API OSErr PtrToHand(const void *source, Handle *result, Size byteCount);
/* Puts a copy of the handle in its place; the old handle stays the caller's. On memFullErr *h is as
   it was. */
MTBX_API OSErr HandToHand(Handle *h);

/* Blocks never move by themselves and are never purged, so these change nothing. HLock and HUnlock
   set MemError to memWZErr for null; HUnlock clears it otherwise, HLock does not. */
MTBX_API void HLock(Handle h);
MTBX_API void HUnlock(Handle h);
MTBX_API void HLockHi(Handle h);
MTBX_API void MoveHHi(Handle h);
MTBX_API void HPurge(Handle h);
MTBX_API void HNoPurge(Handle h);
MTBX_API void HSetState(Handle h, SInt8 state);
/* Always 0. */
MTBX_API SInt8 HGetState(Handle h);

/* The bytes left under the soft limit of the memory budget, at most 0x7FFFFFFF. *grow is not
   written. */
MTBX_API Size MaxMem(Size *grow);
/* The same without the cap. */
MTBX_API UInt64 MaxBlockEx(void);

/* Fixed answers: nothing is free, purgeable, or in a zone. */
MTBX_API SInt32 FreeMem(void);
MTBX_API void PurgeSpace(SInt32 *total, SInt32 *contiguous);
MTBX_API void ReserveMem(Size byteCount);
MTBX_API Ptr ApplicationZone(void);
MTBX_API void MaxApplZone(void);
MTBX_API void MoreMasterPointers(UInt32 count);
MTBX_API void MoreMasters(void);
MTBX_API Ptr GetApplLimit(void);
MTBX_API void SetApplLimit(void *limit);
MTBX_API Handle GZSaveHnd(void);
MTBX_API Ptr StripAddress(void *address);

#ifdef __cplusplus
}
#endif

#endif
