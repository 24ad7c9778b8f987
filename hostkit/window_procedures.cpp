// The procedures of the main window and of the windows on its desktop.
#include "hostkit_internal.h"

namespace hostkit {
namespace {

WindowPtr madeFor(HWND native)
{
    return reinterpret_cast<WindowPtr>(GetWindowLongPtrA(native, GWLP_USERDATA));
}

// The library has unlinked the record before it closes the native window.
void close(HWND native)
{
    forgetWindow(madeFor(native));
    DestroyWindow(native);
    followFront();
}

// A box of the frame, by the system menu or its keys; the mouse comes as a press.
bool takeSystemCommand(WindowPtr window, WPARAM command)
{
    switch (command & 0xFFF0) {
    case SC_CLOSE:
        postPressIn(window, inGoAway);
        return true;
    case SC_MAXIMIZE:
        postPressIn(window, inZoomOut);
        return true;
    case SC_RESTORE:
        postPressIn(window, inZoomIn);
        return true;
    default:
        return false;
    }
}

void noteSystemLoop(UINT message)
{
    if (message == WM_ENTERSIZEMOVE || message == WM_ENTERMENULOOP)
        enterSystemLoop();
    else if (message == WM_EXITSIZEMOVE || message == WM_EXITMENULOOP)
        leaveSystemLoop();
}

bool isWheel(WindowPtr window, UINT message, WPARAM wParam, LPARAM lParam)
{
    return message == WM_MOUSEWHEEL && turnWheel(window, pointOf(lParam), static_cast<SInt16>(HIWORD(wParam)));
}

} // namespace

LRESULT CALLBACK windowProcedure(HWND native, UINT message, WPARAM wParam, LPARAM lParam)
{
    WindowPtr window = GetHwndMacWindowPtr(native);
    LRESULT result = 0;
    if (message == WM_NCCREATE)
        SetWindowLongPtrA(native, GWLP_USERDATA,
                          reinterpret_cast<LONG_PTR>(reinterpret_cast<CREATESTRUCTA *>(lParam)->lpCreateParams));
    noteSystemLoop(message);
    if (window && trackMessage(window, message, wParam, lParam, result))
        return result;
    if (takeInput(native, message, wParam, lParam) || isWheel(window, message, wParam, lParam))
        return 0;
    switch (message) {
    case WM_PAINT:
        takeUpdate(native, window);
        return 0;
    case WM_MOVE:
    case WM_SIZE:
        if (window)
            noteGeometry(window);
        return 0;
    case WM_SETCURSOR:
        return setCursor(native, wParam, lParam);
    case WM_SYSCOMMAND:
        if (window && takeSystemCommand(window, wParam))
            return 0;
        break;
    case WM_CLOSE:
        if (window)
            postPressIn(window, inGoAway);
        else
            close(native);
        return 0;
    default:
        break;
    }
    return DefWindowProcA(native, message, wParam, lParam);
}

LRESULT CALLBACK mainProcedure(HWND native, UINT message, WPARAM wParam, LPARAM lParam)
{
    noteSystemLoop(message);
    if (native == hWndMain && (takeInput(native, message, wParam, lParam) || isWheel(nullptr, message, wParam, lParam)))
        return 0;
    switch (message) {
    case WM_ACTIVATEAPP:
        showActive(wParam != 0);
        postSuspendOrResume(wParam != 0);
        return 0;
    case WM_SETFOCUS:
        if (keyboardWindow() != native)
            SetFocus(keyboardWindow());
        return 0;
    case WM_SIZE:
        gApplicationHidden = wParam == SIZE_MINIMIZED;
        return 0;
    case WM_SETCURSOR:
        if (reinterpret_cast<HWND>(wParam) == native)
            return setCursor(native, wParam, lParam);
        break;
    case WM_ENABLE:
        // A dialog of the system's runs while the main window takes no input.
        wParam ? leaveSystemLoop() : enterSystemLoop();
        return 0;
    case WM_QUERYENDSESSION:
    case WM_CLOSE:
        askToQuit();
        return message == WM_QUERYENDSESSION;
    default:
        break;
    }
    return DefWindowProcA(native, message, wParam, lParam);
}

} // namespace hostkit
