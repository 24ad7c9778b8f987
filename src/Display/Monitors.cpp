// Monitors by the system's own calls, which are bound at run time: old systems lack them.
#include "Display_internal.h"
#include "Monitors_internal.h"

#include <shoalview/shoalview.h>

#include <type_traits>

MonitorCalls monitorCalls;
bool monitorCallsLookedUp = false;

namespace {

void lookUpMonitorCalls()
{
    HMODULE user = GetModuleHandleA("USER32");
    bool complete = true;
    auto lookUp = [&](auto &call, const char *name) {
        call = reinterpret_cast<std::remove_reference_t<decltype(call)>>(GetProcAddress(user, name));
        complete &= call != nullptr;
    };
    lookUp(monitorCalls.getSystemMetrics, "GetSystemMetrics");
    lookUp(monitorCalls.monitorFromWindow, "MonitorFromWindow");
    lookUp(monitorCalls.monitorFromRect, "MonitorFromRect");
    lookUp(monitorCalls.monitorFromPoint, "MonitorFromPoint");
    lookUp(monitorCalls.enumDisplayMonitors, "EnumDisplayMonitors");
    lookUp(monitorCalls.getMonitorInfo, "GetMonitorInfoA");
    lookUp(monitorCalls.enumDisplayDevices, "EnumDisplayDevicesA");
    if (!complete)
        monitorCalls = {};
    monitorCallsLookedUp = true;
}

// Null where the system knows one monitor only.
const MonitorCalls *systemCalls()
{
    if (!monitorCallsLookedUp)
        lookUpMonitorCalls();
    return monitorCalls.getMonitorInfo ? &monitorCalls : nullptr;
}

SInt16 cut(int coordinate)
{
    return static_cast<SInt16>(coordinate);
}

} // namespace

int MTBX_GetSystemMetrics(int index)
{
    const MonitorCalls *calls = systemCalls();
    return calls ? calls->getSystemMetrics(index) : sole_monitor::getSystemMetrics(index);
}

HMONITOR MTBX_MonitorFromWindow(HWND window, DWORD flags)
{
    const MonitorCalls *calls = systemCalls();
    return calls ? calls->monitorFromWindow(window, flags) : sole_monitor::fromWindow(window, flags);
}

HMONITOR MTBX_MonitorFromRect(const RECT *rect, DWORD flags)
{
    const MonitorCalls *calls = systemCalls();
    return calls ? calls->monitorFromRect(rect, flags) : sole_monitor::fromRect(*rect, flags);
}

HMONITOR MTBX_MonitorFromPoint(LONG x, LONG y, DWORD flags)
{
    const MonitorCalls *calls = systemCalls();
    return calls ? calls->monitorFromPoint({x, y}, flags) : sole_monitor::fromPoint({x, y}, flags);
}

Boolean MTBX_GetMonitorInfo(HMONITOR monitor, MONITORINFO *info)
{
    if (info->cbSize != sizeof(MONITORINFOEXA))
        info->cbSize = sizeof(MONITORINFO);
    const MonitorCalls *calls = systemCalls();
    return calls ? calls->getMonitorInfo(monitor, info) != FALSE : sole_monitor::getInfo(monitor, info);
}

Boolean MTBX_EnumDisplayMonitors(HDC context, const RECT *clip, MTBXMonitorProcPtr procedure, LPARAM data)
{
    const MonitorCalls *calls = systemCalls();
    return calls ? calls->enumDisplayMonitors(context, clip, procedure, data) != FALSE
                 : sole_monitor::enumerate(context, clip, procedure, data);
}

void MTBX_GetGrayRect(Rect *rect)
{
    int left = MTBX_GetSystemMetrics(SM_XVIRTUALSCREEN), top = MTBX_GetSystemMetrics(SM_YVIRTUALSCREEN);
    *rect = {cut(top), cut(left), cut(top + MTBX_GetSystemMetrics(SM_CYVIRTUALSCREEN)),
             cut(left + MTBX_GetSystemMetrics(SM_CXVIRTUALSCREEN))};
}

RECT MTBX_MonitorRectAtPoint(POINT screenPoint)
{
    OS_MonitorInfo monitors;
    RectT<long> rect = monitors.GetMonitorRectFromPoint({screenPoint.x, screenPoint.y}, false);
    return {static_cast<LONG>(rect.left), static_cast<LONG>(rect.top), static_cast<LONG>(rect.left + rect.width),
            static_cast<LONG>(rect.top + rect.height)};
}
