// The class "Static": a text, or a filled or framed rectangle, that a window shows.
#include "control_text.h"
#include "kernel/kernel_internal.h"
#include "window_class.h"

namespace win32::user {
namespace {

constexpr int fontField = 0;
constexpr UINT kindMask = 0x1f;

HFONT fontOf(HWND window)
{
    return reinterpret_cast<HFONT>(GetWindowLongPtrA(window, fontField));
}

UINT formatOf(UINT style)
{
    UINT format = DT_EXPANDTABS | (style & SS_NOPREFIX ? UINT{DT_NOPREFIX} : 0u);
    switch (style & kindMask) {
    case SS_CENTER:
        return format | DT_CENTER | DT_WORDBREAK;
    case SS_RIGHT:
        return format | DT_RIGHT | DT_WORDBREAK;
    case SS_SIMPLE:
        return format | DT_SINGLELINE;
    case SS_LEFTNOWORDWRAP:
        return format | DT_LEFT;
    default:
        return format | DT_LEFT | DT_WORDBREAK;
    }
}

void paintIn(HWND window, HDC context)
{
    RECT client;
    GetClientRect(window, &client);
    auto style = static_cast<UINT>(GetWindowLongA(window, GWL_STYLE));
    HBRUSH background = controlBrush(window, context, WM_CTLCOLORSTATIC);
    switch (style & kindMask) {
    case SS_BLACKRECT:
        FillRect(context, &client, GetSysColorBrush(COLOR_WINDOWFRAME));
        return;
    case SS_GRAYRECT:
        FillRect(context, &client, GetSysColorBrush(COLOR_BACKGROUND));
        return;
    case SS_WHITERECT:
        FillRect(context, &client, GetSysColorBrush(COLOR_WINDOW));
        return;
    case SS_BLACKFRAME:
        FrameRect(context, &client, GetSysColorBrush(COLOR_WINDOWFRAME));
        return;
    default:
        break;
    }
    FillRect(context, &client, background);
    FontScope font(context, fontOf(window));
    if (!IsWindowEnabled(window))
        SetTextColor(context, GetSysColor(COLOR_GRAYTEXT));
    std::string text = textOf(window);
    DrawTextA(context, text.c_str(), static_cast<int>(text.size()), &client, formatOf(style));
}

LRESULT CALLBACK staticProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_PAINT: {
        PAINTSTRUCT paint;
        if (HDC context = BeginPaint(window, &paint)) {
            guarded(0, [&] {
                paintIn(window, context);
                return 0;
            });
            EndPaint(window, &paint);
        }
        return 0;
    }
    case WM_ERASEBKGND:
        return TRUE;
    case WM_NCHITTEST:
        return HTTRANSPARENT;
    case WM_SETTEXT: {
        LRESULT result = DefWindowProcA(window, message, wParam, lParam);
        InvalidateRect(window, nullptr, FALSE);
        return result;
    }
    case WM_ENABLE:
        InvalidateRect(window, nullptr, FALSE);
        return 0;
    case WM_SETFONT:
        SetWindowLongPtrA(window, fontField, static_cast<LONG_PTR>(wParam));
        if (LOWORD(lParam))
            InvalidateRect(window, nullptr, FALSE);
        return 0;
    case WM_GETFONT:
        return reinterpret_cast<LRESULT>(fontOf(window));
    case WM_GETDLGCODE:
        return DLGC_STATIC;
    default:
        return DefWindowProcA(window, message, wParam, lParam);
    }
}

} // namespace

void registerStaticClass()
{
    addSystemClass("Static", CS_DBLCLKS | CS_PARENTDC, staticProcedure, sizeof(LONG_PTR), LoadCursorA(nullptr, IDC_ARROW),
                   nullptr);
}

} // namespace win32::user
