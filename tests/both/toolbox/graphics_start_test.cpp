// Start and end of the graphics layer.
#include "GdiObjects.h"
#include "Graphics.h"
#include "Settings.h"

namespace {

class GraphicsStart : public testing::Test {
protected:
    GraphicsStart() : window(100, 60, 320, 240) { hWndMain = window; }
    ~GraphicsStart() override { hWndMain = nullptr; }

    NativeWindow window;
};

TEST_F(GraphicsStart, TellsTheScreensDepthWithManyBitsAsThirtyTwo)
{
    HDC screen = GetDC(nullptr);
    int planes = GetDeviceCaps(screen, PLANES), bits = GetDeviceCaps(screen, BITSPIXEL);
    ReleaseDC(nullptr, screen);
    InitGraf(nullptr);
    EXPECT_EQ(gscreen_planes, planes);
    EXPECT_EQ(gbits_per_plane, bits);
    EXPECT_EQ(gbits_per_pixel, planes * bits >= 16 ? 32 : planes * bits);
    MTBX_ShutdownGraf();
}

TEST_F(GraphicsStart, WritesTheDefaultsOfItsSettings)
{
    Settings settings;
    InitGraf(nullptr);
    struct {
        const char *key, *value;
    } const defaults[] = {{"UseSafeXorMode", "0"},
                          {"MinimalGdiItemCreation", "1"},
                          {"PurgeBytesForExhaustedGDIObjects", "4000000"},
                          {"UseDirectDraw", "1"},
                          {"UseStretchBlt", "0"},
                          {"DirectDrawMoniker", "0"},
                          {"UseBitfieldsIfPossible", "0"},
                          {"WorkaroundStretchDIBitsBug", "1"}};
    for (auto &[key, value] : defaults)
        EXPECT_EQ(settings.value(key), value) << key;
    MTBX_ShutdownGraf();
}

TEST_F(GraphicsStart, OpensTheWindowListAndTheDesktopPort)
{
    InitGraf(nullptr);
    ASSERT_TRUE(gDesktopWindow);
    EXPECT_EQ(gFrontWindow, gDesktopWindow);
    auto desktop = reinterpret_cast<WindowPeek>(gDesktopWindow);
    auto last = reinterpret_cast<WindowPeek>(desktop->nextWindow);
    ASSERT_TRUE(last);
    EXPECT_FALSE(last->nextWindow || last->windowKind || last->strucRgn);
    EXPECT_GE(GetPtrSize(reinterpret_cast<Ptr>(last)), 224);
    EXPECT_EQ(desktop->visible, 1);
    EXPECT_EQ(desktop->port.portOffscreen, 0);
    EXPECT_EQ(+pixMapOf(gDesktopWindow).pmWindow, GetDesktopWindow());
    EXPECT_NE(+qd.thePort, gDesktopWindow);
    EXPECT_EQ(desktop->port.portRect, ltrb(GetSystemMetrics(SM_XVIRTUALSCREEN), GetSystemMetrics(SM_YVIRTUALSCREEN),
                                           GetSystemMetrics(SM_XVIRTUALSCREEN) + GetSystemMetrics(SM_CXVIRTUALSCREEN),
                                           GetSystemMetrics(SM_YVIRTUALSCREEN) + GetSystemMetrics(SM_CYVIRTUALSCREEN)));
    EXPECT_EQ(qd.screenBits.bounds, ltrb(0, 0, 320, 240)) << "the main window, for the global mode is 0";
    MTBX_ShutdownGraf();
}

TEST_F(GraphicsStart, StoresTheArrow)
{
    InitGraf(nullptr);
    UInt32 stored;
    memcpy(&stored, &qd.arrow, sizeof stored);
    HCURSOR arrow = LoadCursorA(nullptr, IDC_ARROW);
    EXPECT_EQ(stored, static_cast<UInt32>(reinterpret_cast<uintptr_t>(arrow)));
    Cursor copy;
    EXPECT_EQ(0, memcmp(GetQDGlobalsArrow(&copy), &qd.arrow, sizeof copy));
    MTBX_ShutdownGraf();
}

TEST_F(GraphicsStart, ShutdownGivesBackAllAndLeavesTheMainWindow)
{
    UInt64 usage = MEM_GetMemUsage();
    DWORD objects = 0;
    for (int round = 0; round < 3; ++round) {
        InitGraf(nullptr);
        PortInMemory memory;
        MacSetPort(memory.port());
        PenPat(&stripes);
        GrafPtr desktop;
        GetWMgrPort(&desktop);
        MacSetPort(nullptr);
        PenPat(&stripes);
        if (round == 1)
            InitGraf(nullptr);
        DisposePort(memory.release());
        MTBX_ShutdownGraf();
        EXPECT_EQ(MEM_GetMemUsage(), usage);
        EXPECT_FALSE(qd.thePort || gDesktopWindow || gFrontWindow);
        EXPECT_TRUE(IsWindow(window));
        if (round == 0)
            objects = gdiObjectCount();
    }
    EXPECT_EQ(gdiObjectCount(), objects);
}

TEST_F(GraphicsStart, WorksWithoutAMainWindow)
{
    hWndMain = nullptr;
    InitGraf(nullptr);
    ASSERT_TRUE(+qd.thePort);
    GrafPtr desktop = nullptr;
    GetWMgrPort(&desktop);
    EXPECT_EQ(desktop, gDesktopWindow);
    PenNormal();
    MTBX_ShutdownGraf();
}

} // namespace
