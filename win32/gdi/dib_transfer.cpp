// Between bitmaps and DIBs in the caller's memory.
#include "color_tables.h"
#include "device_context.h"
#include "dib_description.h"
#include "dib_pixels.h"

#include "kernel/kernel_internal.h"

#include <cstring>

using namespace win32;
using namespace win32::gdi;

namespace {

// Pixels of another depth become indices into the palette then, not into the table.
void takePaletteColors(const Palette &palette, ColorTable &colors)
{
    if (palette.entries.empty())
        return;
    for (int index = 0; index < colors.count; ++index) {
        const PALETTEENTRY &entry = palette.entries[static_cast<size_t>(index) % palette.entries.size()];
        colors.colors[index] = {entry.peBlue, entry.peGreen, entry.peRed, 0};
    }
    colors.changed();
}

// Lines that the bitmap has, of those that the pixels stand for.
int commonLines(const DibPixels &pixels, const Surface &bitmap)
{
    int64_t first = std::max<int64_t>(pixels.top(), 0);
    int64_t behind = std::min<int64_t>(pixels.top() + pixels.surface().height, bitmap.height);
    return static_cast<int>(std::max<int64_t>(behind - first, 0));
}

// What the bitmap does not cover becomes 0.
int getLines(const Bitmap &bitmap, const Dib &dib, const DibPixels &pixels)
{
    const Surface &target = pixels.surface();
    int lines = commonLines(pixels, bitmap.surface);
    if (lines < target.height || bitmap.surface.width < target.width)
        memset(std::min(target.row(0), target.row(target.height - 1)), 0,
               static_cast<size_t>(dib.stride) * static_cast<size_t>(target.height));
    if (lines == 0)
        return 0;
    return copyPixels(target, 0, static_cast<int>(-pixels.top()), coloredSurface(bitmap.surface)) ? lines : 0;
}

} // namespace

int GetDIBits(HDC context, HBITMAP handle, UINT start, UINT lines, LPVOID bits, LPBITMAPINFO info, UINT usage)
{
    DeviceContext *dc = findContext(context);
    Bitmap *bitmap = dc ? find<Bitmap>(handle) : nullptr;
    if (!bitmap)
        return 0;
    if (!info || usage > DIB_PAL_COLORS)
        return fail(ERROR_INVALID_PARAMETER, 0);
    if (!bits && asksForDescription(info))
        return describeBitmap(*bitmap, info) ? bitmap->surface.height : 0;
    Dib dib;
    if (!readWantedDib(info, bitmap->surface, dib))
        return 0;
    describeDib(dib, usage, info);
    bool isOtherDepth = dib.format.bitsPerPixel != bitmap->surface.format.bitsPerPixel;
    if (usage == DIB_PAL_COLORS && isOtherDepth && dib.format.isIndexed())
        takePaletteColors(*dc->state.palette, dib.colors);
    auto height = static_cast<UINT>(dib.height);
    UINT wanted = start < height ? std::min(lines, height - start) : 0;
    if (!bits || wanted == 0)
        return TRUE;
    DibPixels pixels;
    pixels.open(dib, bits, start, wanted);
    return getLines(*bitmap, dib, pixels);
}

int SetDIBits(HDC context, HBITMAP handle, UINT start, UINT lines, const void *bits, const BITMAPINFO *info, UINT usage)
{
    Bitmap *bitmap = find<Bitmap>(handle);
    if (!bitmap)
        return 0;
    Dib dib;
    if (!readDib(info, usage, paletteFor(context, usage), dib))
        return 0;
    if (!bits)
        return fail(ERROR_INVALID_PARAMETER, 0);
    DibPixels pixels;
    if (!pixels.open(dib, bits, start, lines))
        return 0;
    Surface target = coloredSurface(bitmap->surface);
    Box bounds = target.box();
    bool isCopied = pixels.copyTo(target, {&bounds, 1, bounds}, 0, pixels.top(), pixels.surface().box());
    return isCopied ? static_cast<int>(pixels.lines()) : 0;
}
