// Moving and filling pixels beside plain memory operations on as many bytes, and beside pixman.
#include "pairs.h"

#include <windows.h>

#include <benchmark/benchmark.h>
#include <pixman.h>

#include <cstring>
#include <random>
#include <vector>

namespace {

constexpr int width = 1920, height = 1080;
constexpr size_t frameBytes = size_t{4} * width * height;

// A picture on a context of its own, for the whole run.
struct Picture {
    Picture(int pictureWidth, int pictureHeight, int depth = 32) : dc(CreateCompatibleDC(nullptr))
    {
        BITMAPINFO info{};
        info.bmiHeader.biSize = sizeof info.bmiHeader;
        info.bmiHeader.biWidth = pictureWidth;
        info.bmiHeader.biHeight = -pictureHeight;
        info.bmiHeader.biPlanes = 1;
        info.bmiHeader.biBitCount = static_cast<WORD>(depth);
        SelectObject(dc, CreateDIBSection(dc, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
        SetStretchBltMode(dc, COLORONCOLOR);
        memset(bits, 0x5a, static_cast<size_t>((pictureWidth * depth + 31) / 32 * 4 * pictureHeight));
    }

    HDC dc;
    void *bits = nullptr;
};

Picture &target()
{
    static Picture picture(width, height);
    return picture;
}
Picture &frame()
{
    static Picture picture(width, height);
    return picture;
}
Picture &half()
{
    static Picture picture(width / 2, height / 2);
    return picture;
}

HBRUSH solidBrush()
{
    static HBRUSH brush = CreateSolidBrush(RGB(10, 200, 30));
    return brush;
}
HBRUSH patternBrush()
{
    static const WORD rows[8] = {0xaa, 0x55, 0xaa, 0x54, 0xaa, 0x55, 0xab, 0x55};
    static HBRUSH brush = CreatePatternBrush(CreateBitmap(8, 8, 1, 1, rows));
    return brush;
}

// Clips the target to 200 random rectangles.
class ManyRectangles {
public:
    ManyRectangles()
    {
        std::mt19937 random(3);
        auto below = [&random](unsigned bound) { return static_cast<int>(random() % bound); };
        HRGN region = CreateRectRgn(0, 0, 0, 0);
        for (int i = 0; i < 200; ++i) {
            int x = below(1000), y = below(1000);
            HRGN part = CreateRectRgn(x, y, x + 1 + below(120), y + 1 + below(120));
            CombineRgn(region, region, part, RGN_OR);
            DeleteObject(part);
        }
        SelectClipRgn(target().dc, region);
        std::vector<char> bytes(GetRegionData(region, 0, nullptr));
        auto data = reinterpret_cast<RGNDATA *>(bytes.data());
        GetRegionData(region, static_cast<DWORD>(bytes.size()), data);
        auto boxes = reinterpret_cast<const RECT *>(data->Buffer);
        for (DWORD i = 0; i < data->rdh.nCount; ++i)
            pixels += (boxes[i].right - boxes[i].left) * (boxes[i].bottom - boxes[i].top);
        DeleteObject(region);
    }
    ~ManyRectangles() { SelectClipRgn(target().dc, nullptr); }

    int pixels = 0;
};

template <DWORD rop> void blitOurs(benchmark::State &state)
{
    for (auto _ : state)
        BitBlt(target().dc, 0, 0, width, height, frame().dc, 0, 0, rop);
}

void copyFrame(benchmark::State &state)
{
    for (auto _ : state) {
        memcpy(target().bits, frame().bits, frameBytes);
        benchmark::ClobberMemory();
    }
}

void setFrame(benchmark::State &state)
{
    for (auto _ : state) {
        memset(target().bits, 7, frameBytes);
        benchmark::ClobberMemory();
    }
}

template <DWORD rop> void fillOurs(benchmark::State &state, HBRUSH brush)
{
    HGDIOBJ initial = SelectObject(target().dc, brush);
    for (auto _ : state)
        PatBlt(target().dc, 0, 0, width, height, rop);
    SelectObject(target().dc, initial);
}

void smallFillOurs(benchmark::State &state)
{
    HGDIOBJ initial = SelectObject(target().dc, patternBrush());
    for (auto _ : state)
        PatBlt(target().dc, 10, 10, 10, 2, PATCOPY);
    SelectObject(target().dc, initial);
}

template <DWORD rop> void clippedOurs(benchmark::State &state)
{
    ManyRectangles clip;
    for (auto _ : state)
        BitBlt(target().dc, 0, 0, width, height, frame().dc, 0, 0, rop);
}

// The same number of pixels in one rectangle.
template <DWORD rop> void unclippedReference(benchmark::State &state)
{
    int pixels = ManyRectangles().pixels;
    for (auto _ : state)
        BitBlt(target().dc, 0, 0, 1000, pixels / 1000, frame().dc, 0, 0, rop);
}

void clippedFillOurs(benchmark::State &state)
{
    ManyRectangles clip;
    HGDIOBJ initial = SelectObject(target().dc, solidBrush());
    for (auto _ : state)
        PatBlt(target().dc, 0, 0, width, height, PATCOPY);
    SelectObject(target().dc, initial);
}
void unclippedFillReference(benchmark::State &state)
{
    int pixels = ManyRectangles().pixels;
    HGDIOBJ initial = SelectObject(target().dc, solidBrush());
    for (auto _ : state)
        PatBlt(target().dc, 0, 0, 1000, pixels / 1000, PATCOPY);
    SelectObject(target().dc, initial);
}

void doubledOurs(benchmark::State &state)
{
    for (auto _ : state)
        StretchBlt(target().dc, 0, 0, width, height, half().dc, 0, 0, width / 2, height / 2, SRCCOPY);
}

void scaledOurs(benchmark::State &state)
{
    for (auto _ : state)
        StretchBlt(target().dc, 0, 0, width, height, half().dc, 0, 0, 700, 400, SRCCOPY);
}

template <class Scale> void pixmanNearest(benchmark::State &state, Scale scaleX, Scale scaleY)
{
    auto source = pixman_image_create_bits(PIXMAN_x8r8g8b8, width / 2, height / 2, static_cast<uint32_t *>(half().bits),
                                           width / 2 * 4);
    auto destination =
        pixman_image_create_bits(PIXMAN_x8r8g8b8, width, height, static_cast<uint32_t *>(target().bits), width * 4);
    pixman_transform_t transform;
    pixman_transform_init_scale(&transform, pixman_double_to_fixed(scaleX), pixman_double_to_fixed(scaleY));
    pixman_image_set_transform(source, &transform);
    pixman_image_set_filter(source, PIXMAN_FILTER_NEAREST, nullptr, 0);
    for (auto _ : state)
        pixman_image_composite32(PIXMAN_OP_SRC, source, nullptr, destination, 0, 0, 0, 0, 0, 0, width, height);
    pixman_image_unref(source);
    pixman_image_unref(destination);
}

// From another format into 32 bits, beside pixman's conversion.
template <int depth> void convertOurs(benchmark::State &state)
{
    static Picture picture(width, height, depth);
    for (auto _ : state)
        BitBlt(target().dc, 0, 0, width, height, picture.dc, 0, 0, SRCCOPY);
}

void convertReference(benchmark::State &state, pixman_format_code_t format, int depth)
{
    std::vector<uint32_t> bits(static_cast<size_t>(width * height));
    auto source = pixman_image_create_bits(format, width, height, bits.data(), width * depth / 8);
    auto destination =
        pixman_image_create_bits(PIXMAN_x8r8g8b8, width, height, static_cast<uint32_t *>(target().bits), width * 4);
    for (auto _ : state)
        pixman_image_composite32(PIXMAN_OP_SRC, source, nullptr, destination, 0, 0, 0, 0, 0, 0, width, height);
    pixman_image_unref(source);
    pixman_image_unref(destination);
}

bool addPair(const char *name, double highest, void (*ours)(benchmark::State &), void (*reference)(benchmark::State &))
{
    benchmark::RegisterBenchmark((std::string(name) + "/ours").c_str(), ours);
    benchmark::RegisterBenchmark((std::string(name) + "/reference").c_str(), reference);
    return pairs::ratio(name, highest);
}

const bool isRegistered = [] {
    addPair("SRCCOPY", 1 / 0.9, blitOurs<SRCCOPY>, copyFrame);
    addPair("SRCAND", 1 / 0.6, blitOurs<SRCAND>, copyFrame);
    addPair("SRCPAINT", 1 / 0.6, blitOurs<SRCPAINT>, copyFrame);
    addPair("SRCINVERT", 1 / 0.6, blitOurs<SRCINVERT>, copyFrame);
    addPair(
        "MERGECOPY", 1 / 0.4,
        [](auto &s) {
            SelectObject(target().dc, solidBrush());
            blitOurs<MERGECOPY>(s);
        },
        copyFrame);
    addPair(
        "PATINVERT", 1 / 0.7, [](auto &s) { fillOurs<PATINVERT>(s, patternBrush()); }, copyFrame);
    addPair(
        "DSTINVERT", 1 / 0.7, [](auto &s) { fillOurs<DSTINVERT>(s, solidBrush()); }, copyFrame);
    addPair(
        "PATCOPY solid", 1 / 0.9, [](auto &s) { fillOurs<PATCOPY>(s, solidBrush()); }, setFrame);
    addPair(
        "PATCOPY 8x8", 1 / 0.6, [](auto &s) { fillOurs<PATCOPY>(s, patternBrush()); }, setFrame);
    benchmark::RegisterBenchmark("PatBlt 10x2/ours", smallFillOurs);
    pairs::within("PatBlt 10x2", 60);
    addPair("SRCCOPY clipped by 200 rectangles", 1.3, clippedOurs<SRCCOPY>, unclippedReference<SRCCOPY>);
    addPair("SRCAND clipped by 200 rectangles", 1.3, clippedOurs<SRCAND>, unclippedReference<SRCAND>);
    addPair("PATCOPY clipped by 200 rectangles", 1.3, clippedFillOurs, unclippedFillReference);
    addPair("StretchBlt 2:1 up", 1 / 1.5, doubledOurs, [](auto &s) { pixmanNearest(s, 0.5, 0.5); });
    addPair("StretchBlt 2.7:1 up", 1, scaledOurs, [](auto &s) { pixmanNearest(s, 700.0 / width, 400.0 / height); });
    addPair("16 to 32 bits", 1, convertOurs<16>, [](auto &s) { convertReference(s, PIXMAN_x1r5g5b5, 16); });
    addPair("24 to 32 bits", 1, convertOurs<24>, [](auto &s) { convertReference(s, PIXMAN_r8g8b8, 24); });
    addPair("8 to 32 bits", 4, convertOurs<8>, copyFrame);
    addPair("1 to 32 bits", 2, convertOurs<1>, copyFrame);
    return true;
}();

} // namespace
