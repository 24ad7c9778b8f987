// The one event that waits: written by the host's window procedures, taken here.
#include "Events_internal.h"

#include <mtbx/MTBXGlobals.h>

#include <cstring>

namespace {

// As the number that an osEvt's message is when the mouse moved.
constexpr UInt32 mouseMovedNumber = UInt32{mouseMovedMessage} << 24;

bool tellsOnlyWhereTheMouseIs(const EventRecord &event)
{
    return event.what == nullEvent || (event.what == osEvt && static_cast<UInt32>(event.message) == mouseMovedNumber);
}

Point mouseInMainWindow()
{
    POINT mouse = {};
    GetCursorPos(&mouse);
    ScreenToClient(hWndMain, &mouse);
    return {static_cast<SInt16>(mouse.y), static_cast<SInt16>(mouse.x)};
}

} // namespace

Boolean WaitNextEvent(EventMask eventMask, EventRecord *theEvent, UInt32, RgnHandle)
{
    return GetNextEvent(eventMask, theEvent);
}

Boolean GetNextEvent(EventMask, EventRecord *theEvent)
{
    *theEvent = gTheEvent;
    gTheEvent.what = nullEvent;
    if (tellsOnlyWhereTheMouseIs(*theEvent)) {
        theEvent->where = mouseInMainWindow();
        theEvent->modifiers = GetModifiersState();
    }
    return theEvent->what != nullEvent;
}

Boolean GetOSEvent(EventMask mask, EventRecord *theEvent)
{
    return GetNextEvent(mask, theEvent);
}
