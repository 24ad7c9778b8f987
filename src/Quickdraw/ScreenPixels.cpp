// Single pixels of the screen.
#include "Quickdraw_internal.h"

void GetCPixel(SInt16 h, SInt16 v, RGBColor *color)
{
    HDC screen = CreateDCA("Display", nullptr, nullptr, nullptr);
    if (!screen)
        return;
    COLORREF pixel = color ? GetPixel(screen, h, v) : CLR_INVALID;
    auto wide = [](BYTE channel) { return static_cast<UInt16>(channel * 257); };
    if (pixel != CLR_INVALID)
        *color = {wide(GetRValue(pixel)), wide(GetGValue(pixel)), wide(GetBValue(pixel))};
    DeleteDC(screen);
}

Boolean MacGetPixel(SInt16 h, SInt16 v)
{
    RGBColor color = {};
    GetCPixel(h, v, &color);
    return color.red != 0 || color.green != 0 || color.blue != 0;
}

void SetCPixel(SInt16, SInt16, const RGBColor *)
{
}
