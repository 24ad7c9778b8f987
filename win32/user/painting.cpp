// The calls by which programs ask for painting and paint.
#include "caret.h"
#include "gdi/region.h"
#include "kernel/kernel_internal.h"
#include "message_queue.h"
#include "update.h"
#include "visibility.h"
#include "window.h"
#include "window_context.h"

#include <cstring>
#include <optional>

using namespace win32;
using namespace win32::user;

namespace {

using gdi::RegionValue;

// A region or rectangle of client coordinates on the screen; none for the whole window.
std::optional<RegionValue> areaOf(const Window &window, const RECT *rect, const gdi::Region *region)
{
    std::optional<RegionValue> area;
    POINT origin = clientOrigin(window);
    if (region) {
        area.emplace();
        area->copyFrom(region->pixels);
        if (!gdi::translate(area->pixels, origin.x, origin.y))
            throw std::bad_alloc();
    } else if (rect) {
        area.emplace(gdi::boxOf(moved(*rect, origin)));
    }
    return area;
}

void redraw(Window &window, const std::optional<RegionValue> &area, UINT flags)
{
    if (flags & (RDW_INVALIDATE | RDW_VALIDATE))
        changeUpdate(window, area ? &area->pixels : nullptr, flags);
    if (flags & (RDW_INTERNALPAINT | RDW_NOINTERNALPAINT))
        setInternalPaint(window, (flags & RDW_INTERNALPAINT) != 0);
}

BOOL changeClientUpdate(HWND handle, const RECT *rect, HRGN regionHandle, UINT flags)
{
    return guarded(FALSE, [&]() -> BOOL {
        UserLock lock;
        Window *window = findWindow(handle);
        gdi::Region *region = window && regionHandle ? gdi::find<gdi::Region>(regionHandle) : nullptr;
        if (!window || (regionHandle && !region))
            return FALSE;
        RECT client = movedBack(window->clientRect, clientOrigin(*window));
        redraw(*window, areaOf(*window, rect || region ? rect : &client, region), flags);
        return TRUE;
    });
}

// The whole screen anew, as the calls with a null window want it.
BOOL redrawEverything(UINT flags)
{
    return RedrawWindow(nullptr, nullptr, nullptr, flags | RDW_ALLCHILDREN | RDW_FRAME);
}

void eraseIfAsked(HWND handle, BOOL erase)
{
    if (erase)
        eraseNow(handle, false);
}

} // namespace

BOOL InvalidateRect(HWND window, const RECT *rect, BOOL erase)
{
    if (!window)
        return redrawEverything(RDW_INVALIDATE | RDW_ERASE | RDW_ERASENOW);
    return changeClientUpdate(window, rect, nullptr, RDW_INVALIDATE | (erase ? UINT{RDW_ERASE} : 0u));
}

BOOL InvalidateRgn(HWND window, HRGN region, BOOL erase)
{
    return changeClientUpdate(window, nullptr, region, RDW_INVALIDATE | (erase ? UINT{RDW_ERASE} : 0u));
}

BOOL ValidateRect(HWND window, const RECT *rect)
{
    if (!window)
        return redrawEverything(RDW_INVALIDATE | RDW_ERASE | RDW_ERASENOW);
    return changeClientUpdate(window, rect, nullptr, RDW_VALIDATE);
}

BOOL ValidateRgn(HWND window, HRGN region)
{
    return changeClientUpdate(window, nullptr, region, RDW_VALIDATE);
}

BOOL RedrawWindow(HWND handle, const RECT *rect, HRGN regionHandle, UINT flags)
{
    return guarded(FALSE, [&]() -> BOOL {
        HWND target = handle ? handle : GetDesktopWindow();
        {
            UserLock lock;
            Window *window = findWindow(target);
            gdi::Region *region = window && regionHandle ? gdi::find<gdi::Region>(regionHandle) : nullptr;
            if (!window || (regionHandle && !region))
                return FALSE;
            redraw(*window, areaOf(*window, rect, region), flags);
        }
        bool withChildren = !(flags & RDW_NOCHILDREN);
        if (flags & RDW_UPDATENOW)
            paintNow(target, withChildren);
        else if (flags & RDW_ERASENOW)
            eraseNow(target, withChildren);
        return TRUE;
    });
}

BOOL UpdateWindow(HWND handle)
{
    return guarded(FALSE, [&]() -> BOOL {
        if (!findWindow(handle))
            return FALSE;
        paintNow(handle, true);
        return TRUE;
    });
}

int GetUpdateRgn(HWND handle, HRGN regionHandle, BOOL erase)
{
    return guarded(ERROR, [&] {
        eraseIfAsked(handle, erase);
        UserLock lock;
        Window *window = findWindow(handle);
        gdi::Region *region = window ? gdi::find<gdi::Region>(regionHandle) : nullptr;
        if (!region)
            return ERROR;
        RegionValue update;
        update.copyFrom(window->update.pixels);
        POINT origin = clientOrigin(*window);
        pixman_region32_translate(&update.pixels, -origin.x, -origin.y);
        std::swap(region->pixels, update.pixels);
        return gdi::complexityOf(region->pixels);
    });
}

BOOL GetUpdateRect(HWND handle, LPRECT rect, BOOL erase)
{
    return guarded(FALSE, [&]() -> BOOL {
        eraseIfAsked(handle, erase);
        UserLock lock;
        Window *window = findWindow(handle);
        if (!window)
            return FALSE;
        bool isDue = pixman_region32_not_empty(&window->update.pixels);
        if (rect)
            *rect = isDue ? movedBack(gdi::rectOf(window->update.pixels.extents), clientOrigin(*window)) : RECT{0, 0, 0, 0};
        return isDue;
    });
}

int ExcludeUpdateRgn(HDC context, HWND handle)
{
    return guarded(ERROR, [&] {
        HRGN region = CreateRectRgn(0, 0, 0, 0);
        if (!region)
            return ERROR;
        int result = GetUpdateRgn(handle, region, FALSE);
        if (result != ERROR) {
            POINT origin{0, 0};
            {
                UserLock lock;
                Window *window = findWindowQuietly(handle);
                auto dc = gdi::findContext(context);
                if (window && dc)
                    origin = {window->clientRect.left - dc->origin.x, window->clientRect.top - dc->origin.y};
            }
            OffsetRgn(region, origin.x, origin.y);
            result = ExtSelectClipRgn(context, region, RGN_DIFF);
        }
        DeleteObject(region);
        return result;
    });
}

HDC BeginPaint(HWND window, LPPAINTSTRUCT paint)
{
    if (!paint)
        return fail(ERROR_INVALID_PARAMETER, HDC{});
    memset(paint, 0, sizeof *paint);
    hideCaretForPainting(window);
    bool isBegun = guarded(false, [&] { return beginPaint(window, *paint); });
    if (!isBegun)
        showCaretAfterPainting(window);
    return paint->hdc;
}

BOOL EndPaint(HWND window, const PAINTSTRUCT *paint)
{
    if (!paint)
        return FALSE;
    ReleaseDC(window, paint->hdc);
    showCaretAfterPainting(window);
    return TRUE;
}
