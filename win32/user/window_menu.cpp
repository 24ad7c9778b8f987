// The menu of a window.
#include "kernel/kernel_internal.h"
#include "menu.h"
#include "window.h"

using namespace win32;
using namespace win32::user;

HMENU GetMenu(HWND handle)
{
    UserLock lock;
    const Window *window = findWindow(handle);
    if (!window)
        return nullptr;
    return window->isChild() ? reinterpret_cast<HMENU>(window->id) : window->menu;
}

BOOL SetMenu(HWND handle, HMENU menu)
{
    {
        UserLock lock;
        Window *window = findWindow(handle);
        if (!window || (menu && !findMenu(menu)))
            return FALSE;
        if (window->isChild())
            return fail(ERROR_CHILD_WINDOW_MENU, FALSE);
        window->menu = menu;
    }
    SetWindowPos(handle, nullptr, 0, 0, 0, 0,
                 SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
    return TRUE;
}
