// Native windows for window records.
#include "hostkit_internal.h"

#include <algorithm>
#include <cstring>
#include <vector>

namespace hostkit {
namespace {

// In the extra bytes of a native window.
constexpr int kitsStorage = 0;

// The front one first.
std::vector<WindowPtr> floatingWindows;

struct FrameStyle {
    DWORD style = WS_CHILD | WS_CLIPSIBLINGS | WS_CLIPCHILDREN;
    DWORD extended = 0;
};

// What the system draws for a procID. Its buttons need the system menu's style.
FrameStyle frameFor(SInt16 procID, bool hasGoAway)
{
    FrameStyle frame;
    DWORD box = hasGoAway ? DWORD{WS_SYSMENU} : DWORD{0};
    switch (procID) {
    case documentProc:
        frame.style |= WS_CAPTION | WS_THICKFRAME | box;
        break;
    case zoomDocProc:
        frame.style |= WS_CAPTION | WS_THICKFRAME | WS_MAXIMIZEBOX | WS_SYSMENU;
        break;
    case zoomNoGrow:
        frame.style |= WS_CAPTION | WS_MAXIMIZEBOX | WS_SYSMENU;
        break;
    case dBoxProc:
        frame.style |= WS_DLGFRAME;
        break;
    case plainDBox:
    case altDBoxProc:
        frame.style |= WS_BORDER;
        break;
    case movableDBoxProc:
        frame.style |= WS_CAPTION | box;
        frame.extended |= WS_EX_DLGMODALFRAME;
        break;
    default:
        frame.style |= WS_CAPTION | box;
        break;
    }
    return frame;
}

FrameStyle frameOf(WindowPtr window)
{
    FrameStyle frame = frameFor(static_cast<SInt16>(recordOf(window)->windowDefProc), recordOf(window)->goAwayFlag);
    if (isFloating(window))
        frame.extended |= WS_EX_TOOLWINDOW;
    return frame;
}

HWND makeNative(WindowPtr window)
{
    FrameStyle frame = frameOf(window);
    const Rect &content = window->portRect;
    RECT outer = {content.left, content.top, content.right, content.bottom};
    AdjustWindowRectEx(&outer, frame.style, FALSE, frame.extended);
    Str255 title;
    GetWTitle(window, title);
    return CreateWindowExA(frame.extended, windowClassName, p2cstr(title), frame.style, outer.left, outer.top,
                           outer.right - outer.left, outer.bottom - outer.top, hWndMain, nullptr, hExeInst, window);
}

// The property that leads from the native window to the record takes memory.
bool bind(WindowPtr window, HWND native)
{
    SetHwndMacWindowPtr(native, window);
    if (GetHwndMacWindowPtr(native) != window) {
        DestroyWindow(native);
        return false;
    }
    (**GetPortPixMap(window)).pmWindow = native;
    return true;
}

// portRect begins at 0, 0 from here on.
void placeRecord(WindowPtr window, HWND native)
{
    RECT client = {};
    GetClientRect(native, &client);
    MacSetRect(&window->portRect, 0, 0, static_cast<SInt16>(client.right), static_cast<SInt16>(client.bottom));
    AdjustWindow(window);
}

// The desktop's size that the standard states of windows were made for.
RECT desktopSize;

Rect wholeDesktopFor(WindowPtr window, const RECT &desktop)
{
    FrameStyle frame = frameOf(window);
    RECT edges = {};
    AdjustWindowRectEx(&edges, frame.style, FALSE, frame.extended);
    return {static_cast<SInt16>(-edges.top), static_cast<SInt16>(-edges.left),
            static_cast<SInt16>(desktop.bottom - edges.bottom), static_cast<SInt16>(desktop.right - edges.right)};
}

void setStates(WindowPtr window)
{
    if (Rect *states = zoomStatesOf(window)) {
        states[0] = contentOf(window);
        states[1] = wholeDesktopFor(window, desktopSize);
    }
}

// A standard state that the program has not changed goes with the desktop.
void followDesktop(WindowPtr window, const RECT &before)
{
    Rect *states = zoomStatesOf(window);
    Rect old = wholeDesktopFor(window, before);
    if (states && MacEqualRect(&states[1], &old))
        states[1] = wholeDesktopFor(window, desktopSize);
}

void placeBehind(WindowPtr window, WindowPtr behind)
{
    if (!isFloating(window) && behind != reinterpret_cast<WindowPtr>(-1))
        HostKitSendBehind(window, behind);
}

// Where the library's list leads to the window.
WindowPtr *linkTo(WindowPtr window)
{
    for (WindowPtr *link = &gFrontWindow; *link; link = &recordOf(*link)->nextWindow) {
        if (*link == window)
            return link;
    }
    return nullptr;
}

// The copy takes the record's place wherever the library knows it.
void replaceRecord(WindowPtr window, WindowPeek copy)
{
    if (window == qd.thePort)
        MacSetPort(nullptr);
    *copy = *recordOf(window);
    if (WindowPtr *link = linkTo(window))
        *link = &copy->port;
}

// What can be done without memory.
void endNative(WindowPtr window)
{
    if (WindowPtr *link = linkTo(window))
        *link = recordOf(window)->nextWindow;
    if (HWND native = nativeOf(window))
        DestroyWindow(native);
    followFront();
}

bool isKits(WindowPtr window)
{
    char name[sizeof windowClassName + 1] = {};
    HWND native = nativeOf(window);
    return native && GetClassNameA(native, name, sizeof name) && strcmp(name, windowClassName) == 0;
}

// Remembered by the native window: a record of the kit's own may be disposed.
void noteStorage(WindowPtr window, bool isKits)
{
    SetWindowLongPtrA(nativeOf(window), kitsStorage, isKits);
}

WindowPtr finish(WindowPtr window, void *storage, bool isVisible, WindowPtr behind)
{
    if (!window)
        return nullptr;
    if (HostKitAttachWindow(window) != noErr) {
        storage ? HostKitCloseWindow(window) : DisposeWindow(window);
        return nullptr;
    }
    noteStorage(window, !storage);
    placeBehind(window, behind);
    if (isVisible)
        HostKitShowWindow(window);
    return window;
}

} // namespace

HWND nativeOf(WindowPtr window)
{
    if (!window || window == gDesktopWindow)
        return nullptr;
    HWND native = GetMacWindowPtrHwnd(window);
    return native && native != hWndMain && GetHwndMacWindowPtr(native) == window ? native : nullptr;
}

bool isShown(WindowPtr window)
{
    HWND native = nativeOf(window);
    return native && (GetWindowLongA(native, GWL_STYLE) & WS_VISIBLE);
}

bool isFloating(WindowPtr window)
{
    return window && window->portLayerFlag != 0;
}

WindowPtr findWindow(bool (*isWanted)(WindowPtr window))
{
    for (WindowPtr each : floatingWindows) {
        if (isWanted(each))
            return each;
    }
    for (WindowPtr each = gFrontWindow; each && each != gDesktopWindow; each = recordOf(each)->nextWindow) {
        if (isWanted(each))
            return each;
    }
    return nullptr;
}

bool isStill(WindowPtr window, HWND native)
{
    return native && GetHwndMacWindowPtr(native) == window;
}

void forgetWindow(WindowPtr window, HWND native)
{
    std::erase(floatingWindows, window);
    forgetActivation(window);
    forgetTracking(window);
    forgetPresses(window, native);
}

void disposeWindows()
{
    // Each round takes one out of the lists.
    while (WindowPtr window = findWindow(isKits))
        GetWindowLongPtrA(nativeOf(window), kitsStorage) ? DisposeWindow(window) : HostKitCloseWindow(window);
}

void forgetAllWindows()
{
    floatingWindows = std::vector<WindowPtr>();
    desktopSize = {};
}

void liftFloating()
{
    constexpr UINT onlyOrder = SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE;
    for (auto each = floatingWindows.rbegin(); each != floatingWindows.rend(); ++each)
        SetWindowPos(nativeOf(*each), HWND_TOP, 0, 0, 0, 0, onlyOrder);
}

void raise(WindowPtr window)
{
    if (HWND native = nativeOf(window))
        SetWindowPos(native, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    if (isFloating(window)) {
        auto place = std::find(floatingWindows.begin(), floatingWindows.end(), window);
        if (place != floatingWindows.end())
            std::rotate(floatingWindows.begin(), place, place + 1);
    }
    liftFloating();
}

Rect contentOf(WindowPtr window)
{
    Rect content = {};
    GetWindowBounds(window, kWindowContentRgn, &content);
    return content;
}

Rect *zoomStatesOf(WindowPtr window)
{
    Handle states = recordOf(window)->dataHandle;
    bool isWhole = GetHandleSize(states) >= static_cast<Size>(2 * sizeof(Rect));
    return isWhole ? reinterpret_cast<Rect *>(*states) : nullptr;
}

void noteUserState(WindowPtr window)
{
    Rect *states = zoomStatesOf(window);
    Rect content = contentOf(window);
    if (states && !MacEqualRect(&content, &states[1]))
        states[0] = content;
}

void noteDesktopSize()
{
    static RECT before;
    before = desktopSize;
    GetClientRect(hWndMain, &desktopSize);
    findWindow([](WindowPtr window) {
        if (nativeOf(window))
            followDesktop(window, before);
        return false;
    });
}

void noteGeometry(WindowPtr window)
{
    HWND native = nativeOf(window);
    if (!native || IsIconic(native))
        return;
    RECT client = {};
    GetClientRect(native, &client);
    Rect &port = window->portRect;
    port.right = static_cast<SInt16>(port.left + client.right);
    port.bottom = static_cast<SInt16>(port.top + client.bottom);
    AdjustWindow(window);
}

} // namespace hostkit

using namespace hostkit;

OSErr HostKitAttachWindow(WindowPtr window)
{
    if (!hWndMain || !IsValidWindowPtr(window) || window == gDesktopWindow || GetMacWindowPtrHwnd(window))
        return paramErr;
    try {
        if (isFloating(window))
            floatingWindows.insert(floatingWindows.begin(), window);
    } catch (const std::bad_alloc &) {
        return memFullErr;
    }
    HWND native = makeNative(window);
    if (!native || !bind(window, native)) {
        std::erase(floatingWindows, window);
        return memFullErr;
    }
    // The system puts a new child behind its siblings.
    raise(window);
    placeRecord(window, native);
    setStates(window);
    // Shown is what the record said when it was made; the native window is not yet.
    recordOf(window)->visible = false;
    return noErr;
}

WindowPtr HostKitNewWindow(void *wStorage, const Rect *boundsRect, ConstStr255Param title, Boolean visible, SInt16 procID,
                           WindowPtr behind, Boolean goAwayFlag, SRefCon refCon)
{
    WindowPtr window = NewCWindow(wStorage, boundsRect, title, visible, procID, behind, goAwayFlag, refCon);
    return finish(window, wStorage, visible, behind);
}

WindowPtr HostKitGetNewWindow(SInt16 windowID, void *wStorage, WindowPtr behind)
{
    WindowPtr window = GetNewCWindow(windowID, wStorage, behind);
    return finish(window, wStorage, window && recordOf(window)->visible, behind);
}

void HostKitCloseWindow(WindowPtr window)
{
    if (!window)
        return;
    // The library closes and frees in one call: it gets a copy.
    auto copy = reinterpret_cast<WindowPeek>(NewPtr(sizeof(WindowRecord)));
    if (!copy) {
        endNative(window);
        return;
    }
    replaceRecord(window, copy);
    DisposeWindow(&copy->port);
}
