// Windows of a class that notes its messages, for tests.
#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

class TestWindows {
public:
    struct Noted {
        HWND window;
        UINT message;
        WPARAM wParam;
        LPARAM lParam;
    };

    TestWindows()
    {
        current() = this;
        WNDCLASSA windowClass{};
        windowClass.style = CS_DBLCLKS;
        windowClass.lpfnWndProc = procedure;
        windowClass.hInstance = GetModuleHandleA(nullptr);
        windowClass.lpszClassName = className;
        RegisterClassA(&windowClass);
    }
    ~TestWindows()
    {
        for (HWND window : made_) {
            if (IsWindow(window))
                DestroyWindow(window);
        }
        drain();
        UnregisterClassA(className, GetModuleHandleA(nullptr));
        current() = nullptr;
    }
    TestWindows(const TestWindows &) = delete;
    TestWindows &operator=(const TestWindows &) = delete;

    HWND make(DWORD style, const RECT &rect, HWND parent = nullptr, DWORD extendedStyle = 0)
    {
        HWND window = CreateWindowExA(extendedStyle, className, "Title", style, rect.left, rect.top, rect.right - rect.left,
                                      rect.bottom - rect.top, parent, nullptr, GetModuleHandleA(nullptr), nullptr);
        made_.push_back(window);
        return window;
    }
    // A visible window without a frame, the same for every call.
    HWND sharedPopup(const RECT &rect)
    {
        if (!shared_)
            shared_ = make(WS_POPUP | WS_VISIBLE, rect);
        SetWindowPos(shared_, HWND_TOP, rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top, 0);
        noted.clear();
        return shared_;
    }
    // Ends all windows but one, and forgets what was noted.
    void forget(HWND kept)
    {
        handler = nullptr;
        for (HWND window : made_) {
            if (window != kept && IsWindow(window))
                DestroyWindow(window);
        }
        made_.assign({kept});
        drain();
        noted.clear();
    }
    HWND makeChild(HWND parent, const RECT &rect, DWORD style = WS_VISIBLE | WS_CLIPSIBLINGS)
    {
        return make(WS_CHILD | style, rect, parent);
    }

    // Dispatches what is there.
    static void drain()
    {
        MSG message;
        while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE))
            DispatchMessageA(&message);
    }

    // The messages of a window among those listed, in their order.
    std::vector<UINT> notedOf(HWND window, const std::vector<UINT> &listed) const
    {
        std::vector<UINT> result;
        for (const Noted &each : noted) {
            for (UINT message : listed) {
                if (each.window == window && each.message == message)
                    result.push_back(message);
            }
        }
        return result;
    }

    std::vector<Noted> noted;
    // Asked first; true with a result when it took the message.
    std::function<bool(const Noted &, LRESULT &)> handler;

    static constexpr const char *className = "Test window";

private:
    static TestWindows *&current()
    {
        static TestWindows *windows = nullptr;
        return windows;
    }

    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
    {
        LRESULT result = 0;
        Noted noted{window, message, wParam, lParam};
        if (TestWindows *windows = current()) {
            windows->noted.push_back(noted);
            if (windows->handler && windows->handler(noted, result))
                return result;
        }
        return DefWindowProcA(window, message, wParam, lParam);
    }

    std::vector<HWND> made_;
    HWND shared_ = nullptr;
};
