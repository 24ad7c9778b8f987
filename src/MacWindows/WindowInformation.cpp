// What a window's record and its native window tell of each other and of themselves.
#include "MacWindows_internal.h"

#include <mtbx/MacErrors.h>
#include <mtbx/TextUtils.h>

#include <cstring>

namespace {

constexpr char windowProperty[] = "Zephant WindowPtr";
constexpr char dialogProperty[] = "Zephant VDM DlgRef";

RgnHandle regionOf(const WindowRecord &record, WindowRegionCode code)
{
    switch (code) {
    case kWindowStructureRgn:
        return record.strucRgn;
    case kWindowContentRgn:
        return record.contRgn;
    case kWindowUpdateRgn:
        return record.updateRgn;
    default:
        return nullptr;
    }
}

} // namespace

SRefCon GetWRefCon(WindowPtr window)
{
    return recordOf(window).refCon;
}

void SetWRefCon(WindowPtr window, SRefCon data)
{
    recordOf(window).refCon = data;
}

void SetWTitle(WindowPtr window, ConstStr255Param title)
{
    Str255 text;
    pstrcpy(text, title);
    if (StringHandle kept = recordOf(window).titleHandle)
        pstrcpy(*kept, text);
    if (HWND native = nativeWindowOf(window))
        SetWindowTextA(native, p2cstr(text));
}

void GetWTitle(WindowPtr window, Str255 title)
{
    HWND native = nativeWindowOf(window);
    if (native && IsWindow(native)) {
        constexpr int longestWithEnd = 255;
        title[0] = static_cast<UInt8>(GetWindowTextA(native, reinterpret_cast<char *>(title + 1), longestWithEnd));
        return;
    }
    StringHandle kept = recordOf(window).titleHandle;
    pstrcpy(title, kept ? *kept : nullptr);
}

Boolean IsValidWindowPtr(WindowPtr window)
{
    return window && window->portOffscreen != 1;
}

OSStatus GetWindowAttributes(WindowPtr window, WindowAttributes *attributes)
{
    if (!attributes || !IsValidWindowPtr(window))
        return paramErr;
    *attributes = 0;
    return noErr;
}

OSStatus GetWindowBounds(WindowPtr window, WindowRegionCode code, Rect *bounds)
{
    if (!bounds || !IsValidWindowPtr(window))
        return paramErr;
    if (code != kWindowStructureRgn && code != kWindowContentRgn)
        return unimpErr;
    GetRegionBounds(regionOf(recordOf(window), code), bounds);
    return noErr;
}

OSStatus GetWindowRegion(WindowPtr window, WindowRegionCode code, RgnHandle rgn)
{
    if (!rgn || !IsValidWindowPtr(window))
        return paramErr;
    RgnHandle source = regionOf(recordOf(window), code);
    if (!source)
        return unimpErr;
    MacCopyRgn(source, rgn);
    return noErr;
}

Boolean IsWindowUpdatePending(WindowPtr window)
{
    return IsValidWindowPtr(window) && !EmptyRgn(recordOf(window).updateRgn);
}

WindowPtr GetWindowFromPort(CGrafPtr port)
{
    return port;
}

HWND GetMacWindowPtrHwnd(CGrafPtr port)
{
    return port ? nativeWindowOf(port) : nullptr;
}

WindowPtr GetHwndMacWindowPtr(HWND nativeWindow)
{
    return static_cast<WindowPtr>(GetPropA(nativeWindow, windowProperty));
}

void SetHwndMacWindowPtr(HWND nativeWindow, WindowPtr window)
{
    SetPropA(nativeWindow, windowProperty, window);
}

void *GetHwndVdmDlgRef(HWND nativeWindow)
{
    return GetPropA(nativeWindow, dialogProperty);
}

void SetHwndVdmDlgRef(HWND nativeWindow, void *reference)
{
    SetPropA(nativeWindow, dialogProperty, reference);
}
