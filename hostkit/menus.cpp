// The titles of the menu bar.
#include "hostkit_internal.h"

namespace {

// The library keeps a menu's ID as the data of its native menu.
bool isMenu(HMENU menu, SInt16 menuID)
{
    MENUINFO info = {};
    info.cbSize = sizeof info;
    info.fMask = MIM_MENUDATA;
    return menu && GetMenuInfo(menu, &info) && static_cast<SInt16>(info.dwMenuData) == menuID;
}

} // namespace

void HostKitHiliteMenu(SInt16 menuID)
{
    for (int i = 0, count = GetMenuItemCount(hMenuMain); i < count; ++i) {
        bool isChosen = menuID != 0 && isMenu(GetSubMenu(hMenuMain, i), menuID);
        HiliteMenuItem(hWndMain, hMenuMain, static_cast<UINT>(i), MF_BYPOSITION | (isChosen ? MF_HILITE : MF_UNHILITE));
    }
}
