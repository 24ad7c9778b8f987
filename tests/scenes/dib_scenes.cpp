// DIBs drawn from memory, copied into bitmaps and read back.
#include "scenes.h"

#include <cstring>

namespace scenes {
namespace {

// A DIB in memory with random pixels.
struct Dib {
    BITMAPINFOHEADER header{};
    RGBQUAD colors[256];
    std::vector<BYTE> bits;

    Dib(int depth, int width, int height, uint32_t seed)
    {
        header.biSize = sizeof header;
        header.biWidth = width;
        header.biHeight = height;
        header.biPlanes = 1;
        header.biBitCount = static_cast<WORD>(depth);
        Random random(seed);
        for (RGBQUAD &color : colors)
            color = {static_cast<BYTE>(random.below(256)), static_cast<BYTE>(random.below(256)),
                     static_cast<BYTE>(random.below(256)), 0};
        int rows = height < 0 ? -height : height;
        bits.resize(static_cast<size_t>((width * depth + 31) / 32 * 4 * rows));
        // Runs of four equal bytes, so that there is something to see.
        for (size_t i = 0; i < bits.size(); ++i)
            bits[i] = i % 4 ? bits[i - 1] : static_cast<BYTE>(random.below(256));
    }
    const BITMAPINFO *info() const { return reinterpret_cast<const BITMAPINFO *>(&header); }
};

void stretchDibits(Canvas &canvas)
{
    HDC dc = canvas.dc();
    SetStretchBltMode(dc, COLORONCOLOR);
    int x = 2;
    for (int depth : sourceDepths(canvas)) {
        Dib dib(depth, 31, 40, 21);
        StretchDIBits(dc, x, 2, 31, 40, 0, 0, 31, 40, dib.bits.data(), dib.info(), DIB_RGB_COLORS, SRCCOPY);
        StretchDIBits(dc, x, 45, 31, 20, 0, 10, 31, 20, dib.bits.data(), dib.info(), DIB_RGB_COLORS, SRCINVERT);
        StretchDIBits(dc, x, 70, 33, 60, 2, 3, 20, 30, dib.bits.data(), dib.info(), DIB_RGB_COLORS, SRCCOPY);
        Dib topDown(depth, 31, -24, 22);
        StretchDIBits(dc, x, 133, 31, 24, 0, 0, 31, 24, topDown.bits.data(), topDown.info(), DIB_RGB_COLORS, SRCCOPY);
        x += 35;
    }
}

void setToDevice(Canvas &canvas)
{
    int x = 2;
    for (int depth : sourceDepths(canvas)) {
        Dib dib(depth, 31, 40, 23);
        SetDIBitsToDevice(canvas.dc(), x, 2, 31, 40, 0, 0, 0, 40, dib.bits.data(), dib.info(), DIB_RGB_COLORS);
        SetDIBitsToDevice(canvas.dc(), x + 3, 50, 20, 25, 5, 8, 0, 40, dib.bits.data(), dib.info(), DIB_RGB_COLORS);
        SetDIBitsToDevice(canvas.dc(), x, 80, 31, 40, 0, 0, 10, 20, dib.bits.data(), dib.info(), DIB_RGB_COLORS);
        Dib topDown(depth, 31, -30, 24);
        SetDIBitsToDevice(canvas.dc(), x, 125, 31, 30, 0, 0, 0, 30, topDown.bits.data(), topDown.info(),
                          DIB_RGB_COLORS);
        x += 35;
    }
}

void setBits(Canvas &canvas)
{
    for (int depth : sourceDepths(canvas)) {
        Canvas part(canvas.depth(), 33, 70);
        Dib dib(depth, 33, 70, 25);
        SelectObject(part.dc(), GetStockObject(BLACK_PEN));
        SetDIBits(part.dc(), part.bitmap(), 0, 70, dib.bits.data(), dib.info(), DIB_RGB_COLORS);
        int place = depth / 5;
        BitBlt(canvas.dc(), place % 4 * 50, place / 4 * 80, 33, 70, part.dc(), 0, 0, SRCCOPY);
    }
}

void getBits(Canvas &canvas)
{
    Canvas source(canvas.depth(), 64, 48);
    Random random(26);
    for (int i = 0; i < 30; ++i) {
        source.brush(random.color());
        PatBlt(source.dc(), random.below(60), random.below(40), 12, 9, PATCOPY);
    }
    int x = 0;
    for (int depth : sourceDepths(canvas)) {
        if (depth == 8 && canvas.depth() > 8)
            continue;
        Dib dib(depth, 64, 48, 27);
        // What is read back is shown as it lies in memory.
        if (GetDIBits(source.dc(), source.bitmap(), 0, 48, dib.bits.data(), reinterpret_cast<BITMAPINFO *>(&dib.header),
                      DIB_RGB_COLORS))
            StretchDIBits(canvas.dc(), x % 3 * 70, x / 3 * 55, 64, 48, 0, 0, 64, 48, dib.bits.data(), dib.info(),
                          DIB_RGB_COLORS, SRCCOPY);
        ++x;
    }
}

void colorTables(Canvas &canvas)
{
    RGBQUAD colors[256];
    UINT count = GetDIBColorTable(canvas.dc(), 0, 256, colors);
    canvas.brush(RGB(250, 5, 5));
    PatBlt(canvas.dc(), 0, 0, 100, 160, PATCOPY);
    for (UINT i = 0; i < count; ++i)
        colors[i] = {colors[i].rgbRed, static_cast<BYTE>(255 - colors[i].rgbGreen), colors[i].rgbBlue, 0};
    SetDIBColorTable(canvas.dc(), 0, count, colors);
    canvas.brush(RGB(250, 5, 6));
    PatBlt(canvas.dc(), 100, 0, 110, 80, PATCOPY);
    canvas.pen(PS_SOLID, 1, RGB(20, 200, 230));
    canvas.line(0, 100, 210, 130);
}

} // namespace

std::vector<Scene> dibScenes()
{
    return {{"DIBs: StretchDIBits", Agreement::Exact, stretchDibits},
            {"DIBs: SetDIBitsToDevice", Agreement::Exact, setToDevice},
            {"DIBs: SetDIBits", Agreement::Exact, setBits},
            {"DIBs: GetDIBits", Agreement::Exact, getBits},
            {"DIBs: colour tables", Agreement::Exact, colorTables}};
}

} // namespace scenes
