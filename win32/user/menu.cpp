// Menus: making, finding and ending them.
#include "menu.h"

#include "kernel/kernel_internal.h"

namespace win32::user {

uint64_t nextWalkNumber()
{
    static uint64_t last = 0;
    return ++last;
}

Menu *findMenuQuietly(HMENU handle)
{
    return handle ? static_cast<Menu *>(findUserObject(handle, UserObjectType::Menu)) : nullptr;
}

Menu *findMenu(HMENU handle)
{
    Menu *menu = findMenuQuietly(handle);
    return menu ? menu : fail(ERROR_INVALID_MENU_HANDLE, menu);
}

namespace {

// An item with a submenu has a command too, but counts only when no other item has it.
MenuPlace findCommand(Menu &root, UINT id)
{
    MenuPlace found, popup;
    walkMenus(root, [&](Menu &menu, size_t index) {
        const MenuItem &item = menu.items[index];
        if (item.id != id)
            return false;
        MenuPlace &place = item.subMenu ? popup : found;
        if (!place.menu)
            place = {&menu, index};
        return found.menu != nullptr;
    });
    return found.menu ? found : popup;
}

HMENU createMenu(bool isPopup)
{
    return guarded(HMENU{}, [&] {
        UserLock lock;
        return enterMenu(std::make_unique<Menu>(isPopup));
    });
}

} // namespace

MenuPlace findItem(HMENU handle, UINT item, bool isByPosition)
{
    Menu *menu = findMenu(handle);
    if (!menu)
        return {};
    MenuPlace place = !isByPosition               ? findCommand(*menu, item)
                      : item < menu->items.size() ? MenuPlace{menu, item}
                                                  : MenuPlace{};
    return place.menu ? place : fail(ERROR_MENU_ITEM_NOT_FOUND, place);
}

bool holds(Menu &menu, const Menu &other)
{
    return &menu == &other || walkMenus(menu, [&](const Menu &holder, size_t index) {
        return holder.items[index].subMenu == other.hmenu();
    });
}

HMENU enterMenu(std::unique_ptr<Menu> menu)
{
    if (!enterObject(menu.get()))
        return nullptr;
    return menu.release()->hmenu();
}

void destroyMenuTree(HMENU handle)
{
    // A menu whose handle has ended waits in a list, linked by the field that walks have.
    Menu *waiting = nullptr;
    auto end = [&](HMENU ended) {
        if (Menu *menu = findMenuQuietly(ended)) {
            removeObject(menu);
            menu->walkParent = waiting;
            waiting = menu;
        }
    };
    end(handle);
    while (waiting) {
        std::unique_ptr<Menu> menu(waiting);
        waiting = menu->walkParent;
        for (const MenuItem &item : menu->items)
            end(item.subMenu);
    }
}

} // namespace win32::user

using namespace win32;
using namespace win32::user;

HMENU CreateMenu(void)
{
    return createMenu(false);
}

HMENU CreatePopupMenu(void)
{
    return createMenu(true);
}

BOOL DestroyMenu(HMENU menu)
{
    UserLock lock;
    if (!findMenu(menu))
        return FALSE;
    destroyMenuTree(menu);
    return TRUE;
}
