#include "injection.h"

#include "recorder.h"
#include "screen.h"
#include "user/watching.h"

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
LONG normalized(LONG pixel, int size)
{
    LONG inside = std::min<LONG>(std::max<LONG>(pixel, 0), size - 1);
    return static_cast<LONG>((int64_t{inside} * 65536 + size - 1) / size);
}

void note(Step::Kind kind, POINT point, int number, MouseButton button, const Key *key)
{
    if (!isRecording())
        return;
    Step step;
    step.kind = kind;
    step.point = point;
    step.number = number;
    step.button = button;
    if (key) // the table's own: the given one may follow the user's layout, and go
        step.keys.push_back(keyOfVirtualKey(key->virtualKey, key->isExtended));
    record(std::move(step));
}

} // namespace

void injectMove(POINT point)
{
    note(Step::Kind::Move, point, 0, {}, nullptr);
    Size size = screenSize();
    send(MOUSEINPUT{normalized(point.x, size.width), normalized(point.y, size.height), 0,
                    MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE | MOUSEEVENTF_VIRTUALDESK, 0, 0});
}

void injectButton(MouseButton button, Press press)
{
    constexpr DWORD flags[][2] = {{MOUSEEVENTF_LEFTDOWN, MOUSEEVENTF_LEFTUP},
                                  {MOUSEEVENTF_RIGHTDOWN, MOUSEEVENTF_RIGHTUP},
                                  {MOUSEEVENTF_MIDDLEDOWN, MOUSEEVENTF_MIDDLEUP}};
    bool isUp = press == Press::Up;
    note(isUp ? Step::Kind::Release : Step::Kind::Press, {}, 0, button, nullptr);
    send(MOUSEINPUT{0, 0, 0, flags[static_cast<int>(button)][isUp], 0, 0});
}

void injectWheel(int notches)
{
    note(Step::Kind::Wheel, {}, notches, {}, nullptr);
    send(MOUSEINPUT{0, 0, static_cast<DWORD>(notches * WHEEL_DELTA), MOUSEEVENTF_WHEEL, 0, 0});
}

void injectKey(const Key &key, Press press)
{
    bool isUp = press == Press::Up;
    note(isUp ? Step::Kind::KeyUp : Step::Kind::KeyDown, {}, 0, {}, &key);
    DWORD flags = (isUp ? KEYEVENTF_KEYUP : 0) | (key.isExtended ? KEYEVENTF_EXTENDEDKEY : 0);
    send(KEYBDINPUT{key.virtualKey, key.scanCode, flags, 0, 0});
}

void injectCharacter(char16_t unit)
{
    noteCharacter(unit);
    send(KEYBDINPUT{0, unit, KEYEVENTF_UNICODE, 0, 0});
    send(KEYBDINPUT{0, unit, KEYEVENTF_UNICODE | KEYEVENTF_KEYUP, 0, 0});
}

void injectClose()
{
    note(Step::Kind::Close, {}, 0, {}, nullptr);
    if (!user::closeFrontWindow())
        user::quitThreadsWithWindows();
}

} // namespace win32::screen
