#include "control_text.h"

#include "kernel/kernel_internal.h"

namespace win32::user {

std::string textOf(HWND window)
{
    std::string text(static_cast<size_t>(GetWindowTextLengthA(window)) + 1, 0);
    text.resize(static_cast<size_t>(GetWindowTextA(window, text.data(), static_cast<int>(text.size()))));
    return text;
}

HBRUSH controlBrush(HWND window, HDC context, UINT message)
{
    HWND parent = GetParent(window);
    LRESULT brush = SendMessageA(parent ? parent : window, message, reinterpret_cast<WPARAM>(context),
                                 reinterpret_cast<LPARAM>(window));
    return brush ? reinterpret_cast<HBRUSH>(brush) : GetSysColorBrush(COLOR_3DFACE);
}

char marker(const std::string &label)
{
    for (size_t i = 0; i + 1 < label.size(); ++i) {
        if (label[i] != '&')
            continue;
        char letter = label[i + 1];
        if (letter != '&')
            return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
        ++i;
    }
    return 0;
}

} // namespace win32::user
