// Events in their order: activations, the user's input, updates, and what the system says.
#include "hostkit_internal.h"

#include <algorithm>
#include <array>

namespace hostkit {
namespace {

// The input that the program has not taken. Beyond its length, input stays in the system's queue.
class InputQueue {
public:
    bool isFull() const { return count_ == events_.size(); }
    bool has(EventMask mask) const { return find(mask) < count_; }
    void clear() { count_ = 0; }
    void push(const EventRecord &event)
    {
        if (isFull())
            remove(0);
        events_[count_++] = event;
    }
    bool take(EventMask mask, EventRecord &event, bool isTaken)
    {
        size_t place = find(mask);
        if (place == count_)
            return false;
        event = events_[place];
        if (isTaken)
            remove(place);
        return true;
    }
    // Up to the first event of the stopping mask.
    void flush(EventMask which, EventMask stop)
    {
        size_t end = find(stop);
        auto first = events_.begin(), last = first + static_cast<std::ptrdiff_t>(end);
        auto kept = std::remove_if(first, last, [&](const EventRecord &event) { return (which & (1 << event.what)) != 0; });
        std::copy(last, first + static_cast<std::ptrdiff_t>(count_), kept);
        count_ -= static_cast<size_t>(last - kept);
    }

private:
    // The first of the mask; the count of events when there is none.
    size_t find(EventMask mask) const
    {
        size_t place = 0;
        while (place < count_ && !(mask & (1 << events_[place].what)))
            ++place;
        return place;
    }
    void remove(size_t place)
    {
        std::copy(events_.begin() + static_cast<std::ptrdiff_t>(place) + 1, events_.begin() + static_cast<std::ptrdiff_t>(count_),
                  events_.begin() + static_cast<std::ptrdiff_t>(place));
        --count_;
    }

    std::array<EventRecord, 64> events_;
    size_t count_ = 0;
};

InputQueue input;

enum class Switch { None, Suspend, Resume };
Switch pendingSwitch;

HostKitQuitProcPtr quitProc;

// A box of a frame that was asked for without the mouse.
struct PostedPress {
    WindowPtr window = nullptr;
    SInt16 part = 0;
    Point where{};
};
PostedPress postedPress;

bool takeSwitch(EventRecord &event, bool isTaken)
{
    if (pendingSwitch == Switch::None)
        return false;
    event = eventOf(osEvt, hWndMain, WM_ACTIVATEAPP);
    event.message = URefCon{suspendResumeMessage} << 24;
    if (pendingSwitch == Switch::Resume)
        event.message |= resumeFlag;
    if (isTaken)
        pendingSwitch = Switch::None;
    return true;
}

// What the program or a window procedure of its own has put into the slot comes first.
bool takeSlot(EventMask mask, EventRecord &event, bool isTaken)
{
    if (gTheEvent.what == nullEvent || gTheEvent.what > 15 || !(mask & (1 << gTheEvent.what)))
        return false;
    event = gTheEvent;
    if (isTaken)
        gTheEvent.what = nullEvent;
    return true;
}

} // namespace

// The modifiers as they were when the message came, where GetModifiersState tells how they are now.
static UInt16 modifiersOfMessage()
{
    auto isDown = [](int key) { return GetKeyState(key) < 0; };
    int button = GetSystemMetrics(SM_SWAPBUTTON) ? VK_RBUTTON : VK_LBUTTON;
    int modifiers = (isDown(VK_CONTROL) ? cmdKey : 0) | (isDown(VK_SHIFT) ? shiftKey : 0) | (isDown(VK_MENU) ? optionKey : 0)
                  | ((GetKeyState(VK_CAPITAL) & 1) ? alphaLock : 0) | (isDown(button) ? btnState : 0);
    return static_cast<UInt16>(modifiers);
}

EventRecord eventOf(UInt16 what, HWND native, UINT message)
{
    EventRecord event = {};
    DWORD place = GetMessagePos();
    event.what = what;
    event.when = TickCount();
    event.where = globalOf({static_cast<SInt16>(LOWORD(place)), static_cast<SInt16>(HIWORD(place))});
    event.modifiers = modifiersOfMessage();
    event.nativeWindow = native;
    event.nativeMessage = message;
    return event;
}

Point globalOf(POINT screenPoint)
{
    ScreenToClient(hWndMain, &screenPoint);
    return {static_cast<SInt16>(screenPoint.y), static_cast<SInt16>(screenPoint.x)};
}

POINT screenOf(Point global)
{
    POINT point = {global.h, global.v};
    ClientToScreen(hWndMain, &point);
    return point;
}

void postInput(const EventRecord &event)
{
    auto systemMask = static_cast<EventMask>(gEventMask);
    if (systemMask & (1 << event.what))
        input.push(event);
}

bool isInputFull()
{
    return input.isFull();
}

bool isReleasePending()
{
    return input.has(mUpMask);
}

void forgetEvents()
{
    input.clear();
    pendingSwitch = Switch::None;
    postedPress = {};
    gTheEvent = {};
    quitProc = nullptr;
}

void postSuspendOrResume(bool isResume)
{
    pendingSwitch = isResume ? Switch::Resume : Switch::Suspend;
}

void forgetSwitch()
{
    pendingSwitch = Switch::None;
}

void setQuitProc(HostKitQuitProcPtr proc)
{
    quitProc = proc;
}

void askToQuit()
{
    if (quitProc) {
        quitProc();
        return;
    }
    constexpr UInt32 keyQ = 12 << 8;
    EventRecord event = eventOf(keyDown, hWndMain, WM_CLOSE);
    event.message = keyQ | 'q';
    event.modifiers = cmdKey;
    postInput(event);
}

void postPressIn(WindowPtr window, SInt16 part)
{
    Rect content = contentOf(window);
    EventRecord event = eventOf(mouseDown, nativeOf(window), WM_SYSCOMMAND);
    event.where = {static_cast<SInt16>(content.top - 1), content.left};
    event.modifiers = 0;
    postedPress = {window, part, event.where};
    postInput(event);
}

bool findPostedPress(Point where, WindowPtr *window, SInt16 *part)
{
    if (!postedPress.window || where.h != postedPress.where.h || where.v != postedPress.where.v)
        return false;
    *window = postedPress.window;
    *part = postedPress.part;
    return true;
}

bool takePostedPress(WindowPtr window)
{
    if (!window || postedPress.window != window)
        return false;
    postedPress = {};
    return true;
}

bool nextEvent(EventMask mask, EventRecord &event, bool isTaken)
{
    if (takeSlot(mask, event, isTaken))
        return true;
    if ((mask & activMask) && takeActivation(event, isTaken))
        return true;
    if (input.take(mask, event, isTaken))
        return true;
    if ((mask & updateMask) && takeUpdateEvent(event))
        return true;
    return (mask & osMask) && takeSwitch(event, isTaken);
}

void flushInput(EventMask which, EventMask stop)
{
    input.flush(which, stop);
}

} // namespace hostkit
