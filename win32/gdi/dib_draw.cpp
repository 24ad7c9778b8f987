// Drawing a caller's DIB.
#include "area.h"
#include "blit.h"
#include "color_tables.h"
#include "dib_pixels.h"
#include "drawing.h"
#include "raster_code.h"

#include "kernel/kernel_internal.h"

using namespace win32;
using namespace win32::gdi;

namespace {

struct SourceRect {
    int x, y, width, height; // y counts from the bottom row of the picture
};

// Windows counts source rows from the bottom, in top-down DIBs too. There is one exception: a plain copy,
// unstretched, from the position (0, 0) of a top-down DIB takes the rows at the top.
int firstRow(const Dib &dib, const SourceRect &from, int width, int height, DWORD rop)
{
    bool isFromTop =
        dib.isTopDown && rop == SRCCOPY && from.x == 0 && from.y == 0 && width == from.width && height == from.height;
    return isFromTop ? 0 : cutToInt(int64_t{dib.height} - from.y - from.height);
}

bool meets(const BlitGeometry &geometry, const Dib &dib)
{
    auto overlaps = [](int position, int size, int bound) {
        int64_t begin = size < 0 ? int64_t{position} + size + 1 : position;
        return begin < bound && begin + std::abs(int64_t{size}) > 0;
    };
    return geometry.sourceWidth != 0 && geometry.sourceHeight != 0
           && overlaps(geometry.sourceX, geometry.sourceWidth, dib.width)
           && overlaps(geometry.sourceY, geometry.sourceHeight, dib.height);
}

// Pixels that a compressed picture skips stay as they are, where it is not stretched.
bool drawPicture(Drawing &drawing, const BlitGeometry &geometry, const DibPixels &pixels, DWORD rop)
{
    return guarded(false, [&] {
        DeviceContext &dc = drawing.dc();
        RegionValue storage;
        ClipBoxes clip = drawing.clip();
        if (!geometry.isStretched())
            clip = pixels.clipTo(clip, wrappingDifference(geometry.x, geometry.sourceX),
                                 wrappingDifference(geometry.y, geometry.sourceY), storage.pixels);
        // The colour that becomes 1 in monochrome pixels is white, as in a source context that nobody set up.
        BlitColors colors{RGB(0, 0, 0), RGB(255, 255, 255), RGB(255, 255, 255)};
        Paint paint = usesPattern(truthTableOf(rop)) ? dc.brushPaint() : solidPaint(0);
        return blit(dc.surface, clip, geometry, pixels.surface(), colors, rop, paint, dc.state.stretchMode);
    });
}

// The number of lines that Windows reports: what it has to look at.
int linesShown(const Dib &dib, const DibPixels &pixels, int sourceY, DWORD height, UINT start)
{
    int64_t lines = pixels.lines();
    if (lines > dib.height || sourceY >= start + lines)
        return 0;
    if (!dib.isTopDown && !dib.isCompressed())
        lines = std::clamp<int64_t>(int64_t{sourceY} + height - start, 0, lines);
    return static_cast<int>(lines);
}

} // namespace

int StretchDIBits(HDC context, int x, int y, int width, int height, int sourceX, int sourceY, int sourceWidth,
                  int sourceHeight, const void *bits, const BITMAPINFO *info, UINT usage, DWORD rop)
{
    Drawing drawing(context);
    Dib dib;
    if (!drawing || !readDib(info, usage, drawing.dc().state.palette.get(), dib))
        return 0;
    if (!bits)
        return fail(ERROR_INVALID_PARAMETER, 0);
    SourceRect from{sourceX, sourceY, sourceWidth, sourceHeight};
    Area to(drawing.dc(), x, y, width, height);
    BlitGeometry geometry{to.x,
                          to.y,
                          to.width,
                          to.height,
                          from.x,
                          firstRow(dib, from, width, height, rop),
                          cutToInt(from.width),
                          cutToInt(from.height)};
    if (!meets(geometry, dib))
        return 0;
    if (!drawing.touch(to.box()))
        return dib.height;
    DibPixels pixels;
    bool isDrawn =
        pixels.open(dib, bits, 0, static_cast<UINT>(dib.height)) && drawPicture(drawing, geometry, pixels, rop);
    return isDrawn ? dib.height : 0;
}

int SetDIBitsToDevice(HDC context, int x, int y, DWORD width, DWORD height, int sourceX, int sourceY, UINT start,
                      UINT lines, const void *bits, const BITMAPINFO *info, UINT usage)
{
    Drawing drawing(context);
    Dib dib;
    if (!drawing || !readDib(info, usage, drawing.dc().state.palette.get(), dib))
        return 0;
    if (!bits)
        return fail(ERROR_INVALID_PARAMETER, 0);
    DibPixels pixels;
    if (!pixels.open(dib, bits, start, lines))
        return 0;
    int shown = linesShown(dib, pixels, sourceY, height, dib.isCompressed() ? 0 : start);
    if (shown == 0 || sourceX >= dib.width || int64_t{sourceX} + width <= 0 || width == 0)
        return 0;
    // The part that is asked for, in rows of the lines given, and where the position puts it.
    POINT position = drawing.dc().toSurface(POINT{x, y});
    int64_t firstRow = int64_t{dib.height} - sourceY - height - pixels.top();
    Box part{sourceX, cutToInt(firstRow), cutToInt(int64_t{sourceX} + width), cutToInt(firstRow + height)};
    int64_t left = int64_t{position.x} - sourceX, top = position.y - firstRow;
    Box whole = intersected(part, pixels.surface().box());
    Box touched{cutToInt(left + whole.x1), cutToInt(top + whole.y1), cutToInt(left + whole.x2),
                cutToInt(top + whole.y2)};
    if (isEmpty(whole) || !drawing.touch(touched))
        return shown;
    return pixels.copyTo(coloredSurface(drawing.surface()), drawing.clip(), left, top, part) ? shown : 0;
}
