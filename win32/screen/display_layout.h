// Where the virtual screen lies in the display's window.
#pragma once

#include "gdi/box.h"

#include <windows.h>

namespace win32::screen {

// Enlarged by whole factors, so that pixels stay square and sharp; made smaller, smoothly, only where it does not fit.
struct DisplayLayout {
    int screenWidth = 1;
    int screenHeight = 1;
    gdi::Box shown{0, 0, 1, 1}; // in the window; never empty
    int factor = 1;             // 0: made smaller

    static DisplayLayout of(int screenWidth, int screenHeight, int windowWidth, int windowHeight);

    // The pixel of the screen under one of the window, the nearest one for those beside it.
    POINT toScreen(int x, int y) const;
    POINT toWindow(POINT screenPoint) const;
    // The part of the window that shows a part of the screen.
    gdi::Box toWindow(const gdi::Box &box) const;
};

// How many times larger a new window is to be than the screen: by the density of the desktop (96 dots an inch is 1),
// as far as there is room.
int firstFactor(int screenWidth, int screenHeight, int roomWidth, int roomHeight, float dotsPerInch);

} // namespace win32::screen
