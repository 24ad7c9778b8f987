// The paint cycle: what the system wants painted becomes update events.
#include "hostkit_internal.h"

namespace hostkit {
namespace {

// Whether a window may have something to be drawn, so that most questions need no search.
bool isUpdateNoted;

void addWhole(HWND native, RgnHandle part)
{
    RECT client = {};
    GetClientRect(native, &client);
    MacSetRectRgn(part, 0, 0, static_cast<SInt16>(client.right), static_cast<SInt16>(client.bottom));
}

// The native update region, in coordinates of the native client area as updateRgn is.
void addNativeUpdate(HWND native, WindowPtr window)
{
    RgnHandle part = NewRgn();
    if (!part) {
        // What was there is enlarged to the whole, for which no region is needed.
        addWhole(native, recordOf(window)->updateRgn);
        return;
    }
    if (GetUpdateRgn(native, (**part).rgnNative, FALSE) == ERROR)
        addWhole(native, part);
    else
        CalcRgnBox(part);
    MacUnionRgn(recordOf(window)->updateRgn, part, recordOf(window)->updateRgn);
    DisposeRgn(part);
}

// Paints the frame and the background, as far as they are asked for.
void validate(HWND native)
{
    PAINTSTRUCT paint;
    if (BeginPaint(native, &paint))
        EndPaint(native, &paint);
    else
        ValidateRect(native, nullptr); // the system would ask again and again
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

} // namespace

void takeUpdate(HWND native, WindowPtr window)
{
    if (window)
        addNativeUpdate(native, window);
    validate(native);
    // Erasing may have run the program's code.
    if (!window || GetHwndMacWindowPtr(native) != window)
        return;
    isUpdateNoted = true;
    if (isInSystemLoop() && isToBeDrawn(window)) {
        EventRecord event = updateEventOf(window);
        handleInSystemLoop(event);
    }
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
