// A cursor of the program as one of the desktop.
#pragma once

#include <windows.h>

#include <cstdint>
#include <vector>

namespace win32::screen {

struct CursorPicture {
    HCURSOR handle = nullptr; // null: no cursor shows
    int width = 0;
    int height = 0;
    int hotX = 0;
    int hotY = 0;
    std::vector<uint32_t> pixels{}; // 0xAARRGGBB
};

// The cursor that shows now.
HCURSOR shownCursorHandle();
// Its picture, enlarged. Desktops have no pixels that invert the screen: those are black with a light edge.
CursorPicture shownCursorPicture(int factor);

} // namespace win32::screen
