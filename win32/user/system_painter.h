// Draws parts of the desktop in system colours, in pixels of the surface.
#pragma once

#include "system_colors.h"

#include "gdi/drawing.h"

namespace win32::user {

class SystemPainter {
public:
    explicit SystemPainter(HDC context) : drawing_(context) {}

    explicit operator bool() const { return static_cast<bool>(drawing_); }

    // Farther out than any screen reaches the sides of frames do not count, so that sizes can be reckoned with.
    gdi::Box boxOf(const RECT &rect) const
    {
        auto cut = [](int side) { return std::clamp(side, -farthestSide, farthestSide); };
        gdi::Box box = drawing_.dc().toSurface(rect.left, rect.top, rect.right, rect.bottom);
        return {cut(box.x1), cut(box.y1), cut(box.x2), cut(box.y2)};
    }
    gdi::Box visibleBox() const { return drawing_.clip().extents; }

    void fill(const gdi::Box &box, int color) { fill(box, paintOf(color)); }
    void fill(std::span<const gdi::Box> boxes, int color) { fill(boxes, paintOf(color)); }
    void fillPlain(const gdi::Box &box, COLORREF color) { fill(box, plainPaint(color)); }
    void fillPlain(std::span<const gdi::Box> boxes, COLORREF color) { fill(boxes, plainPaint(color)); }

    // Pixels of two system colours in turn.
    void fillMixed(const gdi::Box &box, int first, int second);

private:
    static constexpr int farthestSide = 1 << 17;

    gdi::Paint paintOf(int color) { return drawing_.dc().paintOf(*systemBrush(color), scratch_); }
    gdi::Paint plainPaint(COLORREF color) const { return gdi::solidPaint(gdi::pixelFor(drawing_.surface(), color)); }
    void fill(const gdi::Box &box, const gdi::Paint &paint)
    {
        if (!gdi::isEmpty(box))
            drawing_.fill(box, paint, R2_COPYPEN);
    }
    void fill(std::span<const gdi::Box> boxes, const gdi::Paint &paint) { drawing_.fill(boxes, paint, R2_COPYPEN); }

    gdi::Drawing drawing_;
    gdi::Tile scratch_;
};

inline void SystemPainter::fillMixed(const gdi::Box &box, int first, int second)
{
    uint32_t firstPixel = gdi::pixelFor(drawing_.surface(), GetSysColor(first));
    uint32_t secondPixel = gdi::pixelFor(drawing_.surface(), GetSysColor(second));
    gdi::Tile tile{2, 2, {secondPixel, firstPixel, firstPixel, secondPixel}, {}};
    fill(box, gdi::Paint{gdi::Paint::Kind::Tiled, 0, &tile, 0, 0});
}

} // namespace win32::user
