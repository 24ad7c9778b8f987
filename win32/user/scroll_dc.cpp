// Scrolling a part of a context.
#include "gdi/blit.h"
#include "gdi/drawing.h"

#include "kernel/kernel_internal.h"

#include <windows.h>

using namespace win32;
using namespace win32::gdi;

namespace {

void require(bool isDone)
{
    if (!isDone)
        throw std::bad_alloc();
}

Box shifted(const Box &box, int64_t x, int64_t y)
{
    auto cut = [](int64_t value) { return static_cast<int>(std::clamp<int64_t>(value, INT32_MIN, INT32_MAX)); };
    return {cut(box.x1 + x), cut(box.y1 + y), cut(box.x2 + x), cut(box.y2 + y)};
}

void cutRegion(RegionValue &region, const RegionValue &other)
{
    require(pixman_region32_intersect(&region.pixels, &region.pixels, &other.pixels));
}

// What a scroll moves, and what it leaves to be drawn anew.
struct Scroll {
    Scroll(DeviceContext &dc, int x, int y, const RECT *area, const RECT *clip)
    {
        const Box &seen = dc.visible.pixels.extents;
        auto onSurface = [&dc, &seen](const RECT *rect) {
            return rect ? intersected(dc.toSurface(rect->left, rect->top, rect->right, rect->bottom), seen) : seen;
        };
        POINT zero = dc.toSurface(POINT{0, 0}), end = dc.toSurface(POINT{x, y});
        distanceX = int64_t{end.x} - zero.x;
        distanceY = int64_t{end.y} - zero.y;
        Box bounds = onSurface(clip);
        Box source = intersected(onSurface(area), bounds);
        if (isEmpty(source))
            return;
        const ClipBoxes &boxes = dc.clipBoxes();
        RegionValue allowed;
        pixman_region32_fini(&allowed.pixels);
        require(pixman_region32_init_rects(&allowed.pixels, boxes.boxes, boxes.count));
        cutRegion(allowed, RegionValue(bounds));

        Box target = intersected(shifted(source, distanceX, distanceY), bounds);
        if (!isEmpty(target)) {
            moved = RegionValue(source);
            cutRegion(moved, dc.visible);
            pixman_region32_translate(&moved.pixels, static_cast<int>(distanceX), static_cast<int>(distanceY));
            cutRegion(moved, allowed);
        }
        uncovered = RegionValue(source);
        if (!isEmpty(target))
            require(pixman_region32_union_rect(&uncovered.pixels, &uncovered.pixels, target.x1, target.y1,
                                               static_cast<unsigned>(target.x2 - target.x1),
                                               static_cast<unsigned>(target.y2 - target.y1)));
        cutRegion(uncovered, allowed);
        require(pixman_region32_subtract(&uncovered.pixels, &uncovered.pixels, &moved.pixels));
    }

    int64_t distanceX;
    int64_t distanceY;
    RegionValue moved;
    RegionValue uncovered;
};

void movePixels(Drawing &drawing, const Scroll &scroll)
{
    ClipBoxes clip = clipBoxesOf(scroll.moved.pixels);
    const Box &box = clip.extents;
    if (!drawing.touch(box))
        return;
    int width = box.x2 - box.x1, height = box.y2 - box.y1;
    BlitGeometry geometry{box.x1,
                          box.y1,
                          width,
                          height,
                          static_cast<int>(box.x1 - scroll.distanceX),
                          static_cast<int>(box.y1 - scroll.distanceY),
                          width,
                          height};
    blit(drawing.surface(), clip, geometry, drawing.surface(), BlitColors{}, SRCCOPY, Paint{}, COLORONCOLOR);
}

} // namespace

BOOL ScrollDC(HDC context, int x, int y, const RECT *area, const RECT *clip, HRGN update, LPRECT updateBox)
{
    Drawing drawing(context);
    if (!drawing)
        return FALSE;
    Region *updateRegion = update ? find<Region>(update) : nullptr;
    if (update && !updateRegion)
        return FALSE;
    return guarded(FALSE, [&] {
        DeviceContext &dc = drawing.dc();
        Scroll scroll(dc, x, y, area, clip);
        movePixels(drawing, scroll);
        pixman_region32_translate(&scroll.uncovered.pixels, -dc.origin.x, -dc.origin.y);
        if (updateBox)
            *updateBox = rectOf(scroll.uncovered.pixels.extents);
        if (updateRegion)
            std::swap(updateRegion->pixels, scroll.uncovered.pixels);
        return TRUE;
    });
}
