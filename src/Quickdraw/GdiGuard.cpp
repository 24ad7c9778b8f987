// The guard's purging and its wrappers of the native calls.
#include "GdiGuard_internal.h"

#include "Memory/Memory_internal.h"

#include <jrnl/jrnl.h>

#include <mtbx/MTBXEnvironment.h>
#include <mtbx/MTBXGlobals.h>

UInt32 gdiPurgeBytes = 4000000;
UInt8 newLowGDIHandling = 1;
bool newLowGDIHandlingRead = false;

namespace {

void readHandling()
{
    if (newLowGDIHandlingRead)
        return;
    newLowGDIHandlingRead = true;
    newLowGDIHandling = static_cast<UInt8>(MTBX_GetRequiredProfileInt("NewLowGDIHandling", newLowGDIHandling));
}

void purge()
{
    readHandling();
    if (gdiPurgeBytes == 0)
        return;
    OutputDebugStringA("ZP: apparently out of GDI objects or memory is fragmented, purging...\n");
    if (newLowGDIHandling) {
        // Above the present headroom, so that something must be freed.
        MTBX_PurgeToMaxBlock(MaxBlockEx() + gdiPurgeBytes);
        return;
    }
    GdiShortageScope shortage;
    MTBX_PurgeToMaxBlock(gdiPurgeBytes);
}

// So many rounds that the whole budget is purged at most.
SInt32 limitOfTries(SInt32 limitWithoutBudget)
{
    UInt64 soft, hard;
    MTBX_GetMemUsageLimits(&soft, &hard);
    if (gdiPurgeBytes == 0 || hard == 0)
        return limitWithoutBudget;
    return static_cast<SInt32>(hard / gdiPurgeBytes);
}

} // namespace

bool GdiShortage::purgeAndTryAgain()
{
    purge();
    if (failures_ == 0)
        limit_ = limitOfTries(limit_);
    ++failures_;
    return failures_ < limit_;
}

void GdiShortage::log(bool succeeded)
{
    SInt32 tries = failures_ + (succeeded ? 1 : 0);
    if (tries <= 1)
        return;
    constexpr double bytesPerMegabyte = 1048576.0;
    double megabytes = static_cast<UInt32>(tries - 1) * gdiPurgeBytes / bytesPerMegabyte;
    // The count alone decides: a success on the very last try is recorded as a failure.
    JRNL_sprintf(0, "MTBX", tries >= limit_ ? "GDI_Purge_FAILED" : "GDI_Purge_OK", "%s\t%f\tmem purged MB", label_,
                 megabytes);
}

HBRUSH MTBX_CreatePatternBrush(HBITMAP bitmap)
{
    return createGuarded("CreatePatternBrush(hbmp)", [=] { return CreatePatternBrush(bitmap); });
}

HPEN MTBX_CreatePen(int style, int width, COLORREF color)
{
    return createGuarded("CreatePen(a, b, c)", [=] { return CreatePen(style, width, color); });
}

HPEN MTBX_ExtCreatePen(DWORD style, DWORD width, const LOGBRUSH *brush, DWORD count, const DWORD *lengths)
{
    auto create = [=] { return ExtCreatePen(style, width, brush, count, lengths); };
    return gWin95 ? create() : createGuarded("ExtCreatePen(a, b, c, d, e)", create);
}

HBRUSH MTBX_CreateBrushIndirect(const LOGBRUSH *brush)
{
    return createGuarded("CreateBrushIndirect(a)", [=] { return CreateBrushIndirect(brush); });
}

HBRUSH MTBX_CreateSolidBrush(COLORREF color)
{
    return createGuarded("CreateSolidBrush(a)", [=] { return CreateSolidBrush(color); });
}

HFONT MTBX_CreateFontIndirect(const LOGFONTA *font)
{
    return createGuarded("CreateFontIndirect (a)", [=] { return CreateFontIndirectA(font); });
}

HPALETTE MTBX_CreatePalette(const LOGPALETTE *palette)
{
    return createGuarded("CreatePalette(a)", [=] { return CreatePalette(palette); });
}

HRGN MTBX_CreatePolygonRgn(const POINT *points, int count, int mode)
{
    return createGuarded("CreatePolygonRgn(a, b, c)", [=] { return CreatePolygonRgn(points, count, mode); });
}

HRGN MTBX_CreateRectRgn(int left, int top, int right, int bottom)
{
    return createGuarded("CreateRectRgn(a, b, c, d)", [=] { return CreateRectRgn(left, top, right, bottom); });
}

HRGN MTBX_CreateRectRgnIndirect(const RECT *rect)
{
    return createGuarded("CreateRectRgnIndirect(a)", [=] { return CreateRectRgnIndirect(rect); });
}

HRGN MTBX_CreateRoundRectRgn(int left, int top, int right, int bottom, int width, int height)
{
    return createGuarded("CreateRoundRectRgn(a, b, c, d, e, f)",
                         [=] { return CreateRoundRectRgn(left, top, right, bottom, width, height); });
}

HRGN MTBX_ExtCreateRegion(const XFORM *transform, DWORD byteCount, const RGNDATA *data)
{
    return createGuarded("ExtCreateRegion(a, b, c)", [=] { return ExtCreateRegion(transform, byteCount, data); });
}

HBITMAP MTBX_CreateBitmap(int width, int height, UINT planes, UINT bitsPerPixel, const void *bits)
{
    return createGuarded("CreateBitmap(a, b, c, d, e)",
                         [=] { return CreateBitmap(width, height, planes, bitsPerPixel, bits); });
}

HBITMAP MTBX_CreateBitmapIndirect(const BITMAP *bitmap)
{
    return createGuarded("CreateBitmapIndirect(a)", [=] { return CreateBitmapIndirect(bitmap); });
}

HBITMAP MTBX_CreateCompatibleBitmap(HDC dc, int width, int height)
{
    return createGuarded("CreateCompatibleBitmap(a, b, c)", [=] { return CreateCompatibleBitmap(dc, width, height); });
}

HBITMAP MTBX_CreateDIBSection(HDC dc, const BITMAPINFO *info, UINT usage, void **bits, HANDLE section, DWORD offset)
{
    return createGuarded("CreateDIBSection(a, b, c, d, e, f)",
                         [=] { return CreateDIBSection(dc, info, usage, bits, section, offset); });
}

HBITMAP MTBX_CreateDIBitmap(HDC dc, const BITMAPINFOHEADER *header, DWORD flags, const void *bits,
                            const BITMAPINFO *info, UINT usage)
{
    return createGuarded("CreateDIBitmap(a, b, c, d, e, f)",
                         [=] { return CreateDIBitmap(dc, header, flags, bits, info, usage); });
}

HDC MTBX_CreateCompatibleDC(HDC dc)
{
    return createGuarded("CreateCompatibleDC(a)", [=] { return CreateCompatibleDC(dc); });
}

HDC MTBX_CreateDC(const char *driver, const char *device, const char *port, const DEVMODEA *mode)
{
    return createGuarded("CreateDC(a, b, c, d)", [=] { return CreateDCA(driver, device, port, mode); });
}

void MTBX_TrackGDI(...)
{
}
