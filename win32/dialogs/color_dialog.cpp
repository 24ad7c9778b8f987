// The dialog that asks for a colour: basic and custom colours to press, and a field of all hues with a bar for
// their light.
#include "color_model.h"
#include "dialog_error.h"
#include "kernel/kernel_internal.h"
#include "user/control_text.h"
#include "user/modal_loop.h"

#include <commdlg.h>

#include <algorithm>
#include <cstdio>
#include <iterator>
#include <vector>

namespace win32::dialogs {

thread_local DWORD lastDialogError;

namespace {

constexpr COLORREF basicColors[] = {
    0x8080FF, 0x80FFFF, 0x80FF80, 0x80FF00, 0xFFFF80, 0xFF8000, 0xC080FF, 0xFF80FF, 0x0000FF, 0x00FFFF, 0x00FF80, 0x40FF00,
    0xFFFF00, 0xC08000, 0xC08080, 0xFF00FF, 0x404080, 0x4080FF, 0x00FF00, 0x808000, 0x804000, 0xFF8080, 0x400080, 0x8000FF,
    0x000080, 0x0080FF, 0x008000, 0x408000, 0xFF0000, 0xA00000, 0x800080, 0xFF0080, 0x000040, 0x004080, 0x004000, 0x404000,
    0x800000, 0x400000, 0x400040, 0x800040, 0x000000, 0x008080, 0x408080, 0x808080, 0x808040, 0xC0C0C0, 0x400040, 0xFFFFFF};
constexpr int basicCount = static_cast<int>(std::size(basicColors)), customCount = 16, columns = 8;
constexpr int pitchX = 26, pitchY = 22, swatchWidth = 22, swatchHeight = 18;
constexpr POINT basicPlace = {8, 24}, customPlace = {8, 182};
constexpr RECT field = {232, 8, 416, 192}, bar = {430, 8, 446, 192}, sample = {232, 204, 292, 244};
constexpr size_t mostButtons = 4;
constexpr int smallWidth = 224, fullWidth = 460, height = 292;

enum Button { defineButton = 719, addButton = 712 };

enum class Held { Nothing, Field, Bar };

struct Chooser {
    CHOOSECOLORA &request;
    std::vector<HWND> buttons{};
    COLORREF color = 0;
    Hsl hsl{};
    int basic = -1;
    int custom = 0; // where the next custom colour goes
    bool isFull = false;
    bool isOver = false;
    bool isAccepted = false;
    Held held = Held::Nothing;
    HBITMAP rainbow = nullptr;
};

Chooser *chooserOf(HWND window)
{
    return reinterpret_cast<Chooser *>(GetWindowLongPtrA(window, GWLP_USERDATA));
}

RECT swatchRect(POINT place, int number)
{
    LONG left = place.x + number % columns * pitchX, top = place.y + number / columns * pitchY;
    return {left, top, left + swatchWidth, top + swatchHeight};
}

// -1 for none.
int swatchAt(POINT place, int count, POINT point)
{
    for (int i = 0; i < count; ++i) {
        RECT rect = swatchRect(place, i);
        if (PtInRect(&rect, point))
            return i;
    }
    return -1;
}

void choose(HWND window, Chooser &chooser, COLORREF color)
{
    chooser.color = color;
    chooser.hsl = toHsl(color);
    InvalidateRect(window, nullptr, FALSE);
}

// Each pixel of the field in a middle light.
HBITMAP makeRainbow()
{
    int width = field.right - field.left, rows = field.bottom - field.top;
    BITMAPINFO info{};
    info.bmiHeader = {sizeof info.bmiHeader, width, -rows, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    void *bits = nullptr;
    HBITMAP bitmap = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    auto *pixel = static_cast<uint32_t *>(bits);
    for (int y = 0; bitmap && y < rows; ++y) {
        for (int x = 0; x < width; ++x) {
            COLORREF color = toColor({x * Hsl::most / width, Hsl::most - y * Hsl::most / rows, Hsl::most / 2});
            *pixel++ = static_cast<uint32_t>(GetRValue(color) << 16 | GetGValue(color) << 8 | GetBValue(color));
        }
    }
    return bitmap;
}

void fill(HDC context, const RECT &rect, COLORREF color)
{
    HBRUSH brush = CreateSolidBrush(color);
    FillRect(context, &rect, brush);
    DeleteObject(brush);
}

void paintSwatch(HDC context, RECT rect, COLORREF color, bool isChosen)
{
    if (isChosen) {
        RECT outer = {rect.left - 2, rect.top - 2, rect.right + 2, rect.bottom + 2};
        FrameRect(context, &outer, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));
    }
    DrawEdge(context, &rect, EDGE_SUNKEN, BF_RECT | BF_ADJUST);
    fill(context, rect, color);
}

void paintText(HDC context, int x, int y, const char *text)
{
    RECT rect = {x, y, x + 200, y + 20};
    DrawTextA(context, text, -1, &rect, DT_NOPREFIX | DT_SINGLELINE);
}

void paintField(HDC context, const Chooser &chooser)
{
    HDC memory = CreateCompatibleDC(context);
    HGDIOBJ former = SelectObject(memory, chooser.rainbow);
    int width = field.right - field.left, rows = field.bottom - field.top;
    BitBlt(context, field.left, field.top, width, rows, memory, 0, 0, SRCCOPY);
    SelectObject(memory, former);
    DeleteDC(memory);
    int x = field.left + chooser.hsl.hue * width / Hsl::most, y = field.top + (Hsl::most - chooser.hsl.saturation) * rows / Hsl::most;
    for (RECT mark : {RECT{x - 8, y - 1, x - 3, y + 2}, RECT{x + 4, y - 1, x + 9, y + 2}, RECT{x - 1, y - 8, x + 2, y - 3}, RECT{x - 1, y + 4, x + 2, y + 9}}) {
        if (IntersectRect(&mark, &mark, &field))
            fill(context, mark, 0);
    }
}

void paintBar(HDC context, const Chooser &chooser)
{
    int rows = bar.bottom - bar.top;
    for (int y = 0; y < rows; ++y)
        fill(context, {bar.left, bar.top + y, bar.right, bar.top + y + 1},
             toColor({chooser.hsl.hue, chooser.hsl.saturation, Hsl::most - y * Hsl::most / rows}));
    int y = bar.top + (Hsl::most - chooser.hsl.luminosity) * rows / Hsl::most;
    for (int i = 0; i < 6; ++i)
        fill(context, {bar.right + 2 + i, y - i, bar.right + 3 + i, y + i + 1}, 0);
}

void paintValues(HDC context, const Chooser &chooser)
{
    struct {
        const char *format;
        int left, right;
    } const lines[] = {{"Hue: %d\tRed: %d", chooser.hsl.hue, GetRValue(chooser.color)},
                       {"Sat: %d\tGreen: %d", chooser.hsl.saturation, GetGValue(chooser.color)},
                       {"Lum: %d\tBlue: %d", chooser.hsl.luminosity, GetBValue(chooser.color)}};
    int y = sample.top - 2;
    for (auto &[format, left, right] : lines) {
        char text[40];
        snprintf(text, sizeof text, format, left, right);
        *std::find(text, text + sizeof text, '\t') = 0;
        paintText(context, sample.right + 12, y, text);
        paintText(context, sample.right + 84, y, text + strlen(text) + 1);
        y += 15;
    }
}

void paint(HWND window, const Chooser &chooser)
{
    PAINTSTRUCT paint;
    HDC context = BeginPaint(window, &paint);
    if (!context)
        return;
    // The triangle of the bar and the marks of swatches leave traces otherwise.
    RECT client;
    GetClientRect(window, &client);
    FillRect(context, &client, GetSysColorBrush(COLOR_3DFACE));
    user::FontScope font(context, static_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT)));
    SetBkMode(context, TRANSPARENT);
    paintText(context, basicPlace.x, 6, "Basic colors:");
    for (int i = 0; i < basicCount; ++i)
        paintSwatch(context, swatchRect(basicPlace, i), basicColors[i], i == chooser.basic);
    paintText(context, customPlace.x, customPlace.y - 18, "Custom colors:");
    for (int i = 0; i < customCount; ++i)
        paintSwatch(context, swatchRect(customPlace, i), chooser.request.lpCustColors[i], chooser.isFull && i == chooser.custom);
    if (chooser.isFull) {
        paintField(context, chooser);
        paintBar(context, chooser);
        paintSwatch(context, sample, chooser.color, false);
        paintValues(context, chooser);
    }
    EndPaint(window, &paint);
}

int within(LONG value, LONG first, LONG last)
{
    return static_cast<int>(std::clamp(value, first, last - 1) - first);
}

void follow(HWND window, Chooser &chooser, POINT point)
{
    int width = field.right - field.left, rows = field.bottom - field.top;
    if (chooser.held == Held::Field) {
        chooser.hsl.hue = within(point.x, field.left, field.right) * Hsl::most / width;
        chooser.hsl.saturation = Hsl::most - within(point.y, field.top, field.bottom) * Hsl::most / rows;
    } else if (chooser.held == Held::Bar) {
        chooser.hsl.luminosity = Hsl::most - within(point.y, bar.top, bar.bottom) * Hsl::most / rows;
    } else {
        return;
    }
    chooser.color = toColor(chooser.hsl);
    InvalidateRect(window, nullptr, FALSE);
}

void press(HWND window, Chooser &chooser, POINT point)
{
    int basic = swatchAt(basicPlace, basicCount, point), custom = swatchAt(customPlace, customCount, point);
    RECT barWithMark = {bar.left, bar.top, bar.right + 10, bar.bottom};
    if (basic >= 0) {
        chooser.basic = basic;
        choose(window, chooser, basicColors[basic]);
    } else if (custom >= 0) {
        chooser.basic = -1;
        chooser.custom = custom;
        choose(window, chooser, chooser.request.lpCustColors[custom] & 0xFFFFFF);
    } else if (chooser.isFull && (PtInRect(&field, point) || PtInRect(&barWithMark, point))) {
        chooser.basic = -1;
        chooser.held = PtInRect(&field, point) ? Held::Field : Held::Bar;
        SetCapture(window);
        follow(window, chooser, point);
    }
}

void addCustom(HWND window, Chooser &chooser)
{
    chooser.request.lpCustColors[chooser.custom] = chooser.color;
    chooser.custom = (chooser.custom + 1) % customCount;
    InvalidateRect(window, nullptr, FALSE);
}

void addButtonTo(HWND window, Chooser &chooser, int id, const char *label, const RECT &rect, DWORD style)
{
    HWND button = CreateWindowExA(0, "Button", label, WS_CHILD | WS_VISIBLE | WS_TABSTOP | style, rect.left, rect.top,
                                  rect.right - rect.left, rect.bottom - rect.top, window,
                                  reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), nullptr, nullptr);
    if (!button)
        return;
    SendMessageA(button, WM_SETFONT, reinterpret_cast<WPARAM>(GetStockObject(DEFAULT_GUI_FONT)), FALSE);
    chooser.buttons.push_back(button);
}

DWORD frameStyle()
{
    return WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_CLIPCHILDREN;
}

SIZE frameSize(bool isFull)
{
    RECT frame = {0, 0, isFull ? fullWidth : smallWidth, height};
    AdjustWindowRectEx(&frame, frameStyle(), FALSE, WS_EX_DLGMODALFRAME);
    return {frame.right - frame.left, frame.bottom - frame.top};
}

void openFully(HWND window, Chooser &chooser)
{
    if (chooser.isFull)
        return;
    chooser.isFull = true;
    SIZE size = frameSize(true);
    SetWindowPos(window, nullptr, 0, 0, size.cx, size.cy, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    addButtonTo(window, chooser, addButton, "&Add to Custom Colors", {232, 258, 446, 281}, BS_PUSHBUTTON);
    for (HWND button : chooser.buttons) {
        if (GetWindowLongA(button, GWL_ID) == defineButton)
            EnableWindow(button, FALSE);
    }
    InvalidateRect(window, nullptr, FALSE);
}

void command(HWND window, Chooser &chooser, int id)
{
    switch (id) {
    case IDOK:
    case IDCANCEL:
        chooser.isAccepted = id == IDOK;
        chooser.isOver = true;
        // The loop may be waiting while this comes from another thread.
        PostMessageA(window, WM_NULL, 0, 0);
        break;
    case defineButton:
        openFully(window, chooser);
        break;
    case addButton:
        addCustom(window, chooser);
        break;
    default:
        break;
    }
}

LRESULT serve(HWND window, Chooser &chooser, UINT message, WPARAM wParam, LPARAM lParam)
{
    POINT point = {static_cast<SHORT>(LOWORD(lParam)), static_cast<SHORT>(HIWORD(lParam))};
    switch (message) {
    case WM_PAINT:
        paint(window, chooser);
        return 0;
    case WM_ERASEBKGND:
        return 1;
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
        press(window, chooser, point);
        return 0;
    case WM_MOUSEMOVE:
        follow(window, chooser, point);
        return 0;
    case WM_LBUTTONUP:
        chooser.held = Held::Nothing;
        ReleaseCapture();
        return 0;
    case WM_CAPTURECHANGED:
        chooser.held = Held::Nothing;
        return 0;
    case WM_COMMAND:
        if (HIWORD(wParam) == BN_CLICKED)
            command(window, chooser, LOWORD(wParam));
        return 0;
    case WM_CLOSE:
        command(window, chooser, IDCANCEL);
        return 0;
    default:
        return DefWindowProcA(window, message, wParam, lParam);
    }
}

bool hookTakes(const CHOOSECOLORA &request, HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    return (request.Flags & CC_ENABLEHOOK) && request.lpfnHook(window, message, wParam, lParam) != 0;
}

// The window gets messages before the chooser is known to it and after it is over.
LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    Chooser *chooser = chooserOf(window);
    if (!chooser)
        return DefWindowProcA(window, message, wParam, lParam);
    if (hookTakes(chooser->request, window, message, wParam, lParam))
        return 0;
    return guarded(LRESULT{0}, [&] { return serve(window, *chooser, message, wParam, lParam); });
}

HWND makeWindow(Chooser &chooser)
{
    static const ATOM registered = [] {
        WNDCLASSA description{};
        description.style = CS_DBLCLKS;
        description.lpfnWndProc = procedure;
        description.hCursor = LoadCursorA(nullptr, IDC_ARROW);
        description.lpszClassName = "Color dialog";
        return RegisterClassA(&description);
    }();
    SIZE size = frameSize(chooser.isFull);
    int x = (GetSystemMetrics(SM_CXSCREEN) - size.cx) / 2, y = (GetSystemMetrics(SM_CYSCREEN) - size.cy) / 2;
    HWND window = CreateWindowExA(WS_EX_DLGMODALFRAME, MAKEINTATOM(registered), "Color", frameStyle(), x, y, size.cx, size.cy,
                                  chooser.request.hwndOwner, nullptr, nullptr, nullptr);
    if (!window)
        return nullptr;
    addButtonTo(window, chooser, IDOK, "OK", {8, 258, 83, 281}, BS_DEFPUSHBUTTON);
    addButtonTo(window, chooser, IDCANCEL, "Cancel", {89, 258, 164, 281}, BS_PUSHBUTTON);
    DWORD define = chooser.request.Flags & (CC_FULLOPEN | CC_PREVENTFULLOPEN) ? WS_DISABLED : 0;
    addButtonTo(window, chooser, defineButton, "&Define Custom Colors >>", {8, 230, 212, 253}, BS_PUSHBUTTON | define);
    SetWindowLongPtrA(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(&chooser));
    if (chooser.request.Flags & CC_FULLOPEN)
        openFully(window, chooser);
    return window;
}

void moveFocus(const Chooser &chooser, int step)
{
    auto count = static_cast<int>(chooser.buttons.size());
    int now = static_cast<int>(std::find(chooser.buttons.begin(), chooser.buttons.end(), GetFocus()) - chooser.buttons.begin()) % count;
    for (int i = 1; i <= count; ++i) {
        HWND next = chooser.buttons[static_cast<size_t>((now + i * step + i * count) % count)];
        if (IsWindowEnabled(next)) {
            SetFocus(next);
            return;
        }
    }
}

void moveChoice(HWND window, Chooser &chooser, int step)
{
    int next = chooser.basic < 0 ? 0 : chooser.basic + step;
    if (next < 0 || next >= basicCount)
        return;
    chooser.basic = next;
    choose(window, chooser, basicColors[next]);
}

// Keys that the dialog takes before its buttons do.
bool takeKey(HWND window, Chooser &chooser, const MSG &message)
{
    if (message.message != WM_KEYDOWN)
        return false;
    switch (message.wParam) {
    case VK_ESCAPE: command(window, chooser, IDCANCEL); return true;
    case VK_RETURN: SendMessageA(GetFocus(), BM_CLICK, 0, 0); return true;
    case VK_TAB: moveFocus(chooser, GetKeyState(VK_SHIFT) < 0 ? -1 : 1); return true;
    case VK_LEFT: moveChoice(window, chooser, -1); return true;
    case VK_RIGHT: moveChoice(window, chooser, 1); return true;
    case VK_UP: moveChoice(window, chooser, -columns); return true;
    case VK_DOWN: moveChoice(window, chooser, columns); return true;
    default: return false;
    }
}

void run(HWND window, Chooser &chooser)
{
    HWND owner = chooser.request.hwndOwner, before = GetActiveWindow();
    bool wasEnabled = owner && !EnableWindow(owner, FALSE);
    hookTakes(chooser.request, window, WM_INITDIALOG, reinterpret_cast<WPARAM>(chooser.buttons.front()),
              reinterpret_cast<LPARAM>(&chooser.request));
    ShowWindow(window, SW_SHOW);
    SetFocus(chooser.buttons.front());
    user::runModalLoop(window, chooser.isOver, [&](const MSG &message) { return takeKey(window, chooser, message); });
    if (wasEnabled)
        EnableWindow(owner, TRUE);
    if (IsWindow(window)) {
        SetWindowLongPtrA(window, GWLP_USERDATA, 0);
        DestroyWindow(window);
    }
    if (IsWindow(before) && before != GetActiveWindow())
        SetActiveWindow(before);
}

DWORD faultOf(const CHOOSECOLORA *request)
{
    if (!request)
        return CDERR_INITIALIZATION;
    if (request->lStructSize != sizeof *request)
        return CDERR_STRUCTSIZE;
    if (!request->lpCustColors)
        return CDERR_INITIALIZATION;
    return (request->Flags & CC_ENABLEHOOK) && !request->lpfnHook ? CDERR_NOHOOK : 0;
}

BOOL ask(CHOOSECOLORA &request)
{
    Chooser chooser{request};
    // From here on nothing throws, and the window and the bitmap are always given back.
    chooser.buttons.reserve(mostButtons);
    chooser.color = request.Flags & CC_RGBINIT ? request.rgbResult & 0xFFFFFF : 0;
    chooser.hsl = toHsl(chooser.color);
    const auto *found = std::find(std::begin(basicColors), std::end(basicColors), chooser.color);
    chooser.basic = found == std::end(basicColors) ? -1 : static_cast<int>(found - basicColors);
    chooser.rainbow = makeRainbow();
    HWND window = makeWindow(chooser);
    bool canShow = window && !chooser.buttons.empty();
    if (canShow)
        run(window, chooser);
    else if (window)
        DestroyWindow(window);
    DeleteObject(chooser.rainbow);
    lastDialogError = canShow ? 0 : CDERR_INITIALIZATION;
    if (chooser.isAccepted)
        request.rgbResult = chooser.color;
    return canShow && chooser.isAccepted;
}

} // namespace
} // namespace win32::dialogs

BOOL ChooseColorA(LPCHOOSECOLORA request)
{
    using namespace win32;
    dialogs::lastDialogError = dialogs::faultOf(request);
    if (dialogs::lastDialogError)
        return FALSE;
    dialogs::lastDialogError = CDERR_MEMALLOCFAILURE;
    return guarded(FALSE, [&] { return dialogs::ask(*request); });
}

DWORD CommDlgExtendedError()
{
    return win32::dialogs::lastDialogError;
}
