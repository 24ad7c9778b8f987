// Moving, sizing, ordering, showing and hiding windows, with what that means for the screen.
#include "focus.h"
#include "gdi/blit.h"
#include "kernel/handle_table.h"
#include "kernel/kernel_internal.h"
#include "message_queue.h"
#include "placement.h"
#include "position_flags.h"
#include "screen/screen.h"
#include "update.h"
#include "visibility.h"
#include "window.h"

#include <memory>

namespace win32::user {
namespace {

using gdi::RegionValue;

void require(bool succeeded)
{
    if (!succeeded)
        throw std::bad_alloc();
}

// A change of one window, from the request to the message that reports it.
struct Change {
    WINDOWPOS request{};
    RECT newWindow{};
    RECT newClient{};
    RECT oldWindow{};
    RECT oldClient{};
    UINT validity = 0; // WVR_ bits of WM_NCCALCSIZE
    RegionValue seenBefore;
};

bool has(const Change &change, UINT flag)
{
    return (change.request.flags & flag) != 0;
}

POINT parentOrigin(const Window &window)
{
    return window.isChild() ? clientOrigin(*window.parent) : POINT{0, 0};
}

// Where in the order the request puts the window. False when it is there already, or nowhere.
bool findPlace(const Window &window, HWND after, Window *&place)
{
    if (after == HWND_TOP || after == HWND_TOPMOST || after == HWND_NOTOPMOST)
        place = nullptr;
    else if (after == HWND_BOTTOM)
        place = window.parent->lastChild;
    else
        place = findWindowQuietly(after);
    bool isNamed = reinterpret_cast<INT_PTR>(after) < -2 || reinterpret_cast<INT_PTR>(after) > 1;
    if (isNamed && (!place || place->parent != window.parent))
        return false;
    return place != &window;
}

bool isBehind(const Window &window, const Window *place)
{
    return window.previous == place;
}

void settleTopmost(Window &window, HWND after)
{
    if (after == HWND_TOPMOST)
        window.extendedStyle |= WS_EX_TOPMOST;
    else if (after == HWND_NOTOPMOST || after == HWND_BOTTOM)
        window.extendedStyle &= ~static_cast<DWORD>(WS_EX_TOPMOST);
}

// Strikes from the request what is so already, and finds the new rectangle.
void settleRequest(const Window &window, Change &change)
{
    WINDOWPOS &request = change.request;
    change.oldWindow = window.windowRect;
    change.oldClient = window.clientRect;
    if (window.isVisible())
        request.flags &= ~static_cast<UINT>(SWP_SHOWWINDOW);
    else
        request.flags &= ~static_cast<UINT>(SWP_HIDEWINDOW);
    RECT wanted = window.windowRect;
    if (!(request.flags & SWP_NOMOVE)) {
        POINT origin = parentOrigin(window);
        POINT corner{gdi::wrappingSum(request.x, origin.x), gdi::wrappingSum(request.y, origin.y)};
        wanted = moved({0, 0, window.width(), window.height()}, corner);
    }
    if (!(request.flags & SWP_NOSIZE)) {
        wanted.right = gdi::wrappingSum(wanted.left, std::max(request.cx, 0));
        wanted.bottom = gdi::wrappingSum(wanted.top, std::max(request.cy, 0));
    }
    if (wanted.left == window.windowRect.left && wanted.top == window.windowRect.top)
        request.flags |= SWP_NOMOVE;
    if (wanted.right - wanted.left == window.width() && wanted.bottom - wanted.top == window.height())
        request.flags |= SWP_NOSIZE;
    Window *place;
    bool isOrdered = !(request.flags & SWP_NOZORDER) && findPlace(window, request.hwndInsertAfter, place)
                     && (!isBehind(window, place) || request.hwndInsertAfter == HWND_TOPMOST
                         || request.hwndInsertAfter == HWND_NOTOPMOST);
    if (!isOrdered)
        request.flags |= SWP_NOZORDER;
    change.newWindow = wanted;
}

// WM_NCCALCSIZE for a window that was there before.
void askForClientArea(HWND handle, Change &change)
{
    bool isSizeKept = has(change, SWP_NOSIZE) && !has(change, SWP_FRAMECHANGED);
    if (isSizeKept) {
        POINT by{gdi::wrappingDifference(change.newWindow.left, change.oldWindow.left),
                 gdi::wrappingDifference(change.newWindow.top, change.oldWindow.top)};
        change.newClient = moved(change.oldClient, by);
        return;
    }
    POINT origin{0, 0};
    {
        UserLock lock;
        if (Window *window = findWindowQuietly(handle))
            origin = parentOrigin(*window);
    }
    WINDOWPOS position = change.request;
    NCCALCSIZE_PARAMS parameters{{movedBack(change.newWindow, origin), movedBack(change.oldWindow, origin),
                                  movedBack(change.oldClient, origin)},
                                 &position};
    change.validity = static_cast<UINT>(sendMessage(handle, WM_NCCALCSIZE, TRUE, reinterpret_cast<LPARAM>(&parameters)));
    change.newClient = moved(parameters.rgrc[0], origin);
}

void noteClientChange(Change &change)
{
    constexpr auto width = [](const RECT &rect) { return gdi::wrappingDifference(rect.right, rect.left); };
    constexpr auto height = [](const RECT &rect) { return gdi::wrappingDifference(rect.bottom, rect.top); };
    const RECT &before = change.oldClient;
    const RECT &now = change.newClient;
    if (before.left == now.left && before.top == now.top)
        change.request.flags |= SWP_NOCLIENTMOVE;
    if (width(before) == width(now) && height(before) == height(now))
        change.request.flags |= SWP_NOCLIENTSIZE;
}

// Children keep their place in the client area.
void apply(Window &window, Change &change)
{
    WINDOWPOS &request = change.request;
    POINT by{gdi::wrappingDifference(change.newClient.left, window.clientRect.left),
             gdi::wrappingDifference(change.newClient.top, window.clientRect.top)};
    if (by.x != 0 || by.y != 0) {
        for (Window *child = window.firstChild; child; child = child->next)
            moveWithChildren(*child, by.x, by.y);
        pixman_region32_translate(&window.update.pixels, by.x, by.y);
    }
    window.windowRect = change.newWindow;
    window.clientRect = change.newClient;
    if (!(request.flags & SWP_NOZORDER)) {
        settleTopmost(window, request.hwndInsertAfter);
        unlink(window);
        Window *place = nullptr;
        findPlace(window, request.hwndInsertAfter, place);
        linkBelow(window, place);
    }
    if (request.flags & SWP_SHOWWINDOW)
        window.style |= WS_VISIBLE;
    if (request.flags & SWP_HIDEWINDOW)
        window.style &= ~static_cast<DWORD>(WS_VISIBLE);
    if (!(window.style & (WS_MINIMIZE | WS_MAXIMIZE)))
        window.placement.normal = window.windowRect;
    visibilityChanged();
}

// The part of what was seen that can be moved to where it is seen now: with the frame when only the place has
// changed, the client area alone when the size has, nothing when the class wants to draw anew.
void findCopyable(const Change &change, const RegionValue &seenNow, POINT &by, RegionValue &copyable)
{
    if (has(change, SWP_NOCOPYBITS) || has(change, SWP_SHOWWINDOW))
        return;
    bool isWhole = has(change, SWP_NOCLIENTSIZE) && has(change, SWP_NOSIZE) && !has(change, SWP_FRAMECHANGED);
    if (!isWhole && (change.validity & WVR_REDRAW) && !has(change, SWP_NOCLIENTSIZE))
        return;
    by = {gdi::wrappingDifference(change.newClient.left, change.oldClient.left),
          gdi::wrappingDifference(change.newClient.top, change.oldClient.top)};
    copyable.copyFrom(change.seenBefore.pixels);
    auto keep = [&](const RECT &rect) {
        gdi::Box box = gdi::boxOf(rect);
        if (gdi::isEmpty(box))
            pixman_region32_clear(&copyable.pixels);
        else
            require(pixman_region32_intersect_rect(&copyable.pixels, &copyable.pixels, box.x1, box.y1,
                                                   static_cast<unsigned>(box.x2 - box.x1),
                                                   static_cast<unsigned>(box.y2 - box.y1)));
    };
    if (!isWhole)
        keep(change.oldClient);
    pixman_region32_translate(&copyable.pixels, by.x, by.y);
    if (!isWhole)
        keep(change.newClient);
    require(pixman_region32_intersect(&copyable.pixels, &copyable.pixels, const_cast<pixman_region32_t *>(&seenNow.pixels)));
}

void copyOnScreen(const RegionValue &to, POINT by)
{
    gdi::ClipBoxes boxes = gdi::clipBoxesOf(to.pixels);
    if (boxes.count == 0 || (by.x == 0 && by.y == 0))
        return;
    const gdi::Box &box = boxes.extents;
    int width = box.x2 - box.x1, height = box.y2 - box.y1;
    gdi::BlitGeometry geometry{box.x1, box.y1, width, height, box.x1 - by.x, box.y1 - by.y, width, height};
    const gdi::Surface &surface = screen::surface();
    gdi::blit(surface, boxes, geometry, surface, {0, 0, 0}, SRCCOPY, gdi::Paint{}, COLORONCOLOR);
    if (surface.listener)
        surface.listener->damaged(box);
}

// Moves pixels that stay right, and notes what has to be painted: in the window itself, and in what lay below it.
void updateScreen(Window &window, const Change &change)
{
    if (has(change, SWP_NOREDRAW))
        return;
    RegionValue seenNow, copyable, rest;
    visibleRegion(window, Area::Whole, Children::Left, seenNow);
    POINT by{0, 0};
    findCopyable(change, seenNow, by, copyable);
    copyOnScreen(copyable, by);
    require(pixman_region32_subtract(&rest.pixels, &seenNow.pixels, &copyable.pixels));
    if (pixman_region32_not_empty(&rest.pixels))
        changeUpdate(window, &rest.pixels, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
    require(pixman_region32_subtract(&rest.pixels, const_cast<pixman_region32_t *>(&change.seenBefore.pixels),
                                     &seenNow.pixels));
    if (pixman_region32_not_empty(&rest.pixels))
        exposeArea(*window.parent, rest.pixels);
}

bool prepare(HWND handle, Change &change)
{
    UserLock lock;
    Window *window = findWindow(handle);
    if (!window || window->isDesktop())
        return false;
    settleRequest(*window, change);
    return true;
}

bool carryOut(HWND handle, Change &change)
{
    UserLock lock;
    Window *window = findWindowQuietly(handle);
    if (!window)
        return false;
    noteClientChange(change);
    visibleRegion(*window, Area::Whole, Children::Left, change.seenBefore);
    apply(*window, change);
    updateScreen(*window, change);
    return true;
}

bool hasChanged(const Change &change)
{
    constexpr UINT kept = SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER | SWP_NOCLIENTSIZE | SWP_NOCLIENTMOVE;
    constexpr UINT asked = SWP_SHOWWINDOW | SWP_HIDEWINDOW | SWP_FRAMECHANGED | SWP_STATECHANGED;
    return (change.request.flags & kept) != kept || (change.request.flags & asked) != 0;
}

BOOL setPosition(HWND handle, Change &change)
{
    if (!has(change, SWP_NOSENDCHANGING))
        sendMessage(handle, WM_WINDOWPOSCHANGING, 0, reinterpret_cast<LPARAM>(&change.request));
    if (!prepare(handle, change))
        return FALSE;
    askForClientArea(handle, change);
    if (!carryOut(handle, change))
        return FALSE;
    if (has(change, SWP_HIDEWINDOW))
        windowWasHidden(handle);
    else if (!has(change, SWP_NOACTIVATE))
        activateForShow(handle);
    if (!has(change, SWP_NOREDRAW) && !has(change, SWP_DEFERERASE))
        eraseNow(handle, true);
    if (hasChanged(change)) {
        change.request.x = change.newWindow.left;
        change.request.y = change.newWindow.top;
        change.request.cx = change.newWindow.right - change.newWindow.left;
        change.request.cy = change.newWindow.bottom - change.newWindow.top;
        {
            UserLock lock;
            if (Window *window = findWindowQuietly(handle)) {
                POINT origin = parentOrigin(*window);
                change.request.x -= origin.x;
                change.request.y -= origin.y;
            }
        }
        sendMessage(handle, WM_WINDOWPOSCHANGED, 0, reinterpret_cast<LPARAM>(&change.request));
    }
    return TRUE;
}

} // namespace

BOOL changePosition(HWND window, HWND after, int x, int y, int width, int height, UINT flags)
{
    return guarded(FALSE, [&] {
        Change change;
        change.request = {window, after, x, y, width, height, flags};
        return setPosition(window, change);
    });
}

} // namespace win32::user

using namespace win32;
using namespace win32::user;

BOOL SetWindowPos(HWND window, HWND after, int x, int y, int width, int height, UINT flags)
{
    constexpr UINT knownFlags = 0x67ff;
    if (flags & ~knownFlags)
        return fail(ERROR_INVALID_FLAGS, FALSE);
    if (flags & (SWP_SHOWWINDOW | SWP_HIDEWINDOW) && (flags & SWP_SHOWWINDOW) && (flags & SWP_HIDEWINDOW))
        flags &= ~static_cast<UINT>(SWP_HIDEWINDOW);
    return changePosition(window, after, x, y, width, height, flags);
}

BOOL MoveWindow(HWND window, int x, int y, int width, int height, BOOL repaint)
{
    UINT flags = SWP_NOZORDER | SWP_NOACTIVATE | (repaint ? 0u : UINT{SWP_NOREDRAW});
    return changePosition(window, nullptr, x, y, width, height, flags);
}

BOOL BringWindowToTop(HWND window)
{
    return changePosition(window, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
}

namespace {

struct DeferredPositions final {
    std::vector<WINDOWPOS> changes;
};

} // namespace

HANDLE BeginDeferWindowPos(int count)
{
    if (count < 0)
        return fail(ERROR_INVALID_PARAMETER, HANDLE{});
    return guarded(HANDLE{}, [&]() -> HANDLE {
        auto positions = std::make_unique<DeferredPositions>();
        positions->changes.reserve(static_cast<size_t>(std::min(count, 64)));
        HANDLE handle = handles::insert(HandleKind::DeferredPositions, positions.get());
        if (handle)
            positions.release();
        return handle;
    });
}

HANDLE DeferWindowPos(HANDLE handle, HWND window, HWND after, int x, int y, int width, int height, UINT flags)
{
    return guarded(HANDLE{}, [&]() -> HANDLE {
        auto positions = static_cast<DeferredPositions *>(handles::find(handle, HandleKind::DeferredPositions));
        if (!positions)
            return fail(ERROR_INVALID_DWP_HANDLE, HANDLE{});
        if (!IsWindow(window))
            return fail(ERROR_INVALID_WINDOW_HANDLE, HANDLE{});
        positions->changes.push_back({window, after, x, y, width, height, flags});
        return handle;
    });
}

BOOL EndDeferWindowPos(HANDLE handle)
{
    std::unique_ptr<DeferredPositions> positions(
        static_cast<DeferredPositions *>(handles::remove(handle, HandleKind::DeferredPositions)));
    if (!positions)
        return fail(ERROR_INVALID_DWP_HANDLE, FALSE);
    BOOL areAllDone = TRUE;
    for (const WINDOWPOS &change : positions->changes)
        areAllDone &= SetWindowPos(change.hwnd, change.hwndInsertAfter, change.x, change.y, change.cx, change.cy, change.flags);
    return areAllDone;
}
