// The virtual screen: the one surface that stands for the display, and its monitors.
#pragma once

#include "damage.h"
#include "gdi/surface.h"

#include <string>
#include <vector>

namespace win32::screen {

struct Monitor {
    gdi::Box bounds;
    std::string name;
};

struct Size {
    int width;
    int height;
};

// WIN32_SCREEN gives the size and depth, or the first step of a replay, "1024x768x32" when there is neither; further
// monitors follow behind commas and stand to the right of the first: "1024x768x32,800x600".
const gdi::Surface &surface();
const std::vector<Monitor> &monitors();

// The colours that an 8-bit screen shows.
gdi::ColorTable &systemColors();

// The screen anew in another mode, for tests: everything on it is lost. False for what cannot be read.
bool setMode(const std::string &mode);

// For other threads than those that draw: they go through a lock. The pixels of a screen stay readable when it gets
// another mode.
Size screenSize();
std::string modeText();
bool isScreenMode(const std::string &text); // that it has now
gdi::Surface surfaceNow();

// The sound of an error, where something can make it.
void beep();

// Whether the right button of the mouse is the first.
bool areButtonsSwapped();
void swapButtons(bool isSwapped);

// Boxes that cover what was drawn since the last call, cleared by it. Nothing is noted while no display is wanted.
DamagedBoxes takeDamage();

} // namespace win32::screen
