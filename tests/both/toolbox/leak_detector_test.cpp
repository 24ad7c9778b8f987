// The gauge of free GDI objects and the detector of leaks.
#include "DebugOutput.h"
#include "MessageBoxes.h"

#include <mtbx/MTBX.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

class LeakDetector : public testing::Test {
protected:
    ~LeakDetector() { giveBack(); }

    void leak(int count)
    {
        for (int i = 0; i < count; ++i)
            brushes_.push_back(CreateSolidBrush(RGB(1, 2, i)));
    }
    void giveBack()
    {
        for (HBRUSH brush : brushes_)
            DeleteObject(brush);
        brushes_.clear();
    }

    std::vector<HBRUSH> brushes_;
    MessageBoxes boxes_;
    DebugOutput output_;
};

TEST_F(LeakDetector, GaugeFallsAsBrushesLeak)
{
    UInt64 before = MTBX_GDIBrushBenchmark();
    EXPECT_GT(before, 100u);
    leak(20);
    EXPECT_EQ(MTBX_GDIBrushBenchmark(), before - 20);
    giveBack();
    EXPECT_EQ(MTBX_GDIBrushBenchmark(), before) << "the gauge gives back what it took";
}

TEST_F(LeakDetector, LossWithinTheToleranceIsPassedOver)
{
    {
        MTBX_ScGDILeakDetector detector(3);
        leak(3);
    }
    EXPECT_TRUE(boxes_.shown.empty());
}

TEST_F(LeakDetector, LossBeyondTheToleranceIsShown)
{
    {
        MTBX_ScGDILeakDetector detector(3);
        leak(4);
    }
    EXPECT_EQ(boxes_.shown, std::vector<MessageBoxes::Box>(
                                {{"Orvane Zephant", "Whoa padner! You leaked 4 HBRUSHs since the last benchmark"}}));
}

TEST_F(LeakDetector, GainIsToldToTheDebugOutput)
{
    leak(5);
    {
        MTBX_ScGDILeakDetector detector(0);
        giveBack();
    }
    EXPECT_EQ(output_.texts(), std::vector<std::string>{"Gained 5 HBRUSHs since last benchmark\r\n"});
    EXPECT_TRUE(boxes_.shown.empty());
}

} // namespace
