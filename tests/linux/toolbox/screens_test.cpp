// Screens of other depths, and several monitors.
#include "GdiObjects.h"
#include "Graphics.h"

#include <win32/control.h>

#include <memory>
#include <vector>

namespace {

class Screens : public testing::Test {
protected:
    ~Screens() override { Win32Control_SetScreenMode("1024x768x32"); }
};

BOOL CALLBACK collect(HMONITOR, HDC, RECT *rect, LPARAM data)
{
    reinterpret_cast<std::vector<Rect> *>(data)->push_back(ltrb(rect->left, rect->top, rect->right, rect->bottom));
    return TRUE;
}

TEST_F(Screens, AllMonitorsTogetherAreTheOneScreen)
{
    ASSERT_TRUE(Win32Control_SetScreenMode("1024x768x32,800x600x32"));
    Rect all;
    MTBX_GetGrayRect(&all);
    EXPECT_EQ(all, ltrb(0, 0, 1824, 768));
    std::vector<Rect> monitors;
    EXPECT_TRUE(MTBX_EnumDisplayMonitors(nullptr, nullptr, collect, reinterpret_cast<LPARAM>(&monitors)));
    EXPECT_EQ(monitors, std::vector<Rect>({ltrb(0, 0, 1024, 768), ltrb(1024, 0, 1824, 600)}));
    EXPECT_NE(MTBX_MonitorFromPoint(1030, 5, MONITOR_DEFAULTTONULL),
              MTBX_MonitorFromPoint(5, 5, MONITOR_DEFAULTTONULL));
    SetGlobalMode(1);
    EXPECT_EQ((*GetGrayRgn())->rgnBBox, all);
    SetGlobalMode(0);
}

TEST_F(Screens, A256ColorScreenShowsTheLibrarysPalette)
{
    ASSERT_TRUE(Win32Control_SetScreenMode("800x600x8"));
    DWORD objects = 0;
    UInt64 usage = 0;
    for (int round = 0; round < 2; ++round) {
        NativeWindow window(10, 10, 100, 100);
        hWndMain = window;
        PALETTEENTRY system[256], after[256];
        HDC screen = GetDC(nullptr);
        ASSERT_EQ(GetSystemPaletteEntries(screen, 0, 256, system), 256u);
        InitGraf(nullptr);
        EXPECT_EQ(gbits_per_pixel, 8);
        EXPECT_NE(gworld_palette, GetStockObject(DEFAULT_PALETTE));
        EXPECT_EQ(gcurrent_palette, gworld_palette);
        EXPECT_EQ((*(*GetMainDevice())->gdPMap)->pixelSize, 8);

        // The palette's ends are the colours that the system had there.
        PALETTEENTRY ours[256];
        ASSERT_EQ(GetPaletteEntries(gworld_palette, 0, 256, ours), 256u);
        for (int i : {0, 1, 9, 246, 250, 255})
            EXPECT_TRUE(ours[i].peRed == system[i].peRed && ours[i].peGreen == system[i].peGreen
                        && ours[i].peBlue == system[i].peBlue)
                << i;
        // Realized, each of its colours is on the screen.
        ASSERT_EQ(GetSystemPaletteEntries(screen, 0, 256, after), 256u);
        for (const PALETTEENTRY &wanted : ours) {
            bool shown = false;
            for (const PALETTEENTRY &entry : after)
                shown |=
                    entry.peRed == wanted.peRed && entry.peGreen == wanted.peGreen && entry.peBlue == wanted.peBlue;
            EXPECT_TRUE(shown) << int{wanted.peRed} << " " << int{wanted.peGreen} << " " << int{wanted.peBlue};
        }
        MTBX_AssertSystemPalette();
        MTBX_AssertZPPalette();
        ReleaseDC(nullptr, screen);
        MTBX_ShutdownGraf();
        EXPECT_FALSE(gworld_palette || gcurrent_palette);
        hWndMain = nullptr;
        // What the layer keeps for later is there after the first round.
        if (round == 0) {
            objects = gdiObjectCount();
            usage = MEM_GetMemUsage();
        }
    }
    EXPECT_EQ(gdiObjectCount(), objects);
    EXPECT_EQ(MEM_GetMemUsage(), usage);
}

TEST_F(Screens, PixelsAreReadFromTheScreen)
{
    NativeWindow main(0, 0, 100, 80);
    hWndMain = main;
    InitGraf(nullptr);
    auto window = std::make_unique<PortWindow>(ltrb(200, 150, 260, 190));
    MacSetPort(window->port());
    Rect whole = ltrb(0, 0, 60, 40), dot = ltrb(3, 4, 4, 5);
    RGBColor color = {65535, 0, 0x8000}, out = {1, 2, 3};
    RGBBackColor(&color);
    EraseRect(&whole);
    PaintRect(&dot);
    GdiFlush();
    GetCPixel(200, 150, &out);
    EXPECT_EQ(out, (RGBColor{65535, 0, 128 * 257}));
    EXPECT_TRUE(MacGetPixel(200, 150));
    EXPECT_FALSE(MacGetPixel(203, 154));
    out = {1, 2, 3};
    GetCPixel(-32768, 0, &out);
    EXPECT_EQ(out, (RGBColor{1, 2, 3})) << "no pixel there";
    EXPECT_FALSE(MacGetPixel(-32768, 0));
    window.reset();
    MTBX_ShutdownGraf();
    hWndMain = nullptr;
}

} // namespace
