// The record behind an HMENU, and the walk through a menu and its submenus.
#pragma once

#include "user_object.h"

#include <memory>
#include <string>
#include <vector>

namespace win32::user {

struct MenuItem {
    UINT type = 0;  // MFT_ bits but MFT_BITMAP, which follows from the bitmap
    UINT state = 0; // MFS_ bits
    UINT id = 0;
    HMENU subMenu = nullptr; // maybe of a menu that is no more
    HBITMAP checkedBitmap = nullptr;
    HBITMAP uncheckedBitmap = nullptr;
    HBITMAP bitmap = nullptr;
    ULONG_PTR data = 0;
    std::string text;

    // Where it was laid out last: from the corner of its window, or of the pop-up's content. Empty: never.
    RECT rect{};
    int shortcutLeft = 0; // of the text behind a tab, in a pop-up
    // What the owner has said of an owner-drawn item.
    SIZE ownSize{};
    bool isMeasured = false;

    bool isOwnerDrawn() const { return (type & MFT_OWNERDRAW) != 0; }
    bool isSeparator() const { return (type & MFT_SEPARATOR) != 0; }
    bool isDisabled() const { return (state & MFS_DISABLED) != 0; }
    bool isGrayed() const { return (state & MF_GRAYED) != 0; }
};

class Menu final : public UserObject {
public:
    explicit Menu(bool isPopupMenu) : UserObject(UserObjectType::Menu), isPopup(isPopupMenu) {}

    HMENU hmenu() const { return static_cast<HMENU>(handle()); }

    const bool isPopup;
    std::vector<MenuItem> items;
    DWORD style = 0; // MNS_ bits
    UINT mostHeight = 0;
    HBRUSH background = nullptr;
    DWORD helpId = 0;
    ULONG_PTR data = 0;

    // The pop-up that shows it, maybe gone, and how far its content is moved in there.
    HWND popup = nullptr;
    int popupShift = 0;
    int textInset = 0; // from an item's side to its text, in a pop-up

    // Of the walk that is under way. Menus nest as deep as programs like and one may hang in several places, so
    // walks keep their way here: they need neither stack nor memory, and meet each menu once.
    uint64_t walkNumber = 0;
    size_t walkIndex = 0;
    Menu *walkParent = nullptr;
};

// An item's place. Null menu: there is none.
struct MenuPlace {
    Menu *menu = nullptr;
    size_t index = 0;

    MenuItem &item() const { return menu->items[index]; }
};

// What follows wants the lock of the user interface.

// Null, with ERROR_INVALID_MENU_HANDLE, for what is no menu.
Menu *findMenu(HMENU handle);
// The same without an error.
Menu *findMenuQuietly(HMENU handle);

// An item by position in the menu, or by command in it and its submenus. No menu, with
// ERROR_MENU_ITEM_NOT_FOUND or ERROR_INVALID_MENU_HANDLE, when there is none.
MenuPlace findItem(HMENU menu, UINT item, bool isByPosition);

// Whether a menu is the other one, or holds it at any depth.
bool holds(Menu &menu, const Menu &other);

// Throws bad_alloc. Null, with an error, when there are too many handles.
HMENU enterMenu(std::unique_ptr<Menu> menu);
// Ends the menu, if it is one, and its submenus. Needs no memory.
void destroyMenuTree(HMENU menu);

// Goes through the items of a menu and its submenus, each item before those of its submenu, until `visit`, called
// with the menu and the index, answers true. It must neither change menus nor walk.
template <class Visitor> bool walkMenus(Menu &root, Visitor visit);

uint64_t nextWalkNumber();

template <class Visitor> bool walkMenus(Menu &root, Visitor visit)
{
    const uint64_t number = nextWalkNumber();
    Menu *menu = &root;
    auto begin = [&](Menu &begun, Menu *parent) {
        begun.walkNumber = number;
        begun.walkIndex = 0;
        begun.walkParent = parent;
        menu = &begun;
    };
    begin(root, nullptr);
    while (menu) {
        if (menu->walkIndex >= menu->items.size()) {
            menu = menu->walkParent;
            continue;
        }
        size_t index = menu->walkIndex++;
        if (visit(*menu, index))
            return true;
        Menu *subMenu = findMenuQuietly(menu->items[index].subMenu);
        if (subMenu && subMenu->walkNumber != number)
            begin(*subMenu, menu);
    }
    return false;
}

} // namespace win32::user
