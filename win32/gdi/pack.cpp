// Pixel numbers into the bits of rows, and out of them.
#include "convert.h"

#include <cstring>

namespace win32::gdi {

namespace {

void pack1(const uint32_t *pixels, int count, int x, uint8_t *row)
{
    int i = 0;
    auto single = [&] {
        int mask = 0x80 >> (x & 7);
        row[x >> 3] = static_cast<uint8_t>(pixels[i] & 1 ? row[x >> 3] | mask : row[x >> 3] & ~mask);
        ++i;
        ++x;
    };
    while (i < count && (x & 7))
        single();
    for (; i + 8 <= count; i += 8, x += 8) {
        unsigned byte = 0;
        for (int k = 0; k < 8; ++k)
            byte |= (pixels[i + k] & 1) << (7 - k);
        row[x >> 3] = static_cast<uint8_t>(byte);
    }
    while (i < count)
        single();
}

void pack4(const uint32_t *pixels, int count, int x, uint8_t *row)
{
    for (int i = 0; i < count; ++i, ++x) {
        int shift = x & 1 ? 0 : 4;
        row[x >> 1] = static_cast<uint8_t>((row[x >> 1] & 0xf0 >> shift) | (pixels[i] & 15) << shift);
    }
}

void pack24(const uint32_t *pixels, int count, uint8_t *row)
{
    for (int i = 0; i < count; ++i, row += 3) {
        row[0] = static_cast<uint8_t>(pixels[i]);
        row[1] = static_cast<uint8_t>(pixels[i] >> 8);
        row[2] = static_cast<uint8_t>(pixels[i] >> 16);
    }
}

} // namespace

uint32_t repeatedPixel(const PixelFormat &format, uint32_t pixel)
{
    switch (format.layout) {
    case PixelLayout::Index1: return -(pixel & 1);
    case PixelLayout::Index4: return (pixel & 15) * 0x11111111u;
    case PixelLayout::Index8:
    case PixelLayout::Bgr24: return (pixel & 0xff) * 0x01010101u;
    case PixelLayout::Direct16: return (pixel & 0xffff) * 0x00010001u;
    case PixelLayout::Direct32: break;
    }
    return pixel;
}

void packPixels(const PixelFormat &format, const uint32_t *pixels, int count, int x, uint8_t *row)
{
    uint8_t *bytes = row + (int64_t{x} * format.bitsPerPixel >> 3);
    switch (format.layout) {
    case PixelLayout::Index1: return pack1(pixels, count, x, row);
    case PixelLayout::Index4: return pack4(pixels, count, x, row);
    case PixelLayout::Index8:
        for (int i = 0; i < count; ++i)
            bytes[i] = static_cast<uint8_t>(pixels[i]);
        return;
    case PixelLayout::Direct16:
        for (int i = 0; i < count; ++i) {
            auto word = static_cast<uint16_t>(pixels[i]);
            memcpy(bytes + 2 * ptrdiff_t{i}, &word, 2);
        }
        return;
    case PixelLayout::Bgr24: return pack24(pixels, count, bytes);
    case PixelLayout::Direct32: memcpy(bytes, pixels, 4 * static_cast<size_t>(count)); return;
    }
}

void packCoverage(const PixelFormat &format, const uint8_t *coverage, int count, int x, uint8_t *row)
{
    uint32_t pixels[64];
    for (int at = 0; at < count; at += 64) {
        int part = std::min(64, count - at);
        for (int i = 0; i < part; ++i)
            pixels[i] = coverage[at + i] ? ~0u : 0u;
        packPixels(format, pixels, part, x + at, row);
    }
}

void unpackPixels(const PixelFormat &format, const uint8_t *row, int x, int count, uint32_t *pixels)
{
    const uint8_t *bytes = row + (int64_t{x} * format.bitsPerPixel >> 3);
    switch (format.layout) {
    case PixelLayout::Index1:
        for (int i = 0; i < count; ++i)
            pixels[i] = row[(x + i) >> 3] >> (~(x + i) & 7) & 1;
        return;
    case PixelLayout::Index4:
        for (int i = 0; i < count; ++i)
            pixels[i] = row[(x + i) >> 1] >> ((x + i) & 1 ? 0 : 4) & 15;
        return;
    case PixelLayout::Index8:
        for (int i = 0; i < count; ++i)
            pixels[i] = bytes[i];
        return;
    case PixelLayout::Direct16:
        for (int i = 0; i < count; ++i)
            pixels[i] = static_cast<uint32_t>(bytes[2 * ptrdiff_t{i}] | bytes[2 * ptrdiff_t{i} + 1] << 8);
        return;
    case PixelLayout::Bgr24:
        for (int i = 0; i < count; ++i, bytes += 3)
            pixels[i] = static_cast<uint32_t>(bytes[0] | bytes[1] << 8 | bytes[2] << 16);
        return;
    case PixelLayout::Direct32: memcpy(pixels, bytes, 4 * static_cast<size_t>(count)); return;
    }
}

} // namespace win32::gdi
