#include "MessageBoxes.h"

#include <windows.h>

namespace {

MessageBoxes *current = nullptr;
HHOOK hook = nullptr;

std::string textOf(HWND window)
{
    char text[1024] = "";
    GetWindowTextA(window, text, sizeof text);
    return text;
}

// Called behind each message of the thread's windows; a box has its texts once it was initialised.
LRESULT CALLBACK answerBox(int code, WPARAM wParam, LPARAM lParam)
{
    constexpr int textOfBox = 0xFFFF;
    const auto &call = *reinterpret_cast<const CWPRETSTRUCT *>(lParam);
    HWND text = call.message == WM_INITDIALOG ? GetDlgItem(call.hwnd, textOfBox) : nullptr;
    if (code != HC_ACTION || !text)
        return CallNextHookEx(hook, code, wParam, lParam);
    current->shown.push_back({textOf(call.hwnd), textOf(text)});
    int answer = IDOK;
    if (!current->answers.empty()) {
        answer = current->answers.front();
        current->answers.pop_front();
    }
    // Where no window manager runs, taking a box from the screen would cost Wine two seconds.
    SetWindowPos(call.hwnd, nullptr, -20000, -20000, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    EndDialog(call.hwnd, answer);
    return 0;
}

} // namespace

MessageBoxes::MessageBoxes(std::deque<int> answersToCome) : answers(std::move(answersToCome))
{
    current = this;
    hook = SetWindowsHookExA(WH_CALLWNDPROCRET, answerBox, nullptr, GetCurrentThreadId());
}

MessageBoxes::~MessageBoxes()
{
    UnhookWindowsHookEx(hook);
    current = nullptr;
}
