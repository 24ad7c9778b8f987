// The mouse, the keyboard and the time as they are at this moment.
#include "Events_internal.h"

#include <mtbx/Displays.h>
#include <mtbx/MTBXEnvironment.h>
#include <mtbx/MTBXGlobals.h>

namespace {

bool isDown(int key)
{
    return (GetAsyncKeyState(key) & 0x8000) != 0;
}

bool isToggled(int key)
{
    return (GetKeyState(key) & 1) != 0;
}

bool areButtonsSwapped()
{
    return GetSystemMetrics(SM_SWAPBUTTON) != 0;
}

constexpr UInt32 ticksPerSecond = 60;
constexpr UInt32 millisecondsPerSecond = 1000;

} // namespace

void GetMouse(Point *mouseLoc)
{
    GetGlobalMouse(mouseLoc);
    GlobalToLocal(mouseLoc);
}

Boolean Button()
{
    bool isSecond = areButtonsSwapped() != (G_useSecondButton != 0);
    return isDown(isSecond ? VK_RBUTTON : VK_LBUTTON);
}

Boolean StillDown()
{
    pollMessageQueue();
    if (!Button())
        return false;
    return GetQueueStatus(QS_MOUSEBUTTON) == 0 || !peekMessage(WM_LBUTTONUP, WM_RBUTTONDBLCLK);
}

void GetKeys(KeyMap theKeys)
{
    struct {
        unsigned key;
        bool isSet;
    } const states[] = {{56, isDown(VK_SHIFT)},
                        {49, isDown(VK_SPACE)},
                        {58, isDown(VK_MENU)},
                        {55, isDown(VK_CONTROL)},
                        {57, isToggled(VK_CAPITAL)}};
    for (int word = 0; word < 4; ++word)
        theKeys[word] = 0;
    for (const auto &state : states)
        if (state.isSet)
            theKeys[state.key / 32] |= UInt32{1} << ((state.key & 7) + 24 - (state.key & 24));
}

EventModifiers GetModifiersState()
{
    unsigned modifiers = 0;
    if (isDown(VK_MENU))
        modifiers |= optionKey;
    if (isDown(VK_SHIFT))
        modifiers |= shiftKey;
    if (isDown(VK_CONTROL))
        modifiers |= cmdKey;
    if (isToggled(VK_CAPITAL))
        modifiers |= alphaLock;
    if (isDown(areButtonsSwapped() ? VK_RBUTTON : VK_LBUTTON))
        modifiers |= btnState;
    return static_cast<EventModifiers>(modifiers);
}

UInt32 GetCurrentKeyModifiers()
{
    return GetModifiersState();
}

UInt32 KeyTranslate(const void *, UInt16, UInt32 *)
{
    return 0;
}

UInt32 TickCount()
{
    return static_cast<UInt32>(UInt64{GetTickCount()} * ticksPerSecond / millisecondsPerSecond);
}

void Delay(UInt32 numTicks, UInt32 *finalTicks)
{
    UInt32 start = TickCount();
    UInt32 end = start + numTicks;
    if (finalTicks)
        *finalTicks = end;
    // A count below the start has begun anew.
    for (UInt32 now = start; now < end && now >= start;)
        now = TickCount();
}

UInt32 GetDblTime()
{
    return static_cast<UInt32>(static_cast<SInt32>(GetDoubleClickTime()) * 6 / 100);
}

UInt32 GetCaretTime()
{
    StubError("Events", "GetCaretTime");
    return 0;
}

void *GetEvQHdr()
{
    StubError("Events", "GetEvQHdr");
    return nullptr;
}

void SystemClick(const EventRecord *, WindowPtr)
{
}
