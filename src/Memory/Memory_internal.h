// What other managers need of the Memory Manager: the library's heap, the grow-zone step, and purging
// for native allocations.
#pragma once

#include <mtbx/MTBXMemory.h>

// The heap of all Toolbox calls.
MEM_HeapRef MTBX_LibraryHeap();

// One step of asking the host for memory after an allocation failed. *attempt counts the steps of one
// allocation and begins at 0; *retry says whether to try again. The first step costs only another try,
// the later ones call the grow-zone function, up to five times.
void MTBX_GrowZoneStep(UInt64 size, SInt32 *attempt, Boolean *retry);

// Purges until MaxBlockEx reaches the size in bytes; true if it got there.
bool MTBX_PurgeToMaxBlock(UInt64 size);

// Before a large native allocation: purges when usage would pass the soft limit. True if the
// allocation may go on under the hard limit.
bool MTBX_PrePurgeForAllocation(SInt32 size);

// After a native allocation failed although the budget allowed it: frees memory until the system gives
// a block of that size or nothing more can be gained.
void MTBX_PurgeForOSBlock(UInt64 size);

// Whether GDI objects have run out and purging must not be satisfied by the headroom in memory.
bool MTBX_OutOfGDIResources();

// While one lives, MTBX_OutOfGDIResources is true.
class GdiShortageScope {
public:
    GdiShortageScope();
    ~GdiShortageScope();
    GdiShortageScope(const GdiShortageScope &) = delete;
    GdiShortageScope &operator=(const GdiShortageScope &) = delete;
};

// Gives the system's process-status library back; the next usage query that needs it loads it anew.
void MTBX_ReleaseProcessStatus();
