// Colours as the bits of a pixel, in the formats that have channels.
#pragma once

#include "surface.h"

namespace win32::gdi {

// Contiguous bits of a pixel that hold one of the three colours.
struct Channel {
    explicit Channel(uint32_t mask);

    uint32_t encode(uint32_t value) const { return (bits <= 8 ? value >> (8 - bits) : value << (bits - 8)) << shift; }

    // All bits of the channel set give 255: its highest bits are repeated below.
    uint32_t decode(uint32_t pixel) const
    {
        uint32_t value = pixel >> shift & valueMask;
        if (bits >= 8)
            return value >> (bits - 8);
        if (bits == 0)
            return 0;
        value <<= 8 - bits;
        for (int filled = bits; filled < 8; filled *= 2)
            value |= value >> filled;
        return value;
    }

    int shift;
    int bits;
    uint32_t valueMask;
};

struct ColorCodec {
    explicit ColorCodec(const PixelFormat &format);

    uint32_t encode(COLORREF color) const
    {
        return red.encode(color & 0xff) | green.encode(color >> 8 & 0xff) | blue.encode(color >> 16 & 0xff);
    }
    COLORREF decode(uint32_t pixel) const
    {
        return red.decode(pixel) | green.decode(pixel) << 8 | blue.decode(pixel) << 16;
    }

    Channel red;
    Channel green;
    Channel blue;
};

// 0x00BBGGRR to 0x00RRGGBB, and back.
inline uint32_t withRedAndBlueSwapped(uint32_t color)
{
    return (color & 0xff) << 16 | (color & 0xff00) | (color >> 16 & 0xff);
}

inline COLORREF colorOf(const RGBQUAD &quad)
{
    return RGB(quad.rgbRed, quad.rgbGreen, quad.rgbBlue);
}

} // namespace win32::gdi
