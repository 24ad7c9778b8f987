#include "convert_loops.h"

#include "pixel_codec.h"
#include "pixel_loops.h"

#include <cstring>

namespace win32::gdi {

namespace {

#define ALWAYS_INLINE inline __attribute__((always_inline))

using Vector [[gnu::vector_size(16)]] = uint32_t;

uint32_t bitAt(const uint8_t *row, int x)
{
    return row[x >> 3] >> (~x & 7) & 1;
}

// The highest bits of a channel of 5 or 6 bits are repeated below, as Channel::decode does.
constexpr uint32_t spread5(uint32_t value)
{
    return value << 3 | value >> 2;
}
constexpr uint32_t spread6(uint32_t value)
{
    return value << 2 | value >> 4;
}

constexpr uint32_t xrgb1555ToXrgb32(uint32_t pixel)
{
    return spread5(pixel >> 10 & 31) << 16 | spread5(pixel >> 5 & 31) << 8 | spread5(pixel & 31);
}
constexpr uint32_t rgb565ToXrgb32(uint32_t pixel)
{
    return spread5(pixel >> 11 & 31) << 16 | spread6(pixel >> 5 & 63) << 8 | spread5(pixel & 31);
}
constexpr uint32_t xrgb32ToXrgb1555(uint32_t pixel)
{
    return (pixel >> 9 & 0x7c00) | (pixel >> 6 & 0x03e0) | (pixel >> 3 & 0x001f);
}
constexpr uint32_t xrgb32ToRgb565(uint32_t pixel)
{
    return (pixel >> 8 & 0xf800) | (pixel >> 5 & 0x07e0) | (pixel >> 3 & 0x001f);
}

template <class Pixel, uint32_t (*change)(uint32_t)>
ALWAYS_INLINE void changeEach(const uint8_t *__restrict bytes, int count, uint32_t *__restrict pixels)
{
    for (int i = 0; i < count; ++i) {
        Pixel pixel;
        memcpy(&pixel, bytes + sizeof pixel * static_cast<size_t>(i), sizeof pixel);
        pixels[i] = change(pixel);
    }
}

template <uint32_t (*change)(uint32_t)>
ALWAYS_INLINE void changeEach24(const uint8_t *__restrict bytes, int count, uint32_t *__restrict pixels)
{
    // A whole word is read where a pixel follows.
    for (int i = 0; i + 1 < count; ++i) {
        uint32_t pixel;
        memcpy(&pixel, bytes + 3 * static_cast<size_t>(i), sizeof pixel);
        pixels[i] = change(pixel & 0xffffff);
    }
    const uint8_t *last = bytes + 3 * static_cast<size_t>(count - 1);
    pixels[count - 1] = change(static_cast<uint32_t>(last[0] | last[1] << 8 | last[2] << 16));
}

template <uint32_t (*change)(uint32_t)>
ALWAYS_INLINE void changeEachOf(PixelLayout layout, const uint8_t *bytes, int count, uint32_t *pixels)
{
    if (layout == PixelLayout::Bgr24)
        changeEach24<change>(bytes, count, pixels);
    else
        changeEach<uint32_t, change>(bytes, count, pixels);
}

constexpr uint32_t withoutTopByte(uint32_t pixel)
{
    return pixel & 0xffffff;
}

} // namespace

void spreadBits(const uint8_t *row, int x, int count, uint32_t clear, uint32_t set, uint32_t *pixels)
{
    const Vector base = {clear, clear, clear, clear}, difference = base ^ set;
    int i = 0;
    for (; i < count && ((x + i) & 7); ++i)
        pixels[i] = bitAt(row, x + i) ? set : clear;
    const uint8_t *bytes = row + ((x + i) >> 3);
    for (; i + 8 <= count; i += 8) {
        uint32_t byte = *bytes++;
        Vector left = Vector{byte, byte, byte, byte} & Vector{0x80, 0x40, 0x20, 0x10};
        Vector right = Vector{byte, byte, byte, byte} & Vector{0x08, 0x04, 0x02, 0x01};
        left = base ^ (difference & reinterpret_cast<Vector>(left != 0));
        right = base ^ (difference & reinterpret_cast<Vector>(right != 0));
        memcpy(pixels + i, &left, sizeof left);
        memcpy(pixels + i + 4, &right, sizeof right);
    }
    for (; i < count; ++i)
        pixels[i] = bitAt(row, x + i) ? set : clear;
}

void lookUpNibbles(const uint8_t *row, int x, int count, const uint32_t *table, uint32_t *pixels)
{
    int i = 0;
    if (count > 0 && (x & 1))
        pixels[i++] = table[row[x >> 1] & 15];
    const uint8_t *bytes = row + ((x + i) >> 1);
    for (; i + 2 <= count; i += 2, ++bytes) {
        pixels[i] = table[*bytes >> 4];
        pixels[i + 1] = table[*bytes & 15];
    }
    if (i < count)
        pixels[i] = table[*bytes >> 4];
}

void lookUpBytes(const uint8_t *__restrict bytes, int count, const uint32_t *__restrict table,
                 uint32_t *__restrict pixels)
{
    for (int i = 0; i < count; ++i)
        pixels[i] = table[bytes[i]];
}

WIN32_FOR_EACH_PROCESSOR
void changeChannels(ChannelChange change, PixelLayout layout, const uint8_t *bytes, int count, uint32_t *pixels)
{
    if (count <= 0)
        return;
    switch (change) {
    case ChannelChange::None: return changeEachOf<withoutTopByte>(layout, bytes, count, pixels);
    case ChannelChange::Xrgb1555ToXrgb32: return changeEach<uint16_t, xrgb1555ToXrgb32>(bytes, count, pixels);
    case ChannelChange::Rgb565ToXrgb32: return changeEach<uint16_t, rgb565ToXrgb32>(bytes, count, pixels);
    case ChannelChange::Xrgb32ToXrgb1555: return changeEachOf<xrgb32ToXrgb1555>(layout, bytes, count, pixels);
    case ChannelChange::Xrgb32ToRgb565: return changeEachOf<xrgb32ToRgb565>(layout, bytes, count, pixels);
    case ChannelChange::SwapRedAndBlue: return changeEachOf<withRedAndBlueSwapped>(layout, bytes, count, pixels);
    }
}

} // namespace win32::gdi
