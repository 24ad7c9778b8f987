// The class "Button": push buttons, check boxes, radio buttons, group boxes.
#include "control_text.h"
#include "kernel/kernel_internal.h"
#include "window_class.h"

namespace win32::user {
namespace {

constexpr int fontField = 0;
constexpr int stateField = sizeof(LONG_PTR);
constexpr UINT kindMask = 0x0f;
// In the state beside the published bits: Space or the mouse holds the button.
constexpr UINT isHeldByMouse = 0x100;
constexpr UINT isHeldByKey = 0x200;

UINT stateOf(HWND window)
{
    return static_cast<UINT>(GetWindowLongPtrA(window, stateField));
}

void setState(HWND window, UINT state)
{
    if (state == stateOf(window))
        return;
    SetWindowLongPtrA(window, stateField, static_cast<LONG_PTR>(state));
    InvalidateRect(window, nullptr, FALSE);
}

UINT kindOf(HWND window)
{
    return static_cast<UINT>(GetWindowLongA(window, GWL_STYLE)) & kindMask;
}

bool isPushButton(UINT kind)
{
    return kind == BS_PUSHBUTTON || kind == BS_DEFPUSHBUTTON;
}

HFONT fontOf(HWND window)
{
    return reinterpret_cast<HFONT>(GetWindowLongPtrA(window, fontField));
}

void notify(HWND window, WORD event)
{
    if (HWND parent = GetParent(window))
        SendMessageA(parent, WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(window), event), reinterpret_cast<LPARAM>(window));
}

// A button tells of its focus only when it is asked to.
void notifyFocus(HWND window, WORD event)
{
    if (GetWindowLongA(window, GWL_STYLE) & BS_NOTIFY)
        notify(window, event);
}

void drawLabel(HDC context, const RECT &area, const std::string &text, UINT format, bool isEnabled)
{
    SetBkMode(context, TRANSPARENT);
    RECT rect = area;
    if (!isEnabled) {
        RECT shadow = rect;
        OffsetRect(&shadow, 1, 1);
        SetTextColor(context, GetSysColor(COLOR_3DHILIGHT));
        DrawTextA(context, text.c_str(), static_cast<int>(text.size()), &shadow, format);
        SetTextColor(context, GetSysColor(COLOR_GRAYTEXT));
    }
    DrawTextA(context, text.c_str(), static_cast<int>(text.size()), &rect, format);
}

void paintPush(HWND window, HDC context, RECT client, const std::string &text)
{
    UINT state = stateOf(window);
    bool isPressed = (state & BST_PUSHED) != 0;
    bool hasFocus = GetFocus() == window;
    if (kindOf(window) == BS_DEFPUSHBUTTON || hasFocus) {
        FrameRect(context, &client, GetSysColorBrush(COLOR_WINDOWFRAME));
        InflateRect(&client, -1, -1);
    }
    if (isPressed) {
        FillRect(context, &client, GetSysColorBrush(COLOR_3DFACE));
        FrameRect(context, &client, GetSysColorBrush(COLOR_3DSHADOW));
    } else {
        DrawFrameControl(context, &client, DFC_BUTTON, DFCS_BUTTONPUSH);
    }
    RECT label = client;
    if (isPressed)
        OffsetRect(&label, 1, 1);
    SetTextColor(context, GetSysColor(COLOR_BTNTEXT));
    drawLabel(context, label, text, DT_CENTER | DT_VCENTER | DT_SINGLELINE, IsWindowEnabled(window) != FALSE);
    if (hasFocus) {
        InflateRect(&client, -3, -3);
        DrawFocusRect(context, &client);
    }
}

void paintBox(HWND window, HDC context, RECT client, const std::string &text)
{
    UINT kind = kindOf(window), state = stateOf(window);
    FillRect(context, &client, controlBrush(window, context, WM_CTLCOLORSTATIC));
    constexpr int boxSize = 13, gap = 4;
    int top = (client.bottom - boxSize) / 2;
    RECT box{0, top, boxSize, top + boxSize};
    UINT shape = kind == BS_RADIOBUTTON || kind == BS_AUTORADIOBUTTON ? UINT{DFCS_BUTTONRADIO} : UINT{DFCS_BUTTONCHECK};
    DrawFrameControl(context, &box, DFC_BUTTON,
                     shape | (state & 3 ? UINT{DFCS_CHECKED} : 0u) | (state & BST_PUSHED ? UINT{DFCS_PUSHED} : 0u)
                         | (IsWindowEnabled(window) ? 0u : UINT{DFCS_INACTIVE}));
    RECT label{boxSize + gap, 0, client.right, client.bottom};
    drawLabel(context, label, text, DT_LEFT | DT_VCENTER | DT_SINGLELINE, IsWindowEnabled(window) != FALSE);
    if (GetFocus() == window) {
        SIZE size{0, 0};
        GetTextExtentPoint32A(context, text.c_str(), static_cast<int>(text.size()), &size);
        RECT focus{label.left - 1, (client.bottom - size.cy) / 2 - 1, std::min<LONG>(label.left + size.cx + 1, client.right),
                   (client.bottom + size.cy) / 2 + 1};
        DrawFocusRect(context, &focus);
    }
}

void paintGroup(HWND window, HDC context, RECT client, const std::string &text)
{
    SIZE size{0, 0};
    GetTextExtentPoint32A(context, text.c_str(), static_cast<int>(text.size()), &size);
    RECT frame = client;
    frame.top += size.cy / 2;
    DrawEdge(context, &frame, EDGE_ETCHED, BF_RECT);
    if (text.empty())
        return;
    RECT label{client.left + 9, client.top, client.left + 9 + size.cx, client.top + size.cy};
    FillRect(context, &label, controlBrush(window, context, WM_CTLCOLORSTATIC));
    drawLabel(context, label, text, DT_LEFT | DT_SINGLELINE, IsWindowEnabled(window) != FALSE);
}

void paintIn(HWND window, HDC context)
{
    RECT client;
    GetClientRect(window, &client);
    std::string text = textOf(window);
    FontScope font(context, fontOf(window));
    UINT kind = kindOf(window);
    if (isPushButton(kind))
        paintPush(window, context, client, text);
    else if (kind == BS_GROUPBOX)
        paintGroup(window, context, client, text);
    else
        paintBox(window, context, client, text);
}

// Only one radio button of a group is on.
void turnOffOthers(HWND window)
{
    HWND parent = GetParent(window);
    HWND first = window;
    while (!(GetWindowLongA(first, GWL_STYLE) & WS_GROUP)) {
        HWND before = GetWindow(first, GW_HWNDPREV);
        if (!before || GetParent(before) != parent)
            break;
        first = before;
    }
    for (HWND each = first; each; each = GetWindow(each, GW_HWNDNEXT)) {
        if (each != first && (GetWindowLongA(each, GWL_STYLE) & WS_GROUP))
            break;
        bool isRadio = (SendMessageA(each, WM_GETDLGCODE, 0, 0) & DLGC_BUTTON) && kindOf(each) == BS_AUTORADIOBUTTON;
        if (each != window && isRadio)
            SendMessageA(each, BM_SETCHECK, BST_UNCHECKED, 0);
    }
}

void click(HWND window)
{
    UINT kind = kindOf(window);
    UINT state = stateOf(window);
    if (kind == BS_AUTOCHECKBOX) {
        setState(window, state ^ BST_CHECKED);
    } else if (kind == BS_AUTORADIOBUTTON) {
        setState(window, state | BST_CHECKED);
        turnOffOthers(window);
    }
    if (IsWindow(window))
        notify(window, BN_CLICKED);
}

bool isInside(HWND window, LPARAM position)
{
    POINT point{static_cast<short>(LOWORD(position)), static_cast<short>(HIWORD(position))};
    RECT client;
    return GetClientRect(window, &client) && PtInRect(&client, point);
}

void release(HWND window, UINT holder, bool isMeant)
{
    UINT state = stateOf(window);
    if (!(state & holder))
        return;
    setState(window, state & ~(holder | BST_PUSHED));
    if (holder == isHeldByMouse)
        ReleaseCapture();
    if (isMeant && IsWindow(window))
        click(window);
}

LRESULT mouse(HWND window, UINT message, LPARAM lParam)
{
    switch (message) {
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
        SetFocus(window);
        SetCapture(window);
        setState(window, stateOf(window) | isHeldByMouse | BST_PUSHED);
        break;
    case WM_MOUSEMOVE:
        if (stateOf(window) & isHeldByMouse) {
            UINT free = stateOf(window) & ~static_cast<UINT>(BST_PUSHED);
            setState(window, isInside(window, lParam) ? free | BST_PUSHED : free);
        }
        break;
    case WM_LBUTTONUP:
        release(window, isHeldByMouse, isInside(window, lParam));
        break;
    default: // WM_CAPTURECHANGED
        setState(window, stateOf(window) & ~(isHeldByMouse | BST_PUSHED));
        break;
    }
    return 0;
}

LRESULT CALLBACK buttonProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
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
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
    case WM_MOUSEMOVE:
    case WM_LBUTTONUP:
    case WM_CAPTURECHANGED:
        return mouse(window, message, lParam);
    case WM_KEYDOWN:
        if (wParam == VK_SPACE)
            setState(window, stateOf(window) | isHeldByKey | BST_PUSHED);
        return 0;
    case WM_KEYUP:
        if (wParam == VK_SPACE)
            release(window, isHeldByKey, true);
        return 0;
    case WM_SETFOCUS:
        InvalidateRect(window, nullptr, FALSE);
        notifyFocus(window, BN_SETFOCUS);
        return 0;
    case WM_KILLFOCUS:
        release(window, isHeldByKey, false);
        InvalidateRect(window, nullptr, FALSE);
        notifyFocus(window, BN_KILLFOCUS);
        return 0;
    case WM_ENABLE:
        InvalidateRect(window, nullptr, FALSE);
        return 0;
    case WM_SETTEXT: {
        LRESULT result = DefWindowProcA(window, message, wParam, lParam);
        InvalidateRect(window, nullptr, FALSE);
        return result;
    }
    case WM_SETFONT:
        SetWindowLongPtrA(window, fontField, static_cast<LONG_PTR>(wParam));
        if (LOWORD(lParam))
            InvalidateRect(window, nullptr, FALSE);
        return 0;
    case WM_GETFONT:
        return reinterpret_cast<LRESULT>(fontOf(window));
    case WM_GETDLGCODE:
        return isPushButton(kindOf(window))
                   ? DLGC_BUTTON | (kindOf(window) == BS_DEFPUSHBUTTON ? DLGC_DEFPUSHBUTTON : DLGC_UNDEFPUSHBUTTON)
                   : kindOf(window) == BS_GROUPBOX ? DLGC_STATIC
                                                   : DLGC_BUTTON;
    case WM_NCHITTEST:
        return kindOf(window) == BS_GROUPBOX ? HTTRANSPARENT : DefWindowProcA(window, message, wParam, lParam);
    case BM_GETCHECK:
        return isPushButton(kindOf(window)) ? 0 : static_cast<LRESULT>(stateOf(window) & 3);
    case BM_SETCHECK:
        if (!isPushButton(kindOf(window)))
            setState(window, (stateOf(window) & ~3u) | (static_cast<UINT>(wParam) & 3));
        return 0;
    case BM_GETSTATE:
        return static_cast<LRESULT>((stateOf(window) & 7) | (GetFocus() == window ? UINT{BST_FOCUS} : 0u));
    case BM_SETSTATE:
        setState(window, (stateOf(window) & ~static_cast<UINT>(BST_PUSHED)) | (wParam ? UINT{BST_PUSHED} : 0u));
        return 0;
    case BM_SETSTYLE:
        SetWindowLongA(window, GWL_STYLE,
                       static_cast<LONG>((static_cast<UINT>(GetWindowLongA(window, GWL_STYLE)) & ~kindMask)
                                         | (static_cast<UINT>(wParam) & kindMask)));
        if (LOWORD(lParam))
            InvalidateRect(window, nullptr, FALSE);
        return 0;
    case BM_CLICK:
        click(window);
        return 0;
    default:
        return DefWindowProcA(window, message, wParam, lParam);
    }
}

} // namespace

void registerButtonClass()
{
    addSystemClass("Button", CS_DBLCLKS | CS_PARENTDC | CS_HREDRAW | CS_VREDRAW, buttonProcedure, 2 * sizeof(LONG_PTR),
                   LoadCursorA(nullptr, IDC_ARROW), nullptr);
}

} // namespace win32::user
