// Making brushes.
#include "bitmap.h"
#include "brush.h"

#include "kernel/kernel_internal.h"

using namespace win32;
using namespace win32::gdi;

namespace {

HBRUSH createBrush(UINT style, COLORREF color, ULONG_PTR hatch)
{
    return static_cast<HBRUSH>(create<Brush>(style, color, hatch));
}

HBRUSH createPatterned(UINT style, ULONG_PTR hatch, auto copy)
{
    if (refusesCreation(ObjectType::Brush))
        return nullptr;
    Brush *brush = new (std::nothrow) Brush(style, 0, hatch);
    if (!brush)
        return fail(ERROR_NOT_ENOUGH_MEMORY, HBRUSH{});
    bool isCopied = guarded(false, [&] { return copy(*brush); });
    if (!isCopied) {
        delete brush;
        return nullptr;
    }
    return static_cast<HBRUSH>(enter(brush));
}

} // namespace

HBRUSH CreateSolidBrush(COLORREF color)
{
    return createBrush(BS_SOLID, color, 0);
}

HBRUSH CreateHatchBrush(int style, COLORREF color)
{
    if (style < HS_HORIZONTAL || style > HS_DIAGCROSS)
        return nullptr;
    return createBrush(BS_HATCHED, color, static_cast<ULONG_PTR>(style));
}

HBRUSH CreatePatternBrush(HBITMAP handle)
{
    Bitmap *bitmap = find<Bitmap>(handle);
    if (!bitmap)
        return nullptr;
    return createPatterned(BS_PATTERN, reinterpret_cast<ULONG_PTR>(handle),
                           [&](Brush &brush) { return copyPattern(brush, *bitmap); });
}

HBRUSH CreateDIBPatternBrushPt(const void *packedDib, UINT usage)
{
    if (!packedDib)
        return nullptr;
    return createPatterned(BS_DIBPATTERN, reinterpret_cast<ULONG_PTR>(packedDib),
                           [&](Brush &brush) { return copyDibPattern(brush, packedDib, usage); });
}

HBRUSH CreateBrushIndirect(const LOGBRUSH *brush)
{
    if (!brush)
        return nullptr;
    switch (brush->lbStyle) {
    case BS_SOLID:
        return createBrush(BS_SOLID, brush->lbColor, 0);
    case BS_NULL:
        return createBrush(BS_NULL, 0, 0);
    case BS_HATCHED:
        return CreateHatchBrush(static_cast<int>(brush->lbHatch), brush->lbColor);
    case BS_PATTERN:
    case BS_PATTERN8X8:
        return CreatePatternBrush(reinterpret_cast<HBITMAP>(brush->lbHatch));
    case BS_DIBPATTERNPT:
        return CreateDIBPatternBrushPt(reinterpret_cast<const void *>(brush->lbHatch), brush->lbColor);
    case BS_DIBPATTERN:
    case BS_DIBPATTERN8X8: {
        HGLOBAL block = reinterpret_cast<HGLOBAL>(brush->lbHatch);
        const void *packedDib = GlobalLock(block);
        HBRUSH made = CreateDIBPatternBrushPt(packedDib, brush->lbColor);
        if (packedDib)
            GlobalUnlock(block);
        return made;
    }
    default:
        return fail(ERROR_INVALID_PARAMETER, HBRUSH{});
    }
}
