#include "send_input.h"

#include <algorithm>

namespace win32::screen {
namespace {

void send(const MOUSEINPUT &mouse)
{
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi = mouse;
    SendInput(1, &input, sizeof input);
}

void send(const KEYBDINPUT &key)
{
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki = key;
    SendInput(1, &input, sizeof input);
}

// The least number in 65536ths of the screen that SendInput takes for the pixel.
LONG normalized(LONG pixel, LONG first, LONG end)
{
    LONG size = end - first;
    LONG inside = std::clamp<LONG>(pixel - first, 0, size - 1);
    return static_cast<LONG>((int64_t{inside} * 65536 + size - 1) / size);
}

} // namespace

void sendMove(POINT point, const RECT &screen)
{
    send(MOUSEINPUT{normalized(point.x, screen.left, screen.right), normalized(point.y, screen.top, screen.bottom), 0,
                    MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE | MOUSEEVENTF_VIRTUALDESK, 0, 0});
}

void sendButton(MouseButton button, Press press)
{
    constexpr DWORD flags[][2] = {{MOUSEEVENTF_LEFTDOWN, MOUSEEVENTF_LEFTUP},
                                  {MOUSEEVENTF_RIGHTDOWN, MOUSEEVENTF_RIGHTUP},
                                  {MOUSEEVENTF_MIDDLEDOWN, MOUSEEVENTF_MIDDLEUP}};
    send(MOUSEINPUT{0, 0, 0, flags[static_cast<int>(button)][press == Press::Up], 0, 0});
}

void sendWheel(int notches)
{
    send(MOUSEINPUT{0, 0, static_cast<DWORD>(notches * WHEEL_DELTA), MOUSEEVENTF_WHEEL, 0, 0});
}

void sendKey(const Key &key, Press press)
{
    DWORD flags = (press == Press::Up ? KEYEVENTF_KEYUP : 0) | (key.isExtended ? KEYEVENTF_EXTENDEDKEY : 0);
    send(KEYBDINPUT{key.virtualKey, key.scanCode, flags, 0, 0});
}

void sendCharacter(char16_t unit)
{
    send(KEYBDINPUT{0, unit, KEYEVENTF_UNICODE, 0, 0});
    send(KEYBDINPUT{0, unit, KEYEVENTF_UNICODE | KEYEVENTF_KEYUP, 0, 0});
}

} // namespace win32::screen
