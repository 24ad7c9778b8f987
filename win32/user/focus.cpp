// Activation, focus, capture, and what becomes of them when windows go.
#include "focus.h"

#include "kernel/kernel_internal.h"
#include "message_queue.h"
#include "placement.h"

namespace win32::user {
namespace {

bool canBeActive(const Window &window)
{
    constexpr DWORD needed = WS_VISIBLE, barred = WS_DISABLED;
    return window.isTopLevel() && !window.isDestroyed && (window.style & (needed | barred)) == needed;
}

// The best window to be active instead: the owner, else the first that may be.
HWND nextActive(const Window &leaving)
{
    if (leaving.owner && canBeActive(*leaving.owner))
        return leaving.owner->hwnd();
    for (const Window *other = desktop()->firstChild; other; other = other->next) {
        bool isFit = other != &leaving && canBeActive(*other) && other->queue == leaving.queue
                     && !(other->extendedStyle & (WS_EX_TOOLWINDOW | WS_EX_NOACTIVATE)) && !(other->style & WS_MINIMIZE);
        if (isFit)
            return other->hwnd();
    }
    return nullptr;
}

std::vector<HWND> windowsOf(const MessageQueue &queue)
{
    std::vector<HWND> windows;
    for (const Window *window = desktop()->firstChild; window; window = window->next) {
        if (window->queue == &queue)
            windows.push_back(window->hwnd());
    }
    return windows;
}

void tellProgram(MessageQueue &queue, bool isActive, DWORD otherThread)
{
    std::vector<HWND> windows;
    {
        UserLock lock;
        windows = windowsOf(queue);
    }
    for (HWND window : windows) {
        if (IsWindow(window))
            sendMessage(window, WM_ACTIVATEAPP, isActive, static_cast<LPARAM>(otherThread));
    }
}

bool isInside(HWND root, HWND handle)
{
    UserLock lock;
    Window *window = findWindowQuietly(handle);
    Window *ancestor = findWindowQuietly(root);
    return window && ancestor && (window == ancestor || isDescendant(*ancestor, *window));
}

// Takes activation from a window. False when it holds on to it.
bool deactivate(MessageQueue &queue, HWND old, HWND next)
{
    if (!old || !IsWindow(old))
        return true;
    if (!sendMessage(old, WM_NCACTIVATE, FALSE, reinterpret_cast<LPARAM>(next)) && next)
        return false;
    bool isMinimized = IsIconic(old) != 0;
    sendMessage(old, WM_ACTIVATE, MAKEWPARAM(WA_INACTIVE, isMinimized), reinterpret_cast<LPARAM>(next));
    UserLock lock;
    if (queue.active == old)
        queue.active = nullptr;
    return true;
}

void moveFocus(MessageQueue &queue, HWND window)
{
    HWND old;
    {
        UserLock lock;
        old = std::exchange(queue.focus, nullptr);
    }
    if (old && IsWindow(old))
        sendMessage(old, WM_KILLFOCUS, reinterpret_cast<WPARAM>(window), 0);
    {
        UserLock lock;
        // The procedure may have put the focus elsewhere.
        if (queue.focus || (window && !findWindowQuietly(window)))
            return;
        queue.focus = window;
    }
    if (window)
        sendMessage(window, WM_SETFOCUS, reinterpret_cast<WPARAM>(old), 0);
}

void bringForward(MessageQueue &queue)
{
    MessageQueue *before;
    {
        UserLock lock;
        before = std::exchange(MessageQueue::foreground, &queue);
    }
    if (before == &queue)
        return;
    if (before)
        tellProgram(*before, false, queue.threadId);
    tellProgram(queue, true, before ? before->threadId : 0);
}

void activateInstead(MessageQueue &queue, HWND leaving)
{
    HWND next;
    {
        UserLock lock;
        Window *window = findWindowQuietly(leaving);
        next = window ? nextActive(*window) : nullptr;
    }
    if (next && activate(next, false))
        return;
    deactivate(queue, leaving, nullptr);
    UserLock lock;
    queue.active = nullptr;
}

void releaseCapture(MessageQueue &queue, HWND next)
{
    HWND old;
    {
        UserLock lock;
        old = std::exchange(queue.capture, next);
    }
    if (old && old != next && IsWindow(old))
        sendMessage(old, WM_CAPTURECHANGED, 0, reinterpret_cast<LPARAM>(next));
}

HWND parentOfChild(HWND handle)
{
    UserLock lock;
    Window *window = findWindowQuietly(handle);
    return window && window->isChild() ? window->parent->hwnd() : nullptr;
}

} // namespace

bool activate(HWND handle, bool byMouse)
{
    MessageQueue &queue = MessageQueue::current();
    HWND old;
    {
        UserLock lock;
        Window *window = findWindowQuietly(handle);
        if (!window || !canBeActive(*window) || window->queue != &queue)
            return false;
        old = queue.active;
    }
    if (old == handle && MessageQueue::foreground == &queue)
        return true;
    if (old != handle && !deactivate(queue, old, handle))
        return false;
    bringForward(queue);
    if (!IsWindow(handle))
        return false;
    {
        UserLock lock;
        queue.active = handle;
        if (Window *window = findWindowQuietly(handle)) {
            Window *root = window;
            while (root->owner)
                root = root->owner;
            root->lastActivePopup = handle;
        }
    }
    changePosition(handle, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    sendMessage(handle, WM_NCACTIVATE, TRUE, reinterpret_cast<LPARAM>(old));
    UINT how = byMouse ? UINT{WA_CLICKACTIVE} : UINT{WA_ACTIVE};
    sendMessage(handle, WM_ACTIVATE, MAKEWPARAM(how, IsIconic(handle)), reinterpret_cast<LPARAM>(old));
    if (queue.active == handle && !isInside(handle, queue.focus) && IsWindow(handle) && !IsIconic(handle))
        moveFocus(queue, handle);
    return queue.active == handle;
}

void activateForShow(HWND handle)
{
    {
        UserLock lock;
        Window *window = findWindowQuietly(handle);
        if (!window || !window->isTopLevel() || (window->extendedStyle & WS_EX_NOACTIVATE))
            return;
    }
    activate(handle, false);
}

void windowWasHidden(HWND handle)
{
    MessageQueue &queue = MessageQueue::current();
    if (queue.capture && isInside(handle, queue.capture))
        releaseCapture(queue, nullptr);
    if (queue.active == handle)
        activateInstead(queue, handle);
    else if (queue.focus && isInside(handle, queue.focus))
        SetFocus(parentOfChild(handle));
}

void windowIsGoing(HWND handle)
{
    MessageQueue &queue = MessageQueue::current();
    if (queue.capture && isInside(handle, queue.capture))
        releaseCapture(queue, nullptr);
    if (queue.focus && isInside(handle, queue.focus) && queue.active != handle)
        SetFocus(parentOfChild(handle));
    if (queue.active == handle)
        activateInstead(queue, handle);
}

} // namespace win32::user

using namespace win32;
using namespace win32::user;

HWND GetActiveWindow()
{
    return MessageQueue::current().active;
}

HWND SetActiveWindow(HWND window)
{
    return guarded(HWND{}, [&]() -> HWND {
        MessageQueue &queue = MessageQueue::current();
        HWND old = queue.active;
        if (!window) {
            deactivate(queue, old, nullptr);
            moveFocus(queue, nullptr);
            return old;
        }
        if (!findWindow(window) || !activate(window, false))
            return nullptr;
        return old;
    });
}

HWND GetForegroundWindow()
{
    UserLock lock;
    return MessageQueue::foreground ? MessageQueue::foreground->active : nullptr;
}

BOOL SetForegroundWindow(HWND handle)
{
    return guarded(FALSE, [&]() -> BOOL {
        HWND top = nullptr;
        MessageQueue *queue = nullptr;
        {
            UserLock lock;
            Window *window = findWindow(handle);
            Window *root = topLevelOf(window);
            if (!root || root->isDesktop())
                return FALSE;
            top = root->hwnd();
            queue = root->queue;
        }
        if (queue == &MessageQueue::current())
            return activate(top, false);
        {
            UserLock lock;
            MessageQueue::foreground = queue;
            queue->active = top;
        }
        return BringWindowToTop(top);
    });
}

HWND GetFocus()
{
    return MessageQueue::current().focus;
}

HWND SetFocus(HWND handle)
{
    return guarded(HWND{}, [&]() -> HWND {
        MessageQueue &queue = MessageQueue::current();
        HWND old = queue.focus;
        HWND top = nullptr;
        if (handle) {
            UserLock lock;
            Window *window = findWindow(handle);
            if (!window)
                return nullptr;
            if (window->queue != &queue)
                return fail(ERROR_ACCESS_DENIED, HWND{});
            for (const Window *each = window; each && !each->isDesktop(); each = each->parent) {
                if (each->style & (WS_DISABLED | WS_MINIMIZE))
                    return nullptr;
            }
            top = topLevelOf(window)->hwnd();
        }
        if (handle == old)
            return old;
        if (top && top != queue.active && !activate(top, false))
            return nullptr;
        if (queue.focus != handle)
            moveFocus(queue, handle);
        return old;
    });
}

HWND GetCapture()
{
    return MessageQueue::current().capture;
}

HWND SetCapture(HWND handle)
{
    return guarded(HWND{}, [&]() -> HWND {
        MessageQueue &queue = MessageQueue::current();
        HWND old = queue.capture;
        {
            UserLock lock;
            Window *window = handle ? findWindow(handle) : nullptr;
            if (handle && (!window || window->queue != &queue))
                return nullptr;
        }
        releaseCapture(queue, handle);
        return old;
    });
}

BOOL ReleaseCapture()
{
    return guarded(FALSE, [&]() -> BOOL {
        releaseCapture(MessageQueue::current(), nullptr);
        return TRUE;
    });
}

BOOL EnableWindow(HWND handle, BOOL enable)
{
    return guarded(FALSE, [&]() -> BOOL {
        bool wasDisabled;
        {
            UserLock lock;
            Window *window = findWindow(handle);
            if (!window)
                return FALSE;
            wasDisabled = (window->style & WS_DISABLED) != 0;
        }
        if (wasDisabled != (enable != FALSE))
            return wasDisabled;
        if (!enable)
            sendMessage(handle, WM_CANCELMODE, 0, 0);
        {
            UserLock lock;
            Window *window = findWindowQuietly(handle);
            if (!window)
                return wasDisabled;
            window->style = enable ? window->style & ~static_cast<DWORD>(WS_DISABLED) : window->style | WS_DISABLED;
        }
        MessageQueue &queue = MessageQueue::current();
        if (!enable && queue.focus && isInside(handle, queue.focus))
            moveFocus(queue, nullptr);
        sendMessage(handle, WM_ENABLE, enable, 0);
        return wasDisabled;
    });
}
