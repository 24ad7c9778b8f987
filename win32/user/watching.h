// What a person before the screen sees of the program's windows, and does to them, for the display and replays:
// they run on threads of their own.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace win32::user {

class MessageQueue;

// Whether the threads that have windows have done all that they were given to do: nothing waits in their queues, and
// they wait for more or have found their queues empty since this watch began. A thread that asks for the mouse's
// buttons again and again while one is down, without taking messages, waits for more as well.
class IdleWatch {
public:
    IdleWatch();
    // False too while there is no window.
    bool isIdle() const;

private:
    struct Seen {
        const MessageQueue *queue;
        unsigned emptyLooks;
        unsigned buttonLooks;
    };
    static Seen stateOf(const MessageQueue &queue);
    bool isIdle(const MessageQueue &queue) const;

    std::vector<Seen> seen_;
};

// The titles, in UTF-8, of the visible windows: those on the desktop, and those with a caption in them.
std::vector<std::string> shownTitles();
// The title of the active window of the thread in front; empty for none.
std::string activeTitle();
// The title of the window that lies in front: the active one, or what lies on top of the windows with captions in it.
std::string frontTitle();

// Asks the window in front, or the topmost one, to close, as its close box does. False when there is none.
bool closeFrontWindow();
// WM_QUIT to all threads that have windows.
void quitThreadsWithWindows();

} // namespace win32::user
