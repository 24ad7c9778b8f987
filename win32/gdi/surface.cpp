// Single pixels of a surface, and the numbers that stand for colours in it.
#include "surface.h"

#include "pixel_codec.h"

#include <atomic>
#include <cstring>

namespace win32::gdi {

void ColorTable::changed()
{
    static std::atomic<uint32_t> lastStamp{0};
    stamp = ++lastStamp;
}

namespace {

int distance(const RGBQUAD &quad, COLORREF color)
{
    int red = quad.rgbRed - GetRValue(color);
    int green = quad.rgbGreen - GetGValue(color);
    int blue = quad.rgbBlue - GetBValue(color);
    return red * red + green * green + blue * blue;
}

bool isNearerToWhite(COLORREF color)
{
    return GetRValue(color) + GetGValue(color) + GetBValue(color) > 3 * 255 / 2;
}

uint32_t nearestIndex(const ColorTable &table, COLORREF color)
{
    uint32_t best = 0;
    int bestDistance = 1 << 20;
    for (int index = 0; index < table.count && bestDistance; ++index) {
        int candidate = distance(table.colors[index], color);
        if (candidate < bestDistance) {
            bestDistance = candidate;
            best = static_cast<uint32_t>(index);
        }
    }
    return best;
}

// Answers for colours asked for lately, by table: pictures ask for the same few again and again.
uint32_t rememberedNearest(const ColorTable &table, COLORREF color)
{
    struct Answer {
        uint32_t stamp, color, index;
    };
    constexpr int bits = 12;
    static thread_local Answer answers[1 << bits];
    if (table.stamp == 0)
        return nearestIndex(table, color);
    Answer &answer = answers[((color ^ table.stamp << 24) * 0x9E3779B1u) >> (32 - bits)];
    if (answer.stamp != table.stamp || answer.color != color)
        answer = {table.stamp, color, nearestIndex(table, color)};
    return answer.index;
}

} // namespace

uint32_t pixelFor(const Surface &surface, COLORREF color)
{
    color &= 0xffffff;
    const PixelFormat &format = surface.format;
    if (format.isXrgb32() || format.layout == PixelLayout::Bgr24)
        return withRedAndBlueSwapped(color);
    if (!format.isIndexed())
        return ColorCodec(format).encode(color);
    if (format.isMonochrome || !surface.colors)
        return isNearerToWhite(color);
    return rememberedNearest(*surface.colors, color);
}

COLORREF colorOf(const Surface &surface, uint32_t pixel)
{
    const PixelFormat &format = surface.format;
    if (format.isXrgb32() || format.layout == PixelLayout::Bgr24)
        return withRedAndBlueSwapped(pixel & 0xffffff);
    if (!format.isIndexed())
        return ColorCodec(format).decode(pixel);
    if (format.isMonochrome || !surface.colors)
        return pixel ? RGB(255, 255, 255) : RGB(0, 0, 0);
    return pixel < static_cast<uint32_t>(surface.colors->count) ? colorOf(surface.colors->colors[pixel]) : 0;
}

uint32_t readPixel(const Surface &surface, int x, int y)
{
    const uint8_t *row = surface.row(y);
    switch (surface.format.layout) {
    case PixelLayout::Index1: return row[x >> 3] >> (~x & 7) & 1;
    case PixelLayout::Index4: return row[x >> 1] >> (x & 1 ? 0 : 4) & 15;
    case PixelLayout::Index8: return row[x];
    case PixelLayout::Direct16: return static_cast<uint32_t>(row[2 * ptrdiff_t{x}] | row[2 * ptrdiff_t{x} + 1] << 8);
    case PixelLayout::Bgr24: break;
    case PixelLayout::Direct32: {
        uint32_t pixel;
        memcpy(&pixel, row + 4 * ptrdiff_t{x}, 4);
        return pixel;
    }
    }
    const uint8_t *bytes = row + 3 * ptrdiff_t{x};
    return static_cast<uint32_t>(bytes[0] | bytes[1] << 8 | bytes[2] << 16);
}

void writePixel(const Surface &surface, int x, int y, uint32_t pixel)
{
    uint8_t *row = surface.row(y);
    switch (surface.format.layout) {
    case PixelLayout::Index1: {
        int mask = 0x80 >> (x & 7);
        row[x >> 3] = static_cast<uint8_t>(pixel & 1 ? row[x >> 3] | mask : row[x >> 3] & ~mask);
        return;
    }
    case PixelLayout::Index4: {
        int shift = x & 1 ? 0 : 4;
        row[x >> 1] = static_cast<uint8_t>((row[x >> 1] & ~(15 << shift)) | (pixel & 15) << shift);
        return;
    }
    case PixelLayout::Index8: row[x] = static_cast<uint8_t>(pixel); return;
    case PixelLayout::Direct16: {
        auto word = static_cast<uint16_t>(pixel);
        memcpy(row + 2 * ptrdiff_t{x}, &word, 2);
        return;
    }
    case PixelLayout::Bgr24: memcpy(row + 3 * ptrdiff_t{x}, &pixel, 3); return;
    case PixelLayout::Direct32: memcpy(row + 4 * ptrdiff_t{x}, &pixel, 4); return;
    }
}

} // namespace win32::gdi
