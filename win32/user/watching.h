// What a person before the screen sees of the program's windows, and does to them, for the display and replays:
// they run on threads of their own.
#pragma once

#include <windows.h>

#include <string>
#include <utility>
#include <vector>

namespace win32::user {

class MessageQueue;

// Whether the threads that have windows have done all that they were given to do: nothing waits in their queues, and
// they wait for more or have found their queues empty since this watch began.
class IdleWatch {
public:
    IdleWatch();
    // False too while there is no window.
    bool isIdle() const;

private:
    std::vector<std::pair<const MessageQueue *, unsigned>> looks_;
};

// Visible top-level windows by their titles in UTF-8, where * in the pattern stands for any characters.
bool isWindowShown(const std::string &titlePattern);
bool matchesTitle(const std::string &pattern, const std::string &title);
std::vector<std::string> shownTitles();
// The title of the active window of the thread in front; empty for none.
std::string frontTitle();

// Asks the window in front, or the topmost one, to close, as its close box does. False when there is none.
bool closeFrontWindow();
// WM_QUIT to all threads that have windows.
void quitThreadsWithWindows();

} // namespace win32::user
