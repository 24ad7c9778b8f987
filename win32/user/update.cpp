#include "update.h"

#include "gdi/fill.h"
#include "kernel/kernel_internal.h"
#include "message_queue.h"
#include "screen/screen.h"
#include "visibility.h"
#include "window_context.h"

#include <optional>

namespace win32::user {
namespace {

using gdi::Box;
using gdi::boxOf;
using gdi::RegionValue;

pixman_region32_t *mutableRegion(const pixman_region32_t &region)
{
    return const_cast<pixman_region32_t *>(&region); // pixman only reads its sources
}

void require(bool succeeded)
{
    if (!succeeded)
        throw std::bad_alloc();
}

bool isNotEmpty(const RegionValue &region)
{
    return pixman_region32_not_empty(mutableRegion(region.pixels));
}

void cutTo(RegionValue &region, const Box &box)
{
    Box bounds = gdi::intersected(box, region.pixels.extents);
    if (gdi::isEmpty(bounds))
        pixman_region32_clear(&region.pixels);
    else
        require(pixman_region32_intersect_rect(&region.pixels, &region.pixels, bounds.x1, bounds.y1,
                                               static_cast<unsigned>(bounds.x2 - bounds.x1),
                                               static_cast<unsigned>(bounds.y2 - bounds.y1)));
}

bool needsPaint(const Window &window)
{
    return isNotEmpty(window.update) || window.needsFramePaint || window.hasInternalPaint;
}

// Keeps the queue's count in step with one window's need.
class NeedKeeper {
public:
    explicit NeedKeeper(Window &window) : window_(window), before_(needsPaint(window)) {}
    ~NeedKeeper()
    {
        bool now = needsPaint(window_);
        if (now != before_ && window_.queue)
            window_.queue->paintCountChanged(now ? 1 : -1);
    }

private:
    Window &window_;
    bool before_;
};

bool clipsChildren(const Window &window)
{
    return (window.style & WS_CLIPCHILDREN) != 0;
}

bool reachesChildren(const Window &window, UINT flags)
{
    return !(flags & RDW_NOCHILDREN) && ((flags & RDW_ALLCHILDREN) || !clipsChildren(window));
}

void cutOutChildren(const Window &window, RegionValue &region)
{
    for (const Window *child = window.firstChild; child; child = child->next) {
        if (!child->isVisible() || (child->extendedStyle & WS_EX_TRANSPARENT))
            continue;
        Box box = gdi::intersected(boxOf(child->windowRect), region.pixels.extents);
        if (gdi::isEmpty(box))
            continue;
        RegionValue cut(box);
        require(pixman_region32_subtract(&region.pixels, &region.pixels, &cut.pixels));
    }
}

// The desktop has no procedure that paints: it is filled at once.
void paintDesktop(RegionValue &area)
{
    cutOutChildren(*desktop(), area);
    fillWithDesktop(area);
}

void invalidate(Window &window, RegionValue &area, UINT flags)
{
    if (window.isDesktop()) {
        RegionValue free;
        free.copyFrom(area.pixels);
        paintDesktop(free);
        return;
    }
    NeedKeeper keeper(window);
    RegionValue client;
    client.copyFrom(area.pixels);
    cutTo(client, boxOf(window.clientRect));
    bool touchesFrame = false;
    if (flags & RDW_FRAME) {
        RegionValue frame;
        require(pixman_region32_subtract(&frame.pixels, mutableRegion(area.pixels), &client.pixels));
        touchesFrame = isNotEmpty(frame);
    }
    require(pixman_region32_union(&window.update.pixels, &window.update.pixels, &client.pixels));
    window.needsFramePaint |= touchesFrame;
    if (flags & RDW_ERASE)
        window.needsErase = window.needsErase || isNotEmpty(client);
}

void validate(Window &window, const RegionValue &area, UINT flags)
{
    NeedKeeper keeper(window);
    require(pixman_region32_subtract(&window.update.pixels, &window.update.pixels, mutableRegion(area.pixels)));
    if ((flags & RDW_NOERASE) || !isNotEmpty(window.update))
        window.needsErase = false;
    if (flags & RDW_NOFRAME)
        window.needsFramePaint = false;
}

void changeTree(Window &window, RegionValue &area, UINT flags)
{
    cutTo(area, boxOf(window.windowRect));
    if (!isNotEmpty(area) || !window.isVisible())
        return;
    if (flags & RDW_INVALIDATE)
        invalidate(window, area, flags);
    else if (flags & RDW_VALIDATE)
        validate(window, area, flags);
    if (!reachesChildren(window, flags) || !window.firstChild || (window.style & WS_MINIMIZE))
        return;
    UINT childFlags = flags | RDW_ALLCHILDREN | (flags & RDW_INVALIDATE ? UINT{RDW_FRAME | RDW_ERASE} : 0u);
    for (Window *child = window.firstChild; child; child = child->next) {
        if (!child->isVisible() || gdi::isEmpty(gdi::intersected(boxOf(child->windowRect), area.pixels.extents)))
            continue;
        RegionValue part;
        part.copyFrom(area.pixels);
        cutTo(part, boxOf(window.clientRect));
        changeTree(*child, part, childFlags);
    }
}

Window *firstToPaint(Window &root, const MessageQueue &queue, const MessageFilter &filter)
{
    for (Window *child = root.firstChild; child; child = child->next) {
        if (!child->isVisible())
            continue;
        if (child->queue == &queue && needsPaint(*child) && filter.takesWindow(child->hwnd()))
            return child;
        if (Window *below = firstToPaint(*child, queue, filter))
            return below;
    }
    return nullptr;
}

// The frame's share of the message: the whole window, or what of it is to be painted.
void paintFrame(HWND handle)
{
    {
        UserLock lock;
        Window *window = findWindowQuietly(handle);
        if (!window || !window->needsFramePaint)
            return;
        NeedKeeper keeper(*window);
        window->needsFramePaint = false;
        if (!isShown(*window))
            return;
    }
    sendMessage(handle, WM_NCPAINT, 1, 0);
}

// Sends WM_ERASEBKGND with a context on what is to be erased. Gives what the procedure answered.
bool erase(HWND handle)
{
    HDC context = nullptr;
    {
        UserLock lock;
        Window *window = findWindowQuietly(handle);
        if (!window || !window->needsErase || !isNotEmpty(window->update) || !isShown(*window))
            return true;
        window->needsErase = false;
        context = paintContext(*window, window->update.pixels);
    }
    if (!context)
        return false;
    bool isErased = sendMessage(handle, WM_ERASEBKGND, reinterpret_cast<WPARAM>(context), 0) != 0;
    ReleaseDC(handle, context);
    if (!isErased) {
        UserLock lock;
        Window *window = findWindowQuietly(handle);
        if (window && isNotEmpty(window->update))
            window->needsErase = true;
    }
    return isErased;
}

std::vector<HWND> childrenByHandle(HWND handle)
{
    UserLock lock;
    Window *window = findWindowQuietly(handle);
    return window ? childrenOf(*window) : std::vector<HWND>();
}

} // namespace

void fillWithDesktop(const RegionValue &area)
{
    const gdi::Surface &surface = screen::surface();
    COLORREF color = GetSysColor(COLOR_BACKGROUND);
    gdi::ClipBoxes boxes = gdi::clipBoxesOf(area.pixels);
    gdi::fillClipped(surface, boxes, boxes.extents, gdi::solidPaint(gdi::pixelFor(surface, color)), R2_COPYPEN);
    if (surface.listener && boxes.count)
        surface.listener->damaged(boxes.extents);
}

void changeUpdate(Window &window, const pixman_region32_t *region, UINT flags)
{
    if ((flags & RDW_INVALIDATE) && !isShown(window))
        return;
    RegionValue area;
    if (region)
        area.copyFrom(*region);
    else
        area = RegionValue(boxOf(flags & (RDW_FRAME | RDW_VALIDATE) ? window.windowRect : window.clientRect));
    for (const Window *parent = window.parent; parent && (flags & RDW_INVALIDATE); parent = parent->parent)
        cutTo(area, boxOf(parent->clientRect));
    changeTree(window, area, flags);
}

void setInternalPaint(Window &window, bool isWanted)
{
    NeedKeeper keeper(window);
    window.hasInternalPaint = isWanted;
}

void exposeArea(Window &parent, const pixman_region32_t &exposed)
{
    changeUpdate(parent, &exposed, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
}

Window *nextToPaint(const MessageQueue &queue, const MessageFilter &filter)
{
    return firstToPaint(*desktop(), queue, filter);
}

void forgetUpdate(Window &window)
{
    NeedKeeper keeper(window);
    pixman_region32_clear(&window.update.pixels);
    window.needsErase = window.needsFramePaint = window.hasInternalPaint = false;
}

void eraseNow(HWND handle, bool withChildren)
{
    paintFrame(handle);
    erase(handle);
    if (!withChildren)
        return;
    for (HWND child : childrenByHandle(handle)) {
        if (IsWindowVisible(child))
            eraseNow(child, true);
    }
}

void paintNow(HWND handle, bool withChildren)
{
    bool isDue;
    {
        UserLock lock;
        Window *window = findWindowQuietly(handle);
        if (!window)
            return;
        isDue = needsPaint(*window) && isShown(*window);
        if (window->hasInternalPaint)
            setInternalPaint(*window, false);
    }
    if (isDue)
        sendMessage(handle, WM_PAINT, 0, 0);
    if (!withChildren)
        return;
    for (HWND child : childrenByHandle(handle)) {
        if (IsWindowVisible(child))
            paintNow(child, true);
    }
}

bool beginPaint(HWND handle, PAINTSTRUCT &paint)
{
    paintFrame(handle);
    RegionValue update;
    bool needsErase = false;
    {
        UserLock lock;
        Window *window = findWindow(handle);
        if (!window)
            return false;
        update.copyFrom(window->update.pixels);
        needsErase = window->needsErase;
        paint.hdc = paintContext(*window, update.pixels);
        if (!paint.hdc)
            return false;
        forgetUpdate(*window);
    }
    paint.fErase = needsErase && !sendMessage(handle, WM_ERASEBKGND, reinterpret_cast<WPARAM>(paint.hdc), 0);
    GetClipBox(paint.hdc, &paint.rcPaint);
    return true;
}

} // namespace win32::user
