#include "menu_bar.h"

#include "frame.h"
#include "kernel/kernel_internal.h"
#include "menu_paint.h"

namespace win32::user {
namespace {

HMENU barOf(HWND handle)
{
    UserLock lock;
    const Window *window = findWindowQuietly(handle);
    return window && hasMenuBar(*window) ? window->menu : nullptr;
}

// Where rectangles of a menu's items are counted from: the pop-up that shows it, the window whose bar it is, or the
// window's client area for a menu that was measured elsewhere.
bool originOf(const Menu &menu, HWND handle, POINT &origin)
{
    if (const Window *popup = findWindowQuietly(menu.popup)) {
        origin = {popup->windowRect.left, popup->windowRect.top + menu.popupShift};
        return true;
    }
    const Window *window = findWindow(handle);
    if (!window)
        return false;
    bool isBar = !window->isChild() && window->menu == menu.hmenu();
    origin = isBar ? POINT{window->windowRect.left, window->windowRect.top} : clientOrigin(*window);
    return true;
}

// Only one item of a bar is highlighted at a time; the answer is whether any has changed.
bool highlight(Menu &menu, size_t index, bool isOn)
{
    bool hasChanged = false;
    for (size_t i = 0; i < menu.items.size(); ++i) {
        UINT &state = menu.items[i].state;
        UINT wanted = i == index && isOn ? state | MFS_HILITE : state & ~UINT{MFS_HILITE};
        hasChanged |= wanted != state;
        state = wanted;
    }
    return hasChanged;
}

} // namespace

void layOutMenuBar(HWND handle, int width)
{
    HMENU bar = barOf(handle);
    RECT space{};
    {
        UserLock lock;
        Window *window = findWindowQuietly(handle);
        if (!window)
            return;
        window->menuBarHeight = 0;
        if (!bar)
            return;
        space = menuBarSpace(*window, width);
    }
    int height = layOutBar(handle, bar, space);
    UserLock lock;
    if (Window *window = findWindowQuietly(handle))
        window->menuBarHeight = height;
}

HMENU usableMenuBar(HWND handle)
{
    UserLock lock;
    const Window *window = findWindowQuietly(handle);
    bool isUsable = window && hasMenuBar(*window) && window->menuBarHeight > 0 && !(window->style & WS_MINIMIZE);
    return isUsable ? window->menu : nullptr;
}

void paintMenuBar(HWND window, HDC context, const RECT &bar)
{
    HMENU menu = barOf(window);
    if (!menu || IsRectEmpty(&bar))
        return;
    RECT line = bar;
    line.top = line.bottom - 1;
    paintMenuItems(context, window, menu, MenuLook::Bar, bar);
    FillRect(context, &line, GetSysColorBrush(COLOR_3DFACE));
}

void repaintBarItem(HWND window, HMENU menu, int item)
{
    {
        UserLock lock;
        const Window *record = findWindowQuietly(window);
        if (item < 0 || !record || record->menu != menu || !hasMenuBar(*record) || record->menuBarHeight == 0
            || !isShown(*record) || (record->style & WS_MINIMIZE))
            return;
    }
    HDC context = GetWindowDC(window);
    if (!context)
        return;
    paintMenuItem(context, window, menu, static_cast<size_t>(item), MenuLook::Bar, ODA_SELECT);
    ReleaseDC(window, context);
}

bool hitMenuBar(HWND handle, POINT point, int &item)
{
    UserLock lock;
    const Window *window = findWindowQuietly(handle);
    const Menu *menu = window && hasMenuBar(*window) ? findMenuQuietly(window->menu) : nullptr;
    if (!menu)
        return false;
    POINT local{point.x - window->windowRect.left, point.y - window->windowRect.top};
    RECT bar = layoutOf(*window).menuBar;
    if (!PtInRect(&bar, local))
        return false;
    item = -1;
    for (size_t i = 0; i < menu->items.size() && item < 0; ++i) {
        if (PtInRect(&menu->items[i].rect, local))
            item = static_cast<int>(i);
    }
    return true;
}

bool barItemRect(HWND handle, int item, RECT &rect)
{
    UserLock lock;
    const Window *window = findWindowQuietly(handle);
    const Menu *menu = window && hasMenuBar(*window) ? findMenuQuietly(window->menu) : nullptr;
    if (!menu || item < 0 || static_cast<size_t>(item) >= menu->items.size())
        return false;
    rect = moved(menu->items[static_cast<size_t>(item)].rect, {window->windowRect.left, window->windowRect.top});
    return true;
}

} // namespace win32::user

using namespace win32;
using namespace win32::user;

BOOL DrawMenuBar(HWND window)
{
    return SetWindowPos(window, nullptr, 0, 0, 0, 0,
                        SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
}

BOOL HiliteMenuItem(HWND window, HMENU handle, UINT item, UINT flags)
{
    {
        UserLock lock;
        MenuPlace place = findItem(handle, item, (flags & MF_BYPOSITION) != 0);
        if (!findWindow(window) || !place.menu)
            return FALSE;
        if (!highlight(*place.menu, place.index, (flags & MF_HILITE) != 0))
            return TRUE;
    }
    int count = GetMenuItemCount(handle);
    for (int i = 0; i < count; ++i)
        repaintBarItem(window, handle, i);
    return TRUE;
}

BOOL GetMenuItemRect(HWND window, HMENU handle, UINT item, LPRECT rect)
{
    if (!rect)
        return fail(ERROR_INVALID_PARAMETER, FALSE);
    UserLock lock;
    MenuPlace place = findItem(handle, item, true);
    POINT origin;
    if (!place.menu || !originOf(*place.menu, window, origin))
        return FALSE;
    *rect = moved(place.item().rect, origin);
    return TRUE;
}
