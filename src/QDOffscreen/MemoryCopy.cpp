// Copying from the memory of a world: the rows of the source rectangle are handed to GDI as a picture of
// their own. So it cannot matter from where GDI counts the rows of pictures that run from the top down,
// which differs with raster operation, position and version.
#include "CopyPaths_internal.h"

#include "CopyImages_internal.h"
#include "CopySettings_internal.h"
#include "PixelFormats_internal.h"
#include "PixelRows_internal.h"

#include <algorithm>
#include <cstring>

namespace {

struct Picture {
    PixelRows rows;
    struct {
        BITMAPINFOHEADER header;
        RGBQUAD colors[256]; // or four masks
    } info;
};

// A stretch of source columns or rows, and where it goes.
struct Span {
    LONG from;
    LONG to;
    LONG length;
};

Span limited(Span span, LONG size)
{
    LONG before = std::max<LONG>(-span.from, 0);
    LONG behind = std::max<LONG>(span.from + span.length - size, 0);
    return {span.from + before, span.to + before, span.length - before - behind};
}

// Both have the same order: the pixels need no look, even if GDI does not know of it.
bool canMoveAsTheyLie(const Copy &copy)
{
    return !copySettings.useBitfieldsIfPossible && copy.source.pixelSize == copy.destination.pixelSize
           && copy.source.pixelSize == 32 && haveSameColors(masksOf(copy.source), masksOf(copy.destination));
}

void describeColors(const Copy &copy, Picture &picture)
{
    const PixMap &map = copy.source;
    WORD depth = picture.info.header.biBitCount;
    if (depth <= 8) {
        memset(picture.info.colors, 0, sizeof picture.info.colors);
        GetDIBColorTable(map.pmDC, 0, 1U << depth, picture.info.colors);
        return;
    }
    if (depth == 24 || map.pmFormat == kPixelFormatNative || canMoveAsTheyLie(copy))
        return;
    picture.info.header.biCompression = BI_BITFIELDS;
    memcpy(picture.info.colors, map.pmMasks, sizeof map.pmMasks);
}

bool describe(const Copy &copy, Picture &picture)
{
    if (!copy.source.pmBitmap || !readPixelRows(copy.source, picture.rows))
        return false;
    picture.info.header = {};
    picture.info.header.biSize = sizeof picture.info.header;
    picture.info.header.biWidth = picture.rows.width;
    picture.info.header.biPlanes = 1;
    picture.info.header.biBitCount = static_cast<WORD>(picture.rows.depth);
    describeColors(copy, picture);
    return true;
}

void draw(const Copy &copy, Picture &picture, const Span &columns, const Span &rows, int width, int height)
{
    const PixelRows &all = picture.rows;
    LONG rowCount = all.height, position = all.height - rows.from - rows.length;
    const char *bits = all.base;
    if (rows.from >= 0 && position >= 0) {
        bits += rows.from * ptrdiff_t{all.rowBytes};
        rowCount = rows.length;
        position = 0;
    }
    picture.info.header.biHeight = -rowCount;
    picture.info.header.biSizeImage = static_cast<DWORD>(rowCount * all.rowBytes);
    StretchDIBits(copy.destination.pmDC, columns.to, rows.to, width, height, columns.from, position, columns.length,
                  rows.length, bits, reinterpret_cast<const BITMAPINFO *>(&picture.info), DIB_RGB_COLORS,
                  copy.rasterOperation);
}

} // namespace

void copyFromMemory(const Copy &copy)
{
    Picture picture;
    if (!describe(copy, picture))
        return;
    POINT origin = contextOrigin(copy.source.pmDC);
    Span columns = {copy.from.x - origin.x, copy.to.x, copy.sourceWidth};
    Span rows = {copy.from.y - origin.y, copy.to.y, copy.sourceHeight};
    if (copy.isStretched() || copy.width < 1) {
        draw(copy, picture, columns, rows, copy.width, copy.height);
        return;
    }
    columns = limited(columns, picture.rows.width);
    rows = limited(rows, picture.rows.height);
    if (columns.length > 0 && rows.length > 0)
        draw(copy, picture, columns, rows, columns.length, rows.length);
}
