// Lines and shapes, on a frame of 32 bits: fills beside memset of the same rows, lines beside a plain loop.
#include "pairs.h"

#include <windows.h>

#include <benchmark/benchmark.h>

#include <cstring>

namespace {

// A frame of 1920 by 1080 pixels of 32 bits with white objects selected.
class Frame {
public:
    Frame()
    {
        BITMAPINFO info{};
        info.bmiHeader = {sizeof(BITMAPINFOHEADER), 1920, -1080, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        bitmap_ = CreateDIBSection(dc, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
        old_ = SelectObject(dc, bitmap_);
        memset(bits, 0x55, 1920 * 1080 * 4);
    }
    ~Frame()
    {
        DeleteObject(SelectObject(dc, GetStockObject(NULL_PEN)));
        SelectObject(dc, old_);
        DeleteDC(dc);
        DeleteObject(bitmap_);
    }
    void pen(HPEN pen) { DeleteObject(SelectObject(dc, pen)); }

    HDC dc = CreateCompatibleDC(nullptr);
    void *bits = nullptr;

private:
    HBITMAP bitmap_;
    HGDIOBJ old_;
};

void drawDiagonal(benchmark::State &state, HPEN pen, int rop2 = R2_COPYPEN)
{
    Frame frame;
    frame.pen(pen);
    SetROP2(frame.dc, rop2);
    for (auto _ : state) {
        MoveToEx(frame.dc, 10, 10, nullptr);
        LineTo(frame.dc, 510, 310);
    }
}

void diagonal(benchmark::State &state)
{
    drawDiagonal(state, CreatePen(PS_SOLID, 1, RGB(255, 255, 255)));
}

// The same pixels by the plainest loop there is.
void diagonalByLoop(benchmark::State &state)
{
    Frame frame;
    auto *pixels = static_cast<uint32_t *>(frame.bits);
    for (auto _ : state) {
        int y = 10, error = 250;
        for (int x = 10; x < 510; ++x) {
            pixels[y * 1920 + x] = 0xffffff;
            if ((error += 300) >= 500) {
                error -= 500;
                ++y;
            }
        }
        benchmark::ClobberMemory();
    }
}

void diagonalXor(benchmark::State &state)
{
    drawDiagonal(state, CreatePen(PS_SOLID, 1, RGB(255, 255, 255)), R2_XORPEN);
}

void diagonalDotted(benchmark::State &state)
{
    drawDiagonal(state, CreatePen(PS_DOT, 1, RGB(255, 255, 255)));
}

void diagonalThreeWide(benchmark::State &state)
{
    LOGBRUSH brush{BS_SOLID, RGB(255, 255, 255), 0};
    drawDiagonal(state, ExtCreatePen(PS_GEOMETRIC, 3, &brush, 0, nullptr));
}

void shortLine(benchmark::State &state)
{
    Frame frame;
    for (auto _ : state) {
        MoveToEx(frame.dc, 10, 10, nullptr);
        LineTo(frame.dc, 20, 14);
    }
}

void filledEllipse(benchmark::State &state)
{
    Frame frame;
    SelectObject(frame.dc, GetStockObject(NULL_PEN));
    for (auto _ : state)
        Ellipse(frame.dc, 100, 100, 500, 500);
}

void ellipseByMemset(benchmark::State &state)
{
    Frame frame;
    // As many bytes in as many rows.
    for (auto _ : state)
        for (int y = 100; y < 500; ++y)
            memset(static_cast<char *>(frame.bits) + y * 1920 * 4 + 400, 0xff, 314 * 4);
}

void framedEllipse(benchmark::State &state)
{
    Frame frame;
    for (auto _ : state)
        Ellipse(frame.dc, 100, 100, 500, 500);
}

void smallRectangle(benchmark::State &state)
{
    Frame frame;
    for (auto _ : state)
        Rectangle(frame.dc, 100, 100, 110, 110);
}

void polygon(benchmark::State &state)
{
    Frame frame;
    POINT points[] = {{100, 100}, {500, 160}, {420, 520}, {250, 300}, {90, 480}};
    for (auto _ : state)
        Polygon(frame.dc, points, 5);
}

[[maybe_unused]] const bool targets[] = {
    pairs::within("LineTo, diagonal of 500 pixels", 500),
    pairs::within("LineTo, diagonal of 500 pixels, XOR", 600),
    pairs::within("LineTo, diagonal of 500 pixels, dotted", 3000),
    pairs::within("LineTo, diagonal of 500 pixels, 3 wide", 4000),
    pairs::within("LineTo, 10 pixels", 60),
    pairs::within("Ellipse, 400 by 400, filled / memset", 10000),
    pairs::within("Ellipse, 400 by 400, filled and framed", 20000),
    pairs::within("Rectangle, 10 by 10", 150),
    pairs::within("Polygon, 5 points, filled and framed", 20000),
};

} // namespace

BENCHMARK(diagonal)->Name("LineTo, diagonal of 500 pixels/ours");
BENCHMARK(diagonalByLoop)->Name("LineTo, diagonal of 500 pixels/reference");
BENCHMARK(diagonalXor)->Name("LineTo, diagonal of 500 pixels, XOR/ours");
BENCHMARK(diagonalDotted)->Name("LineTo, diagonal of 500 pixels, dotted/ours");
BENCHMARK(diagonalThreeWide)->Name("LineTo, diagonal of 500 pixels, 3 wide/ours");
BENCHMARK(shortLine)->Name("LineTo, 10 pixels/ours");
BENCHMARK(filledEllipse)->Name("Ellipse, 400 by 400, filled / memset/ours");
BENCHMARK(ellipseByMemset)->Name("Ellipse, 400 by 400, filled / memset/reference");
BENCHMARK(framedEllipse)->Name("Ellipse, 400 by 400, filled and framed/ours");
BENCHMARK(smallRectangle)->Name("Rectangle, 10 by 10/ours");
BENCHMARK(polygon)->Name("Polygon, 5 points, filled and framed/ours");
