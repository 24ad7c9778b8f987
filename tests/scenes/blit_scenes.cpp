// Blits between canvases: all raster codes, depths, stretching, overlaps, and monochrome bitmaps.
#include "scenes.h"

namespace scenes {
namespace {

void scribble(Canvas &canvas, uint32_t seed)
{
    Random random(seed);
    for (int i = 0; i < 40; ++i) {
        canvas.brush(random.color());
        PatBlt(canvas.dc(), random.between(-10, canvas.width()), random.between(-10, canvas.height()),
               random.between(1, 40), random.between(1, 30), PATCOPY);
    }
}

class MonochromeBitmap {
public:
    MonochromeBitmap(int width, int height)
        : dc(CreateCompatibleDC(nullptr)), bitmap_(CreateBitmap(width, height, 1, 1, nullptr))
    {
        old_ = SelectObject(dc, bitmap_);
        PatBlt(dc, 0, 0, width, height, WHITENESS);
        for (int i = 0; i < 12; ++i)
            PatBlt(dc, i * 7 % width, i * 5 % height, 9, 4 + i % 5, DSTINVERT);
    }
    ~MonochromeBitmap()
    {
        SelectObject(dc, old_);
        DeleteDC(dc);
        DeleteObject(bitmap_);
    }

    HDC dc;

private:
    HBITMAP bitmap_;
    HGDIOBJ old_;
};

void allCodes(Canvas &canvas)
{
    Canvas source(canvas.depth(), 32, 32);
    scribble(source, 11);
    canvas.brush(RGB(200, 50, 120));
    for (int code = 0; code < 256; ++code)
        BitBlt(canvas.dc(), code % 16 * 13, code / 16 * 10, 12, 9, source.dc(), code % 7, code % 5,
               static_cast<DWORD>(code) << 16);
}

void patternedCodes(Canvas &canvas)
{
    Canvas source(canvas.depth(), 32, 32);
    scribble(source, 12);
    WORD rows[8] = {0x11, 0x22, 0x44, 0x88, 0xf0, 0x0f, 0xaa, 0x5d};
    HBITMAP pattern = CreateBitmap(8, 8, 1, 1, rows);
    canvas.use(CreatePatternBrush(pattern));
    DeleteObject(pattern);
    // Where the pattern begins anew in source and destination: not every Win32 keeps it in line elsewhere.
    for (int code = 0; code < 256; ++code)
        BitBlt(canvas.dc(), code % 13 * 16, code / 13 * 8, 15, 7, source.dc(), code % 3 * 8, code % 2 * 8,
               static_cast<DWORD>(code) << 16);
}

void fromAllDepths(Canvas &canvas)
{
    int x = 2;
    for (int depth : sourceDepths(canvas)) {
        Canvas source(depth, 34, 75);
        scribble(source, 13);
        BitBlt(canvas.dc(), x, 2, 32, 75, source.dc(), 1, 0, SRCCOPY);
        BitBlt(canvas.dc(), x, 80, 32, 75, source.dc(), 0, 1, SRCINVERT);
        x += 35;
    }
}

void fromMonochrome(Canvas &canvas)
{
    MonochromeBitmap source(60, 40);
    SetTextColor(canvas.dc(), RGB(255, 0, 0));
    SetBkColor(canvas.dc(), RGB(0, 0, 255));
    BitBlt(canvas.dc(), 5, 5, 60, 40, source.dc, 0, 0, SRCCOPY);
    BitBlt(canvas.dc(), 70, 5, 60, 40, source.dc, 0, 0, NOTSRCCOPY);
    SetTextColor(canvas.dc(), RGB(0, 0, 0));
    SetBkColor(canvas.dc(), RGB(255, 255, 255));
    BitBlt(canvas.dc(), 135, 5, 60, 40, source.dc, 3, 2, SRCAND);
    BitBlt(canvas.dc(), 5, 50, 60, 40, source.dc, 0, 0, SRCPAINT);
    BitBlt(canvas.dc(), 70, 50, 60, 40, source.dc, 0, 0, SRCINVERT);
    StretchBlt(canvas.dc(), 135, 50, 70, 100, source.dc, 0, 0, 60, 40, SRCCOPY);
    canvas.brush(RGB(0, 255, 0));
    // Pixels of the pattern where the mask is 0, as icons and masks are drawn.
    BitBlt(canvas.dc(), 5, 100, 60, 40, source.dc, 0, 0, 0x00B8074A);
}

void toMonochrome(Canvas &canvas)
{
    scribble(canvas, 14);
    MonochromeBitmap mask(60, 40);
    SetBkColor(canvas.dc(), RGB(255, 0, 0));
    canvas.brush(RGB(255, 0, 0));
    PatBlt(canvas.dc(), 20, 20, 25, 15, PATCOPY);
    BitBlt(mask.dc, 0, 0, 60, 40, canvas.dc(), 5, 5, SRCCOPY);
    SetBkColor(canvas.dc(), RGB(255, 255, 255));
    BitBlt(canvas.dc(), 100, 5, 60, 40, mask.dc, 0, 0, SRCCOPY);
    BitBlt(mask.dc, 0, 0, 60, 40, canvas.dc(), 5, 5, SRCINVERT);
    BitBlt(canvas.dc(), 100, 60, 60, 40, mask.dc, 0, 0, SRCCOPY);
}

void overlapping(Canvas &canvas)
{
    scribble(canvas, 15);
    BitBlt(canvas.dc(), 10, 10, 100, 80, canvas.dc(), 15, 13, SRCCOPY);
    BitBlt(canvas.dc(), 80, 60, 100, 80, canvas.dc(), 86, 51, SRCCOPY);
    BitBlt(canvas.dc(), 60, 20, 100, 30, canvas.dc(), 57, 20, SRCINVERT);
    BitBlt(canvas.dc(), 5, 100, 100, 30, canvas.dc(), 9, 100, SRCAND);
}

void cut(Canvas &canvas)
{
    Canvas source(canvas.depth(), 50, 40);
    scribble(source, 16);
    BitBlt(canvas.dc(), -10, -10, 50, 40, source.dc(), 0, 0, SRCCOPY);
    BitBlt(canvas.dc(), 190, 140, 50, 40, source.dc(), 0, 0, SRCCOPY);
    IntersectClipRect(canvas.dc(), 60, 30, 150, 120);
    ExcludeClipRect(canvas.dc(), 80, 40, 95, 100);
    BitBlt(canvas.dc(), 50, 20, 50, 40, source.dc(), 0, 0, SRCCOPY);
    BitBlt(canvas.dc(), 90, 90, 50, 40, source.dc(), 0, 0, NOTSRCCOPY);
    SelectClipRgn(canvas.dc(), nullptr);
}

template <int mode> void stretching(Canvas &canvas)
{
    Canvas source(canvas.depth(), 50, 40);
    scribble(source, 17);
    HDC dc = canvas.dc();
    SetStretchBltMode(dc, mode);
    StretchBlt(dc, 2, 2, 100, 80, source.dc(), 0, 0, 50, 40, SRCCOPY);
    StretchBlt(dc, 105, 2, 25, 20, source.dc(), 0, 0, 50, 40, SRCCOPY);
    StretchBlt(dc, 135, 2, 71, 53, source.dc(), 3, 4, 41, 29, SRCCOPY);
    StretchBlt(dc, 105, 60, 33, 91, source.dc(), 0, 0, 50, 40, SRCCOPY);
    StretchBlt(dc, 60, 90, -50, 40, source.dc(), 0, 0, 50, 40, SRCCOPY);
    StretchBlt(dc, 65, 150, 35, -60, source.dc(), 0, 0, 50, 40, SRCCOPY);
    StretchBlt(dc, 145, 60, 60, 40, source.dc(), 49, 39, -50, -40, SRCCOPY);
    StretchBlt(dc, 145, 105, 60, 50, source.dc(), 0, 0, 50, 40, SRCINVERT);
}

} // namespace

std::vector<Scene> blitScenes()
{
    return {{"blits: all codes", Agreement::Exact, allCodes},
            {"blits: all codes with a pattern", Agreement::Exact, patternedCodes},
            {"blits: from all depths", Agreement::Exact, fromAllDepths},
            {"blits: from monochrome", Agreement::Exact, fromMonochrome},
            {"blits: to monochrome", Agreement::Exact, toMonochrome},
            {"blits: overlapping", Agreement::Exact, overlapping},
            {"blits: cut", Agreement::Exact, cut},
            {"stretching: colour on colour", Agreement::Exact, stretching<COLORONCOLOR>},
            {"stretching: black on white", Agreement::Exact, stretching<BLACKONWHITE>},
            {"stretching: white on black", Agreement::Exact, stretching<WHITEONBLACK>}};
}

} // namespace scenes
