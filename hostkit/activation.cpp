// Which window is the active one, and the order of windows.
#include "hostkit_internal.h"

namespace hostkit {
namespace {

// The window whose frame shows as active.
WindowPtr activeWindow;
// Events that the program has not taken yet.
WindowPtr deactivated, activated;
bool isActiveApp = true;

void drawFrame(WindowPtr window, bool isActive)
{
    if (HWND native = nativeOf(window))
        SendMessageA(native, WM_NCACTIVATE, isActive, 0);
}

void noteChange(WindowPtr old, WindowPtr now)
{
    // A window that was to become active and never was needs no event for either.
    if (old && old == activated)
        activated = nullptr;
    else if (old && !deactivated)
        deactivated = old;
    if (now && now == deactivated)
        deactivated = nullptr;
    else
        activated = now;
}

void activate(WindowPtr window)
{
    WindowPtr old = activeWindow;
    if (window == old)
        return;
    activeWindow = window;
    noteChange(old, window);
    if (old)
        HiliteWindow(old, false);
    if (window)
        HiliteWindow(window, true);
    drawFrame(old, false);
    drawFrame(window, isActiveApp);
    if (GetFocus() && hWndMain && isActiveApp)
        SetFocus(keyboardWindow());
}

// While the system's loop runs, the program's procedure is told at once.
void tellInSystemLoop()
{
    EventRecord event = {};
    while (isInSystemLoop() && (deactivated || activated) && takeActivation(event, true))
        handleInSystemLoop(event);
}

} // namespace

HWND keyboardWindow()
{
    HWND native = nativeOf(activeWindow);
    return native && !IsIconic(native) ? native : hWndMain;
}

void followFront()
{
    activate(HostKitFrontWindow());
    tellInSystemLoop();
}

void showActive(bool isAppActive)
{
    if (isActiveApp == isAppActive)
        return;
    isActiveApp = isAppActive;
    gAppIsActive = isAppActive;
    drawFrame(activeWindow, isAppActive);
    findWindow([](WindowPtr window) {
        if (isFloating(window))
            drawFrame(window, isActiveApp);
        return false;
    });
    if (activeWindow)
        (isAppActive ? activated : deactivated) = activeWindow;
}

void forgetActivation(WindowPtr window)
{
    for (WindowPtr *each : {&activeWindow, &deactivated, &activated}) {
        if (*each == window)
            *each = nullptr;
    }
}

void resetActivation()
{
    activeWindow = deactivated = activated = nullptr;
    isActiveApp = true;
}

bool takeActivation(EventRecord &event, bool isTaken)
{
    WindowPtr &next = deactivated ? deactivated : activated;
    if (!next)
        return false;
    event = eventOf(activateEvt, nativeOf(next), WM_NCACTIVATE);
    event.message = reinterpret_cast<URefCon>(next);
    if (&next == &activated)
        event.modifiers |= activeFlag;
    if (isTaken)
        next = nullptr;
    return true;
}

} // namespace hostkit

using namespace hostkit;

WindowPtr HostKitFrontWindow()
{
    return findWindow([](WindowPtr window) { return !isFloating(window) && isShown(window); });
}

void HostKitBringToFront(WindowPtr window)
{
    BringToFront(window);
    raise(window);
    followFront();
}

void HostKitSelectWindow(WindowPtr window)
{
    if (isFloating(window)) {
        raise(window);
        return;
    }
    bool wasShown = isShown(window);
    BringToFront(window);
    raise(window);
    if (!wasShown)
        MacShowWindow(window);
    followFront();
}

void HostKitSendBehind(WindowPtr window, WindowPtr behindWindow)
{
    if (behindWindow) {
        SendBehind(window, behindWindow);
    } else {
        WindowPtr last = nullptr;
        for (WindowPtr each = gFrontWindow; each && each != gDesktopWindow; each = recordOf(each)->nextWindow)
            last = each;
        SendBehind(window, last);
    }
    followFront();
}

void HostKitMoveWindow(WindowPtr window, SInt16 h, SInt16 v, Boolean front)
{
    if (nativeOf(window))
        MacMoveWindow(window, h, v, front);
    if (front)
        HostKitSelectWindow(window);
}

void HostKitShowWindow(WindowPtr window)
{
    MacShowWindow(window);
    if (isFloating(window)) {
        drawFrame(window, isActiveApp);
        liftFloating();
    }
    followFront();
}

void HostKitHideWindow(WindowPtr window)
{
    HideWindow(window);
    followFront();
}
