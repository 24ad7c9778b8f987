// The frame around a client area: how thick it is, what lies in it, how it looks.
#pragma once

#include "window.h"

namespace win32::user {

// How much a frame takes on each side of the client area, scroll bars aside. A menu bar counts with one row.
RECT frameMargins(DWORD style, DWORD extendedStyle, bool hasMenu);

// A menu that the program has ended is none.
bool hasMenuBar(const Window &window);
// The space that the bar of a window has when the window is so wide, in coordinates that begin at its corner.
RECT menuBarSpace(const Window &window, int width);

// The parts of a window's frame, in coordinates that begin at the window's corner. Empty where there is none.
struct FrameLayout {
    RECT window;
    RECT inner; // within the edges
    RECT caption;
    RECT icon;
    RECT minimizeButton;
    RECT maximizeButton;
    RECT closeButton;
    RECT menuBar;
    RECT horizontalScrollBar;
    RECT verticalScrollBar;
    RECT corner; // where both scroll bars end
    int edge;    // how thick the border is that the mouse can take hold of
};
FrameLayout layoutOf(const Window &window);

// The default answers to WM_NCCALCSIZE (a rectangle that becomes the client area's), WM_NCHITTEST and WM_NCPAINT.
void shrinkToClient(const Window &window, RECT &rect);
int defaultHitTest(HWND window, POINT screenPoint);
void paintFrame(HWND window, HRGN area);

// What a press of the mouse in the frame starts: moving, sizing, a button, a scroll bar.
void pressInFrame(HWND window, int hit, POINT screenPoint, bool isDouble);

// Moving and sizing with the mouse or the keys, until the button goes up, or Return or Escape comes.
void moveOrSize(HWND window, UINT command, POINT screenPoint);

} // namespace win32::user
