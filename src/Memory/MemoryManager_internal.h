// What the files of the Memory Manager share among themselves.
#pragma once

#include "Memory_internal.h"
#include "StandardHeap.h"

#include <mtbx/MacErrors.h>

// The library's heap object. It exists from the start and is never destroyed; it counts in the usage
// from the first MTBX_InitializeMemorySubsystem on.
MEMp_StandardHeap &libraryHeap();

extern SInt16 memError;

// Goes on with an allocation that failed once, as long as the grow-zone steps say so.
template <class Allocation> [[gnu::noinline, gnu::cold]] auto purgeAndAllocate(Size byteCount, Allocation allocation)
{
    decltype(allocation()) result{};
    // No purging could ever make room for a negative size.
    SInt32 attempt = 0;
    Boolean retry = byteCount >= 0;
    while (!result && retry) {
        MTBX_GrowZoneStep(static_cast<UInt64>(byteCount), &attempt, &retry);
        if (retry)
            result = allocation();
    }
    // A nested call from the grow-zone function may have set the error meanwhile.
    memError = result ? OSErr{noErr} : OSErr{memFullErr};
    return result;
}

template <class Allocation> inline auto allocateOrPurge(Size byteCount, Allocation allocation)
{
    memError = noErr;
    auto result = allocation();
    return result ? result : purgeAndAllocate(byteCount, allocation);
}
