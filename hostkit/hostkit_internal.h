// What the parts of the host kit need of each other.
#pragma once

#include <hostkit/hostkit.h>

#include <string>

namespace hostkit {

// Windows.

constexpr char mainClassName[] = "HostKitMain";
constexpr char windowClassName[] = "HostKitWindow";

void setDesktopBrush(HBRUSH brush);
LRESULT CALLBACK mainProcedure(HWND native, UINT message, WPARAM wParam, LPARAM lParam);
LRESULT CALLBACK windowProcedure(HWND native, UINT message, WPARAM wParam, LPARAM lParam);

inline WindowPeek recordOf(WindowPtr window)
{
    return reinterpret_cast<WindowPeek>(window);
}
// Null unless the host kit made the native window and it still stands.
HWND nativeOf(WindowPtr window);
bool isShown(WindowPtr window);
// Floating windows, which the library keeps out of its list.
bool isFloating(WindowPtr window);
// Whether the window still has this native window: the record itself may be gone.
bool isStill(WindowPtr window, HWND native);
// Forgets a window that goes: no event names it afterwards.
void forgetWindow(WindowPtr window, HWND native);
// Calls for each window, from the front to the back, until one call gives true; that window, or null.
WindowPtr findWindow(bool (*isWanted)(WindowPtr window));
// Palettes stay above the others.
void raise(WindowPtr window);
void liftFloating();
// What the library keeps is brought in step with a native window that was moved or sized.
void noteGeometry(WindowPtr window);
// The content in global coordinates.
Rect contentOf(WindowPtr window);
// The states for ZoomWindow: that of the user, and the whole desktop until the program sets another.
Rect *zoomStatesOf(WindowPtr window);
void noteUserState(WindowPtr window);
void noteDesktopSize();
void disposeWindows();
void forgetAllWindows();

// Activation.

// The window in front becomes the active one, if it is another.
void followFront();
void showFloating(WindowPtr window);
// Whether the program is the one that the user works with.
void showActive(bool isActive);
bool isProgramActive();
void forgetActivation(WindowPtr window);
bool takeActivation(EventRecord &event, bool isTaken);
bool takeSwitch(EventRecord &event, bool isTaken);
// The native window that the keyboard belongs to.
HWND keyboardWindow();
void resetActivation(bool isActive);

// Events.

// The next event of the mask goes to the record and, if taken, out of its place.
bool nextEvent(EventMask mask, EventRecord &event, bool isTaken);
EventRecord eventOf(UInt16 what, HWND native, UINT message);
void postInput(const EventRecord &event);
// Full with events that no mask asked for: the oldest is given up for what the mask asks for.
bool isInputFull();
void makeRoomFor(EventMask mask);
bool hasInput(EventMask mask);
bool takeInputEvent(EventMask mask, EventRecord &event, bool isTaken);
// Drops the events of the one mask that come before any of the other; true when there were any.
bool flushInput(EventMask which, EventMask stop);
void forgetEvents();
void askToQuit();
void setQuitProc(HostKitQuitProcPtr proc);
// A window's close or zoom box, asked for without the mouse, as a press there. part is inGoAway, inZoomIn or
// inZoomOut.
void postPressIn(WindowPtr window, SInt16 part);
// The part of such a press at the point: false for any other.
bool findPostedPress(Point where, WindowPtr *window, SInt16 *part);
// Whether the box was asked for so; the next press is the mouse's again.
bool takePostedPress(WindowPtr window);
void forgetPresses(WindowPtr window, HWND native);

// True when the message is mouse or keyboard input, which is an event now.
bool takeInput(HWND native, UINT message, WPARAM wParam, LPARAM lParam);
void convertKeyMessage(const MSG *message, EventRecord *event);
bool turnWheel(WindowPtr window, POINT screenPoint, int delta);
// The program's cursor over content, the system's over frames.
LRESULT setCursor(HWND native, WPARAM wParam, LPARAM lParam);
// Whether Alt was held for something else than the menu that its release would open.
bool wasAltUsed();
void forgetInput();

// Updates.

// The native update region becomes the record's.
void takeUpdate(HWND native, WindowPtr window);
// The window in front that has something to be drawn.
bool takeUpdateEvent(EventRecord &event);
void forgetUpdates();

// Loops of the system's own.

bool isInSystemLoop();
void enterSystemLoop();
void leaveSystemLoop();
void handleInSystemLoop(EventRecord &event);
void forgetLoops();

// A window that goes in its own loop is not told of the loop's end.
class SystemLoop {
public:
    SystemLoop();
    ~SystemLoop();
    SystemLoop(const SystemLoop &) = delete;
    SystemLoop &operator=(const SystemLoop &) = delete;

private:
    int depthBefore_;
};

// Tracking.

// Answers the messages of a window that is being moved or sized, or whose box is being pressed.
bool trackMessage(WindowPtr window, UINT message, WPARAM wParam, LPARAM lParam, LRESULT &result);
// While one is, the mouse is the system's.
bool isTracking();
void forgetTracking(WindowPtr window);
// The button is down, and no release waits to be taken.
bool isButtonHeld();

// Memory and classes.

void startPurging();
void stopPurging();
bool registerDialogClasses();
void unregisterDialogClasses();

// A point of the screen in global coordinates, and back.
Point globalOf(POINT screenPoint);
POINT screenOf(Point global);
inline POINT pointOf(LPARAM packed)
{
    return {static_cast<SInt16>(LOWORD(packed)), static_cast<SInt16>(HIWORD(packed))};
}
inline LPARAM packedOf(POINT point)
{
    return static_cast<LPARAM>(MAKELONG(point.x, point.y));
}
inline UInt32 ticksOf(DWORD milliseconds)
{
    return static_cast<UInt32>(UInt64{milliseconds} * 6 / 100);
}

} // namespace hostkit
