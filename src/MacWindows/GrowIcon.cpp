// The size box.
#include "MacWindows_internal.h"
#include "Quickdraw/GdiGuard_internal.h"

#include <mtbx/MTBXGdi.h>

namespace {

void copyIcon(HDC icon, int size, GrafPort &port)
{
    RECT square = {0, 0, size, size};
    DrawFrameControl(icon, &square, DFC_SCROLL, DFCS_SCROLLSIZEGRIP);
    BitBlt(contextOf(port), port.portRect.right - size, port.portRect.bottom - size, size, size, icon, 0, 0, SRCCOPY);
}

// A port that was not clipped is as wide as coordinates go. For a bitmap that no system makes the host is not
// asked to purge.
bool isPossible(int size)
{
    constexpr int largest = 0x4000;
    return size > 0 && size <= largest;
}

} // namespace

void DrawGrowIcon(WindowPtr)
{
    HDC context = currentContext();
    if (!context)
        return;
    GrafPort &port = *qd.thePort;
    Rect clip;
    GetRegionBounds(port.clipRgn, &clip);
    int size = clip.right - clip.left;
    if (!isPossible(size))
        return;
    HDC memory = MTBX_CreateCompatibleDC(context);
    HBITMAP bitmap = memory ? MTBX_CreateCompatibleBitmap(context, size, size) : nullptr;
    if (bitmap) {
        HGDIOBJ former = SelectObject(memory, bitmap);
        copyIcon(memory, size, port);
        SelectObject(memory, former);
        DeleteObject(bitmap);
    }
    if (memory)
        DeleteDC(memory);
}
