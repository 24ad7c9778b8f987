// The windows of the program's thread, as a person sees them.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace replay {

// On the desktop, visible or not, from the topmost to the lowest.
std::vector<HWND> windowsOnDesktop();
// The visible ones on the desktop and those with a caption in them.
std::vector<HWND> shownWindows();
bool hasCaption(HWND window);
// Without asking the window. In UTF-8.
std::string titleOf(HWND window);
// The active window, or the topmost; null for none.
HWND frontOnDesktop();
// What lies on top of the visible windows with captions in a window; null for none.
HWND topmostWithTitle(HWND parent);

} // namespace replay
