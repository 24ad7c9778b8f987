#include "dib_pixels.h"

#include "blit.h"
#include "color_tables.h"
#include "device_context.h"
#include "region_building.h"
#include "rle.h"

#include "kernel/kernel_internal.h"

#include <algorithm>

namespace win32::gdi {
namespace {

constexpr BlitColors noColors{RGB(0, 0, 0), RGB(255, 255, 255), RGB(255, 255, 255)};

bool copy(const Surface &destination, const ClipBoxes &clip, const Box &box, int sourceX, int sourceY,
          const Surface &source)
{
    int width = box.x2 - box.x1, height = box.y2 - box.y1;
    BlitGeometry geometry{box.x1, box.y1, width, height, sourceX, sourceY, width, height};
    return blit(destination, clip, geometry, source, noColors, SRCCOPY, Paint{}, COLORONCOLOR);
}

// A part of one surface as it comes to lie on another whose pixels are at a distance, cut to the other.
Box placed(const Box &part, int64_t x, int64_t y, const Box &bounds)
{
    auto at = [](int64_t value, int low, int high) { return static_cast<int>(std::clamp<int64_t>(value, low, high)); };
    return {at(part.x1 + x, bounds.x1, bounds.x2), at(part.y1 + y, bounds.y1, bounds.y2),
            at(part.x2 + x, bounds.x1, bounds.x2), at(part.y2 + y, bounds.y1, bounds.y2)};
}

} // namespace

bool DibPixels::open(const Dib &dib, const void *bits, UINT start, UINT lines)
{
    if (dib.isCompressed()) {
        lines_ = static_cast<UINT>(dib.height);
        return decode(dib, bits);
    }
    auto height = static_cast<UINT>(dib.height);
    lines_ = start >= height ? 0 : dib.isTopDown ? lines : std::min(lines, height - start);
    top_ = int64_t{dib.height} - start - lines_;
    surface_ = dib.surfaceOf(bits, static_cast<int>(std::min(lines_, height)));
    return true;
}

bool DibPixels::decode(const Dib &dib, const void *bits)
{
    constexpr int bytePixels = 8;
    int64_t stride = dibStride(dib.width, bytePixels);
    if (!decoded_.allocate(static_cast<size_t>(stride * dib.height)))
        return false;
    surface_.bits = decoded_.data();
    surface_.stride = static_cast<ptrdiff_t>(stride);
    surface_.width = dib.width;
    surface_.height = dib.height;
    surface_.format = rgbFormat(bytePixels);
    surface_.colors = &dib.colors;
    return guarded(false, [&] {
        std::vector<Box> boxes;
        decodeRle(dib, bits, surface_, boxes);
        assignUnion(covered_, boxes);
        Box whole = surface_.box();
        isPartial_ = pixman_region32_contains_rectangle(&covered_, &whole) != PIXMAN_REGION_IN;
        return true;
    });
}

ClipBoxes DibPixels::clipTo(const ClipBoxes &clip, int x, int y, pixman_region32_t &storage) const
{
    if (!isPartial_)
        return clip;
    RegionValue given, set;
    assignBands(given.pixels, {clip.boxes, static_cast<size_t>(clip.count)});
    set.copyFrom(covered_);
    if (!translate(set.pixels, x, y))
        return {};
    if (!combine(storage, given.pixels, set.pixels, RGN_AND))
        throw std::bad_alloc();
    return clipBoxesOf(storage);
}

bool DibPixels::copyTo(const Surface &destination, const ClipBoxes &clip, int64_t x, int64_t y, const Box &part) const
{
    Box target = placed(intersected(part, surface_.box()), x, y, destination.box());
    if (isEmpty(target))
        return true;
    // Something is visible, so the distances fit.
    auto left = static_cast<int>(x), top = static_cast<int>(y);
    return guarded(false, [&] {
        RegionValue storage;
        ClipBoxes pieces = clipTo(clip, left, top, storage.pixels);
        return copy(destination, pieces, target, target.x1 - left, target.y1 - top, surface_);
    });
}

bool copyPixels(const Surface &destination, int x, int y, const Surface &source)
{
    Box bounds = destination.box();
    Box target = placed(source.box(), x, y, bounds);
    if (isEmpty(target))
        return true;
    return copy(destination, {&bounds, 1, bounds}, target, target.x1 - x, target.y1 - y, source);
}

bool putPicture(const Bitmap &bitmap, const Dib &dib, const void *bits)
{
    DibPixels pixels;
    Surface target = coloredSurface(bitmap.surface);
    Box bounds = target.box();
    return pixels.open(dib, bits, 0, static_cast<UINT>(dib.height))
           && pixels.copyTo(target, {&bounds, 1, bounds}, 0, 0, pixels.surface().box());
}

} // namespace win32::gdi
