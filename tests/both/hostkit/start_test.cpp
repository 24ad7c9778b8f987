// Start and end of the host kit, and memory that programs can do without.
#include "HostKitTest.h"
#include "GdiObjects.h"

namespace {

class HostKitStartAndStop : public HostKitTest {
protected:
    static OSErr startAgain(const HostKitOptions &options)
    {
        HostKitStop();
        return HostKitStart(&options);
    }
    static std::string titleOf(HWND window)
    {
        char title[2000] = "";
        GetWindowTextA(window, title, sizeof title);
        return title;
    }
};

TEST_F(HostKitStartAndStop, RefusesWhatItCannotStart)
{
    HostKitOptions options = testOptions();
    HWND main = hWndMain;
    EXPECT_EQ(HostKitStart(&options), paramErr);
    EXPECT_EQ(hWndMain, main);
    EXPECT_TRUE(gAppIsActive);
    EXPECT_TRUE(open(ltrb(20, 40, 120, 140))) << "it goes on as it was";
    std::string longPath = "C:\\" + std::string(300, 'x') + ".ini";
    options.settingsFile = longPath.c_str();
    EXPECT_EQ(startAgain(options), paramErr);
    EXPECT_EQ(hWndMain, nullptr);
    HostKitStop();
    Rect bounds = ltrb(20, 40, 120, 140);
    EXPECT_EQ(HostKitNewWindow(nullptr, &bounds, Pascal("none"), true, documentProc, nullptr, true, 0), nullptr);
    options = testOptions();
    EXPECT_EQ(HostKitStart(&options), noErr);
}

TEST_F(HostKitStartAndStop, LeavesNothingBehind)
{
    static WindowRecord storage;
    HBRUSH brush = CreateSolidBrush(RGB(10, 20, 30));
    std::string longTitle(1000, 't');
    HostKitOptions options = testOptions();
    options.title = longTitle.c_str();
    options.background = brush;
    UInt64 usage = 0;
    DWORD objects = 0;
    for (int round = 0; round < 3; ++round) {
        ASSERT_EQ(startAgain(options), noErr);
        EXPECT_EQ(titleOf(hWndMain), longTitle);
        open(ltrb(20, 40, 120, 140));
        open(ltrb(20, 40, 120, 140), 17);
        palettes.clear();
        Rect bounds = ltrb(60, 70, 120, 140);
        HostKitNewWindow(&storage, &bounds, Pascal("own"), true, documentProc, nullptr, true, 0);
        mouse().type('A');
        EventRecord typed;
        EXPECT_TRUE(HostKitEventAvail(keyDownMask, &typed));
        PostMessageA(GetMacWindowPtrHwnd(&storage.port), WM_CLOSE, 0, 0);
        HostKitSetEventProc([](const EventRecord *) { FAIL(); });
        HostKitAddPurgeProc([](Size) -> SInt32 { return 0; });
        HostKitStop();
        EXPECT_TRUE(hWndMain == nullptr && gFrontWindow == nullptr && gEventMask == 0);
        if (round == 0) {
            usage = MEM_GetMemUsage();
            objects = gdiObjectCount();
        }
        EXPECT_EQ(MEM_GetMemUsage(), usage);
        EXPECT_EQ(gdiObjectCount(), objects);
        WNDCLASSA description;
        for (const char *name : {"HostKitMain", "HostKitWindow", "UserItemClass", "PictItemClass", "ZP_Overlay_Cls"})
            EXPECT_FALSE(GetClassInfoA(GetModuleHandleA(nullptr), name, &description)) << name;
    }
    LOGBRUSH description;
    EXPECT_TRUE(GetObjectA(brush, sizeof description, &description)) << "the brush stays the caller's";
    DeleteObject(brush);
    options = testOptions();
    ASSERT_EQ(HostKitStart(&options), noErr);
    EventRecord event;
    EXPECT_FALSE(HostKitGetNextEvent(everyEvent, &event)) << "nothing of before comes up again";
}

TEST_F(HostKitStartAndStop, MayStopWhenItIsAskedToQuit)
{
    HostKitOptions options = testOptions();
    static int wishes;
    wishes = 0;
    options.quitProc = [] {
        ++wishes;
        HostKitStop();
    };
    ASSERT_EQ(startAgain(options), noErr);
    open(ltrb(20, 40, 120, 140));
    PostMessageA(hWndMain, WM_CLOSE, 0, 0);
    EventRecord event;
    while (HostKitWaitNextEvent(everyEvent, &event, 2, nullptr))
        serve(event);
    EXPECT_TRUE(wishes == 1 && hWndMain == nullptr && event.what == nullEvent);
    options = testOptions();
    EXPECT_EQ(HostKitStart(&options), noErr);
}

Handle spares[2];
std::vector<int> asked;

template <int number> SInt32 freeSpare(Size bytesWanted)
{
    EXPECT_GT(bytesWanted, 0);
    asked.push_back(number);
    if (!spares[number])
        return 0;
    DisposeHandle(std::exchange(spares[number], nullptr));
    return 100000;
}

TEST_F(HostKitStartAndStop, AsksForMemoryUntilThereIsEnough)
{
    asked.clear();
    for (Handle &each : spares)
        each = NewHandle(100000);
    HostKitAddPurgeProc(freeSpare<0>);
    HostKitSetGrowZone(freeSpare<1>);
    UInt64 soft, hard, usage;
    Boolean isReached;
    MTBX_GetMemUsageLimits(&soft, &hard);
    MTBX_TotalMemoryUsed(&usage);
    MTBX_SetMemUsageLimits(usage - 50000, usage * 2);
    MTBX_NonPurgableRAMLimitReached(&isReached);
    EXPECT_EQ(asked, std::vector<int>{0}) << "the second was not needed";
    MTBX_SetMemUsageLimits(usage - 150000, usage * 2);
    MTBX_NonPurgableRAMLimitReached(&isReached);
    EXPECT_FALSE(isReached);
    EXPECT_EQ(asked, (std::vector<int>{0, 0, 1}));
    HostKitSetGrowZone(nullptr);
    HostKitRemovePurgeProc(freeSpare<0>);
    MTBX_SetMemUsageLimits(1, usage * 2);
    MTBX_NonPurgableRAMLimitReached(&isReached);
    EXPECT_TRUE(isReached && asked.size() == 3);
    MTBX_SetMemUsageLimits(soft, hard);
    for (int i = 0; i < 16; ++i)
        EXPECT_TRUE(HostKitAddPurgeProc([](Size) -> SInt32 { return 0; }));
    EXPECT_FALSE(HostKitAddPurgeProc(freeSpare<0>));
    HostKitOptions options = testOptions();
    options.purgeAbove = usage + (UInt64{1} << 30);
    ASSERT_EQ(startAgain(options), noErr) << "which gives the procedures up";
    EXPECT_TRUE(HostKitAddPurgeProc(freeSpare<0>));
    UInt64 purgeAbove, refuseAbove;
    MTBX_GetMemUsageLimits(&purgeAbove, &refuseAbove);
    EXPECT_TRUE(purgeAbove == options.purgeAbove && refuseAbove == hard);
    options = testOptions();
    startAgain(options);
    MTBX_GetMemUsageLimits(&purgeAbove, &refuseAbove);
    EXPECT_TRUE(purgeAbove == soft && refuseAbove == hard) << "limits go with the start that set them";
}

} // namespace
