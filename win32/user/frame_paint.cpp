// Paints frames: edges, caption, buttons, scroll bars.
#include "control_text.h"
#include "cursor.h"
#include "frame.h"
#include "gdi/font.h"
#include "kernel/kernel_internal.h"
#include "menu_bar.h"
#include "message_queue.h"
#include "scroll_bar.h"
#include "system_menu.h"

#include <cstring>

namespace win32::user {
namespace {

// All that painting needs of a window, taken under the lock: painting itself calls no program but may be long.
struct Picture {
    FrameLayout layout;
    DWORD style;
    DWORD extendedStyle;
    std::string text;
    HICON icon;
    bool isActive;
    int buttonDown; // hit code of the caption's button that the mouse holds
    RECT clientEdge;
    bool isCloseEnabled;
};

bool takePicture(HWND handle, Picture &picture)
{
    UserLock lock;
    Window *window = findWindowQuietly(handle);
    if (!window || !isShown(*window))
        return false;
    picture = {layoutOf(*window), window->style,          window->extendedStyle, window->text,
               window->smallIcon ? window->smallIcon : window->icon, window->isActiveFrame, window->captionButtonDown, {}, isCloseEnabled(handle)};
    picture.clientEdge = movedBack(window->clientRect, {window->windowRect.left, window->windowRect.top});
    return true;
}

void fill(HDC context, const RECT &rect, int color)
{
    FillRect(context, &rect, GetSysColorBrush(color));
}

// The ring between two rectangles.
void fillRing(HDC context, const RECT &outer, const RECT &inner, int color)
{
    fill(context, {outer.left, outer.top, outer.right, inner.top}, color);
    fill(context, {outer.left, inner.bottom, outer.right, outer.bottom}, color);
    fill(context, {outer.left, inner.top, inner.left, inner.bottom}, color);
    fill(context, {inner.right, inner.top, outer.right, inner.bottom}, color);
}

void paintEdges(HDC context, const Picture &picture)
{
    RECT window = picture.layout.window;
    bool isRaised = (picture.style & (WS_THICKFRAME | WS_DLGFRAME)) || (picture.extendedStyle & WS_EX_DLGMODALFRAME);
    if (isRaised) {
        fillRing(context, window, picture.layout.inner, COLOR_3DFACE);
        DrawEdge(context, &window, EDGE_RAISED, BF_RECT);
    } else if (picture.extendedStyle & WS_EX_STATICEDGE) {
        DrawEdge(context, &window, BDR_SUNKENOUTER, BF_RECT);
    } else if (picture.style & WS_BORDER) {
        FrameRect(context, &window, GetSysColorBrush(COLOR_WINDOWFRAME));
    }
    if ((picture.extendedStyle & WS_EX_CLIENTEDGE) && !(picture.style & WS_MINIMIZE)) {
        RECT edge = picture.layout.inner;
        edge.top = std::max(picture.layout.caption.bottom, edge.top);
        edge.top = std::max(picture.layout.menuBar.bottom, edge.top);
        DrawEdge(context, &edge, EDGE_SUNKEN, BF_RECT);
    }
}

void paintButton(HDC context, const RECT &rect, UINT shape, bool isDown, bool isEnabled)
{
    if (IsRectEmpty(&rect))
        return;
    RECT button = rect;
    DrawFrameControl(context, &button, DFC_CAPTION,
                     shape | (isDown ? UINT{DFCS_PUSHED} : 0u) | (isEnabled ? 0u : UINT{DFCS_INACTIVE}));
}

// The caption's fonts are the system's own and stay.
HFONT captionFont(bool isSmall)
{
    static HFONT fonts[2];
    HFONT &font = fonts[isSmall];
    if (!font) {
        LOGFONTA description{};
        description.lfHeight = isSmall ? -11 : -12;
        description.lfWeight = FW_BOLD;
        strcpy(description.lfFaceName, "Tahoma");
        font = static_cast<HFONT>(gdi::enterStock(new (std::nothrow) gdi::Font(description)));
    }
    return font;
}

void paintTitle(HDC context, const Picture &picture)
{
    const FrameLayout &layout = picture.layout;
    RECT rect = layout.caption;
    rect.left = std::max(rect.left, layout.icon.right) + 3;
    for (const RECT *button : {&layout.closeButton, &layout.maximizeButton, &layout.minimizeButton}) {
        if (!IsRectEmpty(button))
            rect.right = std::min(rect.right, button->left - 2);
    }
    rect.bottom -= 1;
    if (rect.left >= rect.right || picture.text.empty())
        return;
    FontScope font(context, captionFont((picture.extendedStyle & WS_EX_TOOLWINDOW) != 0));
    SetBkMode(context, TRANSPARENT);
    SetTextColor(context, GetSysColor(picture.isActive ? COLOR_CAPTIONTEXT : COLOR_INACTIVECAPTIONTEXT));
    DrawTextA(context, picture.text.c_str(), static_cast<int>(picture.text.size()), &rect,
              DT_LEFT | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX | DT_END_ELLIPSIS);
}

void paintCaption(HDC context, const Picture &picture)
{
    const FrameLayout &layout = picture.layout;
    RECT bar = layout.caption;
    if (IsRectEmpty(&bar))
        return;
    // A line of the face colour separates the caption from what lies below.
    RECT line{bar.left, bar.bottom - 1, bar.right, bar.bottom};
    fill(context, line, COLOR_3DFACE);
    bar.bottom -= 1;
    fill(context, bar, picture.isActive ? COLOR_ACTIVECAPTION : COLOR_INACTIVECAPTION);
    paintButton(context, layout.closeButton, DFCS_CAPTIONCLOSE, picture.buttonDown == HTCLOSE, picture.isCloseEnabled);
    paintButton(context, layout.maximizeButton,
                picture.style & WS_MAXIMIZE ? UINT{DFCS_CAPTIONRESTORE} : UINT{DFCS_CAPTIONMAX},
                picture.buttonDown == HTMAXBUTTON, (picture.style & WS_MAXIMIZEBOX) != 0);
    paintButton(context, layout.minimizeButton, picture.style & WS_MINIMIZE ? UINT{DFCS_CAPTIONRESTORE} : UINT{DFCS_CAPTIONMIN},
                picture.buttonDown == HTMINBUTTON, (picture.style & WS_MINIMIZEBOX) != 0);
    if (!IsRectEmpty(&layout.icon) && picture.icon)
        drawIcon(context, layout.icon, picture.icon);
    paintTitle(context, picture);
}

} // namespace

void paintFrame(HWND handle, HRGN area)
{
    Picture picture;
    if (!takePicture(handle, picture))
        return;
    HDC context = GetWindowDC(handle);
    if (!context)
        return;
    if (area && area != reinterpret_cast<HRGN>(1)) {
        // The region comes in screen coordinates.
        RECT window;
        HRGN local = CreateRectRgn(0, 0, 0, 0);
        if (local && GetWindowRect(handle, &window) && CombineRgn(local, area, nullptr, RGN_COPY) != ERROR) {
            OffsetRgn(local, -window.left, -window.top);
            SelectClipRgn(context, local);
        }
        DeleteObject(local);
    }
    paintEdges(context, picture);
    paintCaption(context, picture);
    paintMenuBar(handle, context, picture.layout.menuBar);
    if (!IsRectEmpty(&picture.layout.corner))
        fill(context, picture.layout.corner, COLOR_3DFACE);
    paintScrollBars(handle, context, picture.layout);
    ReleaseDC(handle, context);
}

} // namespace win32::user
