// Monitors, and the system's settings that hang on them.
#include "kernel/kernel_internal.h"
#include "placement.h"
#include "screen/screen.h"

#include <cstring>

namespace win32::user {
namespace {

using screen::Monitor;

// A monitor's handle is its number plus a base that is no pointer.
constexpr uintptr_t firstHandle = 0x10001;

HMONITOR handleOf(size_t number)
{
    return reinterpret_cast<HMONITOR>(firstHandle + 2 * number);
}

const Monitor *findMonitor(HMONITOR handle, size_t &number)
{
    uintptr_t value = reinterpret_cast<uintptr_t>(handle);
    const std::vector<Monitor> &monitors = screen::monitors();
    number = (value - firstHandle) / 2;
    bool isKnown = value >= firstHandle && (value - firstHandle) % 2 == 0 && number < monitors.size();
    return isKnown ? &monitors[number] : fail(ERROR_INVALID_HANDLE, static_cast<const Monitor *>(nullptr));
}

int64_t sharedArea(const gdi::Box &a, const gdi::Box &b)
{
    gdi::Box shared = gdi::intersected(a, b);
    return gdi::isEmpty(shared) ? 0 : int64_t{shared.x2 - shared.x1} * (shared.y2 - shared.y1);
}

int64_t distance(const gdi::Box &monitor, const gdi::Box &box)
{
    auto gap = [](int64_t low, int64_t high, int64_t otherLow, int64_t otherHigh) {
        return std::max<int64_t>({otherLow - high, low - otherHigh, 0});
    };
    int64_t x = gap(monitor.x1, monitor.x2, box.x1, box.x2), y = gap(monitor.y1, monitor.y2, box.y1, box.y2);
    return x * x + y * y;
}

HMONITOR fallback(const gdi::Box &box, DWORD flags)
{
    if (flags == MONITOR_DEFAULTTOPRIMARY)
        return handleOf(0);
    if (flags != MONITOR_DEFAULTTONEAREST)
        return nullptr;
    const std::vector<Monitor> &monitors = screen::monitors();
    size_t nearest = 0;
    for (size_t i = 1; i < monitors.size(); ++i) {
        if (distance(monitors[i].bounds, box) < distance(monitors[nearest].bounds, box))
            nearest = i;
    }
    return handleOf(nearest);
}

RECT changedWorkArea; // of the first monitor, once a program has set it
bool isWorkAreaChanged = false;

} // namespace

RECT workArea(HMONITOR handle)
{
    size_t number;
    const Monitor *monitor = findMonitor(handle, number);
    if (number == 0 && isWorkAreaChanged)
        return changedWorkArea;
    return gdi::rectOf(monitor ? monitor->bounds : screen::monitors().front().bounds);
}

} // namespace win32::user

using namespace win32;
using namespace win32::user;

HMONITOR MonitorFromRect(LPCRECT rect, DWORD flags)
{
    if (!rect)
        return nullptr;
    gdi::Box box = gdi::boxOf(*rect);
    if (gdi::isEmpty(box))
        box = gdi::pixelBox(box.x1, box.y1);
    const std::vector<screen::Monitor> &monitors = screen::monitors();
    size_t best = 0;
    int64_t bestArea = 0;
    for (size_t i = 0; i < monitors.size(); ++i) {
        int64_t area = sharedArea(monitors[i].bounds, box);
        if (area > bestArea) {
            best = i;
            bestArea = area;
        }
    }
    return bestArea > 0 ? handleOf(best) : fallback(box, flags);
}

HMONITOR MonitorFromPoint(POINT point, DWORD flags)
{
    RECT rect = gdi::rectOf(gdi::pixelBox(point.x, point.y));
    return MonitorFromRect(&rect, flags);
}

HMONITOR MonitorFromWindow(HWND handle, DWORD flags)
{
    RECT rect{0, 0, 0, 0};
    bool isKnown = false;
    {
        UserLock lock;
        if (Window *window = findWindowQuietly(handle)) {
            isKnown = true;
            rect = window->style & WS_MINIMIZE ? window->placement.normal : window->windowRect;
        }
    }
    return isKnown ? MonitorFromRect(&rect, flags) : flags == MONITOR_DEFAULTTONULL ? nullptr : handleOf(0);
}

BOOL GetMonitorInfoA(HMONITOR handle, LPMONITORINFO info)
{
    size_t number;
    const screen::Monitor *monitor = findMonitor(handle, number);
    if (!monitor)
        return FALSE;
    if (!info || (info->cbSize != sizeof(MONITORINFO) && info->cbSize != sizeof(MONITORINFOEXA)))
        return fail(ERROR_INVALID_PARAMETER, FALSE);
    info->rcMonitor = gdi::rectOf(monitor->bounds);
    info->rcWork = workArea(handle);
    info->dwFlags = number == 0 ? MONITORINFOF_PRIMARY : 0;
    if (info->cbSize == sizeof(MONITORINFOEXA)) {
        char *name = reinterpret_cast<MONITORINFOEXA *>(info)->szDevice;
        strncpy(name, monitor->name.c_str(), CCHDEVICENAME - 1);
        name[CCHDEVICENAME - 1] = 0;
    }
    return TRUE;
}

// With a context the rectangles come in its coordinates, cut to its clip.
BOOL EnumDisplayMonitors(HDC context, LPCRECT clip, MONITORENUMPROC visit, LPARAM parameter)
{
    if (!visit)
        return fail(ERROR_INVALID_PARAMETER, FALSE);
    return guarded(FALSE, [&]() -> BOOL {
        POINT origin{0, 0};
        RECT bounds = gdi::rectOf(screen::surface().box());
        if (context) {
            RECT box;
            if (!GetDCOrgEx(context, &origin) || GetClipBox(context, &box) == ERROR)
                return FALSE;
            bounds = moved(box, origin);
        }
        if (clip) {
            RECT wanted = moved(*clip, origin);
            if (!IntersectRect(&bounds, &bounds, &wanted))
                return TRUE;
        }
        std::vector<screen::Monitor> monitors = screen::monitors();
        for (size_t i = 0; i < monitors.size(); ++i) {
            RECT monitor = gdi::rectOf(monitors[i].bounds), seen;
            if (!IntersectRect(&seen, &monitor, &bounds))
                continue;
            seen = movedBack(seen, origin);
            if (!visit(handleOf(i), context, &seen, parameter))
                return FALSE;
        }
        return TRUE;
    });
}

BOOL EnumDisplayDevicesA(LPCSTR device, DWORD number, PDISPLAY_DEVICEA result, DWORD)
{
    const std::vector<screen::Monitor> &monitors = screen::monitors();
    if (!result || device || number >= monitors.size())
        return FALSE;
    DWORD size = result->cb;
    memset(result, 0, sizeof *result);
    result->cb = size;
    strncpy(result->DeviceName, monitors[number].name.c_str(), sizeof result->DeviceName - 1);
    strncpy(result->DeviceString, "Virtual screen", sizeof result->DeviceString - 1);
    result->StateFlags = DISPLAY_DEVICE_ATTACHED_TO_DESKTOP | (number == 0 ? DWORD{DISPLAY_DEVICE_PRIMARY_DEVICE} : 0u);
    return TRUE;
}

BOOL SystemParametersInfoA(UINT action, UINT, PVOID data, UINT)
{
    if (!data)
        return fail(ERROR_INVALID_PARAMETER, FALSE);
    switch (action) {
    case SPI_GETWORKAREA:
        *static_cast<RECT *>(data) = workArea(handleOf(0));
        return TRUE;
    case SPI_SETWORKAREA:
        changedWorkArea = *static_cast<const RECT *>(data);
        isWorkAreaChanged = true;
        return TRUE;
    case SPI_GETBEEP:
    case SPI_GETDRAGFULLWINDOWS:
        *static_cast<BOOL *>(data) = TRUE;
        return TRUE;
    case SPI_GETBORDER:
        *static_cast<int *>(data) = 1;
        return TRUE;
    case SPI_GETKEYBOARDSPEED:
        *static_cast<DWORD *>(data) = 31;
        return TRUE;
    case SPI_GETKEYBOARDDELAY:
        *static_cast<int *>(data) = 1;
        return TRUE;
    case SPI_GETMENUSHOWDELAY:
        *static_cast<DWORD *>(data) = 400;
        return TRUE;
    case SPI_GETWHEELSCROLLLINES:
        *static_cast<UINT *>(data) = 3;
        return TRUE;
    default:
        return fail(ERROR_INVALID_PARAMETER, FALSE);
    }
}

BOOL MessageBeep(UINT)
{
    screen::beep();
    return TRUE;
}
