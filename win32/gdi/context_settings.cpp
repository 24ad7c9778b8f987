// The plain settings of a context.
#include "device_context.h"

#include "kernel/kernel_internal.h"

using namespace win32;
using namespace win32::gdi;

namespace {

// Sets a field of the context's state and gives its old value.
template <class Value> Value exchange(HDC context, Value ContextState::*field, Value value, Value failure)
{
    DeviceContext *dc = findContext(context);
    return dc ? std::exchange(dc->state.*field, value) : failure;
}

template <class Value> Value current(HDC context, Value ContextState::*field, Value failure)
{
    DeviceContext *dc = findContext(context);
    return dc ? dc->state.*field : failure;
}

int exchangeMode(HDC context, int ContextState::*field, int value, int least, int most)
{
    if (value < least || value > most)
        return fail(ERROR_INVALID_PARAMETER, 0);
    return exchange(context, field, value, 0);
}

} // namespace

COLORREF SetTextColor(HDC context, COLORREF color)
{
    return exchange(context, &ContextState::textColor, color, COLORREF{CLR_INVALID});
}

COLORREF GetTextColor(HDC context)
{
    return current(context, &ContextState::textColor, COLORREF{CLR_INVALID});
}

COLORREF SetBkColor(HDC context, COLORREF color)
{
    return exchange(context, &ContextState::backgroundColor, color, COLORREF{CLR_INVALID});
}

COLORREF GetBkColor(HDC context)
{
    return current(context, &ContextState::backgroundColor, COLORREF{CLR_INVALID});
}

COLORREF SetDCBrushColor(HDC context, COLORREF color)
{
    return exchange(context, &ContextState::dcBrushColor, color, COLORREF{CLR_INVALID});
}

COLORREF GetDCBrushColor(HDC context)
{
    return current(context, &ContextState::dcBrushColor, COLORREF{CLR_INVALID});
}

COLORREF SetDCPenColor(HDC context, COLORREF color)
{
    return exchange(context, &ContextState::dcPenColor, color, COLORREF{CLR_INVALID});
}

COLORREF GetDCPenColor(HDC context)
{
    return current(context, &ContextState::dcPenColor, COLORREF{CLR_INVALID});
}

COLORREF GetNearestColor(HDC context, COLORREF color)
{
    DeviceContext *dc = findContext(context);
    if (!dc)
        return CLR_INVALID;
    return colorOf(dc->surface, pixelFor(dc->surface, dc->plainColor(color)));
}

int SetBkMode(HDC context, int mode)
{
    return exchangeMode(context, &ContextState::backgroundMode, mode, TRANSPARENT, OPAQUE);
}

int GetBkMode(HDC context)
{
    return current(context, &ContextState::backgroundMode, 0);
}

int SetROP2(HDC context, int mode)
{
    return exchangeMode(context, &ContextState::rop2, mode, R2_BLACK, R2_WHITE);
}

int GetROP2(HDC context)
{
    return current(context, &ContextState::rop2, 0);
}

int SetPolyFillMode(HDC context, int mode)
{
    return exchangeMode(context, &ContextState::polyFillMode, mode, ALTERNATE, WINDING);
}

int GetPolyFillMode(HDC context)
{
    return current(context, &ContextState::polyFillMode, 0);
}

int SetStretchBltMode(HDC context, int mode)
{
    return exchangeMode(context, &ContextState::stretchMode, mode, BLACKONWHITE, HALFTONE);
}

int GetStretchBltMode(HDC context)
{
    return current(context, &ContextState::stretchMode, 0);
}

BOOL SetBrushOrgEx(HDC context, int x, int y, LPPOINT old)
{
    DeviceContext *dc = findContext(context);
    if (!dc)
        return FALSE;
    POINT previous = std::exchange(dc->state.brushOrigin, {x, y});
    if (old)
        *old = previous;
    return TRUE;
}

BOOL GetBrushOrgEx(HDC context, LPPOINT origin)
{
    DeviceContext *dc = findContext(context);
    if (!dc || !origin)
        return FALSE;
    *origin = dc->state.brushOrigin;
    return TRUE;
}

BOOL SetMiterLimit(HDC context, FLOAT limit, FLOAT *old)
{
    DeviceContext *dc = findContext(context);
    if (!dc)
        return FALSE;
    if (!(limit >= 1.0f))
        return fail(ERROR_INVALID_PARAMETER, FALSE);
    float previous = std::exchange(dc->state.miterLimit, limit);
    if (old)
        *old = previous;
    return TRUE;
}

BOOL GetMiterLimit(HDC context, FLOAT *limit)
{
    DeviceContext *dc = findContext(context);
    if (!dc || !limit)
        return FALSE;
    *limit = dc->state.miterLimit;
    return TRUE;
}

BOOL GetCurrentPositionEx(HDC context, LPPOINT position)
{
    DeviceContext *dc = findContext(context);
    if (!dc || !position)
        return FALSE;
    *position = dc->state.position;
    return TRUE;
}
