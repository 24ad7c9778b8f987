#include "bitmap.h"

#include "color_tables.h"
#include "dib.h"

#include "kernel/kernel_internal.h"
#include "screen/screen.h"

#include <cstring>
#include <limits>

namespace win32::gdi {
namespace {

// Windows takes no wider and no larger ones.
constexpr int64_t widestBitmap = 0x7ffffff;
constexpr int64_t largestBitmap = std::numeric_limits<LONG>::max();

// Makes a bitmap by filling an object in; null with the last error when memory or handles are short.
template <class Fill> Bitmap *createBitmap(Fill fill)
{
    if (refusesCreation(ObjectType::Bitmap))
        return nullptr;
    return guarded(static_cast<Bitmap *>(nullptr), [&]() -> Bitmap * {
        auto bitmap = std::make_unique<Bitmap>();
        if (!fill(*bitmap))
            return nullptr;
        Bitmap *made = bitmap.get();
        return enter(bitmap.release()) ? made : nullptr;
    });
}

} // namespace

int64_t Bitmap::publishedStride() const
{
    int depth = surface.format.bitsPerPixel;
    return isDibSection ? dibStride(surface.width, depth) : bitmapStride(surface.width, depth);
}

int Bitmap::describe(int size, void *buffer) const
{
    if (!buffer)
        return sizeof(BITMAP);
    if (size < static_cast<int>(sizeof(BITMAP)))
        return 0;
    DIBSECTION section{};
    section.dsBm = {0,
                    surface.width,
                    surface.height,
                    static_cast<LONG>(publishedStride()),
                    1,
                    surface.format.bitsPerPixel,
                    isDibSection ? firstByte() : nullptr};
    section.dsBmih = header;
    memcpy(section.dsBitfields, masks, sizeof masks);
    size_t given = isDibSection && size >= static_cast<int>(sizeof section) ? sizeof section : sizeof(BITMAP);
    memcpy(buffer, &section, given);
    return static_cast<int>(given);
}

Bitmap *defaultBitmap()
{
    static uint8_t pixel[4];
    static Bitmap *const bitmap = [] {
        auto made = new Bitmap;
        made->surface.bits = pixel;
        made->surface.stride = sizeof pixel;
        made->surface.width = made->surface.height = 1;
        made->surface.format = monochromeFormat();
        enterStock(made);
        return made;
    }();
    return bitmap;
}

PixelFormat deviceFormat(int bitsPerPixel)
{
    if (bitsPerPixel == 1)
        return monochromeFormat();
    const PixelFormat &screen = screen::surface().format;
    return screen.bitsPerPixel == bitsPerPixel ? screen : rgbFormat(bitsPerPixel);
}

const ColorTable *deviceColors(const PixelFormat &format)
{
    if (format.isMonochrome)
        return nullptr;
    return format == screen::surface().format ? screen::surface().colors : defaultColors(format.bitsPerPixel);
}

Bitmap *createDeviceBitmap(int64_t width, int64_t height, const PixelFormat &format)
{
    int64_t stride = dibStride(width, format.bitsPerPixel);
    if (width > widestBitmap || height > largestBitmap / stride)
        return fail(ERROR_INVALID_PARAMETER, static_cast<Bitmap *>(nullptr));
    return createBitmap([&](Bitmap &bitmap) {
        if (!bitmap.memory.allocate(static_cast<size_t>(stride * height)))
            return false;
        bitmap.surface.bits = bitmap.memory.data();
        bitmap.surface.stride = static_cast<ptrdiff_t>(stride);
        bitmap.surface.width = static_cast<int>(width);
        bitmap.surface.height = static_cast<int>(height);
        bitmap.surface.format = format;
        bitmap.surface.colors = deviceColors(format);
        return true;
    });
}

Bitmap *createDibSection(const Dib &dib)
{
    return createBitmap([&](Bitmap &bitmap) {
        if (dib.format.isIndexed())
            bitmap.colors = std::make_unique<ColorTable>(dib.colors);
        if (!bitmap.memory.allocate(static_cast<size_t>(dib.stride * dib.height)))
            return false;
        bitmap.surface = dib.surfaceOf(bitmap.memory.data(), dib.height);
        bitmap.surface.colors = bitmap.colors.get();
        bitmap.isDibSection = true;
        bitmap.isBottomUp = !dib.isTopDown;
        bitmap.header = dib.header;
        bitmap.header.biHeight = dib.height;
        if (dib.format.layout == PixelLayout::Direct16)
            bitmap.header.biCompression = BI_BITFIELDS;
        if (bitmap.header.biCompression == BI_BITFIELDS) {
            bitmap.masks[0] = dib.format.redMask;
            bitmap.masks[1] = dib.format.greenMask;
            bitmap.masks[2] = dib.format.blueMask;
        }
        return true;
    });
}

} // namespace win32::gdi
