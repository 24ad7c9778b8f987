// The display on SDL's driver without a desktop: what the screen shows arrives in its window, and what happens there
// arrives at the program.
#include <TestWindows.h>

#include <gtest/gtest.h>

#include <windows.h>

#include <SDL.h>
#include <dlfcn.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>
#include <string>
#include <thread>

namespace {

const std::string recording = testing::TempDir() + "display_test_" + std::to_string(getpid());

// Before anything asks for the screen.
const bool isPrepared = [] {
    setenv("WIN32_RECORD", recording.c_str(), 1);
    setenv("WIN32_DISPLAY", "window", 1);
    setenv("SDL_VIDEODRIVER", "dummy", 1);
    setenv("WIN32_SCREEN", "320x240x32", 1);
    return true;
}();

void pump()
{
    MSG message;
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
}

template <class Condition> bool comesTrue(Condition condition)
{
    for (int i = 0; i < 1000; ++i) {
        pump();
        if (condition())
            return true;
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return false;
}

// SDL as the display has loaded it: both see the same events and windows.
template <class Function> Function sdl(const char *name)
{
    static void *library = dlopen("libSDL2-2.0.so.0", RTLD_NOW);
    return reinterpret_cast<Function>(dlsym(library, name));
}
#define SDL_CALL(name) sdl<decltype(&SDL_##name)>("SDL_" #name)

class Display : public testing::Test {
protected:
    void SetUp() override
    {
        SetForegroundWindow(window_);
        ASSERT_TRUE(comesTrue([] { return SDL_CALL(WasInit)(SDL_INIT_VIDEO) && SDL_CALL(GetWindowFromID)(1); }));
        move(5, 5);
        ASSERT_TRUE(comesTrue([] {
            POINT point;
            GetCursorPos(&point);
            return point.x == 5 && point.y == 5;
        }));
        windows_.noted.clear();
    }

    static void push(std::vector<SDL_Event> events)
    {
        SDL_CALL(PeepEvents)(events.data(), static_cast<int>(events.size()), SDL_ADDEVENT, 0, 0);
    }
    static void move(int x, int y)
    {
        SDL_Event event{};
        event.motion = {SDL_MOUSEMOTION, 0, 1, 0, 0, x, y, 0, 0};
        push({event});
    }
    static SDL_Event button(Uint32 type, Uint8 number, int x, int y)
    {
        SDL_Event event{};
        event.button = {type, 0, 1, 0, number, Uint8(type == SDL_MOUSEBUTTONDOWN), 1, 0, x, y};
        return event;
    }
    static SDL_Event windowEvent(Uint8 kind)
    {
        SDL_Event event{};
        event.window.type = SDL_WINDOWEVENT;
        event.window.windowID = 1;
        event.window.event = kind;
        return event;
    }
    static SDL_Event key(Uint32 type, SDL_Scancode place, int code, int modifiers = 0)
    {
        SDL_Event event{};
        event.key.type = type;
        event.key.keysym = {place, code, static_cast<Uint16>(modifiers), 0};
        return event;
    }
    static SDL_Event text(const char *characters)
    {
        SDL_Event event{};
        event.text.type = SDL_TEXTINPUT;
        strncpy(event.text.text, characters, sizeof event.text.text - 1);
        return event;
    }
    // A key goes down, with the text that it makes, and up.
    static void stroke(SDL_Scancode place, int code, const char *characters, int modifiers = 0)
    {
        std::vector<SDL_Event> events{key(SDL_KEYDOWN, place, code, modifiers)};
        if (characters)
            events.push_back(text(characters));
        events.push_back(key(SDL_KEYUP, place, code, modifiers));
        push(events);
    }

    // What the window hears of keys and characters up to F12, which ends each test of them.
    std::string keysHeard()
    {
        stroke(SDL_SCANCODE_F12, SDLK_F12, nullptr);
        std::string heard;
        comesTrue(
            [&] { return !windows_.notedOf(window_, {WM_KEYUP}).empty() && windows_.noted.back().wParam == VK_F12; });
        for (const TestWindows::Noted &each : windows_.noted) {
            bool isDown = each.message == WM_KEYDOWN || each.message == WM_SYSKEYDOWN;
            char part[40] = "";
            if (each.wParam == VK_F12)
                break;
            if (isDown || each.message == WM_KEYUP || each.message == WM_SYSKEYUP)
                snprintf(part, sizeof part, "%s%s%02x/%02x ", each.message >= WM_SYSKEYDOWN ? "alt" : "",
                         isDown ? "+" : "-", unsigned(each.wParam & 0xff), unsigned(each.lParam >> 16 & 0x1ff));
            else if (each.message == WM_CHAR || each.message == WM_SYSCHAR)
                snprintf(part, sizeof part, "'%c' ", char(each.wParam));
            heard += part;
        }
        windows_.noted.clear();
        return heard;
    }

    static void resize(int width, int height) { SDL_CALL(SetWindowSize)(SDL_CALL(GetWindowFromID)(1), width, height); }
    // Whether moving there in the window moves the program's mouse to the point.
    static bool isMouseAt(int x, int y, POINT expected)
    {
        move(x, y);
        pump();
        POINT point;
        GetCursorPos(&point);
        return point.x == expected.x && point.y == expected.y;
    }

    // Only while the display has nothing to do: it owns the surface.
    static Uint32 shownPixel(int x, int y)
    {
        SDL_Surface *surface = SDL_CALL(GetWindowSurface)(SDL_CALL(GetWindowFromID)(1));
        return reinterpret_cast<Uint32 *>(static_cast<char *>(surface->pixels) + y * surface->pitch)[x] & 0xffffff;
    }

    void fill(const RECT &rect, COLORREF color)
    {
        HDC context = GetDC(window_);
        HBRUSH brush = CreateSolidBrush(color);
        FillRect(context, &rect, brush);
        DeleteObject(brush);
        ReleaseDC(window_, context);
    }

    TestWindows windows_;
    HWND window_ = windows_.make(WS_POPUP | WS_VISIBLE, {0, 0, 200, 150});
};

TEST_F(Display, ShowsWhatIsDrawn)
{
    fill({10, 10, 20, 20}, RGB(0xff, 0x80, 0x10));
    EXPECT_TRUE(comesTrue([] { return shownPixel(15, 15) == 0xff8010; }));
    EXPECT_EQ(shownPixel(300, 200), 0x3a6ea5u);
    fill({100, 100, 101, 101}, RGB(1, 2, 3));
    EXPECT_TRUE(comesTrue([] { return shownPixel(100, 100) == 0x010203; }));
    EXPECT_EQ(shownPixel(15, 15), 0xff8010u);
}

TEST_F(Display, ALargerWindowShowsLargerPixels)
{
    fill({10, 10, 20, 20}, RGB(0xff, 0x80, 0x10));
    resize(700, 480);
    EXPECT_TRUE(comesTrue([] { return isMouseAt(30 + 2 * 100 + 1, 2 * 50, {100, 50}); }));
    EXPECT_EQ(shownPixel(30 + 20, 20), 0xff8010u);
    EXPECT_EQ(shownPixel(30 + 39, 39), 0xff8010u);
    EXPECT_NE(shownPixel(30 + 40, 39), 0xff8010u);
    EXPECT_EQ(shownPixel(29, 100), 0x202020u);
    resize(320, 240);
    EXPECT_TRUE(comesTrue([] { return isMouseAt(120, 60, {120, 60}); }));
    EXPECT_EQ(shownPixel(15, 15), 0xff8010u);
}

TEST_F(Display, BringsTheMouse)
{
    SDL_Event turn{};
    turn.wheel.type = SDL_MOUSEWHEEL;
    turn.wheel.preciseY = -0.5f;
    push({button(SDL_MOUSEBUTTONDOWN, SDL_BUTTON_LEFT, 50, 60), button(SDL_MOUSEBUTTONUP, SDL_BUTTON_LEFT, 52, 61),
          button(SDL_MOUSEBUTTONDOWN, SDL_BUTTON_RIGHT, 52, 61), turn, turn, turn});
    ASSERT_TRUE(comesTrue([&] { return !windows_.notedOf(window_, {WM_MOUSEWHEEL}).empty(); }));
    EXPECT_EQ(windows_.notedOf(window_, {WM_LBUTTONDOWN, WM_LBUTTONUP, WM_RBUTTONDOWN, WM_MOUSEWHEEL}),
              (std::vector<UINT>{WM_LBUTTONDOWN, WM_LBUTTONUP, WM_RBUTTONDOWN, WM_MOUSEWHEEL}));
    for (const TestWindows::Noted &each : windows_.noted) {
        if (each.message == WM_LBUTTONDOWN) {
            EXPECT_EQ(each.lParam, MAKELPARAM(50, 60));
        } else if (each.message == WM_MOUSEWHEEL) {
            EXPECT_EQ(static_cast<short>(HIWORD(each.wParam)), -WHEEL_DELTA);
        }
    }
    // A button that is down when another program takes over does not stay so.
    push({windowEvent(SDL_WINDOWEVENT_FOCUS_LOST)});
    EXPECT_TRUE(comesTrue([&] { return !windows_.notedOf(window_, {WM_RBUTTONUP}).empty(); }));
}

TEST_F(Display, BringsKeysWithTheirPlacesAndNumbers)
{
    stroke(SDL_SCANCODE_A, 'a', "a");
    stroke(SDL_SCANCODE_RIGHT, SDLK_RIGHT, nullptr);
    stroke(SDL_SCANCODE_KP_ENTER, SDLK_KP_ENTER, nullptr);
    EXPECT_EQ(keysHeard(), "+41/1e 'a' -41/1e +27/14d -27/14d +0d/11c '\r' -0d/11c ");
    push({key(SDL_KEYDOWN, SDL_SCANCODE_RSHIFT, SDLK_RSHIFT, KMOD_RSHIFT)});
    stroke(SDL_SCANCODE_1, '1', "!", KMOD_RSHIFT);
    push({key(SDL_KEYUP, SDL_SCANCODE_RSHIFT, SDLK_RSHIFT)});
    EXPECT_EQ(keysHeard(), "+10/36 +31/02 '!' -31/02 -10/36 ");
    stroke(SDL_SCANCODE_KP_4, SDLK_KP_4, nullptr);
    EXPECT_EQ(keysHeard(), "+25/4b -25/4b ");
    stroke(SDL_SCANCODE_KP_4, SDLK_KP_4, "4", KMOD_NUM);
    EXPECT_EQ(keysHeard(), "+90/145 -90/145 +64/4b '4' -64/4b +90/145 -90/145 ");
}

TEST_F(Display, KeysAreWhatTheUsersLayoutMakesOfThem)
{
    stroke(SDL_SCANCODE_Y, 'z', "z"); // another place for the same letter
    EXPECT_EQ(keysHeard(), "+5a/15 'z' -5a/15 ");
    stroke(SDL_SCANCODE_SEMICOLON, 0xf6, "\xc3\xb6"); // a letter that the layer's own layout lacks
    EXPECT_EQ(keysHeard(), "+e7/f6 '\xf6' -e7/f6 ");
    stroke(SDL_SCANCODE_GRAVE, '^', nullptr); // a dead key
    stroke(SDL_SCANCODE_E, 'e', "\xc3\xaa");
    EXPECT_EQ(keysHeard(), "+e7/ea '\xea' -e7/ea ");
    stroke(SDL_SCANCODE_A, 'a', "A", KMOD_CAPS);
    EXPECT_EQ(keysHeard(), "+14/3a -14/3a +41/1e 'A' -41/1e +14/3a -14/3a ");
    // The third sign of a key is no command.
    push({key(SDL_KEYDOWN, SDL_SCANCODE_RALT, SDLK_RALT, KMOD_RALT)});
    stroke(SDL_SCANCODE_Q, 'q', "@", KMOD_RALT);
    push({key(SDL_KEYUP, SDL_SCANCODE_RALT, SDLK_RALT)});
    EXPECT_NE(keysHeard().find("+11/1d +e7/40 '@' -e7/40 "), std::string::npos);
    // Commands make no characters of their own.
    push({key(SDL_KEYDOWN, SDL_SCANCODE_LCTRL, SDLK_LCTRL, KMOD_LCTRL)});
    stroke(SDL_SCANCODE_C, 'c', "c", KMOD_LCTRL);
    push({key(SDL_KEYUP, SDL_SCANCODE_LCTRL, SDLK_LCTRL)});
    EXPECT_EQ(keysHeard(), "+11/1d +43/2e '\x03' -43/2e -11/1d ");
}

TEST_F(Display, IsRecordedAsAReplay)
{
    stroke(SDL_SCANCODE_Y, 'z', "z"); // named by what it is for the user, not by its place
    push({button(SDL_MOUSEBUTTONDOWN, SDL_BUTTON_RIGHT, 50, 60), button(SDL_MOUSEBUTTONUP, SDL_BUTTON_RIGHT, 50, 60)});
    stroke(SDL_SCANCODE_F11, SDLK_F11, nullptr);
    keysHeard();
    std::ifstream file(recording);
    std::string steps(std::istreambuf_iterator<char>(file), {});
    remove(recording.c_str());
    EXPECT_EQ(steps.find("screen \"320x240x32\"\n"), 0u);
    size_t key = steps.find("key Z\n");
    ASSERT_NE(key, std::string::npos) << steps;
    EXPECT_NE(steps.find("move 50 60\npress right\nrelease right\nkey F11\n", key), std::string::npos) << steps;
}

TEST_F(Display, KeysThatAreDownGoUpWhenAnotherProgramTakesOver)
{
    push({key(SDL_KEYDOWN, SDL_SCANCODE_LCTRL, SDLK_LCTRL, KMOD_LCTRL), windowEvent(SDL_WINDOWEVENT_FOCUS_LOST),
          key(SDL_KEYUP, SDL_SCANCODE_LCTRL, SDLK_LCTRL)});
    EXPECT_EQ(keysHeard(), "+11/1d -11/1d ");
}

TEST_F(Display, SharesTheClipboardsText)
{
    HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, 7);
    memcpy(GlobalLock(block), "a\r\n\xe9\r\n", 7);
    GlobalUnlock(block);
    ASSERT_TRUE(OpenClipboard(window_));
    EmptyClipboard();
    SetClipboardData(CF_TEXT, block);
    CloseClipboard();
    auto outside = [] {
        char *found = SDL_CALL(GetClipboardText)();
        std::string result = found;
        SDL_CALL(free)(found);
        return result;
    };
    EXPECT_TRUE(comesTrue([&] { return outside() == "a\n\xc3\xa9\n"; }));

    // What is promised is asked for when the user goes to another program.
    windows_.handler = [](const TestWindows::Noted &noted, LRESULT &) {
        if (noted.message != WM_RENDERFORMAT)
            return false;
        HGLOBAL late = GlobalAlloc(GMEM_MOVEABLE, 5);
        memcpy(GlobalLock(late), "late", 5);
        GlobalUnlock(late);
        SetClipboardData(CF_TEXT, late);
        return true;
    };
    ASSERT_TRUE(OpenClipboard(window_));
    EmptyClipboard();
    SetClipboardData(CF_TEXT, nullptr);
    CloseClipboard();
    push({windowEvent(SDL_WINDOWEVENT_FOCUS_LOST)});
    EXPECT_TRUE(comesTrue([&] { return outside() == "late"; }));

    // A text from outside waits until the program has closed the clipboard.
    ASSERT_TRUE(OpenClipboard(window_));
    SDL_CALL(SetClipboardText)("x\ny");
    SDL_Event update{};
    update.type = SDL_CLIPBOARDUPDATE;
    push({update});
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
    CloseClipboard();
    EXPECT_TRUE(comesTrue([&] { return GetClipboardOwner() == nullptr; }));
    ASSERT_TRUE(OpenClipboard(nullptr));
    EXPECT_STREQ(static_cast<const char *>(GlobalLock(GetClipboardData(CF_TEXT))), "x\r\ny");
    EmptyClipboard();
    CloseClipboard();
    EXPECT_EQ(windows_.notedOf(window_, {WM_DESTROYCLIPBOARD}).size(), 2u);
}

TEST_F(Display, HidesAndShowsTheCursorAsTheProgramDoes)
{
    auto isShown = [] { return SDL_CALL(ShowCursor)(SDL_QUERY) == SDL_ENABLE; };
    EXPECT_TRUE(comesTrue([&] { return isShown(); }));
    ShowCursor(FALSE);
    EXPECT_TRUE(comesTrue([&] { return !isShown(); }));
    ShowCursor(TRUE);
    EXPECT_TRUE(comesTrue([&] { return isShown(); }));
}

TEST_F(Display, ClosingItAsksTheWindowInFront)
{
    HWND behind = windows_.make(WS_POPUP | WS_VISIBLE, {210, 0, 250, 40});
    SetForegroundWindow(window_);
    push({windowEvent(SDL_WINDOWEVENT_CLOSE)});
    EXPECT_TRUE(comesTrue([&] { return !IsWindow(window_); }));
    EXPECT_EQ(windows_.notedOf(window_, {WM_SYSCOMMAND, WM_CLOSE, WM_DESTROY}),
              (std::vector<UINT>{WM_SYSCOMMAND, WM_CLOSE, WM_DESTROY}));
    EXPECT_TRUE(IsWindow(behind));
}

} // namespace
