// The memory of a PixMap's pixels, as its bitmap tells it.
#include "PixelRows_internal.h"

#include "Quickdraw/RowBytes_internal.h"

#include <cstdlib>

bool readPixelRows(const PixMap &map, PixelRows &rows)
{
    if (!map.baseAddr)
        return false;
    if (!map.pmBitmap) {
        rows = {map.baseAddr, map.pmWidth, std::abs(map.pmHeight), rowBytesOf(map), map.pixelSize};
        return true;
    }
    BITMAP bitmap;
    if (!GetObjectA(map.pmBitmap, sizeof bitmap, &bitmap))
        return false;
    rows = {map.baseAddr, bitmap.bmWidth, bitmap.bmHeight, bitmap.bmWidthBytes, bitmap.bmBitsPixel};
    return true;
}
