// Windows of the host kit: native windows for records, activation, order, updates, and windows that go.
#include "HostKitTest.h"

#include <algorithm>

namespace {

using Names = std::vector<std::string>;

class HostKitWindows : public HostKitTest {
protected:
    WindowPtr openAs(SRefCon refCon, SInt16 procID = documentProc)
    {
        auto step = static_cast<SInt16>(20 * refCon);
        WindowPtr window = open(ltrb(20 + step, 40 + step, 220 + step, 190 + step), procID);
        SetWRefCon(window, refCon);
        return window;
    }
    // Front to back, as the system has them.
    static std::vector<HWND> nativeOrder()
    {
        std::vector<HWND> order;
        for (HWND each = GetWindow(hWndMain, GW_CHILD); each; each = GetWindow(each, GW_HWNDNEXT))
            order.push_back(each);
        return order;
    }
};

TEST_F(HostKitWindows, StandWhereTheirBoundsSay)
{
    for (SInt16 procID : {SInt16{documentProc}, SInt16{dBoxProc}, SInt16{plainDBox}, SInt16{noGrowDocProc},
                          SInt16{movableDBoxProc}, SInt16{zoomDocProc}, SInt16{rDocProc}, SInt16{17}}) {
        Rect bounds = ltrb(100, 80, 300, 230);
        WindowPtr window = open(bounds, procID);
        EXPECT_EQ(contentOf(window), bounds) << procID;
        EXPECT_EQ(Rect(window->portRect), ltrb(0, 0, 200, 150)) << procID;
        EXPECT_EQ(GetParent(nativeOf(window)), hWndMain);
        EXPECT_TRUE(recordOf(window).visible && (GetWindowLongA(nativeOf(window), GWL_STYLE) & WS_VISIBLE));
        char title[20] = "";
        GetWindowTextA(nativeOf(window), title, sizeof title);
        EXPECT_STREQ(title, "Window");
        dispose(window);
    }
    WindowPtr narrow = open(ltrb(50, 60, 70, 80));
    HostKitMoveWindow(narrow, 55, 60, true);
    EXPECT_EQ(contentOf(narrow), ltrb(55, 60, 75, 80));
    dispose(narrow);
    EXPECT_EQ(HostKitFrontWindow(), nullptr);
    EXPECT_EQ(GetWindow(hWndMain, GW_CHILD), nullptr);
}

TEST_F(HostKitWindows, BecomeActiveAsTheyComeToTheFront)
{
    WindowPtr first = openAs(1);
    EXPECT_EQ(drain(activMask), Names{"activate 1"});
    WindowPtr second = openAs(2);
    EXPECT_EQ(drain(activMask), (Names{"deactivate 1", "activate 2"}));
    EXPECT_TRUE(recordOf(second).hilited && !recordOf(first).hilited);
    WindowPtr hidden = open(ltrb(300, 300, 350, 350), documentProc, false);
    HostKitSelectWindow(first);
    EXPECT_EQ(nativeOrder(), (std::vector<HWND>{nativeOf(first), nativeOf(hidden), nativeOf(second)}));
    HostKitSelectWindow(second);
    EXPECT_EQ(drain(activMask), Names{}) << "what was undone before the program looked is none";
    HostKitSelectWindow(first);
    HostKitHideWindow(first);
    EXPECT_EQ(HostKitFrontWindow(), second);
    HostKitShowWindow(first);
    HostKitSendBehind(first, nullptr);
    EXPECT_EQ(drain(activMask), Names{});
    EXPECT_EQ(nativeOrder().back(), nativeOf(first));
    dispose(second);
    EXPECT_EQ(drain(activMask), Names{"activate 1"}) << "one that is gone gets no event";
    dispose(first);
    dispose(hidden);
    EXPECT_EQ(drain(), Names{});
    HostKitSelectWindow(nullptr);
    HostKitShowWindow(nullptr);
}

TEST_F(HostKitWindows, MayBeMadeBehindOthers)
{
    WindowPtr front = openAs(1), back = openAs(2);
    HostKitSelectWindow(front);
    Rect bounds = ltrb(10, 40, 60, 90);
    WindowPtr middle = HostKitNewWindow(nullptr, &bounds, Pascal("m"), true, documentProc, front, true, 3);
    WindowPtr last = HostKitNewWindow(nullptr, &bounds, Pascal("l"), true, documentProc, nullptr, true, 4);
    EXPECT_EQ(nativeOrder(), (std::vector<HWND>{nativeOf(front), nativeOf(middle), nativeOf(back), nativeOf(last)}));
    EXPECT_EQ(HostKitFrontWindow(), front);
}

TEST_F(HostKitWindows, ThatFloatStayAboveAndAreNeverActive)
{
    WindowPtr document = openAs(1);
    WindowPtr palette = openAs(2, 17), other = openAs(3, 17);
    HostKitSelectWindow(document);
    EXPECT_EQ(nativeOrder(), (std::vector<HWND>{nativeOf(other), nativeOf(palette), nativeOf(document)}));
    HostKitSelectWindow(palette);
    WindowPtr late = openAs(4);
    EXPECT_EQ(nativeOrder(),
              (std::vector<HWND>{nativeOf(palette), nativeOf(other), nativeOf(late), nativeOf(document)}));
    EXPECT_EQ(HostKitFrontWindow(), late);
    EXPECT_EQ(drain(), (Names{"activate 4", "update 2", "update 3", "update 4", "update 1"}));
    EXPECT_TRUE(recordOf(palette).hilited) << "as long as the program is the active one";
    dispose(other);
}

TEST_F(HostKitWindows, AreAskedToDrawOnceAndFromTheFront)
{
    std::vector<std::string> expected;
    for (SRefCon i = 0; i < 200; ++i) {
        Rect bounds = ltrb(static_cast<int>(10 + i), static_cast<int>(30 + i), static_cast<int>(80 + i), static_cast<int>(90 + i));
        WindowPtr window = open(bounds);
        SetWRefCon(window, i);
        expected.insert(expected.begin(), "update " + std::to_string(i));
    }
    EXPECT_EQ(drain(updateMask), expected);
    EXPECT_EQ(drain(updateMask), Names{});
    HostKitSendBehind(gFrontWindow, nullptr);
    EXPECT_LE(drain(updateMask).size(), 200u);
}

TEST_F(HostKitWindows, AreAskedForWhatChangedWhileTheyDrew)
{
    WindowPtr window = openAs(1);
    drain();
    Rect part = ltrb(5, 5, 15, 10);
    InvalWindowRect(window, &part);
    EventRecord event = waitFor(updateMask);
    BeginUpdate(window);
    Rect later = ltrb(50, 5, 60, 10), drawn;
    InvalWindowRect(window, &later);
    EXPECT_FALSE(HostKitWaitNextEvent(updateMask, &event, 1, nullptr)) << "it is at it";
    GetRegionBounds(window->visRgn, &drawn);
    EXPECT_EQ(drawn, part);
    EndUpdate(window);
    ASSERT_TRUE(HostKitWaitNextEvent(updateMask, &event, 0, nullptr));
    GetRegionBounds(recordOf(window).updateRgn, &drawn);
    EXPECT_EQ(drawn, later);
    HostKitHideWindow(window);
    drain();
    HostKitShowWindow(window);
    EXPECT_EQ(drain(updateMask), Names{"update 1"});
}

TEST_F(HostKitWindows, ArePressedByTheSystemsKeysEachForItself)
{
    WindowPtr first = openAs(1, zoomDocProc), second = openAs(2), without = open(ltrb(5, 30, 90, 90), documentProc, true, false);
    drain();
    for (WindowPtr each : {first, first, second, without})
        PostMessageA(nativeOf(each), WM_SYSCOMMAND, SC_CLOSE, 0);
    PostMessageA(nativeOf(without), WM_CLOSE, 0, 0);
    for (WindowPtr expected : {first, second}) {
        EventRecord event = waitFor(mDownMask);
        WindowPtr found = nullptr;
        EXPECT_EQ(HostKitFindWindow(event.where, &found), inGoAway);
        EXPECT_EQ(found, expected);
        EXPECT_TRUE(HostKitTrackGoAway(found, event.where));
    }
    EXPECT_EQ(drain(), Names{}) << "one without a close box has none to be pressed";
    PostMessageA(nativeOf(first), WM_SYSCOMMAND, SC_MAXIMIZE, 0);
    PostMessageA(nativeOf(second), WM_CLOSE, 0, 0);
    EventRecord zoom = waitFor(mDownMask);
    WindowPtr found = nullptr;
    EXPECT_EQ(HostKitFindWindow(zoom.where, &found), inZoomOut);
    EXPECT_TRUE(HostKitTrackBox(found, zoom.where, inZoomOut));
    dispose(second);
    EXPECT_EQ(drain(mDownMask), Names{}) << "the press was for one that is gone";
    PostMessageA(nativeOf(first), WM_CLOSE, 0, 0);
    HostKitFlushEvents(everyEvent, 0);
    EXPECT_FALSE(HostKitTrackGoAway(first, {0, 0})) << "a press that was flushed is none";
}

TEST_F(HostKitWindows, ZoomBetweenTheStatesOfUserAndProgram)
{
    WindowPtr window = openAs(1, zoomDocProc);
    Rect users = contentOf(window);
    HostKitZoomWindow(window, inZoomOut, true);
    Rect whole = structureOf(window);
    RECT desktop;
    GetClientRect(hWndMain, &desktop);
    EXPECT_EQ(whole, ltrb(0, 0, desktop.right, desktop.bottom));
    HostKitZoomWindow(window, inZoomIn, true);
    EXPECT_EQ(contentOf(window), users);
    auto states = reinterpret_cast<Rect *>(*recordOf(window).dataHandle);
    states[1] = ltrb(60, 60, 260, 160);
    WindowPtr found = nullptr;
    Point box = pointOf(window, HTMAXBUTTON);
    EXPECT_EQ(HostKitFindWindow(box, &found), inZoomOut);
    HostKitZoomWindow(window, inZoomOut, true);
    EXPECT_EQ(HostKitFindWindow(pointOf(window, HTMAXBUTTON), &found), inZoomIn) << "it is as large as the program wants it";
    SetWindowPos(hWndMain, nullptr, 0, 0, 600, 500, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    EXPECT_EQ(Rect(states[1]), ltrb(60, 60, 260, 160));
    WindowPtr other = openAs(2, zoomDocProc);
    SetWindowPos(hWndMain, nullptr, 0, 0, 660, 550, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    GetClientRect(hWndMain, &desktop);
    HostKitZoomWindow(other, inZoomOut, true);
    EXPECT_EQ(structureOf(other), ltrb(0, 0, desktop.right, desktop.bottom)) << "the whole desktop follows the main window";
}

TEST_F(HostKitWindows, MayLieInStorageOfTheCallers)
{
    WindowRecord storage;
    Rect bounds = ltrb(20, 40, 120, 140);
    WindowPtr behind = openAs(1);
    WindowPtr window = HostKitNewWindow(&storage, &bounds, Pascal("own"), true, documentProc, reinterpret_cast<WindowPtr>(-1), true, 2);
    WindowPtr front = openAs(3);
    ASSERT_EQ(window, &storage.port);
    MacSetPort(window);
    HostKitCloseWindow(window);
    EXPECT_EQ(recordOf(front).nextWindow, behind);
    EXPECT_NE(qd.thePort, window);
    EXPECT_EQ(drain(), (Names{"activate 3", "update 3", "update 1"}));
    EXPECT_EQ(HostKitAttachWindow(gDesktopWindow), paramErr);
    EXPECT_EQ(HostKitAttachWindow(front), paramErr);
}

TEST_F(HostKitWindows, MayLoseTheirNativeWindows)
{
    WindowPtr window = openAs(1), palette = openAs(2, 17);
    WindowPtr behind = openAs(3);
    DestroyWindow(nativeOf(palette));
    DestroyWindow(nativeOf(behind));
    EXPECT_EQ(nativeOf(palette), nullptr);
    EXPECT_EQ(HostKitFrontWindow(), window);
    EXPECT_EQ(drain(), (Names{"activate 1", "update 1"}));
    EXPECT_EQ(HostKitAttachWindow(behind), noErr) << "and get others";
    HostKitShowWindow(behind);
    EXPECT_EQ(drain(activMask), (Names{"deactivate 1", "activate 3"}));
    dispose(palette);
}

TEST_F(HostKitWindows, OutliveAMinimizedMainWindow)
{
    WindowPtr window = openAs(1);
    drain();
    ShowWindow(hWndMain, SW_MINIMIZE);
    drain();
    EXPECT_TRUE(gApplicationHidden);
    InvalWindowRect(window, &window->portRect);
    EXPECT_EQ(HostKitFrontWindow(), window);
    EXPECT_EQ(contentOf(window), ltrb(40, 60, 240, 210));
    drain();
    ShowWindow(hWndMain, SW_RESTORE);
    Names names = drain();
    EXPECT_FALSE(gApplicationHidden);
    EXPECT_TRUE(std::find(names.begin(), names.end(), "update 1") != names.end());
    EXPECT_EQ(contentOf(window), ltrb(40, 60, 240, 210));
}

} // namespace
