// Reading of the copy settings, and the test whether the display takes bitmaps with masks.
#include "CopySettings_internal.h"

#include "Quickdraw/GdiGuard_internal.h"

#include <mtbx/MTBXEnvironment.h>
#include <mtbx/MTBXGlobals.h>

CopySettings copySettings;

namespace {

UInt8 flag(const char *key, SInt32 defaultValue)
{
    return static_cast<UInt8>(MTBX_GetRequiredProfileInt(key, defaultValue));
}

// One pixel of 32 bits, with the masks of a world whose bytes are alpha, red, green, blue.
bool canMakeMaskedBitmap(HDC context)
{
    struct {
        BITMAPINFOHEADER header;
        DWORD masks[3];
    } description = {};
    description.header.biSize = sizeof description.header;
    description.header.biWidth = 1;
    description.header.biHeight = -1;
    description.header.biPlanes = 1;
    description.header.biBitCount = 32;
    description.header.biCompression = BI_BITFIELDS;
    description.masks[0] = 0x0000FF00;
    description.masks[1] = 0x00FF0000;
    description.masks[2] = 0xFF000000;
    void *bits = nullptr;
    HBITMAP bitmap =
        MTBX_CreateDIBSection(context, reinterpret_cast<BITMAPINFO *>(&description), DIB_RGB_COLORS, &bits, nullptr, 0);
    if (bitmap)
        DeleteObject(bitmap);
    return bitmap;
}

} // namespace

void MTBX_ReadCopySettings()
{
    copySettings.useDirectDraw = flag("UseDirectDraw", 1);
    copySettings.useStretchBlt = flag("UseStretchBlt", 0);
    copySettings.directDrawMoniker = flag("DirectDrawMoniker", 0);
    copySettings.useBitfieldsIfPossible = flag("UseBitfieldsIfPossible", 0);
    copySettings.workaroundStretchDIBitsBug = flag("WorkaroundStretchDIBitsBug", 1);
    if (!copySettings.useBitfieldsIfPossible)
        return;
    HDC context = GetWindowDC(hWndMain);
    if (!canMakeMaskedBitmap(context))
        copySettings.useStretchBlt = copySettings.useBitfieldsIfPossible = 0;
    ReleaseDC(hWndMain, context);
}
