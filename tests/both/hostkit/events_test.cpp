// Events of the host kit: their order, masks, sleep, and what a program gets of mouse and keyboard.
#include "HostKitTest.h"
#include "TemporaryFile.h"

namespace {

using Names = std::vector<std::string>;

class HostKitEvents : public HostKitTest {
protected:
    WindowPtr openAs(SRefCon refCon, const Rect &bounds)
    {
        WindowPtr window = open(bounds);
        SetWRefCon(window, refCon);
        return window;
    }
    void type(WORD key) { mouse().type(key); }
    static void activateProgram(bool isActive) { SendMessageA(hWndMain, WM_ACTIVATEAPP, isActive, 0); }
};

TEST_F(HostKitEvents, ComeInTheOrderOfAMacintosh)
{
    openAs(1, ltrb(20, 40, 120, 140));
    openAs(2, ltrb(150, 40, 250, 140));
    activateProgram(false);
    activateProgram(true);
    type('A');
    type('B');
    Names expected = {"activate 2", "key a", "key b", "update 2", "update 1"};
    EXPECT_EQ(drain(), expected) << "a switch there and back is none";
    activateProgram(false);
    type('C');
    EXPECT_EQ(drain(), (Names{"deactivate 2", "key c", "suspend"}));
    EXPECT_FALSE(gAppIsActive);
    activateProgram(true);
    EXPECT_EQ(drain(), (Names{"activate 2", "resume"}));
    EXPECT_TRUE(gAppIsActive);
}

TEST_F(HostKitEvents, OfOtherKindsWaitTheirTurn)
{
    openAs(1, ltrb(20, 40, 120, 140));
    gTheEvent.what = diskEvt;
    type('A');
    EXPECT_EQ(drain(updateMask), Names{"update 1"});
    EXPECT_EQ(drain(keyDownMask), Names{"key a"}) << "the program's own event is not lost by one that passes it";
    EventRecord event;
    EXPECT_FALSE(HostKitWaitNextEvent(keyDownMask, &event, 0, nullptr));
    EXPECT_EQ(+event.what, nullEvent);
    EXPECT_TRUE(HostKitEventAvail(everyEvent, &event));
    EXPECT_EQ(drain(), (Names{"other 7", "activate 1"}));
}

TEST_F(HostKitEvents, FlushedGoUpToTheStop)
{
    type('A');
    moveTo({400, 400});
    mouse().pressButton();
    mouse().releaseButton();
    type('B');
    HostKitFlushEvents(keyDownMask, mDownMask);
    EXPECT_EQ(drain(), (Names{"press", "release", "key b"}));
    for (int i = 0; i < 100; ++i)
        type('C');
    gTheEvent.what = keyDown;
    HostKitFlushEvents(everyEvent, 0);
    EXPECT_EQ(drain(), Names{});
}

TEST_F(HostKitEvents, OfTheMouseAreFoundBehindAnyNumberOfKeys)
{
    for (int i = 0; i < 200; ++i)
        type('A');
    mouse().pressButton();
    EXPECT_EQ(+waitFor(mDownMask).what, mouseDown);
    release();
    Names rest = drain();
    EXPECT_TRUE(!rest.empty() && rest.size() < 64) << rest.size();
}

TEST_F(HostKitEvents, AreAllThereWhenTheProgramWasBusy)
{
    for (int i = 0; i < 150; ++i)
        type(static_cast<WORD>('A' + i % 26));
    EventRecord event;
    EXPECT_FALSE(HostKitWaitNextEvent(updateMask, &event, 1, nullptr));
    Names typed = drain();
    ASSERT_EQ(typed.size(), 150u);
    for (size_t i = 0; i < typed.size(); ++i)
        EXPECT_EQ(typed[i], "key " + std::string(1, static_cast<char>('a' + i % 26)));
}

TEST_F(HostKitEvents, AreNotKeptByAFloodOfMessages)
{
    type('A');
    for (int i = 0; i < 3000; ++i)
        PostMessageA(hWndMain, WM_USER, 0, 0);
    EXPECT_EQ(nameOf(waitFor(keyDownMask)), "key a");
}

TEST_F(HostKitEvents, EndTheSleepAtOnce)
{
    EventRecord event;
    DWORD start = GetTickCount();
    std::thread user([this] {
        Sleep(60);
        type('A');
    });
    EXPECT_TRUE(HostKitWaitNextEvent(everyEvent, &event, 600, nullptr));
    user.join();
    EXPECT_LT(GetTickCount() - start, 2000u);
    drain();
    start = GetTickCount();
    EXPECT_FALSE(HostKitWaitNextEvent(everyEvent, &event, 6, nullptr));
    DWORD slept = GetTickCount() - start;
    EXPECT_TRUE(slept >= 95 && slept < 1500) << slept;
}

TEST_F(HostKitEvents, LetTransfersCompleteWhileTheProgramSleeps)
{
    static DWORD written;
    written = 0;
    TemporaryFile file("hostkit-transfer");
    HANDLE handle = CreateFileA(file.path(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_FLAG_OVERLAPPED, nullptr);
    OVERLAPPED transfer = {};
    WriteFileEx(handle, "text", 4, &transfer, [](DWORD, DWORD count, OVERLAPPED *) { written = count; });
    EventRecord event;
    HostKitWaitNextEvent(everyEvent, &event, 12, nullptr);
    CloseHandle(handle);
    EXPECT_EQ(written, 4u);
}

TEST_F(HostKitEvents, TellOfTheMouseOutsideItsRegion)
{
    RgnHandle region = NewRgn();
    MacSetRectRgn(region, 100, 100, 200, 200);
    EventRecord event;
    moveTo({150, 150});
    EXPECT_FALSE(HostKitWaitNextEvent(everyEvent, &event, 0, region));
    moveTo({150, 250});
    ASSERT_TRUE(HostKitWaitNextEvent(everyEvent, &event, 0, region));
    EXPECT_EQ(nameOf(event), "move");
    EXPECT_TRUE(event.where.h == 250 && event.where.v == 150);
    EXPECT_FALSE(HostKitWaitNextEvent(everyEvent, &event, 0, region)) << "it has not moved since";
    moveTo({150, 260});
    EXPECT_FALSE(HostKitWaitNextEvent(mDownMask, &event, 0, region));
    DisposeRgn(region);
}

TEST_F(HostKitEvents, OfKeysCarryMacintoshCodesAndCharacters)
{
    struct Case {
        WORD key;
        UInt32 code, character;
    };
    for (Case each : {Case{'A', 0, 'a'}, Case{'M', 46, 'm'}, Case{'7', 26, '7'}, Case{VK_RETURN, 36, 13}, Case{VK_BACK, 51, 8},
                      Case{VK_ESCAPE, 53, 27}, Case{VK_LEFT, 123, 28}, Case{VK_UP, 126, 30}, Case{VK_PRIOR, 116, 11},
                      Case{VK_DELETE, 117, 127}, Case{VK_F5, 96, 16}, Case{VK_NUMPAD4, 86, '4'}, Case{VK_SPACE, 49, ' '}}) {
        type(each.key);
        EventRecord event = waitFor(keyDownMask);
        EXPECT_EQ((event.message & keyCodeMask) >> 8, each.code) << each.key;
        EXPECT_EQ(event.message & charCodeMask, each.character) << each.key;
        EXPECT_EQ(event.modifiers & (cmdKey | optionKey | shiftKey), 0);
    }
    EXPECT_EQ(drain(), Names{}) << "a release is no event";
}

TEST_F(HostKitEvents, OfKeysKnowTheModifiers)
{
    mouse().press(VK_CONTROL);
    type('S');
    type(VK_OEM_PLUS);
    mouse().release(VK_CONTROL);
    mouse().press(VK_SHIFT);
    type('S');
    mouse().release(VK_SHIFT);
    EventRecord save = waitFor(keyDownMask), plus = waitFor(keyDownMask), capital = waitFor(keyDownMask);
    EXPECT_EQ(save.message & charCodeMask, 's');
    EXPECT_EQ(save.modifiers & (cmdKey | shiftKey), cmdKey) << "as they were when the key was pressed";
    EXPECT_EQ(plus.message & charCodeMask, '=');
    EXPECT_EQ(capital.message & charCodeMask, 'S');
    EXPECT_EQ(capital.modifiers & (cmdKey | shiftKey), shiftKey);
    mouse().press('X');
    mouse().press('X');
    mouse().press('X');
    mouse().release('X');
    EXPECT_EQ(drain(), (Names{"key x", "repeat"})) << "repeats do not pile up";
}

TEST_F(HostKitEvents, OfTheWheelGoToTheWindowUnderTheMouse)
{
    WindowPtr window = openAs(1, ltrb(20, 40, 120, 140));
    drain();
    moveTo({100, 60});
    static WindowPtr turned;
    static SInt16 notches;
    turned = nullptr;
    notches = 0;
    HostKitSetWheelProc([](WindowPtr under, Point, SInt16 turn) {
        turned = under;
        notches = static_cast<SInt16>(notches + turn);
    });
    POINT point;
    GetCursorPos(&point);
    auto turn = [&](int delta) { SendMessageA(hWndMain, WM_MOUSEWHEEL, MAKEWPARAM(0, delta), MAKELPARAM(point.x, point.y)); };
    turn(240);
    EXPECT_TRUE(turned == window && notches == 2);
    turn(-60);
    turn(-60);
    EXPECT_EQ(notches, 1) << "fine wheels turn by parts of a notch";
    HostKitSetWheelProc(nullptr);
    turn(-120);
    Names keys = drain();
    EXPECT_EQ(keys, Names(3, "key \x1f"));
    turn(32000);
    EXPECT_LT(drain().size(), 64u);
}

TEST_F(HostKitEvents, AskToQuitOnce)
{
    for (int i = 0; i < 3; ++i)
        PostMessageA(hWndMain, WM_CLOSE, 0, 0);
    PostQuitMessage(0);
    EXPECT_FALSE(SendMessageA(hWndMain, WM_QUERYENDSESSION, 0, 0)) << "not before the user was asked";
    EventRecord event = waitFor(keyDownMask);
    EXPECT_EQ(event.message & charCodeMask, 'q');
    EXPECT_EQ(+event.modifiers, cmdKey);
    EXPECT_EQ(drain(), Names{});
}

TEST_F(HostKitEvents, OfAPressLastUntilTheRelease)
{
    EXPECT_FALSE(HostKitStillDown());
    pressAt({400, 400});
    EXPECT_TRUE(HostKitStillDown());
    EXPECT_TRUE(HostKitWaitMouseUp());
    mouse().releaseButton();
    mouse().pressButton();
    EXPECT_FALSE(HostKitStillDown()) << "that is another press";
    EXPECT_FALSE(HostKitWaitMouseUp());
    mouse().releaseButton();
    EXPECT_EQ(drain(), (Names{"press", "release"})) << "only its own release went";
    EXPECT_EQ(GetCapture(), nullptr);
}

TEST_F(HostKitEvents, LetGoOfAMouseWhoseReleaseNobodySaw)
{
    WindowPtr window = open(ltrb(20, 40, 120, 140));
    drain();
    pressAt({60, 60});
    EXPECT_EQ(GetCapture(), nativeOf(window));
    mouse().releaseButton();
    MSG message;
    while (PeekMessageA(&message, nullptr, WM_LBUTTONUP, WM_LBUTTONUP, PM_REMOVE)) {
    }
    drain();
    EXPECT_EQ(GetCapture(), nullptr);
}

} // namespace
