// DIBs drawn onto a section of 1920 by 1080 by 32, beside plain copies of the same memory.
#include "pairs.h"

#include <windows.h>

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <cstring>
#include <vector>

namespace {

constexpr int width = 1920, height = 1080;
constexpr size_t frameBytes = size_t{4} * width * height;

struct Info {
    explicit Info(int depth, int pictureWidth = width, int pictureHeight = -height)
    {
        header.biSize = sizeof header;
        header.biWidth = pictureWidth;
        header.biHeight = pictureHeight;
        header.biPlanes = 1;
        header.biBitCount = static_cast<WORD>(depth);
        for (int i = 0; i < 256; ++i)
            colors[i] = {static_cast<BYTE>(i), static_cast<BYTE>(i * 7), static_cast<BYTE>(i * 13), 0};
    }
    operator const BITMAPINFO *() const { return reinterpret_cast<const BITMAPINFO *>(this); }

    BITMAPINFOHEADER header{};
    RGBQUAD colors[256];
};

struct Frame {
    Frame() : dc(CreateCompatibleDC(nullptr))
    {
        SelectObject(dc, CreateDIBSection(dc, Info(32), DIB_RGB_COLORS, &bits, nullptr, 0));
        memset(bits, 1, frameBytes);
        SetStretchBltMode(dc, COLORONCOLOR);
    }

    HDC dc;
    void *bits;
    std::vector<char> source = std::vector<char>(frameBytes, 0x5a);
};

Frame &frame()
{
    static auto *made = new Frame;
    return *made;
}

void copyFrame(benchmark::State &state)
{
    for (auto _ : state) {
        memcpy(frame().bits, frame().source.data(), frameBytes);
        benchmark::ClobberMemory();
    }
}

void stretchFrame(benchmark::State &state, int depth)
{
    Info info(depth);
    for (auto _ : state)
        StretchDIBits(frame().dc, 0, 0, width, height, 0, 0, width, height, frame().source.data(), info, DIB_RGB_COLORS,
                      SRCCOPY);
}

void deviceFrame(benchmark::State &state)
{
    Info info(32, width, height);
    for (auto _ : state)
        SetDIBitsToDevice(frame().dc, 0, 0, width, height, 0, 0, 0, height, frame().source.data(), info,
                          DIB_RGB_COLORS);
}

constexpr int iconSide = 16;

void drawIcon(benchmark::State &state, int depth)
{
    Info info(depth, iconSide, -iconSide);
    for (auto _ : state)
        StretchDIBits(frame().dc, 40, 40, iconSide, iconSide, 0, 0, iconSide, iconSide, frame().source.data(), info,
                      DIB_RGB_COLORS, SRCCOPY);
}

void createSection(benchmark::State &state)
{
    Info info(32);
    for (auto _ : state) {
        void *bits;
        DeleteObject(CreateDIBSection(nullptr, info, DIB_RGB_COLORS, &bits, nullptr, 0));
    }
}

void allocateFrame(benchmark::State &state)
{
    for (auto _ : state) {
        void *block = calloc(1, frameBytes);
        benchmark::DoNotOptimize(block);
        free(block);
    }
}

void createSmallSection(benchmark::State &state)
{
    Info info(32, iconSide, iconSide);
    for (auto _ : state) {
        void *bits;
        DeleteObject(CreateDIBSection(nullptr, info, DIB_RGB_COLORS, &bits, nullptr, 0));
    }
}

// At least 0.9 of the rate of a plain copy.
constexpr double copyRatio = 1 / 0.9;

[[maybe_unused]] const bool targets[] = {
    pairs::ratio("StretchDIBits 1:1, 32 bits", copyRatio), pairs::ratio("SetDIBitsToDevice, bottom-up", copyRatio),
    pairs::ratio("StretchDIBits 1:1, 8 to 32 bits", 2),    pairs::within("StretchDIBits of 16x16x32", 150),
    pairs::within("StretchDIBits of 16x16x8", 600),        pairs::within("CreateDIBSection of 16x16", 300),
    pairs::beyond("CreateDIBSection of a frame", 60000),
};

BENCHMARK_CAPTURE(stretchFrame, 32, 32)->Name("StretchDIBits 1:1, 32 bits/ours");
BENCHMARK(copyFrame)->Name("StretchDIBits 1:1, 32 bits/reference");
BENCHMARK(deviceFrame)->Name("SetDIBitsToDevice, bottom-up/ours");
BENCHMARK(copyFrame)->Name("SetDIBitsToDevice, bottom-up/reference");
BENCHMARK_CAPTURE(stretchFrame, 8, 8)->Name("StretchDIBits 1:1, 8 to 32 bits/ours");
BENCHMARK(copyFrame)->Name("StretchDIBits 1:1, 8 to 32 bits/reference");
BENCHMARK_CAPTURE(drawIcon, 32, 32)->Name("StretchDIBits of 16x16x32/ours");
BENCHMARK_CAPTURE(drawIcon, 8, 8)->Name("StretchDIBits of 16x16x8/ours");
BENCHMARK(createSmallSection)->Name("CreateDIBSection of 16x16/ours");
BENCHMARK(createSection)->Name("CreateDIBSection of a frame/ours");
BENCHMARK(allocateFrame)->Name("CreateDIBSection of a frame/reference");

} // namespace
