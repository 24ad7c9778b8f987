// Minimal mode: ports and windows that need no regions of their own take shared ones, which saves
// native objects.
#include "Quickdraw_internal.h"

#include <mtbx/MTBXEnvironment.h>

#include <initializer_list>

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
    for (RgnHandle rgn :
         {sharedRegions.clip, sharedRegions.vis, sharedRegions.struc, sharedRegions.update, sharedRegions.cont})
        disposeUnlessShared(rgn, nullptr);
    sharedRegions = {};
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
