// Minimal mode: ports and windows that need no regions of their own take shared ones, which saves
// native objects.
#include "Quickdraw_internal.h"

#include <mtbx/MTBXEnvironment.h>

SharedRegions sharedRegions;
SInt32 minimalCreationDepth;

namespace {

// The setting "MinimalGdiItemCreation".
UInt8 minimalModeEnabled = 1;
// Hosts count it up and down; no assertion asks.
SInt32 quietAssertCount = 1;

} // namespace

void MTBX_StartSharedRegions()
{
    sharedRegions = {NewRgn(), NewRgn(), NewRgn(), NewRgn(), NewRgn()};
}

void MTBX_StopSharedRegions()
{
    disposeUnlessShared(sharedRegions.clip, nullptr);
    disposeUnlessShared(sharedRegions.vis, nullptr);
    disposeUnlessShared(sharedRegions.struc, nullptr);
    disposeUnlessShared(sharedRegions.update, nullptr);
    disposeUnlessShared(sharedRegions.cont, nullptr);
}

void MTBX_ReadMinimalModeSetting()
{
    minimalModeEnabled = static_cast<UInt8>(MTBX_GetRequiredProfileInt("MinimalGdiItemCreation", 1));
}

void MTBX_BeginGdiMinimalisticWindowCreationMode()
{
    if (minimalModeEnabled)
        ++minimalCreationDepth;
}

void MTBX_EndGdiMinimalisticWindowCreationMode()
{
    if (minimalModeEnabled)
        --minimalCreationDepth;
}

void MTBX_BeginQuietMinGdiAsserts()
{
    ++quietAssertCount;
}

void MTBX_EndQuietMinGdiAsserts()
{
    --quietAssertCount;
}
