// The mouse in a frame: what it hits, what a press there does.
#include "frame.h"
#include "kernel/kernel_internal.h"
#include "message_queue.h"
#include "placement.h"
#include "scroll_bar.h"
#include "system_menu.h"

namespace win32::user {
namespace {

// Which side or corner of the border a point is on; corners reach as far as a caption's button.
int hitOnBorder(const RECT &window, POINT point, int edge)
{
    int reach = GetSystemMetrics(SM_CXSIZE) + edge;
    bool isLeft = point.x < window.left + edge, isRight = point.x >= window.right - edge;
    bool isTop = point.y < window.top + edge, isBottom = point.y >= window.bottom - edge;
    if (isTop || isBottom) {
        isLeft = point.x < window.left + reach;
        isRight = !isLeft && point.x >= window.right - reach;
    } else {
        isTop = point.y < window.top + reach;
        isBottom = !isTop && point.y >= window.bottom - reach;
    }
    if (isTop)
        return isLeft ? HTTOPLEFT : isRight ? HTTOPRIGHT : HTTOP;
    if (isBottom)
        return isLeft ? HTBOTTOMLEFT : isRight ? HTBOTTOMRIGHT : HTBOTTOM;
    return isLeft ? HTLEFT : HTRIGHT;
}

int hitInside(const Window &window, const FrameLayout &layout, POINT point)
{
    if (PtInRect(&layout.caption, point)) {
        if (PtInRect(&layout.closeButton, point))
            return HTCLOSE;
        if (PtInRect(&layout.maximizeButton, point))
            return HTMAXBUTTON;
        if (PtInRect(&layout.minimizeButton, point))
            return HTMINBUTTON;
        return PtInRect(&layout.icon, point) ? HTSYSMENU : HTCAPTION;
    }
    if (PtInRect(&layout.menuBar, point))
        return HTMENU;
    if (PtInRect(&layout.horizontalScrollBar, point))
        return HTHSCROLL;
    if (PtInRect(&layout.verticalScrollBar, point))
        return HTVSCROLL;
    if (PtInRect(&layout.corner, point))
        return (window.style & (WS_THICKFRAME | WS_MAXIMIZE)) == WS_THICKFRAME ? HTGROWBOX : HTNOWHERE;
    return HTNOWHERE;
}

UINT commandOf(int hit, bool isMaximized, bool isMinimized)
{
    switch (hit) {
    case HTCLOSE:
        return SC_CLOSE;
    case HTMINBUTTON:
        return isMinimized ? UINT{SC_RESTORE} : UINT{SC_MINIMIZE};
    case HTMAXBUTTON:
        return isMaximized ? UINT{SC_RESTORE} : UINT{SC_MAXIMIZE};
    default:
        return 0;
    }
}

void showButton(HWND handle, int hit)
{
    {
        UserLock lock;
        Window *window = findWindowQuietly(handle);
        if (!window || window->captionButtonDown == hit)
            return;
        window->captionButtonDown = hit;
    }
    paintFrame(handle, nullptr);
}

// A caption's button looks pressed while the mouse is on it. True if it is there at the end.
bool trackButton(HWND window, int hit)
{
    showButton(window, hit);
    SetCapture(window);
    bool isOn = true;
    MSG message;
    while (GetCapture() == window && GetMessageA(&message, nullptr, 0, 0) > 0) {
        if (message.message == WM_LBUTTONUP)
            break;
        if (message.message == WM_MOUSEMOVE) {
            isOn = defaultHitTest(window, message.pt) == hit;
            showButton(window, isOn ? hit : 0);
        } else {
            TranslateMessage(&message);
            DispatchMessageA(&message);
        }
    }
    bool isDone = GetCapture() == window;
    if (isDone)
        ReleaseCapture();
    showButton(window, 0);
    return isDone && isOn;
}

bool isButtonEnabled(HWND window, DWORD style, int hit)
{
    return hit == HTCLOSE ? isCloseEnabled(window) : (hit == HTMINBUTTON ? (style & WS_MINIMIZEBOX) != 0 : (style & WS_MAXIMIZEBOX) != 0);
}

} // namespace

int defaultHitTest(HWND handle, POINT point)
{
    UserLock lock;
    Window *window = findWindowQuietly(handle);
    if (!window || !PtInRect(&window->windowRect, point))
        return HTNOWHERE;
    if (window->isDesktop() || PtInRect(&window->clientRect, point))
        return HTCLIENT;
    FrameLayout layout = layoutOf(*window);
    POINT local{point.x - window->windowRect.left, point.y - window->windowRect.top};
    if (!PtInRect(&layout.inner, local)) {
        bool isSizable = (window->style & (WS_THICKFRAME | WS_MAXIMIZE | WS_MINIMIZE)) == WS_THICKFRAME;
        return isSizable ? hitOnBorder(layout.window, local, layout.edge) : HTBORDER;
    }
    return hitInside(*window, layout, local);
}

void pressInFrame(HWND window, int hit, POINT point, bool isDouble)
{
    auto style = static_cast<DWORD>(GetWindowLongA(window, GWL_STYLE));
    bool isMaximized = (style & WS_MAXIMIZE) != 0, isMinimized = (style & WS_MINIMIZE) != 0;
    LPARAM where = MAKELPARAM(point.x, point.y);
    switch (hit) {
    case HTCAPTION: {
        HWND top = GetAncestor(window, GA_ROOT);
        if (top != GetActiveWindow())
            SetActiveWindow(top);
        if (isDouble && (style & WS_MAXIMIZEBOX))
            sendMessage(window, WM_SYSCOMMAND, isMaximized || isMinimized ? SC_RESTORE : SC_MAXIMIZE, where);
        else if (!isDouble)
            sendMessage(window, WM_SYSCOMMAND, SC_MOVE + HTCAPTION, where);
        break;
    }
    case HTCLOSE:
    case HTMINBUTTON:
    case HTMAXBUTTON:
        if (isButtonEnabled(window, style, hit) && trackButton(window, hit))
            sendMessage(window, WM_SYSCOMMAND, commandOf(hit, isMaximized, isMinimized), where);
        break;
    case HTSYSMENU:
        if (isDouble && isCloseEnabled(window))
            sendMessage(window, WM_SYSCOMMAND, SC_CLOSE, where);
        else if (!isDouble)
            sendMessage(window, WM_SYSCOMMAND, SC_MOUSEMENU + HTSYSMENU, where);
        break;
    case HTMENU:
        sendMessage(window, WM_SYSCOMMAND, SC_MOUSEMENU + HTMENU, where);
        break;
    case HTHSCROLL:
        trackScrollBar(window, SB_HORZ, point);
        break;
    case HTVSCROLL:
        trackScrollBar(window, SB_VERT, point);
        break;
    case HTLEFT:
    case HTRIGHT:
    case HTTOP:
    case HTTOPLEFT:
    case HTTOPRIGHT:
    case HTBOTTOM:
    case HTBOTTOMLEFT:
    case HTBOTTOMRIGHT:
        sendMessage(window, WM_SYSCOMMAND, SC_SIZE + static_cast<UINT>(hit - HTLEFT + 1), where);
        break;
    case HTGROWBOX:
        sendMessage(window, WM_SYSCOMMAND, SC_SIZE + (HTBOTTOMRIGHT - HTLEFT + 1), where);
        break;
    default:
        break;
    }
}

} // namespace win32::user
