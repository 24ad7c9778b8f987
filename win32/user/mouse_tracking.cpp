#include "mouse_tracking.h"

#include "kernel/kernel_internal.h"
#include "message_queue.h"
#include "timers.h"
#include "visibility.h"

#include <cstdlib>

namespace win32::user {
namespace {

constexpr UINT_PTR hoverTimer = 0xfff1;
constexpr DWORD usualHoverTime = 400;
constexpr int hoverReach = 2; // the mouse may tremble

// The mouse is over one window at a time, so one record serves all. Guarded by the lock of the user interface.
struct Tracking {
    HWND window = nullptr;
    DWORD flags = 0;
    DWORD hoverTime = 0;
    POINT restingPoint{};
};
Tracking tracking;

HWND windowUnderMouse()
{
    return windowAt(cursorPosition())->hwnd();
}

bool trembles(POINT point)
{
    return std::abs(point.x - tracking.restingPoint.x) <= hoverReach && std::abs(point.y - tracking.restingPoint.y) <= hoverReach;
}

void startHover()
{
    tracking.restingPoint = cursorPosition();
    setSystemTimer(tracking.window, hoverTimer, tracking.hoverTime);
}

} // namespace

void mouseIsOver(HWND window)
{
    if (!tracking.window || window == tracking.window)
        return;
    if (tracking.flags & TME_LEAVE)
        PostMessageA(tracking.window, WM_MOUSELEAVE, 0, 0);
    tracking = {};
}

bool mouseRests(HWND window, UINT_PTR timer)
{
    if (timer != hoverTimer)
        return false;
    UserLock lock;
    if (window != tracking.window || !(tracking.flags & TME_HOVER)) {
        killSystemTimer(window, hoverTimer);
        return true;
    }
    POINT point = cursorPosition();
    if (!trembles(point)) {
        tracking.restingPoint = point;
        return true;
    }
    killSystemTimer(window, hoverTimer);
    tracking.flags &= ~static_cast<DWORD>(TME_HOVER);
    ScreenToClient(window, &point);
    PostMessageA(window, WM_MOUSEHOVER, mouseKeys(MessageQueue::current().keys), MAKELPARAM(point.x, point.y));
    return true;
}

} // namespace win32::user

using namespace win32;
using namespace win32::user;

BOOL TrackMouseEvent(LPTRACKMOUSEEVENT event)
{
    if (!event || event->cbSize != sizeof *event)
        return fail(ERROR_INVALID_PARAMETER, FALSE);
    UserLock lock;
    if (event->dwFlags & TME_QUERY) {
        *event = {sizeof *event, tracking.flags, tracking.window, tracking.hoverTime};
        return TRUE;
    }
    if (!findWindow(event->hwndTrack))
        return FALSE;
    if (event->dwFlags & TME_CANCEL) {
        if (event->hwndTrack == tracking.window)
            tracking.flags &= ~event->dwFlags;
        return TRUE;
    }
    bool isElsewhere = windowUnderMouse() != event->hwndTrack;
    if (isElsewhere) {
        if (event->dwFlags & TME_LEAVE)
            PostMessageA(event->hwndTrack, WM_MOUSELEAVE, 0, 0);
        return TRUE;
    }
    bool isDefault = event->dwHoverTime == 0 || event->dwHoverTime == 0xffffffff;
    tracking = {event->hwndTrack, event->dwFlags & (TME_HOVER | TME_LEAVE), isDefault ? usualHoverTime : event->dwHoverTime, {}};
    if (tracking.flags & TME_HOVER)
        startHover();
    return TRUE;
}

// True once the mouse has left the neighbourhood of the point with the button still down.
BOOL DragDetect(HWND window, POINT point)
{
    if (!findWindow(window))
        return FALSE;
    int reachX = GetSystemMetrics(SM_CXDRAG), reachY = GetSystemMetrics(SM_CYDRAG);
    RECT still{point.x - reachX, point.y - reachY, point.x + reachX, point.y + reachY};
    SetCapture(window);
    BOOL isDragged = FALSE;
    MSG message;
    while (!isDragged && GetCapture() == window && GetMessageA(&message, nullptr, 0, 0) > 0) {
        bool isOver = message.message == WM_LBUTTONUP || (message.message == WM_KEYDOWN && message.wParam == VK_ESCAPE);
        if (isOver)
            break;
        if (message.message == WM_MOUSEMOVE)
            isDragged = !PtInRect(&still, message.pt);
        else
            DispatchMessageA(&message);
    }
    ReleaseCapture();
    return isDragged;
}
