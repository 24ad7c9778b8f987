// Nothing records what is injected here.
#include "screen/injection.h"

#include "held_buttons.h"

#include "program_thread.h"
#include "program_windows.h"

namespace win32::screen {
namespace {

bool isHeld[3];

RECT allMonitors()
{
    LONG left = GetSystemMetrics(SM_XVIRTUALSCREEN), top = GetSystemMetrics(SM_YVIRTUALSCREEN);
    return {left, top, left + GetSystemMetrics(SM_CXVIRTUALSCREEN), top + GetSystemMetrics(SM_CYVIRTUALSCREEN)};
}

} // namespace

void injectMove(POINT point)
{
    sendMove(point, allMonitors());
}

void injectButton(MouseButton button, Press press)
{
    sendButton(button, press);
    isHeld[static_cast<int>(button)] = press == Press::Down;
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
