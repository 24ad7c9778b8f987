// The bitmap of a world: made in a new size, filled from the old one, selected into the world's context.
#include "WorldSizes_internal.h"

#include "PixelRows_internal.h"
#include "WorldBitmaps_internal.h"

#include "Quickdraw/GdiGuard_internal.h"
#include "Quickdraw/Quickdraw_internal.h"
#include "Quickdraw/RowBytes_internal.h"

#include <mtbx/MTBXGlobals.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace {

enum { directPixels = 16 };

// A bitmap with its rows, of which there may be none.
struct Pixels {
    HBITMAP bitmap;
    PixelRows rows;
};

void drop(HBITMAP bitmap)
{
    if (bitmap)
        deleteWorldBitmap(bitmap);
}

HDC newScreenContext()
{
    HDC screen = MTBX_CreateDC("DISPLAY", nullptr, nullptr, nullptr);
    HDC context = MTBX_CreateCompatibleDC(screen);
    if (screen)
        DeleteDC(screen);
    return context;
}

// The bitmap of the former size, out of the context; the caller owns it. The world is without one then,
// should the host look at it from its grow-zone function.
Pixels takeOutBitmap(PixMap &map)
{
    if (!map.pmOldBitmap)
        return {};
    Pixels pixels = {};
    readPixelRows(map, pixels.rows);
    pixels.bitmap = static_cast<HBITMAP>(SelectObject(map.pmDC, map.pmOldBitmap));
    map.pmBitmap = nullptr;
    return pixels.bitmap == map.pmOldBitmap ? Pixels{} : pixels;
}

bool setRowSize(PixMapHandle handle)
{
    struct {
        BITMAPINFOHEADER header;
        RGBQUAD colors[256];
    } description = {};
    BITMAPINFOHEADER &header = description.header;
    header.biSize = sizeof header;
    bool isDescribed = GetDIBits((*handle)->pmDC, (*handle)->pmBitmap, 0, 0, nullptr,
                                 reinterpret_cast<BITMAPINFO *>(&description), DIB_RGB_COLORS)
                       && header.biHeight != 0;
    if (!isDescribed)
        return false;
    auto rows = static_cast<DWORD>(std::abs(header.biHeight));
    return MTBX_SetRowBytes(handle, static_cast<SInt32>(header.biSizeImage / rows));
}

void setSizes(PixMap &map, SInt16 width, SInt16 height)
{
    if (map.pixelSize > 8)
        map.pixelType = directPixels;
    map.bounds.bottom = static_cast<SInt16>(map.bounds.top + height);
    map.bounds.right = static_cast<SInt16>(map.bounds.left + width);
    map.pmWidth = width;
    map.pmHeight = height;
    map.pmDepth = map.pixelSize;
}

// Rows as they lie, whatever the depths.
void copyRows(const PixelRows &from, const PixelRows &to)
{
    GdiFlush();
    SInt32 rows = std::min(from.height, to.height);
    auto length = static_cast<size_t>(std::min(from.rowBytes, to.rowBytes));
    for (ptrdiff_t row = 0; row < rows; ++row)
        memcpy(to.base + row * to.rowBytes, from.base + row * from.rowBytes, length);
}

// The old bitmap goes once the new one has its rows.
bool replaceBitmap(PixMapHandle handle, Pixels &old, SInt16 width, SInt16 height)
{
    PixMap &map = **handle;
    map.pmBitmap = createWorldBitmap(map.pmDC, width, height, map.pixelSize, map);
    if (!map.pmBitmap || !setRowSize(handle))
        return false;
    setSizes(map, width, height);
    PixelRows rows;
    if (old.rows.base && readPixelRows(map, rows))
        copyRows(old.rows, rows);
    drop(old.bitmap);
    old.bitmap = nullptr;
    auto former = static_cast<HBITMAP>(SelectObject(map.pmDC, map.pmBitmap));
    if (!former)
        return false;
    map.pmOldBitmap = former;
    return true;
}

// A context that was made while the world is current has nothing of the port selected yet.
void setUpPort(GWorldPtr world, const Rect &rect, bool isNewContext)
{
    GrafPtr former = qd.thePort;
    if (isNewContext && former == world)
        MTBX_TakeContext(*world);
    MacSetPort(world);
    SetOrigin(rect.left, rect.top);
    MacSetPort(former);
}

void giveUpPixels(GWorldPtr world, HBITMAP oldBitmap)
{
    PixMap &map = **world->portPixMap;
    if (world == qd.thePort)
        MTBX_GiveBackContext(*world);
    disposeWorldPixels(map);
    drop(oldBitmap);
    // Asking for the same size again is to make a bitmap.
    map.pmWidth = map.pmHeight = 0;
}

} // namespace

void disposeWorldPixels(PixMap &map)
{
    if (map.pmDC && map.pmOldBitmap)
        SelectObject(map.pmDC, map.pmOldBitmap);
    drop(map.pmBitmap);
    map.pmBitmap = nullptr;
    if (map.pmDC)
        DeleteDC(map.pmDC);
    map.pmDC = nullptr;
    map.pmOldBitmap = nullptr;
    map.baseAddr = nullptr;
}

bool sizeWorld(GWorldPtr world, SInt16 depth, const Rect &rect)
{
    PixMap &map = **world->portPixMap;
    bool isNewContext = !map.pmDC || !map.pmPersistentDC;
    if (!map.pmDC)
        map.pmDC = newScreenContext();
    if (!map.pmDC)
        return false;
    auto width = static_cast<SInt16>(rect.right - rect.left);
    auto height = static_cast<SInt16>(rect.bottom - rect.top);
    if (width == map.pmWidth && height == map.pmHeight)
        return true;
    Pixels old = takeOutBitmap(map);
    map.pixelSize = depth ? depth : gbits_per_pixel;
    map.pmPersistentDC = 1;
    if (!replaceBitmap(world->portPixMap, old, width, height)) {
        giveUpPixels(world, old.bitmap);
        return false;
    }
    setUpPort(world, rect, isNewContext);
    return true;
}
