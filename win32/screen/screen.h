// The virtual screen: the one surface that stands for the display, and its monitors.
#pragma once

#include "gdi/surface.h"

#include <string>
#include <vector>

namespace win32::screen {

struct Monitor {
    gdi::Box bounds;
    std::string name;
};

// WIN32_SCREEN gives the size and depth, "1024x768x32" when it is not set; further monitors follow behind
// commas and stand to the right of the first: "1024x768x32,800x600".
const gdi::Surface &surface();
const std::vector<Monitor> &monitors();

// The colours that an 8-bit screen shows.
gdi::ColorTable &systemColors();

// The screen anew in another mode, for tests: everything on it is lost. False for what cannot be read.
bool setMode(const std::string &mode);

// The sound of an error, where something can make it.
void beep();

// Whether the right button of the mouse is the first.
bool areButtonsSwapped();
void swapButtons(bool isSwapped);

// What was drawn since the last call, and nothing any more.
gdi::Box takeDamage();

} // namespace win32::screen
