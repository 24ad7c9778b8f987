// Regions as data, and back, with a transformation on the way.
#include "region.h"
#include "region_building.h"
#include "scan.h"

#include "kernel/kernel_internal.h"

#include <cstring>
#include <memory>

using namespace win32;
using namespace win32::gdi;

namespace {

POINT transformed(const XFORM &transform, int x, int y)
{
    return {roundedToInt(double{transform.eM11} * x + double{transform.eM21} * y + double{transform.eDx}),
            roundedToInt(double{transform.eM12} * x + double{transform.eM22} * y + double{transform.eDy})};
}

bool isIdentity(const XFORM *transform)
{
    return !transform
           || (transform->eM11 == 1 && transform->eM12 == 0 && transform->eM21 == 0 && transform->eM22 == 1
               && transform->eDx == 0 && transform->eDy == 0);
}

// Appends the area of a box behind the transformation.
void appendTransformed(const XFORM &transform, const Box &box, std::vector<Box> &boxes)
{
    POINT corners[4] = {transformed(transform, box.x1, box.y1), transformed(transform, box.x2, box.y1),
                        transformed(transform, box.x2, box.y2), transformed(transform, box.x1, box.y2)};
    if (transform.eM12 == 0 && transform.eM21 == 0) {
        boxes.push_back(ordered({corners[0].x, corners[0].y, corners[2].x, corners[2].y}));
        return;
    }
    constexpr int count = 4;
    scanPolygons(corners, {&count, 1}, WINDING, everywhere, boxes);
}

std::vector<Box> transformedBoxes(const XFORM &transform, std::span<const Box> boxes)
{
    std::vector<Box> result;
    result.reserve(boxes.size());
    for (const Box &box : boxes) {
        if (!isEmpty(box))
            appendTransformed(transform, box, result);
    }
    return result;
}

bool isValid(const RGNDATA *data, DWORD size)
{
    if (!data || size < sizeof(RGNDATAHEADER) || data->rdh.dwSize < sizeof(RGNDATAHEADER)
        || data->rdh.iType != RDH_RECTANGLES)
        return false;
    return sizeof(RGNDATAHEADER) + uint64_t{data->rdh.nCount} * sizeof(RECT) <= size;
}

} // namespace

HRGN ExtCreateRegion(const XFORM *transform, DWORD size, const RGNDATA *data)
{
    if (!isValid(data, size))
        return fail(ERROR_INVALID_PARAMETER, HRGN{});
    if (refusesCreation(ObjectType::Region))
        return nullptr;
    return guarded(HRGN{}, [&] {
        auto region = std::make_unique<Region>(Box{});
        std::span boxes(reinterpret_cast<const Box *>(data->Buffer), data->rdh.nCount);
        if (isIdentity(transform))
            assignUnion(region->pixels, boxes);
        else
            assignUnion(region->pixels, transformedBoxes(*transform, boxes));
        return static_cast<HRGN>(enter(region.release()));
    });
}

DWORD GetRegionData(HRGN region, DWORD size, LPRGNDATA data)
{
    const Region *object = find<Region>(region);
    if (!object)
        return 0;
    int count = 0;
    const Box *boxes = pixman_region32_rectangles(&const_cast<Region *>(object)->pixels, &count);
    size_t bytes = static_cast<size_t>(count) * sizeof(RECT), needed = sizeof(RGNDATAHEADER) + bytes;
    if (needed > UINT_MAX)
        return fail(ERROR_NOT_ENOUGH_MEMORY, DWORD{0});
    if (!data)
        return static_cast<DWORD>(needed);
    if (size < needed)
        return fail(ERROR_INSUFFICIENT_BUFFER, DWORD{0});
    RECT bound = count ? rectOf(object->pixels.extents) : RECT{};
    data->rdh = {sizeof(RGNDATAHEADER), RDH_RECTANGLES, static_cast<DWORD>(count), static_cast<DWORD>(bytes), bound};
    if (count)
        memcpy(data->Buffer, boxes, bytes);
    return static_cast<DWORD>(needed);
}
