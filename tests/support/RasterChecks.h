// Checks of raster codes, brushes and copies, pixel by pixel against a slow reference.
#pragma once

#include "SlowPixels.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace raster {

struct Trial {
    int width, height;
    unsigned seeds;
};
constexpr Trial usual{75, 13, 4}; // not a multiple of anything
constexpr Trial wide{3001, 2, 1}; // wider than any buffer

enum class Brushes { Solid, All };

inline std::string nameOf(const CanvasFormat &format)
{
    return (format.isMonochromeBitmap ? "monochrome bitmap" : std::to_string(format.depth) + " bits")
           + (format.masks[0] ? " with masks" : "") + (format.isBottomUp ? " bottom-up" : "");
}

// A brush and what it looks like, in the format of a canvas.
class RandomBrush {
public:
    RandomBrush(const Canvas &canvas, std::mt19937 &random, Brushes brushes)
    {
        const CanvasFormat &format = canvas.format();
        auto color = [&]() -> COLORREF {
            if (format.depth == 1)
                return random() % 2 ? RGB(255, 255, 255) : RGB(0, 0, 0);
            return static_cast<COLORREF>(random()) & 0xffffff;
        };
        unsigned kinds = brushes == Brushes::Solid ? 1 : format.depth < 8 ? 2 : 3;
        switch (random() % kinds) {
        case 0: {
            COLORREF solid = color();
            brush = CreateSolidBrush(solid);
            pixels_ = {nearestPixel(format, solid)};
            break;
        }
        case 1: {
            COLORREF text = color(), background = color();
            SetTextColor(canvas.dc, text);
            SetBkColor(canvas.dc, background);
            makeMonochrome(format, random, nearestPixel(format, text), nearestPixel(format, background));
            break;
        }
        default: makeColored(format, random);
        }
        originX_ = static_cast<int>(random() % 11) - 5;
        originY_ = static_cast<int>(random() % 11) - 5;
        SetBrushOrgEx(canvas.dc, originX_, originY_, nullptr);
        initial_ = SelectObject(canvas.dc, brush);
        dc_ = canvas.dc;
    }
    ~RandomBrush()
    {
        SelectObject(dc_, initial_);
        DeleteObject(brush);
    }
    RandomBrush(const RandomBrush &) = delete;
    RandomBrush &operator=(const RandomBrush &) = delete;

    uint32_t at(int x, int y) const
    {
        auto modulo = [](int value, int modulus) { return (value % modulus + modulus) % modulus; };
        return pixels_[static_cast<size_t>(modulo(y - originY_, height_) * width_ + modulo(x - originX_, width_))];
    }

    HBRUSH brush;

private:
    void makeMonochrome(const CanvasFormat &format, std::mt19937 &random, uint32_t clear, uint32_t set)
    {
        WORD rows[8];
        width_ = height_ = 8;
        for (WORD &row : rows) {
            row = static_cast<BYTE>(random());
            for (int x = 0; x < 8; ++x) {
                bool isSet = row & 0x80 >> x;
                pixels_.push_back(format.isMonochromeBitmap ? isSet : isSet ? set : clear);
            }
        }
        HBITMAP bitmap = CreateBitmap(8, 8, 1, 1, rows);
        brush = CreatePatternBrush(bitmap);
        DeleteObject(bitmap);
    }
    void makeColored(CanvasFormat format, std::mt19937 &random)
    {
        // Also one that no row buffer holds.
        width_ = random() % 8 == 0 ? 1500 : 1 + int(random() % 20);
        height_ = 1 + int(random() % 9);
        Canvas pattern(width_, height_, format);
        pixels_ = randomPixels(pattern, random);
        pattern.setPixels(pixels_);
        brush = CreatePatternBrush(pattern.bitmap);
    }

    HDC dc_;
    HGDIOBJ initial_;
    int width_ = 1;
    int height_ = 1;
    int originX_;
    int originY_;
    std::vector<uint32_t> pixels_;
};

// Runs a check for formats and some seeds, which a failure names.
template <class Check>
void forFormats(const std::vector<CanvasFormat> &formats, Check check, unsigned seeds = usual.seeds)
{
    for (const CanvasFormat &format : formats)
        for (unsigned seed = 1; seed <= seeds; ++seed) {
            SCOPED_TRACE(nameOf(format) + ", seed " + std::to_string(seed));
            std::mt19937 random(seed);
            check(format, random);
            if (testing::Test::HasFailure())
                return;
        }
}

inline int between(std::mt19937 &random, int low, int high)
{
    return low + static_cast<int>(random() % static_cast<unsigned>(high - low + 1));
}

// PatBlt through the sixteen codes of pattern and destination.
inline void checkPatterns(const std::vector<CanvasFormat> &formats, Trial trial = usual)
{
    const int width = trial.width, height = trial.height;
    forFormats(
        formats,
        [=](const CanvasFormat &format, std::mt19937 &random) {
            Canvas canvas(width, height, format);
            for (unsigned code = 0; code < 16; ++code) {
                std::vector<uint32_t> expected = randomPixels(canvas, random);
                canvas.setPixels(expected);
                RandomBrush brush(canvas, random, Brushes::All);
                RandomClip clip(canvas, random, between(random, 1, 12));
                DWORD ternary = ((code & 12) << 4 | (code & 12) << 2 | (code & 3) << 2 | (code & 3)) << 16;
                int x = between(random, -5, width), y = between(random, -5, height);
                int w = between(random, -width, width), h = between(random, -height, height);
                for (int py : positionsOf(y, h))
                    for (int px : positionsOf(x, w))
                        if (px >= 0 && px < width && py >= 0 && py < height && clip.contains(px, py)) {
                            uint32_t &pixel = expected[static_cast<size_t>(py * width + px)];
                            pixel = evaluatedBits(ternary, brush.at(px, py), 0, pixel, allBits(format));
                        }
                ASSERT_TRUE(PatBlt(canvas.dc, x, y, w, h, ternary));
                ASSERT_EQ(canvas.pixels(), expected)
                    << "code " << code << " at " << x << "," << y << " size " << w << "," << h;
            }
        },
        trial.seeds);
}

// BitBlt through all codes, parts of the source missing.
inline void checkSources(const std::vector<CanvasFormat> &formats, Brushes brushes, Trial trial = usual)
{
    const int width = trial.width, height = trial.height;
    forFormats(
        formats,
        [=](const CanvasFormat &format, std::mt19937 &random) {
            Canvas canvas(width, height, format), source(width + 9, std::max(1, height - 4), format);
            for (DWORD code = 0; code < 256; ++code) {
                std::vector<uint32_t> expected = randomPixels(canvas, random), pixels = randomPixels(source, random);
                canvas.setPixels(expected);
                source.setPixels(pixels);
                RandomBrush brush(canvas, random, brushes);
                RandomClip clip(canvas, random, between(random, 1, 12));
                int x = between(random, -5, width), y = between(random, -5, height);
                int w = between(random, 1, width), h = between(random, 1, height);
                int sx = between(random, -5, 30), sy = between(random, -3, 5);
                bool usesSource = (code >> 2 & 0x33) != (code & 0x33);
                for (int i = 0; i < h; ++i)
                    for (int k = 0; k < w; ++k) {
                        int px = x + k, py = y + i, qx = sx + k, qy = sy + i;
                        bool isThere = px >= 0 && px < width && py >= 0 && py < height && clip.contains(px, py);
                        bool hasSource = qx >= 0 && qx < source.width() && qy >= 0 && qy < source.height();
                        if (!isThere || (usesSource && !hasSource))
                            continue;
                        uint32_t &pixel = expected[static_cast<size_t>(py * width + px)];
                        uint32_t from = usesSource ? pixels[static_cast<size_t>(qy * source.width() + qx)] : 0;
                        pixel = evaluatedBits(code << 16, brush.at(px, py), from, pixel, allBits(format));
                    }
                ASSERT_TRUE(BitBlt(canvas.dc, x, y, w, h, source.dc, sx, sy, code << 16));
                ASSERT_EQ(canvas.pixels(), expected) << "code " << code << " at " << x << "," << y << " from " << sx
                                                     << "," << sy << " size " << w << "," << h;
            }
        },
        trial.seeds);
}

inline void checkMovesOverItself(const std::vector<CanvasFormat> &formats, Trial size = usual)
{
    const int width = size.width, height = size.height;
    forFormats(
        formats,
        [=](const CanvasFormat &format, std::mt19937 &random) {
            Canvas canvas(width, height, format);
            for (DWORD rop : {SRCCOPY, SRCINVERT, NOTSRCCOPY, SRCAND})
                for (int trial = 0; trial < 40; ++trial) {
                    std::vector<uint32_t> before = randomPixels(canvas, random), expected = before;
                    canvas.setPixels(before);
                    RandomClip clip(canvas, random, trial % 2 ? between(random, 5, 30) : 600);
                    int x = between(random, -3, 12), y = between(random, -3, 6);
                    int sx = between(random, -3, 12), sy = trial % 3 ? between(random, -3, 6) : y;
                    for (int i = 0; i < height; ++i)
                        for (int k = 0; k < width; ++k) {
                            int px = x + k, py = y + i, qx = sx + k, qy = sy + i;
                            if (px < 0 || px >= width || py < 0 || py >= height || qx < 0 || qx >= width || qy < 0
                                || qy >= height || !clip.contains(px, py))
                                continue;
                            auto at = static_cast<size_t>(py * width + px);
                            expected[at] = evaluatedBits(rop, 0, before[static_cast<size_t>(qy * width + qx)],
                                                         before[at], allBits(format));
                        }
                    ASSERT_TRUE(BitBlt(canvas.dc, x, y, width, height, canvas.dc, sx, sy, rop));
                    ASSERT_EQ(canvas.pixels(), expected)
                        << std::hex << rop << std::dec << " from " << sx << "," << sy << " to " << x << "," << y;
                }
        },
        size.seeds);
}

// What a source pixel becomes on the way to another format.
inline uint32_t convertedPixel(const CanvasFormat &to, const CanvasFormat &from, uint32_t pixel, COLORREF text,
                               COLORREF background, COLORREF sourceBackground)
{
    bool isSame = to.depth == from.depth && std::equal(to.masks, to.masks + 3, from.masks);
    if (isSame && to.isMonochromeBitmap == from.isMonochromeBitmap)
        return pixel;
    if (from.isMonochromeBitmap)
        return nearestPixel(to, pixel ? background : text);
    if (to.isMonochromeBitmap)
        return pixel == nearestPixel(from, sourceBackground);
    return nearestPixel(to, colorOfPixel(from, pixel));
}

inline void checkConversions(const CanvasFormat &from, const std::vector<CanvasFormat> &formats, Trial trial = usual)
{
    const int width = trial.width, height = trial.height;
    forFormats(
        formats,
        [=, &from](const CanvasFormat &to, std::mt19937 &random) {
            SCOPED_TRACE("from " + nameOf(from));
            Canvas source(width, height, from), canvas(width, height, to);
            for (DWORD rop : {SRCCOPY, SRCINVERT}) {
                std::vector<uint32_t> pixels = randomPixels(source, random), expected = randomPixels(canvas, random);
                // Bits that mean nothing might keep a pixel from being the background.
                if (from.depth > 8)
                    for (uint32_t &pixel : pixels)
                        pixel = nearestPixel(from, colorOfPixel(from, pixel));
                uint32_t backgroundPixel = pixels[17];
                std::fill_n(pixels.begin() + 40, 20, backgroundPixel);
                COLORREF text = random() & 0xffffff, background = random() & 0xffffff;
                COLORREF sourceBackground = colorOfPixel(from, backgroundPixel);
                SetTextColor(canvas.dc, text);
                SetBkColor(canvas.dc, background);
                SetBkColor(source.dc, sourceBackground);
                source.setPixels(pixels);
                canvas.setPixels(expected);
                RandomClip clip(canvas, random, between(random, 1, 30));
                int sx = between(random, 0, 9), sy = between(random, 0, std::min(3, height - 1));
                for (int y = 0; y < height - sy; ++y)
                    for (int x = 0; x < width - sx; ++x) {
                        if (!clip.contains(x, y))
                            continue;
                        uint32_t &pixel = expected[static_cast<size_t>(y * width + x)];
                        uint32_t converted =
                            convertedPixel(to, from, pixels[static_cast<size_t>((y + sy) * width + x + sx)], text,
                                           background, sourceBackground);
                        pixel = evaluatedBits(rop, 0, converted, pixel, allBits(to));
                    }
                ASSERT_TRUE(BitBlt(canvas.dc, 0, 0, width, height, source.dc, sx, sy, rop));
                ASSERT_EQ(canvas.pixels(), expected) << std::hex << rop << std::dec << " from " << sx << "," << sy;
            }
        },
        trial.seeds);
}

} // namespace raster
