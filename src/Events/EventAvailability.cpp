// A look at what is to come: the slot, and the mouse and key messages in the queue.
#include "Events_internal.h"

#include <mtbx/MTBXEnvironment.h>
#include <mtbx/MTBXGlobals.h>

#include <cctype>
#include <initializer_list>

namespace {

MTBXMsgToEventProcPtr eventConverter;

// The setting "RigorousMouseEvents". Without it any message of a button is taken for the one asked for.
bool isMouseRigorous()
{
    static const bool isRigorous = MTBX_GetRequiredProfileInt("RigorousMouseEvents", 1) != 0;
    return isRigorous;
}

bool isMousePending(EventKind kind)
{
    if (!isMouseRigorous())
        return true;
    static constexpr UINT presses[] = {WM_LBUTTONDOWN, WM_NCLBUTTONDOWN, WM_RBUTTONDOWN, WM_NCRBUTTONDOWN};
    static constexpr UINT releases[] = {WM_LBUTTONUP, WM_NCLBUTTONUP, WM_RBUTTONUP, WM_NCRBUTTONUP};
    for (UINT number : kind == mouseDown ? presses : releases)
        if (peekMessage(number, number))
            return true;
    return false;
}

// Keys whose Macintosh character is none of the native key's number.
bool isByScanCode(unsigned scanCode)
{
    for (unsigned code : {12, 13, 26, 27, 39, 40, 41, 43, 51, 52, 53, 55})
        if (scanCode == code)
            return true;
    return scanCode >= 71 && scanCode <= 83;
}

UInt32 keyMessage(WPARAM key, LPARAM data)
{
    constexpr WPARAM semicolon = 0xBA;
    unsigned scanCode = HIWORD(data) & 0xFF;
    bool isExtended = (HIWORD(data) & KF_EXTENDED) != 0;
    if (key == semicolon)
        return 0x2700;
    if (isByScanCode(scanCode))
        return isExtended ? LOWORD(key) : scanCode << 8;
    if (key == VK_RETURN)
        return isExtended ? 0x11C01 : 0x1C00;
    return LOWORD(key <= 0xFF ? static_cast<WPARAM>(toupper(static_cast<int>(key))) : key);
}

UInt32 ticksOf(DWORD milliseconds)
{
    return static_cast<UInt32>(UInt64{milliseconds} * 6 / 100);
}

bool isModifierKey(const MSG &message)
{
    return message.wParam == VK_SHIFT || message.wParam == VK_CONTROL || message.wParam == VK_MENU;
}

// The numbers of key messages that a mask asks for, and as many behind WM_SYSKEYDOWN.
struct KeyRange {
    UINT first, last;
};
KeyRange keyRange(EventMask mask)
{
    return {(mask & keyDownMask) ? UINT{WM_KEYDOWN} : UINT{WM_KEYUP}, (mask & keyUpMask) ? UINT{WM_KEYUP} : UINT{WM_KEYDOWN}};
}
constexpr UINT toSystemKeys = WM_SYSKEYDOWN - WM_KEYDOWN;

// Finds the first key message of the range, or the first of the system keys' if there is one.
bool findKey(MSG &message, KeyRange range)
{
    bool isPlain = peekMessage(message, range.first, range.last);
    MSG systemKey = {};
    if (!peekMessage(systemKey, range.first + toSystemKeys, range.last + toSystemKeys))
        return isPlain;
    message = systemKey;
    return true;
}

Boolean reportKey(const MSG &message, EventRecord &event)
{
    if (eventConverter) {
        eventConverter(&message, &event);
        return event.what != nullEvent;
    }
    event.what = keyUp;
    event.when = ticksOf(message.time);
    event.message = keyMessage(message.wParam, message.lParam);
    return true;
}

bool reportMouse(EventMask mask, EventRecord &event)
{
    for (EventKind kind : {EventKind{mouseDown}, EventKind{mouseUp}})
        if ((mask & 1 << kind) && isMousePending(kind)) {
            event.what = kind;
            return true;
        }
    return false;
}

Boolean reportFromQueue(EventMask mask, EventRecord &event)
{
    for (;;) {
        DWORD status = GetQueueStatus(QS_KEY | QS_MOUSEBUTTON);
        DWORD pending = HIWORD(status) | LOWORD(status);
        if ((pending & QS_MOUSEBUTTON) && reportMouse(mask, event))
            return true;
        if (!(mask & (keyDownMask | keyUpMask)) || !(pending & QS_KEY))
            return false;
        KeyRange range = keyRange(mask);
        MSG message = {};
        if (!findKey(message, range))
            return false;
        if (!isModifierKey(message))
            return reportKey(message, event);
        removeMessage(message);
    }
}

} // namespace

void pollMessageQueue()
{
    // QS_ALLINPUT of some headers has bits that older systems refuse.
    constexpr DWORD allInput = 0x04FF;
    HANDLE thread = GetCurrentThread();
    MsgWaitForMultipleObjects(1, &thread, TRUE, 0, allInput);
}

void InstallMsgToEventConverter(MTBXMsgToEventProcPtr converter)
{
    eventConverter = converter;
}

Boolean EventAvail(EventMask eventMask, EventRecord *theEvent)
{
    *theEvent = {};
    bool isSeen = gTheEvent.what >= mouseDown && gTheEvent.what <= activateEvt;
    EventMask waiting = isSeen ? static_cast<EventMask>(1 << gTheEvent.what) : EventMask{0};
    pollMessageQueue();
    if (eventMask & waiting) {
        *theEvent = gTheEvent;
        return theEvent->what != nullEvent;
    }
    theEvent->modifiers = GetModifiersState();
    theEvent->when = TickCount();
    return eventMask != 0 && reportFromQueue(eventMask, *theEvent);
}

Boolean OSEventAvail(EventMask mask, EventRecord *theEvent)
{
    return EventAvail(mask, theEvent);
}
