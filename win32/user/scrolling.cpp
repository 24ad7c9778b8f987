// Scrolling what a window shows.
#include "caret.h"
#include "kernel/kernel_internal.h"
#include "message_queue.h"
#include "visibility.h"
#include "window.h"

#include <optional>

using namespace win32;
using namespace win32::user;

namespace {

// A region of the program's for the length of a call.
class TemporaryRegion {
public:
    TemporaryRegion() : handle(CreateRectRgn(0, 0, 0, 0)) {}
    ~TemporaryRegion() { DeleteObject(handle); }
    TemporaryRegion(const TemporaryRegion &) = delete;
    TemporaryRegion &operator=(const TemporaryRegion &) = delete;

    const HRGN handle;
};

// What was to be painted moves along with what is scrolled.
bool moveUpdate(HWND window, int x, int y, const RECT &area, HRGN scratch)
{
    TemporaryRegion old;
    if (!old.handle || GetUpdateRgn(window, old.handle, FALSE) <= NULLREGION)
        return false;
    SetRectRgn(scratch, area.left, area.top, area.right, area.bottom);
    if (CombineRgn(scratch, scratch, old.handle, RGN_AND) <= NULLREGION)
        return false;
    OffsetRgn(scratch, x, y);
    TemporaryRegion bounds;
    SetRectRgn(bounds.handle, area.left, area.top, area.right, area.bottom);
    CombineRgn(scratch, scratch, bounds.handle, RGN_AND);
    return true;
}

void moveChildren(HWND parent, int x, int y, const RECT *rect)
{
    std::vector<HWND> children;
    {
        UserLock lock;
        if (Window *window = findWindowQuietly(parent))
            children = childrenOf(*window);
    }
    for (HWND child : children) {
        RECT place, shared;
        if (!GetWindowRect(child, &place))
            continue;
        MapWindowPoints(nullptr, parent, reinterpret_cast<LPPOINT>(&place), 2);
        if (rect && !IntersectRect(&shared, &place, rect))
            continue;
        SetWindowPos(child, nullptr, place.left + x, place.top + y, 0, 0,
                     SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOREDRAW);
    }
}

} // namespace

int ScrollWindowEx(HWND window, int x, int y, const RECT *rect, const RECT *clip, HRGN update, LPRECT updateRect, UINT flags)
{
    return guarded(ERROR, [&] {
        RECT client;
        if (!GetClientRect(window, &client))
            return ERROR;
        RECT area = client, bounds = client;
        if (rect)
            IntersectRect(&area, &client, rect);
        if (clip)
            IntersectRect(&bounds, &client, clip);
        TemporaryRegion exposed, pending;
        if (!exposed.handle || !pending.handle)
            return ERROR;
        hideCaretForPainting(window);
        DWORD contextFlags = DCX_CACHE | (flags & SW_SCROLLCHILDREN ? 0u : DWORD{DCX_CLIPCHILDREN});
        HDC context = GetDCEx(window, nullptr, contextFlags);
        bool isScrolled = context && ScrollDC(context, x, y, &area, &bounds, exposed.handle, updateRect);
        if (context)
            ReleaseDC(window, context);
        if (isScrolled && moveUpdate(window, x, y, area, pending.handle))
            CombineRgn(exposed.handle, exposed.handle, pending.handle, RGN_OR);
        if (isScrolled && (flags & SW_SCROLLCHILDREN))
            moveChildren(window, x, y, rect);
        if (isScrolled && (flags & (SW_INVALIDATE | SW_ERASE)))
            RedrawWindow(window, nullptr, exposed.handle,
                         RDW_INVALIDATE | (flags & SW_ERASE ? UINT{RDW_ERASE} : 0u)
                             | (flags & SW_SCROLLCHILDREN ? UINT{RDW_ALLCHILDREN} : 0u));
        showCaretAfterPainting(window);
        if (!isScrolled)
            return ERROR;
        RECT box;
        int complexity = GetRgnBox(exposed.handle, &box);
        if (updateRect)
            *updateRect = box;
        if (update)
            CombineRgn(update, exposed.handle, nullptr, RGN_COPY);
        return complexity;
    });
}

BOOL ScrollWindow(HWND window, int x, int y, const RECT *rect, const RECT *clip)
{
    UINT flags = SW_INVALIDATE | SW_ERASE | (rect ? 0u : UINT{SW_SCROLLCHILDREN});
    return ScrollWindowEx(window, x, y, rect, clip, nullptr, nullptr, flags) != ERROR;
}
