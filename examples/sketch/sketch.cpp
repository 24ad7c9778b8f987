// A small drawing program on plain Win32: the same source runs on Windows and, over the layer, on Linux.
//
// The mouse draws in the colour that was clicked at the left; the wheel changes the pen; typing writes the title line.
// Ctrl+Z takes the last stroke back, Ctrl+C and Ctrl+V copy and paste the title, Escape begins anew.
#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <string>
#include <utility>
#include <vector>

namespace {

struct Stroke {
    COLORREF color;
    int width;
    std::vector<POINT> points;
};

struct Drawing {
    std::vector<Stroke> strokes;
    std::string title = "Untitled";
    COLORREF color = RGB(0xc0, 0x20, 0x20);
    int width = 3;
    bool isDrawing = false;
};

Drawing drawing;

constexpr COLORREF colors[] = {RGB(0xc0, 0x20, 0x20), RGB(0x20, 0x80, 0x20), RGB(0x20, 0x40, 0xc0),
                               RGB(0xe0, 0xa0, 0x20), RGB(0x80, 0x30, 0x90), RGB(0x20, 0x20, 0x20)};
constexpr int colorCount = sizeof colors / sizeof colors[0];
constexpr int boxSize = 28, boxGap = 6, barWidth = boxSize + 2 * boxGap, titleHeight = 28, statusHeight = 22;
constexpr int thickestPen = 40;

RECT clientOf(HWND window)
{
    RECT client;
    GetClientRect(window, &client);
    return client;
}

RECT canvasOf(HWND window)
{
    RECT client = clientOf(window);
    return {barWidth, titleHeight, client.right, client.bottom - statusHeight};
}

RECT titleLineOf(HWND window)
{
    return {0, 0, clientOf(window).right, titleHeight};
}

RECT statusLineOf(HWND window)
{
    RECT client = clientOf(window);
    return {0, client.bottom - statusHeight, client.right, client.bottom};
}

RECT boxOf(int index)
{
    int top = titleHeight + boxGap + index * (boxSize + boxGap);
    return {boxGap, top, boxGap + boxSize, top + boxSize};
}

void repaint(HWND window, const RECT &rect)
{
    InvalidateRect(window, &rect, FALSE);
}

void paintTitle(HDC context, HWND window)
{
    RECT line = titleLineOf(window);
    FillRect(context, &line, GetSysColorBrush(COLOR_WINDOW));
    SetTextColor(context, GetSysColor(COLOR_WINDOWTEXT));
    RECT text{line.left + boxGap, line.top, line.right - boxGap, line.bottom};
    DrawTextA(context, drawing.title.c_str(), static_cast<int>(drawing.title.size()), &text,
              DT_LEFT | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX | DT_END_ELLIPSIS);
}

void paintBar(HDC context, HWND window)
{
    RECT canvas = canvasOf(window);
    RECT bar{0, canvas.top, barWidth, canvas.bottom};
    FillRect(context, &bar, GetSysColorBrush(COLOR_BTNFACE));
    for (int i = 0; i < colorCount; ++i) {
        RECT box = boxOf(i);
        DrawEdge(context, &box, colors[i] == drawing.color ? EDGE_SUNKEN : EDGE_RAISED, BF_RECT | BF_ADJUST);
        HBRUSH brush = CreateSolidBrush(colors[i]);
        FillRect(context, &box, brush);
        DeleteObject(brush);
    }
}

void paintStatus(HDC context, HWND window)
{
    RECT line = statusLineOf(window);
    FillRect(context, &line, GetSysColorBrush(COLOR_BTNFACE));
    DrawEdge(context, &line, BDR_SUNKENOUTER, BF_TOP);
    char text[100];
    snprintf(text, sizeof text, "Pen %d     Strokes %zu", drawing.width, drawing.strokes.size());
    RECT inside{line.left + boxGap, line.top, line.right - boxGap, line.bottom};
    SetTextColor(context, GetSysColor(COLOR_BTNTEXT));
    DrawTextA(context, text, -1, &inside, DT_LEFT | DT_VCENTER | DT_SINGLELINE);
}

void paintStroke(HDC context, const Stroke &stroke)
{
    HGDIOBJ oldPen = SelectObject(context, CreatePen(PS_SOLID, stroke.width, stroke.color));
    const POINT &first = stroke.points.front();
    MoveToEx(context, first.x, first.y, nullptr);
    LineTo(context, first.x + (stroke.points.size() == 1), first.y);
    for (const POINT &point : stroke.points)
        LineTo(context, point.x, point.y);
    DeleteObject(SelectObject(context, oldPen));
}

void paint(HWND window)
{
    PAINTSTRUCT paint;
    HDC context = BeginPaint(window, &paint);
    SetBkMode(context, TRANSPARENT);
    paintTitle(context, window);
    paintBar(context, window);
    paintStatus(context, window);
    RECT canvas = canvasOf(window);
    FillRect(context, &canvas, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
    IntersectClipRect(context, canvas.left, canvas.top, canvas.right, canvas.bottom);
    for (const Stroke &stroke : drawing.strokes)
        paintStroke(context, stroke);
    EndPaint(window, &paint);
}

void press(HWND window, POINT point)
{
    for (int i = 0; i < colorCount; ++i) {
        RECT box = boxOf(i);
        if (PtInRect(&box, point)) {
            drawing.color = colors[i];
            repaint(window, {0, titleHeight, barWidth, clientOf(window).bottom});
            return;
        }
    }
    RECT canvas = canvasOf(window);
    if (!PtInRect(&canvas, point))
        return;
    drawing.isDrawing = true;
    drawing.strokes.push_back({drawing.color, drawing.width, {point}});
    SetCapture(window);
    repaint(window, canvas);
    repaint(window, statusLineOf(window));
}

void drag(HWND window, POINT point)
{
    if (!drawing.isDrawing)
        return;
    Stroke &stroke = drawing.strokes.back();
    POINT last = stroke.points.back();
    stroke.points.push_back(point);
    RECT touched{std::min(last.x, point.x), std::min(last.y, point.y), std::max(last.x, point.x) + 1,
                 std::max(last.y, point.y) + 1};
    InflateRect(&touched, stroke.width, stroke.width);
    repaint(window, touched);
}

void letGo()
{
    if (std::exchange(drawing.isDrawing, false))
        ReleaseCapture();
}

void turnWheel(HWND window, int notches)
{
    drawing.width = std::clamp(drawing.width + notches, 1, thickestPen);
    repaint(window, statusLineOf(window));
}

void copyTitle(HWND window)
{
    HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, drawing.title.size() + 1);
    if (!block || !OpenClipboard(window))
        return;
    memcpy(GlobalLock(block), drawing.title.c_str(), drawing.title.size() + 1);
    GlobalUnlock(block);
    EmptyClipboard();
    SetClipboardData(CF_TEXT, block);
    CloseClipboard();
}

void pasteTitle(HWND window)
{
    if (!OpenClipboard(window))
        return;
    HANDLE block = GetClipboardData(CF_TEXT);
    if (auto text = block ? static_cast<const char *>(GlobalLock(block)) : nullptr) {
        drawing.title.assign(text, strcspn(text, "\r\n"));
        GlobalUnlock(block);
    }
    CloseClipboard();
    repaint(window, titleLineOf(window));
}

void typeCharacter(HWND window, char character)
{
    constexpr char controlC = 3, controlV = 22, controlZ = 26, backspace = 8, escape = 27;
    switch (character) {
    case controlC: copyTitle(window); return;
    case controlV: pasteTitle(window); return;
    case controlZ:
        if (!drawing.strokes.empty() && !drawing.isDrawing)
            drawing.strokes.pop_back();
        break;
    case escape:
        if (!drawing.isDrawing)
            drawing = Drawing{};
        break;
    case backspace:
        if (!drawing.title.empty())
            drawing.title.pop_back();
        break;
    default:
        if (static_cast<unsigned char>(character) >= ' ')
            drawing.title.push_back(character);
    }
    repaint(window, clientOf(window));
}

bool setCursor(HWND window)
{
    POINT point;
    GetCursorPos(&point);
    ScreenToClient(window, &point);
    RECT canvas = canvasOf(window);
    SetCursor(LoadCursorA(nullptr, PtInRect(&canvas, point) ? IDC_CROSS : IDC_ARROW));
    return true;
}

LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    POINT point{static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
    switch (message) {
    case WM_PAINT: paint(window); return 0;
    case WM_ERASEBKGND: return TRUE; // all of it is painted
    case WM_LBUTTONDOWN: press(window, point); return 0;
    case WM_MOUSEMOVE: drag(window, point); return 0;
    case WM_LBUTTONUP: letGo(); return 0;
    case WM_CAPTURECHANGED: drawing.isDrawing = false; return 0;
    case WM_MOUSEWHEEL: turnWheel(window, static_cast<short>(HIWORD(wParam)) / WHEEL_DELTA); return 0;
    case WM_CHAR: typeCharacter(window, static_cast<char>(wParam)); return 0;
    case WM_SETCURSOR:
        if (LOWORD(lParam) == HTCLIENT)
            return setCursor(window);
        break;
    case WM_DESTROY: PostQuitMessage(0); return 0;
    default: break;
    }
    return DefWindowProcA(window, message, wParam, lParam);
}

} // namespace

int main()
{
    WNDCLASSA windowClass{};
    windowClass.style = CS_HREDRAW | CS_VREDRAW;
    windowClass.lpfnWndProc = procedure;
    windowClass.hInstance = GetModuleHandleA(nullptr);
    windowClass.lpszClassName = "Sketch";
    RegisterClassA(&windowClass);
    HWND window = CreateWindowExA(0, "Sketch", "Sketch", WS_OVERLAPPEDWINDOW, 40, 30, 480, 340, nullptr, nullptr,
                                  windowClass.hInstance, nullptr);
    if (!window)
        return 1;
    ShowWindow(window, SW_SHOW);
    MSG message;
    while (GetMessageA(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
    return static_cast<int>(message.wParam);
}
