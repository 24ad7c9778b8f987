// The copies that pattern brushes keep.
#include "bitmap.h"
#include "brush.h"
#include "dib.h"
#include "stock_objects.h"

#include "kernel/kernel_internal.h"

#include <cstring>
#include <limits>

namespace win32::gdi {
namespace {

constexpr int smallSide = 8;

void copySmallPattern(Brush &brush, const Surface &surface)
{
    for (int y = 0; y < smallSide; ++y)
        brush.rows[y] = *surface.row(y);
    brush.isSmallPattern = true;
}

void copySurface(Brush &brush, const Surface &surface)
{
    auto pattern = std::make_unique<PatternBits>();
    auto stride = static_cast<size_t>(dibStride(surface.width, surface.format.bitsPerPixel));
    pattern->bytes.resize(stride * static_cast<size_t>(surface.height));
    pattern->surface = surface;
    pattern->surface.listener = nullptr;
    pattern->surface.bits = pattern->bytes.data();
    pattern->surface.stride = static_cast<ptrdiff_t>(stride);
    if (surface.colors) {
        pattern->table = *surface.colors;
        pattern->surface.colors = &pattern->table;
    }
    for (int y = 0; y < surface.height; ++y)
        memcpy(pattern->surface.row(y), surface.row(y), stride);
    brush.pattern = std::move(pattern);
}

} // namespace

bool copyPattern(Brush &brush, const Bitmap &bitmap)
{
    const Surface &surface = bitmap.surface;
    return guarded(false, [&] {
        if (surface.format.isMonochrome && surface.width == smallSide && surface.height == smallSide)
            copySmallPattern(brush, surface);
        else
            copySurface(brush, surface);
        return true;
    });
}

bool copyDibPattern(Brush &brush, const void *packedDib, UINT usage)
{
    // Nobody tells the block's size, so what would put the pixels far away is not believed.
    constexpr int64_t farthestPixels = sizeof(BITMAPV5HEADER) + 256 * sizeof(RGBQUAD);
    constexpr int64_t unknownSize = std::numeric_limits<int64_t>::max();
    Dib dib;
    if (!readPackedDib(packedDib, unknownSize, usage, stock::defaultPalette(), dib))
        return false;
    if (dib.isCompressed() || dib.bitsOffset > farthestPixels)
        return fail(ERROR_INVALID_PARAMETER, false);
    return guarded(false, [&] {
        copySurface(brush, dib.surfaceOf(static_cast<const uint8_t *>(packedDib) + dib.bitsOffset, dib.height));
        return true;
    });
}

} // namespace win32::gdi
