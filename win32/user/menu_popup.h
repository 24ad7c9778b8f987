// The window of a pop-up menu: where it stands, what it shows, how it scrolls.
#pragma once

#include <windows.h>

namespace win32::user {

// Where a pop-up is to stand: its corner, how it lies to that, and what it shall not cover.
struct PopupPlace {
    POINT corner{};
    UINT alignment = 0;    // TPM_ bits
    RECT kept{};           // empty: nothing
    bool isBeside = false; // the pop-up evades it to the sides, not up and down
};

class MenuPopup {
public:
    // Throws bad_alloc; without a window where there was none to be had or nothing to show.
    MenuPopup(HWND owner, HMENU menu, const PopupPlace &place);
    ~MenuPopup();
    MenuPopup(const MenuPopup &) = delete;
    MenuPopup &operator=(const MenuPopup &) = delete;

    HWND window() const { return window_; }
    HMENU menu() const { return menu_; }
    bool isThere() const { return window_ && IsWindow(window_); }

    bool contains(POINT screenPoint) const;
    // The item under a point of the screen; -1 for none.
    int itemAt(POINT screenPoint) const;
    // -1 above the items, 1 below, where a pop-up that scrolls has its signs; 0 elsewhere.
    int scrollSignAt(POINT screenPoint) const;

    // Moves the content by so many items, if it has more of them that way.
    void scroll(int items);
    void scrollTo(int item);

    void repaintItem(int item) const;
    void paint(HDC context) const;

private:
    bool fitHeight(SIZE content, LONG most);
    void scrollBy(int pixels);
    RECT view() const; // what of the window the items have, in its coordinates
    RECT signRect(bool isUp) const;
    int mostScroll() const;
    void setScroll(int scroll);

    HWND owner_;
    HMENU menu_;
    HWND window_ = nullptr;
    SIZE size_{};
    int contentHeight_ = 0;
    int scroll_ = 0;
    int step_ = 1;
    bool scrolls_ = false;
};

} // namespace win32::user
