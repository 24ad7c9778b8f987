// From logical coordinates to device coordinates: mapping modes, origins and extents.
#include "device_context.h"

#include "kernel/kernel_internal.h"

#include <cmath>

using namespace win32;
using namespace win32::gdi;

namespace {

bool hasFreeExtents(const ContextState &state)
{
    return state.mapMode == MM_ISOTROPIC || state.mapMode == MM_ANISOTROPIC;
}

// Shrinks the viewport in one direction so that a logical unit is as wide as it is high.
void keepIsotropic(ContextState &state)
{
    double width = std::fabs(double{1} * state.viewportExtent.cx / state.windowExtent.cx);
    double height = std::fabs(double{1} * state.viewportExtent.cy / state.windowExtent.cy);
    auto shrunk = [](int extent, double factor) {
        double size = std::floor(std::fabs(extent * factor) + 0.5);
        return static_cast<int>(std::copysign(std::max(size, 1.0), double{1} * extent));
    };
    if (width > height)
        state.viewportExtent.cx = shrunk(state.viewportExtent.cx, height / width);
    else if (height > width)
        state.viewportExtent.cy = shrunk(state.viewportExtent.cy, width / height);
}

// The figures of a mode with a fixed unit, that many of them in a millimetre by tenths.
void setMetric(HDC context, ContextState &state, double unitsPerMillimetre)
{
    auto units = [&](int millimetres) { return static_cast<int>(std::floor(millimetres * unitsPerMillimetre + 0.5)); };
    state.windowExtent = {units(GetDeviceCaps(context, HORZSIZE)), units(GetDeviceCaps(context, VERTSIZE))};
    state.viewportExtent = {GetDeviceCaps(context, HORZRES), -GetDeviceCaps(context, VERTRES)};
}

BOOL changeOrigin(HDC context, POINT ContextState::*field, LPPOINT old, auto change)
{
    DeviceContext *dc = findContext(context);
    if (!dc)
        return FALSE;
    if (old)
        *old = dc->state.*field;
    dc->state.*field = change(dc->state.*field);
    dc->mappingChanged();
    return TRUE;
}

BOOL getOrigin(HDC context, POINT ContextState::*field, LPPOINT origin)
{
    DeviceContext *dc = findContext(context);
    if (!dc || !origin)
        return FALSE;
    *origin = dc->state.*field;
    return TRUE;
}

// In modes with fixed extents the call is heard and changes nothing.
BOOL setExtent(HDC context, SIZE ContextState::*field, int x, int y, LPSIZE old)
{
    DeviceContext *dc = findContext(context);
    if (!dc)
        return FALSE;
    if (old)
        *old = dc->state.*field;
    if (!hasFreeExtents(dc->state))
        return TRUE;
    if (x == 0 || y == 0)
        return fail(ERROR_INVALID_PARAMETER, FALSE);
    dc->state.*field = {x, y};
    if (dc->state.mapMode == MM_ISOTROPIC)
        keepIsotropic(dc->state);
    dc->mappingChanged();
    return TRUE;
}

BOOL getExtent(HDC context, SIZE ContextState::*field, LPSIZE extent)
{
    DeviceContext *dc = findContext(context);
    if (!dc || !extent)
        return FALSE;
    *extent = dc->state.*field;
    return TRUE;
}

POINT sum(POINT a, int x, int y)
{
    return {static_cast<LONG>(static_cast<DWORD>(a.x) + static_cast<DWORD>(x)),
            static_cast<LONG>(static_cast<DWORD>(a.y) + static_cast<DWORD>(y))};
}

} // namespace

int SetMapMode(HDC context, int mode)
{
    DeviceContext *dc = findContext(context);
    if (!dc)
        return 0;
    ContextState &state = dc->state;
    int old = state.mapMode;
    if (mode == old && mode != MM_ISOTROPIC)
        return old;
    switch (mode) {
    case MM_TEXT:
        state.windowExtent = state.viewportExtent = {1, 1};
        break;
    case MM_LOMETRIC:
    case MM_ISOTROPIC:
        setMetric(context, state, 10);
        break;
    case MM_HIMETRIC:
        setMetric(context, state, 100);
        break;
    case MM_LOENGLISH:
        setMetric(context, state, 100 / 25.4);
        break;
    case MM_HIENGLISH:
        setMetric(context, state, 1000 / 25.4);
        break;
    case MM_TWIPS:
        setMetric(context, state, 1440 / 25.4);
        break;
    case MM_ANISOTROPIC:
        break;
    default:
        return fail(ERROR_INVALID_PARAMETER, 0);
    }
    state.mapMode = mode;
    dc->mappingChanged();
    return old;
}

int GetMapMode(HDC context)
{
    DeviceContext *dc = findContext(context);
    return dc ? dc->state.mapMode : 0;
}

BOOL SetWindowOrgEx(HDC context, int x, int y, LPPOINT old)
{
    return changeOrigin(context, &ContextState::windowOrigin, old, [&](POINT) { return POINT{x, y}; });
}

BOOL GetWindowOrgEx(HDC context, LPPOINT origin)
{
    return getOrigin(context, &ContextState::windowOrigin, origin);
}

BOOL OffsetWindowOrgEx(HDC context, int x, int y, LPPOINT old)
{
    return changeOrigin(context, &ContextState::windowOrigin, old, [&](POINT origin) { return sum(origin, x, y); });
}

BOOL SetWindowExtEx(HDC context, int x, int y, LPSIZE old)
{
    return setExtent(context, &ContextState::windowExtent, x, y, old);
}

BOOL GetWindowExtEx(HDC context, LPSIZE extent)
{
    return getExtent(context, &ContextState::windowExtent, extent);
}

BOOL SetViewportOrgEx(HDC context, int x, int y, LPPOINT old)
{
    return changeOrigin(context, &ContextState::viewportOrigin, old, [&](POINT) { return POINT{x, y}; });
}

BOOL GetViewportOrgEx(HDC context, LPPOINT origin)
{
    return getOrigin(context, &ContextState::viewportOrigin, origin);
}

BOOL OffsetViewportOrgEx(HDC context, int x, int y, LPPOINT old)
{
    return changeOrigin(context, &ContextState::viewportOrigin, old, [&](POINT origin) { return sum(origin, x, y); });
}

BOOL SetViewportExtEx(HDC context, int x, int y, LPSIZE old)
{
    return setExtent(context, &ContextState::viewportExtent, x, y, old);
}

BOOL GetViewportExtEx(HDC context, LPSIZE extent)
{
    return getExtent(context, &ContextState::viewportExtent, extent);
}

BOOL LPtoDP(HDC context, LPPOINT points, int count)
{
    DeviceContext *dc = findContext(context);
    if (!dc || (count > 0 && !points))
        return FALSE;
    for (int i = 0; i < count; ++i)
        points[i] = dc->toDevice(points[i]);
    return TRUE;
}

BOOL DPtoLP(HDC context, LPPOINT points, int count)
{
    DeviceContext *dc = findContext(context);
    if (!dc || (count > 0 && !points))
        return FALSE;
    for (int i = 0; i < count; ++i)
        points[i] = dc->toLogical(points[i]);
    return TRUE;
}
