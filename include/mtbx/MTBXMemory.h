/* The heap behind the Memory Manager, and the budget that decides when memory is short.

   The budget compares the memory that the process uses with two limits in bytes: above the soft
   limit the library asks the host's grow-zone function to purge, above the hard limit it refuses
   large native allocations. */
#ifndef MTBX_MTBXMEMORY_H
#define MTBX_MTBXMEMORY_H

#include <mtbx/MacMemory.h>

#ifdef __cplusplus

/* A heap as the MEM_ functions see it. The library's own goes straight to the C heap; a host may
   derive another, with leak tracking for instance, and hand it to the MEM_ functions. The order of
   the operations is fixed. */
class _MEMp_BasicHeap {
public:
    virtual ~_MEMp_BasicHeap() {}
    virtual Ptr NewPtr(Size byteCount, const char *name, const char *file, SInt32 line) = 0;
    virtual void DisposePtr(Ptr p) = 0;
    virtual Size GetPtrSize(Ptr p) = 0;
    virtual Ptr ResizePtr(Ptr p, Size byteCount, const char *name, const char *file, SInt32 line) = 0;
    virtual Handle NewHandle(Size byteCount, const char *name, const char *file, SInt32 line) = 0;
    virtual Size GetHandleSize(Handle h) = 0;
    virtual void DisposeHandle(Handle h) = 0;
    /* 0, or 4 when no new block could be had and the handle is unchanged. */
    virtual SInt32 SetHandleSize(Handle h, Size byteCount, const char *name, const char *file, SInt32 line) = 0;
    virtual SInt32 CheckHandleFromHeap(Handle h) = 0;
    virtual SInt32 ExemptPtrFromLeakCheck(Ptr p) = 0;
    virtual SInt32 ExemptHandleFromLeakCheck(Handle h) = 0;
    virtual void SetBaseline() = 0;
    virtual void Report(SInt32 what) = 0;
    virtual void DumpLeaks() = 0;
};

extern "C" {
#else
typedef struct _MEMp_BasicHeap _MEMp_BasicHeap;
#endif

typedef _MEMp_BasicHeap *MEM_HeapRef;

/* A new heap on the C heap, null when memory is short. The caller disposes it with
   MEM_DisposeHeap; blocks that are left then stay allocated and accounted for. */
MTBX_API MEM_HeapRef MEM_NewHeap(void);
/* Null is allowed. */
MTBX_API void MEM_DisposeHeap(MEM_HeapRef heap);

/* The operation of the same name. Null, or 4 from the size changes, when memory is short: nothing is
   purged and MemError is left alone. A negative size counts as one that cannot be had. */
MTBX_API Ptr MEM_NewPtr(MEM_HeapRef heap, Size byteCount);
MTBX_API Ptr MEM_NewPtrDebug(MEM_HeapRef heap, Size byteCount, const char *name, const char *file, SInt32 line);
MTBX_API Size MEM_GetPtrSize(MEM_HeapRef heap, Ptr p);
/* The block may move; null leaves the old one intact. A null pointer gives a new block. */
MTBX_API Ptr MEM_ResizePtr(MEM_HeapRef heap, Ptr p, Size byteCount);
MTBX_API Ptr MEM_ResizePtrDebug(MEM_HeapRef heap, Ptr p, Size byteCount, const char *name, const char *file,
                                SInt32 line);
MTBX_API void MEM_DisposePtr(MEM_HeapRef heap, Ptr p);
MTBX_API Handle MEM_NewHandle(MEM_HeapRef heap, Size byteCount);
MTBX_API Handle MEM_NewHandleDebug(MEM_HeapRef heap, Size byteCount, const char *name, const char *file, SInt32 line);
MTBX_API Size MEM_GetHandleSize(MEM_HeapRef heap, Handle h);
MTBX_API void MEM_DisposeHandle(MEM_HeapRef heap, Handle h);
MTBX_API SInt32 MEM_SetHandleSize(MEM_HeapRef heap, Handle h, Size byteCount);
MTBX_API SInt32 MEM_SetHandleSizeDebug(MEM_HeapRef heap, Handle h, Size byteCount, const char *name, const char *file,
                                       SInt32 line);
/* 0 from the library's heaps, which track no leaks. */
MTBX_API SInt32 MEM_CheckHandleFromHeap(MEM_HeapRef heap, Handle h);
MTBX_API SInt32 MEM_ExemptPtrFromLeakCheck(MEM_HeapRef heap, Ptr p);
MTBX_API SInt32 MEM_ExemptHandleFromLeakCheck(MEM_HeapRef heap, Handle h);
MTBX_API void MEM_SetBaseline(MEM_HeapRef heap);
MTBX_API void MEM_Report(MEM_HeapRef heap, SInt32 what);
MTBX_API void MEM_DumpLeaks(MEM_HeapRef heap);

/* The bytes in all heaps together, 8 more for each block and 4 for each heap object, and the
   accounted bytes. */
MTBX_API UInt64 MEM_GetMemUsage(void);
/* Declares memory outside the heaps, in bytes, or takes it back with a negative number; the sum
   never falls below 0. Gives 0. */
MTBX_API SInt32 MEM_AccountAllocation(SInt32 delta);
/* The two limits in bytes. Both give 0. */
MTBX_API SInt32 MEM_SetMemUsageLimits(UInt64 soft, UInt64 hard);
MTBX_API SInt32 MEM_GetMemUsageLimits(UInt64 *soft, UInt64 *hard);

/* Start of the memory subsystem: after MTBX_SetZPPrefsFile and before anything is allocated. Sets
   the limits from the settings "MaxMemoryBeforePurgePercentage" and "MaxMemoryUsePercentage", unless
   the host has set a hard limit before. Gives 0. */
MTBX_API OSErr MTBX_InitializeMemorySubsystem(void);
/* Works out how much memory the program may plan with, from physical memory and the settings
   "ApplicationMemory", "BaseReserve", "Slop" and "MemoryUsage", writes the figures to the settings
   file, and raises the working set if "AdjustWorkingSetSize" says so. The result is in bytes, at
   least 0x100000. */
MTBX_API SInt32 MTBX_InitMem(void);
/* The end: the last call of the library that uses memory. Disposes the tables of volumes and
   directories and the buffer of BitMapToRegion, and gives back the system's process-status library. */
MTBX_API OSErr MTBX_ShutdownMemory(void);

/* Sets both limits as percentages of physical memory, each at least 28 MB and at most 2147483647
   bytes. Gives 0. */
MTBX_API OSErr MTBX_SetMemUsagePercentages(double beforePurge, double maxUse);
MTBX_API OSErr MTBX_SetMemUsageLimits(UInt64 soft, UInt64 hard);
MTBX_API OSErr MTBX_GetMemUsageLimits(UInt64 *soft, UInt64 *hard);

/* The bytes that the process uses: the heaps, the accounted bytes, and what else the system measured
   at the last correction. The system is asked once in 40000 questions. Gives 0. */
MTBX_API OSErr MTBX_TotalMemoryUsed(UInt64 *bytes);
/* The next question measures. Gives 0. */
MTBX_API OSErr MTBX_SyncMemUsageWithOS(void);
/* The smaller of physical memory and the process's address space, in bytes. Gives 0. */
MTBX_API OSErr MTBX_TotalRAMInstalled(UInt64 *bytes);
/* Tries out how many bytes the process could hold in all, those that it uses included. Costs an
   allocation of all that the system gives. */
MTBX_API UInt64 MTBX_TestAvailAddrSpace(void);
/* *reached is 1 when usage is above the soft limit and purging did not help, otherwise 0. Gives 0. */
MTBX_API OSErr MTBX_NonPurgableRAMLimitReached(Boolean *reached);

/* Declares native memory that the library cannot see, in bytes; negative when it is freed. Gives 0. */
MTBX_API OSErr MTBX_AccountGlobalMemoryAllocation(SInt32 delta);
/* Declares address space that the host reserved, for MTBX_TestAvailAddrSpace only. Gives 0. */
MTBX_API OSErr MTBX_AccountReservedAddressSpace(SInt64 delta);

/* Turn purging before large native allocations off and on again; they nest. */
MTBX_API void MTBX_DisableProactivePrePurging(void);
MTBX_API void MTBX_EnableProactivePrePurging(void);

/* Kept for hosts that call it; the library shows no memory dialogs. */
MTBX_API void MTBX_QuietMemDialogs(void);

#ifdef __cplusplus
}
#endif

#endif
