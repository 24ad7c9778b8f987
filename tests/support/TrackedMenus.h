// A window with a menu bar that a test works with mouse and keys, and an account of what it is told.
#pragma once

#include "Input.h"
#include "SampleMenus.h"
#include "TestWindows.h"

#include <cstdio>
#include <deque>
#include <map>

// File: New (1, with a shortcut), a line, Recent: One (11), Two (12), and Gray (3). Edit: Undo (2), Paste (21).
// Direct (5).
class TrackedMenus : public testing::Test {
protected:
    static void SetUpTestSuite()
    {
        windows = new TestWindows;
        window = windows->make(WS_OVERLAPPEDWINDOW, {100, 100, 500, 400});
        SetClassLongPtrA(window, GCLP_HBRBACKGROUND, COLOR_WINDOW + 1);
        ShowWindow(window, SW_SHOW);
        SetForegroundWindow(window);
    }
    static void TearDownTestSuite()
    {
        delete windows;
        windows = nullptr;
    }

    TrackedMenus()
    {
        AppendMenuA(recent, MF_STRING, 11, "&One");
        AppendMenuA(recent, MF_STRING, 12, "&Two");
        AppendMenuA(file, MF_STRING, 1, "&New\tCtrl+N");
        AppendMenuA(file, MF_SEPARATOR, 0, nullptr);
        AppendMenuA(file, MF_POPUP, idOf(recent), "&Recent");
        AppendMenuA(file, MF_STRING | MF_GRAYED, 3, "&Gray");
        AppendMenuA(edit, MF_STRING, 2, "&Undo");
        AppendMenuA(edit, MF_STRING, 21, "&Paste");
        AppendMenuA(bar, MF_POPUP, idOf(file), "&File");
        AppendMenuA(bar, MF_POPUP, idOf(edit), "&Edit");
        AppendMenuA(bar, MF_STRING, 5, "&Direct");
        SetMenu(window, bar);
        names = {{bar, "bar"}, {file, "file"}, {edit, "edit"}, {recent, "recent"}};
        windows->handler = [this](const TestWindows::Noted &noted, LRESULT &result) { return take(noted, result); };
        input.moveTo(700, 600);
        TestWindows::drain();
        told.clear();
        // Whatever a menu waits for in vain ends with the test.
        SetTimer(window, guardTimer, 5000, nullptr);
    }
    ~TrackedMenus() override
    {
        KillTimer(window, guardTimer);
        windows->handler = nullptr;
        SetMenu(window, nullptr);
        DestroyMenu(bar);
        TestWindows::drain();
        windows->noted.clear();
    }

    // What is done when the menu waits, one after the other.
    void then(std::function<void()> step) { steps.push_back(std::move(step)); }
    void thenType(std::initializer_list<WORD> keys)
    {
        then([this, all = std::vector<WORD>(keys)] { type(all); });
    }

    void type(const std::vector<WORD> &keys)
    {
        for (WORD key : keys)
            input.type(key);
    }
    void typeWithAlt(WORD key)
    {
        input.press(VK_MENU);
        input.type(key);
        input.release(VK_MENU);
    }
    void clickAt(const RECT &rect)
    {
        moveTo(rect);
        input.pressButton();
        input.releaseButton();
    }
    void moveTo(const RECT &rect) { input.moveTo(rect.left + 8, (rect.top + rect.bottom) / 2); }
    RECT barItem(UINT item) const { return rectOf(window, bar, item); }
    static RECT popupItem(HMENU menu, UINT item) { return rectOf(nullptr, menu, item); }
    static RECT rectOf(HWND of, HMENU menu, UINT item)
    {
        RECT rect{};
        EXPECT_TRUE(GetMenuItemRect(of, menu, item, &rect));
        return rect;
    }

    // Serves what is there with a message loop of the plainest kind.
    static void serve()
    {
        MSG message;
        while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
            TranslateMessage(&message);
            DispatchMessageA(&message);
        }
    }

    int track(HMENU menu, UINT flags) const { return TrackPopupMenu(menu, flags, 300, 250, 0, window, nullptr); }

    using Told = std::vector<std::string>;
    Told told;
    std::function<bool(const TestWindows::Noted &, LRESULT &)> answer;
    std::map<HMENU, std::string> names;

    HMENU bar = CreateMenu(), file = CreatePopupMenu(), edit = CreatePopupMenu(), recent = CreatePopupMenu();
    Input input;
    static inline TestWindows *windows;
    static inline HWND window;

private:
    static constexpr UINT_PTR guardTimer = 77;

    std::string nameOf(WPARAM menu) const
    {
        auto found = names.find(reinterpret_cast<HMENU>(menu));
        return found == names.end() ? menu ? "another" : "none" : found->second;
    }

    std::string description(const TestWindows::Noted &noted) const
    {
        auto number = [](auto value) { return " " + std::to_string(static_cast<int>(value)); };
        switch (noted.message) {
        case WM_ENTERMENULOOP: return "enter" + number(noted.wParam);
        case WM_EXITMENULOOP: return "exit" + number(noted.wParam);
        case WM_INITMENU: return "init " + nameOf(noted.wParam);
        case WM_INITMENUPOPUP: return "open " + nameOf(noted.wParam) + number(LOWORD(noted.lParam));
        case WM_UNINITMENUPOPUP: return "close " + nameOf(noted.wParam);
        case WM_MENUSELECT:
            if (HIWORD(noted.wParam) == 0xFFFF)
                return "select nothing";
            return "select" + number(LOWORD(noted.wParam)) + " in " + nameOf(static_cast<WPARAM>(noted.lParam));
        case WM_MENUCHAR:
            return "char" + number(LOWORD(noted.wParam)) + " in " + nameOf(static_cast<WPARAM>(noted.lParam));
        case WM_COMMAND: return "command" + number(noted.wParam);
        case WM_MENUCOMMAND:
            return "command at" + number(noted.wParam) + " in " + nameOf(static_cast<WPARAM>(noted.lParam));
        default: return "";
        }
    }

    bool take(const TestWindows::Noted &noted, LRESULT &result)
    {
        if (noted.window != window)
            return false;
        std::string text = description(noted);
        if (!text.empty())
            told.push_back(text);
        if (answer && answer(noted, result))
            return true;
        if (noted.message == WM_TIMER && noted.wParam == guardTimer) {
            ADD_FAILURE() << "the menu waits";
            EndMenu();
        }
        if (noted.message == WM_ENTERIDLE && !steps.empty()) {
            std::function<void()> step = std::move(steps.front());
            steps.pop_front();
            step();
        }
        return false;
    }

    std::deque<std::function<void()>> steps;
};
