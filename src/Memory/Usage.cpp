// How much memory the process uses: the heaps' own count, corrected now and then by what the system
// measures.
#include "MemoryManager_internal.h"

#include "Frame/Settings_internal.h"

#include <jrnl/jrnl.h>

#include <psapi.h>

#include <algorithm>
#include <cmath>

namespace {

constexpr UInt32 queriesBetweenMeasurements = 40000;

using MeasureFunction = BOOL(WINAPI *)(HANDLE, PPROCESS_MEMORY_COUNTERS, DWORD);

SInt64 slop = 0; // what the process uses beside what the heaps know of
UInt32 queryCount = queriesBetweenMeasurements;
bool measureLookedUp = false;
MeasureFunction measure = nullptr;
HMODULE processStatus = nullptr;

void lookUpMeasure()
{
    if (MTBX_GetRequiredProfileInt("TrackMemoryWithGPMI", 1) == 0)
        return;
    HMODULE module = LoadLibraryA("psapi.DLL");
    if (!module)
        return;
    processStatus = module;
    measure = reinterpret_cast<MeasureFunction>(GetProcAddress(module, "GetProcessMemoryInfo"));
    measureLookedUp = true;
}

void logCorrection(SInt64 total, UInt64 measured)
{
    constexpr double perKilobyte = 0.0009765625;
    auto difference = static_cast<double>(std::abs(total - static_cast<SInt64>(measured)));
    double percent = difference / static_cast<double>(measured) * 100;
    if (percent > 5.0)
        JRNL_sprintf(0, "MTBX", "SLOP UPDATE", "Mem Usage in kB: calc: %f, measured: %f, diff: %f, percent %f",
                     static_cast<double>(total) * perKilobyte, static_cast<double>(measured) * perKilobyte,
                     difference * perKilobyte, percent);
}

// The measured usage becomes the base of the answers to come.
UInt64 correctUsage(SInt64 calculated, SInt64 total)
{
    queryCount = 1;
    PROCESS_MEMORY_COUNTERS counters{};
    counters.cb = sizeof counters;
    if (!measure(GetCurrentProcess(), &counters, sizeof counters)) {
        MTBX_GetLastError();
        return static_cast<UInt64>(std::max<SInt64>(total, 0));
    }
    UInt64 measured = counters.PagefileUsage;
    logCorrection(total, measured);
    slop = static_cast<SInt64>(measured) - calculated;
    return measured;
}

UInt64 usageAfterLookUp(SInt64 calculated, SInt64 total)
{
    if (!measureLookedUp)
        lookUpMeasure();
    bool due = total < 0 || queryCount >= queriesBetweenMeasurements;
    if (due && measure)
        return correctUsage(calculated, total);
    ++queryCount;
    return static_cast<UInt64>(std::max<SInt64>(total, 0));
}

UInt64 currentUsage()
{
    SInt64 calculated = memoryAccount.usage();
    SInt64 total = calculated + slop;
    if (measureLookedUp && total >= 0 && queryCount < queriesBetweenMeasurements) [[likely]] {
        ++queryCount;
        return static_cast<UInt64>(total);
    }
    return usageAfterLookUp(calculated, total);
}

UInt64 headroom()
{
    UInt64 usage = currentUsage();
    return usage < memoryAccount.softLimit ? memoryAccount.softLimit - usage : 0;
}

} // namespace

void MTBX_ReleaseProcessStatus()
{
    if (processStatus)
        FreeLibrary(processStatus);
    processStatus = nullptr;
    measure = nullptr;
    measureLookedUp = false;
}

OSErr MTBX_TotalMemoryUsed(UInt64 *bytes)
{
    *bytes = currentUsage();
    return noErr;
}

OSErr MTBX_SyncMemUsageWithOS()
{
    queryCount = queriesBetweenMeasurements;
    return noErr;
}

UInt64 MaxBlockEx()
{
    return headroom();
}

Size MaxMem(Size *)
{
    memError = noErr;
    return static_cast<Size>(std::min<UInt64>(headroom(), 0x7FFFFFFF));
}
