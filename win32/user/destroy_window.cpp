// Ending windows.
#include "caret.h"
#include "clipboard.h"
#include "focus.h"
#include "kernel/kernel_internal.h"
#include "message_queue.h"
#include "placement.h"
#include "timers.h"
#include "update.h"
#include "window.h"
#include "window_context.h"

#include <memory>

namespace win32::user {
namespace {

void sendToTree(HWND handle, UINT message)
{
    clipboard::ownerIsEnding(handle);
    sendMessage(handle, message, 0, 0);
    std::vector<HWND> children;
    {
        UserLock lock;
        Window *window = findWindowQuietly(handle);
        if (!window)
            return;
        children = childrenOf(*window);
    }
    for (HWND child : children) {
        if (IsWindow(child))
            sendToTree(child, message);
    }
}

// After its last message: nothing in the system names the window any more.
void release(HWND handle)
{
    UserLock lock;
    std::unique_ptr<Window> window(findWindowQuietly(handle));
    if (!window)
        return;
    unlink(*window);
    setOwner(*window, nullptr);
    while (window->firstOwned)
        setOwner(*window->firstOwned, nullptr);
    forgetUpdate(*window);
    if (window->queue)
        window->queue->forget(handle);
    forgetTimers(handle);
    forgetCaret(handle);
    clipboard::forget(handle);
    releaseContextsOf(*window);
    removeObject(window.get());
    --window->windowClass->windowCount;
}

void free(HWND handle)
{
    std::vector<HWND> children;
    {
        UserLock lock;
        Window *window = findWindowQuietly(handle);
        if (!window)
            return;
        children = childrenOf(*window);
    }
    for (HWND child : children)
        free(child);
    sendMessage(handle, WM_NCDESTROY, 0, 0);
    // What the procedure made for a window that is ending goes with it.
    for (;;) {
        HWND late;
        {
            UserLock lock;
            Window *window = findWindowQuietly(handle);
            late = window && window->firstChild ? window->firstChild->hwnd() : nullptr;
        }
        if (!late)
            break;
        free(late);
    }
    release(handle);
}

// Deepest first: a window is released after its children.
void collectOf(const Window &window, const MessageQueue &queue, std::vector<HWND> &result)
{
    for (const Window *child = window.firstChild; child; child = child->next) {
        collectOf(*child, queue, result);
        if (child->queue == &queue)
            result.push_back(child->hwnd());
    }
}

std::vector<HWND> ownedByHandle(HWND owner)
{
    UserLock lock;
    const Window *window = findWindowQuietly(owner);
    return window ? ownedBy(*window) : std::vector<HWND>{};
}

// True for the one call that is to destroy the window.
bool begin(HWND handle)
{
    UserLock lock;
    Window *window = findWindow(handle);
    if (!window || window->isDestroyed)
        return false;
    if (!window->queue || window->queue != &MessageQueue::current())
        return fail(ERROR_ACCESS_DENIED, false);
    window->isDestroyed = true;
    return true;
}

} // namespace

void abandonWindowsOf(MessageQueue &queue)
{
    UserLock lock;
    for (Window *root : {desktop(), messageRoot()}) {
        std::vector<HWND> windows;
        collectOf(*root, queue, windows);
        for (HWND window : windows)
            release(window);
    }
}

void abandonWindow(HWND handle)
{
    if (begin(handle))
        free(handle);
}

} // namespace win32::user

using namespace win32;
using namespace win32::user;

BOOL DestroyWindow(HWND window)
{
    return guarded(FALSE, [&]() -> BOOL {
        if (!begin(window))
            return FALSE;
        notifyParent(window, WM_DESTROY);
        windowIsGoing(window);
        auto style = static_cast<DWORD>(GetWindowLongA(window, GWL_STYLE));
        if ((style & WS_VISIBLE) && (style & WS_CHILD))
            ShowWindow(window, SW_HIDE);
        else if (style & WS_VISIBLE)
            changePosition(window, nullptr, 0, 0, 0, 0,
                           SWP_HIDEWINDOW | SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
        for (HWND owned : ownedByHandle(window))
            DestroyWindow(owned);
        sendToTree(window, WM_DESTROY);
        free(window);
        return TRUE;
    });
}

BOOL IsWindow(HWND window)
{
    return findWindowQuietly(window) != nullptr;
}
