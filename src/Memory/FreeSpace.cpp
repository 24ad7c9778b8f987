// How much memory the program may plan with.
#include "MemoryManager_internal.h"

#include "Frame/Settings_internal.h"

#include <mtbx/MTBXGlobals.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace {

constexpr SInt32 oneMegabyte = 0x100000;

// Kilobytes as bytes, in 32 bits as the settings have always been taken.
SInt32 bytesFromKilobytes(UInt32 kilobytes)
{
    return static_cast<SInt32>(kilobytes << 10);
}

// A setting in kilobytes as bytes; false when it is missing or empty.
bool kilobyteSetting(const char *key, SInt32 &bytes)
{
    char text[32];
    if (MTBX_GetProfileString(key, "", text, sizeof text) == 0)
        return false;
    bytes = bytesFromKilobytes(static_cast<UInt32>(atol(text)));
    return true;
}

void writeBytes(const char *key, SInt32 bytes)
{
    char text[16];
    snprintf(text, sizeof text, "%ld", static_cast<long>(bytes));
    MTBX_SetProfileString(key, text);
}

SInt32 physicalMemory()
{
    MEMORYSTATUS status{};
    status.dwLength = sizeof status;
    GlobalMemoryStatus(&status);
    return static_cast<SInt32>(std::min<SIZE_T>(status.dwTotalPhys, 0x7FFFFFFF));
}

SInt32 plannedMemory()
{
    if (gWin32S)
        return 0xA00000;
    SInt32 memory = 0;
    kilobyteSetting("ApplicationMemory", memory);
    return memory != 0 ? memory : physicalMemory();
}

SInt32 usePercentage()
{
    constexpr SInt32 defaultPercentage = 50;
    SInt32 percentage = MTBX_GetProfileInt("MemoryUsage", defaultPercentage);
    if (percentage >= 1 && percentage <= 100)
        return percentage;
    MTBX_SetProfileInt("MemoryUsage", defaultPercentage);
    return defaultPercentage;
}

SInt64 reserveOf(SInt32 memory)
{
    constexpr SInt64 defaultSlop = 0x592000;
    SInt32 reserve;
    if (kilobyteSetting("BaseReserve", reserve))
        return reserve;
    SInt32 slop = MTBX_GetProfileInt("Slop", 0);
    return memory / 12 + (slop != 0 ? bytesFromKilobytes(static_cast<UInt32>(slop)) : defaultSlop);
}

SInt32 spaceFrom(SInt32 memory, SInt32 percentage)
{
    SInt64 available = std::min<SInt64>(memory - reserveOf(memory), 0x7FFFFFFF);
    if (available < oneMegabyte)
        return oneMegabyte;
    return static_cast<SInt32>(std::max<SInt64>(available / 100 * percentage, oneMegabyte));
}

// Asks for a working set of the size, and for less and less as long as the system refuses.
SInt32 adjustWorkingSet(SInt32 space)
{
    using SetWorkingSetSize = BOOL(WINAPI *)(HANDLE, SIZE_T, SIZE_T);
    auto setWorkingSetSize = reinterpret_cast<SetWorkingSetSize>(
        GetProcAddress(GetModuleHandleA("Kernel32.DLL"), "SetProcessWorkingSetSize"));
    while (setWorkingSetSize && space > oneMegabyte
           && !setWorkingSetSize(GetCurrentProcess(), static_cast<SIZE_T>(space), static_cast<SIZE_T>(-1)))
        space -= oneMegabyte;
    return std::max(space, oneMegabyte);
}

} // namespace

SInt32 MTBX_InitMem()
{
    SInt32 memory = plannedMemory();
    writeBytes("FreeB4SlopAdjust", memory);
    SInt32 space = spaceFrom(memory, usePercentage());
    writeBytes("FreeSpace", space);
    if (MTBX_GetProfileInt("AdjustWorkingSetSize", 0) == 0) {
        MTBX_SetProfileInt("AdjustWorkingSetSize", 0);
        return space;
    }
    if (gWin32S || gEmbeddingOLE)
        return space;
    return adjustWorkingSet(space);
}
