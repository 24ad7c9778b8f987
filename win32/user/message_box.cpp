// Message boxes: a window of its own with a text, a sign and buttons, and a loop until one of them is pressed.
#include "control_text.h"
#include "kernel/control_state.h"
#include "kernel/kernel_internal.h"
#include "message_queue.h"
#include "modal_loop.h"
#include "placement.h"
#include "system_signs.h"

#include <iterator>

namespace win32::user {
namespace {

struct Choice {
    int id;
    const char *label;
};

constexpr Choice ok{IDOK, "OK"}, cancel{IDCANCEL, "Cancel"}, abortChoice{IDABORT, "&Abort"}, retry{IDRETRY, "&Retry"},
    ignore{IDIGNORE, "&Ignore"}, yes{IDYES, "&Yes"}, no{IDNO, "&No"};

// By the low bits of the type.
const std::vector<Choice> &choicesOf(UINT type)
{
    static const std::vector<Choice> sets[] = {{ok},          {ok, cancel}, {abortChoice, retry, ignore},
                                               {yes, no, cancel}, {yes, no},    {retry, cancel}};
    UINT number = type & MB_TYPEMASK;
    return sets[number < std::size(sets) ? number : 0];
}

constexpr int margin = 11, buttonWidth = 75, buttonHeight = 23, gap = 6;

struct Box {
    std::string text;
    UINT type = 0;
    int result = 0;
    bool isOver = false;
    RECT textRect{};
    std::vector<HWND> buttons;

    bool hasSign() const { return (type & MB_ICONMASK) != 0; }
};

Box *boxOf(HWND window)
{
    return reinterpret_cast<Box *>(GetWindowLongPtrA(window, GWLP_USERDATA));
}

bool mayCancel(const Box &box)
{
    for (const Choice &choice : choicesOf(box.type)) {
        if (choice.id == IDCANCEL)
            return true;
    }
    return choicesOf(box.type).size() == 1; // a lone OK is closed by Escape too
}

void finish(Box &box, int id)
{
    box.result = id;
    box.isOver = true;
}

void paintBox(HWND window, const Box &box)
{
    PAINTSTRUCT paint;
    HDC context = BeginPaint(window, &paint);
    if (!context)
        return;
    FontScope font(context, static_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT)));
    SetBkMode(context, TRANSPARENT);
    SetTextColor(context, GetSysColor(COLOR_WINDOWTEXT));
    RECT rect = box.textRect;
    DrawTextA(context, box.text.c_str(), static_cast<int>(box.text.size()), &rect, DT_WORDBREAK | DT_EXPANDTABS | DT_NOPREFIX);
    if (box.hasSign())
        drawSign(context, margin, margin, box.type);
    EndPaint(window, &paint);
}

// The window's procedure may get messages before the box is known to it and after it is over.
LRESULT CALLBACK boxProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    Box *box = boxOf(window);
    if (!box)
        return DefWindowProcA(window, message, wParam, lParam);
    switch (message) {
    case WM_PAINT:
        paintBox(window, *box);
        return 0;
    case WM_COMMAND:
        if (HIWORD(wParam) == BN_CLICKED)
            finish(*box, LOWORD(wParam));
        return 0;
    case WM_CLOSE:
        if (mayCancel(*box))
            finish(*box, choicesOf(box->type).size() == 1 ? int{IDOK} : int{IDCANCEL});
        return 0;
    case WM_ACTIVATE:
        if (LOWORD(wParam) != WA_INACTIVE && !box->buttons.empty() && GetFocus() != box->buttons.front())
            SetFocus(box->buttons[std::min<size_t>((box->type & MB_DEFMASK) >> 8, box->buttons.size() - 1)]);
        return 0;
    default:
        return DefWindowProcA(window, message, wParam, lParam);
    }
}

LPCSTR boxClass()
{
    static const ATOM atom = [] {
        addSystemClass(MAKEINTATOM(32770), CS_SAVEBITS | CS_DBLCLKS, boxProcedure, 30, LoadCursorA(nullptr, IDC_ARROW),
                       reinterpret_cast<HBRUSH>(COLOR_3DFACE + 1));
        return ATOM{0x8002};
    }();
    return MAKEINTATOM(atom);
}

// How large the text is, at most so wide that the box fits on the screen.
SIZE measure(const std::string &text, int mostWidth)
{
    HDC context = GetDC(nullptr);
    RECT rect{0, 0, mostWidth, 0};
    {
        FontScope font(context, static_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT)));
        DrawTextA(context, text.c_str(), static_cast<int>(text.size()), &rect,
                  DT_CALCRECT | DT_WORDBREAK | DT_EXPANDTABS | DT_NOPREFIX);
    }
    ReleaseDC(nullptr, context);
    return {rect.right, rect.bottom};
}

HWND makeBox(HWND owner, LPCSTR caption, Box &box)
{
    RECT area = workArea(MonitorFromWindow(owner, MONITOR_DEFAULTTOPRIMARY));
    SIZE text = measure(box.text, (area.right - area.left) * 3 / 5);
    const std::vector<Choice> &choices = choicesOf(box.type);
    int signWidth = box.hasSign() ? signSize + margin : 0;
    int buttonsWidth = static_cast<int>(choices.size()) * (buttonWidth + gap) - gap;
    int width = std::max<int>(signWidth + text.cx, buttonsWidth) + 2 * margin;
    int textHeight = std::max<int>(text.cy, box.hasSign() ? int{signSize} : 0);
    int height = margin + textHeight + margin + buttonHeight + margin;
    int textTop = margin + (textHeight - text.cy) / 2;
    box.textRect = {margin + signWidth, textTop, margin + signWidth + text.cx, textTop + text.cy};
    RECT frame{0, 0, width, height};
    DWORD style = WS_POPUP | WS_CAPTION | WS_SYSMENU, extended = WS_EX_DLGMODALFRAME | WS_EX_WINDOWEDGE;
    if (box.type & (MB_SYSTEMMODAL | MB_TOPMOST))
        extended |= WS_EX_TOPMOST;
    AdjustWindowRectEx(&frame, style, FALSE, extended);
    int outerWidth = frame.right - frame.left, outerHeight = frame.bottom - frame.top;
    HWND window = CreateWindowExA(extended, boxClass(), caption ? caption : "Error", style,
                                  area.left + (area.right - area.left - outerWidth) / 2,
                                  area.top + (area.bottom - area.top - outerHeight) / 2, outerWidth, outerHeight, owner,
                                  nullptr, nullptr, nullptr);
    if (!window)
        return nullptr;
    int x = (width - buttonsWidth) / 2;
    size_t defaultNumber = std::min<size_t>((box.type & MB_DEFMASK) >> 8, choices.size() - 1);
    for (size_t i = 0; i < choices.size(); ++i, x += buttonWidth + gap) {
        DWORD kind = i == defaultNumber ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON;
        HWND button = CreateWindowExA(0, "Button", choices[i].label, WS_CHILD | WS_VISIBLE | WS_TABSTOP | kind, x,
                                      height - margin - buttonHeight, buttonWidth, buttonHeight, window,
                                      reinterpret_cast<HMENU>(static_cast<INT_PTR>(choices[i].id)), nullptr, nullptr);
        SendMessageA(button, WM_SETFONT, reinterpret_cast<WPARAM>(GetStockObject(DEFAULT_GUI_FONT)), FALSE);
        box.buttons.push_back(button);
    }
    SetWindowLongPtrA(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(&box));
    return window;
}

void moveFocus(const Box &box, int step)
{
    auto count = static_cast<int>(box.buttons.size());
    for (int i = 0; i < count; ++i) {
        if (GetFocus() == box.buttons[static_cast<size_t>(i)]) {
            SetFocus(box.buttons[static_cast<size_t>((i + step + count) % count)]);
            return;
        }
    }
}

bool pressMarked(const Box &box, char letter)
{
    if (letter >= 'a' && letter <= 'z')
        letter = static_cast<char>(letter - 'a' + 'A');
    for (HWND button : box.buttons) {
        if (letter && marker(textOf(button)) == letter) {
            SendMessageA(button, BM_CLICK, 0, 0);
            return true;
        }
    }
    return false;
}

// Keys that the box takes before its buttons do.
bool takeKey(HWND window, Box &box, const MSG &message)
{
    if (message.message == WM_CHAR || message.message == WM_SYSCHAR)
        return pressMarked(box, static_cast<char>(message.wParam));
    if (message.message != WM_KEYDOWN)
        return false;
    switch (message.wParam) {
    case VK_ESCAPE:
        SendMessageA(window, WM_CLOSE, 0, 0);
        return true;
    case VK_RETURN:
        SendMessageA(GetFocus(), BM_CLICK, 0, 0);
        return true;
    case VK_TAB:
        moveFocus(box, GetKeyState(VK_SHIFT) < 0 ? -1 : 1);
        return true;
    case VK_LEFT:
    case VK_UP:
        moveFocus(box, -1);
        return true;
    case VK_RIGHT:
    case VK_DOWN:
        moveFocus(box, 1);
        return true;
    default:
        return false;
    }
}

int runBox(HWND owner, LPCSTR text, LPCSTR caption, UINT type)
{
    Box box;
    box.text = text ? text : "";
    box.type = type;
    MessageBeep(type & MB_ICONMASK);
    HWND before = GetActiveWindow();
    HWND window = makeBox(owner, caption, box);
    if (!window)
        return 0;
    bool wasEnabled = owner && !EnableWindow(owner, FALSE);
    ShowWindow(window, SW_SHOW);
    runModalLoop(window, box.isOver, [&](const MSG &message) { return takeKey(window, box, message); });
    if (wasEnabled)
        EnableWindow(owner, TRUE);
    if (IsWindow(window)) {
        SetWindowLongPtrA(window, GWLP_USERDATA, 0);
        DestroyWindow(window);
    }
    if (IsWindow(before) && before != GetActiveWindow())
        SetActiveWindow(before);
    return box.result;
}

} // namespace
} // namespace win32::user

int MessageBoxA(HWND owner, LPCSTR text, LPCSTR caption, UINT type)
{
    using namespace win32;
    if (owner && !user::findWindow(owner))
        return 0;
    int answer;
    if (control::answersMessageBox(text ? text : "", caption ? caption : "Error", type, answer))
        return answer;
    return guarded(0, [&] { return user::runBox(owner, text, caption, type); });
}
