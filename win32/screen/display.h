// The display: shows the virtual screen in a window of the user's desktop and brings input from there. It has a thread
// of its own, since what lies below wants all calls for windows and events on one thread and the program's may be busy.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace win32::screen {

// Whether there is to be a display: WIN32_DISPLAY is "none" or "window"; without it a display is wanted where there is
// a desktop. Known from the start, so that nothing is noted for a display that will never be.
bool wantsDisplay();

// Something was drawn, so there is something to show: the first call opens the display.
void wakeDisplay();
// Another cursor shows, or none.
void cursorChanged();
// The program moved the mouse: the pointer of the desktop follows.
void pointerWasMoved(POINT screenPoint);

// Files that were dropped on the screen, by their Win32 paths. Called on the display's thread.
using FileDropReceiver = void (*)(POINT screenPoint, const std::vector<std::string> &paths);
void setFileDropReceiver(FileDropReceiver receiver);
FileDropReceiver fileDropReceiver();

} // namespace win32::screen
