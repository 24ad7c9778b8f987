#include "menu_popup.h"

#include "kernel/kernel_internal.h"
#include "menu_paint.h"
#include "placement.h"
#include "window.h"

namespace win32::user {
namespace {

constexpr int signHeight = 12;
const LPCSTR menuClass = MAKEINTATOM(32768);

RECT screenAround(POINT point)
{
    MONITORINFO info{};
    info.cbSize = sizeof info;
    GetMonitorInfoA(MonitorFromPoint(point, MONITOR_DEFAULTTONEAREST), &info);
    return info.rcMonitor;
}

LONG aligned(LONG at, LONG extent, bool isCentred, bool isAtEnd)
{
    return isCentred ? at - extent / 2 : isAtEnd ? at - extent : at;
}

// Moves an interval into another one: to the far side of what is kept free if it fits there, else as far as need be.
LONG fitted(LONG at, LONG extent, LONG from, LONG to, LONG keptFrom, LONG keptTo)
{
    bool isInside = at >= from && at + extent <= to;
    bool isFree = keptFrom >= keptTo || at >= keptTo || at + extent <= keptFrom;
    if (isInside && isFree)
        return at;
    if (keptFrom < keptTo && keptTo + extent <= to && at + extent <= to)
        return keptTo;
    if (keptFrom < keptTo && keptFrom - extent >= from)
        return keptFrom - extent;
    return std::max(from, std::min(at, to - extent));
}

// A point that the pop-up would leave the screen from is its other corner, where it fits.
LONG flipped(LONG at, LONG corner, LONG extent, LONG from, LONG to)
{
    return at + extent > to && at == corner && corner - extent >= from ? corner - extent : at;
}

POINT cornerOf(const PopupPlace &place, SIZE size, const RECT &screen)
{
    UINT align = place.alignment;
    POINT corner{aligned(place.corner.x, size.cx, align & TPM_CENTERALIGN, align & TPM_RIGHTALIGN),
                 aligned(place.corner.y, size.cy, align & TPM_VCENTERALIGN, align & TPM_BOTTOMALIGN)};
    const RECT &kept = place.kept;
    bool keeps = !IsRectEmpty(&kept);
    if (!keeps) {
        corner.x = flipped(corner.x, place.corner.x, size.cx, screen.left, screen.right);
        corner.y = flipped(corner.y, place.corner.y, size.cy, screen.top, screen.bottom);
    }
    bool isBeside = keeps && place.isBeside, isUpOrDown = keeps && !place.isBeside;
    corner.x =
        fitted(corner.x, size.cx, screen.left, screen.right, isBeside ? kept.left : 0, isBeside ? kept.right : 0);
    corner.y =
        fitted(corner.y, size.cy, screen.top, screen.bottom, isUpOrDown ? kept.top : 0, isUpOrDown ? kept.bottom : 0);
    return corner;
}

MenuPopup *popupOf(HWND window)
{
    return reinterpret_cast<MenuPopup *>(GetWindowLongPtrA(window, 0));
}

void paintWindow(HWND window)
{
    PAINTSTRUCT paint;
    HDC context = BeginPaint(window, &paint);
    MenuPopup *popup = popupOf(window);
    if (context && popup)
        popup->paint(context);
    EndPaint(window, &paint);
}

LRESULT CALLBACK menuProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_PAINT: paintWindow(window); return 0;
    case WM_ERASEBKGND: return TRUE;
    case WM_MOUSEACTIVATE: return MA_NOACTIVATE;
    default: return DefWindowProcA(window, message, wParam, lParam);
    }
}

} // namespace

void registerMenuClass()
{
    addSystemClass(menuClass, CS_DBLCLKS, menuProcedure, sizeof(LONG_PTR), LoadCursorA(nullptr, IDC_ARROW), nullptr);
}

MenuPopup::MenuPopup(HWND owner, HMENU menu, const PopupPlace &place) : owner_(owner), menu_(menu)
{
    RECT screen = screenAround(place.corner);
    SIZE content = layOutPopup(owner, menu);
    if (!IsWindow(owner) || !fitHeight(content, screen.bottom - screen.top))
        return;
    POINT corner = cornerOf(place, size_, screen);
    window_ = CreateWindowExA(WS_EX_TOPMOST | WS_EX_TOOLWINDOW | WS_EX_NOACTIVATE, menuClass, nullptr, WS_POPUP,
                              corner.x, corner.y, size_.cx, size_.cy, owner, nullptr, nullptr, nullptr);
    if (!window_)
        return;
    SetWindowLongPtrA(window_, 0, reinterpret_cast<LONG_PTR>(this));
    {
        UserLock lock;
        if (Menu *record = findMenuQuietly(menu))
            record->popup = window_;
    }
    setScroll(0);
    SetWindowPos(window_, HWND_TOPMOST, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE | SWP_SHOWWINDOW);
    UpdateWindow(window_);
}

// One that is too high scrolls by whole items. False for a menu without any.
bool MenuPopup::fitHeight(SIZE content, LONG most)
{
    UserLock lock;
    const Menu *menu = findMenuQuietly(menu_);
    if (!menu || menu->items.empty())
        return false;
    constexpr LONG around = 2 * (popupEdge + signHeight);
    const RECT &first = menu->items.front().rect;
    step_ = std::max<int>(first.bottom - first.top, 1);
    if (menu->mostHeight > 0 && menu->mostHeight < static_cast<UINT>(most))
        most = std::max<LONG>(static_cast<LONG>(menu->mostHeight), around + step_);
    contentHeight_ = content.cy - 2 * popupEdge;
    scrolls_ = content.cy > most;
    size_ = {content.cx, scrolls_ ? std::max<LONG>(most - (most - around) % step_, around + 1) : content.cy};
    return true;
}

MenuPopup::~MenuPopup()
{
    {
        UserLock lock;
        Menu *record = findMenuQuietly(menu_);
        if (record && record->popup == window_)
            record->popup = nullptr;
    }
    if (!isThere())
        return;
    SetWindowLongPtrA(window_, 0, 0);
    DestroyWindow(window_);
}

bool MenuPopup::contains(POINT point) const
{
    RECT rect;
    return isThere() && GetWindowRect(window_, &rect) && PtInRect(&rect, point);
}

int MenuPopup::itemAt(POINT point) const
{
    RECT inside = view();
    if (!isThere() || !ScreenToClient(window_, &point) || !PtInRect(&inside, point))
        return -1;
    UserLock lock;
    const Menu *menu = findMenuQuietly(menu_);
    if (!menu)
        return -1;
    point.y -= menu->popupShift;
    for (size_t i = 0; i < menu->items.size(); ++i) {
        if (PtInRect(&menu->items[i].rect, point))
            return static_cast<int>(i);
    }
    return -1;
}

int MenuPopup::scrollSignAt(POINT point) const
{
    if (!scrolls_ || !isThere() || !ScreenToClient(window_, &point))
        return 0;
    RECT up = signRect(true), down = signRect(false);
    return PtInRect(&up, point) ? -1 : PtInRect(&down, point) ? 1 : 0;
}

RECT MenuPopup::view() const
{
    int signs = scrolls_ ? signHeight : 0;
    return {popupEdge, popupEdge + signs, size_.cx - popupEdge, size_.cy - popupEdge - signs};
}

RECT MenuPopup::signRect(bool isUp) const
{
    RECT inside = view();
    return isUp ? RECT{inside.left, popupEdge, inside.right, inside.top}
                : RECT{inside.left, inside.bottom, inside.right, size_.cy - popupEdge};
}

int MenuPopup::mostScroll() const
{
    RECT inside = view();
    return std::max<int>(0, contentHeight_ - (inside.bottom - inside.top));
}

void MenuPopup::setScroll(int scroll)
{
    scroll_ = std::clamp(scroll, 0, mostScroll());
    UserLock lock;
    if (Menu *menu = findMenuQuietly(menu_))
        menu->popupShift = (scrolls_ ? signHeight : 0) - scroll_;
}

void MenuPopup::scroll(int items)
{
    scrollBy(items * step_);
}

void MenuPopup::scrollBy(int pixels)
{
    int before = scroll_;
    setScroll(scroll_ + pixels);
    if (scroll_ == before)
        return;
    InvalidateRect(window_, nullptr, FALSE);
    UpdateWindow(window_);
}

void MenuPopup::scrollTo(int item)
{
    RECT rect, inside = view();
    {
        UserLock lock;
        const Menu *menu = findMenuQuietly(menu_);
        if (!scrolls_ || !menu || item < 0 || static_cast<size_t>(item) >= menu->items.size())
            return;
        rect = menu->items[static_cast<size_t>(item)].rect;
        OffsetRect(&rect, 0, menu->popupShift);
    }
    if (rect.top < inside.top)
        scrollBy(rect.top - inside.top);
    else if (rect.bottom > inside.bottom)
        scrollBy(rect.bottom - inside.bottom);
}

void MenuPopup::repaintItem(int item) const
{
    if (!isThere() || item < 0)
        return;
    HDC context = GetDC(window_);
    if (!context)
        return;
    RECT inside = view();
    IntersectClipRect(context, inside.left, inside.top, inside.right, inside.bottom);
    paintMenuItem(context, owner_, menu_, static_cast<size_t>(item), MenuLook::Popup, ODA_SELECT);
    ReleaseDC(window_, context);
}

void MenuPopup::paint(HDC context) const
{
    RECT edge{0, 0, size_.cx, size_.cy};
    DrawEdge(context, &edge, EDGE_RAISED, BF_RECT | BF_ADJUST);
    FrameRect(context, &edge, GetSysColorBrush(COLOR_MENU));
    if (scrolls_) {
        paintScrollSign(context, signRect(true), true, scroll_ > 0);
        paintScrollSign(context, signRect(false), false, scroll_ < mostScroll());
    }
    RECT inside = view();
    IntersectClipRect(context, inside.left, inside.top, inside.right, inside.bottom);
    paintMenuItems(context, owner_, menu_, MenuLook::Popup, inside);
}

} // namespace win32::user
