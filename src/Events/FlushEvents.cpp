// Removing events from the slot and from the thread's queue.
#include "Events_internal.h"

#include <mtbx/MTBXGlobals.h>

namespace {

// Any range: PeekMessage takes 0 and 0 for all messages.
struct MessageRange {
    UINT first, last;

    bool isAll() const { return first == 0 && last == 0; }
    bool contains(UINT number) const { return isAll() || (number >= first && number <= last); }
};
constexpr MessageRange mouseMessages = {0x200, 0x20D};
constexpr MessageRange keyMessages = {0x100, 0x109};

constexpr EventMask bothButtons = mDownMask | mUpMask;
constexpr EventMask bothKeys = keyDownMask | keyUpMask;

// The bit under which an event of the slot is flushed; 0 if it never is.
UInt32 flushBit(UInt16 what)
{
    constexpr UInt16 lastKind = 16;
    switch (what) {
    case mouseDown:
    case mouseUp:
    case keyDown:
    case keyUp:
    case autoKey:
    case diskEvt:
        return UInt32{1} << what;
    case lastKind:
        return 0x800;
    default:
        return 0;
    }
}

// The ranges of messages that a mask names, one after the other.
class FlushedRanges {
public:
    explicit FlushedRanges(EventMask mask) : rest(mask) {}

    // False when there is none left.
    bool next(MessageRange &range)
    {
        if (rest == everyEvent)
            return take(everyEvent, {0, 0}, range);
        for (const Choice &choice : choices)
            if ((rest & choice.mask) == choice.mask)
                return take(choice.mask, choice.range, range);
        if (!(rest & updateMask))
            return false;
        if (paintIsDone)
            return take(updateMask, {WM_NCPAINT, WM_NCPAINT}, range);
        paintIsDone = true;
        return take(0, {WM_PAINT, WM_PAINT}, range);
    }

private:
    struct Choice {
        EventMask mask;
        MessageRange range;
    };
    static constexpr Choice choices[] = {{bothButtons, mouseMessages},
                                         {mDownMask, {WM_LBUTTONDOWN, WM_LBUTTONDOWN}},
                                         {mUpMask, {WM_LBUTTONUP, WM_LBUTTONUP}},
                                         {bothKeys, keyMessages},
                                         {keyDownMask, {WM_KEYDOWN, WM_KEYDOWN}},
                                         {keyUpMask, {WM_KEYUP, WM_KEYUP}}};

    bool take(EventMask struck, MessageRange chosen, MessageRange &range)
    {
        rest = static_cast<EventMask>(rest & ~struck);
        range = chosen;
        return true;
    }

    EventMask rest;
    bool paintIsDone = false;
};

bool isMousePress(UINT message)
{
    return message == WM_LBUTTONDOWN || message == WM_RBUTTONDOWN;
}

bool isMouseRelease(UINT message)
{
    return message == WM_LBUTTONUP || message == WM_RBUTTONUP;
}

bool isCharacter(UINT message)
{
    return message == WM_CHAR || message == WM_SYSCHAR;
}

// The messages at which a flush stops.
class FlushStop {
public:
    explicit FlushStop(EventMask stopMask) : mask(stopMask) {}

    bool stopsAt(UINT message)
    {
        askMouse(message);
        askKeys(message);
        if (mask & updateMask)
            isStopped = message == WM_PAINT || message == WM_ERASEBKGND;
        return isStopped;
    }

private:
    void askMouse(UINT message)
    {
        if ((mask & bothButtons) == bothButtons)
            isStopped = mouseMessages.contains(message);
        else if (mask & mDownMask)
            isStopped = isMousePress(message);
        else if (mask & mUpMask)
            isStopped = isMouseRelease(message);
    }

    // Its answer replaces that of the mouse.
    void askKeys(UINT message)
    {
        constexpr EventMask allKeys = bothKeys | autoKeyMask;
        if ((mask & allKeys) == allKeys)
            isStopped = keyMessages.contains(message);
        else if (mask & keyDownMask)
            isStopped = message == WM_KEYDOWN || message == WM_SYSKEYDOWN || isCharacter(message);
        else if (mask & keyUpMask)
            isStopped = message == WM_KEYUP || message == WM_SYSKEYUP || isCharacter(message);
    }

    EventMask mask;
    // Stays as it was when the mask names no group.
    bool isStopped = false;
};

// Serves what is no input, and drops the rest.
void handOn(const MSG &message, EventMask whichMask)
{
    if (message.message == WM_PAINT || message.message == WM_NCPAINT) {
        DispatchMessageA(&message);
        return;
    }
    bool isInput = mouseMessages.contains(message.message) || keyMessages.contains(message.message);
    if (whichMask != everyEvent || isInput)
        return;
    TranslateMessage(&message);
    DispatchMessageA(&message);
}

// The request to quit is the thread's, not a message of a window: it is kept back and asked for again.
struct QuitRequest {
    bool isMade = false;
    int exitCode = 0;

    void take(const MSG &message)
    {
        isMade = true;
        exitCode = static_cast<int>(message.wParam);
    }
    void renew() const
    {
        if (isMade)
            PostQuitMessage(exitCode);
    }
};

// Procedures that leave their windows to be painted, as those do that paint on the host's next update event, would
// be asked again without end.
class VainPaints {
public:
    bool isEndless(const MSG &message) const
    {
        constexpr int most = 100;
        return message.message == WM_PAINT && (message.hwnd == last || count == most);
    }
    void served(const MSG &message)
    {
        if (message.message != WM_PAINT || !GetUpdateRect(message.hwnd, nullptr, FALSE))
            return;
        last = message.hwnd;
        ++count;
    }

private:
    HWND last = nullptr;
    int count = 0;
};

bool isSame(const MSG &first, const MSG &second)
{
    return first.hwnd == second.hwnd && first.message == second.message && first.wParam == second.wParam
           && first.lParam == second.lParam && first.time == second.time;
}

void flushRange(MessageRange range, EventMask whichMask, FlushStop &stop, QuitRequest &quit)
{
    VainPaints paints;
    MSG message, vanished = {};
    while (PeekMessageA(&message, nullptr, range.first, range.last, PM_NOREMOVE)) {
        if (!range.contains(message.message) || stop.stopsAt(message.message) || paints.isEndless(message))
            return;
        // A message is gone when its window ends in one that was sent meanwhile; those behind it are still there.
        MSG taken = message;
        if (!removeMessage(taken)) {
            if (isSame(message, vanished))
                return;
            vanished = message;
            continue;
        }
        if (taken.message == WM_QUIT)
            quit.take(taken);
        else
            handOn(taken, whichMask);
        paints.served(taken);
    }
}

} // namespace

void FlushEvents(EventMask whichMask, EventMask stopMask)
{
    if (flushBit(gTheEvent.what) & whichMask)
        gTheEvent.what = nullEvent;
    FlushedRanges ranges(whichMask);
    FlushStop stop(stopMask);
    QuitRequest quit;
    for (MessageRange range; ranges.next(range);)
        flushRange(range, whichMask, stop, quit);
    quit.renew();
}
