// Packed DIBs from anywhere: what is drawn stays within its rectangle, and nothing is read behind the block.
#include "gdi/bitmap.h"
#include "gdi/dib.h"
#include "gdi/stock_objects.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>

using namespace win32::gdi;

namespace {

constexpr int side = 32;
constexpr uint32_t untouched = 0x12345678;

struct Canvas {
    explicit Canvas(int depth) : dc(CreateCompatibleDC(nullptr))
    {
        struct {
            BITMAPINFOHEADER header;
            RGBQUAD colors[256];
        } info{};
        info.header = {sizeof info.header, side, -side, 1, static_cast<WORD>(depth), BI_RGB, 0, 0, 0, 0, 0};
        for (int i = 0; i < 256; ++i)
            info.colors[i] = {static_cast<BYTE>(i * 7), static_cast<BYTE>(i * 11), static_cast<BYTE>(i), 0};
        bitmap = CreateDIBSection(dc, reinterpret_cast<BITMAPINFO *>(&info), DIB_RGB_COLORS,
                                  reinterpret_cast<void **>(&pixels), nullptr, 0);
        SelectObject(dc, bitmap);
    }

    HDC dc;
    HBITMAP bitmap;
    uint32_t *pixels;
};

// How the input is drawn, as its first bytes say.
struct Choice {
    uint8_t kind, rop;
    int8_t width, height, sourceX, sourceY, sourceWidth, sourceHeight;
};

void checkFrame(const Canvas &canvas, int8_t width, int8_t height)
{
    constexpr int origin = side / 2;
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x) {
            bool isInside = x >= origin + std::min<int>(width, 0) && x < origin + std::max<int>(width, 1)
                            && y >= origin + std::min<int>(height, 0) && y < origin + std::max<int>(height, 1);
            if (!isInside && canvas.pixels[y * side + x] != untouched)
                abort();
        }
    }
}

void drawEverywhere(const Choice &choice, const BITMAPINFO *info, const uint8_t *bits, UINT usage)
{
    static const Canvas canvas(32), monochrome(1), indexed(8);
    const DWORD rops[] = {SRCCOPY, SRCPAINT, SRCINVERT, MERGECOPY, NOTSRCCOPY, WHITENESS};
    DWORD rop = rops[choice.rop % std::size(rops)];
    SetStretchBltMode(canvas.dc, choice.rop >> 4 & 3);
    std::fill_n(canvas.pixels, side * side, untouched);
    StretchDIBits(canvas.dc, side / 2, side / 2, choice.width, choice.height, choice.sourceX, choice.sourceY,
                  choice.sourceWidth, choice.sourceHeight, bits, info, usage, rop);
    checkFrame(canvas, choice.width, choice.height);
    for (const Canvas *target : {&canvas, &monochrome, &indexed}) {
        StretchDIBits(target->dc, 0, 0, side, side, choice.sourceX, choice.sourceY, choice.sourceWidth,
                      choice.sourceHeight, bits, info, usage, rop);
        SetDIBitsToDevice(target->dc, 1, 1, static_cast<DWORD>(choice.width), static_cast<DWORD>(choice.height),
                          choice.sourceX, choice.sourceY, static_cast<UINT>(choice.sourceWidth),
                          static_cast<UINT>(choice.sourceHeight), bits, info, usage);
        SetDIBits(target->dc, target->bitmap, static_cast<UINT>(choice.sourceX), static_cast<UINT>(choice.sourceY),
                  bits, info, usage);
    }
    if (HBITMAP made = CreateDIBitmap(canvas.dc, &info->bmiHeader, CBM_INIT, bits, info, usage))
        DeleteObject(made);
    if (HBRUSH brush = CreateDIBPatternBrushPt(info, usage)) {
        HGDIOBJ old = SelectObject(canvas.dc, brush);
        PatBlt(canvas.dc, 0, 0, side, side, PATCOPY);
        SelectObject(canvas.dc, old);
        DeleteObject(brush);
    }
}

// The header as the wish of a caller who wants to read.
void readBack(const void *header, size_t size, const Dib &dib, UINT usage)
{
    static const Canvas canvas(32);
    constexpr size_t largestInfo = 124 + 256 * sizeof(RGBQUAD);
    auto info = std::make_unique<uint8_t[]>(largestInfo);
    memcpy(info.get(), header, std::min(size, largestInfo));
    auto bits = std::make_unique<uint8_t[]>(static_cast<size_t>(dib.stride * dib.height));
    GetDIBits(canvas.dc, canvas.bitmap, 0, static_cast<UINT>(dib.height), bits.get(),
              reinterpret_cast<BITMAPINFO *>(info.get()), usage);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    Choice choice;
    if (size < sizeof choice)
        return 0;
    memcpy(&choice, data, sizeof choice);
    size -= sizeof choice;
    // A block of its own, so that no byte behind it is read unnoticed.
    auto packed = std::make_unique<uint8_t[]>(size);
    memcpy(packed.get(), data + sizeof choice, size);
    UINT usage = choice.kind & 1 ? DIB_PAL_COLORS : DIB_RGB_COLORS;
    Dib dib;
    if (!readPackedDib(packed.get(), static_cast<int64_t>(size), usage, stock::defaultPalette(), dib)
        || int64_t{dib.width} * dib.height > 1 << 18)
        return 0;
    if (HBITMAP loaded = createFromPackedDib(packed.get(), static_cast<int64_t>(size)))
        DeleteObject(loaded);
    drawEverywhere(choice, reinterpret_cast<BITMAPINFO *>(packed.get()), packed.get() + dib.bitsOffset, usage);
    readBack(packed.get(), size, dib, usage);
    return 0;
}
