// Events in their order: activations, the user's input, updates, and what the system says.
#include "hostkit_internal.h"

#include <algorithm>
#include <array>

namespace hostkit {
namespace {

// A box of a frame that was asked for without the mouse; hostWords[0] holds the part.
bool isPostedPress(const EventRecord &event)
{
    return event.what == mouseDown && event.nativeMessage == WM_SYSCOMMAND;
}

// The input that the program has not taken. While it is full, further input stays in the system's queue.
class InputQueue {
public:
    bool isFull() const { return count_ >= wellFilled; }
    bool has(EventMask mask) const { return find(mask) < count_; }
    void clear() { count_ = 0; }
    void push(const EventRecord &event)
    {
        if (count_ == events_.size())
            dropOldest();
        events_[count_++] = event;
    }
    void dropOldest() { remove(0); }
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
    bool hasPosted(HWND native, UINT message) const
    {
        return std::any_of(events_.begin(), events_.begin() + static_cast<std::ptrdiff_t>(count_), [&](const EventRecord &event) {
            return event.nativeWindow == native && event.nativeMessage == message;
        });
    }
    // Up to the first event of the stopping mask. True when any went.
    bool flush(EventMask which, EventMask stop)
    {
        return removeIf(find(stop), [&](const EventRecord &event) { return (which & (1 << event.what)) != 0; });
    }
    void forgetPostedPresses(HWND native)
    {
        removeIf(count_, [&](const EventRecord &event) {
            return event.nativeWindow == native && isPostedPress(event);
        });
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
        auto next = events_.begin() + static_cast<std::ptrdiff_t>(place) + 1;
        std::copy(next, end(), next - 1);
        --count_;
    }
    template <class IsUnwanted> bool removeIf(size_t before, IsUnwanted isUnwanted)
    {
        auto last = events_.begin() + static_cast<std::ptrdiff_t>(before);
        auto kept = std::remove_if(events_.begin(), last, isUnwanted);
        auto removed = static_cast<size_t>(last - kept);
        std::copy(last, end(), kept);
        count_ -= removed;
        return removed != 0;
    }
    std::array<EventRecord, 64>::iterator end() { return events_.begin() + static_cast<std::ptrdiff_t>(count_); }

    // What is posted at once, such as the steps of a wheel, finds the rest free.
    static constexpr size_t wellFilled = 48;
    std::array<EventRecord, 64> events_;
    size_t count_ = 0;
};

InputQueue input;
constexpr EventMask inputMask = mDownMask | mUpMask | keyDownMask | keyUpMask | autoKeyMask;

HostKitQuitProcPtr quitProc;

// The press that the program took last, if it was posted.
struct PostedPress {
    WindowPtr window = nullptr;
    SInt16 part = 0;
    Point where{};
};
PostedPress postedPress;

void noteTakenPress(const EventRecord &event)
{
    postedPress = {};
    if (isPostedPress(event))
        postedPress = {GetHwndMacWindowPtr(event.nativeWindow), static_cast<SInt16>(event.hostWords[0]), event.where};
}

EventMask maskOf(UInt16 what)
{
    constexpr UInt16 kinds = 16;
    if (what == kHighLevelEvent)
        return highLevelEventMask;
    return what < kinds ? static_cast<EventMask>(1 << what) : EventMask{everyEvent};
}

// What the program or a window procedure of its own has put into the slot comes first.
bool takeSlot(EventMask mask, EventRecord &event, bool isTaken)
{
    if (gTheEvent.what == nullEvent || !(mask & maskOf(gTheEvent.what)))
        return false;
    event = gTheEvent;
    if (isTaken)
        gTheEvent.what = nullEvent;
    return true;
}

// The modifiers as they were when the message came, where GetModifiersState tells how they are now.
UInt16 modifiersOfMessage()
{
    auto isDown = [](int key) { return GetKeyState(key) < 0; };
    int button = GetSystemMetrics(SM_SWAPBUTTON) ? VK_RBUTTON : VK_LBUTTON;
    int modifiers = (isDown(VK_CONTROL) ? cmdKey : 0) | (isDown(VK_SHIFT) ? shiftKey : 0) | (isDown(VK_MENU) ? optionKey : 0)
                  | ((GetKeyState(VK_CAPITAL) & 1) ? alphaLock : 0) | (isDown(button) ? btnState : 0);
    return static_cast<UInt16>(modifiers);
}

} // namespace

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

bool hasInput(EventMask mask)
{
    return input.has(mask);
}

void makeRoomFor(EventMask mask)
{
    if (input.isFull() && (mask & inputMask) && !input.has(mask))
        input.dropOldest();
}

bool takeInputEvent(EventMask mask, EventRecord &event, bool isTaken)
{
    return input.take(mask, event, isTaken);
}

void forgetEvents()
{
    input.clear();
    postedPress = {};
    gTheEvent = {};
    quitProc = nullptr;
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
    if (input.hasPosted(hWndMain, WM_CLOSE))
        return;
    constexpr UInt32 keyQ = 12 << 8;
    EventRecord event = eventOf(keyDown, hWndMain, WM_CLOSE);
    event.message = keyQ | 'q';
    event.modifiers = cmdKey;
    input.push(event);
}

void postPressIn(WindowPtr window, SInt16 part)
{
    if (input.hasPosted(nativeOf(window), WM_SYSCOMMAND))
        return;
    Rect content = contentOf(window);
    EventRecord event = eventOf(mouseDown, nativeOf(window), WM_SYSCOMMAND);
    event.where = {static_cast<SInt16>(content.top - 1), content.left};
    event.modifiers = 0;
    event.hostWords[0] = static_cast<UInt32>(part);
    postInput(event);
}

void forgetPresses(WindowPtr window, HWND native)
{
    takePostedPress(window);
    input.forgetPostedPresses(native);
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
    followFront();
    bool isFound = takeSlot(mask, event, isTaken) || ((mask & activMask) && takeActivation(event, isTaken))
                || input.take(mask, event, isTaken) || ((mask & updateMask) && takeUpdateEvent(event))
                || ((mask & osMask) && takeSwitch(event, isTaken));
    if (isFound && isTaken && event.what == mouseDown)
        noteTakenPress(event);
    return isFound;
}

bool flushInput(EventMask which, EventMask stop)
{
    if (which & ~stop & maskOf(gTheEvent.what) & inputMask)
        gTheEvent.what = nullEvent;
    return input.flush(which, stop);
}

} // namespace hostkit
