// Nothing records what is injected here.
#include "screen/injection.h"

#include "input_state.h"
#include "program_thread.h"
#include "program_windows.h"

#include <algorithm>

namespace win32::screen {
namespace {

RECT allMonitors()
{
    LONG left = GetSystemMetrics(SM_XVIRTUALSCREEN), top = GetSystemMetrics(SM_YVIRTUALSCREEN);
    return {left, top, left + GetSystemMetrics(SM_CXVIRTUALSCREEN), top + GetSystemMetrics(SM_CYVIRTUALSCREEN)};
}

} // namespace

void injectMove(POINT point)
{
    RECT monitors = allMonitors();
    replay::noteMouseAt({std::clamp(point.x, monitors.left, monitors.right - 1),
                         std::clamp(point.y, monitors.top, monitors.bottom - 1)});
    sendMove(point, monitors);
}

void injectButton(MouseButton button, Press press)
{
    replay::noteButton(static_cast<int>(button), press == Press::Down);
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
