#include "display_layout.h"

#include <algorithm>
#include <cmath>

namespace win32::screen {

DisplayLayout DisplayLayout::of(int screenWidth, int screenHeight, int windowWidth, int windowHeight)
{
    DisplayLayout layout;
    layout.screenWidth = screenWidth;
    layout.screenHeight = screenHeight;
    layout.factor = std::min(windowWidth / screenWidth, windowHeight / screenHeight);
    int width = screenWidth * layout.factor, height = screenHeight * layout.factor;
    if (layout.factor == 0) {
        bool isBoundByWidth = int64_t{windowWidth} * screenHeight < int64_t{windowHeight} * screenWidth;
        width = isBoundByWidth ? windowWidth : static_cast<int>(int64_t{windowHeight} * screenWidth / screenHeight);
        height = isBoundByWidth ? static_cast<int>(int64_t{windowWidth} * screenHeight / screenWidth) : windowHeight;
        width = std::max(width, 1);
        height = std::max(height, 1);
    }
    int left = (windowWidth - width) / 2, top = (windowHeight - height) / 2;
    layout.shown = {left, top, left + width, top + height};
    return layout;
}

POINT DisplayLayout::toScreen(int x, int y) const
{
    int64_t right = int64_t{x - shown.x1} * screenWidth / (shown.x2 - shown.x1);
    int64_t down = int64_t{y - shown.y1} * screenHeight / (shown.y2 - shown.y1);
    return {static_cast<LONG>(std::clamp<int64_t>(right, 0, screenWidth - 1)),
            static_cast<LONG>(std::clamp<int64_t>(down, 0, screenHeight - 1))};
}

// The middle of what shows the pixel.
POINT DisplayLayout::toWindow(POINT point) const
{
    auto middle = [](int64_t place, int64_t size, int64_t shownSize) {
        return (place * 2 + 1) * shownSize / (size * 2);
    };
    return {static_cast<LONG>(shown.x1 + middle(point.x, screenWidth, shown.x2 - shown.x1)),
            static_cast<LONG>(shown.y1 + middle(point.y, screenHeight, shown.y2 - shown.y1))};
}

gdi::Box DisplayLayout::toWindow(const gdi::Box &box) const
{
    if (factor == 0)
        return shown; // each pixel is made of several, also beyond the box
    return {shown.x1 + box.x1 * factor, shown.y1 + box.y1 * factor, shown.x1 + box.x2 * factor,
            shown.y1 + box.y2 * factor};
}

int firstFactor(int screenWidth, int screenHeight, int roomWidth, int roomHeight, float dotsPerInch)
{
    constexpr float usualDensity = 96;
    auto wanted = static_cast<int>(std::lround(dotsPerInch / usualDensity));
    return std::max(1, std::min({wanted, roomWidth / screenWidth, roomHeight / screenHeight}));
}

} // namespace win32::screen
