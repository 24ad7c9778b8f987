// The calls for several monitors, and what stands for them where the system has none.
#pragma once

#include <mtbx/Displays.h>

struct MonitorCalls {
    decltype(&GetSystemMetrics) getSystemMetrics;
    decltype(&MonitorFromWindow) monitorFromWindow;
    decltype(&MonitorFromRect) monitorFromRect;
    decltype(&MonitorFromPoint) monitorFromPoint;
    decltype(&GetMonitorInfoA) getMonitorInfo;
    decltype(&EnumDisplayMonitors) enumDisplayMonitors;
    decltype(&EnumDisplayDevicesA) enumDisplayDevices;
};

// All of the system's, or none; looked up at the first use.
extern MonitorCalls monitorCalls;
extern bool monitorCallsLookedUp;

namespace sole_monitor {

int getSystemMetrics(int index);
HMONITOR fromWindow(HWND window, DWORD flags);
HMONITOR fromRect(const RECT &rect, DWORD flags);
HMONITOR fromPoint(POINT point, DWORD flags);
bool getInfo(HMONITOR monitor, MONITORINFO *info);
bool enumerate(HDC context, const RECT *clip, MTBXMonitorProcPtr procedure, LPARAM data);

} // namespace sole_monitor
