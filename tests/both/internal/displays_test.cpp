// A system with one monitor, and monitors by way of shoalview.
#include "Graphics.h"

#include "Display/Display_internal.h"
#include "Display/Monitors_internal.h"

#include <vector>

namespace {

class SoleMonitor : public testing::Test {
protected:
    SoleMonitor()
    {
        monitorCalls = {};
        monitorCallsLookedUp = true;
    }
    ~SoleMonitor()
    {
        monitorCallsLookedUp = false;
        if (dc_)
            DeleteDC(dc_);
        if (bitmap_)
            DeleteObject(bitmap_);
    }

    static BOOL CALLBACK visit(HMONITOR monitor, HDC, RECT *rect, LPARAM data)
    {
        EXPECT_EQ(monitor, kSolePrimaryMonitor);
        reinterpret_cast<SoleMonitor *>(data)->visited_.push_back(*rect);
        return FALSE;
    }
    bool enumerate(HDC dc, const RECT *clip)
    {
        visited_.clear();
        return MTBX_EnumDisplayMonitors(dc, clip, visit, reinterpret_cast<LPARAM>(this));
    }

    const int width_ = GetSystemMetrics(SM_CXSCREEN), height_ = GetSystemMetrics(SM_CYSCREEN);
    std::vector<RECT> visited_;
    HDC dc_ = nullptr;
    HBITMAP bitmap_ = nullptr;
};

TEST_F(SoleMonitor, IsTheWholeVirtualScreen)
{
    EXPECT_EQ(MTBX_GetSystemMetrics(SM_XVIRTUALSCREEN), 0);
    EXPECT_EQ(MTBX_GetSystemMetrics(SM_CXVIRTUALSCREEN), width_);
    EXPECT_EQ(MTBX_GetSystemMetrics(SM_CYVIRTUALSCREEN), height_);
    EXPECT_EQ(MTBX_GetSystemMetrics(SM_CMONITORS), 1);
    EXPECT_EQ(MTBX_GetSystemMetrics(SM_CYMENU), GetSystemMetrics(SM_CYMENU));
    Rect gray;
    MTBX_GetGrayRect(&gray);
    EXPECT_TRUE(gray.left == 0 && gray.top == 0 && gray.right == width_ && gray.bottom == height_);
}

TEST_F(SoleMonitor, HoldsWhatMeetsTheScreen)
{
    EXPECT_EQ(MTBX_MonitorFromPoint(width_ - 1, height_ - 1, 0), kSolePrimaryMonitor);
    EXPECT_FALSE(MTBX_MonitorFromPoint(width_, 0, 0));
    EXPECT_FALSE(MTBX_MonitorFromPoint(0, -1, 0));
    EXPECT_EQ(MTBX_MonitorFromPoint(0, -1, MONITOR_DEFAULTTOPRIMARY), kSolePrimaryMonitor);
    RECT left = {-20, 5, 0, 10}, below = {0, height_, 5, height_ + 5}, corner = {-20, -20, 1, 1};
    EXPECT_FALSE(MTBX_MonitorFromRect(&left, 0));
    EXPECT_EQ(MTBX_MonitorFromRect(&left, 1), kSolePrimaryMonitor);
    EXPECT_EQ(MTBX_MonitorFromRect(&left, 2), kSolePrimaryMonitor);
    EXPECT_FALSE(MTBX_MonitorFromRect(&below, 0));
    EXPECT_EQ(MTBX_MonitorFromRect(&corner, 0), kSolePrimaryMonitor);
}

TEST_F(SoleMonitor, HoldsWindowsByTheirPlace)
{
    NativeWindow window(-500, 10, 100, 100);
    EXPECT_FALSE(MTBX_MonitorFromWindow(window, 0));
    EXPECT_EQ(MTBX_MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), kSolePrimaryMonitor);
    SetWindowPos(window, nullptr, 10, 10, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    EXPECT_EQ(MTBX_MonitorFromWindow(window, 0), kSolePrimaryMonitor);
    HWND gone = window;
    window.close();
    EXPECT_FALSE(MTBX_MonitorFromWindow(gone, 0)) << "a window that is gone";
}

TEST_F(SoleMonitor, HasTheNameDisplay)
{
    MONITORINFOEXA info = {};
    info.cbSize = sizeof info;
    memset(info.szDevice, 'x', sizeof info.szDevice);
    EXPECT_FALSE(MTBX_GetMonitorInfo(reinterpret_cast<HMONITOR>(intptr_t{42}), &info));
    EXPECT_TRUE(MTBX_GetMonitorInfo(kSolePrimaryMonitor, &info));
    EXPECT_STREQ(info.szDevice, "DISPLAY");
    EXPECT_EQ(info.dwFlags, 1u);
    RECT screen = {0, 0, width_, height_}, work;
    SystemParametersInfoA(SPI_GETWORKAREA, 0, &work, 0);
    EXPECT_TRUE(EqualRect(&info.rcMonitor, &screen) && EqualRect(&info.rcWork, &work));
}

TEST_F(SoleMonitor, IsVisitedWithWhatTheClipLeavesOfIt)
{
    EXPECT_FALSE(MTBX_EnumDisplayMonitors(nullptr, nullptr, nullptr, 0));
    EXPECT_FALSE(enumerate(nullptr, nullptr)) << "the procedure's answer";
    RECT screen = {0, 0, width_, height_};
    ASSERT_EQ(visited_.size(), 1u);
    EXPECT_TRUE(EqualRect(&visited_[0], &screen));
    RECT clip = {-10, 20, 30, 40}, part = {0, 20, 30, 40}, outside = {-10, -10, 0, 0};
    EXPECT_FALSE(enumerate(nullptr, &clip));
    EXPECT_TRUE(EqualRect(&visited_.at(0), &part));
    EXPECT_TRUE(enumerate(nullptr, &outside));
    EXPECT_TRUE(visited_.empty());

    dc_ = CreateCompatibleDC(nullptr);
    bitmap_ = CreateBitmap(25, 50, 1, 1, nullptr);
    HGDIOBJ stock = SelectObject(dc_, bitmap_);
    EXPECT_FALSE(enumerate(dc_, &clip));
    RECT ofContext = {0, 20, 25, 40};
    EXPECT_TRUE(EqualRect(&visited_.at(0), &ofContext));
    IntersectClipRect(dc_, 100, 100, 200, 200);
    EXPECT_TRUE(enumerate(dc_, nullptr)) << "nothing is left to draw on";
    EXPECT_TRUE(visited_.empty());
    SelectObject(dc_, stock);
}

TEST(MonitorOfPopUps, ComesFromShoalview)
{
    RECT screen = {0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
    for (POINT point : {POINT{5, 5}, POINT{-3000, -3000}}) {
        RECT rect = MTBX_MonitorRectAtPoint(point);
        EXPECT_TRUE(EqualRect(&rect, &screen));
    }
}

} // namespace
