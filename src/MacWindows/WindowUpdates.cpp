// What of a window is to be drawn anew.
#include "MacWindows_internal.h"
#include "Quickdraw/Regions_internal.h"

#include <mtbx/MTBXGdi.h>
#include <mtbx/MacWindows.h>

namespace {

// Changes the native update region and the record's by a region of the window's own coordinates. The native
// call takes no region for the whole window, so one without a native region must not reach it.
void changeUpdate(WindowPtr window, RgnHandle rgn, void (*change)(HWND native, HRGN part),
                  void (*mirror)(RgnHandle updateRgn, RgnHandle part))
{
    HWND native = nativeWindowOf(window);
    ScratchRegion part;
    if (!native || !part || !rgn)
        return;
    MacCopyRgn(rgn, part);
    MacOffsetRgn(part, static_cast<SInt16>(-window->portRect.left), static_cast<SInt16>(-window->portRect.top));
    HRGN nativePart = nativeRegion(part);
    if (!nativePart)
        return;
    change(native, nativePart);
    mirror(recordOf(window).updateRgn, part);
}

void addToUpdate(WindowPtr window, RgnHandle rgn)
{
    changeUpdate(
        window, rgn, [](HWND native, HRGN part) { InvalidateRgn(native, part, FALSE); },
        [](RgnHandle updateRgn, RgnHandle part) { MacUnionRgn(updateRgn, part, updateRgn); });
}

void takeFromUpdate(WindowPtr window, RgnHandle rgn)
{
    changeUpdate(
        window, rgn, [](HWND native, HRGN part) { ValidateRgn(native, part); },
        [](RgnHandle updateRgn, RgnHandle part) { DiffRgn(updateRgn, part, updateRgn); });
}

void withRect(WindowPtr window, const Rect *rect, void (*change)(WindowPtr window, RgnHandle rgn))
{
    ScratchRegion rgn;
    if (!rgn || !rect)
        return;
    RectRgn(rgn, rect);
    change(window, rgn);
}

void repaintFrame(HWND native)
{
    RECT frame = {};
    GetWindowRect(native, &frame);
    HRGN whole = MTBX_CreateRectRgn(frame.left, frame.top, frame.right, frame.bottom);
    if (!whole)
        return;
    SendMessageA(native, WM_NCPAINT, reinterpret_cast<WPARAM>(whole), 0);
    DeleteObject(whole);
}

} // namespace

OSStatus InvalWindowRgn(WindowPtr window, RgnHandle rgn)
{
    addToUpdate(window, rgn);
    return noErr;
}

OSStatus InvalWindowRect(WindowPtr window, const Rect *rect)
{
    withRect(window, rect, addToUpdate);
    return noErr;
}

OSStatus ValidWindowRgn(WindowPtr window, RgnHandle rgn)
{
    takeFromUpdate(window, rgn);
    return noErr;
}

OSStatus ValidWindowRect(WindowPtr window, const Rect *rect)
{
    withRect(window, rect, takeFromUpdate);
    return noErr;
}

void BeginUpdate(WindowPtr window)
{
    if (!nativeWindowOf(window))
        return;
    WindowRecord &record = recordOf(window);
    const Rect &portRect = window->portRect;
    MacOffsetRgn(record.updateRgn, portRect.left, portRect.top);
    SectRgn(record.updateRgn, window->visRgn, window->visRgn);
    SetEmptyRgn(record.updateRgn);
    record.windowPic = 1;
}

void EndUpdate(WindowPtr window)
{
    if (!nativeWindowOf(window))
        return;
    recordOf(window).windowPic = 0;
    RectRgn(window->visRgn, &window->portRect);
}

void SetRedraw(WindowPtr window, Boolean flag)
{
    HWND native = window ? nativeWindowOf(window) : nullptr;
    if (!native)
        return;
    SendMessageA(native, WM_SETREDRAW, flag, 0);
    if (flag)
        repaintFrame(native);
}
