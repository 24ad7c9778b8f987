// What waiting costs.
#include "HostKitTest.h"

#include <sys/resource.h>

namespace {

class HostKitIdle : public HostKitTest {
protected:
    static double processorSeconds()
    {
        rusage usage;
        getrusage(RUSAGE_SELF, &usage);
        auto seconds = [](const timeval &time) { return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6; };
        return seconds(usage.ru_utime) + seconds(usage.ru_stime);
    }
};

TEST_F(HostKitIdle, TakesUnderAHundredthOfAProcessor)
{
    open(ltrb(20, 40, 120, 140));
    open(ltrb(20, 40, 120, 140), 17);
    drain();
    RgnHandle region = NewRgn();
    MacSetRectRgn(region, -20000, -20000, 20000, 20000);
    double before = processorSeconds();
    EventRecord event;
    EXPECT_FALSE(HostKitWaitNextEvent(everyEvent, &event, 60, region));
    // A program that leaves its input where it is must not spin over it either.
    for (int i = 0; i < 200; ++i)
        mouse().type('A');
    EXPECT_FALSE(HostKitWaitNextEvent(updateMask, &event, 60, region));
    EXPECT_LT(processorSeconds() - before, 0.02);
    DisposeRgn(region);
}

} // namespace
