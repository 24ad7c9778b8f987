// Drawing scenes: small programs on a canvas, run on every platform and at every depth, whose pixels are
// compared afterwards.
#pragma once

#include <windows.h>

#include <cstdint>
#include <vector>

namespace scenes {

// How the pixels of two platforms are to agree: Near allows an edge to lie a pixel beside the other's; Own is
// for what the layer does better for a reason that docs/decisions.md gives.
enum class Agreement : int32_t { Exact, Near, Own };

// A DIB section of a depth with a context on it, filled with a pattern of its colours.
class Canvas {
public:
    Canvas(int depth, int width, int height);
    ~Canvas();
    Canvas(const Canvas &) = delete;
    Canvas &operator=(const Canvas &) = delete;

    HDC dc() const { return dc_; }
    int depth() const { return depth_; }
    int width() const { return width_; }
    int height() const { return height_; }
    HBITMAP bitmap() const { return bitmap_; }
    std::vector<uint8_t> bytes() const;

    // Selects an object until the next one of its kind; the canvas deletes it in the end.
    void use(HGDIOBJ object);
    void pen(int style, int width, COLORREF color) { use(CreatePen(style, width, color)); }
    void geometricPen(DWORD style, int width, COLORREF color);
    void brush(COLORREF color) { use(CreateSolidBrush(color)); }
    void noBrush() { SelectObject(dc_, GetStockObject(NULL_BRUSH)); }
    void noPen() { SelectObject(dc_, GetStockObject(NULL_PEN)); }
    void line(int fromX, int fromY, int toX, int toY);
    void clear(COLORREF color);

private:
    int depth_;
    int width_;
    int height_;
    HDC dc_;
    HBITMAP bitmap_;
    HGDIOBJ oldBitmap_;
    uint8_t *bits_ = nullptr;
    std::vector<HGDIOBJ> objects_;
};

struct Scene {
    const char *name;
    Agreement agreement;
    void (*draw)(Canvas &canvas);
};

// The same numbers everywhere.
class Random {
public:
    explicit Random(uint32_t seed) : state_(seed) {}
    int below(int limit)
    {
        state_ = state_ * 1664525u + 1013904223u;
        return static_cast<int>((state_ >> 8) % static_cast<uint32_t>(limit));
    }
    int between(int low, int high) { return low + below(high - low + 1); }
    COLORREF color() { return RGB(below(256), below(256), below(256)); }

private:
    uint32_t state_;
};

// The colours of an indexed canvas.
RGBQUAD paletteColor(int depth, int index);

// The depths from which pixels are brought to a canvas. Colours deeper than 8 bits are left out where the
// nearest of 256 would have to be found: not every Win32 finds it.
std::vector<int> sourceDepths(const Canvas &canvas);

std::vector<Scene> lineScenes();
std::vector<Scene> shapeScenes();
std::vector<Scene> curveScenes();
std::vector<Scene> wideLineScenes();
std::vector<Scene> brushScenes();
std::vector<Scene> regionScenes();
std::vector<Scene> blitScenes();
std::vector<Scene> dibScenes();
std::vector<Scene> mappingScenes();
std::vector<Scene> frameScenes();

} // namespace scenes
