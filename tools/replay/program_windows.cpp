#include "program_windows.h"

#include "program_thread.h"

namespace replay {
namespace {

using Windows = std::vector<HWND>;

BOOL CALLBACK add(HWND window, LPARAM list)
{
    reinterpret_cast<Windows *>(list)->push_back(window);
    return TRUE;
}

} // namespace

bool hasCaption(HWND window)
{
    return (GetWindowLongA(window, GWL_STYLE) & WS_CAPTION) == WS_CAPTION;
}

// EnumWindows goes by what lies on top; EnumThreadWindows need not.
Windows windowsOnDesktop()
{
    Windows all, result;
    EnumWindows(add, reinterpret_cast<LPARAM>(&all));
    for (HWND window : all) {
        if (GetWindowThreadProcessId(window, nullptr) == programThread())
            result.push_back(window);
    }
    return result;
}

Windows shownWindows()
{
    Windows result;
    for (HWND window : windowsOnDesktop()) {
        if (!IsWindowVisible(window))
            continue;
        result.push_back(window);
        Windows inside;
        EnumChildWindows(window, add, reinterpret_cast<LPARAM>(&inside));
        for (HWND child : inside) {
            if (IsWindowVisible(child) && hasCaption(child))
                result.push_back(child);
        }
    }
    return result;
}

std::string titleOf(HWND window)
{
    WCHAR title[512];
    int length = InternalGetWindowText(window, title, 512);
    std::string result(static_cast<size_t>(length) * 3, 0);
    int size = length ? WideCharToMultiByte(CP_UTF8, 0, title, length, result.data(), static_cast<int>(result.size()),
                                            nullptr, nullptr)
                      : 0;
    result.resize(static_cast<size_t>(size));
    return result;
}

HWND frontOnDesktop()
{
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    if (GetGUIThreadInfo(programThread(), &info) && info.hwndActive && IsWindowVisible(info.hwndActive))
        return info.hwndActive;
    for (HWND window : windowsOnDesktop()) {
        if (IsWindowVisible(window) && IsWindowEnabled(window))
            return window;
    }
    return nullptr;
}

// Palettes of tools float above the window that counts.
HWND topmostWithTitle(HWND parent)
{
    HWND window = GetWindow(parent, GW_CHILD);
    auto isPalette = [](HWND each) { return (GetWindowLongA(each, GWL_EXSTYLE) & WS_EX_TOOLWINDOW) != 0; };
    while (window && !(IsWindowVisible(window) && hasCaption(window) && !isPalette(window)))
        window = GetWindow(window, GW_HWNDNEXT);
    return window;
}

} // namespace replay
