// Asking the host to free memory.
#include "MemoryManager_internal.h"

namespace {

constexpr SInt32 lastAttempt = 6;

GrowZoneExProcPtr growZone = nullptr;
SInt32 growZoneNesting = 0;
SInt32 gdiShortageDepth = 0;

class NestingScope {
public:
    NestingScope() { ++growZoneNesting; }
    ~NestingScope() { --growZoneNesting; }
};

} // namespace

void SetGrowZoneEx(GrowZoneExProcPtr proc)
{
    growZone = proc;
    memError = noErr;
}

void MTBX_GrowZoneStep(UInt64 size, SInt32 *attempt, Boolean *retry)
{
    // A purge that itself allocates and fails gets no purge of its own.
    if (growZoneNesting > 0) {
        *retry = false;
        return;
    }
    NestingScope nesting;
    if (*attempt == 0)
        *retry = true;
    else if (*attempt >= lastAttempt || !growZone)
        *retry = false;
    else
        *retry = growZone(size) != 0;
    ++*attempt;
}

bool MTBX_OutOfGDIResources()
{
    return gdiShortageDepth > 0;
}

GdiShortageScope::GdiShortageScope()
{
    ++gdiShortageDepth;
}

GdiShortageScope::~GdiShortageScope()
{
    --gdiShortageDepth;
}
