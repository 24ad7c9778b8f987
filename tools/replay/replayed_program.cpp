#include "screen/replayed_program.h"

#include "button_looks.h"
#include "held_buttons.h"
#include "png_writer.h"
#include "program_thread.h"
#include "program_windows.h"
#include "window_picture.h"

#include <algorithm>
#include <cstdio>

using namespace replay;

namespace win32::screen {
namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

// What the replay takes for the screen, at the corner of the first monitor. The player may begin before this file's
// variables do.
SIZE &screen()
{
    static SIZE size{GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
    return size;
}

// On the replay's screen, as large as there: maximised ones hang over it with their frames.
void place(HWND window)
{
    RECT rect;
    GetWindowRect(window, &rect);
    LONG overlap = IsZoomed(window) ? GetSystemMetrics(SM_CXFRAME) : 0;
    LONG width = std::min<LONG>(rect.right - rect.left, screen().cx + 2 * overlap);
    LONG height = std::min<LONG>(rect.bottom - rect.top, screen().cy + 2 * overlap);
    LONG left = std::clamp<LONG>(rect.left, -overlap, screen().cx + overlap - width);
    LONG top = std::clamp<LONG>(rect.top, -overlap, screen().cy + overlap - height);
    bool isInside =
        left == rect.left && top == rect.top && width == rect.right - rect.left && height == rect.bottom - rect.top;
    if (!isInside)
        SetWindowPos(window, nullptr, left, top, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
}

// A real screen may be larger than the replay's, so windows may open outside of that. Once for each: later the program
// or the replay may move it out.
void placeNewWindows()
{
    static std::vector<HWND> placedWindows;
    std::vector<HWND> windows = windowsOnDesktop();
    std::erase_if(windows, [](HWND window) { return !IsWindowVisible(window); });
    for (HWND window : windows) {
        if (std::find(placedWindows.begin(), placedWindows.end(), window) == placedWindows.end())
            place(window);
    }
    placedWindows = std::move(windows);
}

bool isIdle(milliseconds longest)
{
    return workOfProgram(longest) == Found::Nothing && !windowsOnDesktop().empty();
}

// A program that follows the mouse without reading its messages answers nothing; it is done when it has looked a few
// times at the buttons. looks: their number when it last read messages.
bool isTrackingOrIdle(unsigned &looks, milliseconds longest)
{
    constexpr unsigned looksOfLoop = 3;
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
    std::thread(play).detach();
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
