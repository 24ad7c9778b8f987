#include "visibility.h"

namespace win32::user {

namespace {

using gdi::Box;
using gdi::boxOf;
using gdi::RegionValue;

void require(bool succeeded)
{
    if (!succeeded)
        throw std::bad_alloc();
}

void cutOut(RegionValue &region, const RECT &rect)
{
    Box bounds = gdi::intersected(boxOf(rect), region.pixels.extents);
    if (gdi::isEmpty(bounds))
        return;
    RegionValue cut(bounds);
    require(pixman_region32_subtract(&region.pixels, &region.pixels, &cut.pixels));
}

void keepWithin(RegionValue &region, const RECT &rect)
{
    Box bounds = gdi::intersected(boxOf(rect), region.pixels.extents);
    if (gdi::isEmpty(bounds)) {
        pixman_region32_clear(&region.pixels);
        return;
    }
    require(pixman_region32_intersect_rect(&region.pixels, &region.pixels, bounds.x1, bounds.y1,
                                           static_cast<unsigned>(bounds.x2 - bounds.x1),
                                           static_cast<unsigned>(bounds.y2 - bounds.y1)));
}

bool covers(const Window &window)
{
    return window.isVisible() && !(window.extendedStyle & WS_EX_TRANSPARENT);
}

bool isMinimized(const Window &window)
{
    return (window.style & WS_MINIMIZE) != 0;
}

} // namespace

void visibleRegion(const Window &window, Area area, Children children, RegionValue &result)
{
    pixman_region32_clear(&result.pixels);
    bool isSeen = isShown(window) && !(area == Area::Client && isMinimized(window));
    if (!isSeen)
        return;
    const RECT &rect = area == Area::Whole ? window.windowRect : window.clientRect;
    Box box = gdi::intersected(boxOf(rect), boxOf(desktop()->windowRect));
    if (gdi::isEmpty(box))
        return;
    result = RegionValue(box);
    if (children == Children::CutOut) {
        for (const Window *child = window.firstChild; child; child = child->next) {
            if (covers(*child))
                cutOut(result, child->windowRect);
        }
    }
    for (const Window *each = &window; each->parent; each = each->parent) {
        keepWithin(result, each->parent->clientRect);
        if (isMinimized(*each->parent))
            pixman_region32_clear(&result.pixels);
        if (!(each->style & WS_CLIPSIBLINGS))
            continue;
        for (const Window *above = each->previous; above && pixman_region32_not_empty(&result.pixels);
             above = above->previous) {
            if (covers(*above))
                cutOut(result, above->windowRect);
        }
    }
}

namespace {

bool isHitBy(const Window &window, POINT point)
{
    return window.isVisible() && PtInRect(&window.windowRect, point)
           && !(window.isChild() && (window.style & WS_DISABLED));
}

// The deepest window at the point among a window and its siblings below; null for none.
Window *firstHit(Window *window, POINT point)
{
    Window *found = nullptr;
    while (window) {
        if (!isHitBy(*window, point)) {
            window = window->next;
            continue;
        }
        found = window;
        bool isInClient = PtInRect(&window->clientRect, point) && !isMinimized(*window);
        window = isInClient ? window->firstChild : nullptr;
    }
    return found;
}

} // namespace

Window *windowAt(POINT point)
{
    Window *found = firstHit(desktop()->firstChild, point);
    return found ? found : desktop();
}

Window *nextBelow(Window &window, POINT point)
{
    Window *found = firstHit(window.next, point);
    return found ? found : window.parent;
}

} // namespace win32::user
