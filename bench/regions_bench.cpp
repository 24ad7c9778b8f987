// Regions and the guard beside the native calls that do the same work.
#include "pairs.h"

#include <mtbx/MTBX.h>

#include <benchmark/benchmark.h>

#include <vector>

namespace {

constexpr int maskSize = 1024, runsInRow = 50;

// 51,200 runs of 8 pixels.
int runStart(int row, int run)
{
    return run * 20 + (row * 7 + run * 3) % 9;
}

std::vector<UInt8> mask()
{
    std::vector<UInt8> bits(maskSize * maskSize / 8);
    for (int row = 0; row < maskSize; ++row)
        for (int run = 0; run < runsInRow; ++run)
            for (int x = runStart(row, run), end = x + 8; x < end; ++x)
                bits[static_cast<size_t>(row * maskSize / 8 + x / 8)] |= static_cast<UInt8>(0x80 >> x % 8);
    return bits;
}

void bitMapToRegionOurs(benchmark::State &state)
{
    std::vector<UInt8> bits = mask();
    BitMap bitmap = {reinterpret_cast<Ptr>(bits.data()), maskSize / 8, {0, 0, maskSize, maskSize}};
    RgnHandle rgn = NewRgn();
    for (auto _ : state)
        BitMapToRegion(rgn, &bitmap);
    DisposeRgn(rgn);
}

void bitMapToRegionReference(benchmark::State &state)
{
    std::vector<RECT> rects(2);
    for (LONG row = 0; row < maskSize; ++row)
        for (int run = 0; run < runsInRow; ++run)
            rects.push_back({runStart(row, run), row, runStart(row, run) + 8, row + 1});
    auto data = reinterpret_cast<RGNDATA *>(rects.data());
    DWORD count = static_cast<DWORD>(rects.size() - 2), byteCount = count * static_cast<DWORD>(sizeof(RECT));
    data->rdh = {sizeof(RGNDATAHEADER), RDH_RECTANGLES, count, byteCount, {0, 0, maskSize, maskSize}};
    for (auto _ : state)
        DeleteObject(ExtCreateRegion(nullptr, static_cast<DWORD>(sizeof(RGNDATAHEADER)) + byteCount, data));
}

void guardOurs(benchmark::State &state)
{
    for (auto _ : state)
        DeleteObject(MTBX_CreateRectRgn(0, 0, 10, 10));
}

void guardReference(benchmark::State &state)
{
    for (auto _ : state)
        DeleteObject(CreateRectRgn(0, 0, 10, 10));
}

// What BitMapToRegion takes beyond its reference is the scan.
[[maybe_unused]] const bool targets[] = {
    pairs::within("BitMapToRegion, 51200 runs / ExtCreateRegion", 1.5e6),
    pairs::beyond("MTBX_CreateRectRgn / CreateRectRgn", 5),
};

BENCHMARK(bitMapToRegionOurs)->Name("BitMapToRegion, 51200 runs / ExtCreateRegion/ours");
BENCHMARK(bitMapToRegionReference)->Name("BitMapToRegion, 51200 runs / ExtCreateRegion/reference");
BENCHMARK(guardOurs)->Name("MTBX_CreateRectRgn / CreateRectRgn/ours");
BENCHMARK(guardReference)->Name("MTBX_CreateRectRgn / CreateRectRgn/reference");

} // namespace
