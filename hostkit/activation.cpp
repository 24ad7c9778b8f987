// Which window is the active one, and the order of windows.
#include "hostkit_internal.h"

namespace hostkit {
namespace {

// The window in front, and the one that the program has been told of.
WindowPtr activeWindow, toldWindow;
bool isActiveApp, toldActiveApp;

void showFrame(WindowPtr window, bool isActive)
{
    HWND native = nativeOf(window);
    if (!native)
        return;
    HiliteWindow(window, isActive);
    SendMessageA(native, WM_NCACTIVATE, isActive, 0);
}

// No window is active while another program is.
WindowPtr windowToTell()
{
    return isActiveApp ? activeWindow : nullptr;
}

// A field of a dialog's keeps the keyboard.
bool hasKeyboard()
{
    HWND focus = GetFocus();
    return focus && (focus == hWndMain || IsChild(hWndMain, focus));
}

void activate(WindowPtr window)
{
    WindowPtr old = activeWindow;
    if (window == old)
        return;
    activeWindow = window;
    showFrame(old, false);
    showFrame(window, isActiveApp);
    if (hasKeyboard())
        SetFocus(keyboardWindow());
}

// While the system's loop runs, the program's procedure is told at once.
void tellInSystemLoop()
{
    EventRecord event = {};
    while (isInSystemLoop() && takeActivation(event, true))
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

void showActive(bool isActive)
{
    isActiveApp = isActive;
    gAppIsActive = isActive;
    showFrame(activeWindow, isActive);
    findWindow([](WindowPtr window) {
        if (isFloating(window))
            showFrame(window, isActiveApp);
        return false;
    });
}

bool isProgramActive()
{
    return isActiveApp;
}

void forgetActivation(WindowPtr window)
{
    for (WindowPtr *each : {&activeWindow, &toldWindow}) {
        if (*each == window)
            *each = nullptr;
    }
}

void resetActivation(bool isActive)
{
    activeWindow = toldWindow = nullptr;
    isActiveApp = toldActiveApp = isActive;
    gAppIsActive = isActive;
}

bool takeActivation(EventRecord &event, bool isTaken)
{
    WindowPtr current = windowToTell();
    if (toldWindow == current)
        return false;
    // One that was told to be active is told of the end first.
    WindowPtr window = toldWindow ? toldWindow : current;
    event = eventOf(activateEvt, nativeOf(window), WM_NCACTIVATE);
    event.message = reinterpret_cast<URefCon>(window);
    if (!toldWindow)
        event.modifiers |= activeFlag;
    if (isTaken)
        toldWindow = toldWindow ? nullptr : current;
    return true;
}

bool takeSwitch(EventRecord &event, bool isTaken)
{
    if (toldActiveApp == isActiveApp)
        return false;
    event = eventOf(osEvt, hWndMain, WM_ACTIVATEAPP);
    event.message = URefCon{suspendResumeMessage} << 24 | (isActiveApp ? URefCon{resumeFlag} : URefCon{0});
    if (isTaken)
        toldActiveApp = isActiveApp;
    return true;
}

void showFloating(WindowPtr window)
{
    showFrame(window, isActiveApp);
    liftFloating();
}

} // namespace hostkit

using namespace hostkit;

WindowPtr HostKitFrontWindow()
{
    return findWindow([](WindowPtr window) { return !isFloating(window) && isShown(window); });
}

void HostKitBringToFront(WindowPtr window)
{
    if (!window)
        return;
    BringToFront(window);
    raise(window);
    followFront();
}

void HostKitSelectWindow(WindowPtr window)
{
    if (!window)
        return;
    BringToFront(window);
    raise(window);
    if (!isShown(window))
        MacShowWindow(window);
    followFront();
}

void HostKitSendBehind(WindowPtr window, WindowPtr behindWindow)
{
    if (!window)
        return;
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
    HWND native = nativeOf(window);
    if (native)
        MacMoveWindow(window, h, v, front);
    if (front && isStill(window, native))
        HostKitSelectWindow(window);
}

void HostKitZoomWindow(WindowPtr window, SInt16 part, Boolean front)
{
    HWND native = nativeOf(window);
    if (native)
        ZoomWindow(window, part, front);
    if (front && isStill(window, native))
        HostKitSelectWindow(window);
}

void HostKitShowWindow(WindowPtr window)
{
    if (!window)
        return;
    MacShowWindow(window);
    if (isFloating(window))
        showFloating(window);
    followFront();
}

void HostKitHideWindow(WindowPtr window)
{
    if (!window)
        return;
    HideWindow(window);
    followFront();
}
