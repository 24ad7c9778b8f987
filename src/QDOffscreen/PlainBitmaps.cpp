// Plain bitmaps become native ones: their rows may be longer than those of GDI.
#include "PlainBitmaps_internal.h"

#include "WorldBitmaps_internal.h"
#include "WorldSizes_internal.h"

#include "Quickdraw/GdiGuard_internal.h"

#include <mtbx/MacMemory.h>

#include <algorithm>
#include <cstring>

namespace {

struct Rows {
    const char *base;
    SInt32 rowBytes;
    SInt32 width;
    SInt32 height;
};

Rows rowsOf(const BitMap &image)
{
    return {image.baseAddr, image.rowBytes & 0x3FFF, image.bounds.right - image.bounds.left,
            image.bounds.bottom - image.bounds.top};
}

// Coordinates may lie further apart than a size can tell, in the wrong order too.
bool isSize(SInt32 distance)
{
    return distance > 0 && distance <= 32767;
}

void copyRows(const Rows &rows, char *to, SInt32 rowBytes)
{
    auto length = static_cast<size_t>(std::min(rows.rowBytes, rowBytes));
    for (ptrdiff_t row = 0; row < rows.height; ++row)
        memcpy(to + row * rowBytes, rows.base + row * rows.rowBytes, length);
}

bool fillSection(const Rows &rows, Ptr pixels)
{
    copyRows(rows, pixels, (rows.width + 31) / 32 * 4);
    return true;
}

// A bitmap that is no section takes rows of whole 16-bit words.
bool fillBitmap(const Rows &rows, HBITMAP bitmap)
{
    SInt32 rowBytes = (rows.width + 15) / 16 * 2;
    Ptr packed = NewPtrClear(rowBytes * rows.height);
    if (!packed)
        return false;
    copyRows(rows, packed, rowBytes);
    bool isSet = SetBitmapBits(bitmap, static_cast<DWORD>(rowBytes * rows.height), packed) != 0;
    DisposePtr(packed);
    return isSet;
}

} // namespace

PlainBitmap::PlainBitmap(const BitMap &image, HDC compatibleContext)
    : origin_{image.bounds.top, image.bounds.left}, isOpen_(open(image, compatibleContext))
{
}

PlainBitmap::~PlainBitmap()
{
    disposeWorldPixels(map_);
}

bool PlainBitmap::open(const BitMap &image, HDC compatibleContext)
{
    Rows rows = rowsOf(image);
    if (!rows.base || !isSize(rows.width) || !isSize(rows.height))
        return false;
    map_.pixelSize = map_.cmpCount = map_.cmpSize = 1;
    map_.pmBitmap =
        createWorldBitmap(nullptr, static_cast<SInt16>(rows.width), static_cast<SInt16>(rows.height), 1, map_);
    if (!map_.pmBitmap)
        return false;
    map_.pmDC = MTBX_CreateCompatibleDC(compatibleContext);
    if (!map_.pmDC || !(map_.baseAddr ? fillSection(rows, map_.baseAddr) : fillBitmap(rows, map_.pmBitmap)))
        return false;
    map_.pmOldBitmap = static_cast<HBITMAP>(SelectObject(map_.pmDC, map_.pmBitmap));
    return map_.pmOldBitmap;
}

CopySide PlainBitmap::side()
{
    return {isOpen_ ? &map_ : nullptr, nullptr, origin_};
}
