#include "convert.h"

#include "pixel_codec.h"
#include "pixel_loops.h"

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

// Bits that stand for a colour 0 or 1 each, from a bit position on.
WIN32_FOR_EACH_PROCESSOR
void spreadBits(const uint8_t *row, int x, int count, uint32_t clear, uint32_t set, uint32_t *pixels)
{
    int i = 0;
    for (; i < count && ((x + i) & 7); ++i)
        pixels[i] = row[(x + i) >> 3] & 0x80 >> ((x + i) & 7) ? set : clear;
    for (; i + 8 <= count; i += 8) {
        uint32_t byte = row[(x + i) >> 3];
        for (uint32_t k = 0; k < 8; ++k)
            pixels[i + k] = byte & 0x80u >> k ? set : clear;
    }
    for (; i < count; ++i)
        pixels[i] = row[(x + i) >> 3] & 0x80 >> ((x + i) & 7) ? set : clear;
}

struct Fetch16 {
    const uint8_t *bytes;
    uint32_t operator()(int i) const
    {
        uint16_t pixel;
        memcpy(&pixel, bytes + 2 * ptrdiff_t{i}, 2);
        return pixel;
    }
};
struct Fetch24 {
    const uint8_t *bytes;
    uint32_t operator()(int i) const
    {
        const uint8_t *pixel = bytes + 3 * ptrdiff_t{i};
        return static_cast<uint32_t>(pixel[0] | pixel[1] << 8 | pixel[2] << 16);
    }
};
struct Fetch32 {
    const uint8_t *bytes;
    uint32_t operator()(int i) const
    {
        uint32_t pixel;
        memcpy(&pixel, bytes + 4 * ptrdiff_t{i}, 4);
        return pixel;
    }
};

template <class Fetch, class Change> inline void changeEach(Fetch fetch, int count, uint32_t *pixels, Change change)
{
    for (int i = 0; i < count; ++i)
        pixels[i] = change(fetch(i));
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

PixelConverter::Way PixelConverter::directWay() const
{
    const PixelFormat &from = source_.format;
    const PixelFormat &to = destination_.format;
    if (to.isMonochrome)
        return Way::IsBackground;
    if (to.isIndexed())
        return Way::Nearest;
    if (isRgb888(from) && isRgb888(to))
        return Way::Plain;
    if (to.isXrgb32() && isXrgb1555(from))
        return Way::Xrgb1555ToXrgb32;
    if (to.isXrgb32() && isRgb565(from))
        return Way::Rgb565ToXrgb32;
    if (isRgb888(from) && isXrgb1555(to))
        return Way::Xrgb32ToXrgb1555;
    if (isRgb888(from) && isRgb565(to))
        return Way::Xrgb32ToRgb565;
    if ((isRgb888(from) && isXbgr32(to)) || (isXbgr32(from) && isRgb888(to)))
        return Way::SwapRedAndBlue;
    return Way::Channels;
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

uint32_t PixelConverter::throughChannels(uint32_t pixel) const
{
    return pixelFor(destination_, colorOf(source_, pixel));
}

void PixelConverter::nearest(uint32_t *pixels, int count) const
{
    uint32_t last = count > 0 ? ~pixels[0] : 0;
    uint32_t lastResult = 0;
    for (int i = 0; i < count; ++i) {
        if (pixels[i] != last) {
            last = pixels[i];
            lastResult = throughChannels(last);
        }
        pixels[i] = lastResult;
    }
}

template <class Fetch> void PixelConverter::convertDirect(Fetch fetch, int count, uint32_t *pixels) const
{
    switch (way_) {
    case Way::Plain: return changeEach(fetch, count, pixels, [](uint32_t p) { return p & 0xffffff; });
    case Way::Xrgb1555ToXrgb32:
        return changeEach(fetch, count, pixels, [](uint32_t p) {
            return spread5(p >> 10 & 31) << 16 | spread5(p >> 5 & 31) << 8 | spread5(p & 31);
        });
    case Way::Rgb565ToXrgb32:
        return changeEach(fetch, count, pixels, [](uint32_t p) {
            return spread5(p >> 11 & 31) << 16 | spread6(p >> 5 & 63) << 8 | spread5(p & 31);
        });
    case Way::Xrgb32ToXrgb1555:
        return changeEach(fetch, count, pixels,
                          [](uint32_t p) { return (p >> 9 & 0x7c00) | (p >> 6 & 0x03e0) | (p >> 3 & 0x001f); });
    case Way::Xrgb32ToRgb565:
        return changeEach(fetch, count, pixels,
                          [](uint32_t p) { return (p >> 8 & 0xf800) | (p >> 5 & 0x07e0) | (p >> 3 & 0x001f); });
    case Way::SwapRedAndBlue: return changeEach(fetch, count, pixels, withRedAndBlueSwapped);
    case Way::IsBackground:
        return changeEach(fetch, count, pixels, [background = background_, channels = channels_](uint32_t p) {
            return uint32_t{(p & channels) == background};
        });
    case Way::Channels: return changeEach(fetch, count, pixels, [this](uint32_t p) { return throughChannels(p); });
    case Way::Nearest: changeEach(fetch, count, pixels, [](uint32_t p) { return p; }); return nearest(pixels, count);
    case Way::Identity: return changeEach(fetch, count, pixels, [](uint32_t p) { return p; });
    case Way::Table: return;
    }
}

WIN32_FOR_EACH_PROCESSOR
void PixelConverter::convertRow(const uint8_t *row, int x, int count, uint32_t *pixels) const
{
    const uint8_t *bytes = row + (int64_t{x} * source_.format.bitsPerPixel >> 3);
    switch (source_.format.layout) {
    case PixelLayout::Index1:
        return way_ == Way::Identity ? unpackPixels(source_.format, row, x, count, pixels)
                                     : spreadBits(row, x, count, table_[0], table_[1], pixels);
    case PixelLayout::Index4:
    case PixelLayout::Index8:
        unpackPixels(source_.format, row, x, count, pixels);
        if (way_ == Way::Table)
            for (int i = 0; i < count; ++i)
                pixels[i] = table_[pixels[i]];
        return;
    case PixelLayout::Direct16: return convertDirect(Fetch16{bytes}, count, pixels);
    case PixelLayout::Bgr24: return convertDirect(Fetch24{bytes}, count, pixels);
    case PixelLayout::Direct32: return convertDirect(Fetch32{bytes}, count, pixels);
    }
}

// Other files call this one: clang gives variants of a function names of their own only.
void PixelConverter::convert(const uint8_t *row, int x, int count, uint32_t *pixels) const
{
    convertRow(row, x, count, pixels);
}

} // namespace win32::gdi
