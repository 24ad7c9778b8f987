#include "system_menu.h"

#include "frame.h"
#include "kernel/kernel_internal.h"
#include "menu.h"

namespace win32::user {
namespace {

struct SystemItem {
    UINT id; // 0: a line
    const char *text;
};

constexpr SystemItem systemItems[] = {
    {SC_RESTORE, "&Restore"},   {SC_MOVE, "&Move"}, {SC_SIZE, "&Size"},           {SC_MINIMIZE, "Mi&nimize"},
    {SC_MAXIMIZE, "Ma&ximize"}, {0, nullptr},       {SC_CLOSE, "&Close\tAlt+F4"},
};

Window *windowWithSystemMenu(HWND handle)
{
    Window *window = findWindowQuietly(handle);
    return window && (window->style & WS_SYSMENU) ? window : nullptr;
}

std::unique_ptr<Menu> newSystemPopup()
{
    auto popup = std::make_unique<Menu>(true);
    for (const SystemItem &each : systemItems) {
        MenuItem item;
        item.id = each.id;
        if (each.text)
            item.text = each.text;
        else
            item.type = MFT_SEPARATOR;
        if (each.id == SC_CLOSE)
            item.state = MFS_DEFAULT;
        popup->items.push_back(std::move(item));
    }
    return popup;
}

HMENU makeSystemMenu()
{
    auto holder = std::make_unique<Menu>(false);
    holder->items.emplace_back();
    std::unique_ptr<Menu> popup = newSystemPopup();
    if (!enterObject(holder.get()))
        return nullptr;
    HMENU made = holder.release()->hmenu();
    HMENU entered = enterMenu(std::move(popup));
    if (!entered) {
        destroyMenuTree(made);
        return nullptr;
    }
    findMenuQuietly(made)->items[0].subMenu = entered;
    return made;
}

HMENU systemMenuOf(Window &window)
{
    if (!findMenuQuietly(window.systemMenu))
        window.systemMenu = makeSystemMenu();
    return window.systemMenu;
}

Menu *popupIn(HMENU holder)
{
    const Menu *menu = findMenuQuietly(holder);
    return menu && !menu->items.empty() ? findMenuQuietly(menu->items[0].subMenu) : nullptr;
}

void enable(Menu &menu, UINT id, bool isEnabled)
{
    for (MenuItem &item : menu.items) {
        if (item.id == id && !item.isSeparator())
            item.state = isEnabled ? item.state & ~UINT{MFS_DISABLED} : item.state | UINT{MFS_GRAYED};
    }
}

// The program's own state of the item that closes stays, unless its class forbids it.
void settleItems(const Window &window, Menu &menu)
{
    bool isMinimized = (window.style & WS_MINIMIZE) != 0, isMaximized = (window.style & WS_MAXIMIZE) != 0;
    enable(menu, SC_RESTORE, isMinimized || isMaximized);
    enable(menu, SC_MOVE, !isMaximized);
    enable(menu, SC_SIZE, (window.style & WS_THICKFRAME) && !isMinimized && !isMaximized);
    enable(menu, SC_MINIMIZE, (window.style & WS_MINIMIZEBOX) && !isMinimized);
    enable(menu, SC_MAXIMIZE, (window.style & WS_MAXIMIZEBOX) && !isMaximized);
    if (window.windowClass->style & CS_NOCLOSE)
        enable(menu, SC_CLOSE, false);
}

} // namespace

HMENU preparedSystemMenu(HWND handle)
{
    UserLock lock;
    Window *window = windowWithSystemMenu(handle);
    HMENU holder = window ? systemMenuOf(*window) : nullptr;
    if (Menu *popup = popupIn(holder))
        settleItems(*window, *popup);
    return holder;
}

RECT systemIconRect(HWND handle)
{
    UserLock lock;
    const Window *window = findWindowQuietly(handle);
    if (!window)
        return {};
    FrameLayout layout = layoutOf(*window);
    RECT rect = layout.icon;
    if (IsRectEmpty(&rect))
        rect = {layout.inner.left, layout.inner.top, layout.inner.left + 1,
                std::max(layout.caption.bottom, layout.inner.top + 1)};
    else
        rect.bottom = layout.caption.bottom;
    return moved(rect, {window->windowRect.left, window->windowRect.top});
}

bool isCloseEnabled(HWND handle)
{
    UserLock lock;
    const Window *window = windowWithSystemMenu(handle);
    const Menu *popup = window ? popupIn(window->systemMenu) : nullptr;
    if (!window || (window->windowClass->style & CS_NOCLOSE))
        return false;
    if (!popup)
        return true;
    for (const MenuItem &item : popup->items) {
        if (item.id == SC_CLOSE && !item.isSeparator())
            return !item.isDisabled();
    }
    return false;
}

} // namespace win32::user

using namespace win32;
using namespace win32::user;

HMENU GetSystemMenu(HWND handle, BOOL reset)
{
    return guarded(HMENU{}, [&]() -> HMENU {
        UserLock lock;
        if (!findWindow(handle))
            return nullptr;
        if (reset) {
            Window *window = findWindowQuietly(handle);
            destroyMenuTree(std::exchange(window->systemMenu, nullptr));
            return nullptr;
        }
        const Menu *popup = popupIn(preparedSystemMenu(handle));
        return popup ? popup->hmenu() : nullptr;
    });
}
