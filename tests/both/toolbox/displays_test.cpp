// The main device, monitors, and global coordinates.
#include "Graphics.h"

#include <vector>

namespace {

class Displays : public testing::Test {
protected:
    Displays() : formerPort_(qd.thePort), formerMain_(hWndMain), formerDepth_(gbits_per_pixel)
    {
        hWndMain = mainWindow_;
        port_.portVersion = 0xC000;
        port_.portPixMap = reinterpret_cast<PixMapHandle>(NewHandleClear(sizeof(PixMap)));
        (*port_.portPixMap)->pmWindow = window_;
        port_.portRect = ltrb(-10, 7, 110, 97);
        qd.thePort = &port_;
        gbits_per_pixel = 32;
    }
    ~Displays()
    {
        SetGlobalMode(0);
        DisposeHandle(reinterpret_cast<Handle>(port_.portPixMap));
        qd.thePort = formerPort_;
        hWndMain = formerMain_;
        gbits_per_pixel = formerDepth_;
    }

    static Point global(Point point)
    {
        LocalToGlobal(&point);
        return point;
    }
    static Point local(Point point)
    {
        GlobalToLocal(&point);
        return point;
    }

    GrafPtr formerPort_;
    HWND formerMain_;
    NativeWindow mainWindow_{30, 40, 300, 200}, window_{100, 60, 120, 90};
    SInt16 formerDepth_;
    CGrafPort port_ = {};
};

Rect screenOfAllMonitors()
{
    int left = GetSystemMetrics(SM_XVIRTUALSCREEN), top = GetSystemMetrics(SM_YVIRTUALSCREEN);
    return ltrb(left, top, left + GetSystemMetrics(SM_CXVIRTUALSCREEN), top + GetSystemMetrics(SM_CYVIRTUALSCREEN));
}

TEST_F(Displays, ModeSaysWhatTheScreenBoundsAre)
{
    SetGlobalMode(1);
    EXPECT_EQ(GetGlobalMode(), 1);
    EXPECT_EQ(qd.screenBits.bounds, screenOfAllMonitors());
    SetGlobalMode(0);
    RECT client;
    GetClientRect(hWndMain, &client);
    EXPECT_EQ(qd.screenBits.bounds, ltrb(0, 0, client.right, client.bottom));
    qd.screenBits.bounds = ltrb(3, 4, 5, 6);
    SetGlobalMode(0);
    EXPECT_EQ(qd.screenBits.bounds, ltrb(3, 4, 5, 6)) << "the same mode touches nothing";
    SetGlobalMode(7);
    EXPECT_EQ(qd.screenBits.bounds, ltrb(0, 0, 5, 6));
    SetGlobalMode(0);
    UpdateGlobalMode();
    EXPECT_EQ(qd.screenBits.bounds, ltrb(0, 0, client.right, client.bottom));
}

TEST_F(Displays, PointsGoBetweenThePortAndTheMainWindowOrTheScreen)
{
    POINT inWindow = {20, 15}; // of port point (10, 22)
    ClientToScreen(window_, &inWindow);
    POINT inMain = inWindow;
    ScreenToClient(hWndMain, &inMain);
    Point point = {22, 10};
    EXPECT_TRUE(EqualPt(global(point), {static_cast<SInt16>(inMain.y), static_cast<SInt16>(inMain.x)}));
    EXPECT_TRUE(EqualPt(local(global(point)), point));
    SetGlobalMode(1);
    EXPECT_TRUE(EqualPt(global(point), {static_cast<SInt16>(inWindow.y), static_cast<SInt16>(inWindow.x)}));
    EXPECT_TRUE(EqualPt(local(global(point)), point));
    Point distant = {-32768, 32767};
    EXPECT_TRUE(EqualPt(local(global(distant)), distant)) << "coordinates wrap both ways";
}

TEST_F(Displays, PortsWithoutAWindowAreNowhere)
{
    Point point = {22, 10};
    (*port_.portPixMap)->pmWindow = nullptr;
    EXPECT_TRUE(EqualPt(global(point), point));
    EXPECT_TRUE(EqualPt(local(point), point));
    (*port_.portPixMap)->pmWindow = window_;
    port_.portVersion = 0;
    EXPECT_TRUE(EqualPt(global(point), point)) << "a basic port";
    qd.thePort = nullptr;
    EXPECT_TRUE(EqualPt(local(point), point));
}

TEST_F(Displays, DesktopPortHasTheMainWindowsCoordinates)
{
    (*port_.portPixMap)->pmWindow = GetDesktopWindow();
    Point point = {22, 10};
    EXPECT_TRUE(EqualPt(global(point), point));
    EXPECT_TRUE(EqualPt(local(point), point));
    SetGlobalMode(1);
    EXPECT_TRUE(EqualPt(global(point), {15, 20})) << "on the screen it has an origin";
    EXPECT_TRUE(EqualPt(local({15, 20}), point));
}

TEST_F(Displays, MouseIsInGlobalCoordinates)
{
    SetCursorPos(333, 222);
    POINT screen;
    GetCursorPos(&screen);
    SetGlobalMode(1);
    Point point;
    GetGlobalMouse(&point);
    EXPECT_TRUE(EqualPt(point, {static_cast<SInt16>(screen.y), static_cast<SInt16>(screen.x)}));
    SetGlobalMode(0);
    ScreenToClient(hWndMain, &screen);
    GetGlobalMouse(&point);
    EXPECT_TRUE(EqualPt(point, {static_cast<SInt16>(screen.y), static_cast<SInt16>(screen.x)}));
}

TEST_F(Displays, ThereIsOneDevice)
{
    GDHandle device = GetMainDevice();
    ASSERT_TRUE(device);
    EXPECT_EQ(GetGDevice(), device);
    EXPECT_EQ(GetDeviceList(), device);
    EXPECT_EQ(GetMaxDevice(nullptr), device);
    EXPECT_FALSE(GetNextDevice(device));
    EXPECT_EQ(GetGlobalMode(), 0) << "the mode in which it was made is back";
    qd.screenBits.bounds = ltrb(1, 2, 3, 4);
    EXPECT_EQ((*GetMainDevice())->gdRect, ltrb(1, 2, 3, 4));

    SInt16 &depth = (*(*device)->gdPMap)->pixelSize;
    SInt16 before = depth;
    depth = 1;
    EXPECT_FALSE(TestDeviceAttribute(device, gdDevType));
    depth = 8;
    EXPECT_TRUE(TestDeviceAttribute(device, gdDevType));
    depth = before;
    GDevice copy = **device;
    GDPtr copyPointer = &copy;
    for (SInt16 attribute : {screenDevice, screenActive}) {
        EXPECT_TRUE(TestDeviceAttribute(device, attribute));
        EXPECT_FALSE(TestDeviceAttribute(&copyPointer, attribute));
    }
    EXPECT_FALSE(TestDeviceAttribute(device, 11));
}

TEST_F(Displays, GreyRegionLeavesTheMenuBarOut)
{
    UpdateGlobalMode();
    RgnHandle gray = GetGrayRgn();
    Rect expected = qd.screenBits.bounds;
    expected.top = static_cast<SInt16>(expected.top + GetSystemMetrics(SM_CYMENU));
    EXPECT_EQ((*gray)->rgnBBox, expected);
    SetGlobalMode(1);
    EXPECT_EQ(GetGrayRgn(), gray);
    EXPECT_EQ((*gray)->rgnBBox, screenOfAllMonitors());
}

BOOL CALLBACK collect(HMONITOR monitor, HDC, RECT *, LPARAM data)
{
    reinterpret_cast<std::vector<HMONITOR> *>(data)->push_back(monitor);
    return TRUE;
}

TEST_F(Displays, MonitorsAreThoseOfTheSystem)
{
    POINT corner = {0, 0};
    HMONITOR monitor = MonitorFromPoint(corner, MONITOR_DEFAULTTOPRIMARY);
    EXPECT_EQ(MTBX_MonitorFromPoint(0, 0, MONITOR_DEFAULTTONULL), monitor);
    EXPECT_FALSE(MTBX_MonitorFromPoint(-30000, 5, MONITOR_DEFAULTTONULL));
    EXPECT_EQ(MTBX_MonitorFromWindow(window_, MONITOR_DEFAULTTONEAREST), monitor);
    RECT rect = {-50, -50, 1, 1};
    EXPECT_EQ(MTBX_MonitorFromRect(&rect, MONITOR_DEFAULTTONULL), monitor);

    MONITORINFOEXA named = {};
    named.cbSize = sizeof named;
    EXPECT_TRUE(MTBX_GetMonitorInfo(monitor, &named));
    EXPECT_NE(named.szDevice[0], 0);
    MONITORINFOEXA plain = {};
    plain.cbSize = 100;
    EXPECT_TRUE(MTBX_GetMonitorInfo(monitor, &plain));
    EXPECT_EQ(plain.cbSize, 40u);
    EXPECT_EQ(plain.szDevice[0], 0);
    EXPECT_TRUE(EqualRect(&plain.rcMonitor, &named.rcMonitor));
    EXPECT_FALSE(MTBX_GetMonitorInfo(nullptr, &plain));

    std::vector<HMONITOR> seen;
    EXPECT_TRUE(MTBX_EnumDisplayMonitors(nullptr, nullptr, collect, reinterpret_cast<LPARAM>(&seen)));
    EXPECT_EQ(seen.size(), static_cast<size_t>(MTBX_GetSystemMetrics(SM_CMONITORS)));
    EXPECT_EQ(seen.at(0), monitor);
}

} // namespace
