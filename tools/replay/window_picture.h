// A picture of what the program shows on a part of the screen: its own windows only, on a desktop of one colour, so
// that nothing else on a person's screen gets into it.
#pragma once

#include <windows.h>

#include <cstdint>
#include <vector>

namespace replay {

class WindowPicture {
public:
    // Takes it. Black where there is no memory.
    explicit WindowPicture(const RECT &screenRect);
    ~WindowPicture();
    WindowPicture(const WindowPicture &) = delete;
    WindowPicture &operator=(const WindowPicture &) = delete;

    // place: of its hot spot, on the screen.
    void drawCursor(POINT place);

    COLORREF colorAt(int x, int y) const;
    // Three a pixel, from the top row down.
    std::vector<uint8_t> rgbBytes() const;

private:
    int width() const { return rect_.right - rect_.left; }
    int height() const { return rect_.bottom - rect_.top; }
    void copyWindow(HWND window);

    RECT rect_;
    HDC context_ = nullptr;
    HBITMAP bitmap_ = nullptr;
    HGDIOBJ oldBitmap_ = nullptr;
    uint32_t *pixels_ = nullptr;
};

} // namespace replay
