// Colours as hue, saturation and luminosity, each from 0 to 240 as the colour dialog counts them.
#pragma once

#include <windows.h>

namespace win32::dialogs {

struct Hsl {
    int hue, saturation, luminosity;

    static constexpr int most = 240;
};

COLORREF toColor(const Hsl &hsl);
// The hue of a grey is 160, as the dialog has it.
Hsl toHsl(COLORREF color);

} // namespace win32::dialogs
