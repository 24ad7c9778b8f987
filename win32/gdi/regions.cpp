// Regions as callers handle them: combined, moved, compared, asked.
#include "clip_boxes.h"
#include "region.h"

#include "kernel/kernel_internal.h"

using namespace win32;
using namespace win32::gdi;

BOOL SetRectRgn(HRGN region, int left, int top, int right, int bottom)
{
    Region *object = find<Region>(region);
    if (!object)
        return FALSE;
    Box box = ordered({left, top, right, bottom});
    if (isEmpty(box))
        pixman_region32_clear(&object->pixels);
    else
        pixman_region32_reset(&object->pixels, &box);
    return TRUE;
}

int CombineRgn(HRGN result, HRGN first, HRGN second, int mode)
{
    if (mode < RGN_AND || mode > RGN_COPY)
        return fail(ERROR_INVALID_PARAMETER, ERROR);
    Region *target = find<Region>(result);
    const Region *firstRegion = target ? find<Region>(first) : nullptr;
    // A copy has one source.
    const Region *secondRegion = mode == RGN_COPY || !firstRegion ? firstRegion : find<Region>(second);
    if (!secondRegion)
        return ERROR;
    if (!combine(target->pixels, firstRegion->pixels, secondRegion->pixels, mode))
        return fail(ERROR_NOT_ENOUGH_MEMORY, ERROR);
    return complexityOf(target->pixels);
}

int OffsetRgn(HRGN region, int x, int y)
{
    Region *object = find<Region>(region);
    if (!object)
        return ERROR;
    if (!translate(object->pixels, x, y))
        return fail(ERROR_INVALID_PARAMETER, ERROR);
    return complexityOf(object->pixels);
}

BOOL EqualRgn(HRGN first, HRGN second)
{
    const Region *firstRegion = find<Region>(first);
    const Region *secondRegion = firstRegion ? find<Region>(second) : nullptr;
    if (!secondRegion)
        return FALSE;
    // Empty regions differ for pixman by where they became so.
    bool isEmpty = complexityOf(firstRegion->pixels) == NULLREGION;
    return isEmpty ? complexityOf(secondRegion->pixels) == NULLREGION
                   : pixman_region32_equal(&firstRegion->pixels, &secondRegion->pixels);
}

BOOL PtInRegion(HRGN region, int x, int y)
{
    const Region *object = find<Region>(region);
    return object && pixman_region32_contains_point(&object->pixels, x, y, nullptr);
}

BOOL RectInRegion(HRGN region, const RECT *rect)
{
    const Region *object = find<Region>(region);
    if (!object || !rect)
        return FALSE;
    bool isSeen = false;
    Box box = ordered(boxOf(*rect));
    if (!isEmpty(box))
        eachVisible(clipBoxesOf(object->pixels), box, [&isSeen](const Box &) { isSeen = true; });
    return isSeen;
}

int GetRgnBox(HRGN region, LPRECT box)
{
    const Region *object = find<Region>(region);
    if (!object)
        return ERROR;
    if (!box)
        return fail(ERROR_INVALID_PARAMETER, ERROR);
    int complexity = complexityOf(object->pixels);
    *box = complexity == NULLREGION ? RECT{} : rectOf(object->pixels.extents);
    return complexity;
}
