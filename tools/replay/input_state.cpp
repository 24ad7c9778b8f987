#include "input_state.h"

#include "import_table.h"
#include "program_thread.h"

#include <atomic>

namespace replay {
namespace {

decltype(&GetAsyncKeyState) systemKeyState;
decltype(&GetCursorPos) systemGetCursor;
decltype(&SetCursorPos) systemSetCursor;

std::atomic<POINT> mouse;
std::atomic<bool> isMouseNoted{false};
std::atomic<bool> isHeld[3];
std::atomic<unsigned> looks{0};
unsigned looksAtMessages; // only the player's thread has it

bool isMouseButton(int key)
{
    return key == VK_LBUTTON || key == VK_RBUTTON || key == VK_MBUTTON;
}

SHORT WINAPI keyState(int key)
{
    if (isMouseButton(key) && GetCurrentThreadId() == programThread())
        ++looks;
    return systemKeyState(key);
}

BOOL WINAPI getCursor(LPPOINT point)
{
    if (!isMouseNoted || !point)
        return systemGetCursor(point);
    *point = mouse;
    return TRUE;
}

BOOL WINAPI setCursor(int x, int y)
{
    BOOL isDone = systemSetCursor(x, y);
    POINT point;
    if (isDone && systemGetCursor(&point))
        noteMouseAt(point);
    return isDone;
}

template <class Function> Function *replace(const char *name, Function *other)
{
    return reinterpret_cast<Function *>(replaceImport("user32.dll", name, reinterpret_cast<FARPROC>(other)));
}

} // namespace

void watchInputState()
{
    systemKeyState = replace("GetAsyncKeyState", keyState);
    systemGetCursor = replace("GetCursorPos", getCursor);
    systemSetCursor = replace("SetCursorPos", setCursor);
}

void noteMouseAt(POINT point)
{
    mouse = point;
    isMouseNoted = true;
}

POINT mousePlace()
{
    return mouse;
}

void noteButton(int button, bool isDown)
{
    noteMessagesAreRead();
    isHeld[button] = isDown;
}

bool holdsButton()
{
    return isHeld[0] || isHeld[1] || isHeld[2];
}

unsigned buttonLooks()
{
    return looks;
}

unsigned buttonLooksSinceMessages()
{
    return looks - looksAtMessages;
}

void noteMessagesAreRead()
{
    looksAtMessages = looks;
}

} // namespace replay
