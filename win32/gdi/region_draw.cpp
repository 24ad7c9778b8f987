// Regions drawn on contexts: filled, framed, inverted.
#include "drawing.h"
#include "region_building.h"

#include "kernel/kernel_internal.h"

#include <array>
#include <cstdlib>

using namespace win32;
using namespace win32::gdi;

namespace {

int movedBy(int coordinate, int distance)
{
    return static_cast<int>(std::clamp<int64_t>(int64_t{coordinate} + distance, INT_MIN, INT_MAX));
}

std::span<const Box> boxesOf(const pixman_region32_t &region)
{
    ClipBoxes boxes = clipBoxesOf(region);
    return {boxes.boxes, static_cast<size_t>(boxes.count)};
}

// Calls visit(boxes) with the region's boxes, moved on the surface, some at a time.
template <class Visit> void eachMoved(const pixman_region32_t &region, POINT distance, Visit visit)
{
    std::span<const Box> boxes = boxesOf(region);
    if (distance.x == 0 && distance.y == 0)
        return visit(boxes);
    std::array<Box, 64> moved;
    while (!boxes.empty()) {
        size_t count = std::min(boxes.size(), moved.size());
        for (size_t i = 0; i < count; ++i) {
            moved[i] = {movedBy(boxes[i].x1, distance.x), movedBy(boxes[i].y1, distance.y),
                        movedBy(boxes[i].x2, distance.x), movedBy(boxes[i].y2, distance.y)};
        }
        visit(std::span<const Box>(moved.data(), count));
        boxes = boxes.subspan(count);
    }
}

// The region on the surface, for any mapping.
RegionValue mapped(const DeviceContext &dc, const pixman_region32_t &region)
{
    std::vector<Box> boxes;
    for (const Box &box : boxesOf(region))
        boxes.push_back(dc.toSurface(box.x1, box.y1, box.x2, box.y2));
    RegionValue result;
    assignUnion(result.pixels, boxes);
    return result;
}

void fill(Drawing &drawing, const pixman_region32_t &region, const Paint &paint, int rop2)
{
    const DeviceContext &dc = drawing.dc();
    auto fillBoxes = [&](std::span<const Box> boxes) { drawing.fill(boxes, paint, rop2); };
    if (dc.isTranslation())
        eachMoved(region, dc.toSurface(POINT{0, 0}), fillBoxes);
    else
        fillBoxes(boxesOf(mapped(dc, region).pixels));
}

void appendBox(std::vector<Box> &boxes, const Box &box)
{
    if (!isEmpty(box))
        boxes.push_back(box);
}

// The pixels of the region with others than the region's to their left or right within the distance.
void addSides(const pixman_region32_t &region, int distance, std::vector<Box> &boxes)
{
    for (const Box &box : boxesOf(region)) {
        int innerLeft = std::min(movedBy(box.x1, distance), box.x2);
        int innerRight = std::max(movedBy(box.x2, -distance), innerLeft);
        appendBox(boxes, {box.x1, box.y1, innerLeft, box.y2});
        appendBox(boxes, {innerRight, box.y1, box.x2, box.y2});
    }
}

// Those with others above or below: what is not the region reaches into it by the distance.
void addEnds(const pixman_region32_t &region, int distance, std::vector<Box> &boxes)
{
    const Box &extents = region.extents;
    Box around = {extents.x1, movedBy(extents.y1, -1), extents.x2, movedBy(extents.y2, 1)};
    RegionValue outside(around);
    if (!combine(outside.pixels, outside.pixels, region, RGN_DIFF))
        throw std::bad_alloc();
    std::vector<Box> reaching;
    for (const Box &box : boxesOf(outside.pixels))
        reaching.push_back({box.x1, movedBy(box.y1, -distance), box.x2, movedBy(box.y2, distance)});
    assignUnion(outside.pixels, reaching);
    if (!combine(outside.pixels, outside.pixels, region, RGN_AND))
        throw std::bad_alloc();
    for (const Box &box : boxesOf(outside.pixels))
        boxes.push_back(box);
}

RegionValue frameOf(const pixman_region32_t &region, int width, int height)
{
    std::vector<Box> boxes;
    addSides(region, width, boxes);
    if (height > 0 && complexityOf(region) != NULLREGION)
        addEnds(region, height, boxes);
    RegionValue frame;
    assignUnion(frame.pixels, boxes);
    return frame;
}

// Calls draw(drawing, region) when both handles are good.
template <class Draw> BOOL onRegion(HDC context, HRGN handle, Draw draw)
{
    Drawing drawing(context);
    const Region *region = drawing ? find<Region>(handle) : nullptr;
    if (!region)
        return FALSE;
    return guarded(FALSE, [&] { return draw(drawing, region->pixels) ? TRUE : FALSE; });
}

// Calls draw(paint) with what a brush lays on the surface.
template <class Draw> bool withPaint(DeviceContext &dc, HBRUSH handle, Draw draw)
{
    const Brush *brush = find<Brush>(handle);
    if (!brush)
        return false;
    Tile scratch;
    draw(brush == dc.state.brush.get() ? dc.brushPaint() : dc.paintOf(*brush, scratch));
    return true;
}

} // namespace

BOOL FillRgn(HDC context, HRGN handle, HBRUSH brush)
{
    return onRegion(context, handle, [brush](Drawing &drawing, const pixman_region32_t &region) {
        return withPaint(drawing.dc(), brush,
                         [&](const Paint &paint) { fill(drawing, region, paint, drawing.dc().state.rop2); });
    });
}

BOOL PaintRgn(HDC context, HRGN handle)
{
    return onRegion(context, handle, [](Drawing &drawing, const pixman_region32_t &region) {
        fill(drawing, region, drawing.dc().brushPaint(), drawing.dc().state.rop2);
        return true;
    });
}

BOOL InvertRgn(HDC context, HRGN handle)
{
    return onRegion(context, handle, [](Drawing &drawing, const pixman_region32_t &region) {
        fill(drawing, region, solidPaint(0), R2_NOT);
        return true;
    });
}

// The frame lies within the region: the pixels that are no further than the sizes from others.
BOOL FrameRgn(HDC context, HRGN handle, HBRUSH brush, int width, int height)
{
    return onRegion(context, handle, [&](Drawing &drawing, const pixman_region32_t &region) {
        DeviceContext &dc = drawing.dc();
        return withPaint(dc, brush, [&](const Paint &paint) {
            RegionValue frame = frameOf(mapped(dc, region).pixels, dc.deviceWidth(width), dc.deviceHeight(height));
            drawing.fill(boxesOf(frame.pixels), paint, dc.state.rop2);
        });
    });
}
