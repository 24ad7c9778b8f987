#include "replayed_program.h"

#include "picture.h"
#include "screen.h"
#include "user/input.h"
#include "user/watching.h"

#include <unistd.h>

#include <csignal>

namespace win32::screen {

void startPlayerThread(void (*play)())
{
    // Signals are the program's threads' business.
    sigset_t all, old;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &old);
    try {
        std::thread(play).detach();
    } catch (...) {
        pthread_sigmask(SIG_SETMASK, &old, nullptr);
        throw;
    }
    pthread_sigmask(SIG_SETMASK, &old, nullptr);
}

void endProcess(int status)
{
    _exit(status);
}

void quitProgram()
{
    user::quitThreadsWithWindows();
}

bool waitForIdle(std::chrono::milliseconds longest)
{
    user::IdleWatch watch;
    return waitFor([&] { return watch.isIdle(); }, longest);
}

bool isLockOn(BYTE virtualKey)
{
    return user::isToggled(virtualKey);
}

std::vector<std::string> shownTitles()
{
    return user::shownTitles();
}

std::string frontTitle()
{
    return user::frontTitle();
}

std::string screenProblem(const std::string &mode)
{
    return isScreenMode(mode) ? "" : "the screen is " + modeText() + "; WIN32_SCREEN chooses another";
}

std::optional<COLORREF> pixelAt(POINT point)
{
    gdi::Surface surface = surfaceNow();
    bool isInside = point.x >= 0 && point.y >= 0 && point.x < surface.width && point.y < surface.height;
    if (!isInside)
        return std::nullopt;
    return gdi::colorOf(surface, gdi::readPixel(surface, point.x, point.y));
}

bool saveScreen(const std::string &path, WithCursor withCursor)
{
    Size size = screenSize();
    return savePicture(path, {0, 0, size.width, size.height}, withCursor);
}

} // namespace win32::screen
