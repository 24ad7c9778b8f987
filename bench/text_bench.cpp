// Text of 40 characters drawn on a section of 32 bits and measured.
#include "pairs.h"

#include <windows.h>

#include <benchmark/benchmark.h>

#include <cstring>

namespace {

constexpr char text[] = "The quick brown fox jumps over the lazy.";
constexpr int count = 40;
static_assert(sizeof text == count + 1);

HDC contextWith(BYTE quality)
{
    HDC dc = CreateCompatibleDC(nullptr);
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = 800;
    info.bmiHeader.biHeight = -100;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    void *bits;
    SelectObject(dc, CreateDIBSection(dc, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
    LOGFONTA font{};
    font.lfHeight = -12;
    font.lfQuality = quality;
    strcpy(font.lfFaceName, "Arial");
    SelectObject(dc, CreateFontIndirectA(&font));
    return dc;
}

void drawText(benchmark::State &state, BYTE quality, int mode)
{
    HDC dc = contextWith(quality);
    SetBkMode(dc, mode);
    for (auto _ : state)
        TextOutA(dc, 10, 10, text, count);
}

void measureText(benchmark::State &state)
{
    HDC dc = contextWith(NONANTIALIASED_QUALITY);
    SIZE extent;
    for (auto _ : state) {
        GetTextExtentPoint32A(dc, text, count, &extent);
        benchmark::DoNotOptimize(extent);
    }
}

[[maybe_unused]] const bool targets[] = {
    pairs::within("TextOut of 40, one-bit", 2000),
    pairs::within("TextOut of 40, opaque", 2000),
    pairs::within("TextOut of 40, smooth", 4000),
    pairs::within("GetTextExtentPoint32 of 40", 300),
};

BENCHMARK_CAPTURE(drawText, plain, BYTE{NONANTIALIASED_QUALITY}, TRANSPARENT)->Name("TextOut of 40, one-bit/ours");
BENCHMARK_CAPTURE(drawText, opaque, BYTE{NONANTIALIASED_QUALITY}, OPAQUE)->Name("TextOut of 40, opaque/ours");
BENCHMARK_CAPTURE(drawText, smooth, BYTE{ANTIALIASED_QUALITY}, TRANSPARENT)->Name("TextOut of 40, smooth/ours");
BENCHMARK(measureText)->Name("GetTextExtentPoint32 of 40/ours");

} // namespace
