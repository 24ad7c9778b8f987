// Pictures and drawing as slow and plain as they can be, to hold fast drawing against.
#pragma once

#include "Canvas.h"

#include <climits>
#include <random>

// What the tests draw in: every depth, device-independent and not.
inline std::vector<CanvasFormat> allFormats()
{
    std::vector<RGBQUAD> colors(256);
    std::mt19937 random(4711);
    for (RGBQUAD &color : colors)
        color = {BYTE(random()), BYTE(random()), BYTE(random()), 0};
    colors[0] = {0, 0, 0, 0};
    colors[1] = {255, 255, 255, 0};
    auto first = [&colors](size_t count) { return std::vector<RGBQUAD>(colors.begin(), colors.begin() + count); };
    return {CanvasFormat::monochrome(),
            {.depth = 1, .colors = first(2)},
            {.depth = 4, .colors = first(16)},
            {.depth = 8, .colors = first(256)},
            {.depth = 16},
            {.depth = 16, .masks = {0xf800, 0x07e0, 0x001f}},
            {.depth = 24},
            {.depth = 32},
            {.depth = 32, .isBottomUp = true},
            {.depth = 32, .masks = {0x0000ff, 0x00ff00, 0xff0000}}};
}

inline uint32_t allBits(const CanvasFormat &format)
{
    return format.depth == 32 ? ~0u : (1u << format.depth) - 1;
}

inline std::vector<uint32_t> randomPixels(const Canvas &canvas, std::mt19937 &random)
{
    std::vector<uint32_t> pixels(static_cast<size_t>(canvas.width() * canvas.height()));
    for (uint32_t &pixel : pixels)
        pixel = static_cast<uint32_t>(random()) & allBits(canvas.format());
    return pixels;
}

// The masks of a format with channels.
inline std::vector<DWORD> masksOf(const CanvasFormat &format)
{
    if (format.masks[0])
        return {format.masks[0], format.masks[1], format.masks[2]};
    return format.depth == 16 ? std::vector<DWORD>{0x7c00, 0x03e0, 0x001f} : std::vector<DWORD>{0xff0000, 0xff00, 0xff};
}

inline COLORREF colorOfPixel(const CanvasFormat &format, uint32_t pixel)
{
    if (format.isMonochromeBitmap)
        return pixel ? RGB(255, 255, 255) : RGB(0, 0, 0);
    if (format.depth <= 8)
        return RGB(format.colors[pixel].rgbRed, format.colors[pixel].rgbGreen, format.colors[pixel].rgbBlue);
    COLORREF color = 0;
    std::vector<DWORD> masks = masksOf(format);
    for (int channel = 0; channel < 3; ++channel) {
        // From the highest bit down, beginning again when the channel's bits are used up.
        std::vector<int> bits;
        for (int bit = 31; bit >= 0; --bit)
            if (masks[channel] >> bit & 1)
                bits.push_back(bit);
        int value = 0;
        for (size_t i = 0; i < 8; ++i)
            value = value << 1 | (pixel >> bits[i % bits.size()] & 1);
        color |= static_cast<COLORREF>(value) << 8 * channel;
    }
    return color;
}

inline uint32_t nearestPixel(const CanvasFormat &format, COLORREF color)
{
    if (format.depth > 8) {
        uint32_t pixel = 0;
        std::vector<DWORD> masks = masksOf(format);
        for (int channel = 0; channel < 3; ++channel) {
            int bitOfColor = 8 * channel + 7;
            for (int bit = 31; bit >= 0; --bit)
                if (masks[channel] >> bit & 1)
                    pixel |= (color >> bitOfColor-- & 1) << bit;
        }
        return pixel;
    }
    uint32_t best = 0;
    int bestDistance = INT_MAX;
    uint32_t count = format.isMonochromeBitmap ? 2 : static_cast<uint32_t>(format.colors.size());
    for (uint32_t pixel = 0; pixel < count; ++pixel) {
        COLORREF candidate = colorOfPixel(format, pixel);
        int distance = 0;
        for (int shift = 0; shift < 24; shift += 8) {
            int difference = static_cast<int>(candidate >> shift & 0xff) - static_cast<int>(color >> shift & 0xff);
            distance += difference * difference;
        }
        if (distance < bestDistance) {
            bestDistance = distance;
            best = pixel;
        }
    }
    return best;
}

// One pixel through a ternary raster code, bit by bit.
inline uint32_t evaluatedBits(DWORD code, uint32_t pattern, uint32_t source, uint32_t destination, uint32_t bits)
{
    uint32_t result = 0;
    for (int bit = 0; bit < 32 && bits >> bit; ++bit) {
        auto of = [bit](uint32_t pixel) { return pixel >> bit & 1; };
        result |= (code >> 16 >> (of(pattern) * 4 + of(source) * 2 + of(destination)) & 1) << bit;
    }
    return result & bits;
}

// A clip of some random rectangles, selected into a canvas while it lives.
class RandomClip {
public:
    RandomClip(const Canvas &canvas, std::mt19937 &random, int rectangles)
        : dc_(canvas.dc), width_(canvas.width()), isInside_(static_cast<size_t>(canvas.width() * canvas.height()))
    {
        HRGN region = CreateRectRgn(0, 0, 0, 0);
        for (int i = 0; i < rectangles; ++i) {
            int x = int(random() % width_), y = int(random() % canvas.height());
            int right = std::min(width_, x + 1 + int(random() % unsigned(std::max(12, width_ / 2)))),
                bottom = std::min(canvas.height(), y + 1 + int(random() % 5));
            HRGN part = CreateRectRgn(x, y, right, bottom);
            CombineRgn(region, region, part, RGN_OR);
            DeleteObject(part);
            for (int row = y; row < bottom; ++row)
                std::fill_n(isInside_.begin() + row * width_ + x, right - x, true);
        }
        SelectClipRgn(dc_, region);
        DeleteObject(region);
    }
    ~RandomClip() { SelectClipRgn(dc_, nullptr); }
    RandomClip(const RandomClip &) = delete;
    RandomClip &operator=(const RandomClip &) = delete;

    bool contains(int x, int y) const { return isInside_[static_cast<size_t>(y * width_ + x)]; }

private:
    HDC dc_;
    int width_;
    std::vector<bool> isInside_;
};

// The positions from a start in the direction of a size, in the order of counting.
inline std::vector<int> positionsOf(int start, int size)
{
    std::vector<int> positions;
    for (int i = 0; i < std::abs(size); ++i)
        positions.push_back(size < 0 ? start - i : start + i);
    return positions;
}
