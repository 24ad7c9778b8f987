// The program that a replay is played on, as its player sees it: on the layer, and as a Windows program. All of it is
// called on the player's thread.
#pragma once

#include <windows.h>

#include <chrono>
#include <optional>
#include <string>
#include <thread>
#include <vector>

namespace win32::screen {

// Looks again and again, at first soon. False when the time is over before.
template <class Condition> bool waitFor(Condition isMet, std::chrono::milliseconds longest)
{
    using namespace std::chrono;
    constexpr microseconds mostOften{50}, leastOften{2000};
    microseconds pause = mostOften;
    for (steady_clock::time_point end = steady_clock::now() + longest; !isMet();) {
        if (steady_clock::now() >= end)
            return false;
        std::this_thread::sleep_for(pause);
        pause = std::min(pause + pause / 4, leastOften);
    }
    return true;
}

// Throws a std::exception when there can be no thread. Called on the program's.
void startPlayerThread(void (*play)());
// Ends the process at once: the program's own threads may be anywhere.
[[noreturn]] void endProcess(int status);
// WM_QUIT for the threads that have windows.
void quitProgram();

// Until the program has done what it was given to do and waits for more. False when the time is over before.
bool waitForIdle(std::chrono::milliseconds longest);
// Whether a lock such as VK_CAPITAL is on.
bool isLockOn(BYTE virtualKey);

// The titles, in UTF-8, of the visible windows: those on the desktop, and those with a caption in them.
std::vector<std::string> shownTitles();
// The title of the window in front: the active one, or what lies on top of the windows with captions in it.
std::string frontTitle();

// Why a replay for this mode of the screen cannot be played; empty when it can.
std::string screenProblem(const std::string &mode);
// Nothing for a place that is not on the screen.
std::optional<COLORREF> pixelAt(POINT point);
enum class WithCursor : bool { No, Yes };
// A PNG file. False when it cannot be written, with errno set when that tells why.
bool saveScreen(const std::string &path, WithCursor withCursor);

} // namespace win32::screen
