#include "window_picture.h"

#include "program_windows.h"

namespace replay {

WindowPicture::WindowPicture(const RECT &screenRect) : rect_(screenRect)
{
    BITMAPINFO info{};
    info.bmiHeader = {sizeof info.bmiHeader, width(), -height(), 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    void *bits = nullptr;
    context_ = CreateCompatibleDC(nullptr);
    bitmap_ = CreateDIBSection(context_, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    pixels_ = static_cast<uint32_t *>(bits);
    oldBitmap_ = SelectObject(context_, bitmap_);
    RECT all{0, 0, width(), height()};
    FillRect(context_, &all, GetSysColorBrush(COLOR_BACKGROUND));
    std::vector<HWND> windows = windowsOnDesktop();
    for (auto window = windows.rbegin(); window != windows.rend(); ++window) {
        if (IsWindowVisible(*window))
            copyWindow(*window);
    }
    GdiFlush();
}

WindowPicture::~WindowPicture()
{
    SelectObject(context_, oldBitmap_);
    DeleteObject(bitmap_);
    DeleteDC(context_);
}

// The children's pixels are in the window's own.
void WindowPicture::copyWindow(HWND window)
{
    RECT rect;
    GetWindowRect(window, &rect);
    HDC source = GetDCEx(window, nullptr, DCX_WINDOW | DCX_CACHE);
    BitBlt(context_, rect.left - rect_.left, rect.top - rect_.top, rect.right - rect.left, rect.bottom - rect.top,
           source, 0, 0, SRCCOPY);
    ReleaseDC(window, source);
}

void WindowPicture::drawCursor(POINT place)
{
    CURSORINFO cursor{};
    cursor.cbSize = sizeof cursor;
    ICONINFO icon{};
    if (!GetCursorInfo(&cursor) || !(cursor.flags & CURSOR_SHOWING) || !GetIconInfo(cursor.hCursor, &icon))
        return;
    DrawIconEx(context_, place.x - static_cast<int>(icon.xHotspot) - rect_.left,
               place.y - static_cast<int>(icon.yHotspot) - rect_.top, cursor.hCursor, 0, 0, 0, nullptr, DI_NORMAL);
    DeleteObject(icon.hbmMask);
    DeleteObject(icon.hbmColor);
    GdiFlush();
}

COLORREF WindowPicture::colorAt(int x, int y) const
{
    uint32_t pixel = pixels_ ? pixels_[y * width() + x] : 0;
    return RGB(pixel >> 16 & 0xff, pixel >> 8 & 0xff, pixel & 0xff);
}

std::vector<uint8_t> WindowPicture::rgbBytes() const
{
    std::vector<uint8_t> bytes;
    bytes.reserve(static_cast<size_t>(width()) * static_cast<size_t>(height()) * 3);
    for (int y = 0; y < height(); ++y) {
        for (int x = 0; x < width(); ++x) {
            COLORREF color = colorAt(x, y);
            bytes.insert(bytes.end(), {GetRValue(color), GetGValue(color), GetBValue(color)});
        }
    }
    return bytes;
}

} // namespace replay
