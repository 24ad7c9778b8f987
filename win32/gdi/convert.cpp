#include "convert.h"

#include "pixel_codec.h"

#include <cstring>

namespace win32::gdi {

namespace {

bool isXrgb1555(const PixelFormat &format)
{
    return format == rgbFormat(16);
}
bool isRgb565(const PixelFormat &format)
{
    return format == bitfieldsFormat(16, 0xf800, 0x07e0, 0x001f);
}
bool isXbgr32(const PixelFormat &format)
{
    return format == bitfieldsFormat(32, 0x0000ff, 0x00ff00, 0xff0000);
}
bool isRgb888(const PixelFormat &format)
{
    return format.isXrgb32() || format.layout == PixelLayout::Bgr24;
}

bool haveSameColors(const ColorTable *a, const ColorTable *b)
{
    if (a == b || !a || !b)
        return a == b;
    if (a->stamp == b->stamp && a->stamp != 0)
        return true;
    auto sameColor = [](const RGBQUAD &x, const RGBQUAD &y) { return colorOf(x) == colorOf(y); };
    return a->count == b->count && std::equal(a->colors, a->colors + a->count, b->colors, sameColor);
}

bool haveSamePixels(const Surface &a, const Surface &b)
{
    if (a.format != b.format)
        return false;
    return !a.format.isIndexed() || a.format.isMonochrome || haveSameColors(a.colors, b.colors);
}

uint32_t channelBits(const PixelFormat &format)
{
    return isRgb888(format) ? 0xffffff : format.redMask | format.greenMask | format.blueMask;
}

} // namespace

PixelConverter::PixelConverter(const Surface &destination, const Surface &source, const BlitColors &colors)
    : destination_(destination), source_(source)
{
    if (haveSamePixels(destination, source)) {
        way_ = Way::Identity;
    } else if (source.format.isIndexed()) {
        way_ = Way::Table;
        makeTable(colors);
    } else {
        way_ = directWay();
        channels_ = channelBits(source.format);
        background_ = pixelFor(source, colors.sourceBackground) & channels_;
    }
}

PixelConverter::Way PixelConverter::directWay()
{
    const PixelFormat &from = source_.format;
    const PixelFormat &to = destination_.format;
    if (to.isMonochrome)
        return Way::IsBackground;
    if (to.isIndexed())
        return Way::Nearest;
    if (isRgb888(from) && isRgb888(to))
        change_ = ChannelChange::None;
    else if (to.isXrgb32() && isXrgb1555(from))
        change_ = ChannelChange::Xrgb1555ToXrgb32;
    else if (to.isXrgb32() && isRgb565(from))
        change_ = ChannelChange::Rgb565ToXrgb32;
    else if (isRgb888(from) && isXrgb1555(to))
        change_ = ChannelChange::Xrgb32ToXrgb1555;
    else if (isRgb888(from) && isRgb565(to))
        change_ = ChannelChange::Xrgb32ToRgb565;
    else if ((isRgb888(from) && isXbgr32(to)) || (isXbgr32(from) && isRgb888(to)))
        change_ = ChannelChange::SwapRedAndBlue;
    else
        return Way::AnyChannels;
    return Way::ChangedChannels;
}

void PixelConverter::fillTable(const BlitColors &colors)
{
    uint32_t count = 1u << source_.format.bitsPerPixel;
    if (source_.format.isMonochrome) {
        table_[0] = pixelFor(destination_, colors.text);
        table_[1] = pixelFor(destination_, colors.background);
    } else if (destination_.format.isMonochrome) {
        // Of equal colours in a table only the first is the background.
        uint32_t background = pixelFor(source_, colors.sourceBackground);
        for (uint32_t pixel = 0; pixel < count; ++pixel)
            table_[pixel] = pixel == background;
    } else {
        for (uint32_t pixel = 0; pixel < count; ++pixel)
            table_[pixel] = pixelFor(destination_, colorOf(source_, pixel));
    }
}

// The last large table is kept: pictures of many small pieces share it.
void PixelConverter::makeTable(const BlitColors &colors)
{
    struct Key {
        PixelFormat format;
        uint32_t sourceStamp, stamp;
        COLORREF background;
        bool operator==(const Key &) const = default;
    };
    static thread_local Key lastKey{};
    static thread_local uint32_t lastTable[256];

    bool isKept = source_.format.bitsPerPixel == 8 && source_.colors && source_.colors->stamp != 0
                  && (!destination_.colors || destination_.colors->stamp != 0);
    if (!isKept)
        return fillTable(colors);
    Key key{destination_.format, source_.colors->stamp, destination_.colors ? destination_.colors->stamp : 0,
            destination_.format.isMonochrome ? colors.sourceBackground : 0};
    if (!(key == lastKey)) {
        fillTable(colors);
        memcpy(lastTable, table_, sizeof table_);
        lastKey = key;
        return;
    }
    memcpy(table_, lastTable, sizeof table_);
}

// Pictures have many equal pixels beside each other.
void PixelConverter::convertRemembering(uint32_t *pixels, int count) const
{
    uint32_t last = count > 0 ? ~pixels[0] : 0;
    uint32_t lastResult = 0;
    for (int i = 0; i < count; ++i) {
        if (pixels[i] != last) {
            last = pixels[i];
            lastResult = pixelFor(destination_, colorOf(source_, last));
        }
        pixels[i] = lastResult;
    }
}

void PixelConverter::convertIndexed(const uint8_t *row, int x, int count, uint32_t *pixels) const
{
    switch (source_.format.layout) {
    case PixelLayout::Index1: return spreadBits(row, x, count, table_[0], table_[1], pixels);
    case PixelLayout::Index4: return lookUpNibbles(row, x, count, table_, pixels);
    default: return lookUpBytes(row + x, count, table_, pixels);
    }
}

void PixelConverter::convert(const uint8_t *row, int x, int count, uint32_t *pixels) const
{
    const PixelFormat &format = source_.format;
    switch (way_) {
    case Way::Table: return convertIndexed(row, x, count, pixels);
    case Way::ChangedChannels:
        return changeChannels(change_, format.layout, row + (int64_t{x} * format.bitsPerPixel >> 3), count, pixels);
    default: break;
    }
    unpackPixels(format, row, x, count, pixels);
    if (way_ == Way::IsBackground)
        for (int i = 0; i < count; ++i)
            pixels[i] = (pixels[i] & channels_) == background_;
    else if (way_ != Way::Identity)
        convertRemembering(pixels, count);
}

} // namespace win32::gdi
