// Taking events, and sleeping until there is one.
#include "hostkit_internal.h"

#include <algorithm>

namespace hostkit {
namespace {

HostKitEventProcPtr eventProc;
int systemLoopDepth;

// Where the mouse was when a movement was last an event.
Point lastMove;

constexpr int mostMessagesAtOnce = 500; // a flood must not keep the program from its own events

bool takeMessage(MSG &message)
{
    UINT flags = PM_REMOVE;
    if (isInputFull())
        flags |= PM_QS_PAINT | PM_QS_POSTMESSAGE | PM_QS_SENDMESSAGE;
    return PeekMessageA(&message, nullptr, 0, 0, flags);
}

void deliverMessages()
{
    MSG message;
    for (int i = 0; i < mostMessagesAtOnce && takeMessage(message); ++i) {
        if (message.message == WM_QUIT) {
            askToQuit();
            continue;
        }
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
}

// A release that nobody saw must not leave the mouse captured.
void letGoOfMouse()
{
    HWND captured = GetCapture();
    bool isHeld = (GetAsyncKeyState(VK_LBUTTON) | GetAsyncKeyState(VK_RBUTTON)) & 0x8000;
    if (captured && !isHeld && (captured == hWndMain || nativeOf(GetHwndMacWindowPtr(captured))))
        ReleaseCapture();
}

bool takeMouseMove(EventMask mask, RgnHandle mouseRgn, EventRecord &event)
{
    if (!(mask & osMask) || !mouseRgn || EmptyRgn(mouseRgn))
        return false;
    Point mouse;
    GetGlobalMouse(&mouse);
    if (PtInRgn(mouse, mouseRgn) || (mouse.h == lastMove.h && mouse.v == lastMove.v))
        return false;
    lastMove = mouse;
    event = eventOf(osEvt, hWndMain, WM_MOUSEMOVE);
    event.message = URefCon{mouseMovedMessage} << 24;
    event.where = mouse;
    return true;
}

// The event passes through the slot, as the library's own calls expect.
bool handOver(EventRecord &found, EventRecord *event)
{
    gTheEvent = found;
    return GetNextEvent(everyEvent, event) != 0;
}

bool giveNull(EventRecord *event)
{
    UInt16 kept = gTheEvent.what; // an event of another mask
    gTheEvent.what = nullEvent;
    GetNextEvent(everyEvent, event);
    gTheEvent.what = kept;
    event->when = TickCount();
    event->message = 0;
    return false;
}

class Deadline {
public:
    explicit Deadline(UInt32 ticks) : start_(GetTickCount())
    {
        constexpr UInt32 longest = 0x7FFFFFFF / 1000 * 60;
        length_ = ticks > longest ? INFINITE : (ticks * UInt64{1000} + 59) / 60;
    }
    DWORD left() const
    {
        if (length_ == INFINITE)
            return INFINITE;
        UInt64 passed = GetTickCount() - start_;
        return passed >= length_ ? 0 : static_cast<DWORD>(length_ - passed);
    }

private:
    DWORD start_;
    UInt64 length_;
};

void sleepUpTo(DWORD milliseconds)
{
    // Input that there is no room for must not end the sleep at once.
    DWORD flags = MWMO_ALERTABLE | (isInputFull() ? 0u : unsigned{MWMO_INPUTAVAILABLE});
    MsgWaitForMultipleObjectsEx(0, nullptr, milliseconds, QS_ALLINPUT, flags);
}

bool isButtonHeld()
{
    return StillDown() && !isReleasePending();
}

// While the mouse rests the processor may, too.
void yieldWhileAtRest()
{
    static POINT last;
    POINT mouse = {};
    GetCursorPos(&mouse);
    if (mouse.x == last.x && mouse.y == last.y)
        MsgWaitForMultipleObjectsEx(0, nullptr, 2, QS_MOUSE, 0);
    last = mouse;
}

} // namespace

void enterSystemLoop()
{
    ++systemLoopDepth;
}

void leaveSystemLoop()
{
    systemLoopDepth = std::max(systemLoopDepth - 1, 0);
}

bool isInSystemLoop()
{
    return systemLoopDepth > 0;
}

void handleInSystemLoop(EventRecord &event)
{
    if (!eventProc)
        return;
    GrafPtr port;
    GetPort(&port);
    eventProc(&event);
    if (port != nullptr)
        MacSetPort(port);
}

} // namespace hostkit

using namespace hostkit;

Boolean HostKitWaitNextEvent(EventMask mask, EventRecord *event, UInt32 sleep, RgnHandle mouseRgn)
{
    Deadline deadline(sleep);
    EventRecord found = {};
    for (;;) {
        deliverMessages();
        letGoOfMouse();
        if (nextEvent(mask, found, true) || takeMouseMove(mask, mouseRgn, found))
            return handOver(found, event);
        DWORD left = deadline.left();
        if (left == 0)
            return giveNull(event);
        sleepUpTo(left);
    }
}

Boolean HostKitGetNextEvent(EventMask mask, EventRecord *event)
{
    return HostKitWaitNextEvent(mask, event, 0, nullptr);
}

Boolean HostKitEventAvail(EventMask mask, EventRecord *event)
{
    deliverMessages();
    if (nextEvent(mask, *event, false))
        return true;
    return giveNull(event);
}

void HostKitFlushEvents(EventMask which, EventMask stop)
{
    deliverMessages();
    flushInput(which, stop);
}

Boolean HostKitStillDown()
{
    if (!isButtonHeld())
        return false;
    yieldWhileAtRest();
    return isButtonHeld();
}

Boolean HostKitWaitMouseUp()
{
    if (HostKitStillDown())
        return true;
    MSG message;
    PeekMessageA(&message, nullptr, WM_LBUTTONUP, WM_LBUTTONUP, PM_REMOVE);
    PeekMessageA(&message, nullptr, WM_RBUTTONUP, WM_RBUTTONUP, PM_REMOVE);
    flushInput(mUpMask, 0);
    letGoOfMouse();
    return false;
}

void HostKitSetEventProc(HostKitEventProcPtr proc)
{
    eventProc = proc;
}
