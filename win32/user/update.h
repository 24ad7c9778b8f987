// Update regions: what of a window is to be painted.
#pragma once

#include "window.h"

namespace win32::user {

struct MessageFilter;

// Adds to, or takes from, the update regions of a window and, as RDW_ flags ask, its children. The region is in
// screen coordinates; null means the whole window. Does not paint.
void changeUpdate(Window &window, const pixman_region32_t *region, UINT redrawFlags);

// Draws the desktop's colour on an area of the screen.
void fillWithDesktop(const gdi::RegionValue &area);

// After a change of position, order or visibility: what lay under `exposed` (screen coordinates) and shows now is
// to be painted, in all windows below the place, with their frames.
void exposeArea(Window &parent, const pixman_region32_t &exposed);

// The next window of the thread that needs WM_PAINT and that the filter takes; null when there is none.
Window *nextToPaint(const MessageQueue &queue, const MessageFilter &filter);
// RDW_INTERNALPAINT: a WM_PAINT although nothing is to be painted.
void setInternalPaint(Window &window, bool isWanted);
// Nothing of the window is to be painted any more.
void forgetUpdate(Window &window);

// The frame, the context on the update region, the background: all of BeginPaint. The update region is empty then.
bool beginPaint(HWND window, PAINTSTRUCT &paint);

// Sends WM_NCPAINT and WM_ERASEBKGND where they are due, then WM_PAINT as long as the update region is not empty:
// what UpdateWindow and RDW_UPDATENOW do. The window may be gone afterwards.
void paintNow(HWND window, bool withChildren);
// WM_NCPAINT and WM_ERASEBKGND only: RDW_ERASENOW and BeginPaint.
void eraseNow(HWND window, bool withChildren);

} // namespace win32::user
