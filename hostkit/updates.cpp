// The paint cycle: what the system wants painted becomes update events.
#include "hostkit_internal.h"

namespace hostkit {
namespace {

// Whether a window may have something to be drawn, so that most questions need no search.
bool isUpdateNoted;

// The native update region, in coordinates of the native client area as updateRgn is; null when memory is short.
RgnHandle nativeUpdateOf(HWND native)
{
    RgnHandle part = NewRgn();
    if (!part)
        return nullptr;
    if (GetUpdateRgn(native, (**part).rgnNative, FALSE) == ERROR) {
        DisposeRgn(part);
        return nullptr;
    }
    CalcRgnBox(part);
    return part;
}

// Paints the frame and the background, as far as they are asked for. Gives the box around what can be seen of the
// update; false when that cannot be told.
bool validate(HWND native, Rect &seen)
{
    PAINTSTRUCT paint;
    if (!BeginPaint(native, &paint)) {
        ValidateRect(native, nullptr); // the system would ask again and again
        return false;
    }
    EndPaint(native, &paint);
    const RECT &box = paint.rcPaint;
    seen = {static_cast<SInt16>(box.top), static_cast<SInt16>(box.left), static_cast<SInt16>(box.bottom),
            static_cast<SInt16>(box.right)};
    return true;
}

void addWhole(HWND native, RgnHandle update)
{
    RECT client = {};
    GetClientRect(native, &client);
    MacSetRectRgn(update, 0, 0, static_cast<SInt16>(client.right), static_cast<SInt16>(client.bottom));
}

// The system asks windows that lie below others to paint what they show nothing of.
void addSeen(RgnHandle part, const Rect &seen, RgnHandle update)
{
    RgnHandle box = NewRgn();
    if (box) {
        RectRgn(box, &seen);
        SectRgn(part, box, part);
        DisposeRgn(box);
    }
    MacUnionRgn(update, part, update);
}

bool isToBeDrawn(WindowPtr window)
{
    return isShown(window) && !recordOf(window)->windowPic && IsWindowUpdatePending(window);
}

EventRecord updateEventOf(WindowPtr window)
{
    EventRecord event = eventOf(updateEvt, nativeOf(window), WM_PAINT);
    event.message = reinterpret_cast<URefCon>(window);
    return event;
}

void noteUpdate(WindowPtr window)
{
    isUpdateNoted = true;
    if (isInSystemLoop() && isToBeDrawn(window)) {
        EventRecord event = updateEventOf(window);
        handleInSystemLoop(event);
    }
}

} // namespace

void takeUpdate(HWND native, WindowPtr window)
{
    RgnHandle part = window ? nativeUpdateOf(native) : nullptr;
    Rect seen = {};
    bool isKnown = validate(native, seen) && part;
    // Erasing may have run the program's code.
    if (window && GetHwndMacWindowPtr(native) == window) {
        RgnHandle update = recordOf(window)->updateRgn;
        isKnown ? addSeen(part, seen, update) : addWhole(native, update);
        noteUpdate(window);
    }
    if (part)
        DisposeRgn(part);
}

bool takeUpdateEvent(EventRecord &event)
{
    if (!isUpdateNoted)
        return false;
    if (WindowPtr window = findWindow(isToBeDrawn)) {
        event = updateEventOf(window);
        return true;
    }
    // One that is hidden or being drawn has its turn later.
    isUpdateNoted = findWindow([](WindowPtr window) { return IsWindowUpdatePending(window) != 0; }) != nullptr;
    return false;
}

void forgetUpdates()
{
    isUpdateNoted = false;
}

} // namespace hostkit
