// Ending windows.
#include "caret.h"
#include "clipboard.h"
#include "focus.h"
#include "kernel/kernel_internal.h"
#include "menu.h"
#include "message_queue.h"
#include "placement.h"
#include "timers.h"
#include "update.h"
#include "window.h"
#include "window_context.h"

#include <memory>

namespace win32::user {
namespace {

// Ending a window must work when memory is short, so nothing here keeps lists of windows.

// The first child that has not been told, and now will be; null when there is none.
HWND nextToTell(HWND handle)
{
    UserLock lock;
    Window *window = findWindowQuietly(handle);
    Window *child = window ? window->firstChild : nullptr;
    while (child && child->isToldOfEnd)
        child = child->next;
    if (!child)
        return nullptr;
    child->isToldOfEnd = true;
    return child->hwnd();
}

void sendToTree(HWND handle, UINT message)
{
    clipboard::ownerIsEnding(handle);
    sendMessage(handle, message, 0, 0);
    while (HWND child = nextToTell(handle))
        sendToTree(child, message);
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
    if (!window->isChild())
        destroyMenuTree(window->menu);
    destroyMenuTree(window->systemMenu);
    removeObject(window.get());
    --window->windowClass->windowCount;
}

HWND firstChildOf(HWND handle)
{
    UserLock lock;
    Window *window = findWindowQuietly(handle);
    return window && window->firstChild ? window->firstChild->hwnd() : nullptr;
}

void free(HWND handle)
{
    while (HWND child = firstChildOf(handle))
        free(child);
    sendMessage(handle, WM_NCDESTROY, 0, 0);
    // What the procedure made for a window that is ending goes with it.
    while (HWND child = firstChildOf(handle))
        free(child);
    release(handle);
}

// Releases a thread's windows below a parent, deepest first. What stands in one of them goes with it, whose ever
// it is.
void releaseBelow(Window &parent, const MessageQueue &queue, bool isParentGoing)
{
    for (Window *child = parent.firstChild; child;) {
        Window *next = child->next;
        bool isGoing = isParentGoing || child->queue == &queue;
        releaseBelow(*child, queue, isGoing);
        if (isGoing)
            release(child->hwnd());
        child = next;
    }
}

// Owned windows go first. One that does not, as another thread's, is nobody's from then on.
void destroyOwned(HWND handle)
{
    for (;;) {
        HWND owned;
        {
            UserLock lock;
            Window *window = findWindowQuietly(handle);
            owned = window && window->firstOwned ? window->firstOwned->hwnd() : nullptr;
        }
        if (!owned)
            return;
        if (DestroyWindow(owned))
            continue;
        UserLock lock;
        if (Window *window = findWindowQuietly(owned))
            setOwner(*window, nullptr);
    }
}

void hide(HWND window)
{
    auto style = static_cast<DWORD>(GetWindowLongA(window, GWL_STYLE));
    if ((style & WS_VISIBLE) && (style & WS_CHILD))
        ShowWindow(window, SW_HIDE);
    else if (style & WS_VISIBLE)
        changePosition(window, nullptr, 0, 0, 0, 0,
                       SWP_HIDEWINDOW | SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
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
    for (Window *root : {desktop(), messageRoot()})
        releaseBelow(*root, queue, false);
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
        // When memory is short the window ends all the same.
        guarded(false, [&] {
            notifyParent(window, WM_DESTROY);
            windowIsGoing(window);
            hide(window);
            return true;
        });
        destroyOwned(window);
        sendToTree(window, WM_DESTROY);
        free(window);
        return TRUE;
    });
}

BOOL IsWindow(HWND window)
{
    return findWindowQuietly(window) != nullptr;
}
