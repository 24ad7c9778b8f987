// The life of a menu's loop: its messages in their order, and the levels of open menus.
#include "menu_loop.h"

#include "input.h"
#include "kernel/kernel_internal.h"
#include "menu_bar.h"
#include "menu_layout.h"
#include "message_queue.h"
#include "system_menu.h"

namespace win32::user {
namespace {

thread_local MenuLoop *innermost = nullptr;

bool isMenu(HMENU menu)
{
    UserLock lock;
    return findMenuQuietly(menu) != nullptr;
}

bool isMousePress(UINT message)
{
    return message == WM_LBUTTONDOWN || message == WM_LBUTTONDBLCLK || message == WM_RBUTTONDOWN
           || message == WM_RBUTTONDBLCLK;
}

} // namespace

MenuLoop::MenuLoop(HWND owner, HMENU root, Kind kind, UINT flags)
    : owner_(owner), root_(root), kind_(kind), flags_(flags), outer_(innermost), activeBefore_(GetActiveWindow())
{
    innermost = this;
}

MenuLoop::~MenuLoop()
{
    innermost = outer_;
}

MenuLoop *MenuLoop::current()
{
    return innermost;
}

LRESULT MenuLoop::send(UINT message, WPARAM wParam, LPARAM lParam) const
{
    return IsWindow(owner_) ? sendMessage(owner_, message, wParam, lParam) : 0;
}

void MenuLoop::begin()
{
    hasBegun_ = true;
    bool isPopup = kind_ == Kind::Popup, tells = !(flags_ & TPM_NONOTIFY);
    lastPoint_ = cursorPosition();
    SetCapture(owner_);
    SetCursor(LoadCursorA(nullptr, IDC_ARROW));
    if (tells)
        send(WM_ENTERMENULOOP, isPopup, 0);
    if (tells && isAlive())
        send(WM_INITMENU, reinterpret_cast<WPARAM>(root_), 0);
    // Makes every later level's place sure, and with it that what was opened can be closed.
    if (isAlive() && isRootWithoutWindow(0))
        levels_.push_back({root_, nullptr, -1, -1, kind_ == Kind::System});
}

bool MenuLoop::isLevelAlive(const Level &level) const
{
    return isMenu(level.menu) && (!level.popup || level.popup->isThere());
}

bool MenuLoop::isAlive() const
{
    if (isOver_ || !IsWindow(owner_) || GetCapture() != owner_ || GetActiveWindow() != activeBefore_ || !isMenu(root_))
        return false;
    if (kind_ == Kind::Bar && GetMenu(owner_) != root_)
        return false;
    for (const Level &level : levels_) {
        if (!isLevelAlive(level))
            return false;
    }
    return true;
}

void MenuLoop::run()
{
    guarded(false, [&] {
        bool isIdleTold = false;
        MSG message;
        while (isAlive() && !levels_.empty()) {
            if (!PeekMessageA(&message, nullptr, 0, 0, PM_NOREMOVE)) {
                waitForMessage(isIdleTold);
                continue;
            }
            isIdleTold = false;
            // The order to quit, and a press elsewhere, are left to the program.
            if (message.message == WM_QUIT || look(message) == Step::Left)
                break;
            MSG taken;
            if (PeekMessageA(&taken, nullptr, message.message, message.message, PM_REMOVE))
                serve(taken);
        }
        return true;
    });
    finish();
}

void MenuLoop::waitForMessage(bool &isIdleTold)
{
    // Whatever a message from another thread does to the menu is noticed after so long at the latest.
    constexpr DWORD longest = 500;
    if (isIdleTold) {
        MsgWaitForMultipleObjects(0, nullptr, FALSE, longest, QS_ALLINPUT | QS_ALLPOSTMESSAGE);
        return;
    }
    isIdleTold = true;
    HWND shown = levels_.back().popup ? levels_.back().popup->window() : owner_;
    send(WM_ENTERIDLE, MSGF_MENU, reinterpret_cast<LPARAM>(shown));
}

MenuLoop::Step MenuLoop::look(const MSG &message)
{
    Place place;
    if (!isMousePress(message.message) || placeAt(message.pt, place) || isOnSystemIcon(message.pt))
        return Step::Consumed;
    return Step::Left;
}

void MenuLoop::serve(const MSG &message)
{
    switch (message.message) {
    case WM_MOUSEMOVE:
    case WM_NCMOUSEMOVE: moveTo(message.pt); break;
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
    case WM_RBUTTONDOWN:
    case WM_RBUTTONDBLCLK: press(message.pt, message.time, message.message >= WM_RBUTTONDOWN); break;
    case WM_LBUTTONUP:
    case WM_RBUTTONUP: release(message.pt, message.message == WM_RBUTTONUP); break;
    case WM_MOUSEWHEEL: wheel(static_cast<short>(HIWORD(message.wParam))); break;
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN:
        if (!takeKey(message.wParam))
            TranslateMessage(&message);
        break;
    case WM_CHAR:
    case WM_SYSCHAR: takeCharacter(static_cast<WORD>(message.wParam)); break;
    case WM_KEYUP:
    case WM_SYSKEYUP: break;
    case WM_QUIT:
        PostQuitMessage(static_cast<int>(message.wParam));
        end();
        break;
    default:
        if (!takeTimer(message))
            DispatchMessageA(&message);
        break;
    }
}

// The capture goes first, so that the program knows at the messages below that the menu is over. A menu that this
// one was opened over goes on.
void MenuLoop::finish()
{
    isOver_ = true;
    HWND next = outer_ && !outer_->isOver_ ? outer_->owner_ : nullptr;
    if (GetCapture() == owner_ && next)
        SetCapture(next);
    else if (GetCapture() == owner_)
        ReleaseCapture();
    closeDown(0);
    if (!levels_.empty())
        closeDeepest();
    if (!hasBegun_)
        return;
    send(WM_MENUSELECT, MAKEWPARAM(0, 0xFFFF), 0);
    if (!(flags_ & TPM_NONOTIFY))
        send(WM_EXITMENULOOP, kind_ == Kind::Popup, 0);
}

void MenuLoop::openAt(const PopupPlace &place)
{
    begin();
    if (isAlive())
        openLevel(root_, place, 0, isOfSystem_);
}

// The entry stands before its menu is announced, so that each announcement is taken back.
void MenuLoop::openLevel(HMENU menu, const PopupPlace &place, WPARAM position, bool isOfSystem)
{
    levels_.push_back({menu, nullptr, -1, -1, isOfSystem});
    size_t number = levels_.size() - 1;
    if (!(flags_ & TPM_NONOTIFY))
        send(WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(menu), MAKELPARAM(position, isOfSystem));
    guarded(false, [&] {
        if (isAlive())
            levels_[number].popup = std::make_unique<MenuPopup>(owner_, menu, place);
        return true;
    });
    if (levels_[number].popup && levels_[number].popup->isThere()) {
        hasOpened_ = true;
        return;
    }
    closeDeepest();
}

void MenuLoop::openSubMenu(size_t level, Selection selection)
{
    closeDown(level);
    MenuItem item;
    int selected = levels_[level].selected;
    HMENU subMenu = subMenuOf(level, selected);
    if (!subMenu || !itemOf(level, selected, item) || item.isDisabled())
        return;
    stopTimers();
    levels_[level].opened = selected;
    guarded(false, [&] {
        openLevel(subMenu, placeOf(level), static_cast<WPARAM>(selected), levels_[level].isOfSystem);
        return true;
    });
    if (levels_.size() != level + 2 || !levels_.back().popup) {
        closeDown(level);
        levels_[level].opened = -1;
        return;
    }
    if (selection == Selection::First && isAlive())
        selectEnd(1);
}

void MenuLoop::closeDown(size_t level)
{
    while (levels_.size() > level + 1)
        closeDeepest();
}

void MenuLoop::closeDeepest()
{
    Level closed = std::move(levels_.back());
    levels_.pop_back();
    if (!levels_.empty())
        levels_.back().opened = -1;
    setHighlight(closed, closed.selected, false);
    if (!closed.popup)
        repaint(closed, closed.selected);
    closed.popup.reset();
    bool wasAnnounced = !levels_.empty() || kind_ == Kind::Popup;
    if (wasAnnounced && !(flags_ & TPM_NONOTIFY))
        send(WM_UNINITMENUPOPUP, reinterpret_cast<WPARAM>(closed.menu),
             MAKELPARAM(0, closed.isOfSystem ? UINT{MF_SYSMENU} : 0u));
}

// Beside the item of a pop-up, below that of a bar, at the icon of the caption.
PopupPlace MenuLoop::placeOf(size_t level) const
{
    PopupPlace place;
    RECT rect{};
    if (isBar(level)) {
        barItemRect(owner_, levels_[level].selected, rect);
        place.corner = {rect.left, rect.bottom};
        place.kept = rect;
    } else if (isRootWithoutWindow(level)) {
        rect = systemIconRect(owner_);
        place.corner = {rect.left, rect.bottom};
        place.kept = rect;
    } else {
        GetMenuItemRect(nullptr, levels_[level].menu, static_cast<UINT>(levels_[level].selected), &rect);
        place.corner = {rect.right, rect.top - popupEdge};
        place.kept = rect;
        place.isBeside = true;
    }
    return place;
}

bool MenuLoop::itemOf(size_t level, int item, MenuItem &copy) const
{
    UserLock lock;
    const Menu *menu = findMenuQuietly(levels_[level].menu);
    if (!menu || item < 0 || static_cast<size_t>(item) >= menu->items.size())
        return false;
    copy = menu->items[static_cast<size_t>(item)];
    return true;
}

HMENU MenuLoop::subMenuOf(size_t level, int item) const
{
    UserLock lock;
    const Menu *menu = findMenuQuietly(levels_[level].menu);
    if (!menu || item < 0 || static_cast<size_t>(item) >= menu->items.size())
        return nullptr;
    HMENU subMenu = menu->items[static_cast<size_t>(item)].subMenu;
    return findMenuQuietly(subMenu) ? subMenu : nullptr;
}

int MenuLoop::itemCount(size_t level) const
{
    UserLock lock;
    const Menu *menu = findMenuQuietly(levels_[level].menu);
    return menu ? static_cast<int>(menu->items.size()) : 0;
}

void MenuLoop::setHighlight(const Level &level, int item, bool isOn)
{
    UserLock lock;
    Menu *menu = findMenuQuietly(level.menu);
    if (!menu || item < 0 || static_cast<size_t>(item) >= menu->items.size())
        return;
    UINT &state = menu->items[static_cast<size_t>(item)].state;
    state = isOn ? state | MFS_HILITE : state & ~UINT{MFS_HILITE};
}

void MenuLoop::repaint(const Level &level, int item) const
{
    if (level.popup)
        level.popup->repaintItem(item);
    else if (kind_ == Kind::Bar)
        repaintBarItem(owner_, level.menu, item);
}

void MenuLoop::select(size_t level, int item, bool byMouse)
{
    Level &entry = levels_[level];
    if (entry.selected == item)
        return;
    int before = std::exchange(entry.selected, item);
    setHighlight(entry, before, false);
    repaint(entry, before);
    if (item < 0)
        return;
    setHighlight(entry, item, true);
    if (entry.popup)
        entry.popup->scrollTo(item);
    repaint(entry, item);
    sendSelect(entry, byMouse);
}

void MenuLoop::sendSelect(const Level &level, bool byMouse) const
{
    UINT number, flags;
    {
        UserLock lock;
        const Menu *menu = findMenuQuietly(level.menu);
        if (!menu || level.selected < 0 || static_cast<size_t>(level.selected) >= menu->items.size())
            return;
        const MenuItem &item = menu->items[static_cast<size_t>(level.selected)];
        number = item.subMenu ? static_cast<UINT>(level.selected) : item.id;
        flags = item.type | item.state | (item.subMenu ? UINT{MF_POPUP} : 0u) | (item.bitmap ? UINT{MF_BITMAP} : 0u);
    }
    flags |= (byMouse ? UINT{MF_MOUSESELECT} : 0u) | (level.isOfSystem ? UINT{MF_SYSMENU} : 0u);
    send(WM_MENUSELECT, MAKEWPARAM(number, flags), reinterpret_cast<LPARAM>(level.menu));
}

// Only an enabled item without a submenu is a choice, and ends the menu.
void MenuLoop::choose(size_t level, int item)
{
    UserLock lock;
    const Menu *menu = findMenuQuietly(levels_[level].menu);
    const Menu *root = findMenuQuietly(root_);
    if (!menu || item < 0 || static_cast<size_t>(item) >= menu->items.size())
        return;
    const MenuItem &picked = menu->items[static_cast<size_t>(item)];
    if (picked.isDisabled() || picked.isSeparator() || findMenuQuietly(picked.subMenu))
        return;
    bool isByPosition = (menu->style & MNS_NOTIFYBYPOS) || (root && (root->style & MNS_NOTIFYBYPOS));
    chosen_ = {levels_[level].menu, static_cast<UINT>(item), picked.id, levels_[level].isOfSystem, isByPosition};
    hasChosen_ = isOver_ = true;
}

void MenuLoop::postChoice() const
{
    if (!hasChosen_ || (flags_ & TPM_RETURNCMD))
        return;
    POINT point = lastPoint_;
    if (chosen_.isOfSystem)
        PostMessageA(owner_, WM_SYSCOMMAND, chosen_.id, MAKELPARAM(point.x, point.y));
    else if (chosen_.isByPosition)
        PostMessageA(owner_, WM_MENUCOMMAND, chosen_.position, reinterpret_cast<LPARAM>(chosen_.menu));
    else
        PostMessageA(owner_, WM_COMMAND, MAKEWPARAM(chosen_.id, 0), 0);
}

} // namespace win32::user
