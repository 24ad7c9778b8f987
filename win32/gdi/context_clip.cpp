// The clip of a context.
#include "device_context.h"

#include "kernel/kernel_internal.h"

using namespace win32;
using namespace win32::gdi;

namespace {

// All that a context without a clip could show, in device coordinates.
Box deviceBounds(const DeviceContext &dc)
{
    Box bounds = dc.surface.box();
    return dc.isMemory ? bounds : translatedBack(bounds, dc.origin.x, dc.origin.y);
}

Box deviceBox(const DeviceContext &dc, int left, int top, int right, int bottom)
{
    return translatedBack(dc.toSurface(left, top, right, bottom), dc.origin.x, dc.origin.y);
}

// How the clip is after a change, without what is visible of a window.
int clipChangedTo(DeviceContext &dc, RegionValue &clip)
{
    std::swap(dc.state.clip.pixels, clip.pixels);
    dc.state.isClipped = true;
    dc.clipChanged();
    return complexityOf(dc.state.clip.pixels);
}

// Sets the clip to (clip mode region); without a clip, all that could be seen stands for it.
int combineClip(DeviceContext &dc, const pixman_region32_t &region, int mode)
{
    return guarded(ERROR, [&] {
        RegionValue result;
        if (dc.state.isClipped)
            result.copyFrom(dc.state.clip.pixels);
        else
            result = RegionValue(deviceBounds(dc));
        if (!combine(result.pixels, result.pixels, region, mode))
            return fail(ERROR_NOT_ENOUGH_MEMORY, ERROR);
        return clipChangedTo(dc, result);
    });
}

int setClip(DeviceContext &dc, const pixman_region32_t &region)
{
    return guarded(ERROR, [&] {
        RegionValue result;
        result.copyFrom(region);
        return clipChangedTo(dc, result);
    });
}

int removeClip(DeviceContext &dc)
{
    dc.state.isClipped = false;
    dc.clipChanged();
    return complexityOf(dc.visible.pixels);
}

} // namespace

int ExtSelectClipRgn(HDC context, HRGN handle, int mode)
{
    DeviceContext *dc = findContext(context);
    if (!dc)
        return ERROR;
    if (!handle)
        return mode == RGN_COPY ? removeClip(*dc) : fail(ERROR_INVALID_PARAMETER, ERROR);
    Region *region = find<Region>(handle);
    if (!region)
        return ERROR;
    if (mode < RGN_AND || mode > RGN_COPY)
        return fail(ERROR_INVALID_PARAMETER, ERROR);
    bool replaces = mode == RGN_COPY || (mode == RGN_AND && !dc->state.isClipped);
    return replaces ? setClip(*dc, region->pixels) : combineClip(*dc, region->pixels, mode);
}

int SelectClipRgn(HDC context, HRGN region)
{
    return ExtSelectClipRgn(context, region, RGN_COPY);
}

int GetClipRgn(HDC context, HRGN handle)
{
    DeviceContext *dc = findContext(context);
    Region *region = dc ? find<Region>(handle) : nullptr;
    if (!region)
        return -1;
    if (!dc->state.isClipped)
        return 0;
    if (!pixman_region32_copy(&region->pixels, &dc->state.clip.pixels))
        return fail(ERROR_NOT_ENOUGH_MEMORY, -1);
    return 1;
}

int GetClipBox(HDC context, LPRECT result)
{
    DeviceContext *dc = findContext(context);
    if (!dc || !result)
        return ERROR;
    const ClipBoxes &clip = dc->clipBoxes();
    if (clip.count == 0) {
        *result = {0, 0, 0, 0};
        return NULLREGION;
    }
    Box box = translatedBack(clip.extents, dc->origin.x, dc->origin.y);
    POINT first = dc->toLogical({box.x1, box.y1});
    POINT second = dc->toLogical({box.x2, box.y2});
    *result = {first.x, first.y, second.x, second.y};
    return clip.count == 1 ? SIMPLEREGION : COMPLEXREGION;
}

int IntersectClipRect(HDC context, int left, int top, int right, int bottom)
{
    DeviceContext *dc = findContext(context);
    if (!dc)
        return ERROR;
    RegionValue rect(deviceBox(*dc, left, top, right, bottom));
    return dc->state.isClipped ? combineClip(*dc, rect.pixels, RGN_AND) : setClip(*dc, rect.pixels);
}

int ExcludeClipRect(HDC context, int left, int top, int right, int bottom)
{
    DeviceContext *dc = findContext(context);
    if (!dc)
        return ERROR;
    RegionValue rect(deviceBox(*dc, left, top, right, bottom));
    return combineClip(*dc, rect.pixels, RGN_DIFF);
}

int OffsetClipRgn(HDC context, int x, int y)
{
    DeviceContext *dc = findContext(context);
    if (!dc)
        return ERROR;
    if (!dc->state.isClipped)
        return SIMPLEREGION;
    POINT zero = dc->toDevice({0, 0});
    POINT moved = dc->toDevice({x, y});
    if (!translate(dc->state.clip.pixels, wrappingDifference(moved.x, zero.x), wrappingDifference(moved.y, zero.y)))
        return ERROR;
    dc->clipChanged();
    return complexityOf(dc->state.clip.pixels);
}

BOOL PtVisible(HDC context, int x, int y)
{
    DeviceContext *dc = findContext(context);
    if (!dc)
        return -1;
    POINT point = dc->toSurface({x, y});
    bool isSeen = false;
    eachVisible(dc->clipBoxes(), pixelBox(point.x, point.y), [&](const Box &) { isSeen = true; });
    return isSeen;
}

BOOL RectVisible(HDC context, const RECT *rect)
{
    DeviceContext *dc = findContext(context);
    if (!dc || !rect)
        return -1;
    bool isSeen = false;
    eachVisible(dc->clipBoxes(), dc->toSurface(rect->left, rect->top, rect->right, rect->bottom),
                [&](const Box &) { isSeen = true; });
    return isSeen;
}
