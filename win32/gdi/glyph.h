// A glyph ready to be drawn, and the picture that it is made from.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace win32::gdi {

// Pixels of one row, to the right of x; relative to the glyph's origin on the baseline, y downwards.
struct GlyphRun {
    int16_t y;
    int16_t x;
    int16_t length;
};

struct Glyph {
    int advance = 0;
    // The box of what is drawn, relative to the origin on the baseline; y downwards.
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;
    std::vector<GlyphRun> runs;    // of a one-bit glyph, from top to bottom
    std::vector<uint8_t> coverage; // of a smooth glyph, row by row: 0 to 255

    bool isSmooth() const { return !coverage.empty(); }
};

// A glyph as its face gives it.
struct GlyphImage {
    int advance = 0;
    int left = 0; // of the picture's first column and row, relative to the origin
    int top = 0;
    int width = 0;
    int height = 0;
    bool isSmooth = false;
    std::vector<uint8_t> pixels; // 0 or 1, or of a smooth glyph 0 to 255

    uint8_t *row(int y) { return pixels.data() + static_cast<size_t>(y) * static_cast<size_t>(width); }
    const uint8_t *row(int y) const { return pixels.data() + static_cast<size_t>(y) * static_cast<size_t>(width); }
    void resize(int newWidth, int newHeight)
    {
        width = newWidth;
        height = newHeight;
        pixels.assign(static_cast<size_t>(width) * static_cast<size_t>(height), 0);
    }
};

// The edge of a glyph: closed figures of Bézier curves, in pixels from the origin, y downwards. A figure has its
// start and three points for each curve.
struct GlyphOutline {
    struct Point {
        double x;
        double y;
    };
    std::vector<Point> points;
    std::vector<size_t> starts; // of the figures

    void begin(Point point)
    {
        starts.push_back(points.size());
        points.push_back(point);
    }
    void curveTo(Point control1, Point control2, Point end) { points.insert(points.end(), {control1, control2, end}); }
    void lineTo(Point end)
    {
        Point start = points.back();
        curveTo(start, end, end);
    }
    void conicTo(Point control, Point end)
    {
        auto towards = [control](Point from) {
            return Point{from.x + (control.x - from.x) * 2 / 3, from.y + (control.y - from.y) * 2 / 3};
        };
        curveTo(towards(points.back()), towards(end), end);
    }
};

// Pictures thickened to the right and slanted, for families that lack a bold or an italic face. The slant keeps
// the baseline where it is.
void makeBold(GlyphImage &image, int pixels);
void makeItalic(GlyphImage &image);

// Throws bad_alloc.
Glyph glyphOf(const GlyphImage &image);

} // namespace win32::gdi
