// Showing, hiding, minimizing, maximizing and restoring.
#include "focus.h"
#include "kernel/kernel_internal.h"
#include "message_queue.h"
#include "placement.h"
#include "position_flags.h"
#include "window.h"

namespace win32::user {
namespace {

DWORD styleOf(HWND handle)
{
    UserLock lock;
    Window *window = findWindowQuietly(handle);
    return window ? window->style : 0;
}


// Minimized windows stand side by side at the bottom of their parent, as bars with a title.
RECT minimizedRect(const Window &window)
{
    int width = GetSystemMetrics(SM_CXMINIMIZED), height = GetSystemMetrics(SM_CYMINIMIZED);
    RECT area = window.isChild() ? window.parent->clientRect : workArea(MonitorFromWindow(window.hwnd(), MONITOR_DEFAULTTOPRIMARY));
    if (window.placement.minimized.x != -1 || window.placement.minimized.y != -1)
        return moved({0, 0, width, height}, window.placement.minimized);
    int across = std::max<int>(1, (area.right - area.left) / std::max(width, 1));
    for (int place = 0;; ++place) {
        RECT rect = moved({0, 0, width, height}, {area.left + place % across * width, area.bottom - (place / across + 1) * height});
        bool isTaken = false;
        for (const Window *other = window.parent->firstChild; other; other = other->next) {
            RECT shared;
            isTaken |= other != &window && other->isVisible() && (other->style & WS_MINIMIZE)
                       && IntersectRect(&shared, &rect, &other->windowRect);
        }
        if (!isTaken || place > 200)
            return rect;
    }
}

struct StateChange {
    RECT target;
    bool isRefused;
};

StateChange minimize(HWND handle)
{
    UserLock lock;
    Window *window = findWindowQuietly(handle);
    if (!window || (window->style & WS_MINIMIZE))
        return {{}, true};
    window->placement.restoresToMaximized = (window->style & WS_MAXIMIZE) != 0;
    RECT target = minimizedRect(*window);
    window->style = (window->style | WS_MINIMIZE) & ~static_cast<DWORD>(WS_MAXIMIZE);
    window->placement.minimized = {target.left, target.top};
    return {target, false};
}

StateChange maximize(HWND handle)
{
    MINMAXINFO limits = askLimits(handle);
    UserLock lock;
    Window *window = findWindowQuietly(handle);
    if (!window || (window->style & (WS_MAXIMIZE | WS_MINIMIZE)) == WS_MAXIMIZE)
        return {{}, true};
    window->style = (window->style | WS_MAXIMIZE) & ~static_cast<DWORD>(WS_MINIMIZE);
    POINT origin = window->isChild() ? clientOrigin(*window->parent) : POINT{0, 0};
    RECT target{0, 0, limits.ptMaxSize.x, limits.ptMaxSize.y};
    return {moved(moved(target, limits.ptMaxPosition), origin), false};
}

StateChange restore(HWND handle)
{
    bool toMaximized = false;
    {
        UserLock lock;
        Window *window = findWindowQuietly(handle);
        if (!window || !(window->style & (WS_MINIMIZE | WS_MAXIMIZE)))
            return {{}, true};
        toMaximized = (window->style & WS_MINIMIZE) && window->placement.restoresToMaximized;
    }
    if ((styleOf(handle) & WS_MINIMIZE) && !sendMessage(handle, WM_QUERYOPEN, 0, 0))
        return {{}, true};
    if (toMaximized)
        return maximize(handle);
    UserLock lock;
    Window *window = findWindowQuietly(handle);
    if (!window)
        return {{}, true};
    window->style &= ~static_cast<DWORD>(WS_MINIMIZE | WS_MAXIMIZE);
    return {window->placement.normal, false};
}

// Positions of children are told in their parent's coordinates.
BOOL showAt(HWND handle, const RECT &target, UINT flags)
{
    POINT origin{0, 0};
    {
        UserLock lock;
        Window *window = findWindowQuietly(handle);
        if (!window)
            return FALSE;
        if (window->isChild())
            origin = clientOrigin(*window->parent);
    }
    RECT rect = movedBack(target, origin);
    return changePosition(handle, HWND_TOP, rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top,
                          flags | SWP_FRAMECHANGED | SWP_STATECHANGED);
}

bool isActiveNow(HWND window)
{
    return GetActiveWindow() == window;
}

void showInState(HWND window, int command)
{
    bool wasVisible = (styleOf(window) & WS_VISIBLE) != 0;
    UINT flags = SWP_SHOWWINDOW;
    StateChange change{{}, true};
    switch (command) {
    case SW_SHOWMINNOACTIVE:
    case SW_MINIMIZE:
    case SW_FORCEMINIMIZE:
        flags |= SWP_NOACTIVATE | SWP_NOZORDER;
        [[fallthrough]];
    case SW_SHOWMINIMIZED:
        change = minimize(window);
        break;
    case SW_SHOWMAXIMIZED:
        change = maximize(window);
        break;
    case SW_SHOWNOACTIVATE:
        flags |= SWP_NOACTIVATE | SWP_NOZORDER;
        [[fallthrough]];
    default:
        change = restore(window);
        break;
    }
    if (!wasVisible)
        sendMessage(window, WM_SHOWWINDOW, TRUE, 0);
    if (styleOf(window) & WS_CHILD)
        flags |= SWP_NOZORDER;
    if (change.isRefused)
        changePosition(window, HWND_TOP, 0, 0, 0, 0, flags | SWP_NOMOVE | SWP_NOSIZE);
    else
        showAt(window, change.target, flags);
    bool gaveUpActivation = command == SW_MINIMIZE || command == SW_FORCEMINIMIZE;
    if (gaveUpActivation && isActiveNow(window))
        windowWasHidden(window);
}

void showPlainly(HWND window, bool show, UINT flags)
{
    sendMessage(window, WM_SHOWWINDOW, show, 0);
    if (!IsWindow(window))
        return;
    DWORD style = styleOf(window);
    if (style & WS_CHILD)
        flags |= SWP_NOACTIVATE | SWP_NOZORDER;
    changePosition(window, HWND_TOP, 0, 0, 0, 0, flags | SWP_NOMOVE | SWP_NOSIZE | (show ? SWP_SHOWWINDOW : SWP_HIDEWINDOW));
}

} // namespace
} // namespace win32::user

using namespace win32;
using namespace win32::user;

BOOL ShowWindow(HWND window, int command)
{
    if (!findWindow(window))
        return FALSE;
    bool wasVisible = (styleOf(window) & WS_VISIBLE) != 0;
    switch (command) {
    case SW_HIDE:
        if (wasVisible)
            showPlainly(window, false, isActiveNow(window) ? 0 : SWP_NOACTIVATE | SWP_NOZORDER);
        break;
    case SW_SHOWNA:
        if (!wasVisible)
            showPlainly(window, true, SWP_NOACTIVATE | SWP_NOZORDER);
        break;
    case SW_SHOW:
        if (!wasVisible)
            showPlainly(window, true, 0);
        else if (!(styleOf(window) & WS_CHILD))
            changePosition(window, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
        break;
    case SW_SHOWNORMAL:
    case SW_SHOWMINIMIZED:
    case SW_SHOWMAXIMIZED:
    case SW_SHOWNOACTIVATE:
    case SW_MINIMIZE:
    case SW_SHOWMINNOACTIVE:
    case SW_RESTORE:
    case SW_SHOWDEFAULT:
    case SW_FORCEMINIMIZE:
        showInState(window, command);
        break;
    default:
        break;
    }
    return wasVisible;
}

// Within one process there is nothing to wait for.
BOOL ShowWindowAsync(HWND window, int command)
{
    return ShowWindow(window, command);
}

BOOL OpenIcon(HWND window)
{
    if (!findWindow(window))
        return FALSE;
    if (styleOf(window) & WS_MINIMIZE)
        ShowWindow(window, SW_SHOWNORMAL);
    return TRUE;
}

BOOL CloseWindow(HWND window)
{
    if (!findWindow(window))
        return FALSE;
    ShowWindow(window, SW_MINIMIZE);
    return TRUE;
}

BOOL ShowOwnedPopups(HWND owner, BOOL show)
{
    return guarded(FALSE, [&]() -> BOOL {
        std::vector<HWND> owned;
        {
            UserLock lock;
            Window *window = findWindow(owner);
            if (!window)
                return FALSE;
            owned = ownedBy(*window);
        }
        for (HWND popup : owned) {
            if (IsWindow(popup) && ((styleOf(popup) & WS_VISIBLE) != 0) != (show != FALSE))
                sendMessage(popup, WM_SHOWWINDOW, show, show ? SW_PARENTOPENING : SW_PARENTCLOSING);
        }
        return TRUE;
    });
}

BOOL GetWindowPlacement(HWND handle, WINDOWPLACEMENT *result)
{
    UserLock lock;
    Window *window = findWindow(handle);
    if (!window || !result)
        return FALSE;
    const Placement &placement = window->placement;
    POINT origin = window->isChild() ? clientOrigin(*window->parent) : POINT{0, 0};
    UINT shown = window->style & WS_MINIMIZE   ? UINT{SW_SHOWMINIMIZED}
                 : window->style & WS_MAXIMIZE ? UINT{SW_SHOWMAXIMIZED}
                                               : UINT{SW_SHOWNORMAL};
    *result = {sizeof *result, placement.restoresToMaximized ? UINT{WPF_RESTORETOMAXIMIZED} : 0u, shown, placement.minimized,
               placement.maximized, movedBack(placement.normal, origin)};
    return TRUE;
}

BOOL SetWindowPlacement(HWND handle, const WINDOWPLACEMENT *wanted)
{
    if (!wanted || (wanted->length != sizeof *wanted && wanted->length != 0))
        return fail(ERROR_INVALID_PARAMETER, FALSE);
    RECT normal = wanted->rcNormalPosition;
    {
        UserLock lock;
        Window *window = findWindow(handle);
        if (!window)
            return FALSE;
        POINT origin = window->isChild() ? clientOrigin(*window->parent) : POINT{0, 0};
        window->placement.normal = moved(normal, origin);
        window->placement.maximized = wanted->ptMaxPosition;
        window->placement.restoresToMaximized = (wanted->flags & WPF_RESTORETOMAXIMIZED) != 0;
        if (wanted->flags & WPF_SETMINPOSITION)
            window->placement.minimized = wanted->ptMinPosition;
    }
    bool isNormal = !(styleOf(handle) & (WS_MINIMIZE | WS_MAXIMIZE));
    if (isNormal)
        changePosition(handle, nullptr, normal.left, normal.top, normal.right - normal.left, normal.bottom - normal.top,
                       SWP_NOZORDER | SWP_NOACTIVATE);
    ShowWindow(handle, static_cast<int>(wanted->showCmd));
    return TRUE;
}
