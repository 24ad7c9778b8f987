// Where the parts of a frame lie.
#include "frame.h"
#include "kernel/kernel_internal.h"
#include "menu.h"

using namespace win32;
using namespace win32::user;

namespace win32::user {
namespace {

bool hasCaption(DWORD style)
{
    return (style & WS_CAPTION) == WS_CAPTION;
}

bool isSizable(DWORD style)
{
    return (style & WS_THICKFRAME) != 0;
}

bool hasDialogFrame(DWORD style, DWORD extendedStyle)
{
    return (style & WS_DLGFRAME) || (extendedStyle & WS_EX_DLGMODALFRAME);
}

int edgeOf(DWORD style, DWORD extendedStyle)
{
    if (isSizable(style))
        return hasDialogFrame(style, extendedStyle) || (style & WS_BORDER) ? GetSystemMetrics(SM_CXFRAME)
                                                                          : GetSystemMetrics(SM_CXFRAME) - 1;
    if (hasDialogFrame(style, extendedStyle))
        return GetSystemMetrics(SM_CXDLGFRAME);
    int border = style & WS_BORDER ? GetSystemMetrics(SM_CXBORDER) : 0;
    return extendedStyle & WS_EX_STATICEDGE ? border + 1 : border;
}

int captionHeight(DWORD extendedStyle)
{
    return GetSystemMetrics(extendedStyle & WS_EX_TOOLWINDOW ? SM_CYSMCAPTION : SM_CYCAPTION);
}

// A row of buttons from the right end of the caption.
void layButtons(const Window &window, FrameLayout &layout)
{
    bool isTool = (window.extendedStyle & WS_EX_TOOLWINDOW) != 0;
    int width = GetSystemMetrics(isTool ? SM_CXSMSIZE : SM_CXSIZE) - 2;
    int height = GetSystemMetrics(isTool ? SM_CYSMSIZE : SM_CYSIZE) - 4;
    const RECT &caption = layout.caption;
    int top = caption.top + 2;
    int right = caption.right - 2;
    auto take = [&](RECT &button) {
        button = {right - width, top, right, top + height};
        right -= width;
    };
    if (window.style & WS_SYSMENU) {
        take(layout.closeButton);
        right -= 2;
    }
    bool hasBoxes = !isTool && (window.style & WS_SYSMENU) && (window.style & (WS_MINIMIZEBOX | WS_MAXIMIZEBOX));
    if (hasBoxes) {
        take(layout.maximizeButton);
        take(layout.minimizeButton);
    }
    bool hasIcon = (window.style & WS_SYSMENU) && !isTool && !(window.extendedStyle & WS_EX_DLGMODALFRAME) && window.icon;
    if (hasIcon) {
        int size = GetSystemMetrics(SM_CXSMICON);
        int iconTop = caption.top + (caption.bottom - 1 - caption.top - size) / 2;
        layout.icon = {caption.left + 2, iconTop, caption.left + 2 + size, iconTop + size};
    }
}

void layScrollBars(const Window &window, FrameLayout &layout, RECT &client)
{
    int width = window.style & WS_VSCROLL ? GetSystemMetrics(SM_CXVSCROLL) : 0;
    int height = window.style & WS_HSCROLL ? GetSystemMetrics(SM_CYHSCROLL) : 0;
    if (client.right - client.left < width)
        width = 0;
    if (client.bottom - client.top < height)
        height = 0;
    RECT inside{client.left, client.top, client.right - width, client.bottom - height};
    if (width)
        layout.verticalScrollBar = {inside.right, client.top, client.right, inside.bottom};
    if (height)
        layout.horizontalScrollBar = {client.left, inside.bottom, inside.right, client.bottom};
    if (width && height)
        layout.corner = {inside.right, inside.bottom, client.right, client.bottom};
    client = inside;
}

} // namespace

bool hasMenuBar(const Window &window)
{
    return !window.isChild() && findMenuQuietly(window.menu);
}

RECT menuBarSpace(const Window &window, int width)
{
    int edge = edgeOf(window.style, window.extendedStyle);
    int top = edge + (hasCaption(window.style) ? captionHeight(window.extendedStyle) : 0);
    return {edge, top, width - edge, top};
}

RECT frameMargins(DWORD style, DWORD extendedStyle, bool hasMenu)
{
    int edge = edgeOf(style, extendedStyle);
    RECT margins{edge, edge, edge, edge};
    if (hasCaption(style))
        margins.top += captionHeight(extendedStyle);
    if (hasMenu)
        margins.top += GetSystemMetrics(SM_CYMENU);
    if (extendedStyle & WS_EX_CLIENTEDGE) {
        int inset = GetSystemMetrics(SM_CXEDGE);
        margins = {margins.left + inset, margins.top + inset, margins.right + inset, margins.bottom + inset};
    }
    return margins;
}

FrameLayout layoutOf(const Window &window)
{
    FrameLayout layout{};
    layout.window = {0, 0, window.width(), window.height()};
    layout.edge = edgeOf(window.style, window.extendedStyle);
    RECT inner = layout.window;
    InflateRect(&inner, -layout.edge, -layout.edge);
    layout.inner = inner;
    if (hasCaption(window.style)) {
        layout.caption = inner;
        layout.caption.bottom = inner.top + captionHeight(window.extendedStyle);
        inner.top = layout.caption.bottom;
        layButtons(window, layout);
    }
    if (window.style & WS_MINIMIZE)
        return layout;
    if (hasMenuBar(window)) {
        layout.menuBar = inner;
        layout.menuBar.bottom = std::min<LONG>(inner.top + window.menuBarHeight, std::max(inner.top, inner.bottom));
        inner.top = layout.menuBar.bottom;
    }
    if (window.extendedStyle & WS_EX_CLIENTEDGE) {
        int inset = GetSystemMetrics(SM_CXEDGE);
        InflateRect(&inner, -inset, -inset);
    }
    layScrollBars(window, layout, inner);
    return layout;
}

void shrinkToClient(const Window &window, RECT &rect)
{
    if (window.style & WS_MINIMIZE) {
        rect.right = rect.left;
        rect.bottom = rect.top;
        return;
    }
    RECT margins = frameMargins(window.style, window.extendedStyle, false);
    if (hasMenuBar(window))
        margins.top += window.menuBarHeight;
    rect.left += margins.left;
    rect.top += margins.top;
    rect.right = std::max(rect.right - margins.right, rect.left);
    rect.bottom = std::max(rect.bottom - margins.bottom, rect.top);
    int width = GetSystemMetrics(SM_CXVSCROLL), height = GetSystemMetrics(SM_CYHSCROLL);
    if ((window.style & WS_VSCROLL) && rect.right - rect.left >= width)
        rect.right -= width;
    if ((window.style & WS_HSCROLL) && rect.bottom - rect.top >= height)
        rect.bottom -= height;
}

} // namespace win32::user

BOOL AdjustWindowRectEx(LPRECT rect, DWORD style, BOOL hasMenu, DWORD extendedStyle)
{
    if (!rect)
        return fail(ERROR_INVALID_PARAMETER, FALSE);
    RECT margins = frameMargins(style & ~static_cast<DWORD>(WS_MINIMIZE), extendedStyle, hasMenu != FALSE);
    rect->left -= margins.left;
    rect->top -= margins.top;
    rect->right += margins.right;
    rect->bottom += margins.bottom;
    return TRUE;
}

BOOL AdjustWindowRect(LPRECT rect, DWORD style, BOOL hasMenu)
{
    return AdjustWindowRectEx(rect, style, hasMenu, 0);
}
