// Making bitmaps.
#include "bitmap.h"
#include "device_context.h"
#include "dib.h"
#include "dib_pixels.h"

#include "kernel/kernel_internal.h"
#include "screen/screen.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <limits>

using namespace win32;
using namespace win32::gdi;

namespace {

HBITMAP handleOf(const Bitmap *bitmap)
{
    return bitmap ? static_cast<HBITMAP>(bitmap->handle()) : nullptr;
}

int64_t magnitude(int value)
{
    return std::abs(int64_t{value});
}

// Depths between the usual ones are taken for the next one above; 0 is the smallest of colour.
int deviceDepth(UINT bitsPerPixel)
{
    for (int depth : {1, 4, 8, 16, 24, 32}) {
        if (bitsPerPixel <= static_cast<UINT>(depth) && (bitsPerPixel != 0 || depth != 1))
            return depth;
    }
    return 0;
}

void copyRows(Bitmap &bitmap, const void *bits)
{
    auto stride = static_cast<ptrdiff_t>(bitmap.publishedStride());
    auto bytes = static_cast<const uint8_t *>(bits);
    for (int y = 0; y < bitmap.surface.height; ++y)
        memcpy(bitmap.surface.row(y), bytes + y * stride, static_cast<size_t>(stride));
}

// A section with the attributes of one that is there, in another size.
Bitmap *createSectionLike(const Bitmap &model, int64_t width, int64_t height)
{
    Dib dib;
    dib.header = model.header;
    dib.format = model.surface.format;
    dib.stride = dibStride(width, dib.format.bitsPerPixel);
    if (dib.stride > std::numeric_limits<LONG>::max() || height > std::numeric_limits<DWORD>::max() / dib.stride)
        return fail(ERROR_INVALID_PARAMETER, static_cast<Bitmap *>(nullptr));
    dib.bitsSize = dib.stride * height;
    dib.width = dib.header.biWidth = static_cast<LONG>(width);
    dib.height = dib.header.biHeight = static_cast<LONG>(height);
    dib.header.biSizeImage = static_cast<DWORD>(dib.bitsSize);
    if (model.colors)
        dib.colors = *model.colors;
    return createDibSection(dib);
}

bool hasGray(const ColorTable &table, int index, BYTE level)
{
    const RGBQUAD &color = table.colors[index];
    return color.rgbRed == level && color.rgbGreen == level && color.rgbBlue == level;
}

bool isBlackAndWhite(const Dib &dib)
{
    constexpr BYTE black = 0, white = 0xff;
    auto isEither = [&](int index) { return hasGray(dib.colors, index, black) || hasGray(dib.colors, index, white); };
    return dib.format.bitsPerPixel == 1 && isEither(0) && isEither(1);
}

Bitmap *createInitialized(const PixelFormat &format, int64_t width, int64_t height, const Dib &dib, const void *bits)
{
    Bitmap *bitmap = createDeviceBitmap(width, height, format);
    if (bitmap && !putPicture(*bitmap, dib, bits)) {
        destroy(bitmap);
        return nullptr;
    }
    return bitmap;
}

} // namespace

HBITMAP win32::gdi::createFromPackedDib(const void *packed, int64_t size)
{
    Dib dib;
    if (!readPackedDib(packed, size, DIB_RGB_COLORS, nullptr, dib))
        return nullptr;
    PixelFormat format =
        isBlackAndWhite(dib) ? monochromeFormat() : deviceFormat(screen::surface().format.bitsPerPixel);
    auto bits = static_cast<const uint8_t *>(packed) + dib.bitsOffset;
    return handleOf(createInitialized(format, dib.width, dib.height, dib, bits));
}

HBITMAP CreateBitmap(int width, int height, UINT planes, UINT bitsPerPixel, const void *bits)
{
    int depth = deviceDepth(bitsPerPixel);
    if (planes != 1 || depth == 0)
        return fail(ERROR_INVALID_PARAMETER, HBITMAP{});
    if (width == 0 || height == 0)
        return handleOf(defaultBitmap());
    Bitmap *bitmap = createDeviceBitmap(magnitude(width), magnitude(height), deviceFormat(depth));
    if (bitmap && bits)
        copyRows(*bitmap, bits);
    return handleOf(bitmap);
}

HBITMAP CreateBitmapIndirect(const BITMAP *bitmap)
{
    if (!bitmap || bitmap->bmType != 0)
        return fail(ERROR_INVALID_PARAMETER, HBITMAP{});
    return CreateBitmap(bitmap->bmWidth, bitmap->bmHeight, bitmap->bmPlanes, bitmap->bmBitsPixel, bitmap->bmBits);
}

HBITMAP CreateCompatibleBitmap(HDC context, int width, int height)
{
    DeviceContext *dc = findContext(context);
    if (!dc)
        return nullptr;
    if (width == 0 || height == 0)
        return handleOf(defaultBitmap());
    if (dc->isMemory && dc->bitmap->isDibSection)
        return handleOf(createSectionLike(*dc->bitmap, magnitude(width), magnitude(height)));
    return handleOf(createDeviceBitmap(magnitude(width), magnitude(height), dc->surface.format));
}

HBITMAP CreateDIBSection(HDC context, const BITMAPINFO *info, UINT usage, void **bits, HANDLE section, DWORD)
{
    if (bits)
        *bits = nullptr;
    Dib dib;
    if (!readDib(info, usage, paletteFor(context, usage), dib))
        return nullptr;
    // The layer has no file mappings, so no handle can be one's.
    if (section)
        return fail(ERROR_INVALID_HANDLE, HBITMAP{});
    if (dib.isCompressed() || dib.header.biPlanes != 1)
        return fail(ERROR_INVALID_PARAMETER, HBITMAP{});
    Bitmap *bitmap = createDibSection(dib);
    if (bitmap && bits)
        *bits = bitmap->firstByte();
    return handleOf(bitmap);
}

HBITMAP CreateDIBitmap(HDC context, const BITMAPINFOHEADER *header, DWORD init, const void *bits,
                       const BITMAPINFO *info, UINT usage)
{
    int64_t width, height;
    DeviceContext *dc = context ? findContext(context) : nullptr;
    if (context && !dc)
        return nullptr;
    if (!readDibSize(header, width, height) || usage > DIB_PAL_COLORS || ((init & CBM_INIT) && !bits))
        return fail(ERROR_INVALID_PARAMETER, HBITMAP{});
    if (width == 0 || height == 0)
        return handleOf(defaultBitmap());
    PixelFormat format = dc ? deviceFormat(dc->surface.format.bitsPerPixel) : monochromeFormat();
    if (!(init & CBM_INIT))
        return handleOf(createDeviceBitmap(width, height, format));
    Dib dib;
    if (!readDib(info, usage, dc ? dc->state.palette.get() : nullptr, dib))
        return nullptr;
    return handleOf(createInitialized(format, width, height, dib, bits));
}
