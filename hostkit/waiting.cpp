// Taking events, and sleeping until there is one.
#include "hostkit_internal.h"

#include <algorithm>
#include <utility>

namespace hostkit {
namespace {

HostKitEventProcPtr eventProc;
int systemLoopDepth;
// The program has taken all its events.
bool isWaiting;

// Where the mouse was when a movement was last an event.
Point lastMove;

constexpr int mostMessagesAtOnce = 500; // a flood must not keep the program from its own events

// The names of some headers have bits that older systems refuse.
constexpr DWORD mouseAndKeys = 0x0007, allInput = 0x04FF;

// Input stays where it is while there is no room for it, and while the system follows the mouse.
bool isInputLeft()
{
    return isInputFull() || (isTracking() && Button());
}

bool takeMessage(MSG &message)
{
    UINT flags = PM_REMOVE;
    if (isInputLeft())
        flags |= PM_QS_PAINT | PM_QS_POSTMESSAGE | PM_QS_SENDMESSAGE;
    return PeekMessageA(&message, nullptr, 0, 0, flags);
}

bool deliverMessage()
{
    MSG message;
    if (!takeMessage(message))
        return false;
    isWaiting = false;
    if (message.message == WM_QUIT) {
        askToQuit();
        return true;
    }
    TranslateMessage(&message);
    DispatchMessageA(&message);
    return true;
}

// A queue that seems empty is not looked into: whoever watches a program, as replays do, takes a look in vain for a
// sign that it has nothing left to do.
void deliverMessages(EventMask mask)
{
    for (int i = 0; i < mostMessagesAtOnce && HIWORD(GetQueueStatus(allInput)); ++i) {
        makeRoomFor(mask);
        if (!deliverMessage())
            return;
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
    if (!(mask & osMask) || !isProgramActive() || !mouseRgn || EmptyRgn(mouseRgn))
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

// The event passes through the slot, as the library's own calls expect. What waits there for another mask stays.
bool handOver(const EventRecord &found, EventRecord *event)
{
    EventRecord kept = gTheEvent;
    gTheEvent = found;
    bool isEvent = GetNextEvent(everyEvent, event) != 0;
    if (kept.what != nullEvent)
        gTheEvent = kept;
    return isEvent;
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
    // Input that is left where it is must not end the sleep.
    DWORD wakers = isInputLeft() ? allInput & ~mouseAndKeys : allInput;
    MsgWaitForMultipleObjectsEx(0, nullptr, milliseconds, wakers, MWMO_ALERTABLE | MWMO_INPUTAVAILABLE);
}

// A program that follows the mouse has seen this place, and found the mouse there again.
POINT restPlace;
bool isAtRest;

POINT cursorPlace()
{
    POINT mouse = {};
    GetCursorPos(&mouse);
    return mouse;
}

bool isMouseAtRest()
{
    POINT mouse = cursorPlace();
    return isAtRest && mouse.x == restPlace.x && mouse.y == restPlace.y;
}

// While the mouse rests the processor may, too.
void yieldWhileAtRest()
{
    constexpr DWORD moment = 2;
    POINT mouse = cursorPlace();
    isAtRest = mouse.x == restPlace.x && mouse.y == restPlace.y;
    restPlace = mouse;
    if (isAtRest)
        MsgWaitForMultipleObjectsEx(0, nullptr, moment, QS_MOUSE, 0);
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

SystemLoop::SystemLoop() : depthBefore_(systemLoopDepth++)
{
}

SystemLoop::~SystemLoop()
{
    systemLoopDepth = depthBefore_;
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
    HWND native = nativeOf(port);
    eventProc(&event);
    bool isGone = native && !isStill(port, native);
    if (port && !isGone)
        MacSetPort(port);
}

void forgetLoops()
{
    systemLoopDepth = 0;
    isWaiting = isAtRest = false;
    eventProc = nullptr;
    lastMove = {};
}

bool isButtonHeld()
{
    return StillDown() && !hasInput(mUpMask);
}

} // namespace hostkit

using namespace hostkit;

Boolean HostKitWaitNextEvent(EventMask mask, EventRecord *event, UInt32 sleep, RgnHandle mouseRgn)
{
    Deadline deadline(sleep);
    EventRecord found = {};
    isWaiting = isAtRest = false;
    takeQuitRequest(); // an old one
    for (bool hasLooked = false;;) {
        deliverMessages(mask);
        letGoOfMouse();
        if (nextEvent(mask, found, true) || takeMouseMove(mask, mouseRgn, found)) {
            isWaiting = false;
            return handOver(found, event);
        }
        // The queue's status need not tell of a request to quit.
        if (!std::exchange(hasLooked, true) && deliverMessage())
            continue;
        DWORD left = deadline.left();
        if (left == 0 || takeQuitRequest())
            return giveNull(event);
        isWaiting = true;
        sleepUpTo(left);
        hasLooked = false;
    }
}

Boolean HostKitIsWaiting()
{
    return isWaiting || isInSystemLoop() || isMouseAtRest();
}

Boolean HostKitGetNextEvent(EventMask mask, EventRecord *event)
{
    return HostKitWaitNextEvent(mask, event, 0, nullptr);
}

Boolean HostKitEventAvail(EventMask mask, EventRecord *event)
{
    deliverMessages(mask);
    if (nextEvent(mask, *event, false))
        return true;
    return giveNull(event);
}

void HostKitFlushEvents(EventMask which, EventMask stop)
{
    // Input beyond what there was room for comes behind what goes.
    do
        deliverMessages(0);
    while (flushInput(which, stop));
}

Boolean HostKitStillDown()
{
    bool isHeld = isButtonHeld();
    if (isHeld) {
        yieldWhileAtRest();
        isHeld = isButtonHeld();
    }
    isAtRest = isAtRest && isHeld;
    return isHeld;
}

Boolean HostKitWaitMouseUp()
{
    if (HostKitStillDown())
        return true;
    EventRecord release;
    MSG message;
    if (!takeInputEvent(mUpMask, release, true)) {
        PeekMessageA(&message, nullptr, WM_LBUTTONUP, WM_LBUTTONUP, PM_REMOVE)
            || PeekMessageA(&message, nullptr, WM_NCLBUTTONUP, WM_NCLBUTTONUP, PM_REMOVE);
    }
    letGoOfMouse();
    return false;
}

void HostKitSetEventProc(HostKitEventProcPtr proc)
{
    eventProc = proc;
}
