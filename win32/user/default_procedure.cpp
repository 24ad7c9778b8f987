// DefWindowProcA: what the system does with a message that a program has no wish for.
#include "focus.h"
#include "frame.h"
#include "kernel/kernel_internal.h"
#include "menu_bar.h"
#include "menu_loop.h"
#include "message_queue.h"
#include "placement.h"
#include "position_flags.h"
#include "update.h"

#include <cstring>

namespace win32::user {
namespace {

struct WindowFacts {
    bool isKnown = false;
    DWORD style = 0;
    DWORD extendedStyle = 0;
    HWND parent = nullptr; // of a child
    HWND owner = nullptr;
    HBRUSH background = nullptr;
    HCURSOR cursor = nullptr;
    UINT classStyle = 0;
    RECT client{}; // in the coordinates of the parent, or of the screen
};

WindowFacts factsOf(HWND handle)
{
    UserLock lock;
    Window *window = findWindowQuietly(handle);
    if (!window)
        return {};
    WindowFacts facts{true, window->style, window->extendedStyle};
    facts.parent = window->isChild() ? window->parent->hwnd() : nullptr;
    facts.owner = window->owner ? window->owner->hwnd() : nullptr;
    facts.background = window->windowClass->background;
    facts.cursor = window->windowClass->cursor;
    facts.classStyle = window->windowClass->style;
    POINT origin = window->isChild() ? clientOrigin(*window->parent) : POINT{0, 0};
    facts.client = movedBack(window->clientRect, origin);
    return facts;
}

LRESULT setText(HWND handle, LPCSTR text)
{
    bool showsCaption = false;
    bool isSet = guarded(false, [&] {
        UserLock lock;
        Window *window = findWindowQuietly(handle);
        if (!window)
            return false;
        window->text = text ? text : "";
        showsCaption = (window->style & WS_CAPTION) == WS_CAPTION && window->isVisible();
        return true;
    });
    if (isSet && showsCaption)
        paintFrame(handle, nullptr);
    return isSet;
}

LRESULT getText(HWND handle, WPARAM size, LPSTR buffer)
{
    if (!buffer || size == 0)
        return 0;
    UserLock lock;
    Window *window = findWindowQuietly(handle);
    size_t length = window ? std::min<size_t>(window->text.size(), size - 1) : 0;
    if (length)
        memcpy(buffer, window->text.data(), length);
    buffer[length] = 0;
    return static_cast<LRESULT>(length);
}

LRESULT eraseBackground(HWND handle, HDC context)
{
    HBRUSH brush = factsOf(handle).background;
    if (!brush)
        return FALSE;
    auto number = reinterpret_cast<ULONG_PTR>(brush);
    constexpr ULONG_PTR mostColors = 64; // a system colour's number plus one stands for its brush
    if (number < mostColors)
        brush = GetSysColorBrush(static_cast<int>(number - 1));
    RECT area;
    GetClipBox(context, &area);
    FillRect(context, &area, brush);
    return TRUE;
}

LRESULT paint(HWND handle)
{
    PAINTSTRUCT paint;
    if (BeginPaint(handle, &paint))
        EndPaint(handle, &paint);
    return 0;
}

LRESULT calculateClient(HWND handle, WPARAM isFull, LPARAM parameter)
{
    if (!parameter)
        return 0;
    RECT &rect = isFull ? reinterpret_cast<NCCALCSIZE_PARAMS *>(parameter)->rgrc[0] : *reinterpret_cast<RECT *>(parameter);
    layOutMenuBar(handle, gdi::wrappingDifference(rect.right, rect.left));
    UserLock lock;
    Window *window = findWindowQuietly(handle);
    if (!window)
        return 0;
    shrinkToClient(*window, rect);
    UINT classStyle = window->windowClass->style;
    LRESULT result = 0;
    if (isFull && (classStyle & CS_HREDRAW))
        result |= WVR_HREDRAW;
    if (isFull && (classStyle & CS_VREDRAW))
        result |= WVR_VREDRAW;
    return result;
}

// Children do not get to see a position that their parent's frame decides; sizes keep within what the user may
// choose.
LRESULT boundPosition(HWND handle, WINDOWPOS &position)
{
    DWORD style = factsOf(handle).style;
    bool isBounded = (style & WS_THICKFRAME) || (style & (WS_POPUP | WS_CHILD)) == 0;
    if ((position.flags & SWP_NOSIZE) || !isBounded || (style & (WS_MINIMIZE | WS_MAXIMIZE)))
        return 0;
    MINMAXINFO limits = askLimits(handle);
    position.cx = std::max<int>(std::min<int>(position.cx, limits.ptMaxTrackSize.x), limits.ptMinTrackSize.x);
    position.cy = std::max<int>(std::min<int>(position.cy, limits.ptMaxTrackSize.y), limits.ptMinTrackSize.y);
    return 0;
}

LRESULT reportPosition(HWND handle, const WINDOWPOS &position)
{
    WindowFacts facts = factsOf(handle);
    if (!(position.flags & SWP_NOCLIENTMOVE))
        sendMessage(handle, WM_MOVE, 0, MAKELPARAM(facts.client.left, facts.client.top));
    if (!(position.flags & SWP_NOCLIENTSIZE) || (position.flags & SWP_STATECHANGED)) {
        WPARAM kind = facts.style & WS_MINIMIZE   ? WPARAM{SIZE_MINIMIZED}
                      : facts.style & WS_MAXIMIZE ? WPARAM{SIZE_MAXIMIZED}
                                                  : WPARAM{SIZE_RESTORED};
        sendMessage(handle, WM_SIZE, kind,
                    MAKELPARAM(facts.client.right - facts.client.left, facts.client.bottom - facts.client.top));
    }
    return 0;
}

LRESULT setCursor(HWND handle, int hit, UINT message)
{
    WindowFacts facts = factsOf(handle);
    bool isButton = message == WM_LBUTTONDOWN || message == WM_RBUTTONDOWN || message == WM_MBUTTONDOWN;
    if (hit == HTERROR && isButton)
        MessageBeep(0);
    // A parent may want another cursor over its children.
    if (facts.parent && hit != HTERROR
        && sendMessage(facts.parent, WM_SETCURSOR, reinterpret_cast<WPARAM>(handle), MAKELPARAM(hit, message)))
        return TRUE;
    LPCSTR shape = IDC_ARROW;
    switch (hit) {
    case HTCLIENT:
        if (!facts.cursor)
            return FALSE;
        SetCursor(facts.cursor);
        return TRUE;
    case HTLEFT:
    case HTRIGHT:
        shape = IDC_SIZEWE;
        break;
    case HTTOP:
    case HTBOTTOM:
        shape = IDC_SIZENS;
        break;
    case HTTOPLEFT:
    case HTBOTTOMRIGHT:
        shape = IDC_SIZENWSE;
        break;
    case HTTOPRIGHT:
    case HTBOTTOMLEFT:
        shape = IDC_SIZENESW;
        break;
    default:
        break;
    }
    SetCursor(LoadCursorA(nullptr, shape));
    return TRUE;
}

LRESULT answerMouseActivate(HWND handle, WPARAM wParam, LPARAM lParam)
{
    HWND parent = factsOf(handle).parent;
    if (parent) {
        LRESULT answer = sendMessage(parent, WM_MOUSEACTIVATE, wParam, lParam);
        if (answer)
            return answer;
    }
    return MA_ACTIVATE;
}

LRESULT showWithOwner(HWND handle, WPARAM show, LPARAM reason)
{
    WindowFacts facts = factsOf(handle);
    if (!reason || !facts.owner || ((facts.style & WS_VISIBLE) != 0) == (show != 0))
        return 0;
    ShowWindow(handle, show ? SW_SHOWNOACTIVATE : SW_HIDE);
    return 0;
}

LRESULT carryOutSystemCommand(HWND handle, WPARAM command, LPARAM point)
{
    POINT screenPoint{static_cast<short>(LOWORD(point)), static_cast<short>(HIWORD(point))};
    UINT kind = static_cast<UINT>(command) & 0xfff0;
    switch (kind) {
    case SC_MOVE:
    case SC_SIZE:
        moveOrSize(handle, static_cast<UINT>(command), screenPoint);
        break;
    case SC_MINIMIZE:
        ShowWindow(handle, SW_MINIMIZE);
        break;
    case SC_MAXIMIZE:
        ShowWindow(handle, SW_SHOWMAXIMIZED);
        break;
    case SC_RESTORE:
        ShowWindow(handle, SW_RESTORE);
        break;
    case SC_CLOSE:
        return sendMessage(handle, WM_CLOSE, 0, 0);
    case SC_MOUSEMENU:
        trackMenuByMouse(handle, static_cast<int>(command & 0xf), screenPoint);
        break;
    case SC_KEYMENU:
        trackMenuByKey(handle, static_cast<WORD>(point));
        break;
    default:
        break;
    }
    return 0;
}

LRESULT setActiveFrame(HWND handle, bool isActive)
{
    {
        UserLock lock;
        Window *window = findWindowQuietly(handle);
        if (!window)
            return TRUE;
        window->isActiveFrame = isActive;
    }
    paintFrame(handle, nullptr);
    return TRUE;
}

LRESULT setRedraw(HWND handle, bool isOn)
{
    UserLock lock;
    Window *window = findWindowQuietly(handle);
    if (!window)
        return 0;
    window->isRedrawOff = !isOn;
    if (isOn) {
        window->style |= WS_VISIBLE;
    } else {
        guarded(0, [&] {
            changeUpdate(*window, nullptr, RDW_VALIDATE | RDW_ALLCHILDREN);
            return 0;
        });
        window->style &= ~static_cast<DWORD>(WS_VISIBLE);
    }
    return 0;
}

LRESULT setIcon(HWND handle, WPARAM which, HICON icon)
{
    HICON old;
    {
        UserLock lock;
        Window *window = findWindowQuietly(handle);
        if (!window)
            return 0;
        old = std::exchange(which == ICON_SMALL ? window->smallIcon : window->icon, icon);
    }
    paintFrame(handle, nullptr);
    return reinterpret_cast<LRESULT>(old);
}

LRESULT getIcon(HWND handle, WPARAM which)
{
    UserLock lock;
    Window *window = findWindowQuietly(handle);
    return window ? reinterpret_cast<LRESULT>(which == ICON_SMALL ? window->smallIcon : window->icon) : 0;
}

// Colours for the system's controls.
LRESULT controlColor(HDC context, UINT message)
{
    bool isField = message == WM_CTLCOLOREDIT || message == WM_CTLCOLORLISTBOX;
    SetTextColor(context, GetSysColor(isField ? COLOR_WINDOWTEXT : COLOR_BTNTEXT));
    SetBkColor(context, GetSysColor(isField ? COLOR_WINDOW : COLOR_3DFACE));
    return reinterpret_cast<LRESULT>(GetSysColorBrush(isField ? COLOR_WINDOW : COLOR_3DFACE));
}

constexpr LPARAM altIsDown = 1 << 29, wasDown = 1 << 30;

// Alt or F10, pressed and let go with nothing between, goes to the menu.
LRESULT menuKeyUp(HWND handle, WPARAM key)
{
    if ((key == VK_MENU || key == VK_F10) && std::exchange(MessageQueue::current().menuKey, 0) == key)
        sendMessage(GetAncestor(handle, GA_ROOT), WM_SYSCOMMAND, SC_KEYMENU, 0);
    constexpr LPARAM byKey = -1;
    if (key == VK_APPS)
        sendMessage(handle, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(handle), byKey);
    return 0;
}

// Alt with a letter opens the menu that it marks.
LRESULT systemCharacter(HWND handle, WPARAM character, LPARAM parameter)
{
    MessageQueue::current().menuKey = 0;
    bool isForMenu = (parameter & altIsDown) && character != VK_TAB && character != VK_ESCAPE && character != VK_RETURN;
    if (isForMenu)
        sendMessage(handle, WM_SYSCOMMAND, SC_KEYMENU, static_cast<LPARAM>(character));
    return 0;
}

LRESULT systemKey(HWND handle, WPARAM key, LPARAM parameter)
{
    bool isMenuKey = (key == VK_MENU || (key == VK_F10 && GetKeyState(VK_SHIFT) >= 0)) && !(parameter & wasDown);
    if (isMenuKey)
        MessageQueue::current().menuKey = static_cast<BYTE>(key);
    if (key == VK_F4 && (parameter & altIsDown)) {
        HWND top = GetAncestor(handle, GA_ROOT);
        UINT classStyle = factsOf(top).classStyle;
        if (top && !(classStyle & CS_NOCLOSE))
            PostMessageA(top, WM_SYSCOMMAND, SC_CLOSE, 0);
    }
    return 0;
}

LRESULT passToParent(HWND handle, UINT message, WPARAM wParam, LPARAM lParam)
{
    HWND parent = factsOf(handle).parent;
    return parent ? sendMessage(parent, message, wParam, lParam) : 0;
}

POINT pointOf(LPARAM parameter)
{
    return {static_cast<short>(LOWORD(parameter)), static_cast<short>(HIWORD(parameter))};
}

bool isOfCaption(int hit)
{
    return hit == HTCAPTION || hit == HTSYSMENU;
}

LRESULT rightButtonUpInFrame(HWND handle, int hit, LPARAM parameter)
{
    if (isOfCaption(hit))
        sendMessage(handle, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(handle), parameter);
    return 0;
}

// In the caption it is the system menu, elsewhere the parent may have one.
LRESULT showContextMenu(HWND handle, WPARAM from, LPARAM parameter)
{
    constexpr LPARAM byKey = -1;
    bool isHere = reinterpret_cast<HWND>(from) == handle && parameter != byKey;
    if (isHere && isOfCaption(defaultHitTest(handle, pointOf(parameter)))) {
        trackSystemMenuAt(handle, pointOf(parameter));
        return 0;
    }
    return passToParent(handle, WM_CONTEXTMENU, from, parameter);
}

LRESULT rightButtonUp(HWND handle, LPARAM parameter)
{
    POINT point{static_cast<short>(LOWORD(parameter)), static_cast<short>(HIWORD(parameter))};
    ClientToScreen(handle, &point);
    sendMessage(handle, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(handle), MAKELPARAM(point.x, point.y));
    return 0;
}


} // namespace
} // namespace win32::user

using namespace win32;
using namespace win32::user;

LRESULT DefWindowProcA(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_NCCREATE:
        if (auto record = reinterpret_cast<const CREATESTRUCTA *>(lParam); record && record->lpszName)
            setText(window, record->lpszName);
        return TRUE;
    case WM_NCDESTROY:
        return 0;
    case WM_NCCALCSIZE:
        return calculateClient(window, wParam, lParam);
    case WM_NCHITTEST:
        return defaultHitTest(window, pointOf(lParam));
    case WM_NCPAINT:
        paintFrame(window, reinterpret_cast<HRGN>(wParam));
        return 0;
    case WM_NCACTIVATE:
        return setActiveFrame(window, wParam != 0);
    case WM_NCLBUTTONDOWN:
    case WM_NCLBUTTONDBLCLK:
        pressInFrame(window, static_cast<int>(wParam), pointOf(lParam), message == WM_NCLBUTTONDBLCLK);
        return 0;
    case WM_SYSCOMMAND:
        return carryOutSystemCommand(window, wParam, lParam);
    case WM_NCRBUTTONUP:
        return rightButtonUpInFrame(window, static_cast<int>(wParam), lParam);
    case WM_SYSKEYDOWN:
        return systemKey(window, wParam, lParam);
    case WM_KEYUP:
    case WM_SYSKEYUP:
        return menuKeyUp(window, wParam);
    case WM_SYSCHAR:
        return systemCharacter(window, wParam, lParam);
    case WM_SETTEXT:
        return setText(window, reinterpret_cast<LPCSTR>(lParam));
    case WM_GETTEXT:
        return getText(window, wParam, reinterpret_cast<LPSTR>(lParam));
    case WM_GETTEXTLENGTH: {
        UserLock lock;
        Window *record = findWindowQuietly(window);
        return record ? static_cast<LRESULT>(record->text.size()) : 0;
    }
    case WM_PAINT:
        return paint(window);
    case WM_ERASEBKGND:
    case WM_ICONERASEBKGND:
        return eraseBackground(window, reinterpret_cast<HDC>(wParam));
    case WM_CLOSE:
        DestroyWindow(window);
        return 0;
    case WM_QUERYOPEN:
    case WM_QUERYENDSESSION:
        return TRUE;
    case WM_WINDOWPOSCHANGING:
        return lParam ? boundPosition(window, *reinterpret_cast<WINDOWPOS *>(lParam)) : 0;
    case WM_WINDOWPOSCHANGED:
        return lParam ? reportPosition(window, *reinterpret_cast<const WINDOWPOS *>(lParam)) : 0;
    case WM_SHOWWINDOW:
        return showWithOwner(window, wParam, lParam);
    case WM_ACTIVATE:
        if (LOWORD(wParam) != WA_INACTIVE && !HIWORD(wParam))
            SetFocus(window);
        return 0;
    case WM_MOUSEACTIVATE:
        return answerMouseActivate(window, wParam, lParam);
    case WM_SETCURSOR:
        return setCursor(window, static_cast<short>(LOWORD(lParam)), HIWORD(lParam));
    case WM_SETREDRAW:
        return setRedraw(window, wParam != 0);
    case WM_SETICON:
        return setIcon(window, wParam, reinterpret_cast<HICON>(lParam));
    case WM_GETICON:
        return getIcon(window, wParam);
    case WM_CANCELMODE:
        if (GetCapture() == window)
            ReleaseCapture();
        return 0;
    case WM_CTLCOLORMSGBOX:
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORLISTBOX:
    case WM_CTLCOLORBTN:
    case WM_CTLCOLORDLG:
    case WM_CTLCOLORSCROLLBAR:
    case WM_CTLCOLORSTATIC:
        return controlColor(reinterpret_cast<HDC>(wParam), message);
    case WM_RBUTTONUP:
        return rightButtonUp(window, lParam);
    case WM_CONTEXTMENU:
        return showContextMenu(window, wParam, lParam);
    case WM_MOUSEWHEEL:
        return passToParent(window, message, wParam, lParam);
    case WM_VKEYTOITEM:
    case WM_CHARTOITEM:
        return -1;
    case WM_QUERYDRAGICON:
        return getIcon(window, ICON_BIG);
    default:
        return 0;
    }
}
