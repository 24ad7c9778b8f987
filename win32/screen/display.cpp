#include "display.h"

#include "sdl_display.h"
#include "user/clipboard.h"

#include <pthread.h>

#include <atomic>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <mutex>
#include <thread>

namespace win32::screen {
namespace {

enum class Wish { None, IfPossible, Window };

Wish readWish()
{
    const char *asked = getenv("WIN32_DISPLAY");
    if (asked && strcmp(asked, "none") == 0)
        return Wish::None;
    if (asked && strcmp(asked, "window") == 0)
        return Wish::Window;
    if (asked && *asked)
        fprintf(stderr, "WIN32_DISPLAY is neither \"none\" nor \"window\": \"%s\"\n", asked);
    const char *x11 = getenv("DISPLAY"), *wayland = getenv("WAYLAND_DISPLAY");
    return (x11 && *x11) || (wayland && *wayland) ? Wish::IfPossible : Wish::None;
}

Wish wish()
{
    static const Wish read = readWish();
    return read;
}

// Never destroyed: the thread may outlive what is.
struct Display {
    std::once_flag once;
    std::atomic<bool> isRunning{false};
    std::atomic<bool> isOver{false};
    std::atomic<FileDropReceiver> dropReceiver{nullptr};
    SdlDisplay *shown = nullptr; // set before isRunning
    std::thread::id thread;      // the same
};

Display &display()
{
    static auto *made = new Display;
    return *made;
}

// Without a display the program goes on unseen; who asked for one is told why.
void run()
{
    std::string problem;
    SdlDisplay *shown = SdlDisplay::open(problem);
    if (!shown) {
        if (wish() == Wish::Window)
            fprintf(stderr, "WIN32_DISPLAY: no window can be shown: %s\n", problem.c_str());
        display().isOver = true;
        return;
    }
    display().shown = shown;
    display().thread = std::this_thread::get_id();
    display().isRunning = true;
    shown->run();
    display().isRunning = false;
    display().isOver = true;
}

// Takes the window away before the process ends, unless that takes too long. A desktop that is gone ends the process
// on the display's thread, in the middle of a call.
void end()
{
    if (display().isRunning && display().thread == std::this_thread::get_id())
        return;
    if (display().isRunning)
        display().shown->end();
    for (int i = 0; i < 100 && !display().isOver; ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
}

void start()
{
    // Signals are the program's threads' business.
    sigset_t all, old;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &old);
    try {
        std::thread(run).detach();
        user::clipboard::setChangeListener([] {
            if (display().isRunning)
                display().shown->wake();
        });
        atexit(end);
    } catch (const std::exception &) { // no thread, no display
        display().isOver = true;
    }
    pthread_sigmask(SIG_SETMASK, &old, nullptr);
}

} // namespace

bool wantsDisplay()
{
    return wish() != Wish::None;
}

void wakeDisplay()
{
    std::call_once(display().once, start);
    if (display().isRunning)
        display().shown->wake();
}

void cursorChanged()
{
    if (display().isRunning)
        display().shown->wake();
}

void pointerWasMoved(POINT point)
{
    if (display().isRunning)
        display().shown->movePointer(point);
}

void setFileDropReceiver(FileDropReceiver receiver)
{
    display().dropReceiver = receiver;
}

FileDropReceiver fileDropReceiver()
{
    return display().dropReceiver;
}

} // namespace win32::screen
