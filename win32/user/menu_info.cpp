// What menus and their items tell, and are told, by records.
#include "menu.h"

#include "kernel/kernel_internal.h"

#include <cstddef>
#include <cstring>

namespace win32::user {
namespace {

// Programs built for older systems have a record without the bitmap at its end.
constexpr UINT oldInfoSize = offsetof(MENUITEMINFOA, hbmpItem);

constexpr UINT typeBits = MFT_MENUBARBREAK | MFT_MENUBREAK | MFT_OWNERDRAW | MFT_RADIOCHECK | MFT_SEPARATOR
                          | MFT_RIGHTORDER | MFT_RIGHTJUSTIFY;
constexpr UINT stateBits = MFS_GRAYED | MFS_CHECKED | MFS_HILITE | MFS_DEFAULT;

// The oldest way to name type and content takes the place of three newer ones.
bool isSound(const MENUITEMINFOA *info)
{
    if (!info || (info->cbSize != sizeof *info && info->cbSize != oldInfoSize))
        return false;
    if ((info->fMask & MIIM_TYPE) && (info->fMask & (MIIM_STRING | MIIM_FTYPE | MIIM_BITMAP)))
        return false;
    return !(info->fMask & MIIM_BITMAP) || info->cbSize == sizeof *info;
}

void copyText(const MenuItem &item, MENUITEMINFOA &info)
{
    if (!info.dwTypeData || info.cch == 0) {
        info.cch = static_cast<UINT>(item.text.size());
        return;
    }
    size_t length = std::min<size_t>(item.text.size(), info.cch - 1);
    memcpy(info.dwTypeData, item.text.data(), length);
    info.dwTypeData[length] = 0;
    info.cch = static_cast<UINT>(length);
}

void readContent(const MenuItem &item, MENUITEMINFOA &info)
{
    if (info.fMask & (MIIM_TYPE | MIIM_FTYPE))
        info.fType = item.type;
    if (info.fMask & MIIM_BITMAP)
        info.hbmpItem = item.bitmap;
    bool isOldBitmap = (info.fMask & MIIM_TYPE) && item.bitmap;
    if (isOldBitmap) {
        info.fType |= MFT_BITMAP;
        info.dwTypeData = reinterpret_cast<LPSTR>(item.bitmap);
        info.cch = 0;
    } else if (info.fMask & (MIIM_TYPE | MIIM_STRING)) {
        copyText(item, info);
    }
}

void read(const MenuItem &item, MENUITEMINFOA &info)
{
    readContent(item, info);
    if (info.fMask & MIIM_STATE)
        info.fState = item.state;
    if (info.fMask & MIIM_ID)
        info.wID = item.id;
    if (info.fMask & MIIM_SUBMENU)
        info.hSubMenu = item.subMenu;
    if (info.fMask & MIIM_CHECKMARKS) {
        info.hbmpChecked = item.checkedBitmap;
        info.hbmpUnchecked = item.uncheckedBitmap;
    }
    if (info.fMask & MIIM_DATA)
        info.dwItemData = item.data;
}

// Throws bad_alloc, and then has changed nothing.
void writeContent(MenuItem &item, const MENUITEMINFOA &info)
{
    bool isOldBitmap = (info.fMask & MIIM_TYPE) && (info.fType & MFT_BITMAP);
    bool hasText = !isOldBitmap && (info.fMask & MIIM_STRING);
    hasText |= (info.fMask & MIIM_TYPE) && !(info.fType & (MFT_BITMAP | MFT_OWNERDRAW | MFT_SEPARATOR));
    if (hasText)
        item.text = info.dwTypeData ? std::string(info.dwTypeData) : std::string();
    if (info.fMask & (MIIM_TYPE | MIIM_FTYPE))
        item.type = info.fType & typeBits;
    if (info.fMask & MIIM_TYPE)
        item.bitmap = isOldBitmap ? reinterpret_cast<HBITMAP>(info.dwTypeData) : nullptr;
    if (info.fMask & MIIM_BITMAP)
        item.bitmap = info.hbmpItem;
}

void write(MenuItem &item, const MENUITEMINFOA &info)
{
    writeContent(item, info);
    if (info.fMask & (MIIM_TYPE | MIIM_FTYPE | MIIM_DATA))
        item.isMeasured = false;
    if (info.fMask & MIIM_STATE)
        item.state = info.fState & stateBits;
    if (info.fMask & MIIM_ID)
        item.id = info.wID;
    if (info.fMask & MIIM_SUBMENU)
        item.subMenu = info.hSubMenu;
    if (info.fMask & MIIM_CHECKMARKS) {
        item.checkedBitmap = info.hbmpChecked;
        item.uncheckedBitmap = info.hbmpUnchecked;
    }
    if (info.fMask & MIIM_DATA)
        item.data = info.dwItemData;
}

bool mayWrite(const Menu &menu, const MENUITEMINFOA &info)
{
    if ((info.fMask & MIIM_FTYPE) && (info.fType & MFT_BITMAP))
        return fail(ERROR_INVALID_PARAMETER, false);
    if (!(info.fMask & MIIM_SUBMENU) || !info.hSubMenu)
        return true;
    Menu *subMenu = findMenu(info.hSubMenu);
    if (!subMenu)
        return false;
    return !holds(*subMenu, menu) || fail(ERROR_INVALID_PARAMETER, false);
}

void write(Menu &menu, const MENUINFO &info)
{
    if (info.fMask & MIM_STYLE)
        menu.style = info.dwStyle;
    if (info.fMask & MIM_MAXHEIGHT)
        menu.mostHeight = info.cyMax;
    if (info.fMask & MIM_BACKGROUND)
        menu.background = info.hbrBack;
    if (info.fMask & MIM_HELPID)
        menu.helpId = info.dwContextHelpID;
    if (info.fMask & MIM_MENUDATA)
        menu.data = info.dwMenuData;
}

} // namespace
} // namespace win32::user

using namespace win32;
using namespace win32::user;

BOOL GetMenuItemInfoA(HMENU menu, UINT number, BOOL isByPosition, LPMENUITEMINFOA info)
{
    if (!isSound(info))
        return fail(ERROR_INVALID_PARAMETER, FALSE);
    UserLock lock;
    MenuPlace place = findItem(menu, number, isByPosition != FALSE);
    if (!place.menu)
        return FALSE;
    read(place.item(), *info);
    return TRUE;
}

BOOL SetMenuItemInfoA(HMENU menu, UINT number, BOOL isByPosition, const MENUITEMINFOA *info)
{
    if (!isSound(info))
        return fail(ERROR_INVALID_PARAMETER, FALSE);
    return guarded(FALSE, [&]() -> BOOL {
        UserLock lock;
        MenuPlace place = findItem(menu, number, isByPosition != FALSE);
        if (!place.menu || !mayWrite(*place.menu, *info))
            return FALSE;
        write(place.item(), *info);
        return TRUE;
    });
}

BOOL GetMenuInfo(HMENU handle, LPMENUINFO info)
{
    if (!info || info->cbSize != sizeof *info)
        return fail(ERROR_INVALID_PARAMETER, FALSE);
    UserLock lock;
    const Menu *menu = findMenu(handle);
    if (!menu)
        return FALSE;
    if (info->fMask & MIM_STYLE)
        info->dwStyle = menu->style;
    if (info->fMask & MIM_MAXHEIGHT)
        info->cyMax = menu->mostHeight;
    if (info->fMask & MIM_BACKGROUND)
        info->hbrBack = menu->background;
    if (info->fMask & MIM_HELPID)
        info->dwContextHelpID = menu->helpId;
    if (info->fMask & MIM_MENUDATA)
        info->dwMenuData = menu->data;
    return TRUE;
}

BOOL SetMenuInfo(HMENU handle, const MENUINFO *info)
{
    if (!info || info->cbSize != sizeof *info)
        return fail(ERROR_INVALID_PARAMETER, FALSE);
    UserLock lock;
    Menu *menu = findMenu(handle);
    if (!menu)
        return FALSE;
    write(*menu, *info);
    if (info->fMask & MIM_APPLYTOSUBMENUS) {
        walkMenus(*menu, [&](const Menu &holder, size_t index) {
            if (Menu *subMenu = findMenuQuietly(holder.items[index].subMenu))
                write(*subMenu, *info);
            return false;
        });
    }
    return TRUE;
}
