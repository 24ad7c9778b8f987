// The screen as the only monitor there is.
#include "Monitors_internal.h"

#include <cstring>

namespace sole_monitor {

namespace {

// The primary or the nearest monitor is asked for, so there is an answer whatever lies where.
bool anyMonitorWillDo(DWORD flags)
{
    return flags & (MONITOR_DEFAULTTOPRIMARY | MONITOR_DEFAULTTONEAREST);
}

RECT screen()
{
    return {0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
}

// Where the window stands, or would stand if it were no icon.
bool placeOf(HWND window, RECT &rect)
{
    if (!IsIconic(window))
        return GetWindowRect(window, &rect);
    WINDOWPLACEMENT placement{};
    placement.length = sizeof placement;
    if (!GetWindowPlacement(window, &placement))
        return false;
    rect = placement.rcNormalPosition;
    return true;
}

} // namespace

int getSystemMetrics(int index)
{
    switch (index) {
    case SM_XVIRTUALSCREEN:
    case SM_YVIRTUALSCREEN: return 0;
    case SM_CXVIRTUALSCREEN: return GetSystemMetrics(SM_CXSCREEN);
    case SM_CYVIRTUALSCREEN: return GetSystemMetrics(SM_CYSCREEN);
    case SM_CMONITORS:
    case SM_SAMEDISPLAYFORMAT: return 1;
    default: return GetSystemMetrics(index);
    }
}

HMONITOR fromPoint(POINT point, DWORD flags)
{
    RECT all = screen();
    bool inside = point.x >= 0 && point.x < all.right && point.y >= 0 && point.y < all.bottom;
    return inside || anyMonitorWillDo(flags) ? kSolePrimaryMonitor : nullptr;
}

HMONITOR fromRect(const RECT &rect, DWORD flags)
{
    RECT all = screen();
    bool meets = rect.right > 0 && rect.bottom > 0 && rect.left < all.right && rect.top < all.bottom;
    return meets || anyMonitorWillDo(flags) ? kSolePrimaryMonitor : nullptr;
}

HMONITOR fromWindow(HWND window, DWORD flags)
{
    if (anyMonitorWillDo(flags))
        return kSolePrimaryMonitor;
    RECT place;
    return placeOf(window, place) ? fromRect(place, flags) : nullptr;
}

bool getInfo(HMONITOR monitor, MONITORINFO *info)
{
    RECT workArea;
    if (monitor != kSolePrimaryMonitor || info->cbSize < sizeof(MONITORINFO)
        || !SystemParametersInfoA(SPI_GETWORKAREA, 0, &workArea, 0))
        return false;
    info->rcMonitor = screen();
    info->rcWork = workArea;
    info->dwFlags = MONITORINFOF_PRIMARY;
    if (info->cbSize >= sizeof(MONITORINFOEXA)) {
        auto &extended = *reinterpret_cast<MONITORINFOEXA *>(info);
        memset(extended.szDevice, 0, sizeof extended.szDevice);
        memcpy(extended.szDevice, "DISPLAY", sizeof "DISPLAY");
    }
    return true;
}

bool enumerate(HDC context, const RECT *clip, MTBXMonitorProcPtr procedure, LPARAM data)
{
    if (!procedure)
        return false;
    RECT area = screen();
    if (context) {
        RECT clipBox;
        int kind = GetClipBox(context, &clipBox);
        if (kind == NULLREGION)
            return true;
        POINT origin;
        if (kind == ERROR || !GetDCOrgEx(context, &origin))
            return false;
        OffsetRect(&area, -origin.x, -origin.y);
        if (!IntersectRect(&area, &area, &clipBox))
            return true;
    }
    if (clip && !IntersectRect(&area, &area, clip))
        return true;
    return procedure(kSolePrimaryMonitor, context, &area, data);
}

} // namespace sole_monitor
