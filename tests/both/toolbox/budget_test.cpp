// The memory budget as far as every platform shows it alike.
#include "Settings.h"

#include <mtbx/MTBX.h>

#include <gtest/gtest.h>

#include <vector>

namespace {

std::vector<UInt64> asked;
std::vector<Handle> cache;

SInt32 purgeOne(UInt64 bytesWanted)
{
    asked.push_back(bytesWanted);
    if (cache.empty())
        return 0;
    DisposeHandle(cache.back());
    cache.pop_back();
    return 1;
}

class Budget : public testing::Test {
protected:
    void SetUp() override
    {
        MTBX_GetMemUsageLimits(&soft_, &hard_);
        asked.clear();
    }
    void TearDown() override
    {
        SetGrowZoneEx(nullptr);
        for (Handle h : cache)
            DisposeHandle(h);
        cache.clear();
        MTBX_SetMemUsageLimits(soft_, hard_);
    }

    static UInt64 used()
    {
        UInt64 bytes;
        MTBX_TotalMemoryUsed(&bytes);
        return bytes;
    }

private:
    UInt64 soft_ = 0, hard_ = 0;
};

TEST_F(Budget, HeadroomIsWhatIsLeftUnderTheSoftLimit)
{
    UInt64 usage = used();
    MTBX_SetMemUsageLimits(usage + 5000, usage + 10000);
    EXPECT_EQ(MaxBlockEx(), 5000u);
    Handle h = NewHandle(992);
    EXPECT_EQ(MaxBlockEx(), 4000u);
    Size grow = 77;
    EXPECT_EQ(MaxMem(&grow), 4000);
    EXPECT_EQ(grow, 77);
    DisposeHandle(h);
    MTBX_AccountGlobalMemoryAllocation(6000);
    EXPECT_EQ(MaxBlockEx(), 0u) << "above the limit nothing is left";
    MTBX_AccountGlobalMemoryAllocation(-6000);
    MTBX_SetMemUsageLimits(UInt64{1} << 40, UInt64{1} << 41);
    EXPECT_GT(MaxBlockEx(), UInt64{1} << 39);
    EXPECT_EQ(MaxMem(&grow), 0x7FFFFFFF);
}

TEST_F(Budget, AccountedBytesNeverFallBelowZero)
{
    UInt64 base = MEM_GetMemUsage();
    EXPECT_EQ(MEM_AccountAllocation(4), 0);
    EXPECT_EQ(MEM_GetMemUsage(), base + 4);
    MEM_AccountAllocation(-10);
    EXPECT_EQ(MEM_GetMemUsage(), base);
}

TEST_F(Budget, ShortageAsksTheHostUntilUsageIsUnderTheLimit)
{
    for (int i = 0; i < 4; ++i)
        cache.push_back(NewHandle(100000));
    SetGrowZoneEx(purgeOne);
    Boolean reached = true;
    UInt64 usage = used();
    MTBX_SetMemUsageLimits(usage, usage * 2);
    MTBX_NonPurgableRAMLimitReached(&reached);
    EXPECT_FALSE(reached);
    EXPECT_TRUE(asked.empty()) << "usage at the limit is no shortage";

    MTBX_SetMemUsageLimits(usage - 150000, usage * 2);
    MTBX_NonPurgableRAMLimitReached(&reached);
    EXPECT_FALSE(reached);
    EXPECT_EQ(asked, std::vector<UInt64>({1, 1}));
    EXPECT_EQ(cache.size(), 2u);

    MTBX_SetMemUsageLimits(1, usage * 2);
    MTBX_NonPurgableRAMLimitReached(&reached);
    EXPECT_TRUE(reached) << "the host has nothing left that would help";
}

TEST_F(Budget, LimitsAreReadFromTheSettingsUnlessTheHostSetThem)
{
    Settings settings("MaxMemoryUsePercentage=10\r\nMaxMemoryBeforePurgePercentage=1\r\n");
    MTBX_SetMemUsageLimits(123, 456);
    MTBX_InitializeMemorySubsystem();
    UInt64 soft, hard;
    MTBX_GetMemUsageLimits(&soft, &hard);
    EXPECT_EQ(soft, 123u);
    EXPECT_EQ(hard, 456u);
    EXPECT_EQ(settings.value("MaxMemoryUsePercentage"), "10") << "the settings are not even read";

    MTBX_SetMemUsageLimits(0, 0);
    MTBX_InitializeMemorySubsystem();
    EXPECT_EQ(settings.value("MaxMemoryUsePercentage"), "25");
    EXPECT_EQ(settings.value("MaxMemoryBeforePurgePercentage"), "25");
    MTBX_GetMemUsageLimits(&soft, &hard);
    EXPECT_EQ(soft, hard);
    EXPECT_GE(soft, 29360128u);
    EXPECT_LE(soft, 2147483647u);
}

TEST_F(Budget, PlannedSpaceFollowsTheSettings)
{
    struct {
        const char *lines;
        SInt32 result;
        const char *memory, *percent;
    } const cases[] = {
        // 6 MB: the reserve is more than the memory.
        {"ApplicationMemory=6144\r\n", 0x100000, "6291456", "(none)"},
        // 100 MB: (104857600 - 8738133 - 5840896) / 100 * 50.
        {"ApplicationMemory=102400\r\n", 45139250, "104857600", "(none)"},
        {"ApplicationMemory=102400\r\nMemoryUsage=100\r\n", 90278500, "104857600", "100"},
        {"ApplicationMemory=102400\r\nMemoryUsage=0\r\n", 45139250, "104857600", "50"},
        {"ApplicationMemory=102400\r\nMemoryUsage=101\r\n", 45139250, "104857600", "50"},
        {"ApplicationMemory=102400\r\nMemoryUsage=1\r\n", 0x100000, "104857600", "1"},
        {"ApplicationMemory=102400\r\nBaseReserve=2400\r\n", 51200000, "104857600", "(none)"},
        // A slop of 1 MB in place of the default one.
        {"ApplicationMemory=102400\r\nSlop=1024\r\n", 47535400, "104857600", "(none)"},
    };
    for (auto &[lines, result, memory, percent] : cases) {
        Settings settings(lines);
        EXPECT_EQ(MTBX_InitMem(), result) << lines;
        EXPECT_EQ(settings.value("FreeB4SlopAdjust"), memory) << lines;
        EXPECT_EQ(settings.value("FreeSpace"), std::to_string(result)) << lines;
        EXPECT_EQ(settings.value("MemoryUsage"), percent) << lines;
        EXPECT_EQ(settings.value("AdjustWorkingSetSize"), "0") << lines;
    }
    gWin32S = 1;
    Settings settings("ApplicationMemory=102400\r\nBaseReserve=0\r\n");
    EXPECT_EQ(MTBX_InitMem(), 0xA00000 / 100 * 50);
    gWin32S = 0;
}

TEST_F(Budget, WorkingSetIsLeftAloneForAnEmbeddedHost)
{
    Settings settings("ApplicationMemory=102400\r\nAdjustWorkingSetSize=1\r\n");
    gEmbeddingOLE = 1;
    EXPECT_EQ(MTBX_InitMem(), 45139250);
    gEmbeddingOLE = 0;
    EXPECT_EQ(MTBX_InitMem(), 45139250);
    EXPECT_EQ(settings.value("AdjustWorkingSetSize"), "1");
}

TEST_F(Budget, MemoryOfTheMachineIsPlausible)
{
    UInt64 memory = 0;
    EXPECT_EQ(MTBX_TotalRAMInstalled(&memory), 0);
    EXPECT_GT(memory, UInt64{64} << 20);
    EXPECT_EQ(MTBX_SyncMemUsageWithOS(), 0);
    EXPECT_GE(used(), MEM_GetMemUsage() / 2);
}

} // namespace
