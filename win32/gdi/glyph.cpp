#include "glyph.h"

#include <algorithm>

namespace win32::gdi {
namespace {

constexpr int slant = 4; // rows for one pixel to the right

int floorDivided(int value, int by)
{
    return value >= 0 ? value / by : -((by - 1 - value) / by);
}

void addRuns(const uint8_t *row, int width, int x, int y, std::vector<GlyphRun> &runs)
{
    for (int from = 0; from < width;) {
        if (row[from] == 0) {
            ++from;
            continue;
        }
        int to = from;
        while (to < width && row[to] != 0)
            ++to;
        runs.push_back({static_cast<int16_t>(y), static_cast<int16_t>(x + from), static_cast<int16_t>(to - from)});
        from = to;
    }
}

// The part of a picture that is not empty.
struct Extents {
    int left, top, right, bottom;
};

Extents extentsOf(const GlyphImage &image)
{
    Extents found{image.width, image.height, 0, 0};
    for (int y = 0; y < image.height; ++y) {
        const uint8_t *row = image.row(y);
        for (int x = 0; x < image.width; ++x) {
            if (row[x] == 0)
                continue;
            found = {std::min(found.left, x), std::min(found.top, y), std::max(found.right, x + 1), y + 1};
        }
    }
    return found.right ? found : Extents{0, 0, 0, 0};
}

} // namespace

void makeBold(GlyphImage &image, int pixels)
{
    GlyphImage bold = image;
    bold.resize(image.width + pixels, image.height);
    for (int y = 0; y < image.height; ++y) {
        for (int x = 0; x < image.width; ++x) {
            for (int shift = 0; shift <= pixels; ++shift) {
                uint8_t &pixel = bold.row(y)[x + shift];
                pixel = std::max(pixel, image.row(y)[x]);
            }
        }
    }
    bold.advance += pixels;
    image = std::move(bold);
}

void makeItalic(GlyphImage &image)
{
    if (image.height == 0)
        return;
    auto shiftOf = [&](int y) { return floorDivided(-(image.top + y), slant); };
    int least = shiftOf(image.height - 1);
    GlyphImage italic = image;
    italic.resize(image.width + shiftOf(0) - least, image.height);
    italic.left += least;
    for (int y = 0; y < image.height; ++y)
        std::copy_n(image.row(y), image.width, italic.row(y) + (shiftOf(y) - least));
    image = std::move(italic);
}

Glyph glyphOf(const GlyphImage &image)
{
    Glyph glyph;
    glyph.advance = image.advance;
    Extents part = extentsOf(image);
    glyph.left = image.left + part.left;
    glyph.top = image.top + part.top;
    glyph.right = image.left + part.right;
    glyph.bottom = image.top + part.bottom;
    int width = part.right - part.left;
    for (int y = part.top; y < part.bottom; ++y) {
        const uint8_t *row = image.row(y) + part.left;
        if (image.isSmooth)
            glyph.coverage.insert(glyph.coverage.end(), row, row + width);
        else
            addRuns(row, width, glyph.left, image.top + y, glyph.runs);
    }
    return glyph;
}

} // namespace win32::gdi
