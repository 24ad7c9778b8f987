// Nothing records what is injected here.
#include "screen/injection.h"

#include "held_buttons.h"
#include "pointer.h"
#include "program_thread.h"
#include "program_windows.h"

#include <atomic>

namespace win32::screen {
namespace {

std::atomic<bool> isHeld[3];

} // namespace

void injectMove(POINT point)
{
    replay::moveMouse(point);
}

void injectButton(MouseButton button, Press press)
{
    isHeld[static_cast<int>(button)] = press == Press::Down;
    sendButton(button, press);
}

void injectWheel(int notches)
{
    sendWheel(notches);
}

void injectKey(const Key &key, Press press)
{
    sendKey(key, press);
}

void injectCharacter(char16_t unit)
{
    sendCharacter(unit);
}

void injectClose()
{
    HWND front = replay::frontOnDesktop();
    if (!front || !PostMessageA(front, WM_SYSCOMMAND, SC_CLOSE, 0))
        replay::postQuitToProgram();
}

} // namespace win32::screen

bool replay::holdsButton()
{
    return win32::screen::isHeld[0] || win32::screen::isHeld[1] || win32::screen::isHeld[2];
}
