#include "color_model.h"

#include <algorithm>
#include <cmath>

namespace win32::dialogs {
namespace {

double channel(double low, double high, double hue)
{
    hue -= std::floor(hue);
    if (hue < 1.0 / 6)
        return low + (high - low) * hue * 6;
    if (hue < 1.0 / 2)
        return high;
    if (hue < 2.0 / 3)
        return low + (high - low) * (2.0 / 3 - hue) * 6;
    return low;
}

int scaled(double part, int most)
{
    return static_cast<int>(std::lround(part * most));
}

} // namespace

COLORREF toColor(const Hsl &hsl)
{
    double hue = hsl.hue / double{Hsl::most}, saturation = hsl.saturation / double{Hsl::most};
    double luminosity = hsl.luminosity / double{Hsl::most};
    double high = luminosity <= 0.5 ? luminosity * (1 + saturation) : luminosity + saturation - luminosity * saturation;
    double low = 2 * luminosity - high;
    auto byte = [&](double place) { return scaled(channel(low, high, place), 255); };
    return RGB(byte(hue + 1.0 / 3), byte(hue), byte(hue - 1.0 / 3));
}

Hsl toHsl(COLORREF color)
{
    constexpr int hueOfGrey = 160;
    double red = GetRValue(color) / 255.0, green = GetGValue(color) / 255.0, blue = GetBValue(color) / 255.0;
    double high = std::max({red, green, blue}), low = std::min({red, green, blue}), span = high - low;
    double luminosity = (high + low) / 2;
    if (span == 0)
        return {hueOfGrey, 0, scaled(luminosity, Hsl::most)};
    double saturation = span / (luminosity <= 0.5 ? high + low : 2 - high - low);
    double hue = high == red ? (green - blue) / span : high == green ? 2 + (blue - red) / span : 4 + (red - green) / span;
    return {scaled(hue < 0 ? hue / 6 + 1 : hue / 6, Hsl::most) % Hsl::most, scaled(saturation, Hsl::most),
            scaled(luminosity, Hsl::most)};
}

} // namespace win32::dialogs
