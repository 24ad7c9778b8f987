// The budget on machines of other sizes and against what the system measures.
#include "Journal.h"
#include "Settings.h"

#include <mtbx/MTBX.h>

#include <win32/control.h>

#include <gtest/gtest.h>

namespace {

constexpr UInt64 megabyte = 1 << 20;

UInt64 used()
{
    UInt64 bytes;
    MTBX_TotalMemoryUsed(&bytes);
    return bytes;
}

class MeasuredBudget : public testing::Test {
protected:
    void SetUp() override
    {
        MTBX_GetMemUsageLimits(&soft_, &hard_);
        // As at start: the system's library is not loaded and the next query measures.
        MTBX_ShutdownMemory();
        MTBX_SyncMemUsageWithOS();
    }
    void TearDown() override
    {
        Win32Control_Reset();
        MTBX_SyncMemUsageWithOS();
        used();
        MTBX_SetMemUsageLimits(soft_, hard_);
    }

private:
    UInt64 soft_ = 0, hard_ = 0;
};

TEST_F(MeasuredBudget, LimitsFollowPhysicalMemory)
{
    struct {
        DWORDLONG memory;
        UInt64 soft, hard;
    } const cases[] = {
        {DWORDLONG{1} << 30, 751619276, 1503238553},  {16 * megabyte, 29360128, 29360128},
        {64 * megabyte, 46976204, 93952409},          {DWORDLONG{4} << 30, 2147483647, 2147483647},
        {DWORDLONG{2} << 30, 1503238553, 2147483647},
    };
    for (auto &[memory, soft, hard] : cases) {
        Settings settings;
        Win32Control_PretendPhysicalMemory(memory);
        MTBX_SetMemUsageLimits(0, 0);
        MTBX_InitializeMemorySubsystem();
        UInt64 softNow, hardNow;
        MTBX_GetMemUsageLimits(&softNow, &hardNow);
        EXPECT_EQ(softNow, soft) << memory;
        EXPECT_EQ(hardNow, hard) << memory;
        EXPECT_EQ(settings.value("MaxMemoryUsePercentage"), "140");
        EXPECT_EQ(settings.value("MaxMemoryBeforePurgePercentage"), "70");
        UInt64 installed;
        MTBX_TotalRAMInstalled(&installed);
        EXPECT_EQ(installed, memory);
    }
}

TEST_F(MeasuredBudget, SystemIsAskedOnceInFortyThousandQueries)
{
    Settings settings;
    Win32Control_PretendProcessUsage(500 * megabyte);
    EXPECT_EQ(used(), 500 * megabyte);
    EXPECT_EQ(settings.value("TrackMemoryWithGPMI"), "1");
    Win32Control_PretendProcessUsage(600 * megabyte);
    for (int query = 1; query < 40000; ++query)
        ASSERT_EQ(used(), 500 * megabyte) << query;
    EXPECT_EQ(used(), 600 * megabyte);

    Handle h = NewHandle(1000);
    EXPECT_EQ(used(), 600 * megabyte + 1008) << "between measurements the heap's own count goes on";
    Win32Control_PretendProcessUsage(650 * megabyte);
    MTBX_SyncMemUsageWithOS();
    EXPECT_EQ(used(), 650 * megabyte);
    DisposeHandle(h);
    EXPECT_EQ(used(), 650 * megabyte - 1008);
}

TEST_F(MeasuredBudget, UsageBelowNothingIsMeasuredAtOnce)
{
    Settings settings;
    Ptr p = NewPtr(10000000);
    Win32Control_PretendProcessUsage(1000000);
    EXPECT_EQ(used(), 1000000u);
    DisposePtr(p);
    EXPECT_EQ(used(), 1000000u);
}

TEST_F(MeasuredBudget, LargeCorrectionsAreLogged)
{
    Settings settings;
    Win32Control_PretendProcessUsage(100 * megabyte);
    used();
    Journal journal;
    Win32Control_PretendProcessUsage(104 * megabyte);
    MTBX_SyncMemUsageWithOS();
    used();
    EXPECT_TRUE(journal.records.empty()) << "below five percent";
    Win32Control_PretendProcessUsage(208 * megabyte);
    MTBX_SyncMemUsageWithOS();
    used();
    std::vector<Journal::Record> expected = {
        {0, "MTBX", "SLOP UPDATE",
         "Mem Usage in kB: calc: 106496.000000, measured: 212992.000000, diff: 106496.000000, percent 50.000000"}};
    EXPECT_EQ(journal.records, expected);
}

TEST_F(MeasuredBudget, FailingMeasurementCostsOnlyAccuracy)
{
    Settings settings;
    Win32Control_PretendProcessUsage(100 * megabyte);
    used();
    Win32Control_PretendProcessUsage(200 * megabyte);
    Win32Control_FailCalls("GetProcessMemoryInfo", ERROR_ACCESS_DENIED, 1, 1);
    MTBX_SyncMemUsageWithOS();
    EXPECT_EQ(used(), 100 * megabyte);
    for (int query = 1; query < 40000; ++query)
        ASSERT_EQ(used(), 100 * megabyte);
    EXPECT_EQ(used(), 200 * megabyte);
}

TEST_F(MeasuredBudget, MissingLibraryIsLookedForAgainAMissingFunctionIsNot)
{
    Settings settings;
    Win32Control_PretendProcessUsage(300 * megabyte);
    used();
    MTBX_ShutdownMemory();
    Win32Control_HideModule("psapi", nullptr);
    MTBX_SyncMemUsageWithOS();
    Win32Control_PretendProcessUsage(400 * megabyte);
    EXPECT_EQ(used(), 300 * megabyte) << "no library: the last correction stays";
    Win32Control_Reset();
    Win32Control_PretendProcessUsage(400 * megabyte);
    EXPECT_EQ(used(), 400 * megabyte) << "found at the next query";

    MTBX_ShutdownMemory();
    Win32Control_HideModule("PSAPI.dll", "GetProcessMemoryInfo");
    Win32Control_PretendProcessUsage(500 * megabyte);
    MTBX_SyncMemUsageWithOS();
    EXPECT_EQ(used(), 400 * megabyte);
    Win32Control_Reset();
    Win32Control_PretendProcessUsage(500 * megabyte);
    EXPECT_EQ(used(), 400 * megabyte) << "the library was loaded and lacked the function";
}

TEST_F(MeasuredBudget, MeasuringCanBeSwitchedOffAndOnInTheSettings)
{
    Settings settings("TrackMemoryWithGPMI=0\r\n");
    Win32Control_PretendProcessUsage(700 * megabyte);
    EXPECT_NE(used(), 700 * megabyte);
    MTBX_SyncMemUsageWithOS();
    EXPECT_NE(used(), 700 * megabyte);
    MTBX_SetProfileInt("TrackMemoryWithGPMI", 1);
    EXPECT_EQ(used(), 700 * megabyte);
}

TEST_F(MeasuredBudget, WorkingSetIsAskedForInEverSmallerSteps)
{
    Settings settings("ApplicationMemory=102400\r\nAdjustWorkingSetSize=1\r\n");
    Win32Control_FailCalls("SetProcessWorkingSetSize", ERROR_ACCESS_DENIED, 1, 3);
    EXPECT_EQ(MTBX_InitMem(), 45139250 - 3 * 0x100000);
    Win32Control_FailCalls("SetProcessWorkingSetSize", ERROR_ACCESS_DENIED, 1, WIN32_WITHOUT_END);
    EXPECT_EQ(MTBX_InitMem(), 0x100000);
    Win32Control_FailCalls("SetProcessWorkingSetSize", 0, 0, 0);
    Win32Control_HideModule("kernel32", "SetProcessWorkingSetSize");
    EXPECT_EQ(MTBX_InitMem(), 45139250);
}

TEST_F(MeasuredBudget, PlannedSpaceOfALargeMachineFitsItsResult)
{
    Settings settings;
    Win32Control_PretendPhysicalMemory(DWORDLONG{64} << 30);
    // (2147483647 - 178956970 - 5840896) / 100 * 50
    EXPECT_EQ(MTBX_InitMem(), 981342850);
    EXPECT_EQ(settings.value("FreeB4SlopAdjust"), "2147483647");
}

TEST_F(MeasuredBudget, AddressSpaceEndsWhereMemoryEnds)
{
    Settings settings;
    Win32Control_PretendPhysicalMemory(DWORDLONG{4} << 30);
    Win32Control_PretendProcessUsage(100 * megabyte);
    MEMORYSTATUSEX status{};
    status.dwLength = sizeof status;
    GlobalMemoryStatusEx(&status);
    UInt64 found = MTBX_TestAvailAddrSpace();
    SIZE_T heldBytes, heldBlocks;
    Win32Control_HeldMemory(&heldBytes, &heldBlocks);
    UInt64 expected = 100 * megabyte + status.ullTotalPageFile - heldBytes;
    EXPECT_LE(found, expected);
    EXPECT_GT(found, expected - 2048) << "2048 bytes are the smallest piece that is tried";
    MTBX_AccountReservedAddressSpace(5 * static_cast<SInt64>(megabyte));
    EXPECT_EQ(MTBX_TestAvailAddrSpace(), found + 5 * megabyte);
    MTBX_AccountReservedAddressSpace(-5 * static_cast<SInt64>(megabyte));
    Win32Control_FailCalls("HeapCreate", ERROR_NOT_ENOUGH_MEMORY, 1, 1);
    EXPECT_EQ(MTBX_TestAvailAddrSpace(), 100 * megabyte);
}

TEST(OSVersion, CodesAndLevels)
{
    struct {
        DWORD platform, major, minor;
        SInt32 code;
        const char *levels; // for levels -1 to 8
    } const cases[] = {
        {1, 4, 0, 0, "0100000000"},   {1, 4, 10, 1, "0110000000"},  {1, 4, 90, 2, "0111000000"},
        {2, 3, 51, 3, "0000100000"},  {2, 4, 0, 4, "0000010000"},   {2, 5, 0, 5, "0000011000"},
        {2, 5, 1, 6, "1111111100"},   {2, 5, 2, -1, "0000011000"},  {2, 6, 0, 7, "1111111100"},
        {2, 6, 1, -1, "1111111100"},  {2, 10, 0, -1, "1111111100"}, {1, 4, 1, -1, "0100000000"},
        {1, 4, 95, -1, "0110000000"}, {0, 3, 10, -1, "0000000000"}, {1, 5, 1, -1, "0000000000"},
    };
    for (auto &[platform, major, minor, code, levels] : cases) {
        Win32Control_PretendVersion(platform, major, minor, 0);
        std::string found;
        for (SInt32 level = -1; level <= 8; ++level)
            found += MTBX_IsAtLeastOSVersion(level) ? '1' : '0';
        EXPECT_EQ(MTBX_GetOSVersion(), code) << platform << ' ' << major << '.' << minor;
        EXPECT_EQ(found, levels) << platform << ' ' << major << '.' << minor;
    }
    Win32Control_FailCalls("GetVersionExA", ERROR_GEN_FAILURE, 1, 2);
    EXPECT_EQ(MTBX_GetOSVersion(), -1);
    EXPECT_FALSE(MTBX_IsAtLeastOSVersion(6));
    Win32Control_Reset();
}

} // namespace
