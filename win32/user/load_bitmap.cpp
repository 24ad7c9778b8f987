// Bitmap resources: packed DIBs.
#include "gdi/bitmap.h"
#include "gdi/dib.h"

#include "kernel/kernel_internal.h"
#include "screen/screen.h"

namespace {

using namespace win32;
using namespace win32::gdi;

bool hasColor(const ColorTable &table, int index, BYTE level)
{
    const RGBQUAD &color = table.colors[index];
    return color.rgbRed == level && color.rgbGreen == level && color.rgbBlue == level;
}

// A picture of one bit in black and white stays one; others become what the screen has.
bool isBlackAndWhite(const Dib &dib)
{
    constexpr BYTE black = 0, white = 0xff;
    return dib.format.bitsPerPixel == 1 && (hasColor(dib.colors, 0, black) || hasColor(dib.colors, 0, white))
           && (hasColor(dib.colors, 1, black) || hasColor(dib.colors, 1, white));
}

} // namespace

HBITMAP LoadBitmapA(HINSTANCE module, LPCSTR name)
{
    HRSRC resource = FindResourceA(module, name, RT_BITMAP);
    if (!resource)
        return nullptr;
    auto packed = static_cast<const uint8_t *>(LockResource(LoadResource(module, resource)));
    Dib dib;
    if (!readPackedDib(packed, SizeofResource(module, resource), DIB_RGB_COLORS, nullptr, dib))
        return nullptr;
    PixelFormat format =
        isBlackAndWhite(dib) ? monochromeFormat() : deviceFormat(screen::surface().format.bitsPerPixel);
    return createFromDib(format, dib, packed + dib.bitsOffset);
}
