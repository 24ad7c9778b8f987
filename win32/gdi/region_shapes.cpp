// Regions made from shapes.
#include "region.h"
#include "region_building.h"
#include "scan.h"

#include "kernel/kernel_internal.h"

#include <memory>

using namespace win32;
using namespace win32::gdi;

namespace {

// Makes the region of the boxes that scan(vector &) appends.
template <class Scan> HRGN createScanned(Scan scan)
{
    return guarded(HRGN{}, [&] {
        std::vector<Box> boxes;
        scan(boxes);
        auto region = std::make_unique<Region>(Box{});
        assignBands(region->pixels, boxes);
        return static_cast<HRGN>(enter(region.release()));
    });
}

bool isFillMode(int mode)
{
    return mode == ALTERNATE || mode == WINDING;
}

} // namespace

HRGN CreateRectRgn(int left, int top, int right, int bottom)
{
    return static_cast<HRGN>(create<Region>(ordered({left, top, right, bottom})));
}

HRGN CreateRectRgnIndirect(const RECT *rect)
{
    if (!rect)
        return fail(ERROR_INVALID_PARAMETER, HRGN{});
    return CreateRectRgn(rect->left, rect->top, rect->right, rect->bottom);
}

// The shape is a pixel narrower and lower than its box, as all GDI's figures are when their line is not drawn.
HRGN CreateRoundRectRgn(int left, int top, int right, int bottom, int width, int height)
{
    if (refusesCreation(ObjectType::Region))
        return nullptr;
    return createScanned([&](std::vector<Box> &boxes) {
        Box box = ordered({left, top, right, bottom});
        if (isEmpty(box))
            return;
        --box.x2;
        --box.y2;
        scanRoundRect(box, width, height, everywhere, boxes);
    });
}

HRGN CreateEllipticRgn(int left, int top, int right, int bottom)
{
    return CreateRoundRectRgn(left, top, right, bottom, INT_MAX, INT_MAX);
}

HRGN CreateEllipticRgnIndirect(const RECT *rect)
{
    if (!rect)
        return fail(ERROR_INVALID_PARAMETER, HRGN{});
    return CreateEllipticRgn(rect->left, rect->top, rect->right, rect->bottom);
}

HRGN CreatePolygonRgn(const POINT *points, int count, int mode)
{
    return CreatePolyPolygonRgn(points, &count, 1, mode);
}

HRGN CreatePolyPolygonRgn(const POINT *points, const INT *counts, int polygons, int mode)
{
    if (!points || !counts || polygons <= 0 || !isFillMode(mode))
        return fail(ERROR_INVALID_PARAMETER, HRGN{});
    std::span<const int> allCounts(counts, static_cast<size_t>(polygons));
    size_t total = 0;
    for (int count : allCounts) {
        if (count < 2)
            return fail(ERROR_INVALID_PARAMETER, HRGN{});
        total += static_cast<size_t>(count);
    }
    if (refusesCreation(ObjectType::Region))
        return nullptr;
    return createScanned([&](std::vector<Box> &boxes) {
        scanPolygons({points, total}, allCounts, mode, everywhere, boxes);
    });
}
