// Moving and sizing a window by mouse or keys. The window follows at once, as programs of today expect.
#include "frame.h"
#include "kernel/kernel_internal.h"
#include "message_queue.h"
#include "placement.h"

namespace win32::user {
namespace {

// Which sides move, by the hit code of the border; moving takes all.
struct Sides {
    bool left, top, right, bottom;
};

Sides sidesOf(int hit)
{
    if (hit == HTCAPTION)
        return {true, true, true, true};
    return {hit == HTLEFT || hit == HTTOPLEFT || hit == HTBOTTOMLEFT, hit == HTTOP || hit == HTTOPLEFT || hit == HTTOPRIGHT,
            hit == HTRIGHT || hit == HTTOPRIGHT || hit == HTBOTTOMRIGHT,
            hit == HTBOTTOM || hit == HTBOTTOMLEFT || hit == HTBOTTOMRIGHT};
}

class Tracking {
public:
    Tracking(HWND window, UINT command, POINT start)
        : window_(window), isMove_((command & 0xfff0) == SC_MOVE),
          hit_(isMove_ ? static_cast<int>(HTCAPTION) : static_cast<int>((command & 0xf) ? HTLEFT + (command & 0xf) - 1 : HTBOTTOMRIGHT)),
          start_(start), limits_(askLimits(window))
    {
        GetWindowRect(window, &first_);
        current_ = first_;
    }

    void run()
    {
        sendMessage(window_, WM_ENTERSIZEMOVE, 0, 0);
        SetCapture(window_);
        MSG message;
        bool isGoingOn = true;
        while (isGoingOn && GetCapture() == window_ && GetMessageA(&message, nullptr, 0, 0) > 0)
            isGoingOn = take(message);
        if (GetCapture() == window_)
            ReleaseCapture();
        if (IsWindow(window_))
            sendMessage(window_, WM_EXITSIZEMOVE, 0, 0);
    }

private:
    // False at the end.
    bool take(const MSG &message)
    {
        switch (message.message) {
        case WM_MOUSEMOVE:
            follow(message.pt);
            return true;
        case WM_LBUTTONUP:
            follow(message.pt);
            return false;
        case WM_KEYDOWN:
            return takeKey(message.wParam);
        default:
            TranslateMessage(&message);
            DispatchMessageA(&message);
            return true;
        }
    }

    bool takeKey(WPARAM key)
    {
        constexpr int step = 8;
        switch (key) {
        case VK_ESCAPE:
            place(first_);
            return false;
        case VK_RETURN:
            return false;
        case VK_LEFT:
            return moveCursor(-step, 0);
        case VK_RIGHT:
            return moveCursor(step, 0);
        case VK_UP:
            return moveCursor(0, -step);
        case VK_DOWN:
            return moveCursor(0, step);
        default:
            return true;
        }
    }

    // The window follows at once: further keys may wait in front of the message of the mouse.
    bool moveCursor(int x, int y)
    {
        POINT point = cursorPosition();
        SetCursorPos(point.x + x, point.y + y);
        follow(cursorPosition());
        return true;
    }

    void follow(POINT point)
    {
        int x = point.x - start_.x, y = point.y - start_.y;
        Sides sides = sidesOf(hit_);
        RECT rect = first_;
        if (sides.left)
            rect.left += x;
        if (sides.right)
            rect.right += x;
        if (sides.top)
            rect.top += y;
        if (sides.bottom)
            rect.bottom += y;
        if (!isMove_)
            bound(rect, sides);
        if (EqualRect(&rect, &current_))
            return;
        if (isMove_)
            sendMessage(window_, WM_MOVING, 0, reinterpret_cast<LPARAM>(&rect));
        else
            sendMessage(window_, WM_SIZING, static_cast<WPARAM>(hit_ - HTLEFT + 1), reinterpret_cast<LPARAM>(&rect));
        place(rect);
    }

    void bound(RECT &rect, const Sides &sides) const
    {
        auto width = static_cast<LONG>(std::clamp<LONG>(rect.right - rect.left, limits_.ptMinTrackSize.x, limits_.ptMaxTrackSize.x));
        auto height = static_cast<LONG>(std::clamp<LONG>(rect.bottom - rect.top, limits_.ptMinTrackSize.y, limits_.ptMaxTrackSize.y));
        if (sides.left)
            rect.left = rect.right - width;
        else
            rect.right = rect.left + width;
        if (sides.top)
            rect.top = rect.bottom - height;
        else
            rect.bottom = rect.top + height;
    }

    void place(const RECT &rect)
    {
        current_ = rect;
        POINT corner{rect.left, rect.top};
        if (GetWindowLongA(window_, GWL_STYLE) & WS_CHILD)
            ScreenToClient(GetParent(window_), &corner);
        SetWindowPos(window_, nullptr, corner.x, corner.y, rect.right - rect.left, rect.bottom - rect.top,
                     SWP_NOZORDER | SWP_NOACTIVATE);
        UpdateWindow(window_);
    }

    HWND window_;
    bool isMove_;
    int hit_;
    POINT start_;
    MINMAXINFO limits_;
    RECT first_{};
    RECT current_{};
};

// Without the mouse on the frame, it is put where it will hold the window.
POINT startByKey(HWND window, bool isSize)
{
    RECT rect;
    GetWindowRect(window, &rect);
    POINT point = isSize ? POINT{rect.right - 1, rect.bottom - 1}
                         : POINT{(rect.left + rect.right) / 2, rect.top + GetSystemMetrics(SM_CYFRAME) + GetSystemMetrics(SM_CYCAPTION) / 2};
    SetCursorPos(point.x, point.y);
    return cursorPosition();
}

} // namespace

void moveOrSize(HWND window, UINT command, POINT point)
{
    DWORD style = static_cast<DWORD>(GetWindowLongA(window, GWL_STYLE));
    bool isSize = (command & 0xfff0) == SC_SIZE;
    if ((style & (WS_MAXIMIZE)) || (isSize && !(style & WS_THICKFRAME)) || (isSize && (style & WS_MINIMIZE)))
        return;
    Tracking(window, command, command & 0xf ? point : startByKey(window, isSize)).run();
}

MINMAXINFO askLimits(HWND window)
{
    DWORD style = static_cast<DWORD>(GetWindowLongA(window, GWL_STYLE));
    HWND parent = style & WS_CHILD ? GetParent(window) : nullptr;
    RECT area = workArea(MonitorFromWindow(window, MONITOR_DEFAULTTOPRIMARY));
    if (parent)
        GetClientRect(parent, &area);
    int edge = style & WS_THICKFRAME ? GetSystemMetrics(SM_CXFRAME) : 0;
    POINT most{GetSystemMetrics(SM_CXMAXTRACK), GetSystemMetrics(SM_CYMAXTRACK)};
    POINT least{0, 0};
    if ((style & WS_CAPTION) == WS_CAPTION)
        least = {GetSystemMetrics(SM_CXMINTRACK), GetSystemMetrics(SM_CYMINTRACK)};
    else if (edge)
        least = {2 * edge, 2 * edge};
    MINMAXINFO limits{{0, 0},
                      {area.right - area.left + 2 * edge, area.bottom - area.top + 2 * edge},
                      {area.left - edge, area.top - edge},
                      least,
                      most};
    sendMessage(window, WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&limits));
    limits.ptMaxTrackSize.x = std::max(limits.ptMaxTrackSize.x, limits.ptMinTrackSize.x);
    limits.ptMaxTrackSize.y = std::max(limits.ptMaxTrackSize.y, limits.ptMinTrackSize.y);
    return limits;
}

void calculateFirstClientArea(HWND handle)
{
    RECT rect;
    POINT origin{0, 0};
    {
        UserLock lock;
        Window *window = findWindowQuietly(handle);
        if (!window)
            return;
        if (window->isChild())
            origin = clientOrigin(*window->parent);
        rect = movedBack(window->windowRect, origin);
    }
    sendMessage(handle, WM_NCCALCSIZE, FALSE, reinterpret_cast<LPARAM>(&rect));
    UserLock lock;
    if (Window *window = findWindowQuietly(handle))
        window->clientRect = moved(rect, origin);
}

} // namespace win32::user
