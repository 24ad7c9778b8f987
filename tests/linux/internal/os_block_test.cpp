// Purging for a native block that the system refuses.
#include "ExactBudget.h"

#include "Memory/Memory_internal.h"

#include <mtbx/MTBX.h>

#include <win32/control.h>

#include <gtest/gtest.h>

namespace {

int growZoneCalls;
SInt32 freedEachTime;

SInt32 growZone(UInt64)
{
    ++growZoneCalls;
    MTBX_AccountGlobalMemoryAllocation(-freedEachTime);
    return freedEachTime > 0;
}

class PurgeForOSBlock : public ExactBudget {
protected:
    void SetUp() override
    {
        growZoneCalls = 0;
        MTBX_AccountGlobalMemoryAllocation(100000000);
        MTBX_SetMemUsageLimits(200000000, 400000000);
        SetGrowZoneEx(growZone);
    }
    void TearDown() override
    {
        SetGrowZoneEx(nullptr);
        MTBX_AccountGlobalMemoryAllocation(INT32_MIN);
        Win32Control_Reset();
    }
};

TEST_F(PurgeForOSBlock, StopsWhenTheSystemGivesTheBlock)
{
    freedEachTime = 1000;
    MTBX_PurgeForOSBlock(50000);
    EXPECT_EQ(growZoneCalls, 5) << "one pass purges beyond the present headroom";
}

TEST_F(PurgeForOSBlock, GoesOnWhileEachPassGainsSomething)
{
    freedEachTime = 1000;
    Win32Control_RefuseAllocations(WIN32_ALLOCATION_GLOBAL, 1, 3, 0);
    MTBX_PurgeForOSBlock(50000);
    EXPECT_EQ(growZoneCalls, 20);
    EXPECT_EQ(Win32Control_AllocationsCounted(WIN32_ALLOCATION_GLOBAL), 4u);
}

TEST_F(PurgeForOSBlock, EndsWhenAPassGainsNothing)
{
    freedEachTime = 0;
    Win32Control_RefuseAllocations(WIN32_ALLOCATION_GLOBAL, 1, WIN32_WITHOUT_END, 0);
    MTBX_PurgeForOSBlock(50000);
    EXPECT_EQ(growZoneCalls, 1);
}

} // namespace
