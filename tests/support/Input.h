// A person's mouse and keyboard. All that is held down is let go at the end.
#pragma once

#include <windows.h>

#include <set>

class Input {
public:
    Input() = default;
    Input(const Input &) = delete;
    Input &operator=(const Input &) = delete;
    ~Input()
    {
        while (!keysDown_.empty())
            release(*keysDown_.begin());
        if (isButtonDown_)
            releaseButton();
    }

    void press(WORD key)
    {
        keysDown_.insert(key);
        sendKey(key, 0);
    }
    void release(WORD key)
    {
        keysDown_.erase(key);
        sendKey(key, KEYEVENTF_KEYUP);
    }
    void type(WORD key)
    {
        press(key);
        release(key);
    }

    void moveTo(int x, int y) { SetCursorPos(x, y); }
    void pressButton()
    {
        isButtonDown_ = true;
        sendMouse(MOUSEEVENTF_LEFTDOWN);
    }
    void releaseButton()
    {
        isButtonDown_ = false;
        sendMouse(MOUSEEVENTF_LEFTUP);
    }

private:
    static void sendKey(WORD key, DWORD flags)
    {
        INPUT input = {};
        input.type = INPUT_KEYBOARD;
        input.ki.wVk = key;
        input.ki.wScan = static_cast<WORD>(MapVirtualKeyA(key, MAPVK_VK_TO_VSC));
        input.ki.dwFlags = flags;
        SendInput(1, &input, sizeof input);
    }
    static void sendMouse(DWORD flags)
    {
        INPUT input = {};
        input.type = INPUT_MOUSE;
        input.mi.dwFlags = flags;
        SendInput(1, &input, sizeof input);
    }

    std::set<WORD> keysDown_;
    bool isButtonDown_ = false;
};
