// What the Memory Manager does when the C heap refuses.
#include <mtbx/MTBX.h>

#include <win32/control.h>

#include <gtest/gtest.h>

#include <cstring>
#include <vector>

namespace {

std::vector<UInt64> asked;
SInt32 (*onGrowZone)();

SInt32 growZone(UInt64 bytesWanted)
{
    asked.push_back(bytesWanted);
    return onGrowZone();
}

DWORD attempts()
{
    return Win32Control_AllocationsCounted(WIN32_ALLOCATION_C_HEAP);
}

void refuseFrom(DWORD first, DWORD count = WIN32_WITHOUT_END)
{
    Win32Control_RefuseAllocations(WIN32_ALLOCATION_C_HEAP, first, count, 0);
}

class Shortage : public testing::Test {
protected:
    void SetUp() override
    {
        asked.clear();
        asked.reserve(100);
        onGrowZone = [] { return 1; };
        SetGrowZoneEx(growZone);
        MTBX_ShutdownMemory(); // no directory table that would grow meanwhile
        before_ = MEM_GetMemUsage();
    }
    void TearDown() override
    {
        Win32Control_Reset();
        SetGrowZoneEx(nullptr);
        EXPECT_EQ(MEM_GetMemUsage(), before_);
    }

private:
    UInt64 before_ = 0;
};

TEST_F(Shortage, SevenAttemptsWithFiveCallsOfAWillingHost)
{
    refuseFrom(1);
    EXPECT_EQ(NewHandle(1000), nullptr);
    EXPECT_EQ(attempts(), 7u);
    EXPECT_EQ(MemError(), -108);
    EXPECT_EQ(asked, std::vector<UInt64>(5, 1000));
    refuseFrom(1);
    EXPECT_EQ(NewPtr(77), nullptr);
    EXPECT_EQ(attempts(), 7u);
    EXPECT_EQ(MemError(), -108);
}

TEST_F(Shortage, TwoAttemptsWithoutAHost)
{
    SetGrowZoneEx(nullptr);
    refuseFrom(1);
    EXPECT_EQ(NewHandle(1000), nullptr);
    EXPECT_EQ(attempts(), 2u);
    EXPECT_EQ(MemError(), -108);
}

TEST_F(Shortage, TheFirstRefusalCostsOnlyAnotherTry)
{
    refuseFrom(1, 1);
    Ptr p = NewPtr(1000);
    EXPECT_NE(p, nullptr);
    EXPECT_EQ(MemError(), noErr);
    EXPECT_TRUE(asked.empty());
    DisposePtr(p);
}

TEST_F(Shortage, AHandleWhoseBlockIsRefusedLeavesNothingBehind)
{
    SetGrowZoneEx(nullptr);
    Win32Control_RefuseAllocations(WIN32_ALLOCATION_C_HEAP, 1, WIN32_WITHOUT_END, 500);
    EXPECT_EQ(NewHandle(1000), nullptr);
    EXPECT_EQ(attempts(), 2u);
    Handle small = NewHandle(10);
    EXPECT_NE(small, nullptr);
    DisposeHandle(small);
}

TEST_F(Shortage, AHostThatAllocatesWhilePurgingIsNotAskedAgain)
{
    onGrowZone = [] {
        EXPECT_EQ(NewHandle(5), nullptr);
        EXPECT_EQ(MemError(), -108);
        return 0;
    };
    refuseFrom(1);
    EXPECT_EQ(NewHandle(1000), nullptr);
    EXPECT_EQ(asked.size(), 1u);
    EXPECT_EQ(attempts(), 3u) << "two for the call, one for the nested call";
}

TEST_F(Shortage, AHostMayFreeAndResizeInsideTheCall)
{
    static Handle cached;
    cached = NewHandle(4000);
    memset(*cached, 'c', 4000);
    onGrowZone = [] {
        Win32Control_AllowAllocations(WIN32_ALLOCATION_C_HEAP);
        SetHandleSize(cached, 10);
        EXPECT_EQ(MemError(), noErr);
        DisposePtr(nullptr);
        return 1;
    };
    refuseFrom(1);
    Handle h = NewHandle(1000);
    ASSERT_NE(h, nullptr);
    EXPECT_EQ(MemError(), noErr) << "errors of the host's own calls do not show";
    EXPECT_EQ(std::string(*cached, 10), "cccccccccc");
    DisposeHandle(h);
    DisposeHandle(cached);
}

TEST_F(Shortage, SetHandleSizeFailsAtOnceAndKeepsTheBlock)
{
    Handle h = NewHandle(10);
    memcpy(*h, "0123456789", 10);
    Ptr before = *h;
    for (DWORD refused = 1; refused <= 2; ++refused) {
        refuseFrom(refused);
        SetHandleSize(h, 100);
        EXPECT_EQ(MemError(), -108);
    }
    EXPECT_EQ(*h, before);
    EXPECT_EQ(std::string(*h, 10), "0123456789");
    EXPECT_TRUE(asked.empty());
    Win32Control_Reset();
    DisposeHandle(h);
}

TEST_F(Shortage, CopiesReportAndChangeNothing)
{
    SetGrowZoneEx(nullptr);
    Handle h = NewHandle(10), same = h;
    refuseFrom(1);
    EXPECT_EQ(HandToHand(&same), -108);
    EXPECT_EQ(same, h);
    Handle made = h;
    EXPECT_EQ(PtrToHand("text", &made, 4), -108);
    EXPECT_EQ(made, nullptr);
    EXPECT_EQ(NewEmptyHandle(), nullptr);
    EXPECT_EQ(MEM_NewHeap(), nullptr);
    Win32Control_Reset();
    DisposeHandle(h);
}

TEST_F(Shortage, AHostMayEnterDirectoriesWhileOneIsEntered)
{
    onGrowZone = [] {
        Win32Control_AllowAllocations(WIN32_ALLOCATION_C_HEAP);
        for (int number = 0; number < 300; ++number)
            GetDirectoryID(("C:\\nested\\" + std::to_string(number)).c_str());
        EXPECT_EQ(GetDirectoryID("C:\\outer"), 303);
        return 1;
    };
    refuseFrom(1);
    EXPECT_EQ(GetDirectoryID("C:\\outer"), 303);
    for (int number = 0; number < 300; ++number)
        EXPECT_EQ(GetDirectoryID(("C:\\nested\\" + std::to_string(number)).c_str()), number + 3);
    MTBX_ShutdownMemory();
}

TEST_F(Shortage, AHostMayEnterVolumesWhileOneIsEntered)
{
    onGrowZone = [] {
        Win32Control_AllowAllocations(WIN32_ALLOCATION_C_HEAP);
        FSSpec spec;
        EXPECT_EQ(PathNameToFSSpec("X:\\file", &spec), noErr);
        EXPECT_EQ(spec.vRefNum, 1);
        return 1;
    };
    GetDirectoryID("Y:");
    refuseFrom(1);
    FSSpec spec;
    EXPECT_EQ(PathNameToFSSpec("Y:\\file", &spec), noErr);
    EXPECT_EQ(spec.vRefNum, 2);
    MTBX_ShutdownMemory();
}

// Every allocation of a scenario is refused in turn; each time the call fails cleanly, nothing is
// left over, and the next try works.
TEST_F(Shortage, EveryRefusalInAScenarioIsClean)
{
    SetGrowZoneEx(nullptr);
    auto scenario = [] {
        Handle h = NewHandleClear(100);
        if (h) {
            SetHandleSize(h, 50000);
            Handle copy = h;
            if (HandToHand(&copy) == noErr)
                DisposeHandle(copy);
        }
        Ptr p = NewPtrClear(64);
        if (p)
            DisposePtr(p);
        static int number;
        GetDirectoryID(("C:\\sweep\\" + std::to_string(++number)).c_str());
        DisposeHandle(h);
        MTBX_ShutdownMemory();
    };
    refuseFrom(0);
    scenario();
    DWORD total = attempts();
    Win32Control_Reset();
    UInt64 base = MEM_GetMemUsage();
    for (DWORD refused = 1; refused <= total; ++refused) {
        // Two in a row, since one refusal alone is tried again.
        refuseFrom(refused, 2);
        scenario();
        Win32Control_Reset();
        EXPECT_EQ(MEM_GetMemUsage(), base) << "refused " << refused;
    }
}

} // namespace
