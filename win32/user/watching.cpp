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

unsigned looksOf(const MessageQueue &queue)
{
    return queue.emptyLooks.load(std::memory_order_relaxed);
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
        looks_.emplace_back(queue, looksOf(*queue));
}

bool IdleWatch::isIdle() const
{
    UserLock lock;
    std::vector<MessageQueue *> queues = queuesWithWindows();
    return !queues.empty() && std::all_of(queues.begin(), queues.end(), [&](const MessageQueue *queue) {
        bool hasLooked = std::find(looks_.begin(), looks_.end(), std::pair{queue, looksOf(*queue)}) == looks_.end();
        return hasNothingToDo(*queue) && (hasLooked || isWaitingForInput(*queue->thread));
    });
}

bool matchesTitle(const std::string &pattern, const std::string &title)
{
    size_t inPattern = 0, inTitle = 0, star = std::string::npos, resume = 0;
    while (inTitle < title.size()) {
        if (inPattern < pattern.size() && pattern[inPattern] == '*') {
            star = inPattern++;
            resume = inTitle;
        } else if (inPattern < pattern.size() && pattern[inPattern] == title[inTitle]) {
            ++inPattern;
            ++inTitle;
        } else if (star != std::string::npos) {
            inPattern = star + 1;
            inTitle = ++resume;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of('*', inPattern) == std::string::npos;
}

std::vector<std::string> shownTitles()
{
    std::vector<std::string> result;
    UserLock lock;
    for (Window *window = desktop()->firstChild; window; window = window->next) {
        if (window->isVisible())
            result.push_back(titleOf(*window));
    }
    return result;
}

bool isWindowShown(const std::string &titlePattern)
{
    std::vector<std::string> titles = shownTitles();
    return std::any_of(titles.begin(), titles.end(),
                       [&](const std::string &title) { return matchesTitle(titlePattern, title); });
}

std::string frontTitle()
{
    UserLock lock;
    MessageQueue *front = MessageQueue::foreground;
    Window *active = front ? findWindowQuietly(front->active) : nullptr;
    return active ? titleOf(*active) : std::string();
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
