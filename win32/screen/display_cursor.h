// A cursor of the program as one of the desktop.
#pragma once

#include <windows.h>

#include <cstdint>
#include <vector>

namespace win32::screen {

struct CursorPicture {
    uint32_t serial = 0; // tells pictures apart; 0: no cursor shows
    int width = 0;
    int height = 0;
    int hotX = 0;
    int hotY = 0;
    std::vector<uint32_t> pixels{}; // 0xAARRGGBB
};

// That of the picture which shows now.
uint32_t shownCursorSerial();
// Milliseconds until an animated cursor shows another picture; -1: it is none.
int shownCursorStays();
// Its picture, enlarged. Desktops have no pixels that invert the screen: those are black with a light edge.
CursorPicture shownCursorPicture(int factor);

} // namespace win32::screen
