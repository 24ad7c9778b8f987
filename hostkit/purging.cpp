// Memory that the program can do without.
#include "hostkit_internal.h"

#include <algorithm>
#include <array>
#include <limits>

namespace hostkit {
namespace {

std::array<HostKitPurgeProcPtr, 16> purgeProcs;
size_t purgeProcCount;
HostKitPurgeProcPtr soleProc;

SInt32 growZone(UInt64 bytesWanted)
{
    auto wanted = static_cast<SInt32>(std::clamp<UInt64>(bytesWanted, 1, std::numeric_limits<SInt32>::max()));
    SInt32 freed = 0;
    for (size_t i = 0; i < purgeProcCount && freed < wanted; ++i)
        freed += std::clamp(purgeProcs[i](wanted - freed), SInt32{0}, wanted - freed);
    return freed != 0;
}

} // namespace

void startPurging()
{
    SetGrowZoneEx(growZone);
}

void stopPurging()
{
    SetGrowZoneEx(nullptr);
    purgeProcCount = 0;
    soleProc = nullptr;
}

} // namespace hostkit

using namespace hostkit;

Boolean HostKitAddPurgeProc(HostKitPurgeProcPtr proc)
{
    if (!proc || purgeProcCount == purgeProcs.size())
        return false;
    purgeProcs[purgeProcCount++] = proc;
    return true;
}

void HostKitRemovePurgeProc(HostKitPurgeProcPtr proc)
{
    auto end = purgeProcs.begin() + static_cast<std::ptrdiff_t>(purgeProcCount);
    auto kept = std::remove(purgeProcs.begin(), end, proc);
    purgeProcCount = static_cast<size_t>(kept - purgeProcs.begin());
}

void HostKitSetGrowZone(HostKitPurgeProcPtr proc)
{
    if (soleProc)
        HostKitRemovePurgeProc(soleProc);
    soleProc = HostKitAddPurgeProc(proc) ? proc : nullptr;
}
