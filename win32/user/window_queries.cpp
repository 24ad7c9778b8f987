// Questions about windows, and walks through them.
#include "atoms.h"
#include "focus.h"
#include "kernel/kernel_internal.h"
#include "message_queue.h"
#include "placement.h"
#include "update.h"
#include "visibility.h"
#include "window.h"

using namespace win32;
using namespace win32::user;

namespace {

HWND handleOf(const Window *window)
{
    return window ? window->hwnd() : nullptr;
}

DWORD styleOf(HWND handle)
{
    UserLock lock;
    Window *window = findWindow(handle);
    return window ? window->style : 0;
}

bool has(const Window &window, ATOM windowClass, LPCSTR title)
{
    return (!windowClass || window.windowClass->atom == windowClass) && (!title || window.text == title);
}

// Visits handles that were gathered before; what is gone meanwhile is left out.
BOOL visitAll(const std::vector<HWND> &windows, WNDENUMPROC visit, LPARAM parameter)
{
    for (HWND window : windows) {
        if (IsWindow(window) && !visit(window, parameter))
            return FALSE;
    }
    return TRUE;
}

void gather(const Window &window, std::vector<HWND> &result)
{
    for (const Window *child = window.firstChild; child; child = child->next) {
        result.push_back(child->hwnd());
        gather(*child, result);
    }
}

BOOL enumerateTopLevel(WNDENUMPROC visit, LPARAM parameter, const MessageQueue *only)
{
    return guarded(FALSE, [&]() -> BOOL {
        std::vector<HWND> windows;
        {
            UserLock lock;
            for (const Window *window = desktop()->firstChild; window; window = window->next) {
                if (!only || window->queue == only)
                    windows.push_back(window->hwnd());
            }
        }
        return visitAll(windows, visit, parameter);
    });
}

POINT originOf(HWND handle, bool &isKnown)
{
    UserLock lock;
    Window *window = handle ? findWindow(handle) : desktop();
    isKnown = window != nullptr;
    return window && handle ? clientOrigin(*window) : POINT{0, 0};
}

} // namespace

BOOL IsWindowVisible(HWND handle)
{
    UserLock lock;
    Window *window = findWindow(handle);
    return window && isShown(*window);
}

BOOL IsWindowEnabled(HWND handle)
{
    UserLock lock;
    Window *window = findWindow(handle);
    return window && !(window->style & WS_DISABLED);
}

BOOL IsIconic(HWND handle)
{
    return (styleOf(handle) & WS_MINIMIZE) != 0;
}

BOOL IsZoomed(HWND handle)
{
    return (styleOf(handle) & WS_MAXIMIZE) != 0;
}

BOOL IsChild(HWND parentHandle, HWND handle)
{
    UserLock lock;
    Window *parent = findWindow(parentHandle);
    Window *window = parent ? findWindow(handle) : nullptr;
    // Only children count: a top-level window is no child of the desktop.
    for (; window && window->isChild(); window = window->parent) {
        if (window->parent == parent)
            return TRUE;
    }
    return FALSE;
}

BOOL GetWindowRect(HWND handle, LPRECT rect)
{
    UserLock lock;
    Window *window = findWindow(handle);
    if (!window || !rect)
        return FALSE;
    *rect = window->windowRect;
    return TRUE;
}

BOOL GetClientRect(HWND handle, LPRECT rect)
{
    UserLock lock;
    Window *window = findWindow(handle);
    if (!window || !rect)
        return FALSE;
    const RECT &client = window->clientRect;
    *rect = {0, 0, client.right - client.left, client.bottom - client.top};
    return TRUE;
}

BOOL ClientToScreen(HWND handle, LPPOINT point)
{
    bool isKnown = false;
    POINT origin = originOf(handle, isKnown);
    if (!isKnown || !handle || !point)
        return FALSE;
    *point = {gdi::wrappingSum(point->x, origin.x), gdi::wrappingSum(point->y, origin.y)};
    return TRUE;
}

BOOL ScreenToClient(HWND handle, LPPOINT point)
{
    bool isKnown = false;
    POINT origin = originOf(handle, isKnown);
    if (!isKnown || !handle || !point)
        return FALSE;
    *point = {gdi::wrappingDifference(point->x, origin.x), gdi::wrappingDifference(point->y, origin.y)};
    return TRUE;
}

int MapWindowPoints(HWND from, HWND to, LPPOINT points, UINT count)
{
    bool isFromKnown = false, isToKnown = false;
    POINT source = originOf(from, isFromKnown);
    POINT target = originOf(to, isToKnown);
    if (!isFromKnown || !isToKnown || (count && !points))
        return 0;
    int x = gdi::wrappingDifference(source.x, target.x), y = gdi::wrappingDifference(source.y, target.y);
    for (UINT i = 0; i < count; ++i)
        points[i] = {gdi::wrappingSum(points[i].x, x), gdi::wrappingSum(points[i].y, y)};
    SetLastError(NO_ERROR);
    return static_cast<int>(MAKELONG(x, y));
}

HWND GetDesktopWindow()
{
    return desktop()->hwnd();
}

HWND GetParent(HWND handle)
{
    UserLock lock;
    Window *window = findWindow(handle);
    if (!window)
        return nullptr;
    return handleOf(window->isChild() ? window->parent : window->owner);
}

HWND GetAncestor(HWND handle, UINT which)
{
    UserLock lock;
    Window *window = findWindow(handle);
    if (!window || window->isDesktop())
        return nullptr;
    switch (which) {
    case GA_PARENT:
        return handleOf(window->parent);
    case GA_ROOT:
        return handleOf(topLevelOf(window));
    case GA_ROOTOWNER: {
        Window *root = topLevelOf(window);
        while (root->owner)
            root = topLevelOf(root->owner);
        return handleOf(root);
    }
    default:
        return fail(ERROR_INVALID_PARAMETER, HWND{});
    }
}

HWND SetParent(HWND handle, HWND parentHandle)
{
    return guarded(HWND{}, [&]() -> HWND {
        HWND old;
        bool wasVisible;
        {
            UserLock lock;
            Window *window = findWindow(handle);
            Window *parent = parentHandle ? findWindow(parentHandle) : desktop();
            if (!window || !parent || window->isDesktop())
                return nullptr;
            if (parent == window || isDescendant(*window, *parent))
                return fail(ERROR_INVALID_PARAMETER, HWND{});
            old = handleOf(window->parent);
            wasVisible = window->isVisible();
        }
        if (wasVisible)
            ShowWindow(handle, SW_HIDE);
        {
            UserLock lock;
            Window *window = findWindowQuietly(handle);
            Window *parent = parentHandle ? findWindowQuietly(parentHandle) : desktop();
            if (!window || !parent)
                return nullptr;
            POINT before = clientOrigin(*window->parent), after = clientOrigin(*parent);
            unlink(*window);
            window->parent = parent;
            linkBelow(*window, nullptr);
            moveWithChildren(*window, after.x - before.x, after.y - before.y);
        }
        if (wasVisible)
            ShowWindow(handle, SW_SHOWNA);
        return old;
    });
}

HWND GetWindow(HWND handle, UINT which)
{
    UserLock lock;
    Window *window = findWindow(handle);
    if (!window)
        return nullptr;
    switch (which) {
    case GW_HWNDFIRST:
        return handleOf(window->parent ? window->parent->firstChild : nullptr);
    case GW_HWNDLAST:
        return handleOf(window->parent ? window->parent->lastChild : nullptr);
    case GW_HWNDNEXT:
        return handleOf(window->next);
    case GW_HWNDPREV:
        return handleOf(window->previous);
    case GW_OWNER:
        return handleOf(window->owner);
    case GW_CHILD:
        return handleOf(window->firstChild);
    default:
        return fail(ERROR_INVALID_PARAMETER, HWND{});
    }
}

HWND GetTopWindow(HWND handle)
{
    return GetWindow(handle ? handle : GetDesktopWindow(), GW_CHILD);
}

HWND GetLastActivePopup(HWND handle)
{
    UserLock lock;
    Window *window = findWindow(handle);
    if (!window)
        return nullptr;
    return findWindowQuietly(window->lastActivePopup) ? window->lastActivePopup : handle;
}

HWND FindWindowExA(HWND parentHandle, HWND afterHandle, LPCSTR className, LPCSTR title)
{
    return guarded(HWND{}, [&]() -> HWND {
        UserLock lock;
        Window *parent = parentHandle ? findWindow(parentHandle) : desktop();
        Window *after = parent && afterHandle ? findWindow(afterHandle) : nullptr;
        if (!parent || (afterHandle && (!after || after->parent != parent)))
            return nullptr;
        ATOM windowClass = className ? atoms::findNameOrAtom(className) : ATOM{0};
        if (className && !windowClass)
            return nullptr;
        for (Window *child = after ? after->next : parent->firstChild; child; child = child->next) {
            if (has(*child, windowClass, title))
                return child->hwnd();
        }
        return nullptr;
    });
}

HWND FindWindowA(LPCSTR className, LPCSTR title)
{
    return FindWindowExA(nullptr, nullptr, className, title);
}

HWND WindowFromPoint(POINT point)
{
    HWND window;
    {
        UserLock lock;
        window = windowAt(point)->hwnd();
    }
    // Transparent windows of the thread hand on to what lies below them.
    for (;;) {
        bool isOwn;
        {
            UserLock lock;
            Window *record = findWindowQuietly(window);
            isOwn = record && record->queue == &MessageQueue::current();
        }
        if (!isOwn || sendMessage(window, WM_NCHITTEST, 0, MAKELPARAM(point.x, point.y)) != HTTRANSPARENT)
            return window;
        UserLock lock;
        Window *record = findWindowQuietly(window);
        Window *below = record ? nextBelow(*record, point) : nullptr;
        if (!below)
            return window;
        window = below->hwnd();
    }
}

HWND ChildWindowFromPointEx(HWND handle, POINT point, UINT flags)
{
    UserLock lock;
    Window *window = findWindow(handle);
    if (!window)
        return nullptr;
    POINT origin = clientOrigin(*window);
    POINT onScreen{gdi::wrappingSum(point.x, origin.x), gdi::wrappingSum(point.y, origin.y)};
    if (!PtInRect(&window->clientRect, onScreen))
        return nullptr;
    for (Window *child = window->firstChild; child; child = child->next) {
        bool isSkipped = ((flags & CWP_SKIPINVISIBLE) && !child->isVisible())
                         || ((flags & CWP_SKIPDISABLED) && (child->style & WS_DISABLED))
                         || ((flags & CWP_SKIPTRANSPARENT) && (child->extendedStyle & WS_EX_TRANSPARENT));
        if (!isSkipped && PtInRect(&child->windowRect, onScreen))
            return child->hwnd();
    }
    return handle;
}

HWND ChildWindowFromPoint(HWND handle, POINT point)
{
    return ChildWindowFromPointEx(handle, point, CWP_ALL);
}

BOOL EnumWindows(WNDENUMPROC visit, LPARAM parameter)
{
    return enumerateTopLevel(visit, parameter, nullptr);
}

BOOL EnumThreadWindows(DWORD thread, WNDENUMPROC visit, LPARAM parameter)
{
    MessageQueue *queue;
    {
        UserLock lock;
        queue = MessageQueue::ofThread(thread);
    }
    return queue && enumerateTopLevel(visit, parameter, queue);
}

BOOL EnumChildWindows(HWND handle, WNDENUMPROC visit, LPARAM parameter)
{
    return guarded(FALSE, [&]() -> BOOL {
        std::vector<HWND> windows;
        {
            UserLock lock;
            Window *window = handle ? findWindow(handle) : desktop();
            if (!window)
                return FALSE;
            gather(*window, windows);
        }
        return visitAll(windows, visit, parameter);
    });
}

DWORD GetWindowThreadProcessId(HWND handle, LPDWORD process)
{
    UserLock lock;
    Window *window = findWindow(handle);
    if (!window)
        return 0;
    if (process)
        *process = GetCurrentProcessId();
    return window->queue ? window->queue->threadId : 0;
}
