// The loop in which the user works a menu: a window's bar, its system menu, or a pop-up.
//
// Every message that it sends may end windows and menus, so what it holds are handles, asked anew each time, and
// after each message it looks whether it can go on.
#pragma once

#include "menu.h"
#include "menu_popup.h"

#include <memory>
#include <vector>

namespace win32::user {

class MenuLoop {
public:
    enum class Kind { Bar, System, Popup };

    MenuLoop(HWND owner, HMENU root, Kind kind, UINT flags);
    ~MenuLoop();
    MenuLoop(const MenuLoop &) = delete;
    MenuLoop &operator=(const MenuLoop &) = delete;

    // The innermost loop of the calling thread; null for none.
    static MenuLoop *current();

    // What the menu is opened with. Each begins the loop, which is then to be run.
    void openAt(const PopupPlace &place); // a pop-up
    void pressAt(POINT screenPoint);      // the bar or the system menu, by mouse
    void openByKey(WORD character);       // the bar or the system menu; 0 only selects

    // Goes on until the user has chosen or given up, and ends the menu.
    void run();
    // Of a system menu's pop-up that is opened like another's.
    void treatAsSystemMenu() { isOfSystem_ = true; }
    void end() { isOver_ = true; }

    bool hasOpened() const { return hasOpened_; }
    // The command of the chosen item; 0 for none.
    UINT chosenCommand() const { return hasChosen_ ? chosen_.id : 0; }
    // Posts the message that tells the owner of the choice.
    void postChoice() const;

private:
    struct Level {
        HMENU menu;
        std::unique_ptr<MenuPopup> popup; // none for a bar
        int selected = -1;
        int opened = -1; // whose submenu the next level is
        bool isOfSystem = false;
    };
    struct Place {
        size_t level;
        int item; // -1 between items
    };
    struct Chosen {
        HMENU menu = nullptr;
        UINT position = 0;
        UINT id = 0;
        bool isOfSystem = false;
        bool isByPosition = false;
    };
    enum class Selection { None, First };
    enum class Step { Consumed, Left }; // whether a message is taken from the queue

    // Life of the loop.
    void begin();
    void finish();
    bool isAlive() const;
    bool isLevelAlive(const Level &level) const;
    void waitForMessage(bool &isIdleTold);
    Step look(const MSG &message);
    void serve(const MSG &message);
    LRESULT send(UINT message, WPARAM wParam, LPARAM lParam) const;

    // Levels: 0 is the root, each other one the submenu of an item of the one before.
    void openLevel(HMENU menu, const PopupPlace &place, WPARAM position, bool isOfSystem);
    void openSubMenu(size_t level, Selection selection);
    void closeDown(size_t level);
    void closeDeepest();
    void select(size_t level, int item, bool byMouse);
    void sendSelect(const Level &level, bool byMouse) const;
    static void setHighlight(const Level &level, int item, bool isOn);
    void repaint(const Level &level, int item) const;
    PopupPlace placeOf(size_t level) const;
    bool itemOf(size_t level, int item, MenuItem &copy) const;
    HMENU subMenuOf(size_t level, int item) const;
    int itemCount(size_t level) const;
    bool isBar(size_t level) const { return level == 0 && kind_ == Kind::Bar; }
    bool isRootWithoutWindow(size_t level) const { return level == 0 && kind_ != Kind::Popup; }
    void choose(size_t level, int item);

    // Mouse.
    bool placeAt(POINT point, Place &place) const;
    void moveTo(POINT point);
    void hover(const Place &place);
    void follow(size_t level);
    void press(POINT point, DWORD time, bool isRight);
    void pressItem(const Place &place);
    bool isOnSystemIcon(POINT point) const;
    void release(POINT point, bool isRight);
    void wheel(int delta);
    void stopTimers();
    bool takeTimer(const MSG &message);

    // Keys.
    bool takeKey(WPARAM key);
    void moveSelection(int step);
    void selectEnd(int step);
    void moveToNeighbour(int step);
    bool moveToColumn(int step);
    bool changeRow();
    void goLeft();
    void goRight();
    void enter();
    void escape();
    void takeCharacter(WORD character);
    int findCharacter(size_t level, WORD character, bool &isOnly) const;
    void askForCharacter(size_t level, WORD character);
    void execute(size_t level, int item);

    HWND owner_;
    HMENU root_;
    Kind kind_;
    UINT flags_;
    MenuLoop *outer_;
    HWND activeBefore_;
    bool isOfSystem_ = false;
    bool isOver_ = false;
    bool hasBegun_ = false;
    bool hasOpened_ = false;
    bool hasChosen_ = false;
    bool isDragging_ = false; // the button has been down since the menu was opened with it
    Chosen chosen_;
    std::vector<Level> levels_;
    POINT lastPoint_{};
    DWORD pressTime_ = 0;
    int scrolling_ = 0; // the way in which the mouse makes the deepest pop-up scroll
};

// A press in the bar or on the caption's icon, and what a key or WM_SYSCOMMAND asks for.
void trackMenuByMouse(HWND window, int hit, POINT screenPoint);
void trackMenuByKey(HWND window, WORD character);
// The system menu at a point, as a right click in the caption opens it.
void trackSystemMenuAt(HWND window, POINT screenPoint);

} // namespace win32::user
