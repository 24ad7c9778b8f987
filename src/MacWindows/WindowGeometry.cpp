// Where windows stand, and moving and sizing them.
#include "MacWindows_internal.h"

#include <mtbx/Displays.h>
#include <mtbx/Events.h>
#include <mtbx/MTBXGlobals.h>
#include <mtbx/MacMemory.h>

namespace {

Rect inMainWindow(POINT topLeft, POINT bottomRight)
{
    ScreenToClient(hWndMain, &topLeft);
    ScreenToClient(hWndMain, &bottomRight);
    return {static_cast<SInt16>(topLeft.y), static_cast<SInt16>(topLeft.x), static_cast<SInt16>(bottomRight.y),
            static_cast<SInt16>(bottomRight.x)};
}

void setStructure(WindowRecord &record, HWND native)
{
    RECT frame = {};
    GetWindowRect(native, &frame);
    Rect rect = inMainWindow({frame.left, frame.top}, {frame.right, frame.bottom});
    RectRgn(record.strucRgn, &rect);
}

void setContent(WindowRecord &record, HWND native)
{
    RECT client = {};
    GetClientRect(native, &client);
    POINT topLeft = {client.left, client.top}, bottomRight = {client.right, client.bottom};
    ClientToScreen(native, &topLeft);
    ClientToScreen(native, &bottomRight);
    Rect rect = inMainWindow(topLeft, bottomRight);
    RectRgn(record.contRgn, &rect);
}

// The size of the frame without the client area, and the place of its corner as seen from the client area's.
struct Frame {
    int width, height;
    POINT offset;
};
Frame frameOf(HWND native)
{
    RECT outer = {}, client = {};
    GetWindowRect(native, &outer);
    GetClientRect(native, &client);
    POINT origin = {0, 0};
    ClientToScreen(native, &origin);
    return {static_cast<int>(outer.right - outer.left - client.right),
            static_cast<int>(outer.bottom - outer.top - client.bottom),
            {outer.left - origin.x, outer.top - origin.y}};
}

void setPortSize(GrafPort &port, int width, int height)
{
    port.portRect.right = static_cast<SInt16>(port.portRect.left + width);
    port.portRect.bottom = static_cast<SInt16>(port.portRect.top + height);
}

// False when the handle is too short: the host may have made it its own.
bool readState(const WindowRecord &record, int number, Rect &state)
{
    constexpr Size bothStates = 2 * sizeof(Rect);
    if (!record.dataHandle || GetHandleSize(record.dataHandle) < bothStates)
        return false;
    state = reinterpret_cast<const Rect *>(*record.dataHandle)[number];
    return true;
}

} // namespace

void AdjustStrucRgn(WindowPtr window)
{
    HWND native = nativeWindowOf(window);
    if (!native)
        return;
    setStructure(recordOf(window), native);
    setContent(recordOf(window), native);
}

void AdjustWindow(WindowPtr window)
{
    AdjustStrucRgn(window);
    PixMapPtr pixMap = pixMapOf(*window);
    if (!pixMap)
        return;
    Rect bounds;
    GetRegionBounds(recordOf(window).contRgn, &bounds);
    pixMap->bounds = bounds;
    MacOffsetRect(&pixMap->bounds, static_cast<SInt16>(-2 * bounds.left), static_cast<SInt16>(-2 * bounds.top));
    RectRgn(window->visRgn, &window->portRect);
}

void MacMoveWindow(WindowPtr window, SInt16 hGlobal, SInt16 vGlobal, Boolean)
{
    HWND native = nativeWindowOf(window);
    if (!native)
        return;
    POINT place = {hGlobal, vGlobal};
    if (GetGlobalMode() == 0 && window->moveInMainClient == 1)
        ClientToScreen(hWndMain, &place);
    POINT offset = frameOf(native).offset;
    SetWindowPos(native, nullptr, place.x + offset.x, place.y + offset.y, 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    // A window procedure may have disposed of it.
    if (IsWindow(native))
        AdjustWindow(window);
}

void SizeWindow(WindowPtr window, SInt16 w, SInt16 h, Boolean fUpdate)
{
    setPortSize(*window, w, h);
    HWND native = nativeWindowOf(window);
    if (!native)
        return;
    Frame frame = frameOf(native);
    UINT drawing = fUpdate ? 0 : SWP_NOREDRAW;
    SetWindowPos(native, nullptr, 0, 0, w + frame.width, h + frame.height,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE | drawing);
    if (!IsWindow(native))
        return;
    RECT client = {};
    GetClientRect(native, &client);
    setPortSize(*window, static_cast<int>(client.right), static_cast<int>(client.bottom));
    AdjustWindow(window);
}

void ZoomWindow(WindowPtr window, WindowPartCode partCode, Boolean front)
{
    HWND native = nativeWindowOf(window);
    if (!native)
        return;
    if (IsZoomed(native))
        ShowWindow(native, SW_RESTORE);
    // The host may have set the states while the window was restored.
    Rect state;
    if (!IsWindow(native) || !readState(recordOf(window), partCode == inZoomIn ? 0 : 1, state))
        return;
    SizeWindow(window, static_cast<SInt16>(state.right - state.left), static_cast<SInt16>(state.bottom - state.top),
               true);
    if (IsWindow(native))
        MacMoveWindow(window, state.left, state.top, front);
}

SInt32 GrowWindow(WindowPtr window, Point, const Rect *)
{
    HWND native = nativeWindowOf(window);
    bool isSizeOfThis = LOWORD(gTheEvent.nativeMessage) == WM_SIZE && native && gTheEvent.nativeWindow == native;
    return isSizeOfThis ? static_cast<SInt32>(gTheEvent.message) : 0;
}
