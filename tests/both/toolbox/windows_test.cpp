// Window records, with and without their native windows.
#include "Graphics.h"
#include "Pascal.h"
#include "ResourceChain.h"

#include <mtbx/MacMemory.h>

#include <vector>

namespace {

WindowPtr newRecord(const Rect &bounds, SInt16 procID = documentProc, void *storage = nullptr)
{
    return NewCWindow(storage, &bounds, Pascal("Untitled"), true, procID, nullptr, true, 17);
}

WindowRecord &recordOf(WindowPtr window)
{
    return *reinterpret_cast<WindowPeek>(window);
}

std::vector<WindowPtr> windowList()
{
    std::vector<WindowPtr> list;
    for (WindowPtr window = FrontWindow(); window && list.size() < 100; window = recordOf(window).nextWindow)
        list.push_back(window);
    return list;
}

Rect boundsOf(RgnHandle rgn)
{
    Rect bounds;
    GetRegionBounds(rgn, &bounds);
    return bounds;
}

Rect windowBounds(WindowPtr window, WindowRegionCode code)
{
    Rect bounds = {};
    EXPECT_EQ(GetWindowBounds(window, code, &bounds), noErr);
    return bounds;
}

RECT clientOnScreen(HWND window)
{
    RECT client;
    GetClientRect(window, &client);
    MapWindowPoints(window, nullptr, reinterpret_cast<POINT *>(&client), 2);
    return client;
}

class Windows : public Graphics {
protected:
    ~Windows() override
    {
        while (!made.empty())
            dispose(made.back());
    }

    // A record with a native window, as a host makes both. A frame's client area is a scroll bar less wide.
    WindowPtr open(const Rect &bounds, DWORD style = WS_POPUP | WS_CAPTION | WS_THICKFRAME | WS_VSCROLL)
    {
        WindowPtr window = newRecord(bounds);
        HWND native = CreateWindowExA(WS_EX_TOPMOST, registeredClass(), "", style, 150 + bounds.left, 90 + bounds.top,
                                      100, 100, mainWindow, nullptr, GetModuleHandleA(nullptr), nullptr);
        pixMapOf(window).pmWindow = native;
        SetHwndMacWindowPtr(native, window);
        SizeWindow(window, static_cast<SInt16>(bounds.right - bounds.left), static_cast<SInt16>(bounds.bottom - bounds.top),
                   true);
        made.push_back(window);
        return window;
    }
    void dispose(WindowPtr window)
    {
        std::erase(made, window);
        DisposeWindow(window);
    }
    static HWND nativeOf(WindowPtr window) { return GetMacWindowPtrHwnd(window); }
    static void drain()
    {
        MSG message;
        while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE))
            DispatchMessageA(&message);
    }

    std::vector<WindowPtr> made;
    // What GetHwndMacWindowPtr said when WM_CLOSE came.
    static inline WindowPtr foundAtClose;
    static inline SInt32 openingSeen;
    // Gets its second state when it is restored.
    static inline WindowPtr restored;

private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
    {
        if (message == WM_CLOSE)
            foundAtClose = GetHwndMacWindowPtr(window);
        if (message == WM_SIZE && wParam == SIZE_RESTORED && restored)
            reinterpret_cast<Rect *>(*recordOf(restored).dataHandle)[1] = ltrb(70, 60, 170, 120);
        if (message == WM_SHOWWINDOW)
            openingSeen = gOpeningWindowL;
        return DefWindowProcA(window, message, wParam, lParam);
    }
    static const char *registeredClass()
    {
        WNDCLASSA description = {};
        description.lpfnWndProc = procedure;
        description.hInstance = GetModuleHandleA(nullptr);
        description.lpszClassName = "MtbxHostWindow";
        RegisterClassA(&description);
        return description.lpszClassName;
    }
};

TEST_F(Windows, AreRecordsFirst)
{
    Rect bounds = ltrb(30, 20, 130, 70);
    WindowPtr window = newRecord(bounds, -3);
    WindowRecord &record = recordOf(window);
    EXPECT_EQ(record.windowKind, userKind);
    EXPECT_EQ(record.windowDefProc, -3);
    EXPECT_TRUE(record.visible == 1 && record.goAwayFlag == 1 && record.hilited == 0 && GetWRefCon(window) == 17);
    EXPECT_EQ(Rect(window->portRect), bounds);
    EXPECT_EQ(boundsOf(window->visRgn), bounds);
    EXPECT_EQ(windowBounds(window, kWindowStructureRgn), bounds);
    EXPECT_EQ(windowBounds(window, kWindowContentRgn), bounds);
    EXPECT_EQ(Rect(pixMapOf(window).bounds), ltrb(-30, -20, 70, 30));
    EXPECT_EQ(pixMapOf(window).rowBytes, static_cast<SInt16>(0xC000 | (100 * gbits_per_pixel + 31) / 32 * 4));
    SetWTitle(window, Pascal("Renamed"));
    Pascal title;
    GetWTitle(window, title);
    EXPECT_EQ(title.text(), "Renamed");
    EXPECT_TRUE(IsValidWindowPtr(window) && !IsValidWindowPtr(nullptr));
    EXPECT_EQ(GetMacWindowPtrHwnd(window), nullptr);
    InvalWindowRect(window, &bounds);
    EXPECT_FALSE(IsWindowUpdatePending(window)) << "nothing happens without a native window";
    MacShowWindow(window);
    HideWindow(window);
    EXPECT_EQ(record.visible, 1);
    SetRedraw(window, true);
    DisposeWindow(window);
    SetRedraw(nullptr, true);
}

TEST_F(Windows, WiderThanARowsFieldKeepTheRowElsewhere)
{
    WindowPtr window = newRecord(ltrb(-16000, 0, 16000, 10));
    EXPECT_EQ(pixMapOf(window).rowBytes & 0x3FFF, 0x3F3F);
    EXPECT_EQ(reinterpret_cast<const UInt32 *>(*pixMapOf(window).pmReserved)[7], 32000u * gbits_per_pixel / 8);
    DisposeWindow(window);
}

TEST_F(Windows, StandInAListOfTheLibrarys)
{
    EXPECT_EQ(FrontWindow(), gDesktopWindow);
    WindowPtr end = windowList().back();
    WindowPtr first = newRecord(ltrb(0, 0, 9, 9)), second = newRecord(ltrb(0, 0, 9, 9));
    WindowPtr outside = newRecord(ltrb(0, 0, 9, 9), 17), third = newRecord(ltrb(0, 0, 9, 9), 16);
    using List = std::vector<WindowPtr>;
    EXPECT_EQ(windowList(), (List{third, second, first, gDesktopWindow, end}));
    EXPECT_EQ(outside->portLayerFlag, 1);
    BringToFront(first);
    BringToFront(outside);
    EXPECT_EQ(windowList(), (List{first, third, second, gDesktopWindow, end}));
    SendBehind(first, second);
    EXPECT_EQ(windowList(), (List{third, second, first, gDesktopWindow, end}));
    SendBehind(third, first);
    SendBehind(third, nullptr);
    SendBehind(third, third);
    SendBehind(outside, second);
    SendBehind(second, outside);
    EXPECT_EQ(windowList(), (List{second, first, third, gDesktopWindow, end}));
    DisposeWindow(first);
    DisposeWindow(second);
    DisposeWindow(outside);
    EXPECT_EQ(windowList(), (List{third, gDesktopWindow, end}));
    DisposeWindow(third);
}

TEST_F(Windows, UsedAgainWithoutDisposingMakeNoLoopOfTheList)
{
    auto storage = reinterpret_cast<WindowPtr>(NewPtrClear(sizeof(WindowRecord)));
    WindowPtr window = newRecord(ltrb(0, 0, 9, 9), documentProc, storage);
    EXPECT_EQ(window, storage);
    WindowPtr other = newRecord(ltrb(0, 0, 9, 9));
    // A host that forgot to close it loses what the record held, and nothing more.
    WindowRecord lost = recordOf(window);
    newRecord(ltrb(0, 0, 9, 9), documentProc, storage);
    EXPECT_EQ(windowList().size(), 4u);
    DisposeWindow(other);
    DisposeWindow(window);
    EXPECT_EQ(windowList().size(), 2u);
    auto *rest = reinterpret_cast<WindowPeek>(NewPtrClear(sizeof(WindowRecord)));
    *rest = lost;
    DisposeWindow(&rest->port);
}

TEST_F(Windows, OfMinimalModeShareTheirRegions)
{
    MTBX_BeginGdiMinimalisticWindowCreationMode();
    WindowPtr first = newRecord(ltrb(0, 0, 9, 9)), second = newRecord(ltrb(0, 0, 8, 8));
    MTBX_EndGdiMinimalisticWindowCreationMode();
    EXPECT_EQ(+recordOf(first).strucRgn, +recordOf(second).strucRgn);
    EXPECT_EQ(+recordOf(first).updateRgn, +recordOf(second).updateRgn);
    DisposeWindow(first);
    EXPECT_EQ(windowBounds(second, kWindowContentRgn), ltrb(0, 0, 8, 8));
    DisposeWindow(second);
}

TEST_F(Windows, TakeTheirGeometryFromTheNativeWindow)
{
    WindowPtr window = open(ltrb(20, 10, 140, 90));
    HWND native = nativeOf(window);
    RECT frame, client = clientOnScreen(native);
    GetWindowRect(native, &frame);
    EXPECT_EQ(client.right - client.left, 120) << "the client area, without the scroll bar, is as wide as asked";
    EXPECT_EQ(client.bottom - client.top, 80);
    EXPECT_EQ(Rect(window->portRect), ltrb(20, 10, 140, 90)) << "its corner stays";
    EXPECT_EQ(windowBounds(window, kWindowStructureRgn), ltrb(frame.left - 100, frame.top - 60, frame.right - 100, frame.bottom - 60));
    Rect content = windowBounds(window, kWindowContentRgn);
    EXPECT_EQ(content, ltrb(client.left - 100, client.top - 60, client.right - 100, client.bottom - 60));
    EXPECT_EQ(Rect(pixMapOf(window).bounds), ltrb(-content.left, -content.top, content.right - 2 * content.left, content.bottom - 2 * content.top));
    MacMoveWindow(window, 200, 180, false);
    EXPECT_EQ(clientOnScreen(native).left, 200);
    EXPECT_EQ(clientOnScreen(native).top, 180);
    window->moveInMainClient = 1;
    MacMoveWindow(window, 50, 60, true);
    EXPECT_EQ(clientOnScreen(native).left, 150);
    EXPECT_EQ(windowBounds(window, kWindowContentRgn).top, 60);
    reinterpret_cast<Rect *>(*recordOf(window).dataHandle)[1] = ltrb(70, 60, 170, 120);
    ZoomWindow(window, inZoomOut, false);
    EXPECT_EQ(windowBounds(window, kWindowContentRgn), ltrb(70, 60, 170, 120));
    EXPECT_EQ(boundsOf(window->visRgn), Rect(window->portRect));
}

TEST_F(Windows, AnswerForTheirBoundsRegionsAndAttributes)
{
    WindowPtr window = newRecord(ltrb(1, 2, 3, 4));
    Rect bounds;
    RgnHandle rgn = NewRgn();
    WindowAttributes attributes = 5;
    EXPECT_EQ(GetWindowBounds(window, kWindowUpdateRgn, &bounds), unimpErr);
    EXPECT_EQ(GetWindowBounds(window, kWindowContentRgn, nullptr), paramErr);
    EXPECT_EQ(GetWindowRegion(window, kWindowContentRgn, rgn), noErr);
    EXPECT_EQ(boundsOf(rgn), ltrb(1, 2, 3, 4));
    EXPECT_EQ(GetWindowRegion(window, kWindowUpdateRgn, rgn), noErr);
    EXPECT_TRUE(EmptyRgn(rgn));
    EXPECT_EQ(GetWindowRegion(window, 35, rgn), unimpErr);
    EXPECT_EQ(GetWindowAttributes(window, &attributes), noErr);
    EXPECT_EQ(attributes, 0u);
    window->portOffscreen = 1;
    EXPECT_EQ(GetWindowRegion(window, kWindowContentRgn, rgn), paramErr);
    EXPECT_EQ(GetWindowAttributes(window, &attributes), paramErr);
    EXPECT_FALSE(IsWindowUpdatePending(window));
    DisposeRgn(rgn);
    DisposeWindow(window);
}

TEST_F(Windows, AreShownWithoutActivation)
{
    WindowPtr window = open(ltrb(20, 10, 140, 90));
    recordOf(window).visible = 0;
    HWND active = GetActiveWindow();
    SelectWindow(window);
    EXPECT_TRUE(IsWindowVisible(nativeOf(window)) && recordOf(window).visible && recordOf(window).hilited);
    EXPECT_EQ(GetActiveWindow(), active);
    EXPECT_EQ(openingSeen, 1);
    EXPECT_EQ(gOpeningWindowL, 0);
    ShowHide(window, false);
    EXPECT_FALSE(IsWindowVisible(nativeOf(window)) || recordOf(window).visible);
    SetWTitle(window, Pascal("Native"));
    char text[32];
    GetWindowTextA(nativeOf(window), text, sizeof text);
    EXPECT_STREQ(text, "Native");
    SetWindowTextA(nativeOf(window), "Changed behind its back");
    Pascal title;
    GetWTitle(window, title);
    EXPECT_EQ(title.text(), "Changed behind its back");
}

TEST_F(Windows, KeepTheirUpdateRegionBesideTheNativeOne)
{
    WindowPtr window = open(ltrb(0, 0, 120, 80));
    MacShowWindow(window);
    drain();
    ValidateRect(nativeOf(window), nullptr);
    MacOffsetRect(&window->portRect, 100, 200);
    EndUpdate(window);
    Rect damage = ltrb(110, 210, 150, 230), mended = ltrb(110, 210, 150, 220);
    InvalWindowRect(window, &damage);
    ValidWindowRect(window, &mended);
    RECT native;
    EXPECT_TRUE(GetUpdateRect(nativeOf(window), &native, FALSE));
    EXPECT_EQ(ltrb(native.left, native.top, native.right, native.bottom), ltrb(10, 20, 50, 30));
    EXPECT_EQ(boundsOf(recordOf(window).updateRgn), ltrb(10, 20, 50, 30));
    EXPECT_TRUE(IsWindowUpdatePending(window));
    BeginUpdate(window);
    EXPECT_EQ(boundsOf(window->visRgn), ltrb(110, 220, 150, 230));
    EXPECT_FALSE(IsWindowUpdatePending(window));
    MacSetPort(window);
    EXPECT_EQ(boundsOf(window->visRgn), ltrb(110, 220, 150, 230)) << "a port that is made current keeps it";
    EXPECT_EQ(clipBoxOf(contextOf(window)), ltrb(110, 220, 150, 230));
    EndUpdate(window);
    EXPECT_EQ(boundsOf(window->visRgn), Rect(window->portRect));
}

TEST_F(Windows, AreFoundByTheirParts)
{
    WindowPtr window = open(ltrb(20, 10, 140, 90));
    MacMoveWindow(window, 160, 130, false);
    MacShowWindow(window);
    WindowPtr child = newRecord(ltrb(0, 0, 30, 30));
    HWND nativeChild = CreateWindowExA(0, "MtbxHostWindow", "", WS_CHILD | WS_VISIBLE, 0, 0, 30, 30, mainWindow, nullptr,
                                       GetModuleHandleA(nullptr), nullptr);
    pixMapOf(child).pmWindow = nativeChild;
    SetHwndMacWindowPtr(nativeChild, child);
    AdjustWindow(child);
    struct {
        Point point;
        WindowPartCode part;
        WindowPtr window;
    } const places[] = {{{80, 70}, inContent, window},
                        {{60, 80}, inDrag, window},
                        {{100, 186}, inContent, window},
                        {{10, 10}, inContent, child},
                        {{-20, -20}, inDesk, nullptr}};
    for (auto &[point, part, expected] : places) {
        WindowPtr found = window;
        EXPECT_EQ(MacFindWindow(point, &found), part) << point.h << ", " << point.v;
        EXPECT_EQ(found, expected) << point.h << ", " << point.v;
    }
    WindowPtr found = nullptr;
    EXPECT_NE(MacFindWindow({200, 300}, &found), inDesk) << "the main window's own area is the desktop's port";
    EXPECT_EQ(found, gDesktopWindow);
    dispose(child);
}

TEST_F(Windows, GrowByTheSizeEventOfTheirOwn)
{
    WindowPtr window = open(ltrb(20, 10, 140, 90));
    gTheEvent = {};
    gTheEvent.message = 0x00500078;
    gTheEvent.nativeMessage = WM_SIZE;
    gTheEvent.nativeWindow = mainWindow;
    EXPECT_EQ(GrowWindow(window, {}, nullptr), 0);
    gTheEvent.nativeWindow = nativeOf(window);
    EXPECT_EQ(GrowWindow(window, {}, nullptr), 0x00500078);
    gTheEvent.nativeMessage = WM_MOVE;
    EXPECT_EQ(GrowWindow(window, {}, nullptr), 0);
    gTheEvent = {};
}

TEST_F(Windows, DisposedOfTellTheHostFirst)
{
    WindowPtr window = open(ltrb(20, 10, 140, 90));
    HWND native = nativeOf(window);
    EXPECT_EQ(GetHwndMacWindowPtr(native), window);
    SetHwndVdmDlgRef(native, &window);
    EXPECT_EQ(GetHwndVdmDlgRef(native), &window);
    MacSetPort(window);
    foundAtClose = window;
    dispose(window);
    EXPECT_FALSE(IsWindow(native));
    EXPECT_EQ(foundAtClose, nullptr);
    EXPECT_EQ(windowList().size(), 2u);
    EXPECT_EQ(clipBoxOf(contextOf(qd.thePort)), ltrb(0, 0, 100, 100)) << "the first port is current";
}

TEST_F(Windows, DrawTheSizeBoxInTheCorner)
{
    PortInMemory memory;
    memory.clear(0x123456);
    MacSetPort(memory.port());
    Rect corner = ltrb(48, 48, 64, 64);
    ClipRect(&corner);
    DrawGrowIcon(nullptr);
    EXPECT_EQ(memory.pixel(47, 63), 0x123456u);
    COLORREF face = GetSysColor(COLOR_3DFACE);
    EXPECT_EQ(memory.pixel(49, 49), static_cast<UInt32>(GetRValue(face) << 16 | GetGValue(face) << 8 | GetBValue(face)));
    Rect none = {};
    ClipRect(&none);
    DrawGrowIcon(nullptr);
}

TEST_F(Windows, ZoomToWhatTheHostSetWhileTheyWereRestored)
{
    WindowPtr window = open(ltrb(20, 10, 140, 90));
    window->moveInMainClient = 1;
    ShowWindow(nativeOf(window), SW_MAXIMIZE);
    restored = window;
    ZoomWindow(window, inZoomOut, false);
    restored = nullptr;
    EXPECT_EQ(windowBounds(window, kWindowContentRgn), ltrb(70, 60, 170, 120));
    SetHandleSize(recordOf(window).dataHandle, 8);
    ZoomWindow(window, inZoomOut, false);
    EXPECT_EQ(windowBounds(window, kWindowContentRgn), ltrb(70, 60, 170, 120)) << "there is no second state";
}

class WindowTemplates : public ResourceChain {};

TEST_F(WindowTemplates, MakeWindowsAsTheySay)
{
    NativeWindow mainWindow(100, 60, 320, 240);
    hWndMain = mainWindow;
    InitGraf(nullptr);
    open(modulePath());
    WindowPtr window = GetNewCWindow(128, nullptr, nullptr);
    ASSERT_TRUE(window);
    WindowRecord &record = recordOf(window);
    EXPECT_EQ(Rect(window->portRect), ltrb(10, 20, 310, 220));
    EXPECT_TRUE(record.windowDefProc == 4 && record.visible == 1 && record.goAwayFlag == 1 && record.refCon == -2);
    Pascal title;
    GetWTitle(window, title);
    EXPECT_EQ(title.text(), "Palette");
    DisposeWindow(window);
    window = GetNewWindow(129, nullptr, nullptr);
    ASSERT_TRUE(window);
    GetWTitle(window, title);
    EXPECT_EQ(title.text(), "no end");
    DisposeWindow(window);
    EXPECT_EQ(GetNewCWindow(130, nullptr, nullptr), nullptr) << "too short";
    EXPECT_EQ(GetNewCWindow(131, nullptr, nullptr), nullptr) << "not there";
    MTBX_ShutdownGraf();
    hWndMain = nullptr;
}

} // namespace
