// The loop of a window that the program waits for.
#pragma once

#include <windows.h>

namespace win32::user {

// Serves messages until the window is over with or gone. takeKey(message) gets those of the window and its children
// first; true when it took one.
template <class TakeKey> void runModalLoop(HWND window, const bool &isOver, TakeKey takeKey)
{
    MSG message;
    while (!isOver && IsWindow(window)) {
        if (GetMessageA(&message, nullptr, 0, 0) <= 0) {
            // The order to quit is for the program's own loop.
            PostQuitMessage(static_cast<int>(message.wParam));
            return;
        }
        bool isOurs = message.hwnd == window || IsChild(window, message.hwnd);
        if (isOurs && takeKey(message))
            continue;
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
}

} // namespace win32::user
