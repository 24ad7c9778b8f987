#include "screen/replayed_program.h"

#include "button_looks.h"
#include "held_buttons.h"
#include "png_writer.h"
#include "program_thread.h"
#include "program_windows.h"
#include "screen/injection.h"
#include "window_picture.h"

#include <algorithm>
#include <cstdio>
#include <utility>

using namespace replay;

namespace win32::screen {
namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

SIZE realScreen()
{
    return {GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
}

// What the replay takes for the screen, at the corner of the first monitor. The player may begin before this file's
// variables do.
SIZE &screen()
{
    static SIZE size = realScreen();
    return size;
}

// What lies outside is moved inside when there is room for it.
LONG placed(LONG start, LONG size, LONG available)
{
    return size <= available ? std::clamp<LONG>(start, 0, available - size) : start;
}

// As on a screen of the replay's size. Maximised windows hang over it with their frames.
void place(HWND window)
{
    RECT rect;
    GetWindowRect(window, &rect);
    SIZE size{rect.right - rect.left, rect.bottom - rect.top};
    POINT corner{placed(rect.left, size.cx, screen().cx), placed(rect.top, size.cy, screen().cy)};
    if (IsZoomed(window)) {
        LONG overlap = GetSystemMetrics(SM_CXFRAME);
        corner = {-overlap, -overlap};
        size = {screen().cx + 2 * overlap, screen().cy + 2 * overlap};
    }
    RECT wanted{corner.x, corner.y, corner.x + size.cx, corner.y + size.cy};
    if (!EqualRect(&wanted, &rect))
        SetWindowPos(window, nullptr, corner.x, corner.y, size.cx, size.cy,
                     SWP_NOZORDER | SWP_NOACTIVATE | SWP_ASYNCWINDOWPOS);
}

// The real screen may be larger than the replay's, so windows may open outside of that. Once for each, and again when
// it is maximised: otherwise the program or the replay may move it out. Menus and the like are left where they are.
void placeNewWindows()
{
    using Placed = std::pair<HWND, bool>; // and whether it is maximised
    static std::vector<Placed> placedWindows;
    if (screen().cx == realScreen().cx && screen().cy == realScreen().cy)
        return;
    std::vector<Placed> now;
    for (HWND window : windowsOnDesktop()) {
        if (!IsWindowVisible(window) || !hasCaption(window))
            continue;
        now.emplace_back(window, IsZoomed(window) != FALSE);
        if (std::find(placedWindows.begin(), placedWindows.end(), now.back()) == placedWindows.end())
            place(window);
    }
    placedWindows = std::move(now);
}

bool isIdle(milliseconds longest)
{
    return workOfProgram(longest) == Found::Nothing && !windowsOnDesktop().empty();
}

// A program that follows the mouse without reading its messages answers nothing; it is done when it has looked a few
// times at the buttons. looks: their number when it last read messages.
bool isTrackingOrIdle(unsigned &looks, milliseconds longest)
{
    constexpr unsigned looksOfLoop = 6; // some programs look twice before they see where the mouse is
    constexpr milliseconds longestAtOnce{2};
    if (buttonLooks() - looks >= looksOfLoop)
        return true;
    Found found = workOfProgram(std::min(longest, longestAtOnce));
    if (found == Found::Work)
        looks = buttonLooks();
    return found == Found::Nothing;
}

} // namespace

void startPlayerThread(void (*play)())
{
    std::thread([play] {
        injectMove({0, 0}); // wherever a person left it
        play();
    }).detach();
}

// Without the libraries' farewells, which would wait for locks of threads that are no more.
void endProcess(int status)
{
    TerminateProcess(GetCurrentProcess(), static_cast<UINT>(status));
    abort();
}

void quitProgram()
{
    postQuitToProgram();
}

bool waitForIdle(milliseconds longest)
{
    placeNewWindows();
    Clock::time_point end = Clock::now() + longest;
    unsigned looks = buttonLooks();
    return waitFor(
        [&] {
            auto left = std::chrono::duration_cast<milliseconds>(end - Clock::now());
            return holdsButton() ? isTrackingOrIdle(looks, left) : isIdle(left);
        },
        longest);
}

bool isLockOn(BYTE virtualKey)
{
    return isLockOnInProgram(virtualKey);
}

std::vector<std::string> shownTitles()
{
    std::vector<std::string> titles;
    for (HWND window : shownWindows())
        titles.push_back(titleOf(window));
    return titles;
}

std::string frontTitle()
{
    HWND front = frontOnDesktop();
    for (HWND inside = front; inside; inside = topmostWithTitle(inside))
        front = inside;
    return front ? titleOf(front) : std::string();
}

// The replay's screen is a part of the real one; its depth is not looked at.
std::string screenProblem(const std::string &mode)
{
    int width = 0, height = 0;
    if (sscanf(mode.c_str(), "%dx%d", &width, &height) != 2 || width <= 0 || height <= 0)
        return "\"" + mode + "\" is no size of a screen";
    if (width > screen().cx || height > screen().cy)
        return "the screen is " + std::to_string(screen().cx) + "x" + std::to_string(screen().cy);
    screen() = {width, height};
    return "";
}

std::optional<COLORREF> pixelAt(POINT point)
{
    RECT all{0, 0, screen().cx, screen().cy};
    if (!PtInRect(&all, point))
        return std::nullopt;
    WindowPicture picture({point.x, point.y, point.x + 1, point.y + 1});
    return picture.colorAt(0, 0);
}

bool saveScreen(const std::string &path, WithCursor withCursor)
{
    WindowPicture picture({0, 0, screen().cx, screen().cy});
    if (withCursor == WithCursor::Yes)
        picture.drawCursor();
    return writePng(path, screen().cx, screen().cy, picture.rgbBytes());
}

} // namespace win32::screen
