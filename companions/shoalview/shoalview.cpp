#include <shoalview/shoalview.h>

namespace {

UI_NodeManager *latestManager = nullptr;

} // namespace

OS_MonitorInfo::OS_MonitorInfo() = default;
OS_MonitorInfo::~OS_MonitorInfo() = default;

RectT<long> OS_MonitorInfo::GetMonitorRectFromPoint(const PointT<long> &point, bool workAreaOnly) const
{
    POINT place = {static_cast<LONG>(point.x), static_cast<LONG>(point.y)};
    MONITORINFO info{};
    info.cbSize = sizeof info;
    GetMonitorInfoA(MonitorFromPoint(place, MONITOR_DEFAULTTONEAREST), &info);
    const RECT &rect = workAreaOnly ? info.rcWork : info.rcMonitor;
    return {rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top};
}

UI_NodeManager::UI_NodeManager() : previous_(latestManager), modalWindow_(nullptr)
{
    latestManager = this;
}

UI_NodeManager::~UI_NodeManager()
{
    // Managers may end in any order.
    UI_NodeManager **link = &latestManager;
    while (*link && *link != this)
        link = &(*link)->previous_;
    if (*link)
        *link = previous_;
}

UI_NodeManager *UI_NodeManager::Get()
{
    return latestManager;
}
