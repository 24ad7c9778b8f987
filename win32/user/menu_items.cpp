// Items of menus: putting them in, changing and removing them, and what they tell by simple calls.
#include "menu.h"

#include "kernel/kernel_internal.h"

#include <cstring>

namespace win32::user {
namespace {

// The bits of the calls' flags that are a type and a state; others tell what the arguments are. Their numbers are
// those of the item's own bits.
constexpr UINT typeBits = MF_OWNERDRAW | MF_SEPARATOR | MF_MENUBARBREAK | MF_MENUBREAK | MF_RIGHTJUSTIFY;
constexpr UINT stateBits = MF_GRAYED | MF_DISABLED | MF_CHECKED | MF_HILITE;

constexpr UINT notThere = static_cast<UINT>(-1);

bool isByPosition(UINT flags)
{
    return (flags & MF_BYPOSITION) != 0;
}

// Writes what the arguments of AppendMenuA and its like say into an item of a menu. Throws bad_alloc, and then has
// changed nothing.
bool describe(MenuItem &item, const Menu &menu, UINT flags, UINT_PTR id, LPCSTR content)
{
    MenuItem made;
    made.data = item.data;
    made.checkedBitmap = item.checkedBitmap;
    made.uncheckedBitmap = item.uncheckedBitmap;
    made.rect = item.rect;
    made.type = flags & typeBits;
    made.state = flags & stateBits;
    made.id = static_cast<UINT>(id);
    if (flags & MF_POPUP) {
        made.subMenu = reinterpret_cast<HMENU>(id);
        Menu *subMenu = findMenu(made.subMenu);
        if (!subMenu)
            return false;
        if (holds(*subMenu, menu))
            return fail(ERROR_INVALID_PARAMETER, false);
    }
    if (flags & MF_OWNERDRAW)
        made.data = reinterpret_cast<ULONG_PTR>(content);
    else if (flags & MF_BITMAP)
        made.bitmap = reinterpret_cast<HBITMAP>(const_cast<char *>(content));
    else if (!content)
        made.type |= MFT_SEPARATOR;
    else if (!made.isSeparator())
        made.text = content;
    item = std::move(made);
    return true;
}

// An item that is not found is one to append behind.
MenuPlace placeToInsert(Menu &menu, UINT before, UINT flags)
{
    MenuPlace end{&menu, menu.items.size()};
    if (isByPosition(flags))
        return before < menu.items.size() ? MenuPlace{&menu, before} : end;
    MenuPlace found = before == notThere ? MenuPlace{} : findItem(menu.hmenu(), before, false);
    return found.menu ? found : end;
}

BOOL insertItem(HMENU handle, UINT before, UINT flags, UINT_PTR id, LPCSTR content)
{
    return guarded(FALSE, [&]() -> BOOL {
        UserLock lock;
        Menu *menu = findMenu(handle);
        if (!menu)
            return FALSE;
        DWORD error = GetLastError();
        MenuPlace place = placeToInsert(*menu, before, flags);
        SetLastError(error);
        MenuItem item;
        if (!describe(item, *place.menu, flags, id, content))
            return FALSE;
        place.menu->items.insert(place.menu->items.begin() + static_cast<ptrdiff_t>(place.index), std::move(item));
        return TRUE;
    });
}

UINT flagsOf(const MenuItem &item)
{
    UINT flags = item.type | item.state | (item.bitmap ? MF_BITMAP : 0);
    const Menu *subMenu = findMenuQuietly(item.subMenu);
    if (!subMenu)
        return flags;
    constexpr UINT lowByte = 0xFF;
    return ((flags | MF_POPUP) & lowByte) | static_cast<UINT>(std::min<size_t>(subMenu->items.size(), lowByte)) << 8;
}

// Gives bits of an item's state; the answer is what they were.
UINT changeState(HMENU menu, UINT number, UINT flags, UINT bits)
{
    UserLock lock;
    MenuPlace place = findItem(menu, number, isByPosition(flags));
    if (!place.menu)
        return notThere;
    UINT before = place.item().state & bits;
    place.item().state = (place.item().state & ~bits) | (flags & bits);
    return before;
}

} // namespace
} // namespace win32::user

using namespace win32;
using namespace win32::user;

BOOL AppendMenuA(HMENU menu, UINT flags, UINT_PTR id, LPCSTR content)
{
    return insertItem(menu, notThere, flags | MF_BYPOSITION, id, content);
}

BOOL InsertMenuA(HMENU menu, UINT before, UINT flags, UINT_PTR id, LPCSTR content)
{
    return insertItem(menu, before, flags, id, content);
}

BOOL ModifyMenuA(HMENU menu, UINT number, UINT flags, UINT_PTR id, LPCSTR content)
{
    return guarded(FALSE, [&]() -> BOOL {
        UserLock lock;
        MenuPlace place = findItem(menu, number, isByPosition(flags));
        if (!place.menu)
            return FALSE;
        HMENU oldSubMenu = place.item().subMenu;
        if (!describe(place.item(), *place.menu, flags, id, content))
            return FALSE;
        if (oldSubMenu != place.item().subMenu)
            destroyMenuTree(oldSubMenu);
        return TRUE;
    });
}

BOOL DeleteMenu(HMENU menu, UINT number, UINT flags)
{
    UserLock lock;
    MenuPlace place = findItem(menu, number, isByPosition(flags));
    if (!place.menu)
        return FALSE;
    HMENU subMenu = place.item().subMenu;
    place.menu->items.erase(place.menu->items.begin() + static_cast<ptrdiff_t>(place.index));
    destroyMenuTree(subMenu);
    return TRUE;
}

DWORD CheckMenuItem(HMENU menu, UINT number, UINT flags)
{
    return changeState(menu, number, flags, MF_CHECKED);
}

BOOL EnableMenuItem(HMENU menu, UINT number, UINT flags)
{
    return static_cast<BOOL>(changeState(menu, number, flags, MF_GRAYED | MF_DISABLED));
}

UINT GetMenuState(HMENU menu, UINT number, UINT flags)
{
    UserLock lock;
    MenuPlace place = findItem(menu, number, isByPosition(flags));
    return place.menu ? flagsOf(place.item()) : notThere;
}

int GetMenuStringA(HMENU menu, UINT number, LPSTR buffer, int size, UINT flags)
{
    UserLock lock;
    if (buffer && size > 0)
        buffer[0] = 0;
    MenuPlace place = findItem(menu, number, isByPosition(flags));
    if (!place.menu)
        return 0;
    const std::string &text = place.item().text;
    if (!buffer || size <= 0)
        return static_cast<int>(text.size());
    size_t length = std::min(text.size(), static_cast<size_t>(size) - 1);
    memcpy(buffer, text.data(), length);
    buffer[length] = 0;
    return static_cast<int>(length);
}

int GetMenuItemCount(HMENU handle)
{
    UserLock lock;
    const Menu *menu = findMenu(handle);
    return menu ? static_cast<int>(menu->items.size()) : -1;
}

UINT GetMenuItemID(HMENU menu, int position)
{
    UserLock lock;
    MenuPlace place = findItem(menu, static_cast<UINT>(position), true);
    return place.menu && !place.item().subMenu ? place.item().id : notThere;
}

HMENU GetSubMenu(HMENU menu, int position)
{
    UserLock lock;
    MenuPlace place = findItem(menu, static_cast<UINT>(position), true);
    return place.menu ? place.item().subMenu : nullptr;
}
