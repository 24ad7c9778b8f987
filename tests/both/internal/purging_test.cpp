// Purging as the managers above ask for it.
#include "ExactBudget.h"

#include "Frame/Strings_internal.h"
#include "Memory/Memory_internal.h"

#include <mtbx/MTBX.h>

#include <gtest/gtest.h>

#include <vector>

namespace {

std::vector<UInt64> asked;
UInt64 freedEachTime;
SInt32 answer;

SInt32 growZone(UInt64 bytesWanted)
{
    asked.push_back(bytesWanted);
    MTBX_AccountGlobalMemoryAllocation(-static_cast<SInt32>(freedEachTime));
    return answer;
}

class Purging : public ExactBudget {
protected:
    void SetUp() override
    {
        asked.clear();
        freedEachTime = 0;
        answer = 1;
        MTBX_AccountGlobalMemoryAllocation(10000000);
        UInt64 usage;
        MTBX_TotalMemoryUsed(&usage);
        MTBX_SetMemUsageLimits(usage + 1000, usage + 3000000);
        SetGrowZoneEx(growZone);
    }
    void TearDown() override
    {
        SetGrowZoneEx(nullptr);
        MTBX_AccountGlobalMemoryAllocation(INT32_MIN);
    }
};

TEST_F(Purging, StepsRetryOnceForNothingAndFiveTimesThroughTheHost)
{
    SInt32 attempt = 0;
    std::vector<int> retries;
    for (int step = 0; step < 8; ++step) {
        Boolean retry = 77;
        MTBX_GrowZoneStep(42, &attempt, &retry);
        retries.push_back(retry);
    }
    EXPECT_EQ(retries, std::vector<int>({1, 1, 1, 1, 1, 1, 0, 0}));
    EXPECT_EQ(asked, std::vector<UInt64>(5, 42));
    EXPECT_EQ(attempt, 8);
}

TEST_F(Purging, StepWithoutAHostStopsAfterTheFreeTry)
{
    SetGrowZoneEx(nullptr);
    SInt32 attempt = 0;
    Boolean retry = false;
    MTBX_GrowZoneStep(42, &attempt, &retry);
    EXPECT_TRUE(retry);
    MTBX_GrowZoneStep(42, &attempt, &retry);
    EXPECT_FALSE(retry);
    EXPECT_EQ(attempt, 2);
}

TEST_F(Purging, PurgeToMaxBlockStopsWhenTheHeadroomIsThere)
{
    EXPECT_TRUE(MTBX_PurgeToMaxBlock(1000));
    EXPECT_TRUE(asked.empty());
    freedEachTime = 500;
    EXPECT_TRUE(MTBX_PurgeToMaxBlock(2000));
    EXPECT_EQ(asked.size(), 2u);
    EXPECT_FALSE(MTBX_PurgeToMaxBlock(1000000));
    EXPECT_EQ(asked.size(), 7u) << "five calls of the host at most";
    answer = 0;
    asked.clear();
    EXPECT_FALSE(MTBX_PurgeToMaxBlock(1000000));
    EXPECT_EQ(asked.size(), 1u) << "a host that frees nothing is not asked again";
}

TEST_F(Purging, ShortageOfGDIObjectsPurgesWhateverTheHeadroom)
{
    EXPECT_FALSE(MTBX_OutOfGDIResources());
    {
        GdiShortageScope shortage;
        EXPECT_TRUE(MTBX_OutOfGDIResources());
        EXPECT_TRUE(MTBX_PurgeToMaxBlock(10));
    }
    EXPECT_EQ(asked, std::vector<UInt64>{10});
    EXPECT_FALSE(MTBX_OutOfGDIResources());
}

TEST_F(Purging, PrePurgeAsksForOneMegabyteMoreAndObeysTheHardLimit)
{
    EXPECT_TRUE(MTBX_PrePurgeForAllocation(1000));
    EXPECT_TRUE(asked.empty());
    EXPECT_TRUE(MTBX_PrePurgeForAllocation(1001));
    ASSERT_EQ(asked.size(), 5u);
    EXPECT_EQ(asked[0], 1001u + 0x100000);
    EXPECT_TRUE(MTBX_PrePurgeForAllocation(3000000));
    EXPECT_FALSE(MTBX_PrePurgeForAllocation(3000001));
    freedEachTime = 400000;
    EXPECT_TRUE(MTBX_PrePurgeForAllocation(3000001)) << "usage is read again after the purge";
}

TEST_F(Purging, PrePurgeSwitchesNest)
{
    MTBX_DisableProactivePrePurging();
    MTBX_DisableProactivePrePurging();
    EXPECT_TRUE(MTBX_PrePurgeForAllocation(INT32_MAX));
    MTBX_EnableProactivePrePurging();
    EXPECT_TRUE(MTBX_PrePurgeForAllocation(INT32_MAX));
    EXPECT_TRUE(asked.empty());
    MTBX_EnableProactivePrePurging();
    EXPECT_FALSE(MTBX_PrePurgeForAllocation(INT32_MAX));
    EXPECT_FALSE(asked.empty());
}

TEST_F(Purging, PrePurgeTakesExtremeSizes)
{
    EXPECT_TRUE(MTBX_PrePurgeForAllocation(INT32_MIN));
    EXPECT_TRUE(asked.empty());
}

TEST(StringConstants, NumbersStandBehindTheLastEqualsSign)
{
    struct {
        const char *text;
        SInt32 number;
    } const cases[] = {{"A=1=25", 25}, {"A=-4", -4}, {"A=0x1F", 31}, {"no number", 0}, {"A=", 0}, {"A= 12px", 12}};
    EXPECT_EQ(MTBX_GetStringConstantInt(6), 0);
    for (auto &[text, number] : cases) {
        MTBX_SetStringConstant(6, text);
        EXPECT_EQ(MTBX_GetStringConstantInt(6), number) << text;
    }
    MTBX_SetStringConstant(6, "VERTICAL_FONT_HEIGHT_ADJUSTMENT=0");
}

TEST(StringConstants, IndexOutsideTheTableGivesTheFirst)
{
    EXPECT_STREQ(MTBX_GetStringConstant(1), "All Files");
    EXPECT_STREQ(MTBX_GetStringConstant(24), "File path '%s' is too long.");
    EXPECT_STREQ(MTBX_GetStringConstant(30), "");
    EXPECT_STREQ(MTBX_GetStringConstant(-1), "");
    MTBX_SetStringConstant(0, "replaced");
    EXPECT_STREQ(MTBX_GetStringConstant(30), "replaced");
    MTBX_SetStringConstant(0, "");
}

} // namespace
