// Purging through the host when the budget or the system runs short.
#include "MemoryManager_internal.h"

#include <malloc.h>

#include <algorithm>

namespace {

SInt16 prePurgeDisabled = 0;

UInt64 usage()
{
    UInt64 bytes;
    MTBX_TotalMemoryUsed(&bytes);
    return bytes;
}

// A negative size makes the sum smaller, but never less than nothing.
UInt64 usageWith(SInt32 size)
{
    UInt64 used = usage();
    if (size < 0 && used < static_cast<UInt64>(-static_cast<SInt64>(size)))
        return 0;
    return used + static_cast<UInt64>(static_cast<SInt64>(size));
}

} // namespace

void MTBX_DisableProactivePrePurging()
{
    ++prePurgeDisabled;
}

void MTBX_EnableProactivePrePurging()
{
    --prePurgeDisabled;
}

bool MTBX_PurgeToMaxBlock(UInt64 size)
{
    SInt32 attempt = MTBX_OutOfGDIResources() ? 1 : 0;
    for (;;) {
        Boolean retry;
        MTBX_GrowZoneStep(size, &attempt, &retry);
        bool reached = MaxBlockEx() >= size;
        if (!retry || reached)
            return reached;
    }
}

bool MTBX_PrePurgeForAllocation(SInt32 size)
{
    constexpr SInt64 purgeBeyond = 0x100000;
    if (prePurgeDisabled != 0)
        return true;
    if (usageWith(size) > memoryAccount.softLimit)
        MTBX_PurgeToMaxBlock(static_cast<UInt64>(std::max<SInt64>(size + purgeBeyond, 0)));
    return usageWith(size) <= memoryAccount.hardLimit;
}

void MTBX_PurgeForOSBlock(UInt64 size)
{
    for (UInt64 previous = usage();;) {
        _heapmin();
        MTBX_SyncMemUsageWithOS();
        MTBX_PurgeToMaxBlock(MaxBlockEx() + size);
        UInt64 current = usage();
        HGLOBAL probe = GlobalAlloc(GMEM_FIXED, static_cast<SIZE_T>(size));
        if (probe) {
            GlobalFree(probe);
            return;
        }
        if (current >= previous)
            return;
        previous = current;
    }
}

OSErr MTBX_NonPurgableRAMLimitReached(Boolean *reached)
{
    *reached = false;
    if (usage() > memoryAccount.softLimit)
        *reached = !MTBX_PurgeToMaxBlock(1);
    return noErr;
}
