// The formats of pixels, and colours in those that have channels.
#include "pixel_codec.h"

#include <bit>

namespace win32::gdi {

PixelFormat monochromeFormat()
{
    PixelFormat format;
    format.isMonochrome = true;
    return format;
}

PixelFormat bitfieldsFormat(int bitsPerPixel, uint32_t red, uint32_t green, uint32_t blue)
{
    PixelFormat format;
    format.layout = bitsPerPixel == 16 ? PixelLayout::Direct16 : PixelLayout::Direct32;
    format.bitsPerPixel = static_cast<uint8_t>(bitsPerPixel);
    format.redMask = red;
    format.greenMask = green;
    format.blueMask = blue;
    return format;
}

PixelFormat rgbFormat(int bitsPerPixel)
{
    if (bitsPerPixel == 16)
        return bitfieldsFormat(16, 0x7c00, 0x03e0, 0x001f);
    if (bitsPerPixel == 32)
        return bitfieldsFormat(32, 0xff0000, 0x00ff00, 0x0000ff);
    PixelFormat format;
    format.bitsPerPixel = static_cast<uint8_t>(bitsPerPixel);
    format.layout = bitsPerPixel == 1   ? PixelLayout::Index1
                    : bitsPerPixel == 4 ? PixelLayout::Index4
                    : bitsPerPixel == 8 ? PixelLayout::Index8
                                        : PixelLayout::Bgr24;
    return format;
}

Channel::Channel(uint32_t mask)
    : shift(mask ? std::countr_zero(mask) : 0), bits(mask ? 32 - std::countl_zero(mask) - shift : 0),
      valueMask(mask >> shift)
{
}

ColorCodec::ColorCodec(const PixelFormat &format)
    : red(format.layout == PixelLayout::Bgr24 ? 0xff0000 : format.redMask),
      green(format.layout == PixelLayout::Bgr24 ? 0x00ff00 : format.greenMask),
      blue(format.layout == PixelLayout::Bgr24 ? 0x0000ff : format.blueMask)
{
}

} // namespace win32::gdi
