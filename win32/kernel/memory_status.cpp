// GlobalMemoryStatus, GetProcessMemoryInfo and the working set.
#include "faults.h"
#include "kernel_internal.h"
#include "memory_figures.h"
#include "process.h"

#include <malloc.h>
#include <psapi.h>

#include <algorithm>
#include <atomic>

namespace {

using namespace win32;

DWORD memoryLoad(const MemoryFigures &figures)
{
    uint64_t used = figures.totalPhysical - figures.availablePhysical;
    return figures.totalPhysical ? static_cast<DWORD>(used * 100 / figures.totalPhysical) : 100;
}

} // namespace

void GlobalMemoryStatus(LPMEMORYSTATUS status)
{
    MemoryFigures figures = memoryFigures();
    *status = {sizeof *status,
               memoryLoad(figures),
               static_cast<SIZE_T>(figures.totalPhysical),
               static_cast<SIZE_T>(figures.availablePhysical),
               static_cast<SIZE_T>(figures.totalCommit),
               static_cast<SIZE_T>(figures.availableCommit),
               static_cast<SIZE_T>(addressSpace),
               static_cast<SIZE_T>(addressSpace - addressSpaceUsed())};
}

BOOL GlobalMemoryStatusEx(LPMEMORYSTATUSEX status)
{
    if (faults::fails("GlobalMemoryStatusEx"))
        return FALSE;
    if (status->dwLength != sizeof *status)
        return fail(ERROR_INVALID_PARAMETER, FALSE);
    MemoryFigures figures = memoryFigures();
    *status = {sizeof *status,
               memoryLoad(figures),
               figures.totalPhysical,
               figures.availablePhysical,
               figures.totalCommit,
               figures.availableCommit,
               addressSpace,
               addressSpace - addressSpaceUsed(),
               0};
    return TRUE;
}

BOOL GetProcessMemoryInfo(HANDLE process, PPROCESS_MEMORY_COUNTERS counters, DWORD size)
{
    if (faults::fails("GetProcessMemoryInfo"))
        return FALSE;
    if (!isCurrentProcess(process))
        return fail(ERROR_INVALID_HANDLE, FALSE);
    if (size < sizeof *counters)
        return fail(ERROR_INSUFFICIENT_BUFFER, FALSE);
    ProcessFigures figures;
    if (!processFigures(figures))
        return fail(ERROR_GEN_FAILURE, FALSE);
    // The kernel keeps no peak of private memory; the highest figure seen here stands for it.
    static std::atomic<uint64_t> peak{0};
    uint64_t highest = peak.load();
    while (highest < figures.privateBytes && !peak.compare_exchange_weak(highest, figures.privateBytes)) {
    }
    *counters = {sizeof *counters,
                 static_cast<DWORD>(figures.pageFaults),
                 static_cast<SIZE_T>(figures.peakResident),
                 static_cast<SIZE_T>(figures.resident),
                 0,
                 0,
                 0,
                 0,
                 static_cast<SIZE_T>(figures.privateBytes),
                 static_cast<SIZE_T>(std::max(highest, figures.privateBytes))};
    return TRUE;
}

BOOL SetProcessWorkingSetSize(HANDLE process, SIZE_T minimumSize, SIZE_T maximumSize)
{
    if (faults::fails("SetProcessWorkingSetSize"))
        return FALSE;
    if (!isCurrentProcess(process))
        return fail(ERROR_INVALID_HANDLE, FALSE);
    constexpr SIZE_T unchanged = static_cast<SIZE_T>(-1);
    if (minimumSize == unchanged && maximumSize == unchanged) {
        // Both at their highest value ask for as small a working set as can be.
        malloc_trim(0);
        return TRUE;
    }
    if (minimumSize == 0 || minimumSize > maximumSize)
        return fail(ERROR_INVALID_PARAMETER, FALSE);
    if (minimumSize > memoryFigures().totalPhysical)
        return fail(ERROR_NO_SYSTEM_RESOURCES, FALSE);
    return TRUE;
}

int _heapmin()
{
    malloc_trim(0);
    return 0;
}
