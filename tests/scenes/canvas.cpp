#include "scenes.h"

#include <cstring>

namespace scenes {
namespace {

size_t strideOf(int width, int depth)
{
    return static_cast<size_t>((width * depth + 31) / 32 * 4);
}

struct DibDescription {
    BITMAPINFOHEADER header;
    RGBQUAD colors[256];
};

} // namespace

// Black and white; the sixteen colours of old displays; a cube of six steps a side with greys behind it.
RGBQUAD paletteColor(int depth, int index)
{
    auto gray = [](int value) {
        auto level = static_cast<BYTE>(value);
        return RGBQUAD{level, level, level, 0};
    };
    if (depth == 1)
        return gray(index * 255);
    if (depth == 4) {
        auto level = static_cast<BYTE>(index & 8 ? 255 : 128);
        auto channel = [&](int bit) { return index & bit ? level : BYTE{0}; };
        return index == 8 ? gray(128) : index == 7 ? gray(192) : RGBQUAD{channel(4), channel(2), channel(1), 0};
    }
    if (index >= 216)
        return gray((index - 216) * 6 + 3);
    auto step = [](int value) { return static_cast<BYTE>(value * 51); };
    return {step(index % 6), step(index / 6 % 6), step(index / 36), 0};
}

std::vector<int> sourceDepths(const Canvas &canvas)
{
    if (canvas.depth() == 8)
        return {1, 4, 8};
    return {1, 4, 8, 16, 24, 32};
}

Canvas::Canvas(int depth, int width, int height) : depth_(depth), width_(width), height_(height)
{
    DibDescription description{};
    description.header.biSize = sizeof(BITMAPINFOHEADER);
    description.header.biWidth = width;
    description.header.biHeight = -height;
    description.header.biPlanes = 1;
    description.header.biBitCount = static_cast<WORD>(depth);
    for (int i = 0; depth <= 8 && i < 1 << depth; ++i)
        description.colors[i] = paletteColor(depth, i);
    dc_ = CreateCompatibleDC(nullptr);
    void *bits = nullptr;
    bitmap_ =
        CreateDIBSection(dc_, reinterpret_cast<const BITMAPINFO *>(&description), DIB_RGB_COLORS, &bits, nullptr, 0);
    bits_ = static_cast<uint8_t *>(bits);
    oldBitmap_ = SelectObject(dc_, bitmap_);
    memset(bits_, depth == 1 ? 0x33 : 0x55, strideOf(width, depth) * static_cast<size_t>(height));
}

Canvas::~Canvas()
{
    SelectObject(dc_, oldBitmap_);
    SelectObject(dc_, GetStockObject(BLACK_PEN));
    SelectObject(dc_, GetStockObject(WHITE_BRUSH));
    for (HGDIOBJ object : objects_)
        DeleteObject(object);
    DeleteDC(dc_);
    DeleteObject(bitmap_);
}

std::vector<uint8_t> Canvas::bytes() const
{
    GdiFlush();
    return {bits_, bits_ + strideOf(width_, depth_) * static_cast<size_t>(height_)};
}

void Canvas::use(HGDIOBJ object)
{
    objects_.push_back(object);
    SelectObject(dc_, object);
}

void Canvas::geometricPen(DWORD style, int width, COLORREF color)
{
    LOGBRUSH solid{BS_SOLID, color, 0};
    use(ExtCreatePen(PS_GEOMETRIC | style, static_cast<DWORD>(width), &solid, 0, nullptr));
}

void Canvas::line(int fromX, int fromY, int toX, int toY)
{
    MoveToEx(dc_, fromX, fromY, nullptr);
    LineTo(dc_, toX, toY);
}

void Canvas::clear(COLORREF color)
{
    HBRUSH brush = CreateSolidBrush(color);
    HGDIOBJ old = SelectObject(dc_, brush);
    PatBlt(dc_, 0, 0, width_, height_, PATCOPY);
    SelectObject(dc_, old);
    DeleteObject(brush);
}

} // namespace scenes
