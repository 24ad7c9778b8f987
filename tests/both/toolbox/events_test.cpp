// Events of the slot and of the native queue, with a mouse and a keyboard.
#include "Graphics.h"
#include "Input.h"

#include <vector>

namespace {

constexpr UINT queuedMessage = WM_APP + 7;

// One window for all tests: it has the focus, and notes what is dispatched to it.
class Events : public testing::Test {
protected:
    static void SetUpTestSuite()
    {
        WNDCLASSA description = {};
        description.lpfnWndProc = procedure;
        description.hInstance = GetModuleHandleA(nullptr);
        description.lpszClassName = "MtbxEventWindow";
        RegisterClassA(&description);
        window = CreateWindowExA(WS_EX_TOPMOST, "MtbxEventWindow", "", WS_POPUP | WS_VISIBLE, 100, 60, 320, 240, nullptr,
                                 nullptr, GetModuleHandleA(nullptr), nullptr);
        SetForegroundWindow(window);
        SetFocus(window);
    }
    static void TearDownTestSuite()
    {
        DestroyWindow(window);
        UnregisterClassA("MtbxEventWindow", GetModuleHandleA(nullptr));
    }

    Events()
    {
        hWndMain = window;
        gTheEvent = {};
        input.moveTo(150, 100);
        clearQueue();
    }
    ~Events() override
    {
        InstallMsgToEventConverter(nullptr);
        gTheEvent = {};
        G_useSecondButton = 0;
        clearQueue();
        hWndMain = nullptr;
    }

    static void clearQueue()
    {
        MSG message;
        while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE))
            DispatchMessageA(&message);
        dispatched.clear();
    }
    static bool isQueued(UINT first, UINT last)
    {
        MSG message;
        return PeekMessageA(&message, nullptr, first, last, PM_NOREMOVE);
    }
    static EventRecord hostEvent(UInt16 what, URefCon message = 0)
    {
        EventRecord event = {};
        event.what = what;
        event.message = message;
        event.when = 1234;
        event.where = {7, 8};
        event.modifiers = 0x5555;
        event.nativeWindow = window;
        event.hostWords[4] = 99;
        return event;
    }

    static inline HWND window;
    static inline std::vector<UINT> dispatched;
    static inline bool isLeftUnpainted;
    Input input;
    EventRecord event;

private:
    static LRESULT CALLBACK procedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam)
    {
        dispatched.push_back(message);
        if (message == WM_PAINT && isLeftUnpainted)
            return 0;
        return DefWindowProcA(handle, message, wParam, lParam);
    }
};

TEST_F(Events, AreHandedOverOnceWhateverTheMask)
{
    gTheEvent = hostEvent(updateEvt, 77);
    EXPECT_TRUE(EventAvail(updateMask, &event)) << "and the slot keeps it";
    EXPECT_TRUE(WaitNextEvent(mDownMask, &event, 1000, nullptr));
    EXPECT_EQ(+event.what, updateEvt);
    EXPECT_TRUE(event.message == 77 && event.when == 1234 && event.modifiers == 0x5555 && event.hostWords[4] == 99);
    EXPECT_EQ(Point(event.where), (Point{7, 8}));
    EXPECT_FALSE(GetNextEvent(everyEvent, &event));
    EXPECT_EQ(+event.what, nullEvent);
    EXPECT_EQ(+event.message, 77u) << "of the event before";
    EXPECT_EQ(Point(event.where), (Point{40, 50})) << "where the mouse is in the main window";
}

TEST_F(Events, OfAMovedMouseTellWhereItIsNow)
{
    gTheEvent = hostEvent(osEvt, 0xFA000000);
    input.press(VK_SHIFT);
    EXPECT_TRUE(GetOSEvent(everyEvent, &event));
    EXPECT_EQ(Point(event.where), (Point{40, 50}));
    EXPECT_EQ(+event.modifiers, shiftKey);
    gTheEvent = hostEvent(osEvt, 0x01000001);
    EXPECT_TRUE(GetNextEvent(everyEvent, &event));
    EXPECT_EQ(Point(event.where), (Point{7, 8})) << "a resume event is the host's";
}

TEST_F(Events, OfTheSlotAreAvailableByTheirMaskUnlessTheyAreTheSystems)
{
    gTheEvent = hostEvent(activateEvt);
    EXPECT_FALSE(EventAvail(updateMask, &event));
    EXPECT_TRUE(OSEventAvail(activMask, &event));
    EXPECT_EQ(+event.what, activateEvt);
    gTheEvent = hostEvent(osEvt);
    EXPECT_FALSE(EventAvail(everyEvent & ~(mDownMask | mUpMask), &event)) << "only the kinds 1 to 8 are seen";
    EXPECT_EQ(+event.what, nullEvent);
    UInt32 before = TickCount();
    event = hostEvent(keyDown);
    EXPECT_FALSE(EventAvail(0, &event));
    EXPECT_GE(+event.when, before);
    EXPECT_EQ(+event.hostWords[4], 0u);
}

TEST_F(Events, OfTheMouseAreSeenInTheQueueAndStayThere)
{
    input.pressButton();
    EXPECT_FALSE(EventAvail(mUpMask, &event));
    EXPECT_TRUE(EventAvail(mDownMask | mUpMask, &event));
    EXPECT_EQ(+event.what, mouseDown);
    EXPECT_TRUE(Button() && StillDown());
    EXPECT_EQ(+event.modifiers, btnState);
    input.releaseButton();
    EXPECT_TRUE(EventAvail(mUpMask, &event));
    EXPECT_EQ(+event.what, mouseUp);
    EXPECT_TRUE(isQueued(WM_LBUTTONDOWN, WM_LBUTTONDOWN));
    EXPECT_FALSE(Button() || StillDown());
    input.pressButton();
    EXPECT_TRUE(Button());
    EXPECT_FALSE(StillDown()) << "the release waits";
    G_useSecondButton = 1;
    EXPECT_FALSE(Button()) << "the other button";
}

TEST_F(Events, OfKeysAreReportedAsTheHostsConverterSays)
{
    input.type('A');
    EXPECT_TRUE(EventAvail(keyDownMask, &event));
    EXPECT_EQ(+event.what, keyUp) << "of either kind, without a converter";
    EXPECT_EQ(+event.message, static_cast<UInt32>('A'));
    EXPECT_NEAR(static_cast<double>(event.when), TickCount(), 120);
    InstallMsgToEventConverter([](const MSG *message, EventRecord *converted) {
        converted->what = message->message == WM_KEYUP ? UInt16{keyUp} : UInt16{nullEvent};
        converted->message = message->wParam << 8;
    });
    EXPECT_FALSE(EventAvail(keyDownMask, &event)) << "the converter knows no press";
    EXPECT_TRUE(EventAvail(keyUpMask, &event));
    EXPECT_EQ(+event.message, 'A' << 8);
    EXPECT_TRUE(isQueued(WM_KEYDOWN, WM_KEYDOWN) && isQueued(WM_KEYUP, WM_KEYUP));
}

TEST_F(Events, OfModifierKeysAloneAreTakenOutOfTheQueue)
{
    input.press(VK_SHIFT);
    EXPECT_FALSE(EventAvail(keyDownMask | keyUpMask, &event));
    EXPECT_EQ(+event.modifiers, shiftKey);
    EXPECT_FALSE(isQueued(WM_KEYDOWN, WM_KEYDOWN));
    input.press('B');
    input.press(VK_CONTROL);
    EXPECT_TRUE(EventAvail(keyDownMask, &event)) << "the key before it is still there";
    EXPECT_EQ(+event.message, static_cast<UInt32>('B'));
}

TEST_F(Events, OfKeysThatAreNoCharactersGetKeyCodes)
{
    struct {
        WORD key;
        UInt32 message;
    } const keys[] = {{VK_RETURN, 0x1C00}, {VK_OEM_1, 0x2700}, {VK_OEM_COMMA, 51 << 8}, {VK_TAB, VK_TAB}, {VK_SPACE, ' '}};
    for (auto &[key, message] : keys) {
        input.type(key);
        EXPECT_TRUE(EventAvail(keyDownMask, &event));
        EXPECT_EQ(+event.message, message) << key;
        FlushEvents(keyDownMask | keyUpMask, 0);
    }
    struct {
        WPARAM key;
        LPARAM data;
        UInt32 message;
    } const messages[] = {{VK_RETURN, 28 << 16 | KF_EXTENDED << 16, 0x11C01}, {VK_HOME, 71 << 16, 71 << 8}, {VK_HOME, 71 << 16 | KF_EXTENDED << 16, VK_HOME}};
    for (auto &[key, data, message] : messages) {
        // The press makes the queue say that there are keys; the posted message comes before it.
        PostMessageA(window, WM_KEYDOWN, key, data);
        input.type('C');
        EXPECT_TRUE(EventAvail(keyDownMask, &event));
        EXPECT_EQ(+event.message, message) << key;
        clearQueue();
    }
}

TEST_F(Events, KeyStatesAreThoseOfThisMoment)
{
    input.press(VK_SHIFT);
    input.press(VK_CONTROL);
    input.press(VK_SPACE);
    KeyMap keys = {~0u, ~0u, ~0u, ~0u};
    GetKeys(keys);
    auto isDown = [&keys](int key) { return (reinterpret_cast<const UInt8 *>(&keys[key / 32])[3 - key % 32 / 8] >> key % 8 & 1) != 0; };
    EXPECT_TRUE(isDown(56) && isDown(49) && isDown(55));
    EXPECT_FALSE(isDown(58) || isDown(0) || isDown(57) || keys[0] || keys[2] || keys[3]);
    EXPECT_EQ(GetModifiersState(), shiftKey | cmdKey);
    EXPECT_EQ(GetCurrentKeyModifiers(), static_cast<UInt32>(shiftKey | cmdKey));
    input.release(VK_SHIFT);
    input.release(VK_CONTROL);
    EXPECT_EQ(GetModifiersState(), 0);
}

TEST_F(Events, AreFlushedKindByKind)
{
    gTheEvent = hostEvent(keyDown);
    FlushEvents(mDownMask, 0);
    EXPECT_EQ(+gTheEvent.what, keyDown);
    FlushEvents(keyDownMask, 0);
    EXPECT_EQ(+gTheEvent.what, nullEvent);
    gTheEvent = hostEvent(16);
    FlushEvents(0x800, 0);
    EXPECT_EQ(+gTheEvent.what, nullEvent);
    gTheEvent = hostEvent(updateEvt);
    FlushEvents(everyEvent, 0);
    EXPECT_EQ(+gTheEvent.what, updateEvt) << "never cleared";
    for (UINT message : {WM_LBUTTONDOWN, WM_RBUTTONDOWN, WM_LBUTTONUP, WM_KEYDOWN, WM_KEYUP, WM_SYSKEYDOWN})
        PostMessageA(window, message, 'X', 0);
    FlushEvents(mDownMask | keyUpMask, 0);
    EXPECT_FALSE(isQueued(WM_LBUTTONDOWN, WM_LBUTTONDOWN) || isQueued(WM_KEYUP, WM_KEYUP));
    EXPECT_TRUE(isQueued(WM_RBUTTONDOWN, WM_RBUTTONDOWN) && isQueued(WM_KEYDOWN, WM_KEYDOWN));
    FlushEvents(mDownMask | mUpMask | keyDownMask | keyUpMask, 0);
    EXPECT_FALSE(isQueued(WM_KEYFIRST, WM_KEYLAST) || isQueued(WM_MOUSEFIRST, 0x20D));
    EXPECT_TRUE(dispatched.empty()) << "dropped";
}

TEST_F(Events, AreFlushedUpToTheStopMask)
{
    for (UINT message : {WM_LBUTTONDOWN, WM_KEYDOWN, WM_LBUTTONUP})
        PostMessageA(window, message, 'X', 0);
    FlushEvents(everyEvent, keyDownMask);
    EXPECT_FALSE(isQueued(WM_LBUTTONDOWN, WM_LBUTTONDOWN));
    EXPECT_TRUE(isQueued(WM_KEYDOWN, WM_KEYDOWN) && isQueued(WM_LBUTTONUP, WM_LBUTTONUP));
    PostMessageA(window, WM_RBUTTONUP, 0, 0);
    FlushEvents(mDownMask | mUpMask, mUpMask);
    EXPECT_TRUE(isQueued(WM_LBUTTONUP, WM_LBUTTONUP) && isQueued(WM_RBUTTONUP, WM_RBUTTONUP));
}

TEST_F(Events, OtherMessagesAreDeliveredByAFullFlush)
{
    PostMessageA(window, queuedMessage, 0, 0);
    PostMessageA(window, WM_CHAR, 'x', 0);
    FlushEvents(everyEvent & ~updateMask, 0);
    EXPECT_TRUE(isQueued(queuedMessage, queuedMessage));
    FlushEvents(everyEvent, 0);
    EXPECT_FALSE(isQueued(0, 0));
    EXPECT_EQ(std::count(dispatched.begin(), dispatched.end(), queuedMessage), 1);
    EXPECT_EQ(std::count(dispatched.begin(), dispatched.end(), static_cast<UINT>(WM_CHAR)), 0);
}

TEST_F(Events, PaintMessagesAreServed)
{
    InvalidateRect(window, nullptr, FALSE);
    FlushEvents(updateMask, updateMask);
    EXPECT_TRUE(isQueued(WM_PAINT, WM_PAINT)) << "the stop mask named it";
    FlushEvents(updateMask, 0);
    EXPECT_FALSE(isQueued(WM_PAINT, WM_PAINT));
    EXPECT_EQ(std::count(dispatched.begin(), dispatched.end(), static_cast<UINT>(WM_PAINT)), 1);
}

TEST_F(Events, AFlushEndsThoughAWindowStaysToBePainted)
{
    isLeftUnpainted = true;
    InvalidateRect(window, nullptr, FALSE);
    FlushEvents(updateMask, 0);
    FlushEvents(everyEvent, 0);
    isLeftUnpainted = false;
    EXPECT_EQ(std::count(dispatched.begin(), dispatched.end(), static_cast<UINT>(WM_PAINT)), 2);
    EXPECT_TRUE(isQueued(WM_PAINT, WM_PAINT)) << "the host still has to paint it";
}

TEST_F(Events, AFlushGoesOnBehindAMessageWhoseWindowEnds)
{
    // It ends when the press is hit-tested the second time: seen already, and not yet removed.
    static int hitTests;
    hitTests = 0;
    HWND over = CreateWindowExA(WS_EX_TOPMOST | WS_EX_NOACTIVATE, "Static", "", WS_POPUP | WS_VISIBLE, 140, 90, 40, 40, nullptr,
                                nullptr, GetModuleHandleA(nullptr), nullptr);
    clearQueue();
    auto ending = [](HWND handle, UINT message, WPARAM wParam, LPARAM lParam) -> LRESULT {
        if (message == WM_MOUSEACTIVATE)
            return MA_NOACTIVATE;
        if (message == WM_NCHITTEST && ++hitTests == 2)
            DestroyWindow(handle);
        return message == WM_NCHITTEST ? HTCLIENT : DefWindowProcA(handle, message, wParam, lParam);
    };
    SetWindowLongPtrA(over, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(static_cast<WNDPROC>(ending)));
    input.pressButton();
    input.releaseButton();
    FlushEvents(mDownMask | mUpMask, 0);
    EXPECT_FALSE(IsWindow(over));
    EXPECT_FALSE(isQueued(WM_LBUTTONDOWN, WM_LBUTTONUP));
}

TEST_F(Events, ARequestToQuitIsNeitherAnEventNorFlushed)
{
    PostQuitMessage(16);
    EXPECT_FALSE(EventAvail(everyEvent, &event));
    FlushEvents(mDownMask | keyDownMask, 0);
    FlushEvents(everyEvent, 0);
    MSG message;
    ASSERT_TRUE(PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE));
    EXPECT_EQ(message.message, static_cast<UINT>(WM_QUIT));
    EXPECT_EQ(message.wParam, 16u);
}

TEST_F(Events, TicksAreSixtiethsOfASecond)
{
    UInt64 before = UInt64{GetTickCount()} * 6 / 100;
    UInt32 ticks = TickCount();
    UInt64 after = UInt64{GetTickCount()} * 6 / 100;
    EXPECT_TRUE(ticks >= before && ticks <= after);
    UInt32 start = TickCount(), end;
    Delay(3, &end);
    EXPECT_GE(end, start + 3);
    EXPECT_GE(TickCount(), end);
    Delay(~0u, nullptr); // overflows, and ends at once
    EXPECT_EQ(GetDblTime(), GetDoubleClickTime() * 6 / 100);
}

TEST_F(Events, TheMouseIsInThePortsCoordinates)
{
    InitGraf(nullptr);
    Point mouse;
    MacSetPort(gDesktopWindow);
    GetMouse(&mouse);
    EXPECT_EQ(mouse, (Point{40, 50})) << "the desktop's are the main window's";
    MacSetPort(nullptr);
    SetOrigin(1000, 2000);
    GetMouse(&mouse);
    EXPECT_EQ(mouse, (Point{2040, 1050}));
    MTBX_ShutdownGraf();
}

} // namespace
