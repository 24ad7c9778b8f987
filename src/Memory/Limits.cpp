// The limits of the memory budget, and what is accounted for beside the heaps.
#include "MemoryManager_internal.h"

#include "Frame/Settings_internal.h"

#include <algorithm>

namespace {

constexpr SInt32 leastPercentage = 25;

SInt64 reservedAddressSpace = 0;
Boolean memoryDialogsQuiet = false;

UInt64 limitFromPercentage(SIZE_T physicalMemory, double percentage)
{
    constexpr double highest = 2147483647.0;
    constexpr double lowest = 29360128.0; // 28 MB
    double limit = static_cast<double>(physicalMemory) * percentage / 100.0;
    // Written so that a value that is no number gives the lowest limit.
    if (!(limit >= lowest))
        return static_cast<UInt64>(lowest);
    return static_cast<UInt64>(std::min(limit, highest));
}

SInt32 percentageSetting(const char *key, SInt32 defaultValue)
{
    SInt32 percentage = MTBX_GetRequiredProfileInt(key, defaultValue);
    if (percentage >= leastPercentage)
        return percentage;
    MTBX_SetProfileInt(key, leastPercentage);
    return leastPercentage;
}

} // namespace

OSErr MTBX_InitializeMemorySubsystem()
{
    static bool counted = false;
    if (!counted) {
        counted = true;
        memoryAccount.heapTotal += MEMp_StandardHeap::accountedHeap;
    }
    if (memoryAccount.hardLimit == 0) {
        SInt32 maxUse = percentageSetting("MaxMemoryUsePercentage", 140);
        SInt32 beforePurge = percentageSetting("MaxMemoryBeforePurgePercentage", 70);
        MTBX_SetMemUsagePercentages(beforePurge, maxUse);
    }
    return noErr;
}

OSErr MTBX_SetMemUsagePercentages(double beforePurge, double maxUse)
{
    MEMORYSTATUS status{};
    status.dwLength = sizeof status;
    GlobalMemoryStatus(&status);
    MEM_SetMemUsageLimits(limitFromPercentage(status.dwTotalPhys, beforePurge),
                          limitFromPercentage(status.dwTotalPhys, maxUse));
    return noErr;
}

OSErr MTBX_SetMemUsageLimits(UInt64 soft, UInt64 hard)
{
    return static_cast<OSErr>(MEM_SetMemUsageLimits(soft, hard));
}

OSErr MTBX_GetMemUsageLimits(UInt64 *soft, UInt64 *hard)
{
    return static_cast<OSErr>(MEM_GetMemUsageLimits(soft, hard));
}

OSErr MTBX_TotalRAMInstalled(UInt64 *bytes)
{
    MEMORYSTATUSEX status{};
    status.dwLength = sizeof status;
    GlobalMemoryStatusEx(&status);
    *bytes = std::min(status.ullTotalPhys, status.ullTotalVirtual);
    return noErr;
}

OSErr MTBX_AccountGlobalMemoryAllocation(SInt32 delta)
{
    return static_cast<OSErr>(MEM_AccountAllocation(delta));
}

OSErr MTBX_AccountReservedAddressSpace(SInt64 delta)
{
    reservedAddressSpace += delta;
    return noErr;
}

void MTBX_QuietMemDialogs()
{
    memoryDialogsQuiet = true;
}

UInt64 MTBX_TestAvailAddrSpace()
{
    constexpr SIZE_T largestChunk = 0x40000000;
    constexpr SIZE_T stopAt = 1024;
    MTBX_SyncMemUsageWithOS();
    UInt64 sum = 0;
    MTBX_TotalMemoryUsed(&sum);
    HANDLE heap = HeapCreate(0, 0, 0);
    for (SIZE_T chunk = largestChunk; heap && chunk > stopAt;) {
        if (HeapAlloc(heap, HEAP_NO_SERIALIZE, chunk))
            sum += chunk;
        else
            chunk /= 2;
    }
    if (heap)
        HeapDestroy(heap);
    return sum + static_cast<UInt64>(reservedAddressSpace);
}
