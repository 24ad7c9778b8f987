#include "watching.h"

#include "kernel/code_pages.h"
#include "kernel/waits.h"
#include "message_queue.h"

#include <algorithm>

namespace win32::user {
namespace {

// To be called with the lock held. Windows that only take messages make no thread one that shows something.
std::vector<MessageQueue *> queuesWithWindows()
{
    std::vector<MessageQueue *> result;
    for (Window *window = desktop()->firstChild; window; window = window->next) {
        if (window->queue && std::find(result.begin(), result.end(), window->queue) == result.end())
            result.push_back(window->queue);
    }
    return result;
}

bool hasNothingToDo(const MessageQueue &queue)
{
    constexpr DWORD work = QS_INPUT | QS_POSTMESSAGE | QS_ALLPOSTMESSAGE | QS_SENDMESSAGE | QS_PAINT;
    return (queue.currentBits.load() & work) == 0;
}

std::string titleOf(const Window &window)
{
    return utf8FromUtf16(utf16FromAnsi(window.text));
}

bool canBeClosed(const Window &window)
{
    return window.isVisible() && !(window.style & WS_DISABLED) && window.queue;
}

// Whether a person takes it for a window of its own.
bool hasTitle(const Window &window)
{
    return window.isTopLevel() || (window.style & WS_CAPTION) == WS_CAPTION;
}

// To be called with the lock held. Palettes of tools float above the window that counts.
Window *topmostWithTitle(const Window &parent)
{
    Window *window = parent.firstChild;
    while (window && !(window->isVisible() && hasTitle(*window) && !(window->extendedStyle & WS_EX_TOOLWINDOW)))
        window = window->next;
    return window;
}

// To be called with the lock held. From the topmost to the lowest.
void addShownTitles(const Window &parent, std::vector<std::string> &titles)
{
    for (const Window *window = parent.firstChild; window; window = window->next) {
        if (!window->isVisible())
            continue;
        if (hasTitle(*window))
            titles.push_back(titleOf(*window));
        addShownTitles(*window, titles);
    }
}

// To be called with the lock held.
Window *frontWindow()
{
    MessageQueue *front = MessageQueue::foreground;
    Window *active = front ? findWindowQuietly(front->active) : nullptr;
    if (active && canBeClosed(*active))
        return active;
    for (Window *window = desktop()->firstChild; window; window = window->next) {
        if (canBeClosed(*window))
            return window;
    }
    return nullptr;
}

} // namespace

IdleWatch::IdleWatch()
{
    UserLock lock;
    for (const MessageQueue *queue : queuesWithWindows())
        seen_.push_back(stateOf(*queue));
}

IdleWatch::Seen IdleWatch::stateOf(const MessageQueue &queue)
{
    return {&queue, queue.emptyLooks.load(std::memory_order_relaxed), queue.taken.load(std::memory_order_relaxed),
            queue.buttonLooks.load(std::memory_order_relaxed)};
}

bool IdleWatch::isIdle(const MessageQueue &queue)
{
    constexpr unsigned looksOfLoop = 6; // some programs look twice before they see where the mouse is
    auto seen = std::find_if(seen_.begin(), seen_.end(), [&](const Seen &each) { return each.queue == &queue; });
    if (seen == seen_.end())
        return hasNothingToDo(queue);
    Seen now = stateOf(queue);
    if (now.taken != seen->taken) {
        seen->taken = now.taken;
        seen->buttonLooks = now.buttonLooks;
    }
    bool hasLooked = now.emptyLooks != seen->emptyLooks || isWaitingForInput(*queue.thread);
    bool tracksMouse = isMouseButtonDown() && now.buttonLooks - seen->buttonLooks >= looksOfLoop;
    return (hasNothingToDo(queue) && hasLooked) || tracksMouse;
}

bool IdleWatch::isIdle()
{
    UserLock lock;
    std::vector<MessageQueue *> queues = queuesWithWindows();
    return !queues.empty()
           && std::all_of(queues.begin(), queues.end(), [&](const MessageQueue *queue) { return isIdle(*queue); });
}

std::vector<std::string> shownTitles()
{
    std::vector<std::string> result;
    UserLock lock;
    addShownTitles(*desktop(), result);
    return result;
}

std::string activeTitle()
{
    UserLock lock;
    MessageQueue *front = MessageQueue::foreground;
    Window *active = front ? findWindowQuietly(front->active) : nullptr;
    return active ? titleOf(*active) : std::string();
}

std::string frontTitle()
{
    UserLock lock;
    Window *front = frontWindow();
    for (Window *inside = front; inside; inside = topmostWithTitle(*inside))
        front = inside;
    return front ? titleOf(*front) : std::string();
}

bool closeFrontWindow()
{
    UserLock lock;
    Window *window = frontWindow();
    return window && PostMessageA(window->hwnd(), WM_SYSCOMMAND, SC_CLOSE, 0);
}

void quitThreadsWithWindows()
{
    UserLock lock;
    for (MessageQueue *queue : queuesWithWindows())
        queue->postQuit(0);
}

} // namespace win32::user
