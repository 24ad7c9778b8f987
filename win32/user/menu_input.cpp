// What mouse and keys do to an open menu.
#include "control_text.h"
#include "focus.h"
#include "frame.h"
#include "kernel/kernel_internal.h"
#include "menu_bar.h"
#include "menu_loop.h"
#include "system_menu.h"
#include "timers.h"

namespace win32::user {
namespace {

constexpr UINT_PTR hoverTimer = 1, scrollTimer = 2;
constexpr UINT scrollPeriod = 50;
constexpr int itemsOfWheelStep = 3;

UINT hoverDelay()
{
    DWORD delay = 0;
    SystemParametersInfoA(SPI_GETMENUSHOWDELAY, 0, &delay, 0);
    return delay;
}

bool isSameLetter(char first, WORD second)
{
    const char texts[2][2] = {{first, 0}, {static_cast<char>(second), 0}};
    return first && lstrcmpiA(texts[0], texts[1]) == 0;
}

// What finds an item: its marked letter, or the first one of an item that has none marked.
char letterOf(const MenuItem &item, bool byMark)
{
    char mark = marker(item.text);
    return byMark ? mark : mark || item.text.empty() ? '\0' : item.text[0];
}

} // namespace

// The deepest menu that has the point lies on top.
bool MenuLoop::placeAt(POINT point, Place &place) const
{
    for (size_t level = levels_.size(); level-- > 0;) {
        place = {level, -1};
        if (const MenuPopup *popup = levels_[level].popup.get()) {
            if (popup->contains(point)) {
                place.item = popup->itemAt(point);
                return true;
            }
        } else if (isBar(level) && hitMenuBar(owner_, point, place.item)) {
            return true;
        }
    }
    return false;
}

// Windows that come and go make the mouse seem to move, and shall not take the choice from the keys.
void MenuLoop::moveTo(POINT point)
{
    if (point.x == lastPoint_.x && point.y == lastPoint_.y)
        return;
    lastPoint_ = point;
    Place place;
    bool isInside = placeAt(point, place);
    const MenuPopup *popup = isInside ? levels_[place.level].popup.get() : nullptr;
    scrolling_ = popup ? popup->scrollSignAt(point) : 0;
    if (scrolling_)
        setSystemTimer(popup->window(), scrollTimer, scrollPeriod);
    if (isInside) {
        hover(place);
    } else if (levels_.back().popup) {
        stopTimers();
        select(levels_.size() - 1, -1, true);
    }
}

void MenuLoop::hover(const Place &place)
{
    // A submenu that the mouse has reached is the one wanted, whatever it crossed on its way.
    stopTimers();
    for (size_t level = 0; level < place.level && isAlive(); ++level)
        select(level, levels_[level].opened, true);
    if (!isAlive())
        return;
    if (!levels_[place.level].popup) {
        if (place.item < 0 || place.item == levels_[place.level].selected)
            return;
        bool opens = levels_.size() > 1 || isDragging_;
        closeDown(place.level);
        select(place.level, place.item, true);
        if (opens && isAlive())
            openSubMenu(place.level, Selection::None);
        return;
    }
    select(place.level, place.item, true);
    if (isAlive() && place.item != levels_[place.level].opened)
        setSystemTimer(levels_[place.level].popup->window(), hoverTimer, hoverDelay());
}

// What is open below a pop-up becomes what its selection asks for.
void MenuLoop::follow(size_t level)
{
    if (levels_[level].selected == levels_[level].opened)
        return;
    closeDown(level);
    if (isAlive())
        openSubMenu(level, Selection::None);
}

void MenuLoop::stopTimers()
{
    for (const Level &level : levels_) {
        if (!level.popup || !level.popup->isThere())
            continue;
        killSystemTimer(level.popup->window(), hoverTimer);
        if (!scrolling_)
            killSystemTimer(level.popup->window(), scrollTimer);
    }
}

bool MenuLoop::takeTimer(const MSG &message)
{
    if (message.message != WM_SYSTIMER)
        return false;
    for (size_t level = 0; level < levels_.size(); ++level) {
        MenuPopup *popup = levels_[level].popup.get();
        if (!popup || popup->window() != message.hwnd)
            continue;
        if (message.wParam == scrollTimer && scrolling_) {
            popup->scroll(scrolling_);
        } else {
            killSystemTimer(message.hwnd, message.wParam);
            if (message.wParam == hoverTimer)
                follow(level);
        }
        return true;
    }
    return false;
}

bool MenuLoop::isOnSystemIcon(POINT point) const
{
    return kind_ == Kind::System && defaultHitTest(owner_, point) == HTSYSMENU;
}

void MenuLoop::pressAt(POINT point)
{
    pressTime_ = static_cast<DWORD>(GetMessageTime());
    begin();
    if (!isAlive())
        return;
    lastPoint_ = point;
    int item = 0;
    if (kind_ == Kind::Bar && (!hitMenuBar(owner_, point, item) || item < 0)) {
        end();
        return;
    }
    isDragging_ = true;
    select(0, item, true);
    if (isAlive())
        openSubMenu(0, Selection::None);
}

void MenuLoop::press(POINT point, DWORD time, bool isRight)
{
    Place place;
    lastPoint_ = point;
    if (placeAt(point, place)) {
        if (!isRight || (flags_ & TPM_RIGHTBUTTON))
            pressItem(place);
        return;
    }
    // The second click on the icon closes the window; any later one closes the menu.
    bool isSecond =
        isOnSystemIcon(point) && !isRight && time - pressTime_ <= GetDoubleClickTime() && isCloseEnabled(owner_);
    if (isSecond)
        PostMessageA(owner_, WM_SYSCOMMAND, SC_CLOSE, MAKELPARAM(point.x, point.y));
    end();
}

void MenuLoop::pressItem(const Place &place)
{
    bool isInBar = !levels_[place.level].popup;
    if (isInBar && (place.item < 0 || place.item == levels_[place.level].opened)) {
        end();
        return;
    }
    isDragging_ |= isInBar;
    if (place.item < 0 || place.item == levels_[place.level].opened)
        return;
    closeDown(place.level);
    select(place.level, place.item, true);
    if (isAlive())
        openSubMenu(place.level, Selection::None);
}

void MenuLoop::release(POINT point, bool isRight)
{
    bool counts = !isRight || (flags_ & TPM_RIGHTBUTTON);
    bool wasDragging = counts && std::exchange(isDragging_, false);
    Place place;
    lastPoint_ = point;
    if (!placeAt(point, place)) {
        if (wasDragging && !isOnSystemIcon(point))
            end();
        return;
    }
    if (place.item < 0)
        return;
    if (!counts) {
        send(WM_MENURBUTTONUP, static_cast<WPARAM>(place.item), reinterpret_cast<LPARAM>(levels_[place.level].menu));
        return;
    }
    select(place.level, place.item, true);
    if (isAlive())
        choose(place.level, place.item);
    bool hasNothingOpen = !isOver_ && isBar(place.level) && levels_.size() == 1;
    if (hasNothingOpen)
        end();
}

void MenuLoop::wheel(int delta)
{
    if (MenuPopup *popup = levels_.back().popup.get())
        popup->scroll(delta > 0 ? -itemsOfWheelStep : itemsOfWheelStep);
}

bool MenuLoop::takeKey(WPARAM key)
{
    stopTimers();
    switch (key) {
    case VK_MENU:
    case VK_F10: end(); return true;
    case VK_ESCAPE: escape(); return true;
    case VK_RETURN: enter(); return true;
    case VK_UP: moveSelection(-1); return true;
    case VK_DOWN: moveSelection(1); return true;
    case VK_HOME: selectEnd(1); return true;
    case VK_END: selectEnd(-1); return true;
    case VK_LEFT: goLeft(); return true;
    case VK_RIGHT: goRight(); return true;
    default: return false;
    }
}

// Goes round and leaves out separators. In a bar it opens what hangs below.
void MenuLoop::moveSelection(int step)
{
    size_t level = levels_.size() - 1;
    if (!levels_[level].popup) {
        openSubMenu(level, Selection::First);
        return;
    }
    int count = itemCount(level), item = levels_[level].selected;
    if (item < 0)
        item = step > 0 ? -1 : count;
    MenuItem copy;
    for (int tried = 0; tried < count; ++tried) {
        item = (item + step + count) % count;
        if (itemOf(level, item, copy) && !copy.isSeparator()) {
            select(level, item, false);
            return;
        }
    }
}

void MenuLoop::selectEnd(int step)
{
    size_t level = levels_.size() - 1;
    int count = itemCount(level);
    MenuItem copy;
    for (int item = step > 0 ? 0 : count - 1; item >= 0 && item < count; item += step) {
        if (itemOf(level, item, copy) && !copy.isSeparator()) {
            select(level, item, false);
            return;
        }
    }
}

// The bar and the system menu stand in one row, and what comes next opens when the one before was open.
void MenuLoop::moveToNeighbour(int step)
{
    if (kind_ == Kind::Popup)
        return;
    bool wasOpen = levels_.size() > 1;
    int count = itemCount(0), item = std::max(levels_[0].selected, 0) + step;
    closeDown(0);
    bool isAtEnd = kind_ == Kind::System || item < 0 || item >= count;
    if (!isAlive() || (isAtEnd && !changeRow()))
        return;
    count = itemCount(0);
    select(0, isAtEnd ? (step > 0 ? 0 : count - 1) : item, false);
    if (wasOpen && isAlive())
        openSubMenu(0, Selection::First);
}

// From the bar to the system menu and back; to itself where there is no other. False when nothing can go on.
bool MenuLoop::changeRow()
{
    bool isToSystem = kind_ == Kind::Bar;
    HMENU next = isToSystem ? preparedSystemMenu(owner_) : usableMenuBar(owner_);
    if (next) {
        select(0, -1, false);
        kind_ = isToSystem ? Kind::System : Kind::Bar;
        root_ = next;
        levels_[0].menu = next;
        levels_[0].isOfSystem = isToSystem;
    }
    return isAlive() && itemCount(0) > 0;
}

// The item beside the selected one in the next column; false where there is none.
bool MenuLoop::moveToColumn(int step)
{
    size_t level = levels_.size() - 1;
    if (!levels_[level].popup)
        return false;
    int found = -1;
    {
        UserLock lock;
        const Menu *menu = findMenuQuietly(levels_[level].menu);
        int selected = levels_[level].selected;
        if (!menu || selected < 0 || static_cast<size_t>(selected) >= menu->items.size())
            return false;
        const RECT &from = menu->items[static_cast<size_t>(selected)].rect;
        for (int item = selected; item >= 0 && static_cast<size_t>(item) < menu->items.size(); item += step) {
            const RECT &rect = menu->items[static_cast<size_t>(item)].rect;
            bool isBeside = rect.left != from.left && rect.top < from.bottom && rect.bottom > from.top;
            if (isBeside && !menu->items[static_cast<size_t>(item)].isSeparator()) {
                found = item;
                break;
            }
        }
    }
    if (found >= 0)
        select(level, found, false);
    return found >= 0;
}

void MenuLoop::goLeft()
{
    bool isInSubMenu = levels_.size() > (kind_ == Kind::Popup ? 1u : 2u);
    if (moveToColumn(-1))
        return;
    if (isInSubMenu)
        closeDeepest();
    else
        moveToNeighbour(-1);
}

void MenuLoop::goRight()
{
    size_t level = levels_.size() - 1;
    bool hasSubMenu = levels_[level].popup && subMenuOf(level, levels_[level].selected);
    if (hasSubMenu)
        openSubMenu(level, Selection::First);
    else if (!moveToColumn(1))
        moveToNeighbour(1);
}

// Nothing selected, or what cannot be chosen, ends the menu without a choice.
void MenuLoop::enter()
{
    size_t level = levels_.size() - 1;
    if (subMenuOf(level, levels_[level].selected))
        openSubMenu(level, Selection::First);
    else {
        choose(level, levels_[level].selected);
        end();
    }
}

void MenuLoop::escape()
{
    size_t roots = kind_ == Kind::System ? 2 : 1;
    if (levels_.size() > roots)
        closeDeepest();
    else
        end();
}

// The next item, round from the selected one, that a character stands for: by its marked letter, or, in a menu
// where no letter that fits is marked, by its first.
int MenuLoop::findCharacter(size_t level, WORD character, bool &isOnly) const
{
    for (bool byMark : {true, false}) {
        int count = itemCount(level), start = levels_[level].selected, found = -1, matches = 0;
        for (int i = 1; i <= count; ++i) {
            int item = (std::max(start, -1) + i) % count;
            MenuItem copy;
            if (!itemOf(level, item, copy) || copy.isSeparator() || copy.isOwnerDrawn())
                continue;
            if (!isSameLetter(letterOf(copy, byMark), character))
                continue;
            ++matches;
            if (found < 0)
                found = item;
        }
        isOnly = matches == 1;
        if (found >= 0)
            return found;
    }
    return -1;
}

void MenuLoop::execute(size_t level, int item)
{
    select(level, item, false);
    if (!isAlive())
        return;
    if (subMenuOf(level, item))
        openSubMenu(level, Selection::First);
    else
        choose(level, item);
}

void MenuLoop::takeCharacter(WORD character)
{
    size_t level = levels_.size() - 1;
    if (character == ' ' && isBar(level)) {
        if (changeRow())
            execute(0, 0);
        return;
    }
    bool isOnly = false;
    int item = findCharacter(level, character, isOnly);
    if (item < 0)
        askForCharacter(level, character);
    else if (isOnly)
        execute(level, item);
    else
        select(level, item, false);
}

// The owner may know what a character means that no item is marked with.
void MenuLoop::askForCharacter(size_t level, WORD character)
{
    UINT kind = (levels_[level].popup ? UINT{MF_POPUP} : 0u) | (levels_[level].isOfSystem ? UINT{MF_SYSMENU} : 0u);
    LRESULT answer = send(WM_MENUCHAR, MAKEWPARAM(character, kind), reinterpret_cast<LPARAM>(levels_[level].menu));
    int item = LOWORD(answer);
    switch (HIWORD(answer)) {
    case MNC_CLOSE: end(); break;
    case MNC_EXECUTE:
        if (isAlive() && item < itemCount(level))
            execute(level, item);
        break;
    case MNC_SELECT:
        if (isAlive() && item < itemCount(level))
            select(level, item, false);
        break;
    default: MessageBeep(0); break;
    }
}

void MenuLoop::openByKey(WORD character)
{
    begin();
    if (!isAlive())
        return;
    if (kind_ == Kind::System) {
        select(0, 0, false);
        if (isAlive())
            openSubMenu(0, Selection::First);
    } else if (character == 0) {
        selectEnd(1);
    } else {
        takeCharacter(character);
        // A character that means nothing here opens nothing.
        if (levels_[0].selected < 0)
            end();
    }
}

} // namespace win32::user
